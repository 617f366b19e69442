// Crashes: an import, a batch import, a delete cascade, a copy, a merge of two
// lookup entries and the validation's repairs, each killed at every change of a
// file. The next start finds the catalogue exactly as before the operation or
// exactly as after it, never between: no half box, no link row to a missing
// record, no earlier box touched, no box file consumed whose box is lost.

#include <gtest/gtest.h>

#include <functional>

#include "domain/Validierung.h"
#include "domain/Verwendung.h"
#include "tests/interchange/Austauschtest.h"
#include "tests/support/Absturzprobe.h"

namespace dv::test {
namespace {

// One program on the shared program folder, as each start of a process makes it:
// folders and tables made, the catalogue opened.
struct Programm {
    Programm(Dateisystem& fs, const std::string& basis)
        : protokoll(fs), einstellungen(basis + "e.conf") {
        ordner.setzeBasis(basis);
        ordner.legeAn(fs);
        protokoll.setzeLogPfad(basis + "zelka.log");
        protokoll.setzeMeldungsOrdner(ordner.meldungen);
        u.fs = &fs;
        u.trace = &protokoll;
        u.datenOrdner = ordner.daten;
        db = std::make_unique<Datenbank>(u, ordner);
        db->katalog().erzeugeDatenbank();
        austausch = std::make_unique<Austausch>(*db, ordner, nutzer, einstellungen);
        imp = std::make_unique<BoxImport>(*db, ordner, nutzer);
    }
    Ordner ordner;
    Protokoll protokoll;
    SpeicherUmgebung u;
    std::unique_ptr<Datenbank> db;
    FakeBenutzer nutzer;
    Einstellungen einstellungen;
    std::unique_ptr<Austausch> austausch;
    std::unique_ptr<BoxImport> imp;
};

using Arbeit = std::function<void(Programm&)>;

class Absturz : public ::testing::Test {
  protected:
    TempOrdner basis;
    Abbild start;
    std::string dateiA, dateiB;  // box files for the imports
    std::string bytesA, bytesB;
    long boxA = 0, boxB = 0, dvdA = 0;

    void SetUp() override {
        Programm hier(echtesDateisystem(), basis.pfad());
        boxA = legeBeispielBoxAn(*hier.db, hier.ordner, "4010232012345");
        boxB = legeBeispielBoxAn(*hier.db, hier.ordner, "4010232012346");
        dvdA = hier.db->getDvdListe(boxA).get()->Id;
        for (auto [ean, ziel] : {std::pair{"4010232012347", &dateiA}, {"4010232012348", &dateiB}}) {
            const long box = legeBeispielBoxAn(*hier.db, hier.ordner, ean);
            std::string pfad;
            ASSERT_EQ(hier.austausch->exportiere(box, basis / "", SchreibOptionen{true}, &pfad),
                      ExportErgebnis::Exportiert);
            ASSERT_TRUE(hier.db->loescheBox(box));  // leaves free slots for the import to reuse
            *ziel = pfad;
        }
        start = abbild(basis.pfad());
        bytesA = leseDatei(dateiA);
        bytesB = leseDatei(dateiB);
    }

    void zurueck() {
        stelleHer(basis.pfad(), start);
        schreibeDatei(dateiA, bytesA);
        schreibeDatei(dateiB, bytesB);
    }

    // The work in a program on the shared folder, killed at every change it makes;
    // erwartet: the states allowed afterwards, first the one before the work, last
    // the one after it. A box file is gone only when its box is in the catalogue.
    void pruefe(const Arbeit& arbeit, const std::vector<Abbild>& erwartet) {
        Absturzprobe probe;
        probe.basis = basis.pfad();
        probe.erwartet = erwartet;
        probe.arbeit = [&](FehlerDateisystem& fs, const std::function<void()>& los) {
            Programm env(fs, basis.pfad());
            los();
            arbeit(env);
        };
        probe.vorJedemLauf = [&] { zurueck(); };
        probe.danach = [&](std::size_t i) {
            EXPECT_TRUE(i > 0 || (gibtEs(dateiA) && gibtEs(dateiB)));
            EXPECT_TRUE(i != 1 || erwartet.size() < 3 || gibtEs(dateiB));
        };
        probe.pruefe();
    }

    Abbild nach(const Arbeit& arbeit) {
        {
            Programm env(echtesDateisystem(), basis.pfad());
            arbeit(env);
        }
        Abbild a = abbild(basis.pfad());
        zurueck();
        return a;
    }
};

TEST_F(Absturz, SingleOperationsAreWholeOrAbsent) {
    const std::pair<const char*, Arbeit> faelle[] = {
        {"import",
         [&](Programm& env) {
             EXPECT_EQ(env.imp->importiere(dateiA), ImportErgebnis::Importiert);
         }},
        {"delete cascade", [&](Programm& env) { EXPECT_TRUE(env.db->loescheBox(boxA)); }},
        {"copy of a DVD", [&](Programm& env) { EXPECT_GT(env.db->kopiereDvd(dvdA, boxB), 0); }},
        {"merge of two genres, every link moved",
         [&](Programm& env) {
             Datenbank& db = *env.db;
             EXPECT_TRUE(dv::fuehreZusammen(db, kTypGenre, db.findeLookup(kTypGenre, "Fantasy"),
                                            db.findeLookup(kTypGenre, "Abenteuer")));
         }},
    };
    for (const auto& [name, arbeit] : faelle) {
        SCOPED_TRACE(name);
        zurueck();  // the last run of the one before left its end state
        pruefe(arbeit, {start, nach(arbeit)});
    }
}

TEST_F(Absturz, BatchImportConsumesOnlyFilesWhoseBoxIsIn) {
    const Arbeit erste = [&](Programm& env) {
        EXPECT_EQ(env.imp->importiere(dateiA), ImportErgebnis::Importiert);
    };
    const Arbeit stapel = [&](Programm& env) {
        const auto e = env.austausch->stapelImport({dateiA, dateiB}, false, ImportOptionen{});
        EXPECT_EQ(e.size(), 2u);
    };
    pruefe(stapel, {start, nach(erste), nach(stapel)});
}

TEST_F(Absturz, ValidationRepairsAllOrNone) {
    {
        // Positions out of order in every box, for the validation to renumber.
        Programm hier(echtesDateisystem(), basis.pfad());
        Tabelle2& links = hier.db->katalog().DVD_Film;
        std::vector<Zeile2> zeilen;
        links.scanne([&](const Zeile2& z) { zeilen.push_back(z); });
        for (const Zeile2& z : zeilen) links.update(z.Id, z.DVD_Id, z.Objekt1_Id, z.Pos + 7);
    }
    start = abbild(basis.pfad());
    const Arbeit validiere = [&](Programm& env) {
        env.nutzer.antworten.push_back(true);
        EXPECT_TRUE(
            validiereDatenbank(*env.db, env.nutzer, env.ordner.meldungen, env.ordner.backups));
    };
    pruefe(validiere, {start, nach(validiere)});
}

}  // namespace
}  // namespace dv::test
