#pragma once
// Watch-list files: watch lists written as text and read into another catalogue.
// Record ids differ between catalogues, so every object is named by the EAN of
// its box and its title. Extension "vml", default name "Vormerklisten.vml".
// Line format (see Textformat.h):
//
//   @V1.1
//   # N=<Bezeichner>
//   # <Typ><TAB><Box-EAN><TAB><Titel>
//   N=<list name>                      one per list, then its entries:
//   <type digit><TAB><EAN of the box><TAB><title>
//
// A box is written with its own EAN and name, a DVD with the EAN of the box that
// holds it and its name, a film with the EAN of the box of its DVD and its title.

#include <string>
#include <vector>

#include "base/Benutzer.h"
#include "domain/Datenbank.h"
#include "retrieval/Vormerklisten.h"

namespace dv {

inline constexpr const char* kVormerkEndung = "vml";
inline constexpr const char* kVormerkStandardName = "Vormerklisten.vml";
inline constexpr const char* kVormerkImportLog = "vormerklisten_import_error.log";

// The file text of the lists (ids of 0 or less are left out), in the order given.
// Entries of an unknown type or of objects that no longer exist are not written.
std::string vormerkDateiText(Datenbank& db, const std::vector<long>& listen);
// Writes the file through a temporary file; false when it cannot be written.
bool exportiereVormerklisten(Datenbank& db, const std::vector<long>& listen,
                             const std::string& pfad);

struct VormerkImport {
    bool gelesen = false;         // the file could be opened
    bool versionsfehler = false;  // reading stopped at a foreign version line
    int listen = 0;               // lists created
    int importiert = 0;           // entries added
    int fehler = 0;               // entries whose object was not found (logged)
};

// Reads a watch-list file into the catalogue. Every "N=" line creates a list
// (name cut to 128 characters) that becomes the current one; every entry line
// of a known type under a current list is looked up by type, EAN and title and
// appended to it. An object that cannot be found is logged to
// "vormerklisten_import_error.log" in the message folder; at the end one message
// tells the user when anything was not imported. Entry lines before the first
// "N=" line are ignored. A foreign version line stops the reading with the
// version message; lists created before it stay.
VormerkImport importiereVormerklisten(Datenbank& db, Benutzer& benutzer, const std::string& pfad);

}  // namespace dv
