#pragma once
// The services both programs call, one small class per area, owned by the
// application object (CApplikation::dienste()). Each takes value types and
// answers with value types and an Ergebnis; every write passes the one
// Schreibstelle and announces its change notices to CApplikation::aenderungen().

#include "app/KatalogDienst.h"
#include "app/ObjektDienst.h"

namespace dv {

class CApplikation;

class Dienste {
  public:
    explicit Dienste(CApplikation& app) : katalog_(app), objekte_(app) {}
    Dienste(const Dienste&) = delete;
    Dienste& operator=(const Dienste&) = delete;

    // The tree and the simple reads: boxes, DVDs, films, groups, counts, texts.
    KatalogDienst& katalog() { return katalog_; }
    // Load, store, create, delete, move and copy boxes, DVDs and films.
    ObjektDienst& objekte() { return objekte_; }

  private:
    KatalogDienst katalog_;
    ObjektDienst objekte_;
};

}  // namespace dv
