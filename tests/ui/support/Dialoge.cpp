#include "tests/ui/support/Dialoge.h"

#include <QApplication>
#include <QLineEdit>

#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/suche/Liste.h"
#include "ui/widgets/TextFeld.h"

namespace dv::test {

bool klicke(QWidget& w, const QString& name) {
    auto* b = w.findChild<QPushButton*>(name);
    if (!b || !b->isEnabled()) return false;
    b->click();
    QApplication::processEvents();
    return true;
}

bool setze(QComboBox& c, const QString& text) {
    const int i = c.findText(text);
    if (i < 0) return false;
    c.setCurrentIndex(i);
    return true;
}

QStringList zeilen(const ui::ListenAnsicht& l) {
    QStringList v;
    const ui::TextTabelle& m = l.modell();
    for (int z : l.angezeigte()) {
        QStringList spalten;
        for (int s = 0; s < m.columnCount(); ++s) spalten << m.index(z, s).data().toString();
        v << spalten.join(QStringLiteral(" | "));
    }
    return v;
}

bool nimmDatei(QWidget& w, const QString& name, const std::string& pfad) {
    for (QFileDialog* wahl : w.findChildren<QFileDialog*>(name)) {
        if (!wahl->isVisible()) continue;
        wahl->selectFile(QString::fromStdString(pfad));
        // A proposed name stays in the name field unless it is typed over.
        if (auto* feld = wahl->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
            feld->setText(QString::fromStdString(pfad));
        QMetaObject::invokeMethod(wahl, "accept");
        QApplication::processEvents();
        return true;
    }
    return false;
}

bool gibEin(QWidget& w, const QString& name, const QString& text) {
    // Closed inputs wait for their deletion: only the open one counts.
    for (ui::EingabeDlg* dlg : w.findChildren<ui::EingabeDlg*>(name)) {
        if (!dlg->isVisible()) continue;
        dlg->feld()->setText(text);
        dlg->accept();
        QApplication::processEvents();
        return true;
    }
    return false;
}

}  // namespace dv::test
