// The edit dialogs on the generated collection of 20,000 boxes (30,000 persons,
// 300 genres), started as the desktop program starts it on a private copy:
// opening the film dialog with every catalogue it offers, one key typed into its
// person field (completion over every person), the usage counts of the lookup
// catalogues and of the persons list, and the merge of two genres; then the
// retrieval dialogs: the film search to its hit dialog, a hit dialog of 10,000
// hits, a watch list of 10,000 entries and the tag search over 50,000 tag files.
// Runs on the offscreen platform unless another is set.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <tuple>

#include "app/CApplikation.h"
#include "app/LookupDienst.h"
#include "app/PersonenDienst.h"
#include "app/Zeichensatz.h"
#include "bench/generator/Messplatz.h"
#include "domain/Objekte.h"
#include "domain/Tags.h"
#include "retrieval/Vormerklisten.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/objekte/FilmDlg.h"
#include "ui/dialoge/suche/CDlgSuche.h"
#include "ui/dialoge/suche/CDlgTreffer.h"
#include "ui/dialoge/suche/Liste.h"
#include "ui/dialoge/suche/Objektbefehle.h"
#include "ui/dialoge/tags/CDlgTagSuche.h"
#include "ui/dialoge/vormerk/CDlgVormerkListe.h"
#include "ui/widgets/TextFeld.h"

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

// ---- The retrieval dialogs ----------------------------------------------------

// The tree and the commands the hit lists share with it, made once.
struct Recherche {
    explicit Recherche(CApplikation& app)
        : baum(app), aktionen(fenster, baum), befehle(app, baum, aktionen) {}
    QWidget fenster;
    ui::KatalogAnsicht baum;
    ui::Aktionen aktionen;
    ui::Objektbefehle befehle;
};

Recherche& recherche() {
    static Recherche r(sammlung().app);
    return r;
}

bool waehleText(QComboBox* c, const char* text) {
    const int i = c->findText(QString::fromLatin1(text));
    c->setCurrentIndex(i);
    return i >= 0;
}

// The film search of the search benchmark, built row by row in the editor;
// timed from "Suchen" to the filled hit dialog.
void BM_FilmsucheBisTrefferdialog(benchmark::State& state) {
    Sammlung& s = sammlung();
    ui::CDlgSuche d(nullptr, s.app, recherche().befehle);
    const std::tuple<const char*, const char*, const char*> zeilen[] = {
        {"Titel", "=", "*ab*"}, {"Genre", "=", "Drama*"}, {"Jahr", ">=", "2000"}};
    for (const auto& [kriterium, op, daten] : zeilen) {
        if (!waehleText(d.kriterium(), kriterium) || !waehleText(d.op(), op)) std::abort();
        d.daten()->setText(QString::fromLatin1(daten));
        d.hinzufuegen();
    }
    int treffer = 0;
    for (auto _ : state) {
        d.suchen();
        auto* dlg = d.findChild<ui::CDlgTreffer*>();
        QCoreApplication::processEvents();
        state.PauseTiming();
        treffer = dlg ? dlg->liste().modell().rowCount() : -1;
        delete dlg;
        state.ResumeTiming();
    }
    state.counters["Treffer"] = treffer;
}
BENCHMARK(BM_FilmsucheBisTrefferdialog)->Unit(benchmark::kMillisecond);

void BM_TrefferdialogMit10000Treffern(benchmark::State& state) {
    Sammlung& s = sammlung();
    auto alle = s.app.dienste().suche().suche({{kObjektFilm, 1, 1, 2, "*"}});
    if (!alle.ok() || alle->treffer.size() < 10000) std::abort();
    alle->treffer.resize(10000);
    for (auto _ : state) {
        ui::CDlgTreffer dlg(nullptr, s.app, recherche().befehle, alle.wert());
        dlg.show();
        QCoreApplication::processEvents();
        state.PauseTiming();  // closing is not opening
        dlg.close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_TrefferdialogMit10000Treffern)->Unit(benchmark::kMillisecond);

// A watch list of the first 10,000 films, written straight into the copy.
long listeMit10000Filmen(CApplikation& app) {
    Vormerklisten v(app.db());
    const long liste = v.neu("Zehntausend");
    for (long i = 1; i <= 10000; ++i)
        v.fuegeHinzuAn(liste, kObjektFilm, i, static_cast<std::uint16_t>(i));
    return liste;
}

void BM_VormerklisteMit10000Eintraegen(benchmark::State& state) {
    Sammlung& s = sammlung();
    static const long liste = listeMit10000Filmen(s.app);
    for (auto _ : state) {
        ui::CDlgVormerkListe dlg(nullptr, s.app, recherche().befehle, QStringLiteral("Liste"),
                                 [&] { return s.app.dienste().vormerk().inhalt({liste}); });
        dlg.show();
        QCoreApplication::processEvents();
        state.PauseTiming();
        if (dlg.liste().modell().rowCount() != 10000) std::abort();
        dlg.close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_VormerklisteMit10000Eintraegen)->Unit(benchmark::kMillisecond);

// 50,000 tag files (every tenth film lent out); timed from "Suchen" with its
// progress to the filled hit dialog.
void BM_TagsucheUeber50000Dateien(benchmark::State& state) {
    Sammlung& s = sammlung();
    static const bool geschrieben = [&] {
        for (long id = 1; id <= 50000; ++id)
            if (!schreibeTags(s.app.fs(), s.app.ordner().tags, kObjektFilm, id,
                              {id % 10 == 0 ? "verliehen an Klaus" : "Tag " + std::to_string(id)}))
                return false;
        return true;
    }();
    if (!geschrieben) std::abort();
    ui::CDlgTagSuche d(nullptr, s.app, recherche().befehle);
    d.text()->setText(QStringLiteral("klaus"));
    int treffer = 0;
    for (auto _ : state) {
        d.suchen();
        auto* dlg = d.findChild<ui::CDlgTagTreffer*>();
        QCoreApplication::processEvents();
        state.PauseTiming();
        treffer = dlg ? dlg->liste().modell().rowCount() : -1;
        delete dlg;
        state.ResumeTiming();
    }
    state.counters["Treffer"] = treffer;
}
BENCHMARK(BM_TagsucheUeber50000Dateien)->Unit(benchmark::kMillisecond);

}  // namespace
