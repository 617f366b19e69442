#include "ui/widgets/FortschrittFenster.h"

#include <QApplication>
#include <QPushButton>

#include "ui/widgets/Benennung.h"

namespace dv::ui {

FortschrittFenster::FortschrittFenster(QWidget* eltern, const QString& titel)
    : QProgressDialog(eltern) {
    setObjectName(QStringLiteral("Fortschritt"));
    setWindowTitle(titel);
    setAccessibleName(titel);
    setWindowModality(Qt::WindowModal);
    auto* abbrechen = new QPushButton(QStringLiteral("Abbrechen"), this);
    setCancelButton(abbrechen);
    benenne(*abbrechen, abbrechen->text());
    setAutoClose(false);
    setAutoReset(false);
    setMinimumDuration(0);
    setMinimumWidth(420);
}

void FortschrittFenster::setzeStand(const QString& text, int schritt, int gesamt) {
    setLabelText(text);
    setMaximum(gesamt > 0 ? gesamt : 0);
    setValue(gesamt > 0 && schritt > gesamt ? gesamt : schritt);
    QApplication::processEvents();
}

}  // namespace dv::ui
