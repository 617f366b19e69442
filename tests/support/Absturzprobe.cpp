#include "tests/support/Absturzprobe.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>

#include "storage/Journal.h"
#include "storage/Schreibvorgang.h"
#include "tests/support/TempOrdner.h"

namespace dv::test {
namespace {

namespace fsys = std::filesystem;
const char* const kOrdner[] = {"Daten", "Tags", "Cover", "Kommentar", "Inhalt"};

}  // namespace

Abbild abbild(const std::string& basis) {
    Abbild a;
    for (const char* ordner : kOrdner)
        for (const auto& e : fsys::directory_iterator(basis + ordner))
            a[fsys::relative(e.path(), basis).string()] = leseDatei(e.path().string());
    return a;
}

std::string unterschied(const Abbild& a, const Abbild& b) {
    std::string s;
    for (const auto& [pfad, bytes] : a)
        if (!b.count(pfad) || b.at(pfad) != bytes) s += pfad + " ";
    for (const auto& [pfad, bytes] : b)
        if (!a.count(pfad)) s += pfad + " ";
    return s;
}

void stelleHer(const std::string& basis, const Abbild& a) {
    for (const char* ordner : kOrdner)
        for (const auto& e : fsys::directory_iterator(basis + ordner)) fsys::remove(e.path());
    for (const auto& [pfad, bytes] : a) schreibeDatei(basis + pfad, bytes);
    std::remove(journalPfad(basis + "Daten/").c_str());
}

int Absturzprobe::pruefe() {
    int veraenderungen = 0;
    const std::string journal = journalPfad(basis + "Daten/");
    std::string fertigesJournal;  // as a finished operation leaves it, for reuse
    {
        stelleHer(basis, erwartet.front());
        vorJedemLauf();
        FehlerDateisystem fs;
        arbeit(fs, [&] { fs.veraenderungen = 0; });
        veraenderungen = fs.veraenderungen;
        fertigesJournal = leseDatei(journal);
    }
    EXPECT_EQ(unterschied(abbild(basis), erwartet.back()), "") << "the whole run";
    // At least the journal, two files and the journal's removal.
    EXPECT_GT(veraenderungen, 3);
    std::map<std::size_t, int> zustaende;
    for (int k = 1; k <= veraenderungen + 1; ++k) {
        SCOPED_TRACE("Abbruch bei Veränderung " + std::to_string(k));
        stelleHer(basis, erwartet.front());
        // Every other run finds the journal file of an earlier operation to reuse.
        if (k % 2 == 1 && !fertigesJournal.empty()) schreibeDatei(journal, fertigesJournal);
        vorJedemLauf();
        const pid_t kind = ::fork();
        if (kind == 0) {
            FehlerDateisystem fs;
            fs.zerreissen = true;
            arbeit(fs, [&] {
                fs.veraenderungen = 0;
                fs.abbruchBeiVeraenderung = k;
            });
            std::_Exit(0);
        }
        int status = 0;
        if (kind < 0 || ::waitpid(kind, &status, 0) != kind) {
            ADD_FAILURE() << "no child";
            break;
        }
        const bool getoetet = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        const bool fertig = WIFEXITED(status) && WEXITSTATUS(status) == 0;
        // A reused journal file spares one change, so the last kill may come too late.
        EXPECT_TRUE(k < veraenderungen   ? getoetet
                    : k > veraenderungen ? fertig
                                         : getoetet || fertig)
            << status;
        // The next start: recovery first, as both programs do.
        SpeicherUmgebung neu;
        neu.datenOrdner = basis + "Daten/";
        stelleWiederHer(neu);
        const Abbild jetzt = abbild(basis);
        std::size_t i = 0;
        while (i < erwartet.size() && erwartet[i] != jetzt) ++i;
        if (i == erwartet.size()) {
            ADD_FAILURE() << "a state between before and after: "
                          << unterschied(jetzt, erwartet.front()) << "/ "
                          << unterschied(jetzt, erwartet.back());
            break;
        }
        ++zustaende[i];
        danach(i);
    }
    EXPECT_GT(zustaende[0], 0);
    EXPECT_GT(zustaende[erwartet.size() - 1], 0);
    std::printf("%d Abbruchstellen\n", veraenderungen);
    return veraenderungen;
}

}  // namespace dv::test
