#pragma once
// The checks and lookups behind the object service's writes: every value of a
// box, DVD or film is checked before the first write, and lookup entries named
// only by their name are found or created inside the write.

#include <vector>

#include "app/Ergebnis.h"
#include "app/Werte.h"

namespace dv {

class Datenbank;

namespace pruefung {

// Every field of the value within its limits, every id > 0 an existing entry.
// A box's EAN must not belong to another box (w.id is the box itself, 0 when new).
Ergebnis box(Datenbank& db, const BoxWerte& w);
Ergebnis dvd(Datenbank& db, const DvdWerte& w);
Ergebnis film(Datenbank& db, const FilmWerte& w);

// The id of an entry of lookup type typ: its own id, the entry of its name
// (created when missing), 0 for none. Only after the entry passed the checks.
ErgebnisMit<long> loeseAuf(Datenbank& db, int typ, const Eintrag& e);
ErgebnisMit<std::vector<long>> loeseAuf(Datenbank& db, int typ, const std::vector<Eintrag>& e);

}  // namespace pruefung
}  // namespace dv
