// The data version check at start-up: its protocol file and the message the
// user sees when the stored version is foreign.

#include "base/Datenversion.h"

#include <gtest/gtest.h>

#include "tests/support/FakeBenutzer.h"
#include "tests/support/FesteUhr.h"
#include "tests/support/TempOrdner.h"

namespace dv::test {
namespace {

class DatenversionTest : public ::testing::Test {
  protected:
    FesteUhr uhr{6, 4, 2007, 9, 5, 0};
    TempOrdner daten, meldungen;
    Protokoll protokoll;
    SpeicherUmgebung u;
    FakeBenutzer benutzer;

    void SetUp() override {
        u.trace = &protokoll;
        u.datenOrdner = daten.pfad();
        protokoll.setzeMeldungsOrdner(meldungen.pfad());
        Katalog k(u);
        ASSERT_TRUE(k.erzeugeDatenbank());
    }

    void speichere(long a, long b, long c, long d, const char* datum) {
        Katalog k(u);
        DatenVersionSatz v{{a, b, c, d}, {}};
        std::strcpy(v.datum, datum);
        ASSERT_TRUE(k.schreibeVersion(v));
    }
    bool pruefe() {
        Katalog k(u);
        return pruefeDatenversion(k, protokoll, benutzer);
    }
    std::string protokollDatei() { return leseDatei(meldungen / "datenversion.log"); }
};

TEST_F(DatenversionTest, FreshDatabaseGetsAndPassesTheCurrentVersion) {
    EXPECT_TRUE(pruefe());
    EXPECT_EQ(protokollDatei(),
              "Daten-Version [06.04.2007, 09:05:00]:\n"
              "Ist  : 4.0.0.1 - 20070406\n"
              "Soll : 4.0.0.1 - 20070406\n"
              "\n");
    EXPECT_TRUE(benutzer.meldungen.empty());
    EXPECT_EQ(leseDatei(daten / "DatenVersion.dat").size(), 28u);
}

TEST_F(DatenversionTest, ForeignVersionIsLoggedShownAndRefused) {
    speichere(3, 9, 0, 2, "20050101");
    EXPECT_FALSE(pruefe());
    EXPECT_EQ(protokollDatei(),
              "Daten-Version [06.04.2007, 09:05:00]:\n"
              "Ist  : 3.9.0.2 - 20050101\n"
              "Soll : 4.0.0.1 - 20070406\n"
              "\n"
              "### Falsche Datenversion entdeckt ###\n"
              "Bitte schauen Sie bzgl. dieses Problems auf den Internetseiten der ZELKA nach.\n");
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].titel, "### Falsche Datenversion ###");
    EXPECT_EQ(benutzer.meldungen[0].text,
              "Die Datenversion ist inkompatibel\rIST\t: 3.9.0.2 - 20050101\rSOLL\t: 4.0.0.1 - "
              "20070406\rBitte schauen Sie bzgl. dieses Problems\rauf den Internetseiten der "
              "ZELKA nach.");
    // The stored version is reported, never replaced.
    Katalog k(u);
    EXPECT_EQ(versionsText(k.holeVersion()), "3.9.0.2 - 20050101");
}

TEST_F(DatenversionTest, OnlyTheFourNumbersAreCompared) {
    speichere(4, 0, 0, 1, "19990101");
    EXPECT_TRUE(pruefe());
    EXPECT_TRUE(benutzer.meldungen.empty());
    EXPECT_NE(protokollDatei().find("Ist  : 4.0.0.1 - 19990101\n"), std::string::npos);
    speichere(4, 0, 0, 2, "20070406");
    EXPECT_FALSE(pruefe());
    // Without a message folder the check still runs and shows its message.
    protokoll.setzeMeldungsOrdner(meldungen / "fehlt/");
    speichere(1, 0, 0, 0, "20000101");
    EXPECT_FALSE(pruefe());
    EXPECT_EQ(benutzer.meldungen.size(), 2u);
    EXPECT_FALSE(gibtEs(meldungen / "fehlt"));
}

TEST_F(DatenversionTest, ProtocolHoldsOnlyThisRunAndTheMessageLogIsRestored) {
    schreibeDatei(meldungen / "datenversion.log", "alter Lauf\n");
    protokoll.setzeMeldungsDatei("eigene.log");
    EXPECT_TRUE(pruefe());
    EXPECT_TRUE(pruefe());
    EXPECT_EQ(protokollDatei().find("alter Lauf"), std::string::npos);
    EXPECT_EQ(protokollDatei().find("Daten-Version"), protokollDatei().rfind("Daten-Version"));
    EXPECT_EQ(protokoll.meldungsDatei(), "eigene.log");
}

}  // namespace
}  // namespace dv::test
