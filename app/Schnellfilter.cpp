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

std::vector<long> findeBoxen(const std::vector<BoxZeile>& boxen, const std::string& muster,
                             bool nachEan, bool grossKlein) {
    std::vector<long> ids;
    const Suchmuster m(ohneRandLeer(muster), grossKlein);
    for (const BoxZeile& b : boxen)
        if (m.passt(nachEan ? b.ean : b.titel)) ids.push_back(b.id);
    return ids;
}

}  // namespace dv
