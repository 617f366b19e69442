#include "interchange/Uebersetzer.h"

#include "domain/Objekte.h"

namespace dv {

int lookupTypVonFilterTyp(int filterTyp) {
    switch (filterTyp) {
        case kFilterBildformate:
            return kTypBildformat;
        case kFilterExtras:
            return kTypExtras;
        case kFilterDvdFormate:
            return kTypFormat;
        case kFilterFunktionen:
            return kTypFunktion;
        case kFilterGenre:
            return kTypGenre;
        case kFilterSprachen:
            return kTypSprache;
        case kFilterTonformate:
            return kTypTonformat;
        case kFilterVerpackung:
            return kTypVerpackung;
        default:
            return 0;
    }
}

std::string uebersetzterName(const NamensUebersetzer* u, int filterTyp, long intern,
                             const std::string& eigenerName) {
    std::string name;
    if (u && intern > 0 && u->uebersetze(filterTyp, intern, name)) return name;
    return eigenerName;
}

}  // namespace dv
