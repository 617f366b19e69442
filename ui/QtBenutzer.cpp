#include "ui/QtBenutzer.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/Zeichensatz.h"

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
    QDialog dlg(eltern_);
    dlg.setWindowTitle(bildschirmText(d.titel));
    auto* layout = new QVBoxLayout(&dlg);
    layout->addWidget(new QLabel(bildschirmText(d.zeile)));
    layout->addWidget(new QLabel(bildschirmText(d.typ)));
    auto* form = new QFormLayout;
    std::vector<QLineEdit*> edits;
    for (std::size_t i = 0; i < d.felder.size(); ++i) {
        auto* e = new QLineEdit(bildschirmText(d.felder[i]));
        e->setMaxLength(128);
        e->setReadOnly(d.modus != ObjektModus::Bearbeiten);
        form->addRow(i < d.feldNamen.size() ? bildschirmText(d.feldNamen[i]) : QString(), e);
        edits.push_back(e);
    }
    layout->addLayout(form);
    auto* liste = new QListWidget;
    for (const auto& s : d.liste) liste->addItem(bildschirmText(s));
    liste->setEnabled(d.modus == ObjektModus::Auswahl);
    layout->addWidget(liste);
    auto* knoepfe = new QDialogButtonBox;
    ObjektAntwort a;
    a.taste = ObjektTaste::Letzte;
    auto knopf = [&](const QString& text, ObjektTaste taste, bool aktiv) {
        QPushButton* b = knoepfe->addButton(text, QDialogButtonBox::ActionRole);
        b->setEnabled(aktiv);
        QObject::connect(b, &QPushButton::clicked, &dlg, [&a, &dlg, taste] {
            a.taste = taste;
            dlg.accept();
        });
    };
    const bool normal = d.modus == ObjektModus::Normal;
    knopf(QStringLiteral("OK"), ObjektTaste::OK, true);
    knopf(QStringLiteral("Alle OK"), ObjektTaste::AlleOK, true);
    knopf(QStringLiteral("Edit"), ObjektTaste::Edit, normal);
    knopf(QStringLiteral("Auswahl"), ObjektTaste::Auswahl, normal && d.auswahlMoeglich);
    knopf(QStringLiteral("Nicht"), ObjektTaste::Nicht, true);
    knopf(bildschirmText(d.letzteTaste), ObjektTaste::Letzte, true);
    layout->addWidget(knoepfe);
    dlg.exec();
    for (QLineEdit* e : edits) a.felder.push_back(ausQString(e->text()));
    a.gewaehlt = liste->currentRow();
    return a;
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
    QDialog dlg(eltern_);
    dlg.setWindowTitle(bildschirmText(titel));
    auto* layout = new QVBoxLayout(&dlg);
    auto* feld = new QPlainTextEdit(bildschirmText(text));
    feld->setReadOnly(true);
    layout->addWidget(feld);
    auto* knoepfe = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(knoepfe, &QDialogButtonBox::rejected, &dlg, &QDialog::reject);
    layout->addWidget(knoepfe);
    dlg.resize(520, 360);
    dlg.exec();
}

void QtBenutzer::fortschritt(const std::string& text, int schritt, int gesamt) {
    if (!fortschritt_) {
        fortschritt_ = new QProgressDialog(eltern_);
        fortschritt_->setWindowModality(Qt::WindowModal);
        fortschritt_->setCancelButton(nullptr);
        fortschritt_->setMinimumDuration(300);
        fortschritt_->setAutoClose(true);
    }
    fortschritt_->setLabelText(bildschirmText(text));
    fortschritt_->setMaximum(gesamt > 0 ? gesamt : 0);
    fortschritt_->setValue(schritt >= gesamt ? gesamt : schritt);
    if (schritt >= gesamt) fortschritt_->deleteLater();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

bool QtBenutzer::unterbrechen() {
    return (QGuiApplication::queryKeyboardModifiers() & Qt::ControlModifier) != 0;
}

bool QtBenutzer::zwischenablage(const std::string& text) {
    QClipboard* ablage = QGuiApplication::clipboard();
    if (!ablage) return false;
    ablage->setText(alsQString(text));
    return true;
}

}  // namespace dv::ui
