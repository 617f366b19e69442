#pragma once
// The translation of lookup names on their way out of the catalogue: the box file
// writer and the XML export hand every lookup entry they write (its filter type
// and record id) to a translator, which may give an external text in place of the
// entry's own name. The filters of the retrieval layer implement it; this layer
// only knows the interface.

#include <string>

namespace dv {

// Filter types: the kinds of lookup entry that a filter translates.
inline constexpr int kFilterBildformate = 1;
inline constexpr int kFilterExtras = 2;
inline constexpr int kFilterDvdFormate = 3;
inline constexpr int kFilterFunktionen = 4;
inline constexpr int kFilterGenre = 5;
inline constexpr int kFilterSprachen = 6;
inline constexpr int kFilterTonformate = 7;
inline constexpr int kFilterVerpackung = 8;

// The lookup type (domain/Objekte.h) whose table a filter type translates; 0 for
// a number outside 1..8.
int lookupTypVonFilterTyp(int filterTyp);

class NamensUebersetzer {
  public:
    virtual ~NamensUebersetzer() = default;
    // True, with extern_ set, when the entry has a translation; otherwise false
    // and extern_ untouched.
    virtual bool uebersetze(int filterTyp, long intern, std::string& extern_) const = 0;
};

// The name to write: the translation when there is one, else the entry's own name.
std::string uebersetzterName(const NamensUebersetzer* u, int filterTyp, long intern,
                             const std::string& eigenerName);

}  // namespace dv
