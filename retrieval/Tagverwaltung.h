#pragma once
// Tags of boxes, DVDs and films: free lines of text kept in one file per object
// in the tags folder (see domain/Tags.h for the file form), and the tag search
// over that folder.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Benutzer.h"
#include "domain/Datenbank.h"

namespace dv {

// One tag that matched a tag search.
struct TagTreffer {
    int typ = 0;  // from the file name: the number before "_"
    long id = 0;  // the number after it
    std::string tag;
};

class Tagverwaltung {
  public:
    // db and benutzer must outlive the object; the tags folder is db's.
    Tagverwaltung(Datenbank& db, Benutzer& benutzer) : db_(db), benutzer_(benutzer) {}

    // The object's tags in file order; none for a missing file.
    std::vector<std::string> lese(int typ, long id);
    // Replaces the object's tags; an empty list deletes the file.
    bool schreibe(int typ, long id, const std::vector<std::string>& tags);
    // Whether the object has a tag file (the check mark of the "Tags" item).
    bool hat(int typ, long id);
    // Adds one tag unless the object carries it already; false when writing failed.
    bool fuegeHinzu(int typ, long id, const std::string& tag);

    // "Alle Tags entfernen": asks "Sollen alle Tags dieser Box, ihrer DVDs und
    // ihrer Filme entfernt werden?" and on Yes deletes the tag files of the box,
    // of each of its DVDs and of each film on them. False when the user said No.
    bool entferneAlleDerBox(long boxId);

    // The tag search: every line of every tag file whose name matches the file
    // pattern ("%d_*.txt" for one kind, "*.txt" for typ 0) that contains the
    // text (pattern "*text*", ASCII letters without regard to case). One hit per
    // matching line, ordered by kind and id, then file order. An empty text finds
    // nothing; files whose name is not "<type>_<id>.txt" yield no hit.
    // fortschritt (when given) hears of every file read: step i of n.
    std::vector<TagTreffer> suche(std::string_view text, int typ,
                                  const std::function<void(int, int)>& fortschritt = {});

  private:
    const std::string& ordner() const { return db_.ordner().tags; }

    Datenbank& db_;
    Benutzer& benutzer_;
};

// "Gefundene Tags: %d".
std::string tagStatus(std::size_t anzahl);
// Copy as text: "[%s] \t%s%s\r\n" per hit with the type name, the object's title
// and the tag in braces ("{%s}"). titel holds the titles in hit order.
std::string tagTrefferAlsText(const std::vector<TagTreffer>& treffer,
                              const std::vector<std::string>& titel);

}  // namespace dv
