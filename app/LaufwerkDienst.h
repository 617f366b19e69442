#pragma once
// The DVD drive as the desktop program's "D&VD" and "&Einstellungen" menus use
// it: the facts of the disc in the default drive ("DvdRom") as the DVD dialog
// shows them, the catalogue DVD of the inserted disc, the choice of the default
// drive and its tray. Every failure has been shown to the user (Benutzer) with
// the same messages as in the command-line program when a call returns.

#include <string>
#include <utility>
#include <vector>

#include "domain/Disc.h"

namespace dv {

class CApplikation;

// One line of the disc's facts: caption and value (Windows-1252).
using DiscAngabe = std::pair<std::string, std::string>;

class LaufwerkDienst {
  public:
    // app and laufwerke must outlive the service.
    LaufwerkDienst(CApplikation& app, Laufwerke& laufwerke) : app_(app), laufwerke_(laufwerke) {}

    // "Laufwerk", "Bezeichnung", "Dateisystem", "SN", "BytesLow", "BytesHigh",
    // "Größe", "Typ" and, when the disc's header could be read, "Regionalcode".
    // Empty when the disc could not be read.
    std::vector<DiscAngabe> info();
    // The catalogue DVD of the inserted disc; dvdId 0 when it is unknown or
    // could not be read.
    DiscFund erkenne();
    // Finds the drives and lets the user choose one; false when none was stored.
    bool waehleLaufwerk();
    // Opens or closes the tray of the default drive (the first drive when none
    // is chosen).
    bool schublade(bool oeffnen);

    // For noticing a disc by itself: the default drive's letter (0: none chosen),
    // and the catalogue DVD of a disc already read, telling the user nothing.
    char standardLaufwerk();
    DiscFund finde(const DiscInfo& info);
    // Reads the disc in the drive with that letter without a word to the user.
    // Touches nothing but the drive, so a worker thread may call it.
    static bool leseStill(Laufwerke& laufwerke, char buchstabe, DiscInfo& info);

  private:
    DiscQuelle quelle();

    CApplikation& app_;
    Laufwerke& laufwerke_;
};

}  // namespace dv
