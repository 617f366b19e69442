#include "domain/Verwendung.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace dv {
namespace {

// The rows a merge replaced: removed only after every new row is in, without
// re-reading the table per row; each table is re-initialised once at the end so
// that its freed slots are reused.
class Abbau {
  public:
    Abbau() = default;
    Abbau(const Abbau&) = delete;
    Abbau& operator=(const Abbau&) = delete;
    ~Abbau() {
        for (Tabelle* t : tabellen_) t->init();
    }
    void merke(Tabelle& t, long id) { weg_.emplace_back(&t, id); }
    bool fuehreAus() {
        bool ok = true;
        for (const auto& [t, id] : weg_) {
            if (std::find(tabellen_.begin(), tabellen_.end(), t) == tabellen_.end())
                tabellen_.push_back(t);
            ok = t->remove(id, false) && ok;
        }
        weg_.clear();
        return ok;
    }

  private:
    std::vector<std::pair<Tabelle*, long>> weg_;
    std::vector<Tabelle*> tabellen_;
};

// Calls f(objektArt, eintrag, besitzer) for every reference to the catalogue of
// typ: one pass over each table that can hold one.
template <class F>
void besucheVerweise(Katalog& k, int typ, F&& f) {
    auto links = [&](auto& tab, int art) {
        tab.scanne([&](const Zeile2& z) { f(art, z.Objekt1_Id, z.DVD_Id); });
    };
    switch (typ) {
        case kTypVerpackung:
            k.Box.scanne([&](const Zeile12& z) { f(kObjektBox, z.Verpackungs_Id, z.Id); });
            break;
        case kTypExtras:
        case kTypBoxExtras:
            links(k.DVD_Extras, kObjektDvd);
            links(k.Box_Extras, kObjektBox);
            break;
        case kTypFormat:
            k.DVD.scanne([&](const Zeile9& z) { f(kObjektDvd, z.Formate_Id, z.Id); });
            break;
        case kTypGenre:
            links(k.Film_Genre, kObjektFilm);
            break;
        case kTypBildformat:
            links(k.Film_Bildformat, kObjektFilm);
            break;
        case kTypSprache:
        case kTypUntertitel:
            k.Film_Sprachen.scanne(
                [&](const Zeile6& z) { f(kObjektFilm, z.Sprachen_Id, z.Film_Id); });
            links(k.Film_Untertitel, kObjektFilm);
            break;
        case kTypTonformat:
            k.Film_Sprachen.scanne(
                [&](const Zeile6& z) { f(kObjektFilm, z.Tonformat_Id, z.Film_Id); });
            break;
        case kTypFunktion:
            links(k.Film_Fkt, kObjektFilm);
            k.Film_Person.scanne([&](const Zeile3& z) { f(kObjektFilm, z.Funktion, z.Film_Id); });
            break;
        default:
            break;
    }
}

// (object kind, entry, owner) as one number, so that sorting drops repeated uses.
std::uint64_t schluessel(int art, long eintrag, long besitzer) {
    return (static_cast<std::uint64_t>(art) << 62) |
           (static_cast<std::uint64_t>(eintrag & 0x7fffffff) << 31) |
           static_cast<std::uint64_t>(besitzer & 0x7fffffff);
}

std::unordered_map<long, long> zaehleEintraege(std::vector<std::uint64_t>& paare) {
    std::sort(paare.begin(), paare.end());
    paare.erase(std::unique(paare.begin(), paare.end()), paare.end());
    std::unordered_map<long, long> anzahl;
    for (std::uint64_t p : paare) ++anzahl[static_cast<long>((p >> 31) & 0x7fffffff)];
    return anzahl;
}

// Link rows of the form (owner, entry, Pos): each row naming weg names bleibt
// instead, unless its owner has bleibt already; then it is only dropped.
template <class T>
bool verlegeLinks(T& tab, long bleibt, long weg, Abbau& abbau) {
    std::vector<Zeile2> treffer;
    std::set<long> mitBleibt;
    if (!tab.scanne([&](const Zeile2& z) {
            if (z.Objekt1_Id == weg) treffer.push_back(z);
            if (z.Objekt1_Id == bleibt) mitBleibt.insert(z.DVD_Id);
        }))
        return false;
    for (const Zeile2& z : treffer) {
        if (mitBleibt.insert(z.DVD_Id).second && tab.insert(z.DVD_Id, bleibt, z.Pos) <= 0)
            return false;
        abbau.merke(tab, z.Id);
    }
    return true;
}

// Languages with their sound format: feld is the column that names weg.
bool verlegeSprachen(Katalog& k, std::int32_t Zeile6::*feld, long bleibt, long weg, Abbau& abbau) {
    auto andere = feld == &Zeile6::Sprachen_Id ? &Zeile6::Tonformat_Id : &Zeile6::Sprachen_Id;
    std::vector<Zeile6> treffer;
    std::set<std::pair<long, long>> da;
    if (!k.Film_Sprachen.scanne([&](const Zeile6& z) {
            if (z.*feld == weg) treffer.push_back(z);
            if (z.*feld == bleibt) da.insert({z.Film_Id, z.*andere});
        }))
        return false;
    for (Zeile6 z : treffer) {
        abbau.merke(k.Film_Sprachen, z.Id);
        if (!da.insert({z.Film_Id, z.*andere}).second) continue;
        z.*feld = static_cast<std::int32_t>(bleibt);
        if (k.Film_Sprachen.insert(z.Film_Id, z.Sprachen_Id, z.Tonformat_Id, z.Pos) <= 0)
            return false;
    }
    return true;
}

// Persons of films: feld is the column that names weg (the person or the
// function). A moved link gets a new row, so its aliases are hung onto that row;
// where the film has the same link to bleibt already, the aliases join it.
bool verlegePersonen(Katalog& k, std::int32_t Zeile3::*feld, long bleibt, long weg, Abbau& abbau) {
    auto andere = feld == &Zeile3::Funktion ? &Zeile3::Person_Id : &Zeile3::Funktion;
    std::vector<Zeile3> treffer;
    std::map<std::pair<long, long>, long> da;  // (film, other column) -> row naming bleibt
    if (!k.Film_Person.scanne([&](const Zeile3& z) {
            if (z.*feld == weg) treffer.push_back(z);
            if (z.*feld == bleibt) da.emplace(std::make_pair(z.Film_Id, z.*andere), z.Id);
        }))
        return false;
    if (treffer.empty()) return true;
    std::set<long> gefragt;
    for (const Zeile3& z : treffer) gefragt.insert(z.Id);
    for (const auto& [schl, id] : da) gefragt.insert(id);
    std::map<long, std::vector<Zeile2>> alias;  // Film_Person row -> its Film_Alias rows
    if (!k.Film_Alias.scanne([&](const Zeile2& z) {
            if (gefragt.count(z.DVD_Id)) alias[z.DVD_Id].push_back(z);
        }))
        return false;
    for (const Zeile3& z : treffer) {
        auto [it, neu] = da.try_emplace({z.Film_Id, z.*andere}, 0L);
        if (neu) {
            Zeile3 n = z;
            n.*feld = static_cast<std::int32_t>(bleibt);
            it->second = k.Film_Person.insert(n.Film_Id, n.Person_Id, n.Funktion, n.Pos);
            if (it->second <= 0) return false;
        }
        std::vector<Zeile2>& ziel = alias[it->second];
        int pos = 0;
        for (const Zeile2& a : ziel) pos = std::max(pos, static_cast<int>(a.Pos));
        std::vector<Zeile2> eigene = alias[z.Id];
        std::sort(eigene.begin(), eigene.end(),
                  [](const Zeile2& a, const Zeile2& b) { return a.Pos < b.Pos; });
        for (Zeile2 a : eigene) {
            a.DVD_Id = static_cast<std::int32_t>(it->second);
            a.Pos = static_cast<std::uint16_t>(++pos);
            if (!k.Film_Alias.update(a.Id, a.DVD_Id, a.Objekt1_Id, a.Pos)) return false;
            ziel.push_back(a);
        }
        abbau.merke(k.Film_Person, z.Id);
    }
    return true;
}

bool verlegeVerpackung(Katalog& k, long bleibt, long weg) {
    std::vector<Zeile12> treffer;
    if (!k.Box.scanne([&](const Zeile12& z) {
            if (z.Verpackungs_Id == weg) treffer.push_back(z);
        }))
        return false;
    for (const Zeile12& z : treffer)
        if (!k.Box.update(z.Id, z.cpEAN, z.cpText, bleibt, z.Zusatz_Id)) return false;
    return true;
}

bool verlegeFormat(Katalog& k, long bleibt, long weg) {
    std::vector<Zeile9> treffer;
    if (!k.DVD.scanne([&](const Zeile9& z) {
            if (z.Formate_Id == weg) treffer.push_back(z);
        }))
        return false;
    for (Zeile9 z : treffer) {
        z.Formate_Id = static_cast<std::int32_t>(bleibt);
        if (!k.DVD.update(z.Id, z)) return false;
    }
    return true;
}

// Filter entries that translate weg: moved to bleibt where the filter has no
// entry for bleibt yet, else dropped (the first entry of a kind wins anyway).
bool verlegeFilter(Katalog& k, int filterTyp, long bleibt, long weg, Abbau& abbau) {
    if (filterTyp == 0) return true;
    std::vector<Zeile13> treffer;
    std::set<long> mitBleibt;
    if (!k.Filter.scanne([&](const Zeile13& z) {
            if (z.Typ != filterTyp) return;
            if (z.lIntern == weg) treffer.push_back(z);
            if (z.lIntern == bleibt) mitBleibt.insert(z.lFilterId);
        }))
        return false;
    for (const Zeile13& z : treffer) {
        abbau.merke(k.Filter, z.Id);
        if (weg != bleibt && mitBleibt.insert(z.lFilterId).second &&
            k.Filter.insert(z.lFilterId, filterTyp, bleibt, z.cpExtern) <= 0)
            return false;
    }
    return true;
}

bool verlegeAlles(Katalog& k, int typ, long bleibt, long weg, Abbau& abbau) {
    switch (typ) {
        case kTypVerpackung:
            return verlegeVerpackung(k, bleibt, weg);
        case kTypExtras:
        case kTypBoxExtras:
            return verlegeLinks(k.DVD_Extras, bleibt, weg, abbau) &&
                   verlegeLinks(k.Box_Extras, bleibt, weg, abbau);
        case kTypFormat:
            return verlegeFormat(k, bleibt, weg);
        case kTypGenre:
            return verlegeLinks(k.Film_Genre, bleibt, weg, abbau);
        case kTypBildformat:
            return verlegeLinks(k.Film_Bildformat, bleibt, weg, abbau);
        case kTypSprache:
        case kTypUntertitel:
            return verlegeSprachen(k, &Zeile6::Sprachen_Id, bleibt, weg, abbau) &&
                   verlegeLinks(k.Film_Untertitel, bleibt, weg, abbau);
        case kTypTonformat:
            return verlegeSprachen(k, &Zeile6::Tonformat_Id, bleibt, weg, abbau);
        case kTypFunktion:
            return verlegeLinks(k.Film_Fkt, bleibt, weg, abbau) &&
                   verlegePersonen(k, &Zeile3::Funktion, bleibt, weg, abbau);
        default:
            return false;
    }
}

// A merge or delete moves links in several tables: one operation, kept whole or
// not at all, also when it runs outside a service's write.
template <class F>
bool alsEinVorgang(Datenbank& db, F&& tu) {
    auto v = db.vorgang();
    if (!v.offen()) return false;
    const bool ok = tu();
    if (!ok) v.verwerfen();
    return v.abschliessen() && ok;
}

}  // namespace

int filterTypVon(int lookupTyp) {
    switch (lookupTyp) {
        case kTypBildformat:
            return 1;
        case kTypExtras:
        case kTypBoxExtras:
            return 2;
        case kTypFormat:
            return 3;
        case kTypFunktion:
            return 4;
        case kTypGenre:
            return 5;
        case kTypSprache:
        case kTypUntertitel:
            return 6;
        case kTypTonformat:
            return 7;
        case kTypVerpackung:
            return 8;
        default:
            return 0;
    }
}

std::unordered_map<long, long> zaehleVerwendung(Datenbank& db, int typ) {
    std::vector<std::uint64_t> paare;
    besucheVerweise(db.katalog(), typ, [&](int art, long eintrag, long besitzer) {
        if (eintrag > 0) paare.push_back(schluessel(art, eintrag, besitzer));
    });
    return zaehleEintraege(paare);
}

std::unordered_map<long, long> zaehlePersonenFilme(Datenbank& db) {
    std::vector<std::uint64_t> paare;
    db.katalog().Film_Person.scanne([&](const Zeile3& z) {
        if (z.Person_Id > 0) paare.push_back(schluessel(kObjektFilm, z.Person_Id, z.Film_Id));
    });
    return zaehleEintraege(paare);
}

long zaehleVerweise(Datenbank& db, int typ, long weg) {
    long n = 0;
    besucheVerweise(db.katalog(), typ, [&](int, long eintrag, long) { n += eintrag == weg; });
    return n;
}

long zaehlePersonenVerweise(Datenbank& db, long weg) {
    long n = 0;
    db.katalog().Film_Person.scanne([&](const Zeile3& z) { n += z.Person_Id == weg; });
    return n;
}

bool fuehreZusammen(Datenbank& db, int typ, long bleibt, long weg) {
    Tabelle1* t = db.lookupTabelle(typ);
    if (!t || bleibt <= 0 || weg <= 0 || bleibt == weg) return false;
    return alsEinVorgang(db, [&] {
        Katalog& k = db.katalog();
        Abbau abbau;
        return verlegeAlles(k, typ, bleibt, weg, abbau) &&
               verlegeFilter(k, filterTypVon(typ), bleibt, weg, abbau) && abbau.fuehreAus() &&
               t->remove(weg, true);
    });
}

bool fuehrePersonenZusammen(Datenbank& db, long bleibt, long weg) {
    Katalog& k = db.katalog();
    if (bleibt <= 0 || weg <= 0 || bleibt == weg) return false;
    return alsEinVorgang(db, [&] {
        Abbau abbau;
        return verlegePersonen(k, &Zeile3::Person_Id, bleibt, weg, abbau) && abbau.fuehreAus() &&
               k.Person.remove(weg, true);
    });
}

bool loescheLookup(Datenbank& db, int typ, long id) {
    Tabelle1* t = db.lookupTabelle(typ);
    if (!t || id <= 0) return false;
    return alsEinVorgang(db, [&] {
        Abbau abbau;
        // Moving onto the entry itself only drops its translations.
        return verlegeFilter(db.katalog(), filterTypVon(typ), id, id, abbau) && abbau.fuehreAus() &&
               t->remove(id, true);
    });
}

}  // namespace dv
