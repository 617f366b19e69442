#pragma once
// Plain value types for what a user edits or sees: what both programs hand to the
// services and get back. Texts are catalogue texts (Windows-1252); the programs
// convert at their edge. Nothing here refers to the tables: a value outlives the
// call that made it and may be kept, copied and compared.

#include <cstdint>
#include <string>
#include <vector>

namespace dv {

// A lookup entry (packaging, extra, format, genre, language, function ...) as an
// object refers to it. On writing, an id > 0 names an existing entry; id 0 with a
// name takes the entry of that name (ASCII letter case ignored) and creates it
// when there is none; id 0 without a name is "none".
struct Eintrag {
    long id = 0;
    std::string name;
    bool operator==(const Eintrag&) const = default;
};

struct BoxWerte {
    long id = 0;  // 0 for a box not yet stored
    std::string titel;
    std::string ean;
    Eintrag verpackung;
    long zusatz = 0;              // kept as stored
    std::vector<Eintrag> extras;  // in order
    std::string cover;            // path of the cover file (read only; see ObjektDienst)
    bool operator==(const BoxWerte&) const = default;
};

struct DvdWerte {
    long id = 0;
    std::string titel;
    int jahr = 0;
    int laenge = 0;    // minutes
    unsigned rc = 0;   // region mask: bit 0 = region 1 ... bit 7 = region 8
    unsigned opt = 0;  // option flags, kept as stored
    Eintrag format;
    // The disc's identity (see the disc service).
    std::uint32_t sn = 0;
    std::uint32_t bytesLow = 0;
    std::uint32_t bytesHigh = 0;
    std::vector<Eintrag> extras;
    bool operator==(const DvdWerte&) const = default;
};

struct SpracheWert {
    Eintrag sprache;
    Eintrag tonformat;
    bool operator==(const SpracheWert&) const = default;
};

// One person on a film: the person (id > 0; the name is the display name and is
// ignored on writing), the function of this link and its aliases.
struct FilmPerson {
    Eintrag person;
    Eintrag funktion;
    std::vector<std::string> alias;
    bool operator==(const FilmPerson&) const = default;
};

struct FilmWerte {
    long id = 0;
    std::string titel;  // the main title
    std::string originaltitel;
    std::vector<std::string> alternativtitel;
    int fsk = 0;
    int laenge = 0;  // minutes
    int jahr = 0;
    std::vector<Eintrag> genres;
    std::vector<Eintrag> bildformate;
    std::vector<Eintrag> untertitel;  // entries of the language catalogue
    std::vector<Eintrag> funktionen;  // the film's own list of functions
    std::vector<SpracheWert> sprachen;
    std::vector<FilmPerson> personen;  // in position order
    std::string inhalt;                // content text (side file)
    std::string kommentar;             // comment text (side file)
    bool operator==(const FilmWerte&) const = default;
};

struct PersonWerte {
    long id = 0;
    std::string name;
    std::string vorname;
    int instanz = 0;
    bool operator==(const PersonWerte&) const = default;
};

// An entry of a lookup catalogue with the number of links that use it.
struct LookupWert {
    long id = 0;
    std::string name;
    long anzahl = 0;
    bool operator==(const LookupWert&) const = default;
};

// A watch list, a filter: an id and a name.
struct Benannt {
    long id = 0;
    std::string name;
    bool operator==(const Benannt&) const = default;
};
using VormerkWerte = Benannt;
using FilterWerte = Benannt;

// An entry of a watch list as the content view shows it.
struct VormerkEintrag {
    long liste = 0;
    std::string listenName;
    int typ = 0;  // object type
    long id = 0;
    std::string titel;  // "" when the object no longer exists
    bool operator==(const VormerkEintrag&) const = default;
};

// A stamp tag: its text and the kinds of object it is offered for (mask bits
// 1 Box, 2 Dvd, 4 Film).
struct StempelWerte {
    long id = 0;
    int maske = 0;
    std::string text;
    bool operator==(const StempelWerte&) const = default;
};

// A tag that a tag search found, with the object's title.
struct TagFund {
    int typ = 0;
    long id = 0;
    std::string titel;
    std::string tag;
    bool operator==(const TagFund&) const = default;
};

// ---- Rows of the catalogue tree: what a node shows, read as cheaply as possible.

struct BoxZeile {
    long id = 0;
    std::string titel;
    std::string ean;
    bool hatCover = false;
    int dvds = 0;  // link rows to DVDs (a node with 0 needs no expand mark)
    bool operator==(const BoxZeile&) const = default;
};

struct DvdZeile {
    long id = 0;
    long box = 0;
    std::string titel;
    int index = 0;  // running number within the box, from 1
    int filme = 0;  // link rows to films
    bool operator==(const DvdZeile&) const = default;
};

struct FilmZeile {
    long id = 0;
    long dvd = 0;
    std::string titel;
    int index = 0;  // running number within the DVD, from 1
    bool operator==(const FilmZeile&) const = default;
};

// An entry below a film's group: a genre, "Deutsch / DTS", a person as
// "Vorname Name (Funktion)" with its aliases below it.
struct GruppenEintrag {
    long id = 0;  // the lookup entry or person
    std::string text;
    std::vector<std::string> unter;
    bool operator==(const GruppenEintrag&) const = default;
};

// A group of a film's node: its lookup type, its label ("Genre", "Bildformate",
// "Sprachen inkl. Tonformat", "Untertitel", "Personen") and the entries.
struct Gruppe {
    int typ = 0;
    std::string text;
    std::vector<GruppenEintrag> eintraege;
    bool operator==(const Gruppe&) const = default;
};

struct Anzahl {
    long boxen = 0;
    long dvds = 0;
    long filme = 0;
};

// What a new box brings with it: the box, its DVD and its film.
struct NeueBox {
    long box = 0;
    long dvd = 0;
    long film = 0;
};

}  // namespace dv
