#pragma once
// The options of "Alle e&xportieren": whether the box files carry the tags.

#include "ui/dialoge/Dialog.h"

class QCheckBox;

namespace dv::ui {

class ExportOptionenDlg : public Dialog {
    Q_OBJECT
  public:
    ExportOptionenDlg(QWidget* eltern, CApplikation& app, bool tags);
    bool tags() const;

  private:
    QCheckBox* tags_;
};

}  // namespace dv::ui
