#pragma once
// The HTML overview: a page listing the boxes of the collection, written from a
// template with placeholders, each box's cover copied beside the page.
//
// Placeholders are names between two percent signs on one template line
// ("%BOXTITEL%"). Values are inserted as they are, without HTML escaping; a
// template author who wants a value escaped puts it where HTML takes text
// literally (inside a <textarea>, a comment, ...) or escapes in the template.
// A pair of percent signs whose name is not a placeholder stays as written, so
// CSS such as "width: 50%" passes through.
//
// Files of a page, for a target ".../Name.html":
//   .../Name_Dateien/           the side folder ("%s_%s" of the target without
//                               its extension and "Dateien")
//   .../Name_Dateien/<bild>     the background picture, under its own name
//   .../Name_Dateien/<id><ext>  the cover of box <id>, from "<id><ext>" in the cover folder
// A box without a cover, and a page without a background, refer to "none.jpg".
//
// The page, the template files and the colour file are Windows-1252 text, like
// every catalogue text inserted into them.

#include <functional>
#include <string>
#include <vector>

#include "base/Benutzer.h"
#include "platform/Dateisystem.h"

namespace dv {

class Datenbank;

// The five inputs. Paths are native (UTF-8); title and heading catalogue texts.
struct UebersichtEinstellungen {
    std::string vorlage;       // the main template (".html")
    std::string ziel;          // the page to write (".html"), e.g. ".../Uebersicht.html"
    std::string titel;         // empty: "Listentitel"
    std::string ueberschrift;  // empty: "Überschrift"
    std::string hintergrund;   // a picture file; empty: none
};

// The settings file: "@V1.0", then one commented, quoted line per input.
// Writing is atomic (temporary file and rename). False with a message when the
// file cannot be written.
bool schreibeUebersichtEinstellungen(Dateisystem& fs, Benutzer& benutzer, const std::string& pfad,
                                     const UebersichtEinstellungen& e);
// Reads the file into e. A malformed file gives the message "Die Datei ist
// fehlerhaft (Code = %d)" captioned "Fehler..." and false, e untouched. Codes:
//   1 the file cannot be read       2 the first line is not "@V1.0"
//   3 a value lacks its quotes      4 "Vorlage=" or "Ziel=" is missing
bool leseUebersichtEinstellungen(Dateisystem& fs, Benutzer& benutzer, const std::string& pfad,
                                 UebersichtEinstellungen& e);

// One entry of the colour file: a text (any CSS value) used `anzahl` times in a row.
//
// Colour file format (Windows-1252 text): lines starting with "#" and the
// version line "@V1.0" are comments, blank lines are skipped, every entry is
//     Farbe="<text>";<anzahl>
// with anzahl >= 1 (missing or invalid: 1). Other lines are ignored.
struct FarbEintrag {
    std::string text;
    int anzahl = 1;
};
std::vector<FarbEintrag> leseFarbDatei(const std::string& inhalt);

// The use counter of the colour rotation. It belongs to the program run, not to
// a page: a new page starts at the first colour entry but keeps the counter.
struct FarbZaehler {
    int zaehler = 1;
};

// One box of the page.
struct UebersichtBox {
    long id = 0;
    std::string titel;      // the box's name
    std::string origTitel;  // BOXORIGTITEL: the original title of the box's first
                            // film (first DVD by "Pos", its first film by "Pos"); "" when none
    std::string cover;      // file name in the cover folder ("12.jpg"), "" when none
};

struct UebersichtDaten {
    std::vector<UebersichtBox> boxen;  // in the order of the catalogue tree
    long anzahlBoxen = 0, anzahlDvds = 0, anzahlFilme = 0;
    std::string coverOrdner;  // ends in '/'
};

// Every box of the collection with its counts and covers, reading each table
// and the cover folder a bounded number of times.
UebersichtDaten sammleUebersichtDaten(Datenbank& db);

// Opens a finished page with the desktop's default program; true when started.
using SeiteOeffnen = std::function<bool(const std::string& pfad)>;
// xdg-open, detached. Does nothing (and reports success) while the environment
// variable DORVANO_NICHT_OEFFNEN is set, so test runs never start a browser.
bool oeffneMitStandardprogramm(const std::string& pfad);

struct UebersichtUmgebung {
    Dateisystem& fs;
    Benutzer& benutzer;
    FarbZaehler& farben;
    // Where "LOOP=" and "COLORFILE=" files are looked for first; then beside the template.
    std::string vorlagenOrdner;
    SeiteOeffnen oeffnen;  // empty: the page is not opened
};

// Writes the page. Every failure is shown to the user and ends the run; files
// written so far stay. True when the page was written (and opened, if asked).
bool erzeugeUebersicht(UebersichtUmgebung& u, const UebersichtEinstellungen& e,
                       const UebersichtDaten& daten);

// The default template set shipped with the program: "Uebersicht.html" (main
// template), "Uebersicht_Box.html" (per-box section), "Uebersicht_Farben.txt"
// (colour file), "Hintergrund.svg" (background).
struct EingebauteDatei {
    const char* name;
    std::string inhalt;
};
const std::vector<EingebauteDatei>& standardVorlagen();
// Writes each file of the default set that is missing in the folder; existing
// files (the user's own changes) stay. False when one could not be written.
bool installiereStandardVorlagen(Dateisystem& fs, const std::string& vorlagenOrdner);

}  // namespace dv
