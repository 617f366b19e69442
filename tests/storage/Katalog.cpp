// The catalog of 32 tables: creating a database (also twice), the seeded
// functions and the data version record.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "storage/Katalog.h"
#include "tests/storage/Umgebung.h"

namespace dv::test {
namespace {

class KatalogTest : public ::testing::Test {
  protected:
    Umgebung env{echtesDateisystem(), kTraceTabelle};

    std::map<std::string, std::string> alleDateien(Katalog& k) {
        std::map<std::string, std::string> m;
        for (Tabelle* t : k.alle()) m[t->name()] = leseDatei(t->pfad());
        return m;
    }
    std::vector<std::string> funktionen(Katalog& k) {
        std::vector<std::string> out;
        k.Funktion.scanne([&](const Tabelle1::Zeile& z) {
            out.push_back(std::to_string(z.Id) + ":" + z.cpText);
        });
        return out;
    }
};

TEST_F(KatalogTest, ThirtyTwoTablesWithTheirFileNames) {
    Katalog k(env.u);
    std::set<std::string> namen;
    for (Tabelle* t : k.alle()) {
        namen.insert(t->name());
        EXPECT_EQ(t->pfad(), env.u.datenOrdner + t->name() + ".dat");
    }
    EXPECT_EQ(namen.size(), 32u);
    for (const char* n :
         {"Alias",       "Bildformate", "Extras",      "FilterName",    "Formate",
          "Funktion",    "Genre",       "Sprachen",    "Tonformate",    "Verpackung",
          "VormerkName", "Box",         "DVD",         "Film",          "Titel",
          "Person",      "TagStempel",  "Filter",      "DatenVersion",  "Box_Extras",
          "DVD_Box",     "DVD_Extras",  "DVD_Film",    "Film_Alias",    "Film_Bildformat",
          "Film_Fkt",    "Film_Genre",  "Film_Person", "Film_Sprachen", "Film_Untertitel",
          "Vormerk",     "Vormerk2"})
        EXPECT_TRUE(namen.count(n)) << n;
}

TEST_F(KatalogTest, FreshDatabaseHasEmptyTablesAndTwoFunctionsCreatingAgainChangesNothing) {
    {
        Katalog k(env.u);
        EXPECT_TRUE(k.erzeugeDatenbank());
        for (const auto& [name, inhalt] : alleDateien(k)) {
            if (name == "Funktion")
                EXPECT_EQ(inhalt.size(), 2 * 132u);
            else
                EXPECT_EQ(inhalt, "") << name;
        }
        EXPECT_EQ(funktionen(k), (std::vector<std::string>{"1:Darsteller", "2:Regie"}));
        k.Genre.insert("Drama");
        k.Box.insert("123", "Box", 0, 0);
    }
    Katalog k(env.u);
    const auto vorher = alleDateien(k);
    env.leereLog();
    EXPECT_TRUE(k.erzeugeDatenbank());
    EXPECT_EQ(alleDateien(k), vorher);
    int bereits = 0;
    const auto zeilen = env.zeilen();
    for (const auto& z : zeilen) {
        bereits += z.ends_with(".dat existiert bereits.");
        EXPECT_EQ(z.find("inserted"), std::string::npos) << z;
        EXPECT_EQ(z.find("created"), std::string::npos) << z;
    }
    EXPECT_EQ(bereits, 32);
    EXPECT_NE(
        std::find(zeilen.begin(), zeilen.end(), env.u.datenOrdner + "Box.dat existiert bereits."),
        zeilen.end());
    // The same object again, with its free slot list already built.
    EXPECT_TRUE(k.erzeugeDatenbank());
    EXPECT_EQ(funktionen(k), (std::vector<std::string>{"1:Darsteller", "2:Regie"}));
}

TEST_F(KatalogTest, OtherFunctionsAtOneAndTwoAreKeptButAFreedSlotIsSeeded) {
    Katalog k(env.u);
    ASSERT_TRUE(k.Funktion.create());
    ASSERT_EQ(k.Funktion.insert("Kamera"), 1);
    ASSERT_EQ(k.Funktion.insert("Musik"), 2);
    EXPECT_TRUE(k.erzeugeDatenbank());
    EXPECT_EQ(funktionen(k), (std::vector<std::string>{"1:Kamera", "2:Musik"}));
    k.Funktion.remove(1, false);
    Katalog neu(env.u);
    EXPECT_TRUE(neu.erzeugeDatenbank());
    EXPECT_EQ(funktionen(neu), (std::vector<std::string>{"1:Darsteller", "2:Musik"}));
}

TEST_F(KatalogTest, AStoredVersionIsReadAnEmptyOrDamagedOneReplaced) {
    Katalog k(env.u);
    ASSERT_TRUE(k.erzeugeDatenbank());
    DatenVersionSatz v;
    EXPECT_FALSE(k.leseVersion(v));
    EXPECT_EQ(versionsText(k.holeVersion()), "4.0.0.1 - 20070406");
    EXPECT_EQ(leseDatei(k.DatenVersion.pfad()).size(), 28u);
    EXPECT_TRUE(k.leseVersion(v));
    EXPECT_EQ(versionsText(v), "4.0.0.1 - 20070406");
    EXPECT_EQ(versionsText(aktuelleVersion()), "4.0.0.1 - 20070406");
    DatenVersionSatz alt;
    alt.teil[0] = 3;
    alt.teil[1] = 9;
    std::strcpy(alt.datum, "20050101");
    ASSERT_TRUE(k.schreibeVersion(alt));
    EXPECT_EQ(versionsText(k.holeVersion()), "3.9.0.0 - 20050101");
    EXPECT_EQ(versionsText(k.holeVersion()), "3.9.0.0 - 20050101");
    // 27 bytes: no whole record.
    schreibeDatei(k.DatenVersion.pfad(), std::string(27, '\x01'));
    EXPECT_EQ(versionsText(k.holeVersion()), "4.0.0.1 - 20070406");
    EXPECT_EQ(leseDatei(k.DatenVersion.pfad()).size(), 28u);
    // A whole record whose slot is free.
    std::string frei(28, '\x07');
    frei[3] = 0x00;
    schreibeDatei(k.DatenVersion.pfad(), frei);
    EXPECT_FALSE(k.leseVersion(v));
    EXPECT_EQ(versionsText(k.holeVersion()), "4.0.0.1 - 20070406");
    // A missing file cannot be written: the current version stands in.
    echtesDateisystem().loesche(k.DatenVersion.pfad());
    EXPECT_EQ(versionsText(k.holeVersion()), "4.0.0.1 - 20070406");
    EXPECT_FALSE(gibtEs(k.DatenVersion.pfad()));
}

TEST_F(KatalogTest, MissingDataFolderFailsWithoutCrashing) {
    env.u.datenOrdner = env.daten.pfad() + "gibt/es/nicht/";
    Katalog k(env.u);
    EXPECT_FALSE(k.erzeugeDatenbank());
    EXPECT_EQ(k.Genre.letzterFehler(), "2");
    EXPECT_EQ(k.Funktion.selectAll(), nullptr);
}

}  // namespace
}  // namespace dv::test
