#pragma once
// What the catalogue tells the user about an object: the total playing time,
// the information text that lists every property, and the reason strings that
// say in which field a search matched. All texts are Windows-1252; lines are
// separated by "\r\n".

#include <string>

#include "base/Benutzer.h"
#include "domain/Datenbank.h"

namespace dv {

inline constexpr const char* kSpieldauerTitel = "Gesamtspieldauer";

// The playing-time text of a box or DVD (sum of its films' lengths; the DVD's
// own length is not used) or of a film; "" when the object does not exist.
// Negative stored lengths count as 0.
std::string spieldauerText(Datenbank& db, int objektTyp, long id);
// The same text from a number of minutes, for the three kinds.
std::string spieldauerText(int objektTyp, unsigned minuten);
// Shows the text captioned "Gesamtspieldauer" with the information icon;
// false (and nothing shown) when the object does not exist.
bool zeigeSpieldauer(Datenbank& db, Benutzer& benutzer, int objektTyp, long id);

// The information text of a box, DVD or film; "" when the object does not exist.
std::string infoText(Datenbank& db, int objektTyp, long id);

// The name under which an object is shown: a box's or DVD's name, a film's main
// title; "" when the object does not exist.
std::string objektName(Datenbank& db, int objektTyp, long id);
// The main window's delete question: "Box \"%s\" löschen?", "Dvd \"%s\" löschen?"
// or "Film \"%s\" löschen?" with the object's name.
std::string loeschFrage(Datenbank& db, int objektTyp, long id);

// The region codes of a DVD's RC byte (bit 0 = region 1 ... bit 7 = region 8)
// spelled as "1, 2, 5"; "keiner" when no bit is set.
std::string regionalCodes(int rc);

// Reason strings of search hits: printf formats, filled with formatiere().
namespace gruende {
inline constexpr const char* kBezeichnung = "Bezeichnung: <%s>";
inline constexpr const char* kEAN = "EAN: <%s>";
inline constexpr const char* kVerpackung = "Verpackung: <%s>";
inline constexpr const char* kJahr = "Jahr: <%d>";
inline constexpr const char* kRC = "RC: %s <%d>";  // spelled codes, raw value
inline constexpr const char* kFormat = "Format: <%s>";
inline constexpr const char* kSN = "SN: <%u>";
inline constexpr const char* kLow = "Low: <%u>";
inline constexpr const char* kHigh = "High: <%u>";
inline constexpr const char* kExtras = "Extras: <%s>";
inline constexpr const char* kTitel = "Titel: <%s>";
inline constexpr const char* kBildformat = "Bildformat: <%s>";
inline constexpr const char* kGenre = "Genre: <%s>";
inline constexpr const char* kUntertitel = "Untertitel: <%s>";
inline constexpr const char* kFunktion = "Funktion: <%s>";
inline constexpr const char* kSpracheTonformat = "Sprache: <%s> <=> Tonformat: <%s>";
inline constexpr const char* kSprache = "Sprache: <%s>";
inline constexpr const char* kTonformat = "Tonformat: <%s>";
inline constexpr const char* kPersonFunktion = "Person: <%s> <=> Funktion: <%s>";
inline constexpr const char* kPerson = "Person: <%s>";
inline constexpr const char* kAlias = "Alias: <%s>";
inline constexpr const char* kInhalt = "Inhalt: <%s>";
inline constexpr const char* kKommentar = "Kommentar: <%s>";
inline constexpr const char* kFSK = "FSK: <%d>";
inline constexpr const char* kLaenge = "Laenge: <%d>";
inline constexpr const char* kLookup = "%s: <%s>";  // catalogue name, entry
}  // namespace gruende

// printf into a string of any length (the reason strings, the information texts).
std::string formatiere(const char* format, ...) __attribute__((format(printf, 1, 2)));
// Joins a reason to the object's reasons ("%s%s").
void haengeGrundAn(std::string& gruende, const std::string& grund);

}  // namespace dv
