#pragma once
// The undo journal of one write operation: what the files looked like before the
// operation changed them. It is written whole and made durable before the first
// byte of a table changes, and marked finished once every change is durable. A
// journal found open later therefore belongs to an operation that died midway,
// and putting its entries back returns the files to the state before it.
//
// The file is ours alone: a header with the journal's length, the entries, and a
// trailer with their number and a CRC-32 of everything before it. A journal
// without a valid trailer was never finished, so no file was changed after it;
// it is simply dropped. The file is kept between operations (a finished one has
// its header overwritten in place), which spares creating and removing it, and
// a directory flush each time, on every operation.

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

// Writes the journal durably to pfad. A file marked finished is overwritten in
// place (its entry in the folder is durable already, see below); anything else
// is created anew and its folder flushed. False if any step failed; a torn
// journal left then is dropped by the next start.
bool schreibeJournal(Dateisystem& fs, const std::string& pfad, const std::string& journal);
// Marks the journal at pfad finished, durably: its header is overwritten in
// place, a large one is removed instead so that it does not linger. False if
// neither could be made durable.
bool schliesseJournal(Dateisystem& fs, const std::string& pfad);
// True when pfad holds a journal that is not marked finished (whole or torn):
// only then must a writer look at it.
bool journalOffen(Dateisystem& fs, const std::string& pfad);
// The bytes of the journal at pfad, without what a longer journal before it
// left behind them (entpackeJournal judges them). False if it cannot be read.
bool leseJournal(Dateisystem& fs, const std::string& pfad, std::string& daten);

// Where the journal of a data folder lives: beside it, "<Daten>.journal", never
// inside the folder that holds exactly the table files.
std::string journalPfad(const std::string& datenOrdner);
// The folder part of a path, with its '/' ("" for a bare name).
std::string ordnerVon(const std::string& pfad);

}  // namespace dv
