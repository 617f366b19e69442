#pragma once
// Change notices: every service write announces, after it succeeded, what it
// changed, so that a view (the desktop tree) rebuilds only the affected nodes.
// Observers are called in the order they registered, on the caller's thread,
// after the write is complete; an observer may read through the services but
// must not write from within the notice.

#include <vector>

namespace dv {

enum class AenderungsArt {
    Neu,         // the object was created (eltern: its box or DVD)
    Geaendert,   // its own fields or lists changed
    Geloescht,   // it is gone, with everything below it
    Verschoben,  // its place among its siblings changed (eltern: the owner)
    Alles,       // too much changed to say (an import of many boxes, a validation)
};

// What a notice is about. Box, Dvd and Film have the numbers of the object types.
enum class AenderungsTyp {
    Katalog = 0,  // the whole catalogue (with AenderungsArt::Alles)
    Box = 1,
    Dvd = 2,
    Film = 3,
    Lookup,        // an entry of a lookup catalogue (unterTyp: the lookup type)
    Person,        // an entry of the person catalogue
    Tags,          // the tags of an object (unterTyp: its object type)
    Vormerkliste,  // a watch list or its entries
    Filter,
    Stempeltag,
    Einstellung,  // an option or setting
};

struct Aenderung {
    AenderungsArt art = AenderungsArt::Alles;
    AenderungsTyp typ = AenderungsTyp::Katalog;
    long id = 0;
    long eltern = 0;   // the owning box of a DVD, the owning DVD of a film; else 0
    int unterTyp = 0;  // see AenderungsTyp
    bool operator==(const Aenderung&) const = default;
};

class AenderungsBeobachter {
  public:
    virtual ~AenderungsBeobachter() = default;
    virtual void geaendert(const Aenderung& a) = 0;
};

// Where observers register. Not thread-safe, like the catalogue.
class Aenderungen {
  public:
    // b must stay alive until it is removed again.
    void anmelden(AenderungsBeobachter& b) { beobachter_.push_back(&b); }
    void abmelden(AenderungsBeobachter& b);
    // Hands a to every observer.
    void verkuende(const Aenderung& a) const;

  private:
    std::vector<AenderungsBeobachter*> beobachter_;
};

}  // namespace dv
