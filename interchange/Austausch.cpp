#include "interchange/Austausch.h"

#include "base/Optionen.h"
#include "interchange/EinzelLader.h"

namespace dv {

ImportOptionen importOptionen(std::uint32_t optionen) {
    ImportOptionen o;
    o.doppelteStill = (optionen & kOptDoppelteStill) != 0;
    o.boxBestaetigen = (optionen & kOptBoxBestaetigen) != 0;
    o.objekteBestaetigen = (optionen & kOptObjekteBestaetigen) != 0;
    return o;
}

Austausch::Austausch(Datenbank& db, const Ordner& ordner, Benutzer& benutzer,
                     Einstellungen& einstellungen)
    : db_(db), ordner_(ordner), benutzer_(benutzer), einstellungen_(einstellungen) {}

std::uint32_t Austausch::optionen() {
    std::uint32_t o = kOptionsStandard;
    einstellungen_.getOptions(o);
    return o;
}

ImportErgebnis Austausch::importiere(const std::string& pfad, const ImportOptionen& o,
                                     long* boxId) {
    BoxImport import(db_, ordner_, benutzer_);
    import.optionen = o;
    const ImportErgebnis e = import.importiere(pfad);
    if (boxId) *boxId = import.neueBoxId();
    return e;
}

ExportErgebnis Austausch::exportiere(long boxId, const std::string& ordner,
                                     const SchreibOptionen& o, std::string* pfad) {
    ExportQuelle quelle(db_, ordner_);
    BoxListe box = ladeBoxGanz(db_, boxId, &quelle);
    if (!box) return ExportErgebnis::Unbekannt;
    if (box->cpEAN[0] == '\0') {
        benutzer_.meldung("Hinweis", "Diese Box besitzt keine EAN.", Symbol::Information);
        return ExportErgebnis::KeineEan;
    }
    BoxSchreiber schreiber(quelle, filter(ExportArt::BoxDatei));
    schreiber.optionen = o;
    const std::string ziel = BoxSchreiber::zielPfad(*box, ordner);
    if (pfad) *pfad = ziel;
    // What an interrupted export of this box left behind goes first.
    db_.fs().loesche(ziel + ".tmp");
    if (db_.fs().existiert(ziel) &&
        !benutzer_.frage("Warnung", "Die Exportdatei existiert bereits.\nÜberschreiben?"))
        return ExportErgebnis::NichtUeberschrieben;
    return schreiber.schreibe(*box, ordner) ? ExportErgebnis::Exportiert : ExportErgebnis::Fehler;
}

StapelExportErgebnis Austausch::exportiereAlle(const std::string& ordner, bool tags) {
    einstellungen_.setText("Export", ordner);
    ExportQuelle quelle(db_, ordner_);
    BoxSchreiber schreiber(quelle, filter(ExportArt::BoxDatei));
    schreiber.optionen.tags = tags;
    return dv::exportiereAlle(db_, quelle, schreiber, benutzer_, ordner);
}

std::string Austausch::letzterExportOrdner() {
    std::string ordner;
    einstellungen_.getText("Export", ordner);
    return ordner;
}

std::vector<StapelImportEintrag> Austausch::stapelImport(const std::vector<std::string>& pfade,
                                                         bool mitInfo, const ImportOptionen& o) {
    BoxImport import(db_, ordner_, benutzer_);
    import.optionen = o;
    return dv::stapelImport(import, benutzer_, db_.fs(), pfade, mitInfo);
}

bool Austausch::xml(int typ, long id, const XmlOptionen& o, std::string& dokument) {
    ExportQuelle quelle(db_, ordner_);
    XmlExport x(quelle, filter(ExportArt::Xml));
    x.optionen = o;
    if (typ == kObjektBox) {
        BoxListe b = o.unterobjekte ? ladeBoxGanz(db_, id, &quelle) : db_.getBox(id);
        if (!b) return false;
        if (!o.unterobjekte) b->pExtras = db_.getObjektListe(id, kTypBoxExtras).release();
        dokument = x.box(*b);
        return true;
    }
    if (typ == kObjektDvd) {
        DvdListe d = o.unterobjekte ? ladeDvdGanz(db_, id, &quelle) : db_.getDvd(id);
        if (!d) return false;
        if (!o.unterobjekte) d->pExtras = db_.getObjektListe(id, kTypExtras).release();
        dokument = x.dvd(*d);
        return true;
    }
    if (typ == kObjektFilm) {
        FilmListe f = db_.getFilm(id);
        if (!f) return false;
        db_.ladeFilm(*f);
        quelle.merkeFilm(id);
        dokument = x.film(*f);
        return true;
    }
    return false;
}

std::string Austausch::titel(int typ, long id) {
    if (typ == kObjektBox) {
        BoxListe b = db_.getBox(id);
        return b ? b->cpText : "";
    }
    if (typ == kObjektDvd) {
        DvdListe d = db_.getDvd(id);
        return d ? d->cpText : "";
    }
    FilmListe f = typ == kObjektFilm ? db_.getFilm(id) : FilmListe();
    return f ? f->cpTitel : "";
}

}  // namespace dv
