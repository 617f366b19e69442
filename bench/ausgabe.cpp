// Validation and the HTML overview on the generated collection of 20,000 boxes
// (25,000 DVDs, 50,000 films). Validation changes the tables, so every iteration
// works on a fresh copy of the data folder (copied outside the timing); the
// backup it makes first is part of the measured time.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include "app/base/Ordner.h"
#include "bench/generator/Generator.h"
#include "domain/Datenbank.h"
#include "domain/Validierung.h"
#include "output/Uebersicht.h"

namespace {

using namespace dv;
namespace fs = std::filesystem;

// Says Yes and shows nothing.
class StillerBenutzer final : public Benutzer {
public:
    bool frage(const std::string&, const std::string&) override { return true; }
    void meldung(const std::string&, const std::string&, Symbol) override {}
    ObjektAntwort objektBestaetigen(const ObjektDialog&) override { return {}; }
    std::vector<int> waehle(const std::string&, const std::string&, const std::vector<std::string>&, bool,
                            int) override {
        return {};
    }
    bool info(const std::string&, const std::vector<std::pair<std::string, std::string>>&) override {
        return true;
    }
    void zeigeText(const std::string&, const std::string&) override {}
    void fortschritt(const std::string&, int, int) override {}
    bool zwischenablage(const std::string&) override { return true; }
};

struct Offen {
    // anlegen: create the working folders (never in the shared cached collection).
    Offen(const std::string& basis, bool anlegen) {
        ordner.setzeBasis(basis);
        if (anlegen) ordner.legeAn(echtesDateisystem());
        su.trace = &still;
        su.datenOrdner = ordner.daten;
        db = std::make_unique<Datenbank>(su, ordner);
    }
    KeinTrace still;
    Ordner ordner;
    SpeicherUmgebung su;
    std::unique_ptr<Datenbank> db;
};

std::string sammlung() {
    const std::string basis = generator::gecachteSammlung(generator::Groessen());
    if (basis.empty()) std::abort();
    return basis;
}

void BM_Validierung(benchmark::State& state) {
    const std::string quelle = sammlung() + "Daten";
    const std::string basis = fs::temp_directory_path().string() + "/dorvano-bench-validierung/";
    StillerBenutzer benutzer;
    ValidierungsErgebnis erg;
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove_all(basis);
        fs::create_directories(basis);
        fs::copy(quelle, basis + "Daten");
        Offen o(basis, true);
        state.ResumeTiming();
        if (!validiereDatenbank(*o.db, benutzer, o.ordner.meldungen, o.ordner.backups, &erg)) std::abort();
    }
    fs::remove_all(basis);
    state.counters["Zeilen"] = static_cast<double>(erg.geaenderteZeilen);
}
BENCHMARK(BM_Validierung)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_UebersichtOhneCover(benchmark::State& state) {
    Offen o(sammlung(), false);
    const std::string aus = fs::temp_directory_path().string() + "/dorvano-bench-uebersicht/";
    fs::create_directories(aus);
    installiereStandardVorlagen(echtesDateisystem(), aus + "Vorlagen/");
    StillerBenutzer benutzer;
    FarbZaehler farben;
    UebersichtUmgebung u{echtesDateisystem(), benutzer, farben, aus + "Vorlagen/", nullptr};
    UebersichtEinstellungen e;
    e.vorlage = aus + "Vorlagen/Uebersicht.html";
    e.ziel = aus + "Uebersicht.html";
    long boxen = 0;
    for (auto _ : state) {
        const UebersichtDaten d = sammleUebersichtDaten(*o.db);
        if (!erzeugeUebersicht(u, e, d)) std::abort();
        boxen = d.anzahlBoxen;
    }
    fs::remove_all(aus);
    state.counters["Boxen"] = static_cast<double>(boxen);
}
BENCHMARK(BM_UebersichtOhneCover)->Unit(benchmark::kMillisecond);

}  // namespace
