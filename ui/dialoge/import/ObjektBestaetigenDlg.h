#pragma once
// "Neues Objekt bestätigen..." / "Neue Person bestätigen...": one step of the
// box import's question about an unknown lookup or person. It shows the state
// the import hands over (mode, fields, list of existing objects) and reports the
// button pressed with what the fields hold; the import drives the modes.

#include "app/CApplikation.h"
#include "ui/dialoge/Dialog.h"

class QListWidget;
class QLineEdit;

namespace dv::ui {

class ObjektBestaetigenDlg : public Dialog {
    Q_OBJECT
  public:
    ObjektBestaetigenDlg(QWidget* eltern, CApplikation& app, const ObjektDialog& d);

    // The answer once the dialog has finished (a closed window counts as the last button).
    ObjektAntwort antwort() const;

  private:
    std::vector<QLineEdit*> felder_;
    QListWidget* liste_;
    ObjektTaste taste_ = ObjektTaste::Letzte;
};

}  // namespace dv::ui
