// Playing-time texts, information texts, reason strings and tag files.

#include "domain/Beschreibung.h"
#include "domain/Tags.h"
#include "tests/domain/DomainUmgebung.h"
#include "tests/support/FakeBenutzer.h"

namespace dv {
namespace {

using test::gibtEs;
using test::leseDatei;
using test::schreibeDatei;

class BeschreibungTest : public ::testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(u.spur.offen().empty()); }
    test::DomainUmgebung u;
};

TEST_F(BeschreibungTest, SpieldauerAnDenGrenzen) {
    struct Fall {
        unsigned minuten;
        const char* text;
    };
    const Fall faelle[] = {
        {0, "Alle Filme dieser Box haben eine Gesamtspieldauer von 0 Minuten."},
        {1, "Alle Filme dieser Box haben eine Gesamtspieldauer von 1 Minute."},
        {60, "Alle Filme dieser Box haben eine Gesamtspieldauer von 60 Minuten."},
        {61,
         "Alle Filme dieser Box haben eine Gesamtspieldauer von 61 Minuten.\r\n"
         "(1 Stunde, 1 Minute)"},
        {120,
         "Alle Filme dieser Box haben eine Gesamtspieldauer von 120 Minuten.\r\n"
         "(2 Stunden, 0 Minuten)"},
        {181,
         "Alle Filme dieser Box haben eine Gesamtspieldauer von 181 Minuten.\r\n"
         "(3 Stunden, 1 Minute)"},
    };
    for (const Fall& f : faelle) EXPECT_EQ(spieldauerText(kObjektBox, f.minuten), f.text);
    EXPECT_EQ(spieldauerText(kObjektDvd, 62),
              "Alle Filme dieser DVD haben eine Gesamtspieldauer von 62 Minuten.\r\n"
              "(1 Stunde, 2 Minuten)");
    EXPECT_EQ(spieldauerText(kObjektFilm, 1), "Der Film hat eine Spieldauer von 1 Minute.");
}

TEST_F(BeschreibungTest, SpieldauerSummiertDieFilmeNichtDieDvds) {
    const long leer = u.box("Leer");
    EXPECT_EQ(spieldauerText(*u.db, kObjektBox, leer),
              "Alle Filme dieser Box haben eine Gesamtspieldauer von 0 Minuten.");
    const long box = u.box("B");
    const long d1 = u.dvd(box, "1", 500), d2 = u.dvd(box, "2", 500);
    u.film(d1, "a", 30);
    u.film(d1, "b", 31);
    const long c = u.film(d2, "c", 59);
    u.film(d2, "kaputt", -5);  // a damaged length counts nothing
    EXPECT_EQ(spieldauerText(*u.db, kObjektBox, box),
              "Alle Filme dieser Box haben eine Gesamtspieldauer von 120 Minuten.\r\n"
              "(2 Stunden, 0 Minuten)");
    EXPECT_EQ(spieldauerText(*u.db, kObjektDvd, d1),
              "Alle Filme dieser DVD haben eine Gesamtspieldauer von 61 Minuten.\r\n"
              "(1 Stunde, 1 Minute)");
    EXPECT_EQ(spieldauerText(*u.db, kObjektFilm, c),
              "Der Film hat eine Spieldauer von 59 Minuten.");
    EXPECT_EQ(spieldauerText(*u.db, kObjektFilm, 999), "");
    EXPECT_EQ(spieldauerText(*u.db, 4, box), "");

    test::FakeBenutzer benutzer;
    EXPECT_TRUE(zeigeSpieldauer(*u.db, benutzer, kObjektFilm, c));
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].titel, "Gesamtspieldauer");
    EXPECT_EQ(benutzer.meldungen[0].symbol, Symbol::Information);
    EXPECT_FALSE(zeigeSpieldauer(*u.db, benutzer, kObjektDvd, 999));
    EXPECT_EQ(benutzer.meldungen.size(), 1u);
}

TEST_F(BeschreibungTest, InformationstexteVonBoxUndDvd) {
    const long box = u.db->neueBox("4011", "Die Ärzte", u.lookup(kTypVerpackung, "Steelbook"));
    EXPECT_EQ(infoText(*u.db, kObjektBox, box),
              "Information zur DVD-Box \"Die Ärzte\"\r\nBox-ID [1]\r\nEAN:\t\t[4011]\r\n"
              "Verpackungstyp:\t'Steelbook'");
    Zeile9 d{};
    std::strcpy(d.cpText, "Disc 1");
    d.Jahr = 2004;
    d.Laenge = 130;
    d.RC = 0x12;  // regions 2 and 5
    d.SN = 3000000000u;
    d.BytesLow = 7;
    d.BytesHigh = 1;
    d.Formate_Id = static_cast<std::int32_t>(u.lookup(kTypFormat, "DVD-9"));
    const long dvd = u.db->neueDvd(box, d);
    u.db->schreibeExtras(kTypExtras, dvd,
                         {u.lookup(kTypExtras, "Trailer"), u.lookup(kTypExtras, "Making-of")});
    EXPECT_EQ(infoText(*u.db, kObjektDvd, dvd),
              "Information zur DVD \"Disc 1\"\r\nDVD-ID [1]\r\nProduktionsjahr:\t2004\r\n"
              "Gesamtlänge:\t130 Minuten\r\nRegionalcode(s):\t2, 5\r\n"
              "Seriennummer:\t3000000000\r\nBytes Low:\t7\r\nBytes High:\t1\r\n"
              "DVD-Format:\t'DVD-9'\r\nDVD-Extras:\r\n\tTrailer\r\n\tMaking-of");
    EXPECT_EQ(infoText(*u.db, kObjektBox, 99), "");
    EXPECT_EQ(regionalCodes(0), "keiner");
    EXPECT_EQ(regionalCodes(-128), "8");
    EXPECT_EQ(regionalCodes(0xFF), "1, 2, 3, 4, 5, 6, 7, 8");
}

TEST_F(BeschreibungTest, InformationstextEinesFilms) {
    const long film = u.film(u.dvd(u.box("B"), "D"), "Metropolis", 153);
    u.db->aendereFilm(film, 6, 153, 1927);
    u.db->schreibeFilmTitel(film, {"Metropolis", "Metropolis (1927)", {"Die Stadt"}});
    u.db->schreibeFilmObjekte(film, kTypGenre, {u.lookup(kTypGenre, "Stummfilm")});
    u.db->schreibeFilmObjekte(film, kTypBildformat, {u.lookup(kTypBildformat, "4:3")});
    const long de = u.lookup(kTypSprache, "Deutsch");
    u.db->schreibeFilmSprachen(film, {{de, u.lookup(kTypTonformat, "Mono")}});
    u.db->schreibeFilmObjekte(film, kTypUntertitel, {de});
    u.db->schreibeFilmPersonen(film, {{u.person("Lang", "Fritz"), 2, {}},
                                      {u.person("Helm", "Brigitte"), 1, {"Maria"}},
                                      {u.person("Abel", "", 2), 1, {}}});
    u.db->schreibeInhalt(film, "Eine Stadt der Zukunft.");
    EXPECT_EQ(infoText(*u.db, kObjektFilm, film),
              "Information zum Film \"Metropolis\"\r\nFilm-ID [1]\r\n"
              "Originaltitel:\t\"Metropolis (1927)\"\r\nWeitere Titel:\r\n\t\"Die Stadt\"\r\n"
              "Freigabealter:\t6\r\nProduktionsjahr:\t1927\r\nGesamtlänge:\t153 Minuten\r\n"
              "Bildformate:\r\n\t4:3\r\nGenre:\r\n\tStummfilm\r\nSprachen:\r\n\tDeutsch / Mono\r\n"
              "Untertitel:\r\n\tDeutsch\r\n"
              "Film-Personen:\r\n\tRegie:\r\n\t\tFritz Lang\r\n\tDarsteller:\r\n"
              "\t\tBrigitte Helm alias \"Maria\"\r\n\t\tAbel (2)\r\n"
              "Inhaltsbeschreibung:\r\nEine Stadt der Zukunft.\r\nKommentar:");
}

TEST_F(BeschreibungTest, NamenUndLoeschfrage) {
    const long box = u.box("Die Box");
    const long dvd = u.dvd(box, "Die Dvd");
    const long film = u.film(dvd, "Der Film");
    EXPECT_EQ(loeschFrage(*u.db, kObjektBox, box), "Box \"Die Box\" löschen?");
    EXPECT_EQ(loeschFrage(*u.db, kObjektDvd, dvd), "Dvd \"Die Dvd\" löschen?");
    EXPECT_EQ(loeschFrage(*u.db, kObjektFilm, film), "Film \"Der Film\" löschen?");
    EXPECT_EQ(objektName(*u.db, kObjektFilm, 99), "");
    EXPECT_EQ(objektName(*u.db, 0, box), "");
}

TEST_F(BeschreibungTest, Gruende) {
    std::string g = formatiere(gruende::kBezeichnung, "Alien");
    haengeGrundAn(g, formatiere(gruende::kSpracheTonformat, "Deutsch", "DTS"));
    haengeGrundAn(g, formatiere(gruende::kRC, regionalCodes(2).c_str(), 2));
    haengeGrundAn(g, formatiere(gruende::kSN, 4294967295u));
    EXPECT_EQ(g,
              "Bezeichnung: <Alien>Sprache: <Deutsch> <=> Tonformat: <DTS>RC: 2 <2>"
              "SN: <4294967295>");
    const std::string lang(3000, 'x');
    EXPECT_EQ(formatiere(gruende::kLookup, "Genre", lang.c_str()).size(), 3000u + 9u);
}

TEST_F(BeschreibungTest, TagDateien) {
    Dateisystem& fs = echtesDateisystem();
    const std::string& o = u.ordner.tags;
    EXPECT_EQ(tagDateiPfad("T/", 3, 1234), "T/3_1234.txt");
    EXPECT_FALSE(hatTags(fs, o, kObjektFilm, 7));
    EXPECT_TRUE(leseTags(fs, o, kObjektFilm, 7).empty());

    ASSERT_TRUE(schreibeTags(fs, o, kObjektFilm, 7, {"verliehen an Jörg", "zwei\nzeilig"}));
    EXPECT_EQ(leseDatei(o + "3_7.txt"), "verliehen an Jörg\nzwei zeilig\n");
    EXPECT_TRUE(hatTags(fs, o, kObjektFilm, 7));
    EXPECT_FALSE(hatTags(fs, o, kObjektDvd, 7));
    EXPECT_EQ(leseTags(fs, o, kObjektFilm, 7),
              (std::vector<std::string>{"verliehen an Jörg", "zwei zeilig"}));

    // Windows line ends, a last line without one, and a line longer than the reader's buffer.
    schreibeDatei(o + "1_2.txt", "a\r\nb\n\n" + std::string(1030, 'x') + "\nletzte");
    const auto tags = leseTags(fs, o, kObjektBox, 2);
    ASSERT_EQ(tags.size(), 6u);
    EXPECT_EQ(tags[0], "a");
    EXPECT_EQ(tags[2], "");
    EXPECT_EQ(tags[3].size(), 1024u);
    EXPECT_EQ(tags[4], "xxxxxx");
    EXPECT_EQ(tags[5], "letzte");

    // Writing no tags removes the file.
    ASSERT_TRUE(schreibeTags(fs, o, kObjektFilm, 7, {}));
    EXPECT_FALSE(gibtEs(o + "3_7.txt"));
    EXPECT_FALSE(hatTags(fs, o, kObjektFilm, 7));

    int typ = 0;
    long id = 0;
    EXPECT_TRUE(zerlegeTagDateiname("3_1234.txt", typ, id));
    EXPECT_EQ(typ, 3);
    EXPECT_EQ(id, 1234);
    for (const char* falsch : {"4_1.txt", "3-1.txt", "3_.txt", "x_1.txt", "3_1", "_1.txt"})
        EXPECT_FALSE(zerlegeTagDateiname(falsch, typ, id)) << falsch;
}

}  // namespace
}  // namespace dv
