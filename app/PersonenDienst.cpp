#include "app/PersonenDienst.h"

#include <strings.h>

#include <algorithm>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "app/LookupDienst.h"
#include "app/Titelordnung.h"
#include "domain/Beschreibung.h"
#include "domain/Verwendung.h"

namespace dv {
namespace {

PersonWerte werte(const Zeile8& z) {
    return {z.Id, z.cpName, z.cpVorname, z.Instanz};
}

bool gleicherName(const Zeile8& z, const PersonWerte& w) {
    return ::strcasecmp(z.cpName, w.name.c_str()) == 0 &&
           ::strcasecmp(z.cpVorname, w.vorname.c_str()) == 0;
}

Aenderung meldung(AenderungsArt art, long id) {
    return {art, AenderungsTyp::Person, id, 0, kTypPerson};
}

}  // namespace

std::string PersonenDienst::text(const PersonWerte& p) {
    std::string t = p.name;
    if (!p.vorname.empty()) t += ", " + p.vorname;
    return t + " (" + std::to_string(p.instanz) + ")";
}

std::vector<PersonZeile> PersonenDienst::liste(bool mitFilmen) {
    std::vector<PersonZeile> liste;
    app_.db().katalog().Person.scanne([&](const Zeile8& z) {
        PersonZeile p{werte(z), std::string(), 0};
        p.text = text(p.person);
        liste.push_back(std::move(p));
    });
    sortiereWieTitel(liste, [](const PersonZeile& p) -> const std::string& { return p.text; });
    if (mitFilmen) {
        const auto filme = zaehlePersonenFilme(app_.db());
        for (PersonZeile& p : liste)
            if (const auto it = filme.find(p.person.id); it != filme.end()) p.filme = it->second;
    }
    return liste;
}

ErgebnisMit<PersonWerte> PersonenDienst::lade(long id) {
    auto row = id > 0 ? app_.db().katalog().Person.eine(id) : ListenBesitz();
    if (!row) return Ergebnis::eingabe(formatiere("Es gibt keine Person mit der ID %ld.", id));
    return werte(Tabelle8::zeile(row.get()));
}

int PersonenDienst::freieInstanz(const PersonWerte& w) {
    bool belegt = false;
    int hoechste = -1;
    app_.db().katalog().Person.scanne([&](const Zeile8& z) {
        if (z.Id == w.id || !gleicherName(z, w)) return;
        hoechste = std::max(hoechste, static_cast<int>(z.Instanz));
        belegt = belegt || z.Instanz == w.instanz;
    });
    return belegt ? hoechste + 1 : w.instanz;
}

std::string PersonenDienst::doppeltText(const PersonWerte& w) {
    const int frei = freieInstanz(w);
    if (frei == w.instanz) return std::string();
    return formatiere("Die Person \"%s\" gibt es bereits.\nDie nächste freie Instanz ist %d.",
                      text(w).c_str(), frei);
}

Ergebnis PersonenDienst::pruefe(long id) {
    auto p = lade(id);
    return p.ok() ? Ergebnis::gut() : Ergebnis(p);
}

Ergebnis PersonenDienst::pruefeWerte(const PersonWerte& w) {
    if (w.name.find_first_not_of(' ') == std::string::npos)
        return Ergebnis::eingabe("Bitte einen Nachnamen eingeben.");
    DV_PRUEFE(pruefeText(w.name, kMaxPersonName, "Der Nachname"));
    DV_PRUEFE(pruefeText(w.vorname, kMaxPersonName, "Der Vorname"));
    DV_PRUEFE(pruefeZahl(w.instanz, 0, 32767, "Die Instanz"));
    const std::string doppelt = doppeltText(w);
    return doppelt.empty() ? Ergebnis::gut() : Ergebnis::eingabe(doppelt);
}

ErgebnisMit<long> PersonenDienst::neu(const PersonWerte& w) {
    PersonWerte n = w;
    n.id = 0;
    DV_PRUEFE(pruefeWerte(n));
    Tabelle8& t = app_.db().katalog().Person;
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) -> ErgebnisMit<long> {
        const long id = t.insert(n.instanz, n.name.c_str(), n.vorname.c_str());
        if (id <= 0) return Ergebnis::fehlschlag("Die Person konnte nicht angelegt werden.");
        m.push_back(meldung(AenderungsArt::Neu, id));
        return id;
    });
}

Ergebnis PersonenDienst::speichere(const PersonWerte& w) {
    DV_PRUEFE(pruefe(w.id));
    DV_PRUEFE(pruefeWerte(w));
    Tabelle8& t = app_.db().katalog().Person;
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!t.update(w.id, w.instanz, w.name.c_str(), w.vorname.c_str()))
            return Ergebnis::fehlschlag("Die Person konnte nicht gespeichert werden.");
        m.push_back(meldung(AenderungsArt::Geaendert, w.id));
        return Ergebnis::gut();
    });
}

Ergebnis PersonenDienst::loesche(long id) {
    auto p = lade(id);
    if (!p.ok()) return p;
    const auto filme = zaehlePersonenFilme(app_.db());
    if (const auto it = filme.find(id); it != filme.end())
        return Ergebnis::eingabe(
            formatiere("\"%s\" gehört noch zu %ld %s und kann nicht gelöscht "
                       "werden.",
                       text(p.wert()).c_str(), it->second, it->second == 1 ? "Film" : "Filmen"));
    Tabelle8& t = app_.db().katalog().Person;
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!t.remove(id, true))
            return Ergebnis::fehlschlag("Die Person konnte nicht gelöscht werden.");
        m.push_back(meldung(AenderungsArt::Geloescht, id));
        return Ergebnis::gut();
    });
}

ErgebnisMit<std::string> PersonenDienst::zusammenfuehrFrage(long bleibt, long weg) {
    auto b = lade(bleibt);
    if (!b.ok()) return Ergebnis(b);
    auto w = lade(weg);
    if (!w.ok()) return Ergebnis(w);
    if (bleibt == weg)
        return Ergebnis::eingabe("Eine Person kann nicht mit sich selbst zusammengeführt werden.");
    return zusammenfuehrText(text(w.wert()), text(b.wert()), zaehlePersonenVerweise(app_.db(), weg),
                             "Filmverknüpfung", "Filmverknüpfungen");
}

Ergebnis PersonenDienst::zusammenfuehren(long bleibt, long weg) {
    auto frage = zusammenfuehrFrage(bleibt, weg);
    if (!frage.ok()) return frage;
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!fuehrePersonenZusammen(app_.db(), bleibt, weg))
            return Ergebnis::fehlschlag("Die Personen konnten nicht zusammengeführt werden.");
        m.push_back(meldung(AenderungsArt::Geloescht, weg));
        m.push_back(meldung(AenderungsArt::Geaendert, bleibt));
        return Ergebnis::gut();
    });
}

}  // namespace dv
