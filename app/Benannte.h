#pragma once
// Named things of the catalogue that a user lists, creates, renames and deletes
// the same way: watch lists and filters. One implementation of the checks
// (known id, name not empty and within kMaxLookupName), the writes through the
// Schreibstelle and the change notices; each kind says how it stores.

#include <string>
#include <vector>

#include "app/Aenderungen.h"
#include "app/Ergebnis.h"
#include "app/Werte.h"

namespace dv {

class CApplikation;

// The words a kind's messages use.
struct BenannteTexte {
    const char* unbekannt;  // "Keine Vormerkliste mit der ID %ld."
    const char* derName;    // "Die Vormerkliste" (subject of the failure messages)
};

class Benannte {
  public:
    virtual ~Benannte() = default;

    // Every entry in id order.
    std::vector<Benannt> liste() { return lies(); }
    bool gibtEs(long id);
    std::string name(long id);
    // The input error for an id that names none.
    Ergebnis pruefe(long id);
    ErgebnisMit<long> neu(const std::string& name);
    Ergebnis umbenennen(long id, const std::string& name);
    Ergebnis loesche(long id);

  protected:
    Benannte(CApplikation& app, AenderungsTyp typ, BenannteTexte texte)
        : app_(app), typ_(typ), texte_(texte) {}

    virtual std::vector<Benannt> lies() = 0;
    virtual long lege(const std::string& name) = 0;  // the new id, 0 on failure
    virtual bool benenne(long id, const std::string& name) = 0;
    virtual bool tilge(long id) = 0;

    CApplikation& app_;

  private:
    Ergebnis pruefeName(const std::string& name) const;

    AenderungsTyp typ_;
    BenannteTexte texte_;
};

}  // namespace dv
