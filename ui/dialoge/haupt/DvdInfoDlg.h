#pragma once
// "DVD-Info" ("WP_dvdinfo"): the facts of the disc in the default drive, one
// selectable line per fact, as the DVD dialog reads them.

#include "app/LaufwerkDienst.h"
#include "ui/dialoge/Dialog.h"

namespace dv::ui {

class DvdInfoDlg : public Dialog {
    Q_OBJECT
  public:
    DvdInfoDlg(QWidget* eltern, CApplikation& app, const std::vector<DiscAngabe>& angaben);
};

}  // namespace dv::ui
