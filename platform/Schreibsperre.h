#pragma once
// The writer lock of a program folder: one process at a time changes the catalogue.
//
// The lock is a file in the program folder held with flock(), so the system
// releases it when its holder ends, also on a crash. Readers never take it. The
// file's first eight bytes count the write operations that have ended under the
// lock: a process that finds the number changed since it last held the lock
// knows that another one has written the tables meanwhile.

#include <cstdint>
#include <memory>
#include <string>

namespace dv {

inline constexpr const char* kSchreibsperreDatei = "Schreibsperre.lock";

enum class Sperrstand {
    Erhalten,    // held by this object now
    Belegt,      // another process held it for the whole wait
    Unmoeglich,  // the lock file cannot be opened or locked (read-only medium, no rights)
};

class Schreibsperre {
  public:
    virtual ~Schreibsperre() = default;
    // Takes the lock, waiting up to wartenMs milliseconds while another process
    // holds it. Nested calls on the same object count: each Erhalten needs its
    // own gibFrei(), the last one lets go.
    virtual Sperrstand nimm(int wartenMs) = 0;
    virtual void gibFrei() = 0;
    // The counter kept in the lock file; only meaningful while the lock is held.
    virtual std::uint64_t zaehler() = 0;
    virtual void setzeZaehler(std::uint64_t wert) = 0;
};

// The flock()-based lock on the file at pfad (created when missing).
std::unique_ptr<Schreibsperre> dateiSperre(const std::string& pfad);

}  // namespace dv
