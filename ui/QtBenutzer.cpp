#include "ui/QtBenutzer.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QMessageBox>

#include "app/Zeichensatz.h"
#include "ui/dialoge/import/CDlgAuswahl.h"
#include "ui/dialoge/import/CDlgImportInfo.h"
#include "ui/dialoge/import/ObjektBestaetigenDlg.h"
#include "ui/widgets/FortschrittFenster.h"
#include "ui/widgets/TextFenster.h"

namespace dv::ui {

QString bildschirmText(const std::string& cp1252) {
    QString t = alsQString(cp1252);
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return t;
}

static QMessageBox::Icon icon(Symbol s) {
    switch (s) {
        case Symbol::Information:
            return QMessageBox::Information;
        case Symbol::Warnung:
            return QMessageBox::Warning;
        case Symbol::Fehler:
            return QMessageBox::Critical;
        case Symbol::Frage:
            return QMessageBox::Question;
        case Symbol::Keins:
            break;
    }
    return QMessageBox::NoIcon;
}

bool QtBenutzer::frage(const std::string& titel, const std::string& text) {
    return QMessageBox::question(eltern_, bildschirmText(titel), bildschirmText(text),
                                 QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void QtBenutzer::meldung(const std::string& titel, const std::string& text, Symbol symbol) {
    QMessageBox box(icon(symbol), bildschirmText(titel), bildschirmText(text), QMessageBox::Ok,
                    eltern_);
    box.exec();
}

ObjektAntwort QtBenutzer::objektBestaetigen(const ObjektDialog& d) {
    // The import waits for the answer: the one place a dialog runs its own loop.
    ObjektBestaetigenDlg dlg(eltern_, *app_, d);
    dlg.exec();
    return dlg.antwort();
}

std::vector<int> QtBenutzer::waehle(const std::string& titel, const std::string& spalte,
                                    const std::vector<std::string>& eintraege, bool mehrfach,
                                    int vorauswahl) {
    CDlgAuswahl dlg(eltern_, *app_, CDlgAuswahl::wpNameFuer(titel), bildschirmText(titel),
                    bildschirmText(spalte), eintraege, mehrfach, vorauswahl);
    dlg.exec();
    return dlg.gewaehlt();
}

bool QtBenutzer::info(const std::string& titel,
                      const std::vector<std::pair<std::string, std::string>>& felder) {
    CDlgImportInfo dlg(eltern_, *app_, bildschirmText(titel), felder);
    return dlg.exec() == QDialog::Accepted;
}

void QtBenutzer::zeigeText(const std::string& titel, const std::string& text) {
    TextFenster fenster(eltern_, *app_, bildschirmText(titel), text, QStringLiteral("txt"));
    fenster.exec();
}

void QtBenutzer::fortschritt(const std::string& text, int schritt, int gesamt) {
    if (!fortschritt_) {
        fortschritt_ = new FortschrittFenster(eltern_, alsQString("DORVANO"));
        fortschritt_->setAttribute(Qt::WA_DeleteOnClose);
        fortschritt_->show();
    }
    fortschritt_->setzeStand(bildschirmText(text), schritt, gesamt);
    if (schritt >= gesamt) fortschritt_->close();
}

bool QtBenutzer::unterbrechen() {
    if (fortschritt_ && fortschritt_->abgebrochen()) {
        fortschritt_->reset();
        return true;
    }
    return (QGuiApplication::queryKeyboardModifiers() & Qt::ControlModifier) != 0;
}

bool QtBenutzer::zwischenablage(const std::string& text) {
    QClipboard* ablage = QGuiApplication::clipboard();
    if (!ablage) return false;
    ablage->setText(alsQString(text));
    return true;
}

}  // namespace dv::ui
