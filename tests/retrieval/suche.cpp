// The search engine on a small catalogue: matching, folding, pairs, reasons.
#include <gtest/gtest.h>

#include "retrieval/Suche.h"
#include "tests/retrieval/Katalogbau.h"

using namespace dv;
using namespace dv::test;

namespace {

class SucheTest : public ::testing::Test, public Katalogbau {
  protected:
    void SetUp() override {
        matrixBox = box("Matrix Box  ", "4000000000001");
        ASSERT_TRUE(db->aendereBox(matrixBox, "4000000000001", "Matrix Box  ",
                                   eintrag(kTypVerpackung, "Amaray"), 0));
        ASSERT_TRUE(db->schreibeExtras(kTypBoxExtras, matrixBox, {eintrag(kTypExtras, "Booklet")}));
        matrixDvd = dvdMit(matrixBox, "Matrix DVD", 1999, 2);
        matrix = filmMit(matrixDvd, "The Matrix", 16, 1999, 136);
        genres(matrix, {"Action", "SciFi"});
        sprachen(matrix, {{"Deutsch", "DD 5.1"}, {"Englisch", "DTS"}});
        personen(matrix, {{"Reeves", "Keanu", "Darsteller", {"Neo"}},
                          {"Wachowski", "Lana", "Regie", {"1999"}}});

        dramaBox = box("Drama Box", "4000000000002");
        dramaDvd = dvdMit(dramaBox, "Drama DVD", 2005, 6);
        boot = filmMit(dramaDvd, "Das Boot", 12, 2005);
        genres(boot, {"Drama"});
        sprachen(boot, {{"Deutsch", "DTS"}});
        personen(boot, {{"Petersen", "Wolfgang", "Regie"}, {"Reeves", "Keanu", "Kamera"}});
        amelie = filmMit(dramaDvd, "Amelie", 6, 2001);
        genres(amelie, {"Drama",
                        "Kom\xf6"
                        "die"});
        alt = filmMit(dramaDvd, "Drama70", 0, 1970);
        genres(alt, {"Drama"});
        neu16 = filmMit(dramaDvd, "New16", 16, 2010);
    }

    long matrixBox = 0, matrixDvd = 0, matrix = 0, dramaBox = 0, dramaDvd = 0;
    long boot = 0, amelie = 0, alt = 0, neu16 = 0;
};

using Ids = std::vector<long>;

}  // namespace

TEST_F(SucheTest, TitelWirdAlsGanzerWertVerglichen) {
    EXPECT_EQ(treffer(*db, {{3, 1, kOpGleich, 2, "Matrix"}}), Ids{});
    EXPECT_EQ(treffer(*db, {{3, 1, kOpGleich, 2, "*matrix*"}}), Ids{matrix});
    EXPECT_EQ(treffer(*db, {{3, 1, kOpGleich, 2, "  the matrix "}}), Ids{matrix});
    EXPECT_EQ(treffer(*db, {{3, 1, kOpGleich, 2, "?he Matri?"}}), Ids{matrix});
    // With the case switch on, letters must be equal.
    EXPECT_EQ(treffer(*db, {{3, 1, kOpGleich, 2, "*matrix*"}}, true), Ids{});
    EXPECT_EQ(treffer(*db, {{3, 1, kOpGleich, 2, "*Matrix*"}}, true), Ids{matrix});
    // Titel > Matrix is Titel != Matrix: every film.
    EXPECT_EQ(treffer(*db, {{3, 1, kOpGroesser, 2, "The Matrix"}}),
              (Ids{boot, amelie, alt, neu16}));
}

TEST_F(SucheTest, FaltungOhneVorrangUndErsteZeileUnd) {
    // ((Jahr >= 2000 or Genre = Drama) and FSK < 12)
    EXPECT_EQ(treffer(*db, {{3, 4, kOpGroesserGleich, 2, "2000"},
                            {3, 6, kOpGleich, kVerknuepfungOder, "Drama"},
                            {3, 2, kOpKleiner, kVerknuepfungUnd, "12"}}),
              (Ids{amelie, alt}));
    // A first row set to "ODER" still starts from true and joins with AND.
    EXPECT_EQ(treffer(*db, {{3, 1, kOpGleich, kVerknuepfungOder, "Nichts"}}), Ids{});
    // No short cuts: every row is evaluated and adds its reason, also after a
    // result that an OR or an AND could not change any more.
    Suchergebnis e = ergebnis(*db, {{3, 1, 1, 2, "Amelie"},
                                    {3, 6, 1, kVerknuepfungOder, "Drama"},
                                    {3, 1, 1, 2, "Nichts"},
                                    {3, 2, kOpKleiner, 2, "12"}});
    EXPECT_EQ(e.anzahl(), 0u);
    e = ergebnis(*db, {{3, 1, 1, 2, "Amelie"}, {3, 6, 1, kVerknuepfungOder, "Drama"}});
    ASSERT_EQ(e.anzahl(), 3u);
    EXPECT_EQ(e.kopf()->reason, "Genre: <Drama> ");  // Das Boot
    EXPECT_EQ(e.kopf()->next->reason, "Titel: <Amelie> Genre: <Drama> ");
}

TEST_F(SucheTest, GeordneteKriterienUndOperatoren) {
    EXPECT_EQ(treffer(*db, {{3, 2, kOpGleich, 2, "16"}}), (Ids{neu16, matrix}));
    EXPECT_EQ(treffer(*db, {{3, 2, kOpUngleich, 2, "16"}}), (Ids{boot, amelie, alt}));
    EXPECT_EQ(treffer(*db, {{3, 4, kOpKleinerGleich, 2, "2001"}}), (Ids{amelie, alt, matrix}));
    EXPECT_EQ(treffer(*db, {{3, 4, kOpKleiner, 2, "2001"}}), (Ids{alt, matrix}));
    EXPECT_EQ(treffer(*db, {{3, 3, kOpGroesser, 2, "100"}}), Ids{matrix});
    // Non-numeric data reads as 0; an unknown operator yields true.
    EXPECT_EQ(treffer(*db, {{3, 2, kOpGleich, 2, "null"}}), Ids{alt});
    EXPECT_EQ(treffer(*db, {{3, 4, 9, 2, "1"}}).size(), 5u);
    // Alias is ordered: the alias is read as a number.
    EXPECT_EQ(treffer(*db, {{3, 14, kOpGleich, 2, "1999"}}), Ids{matrix});
    EXPECT_EQ(treffer(*db, {{3, 14, kOpGleich, 2, "Neo"}}), Ids{matrix});  // "Neo" reads as 0 too
}

TEST_F(SucheTest, PaareGeltenFuerDenselbenEintrag) {
    // The Matrix has Deutsch with DD 5.1 and Englisch with DTS: no German DTS entry.
    EXPECT_EQ(treffer(*db, {{3, 7, 1, 2, "Deutsch"}, {3, 8, 1, kVerknuepfungPaar, "DTS"}}),
              Ids{boot});
    // Without the pair both films have both values somewhere.
    EXPECT_EQ(treffer(*db, {{3, 7, 1, 2, "Deutsch"}, {3, 8, 1, 2, "DTS"}}), (Ids{boot, matrix}));
    EXPECT_EQ(treffer(*db, {{3, 10, 1, 2, "Reeves"}, {3, 11, 1, kVerknuepfungPaar, "Regie"}}),
              Ids{});
    EXPECT_EQ(treffer(*db, {{3, 10, 1, 2, "*Keanu*"}, {3, 11, 1, kVerknuepfungPaar, "Kamera"}}),
              Ids{boot});
    EXPECT_EQ(treffer(*db, {{3, 7, 2, 2, "Deutsch"}, {3, 8, 1, kVerknuepfungPaar, "DTS"}}),
              Ids{matrix});
    // Titel <=> Jahr cannot be a pair: it is "UND".
    EXPECT_EQ(treffer(*db, {{3, 1, 1, 2, "Das Boot"}, {3, 4, 1, kVerknuepfungPaar, "2000"}}),
              Ids{});
    EXPECT_EQ(treffer(*db, {{3, 1, 1, 2, "Das Boot"}, {3, 4, 1, kVerknuepfungPaar, "2005"}}),
              Ids{boot});

    Suchergebnis e = ergebnis(*db, {{3, 7, 1, 2, "Deutsch"}, {3, 8, 1, kVerknuepfungPaar, "DTS"}});
    ASSERT_EQ(e.anzahl(), 1u);
    EXPECT_EQ(e.kopf()->reason, "Sprache: <Deutsch> <=> Tonformat: <DTS> ");
}

TEST_F(SucheTest, BoxsucheMitPaarenWieUnd) {
    EXPECT_EQ(treffer(*db, {{1, 1, 1, 2, "*box"}, {1, 2, 1, kVerknuepfungPaar, "*2"}}),
              Ids{dramaBox});
    // Boxes come in title order; the trailing blanks of a box title are ignored.
    EXPECT_EQ(treffer(*db, {{1, 1, 1, 2, "*Box"}}), (Ids{dramaBox, matrixBox}));
    EXPECT_EQ(treffer(*db, {{1, 3, 1, 2, "amaray"}}), Ids{matrixBox});
    EXPECT_EQ(treffer(*db, {{1, 4, 1, 2, "Book*"}}), Ids{matrixBox});
    EXPECT_EQ(treffer(*db, {{1, 4, 2, 2, "Book*"}}), Ids{dramaBox});
}

TEST_F(SucheTest, DvdsuchenUndGruende) {
    Suchergebnis e =
        ergebnis(*db, {{2, 3, kOpGroesserGleich, 2, "6"}, {2, 2, kOpGleich, 2, "2005"}});
    ASSERT_EQ(e.anzahl(), 1u);
    EXPECT_EQ(e.kopf()->dvdId, dramaDvd);
    EXPECT_EQ(e.kopf()->reason, "RC: 2,3 <6> Jahr: <2005> ");
    EXPECT_EQ(e.statusZeile(), "Dvds: 1 Treffer");
}

TEST_F(SucheTest, GrundWirdEinmalGenanntUndBegrenzt) {
    Suchergebnis e = ergebnis(*db, {{3, 1, 1, 2, "*Matrix"},
                                    {3, 1, 1, kVerknuepfungOder, "The*"},
                                    {3, 6, 1, 2, "Sci*"},
                                    {3, 9, 2, 2, "x"}});
    ASSERT_EQ(e.anzahl(), 1u);
    EXPECT_EQ(e.kopf()->reason, "Titel: <The Matrix> Genre: <SciFi> Untertitel: <> ");

    // Long values: pieces that would pass 256 characters are dropped.
    const std::string lang(60, 'L');
    std::vector<long> ids;
    std::vector<std::string> muster;
    for (char c = 'a'; c < 'g'; ++c) {
        ids.push_back(eintrag(kTypGenre, (lang + c).c_str()));
        muster.push_back(std::string("*") + c);
    }
    ASSERT_TRUE(db->schreibeFilmObjekte(neu16, kTypGenre, ids));
    std::vector<Zeile> zeilen;
    for (const std::string& m : muster) zeilen.push_back({3, 6, 1, 2, m.c_str()});
    Suchergebnis e2 = ergebnis(*db, zeilen);
    ASSERT_EQ(e2.anzahl(), 1u);
    const std::string& g = e2.kopf()->reason;
    EXPECT_LE(g.size(), kGrundMax);
    EXPECT_EQ(g.size(), 3u * (lang.size() + 1 + 10));  // three whole pieces "Genre: <...> "
    EXPECT_NE(g.find("Genre: <" + lang + "c> "), std::string::npos);
    EXPECT_EQ(g.find(lang + "d"), std::string::npos);
}

TEST_F(SucheTest, SeitentexteImGrundMitGanzemWert) {
    // A side text is named whole, line breaks included, however far past the
    // first line the match lies; one that would pass 256 characters is not named.
    const std::string inhalt =
        "Neo erwacht in einer Kapsel.\r\nEr lernt, dass die Welt, die er "
        "kennt, nur eine Simulation ist, und folgt Morpheus.";
    ASSERT_GT(inhalt.size(), 60u);
    ASSERT_TRUE(db->schreibeInhalt(matrix, inhalt));
    ASSERT_TRUE(db->schreibeKommentar(matrix, std::string(250, 'k')));
    ASSERT_TRUE(db->schreibeKommentar(boot, "kurz"));
    Suchergebnis e = ergebnis(*db, {{3, 12, 1, 2, "*morpheus*"}, {3, 13, 1, 2, "k*"}});
    ASSERT_EQ(e.anzahl(), 1u);
    EXPECT_EQ(e.kopf()->reason, "Inhalt: <" + inhalt + "> ");
    e = ergebnis(*db, {{3, 13, 1, 2, "k*"}, {3, 1, 1, 2, "*"}});
    ASSERT_EQ(e.anzahl(), 2u);
    EXPECT_EQ(e.kopf()->reason, "Kommentar: <kurz> Titel: <Das Boot> ");
    EXPECT_EQ(e.kopf()->next->reason, "Titel: <The Matrix> ");
}

TEST_F(SucheTest, FilmAufZweiDvdsNurEinTrefferUndAufloesung) {
    const long zweite = dvdMit(matrixBox, "Zweite", 2000, 2);
    ASSERT_GT(k().DVD_Film.insert(zweite, matrix, 9), 0);
    SuchOptionen o;
    std::vector<std::pair<int, int>> schritte;
    o.fortschritt = [&](int i, int n) { schritte.emplace_back(i, n); };
    Suchergebnis e = ergebnis(*db, {{3, 1, 1, 2, "*Matrix*"}}, o);
    ASSERT_EQ(e.anzahl(), 1u);
    ASSERT_EQ(schritte.size(), 5u);  // one step per film, each film once
    EXPECT_EQ(schritte.back(), std::make_pair(5, 5));

    std::vector<int> aufloesung;
    loeseAuf(e, [&](int i, int) { aufloesung.push_back(i); });
    EXPECT_EQ(aufloesung, std::vector<int>{1});
    ASSERT_NE(e.kopf()->film, nullptr);
    EXPECT_EQ(e.kopf()->film->Id, matrix);
    EXPECT_EQ(trefferTitel(*e.kopf()), "The Matrix");
    EXPECT_EQ(trefferAlsText(e), "The Matrix\tTitel: <The Matrix> \tFilm\r\n");
}

TEST_F(SucheTest, FortschrittUeberBenutzerUndFreigabe) {
    Fortschritt f = fortschrittUeber(benutzer, "Suche");
    for (int i = 1; i <= 1000; ++i) f(i, 1000);
    EXPECT_LE(benutzer.fortschritte.size(), 101u);
    EXPECT_GE(benutzer.fortschritte.size(), 100u);
    {
        Suchergebnis e = ergebnis(*db, {{3, 6, 1, 2, "Drama"}});
        loeseAuf(e);
        EXPECT_EQ(e.anzahl(), 3u);
        Suchergebnis verschoben = std::move(e);
        EXPECT_EQ(verschoben.anzahl(), 3u);
        EXPECT_EQ(e.anzahl(), 0u);
    }
    EXPECT_TRUE(spur.offen().empty());
}

TEST_F(SucheTest, LeereOderFremdeSuche) {
    KriterienListe leer;
    EXPECT_EQ(suche(*db, leer, {}).anzahl(), 0u);
    EXPECT_EQ(treffer(*db, {{7, 1, 1, 2, "*"}}), Ids{});
    // An unknown criterion reads as the number 0.
    EXPECT_EQ(treffer(*db, {{3, 40, kOpGleich, 2, "0"}}).size(), 5u);
    EXPECT_EQ(treffer(*db, {{3, 40, kOpGleich, 2, "1"}}).size(), 0u);
}
