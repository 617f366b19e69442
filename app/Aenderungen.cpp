#include "app/Aenderungen.h"

#include <algorithm>

namespace dv {

void Aenderungen::abmelden(AenderungsBeobachter& b) {
    beobachter_.erase(std::remove(beobachter_.begin(), beobachter_.end(), &b), beobachter_.end());
}

void Aenderungen::verkuende(const Aenderung& a) const {
    // Over a copy, asking before each call: an observer may register or leave
    // (and be gone) while another one is told.
    const std::vector<AenderungsBeobachter*> alle = beobachter_;
    for (AenderungsBeobachter* b : alle)
        if (std::find(beobachter_.begin(), beobachter_.end(), b) != beobachter_.end())
            b->geaendert(a);
}

}  // namespace dv
