#include "ui/steuerung/SystemSteuerung.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QTimer>
#include <QTreeView>

#include "app/CApplikation.h"
#include "app/Gedenken.h"
#include "app/Hintergrund.h"
#include "app/LaufwerkDienst.h"
#include "app/OptionenDienst.h"
#include "app/Programminfo.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/haupt/DvdInfoDlg.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/haupt/InfoDlg.h"
#include "ui/dialoge/haupt/OptionenDlg.h"
#include "ui/steuerung/DiscWaechter.h"

namespace dv::ui {

void DatenbankSteuerung::verbinde(Aktionen& a) {
    a.verbinde(kCmdValidieren, this, &DatenbankSteuerung::validieren);
}

void DatenbankSteuerung::validieren() {
    if (app().validiereDatenbank()) baum().ladeNeu();
}

LaufwerkSteuerung::LaufwerkSteuerung(Fensterteile& teile)
    : Steuerung(teile),
      laufwerke_(&systemLaufwerke()),
      waechter_(new DiscWaechter(teile.app, teile.baum, this)) {
    connect(waechter_, &DiscWaechter::gemeldet, this, [this](const QString& t) { status(t); });
}

void LaufwerkSteuerung::setzeLaufwerke(Laufwerke& l) {
    laufwerke_ = &l;
    waechter_->setzeLaufwerke(l);
}

void LaufwerkSteuerung::verbinde(Aktionen& a) {
    using S = LaufwerkSteuerung;
    a.verbinde(kCmdDvdInfo, this, &S::info);
    a.verbinde(kCmdErkennen, this, &S::erkennen);
    a.verbinde(kCmdAusfahren, this, &S::ausfahren);
    a.verbinde(kCmdEinfahren, this, &S::einfahren);
    a.verbinde(kCmdLaufwerk, this, &S::laufwerk);
}

void LaufwerkSteuerung::info() {
    const auto angaben = LaufwerkDienst(app(), *laufwerke_).info();
    if (angaben.empty()) return;
    auto* dlg = new DvdInfoDlg(fenster(), app(), angaben);
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    dlg->open();
}

void LaufwerkSteuerung::erkennen() {
    const DiscFund fund = LaufwerkDienst(app(), *laufwerke_).erkenne();
    if (fund.dvdId <= 0) return;
    if (!baum().zeige(2, fund.dvdId)) {
        hinweis("Die DVD \"" + app().dienste().katalog().name(2, fund.dvdId) +
                "\" liegt in keiner Box.");
        return;
    }
    baum().baum()->setFocus();
}

void LaufwerkSteuerung::ausfahren() {
    if (LaufwerkDienst(app(), *laufwerke_).schublade(true))
        status(QStringLiteral("Die Schublade wurde geöffnet."));
}

void LaufwerkSteuerung::einfahren() {
    if (LaufwerkDienst(app(), *laufwerke_).schublade(false))
        status(QStringLiteral("Die Schublade wurde geschlossen."));
}

void LaufwerkSteuerung::laufwerk() {
    LaufwerkDienst(app(), *laufwerke_).waehleLaufwerk();
}

void EinstellungenSteuerung::verbinde(Aktionen& a) {
    using S = EinstellungenSteuerung;
    a.verbinde(kCmdOptionen, this, &S::optionen);
    a.verbinde(kCmdImportUrl, this, &S::importUrl);
    a.verbinde(kCmdHintergrund, this, &S::hintergrund);
}

void EinstellungenSteuerung::optionen() {
    OptionenDienst dienst(app());
    auto* dlg = new OptionenDlg(fenster(), app(), dienst.lade());
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this, [this, dlg] {
        OptionenDienst d(app());
        melde(d.speichere(dlg->werte()));
    });
    dlg->open();
}

void EinstellungenSteuerung::importUrl() {
    std::string url;
    app().einstellungen().getImportUrl(url);
    auto* dlg = new EingabeDlg(fenster(), app(), "WP_importurl", QStringLiteral("Import-URL"),
                               QStringLiteral("&Adresse des Import-Servers:"), url, kMaxImportUrl);
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this,
            [this, dlg] { melde(speichereImportUrl(app(), dlg->text8())); });
    dlg->open();
}

void EinstellungenSteuerung::hintergrund() {
    const QString bisher = QString::fromStdString(standardHintergrund(app()));
    auto* wahl = new QFileDialog(fenster(), QStringLiteral("Hintergrundbild der Übersicht wählen"),
                                 QFileInfo(bisher).absolutePath());
    wahl->setObjectName(QStringLiteral("Hintergrundbild"));
    wahl->setFileMode(QFileDialog::ExistingFile);
    wahl->setNameFilters({QStringLiteral("Bilder (*.jpg *.jpeg *.png *.gif *.bmp *.svg)"),
                          QStringLiteral("Alle Dateien (*)")});
    if (!bisher.isEmpty()) wahl->selectFile(bisher);
    wahl->setAttribute(Qt::WA_DeleteOnClose);
    connect(wahl, &QFileDialog::fileSelected, this, [this](const QString& pfad) {
        if (melde(setzeStandardHintergrund(app(), pfad.toStdString())))
            status(QStringLiteral("Hintergrundbild der Übersicht: ") + QFileInfo(pfad).fileName());
    });
    wahl->open();
}

HilfeSteuerung::HilfeSteuerung(Fensterteile& teile) : Steuerung(teile), uhr_(new QTimer(this)) {
    // Widgets belong to the GUI thread: the check runs there, once a second.
    uhr_->setInterval(1000);
    connect(uhr_, &QTimer::timeout, this, &HilfeSteuerung::pruefeGedenkzeit);
    uhr_->start();
}

void HilfeSteuerung::verbinde(Aktionen& a) {
    a.verbinde(kCmdInfo, this, &HilfeSteuerung::info);
    a.verbinde(kCmdMemoriam, this, &HilfeSteuerung::memoriam);
    pruefeGedenkzeit();
}

void HilfeSteuerung::pruefeGedenkzeit() {
    if (QAction* a = teile_.aktionen.aktion(kCmdMemoriam)) a->setVisible(istGedenkzeit());
}

void HilfeSteuerung::info() {
    auto* dlg = new InfoDlg(fenster(), app(), programmInfo(app()));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    dlg->open();
}

void HilfeSteuerung::memoriam() {
    benutzer().meldung("Memoriam", gedenkText(), Symbol::Information);
}

}  // namespace dv::ui
