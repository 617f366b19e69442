#pragma once
// Stamp tags: prepared tag texts kept in the table "TagStempel", each with a type
// mask that says for which kinds of object it is offered (1 Box, 2 Dvd, 4 Film).
// In texts the mask is written as the letters "B", "D", "F" of its set bits.
//
// Stamp-tag file (line format of Textformat.h):
//   @V1.1
//   # Typ<TAB>Text<TAB>
//   <mask letters><TAB><text>

#include <string>
#include <string_view>
#include <vector>

#include "base/Benutzer.h"
#include "domain/Datenbank.h"

namespace dv {

inline constexpr int kMaskeBox = 1;
inline constexpr int kMaskeDvd = 2;
inline constexpr int kMaskeFilm = 4;
inline constexpr std::size_t kStempelTextMax = 128;
inline constexpr const char* kStempelDateiAnfang = "Stempeltags.";

struct Stempel {
    long id = 0;
    int maske = 0;
    std::string text;
};

// "B", "D", "F" for the set bits, in that order.
std::string maskeAlsText(int maske);
// A "B" anywhere sets bit 1, "D" bit 2, "F" bit 4.
int maskeAusText(std::string_view text);
// Whether a stamp of that mask is offered for the object type.
bool maskeBietetAn(int maske, int objektTyp);

enum class StempelAnwenden { Hinzugefuegt, NichtAngeboten, Unbekannt, Fehler };

struct StempelImport {
    bool gelesen = false;         // the file could be opened
    bool versionsfehler = false;  // foreign version: nothing was created
    int angelegt = 0;             // records created
    int uebersprungen = 0;        // malformed lines
};

class Stempeltags {
  public:
    // db and benutzer must outlive the object.
    Stempeltags(Datenbank& db, Benutzer& benutzer) : db_(db), benutzer_(benutzer) {}

    // Every stamp tag in id order.
    std::vector<Stempel> liste();
    // Those offered for an object type.
    std::vector<Stempel> angebotenFuer(int objektTyp);
    bool gibtEs(long id, Stempel* stempel = nullptr);

    // A new stamp tag (text cut to kStempelTextMax); its id, 0 on failure or for
    // an empty text or a mask without any kind.
    long neu(int maske, const std::string& text);
    bool aendere(long id, int maske, const std::string& text);
    bool loesche(long id);

    // Adds the stamp's text to the object's tags (a text the object already
    // carries is not added twice).
    StempelAnwenden wendeAn(long stempelId, int objektTyp, long objektId);

    // The export file text, and writing it (through a temporary file).
    std::string exportText();
    bool exportiere(const std::string& pfad);
    // Reads the whole file first and creates records only when its version is
    // right; lines without a tab, without a known kind or without text are skipped.
    StempelImport importiere(const std::string& pfad);

  private:
    Datenbank& db_;
    Benutzer& benutzer_;
};

}  // namespace dv
