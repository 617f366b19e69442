#pragma once
// What the interchange tests share: a catalogue below a temporary program folder,
// a sample box that uses every kind of entry, a readable dump of a box for
// comparing two catalogues, and a small box file encoder of the tests' own.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Einstellungen.h"
#include "base/Ordner.h"
#include "base/Protokoll.h"
#include "domain/Datenbank.h"
#include "interchange/Austausch.h"
#include "interchange/BoxImport.h"
#include "tests/domain/DomainUmgebung.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/FesteUhr.h"
#include "tests/support/TempOrdner.h"

namespace dv::test {

// The domain tests' catalogue with the counts the exchange tests ask for.
struct Katalogumgebung : DomainUmgebung {
    using DomainUmgebung::DomainUmgebung;
    long anzahlBoxen() { return zeilen(db->katalog().Box); }
    long anzahlLookups(int typ) { return zeilen(*db->lookupTabelle(typ)); }
    long anzahlPersonen() { return zeilen(db->katalog().Person); }
};

// A catalogue with a scripted user, the exchange front and a box importer on it.
struct Austauschumgebung : Katalogumgebung {
    using Katalogumgebung::Katalogumgebung;
    // Writes bytes as basis/name and imports that file.
    ImportErgebnis importiere(const std::string& name, const std::string& bytes);

    FakeBenutzer nutzer;
    Einstellungen einstellungen{basis / "e.conf"};
    Austausch austausch{*db, ordner, nutzer, einstellungen};
    BoxImport imp{*db, ordner, nutzer};
};

// Creates the sample box: packaging, two extras, tags, and two DVDs; the first
// with a rich film (three titles, every list, a person with two functions and
// two aliases, a second person with two functions and an alias on its first link, long content,
// comment, tags) and a second film, the second DVD with one plain film. Returns the box id.
long legeBeispielBoxAn(Datenbank& db, const Ordner& ordner,
                       const std::string& ean = "4010232012345");

// A dump of the box with everything the box file carries, by name, without
// record ids: two catalogues hold the same box exactly when the dumps are equal.
// mitTags: include the tag texts.
std::string beschreibeBox(Datenbank& db, const Ordner& ordner, long boxId, bool mitTags = true);

// The id of the box with that EAN (0 when none).
long boxMitEan(Datenbank& db, const std::string& ean);

// The tests' own encoder: entries, blocks and a whole file, written from the
// format description independently of the program's writer.
struct Kodierer {
    std::string daten;
    Kodierer& text(std::uint8_t token, const std::string& wert);
    Kodierer& lang(std::uint8_t token, const std::string& wert);
    Kodierer& zahl(std::uint8_t token, std::uint32_t wert, int breite);
    Kodierer& ende() { return zahl(0x80, 0, 1); }
};
// v as four little-endian bytes.
std::string alsU32(std::uint32_t v);

// A whole file: header (date 2023-04-05, time 06:07:08), picture, data; packed
// blocks when asked (u32 length + zlib stream).
std::string boxDatei(const std::string& daten, const std::string& bild = std::string(),
                     int bildTyp = 0, bool bildPacken = false, bool datenPacken = false);

// Lines of a text file (without "\n" / "\r\n").
std::vector<std::string> zeilenVon(const std::string& pfad);

}  // namespace dv::test
