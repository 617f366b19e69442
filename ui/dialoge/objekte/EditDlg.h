#pragma once
// The frame of the edit dialogs: "OK" (the default button, so Enter confirms
// where no list or text editor wants the key) and "Abbrechen" at the bottom.
// OK first checks what only the screen can check (texts the code page cannot
// hold, numbers typed as text), then hands the value to the caller's store
// function and closes only when that succeeded: a refused value stays in the
// dialog to be corrected, and nothing the user typed is lost. Abbrechen and
// Escape close without storing anything.

#include <functional>

#include "ui/dialoge/Dialog.h"

class QDialogButtonBox;

namespace dv::ui {

class ListenPaar;

class EditDlg : public Dialog {
    Q_OBJECT
  public:
    // Returns true when the value was stored (the dialog then closes).
    using Speichern = std::function<bool()>;
    void setzeSpeichern(Speichern s) { speichern_ = std::move(s); }

  public slots:
    void accept() override;

  protected:
    EditDlg(QWidget* eltern, CApplikation& app, const char* wpName, const QString& titel);

    // The "OK" / "Abbrechen" row, connected; the caller places it.
    QDialogButtonBox* knoepfe();
    // The checks before storing; each shows its own message and returns false.
    virtual bool pruefeEingaben() { return true; }
    // Shows a message of the screen's checks under "Hinweis".
    void hinweis(const std::string& text);
    // "Neu..." of a list pair: asks for the name of a new entry of the catalogue
    // (katalog: "Extras", "Genre" ...) and assigns it; it is created on OK.
    void erlaubeNeu(ListenPaar& paar, const QString& katalog);

  private:
    Speichern speichern_;
};

}  // namespace dv::ui
