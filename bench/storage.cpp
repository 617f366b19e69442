// The table engine on a lookup table of 100,000 records (13 MB, in the page
// cache): select by example, selectAll, select by id and 100,000 inserts, each
// with the open and close that every operation does, also all in one write
// operation.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <random>
#include <string>

#include "base/Protokoll.h"
#include "storage/Satzarten.h"
#include "storage/Schreibvorgang.h"

namespace {

constexpr long kSaetze = 100000;

// A folder below /tmp with Genre.dat of kSaetze live records, written in one go.
struct Sammlung {
    std::string ordner;
    dv::Protokoll protokoll;  // mask 0: every trace costs one compare
    dv::SpeicherUmgebung u;

    Sammlung() {
        char muster[] = "/tmp/dorvano-bench-XXXXXX";
        if (!::mkdtemp(muster)) std::abort();
        ordner = std::string(muster) + "/";
        protokoll.setzeLogPfad(ordner + "trace.log");
        u.trace = &protokoll;
        u.datenOrdner = ordner;
        std::string bytes(static_cast<std::size_t>(kSaetze) * dv::Tabelle1::kGroesse, '\0');
        for (long id = 1; id <= kSaetze; ++id) {
            unsigned char* satz =
                reinterpret_cast<unsigned char*>(bytes.data()) + (id - 1) * dv::Tabelle1::kGroesse;
            const std::uint32_t wort = static_cast<std::uint32_t>(id) | dv::kLebendBit;
            std::memcpy(satz, &wort, 4);
            std::snprintf(reinterpret_cast<char*>(satz + 4), 128, "Film %06ld - Teil %ld", id,
                          id % 7);
        }
        if (!dv::schreibeAlles(dv::echtesDateisystem(), ordner + "Genre.dat", bytes)) std::abort();
    }
    ~Sammlung() {
        std::error_code ec;
        std::filesystem::remove_all(ordner, ec);
    }
};

Sammlung& sammlung() {
    static Sammlung s;
    return s;
}

void selectBeispiel(benchmark::State& state, const char* muster, std::size_t erwartet) {
    dv::Tabelle1 t(sammlung().u, "Genre");
    dv::Tabelle1::Zeile b{};
    std::strcpy(b.cpText, muster);
    if (dv::listenLaenge(t.liste(b).get()) != erwartet) state.SkipWithError("wrong hit count");
    for (auto _ : state) {
        auto l = t.liste(b);
        benchmark::DoNotOptimize(l.get());
    }
    state.SetBytesProcessed(state.iterations() * kSaetze * dv::Tabelle1::kGroesse);
}

void BM_SelectGleich(benchmark::State& state) {
    selectBeispiel(state, "Film 054321 - Teil 1", 1);
}
BENCHMARK(BM_SelectGleich)->Unit(benchmark::kMillisecond);

void BM_SelectMuster(benchmark::State& state) {
    selectBeispiel(state, "*5432? - teil 6", 0);
}
BENCHMARK(BM_SelectMuster)->Unit(benchmark::kMillisecond);

void BM_SelectMusterTreffer(benchmark::State& state) {
    selectBeispiel(state, "Film 0?0?0? - *", 999);
}
BENCHMARK(BM_SelectMusterTreffer)->Unit(benchmark::kMillisecond);

// Every record becomes a row and a node, and the whole list is released again.
void BM_SelectAll(benchmark::State& state) {
    dv::Tabelle1 t(sammlung().u, "Genre");
    if (dv::listenLaenge(t.alle().get()) != kSaetze) state.SkipWithError("wrong count");
    for (auto _ : state) {
        auto l = t.alle();
        benchmark::DoNotOptimize(l.get());
    }
    state.SetBytesProcessed(state.iterations() * kSaetze * dv::Tabelle1::kGroesse);
}
BENCHMARK(BM_SelectAll)->Unit(benchmark::kMillisecond);

// The allocation-free pass for whole-collection work, for comparison.
void BM_Scanne(benchmark::State& state) {
    dv::Tabelle1 t(sammlung().u, "Genre");
    for (auto _ : state) {
        long n = 0;
        t.scanne([&](const dv::Tabelle1::Zeile& z) { n += z.cpText[0] == 'F'; });
        if (n != kSaetze) state.SkipWithError("wrong count");
    }
}
BENCHMARK(BM_Scanne)->Unit(benchmark::kMillisecond);

void BM_SelectId(benchmark::State& state) {
    dv::Tabelle1 t(sammlung().u, "Genre");
    std::mt19937 zufall(1);
    for (auto _ : state) {
        const long id = static_cast<long>(zufall() % kSaetze) + 1;
        auto l = t.eine(id);
        if (!l) state.SkipWithError("missing record");
        benchmark::DoNotOptimize(l.get());
    }
}
BENCHMARK(BM_SelectId)->Unit(benchmark::kMicrosecond);

// 100,000 inserts into a new table; each opens and closes the file. Arg 1: all
// of them one write operation, made durable once at its end.
void BM_Insert100000(benchmark::State& state) {
    Sammlung& s = sammlung();
    char text[64];
    for (auto _ : state) {
        state.PauseTiming();
        std::filesystem::remove(s.ordner + "Neu.dat");
        dv::Tabelle1 t(s.u, "Neu");
        t.create();
        state.ResumeTiming();
        std::optional<dv::Schreibvorgang> vorgang;
        if (state.range(0)) vorgang.emplace(s.u);
        for (long i = 1; i <= kSaetze; ++i) {
            std::snprintf(text, sizeof text, "Film %06ld", i);
            if (t.insert(text) != i) {
                state.SkipWithError("insert failed");
                break;
            }
        }
        if (vorgang && !vorgang->abschliessen()) state.SkipWithError("not durable");
    }
    state.SetItemsProcessed(state.iterations() * kSaetze);
}
BENCHMARK(BM_Insert100000)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
