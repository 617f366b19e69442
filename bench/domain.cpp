// The catalogue domain on the generated collection of 20,000 boxes (25,000
// DVDs, 50,000 films): the box list of the tree's root, the whole collection
// with every list (once and twice the size, to show it grows linearly; built and
// released, and built alone), and the delete cascade of one film.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "base/Ordner.h"
#include "bench/generator/Messplatz.h"
#include "domain/Datenbank.h"

namespace {

using namespace dv;
using Offen = generator::OffeneDatenbank;
using generator::generierteSammlung;

void anzahlBoxen(Offen& o, long& boxen) {
    long dvds = 0, filme = 0;
    o.db->anzahl(boxen, dvds, filme);
}

void BM_BoxlisteDerWurzel(benchmark::State& state) {
    Offen o(generierteSammlung(1));
    long boxen = 0;
    anzahlBoxen(o, boxen);
    for (auto _ : state) {
        auto liste = o.db->getBoxListe();
        benchmark::DoNotOptimize(liste.get());
    }
    state.counters["Boxen"] = static_cast<double>(boxen);
}
BENCHMARK(BM_BoxlisteDerWurzel)->Unit(benchmark::kMillisecond);

void BM_GanzeSammlungMitAllenListen(benchmark::State& state) {
    Offen o(generierteSammlung(state.range(0)));
    long filme = 0;
    for (auto _ : state) {
        auto alles = o.db->ladeSammlung();
        benchmark::DoNotOptimize(alles.get());
    }
    long boxen = 0, dvds = 0;
    o.db->anzahl(boxen, dvds, filme);
    state.counters["Filme"] = static_cast<double>(filme);
}
// At least a second each, so the larger size's first touch of fresh memory does
// not count alone.
BENCHMARK(BM_GanzeSammlungMitAllenListen)
    ->Arg(1)
    ->Arg(2)
    ->MinTime(1.0)
    ->Unit(benchmark::kMillisecond);

// The same, timing only the building: the release of the lists runs untimed.
void BM_GanzeSammlungNurAufbau(benchmark::State& state) {
    Offen o(generierteSammlung(state.range(0)));
    for (auto _ : state) {
        auto alles = o.db->ladeSammlung();
        benchmark::DoNotOptimize(alles.get());
        state.PauseTiming();
        alles.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_GanzeSammlungNurAufbau)->Arg(1)->Arg(2)->MinTime(1.0)->Unit(benchmark::kMillisecond);

// Deletes one film after the other from a copy of the collection.
void BM_FilmLoeschenMitKaskade(benchmark::State& state) {
    const std::string kopie =
        "/tmp/dorvano-bench-loeschen-" + std::to_string(static_cast<long>(::getpid())) + "/";
    std::filesystem::remove_all(kopie);
    std::filesystem::copy(generierteSammlung(1), kopie, std::filesystem::copy_options::recursive);
    {
        Offen o(kopie);
        long film = 1;
        for (auto _ : state) {
            if (!o.db->loescheFilm(film++)) state.SkipWithError("Film nicht gelöscht");
        }
    }
    std::filesystem::remove_all(kopie);
}
BENCHMARK(BM_FilmLoeschenMitKaskade)->Unit(benchmark::kMillisecond)->Iterations(30);

}  // namespace
