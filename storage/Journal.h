#pragma once
// The undo journal of one write operation: what the files looked like before the
// operation changed them. It is written whole and made durable before the first
// byte of a table changes, and removed once every change is durable. A journal
// found later therefore belongs to an operation that died midway, and putting
// its entries back returns the files to the state before that operation.
//
// The file is ours alone: a header, the entries, and a trailer with their number
// and a CRC-32 of everything before it. A journal without a valid trailer was
// never finished, so no file was changed after it; it is simply dropped.

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Dateisystem.h"

namespace dv {

struct JournalEintrag {
    enum Art : std::uint8_t {
        Neu = 1,      // the file did not exist: remove it
        Laenge = 2,   // wert: the file's former length
        Bereich = 3,  // wert: position; bytes: what stood there
        Inhalt = 4,   // bytes: the whole former file
    };
    Art art = Neu;
    std::string pfad;
    std::int64_t wert = 0;
    std::string bytes;
};

// The file form of the entries, trailer included.
std::string packeJournal(const std::vector<JournalEintrag>& eintraege);
// False for anything but a whole journal (torn, foreign, damaged); eintraege is
// then empty. Never reads beyond daten, never sizes anything by a stored number
// that the remaining bytes cannot hold.
bool entpackeJournal(const std::string& daten, std::vector<JournalEintrag>& eintraege);

// Puts back what the entries record, the last entry first, and makes every
// restored file and the folders of removed or recreated files durable. Putting
// back twice gives the same files. False if any file could not be restored.
bool nimmZurueck(Dateisystem& fs, const std::vector<JournalEintrag>& eintraege);

// Where the journal of a data folder lives: beside it, "<Daten>.journal", never
// inside the folder that holds exactly the table files.
std::string journalPfad(const std::string& datenOrdner);
// The folder part of a path, with its '/' ("" for a bare name).
std::string ordnerVon(const std::string& pfad);

}  // namespace dv
