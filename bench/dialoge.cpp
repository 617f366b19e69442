// The edit dialogs on the generated collection of 20,000 boxes (30,000 persons,
// 300 genres), started as the desktop program starts it on a private copy:
// opening the film dialog with every catalogue it offers, one key typed into its
// person field (completion over every person), the usage counts of the lookup
// catalogues and of the persons list, and the merge of two genres. Runs on the
// offscreen platform unless another is set.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "app/CApplikation.h"
#include "app/LookupDienst.h"
#include "app/PersonenDienst.h"
#include "app/Zeichensatz.h"
#include "bench/generator/Messplatz.h"
#include "domain/Objekte.h"
#include "ui/dialoge/objekte/FilmDlg.h"

namespace {

using namespace dv;

// The offscreen platform's notes on what it cannot do (raise, grab the keyboard)
// would bury the figures.
void ohneHinweiseDerPlattform(QtMsgType art, const QMessageLogContext& ort, const QString& text) {
    if (!text.startsWith(QStringLiteral("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(art, ort, text)));
}

void qt() {
    static int argc = 1;
    static char name[] = "bench_dialoge";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(ohneHinweiseDerPlattform);
    // Lives until the process ends: the widgets of every benchmark need it.
    static QApplication* app = new QApplication(argc, argv);
    (void)app;
}

// Removed last, after the application has let go of its files.
struct Kopie {
    std::string pfad;
    ~Kopie() { std::filesystem::remove_all(pfad); }
};

// The application on a copy of the collection: start-up writes its log, its
// working folders and its lock, and the merge changes the tables.
struct Sammlung {
    Sammlung()
        : kopie{"/tmp/dorvano-bench-dialoge-" + std::to_string(static_cast<long>(::getpid())) +
                "/"},
          einstellungen(kopie.pfad + "einstellungen.conf"),
          app(benutzer, einstellungen) {
        std::filesystem::remove_all(kopie.pfad);
        std::filesystem::create_directories(kopie.pfad);
        std::filesystem::copy(generator::generierteSammlung(1), kopie.pfad + "programm",
                              std::filesystem::copy_options::recursive);
        if (!app.starte(kopie.pfad + "programm", 0u)) std::abort();
    }
    Kopie kopie;
    generator::StillerBenutzer benutzer;
    Einstellungen einstellungen;
    CApplikation app;
};

Sammlung& sammlung() {
    qt();
    static Sammlung s;
    return s;
}

// What the controller does for "Bearbeiten..." on a film: the film, every
// catalogue, the dialog shown and painted once.
std::unique_ptr<ui::FilmDlg> oeffneFilm(CApplikation& app, long film) {
    auto w = app.dienste().objekte().ladeFilm(film);
    if (!w.ok()) std::abort();
    auto dlg = std::make_unique<ui::FilmDlg>(nullptr, app, w.wert(), ui::ladeFilmKataloge(app));
    dlg->show();
    QCoreApplication::processEvents();
    return dlg;
}

void BM_FilmdialogOeffnen(benchmark::State& state) {
    Sammlung& s = sammlung();
    for (auto _ : state) {
        auto dlg = oeffneFilm(s.app, 1);
        benchmark::DoNotOptimize(dlg->isVisible());
        state.PauseTiming();  // closing is not opening
        dlg.reset();
        state.ResumeTiming();
    }
    state.counters["Personen"] = static_cast<double>(PersonenDienst(s.app).liste(false).size());
    state.counters["Genres"] = static_cast<double>(LookupDienst(s.app).eintraege(kTypGenre).size());
}
BENCHMARK(BM_FilmdialogOeffnen)->Unit(benchmark::kMillisecond);

// One iteration is one key typed into the person field, with the completion's
// filter over every person and its popup; the field starts empty again after
// the first letters of a name in the middle of the list.
void BM_PersonVervollstaendigenJeTaste(benchmark::State& state) {
    Sammlung& s = sammlung();
    auto dlg = oeffneFilm(s.app, 1);
    dlg->zeigeSeite(ui::FilmDlg::Personen);
    auto* feld = dlg->findChild<QLineEdit*>(QStringLiteral("Person"));
    if (!feld) {
        state.SkipWithError("Kein Feld \"Person\"");
        return;
    }
    const auto personen = PersonenDienst(s.app).liste(false);
    const QString tasten = alsQString(personen[personen.size() / 2].person.name).left(5);
    feld->setFocus();
    int i = 0;
    for (auto _ : state) {
        if (i == tasten.size()) {
            state.PauseTiming();
            feld->clear();
            QCoreApplication::processEvents();
            i = 0;
            state.ResumeTiming();
        }
        QKeyEvent druck(QEvent::KeyPress, 0, Qt::NoModifier, QString(tasten[i++]));
        QCoreApplication::sendEvent(feld, &druck);
        QCoreApplication::processEvents();
    }
    state.SetLabel(tasten.toStdString());
}
BENCHMARK(BM_PersonVervollstaendigenJeTaste)->Unit(benchmark::kMillisecond);

void BM_Verwendungszahlen(benchmark::State& state, int typ) {
    LookupDienst lookups(sammlung().app);
    std::size_t eintraege = 0;
    for (auto _ : state) {
        auto liste = lookups.liste(typ);
        eintraege = liste.size();
        benchmark::DoNotOptimize(liste.data());
    }
    state.counters["Eintraege"] = static_cast<double>(eintraege);
}
BENCHMARK_CAPTURE(BM_Verwendungszahlen, Genre, kTypGenre)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Verwendungszahlen, Sprachen, kTypSprache)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Verwendungszahlen, Funktion, kTypFunktion)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Verwendungszahlen, Extras, kTypExtras)->Unit(benchmark::kMillisecond);

void BM_PersonenlisteMitFilmzahlen(benchmark::State& state) {
    PersonenDienst personen(sammlung().app);
    for (auto _ : state) {
        auto liste = personen.liste(true);
        benchmark::DoNotOptimize(liste.data());
    }
}
BENCHMARK(BM_PersonenlisteMitFilmzahlen)->Unit(benchmark::kMillisecond);

// Each iteration merges the next two genres by name, one all-or-nothing
// operation with its journal; the benchmark runs last since it changes the copy.
void BM_ZweiGenresZusammenfuehren(benchmark::State& state) {
    LookupDienst lookups(sammlung().app);
    const auto genres = lookups.eintraege(kTypGenre);
    std::size_t i = 0;
    for (auto _ : state) {
        if (i + 1 >= genres.size()) {
            state.SkipWithError("Keine Genres mehr zum Zusammenführen");
            break;
        }
        const Ergebnis e = lookups.zusammenfuehren(kTypGenre, genres[i].id, genres[i + 1].id);
        if (!e.ok()) {
            state.SkipWithError(e.grund().c_str());
            break;
        }
        i += 2;
    }
}
BENCHMARK(BM_ZweiGenresZusammenfuehren)->Iterations(20)->Unit(benchmark::kMillisecond);

}  // namespace
