#pragma once
// The base of every dialog of the program: a German caption, the window position
// restored on the first show and saved when the dialog closes (the settings value
// "WP_" + its short name), Escape closes it as "Abbrechen" does, and every control
// is named after its visible label once the subclass has built its widgets.
//
// A dialog maps a value type to widgets and back: the subclass loads the value
// when it is built, hands the edited value out on OK and changes nothing on
// cancel. Callers open it with open() and go on in a slot of finished()/accepted();
// no dialog runs a nested event loop of its own.

#include <QDialog>
#include <string>

namespace dv {
class CApplikation;
}

namespace dv::ui {

class Dialog : public QDialog {
    Q_OBJECT
  public:
    // app must outlive the dialog. wpName: "WP_export" and the like; the
    // objectName of the dialog is the same text.
    Dialog(QWidget* eltern, CApplikation& app, const char* wpName, const QString& titel);

    const std::string& wpName() const { return wpName_; }

  protected:
    // Call at the end of the subclass's constructor: names every control.
    void fertig();

    void showEvent(QShowEvent* ereignis) override;
    void done(int ergebnis) override;

    CApplikation& app_;

  private:
    std::string wpName_;
    bool gezeigt_ = false;
};

}  // namespace dv::ui
