#pragma once
// "Optionen": one check box per option the program reads, grouped by where it
// acts, and the number of films "Aufklappen" opens at most. Loads the values on
// construction and hands the edited ones out with werte(); bits it does not
// show stay as they were.

#include <utility>
#include <vector>

#include "app/OptionenDienst.h"
#include "ui/dialoge/Dialog.h"

class QCheckBox;
class QSpinBox;

namespace dv::ui {

class OptionenDlg : public Dialog {
    Q_OBJECT
  public:
    OptionenDlg(QWidget* eltern, CApplikation& app, const OptionenWerte& w);

    OptionenWerte werte() const;

  private:
    OptionenWerte alt_;
    std::vector<std::pair<QCheckBox*, std::uint32_t>> schalter_;
    QCheckBox* discErkennung_;
    QSpinBox* maxFilme_;
};

}  // namespace dv::ui
