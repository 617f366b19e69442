#pragma once
// The services both programs call, one small class per area, owned by the
// application object (CApplikation::dienste()). Each takes value types and
// answers with value types and an Ergebnis; every write passes the one
// Schreibstelle and announces its change notices to CApplikation::aenderungen().

#include "app/AusgabeDienst.h"
#include "app/AustauschDienst.h"
#include "app/EinstellungsDienst.h"
#include "app/FilterDienst.h"
#include "app/GeraeteDienst.h"
#include "app/KatalogDienst.h"
#include "app/ObjektDienst.h"
#include "app/OptionenDienst.h"
#include "app/SuchDienst.h"
#include "app/TagDienst.h"
#include "app/VormerkDienst.h"

namespace dv {

class CApplikation;

class Dienste {
  public:
    explicit Dienste(CApplikation& app)
        : katalog_(app),
          objekte_(app),
          austausch_(app),
          suche_(app),
          vormerk_(app),
          tags_(app),
          filter_(app),
          geraete_(app),
          ausgabe_(app),
          einstellungen_(app),
          optionen_(app) {}
    Dienste(const Dienste&) = delete;
    Dienste& operator=(const Dienste&) = delete;

    // The tree and the simple reads: boxes, DVDs, films, groups, counts, texts.
    KatalogDienst& katalog() { return katalog_; }
    // Load, store, create, delete, move and copy boxes, DVDs and films; covers.
    ObjektDienst& objekte() { return objekte_; }
    // Box files, batch import and export, XML documents, web import.
    AustauschDienst& austausch() { return austausch_; }
    // Searches and search definition files.
    SuchDienst& suche() { return suche_; }
    // Watch lists, their entries, set operations and files.
    VormerkDienst& vormerk() { return vormerk_; }
    // Tags, the tag search, stamp tags and their file.
    TagDienst& tags() { return tags_; }
    // Filters for the exports.
    FilterDienst& filter() { return filter_; }
    // Optical drives, the disc, the tray.
    GeraeteDienst& geraete() { return geraete_; }
    // Validation and the HTML overview.
    AusgabeDienst& ausgabe() { return ausgabe_; }
    // The options, and the settings beside them.
    OptionenDienst& optionen() { return optionen_; }
    EinstellungsDienst& einstellungen() { return einstellungen_; }

  private:
    KatalogDienst katalog_;
    ObjektDienst objekte_;
    AustauschDienst austausch_;
    SuchDienst suche_;
    VormerkDienst vormerk_;
    TagDienst tags_;
    FilterDienst filter_;
    GeraeteDienst geraete_;
    AusgabeDienst ausgabe_;
    EinstellungsDienst einstellungen_;
    OptionenDienst optionen_;
};

}  // namespace dv
