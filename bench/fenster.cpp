// The main window on the generated collection of 20,000 boxes (25,000 DVDs,
// 50,000 films), offscreen: the window with the root and every box node, a box
// expanded, everything below a box of ten films, a box deleted with the tree
// following, and the tree read anew with expanded nodes kept. The collection is
// copied once into a folder of its own, since the window's start-up and the
// deletes write there.

#include <benchmark/benchmark.h>

#include <unistd.h>
#include <QApplication>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>

#include "app/CApplikation.h"
#include "bench/generator/Messplatz.h"
#include "ui/CDorvanoDlg.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/baum/KatalogModell.h"

namespace {

using namespace dv;
namespace fs = std::filesystem;

// Seconds since this process started (from /proc), for the first window.
double sekundenSeitStart() {
    std::ifstream stat("/proc/self/stat");
    std::string text((std::istreambuf_iterator<char>(stat)), std::istreambuf_iterator<char>());
    const auto klammer = text.rfind(')');
    std::istringstream rest(text.substr(klammer + 2));
    std::string feld;
    unsigned long long start = 0;
    for (int i = 3; i <= 22 && rest >> feld; ++i)
        if (i == 22) start = std::stoull(feld);
    std::ifstream uptime("/proc/uptime");
    double seit = 0;
    uptime >> seit;
    return seit - static_cast<double>(start) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

double sekundenSeit(std::chrono::steady_clock::time_point t) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t).count();
}

// Start-up as the program does it; the copy of the collection is left out of
// `anlauf` (the seconds from process start that the program itself would spend).
struct Umgebung {
    Umgebung() : basis(fs::temp_directory_path().string() + "/dorvano-bench-fenster/") {
        anlauf = sekundenSeitStart();
        const auto t = std::chrono::steady_clock::now();
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "bench_fenster";
        static char* argv[] = {name, nullptr};
        anwendung = std::make_unique<QApplication>(argc, argv);
        anlauf += sekundenSeit(t);
        fs::remove_all(basis);
        fs::create_directories(basis);
        fs::copy(generator::generierteSammlung() + "Daten", basis + "Daten");
        const auto s = std::chrono::steady_clock::now();
        einstellungen = std::make_unique<Einstellungen>(basis + "einstellungen.conf");
        app = std::make_unique<CApplikation>(benutzer, *einstellungen);
        if (!app->starte(basis) || !app->pruefeDatenversion()) std::abort();
        anlauf += sekundenSeit(s);
    }
    ~Umgebung() {
        app.reset();
        fs::remove_all(basis);
        // This runs among the exit handlers, after Qt's own statics are gone:
        // destroying the application object there would crash.
        (void)anwendung.release();
    }
    std::string basis;
    std::unique_ptr<QApplication> anwendung;
    generator::StillerBenutzer benutzer;
    std::unique_ptr<Einstellungen> einstellungen;
    std::unique_ptr<CApplikation> app;
    double anlauf = 0;
};

Umgebung& umgebung() {
    static Umgebung u;
    return u;
}

// A box with at least `filme` films, taken from the end of the tree's order.
long boxMitFilmen(CApplikation& app, int filme, std::size_t ab) {
    const auto boxen = app.dienste().katalog().boxen();
    for (std::size_t i = boxen.size() - 1 - ab; i > 0; --i) {
        int n = 0;
        for (const DvdZeile& d : app.dienste().katalog().dvds(boxen[i].id)) n += d.filme;
        if (n >= filme) return boxen[i].id;
    }
    std::abort();
}

void BM_FensterMitAllenBoxen(benchmark::State& state) {
    Umgebung& u = umgebung();
    const auto t = std::chrono::steady_clock::now();
    {
        ui::CDorvanoDlg f(*u.app);
        f.show();
        QApplication::processEvents();
    }
    const double ersteAnzeige = u.anlauf + sekundenSeit(t);
    int boxen = 0;
    for (auto _ : state) {
        ui::CDorvanoDlg f(*u.app);
        f.show();
        QApplication::processEvents();
        boxen = f.katalog().modell().boxAnzahl();
    }
    state.counters["Boxen"] = boxen;
    state.counters["ab_Prozessstart_s"] = ersteAnzeige;
}
BENCHMARK(BM_FensterMitAllenBoxen)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_BoxAufklappen(benchmark::State& state) {
    Umgebung& u = umgebung();
    ui::CDorvanoDlg f(*u.app);
    f.show();
    ui::KatalogModell& m = f.katalog().modell();
    QTreeView* baum = f.katalog().baum();
    auto* proxy = static_cast<QSortFilterProxyModel*>(baum->model());
    int zeile = 0;
    for (auto _ : state) {
        baum->expand(proxy->mapFromSource(m.index(zeile++, 0, m.wurzel())));
        QApplication::processEvents();
    }
}
BENCHMARK(BM_BoxAufklappen)->Unit(benchmark::kMillisecond)->Iterations(50);

void BM_AllesUnterBoxMitZehnFilmen(benchmark::State& state) {
    Umgebung& u = umgebung();
    ui::CDorvanoDlg f(*u.app);
    f.show();
    const long box = boxMitFilmen(*u.app, 10, 0);
    for (auto _ : state) {
        state.PauseTiming();
        f.katalog().ladeNeu();
        f.katalog().zeige(1, box);
        state.ResumeTiming();
        f.katalog().klappeAuf(1000);
        QApplication::processEvents();
    }
}
BENCHMARK(BM_AllesUnterBoxMitZehnFilmen)->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_BoxLoeschen(benchmark::State& state) {
    Umgebung& u = umgebung();
    ui::CDorvanoDlg f(*u.app);
    f.show();
    ui::KatalogModell& m = f.katalog().modell();
    for (auto _ : state) {
        state.PauseTiming();
        const long box = m.index(m.boxAnzahl() / 2, 0, m.wurzel()).data(ui::kRolleId).toLongLong();
        f.katalog().zeige(1, box);
        state.ResumeTiming();
        if (!u.app->dienste().objekte().loesche(1, box).ok()) std::abort();
        QApplication::processEvents();
    }
}
BENCHMARK(BM_BoxLoeschen)->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_NeuLadenMitAufgeklapptem(benchmark::State& state) {
    Umgebung& u = umgebung();
    ui::CDorvanoDlg f(*u.app);
    f.show();
    for (std::size_t i = 0; i < 20; ++i) {
        f.katalog().zeige(1, boxMitFilmen(*u.app, 2, i * 50));
        f.katalog().klappeAuf(3);
    }
    for (auto _ : state) {
        f.katalog().ladeNeu();
        QApplication::processEvents();
    }
}
BENCHMARK(BM_NeuLadenMitAufgeklapptem)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
