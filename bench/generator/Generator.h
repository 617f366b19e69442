#pragma once
// A realistic synthetic collection, written straight through the table engine
// into a program folder: boxes with their DVDs and films, every film with titles,
// genres, languages with sound formats, subtitles, picture formats, persons with
// functions and some aliases, and the lookups and persons they use. The same seed
// and sizes give the same collection, byte for byte.

#include <cstdint>
#include <string>

namespace dv::generator {

struct Groessen {
    long boxen = 20000;
    long dvds = 25000;   // at least one per box
    long filme = 50000;  // at least one per DVD
    long personen = 30000;
    long genres = 300;
    long bildformate = 200;
    long texte = 0;  // films that get a content and a comment text
    std::uint64_t saat = 4711;

    // Every size times f (the lookup counts stay).
    Groessen mal(long f) const;
};

struct Ergebnis {
    long boxen = 0, dvds = 0, filme = 0, titel = 0, personen = 0, filmPersonen = 0, alias = 0;
};

// Writes the collection into the program folder basis (created if missing). The
// folder must not hold a collection yet. False with a German reason in *fehler.
bool erzeugeSammlung(const std::string& basis, const Groessen& g, Ergebnis* ergebnis,
                     std::string* fehler);

// A generated collection of these sizes, kept below /tmp between runs (the
// benchmarks' cache); generated on first use. Returns the program folder, or ""
// when it could not be written.
std::string gecachteSammlung(const Groessen& g);

}  // namespace dv::generator
