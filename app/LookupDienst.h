#pragma once
// The lookup catalogues as the user keeps them tidy: packaging types, extras,
// disc formats, functions, genres, picture formats, languages (which are also
// the subtitles) and sound formats. Lists with the number of objects that use
// each entry, new entries, renaming, deleting an unused entry and merging two.
//
// Names are unique within a catalogue without regard to ASCII letter case, as
// the box import matches them. An entry that anything still uses cannot be
// deleted: its slot would be reused by the next insert and every dangling id
// would silently name the new entry. Every write runs as one operation through
// the Schreibstelle and announces AenderungsTyp::Lookup with the lookup type.

#include <string>
#include <vector>

#include "app/Ergebnis.h"
#include "app/Werte.h"

namespace dv {

class CApplikation;

class LookupDienst {
  public:
    // app must outlive the service.
    explicit LookupDienst(CApplikation& app) : app_(app) {}

    // The lookup types of the catalogues the user edits (2, 4, 5, 7, 8, 9, 10,
    // 11, 17; 19 is the catalogue of 4).
    static bool istKatalog(int typ);
    // The catalogue's name for messages: "Genre", "Sprachen" ...
    static std::string katalogName(int typ);
    // "Darsteller" and "Regie" (functions 1 and 2) stay: the program relies on them.
    static bool istFest(int typ, long id);

    // The entries sorted as the tree sorts titles, each with the number of boxes,
    // DVDs and films that use it. Reads each table that can refer to the
    // catalogue once. Empty for a type that is no catalogue.
    std::vector<LookupWert> liste(int typ);
    // The same without counts: what the edit dialogs offer.
    std::vector<Eintrag> eintraege(int typ);

    // A new entry; refused when the name is empty, too long or taken.
    ErgebnisMit<long> neu(int typ, const std::string& name);
    Ergebnis umbenennen(int typ, long id, const std::string& name);
    // Refused while anything uses the entry ("... wird noch von %d Objekten
    // verwendet.") and for the fixed functions.
    Ergebnis loesche(int typ, long id);

    // The question before merging weg into bleibt: names both and the number of
    // links that move.
    ErgebnisMit<std::string> zusammenfuehrFrage(int typ, long bleibt, long weg);
    // Every reference to weg (link rows, packaging and format of boxes and DVDs,
    // film persons' functions, filter entries) onto bleibt, then weg is deleted.
    Ergebnis zusammenfuehren(int typ, long bleibt, long weg);

  private:
    Ergebnis pruefe(int typ, long id);
    Ergebnis pruefeName(int typ, long id, const std::string& name);
    std::string name(int typ, long id);

    CApplikation& app_;
};

// The question before a merge, shared by lookups and persons: names both and
// how many links (einzahl / mehrzahl: "Verknüpfung" / "Verknüpfungen") move.
std::string zusammenfuehrText(const std::string& weg, const std::string& bleibt, long anzahl,
                              const char* einzahl, const char* mehrzahl);

}  // namespace dv
