#include "ui/QtBenutzer.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"
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
    QDialog dlg(eltern_);
    dlg.setWindowTitle(bildschirmText(titel));
    auto* layout = new QVBoxLayout(&dlg);
    layout->addWidget(new QLabel(bildschirmText(spalte)));
    auto* liste = new QListWidget;
    for (std::size_t i = 0; i < eintraege.size(); ++i) {
        auto* item = new QListWidgetItem(bildschirmText(eintraege[i]), liste);
        if (mehrfach) item->setCheckState(Qt::Unchecked);
    }
    if (vorauswahl >= 0 && vorauswahl < liste->count()) liste->setCurrentRow(vorauswahl);
    layout->addWidget(liste);
    auto* knoepfe = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(knoepfe, &QDialogButtonBox::accepted, &dlg, &QDialog::accept);
    QObject::connect(knoepfe, &QDialogButtonBox::rejected, &dlg, &QDialog::reject);
    layout->addWidget(knoepfe);
    std::vector<int> gewaehlt;
    if (dlg.exec() != QDialog::Accepted) return gewaehlt;
    for (int i = 0; i < liste->count(); ++i) {
        const bool an =
            mehrfach ? liste->item(i)->checkState() == Qt::Checked : liste->currentRow() == i;
        if (an) gewaehlt.push_back(i);
    }
    return gewaehlt;
}

bool QtBenutzer::info(const std::string& titel,
                      const std::vector<std::pair<std::string, std::string>>& felder) {
    QDialog dlg(eltern_);
    dlg.setWindowTitle(bildschirmText(titel));
    auto* form = new QFormLayout(&dlg);
    for (const auto& [name, wert] : felder)
        form->addRow(bildschirmText(name), new QLabel(bildschirmText(wert)));
    auto* knoepfe = new QDialogButtonBox;
    knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
    knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    QObject::connect(knoepfe, &QDialogButtonBox::accepted, &dlg, &QDialog::accept);
    QObject::connect(knoepfe, &QDialogButtonBox::rejected, &dlg, &QDialog::reject);
    form->addRow(knoepfe);
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
