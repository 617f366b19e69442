// Crashes: an import, a batch import, a delete cascade, a copy, a merge of two
// lookup entries and the validation's repairs run in a child
// process that is killed at its k-th change of a file, for every k (a write torn
// in half first). The next start finds the catalogue exactly as before the
// operation or exactly as after it, never between: no half box, no link row to a
// missing record, no earlier box touched, no box file consumed whose box is lost.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <map>

#include "domain/Validierung.h"
#include "domain/Verwendung.h"
#include "storage/Journal.h"
#include "storage/Schreibvorgang.h"
#include "tests/interchange/Austauschtest.h"
#include "tests/support/FehlerDateisystem.h"

namespace dv::test {
namespace {

namespace fsys = std::filesystem;
using Abbild = std::map<std::string, std::string>;

// Every file of the folders that make up the catalogue, by path below the base.
Abbild abbild(const std::string& basis) {
    Abbild a;
    for (const char* ordner : {"Daten", "Tags", "Cover", "Kommentar", "Inhalt"})
        for (const auto& e : fsys::directory_iterator(basis + ordner))
            a[fsys::relative(e.path(), basis).string()] = leseDatei(e.path().string());
    return a;
}

// The files in which two states differ, for the failure message.
std::string unterschied(const Abbild& a, const Abbild& b) {
    std::string s;
    for (const auto& [pfad, bytes] : a)
        if (!b.count(pfad) || b.at(pfad) != bytes) s += pfad + " ";
    for (const auto& [pfad, bytes] : b)
        if (!a.count(pfad)) s += pfad + " ";
    return s;
}

void stelleHer(const std::string& basis, const Abbild& a) {
    for (const char* ordner : {"Daten", "Tags", "Cover", "Kommentar", "Inhalt"})
        for (const auto& e : fsys::directory_iterator(basis + ordner)) fsys::remove(e.path());
    for (const auto& [pfad, bytes] : a) schreibeDatei(basis + pfad, bytes);
}

// One program on the shared program folder, as each start of a process makes it.
struct Programm {
    Programm(Dateisystem& fs, const std::string& basis)
        : protokoll(fs),
          db(oeffneKatalog(fs, basis, ordner, protokoll, u)),
          einstellungen(basis + "e.conf") {
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
        std::remove(journalPfad(basis / "Daten/").c_str());
        schreibeDatei(dateiA, bytesA);
        schreibeDatei(dateiB, bytesB);
    }

    // Runs the work once whole, then once for every change it makes, killed there,
    // and once more unharmed. erwartet: the states allowed afterwards, first the
    // one before the work, last the one after it.
    void pruefe(const Arbeit& arbeit, const std::vector<Abbild>& erwartet) {
        int veraenderungen = 0;
        {
            FehlerDateisystem fs;
            Programm env(fs, basis.pfad());
            fs.veraenderungen = 0;
            arbeit(env);
            veraenderungen = fs.veraenderungen;
        }
        ASSERT_EQ(unterschied(abbild(basis.pfad()), erwartet.back()), "") << "the whole run";
        // At least the journal, two files and the journal's removal.
        ASSERT_GT(veraenderungen, 3);
        std::map<std::size_t, int> zustaende;
        for (int k = 1; k <= veraenderungen + 1; ++k) {
            SCOPED_TRACE("Abbruch bei Veränderung " + std::to_string(k));
            zurueck();
            const pid_t kind = ::fork();
            ASSERT_GE(kind, 0);
            if (kind == 0) {
                FehlerDateisystem fs;
                fs.zerreissen = true;
                Programm env(fs, basis.pfad());
                fs.veraenderungen = 0;
                fs.abbruchBeiVeraenderung = k;
                arbeit(env);
                std::_Exit(0);
            }
            int status = 0;
            ASSERT_EQ(::waitpid(kind, &status, 0), kind);
            const bool getoetet = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
            const bool fertig = WIFEXITED(status) && WEXITSTATUS(status) == 0;
            ASSERT_TRUE(k <= veraenderungen ? getoetet : fertig) << status;
            // The next start: recovery first, as both programs do.
            SpeicherUmgebung neu;
            neu.datenOrdner = basis / "Daten/";
            stelleWiederHer(neu);
            const Abbild jetzt = abbild(basis.pfad());
            std::size_t i = 0;
            while (i < erwartet.size() && erwartet[i] != jetzt) ++i;
            ASSERT_LT(i, erwartet.size())
                << "a state between before and after: " << unterschied(jetzt, erwartet.front())
                << "/ " << unterschied(jetzt, erwartet.back());
            ++zustaende[i];
            // A box file is gone only when its box is in the catalogue.
            const bool quellenDa = gibtEs(dateiA) && gibtEs(dateiB);
            EXPECT_TRUE(i > 0 || quellenDa);
            EXPECT_TRUE(i != 1 || erwartet.size() < 3 || gibtEs(dateiB));
        }
        // The test saw both outcomes.
        EXPECT_GT(zustaende[0], 0);
        EXPECT_GT(zustaende[erwartet.size() - 1], 0);
        std::printf("%d Abbruchstellen\n", veraenderungen);
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

TEST_F(Absturz, ImportOfOneBox) {
    const Arbeit importiere = [&](Programm& env) {
        EXPECT_EQ(env.imp->importiere(dateiA), ImportErgebnis::Importiert);
    };
    pruefe(importiere, {start, nach(importiere)});
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

TEST_F(Absturz, DeleteCascadeOfABox) {
    const Arbeit loesche = [&](Programm& env) { EXPECT_TRUE(env.db->loescheBox(boxA)); };
    pruefe(loesche, {start, nach(loesche)});
}

TEST_F(Absturz, CopyOfADvdIntoAnotherBox) {
    const Arbeit kopiere = [&](Programm& env) { EXPECT_GT(env.db->kopiereDvd(dvdA, boxB), 0); };
    pruefe(kopiere, {start, nach(kopiere)});
}

TEST_F(Absturz, MergeOfTwoGenresMovesEveryLink) {
    const Arbeit fuehreZusammen = [&](Programm& env) {
        Datenbank& db = *env.db;
        EXPECT_TRUE(dv::fuehreZusammen(db, kTypGenre, db.findeLookup(kTypGenre, "Fantasy"),
                                       db.findeLookup(kTypGenre, "Abenteuer")));
    };
    pruefe(fuehreZusammen, {start, nach(fuehreZusammen)});
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
