#pragma once
// A small catalogue for the retrieval tests, built through the domain's own
// operations, with shorthands for the links a search looks at.

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "retrieval/Suche.h"
#include "retrieval/Vormerklisten.h"
#include "tests/domain/DomainUmgebung.h"
#include "tests/support/FakeBenutzer.h"

namespace dv::test {

struct Katalogbau : DomainUmgebung {
    // A lookup entry by name, created on first use.
    long eintrag(int typ, const char* name) {
        const long id = db->findeLookup(typ, name);
        return id > 0 ? id : db->neuesLookup(typ, name);
    }
    void genres(long film, std::vector<const char*> namen) { objekte(film, kTypGenre, namen); }
    void objekte(long film, int typ, std::vector<const char*> namen) {
        std::vector<long> ids;
        for (const char* n : namen) ids.push_back(eintrag(typ, n));
        ASSERT_TRUE(db->schreibeFilmObjekte(film, typ, ids));
    }
    // Languages with their sound format: {"Deutsch", "DTS"}, ...
    void sprachen(long film, std::vector<std::pair<const char*, const char*>> paare) {
        std::vector<std::pair<long, long>> ids;
        for (auto [s, t] : paare)
            ids.emplace_back(eintrag(kTypSprache, s), eintrag(kTypTonformat, t));
        ASSERT_TRUE(db->schreibeFilmSprachen(film, ids));
    }
    // Persons with their function of this link: {"Hanks", "Tom", "Darsteller"}.
    struct Mitwirkend {
        const char* name;
        const char* vorname;
        const char* funktion;
        std::vector<std::string> alias = {};
    };
    void personen(long film, std::vector<Mitwirkend> leute) {
        std::vector<PersonEintrag> e;
        for (const Mitwirkend& m : leute) {
            PersonEintrag p;
            p.person = person(m.name, m.vorname);
            p.funktion = eintrag(kTypFunktion, m.funktion);
            p.alias = m.alias;
            e.push_back(p);
        }
        ASSERT_TRUE(db->schreibeFilmPersonen(film, e));
    }
    long dvdMit(long boxId, const char* titel, int jahr, int rc) {
        Zeile9 d{};
        std::snprintf(d.cpText, sizeof d.cpText, "%s", titel);
        d.Jahr = static_cast<std::int16_t>(jahr);
        d.RC = static_cast<std::int8_t>(rc);
        return db->neueDvd(boxId, d);
    }
    long filmMit(long dvdId, const char* titel, int fsk, int jahr, int laenge = 90) {
        return db->neuerFilm(dvdId, titel, fsk, laenge, jahr);
    }

    FakeBenutzer benutzer;
};

// Builds a criteria list from rows {objectType, criterion, op, combination, data}.
struct Zeile {
    int typ, krit, op, comb;
    const char* daten;
};
inline KriterienListe kriterien(std::vector<Zeile> zeilen) {
    KriterienListe l;
    for (const Zeile& z : zeilen) l.haengeAn(z.typ, z.krit, z.op, z.comb, z.daten);
    return l;
}

// Runs a search on normalised rows.
inline Suchergebnis ergebnis(Datenbank& db, std::vector<Zeile> zeilen, const SuchOptionen& o = {}) {
    KriterienListe l = kriterien(std::move(zeilen));
    normalisiere(l);
    return suche(db, l, o);
}

// The same, returning the ids of the hits in order.
inline std::vector<long> treffer(Datenbank& db, std::vector<Zeile> zeilen,
                                 bool grossKlein = false) {
    SuchOptionen o;
    o.grossKlein = grossKlein;
    Suchergebnis e = ergebnis(db, std::move(zeilen), o);
    std::vector<long> ids;
    for (const SearchHit* h = e.kopf(); h; h = h->next) ids.push_back(trefferObjektId(*h));
    return ids;
}

// "typ:id " of a watch-list element.
inline std::string el(int typ, long id) {
    return std::to_string(typ) + ":" + std::to_string(id) + " ";
}
// The elements in order.
inline std::string folge(const std::vector<VormerkElement>& v) {
    std::string s;
    for (const VormerkElement& e : v) s += el(e.typ, e.objektId);
    return s;
}

// Two boxes with a DVD each: "Alien Box" (EAN 111) with "Alien DVD" holding "Alien"
// and "Aliens"; "Tab Box" (EAN 222) with "Disc\tEins" holding "Titel\tmit Tab".
class ZweiBoxen : public ::testing::Test, public Katalogbau {
  protected:
    void SetUp() override {
        b1 = box("Alien Box", "111");
        d1 = dvd(b1, "Alien DVD");
        f1 = film(d1, "Alien");
        f2 = film(d1, "Aliens");
        b2 = box("Tab Box", "222");
        d2 = dvd(b2, "Disc\tEins");
        f3 = film(d2, "Titel\tmit Tab");
    }
    std::string liste(long id) { return folge(v.inhalt({id})); }

    Vormerklisten v{*db};
    long b1 = 0, d1 = 0, f1 = 0, f2 = 0, b2 = 0, d2 = 0, f3 = 0;
};

}  // namespace dv::test
