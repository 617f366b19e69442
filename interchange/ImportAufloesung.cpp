// Resolving the names of a box file against the collection: every lookup and
// every person is matched without regard to ASCII letter case; unknown ones are
// confirmed by the user (when asked to) and created.

#include <cstdio>
#include <cstdlib>

#include "interchange/BoxImport.h"
#include "interchange/ObjektBestaetigung.h"

namespace dv {
namespace {

// ASCII letters folded to lower case, as the catalogue's name lookup compares.
void faltenAn(std::string& ziel, const char* s) {
    for (; *s; ++s) ziel += (*s >= 'A' && *s <= 'Z') ? static_cast<char>(*s + ('a' - 'A')) : *s;
}

std::string gefaltet(const std::string& s) {
    std::string t;
    faltenAn(t, s.c_str());
    return t;
}

// The key a person matches by: folded last and first name and the instance number.
void personSchluessel(std::string& k, const char* name, const char* vorname, int instanz) {
    k.clear();
    faltenAn(k, name);
    k += '\t';
    faltenAn(k, vorname);
    k += '\t';
    k += std::to_string(instanz);
}

std::string personSchluessel(const std::string& name, const std::string& vorname, int instanz) {
    std::string k;
    personSchluessel(k, name.c_str(), vorname.c_str(), instanz);
    return k;
}

// The type's label in the protocol: the singular name of the lookup catalogue.
std::string typLabel(int typ) {
    std::string n;
    getTypName(typ == kTypBoxExtras ? kTypExtras : typ, true, n);
    return n;
}

std::string dialogLabel(int typ) {
    if (typ == kTypSprache || typ == kTypUntertitel) return "Sprache / Untertitel";
    return typLabel(typ);
}

const char* traceName(int typ) {
    switch (typ) {
        case kTypVerpackung:
            return "importObj1(I_VERPACKUNG)";
        case kTypExtras:
        case kTypBoxExtras:
            return "importObj1(I_EXTRA)";
        case kTypFormat:
            return "importObj1(I_FORMAT)";
        case kTypBildformat:
            return "importObj1(I_BILDFORMAT)";
        case kTypGenre:
            return "importObj1(I_GENRE)";
        case kTypUntertitel:
            return "importObj1(I_UNTERTITEL)";
        case kTypSprache:
            return "importObj1(I_SPRACHE)";
        case kTypTonformat:
            return "importObj1(I_TONFORMAT)";
        case kTypFunktion:
            return "importObj1(I_FUNKTION)";
        default:
            return "importObj1()";
    }
}

// "Name, Vorname (Instanz)" as the protocol and the list show a person.
std::string personText(const std::string& name, const std::string& vorname) {
    return vorname.empty() ? name : name + ", " + vorname;
}

std::string personZeile(const char* art, const std::string& name, const std::string& vorname,
                        int instanz) {
    return std::string(art) + " / Person <" + personText(name, vorname) + " (" +
           std::to_string(instanz) + ")>";
}

}  // namespace

Tabelle1* BoxImport::tabelle(int typ) {
    Tabelle1* t = db_.lookupTabelle(typ);
    if (!t || zeilen_.count(t)) return t;
    auto& zeilen = zeilen_[t];
    auto& index = index_[t];
    t->scanne([&](const Zeile1& z) {
        zeilen.emplace_back(z.Id, z.cpText);
        index.emplace(gefaltet(z.cpText), z.Id);  // the first of a name wins
    });
    return t;
}

long BoxImport::findeName(Tabelle1& t, const std::string& name) {
    const auto& index = index_[&t];
    auto it = index.find(gefaltet(name));
    return it == index.end() ? 0 : it->second;
}

bool BoxImport::importObj1(int typ, ImportName& n) {
    DV_TRACE(db_.trace(), kTraceDetail16, "%s", traceName(typ));
    n.id = 0;
    Tabelle1* t = n.name.empty() ? nullptr : tabelle(typ);
    if (!t) return true;
    const std::string label = typLabel(typ);
    if (const long id = findeName(*t, n.name)) {
        n.id = id;
        zeile("Alt / " + label + " <" + n.name + ">");
        return true;
    }
    std::string name = n.name;
    if (fragen_) {
        ObjektDialog d;
        d.titel = "Neues Objekt bestätigen...";
        d.zeile = "Das folgende zu importierende Objekt ist noch unbekannt:";
        d.typ = dialogLabel(typ);
        d.felder = {name};
        std::vector<std::vector<std::string>> listenFelder;
        for (const auto& [id, text] : zeilen_[t]) {
            d.liste.push_back(text);
            listenFelder.push_back({text});
        }
        bool alleOk = false;
        const Bestaetigung b =
            bestaetigeObjekt(benutzer_, d, listenFelder, {kImportNameMax}, alleOk);
        if (alleOk) fragen_ = false;
        if (b.entscheidung == Entscheidung::Abbrechen) {
            zeile("Abbruch / " + label + " <" + name + ">");
            return false;
        }
        if (b.entscheidung == Entscheidung::Ignorieren || b.felder.empty() || b.felder[0].empty()) {
            zeile("Ignorieren / " + label + " <" + name + ">");
            return true;
        }
        name = b.felder[0];
    }
    if (const long id = findeName(*t, name)) {
        n.id = id;
        zeile("Alt / " + label + " <" + name + ">");
        return true;
    }
    n.id = db_.neuesLookup(typ, name);
    if (n.id <= 0) {
        n.id = 0;
        fehler_ = true;
        return true;
    }
    zeilen_[t].emplace_back(n.id, name);
    index_[t].emplace(gefaltet(name), n.id);
    zeile("Neu / " + label + " <" + name + ">");
    return true;
}

void BoxImport::suchePersonen(const std::vector<std::string>& schluessel) {
    std::unordered_map<std::string, long> gesucht;
    for (const std::string& s : schluessel)
        if (!personIndex_.count(s)) gesucht.emplace(s, 0);
    if (gesucht.empty()) return;
    std::string k;
    db_.katalog().Person.scanne([&](const Zeile8& z) {
        personSchluessel(k, z.cpName, z.cpVorname, z.Instanz);
        auto it = gesucht.find(k);
        if (it != gesucht.end() && it->second == 0) it->second = z.Id;
    });
    personIndex_.insert(gesucht.begin(), gesucht.end());
}

long BoxImport::findePerson(const ImportPerson& p) {
    const std::string k = personSchluessel(p.name, p.vorname, p.instanz);
    suchePersonen({k});
    return personIndex_[k];
}

const std::vector<Zeile8>& BoxImport::allePersonen() {
    if (!personenGeladen_) {
        personenGeladen_ = true;
        std::vector<Zeile8> alle;
        db_.katalog().Person.scanne([&](const Zeile8& z) { alle.push_back(z); });
        // Persons created by this import so far are in the table already.
        personen_.swap(alle);
    }
    return personen_;
}

bool BoxImport::importObj8(ImportPerson& p) {
    DV_TRACE(db_.trace(), kTraceDetail16, "importObj8()");
    p.id = 0;
    if (p.name.empty() && p.vorname.empty()) return true;
    if (const long id = findePerson(p)) {
        p.id = id;
        zeile(personZeile("Alt", p.name, p.vorname, p.instanz));
        return true;
    }
    ImportPerson neu = p;
    if (fragen_) {
        ObjektDialog d;
        d.titel = "Neue Person bestätigen...";
        d.zeile = "Die folgende zu importierende Person ist noch unbekannt:";
        d.typ = "Person";
        d.feldNamen = {"Nachname", "Vorname", "Instanz"};
        d.felder = {p.name, p.vorname, std::to_string(p.instanz)};
        std::vector<std::vector<std::string>> listenFelder;
        for (const Zeile8& z : allePersonen()) {
            d.liste.push_back(personText(z.cpName, z.cpVorname) + " (" + std::to_string(z.Instanz) +
                              ")");
            listenFelder.push_back({z.cpName, z.cpVorname, std::to_string(z.Instanz)});
        }
        bool alleOk = false;
        const Bestaetigung b = bestaetigeObjekt(benutzer_, d, listenFelder,
                                                {kImportPersonMax, kImportPersonMax, 6}, alleOk);
        if (alleOk) fragen_ = false;
        if (b.entscheidung == Entscheidung::Abbrechen) {
            zeile(personZeile("Abbruch", p.name, p.vorname, p.instanz));
            return false;
        }
        if (b.entscheidung == Entscheidung::Ignorieren || b.felder.size() < 3 ||
            (b.felder[0].empty() && b.felder[1].empty())) {
            zeile(personZeile("Ignorieren", p.name, p.vorname, p.instanz));
            return true;
        }
        neu.name = b.felder[0];
        neu.vorname = b.felder[1];
        neu.instanz = static_cast<std::int16_t>(std::strtol(b.felder[2].c_str(), nullptr, 10));
    }
    if (const long id = findePerson(neu)) {
        p.id = id;
        zeile(personZeile("Alt", neu.name, neu.vorname, neu.instanz));
        return true;
    }
    p.id = db_.katalog().Person.insert(neu.instanz, neu.name.c_str(), neu.vorname.c_str());
    if (p.id <= 0) {
        p.id = 0;
        fehler_ = true;
        return true;
    }
    if (personenGeladen_) {
        Zeile8 z{};
        z.Id = static_cast<std::int32_t>(p.id);
        z.Instanz = static_cast<std::int16_t>(neu.instanz);
        std::snprintf(z.cpName, sizeof z.cpName, "%s", neu.name.c_str());
        std::snprintf(z.cpVorname, sizeof z.cpVorname, "%s", neu.vorname.c_str());
        personen_.push_back(z);
    }
    personIndex_[personSchluessel(neu.name, neu.vorname, neu.instanz)] = p.id;
    zeile(personZeile("Neu", neu.name, neu.vorname, neu.instanz));
    return true;
}

bool BoxImport::loeseFilmAuf(ImportFilm& f) {
    const std::pair<std::vector<ImportName>*, int> listen[] = {
        {&f.bildformate, kTypBildformat}, {&f.genres, kTypGenre},
        {&f.untertitel, kTypUntertitel},  {&f.sprachen, kTypSprache},
        {&f.tonformate, kTypTonformat},   {&f.funktionen, kTypFunktion}};
    for (const auto& [liste, typ] : listen)
        for (ImportName& n : *liste)
            if (!importObj1(typ, n)) return false;
    return true;
}

bool BoxImport::loeseAuf(ImportBox& b) {
    DV_TRACE(db_.trace(), kTraceDetail16, "ImportiereBox()");
    if (!importObj1(kTypVerpackung, b.verpackung)) return false;
    for (ImportName& n : b.extras)
        if (!importObj1(kTypBoxExtras, n)) return false;
    for (ImportDvd& d : b.dvds) {
        if (!importObj1(kTypFormat, d.format)) return false;
        for (ImportName& n : d.extras)
            if (!importObj1(kTypExtras, n)) return false;
        for (ImportFilm& f : d.filme)
            if (!loeseFilmAuf(f)) return false;
    }
    std::vector<std::string> schluessel;
    for (const ImportDvd& d : b.dvds)
        for (const ImportFilm& f : d.filme)
            for (const ImportPerson& p : f.personen)
                schluessel.push_back(personSchluessel(p.name, p.vorname, p.instanz));
    suchePersonen(schluessel);
    for (ImportDvd& d : b.dvds)
        for (ImportFilm& f : d.filme)
            for (ImportPerson& p : f.personen)
                if (!importObj8(p)) return false;
    return true;
}

}  // namespace dv
