// Validation and the HTML overview on the generated collection of 20,000 boxes
// (25,000 DVDs, 50,000 films). Validation changes the tables, so every iteration
// works on a fresh copy of the data folder (copied outside the timing); the
// backup it makes first is part of the measured time.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include "base/Ordner.h"
#include "bench/generator/Messplatz.h"
#include "domain/Datenbank.h"
#include "domain/Validierung.h"
#include "output/Uebersicht.h"

namespace {

using namespace dv;
using generator::StillerBenutzer;
using Offen = generator::OffeneDatenbank;
using generator::generierteSammlung;
namespace fs = std::filesystem;

void BM_Validierung(benchmark::State& state) {
    const std::string quelle = generierteSammlung() + "Daten";
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
        if (!validiereDatenbank(*o.db, benutzer, o.ordner.meldungen, o.ordner.backups, &erg))
            std::abort();
    }
    fs::remove_all(basis);
    state.counters["Zeilen"] = static_cast<double>(erg.geaenderteZeilen);
}
BENCHMARK(BM_Validierung)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_UebersichtOhneCover(benchmark::State& state) {
    Offen o(generierteSammlung(), false);
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
