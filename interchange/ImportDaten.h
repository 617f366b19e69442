#pragma once
// The content of a box file's data block as the import takes it: texts cut to
// the widths of the catalogue's fields, every lookup name with the record id it
// resolves to (0 = not assigned), the numbered lists and pairs of each film.
// Filling it touches nothing but memory.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dv {

inline constexpr std::size_t kImportTitelMax = 64;
inline constexpr std::size_t kImportEanMax = 16;
inline constexpr std::size_t kImportNameMax = 128;   // lookup names, packaging
inline constexpr std::size_t kImportPersonMax = 64;  // last and first name

struct ImportName {
    std::string name;
    long id = 0;
};

struct ImportPerson {
    std::string name, vorname;
    int instanz = 0;
    long id = 0;
};

struct ImportFilm {
    std::string titel, original;
    std::vector<std::string> weitere;  // further (alternative) titles
    int fsk = 0, jahr = 0, laenge = 0;
    std::vector<ImportName> bildformate, genres, untertitel, sprachen, tonformate, funktionen;
    std::vector<ImportPerson> personen;
    // 1-based positions into sprachen/tonformate and personen/funktionen; -1 none.
    std::vector<std::pair<long, long>> sprachTon, personFunktion;
    std::vector<std::pair<long, std::string>> alias;  // person position, alias name
    std::string inhalt, kommentar, tags;
};

struct ImportDvd {
    std::string titel;
    std::int8_t rc = 0, opt = 0;
    std::uint32_t sn = 0, bytesLow = 0, bytesHigh = 0;
    int jahr = 0;
    ImportName format;
    std::vector<ImportName> extras;
    std::string tags;
    std::vector<ImportFilm> filme;
};

struct ImportBox {
    std::string titel, ean;
    int anzahlDvds = 0;
    ImportName verpackung;
    std::vector<ImportName> extras;
    std::string tags;
    std::vector<ImportDvd> dvds;
};

// What the pre-scan finds: title, EAN and number of DVDs. daten is false when
// the block holds no box entry at all.
struct BoxVorschau {
    bool daten = false;
    std::string titel, ean;
    int anzahlDvds = 0;
};
BoxVorschau vorschau(std::string_view daten);

// Walks the data block entry by entry up to the end token. DVD entries count
// only while a DVD is open (after 0x83), film entries only while a film is open
// (after 0x85). Tag texts are taken only when not empty. False when an entry
// runs past the end of the block.
bool zerlegeBoxDaten(std::string_view daten, ImportBox& box);

// A tag text of the file split into tags (one per line, "\r\n" or "\n").
std::vector<std::string> tagsAusText(const std::string& text);

}  // namespace dv
