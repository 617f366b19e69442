#pragma once
// The search: rows of criteria for boxes, DVDs or films, run over the whole
// collection, with the hits and their reasons; search definition files.

#include <string>
#include <vector>

#include "app/Ergebnis.h"

namespace dv {

class CApplikation;

// One row of a search: object type (1 Box, 2 Dvd, 3 Film), criterion (from 1 per
// object type), operator (1 "=", 2 "!=", 3 ">", 4 ">=", 5 "<", 6 "<="),
// combination with the rows before (1 "<=>", 2 "UND", 3 "ODER") and the data.
struct SuchZeile {
    int objekt = 0;
    int kriterium = 0;
    int op = 0;
    int verknuepfung = 0;
    std::string daten;
    bool operator==(const SuchZeile&) const = default;
};

struct SuchTreffer {
    int typ = 0;
    long id = 0;
    long box = 0;  // the box it was found in
    long dvd = 0;  // the DVD it was found on (0 for a box)
    std::string titel;
    std::string grund;
    bool operator==(const SuchTreffer&) const = default;
};

struct SuchErgebnisWerte {
    int objekt = 0;
    std::vector<SuchTreffer> treffer;
    std::string status;  // "Filme: 3 Treffer"
};

class SuchDienst {
  public:
    // app must outlive the service.
    explicit SuchDienst(CApplikation& app) : app_(app) {}

    // The typed form "OBJEKT KRITERIUM OPERATOR DATEN [VERKNÜPFUNG KRITERIUM
    // OPERATOR DATEN]..." (names as the dialog shows them), normalised.
    static ErgebnisMit<std::vector<SuchZeile>> zeilenAusWorten(
        const std::vector<std::string>& worte);
    // The rows as the search dialog normalises them (pairs, text operators).
    static std::vector<SuchZeile> normalisiert(const std::vector<SuchZeile>& zeilen);

    // Runs the search (the case switch is the option's); with fortschritt, one
    // progress step per object of the searched kind through Benutzer.
    ErgebnisMit<SuchErgebnisWerte> suche(const std::vector<SuchZeile>& zeilen,
                                         bool fortschritt = false);
    // The rows of a search definition file, and writing one (after the
    // overwrite question).
    ErgebnisMit<std::vector<SuchZeile>> ladeDatei(const std::string& datei);
    Ergebnis speichereDatei(const std::string& datei, const std::vector<SuchZeile>& zeilen);

    // Display names: "Box", "Dvd", "Film"; the criteria of an object type; the
    // operators and combinations.
    static const char* objektName(int objekt);
    static int kriterienAnzahl(int objekt);
    static const char* kriteriumName(int objekt, int kriterium);
    static const char* operatorName(int op);
    static const char* verknuepfungName(int verknuepfung);
    // Whether the criterion compares texts (only "=" and "!=" make sense).
    static bool istText(int objekt, int kriterium);
    // The hits as clipboard text, one line "Treffer<TAB>Grund<TAB>Objekte" each.
    static std::string alsText(const std::vector<SuchTreffer>& treffer);

  private:
    CApplikation& app_;
};

}  // namespace dv
