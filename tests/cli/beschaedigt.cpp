// Damaged records cost what the files cost: link rows that name ids far beyond
// every table are skipped as rows naming missing records are. Every reading
// command runs as a whole process under an address-space limit (setrlimit in the
// child, through the shell's ulimit) and shows the undamaged catalogue.
#include <gtest/gtest.h>

#include "retrieval/Vormerklisten.h"
#include "tests/cli/CliProgramm.h"

using namespace dv;
using namespace dv::test;

namespace {

constexpr long kKaputt = 2111085867;

class CliBeschaedigt : public ::testing::Test, protected CliProgramm {
  protected:
    void SetUp() override {
        mitApp([](CApplikation& app, FakeBenutzer&, Einstellungen&) {
            Datenbank& db = app.db();
            for (const char* titel : {"Alpha", "Beta", "Gamma"}) {
                const long box = db.neueBox("400", titel, db.neuesLookup(kTypVerpackung, "Amaray"));
                Zeile9 d{};
                std::snprintf(d.cpText, sizeof d.cpText, "%s DVD", titel);
                const long dvd = db.neueDvd(box, d);
                const long film = db.neuerFilm(dvd, std::string(titel) + " Film", 12, 90, 2001);
                ASSERT_TRUE(
                    db.schreibeFilmObjekte(film, kTypGenre, {db.neuesLookup(kTypGenre, "Drama")}));
                PersonEintrag p;
                p.person = db.katalog().Person.insert(0, "Lang", "Fritz");
                p.funktion = 2;
                p.alias = {"1927"};
                ASSERT_TRUE(db.schreibeFilmPersonen(film, {p}));
            }
            Vormerklisten v(db);
            const long liste = v.neu("Kaufen");
            v.fuegeHinzu(liste, kObjektFilm, 2);
            v.fuegeHinzu(liste, kObjektBox, 1);
        });
    }

    // Rows naming owners and targets beyond every table, in every link table.
    void beschaedige() {
        mitApp([](CApplikation& app, FakeBenutzer&, Einstellungen&) {
            Katalog& k = app.db().katalog();
            EXPECT_GT(k.DVD_Film.insert(kKaputt, 1, 1), 0);
            EXPECT_GT(k.DVD_Film.insert(1, kKaputt, 2), 0);
            EXPECT_GT(k.DVD_Box.insert(kKaputt, 1, 0, 1), 0);
            EXPECT_GT(k.DVD_Box.insert(2, kKaputt, 0, 2), 0);
            EXPECT_GT(k.Titel.insert(kKaputt, kTitelHaupt, "Geist", 1), 0);
            EXPECT_GT(k.Box_Extras.insert(kKaputt, 1, 1), 0);
            EXPECT_GT(k.DVD_Extras.insert(kKaputt, 1, 1), 0);
            EXPECT_GT(k.Film_Genre.insert(kKaputt, 1, 1), 0);
            EXPECT_GT(k.Film_Genre.insert(3, kKaputt, 2), 0);
            EXPECT_GT(k.Film_Bildformat.insert(kKaputt, 1, 1), 0);
            EXPECT_GT(k.Film_Untertitel.insert(kKaputt, 1, 1), 0);
            EXPECT_GT(k.Film_Fkt.insert(kKaputt, 1, 1), 0);
            EXPECT_GT(k.Film_Sprachen.insert(kKaputt, 1, 1, 1), 0);
            EXPECT_GT(k.Film_Person.insert(kKaputt, 1, 1, 1), 0);
            EXPECT_GT(k.Film_Person.insert(1, kKaputt, 1, 2), 0);
            EXPECT_GT(k.Film_Alias.insert(kKaputt, 1, 1), 0);
            EXPECT_GT(k.Film_Alias.insert(1, kKaputt, 2), 0);
            EXPECT_GT(k.Vormerk2.insert(1, kObjektFilm, kKaputt, 3), 0);
            EXPECT_GT(k.Vormerk2.insert(kKaputt, kObjektBox, 1, 1), 0);
        });
    }

    // dorvano-cli with at most 512 MiB of address space.
    Lauf begrenzt(const std::vector<std::string>& argumente) const {
        std::vector<std::string> a = {"-c", "ulimit -v 524288 && exec \"$0\" \"$@\"",
                                      std::string(DORVANO_BIN_DIR) + "/dorvano-cli", "--basis",
                                      basis};
        a.insert(a.end(), argumente.begin(), argumente.end());
        return fuehreAus(
            "/bin/sh", a, "",
            {"XDG_CONFIG_HOME=" + tmp / "cfg", "DORVANO_BASIS=", "DORVANO_NICHT_OEFFNEN=1"});
    }
};

TEST_F(CliBeschaedigt, LesendeBefehleZeigenDenUnbeschaedigtenKatalog) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "AddressSanitizer reserves more address space than the limit allows";
#endif
    const std::vector<std::vector<std::string>> befehle = {
        {"liste"},
        {"liste", "--json"},
        {"suchen", "Film", "Titel", "=", "*", "UND", "Genre", "=", "Drama", "UND", "Person", "=",
         "Lang", "<=>", "Funktion", "=", "*"},
        {"suchen", "Film", "Alias", "=", "1927", "ODER", "Bildformat", "=", "*", "ODER",
         "Untertitel", "=", "*", "ODER", "Sprache", "=", "*"},
        {"suchen", "Box", "Extras", "!=", "*", "UND", "Verpackung", "=", "Amaray"},
        {"suchen", "Dvd", "Extras", "!=", "*"},
        {"vormerk", "zeigen", "1"},
        {"xml", "box", "1", "--unterobjekte"},
        {"anzahl"}};
    std::vector<Lauf> vorher;
    for (const auto& b : befehle) {
        vorher.push_back(begrenzt(b));
        ASSERT_EQ(vorher.back().code, 0) << b[0] << ": " << vorher.back().err;
    }
    EXPECT_NE(vorher[0].aus.find("Film\t3\t3\tGamma Film"), std::string::npos) << vorher[0].aus;
    EXPECT_NE(vorher[2].aus.find("Filme: 3 Treffer"), std::string::npos) << vorher[2].aus;
    beschaedige();
    // The watch list shows an entry of a missing film as it shows any such entry.
    vorher[6].aus = "Kaufen\tFilm\t2\tBeta Film\nKaufen\tBox\t1\tAlpha\nKaufen\tFilm\t" +
                    std::to_string(kKaputt) + "\t\nInhalt der Vormerkliste(n) [3 Elemente]\n";
    for (std::size_t i = 0; i < befehle.size(); ++i) {
        const Lauf l = begrenzt(befehle[i]);
        EXPECT_EQ(l.code, 0) << befehle[i][0] << ": " << l.err;
        EXPECT_EQ(l.aus, vorher[i].aus) << befehle[i][0];
    }
    // Writing and whole-collection commands get through as well.
    for (const std::vector<std::string>& b : {std::vector<std::string>{"--ja", "validieren"},
                                              {"uebersicht", "--vorlage", "Uebersicht.html",
                                               "--ziel", tmp / "seite.html", "--nicht-oeffnen"},
                                              {"alle-exportieren", tmp.pfad()}}) {
        const Lauf l = begrenzt(b);
        EXPECT_EQ(l.code, 0) << b[0] << b[1] << ": " << l.err;
    }
    EXPECT_EQ(begrenzt({"liste"}).aus, vorher[0].aus);
}

}  // namespace
