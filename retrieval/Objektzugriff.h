#pragma once
// Access to boxes, DVDs and films by id for the lists of this layer (watch
// lists, tag search hits, watch-list files), in bulk: a table is read once for
// many objects instead of once per object.

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "domain/Datenbank.h"

namespace dv {

// An object of the catalogue by kind (kObjektBox, kObjektDvd, kObjektFilm) and id.
struct ObjektRef {
    int typ = 0;
    long id = 0;
};

// The shown titles of the objects, in the order asked: a box's or DVD's name,
// a film's main title. nullopt for an object that does not exist (or of an
// unknown kind). Each table is read at most once; a few boxes or DVDs are read
// by id instead.
std::vector<std::optional<std::string>> objektTitel(Datenbank& db,
                                                    const std::vector<ObjektRef>& objekte);

// Whether the object exists (one read by id).
bool objektExistiert(Datenbank& db, int typ, long id);

// The collection indexed for lookups by id and by EAN. Holds the list it was
// built from; pointers stay valid while the index lives.
class Sammlungsindex {
  public:
    // Builds the whole collection once (boxes with their DVDs and films).
    explicit Sammlungsindex(Datenbank& db);

    const BoxElement* box(long id) const;
    // A DVD and the first box (in catalogue order) that holds it.
    const DvdElement* dvd(long id, const BoxElement** box = nullptr) const;
    // A film and the first box that holds a DVD with it.
    const FilmElement* film(long id, const BoxElement** box = nullptr) const;

    // By EAN and title (exact texts; the first match in id order of the boxes):
    // a box by EAN and name, a DVD by name within a box of that EAN, a film by
    // title on a DVD of a box of that EAN. 0 when nothing matches.
    long finde(int typ, const std::string& ean, const std::string& titel) const;

  private:
    struct Ort {
        const void* objekt = nullptr;
        const BoxElement* box = nullptr;
    };
    BoxListe boxen_;
    std::unordered_map<long, Ort> boxNachId_, dvdNachId_, filmNachId_;
    std::unordered_map<std::string, std::vector<const BoxElement*>> nachEan_;
};

}  // namespace dv
