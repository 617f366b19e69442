#pragma once
// All-or-nothing for every change of the catalogue that spans several records.
//
//   Schreibvorgang vorgang(umgebung);
//   if (!vorgang.offen()) return false;      // another program is writing
//   ... inserts, updates, removes, side files ...
//   return vorgang.abschliessen();           // durable, or nothing of it
//
// The outermost scope takes the writer right (Schreibrecht), puts back what a
// crashed writer left unfinished, and points the environment's file system at a
// Vorgang that holds every change back until the scope ends. Its end writes the
// undo journal, the files and removes the journal, each step durable; a scope
// that ends after verwerfen(), or whose writing fails, leaves the files exactly
// as they were. Scopes opened inside it join it: a service that calls several
// domain operations for one "OK" opens one around them, and they become one.
//
// Single-record writes outside any scope go straight to their file, as before.
// Scopes nest strictly (the inner one ends first); single-threaded.

#include <memory>
#include <optional>

#include "storage/Tabelle.h"

namespace dv {

// The writer lock of the environment for as long as the object lives (nothing
// happens where the environment has no lock). Nested rights in one process
// share the first one. On taking it, a process that finds that another one has
// written since marks its tables' free lists stale.
class Schreibrecht {
  public:
    explicit Schreibrecht(SpeicherUmgebung& u);
    ~Schreibrecht();
    Schreibrecht(const Schreibrecht&) = delete;
    Schreibrecht& operator=(const Schreibrecht&) = delete;

    bool erhalten() const { return stand_ == Sperrstand::Erhalten; }
    Sperrstand stand() const { return stand_; }

  private:
    SpeicherUmgebung& u_;
    Sperrstand stand_;
};

// Why a write operation may not change anything.
enum class Hindernis {
    Keins,
    AndererSchreiber,   // another program held the writer lock for the whole wait
    NichtBeschreibbar,  // the lock file cannot be made: read-only medium, no rights
    Journal,            // a crashed writer's journal could not be put back
};

class Schreibvorgang {
  public:
    explicit Schreibvorgang(SpeicherUmgebung& u);
    // An unfinished scope finishes as by abschliessen().
    ~Schreibvorgang();
    Schreibvorgang(const Schreibvorgang&) = delete;
    Schreibvorgang& operator=(const Schreibvorgang&) = delete;

    // False when the operation must not change anything (hindernis() says why;
    // the environment's beiHindernis has been told). Whatever is written then is
    // thrown away at the end.
    bool offen() const { return hindernis_ == Hindernis::Keins; }
    Hindernis hindernis() const { return hindernis_; }

    // Ends the scope. The outermost one makes the whole operation durable and
    // returns false when that failed (then nothing of it is in the files); an
    // inner one returns whether the operation can still succeed. A second call
    // returns the first result.
    bool abschliessen();
    // Nothing of the whole operation is to be kept (also from an inner scope).
    void verwerfen();

  private:
    SpeicherUmgebung& u_;
    bool aussen_ = false;
    bool fertig_ = false;
    bool ergebnis_ = false;
    Hindernis hindernis_ = Hindernis::Keins;
    std::optional<Schreibrecht> recht_;
    std::unique_ptr<Vorgang> vorgang_;
    Dateisystem* vorher_ = nullptr;
};

enum class Wiederherstellung {
    Nichts,           // no journal
    Zurueckgenommen,  // an operation that died midway was rolled back
    Verworfen,        // a journal that was never finished was dropped (no file had changed)
    Belegt,           // a live writer holds the lock: its journal is left alone
    Fehlgeschlagen,   // the files could not be put back; the journal stays
};

// Looks for the journal of a writer that died and puts the files back. Takes the
// writer right first (waiting as a writer does), so that the journal of a writer
// that is still at work is never touched. Called at the start of either program
// and by every outermost Schreibvorgang; the environment's beiWiederherstellung
// hears of every outcome but Nichts and Belegt.
Wiederherstellung stelleWiederHer(SpeicherUmgebung& u);

}  // namespace dv
