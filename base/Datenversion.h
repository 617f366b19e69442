#pragma once
// The data version check at start-up, with its protocol file "datenversion.log"
// in the message folder.

#include <string>

#include "base/Benutzer.h"
#include "base/Protokoll.h"
#include "storage/Katalog.h"

namespace dv {

struct VersionsVergleich {
    DatenVersionSatz ist;
    DatenVersionSatz soll;
    bool passt = false;
};

// Stored against current version (the current one is written if none is stored).
VersionsVergleich vergleicheVersion(Katalog& katalog);
// "Ist  : %d.%d.%d.%d - %s" and "Soll : %d.%d.%d.%d - %s".
std::string istZeile(const DatenVersionSatz& v);
std::string sollZeile(const DatenVersionSatz& v);

// Runs the check: rewrites the protocol file and, on a mismatch, shows the message
// captioned "### Falsche Datenversion ###". Returns whether the versions agree;
// the caller ends the process when they do not.
bool pruefeDatenversion(Katalog& katalog, Protokoll& protokoll, Benutzer& benutzer);

}  // namespace dv
