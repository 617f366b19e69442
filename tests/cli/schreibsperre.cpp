// Two programs on one catalogue: one writer at a time, the other waits and then
// gives up with a German reason and exit code 1, readers never wait; two scripts
// creating boxes at the same time both get whole boxes of their own.

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <set>
#include <sstream>
#include <thread>

#include "platform/Schreibsperre.h"
#include "tests/cli/CliProgramm.h"

namespace dv::test {
namespace {

TEST(CliSchreibsperre, SecondWriterWaitsThenGivesUpAndReadersGoOn) {
    CliProgramm p;
    ASSERT_EQ(p.run({"neu", "box", "--titel", "Erste"}).code, 0);
    auto andere = dateiSperre(p.basis + kSchreibsperreDatei);  // another program writing
    ASSERT_EQ(andere->nimm(0), Sperrstand::Erhalten);

    const Lauf l = p.run({"loeschen", "box", "1"}, "", true);
    EXPECT_TRUE(meldet(l, 1, u(u8"gerade von einem anderen Programm geändert")));
    const Lauf anzahl = p.run({"anzahl"});
    EXPECT_EQ(anzahl.code, 0);
    EXPECT_EQ(anzahl.aus, "Boxen: 1\nDvds: 1\nFilme: 1\n");

    // Let go while the next writer waits: it goes ahead.
    std::thread loslassen([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        andere->gibFrei();
    });
    const Lauf danach = p.run({"loeschen", "box", "1"}, "", true);
    loslassen.join();
    EXPECT_EQ(danach.code, 0) << danach.err;
    EXPECT_EQ(p.run({"anzahl"}).aus, "Boxen: 0\nDvds: 0\nFilme: 0\n");
}

TEST(CliSchreibsperre, TwoScriptsCreatingBoxesAtOnceGetWholeBoxesOfTheirOwn) {
    CliProgramm p;
    ASSERT_EQ(p.run({"init"}).code, 0);
    constexpr int kProSkript = 12;
    pid_t kinder[2];
    for (int s = 0; s < 2; ++s) {
        kinder[s] = ::fork();
        ASSERT_GE(kinder[s], 0);
        if (kinder[s] == 0) {
            int fehler = 0;
            for (int i = 0; i < kProSkript; ++i) {
                const std::string titel = "Skript" + std::to_string(s) + "-" + std::to_string(i);
                fehler += p.run({"neu", "box", "--titel", titel}).code != 0;
            }
            std::_Exit(fehler);
        }
    }
    for (pid_t kind : kinder) {
        int status = 0;
        ASSERT_EQ(::waitpid(kind, &status, 0), kind);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    }
    // Every box has its own DVD with its own film, all of the same title.
    const Lauf liste = p.run({"liste"});
    ASSERT_EQ(liste.code, 0);
    std::istringstream in(liste.aus);
    std::set<std::string> boxen, dvds, filme;
    std::string art, id, eltern, titel, boxTitel, dvdTitel;
    for (std::string zeile; std::getline(in, zeile);) {
        std::istringstream z(zeile);
        std::getline(z, art, '\t');
        std::getline(z, id, '\t');
        std::getline(z, eltern, '\t');
        std::getline(z, titel);
        if (art == "Box") {
            EXPECT_TRUE(boxen.insert(id).second) << zeile;
            boxTitel = titel;
        } else if (art == "Dvd") {
            EXPECT_TRUE(dvds.insert(id).second) << zeile;
            EXPECT_EQ(titel, boxTitel);
            dvdTitel = titel;
        } else {
            EXPECT_TRUE(filme.insert(id).second) << zeile;
            EXPECT_EQ(titel, dvdTitel);
        }
    }
    EXPECT_EQ(boxen.size(), 2u * kProSkript);
    EXPECT_EQ(dvds.size(), 2u * kProSkript);
    EXPECT_EQ(filme.size(), 2u * kProSkript);
}

}  // namespace
}  // namespace dv::test
