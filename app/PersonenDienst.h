#pragma once
// The person catalogue: every person with the number of films it appears in,
// the person dialog's checks (a second person of the same name, first name and
// instance is a duplicate; the next free instance is proposed), new persons,
// changes, deleting a person no film names and merging two persons.
//
// Names match without regard to ASCII letter case, as the box import matches
// persons. Every write runs as one operation through the Schreibstelle and
// announces AenderungsTyp::Person.

#include <string>
#include <vector>

#include "app/Ergebnis.h"
#include "app/Werte.h"

namespace dv {

class CApplikation;

// A person as the persons list shows it.
struct PersonZeile {
    PersonWerte person;
    std::string text;  // "Name, Vorname (Instanz)"
    long filme = 0;
    bool operator==(const PersonZeile&) const = default;
};

class PersonenDienst {
  public:
    // app must outlive the service.
    explicit PersonenDienst(CApplikation& app) : app_(app) {}

    // "Name, Vorname (Instanz)"; "Name (Instanz)" without a first name.
    static std::string text(const PersonWerte& p);

    // Every person, sorted as the tree sorts titles by that text. mitFilmen:
    // also count the films of each (one more pass over the film links).
    std::vector<PersonZeile> liste(bool mitFilmen = true);
    ErgebnisMit<PersonWerte> lade(long id);

    // The instance the person dialog proposes for w: 0 when no other person has
    // w's name, first name and instance, else one above the highest instance of
    // that name and first name.
    int freieInstanz(const PersonWerte& w);
    // The hint for a duplicate ("" when w is none).
    std::string doppeltText(const PersonWerte& w);

    // A new person (w.id ignored) or the changed fields of w.id; refused for a
    // duplicate with doppeltText, for an empty name and for texts too long.
    ErgebnisMit<long> neu(const PersonWerte& w);
    Ergebnis speichere(const PersonWerte& w);
    // Refused while a film names the person, with the number of films.
    Ergebnis loesche(long id);

    // The question before merging weg into bleibt: names both and the number of
    // film links that move.
    ErgebnisMit<std::string> zusammenfuehrFrage(long bleibt, long weg);
    // Every film link of weg (with its aliases) onto bleibt, then weg is deleted.
    Ergebnis zusammenfuehren(long bleibt, long weg);

  private:
    Ergebnis pruefe(long id);
    Ergebnis pruefeWerte(const PersonWerte& w);

    CApplikation& app_;
};

}  // namespace dv
