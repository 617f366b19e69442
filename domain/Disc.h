#pragma once
// Identification of the disc in the chosen DVD drive: its identity (serial
// number and the two halves of the total file size), the size text and class and
// the region code that the DVD dialog shows, finding the catalogue DVD of an
// inserted disc, choosing the drive and moving its tray.
//
// A disc is read either from the drive with the chosen letter or from a disc
// image file; both go through the same platform reader (platform/Laufwerke.h).

#include <array>
#include <cstdint>
#include <string>

#include "base/Benutzer.h"
#include "base/Einstellungen.h"
#include "platform/Laufwerke.h"

namespace dv {

class Datenbank;

// Result codes of the disc read.
inline constexpr int kDiscOk = 0;
inline constexpr int kDiscLesefehler = -1;           // volume query or file walk failed
inline constexpr int kDiscFalschesDateisystem = -2;  // the file system is not "UDF"
inline constexpr int kDiscKeinLaufwerk = -3;         // no drive letter chosen

// Where the disc is read from: the image file when one is named, else the drive
// with the letter (0: none chosen).
struct DiscQuelle {
    char laufwerk = 0;
    std::string abbild;  // native path of a disc image file
};

// What one read of the disc yields. Texts are Windows-1252.
struct DiscInfo {
    char cRoot[3] = {0, 0, 0};  // "%c:" of the drive letter; empty for an image
    std::string volumenName;    // at most 256 characters
    std::string dateisystem;    // at most 254 characters
    std::uint32_t SN = 0;
    std::uint32_t BytesLow = 0;
    std::uint32_t BytesHigh = 0;
    std::uint32_t maxKomponente = 0;
    std::uint32_t flags = 0;
    std::uint32_t frei[2] = {0, 0};  // set to 0 by a successful read

    // Set when the read failed with -1: the system's German text of the cause.
    std::string fehlerText;
};

// Reads volume facts and the total file size. With no letter and no image
// returns -3 without touching any drive.
int leseDiscInfo(Laufwerke& laufwerke, const DiscQuelle& quelle, DiscInfo& info);

// The first 104 bytes of "VIDEO_TS\VIDEO_TS.IFO" (names matched without regard
// to case); true only when all 104 bytes were read.
inline constexpr std::size_t kDvdKopfGroesse = 104;
bool leseDvdKopf(Laufwerke& laufwerke, const DiscQuelle& quelle,
                 std::array<std::uint8_t, kDvdKopfGroesse>& kopf);

// The region field from a header: byte 35 exclusive-or 255, one bit per
// permitted region.
int regionAusKopf(const std::array<std::uint8_t, kDvdKopfGroesse>& kopf);

// "%.2f %s" of the size in its unit. The unit is found by shifting both halves
// right by 10 bits until the low half is below 1024 and the high half is 0, each
// time adding 2^22 to the low half while the high half is non-zero: a deliberate
// approximation that catalogues depend on.
std::string groessenText(std::uint32_t low, std::uint32_t high);
// "DVD 5 oder DVD 10" below 4,700,000,000 bytes, else "DVD 9 oder DVD 18".
const char* groessenKlasse(std::uint32_t low, std::uint32_t high);

// The fields of the DVD dialog that show the disc.
struct DiscAnzeige {
    std::string dateisystem, sn, bytesLow, bytesHigh, groesse, typ;
    int rc = 0;  // the region field; left alone when the header cannot be read
    bool rcGelesen = false;
};
void fuelleDiscAnzeige(Laufwerke& laufwerke, const DiscQuelle& quelle, const DiscInfo& info,
                       DiscAnzeige& anzeige);

// Reports a failed read (code < 0) as the DVD dialogs do.
void meldeDiscFehler(Benutzer& benutzer, int code, const DiscInfo& info);

// The catalogue DVD of the inserted disc (or image), and a box that holds it.
struct DiscFund {
    long dvdId = 0;  // 0: not found or not readable (the user has been told)
    long boxId = 0;  // 0: the DVD lies in no box
};
DiscFund findeDisc(Datenbank& db, Benutzer& benutzer, Laufwerke& laufwerke,
                   const DiscQuelle& quelle);
// The same for a disc already read, telling the user nothing.
DiscFund findeDvdZu(Datenbank& db, const DiscInfo& info);

// Marks in flags (index 0 = "A") the letters of the optical drives; returns their number.
int zaehleLaufwerke(Laufwerke& laufwerke, std::array<int, 26>& flags);

// The stored default drive letter ("DvdRom"), 0 when none is stored.
char gespeichertesLaufwerk(Einstellungen& einstellungen);

// Finds the drives and lets the user choose; stores the letter under "DvdRom"
// and sets buchstabe. False when nothing was chosen or stored.
bool waehleLaufwerk(Benutzer& benutzer, Laufwerke& laufwerke, Einstellungen& einstellungen,
                    char& buchstabe);

// Stores a letter given by name (cli); false with a message when no optical drive has it.
bool setzeLaufwerk(Benutzer& benutzer, Laufwerke& laufwerke, Einstellungen& einstellungen,
                   char buchstabe);

// Opens or closes the tray of the drive with the letter (0: the first drive).
// Failures are shown to the user.
bool bewegeSchublade(Benutzer& benutzer, Laufwerke& laufwerke, char buchstabe, bool oeffnen);

}  // namespace dv
