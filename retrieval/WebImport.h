#pragma once
// The web import: finds ready-made box files on an import server by the disc's
// identity, by EAN or by title, lets the user pick hits and downloads the chosen
// box files for the box import.
//
// Server layout below the base address ("ImportUrl", ending in '/'):
//   links.ini            lines "<number>;<relative path>;", "#" comments
//   <path>ImpDB.kvt      the packed index (see entpackeKvt)
//   <path><EAN>.box      one box file per box
// The index "ImpDB.ini": lines "<EAN>;<SN>;<BytesLow>;<BytesHigh>;\"<title>\";".
//
// Nothing the server sends is used as a local file name: every file is written
// into the working folder given to WebImport, under a fixed name ("links.ini",
// "ImpDB.kvt", "ImpDB.ini") or as "<EAN>.box" for an EAN of 1 to 16 letters,
// digits, '-' or '_'. Index lines with any other EAN, and link lines whose path is
// absolute, names a scheme or drive, or climbs with "..", are skipped.
//
// All texts are Windows-1252, the paths native (UTF-8).

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Benutzer.h"
#include "base/Einstellungen.h"
#include "platform/Dateisystem.h"
#include "platform/Http.h"

namespace dv {

// Result codes besides the number of hits (1 or more) and 0 (nothing found).
inline constexpr int kWebLinksFehlen = -1;    // "links.ini" could not be downloaded
inline constexpr int kWebLinksUnlesbar = -2;  // "links.ini" could not be read
inline constexpr int kWebIndexFehlt = -3;     // an "ImpDB.kvt" could not be downloaded
inline constexpr int kWebIndexUnlesbar = -4;  // an index could not be unpacked or read
inline constexpr int kWebBoxFehlt = -5;       // a box file could not be downloaded

inline constexpr int kWebMaxTreffer = 500;  // the title search stops at this many hits
// An index larger than this (unpacked) is refused before anything is allocated.
inline constexpr std::uint32_t kWebMaxIndex = 64u << 20;

struct WebLink {
    long nummer = 0;
    std::string pfad;  // relative, '/'-separated, empty or ending in '/'
};

// One line of an index.
struct WebImportEntry {
    int link = 0;  // index into the links list
    bool selected = false;
    std::string EAN;
    std::string titel;
    std::uint32_t SN = 0, BytesLow = 0, BytesHigh = 0;
};

// What to look for: the disc identity when any of its numbers is non-zero, else
// the EAN when given, else the title.
struct WebImportSuche {
    std::uint32_t SN = 0, BytesLow = 0, BytesHigh = 0;
    std::string ean;
    std::string titel;
    bool perDisc() const { return SN || BytesLow || BytesHigh; }
};

struct WebImportErgebnis {
    int code = 0;  // number of hits, 0, or one of the codes above
    std::vector<WebImportEntry> treffer;
    std::vector<std::string> dateien;  // the downloaded box files, in the order chosen
};

// Parsers; lines lacking a ';' after a field, and unsafe names (see above), are skipped.
std::vector<WebLink> leseLinks(std::string_view text);
std::vector<WebImportEntry> leseIndex(std::string_view text, int link);
// "KVT", two ignored bytes, the unpacked length (32-bit little-endian) and one
// zlib stream. False for a wrong magic, a length above kWebMaxIndex, or a
// stream that zlib does not accept whole.
bool entpackeKvt(std::string_view datei, std::string& index);
// The message of a result code 0 or below.
std::string webImportMeldung(int code);

class WebImport {
  public:
    // fs, benutzer and http must outlive the object; arbeitsOrdner ends in '/'.
    WebImport(Dateisystem& fs, Benutzer& benutzer, std::string arbeitsOrdner,
              Http& http = echtesHttp());

    HttpGrenzen grenzen;
    bool grossKlein = false;  // letter case in the title search

    // The whole run: links, indexes, search, the selection "Web-Import Auswahl
    // (%d)", the downloads, the message of a code 0 or below, and "Suche beendet".
    WebImportErgebnis fuehreAus(const std::string& basisUrl, const WebImportSuche& suche);

  private:
    // Downloads basis + relativ into the working folder as name; reports a failure.
    bool lade(const std::string& basis, const std::string& relativ, const std::string& name);
    int durchsuche(const std::string& basis, const std::vector<WebLink>& links,
                   const WebImportSuche& suche, std::vector<WebImportEntry>& treffer);
    // Adds this index's hits; false when the search is to stop (cap or cancel).
    bool suche(const std::vector<WebImportEntry>& index, const WebImportSuche& s,
               std::vector<WebImportEntry>& treffer);
    bool abbrechen();
    int ladeGewaehlte(const std::string& basis, const std::vector<WebLink>& links,
                      WebImportErgebnis& e);

    Dateisystem& fs_;
    Benutzer& benutzer_;
    std::string ordner_;
    Http& http_;
    bool abgebrochen_ = false;
};

// The base address: the setting "ImportUrl", else kStandardImportUrl.
inline constexpr const char* kStandardImportUrl = "http://localhost/dorvano/import/";
std::string importUrl(Einstellungen& einstellungen);

// The hand-over to the box import: imports one downloaded file, true when imported.
using BoxDateiImport = std::function<bool(const std::string& pfad)>;
// Imports every file of the result in order; returns how many were imported.
int importiereWebDateien(const WebImportErgebnis& e, const BoxDateiImport& import);

}  // namespace dv
