#pragma once
// Validation of the whole catalogue: renumbers the positions of the DVDs in every
// box and of the films on every DVD, removes film alias links that belong to no
// film person and alias entries that no link uses. Everything it does goes to the
// log "db_validate.log" in the message folder.
//
// Before the first change the data folder is copied into the backup folder, so a
// repair can always be undone by copying the files back; when that copy fails,
// nothing is changed. Each table is read a bounded number of times per phase:
// link rows are grouped by owner in memory, never selected once per box.

#include <cstdint>
#include <string>

#include "base/Benutzer.h"
#include "platform/Dateisystem.h"

namespace dv {

class Datenbank;

// Rewrites a[0..n-1] in place into ranks 1..n and returns whether it changed
// anything. Pass p (1..n) marks the smallest positive entry with -p, scanning
// front to back and taking the later of equal entries; when no positive entry is
// left, entry 0 takes the mark whatever it held. Finally every negative entry is
// turned positive. So 7,3,5 -> 3,1,2; 2,2 -> 2,1; 5,0 -> 2,0; 0,5 -> 2,1; and the
// result is true for every n > 0 (the caller rewrites every row). Existing
// catalogues depend on these orders; do not "fix" them.
bool normierePositionen(int n, std::int32_t* a);

struct ValidierungsErgebnis {
    std::string sicherung;        // the backup folder, ends in '/'
    long geaenderteZeilen = 0;    // DVD_Box and DVD_Film rows rewritten
    long entfernteFilmAlias = 0;  // Film_Alias rows removed in phase 2
    long entfernteAlias = 0;      // Alias rows removed in phases 2 and 3
    long schreibfehler = 0;       // rows that could not be written or removed
};

// The validation command. Asks first; backs up the data folder into
// backupOrdner ("Daten_<YYYYMMDD_HHMMSS>/"); writes logOrdner + "db_validate.log"
// (an older one is deleted); shows the numbered progress texts of the three
// phases and the closing message. False when the user declined or the backup
// failed (the user has been told; nothing was changed).
bool validiereDatenbank(Datenbank& db, Benutzer& benutzer, const std::string& logOrdner,
                        const std::string& backupOrdner, ValidierungsErgebnis* ergebnis = nullptr);

// Copies every file of datenOrdner into a new folder backupOrdner +
// "Daten_<YYYYMMDD_HHMMSS>" (with "_2", "_3" ... appended when that exists) and
// returns it with a trailing '/'; "" when any file could not be copied (the
// copies made so far are removed again).
std::string sichereDatenOrdner(Dateisystem& fs, const std::string& datenOrdner,
                               const std::string& backupOrdner);

}  // namespace dv
