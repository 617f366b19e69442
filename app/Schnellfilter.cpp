#include "app/Schnellfilter.h"

namespace dv {

Schnellfilter::Schnellfilter(const std::string& eingabe, bool grossKlein) {
    const std::string text(ohneRandLeer(eingabe));
    leer_ = text.empty();
    if (leer_) return;
    const bool platzhalter = text.find_first_of("*?") != std::string::npos;
    muster_ = Suchmuster(platzhalter ? text : "*" + text + "*", grossKlein);
}

bool Schnellfilter::passt(const std::string& titel, const std::string& ean) const {
    return leer_ || muster_.passt(titel) || muster_.passt(ean);
}

}  // namespace dv
