#pragma once
// The quick filter above the desktop tree: which boxes a typed text leaves in
// view. A text without wildcards is looked for anywhere in the title or the EAN
// ("matrix" finds "The Matrix"); a text with "*" or "?" must match the whole title
// or EAN, as in the search. Letter case as the search's option says.

#include <string>
#include <vector>

#include "app/Werte.h"
#include "storage/Muster.h"

namespace dv {

class Schnellfilter {
  public:
    Schnellfilter() = default;  // lets every box pass
    // eingabe in the catalogue code page; blanks at its ends are ignored.
    Schnellfilter(const std::string& eingabe, bool grossKlein);

    bool leer() const { return leer_; }
    bool passt(const std::string& titel, const std::string& ean) const;

  private:
    Suchmuster muster_;
    bool leer_ = true;
};

// "Box-Titel finden" / "EAN finden": the ids of the boxes, in the order given
// (the tree's), whose title or EAN matches the pattern as the search matches
// ("*" and "?", the whole value, blanks at the pattern's ends ignored).
std::vector<long> findeBoxen(const std::vector<BoxZeile>& boxen, const std::string& muster,
                             bool nachEan, bool grossKlein);

}  // namespace dv
