#pragma once
// The film dialog's "Sprachen": the film's languages, each with its sound
// format ("%s / %s"), in order. Choose both, "Hinzufügen" (or Enter in the
// sound format); remove and move with the buttons. A name not in its catalogue
// yet is created on the dialog's OK.

#include <QWidget>
#include <vector>

#include "app/Werte.h"

class QListWidget;

namespace dv::ui {

class EintragWahl;

class SprachenSeite : public QWidget {
    Q_OBJECT
  public:
    SprachenSeite(const std::vector<Eintrag>& sprachen, const std::vector<Eintrag>& tonformate,
                  QWidget* eltern = nullptr);

    void setze(const std::vector<SpracheWert>& liste);
    std::vector<SpracheWert> sprachen() const;
    QListWidget* liste() const { return liste_; }
    EintragWahl* sprache() const { return sprache_; }
    EintragWahl* tonformat() const { return tonformat_; }

  public slots:
    void hinzufuegen();

  private:
    void fuegeAn(const SpracheWert& s);

    QListWidget* liste_;
    EintragWahl* sprache_;
    EintragWahl* tonformat_;
};

}  // namespace dv::ui
