#pragma once
// Internal to the search engine: the rows compiled once per search (pattern
// trimmed, number read, pairs resolved) and the evaluators of Box, Dvd and Film.

#include <string>
#include <string_view>
#include <vector>

#include "domain/Datenbank.h"
#include "retrieval/Suchkriterien.h"
#include "storage/Muster.h"

namespace dv::auswertung {

// One row, ready to test.
struct Bedingung {
    int krit = 0;
    int op = 0;
    int comb = 0;
    bool text = false;   // text class: whole-value wildcard match
    Suchmuster muster;   // the data trimmed of blanks
    long long zahl = 0;  // the data read as a decimal number
    // The other row of a "<=>" pair that is tested on one entry (a language with
    // its sound format, a person link with its function); -1 for a single row.
    int paar = -1;
    // Entries of lookup lists recur across objects: the match of each entry id
    // is remembered (-1 not yet known, 0 no, 1 yes), so its name is read once.
    mutable std::vector<signed char> merker;
};

// Appends the piece and a blank to the reason text, unless the text already holds
// the piece or would grow past kGrundMax characters.
void fuegeGrundAn(std::string& grund, std::string_view stueck);

class Auswerter {
  public:
    // Reads the lookup names the rows need (packaging, formats, functions).
    Auswerter(Datenbank& db, const KriterienListe& kriterien, bool grossKlein);

    int objektTyp() const { return typ_; }
    bool leer() const { return zeilen_.empty(); }
    // The lists of the collection these rows look at (kUmfang... bits), so the
    // collection reader leaves the other tables unread.
    unsigned umfang() const;

    // Evaluate one object: true for a hit. grund is cleared and receives the
    // reason pieces of every row whose value is true.
    bool box(const BoxElement& b, std::string& grund);
    bool dvd(const DvdElement& d, std::string& grund);
    bool film(const FilmElement& f, std::string& grund);

  private:
    template <class F>
    bool falte(std::string& grund, F&& wert);
    bool boxWert(const Bedingung& b, const BoxElement& x, std::string& g);
    bool dvdWert(const Bedingung& b, const DvdElement& x, std::string& g);
    bool filmWert(const Bedingung& b, const FilmElement& x, std::string& g);
    bool filmListe(const Bedingung& b, const FilmElement& x, std::string& g);
    // nameVon(e) gives an entry's name, idVon(e) the id of its lookup entry.
    template <class E, class Name, class Id>
    bool listenWert(const Bedingung& b, const E* kopf, Name nameVon, Id idVon, const char* f,
                    std::string& g, bool trimmen = false);
    // Whether the entry's name matches, through the row's memory of entry ids.
    template <class E, class Name, class Id>
    bool passtEintrag(const Bedingung& b, const E& e, Name nameVon, Id idVon, bool trimmen);
    bool paarWert(const Bedingung& a, const Bedingung& b, const FilmElement& x, std::string& g);
    bool personWert(const Bedingung& b, const PersonenElement& p);
    bool seitenText(const Bedingung& b, long filmId, bool inhalt, std::string& g);

    bool passt(const Bedingung& b, std::string_view wert) const;
    bool textWert(const Bedingung& b, bool treffer) const;
    static bool zahlWert(const Bedingung& b, long long wert);
    std::string_view name(const std::vector<std::string>& namen, long id) const;

    Datenbank& db_;
    int typ_ = 0;
    std::vector<Bedingung> zeilen_;
    std::vector<signed char> paarErgebnis_;  // per film: value of a pair's first row
    std::vector<std::string> verpackungen_, formate_, funktionen_;  // names by id
    std::string puffer_;
};

}  // namespace dv::auswertung
