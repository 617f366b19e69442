#pragma once
// The one place every service write passes through. It refuses a write that
// cannot succeed before anything is touched, runs the write as one operation and
// announces its change notices only when it succeeded.
//
// One operation: the write holds the writer lock of the program folder and runs
// inside one Schreibvorgang, so everything it changes (tables, covers, texts,
// tags) is kept whole or not at all, also across a crash. A write that reports a
// refusal keeps nothing of what it changed before; a second program that holds
// the lock for longer than the wait gets a German reason, nothing changed.

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/Aenderungen.h"
#include "app/Ergebnis.h"
#include "storage/Schreibvorgang.h"

namespace dv {

// The German reason for a write that may not start.
std::string hindernisGrund(Hindernis h);

class Schreibstelle {
  public:
    // Both must outlive the object.
    Schreibstelle(Aenderungen& aenderungen, SpeicherUmgebung& umgebung)
        : aenderungen_(aenderungen), umgebung_(umgebung) {}

    // tu(std::vector<Aenderung>& meldungen) does the writing and returns an
    // Ergebnis or ErgebnisMit<T>; what it adds to meldungen is announced, in
    // order, after it returned success and its changes are durable. Not
    // reentrant: a write does not start another one.
    template <class F>
    auto schreibe(F&& tu) {
        std::vector<Aenderung> meldungen;
        using R = decltype(tu(meldungen));
        if (Ergebnis nein = vorher(); !nein.ok()) return R(std::move(nein));
        // The refusal travels in the result here, not as a second message.
        auto melder = std::exchange(umgebung_.beiHindernis, nullptr);
        Schreibvorgang vorgang(umgebung_);
        umgebung_.beiHindernis = std::move(melder);
        if (!vorgang.offen()) return R(Ergebnis::fehlschlag(hindernisGrund(vorgang.hindernis())));
        R e = tu(meldungen);
        if (!e.ok()) vorgang.verwerfen();
        if (!vorgang.abschliessen() && e.ok()) return R(nichtGespeichert());
        if (e.ok())
            for (const Aenderung& a : meldungen) aenderungen_.verkuende(a);
        return e;
    }

  private:
    // What must hold before a write starts.
    Ergebnis vorher() { return Ergebnis::gut(); }
    static Ergebnis nichtGespeichert();

    Aenderungen& aenderungen_;
    SpeicherUmgebung& umgebung_;
};

}  // namespace dv
