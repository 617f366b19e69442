#pragma once
// "Übersicht" ("WP_uebersicht"): the five inputs of the HTML overview (the
// template, offered from "Vorlagen/" or any file; the page to write; the list's
// title and heading; a background picture, preset from "Hintergrundbild..."),
// saved to and loaded from a settings file. OK writes the page through the
// output service, which checks the inputs and shows its messages, and opens it
// with the desktop's default program; on a failure the dialog stays open with
// what was typed.

#include "app/CApplikation.h"
#include "ui/dialoge/Dialog.h"

class QComboBox;
class QLineEdit;

namespace dv::ui {

class TextFeld;

class CDlgUebersicht : public Dialog {
    Q_OBJECT
  public:
    CDlgUebersicht(QWidget* eltern, CApplikation& app);

    // The inputs as the widgets hold them, and back.
    UebersichtWerte werte() const;
    void setzeWerte(const UebersichtWerte& w);

  public slots:
    void laden();
    void speichern();
    void accept() override;

  private:
    void waehlePfad(QLineEdit* feld, const QString& name, bool speichern, const QString& filter);

    QComboBox* vorlage_;
    QLineEdit* ziel_;
    TextFeld* titel_;
    TextFeld* ueberschrift_;
    QLineEdit* hintergrund_;
};

}  // namespace dv::ui
