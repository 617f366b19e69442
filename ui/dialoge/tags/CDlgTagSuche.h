#pragma once
// "Tags suchen" ("WP_suchtags"): a text and the kind of object (all, Box, Dvd,
// Film); "Suchen" runs the tag search with its progress and opens the hits.
// An empty text does nothing.

#include "ui/dialoge/Dialog.h"

class QComboBox;

namespace dv::ui {

class Objektbefehle;
class TextFeld;

class CDlgTagSuche : public Dialog {
    Q_OBJECT
  public:
    CDlgTagSuche(QWidget* eltern, CApplikation& app, Objektbefehle& befehle);

    TextFeld* text() const { return text_; }
    QComboBox* objekt() const { return objekt_; }

  public slots:
    void suchen();

  private:
    Objektbefehle& befehle_;
    TextFeld* text_;
    QComboBox* objekt_;
};

}  // namespace dv::ui
