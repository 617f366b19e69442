#pragma once
// The smaller menu areas, one controller each: "Daten&bank" (validation),
// "D&VD" (disc information, recognition, tray, and the drive choice of
// "&Einstellungen"), "&Einstellungen" (options, import address, background
// picture) and "&Hilfe" with the day's "&Memoriam".

#include "ui/steuerung/Steuerung.h"

class QTimer;

namespace dv {
class Laufwerke;
}

namespace dv::ui {

class DiscWaechter;

class DatenbankSteuerung : public Steuerung {
    Q_OBJECT
  public:
    explicit DatenbankSteuerung(Fensterteile& teile) : Steuerung(teile) {}
    void verbinde(Aktionen& aktionen) override;

  public slots:
    void validieren();
};

class LaufwerkSteuerung : public Steuerung {
    Q_OBJECT
  public:
    // Works on the machine's drives until setzeLaufwerke() names others; starts
    // looking for inserted discs.
    explicit LaufwerkSteuerung(Fensterteile& teile);
    void verbinde(Aktionen& aktionen) override;
    // l must outlive the controller (tests put disc images in the place of drives).
    void setzeLaufwerke(Laufwerke& l);
    DiscWaechter& waechter() const { return *waechter_; }

  public slots:
    void info();
    void erkennen();
    void ausfahren();
    void einfahren();
    void laufwerk();

  private:
    Laufwerke* laufwerke_;
    DiscWaechter* waechter_;
};

class EinstellungenSteuerung : public Steuerung {
    Q_OBJECT
  public:
    explicit EinstellungenSteuerung(Fensterteile& teile) : Steuerung(teile) {}
    void verbinde(Aktionen& aktionen) override;

  public slots:
    void optionen();
    void importUrl();
    void hintergrund();
};

class HilfeSteuerung : public Steuerung {
    Q_OBJECT
  public:
    // Starts the once-a-second check of the day of remembrance.
    explicit HilfeSteuerung(Fensterteile& teile);
    void verbinde(Aktionen& aktionen) override;

    // Shows or hides "&Memoriam" for the current time; the timer calls it.
    void pruefeGedenkzeit();

  public slots:
    void info();
    void memoriam();

  private:
    QTimer* uhr_;
};

}  // namespace dv::ui
