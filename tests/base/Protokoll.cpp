// The trace log and the message log, read back from the files they write.

#include "base/Protokoll.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>

#include "tests/support/FehlerDateisystem.h"
#include "tests/support/FesteUhr.h"
#include "tests/support/TempOrdner.h"

namespace dv::test {
namespace {

constexpr const char* kStempel = "<05.03.2007 14:07:09>: ";

class ProtokollTest : public ::testing::Test {
  protected:
    FesteUhr uhr{5, 3, 2007, 14, 7, 9};
    TempOrdner tmp;
    Protokoll p;

    void SetUp() override { p.setzeLogPfad(tmp / "zelka"); }

    std::string log() const { return leseDatei(p.logPfad()); }
    std::vector<std::string> dateien() const {
        std::vector<std::string> namen;
        for (const auto& e : echtesDateisystem().liste(tmp.pfad())) namen.push_back(e.name);
        std::sort(namen.begin(), namen.end());
        return namen;
    }
};

TEST_F(ProtokollTest, LineCarriesTheTimeStamp) {
    p.setzeMaske(kTraceTabelle);
    DV_TRACE(p, kTraceTabelle, "inserted cpText [%s] into %s", "Drama", "Genre");
    p.zeile(kTraceTabelle, "deleted <%ld> from %s", 3L, "Genre");
    EXPECT_EQ(log(), std::string(kStempel) + "inserted cpText [Drama] into Genre\n" + kStempel +
                         "deleted <3> from Genre\n");
    EXPECT_EQ(Protokoll::zeitstempel(), "<05.03.2007 14:07:09>");
}

TEST_F(ProtokollTest, MaskZeroWritesNoFileAndACombinedMaskNeedsEveryBit) {
    DV_TRACE(p, kTraceTabelle, "x");
    p.zeile(kTraceSpeicher, "y");
    p.zeile(kTraceDetail16 | kTraceDetail32, "z");
    EXPECT_TRUE(dateien().empty());
    for (unsigned maske : {2u, 8u, 16u, 0u}) {
        p.setzeMaske(maske);
        p.zeile(10, "zehn");
    }
    EXPECT_FALSE(gibtEs(p.logPfad()));
    p.setzeMaske(10);
    p.zeile(10, "zehn");
    p.zeile(2, "zwei");
    p.zeile(16, "sechzehn");
    p.setzeMaske(0xFF);
    p.zeile(10, "alles");
    EXPECT_EQ(log(), std::string(kStempel) + "zehn\n" + kStempel + "zwei\n" + kStempel + "alles\n");
}

TEST_F(ProtokollTest, RollsOverOnlyWhenALineCrossesTheLimit) {
    p.setzeMaske(2);
    const std::string zeile = std::string(kStempel) + "ueber die Grenze\n";
    schreibeDatei(p.logPfad(), std::string(kTraceMaxGroesse - 5, 'a'));
    p.zeile(2, "ueber die Grenze");
    EXPECT_FALSE(gibtEs(p.logPfad()));
    const std::string bak = leseDatei(p.backupPfad());
    EXPECT_EQ(bak.size(), kTraceMaxGroesse - 5 + zeile.size());
    EXPECT_TRUE(bak.ends_with(zeile));
    p.zeile(2, "neu");
    EXPECT_EQ(log(), std::string(kStempel) + "neu\n");

    // A second crossing replaces the backup: one generation only.
    schreibeDatei(p.logPfad(), std::string(kTraceMaxGroesse, 'b'));
    p.zeile(2, "wieder");
    const std::string bak2 = leseDatei(p.backupPfad());
    EXPECT_EQ(bak2.find('a'), std::string::npos);
    EXPECT_TRUE(bak2.ends_with(std::string(kStempel) + "wieder\n"));
    EXPECT_EQ(dateien(), (std::vector<std::string>{"zelka.bak"}));

    // Reaching the limit exactly does not roll; the next line does.
    schreibeDatei(p.logPfad(), std::string(kTraceMaxGroesse - std::strlen(kStempel) - 6, 'a'));
    std::filesystem::remove(p.backupPfad());
    p.zeile(2, "genau");
    EXPECT_EQ(log().size(), static_cast<std::size_t>(kTraceMaxGroesse));
    EXPECT_FALSE(gibtEs(p.backupPfad()));
    p.zeile(2, "x");
    EXPECT_FALSE(gibtEs(p.logPfad()));
    EXPECT_TRUE(gibtEs(p.backupPfad()));
}

TEST_F(ProtokollTest, FileSystemFaultsKeepTheLogOrDropTheLine) {
    FehlerDateisystem fs;
    fs.sperre = ".bak";
    Protokoll q(fs);
    q.setzeLogPfad(tmp / "zelka");
    q.setzeMaske(2);
    schreibeDatei(q.logPfad(), std::string(kTraceMaxGroesse, 'a'));
    q.zeile(2, "x");
    EXPECT_EQ(leseDatei(q.logPfad()).size(), kTraceMaxGroesse + std::strlen(kStempel) + 2);

    // A log that cannot be opened drops the line; a folder that cannot be made
    // falls back to the drive.
    fs.sperre = "zelka";
    q.setzeLogPfad(tmp / "sub/zelka");
    q.zeile(2, "weg");
    EXPECT_FALSE(gibtEs(tmp / "sub/zelka.log"));
    fs.sperre = "gesperrt";
    q.setzeLogPfad(tmp / "gesperrt/zelka.log");
    EXPECT_EQ(q.logPfad(), "C:\\zelka.log");
    EXPECT_EQ(q.backupPfad(), "C:\\zelka.bak");
}

TEST_F(ProtokollTest, OverlongLineIsCutButKeepsItsLineEnd) {
    p.setzeMaske(2);
    p.zeile(2, "%s", std::string(3000, 'x').c_str());
    p.zeile(2, "danach");
    const std::string l = log();
    const std::size_t ende = l.find('\n');
    EXPECT_EQ(ende, 1022u);
    EXPECT_EQ(l.substr(ende + 1), std::string(kStempel) + "danach\n");
}

TEST_F(ProtokollTest, LogPathWithAndWithoutExtension) {
    // A dot in a folder name is not an extension; the missing folder is created.
    for (const auto& [ein, log, bak] :
         {std::array<const char*, 3>{"zelka", "zelka.log", "zelka.bak"},
          {"spur.txt", "spur.txt", "spur.bak"},
          {"a.b/c/zelka", "a.b/c/zelka.log", "a.b/c/zelka.bak"}}) {
        p.setzeLogPfad(tmp / ein);
        EXPECT_EQ(p.logPfad(), tmp / log);
        EXPECT_EQ(p.backupPfad(), tmp / bak);
    }
    EXPECT_TRUE(echtesDateisystem().istOrdner(tmp / "a.b/c"));
}

TEST_F(ProtokollTest, MessagesAreAppendedWithoutTimeStamp) {
    EXPECT_EQ(p.meldungsPfad(), "C:\\Meldungen\\meldung.log");
    ASSERT_TRUE(echtesDateisystem().erzeugeOrdner(tmp / "Meldungen"));
    p.setzeMeldungsOrdner(tmp / "Meldungen/");
    p.meldung("Import %d: <%s>", 3, "Alien");
    p.meldung("%s", "");
    p.meldung("Ende");
    EXPECT_EQ(leseDatei(tmp / "Meldungen/meldung.log"), "Import 3: <Alien>\n\nEnde\n");
    p.setzeMeldungsDatei("reset_wp.log");
    EXPECT_EQ(p.meldungsDatei(), "reset_wp.log");
    p.meldung("%s Die Positionen des Hauptfensters wurden auf Wunsch gelöscht.",
              Protokoll::zeitstempel().c_str());
    EXPECT_EQ(leseDatei(tmp / "Meldungen/reset_wp.log"),
              "<05.03.2007 14:07:09> Die Positionen des Hauptfensters wurden auf Wunsch "
              "gel\xF6scht.\n");
    // A missing message folder loses lines quietly.
    p.setzeMeldungsOrdner(tmp / "fehlt/");
    p.meldung("verloren");
    EXPECT_FALSE(gibtEs(tmp / "fehlt"));
    EXPECT_FALSE(haengeZeileAn(echtesDateisystem(), tmp / "fehlt/x.log", "y"));
    EXPECT_TRUE(haengeZeileAn(echtesDateisystem(), tmp / "x.log", "y"));
    EXPECT_EQ(leseDatei(tmp / "x.log"), "y\n");
}

}  // namespace
}  // namespace dv::test
