#include "app/VormerkDienst.h"

#include <unordered_map>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "domain/Beschreibung.h"
#include "retrieval/SuchDatei.h"
#include "retrieval/VormerkDatei.h"

namespace dv {
namespace {

using Elemente = std::vector<VormerkElement>;

std::vector<VormerkEintrag> alsEintraege(const Elemente& elemente,
                                         const std::vector<VormerkListe>& listen) {
    std::unordered_map<long, std::string> namen;
    for (const VormerkListe& l : listen) namen.emplace(l.id, l.name);
    std::vector<VormerkEintrag> v;
    for (const VormerkElement& e : elemente)
        v.push_back({e.listeId, namen[e.listeId], e.typ, e.objektId, e.titel});
    return v;
}

Ergebnis nichtInListe() {
    return Ergebnis::fehlschlag("Das Objekt steht nicht in der Vormerkliste.");
}

}  // namespace

VormerkDienst::VormerkDienst(CApplikation& app)
    : Benannte(app, AenderungsTyp::Vormerkliste,
               {"Keine Vormerkliste mit der ID %ld.", "Die Vormerkliste"}) {}

std::vector<Benannt> VormerkDienst::lies() {
    std::vector<Benannt> v;
    for (const VormerkListe& l : app_.vormerklisten().listen()) v.push_back({l.id, l.name});
    return v;
}

long VormerkDienst::lege(const std::string& name) {
    return app_.vormerklisten().neu(name);
}

bool VormerkDienst::benenne(long id, const std::string& name) {
    return app_.vormerklisten().benenneUm(id, name);
}

bool VormerkDienst::tilge(long id) {
    return app_.vormerklisten().loesche(id);
}

Ergebnis VormerkDienst::pruefeAlle(const std::vector<long>& listen) {
    for (long id : listen) DV_PRUEFE(pruefe(id));
    return Ergebnis::gut();
}

Ergebnis VormerkDienst::pruefeEintrag(long liste, int typ, long id) {
    DV_PRUEFE(pruefe(liste));
    if (!app_.dienste().katalog().gibtEs(typ, id)) return KatalogDienst::unbekannt(typ, id);
    return Ergebnis::gut();
}

ErgebnisMit<long> VormerkDienst::hinzu(long liste, int typ, long id) {
    DV_PRUEFE(pruefeEintrag(liste, typ, id));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) -> ErgebnisMit<long> {
        const long eintrag = app_.vormerklisten().fuegeHinzu(liste, typ, id);
        if (eintrag <= 0) return Ergebnis::fehlschlag("Das Objekt konnte nicht vorgemerkt werden.");
        m.push_back({AenderungsArt::Geaendert, AenderungsTyp::Vormerkliste, liste, 0, 0});
        return eintrag;
    });
}

Ergebnis VormerkDienst::entferne(long liste, int typ, long id) {
    DV_PRUEFE(pruefe(liste));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!app_.vormerklisten().entferne(liste, typ, id)) return nichtInListe();
        m.push_back({AenderungsArt::Geaendert, AenderungsTyp::Vormerkliste, liste, 0, 0});
        return Ergebnis::gut();
    });
}

Ergebnis VormerkDienst::verschiebe(long liste, int typ, long id, bool hoch) {
    DV_PRUEFE(pruefe(liste));
    Vormerklisten& v = app_.vormerklisten();
    if (!v.enthaelt(liste, typ, id)) return nichtInListe();
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!v.verschiebe(liste, typ, id, hoch))
            return Ergebnis::fehlschlag(hoch ? "Das Element steht bereits ganz oben."
                                             : "Das Element steht bereits ganz unten.");
        m.push_back({AenderungsArt::Verschoben, AenderungsTyp::Vormerkliste, liste, 0, 0});
        return Ergebnis::gut();
    });
}

Ergebnis VormerkDienst::kopiere(long von, long nach, int typ, long id) {
    DV_PRUEFE(pruefe(von));
    DV_PRUEFE(pruefe(nach));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!app_.vormerklisten().kopiere(von, nach, typ, id)) return nichtInListe();
        m.push_back({AenderungsArt::Geaendert, AenderungsTyp::Vormerkliste, nach, 0, 0});
        return Ergebnis::gut();
    });
}

Ergebnis VormerkDienst::verschiebeNach(long von, long nach, int typ, long id) {
    DV_PRUEFE(pruefe(von));
    DV_PRUEFE(pruefe(nach));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!app_.vormerklisten().verschiebeNach(von, nach, typ, id)) return nichtInListe();
        m.push_back({AenderungsArt::Geaendert, AenderungsTyp::Vormerkliste, von, 0, 0});
        m.push_back({AenderungsArt::Geaendert, AenderungsTyp::Vormerkliste, nach, 0, 0});
        return Ergebnis::gut();
    });
}

ErgebnisMit<std::vector<VormerkEintrag>> VormerkDienst::inhalt(const std::vector<long>& listen) {
    DV_PRUEFE(pruefeAlle(listen));
    Vormerklisten& v = app_.vormerklisten();
    return alsEintraege(v.inhalt(listen), v.listen());
}

ErgebnisMit<std::vector<VormerkEintrag>> VormerkDienst::vereinigung(
    const std::vector<long>& listen) {
    DV_PRUEFE(pruefeAlle(listen));
    Vormerklisten& v = app_.vormerklisten();
    return alsEintraege(dv::vereinigung(v.inhalt(listen)), v.listen());
}

ErgebnisMit<std::vector<VormerkEintrag>> VormerkDienst::schnitt(const std::vector<long>& listen) {
    DV_PRUEFE(pruefeAlle(listen));
    Vormerklisten& v = app_.vormerklisten();
    return alsEintraege(dv::schnitt(v.eintraege(listen, true)), v.listen());
}

ErgebnisMit<std::vector<VormerkEintrag>> VormerkDienst::komplement(const std::vector<long>& listen,
                                                                   const std::vector<long>& gegen) {
    DV_PRUEFE(pruefeAlle(listen));
    DV_PRUEFE(pruefeAlle(gegen));
    Vormerklisten& v = app_.vormerklisten();
    return alsEintraege(dv::komplement(v.inhalt(listen), v.inhalt(gegen)), v.listen());
}

std::string VormerkDienst::status(std::size_t anzahl) {
    return vormerkStatus(anzahl);
}

std::string VormerkDienst::alsText(const std::vector<VormerkEintrag>& eintraege) {
    Elemente elemente;
    for (const VormerkEintrag& e : eintraege) {
        VormerkElement x;
        x.listeId = e.liste;
        x.typ = e.typ;
        x.objektId = e.id;
        x.titel = e.titel;
        elemente.push_back(x);
    }
    return vormerkAlsText(elemente, app_.vormerklisten().listen());
}

Ergebnis VormerkDienst::exportiere(const std::string& datei, const std::vector<long>& listen) {
    DV_PRUEFE(pruefeAlle(listen));
    if (!darfUeberschreiben(app_.fs(), app_.benutzer(), datei)) return Ergebnis::abgelehnt();
    if (!exportiereVormerklisten(app_.db(), listen, datei)) return dateiNichtSchreibbar(datei);
    return Ergebnis::gut();
}

Ergebnis VormerkDienst::importiere(const std::string& datei) {
    bool unvollstaendig = false;
    DV_PRUEFE(app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        const VormerkImport e = importiereVormerklisten(app_.db(), app_.benutzer(), datei);
        if (!e.gelesen) return dateiNichtLesbar(datei);
        if (e.listen > 0) m.push_back({AenderungsArt::Alles, AenderungsTyp::Vormerkliste, 0, 0, 0});
        unvollstaendig = e.versionsfehler || e.fehler > 0;
        return Ergebnis::gut();
    }));
    // The lists read stay; the message about the rest has been shown.
    return unvollstaendig ? Ergebnis::fehlschlag("") : Ergebnis::gut();
}

}  // namespace dv
