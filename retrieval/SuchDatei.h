#pragma once
// Search definition files: the rows of a search saved as text, so prepared
// searches can be kept and loaded again. Files live in the template folder with
// the extension "asc" ("Suche.asc" by default). Line format (see Textformat.h):
//
//   @V1.1
//   # Suchobjekt<TAB>Kriterium<TAB>Operator<TAB>Verknüpfung<TAB>Suchdaten<TAB>
//   <objectType><TAB><criterion><TAB><op><TAB><combination><TAB>[<data><TAB>]
//
// A row without data is written, but a load skips it: the asymmetry is kept.

#include <string>

#include "base/Benutzer.h"
#include "platform/Dateisystem.h"
#include "retrieval/Suchkriterien.h"

namespace dv {

inline constexpr const char* kSuchEndung = "asc";
inline constexpr const char* kSuchStandardName = "Suche.asc";

// The file text of the rows as they stand.
std::string suchDateiText(const KriterienListe& kriterien);

// Normalises the rows (in place) and writes the file. Nothing happens for an
// empty list. False when the file cannot be written (nothing is reported; the
// previous file, if any, stays whole).
bool speichereSuche(Dateisystem& fs, const std::string& pfad, KriterienListe& kriterien);

enum class SuchLaden {
    Geladen,         // rows were read; ziel holds them, normalised
    KeineZeilen,     // the file holds no valid row; ziel is untouched
    NichtLesbar,     // the file cannot be opened; passed over silently
    Versionsfehler,  // foreign version: message shown, nothing loaded
};

// Reads the rows of a file. Comment lines are skipped; a version line must read
// "@V1.1" with its line end, else "IST-Version:\t%s\rSOLL-Version:\t%s" /
// "Versionsfehler" is shown and every row read so far is dropped. A row needs
// four non-negative numbers and non-empty data, each followed by a tab;
// other lines are skipped without a message. Only when rows were read is ziel
// replaced by them.
SuchLaden ladeSuche(Dateisystem& fs, const std::string& pfad, Benutzer& benutzer,
                    KriterienListe& ziel);

// Before a file is written over: "Die Datei existiert bereits.\nÜberschreiben?"
// under "Warnung". True when the file does not exist or the user said Yes.
bool darfUeberschreiben(Dateisystem& fs, Benutzer& benutzer, const std::string& pfad);

}  // namespace dv
