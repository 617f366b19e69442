#pragma once
// The confirmation dialog for an unknown lookup or person during a box import,
// as a state machine over Benutzer::objektBestaetigen: the implementation of
// Benutzer only shows the state it is given and reports the button.
//
// Modes and buttons:
//   "OK"       normal mode: accept the fields shown. Edit mode: take the edited
//              fields and return to normal mode. Choice mode: take the chosen
//              entry's fields and return to normal mode.
//   "Alle OK"  as "OK" in that mode, and no further dialog for the rest of the
//              import (the flag is raised at once, also in edit or choice mode).
//   "Edit"     edit mode: fields writable, list disabled, last button "Abbruch".
//   "Auswahl"  choice mode, only when the list is not empty; last button "Abbruch".
//   "Nicht"    ignore the object.
//   last       edit or choice mode ("Abbruch"): back to normal mode with the
//              fields as they were; normal mode ("Beenden"): abort the import.

#include <cstddef>
#include <string>
#include <vector>

#include "base/Benutzer.h"

namespace dv {

enum class Entscheidung { Annehmen, Ignorieren, Abbrechen };

struct Bestaetigung {
    Entscheidung entscheidung = Entscheidung::Abbrechen;
    std::vector<std::string> felder;  // the accepted fields
};

// Runs the dialog until it is decided. dialog carries title, line, type label,
// field names, the initial fields and the list; listenFelder[i] are the fields
// that list entry i puts into the edit fields; feldBreiten cut edited fields
// (0: no limit). alleOk is raised by "Alle OK".
Bestaetigung bestaetigeObjekt(Benutzer& benutzer, ObjektDialog dialog,
                              const std::vector<std::vector<std::string>>& listenFelder,
                              const std::vector<std::size_t>& feldBreiten, bool& alleOk);

}  // namespace dv
