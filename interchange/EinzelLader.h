#pragma once
// One box or DVD with everything below it, for the export of that one object
// (its box file, its XML document). Datenbank::getBox + ladeBox select each list
// of each film on its own, so every film costs a pass over every link table;
// this reader passes over each table once for the whole object and builds the
// same lists in the same order (link rows sorted by "Pos", rows whose target is
// missing left out), with elements the Datenbank's release operations free.
// Every allocation is traced like the domain's ("[malloc] pObj = [%08x] {EinzelLader}").

#include "domain/Datenbank.h"

namespace dv {

class ExportQuelle;

// Empty when the object does not exist. With quelle, the film titles read on the
// way are handed to it, so the export need not read the titles again.
BoxListe ladeBoxGanz(Datenbank& db, long boxId, ExportQuelle* quelle = nullptr);
DvdListe ladeDvdGanz(Datenbank& db, long dvdId, ExportQuelle* quelle = nullptr);

}  // namespace dv
