// The retrieval layer on the generated collection of 20,000 boxes (25,000 DVDs,
// 50,000 films): the film search of the speed target, a box search by title, a
// film search over every list, the tag search over 50,000 tag files, and the
// union of two watch lists of 10,000 entries each.
//
// The generated collection is copied once into a folder of its own, where the
// tag files and the two watch lists are added and an SQL script of the same
// films, titles, genres and boxes is written; bench/retrieval.sh times the
// command-line program on that folder and the same questions to SQLite.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <tuple>

#include "base/Ordner.h"
#include "base/Zeichensatz.h"
#include "bench/generator/Generator.h"
#include "bench/generator/Messplatz.h"
#include "domain/Datenbank.h"
#include "domain/Tags.h"
#include "retrieval/Suche.h"
#include "retrieval/Tagverwaltung.h"
#include "retrieval/Vormerklisten.h"

namespace {

using namespace dv;
using Offen = generator::OffeneDatenbank;

constexpr const char* kOrdner = "/tmp/dorvano-retrieval-v2/";
constexpr long kListenGroesse = 10000;

std::string sqlText(const char* cp1252) {
    std::string s = "'";
    for (char c : cp1252NachUtf8(cp1252)) s += c == '\'' ? std::string("''") : std::string(1, c);
    return s + "'";
}

// The films with their titles and genres, and the boxes, as an SQL script with
// the indexes a database would keep for these questions.
void schreibeSql(Katalog& k, const std::string& pfad) {
    std::FILE* f = std::fopen(pfad.c_str(), "w");
    if (!f) std::abort();
    std::fputs(
        "PRAGMA journal_mode=OFF;\nBEGIN;\n"
        "CREATE TABLE film(id INTEGER PRIMARY KEY, fsk INT, laenge INT, jahr INT);\n"
        "CREATE TABLE titel(id INTEGER PRIMARY KEY, film_id INT, typ INT, titel TEXT, pos INT);\n"
        "CREATE TABLE genre(id INTEGER PRIMARY KEY, name TEXT);\n"
        "CREATE TABLE film_genre(film_id INT, genre_id INT, pos INT);\n"
        "CREATE TABLE box(id INTEGER PRIMARY KEY, ean TEXT, titel TEXT);\n",
        f);
    k.Film.scanne([&](const Zeile5& z) {
        std::fprintf(f, "INSERT INTO film VALUES(%d,%d,%d,%d);\n", z.Id, z.FSK, z.Laenge, z.Jahr);
    });
    k.Titel.scanne([&](const Zeile4& z) {
        std::fprintf(f, "INSERT INTO titel VALUES(%d,%d,%d,%s,%d);\n", z.Id, z.Fremd_Id, z.Typ,
                     sqlText(z.cpTitel).c_str(), z.Pos);
    });
    k.Genre.scanne([&](const Zeile1& z) {
        std::fprintf(f, "INSERT INTO genre VALUES(%d,%s);\n", z.Id, sqlText(z.cpText).c_str());
    });
    k.Film_Genre.scanne([&](const Zeile2& z) {
        std::fprintf(f, "INSERT INTO film_genre VALUES(%d,%d,%d);\n", z.DVD_Id, z.Objekt1_Id,
                     z.Pos);
    });
    k.Box.scanne([&](const Zeile12& z) {
        std::fprintf(f, "INSERT INTO box VALUES(%d,%s,%s);\n", z.Id, sqlText(z.cpEAN).c_str(),
                     sqlText(z.cpText).c_str());
    });
    std::fputs(
        "CREATE INDEX film_jahr ON film(jahr);\n"
        "CREATE INDEX titel_film ON titel(film_id, typ);\n"
        "CREATE INDEX titel_text ON titel(titel);\n"
        "CREATE INDEX film_genre_film ON film_genre(film_id);\n"
        "CREATE INDEX film_genre_genre ON film_genre(genre_id);\n"
        "CREATE INDEX genre_name ON genre(name);\n"
        "CREATE INDEX box_titel ON box(titel);\n"
        "COMMIT;\nANALYZE;\n",
        f);
    std::fclose(f);
}

// Tag files for the first 50,000 films, every tenth "verliehen an Klaus", and
// the watch lists "Liste A" (films 1..10,000) and "Liste B" (5,001..15,000).
void ergaenze(const std::string& basis) {
    Offen o(basis);
    for (long id = 1; id <= 50000; ++id) {
        const std::string tag = id % 10 == 0 ? "verliehen an Klaus" : "Tag " + std::to_string(id);
        if (!schreibeTags(o.db->fs(), o.ordner.tags, kObjektFilm, id, {tag})) std::abort();
    }
    Vormerklisten v(*o.db);
    const long a = v.neu("Liste A");
    const long b = v.neu("Liste B");
    for (long i = 0; i < kListenGroesse; ++i) {
        v.fuegeHinzuAn(a, kObjektFilm, i + 1, static_cast<std::uint16_t>(i + 1));
        v.fuegeHinzuAn(b, kObjektFilm, i + 5001, static_cast<std::uint16_t>(i + 1));
    }
    schreibeSql(o.db->katalog(), basis + "sammlung.sql");
}

// The size factor of the prepared collection: DORVANO_MASS=2 doubles every size
// (40,000 boxes), for the scaling runs of bench/retrieval.sh; default 1.
long massstab() {
    const char* m = std::getenv("DORVANO_MASS");
    const long f = m ? std::atol(m) : 1;
    return f >= 1 && f <= 20 ? f : 1;
}

// The prepared folder, made on first use (in a folder of its own, renamed when
// complete); of a larger factor f, "/tmp/dorvano-retrieval-v2-x<f>/".
const std::string& vorbereitet() {
    static const std::string basis = [] {
        namespace fs = std::filesystem;
        const long f = massstab();
        std::string ordner = kOrdner;
        if (f > 1) ordner = ordner.substr(0, ordner.size() - 1) + "-x" + std::to_string(f) + "/";
        if (fs::exists(ordner + "fertig")) return ordner;
        const std::string quelle = generator::gecachteSammlung(generator::Groessen().mal(f));
        if (quelle.empty()) std::abort();
        const std::string ohne = ordner.substr(0, ordner.size() - 1);
        const std::string neu =
            ohne + ".neu-" + std::to_string(static_cast<long>(::getpid())) + "/";
        fs::copy(quelle, neu, fs::copy_options::recursive);
        ergaenze(neu);
        schreibeAlles(echtesDateisystem(), neu + "fertig", "ok");
        fs::rename(neu.substr(0, neu.size() - 1), ohne);
        return ordner;
    }();
    return basis;
}

KriterienListe zeilen(std::vector<std::tuple<int, int, int, int, const char*>> z) {
    KriterienListe l;
    for (auto [typ, krit, op, comb, daten] : z) l.haengeAn(typ, krit, op, comb, daten);
    normalisiere(l);
    return l;
}

void suche(benchmark::State& state, const KriterienListe& l) {
    Offen o(vorbereitet());
    std::size_t treffer = 0;
    for (auto _ : state) {
        Suchergebnis e = dv::suche(*o.db, l, {});
        loeseAuf(e);
        treffer = e.anzahl();
        benchmark::DoNotOptimize(e.kopf());
    }
    state.counters["Treffer"] = static_cast<double>(treffer);
}

// Film Titel = "*ab*" UND Genre = "Drama*" UND Jahr >= 2000.
void BM_Filmsuche(benchmark::State& state) {
    suche(state, zeilen({{3, 1, 1, 2, "*ab*"}, {3, 6, 1, 2, "Drama*"}, {3, 4, 4, 2, "2000"}}));
}
BENCHMARK(BM_Filmsuche)->Unit(benchmark::kMillisecond);

// The builder's share of the film search: the collection with the films'
// genres, built and released.
void BM_SammlungDerFilmsuche(benchmark::State& state) {
    Offen o(vorbereitet());
    for (auto _ : state) {
        BoxListe l = o.db->ladeSammlung(kUmfangGenres);
        benchmark::DoNotOptimize(l.get());
    }
}
BENCHMARK(BM_SammlungDerFilmsuche)->Unit(benchmark::kMillisecond);

// Box Bezeichnung = "*ab*".
void BM_BoxsucheNachTitel(benchmark::State& state) {
    suche(state, zeilen({{1, 1, 1, 2, "*ab*"}}));
}
BENCHMARK(BM_BoxsucheNachTitel)->Unit(benchmark::kMillisecond);

// Every film list is read: persons, languages with their sound format, subtitles.
void BM_FilmsucheUeberAlleListen(benchmark::State& state) {
    suche(state, zeilen({{3, 10, 1, 2, "*mann*"},
                         {3, 7, 1, 2, "Deutsch"},
                         {3, 8, 1, 1, "DTS*"},
                         {3, 9, 1, 3, "Franz*"},
                         {3, 5, 2, 2, "4:3"}}));
}
BENCHMARK(BM_FilmsucheUeberAlleListen)->Unit(benchmark::kMillisecond);

void BM_Tagsuche(benchmark::State& state) {
    Offen o(vorbereitet());
    generator::StillerBenutzer benutzer(false);  // the tag search puts no question
    Tagverwaltung tags(*o.db, benutzer);
    std::size_t treffer = 0;
    for (auto _ : state) {
        auto t = tags.suche("VERLIEHEN", 0);
        treffer = t.size();
        benchmark::DoNotOptimize(t.data());
    }
    state.counters["Treffer"] = static_cast<double>(treffer);
}
BENCHMARK(BM_Tagsuche)->Unit(benchmark::kMillisecond);

// Reading both lists with their titles and forming the union.
void BM_VereinigungZweierVormerklisten(benchmark::State& state) {
    Offen o(vorbereitet());
    Vormerklisten v(*o.db);
    std::size_t n = 0;
    for (auto _ : state) {
        auto u = vereinigung(v.inhalt({1, 2}));
        n = u.size();
        benchmark::DoNotOptimize(u.data());
    }
    state.counters["Elemente"] = static_cast<double>(n);
}
BENCHMARK(BM_VereinigungZweierVormerklisten)->Unit(benchmark::kMillisecond);

// The set operations alone, on lists already read.
void BM_MengenoperationenImSpeicher(benchmark::State& state) {
    Offen o(vorbereitet());
    Vormerklisten v(*o.db);
    const auto listen = v.eintraege({1, 2}, false);
    std::vector<VormerkElement> beide = listen[0];
    beide.insert(beide.end(), listen[1].begin(), listen[1].end());
    for (auto _ : state) {
        benchmark::DoNotOptimize(vereinigung(beide).size());
        benchmark::DoNotOptimize(schnitt(listen).size());
        benchmark::DoNotOptimize(komplement(listen[0], listen[1]).size());
    }
}
BENCHMARK(BM_MengenoperationenImSpeicher)->Unit(benchmark::kMicrosecond);

}  // namespace
