#pragma once
// "Info über DORVANO": program and data version, the program folder, the
// settings file and the libraries with their licences.

#include "app/Programminfo.h"
#include "ui/dialoge/Dialog.h"

namespace dv::ui {

class InfoDlg : public Dialog {
    Q_OBJECT
  public:
    InfoDlg(QWidget* eltern, CApplikation& app, const ProgrammInfo& info);
};

}  // namespace dv::ui
