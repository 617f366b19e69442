#include "app/CApplikation.h"
#include "app/Grenzen.h"

#include <cstdlib>

#include "base/Datenversion.h"
#include "base/Optionen.h"
#include "domain/Beschreibung.h"
#include "platform/Laufwerke.h"
#include "storage/Schreibvorgang.h"

namespace dv {

CApplikation::CApplikation(Benutzer& benutzer, Einstellungen& einstellungen, Dateisystem& fs)
    : benutzer_(benutzer), einstellungen_(einstellungen), fs_(fs), protokoll_(fs) {
    umgebung_.fs = &fs_;
    umgebung_.trace = &protokoll_;
    umgebung_.datenOrdner = ordner_.daten;
    db_ = std::make_unique<Datenbank>(umgebung_, ordner_);
    vormerklisten_ = std::make_unique<Vormerklisten>(*db_);
    tags_ = std::make_unique<Tagverwaltung>(*db_, benutzer_);
    stempeltags_ = std::make_unique<Stempeltags>(*db_, benutzer_);
    filter_ = std::make_unique<FilterVerwaltung>(*db_, einstellungen_);
    austausch_ = std::make_unique<Austausch>(*db_, ordner_, benutzer_, einstellungen_);
    austausch_->setzeFilterAbfrage([this](ExportArt art) {
        filter_->aktiviere(art);
        return filter_->aktiv(art);
    });
    dienste_ = std::make_unique<Dienste>(*this);
}

CApplikation::~CApplikation() = default;

Ergebnis CApplikation::starte(const std::string& programmOrdner,
                              std::optional<unsigned> traceMaske) {
    ordner_.setzeBasis(programmOrdner);
    if (!fs_.istOrdner(ordner_.programm) && !fs_.erzeugeOrdner(ordner_.programm))
        return Ergebnis::fehlschlag(
            formatiere("Der Programmordner \"%s\" kann nicht angelegt werden.",
                       pfadText(ordner_.programm).c_str()));
    protokoll_.setzeLogPfad(ordner_.programm + "zelka.log");
    ordner_.legeAn(fs_);
    protokoll_.setzeMeldungsOrdner(ordner_.meldungen);

    // The stored trace mask is a decimal text; the caller's mask wins.
    unsigned maske = 0;
    std::string gespeichert;
    if (einstellungen_.getText("TraceMaske", gespeichert))
        maske = static_cast<unsigned>(std::strtoul(gespeichert.c_str(), nullptr, 10));
    if (traceMaske) maske = *traceMaske;
    protokoll_.setzeMaske(maske);

    umgebung_.datenOrdner = ordner_.daten;
    if (!fs_.istOrdner(ordner_.daten))
        return Ergebnis::fehlschlag(
            formatiere("Der Datenordner \"%s\" fehlt und kann nicht angelegt werden.",
                       pfadText(ordner_.daten).c_str()));
    bereiteSchreibenVor();
    stelleWiederHer(umgebung_);
    katalog().erzeugeDatenbank();
    DV_PRUEFE(pruefeTabellen());
    // The default overview templates, unless the user has files of those names.
    installiereStandardVorlagen(fs_, ordner_.vorlagen);
    return Ergebnis::gut();
}

Ergebnis CApplikation::pruefeTabellen() {
    // An unreadable table would show as an empty catalogue: it is named instead.
    for (Tabelle* t : katalog().alle()) {
        int fehler = 0;
        const std::string pfad = t->pfad();
        if (!fs_.oeffne(pfad, OeffnenModus::Lesen, &fehler))
            return Ergebnis::fehlschlag(
                formatiere("Die Tabelle \"%s\" kann nicht gelesen werden: %s",
                           pfadText(pfad).c_str(), systemFehlerText(fehler).c_str()));
    }
    return Ergebnis::gut();
}

void CApplikation::bereiteSchreibenVor() {
    umgebung_.begleitOrdner = {ordner_.cover, ordner_.kommentar, ordner_.inhalt, ordner_.tags};
    sperre_ = dateiSperre(ordner_.programm + kSchreibsperreDatei);
    umgebung_.sperre = sperre_.get();
    umgebung_.beiWiederherstellung = [this](Wiederherstellung w) {
        const char* text = nullptr;
        switch (w) {
            case Wiederherstellung::Zurueckgenommen:
                text =
                    "Ein unterbrochener Schreibvorgang wurde zurückgenommen: der Katalog steht "
                    "wieder wie vor seinem Beginn.";
                break;
            case Wiederherstellung::Verworfen:
                text =
                    "Ein unvollständiges Journal wurde verworfen: der unterbrochene "
                    "Schreibvorgang hatte noch nichts geändert.";
                break;
            case Wiederherstellung::Fehlgeschlagen:
                text =
                    "Ein unterbrochener Schreibvorgang konnte nicht zurückgenommen werden. "
                    "Bis das gelingt, wird der Katalog nicht geändert.";
                break;
            default:
                return;
        }
        haengeZeileAn(fs_, ordner_.meldungen + "meldung.log",
                      Protokoll::zeitstempel() + " " + text);
    };
    // A write that did not come through the services still says why it was refused.
    umgebung_.beiHindernis = [this](Hindernis h) {
        benutzer_.meldung("Warnung", hindernisGrund(h), Symbol::Warnung);
    };
}

bool CApplikation::pruefeDatenversion() {
    return dv::pruefeDatenversion(katalog(), protokoll_, benutzer_);
}

void CApplikation::setzeFensterpositionZurueck() {
    einstellungen_.loescheFensterPosition("WP_main");
    haengeZeileAn(
        fs_, ordner_.meldungen + "reset_wp.log",
        Protokoll::zeitstempel() + " Die Positionen des Hauptfensters wurden auf Wunsch gelöscht.");
}

bool CApplikation::validiereDatenbank() {
    return dv::validiereDatenbank(db(), benutzer_, protokoll_.meldungsOrdner(), ordner_.backups);
}

bool CApplikation::erzeugeUebersicht(const UebersichtEinstellungen& e, bool oeffnen) {
    UebersichtUmgebung u{fs_, benutzer_, farben_, ordner_.vorlagen, nullptr};
    if (oeffnen) u.oeffnen = &oeffneMitStandardprogramm;
    return dv::erzeugeUebersicht(u, e, sammleUebersichtDaten(db()));
}

bool CApplikation::sucheGrossKlein() {
    std::uint32_t optionen = kOptionsStandard;
    einstellungen_.getOptions(optionen);
    return (optionen & kOptSucheGrossKlein) != 0;
}

std::string CApplikation::gespeicherteVersion() {
    return dv::versionsText(katalog().holeVersion());
}

std::vector<std::string> CApplikation::versionsZeilen() {
    const VersionsVergleich v = vergleicheVersion(katalog());
    return {istZeile(v.ist), sollZeile(v.soll)};
}

std::string CApplikation::versionsText() {
    return dv::versionsText(aktuelleVersion());
}

}  // namespace dv
