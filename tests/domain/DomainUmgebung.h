#pragma once
// What the catalogue-domain tests share: a program folder below /tmp with all
// tables created, a Datenbank on it, and a trace sink that keeps every line so
// that a test can check the memory lines and that every allocation was released.

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "base/Ordner.h"
#include "domain/Datenbank.h"
#include "tests/support/TempOrdner.h"

namespace dv::test {

class SammelTrace final : public Trace {
  public:
    mutable std::vector<std::string> zeilen;

    // Allocations that no release line matches: "[malloc]"/"[new]" count +1 and
    // "[free]"/"[delete]" -1 per address. Also fails on a release of an address
    // that was never allocated.
    std::vector<std::string> offen() const {
        static const std::regex muster(R"(^\[(malloc|new|free|delete)\] \S+ = \[([0-9a-f]{8})\])");
        std::map<std::string, int> stand;
        std::vector<std::string> fehler;
        for (const std::string& z : zeilen) {
            std::smatch m;
            if (!std::regex_search(z, m, muster)) continue;
            const bool an = m[1] == "malloc" || m[1] == "new";
            int& n = stand[m[2]];
            n += an ? 1 : -1;
            if (n < 0) fehler.push_back("ohne Zuteilung: " + z);
        }
        for (const auto& [adresse, n] : stand)
            if (n > 0) fehler.push_back("nicht freigegeben: " + adresse);
        return fehler;
    }
    bool enthaelt(const std::regex& r) const {
        for (const std::string& z : zeilen)
            if (std::regex_search(z, r)) return true;
        return false;
    }

  protected:
    void schreibe(const char* nachricht) const override { zeilen.emplace_back(nachricht); }
};

struct DomainUmgebung {
    explicit DomainUmgebung(Dateisystem& fs = echtesDateisystem()) {
        ordner.setzeBasis(basis.pfad());
        ordner.legeAn(fs);
        spur.setzeMaske(kTraceSpeicher);
        su.fs = &fs;
        su.trace = &spur;
        su.datenOrdner = ordner.daten;
        db = std::make_unique<Datenbank>(su, ordner);
        db->katalog().erzeugeDatenbank();
    }

    Katalog& k() { return db->katalog(); }

    long box(const char* titel, const char* ean = "4000000000001") {
        return db->neueBox(ean, titel, 0, 0);
    }
    long dvd(long boxId, const char* titel, int laenge = 0) {
        Zeile9 d{};
        std::snprintf(d.cpText, sizeof d.cpText, "%s", titel);
        d.Laenge = static_cast<std::int16_t>(laenge);
        return db->neueDvd(boxId, d);
    }
    long film(long dvdId, const char* titel, int laenge = 90) {
        return db->neuerFilm(dvdId, titel, 12, laenge, 2001);
    }
    long lookup(int typ, const char* name) { return db->neuesLookup(typ, name); }
    long person(const char* name, const char* vorname = "", int instanz = 0) {
        return k().Person.insert(instanz, name, vorname);
    }
    // Live rows of a table.
    template <class T>
    long zeilen(T& tab) {
        long n = 0;
        tab.scanne([&](const typename T::Zeile&) { ++n; });
        return n;
    }
    // The names of those tables that do not hold exactly n live rows.
    std::vector<std::string> ohneZeilenzahl(long n, std::initializer_list<Tabelle*> tabellen) {
        std::vector<std::string> falsch;
        for (Tabelle* t : tabellen) {
            ListenElement* l = t->selectAll();
            if (static_cast<long>(listenLaenge(l)) != n) falsch.push_back(t->name());
            t->delListe(l);
        }
        return falsch;
    }

    TempOrdner basis;
    Ordner ordner;
    SammelTrace spur;
    SpeicherUmgebung su;
    std::unique_ptr<Datenbank> db;
};

// Ids of a domain list in list order.
template <class E>
std::vector<long> idsVon(const E* e) {
    std::vector<long> v;
    for (; e; e = e->pNext) v.push_back(e->Id);
    return v;
}

// Texts of an object list (pObjekt1) in list order.
inline std::vector<std::string> texte(const ObjektElement* e) {
    std::vector<std::string> v;
    for (; e; e = e->pNext) v.push_back(e->pObjekt1 ? e->pObjekt1->zeile.cpText : "<null>");
    return v;
}

}  // namespace dv::test
