#include "app/TagDienst.h"

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "domain/Beschreibung.h"
#include "retrieval/Objektzugriff.h"
#include "retrieval/SuchDatei.h"
#include "retrieval/Suche.h"

namespace dv {
namespace {

StempelWerte alsWerte(const Stempel& s) {
    return {s.id, s.maske, s.text};
}

Aenderung tagsGeaendert(int typ, long id) {
    return {AenderungsArt::Geaendert, AenderungsTyp::Tags, id, 0, typ};
}

}  // namespace

std::vector<std::string> TagDienst::lese(int typ, long id) {
    return app_.tags().lese(typ, id);
}

bool TagDienst::hat(int typ, long id) {
    return app_.tags().hat(typ, id);
}

Ergebnis TagDienst::setze(int typ, long id, const std::vector<std::string>& tags) {
    if (!app_.dienste().katalog().gibtEs(typ, id)) return KatalogDienst::unbekannt(typ, id);
    for (const std::string& t : tags)
        if (t.find_first_of("\r\n") != std::string::npos)
            return Ergebnis::eingabe("Ein Tag darf keinen Zeilenumbruch enthalten.");
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!app_.tags().schreibe(typ, id, tags))
            return Ergebnis::fehlschlag("Die Tags konnten nicht geschrieben werden.");
        m.push_back(tagsGeaendert(typ, id));
        return Ergebnis::gut();
    });
}

Ergebnis TagDienst::entferneAlleDerBox(long boxId) {
    if (!app_.dienste().katalog().gibtEs(kBox, boxId)) return KatalogDienst::unbekannt(kBox, boxId);
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!app_.tags().entferneAlleDerBox(boxId)) return Ergebnis::abgelehnt();
        m.push_back({AenderungsArt::Alles, AenderungsTyp::Tags, boxId, 0, kBox});
        return Ergebnis::gut();
    });
}

std::vector<TagFund> TagDienst::suche(const std::string& text, int typ, bool fortschritt) {
    const auto treffer = app_.tags().suche(
        text, typ,
        fortschritt ? fortschrittUeber(app_.benutzer(), "Tags werden gesucht...") : Fortschritt());
    std::vector<ObjektRef> objekte;
    for (const TagTreffer& t : treffer) objekte.push_back({t.typ, t.id});
    const auto titel = objektTitel(app_.db(), objekte);
    std::vector<TagFund> funde;
    for (std::size_t i = 0; i < treffer.size(); ++i)
        funde.push_back(
            {treffer[i].typ, treffer[i].id, titel[i].value_or(std::string()), treffer[i].tag});
    return funde;
}

std::string TagDienst::status(std::size_t anzahl) {
    return tagStatus(anzahl);
}

std::string TagDienst::alsText(const std::vector<TagFund>& funde) {
    std::vector<TagTreffer> treffer;
    std::vector<std::string> titel;
    for (const TagFund& f : funde) {
        treffer.push_back({f.typ, f.id, f.tag});
        titel.push_back(f.titel);
    }
    return tagTrefferAlsText(treffer, titel);
}

// ---- Stamp tags -------------------------------------------------------------------

std::vector<StempelWerte> TagDienst::stempel() {
    std::vector<StempelWerte> v;
    for (const Stempel& s : app_.stempeltags().liste()) v.push_back(alsWerte(s));
    return v;
}

std::vector<StempelWerte> TagDienst::stempelFuer(int objektTyp) {
    std::vector<StempelWerte> v;
    for (const Stempel& s : app_.stempeltags().angebotenFuer(objektTyp)) v.push_back(alsWerte(s));
    return v;
}

Ergebnis TagDienst::pruefeStempel(long id) {
    if (id > 0 && app_.stempeltags().gibtEs(id)) return Ergebnis::gut();
    return Ergebnis::eingabe(formatiere("Kein Stempel-Tag mit der ID %ld.", id));
}

Ergebnis TagDienst::pruefeStempelWerte(int maske, const std::string& text) {
    if (maske <= 0 || maske > (kMaskeBox | kMaskeDvd | kMaskeFilm))
        return Ergebnis::eingabe("Ein Stempel-Tag braucht mindestens eine Objektart (B, D, F).");
    if (text.empty()) return Ergebnis::eingabe("Der Text des Stempel-Tags fehlt.");
    if (text.find_first_of("\r\n\t") != std::string::npos)
        return Ergebnis::eingabe(
            "Der Text eines Stempel-Tags darf keinen Zeilenumbruch und keinen Tabulator "
            "enthalten.");
    return pruefeText(text, kMaxStempelText, "Der Text des Stempel-Tags");
}

ErgebnisMit<long> TagDienst::neuerStempel(int maske, const std::string& text) {
    DV_PRUEFE(pruefeStempelWerte(maske, text));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) -> ErgebnisMit<long> {
        const long id = app_.stempeltags().neu(maske, text);
        if (id <= 0) return Ergebnis::fehlschlag("Der Stempel-Tag konnte nicht angelegt werden.");
        m.push_back({AenderungsArt::Neu, AenderungsTyp::Stempeltag, id, 0, 0});
        return id;
    });
}

Ergebnis TagDienst::aendereStempel(const StempelWerte& s) {
    DV_PRUEFE(pruefeStempel(s.id));
    DV_PRUEFE(pruefeStempelWerte(s.maske, s.text));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!app_.stempeltags().aendere(s.id, s.maske, s.text))
            return Ergebnis::fehlschlag("Der Stempel-Tag konnte nicht gespeichert werden.");
        m.push_back({AenderungsArt::Geaendert, AenderungsTyp::Stempeltag, s.id, 0, 0});
        return Ergebnis::gut();
    });
}

Ergebnis TagDienst::loescheStempel(long id) {
    DV_PRUEFE(pruefeStempel(id));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!app_.stempeltags().loesche(id))
            return Ergebnis::fehlschlag("Der Stempel-Tag konnte nicht gelöscht werden.");
        m.push_back({AenderungsArt::Geloescht, AenderungsTyp::Stempeltag, id, 0, 0});
        return Ergebnis::gut();
    });
}

Ergebnis TagDienst::wendeStempelAn(long stempelId, int typ, long id) {
    DV_PRUEFE(pruefeStempel(stempelId));
    if (!app_.dienste().katalog().gibtEs(typ, id)) return KatalogDienst::unbekannt(typ, id);
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        switch (app_.stempeltags().wendeAn(stempelId, typ, id)) {
            case StempelAnwenden::Hinzugefuegt:
                m.push_back(tagsGeaendert(typ, id));
                return Ergebnis::gut();
            case StempelAnwenden::NichtAngeboten:
                return Ergebnis::fehlschlag(
                    formatiere("Der Stempel-Tag wird für die Objektart %s nicht angeboten.",
                               objektTypName(typ)));
            default:
                return Ergebnis::fehlschlag("Die Tags konnten nicht geschrieben werden.");
        }
    });
}

Ergebnis TagDienst::exportiereStempel(const std::string& datei) {
    if (!darfUeberschreiben(app_.fs(), app_.benutzer(), datei)) return Ergebnis::abgelehnt();
    if (!app_.stempeltags().exportiere(datei)) return dateiNichtSchreibbar(datei);
    return Ergebnis::gut();
}

Ergebnis TagDienst::importiereStempel(const std::string& datei) {
    bool versionsfehler = false;
    DV_PRUEFE(app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        const StempelImport e = app_.stempeltags().importiere(datei);
        if (!e.gelesen) return dateiNichtLesbar(datei);
        if (e.angelegt > 0) m.push_back({AenderungsArt::Alles, AenderungsTyp::Stempeltag, 0, 0, 0});
        versionsfehler = e.versionsfehler;
        return Ergebnis::gut();
    }));
    // The version message has been shown.
    return versionsfehler ? Ergebnis::fehlschlag("") : Ergebnis::gut();
}

std::string TagDienst::maskeText(int maske) {
    return maskeAlsText(maske);
}

int TagDienst::maskeAusText(const std::string& text) {
    return dv::maskeAusText(text);
}

}  // namespace dv
