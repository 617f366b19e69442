#include "ui/dialoge/Dialog.h"

#include "app/CApplikation.h"
#include "ui/dialoge/Fensterposition.h"
#include "ui/widgets/Benennung.h"

namespace dv::ui {

Dialog::Dialog(QWidget* eltern, CApplikation& app, const char* wpName, const QString& titel)
    : QDialog(eltern), app_(app), wpName_(wpName) {
    setObjectName(QString::fromLatin1(wpName));
    setWindowTitle(titel);
    setAccessibleName(titel);
}

void Dialog::fertig() {
    benenneSteuerelemente(*this);
}

void Dialog::showEvent(QShowEvent* ereignis) {
    if (!gezeigt_) {
        gezeigt_ = true;
        stelleFensterWiederHer(*this, app_.einstellungen(), wpName_.c_str());
    }
    QDialog::showEvent(ereignis);
}

void Dialog::done(int ergebnis) {
    if (gezeigt_) speichereFenster(*this, app_.einstellungen(), wpName_.c_str());
    QDialog::done(ergebnis);
}

}  // namespace dv::ui
