#pragma once
// Filters: named translation tables from the catalogue's own lookup entries to
// external names, used by the box-file and the XML export (see Benannte for the
// list, creating, renaming and deleting).

#include <string>
#include <vector>

#include "app/Benannte.h"

namespace dv {

// An entry of a lookup catalogue as a filter shows it: its own name and the
// external text the filter gives it ("" and false when it has none).
struct FilterEintrag {
    long id = 0;
    std::string intern;
    std::string extern_;
    bool uebersetzt = false;
    bool operator==(const FilterEintrag&) const = default;
};

class FilterDienst final : public Benannte {
  public:
    explicit FilterDienst(CApplikation& app);

    static constexpr int kTypen = 8;
    // "Bildformate", "Extras", "Dvd-Formate", "Film-Funktionen", "Genre",
    // "Sprachen", "Tonformate", "Verpackungsarten" for 1 to 8; "" otherwise.
    static const char* typText(int typ);

    // Asks "Filter \"%s\" wirklich löschen?" first; No gives Ergebnis::abgelehnt().
    Ergebnis loescheMitFrage(long id);
    // The external name of the entry named intern (its own name, ASCII letter
    // case ignored) of the filter type typ; an empty text removes the translation.
    Ergebnis setze(long id, int typ, const std::string& intern, const std::string& extern_);
    // Every entry of the catalogue of the filter type, in table order, with the
    // filter's translation.
    ErgebnisMit<std::vector<FilterEintrag>> eintraege(long id, int typ);
    // The filter that box files (xml false) or XML documents use; 0 for none.
    Ergebnis setzeAktiv(bool xml, long id);
    long aktiv(bool xml);

  private:
    std::vector<Benannt> lies() override;
    long lege(const std::string& name) override;
    bool benenne(long id, const std::string& name) override;
    bool tilge(long id) override;
};

}  // namespace dv
