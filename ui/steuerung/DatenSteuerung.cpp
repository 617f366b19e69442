#include "ui/steuerung/DatenSteuerung.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QWidget>
#include <algorithm>
#include <set>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "app/OptionenDienst.h"
#include "app/Schnellfilter.h"
#include "app/Zeichensatz.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/baum/KatalogModell.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/haupt/ExportOptionenDlg.h"

namespace dv::ui {

namespace {

std::string nativ(const QString& pfad) {
    return QFile::encodeName(pfad).toStdString();
}

std::string dateiName(const std::string& pfad) {
    return ausQString(QFileInfo(QFile::decodeName(pfad.c_str())).fileName());
}

std::set<long> boxIds(KatalogDienst& katalog) {
    std::set<long> ids;
    for (const BoxZeile& b : katalog.boxen()) ids.insert(b.id);
    return ids;
}

}  // namespace

void DatenSteuerung::verbinde(Aktionen& a) {
    using S = DatenSteuerung;
    a.verbinde(kCmdBoxTitelFinden, this, &S::boxTitelFinden);
    a.verbinde(kCmdEanFinden, this, &S::eanFinden);
    a.verbinde(kCmdImportieren, this, &S::importieren);
    a.verbinde(kCmdExportieren, this, &S::exportieren);
    a.verbinde(kCmdAlleExportieren, this, &S::alleExportieren);
    a.verbinde(kCmdAnzahl, this, &S::anzahl);
    a.verbinde(kCmdBeenden, this, &S::beenden);
}

void DatenSteuerung::boxTitelFinden() {
    finde(false);
}

void DatenSteuerung::eanFinden() {
    finde(true);
}

void DatenSteuerung::finde(bool nachEan) {
    auto* dlg = new EingabeDlg(
        fenster(), app(), nachEan ? "WP_eanfinden" : "WP_titelfinden",
        nachEan ? QStringLiteral("EAN finden") : QStringLiteral("Box-Titel finden"),
        nachEan ? QStringLiteral("&EAN (auch mit * und ?):")
                : QStringLiteral("&Titel (auch mit * und ?):"),
        muster_[nachEan ? 1 : 0], static_cast<int>(nachEan ? kMaxEan : kMaxBezeichnung));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this,
            [this, dlg, nachEan] { findeWeiter(nachEan, dlg->text8()); });
    dlg->open();
}

void DatenSteuerung::findeWeiter(bool nachEan, const std::string& muster) {
    const int i = nachEan ? 1 : 0;
    const std::vector<long> treffer =
        findeBoxen(app().dienste().katalog().boxen(), muster, nachEan, app().sucheGrossKlein());
    if (treffer.empty()) {
        fund_[i] = 0;
        benutzer().meldung("Hinweis",
                           (nachEan ? "EAN \"" : "Box-Titel \"") + muster + "\" nicht gefunden.",
                           Symbol::Information);
        return;
    }
    long ziel = treffer.front();
    if (muster == muster_[i]) {
        auto it = std::find(treffer.begin(), treffer.end(), fund_[i]);
        if (it != treffer.end() && std::next(it) != treffer.end()) ziel = *std::next(it);
    }
    muster_[i] = muster;
    fund_[i] = ziel;
    baum().zeige(1, ziel);
}

void DatenSteuerung::importieren() {
    auto* wahl =
        new QFileDialog(fenster(), QStringLiteral("Bitte das Import-Verzeichnis auswählen"));
    wahl->setObjectName(QStringLiteral("Importdateien"));
    wahl->setFileMode(QFileDialog::ExistingFiles);
    wahl->setNameFilter(QStringLiteral("Box Datei (*.box)"));
    wahl->setAttribute(Qt::WA_DeleteOnClose);
    connect(wahl, &QFileDialog::filesSelected, this, &DatenSteuerung::importiereDateien);
    wahl->open();
}

void DatenSteuerung::importiereDateien(const QStringList& pfade) {
    std::vector<std::string> liste;
    for (const QString& p : pfade) liste.push_back(nativ(p));
    if (liste.size() == 1)
        importiereEine(liste.front());
    else if (!liste.empty())
        importiereMehrere(liste);
}

void DatenSteuerung::importiereEine(const std::string& pfad) {
    long id = 0;
    const ImportErgebnis r =
        app().austausch().importiere(pfad, importOptionen(app().austausch().optionen()), &id);
    if (r == ImportErgebnis::Importiert) {
        baum().modell().geaendert(Aenderung{AenderungsArt::Neu, AenderungsTyp::Box, id, 0, 0});
        baum().zeige(1, id);
        status(QStringLiteral("Box importiert: ") + alsQString(dateiName(pfad)));
    } else if (r == ImportErgebnis::KeineBoxDatei) {
        benutzer().meldung("Import-Fehler",
                           "Die Datei \"" + dateiName(pfad) +
                               "\" ist keine gültige Box-Datei.\nDer Katalog bleibt unverändert.",
                           Symbol::Fehler);
    } else if (r == ImportErgebnis::Fehler) {
        benutzer().meldung("Import-Fehler",
                           "Die Box aus \"" + dateiName(pfad) +
                               "\" konnte nicht in den Katalog geschrieben werden.",
                           Symbol::Fehler);
    }
}

void DatenSteuerung::importiereMehrere(const std::vector<std::string>& pfade) {
    KatalogDienst& katalog = app().dienste().katalog();
    const std::set<long> vorher = boxIds(katalog);
    const std::uint32_t optionen = app().austausch().optionen();
    const auto eintraege = app().austausch().stapelImport(pfade, (optionen & kOptStapelInfo) != 0,
                                                          importOptionen(optionen));
    baum().ladeNeu();
    long zuletzt = 0;
    for (long id : boxIds(katalog))
        if (!vorher.count(id)) zuletzt = std::max(zuletzt, id);
    if (zuletzt > 0) baum().zeige(1, zuletzt);
    int importiert = 0;
    std::string fremd;
    for (const StapelImportEintrag& e : eintraege) {
        if (e.ergebnis == ImportErgebnis::Importiert) ++importiert;
        if (e.ergebnis == ImportErgebnis::KeineBoxDatei) fremd += "\n" + dateiName(e.pfad);
    }
    status(QStringLiteral("%1 von %2 Dateien importiert.").arg(importiert).arg(pfade.size()));
    if (!fremd.empty())
        benutzer().meldung("Import-Fehler",
                           "Diese Dateien waren keine gültigen Box-Dateien und wurden nicht "
                           "importiert:" +
                               fremd,
                           Symbol::Warnung);
}

void DatenSteuerung::waehleOrdner(const QString& start,
                                  std::function<void(const QString&)> weiter) {
    auto* wahl =
        new QFileDialog(fenster(), QStringLiteral("Bitte das Export-Verzeichnis auswählen"), start);
    wahl->setObjectName(QStringLiteral("Exportordner"));
    wahl->setFileMode(QFileDialog::Directory);
    wahl->setOption(QFileDialog::ShowDirsOnly);
    wahl->setAttribute(Qt::WA_DeleteOnClose);
    connect(wahl, &QFileDialog::fileSelected, this, std::move(weiter));
    wahl->open();
}

void DatenSteuerung::exportieren() {
    const long box = auswahl().box;
    auto werte = app().dienste().objekte().ladeBox(box);
    if (!melde(werte)) return;
    // Refused before the folder is asked for: there would be no file name.
    if (werte->ean.empty()) {
        benutzer().meldung("Hinweis", "Diese Box besitzt keine EAN.", Symbol::Information);
        return;
    }
    waehleOrdner(QString(), [this, box](const QString& ordner) { exportiereNach(box, ordner); });
}

void DatenSteuerung::exportiereNach(long boxId, const QString& ordner) {
    SchreibOptionen o;
    o.tags = (app().austausch().optionen() & kOptExportTags) != 0;
    std::string pfad;
    const ExportErgebnis r = app().austausch().exportiere(boxId, nativ(ordner) + "/", o, &pfad);
    if (r == ExportErgebnis::Exportiert)
        status(QStringLiteral("Box exportiert: ") + QFile::decodeName(pfad.c_str()));
    if (r == ExportErgebnis::Fehler)
        benutzer().meldung("Fehler...",
                           "Die Box-Datei \"" + ausQString(QFile::decodeName(pfad.c_str())) +
                               "\" konnte nicht geschrieben werden.\nIst der Ordner beschreibbar?",
                           Symbol::Fehler);
}

void DatenSteuerung::alleExportieren() {
    const bool tagsVorgabe = (app().austausch().optionen() & kOptExportTags) != 0;
    auto* dlg = new ExportOptionenDlg(fenster(), app(), tagsVorgabe);
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this, [this, dlg] {
        const bool tags = dlg->tags();
        waehleOrdner(QFile::decodeName(app().austausch().letzterExportOrdner().c_str()),
                     [this, tags](const QString& ordner) { exportiereAlleNach(tags, ordner); });
    });
    dlg->open();
}

void DatenSteuerung::exportiereAlleNach(bool tags, const QString& ordner) {
    if (!QFileInfo(ordner).isDir() || !QFileInfo(ordner).isWritable()) {
        benutzer().meldung("Fehler...",
                           "In den Ordner \"" + ausQString(ordner) +
                               "\" kann nicht geschrieben werden.\nEs wurde nichts exportiert.",
                           Symbol::Fehler);
        return;
    }
    const StapelExportErgebnis e = app().austausch().exportiereAlle(nativ(ordner) + "/", tags);
    status(QStringLiteral("%1 von %2 Boxen exportiert.").arg(e.exportiert).arg(e.gesamt));
}

void DatenSteuerung::anzahl() {
    const Anzahl n = app().dienste().katalog().anzahl();
    hinweis("Boxen: " + std::to_string(n.boxen) + "\nDvds: " + std::to_string(n.dvds) +
            "\nFilme: " + std::to_string(n.filme));
}

void DatenSteuerung::beenden() {
    fenster()->close();
}

}  // namespace dv::ui
