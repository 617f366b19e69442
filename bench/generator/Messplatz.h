#pragma once
// What every benchmark needs around a generated collection: a user who answers
// without being asked, a Datenbank on a program folder without trace output, and
// the cached collection of a given size.

#include <memory>
#include <string>

#include "base/Benutzer.h"
#include "base/Ordner.h"
#include "domain/Datenbank.h"

namespace dv::generator {

// Answers every question with `antwort`, confirms every unknown object with OK,
// shows nothing.
class StillerBenutzer final : public Benutzer {
  public:
    explicit StillerBenutzer(bool antwort = true) : antwort_(antwort) {}
    bool frage(const std::string&, const std::string&) override { return antwort_; }
    void meldung(const std::string&, const std::string&, Symbol) override {}
    ObjektAntwort objektBestaetigen(const ObjektDialog&) override {
        return {ObjektTaste::OK, {}, -1};
    }
    std::vector<int> waehle(const std::string&, const std::string&, const std::vector<std::string>&,
                            bool, int) override {
        return {};
    }
    bool info(const std::string&,
              const std::vector<std::pair<std::string, std::string>>&) override {
        return antwort_;
    }
    void zeigeText(const std::string&, const std::string&) override {}
    void fortschritt(const std::string&, int, int) override {}
    bool zwischenablage(const std::string&) override { return antwort_; }

  private:
    bool antwort_;
};

// A Datenbank on the program folder basis, tracing nothing. anlegen: create the
// working folders first (never in the shared cached collection).
struct OffeneDatenbank {
    explicit OffeneDatenbank(const std::string& basis, bool anlegen = false);
    KeinTrace still;
    Ordner ordner;
    SpeicherUmgebung su;
    std::unique_ptr<Datenbank> db;
};

// The cached generated collection, every size times faktor; aborts the benchmark
// program when it cannot be written.
std::string generierteSammlung(long faktor = 1);

}  // namespace dv::generator
