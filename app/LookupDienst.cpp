#include "app/LookupDienst.h"

#include <strings.h>

#include <algorithm>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "app/Titelordnung.h"
#include "domain/Beschreibung.h"
#include "domain/Verwendung.h"

namespace dv {
namespace {

constexpr long kDarsteller = 1;
constexpr long kRegie = 2;

Aenderung meldung(AenderungsArt art, int typ, long id) {
    return {art, AenderungsTyp::Lookup, id, 0, typ};
}

}  // namespace

std::string zusammenfuehrText(const std::string& weg, const std::string& bleibt, long anzahl,
                              const char* einzahl, const char* mehrzahl) {
    return formatiere(
        "\"%s\" mit \"%s\" zusammenführen?\n%ld %s %s auf \"%s\" umgestellt, danach wird "
        "\"%s\" gelöscht.",
        weg.c_str(), bleibt.c_str(), anzahl, anzahl == 1 ? einzahl : mehrzahl,
        anzahl == 1 ? "wird" : "werden", bleibt.c_str(), weg.c_str());
}

bool LookupDienst::istKatalog(int typ) {
    switch (typ) {
        case kTypVerpackung:
        case kTypExtras:
        case kTypBoxExtras:
        case kTypFormat:
        case kTypGenre:
        case kTypBildformat:
        case kTypSprache:
        case kTypTonformat:
        case kTypUntertitel:
        case kTypFunktion:
            return true;
        default:
            return false;
    }
}

std::string LookupDienst::katalogName(int typ) {
    std::string name;
    if (!getTypName(typ == kTypBoxExtras ? kTypExtras : typ, false, name)) name = "Katalog";
    return name;
}

bool LookupDienst::istFest(int typ, long id) {
    return typ == kTypFunktion && (id == kDarsteller || id == kRegie);
}

std::vector<Eintrag> LookupDienst::eintraege(int typ) {
    std::vector<Eintrag> v;
    if (!istKatalog(typ)) return v;
    app_.db().lookupTabelle(typ)->scanne([&](const Zeile1& z) { v.push_back({z.Id, z.cpText}); });
    sortiereWieTitel(v, [](const auto& w) -> const std::string& { return w.name; });
    return v;
}

std::vector<LookupWert> LookupDienst::liste(int typ) {
    std::vector<LookupWert> v;
    if (!istKatalog(typ)) return v;
    const auto anzahl = zaehleVerwendung(app_.db(), typ);
    app_.db().lookupTabelle(typ)->scanne([&](const Zeile1& z) {
        const auto it = anzahl.find(z.Id);
        v.push_back({z.Id, z.cpText, it == anzahl.end() ? 0 : it->second});
    });
    sortiereWieTitel(v, [](const auto& w) -> const std::string& { return w.name; });
    return v;
}

std::string LookupDienst::name(int typ, long id) {
    auto row = app_.db().lookupTabelle(typ)->eine(id);
    return row ? Tabelle1::zeile(row.get()).cpText : std::string();
}

Ergebnis LookupDienst::pruefe(int typ, long id) {
    if (!istKatalog(typ)) return Ergebnis::eingabe(formatiere("Kein Katalog vom Typ %d.", typ));
    if (id > 0 && app_.db().lookupTabelle(typ)->eine(id)) return Ergebnis::gut();
    return Ergebnis::eingabe(formatiere("Im Katalog \"%s\" gibt es keinen Eintrag mit der ID %ld.",
                                        katalogName(typ).c_str(), id));
}

Ergebnis LookupDienst::pruefeName(int typ, long id, const std::string& name) {
    if (name.find_first_not_of(' ') == std::string::npos)
        return Ergebnis::eingabe("Bitte einen Namen eingeben.");
    DV_PRUEFE(pruefeText(name, kMaxLookupName, "Der Name"));
    std::string vorhanden;
    app_.db().lookupTabelle(typ)->scanne([&](const Zeile1& z) {
        if (z.Id != id && vorhanden.empty() && ::strcasecmp(z.cpText, name.c_str()) == 0)
            vorhanden = z.cpText;
    });
    if (vorhanden.empty()) return Ergebnis::gut();
    return Ergebnis::eingabe(formatiere("Im Katalog \"%s\" gibt es \"%s\" bereits.",
                                        katalogName(typ).c_str(), vorhanden.c_str()));
}

ErgebnisMit<long> LookupDienst::neu(int typ, const std::string& name) {
    if (!istKatalog(typ)) return Ergebnis::eingabe(formatiere("Kein Katalog vom Typ %d.", typ));
    DV_PRUEFE(pruefeName(typ, 0, name));
    Datenbank& db = app_.db();
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) -> ErgebnisMit<long> {
        const long id = db.neuesLookup(typ, name);
        if (id <= 0)
            return Ergebnis::fehlschlag(
                formatiere("Der Eintrag \"%s\" konnte nicht angelegt werden.", name.c_str()));
        m.push_back(meldung(AenderungsArt::Neu, typ, id));
        return id;
    });
}

Ergebnis LookupDienst::umbenennen(int typ, long id, const std::string& name) {
    DV_PRUEFE(pruefe(typ, id));
    DV_PRUEFE(pruefeName(typ, id, name));
    Tabelle1& t = *app_.db().lookupTabelle(typ);
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!t.update(id, name.c_str()))
            return Ergebnis::fehlschlag(
                formatiere("Der Eintrag \"%s\" konnte nicht umbenannt werden.", name.c_str()));
        m.push_back(meldung(AenderungsArt::Geaendert, typ, id));
        return Ergebnis::gut();
    });
}

Ergebnis LookupDienst::loesche(int typ, long id) {
    DV_PRUEFE(pruefe(typ, id));
    const std::string alt = name(typ, id);
    if (istFest(typ, id))
        return Ergebnis::eingabe(
            formatiere("\"%s\" kann umbenannt, aber nicht gelöscht werden.", alt.c_str()));
    const auto anzahl = zaehleVerwendung(app_.db(), typ);
    if (const auto it = anzahl.find(id); it != anzahl.end())
        return Ergebnis::eingabe(formatiere("\"%s\" wird noch von %ld %s verwendet.", alt.c_str(),
                                            it->second, it->second == 1 ? "Objekt" : "Objekten"));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!loescheLookup(app_.db(), typ, id))
            return Ergebnis::fehlschlag(
                formatiere("Der Eintrag \"%s\" konnte nicht gelöscht werden.", alt.c_str()));
        m.push_back(meldung(AenderungsArt::Geloescht, typ, id));
        return Ergebnis::gut();
    });
}

ErgebnisMit<std::string> LookupDienst::zusammenfuehrFrage(int typ, long bleibt, long weg) {
    DV_PRUEFE(pruefe(typ, bleibt));
    DV_PRUEFE(pruefe(typ, weg));
    if (bleibt == weg)
        return Ergebnis::eingabe("Ein Eintrag kann nicht mit sich selbst zusammengeführt werden.");
    if (istFest(typ, weg))
        return Ergebnis::eingabe(formatiere("\"%s\" kann nicht in einem anderen Eintrag aufgehen.",
                                            name(typ, weg).c_str()));
    return zusammenfuehrText(name(typ, weg), name(typ, bleibt), zaehleVerweise(app_.db(), typ, weg),
                             "Verknüpfung", "Verknüpfungen");
}

Ergebnis LookupDienst::zusammenfuehren(int typ, long bleibt, long weg) {
    auto frage = zusammenfuehrFrage(typ, bleibt, weg);
    if (!frage.ok()) return frage;
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!fuehreZusammen(app_.db(), typ, bleibt, weg))
            return Ergebnis::fehlschlag("Die Einträge konnten nicht zusammengeführt werden.");
        m.push_back(meldung(AenderungsArt::Geloescht, typ, weg));
        m.push_back(meldung(AenderungsArt::Geaendert, typ, bleibt));
        return Ergebnis::gut();
    });
}

}  // namespace dv
