#pragma once
// A window showing a longer text: the XML document ("XML-Ausgabe [%s]"), an
// information list, the boxes an export left out. "Speichern..." writes the text
// byte for byte as it was handed over (catalogue code page, its line ends) into a
// file of the user's choice, "Kopieren" puts it on the clipboard.

#include <string>

#include "ui/dialoge/Dialog.h"

class QPlainTextEdit;

namespace dv::ui {

class TextFenster : public Dialog {
    Q_OBJECT
  public:
    // endung: the default extension of the saved file ("xml", "txt"). A window
    // opened with open() should also get Qt::WA_DeleteOnClose.
    TextFenster(QWidget* eltern, CApplikation& app, const QString& titel, std::string text,
                const QString& endung);

    const std::string& text() const { return text_; }
    QPlainTextEdit* anzeige() const { return anzeige_; }

  public slots:
    void speichern();
    void kopieren();

  private:
    void schreibe(const QString& pfad);

    std::string text_;
    QString endung_;
    QPlainTextEdit* anzeige_;
};

}  // namespace dv::ui
