#pragma once
// "&Objekte": creating and editing boxes, DVDs and films, a film's content,
// comment and person structure, and the lookup catalogues. Each slot opens its
// edit dialog; the edit dialogs fill these slots (until then they say so).

#include "ui/steuerung/Steuerung.h"

namespace dv::ui {

class BearbeitenSteuerung : public Steuerung {
    Q_OBJECT
  public:
    explicit BearbeitenSteuerung(Fensterteile& teile) : Steuerung(teile) {}
    void verbinde(Aktionen& aktionen) override;

  public slots:
    void boxNeu();
    void boxBearbeiten();
    // A new DVD in the current box (or in the box of the current DVD).
    void dvdNeu();
    void dvdBearbeiten();
    // A new film on the current DVD (or on the DVD of the current film).
    void filmNeu();
    void filmBearbeiten();
    // "Be&arbeiten..." and Enter: the dialog of the current node's object.
    void bearbeiten();
    void inhalt();
    void kommentar();
    void personenStruktur();

    // The lookup catalogues.
    void bildformate();
    void extras();
    void formate();
    void funktionen();
    void genres();
    void personen();
    void sprachen();
    void tonformate();
    void untertitel();
    void verpackungen();
};

}  // namespace dv::ui
