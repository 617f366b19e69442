#pragma once
// Filters: named translation tables from the catalogue's own lookup entries to
// external texts, used by the box file export (setting "Filter") and the XML
// export (setting "XMLFilter").
//
// A filter is one "FilterName" record (its id is the filter id) and any number
// of "Filter" records (lFilterId, Typ 1..8, lIntern, cpExtern). In memory a
// loaded filter is a FilterListe node with all eight FilterTypen nodes in type
// order, each with its FilterObjekte; every level is allocated with the C
// allocator and released by its own free routine, which traces each node as
// "[free] pDel = [%08x] {FreeFilterListe}" (and ...Typen, ...Objekte).

#include <cstdint>
#include <memory>
#include <string>

#include "base/Einstellungen.h"
#include "domain/Datenbank.h"
#include "interchange/Austausch.h"
#include "interchange/Uebersetzer.h"

namespace dv {

struct FilterObjekte {
    std::int32_t lIntern;
    char* cpExtern;  // owned, malloc'ed
    FilterObjekte* pNext;
};

struct FilterTypen {
    std::uint8_t Typ;
    FilterObjekte* pObjekte;
    FilterTypen* pNext;
};

struct FilterListe {
    std::int32_t lFilterId;
    char cpName[129];
    FilterTypen* pTypen;
    FilterListe* pNext;
};

// Each frees the whole chain it is given (null is ignored), with what hangs below.
void FreeFilterObjekte(const Trace& trace, FilterObjekte* p);
void FreeFilterTypen(const Trace& trace, FilterTypen* p);
void FreeFilterListe(const Trace& trace, FilterListe* p);

struct FilterFreigabe {
    const Trace* trace = nullptr;
    void operator()(FilterListe* p) const {
        if (trace) FreeFilterListe(*trace, p);
    }
};
using FilterBesitz = std::unique_ptr<FilterListe, FilterFreigabe>;

inline constexpr int kFilterTypen = 8;
inline constexpr std::size_t kFilterTextMax = 128;
// "Bildformate", "Extras", "Dvd-Formate", "Film-Funktionen", "Genre", "Sprachen",
// "Tonformate", "Verpackungsarten"; "" outside 1..8.
const char* filterTypLabel(int typ);

// The external text of an entry: the first object with that lIntern in the type
// node of that number. False (text untouched) when there is none or no filter.
bool uebersetze(const FilterListe* filter, int typ, long intern, std::string& text);

// A loaded filter as the translator of an export.
class FilterUebersetzer final : public NamensUebersetzer {
  public:
    explicit FilterUebersetzer(const FilterListe* f) : filter_(f) {}
    bool uebersetze(int filterTyp, long intern, std::string& extern_) const override {
        return dv::uebersetze(filter_, filterTyp, intern, extern_);
    }

  private:
    const FilterListe* filter_;
};

class FilterVerwaltung {
  public:
    // db and einstellungen must outlive the object.
    FilterVerwaltung(Datenbank& db, Einstellungen& einstellungen);
    FilterVerwaltung(const FilterVerwaltung&) = delete;
    FilterVerwaltung& operator=(const FilterVerwaltung&) = delete;

    // One filter with its eight types; null when its name record is missing.
    FilterBesitz lade(long filterId);
    // Every filter, in the order of the name records.
    FilterBesitz ladeAlle();

    // A new filter; its id, 0 on failure. Names are cut to 128 characters.
    long neu(const std::string& name = "<<<Neuer Filter>>>");
    // Renames the filter, or creates the name record when there is none; the
    // filter's id afterwards (a new one when created), 0 on failure.
    long umbenenne(long filterId, const std::string& name);
    // Deletes the name record and every entry. An active filter of that id stops
    // being active and its setting becomes -1 (no filter).
    bool loesche(long filterId);
    // Sets the external text of (filter, type, internal id): the old record, if
    // any, is replaced (written anew, then the old one removed). An empty text
    // removes the translation. False for an unknown filter or a type outside 1..8.
    bool setzeEintrag(long filterId, int typ, long intern, const std::string& extern_);
    bool loescheEintrag(long filterId, int typ, long intern);

    // Activates the filter of the kind's setting ("Filter" or "XMLFilter"): the
    // previous one is freed; an id of 0 or less means none; an id that no longer
    // loads is reset to 0 and saved.
    void aktiviere(ExportArt art);
    // Stores the id in the kind's setting and activates it. False when an id above
    // 0 names no filter (the setting is left as it was).
    bool setzeAktiv(ExportArt art, long filterId);
    // The active filter of the kind (activated on first ask), or null.
    const NamensUebersetzer* aktiv(ExportArt art);
    long aktiveId(ExportArt art);

  private:
    struct Aktiv {
        bool geprueft = false;
        FilterBesitz filter;
        std::unique_ptr<FilterUebersetzer> uebersetzer;
    };
    Aktiv& aktivVon(ExportArt art) { return art == ExportArt::Xml ? xml_ : box_; }
    bool leseEinstellung(ExportArt art, long& id);
    void schreibeEinstellung(ExportArt art, long id);
    std::vector<long> eintraege(long filterId, int typ, long intern);

    Datenbank& db_;
    Einstellungen& einstellungen_;
    Aktiv box_, xml_;
};

}  // namespace dv
