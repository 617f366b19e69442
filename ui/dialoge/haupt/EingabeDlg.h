#pragma once
// A question for one line of text: "Box-Titel finden", "EAN finden",
// "Import-URL". The text field takes the limit the caller gives (the record
// field's, or the setting's) and only characters the catalogue can hold.

#include <string>

#include "ui/dialoge/Dialog.h"

namespace dv::ui {

class TextFeld;

class EingabeDlg : public Dialog {
    Q_OBJECT
  public:
    // beschriftung: the label with its mnemonic ("&Titel:"); vorgabe in the
    // catalogue code page.
    EingabeDlg(QWidget* eltern, CApplikation& app, const char* wpName, const QString& titel,
               const QString& beschriftung, const std::string& vorgabe, int grenze);

    std::string text8() const;
    TextFeld* feld() const { return feld_; }

  private:
    TextFeld* feld_;
};

}  // namespace dv::ui
