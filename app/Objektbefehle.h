#pragma once
// The object commands that the main window and dorvano-cli share: a new box with
// its first DVD and film, and deleting a box, DVD or film after the question.

#include <string>

#include "app/CApplikation.h"

namespace dv {

struct NeueBox {
    long box = 0;
    long dvd = 0;
    long film = 0;
};

// A new box with one DVD and one film, as the main window makes it: the DVD and
// the film carry the box's title, so a new box is never empty. verpackung is the
// packaging's name ("" for none; an unknown name is created). The texts are cut
// to their fields. False when anything could not be written; what was made up to
// then stays (unreferenced rows at worst).
bool legeBoxAn(CApplikation& app, const std::string& ean, const std::string& titel,
               const std::string& verpackung, NeueBox& neu);

// A lookup entry of that name (ASCII letter case ignored), created when missing;
// 0 for "" or when it could not be created.
long lookupNachName(Datenbank& db, int typ, const std::string& name);

// Asks the delete question ("Box \"%s\" löschen?" ...) under the application's
// title and on Yes deletes the object with the whole cascade; a box's cover files
// go with it. False when the user said No or the object could not be deleted
// (*abgelehnt tells which).
bool loescheMitFrage(CApplikation& app, int typ, long id, bool* abgelehnt = nullptr);

// Removes every cover file of a box ("<id>." and any extension) from the cover
// folder, so that a later box with the same id does not inherit it.
void loescheCover(Dateisystem& fs, const std::string& coverOrdner, long boxId);

}  // namespace dv
