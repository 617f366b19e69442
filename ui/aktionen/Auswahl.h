#pragma once
// What the commands need to know about the current tree node, as a plain value:
// the enabled state and the check marks of every command are pure functions of
// it, so they can be tested without a window.

#include "ui/aktionen/Befehle.h"

namespace dv::ui {

struct Auswahl {
    unsigned art = kKeinKnoten;  // one Knotenart bit
    // The objects along the node's path (0 where there is none): for a group or
    // an entry the film it belongs to.
    long box = 0;
    long dvd = 0;
    long film = 0;
    // A DVD or film node: whether it is the first or last among its siblings.
    bool erstes = true;
    bool letztes = true;
    // The object of the node has a tag file.
    bool hatTags = false;
    // Copy mode: the source's object type (2 DVD, 3 film; 0 while inactive) and id.
    int quelleTyp = 0;
    long quelleId = 0;

    // The object type (1 box, 2 DVD, 3 film) of the node; a group or an entry
    // counts as its film. 0 for the root and for no node.
    int objektTyp() const;
    // The id of that object.
    long objektId() const;
    bool operator==(const Auswahl&) const = default;
};

// Whether the command can run on this selection.
bool istAktiv(const Befehl& b, const Auswahl& a);
bool istAktiv(int id, const Auswahl& a);
// Whether a checkable command shows its check mark.
bool istAbgehakt(const Befehl& b, const Auswahl& a);

// Where "&Einfuegen DVD" places the copy: the target box of a DVD or the target
// DVD of a film; 0 when the selection takes no copy of the source.
long einfuegeZiel(const Auswahl& a);

}  // namespace dv::ui
