#pragma once
// The rows of a search: criterion, operator, search data and how each row is
// joined to the result so far; their codes, names and the normalisation that
// every search (dialog, saved file, command line) runs before it evaluates.

#include <cstdint>
#include <string>
#include <string_view>

namespace dv {

// Operator codes.
inline constexpr int kOpGleich = 1;          // "="
inline constexpr int kOpUngleich = 2;        // "!="
inline constexpr int kOpGroesser = 3;        // ">"
inline constexpr int kOpGroesserGleich = 4;  // ">="
inline constexpr int kOpKleiner = 5;         // "<"
inline constexpr int kOpKleinerGleich = 6;   // "<="

// Combination codes: how a row's value is joined to the result so far.
inline constexpr int kVerknuepfungPaar = 1;  // "<=>": same entry as the row before
inline constexpr int kVerknuepfungUnd = 2;   // "UND"
inline constexpr int kVerknuepfungOder = 3;  // "ODER"

// Film criteria that may form a "<=>" pair: a language entry carries its sound
// format, a person link its function.
inline constexpr int kFilmSprache = 7;
inline constexpr int kFilmTonformat = 8;
inline constexpr int kFilmPerson = 10;
inline constexpr int kFilmFunktion = 11;

// One row. The list is singly linked in row order and owned by KriterienListe.
struct SearchCriterion {
    std::int32_t objectType = 0;         // 1 Box, 2 Dvd, 3 Film
    std::int32_t criterion = 0;          // 1-based per object type
    std::int32_t op = 0;                 // operator code
    std::int32_t combination = 0;        // combination code
    std::string data;                    // the search data as typed (pattern or number)
    SearchCriterion* partner = nullptr;  // the other row of a "<=>" pair
    SearchCriterion* next = nullptr;
};

// Owner of a criteria list; frees it row by row (no recursion, so a list of any
// length read from a file is released safely).
class KriterienListe {
  public:
    KriterienListe() = default;
    ~KriterienListe() { leere(); }
    KriterienListe(KriterienListe&& o) noexcept;
    KriterienListe& operator=(KriterienListe&& o) noexcept;
    KriterienListe(const KriterienListe&) = delete;
    KriterienListe& operator=(const KriterienListe&) = delete;

    // Appends a copy of the row's codes and data (no partner, no successor);
    // returns the new row.
    SearchCriterion* haengeAn(int objectType, int criterion, int op, int combination,
                              std::string data);
    void leere();

    SearchCriterion* kopf() const { return kopf_; }
    std::size_t anzahl() const { return anzahl_; }
    bool leer() const { return kopf_ == nullptr; }

  private:
    SearchCriterion* kopf_ = nullptr;
    SearchCriterion* letzter_ = nullptr;
    std::size_t anzahl_ = 0;
};

// Names by code: "=" ... "<=" and "?" for any other operator; "<=>", "UND",
// "ODER" and "" for any other combination; the criterion's display name, or ""
// when the object type has no such criterion.
const char* operatorName(int op);
const char* verknuepfungsName(int combination);
const char* kriteriumsName(int objectType, int criterion);
// Number of criteria of an object type (0 for an unknown type).
int kriterienAnzahl(int objectType);
// Whether a criterion is of the text class (only equal / not equal); every code
// outside the tables counts as ordered. Film 14 "Alias" is ordered on purpose.
bool istTextKriterium(int objectType, int criterion);

// The codes back from their names, for typed input; 0 when unknown. Criterion
// and object names are compared without regard to ASCII letter case.
int objektTypAusName(std::string_view name);
int kriteriumAusName(int objectType, std::string_view name);
int operatorAusName(std::string_view name);
int verknuepfungAusName(std::string_view name);

// Brings the rows into the form the evaluators expect, in place:
// - every row gets the first row's object type;
// - the first row's combination becomes "UND";
// - Box and Dvd searches turn "<=>" into "UND";
// - in a Film search a "<=>" row is paired with the row before it (partner links
//   both ways); a row whose criterion is not Sprache, Tonformat, Person or
//   Funktion keeps its links but gets "UND"; pairs never chain: when the row
//   before already carries "<=>" that one becomes "UND" and its old pair ends;
// - operators of text criteria are reduced: "=", ">=", "<=" to "=" and "!=",
//   ">", "<" to "!=".
void normalisiere(KriterienListe& liste);

}  // namespace dv
