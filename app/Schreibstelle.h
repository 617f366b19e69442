#pragma once
// The one place every service write passes through. It refuses a write that
// cannot succeed before anything is touched, runs the write as one operation and
// announces its change notices only when it succeeded. This is where the writer
// lock and the all-or-nothing journal wrap every multi-record change.

#include <utility>
#include <vector>

#include "app/Aenderungen.h"
#include "app/Ergebnis.h"

namespace dv {

class Schreibstelle {
  public:
    explicit Schreibstelle(Aenderungen& aenderungen) : aenderungen_(aenderungen) {}

    // tu(std::vector<Aenderung>& meldungen) does the writing and returns an
    // Ergebnis or ErgebnisMit<T>; what it adds to meldungen is announced, in
    // order, after it returned success. Not reentrant: a write does not start
    // another one.
    template <class F>
    auto schreibe(F&& tu) {
        std::vector<Aenderung> meldungen;
        using R = decltype(tu(meldungen));
        if (Ergebnis nein = vorher(); !nein.ok()) return R(std::move(nein));
        R e = tu(meldungen);
        if (e.ok())
            for (const Aenderung& a : meldungen) aenderungen_.verkuende(a);
        return e;
    }

  private:
    // What must hold before a write starts.
    Ergebnis vorher() { return Ergebnis::gut(); }

    Aenderungen& aenderungen_;
};

}  // namespace dv
