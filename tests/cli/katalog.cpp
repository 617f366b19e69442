// dorvano-cli on the catalogue: liste (text and JSON), anzahl, info, spieldauer,
// neu, loeschen, hoch, runter, kopieren; unknown ids and bad values.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/cli/CliProgramm.h"

using namespace dv::test;

namespace {

class CliKatalog : public ::testing::Test, protected CliProgramm {
  protected:
    Lauf lauf(const std::vector<std::string>& argumente, bool ja = false) {
        return run(argumente, "", ja);
    }
    // Runs and expects exit 0; returns standard output.
    std::string gut(const std::vector<std::string>& argumente, bool ja = false) {
        const Lauf l = lauf(argumente, ja);
        EXPECT_EQ(l.code, 0) << l.err;
        return l.aus;
    }
};

TEST_F(CliKatalog, NeuListeUndAnzahl) {
    EXPECT_EQ(gut({"neu", "box", "--titel", "Zorro", "--ean", "4001"}), "1\t1\t1\n");
    EXPECT_EQ(gut({"neu", "box", "--titel", u(u8"Ärger im Paradies"), "--verpackung", "Steelbook"}),
              "2\t2\t2\n");
    EXPECT_EQ(gut({"neu", "dvd", "2", "--titel", "Bonus", "--jahr", "2004", "--rc", "2", "--format",
                   "DVD-9"}),
              "3\n");
    EXPECT_EQ(gut({"neu", "film", "3", "--titel", "Das Making-of", "--laenge", "25"}), "3\n");
    // Boxes by title (umlauts transcribed), each followed by its DVDs and their films.
    EXPECT_EQ(gut({"liste"}), u(u8"Box\t2\t\tÄrger im Paradies\n"
                                u8"Dvd\t2\t2\tÄrger im Paradies\n"
                                u8"Film\t2\t2\tÄrger im Paradies\n") +
                                  "Dvd\t3\t2\tBonus\n"
                                  "Film\t3\t3\tDas Making-of\n"
                                  "Box\t1\t4001\tZorro\n"
                                  "Dvd\t1\t1\tZorro\n"
                                  "Film\t1\t1\tZorro\n");
    EXPECT_EQ(gut({"anzahl"}), "Boxen: 2\nDvds: 3\nFilme: 3\n");
}

TEST_F(CliKatalog, ListeAlsJson) {
    gut({"neu", "box", "--titel", u(u8"Brücke"), "--ean", "400", "--verpackung", "Digipak"});
    gut({"neu", "dvd", "1", "--titel", "Zwei", "--jahr", "2001", "--laenge", "120", "--rc", "6",
         "--format", "DVD-5"});
    std::filesystem::create_directories(basis + "Tags");
    schreibeDatei(basis + "Tags/1_1.txt", "verliehen\n");
    schreibeDatei(basis + "Cover/1.jpg", "bild");
    // Side files are 8-bit; quotes, backslashes and control characters are escaped.
    schreibeDatei(basis + "Inhalt/1.txt", "Über \"eine\" Brücke\\\tBach\r\n\x01");
    // Every key in the documented order; what was never set is "", 0 or [].
    EXPECT_EQ(nlohmann::ordered_json::parse(gut({"liste", "--json"})),
              nlohmann::ordered_json::parse(u(u8R"({"boxen": [{"id": 1, "ean": "400",
        "titel": "Brücke", "verpackung": "Digipak", "extras": [], "tags": ["verliehen"],
        "cover": "1.jpg", "dvds": [
          {"id": 1, "titel": "Brücke", "jahr": 0, "rc": 0, "opt": 0, "format": "", "sn": 0,
           "bytesLow": 0, "bytesHigh": 0, "laenge": 0, "extras": [], "tags": [], "filme": [
             {"id": 1, "titel": "Brücke", "originaltitel": "", "alternativtitel": "", "fsk": 0,
              "laenge": 0, "jahr": 0, "bildformate": [], "genres": [], "untertitel": [],
              "sprachen": [], "funktionen": [], "personen": [], "inhalt": "Über \"eine\" Brücke\\\tBach\r\n\u0001",
              "kommentar": "", "tags": []}]},
          {"id": 2, "titel": "Zwei", "jahr": 2001, "rc": 6, "opt": 0, "format": "DVD-5", "sn": 0,
           "bytesLow": 0, "bytesHigh": 0, "laenge": 120, "extras": [], "tags": [],
           "filme": []}]}]})")));
}

TEST_F(CliKatalog, InfoUndSpieldauer) {
    gut({"neu", "box", "--titel", "B"});
    gut({"neu", "film", "1", "--titel", "Zwei", "--laenge", "60"});
    gut({"neu", "film", "1", "--titel", "Drei", "--laenge", "1"});
    EXPECT_EQ(gut({"spieldauer", "box", "1"}),
              "Alle Filme dieser Box haben eine Gesamtspieldauer von 61 Minuten.\n"
              "(1 Stunde, 1 Minute)\n");
    EXPECT_EQ(gut({"spieldauer", "3", "3"}), "Der Film hat eine Spieldauer von 1 Minute.\n");
    EXPECT_EQ(gut({"info", "Box", "1"}),
              "Information zur DVD-Box \"B\"\nBox-ID [1]\nEAN:\t\t[]\nVerpackungstyp:\t''\n");
    const std::string film = gut({"info", "film", "2"});
    EXPECT_EQ(film.rfind("Information zum Film \"Zwei\"\nFilm-ID [2]\n", 0), 0u) << film;
    EXPECT_NE(film.find(u(u8"Gesamtlänge:\t60 Minuten\n")), std::string::npos);
}

TEST_F(CliKatalog, UnbekannteIdsUndFalscheWerte) {
    gut({"neu", "box", "--titel", "B"});
    for (const auto& args :
         std::vector<std::vector<std::string>>{{"info", "film", "9"},
                                               {"spieldauer", "dvd", "0"},
                                               {"loeschen", "box", "7"},
                                               {"hoch", "dvd", "x"},
                                               {"info", "kiste", "1"},
                                               {"neu", "dvd", "5", "--titel", "x"},
                                               {"neu", "film", "1", "--titel", "x", "--fsk", "200"},
                                               {"neu", "box", "--titel", std::string(64, 'x')},
                                               {"kopieren", "film", "1", "99"},
                                               {"kopieren", "box", "1", "1"}}) {
        const Lauf l = lauf(args);
        EXPECT_EQ(l.code, 2) << args[0] << ' ' << args[1];
        EXPECT_FALSE(l.err.empty());
    }
    EXPECT_EQ(lauf({"info", "film", "9"}).err, "Kein Objekt vom Typ Film mit der ID 9.\n");
    EXPECT_EQ(gut({"anzahl"}), "Boxen: 1\nDvds: 1\nFilme: 1\n");
}

TEST_F(CliKatalog, LoeschenFragtErst) {
    gut({"neu", "box", "--titel", "Alte Box"});
    schreibeDatei(basis + "Cover/1.jpg", "bild");
    Lauf l = lauf({"loeschen", "box", "1"});
    EXPECT_EQ(l.code, 1);
    EXPECT_EQ(l.err, u(u8"DORVANO: Box \"Alte Box\" löschen? -> Nein\n"));
    EXPECT_EQ(gut({"anzahl"}), "Boxen: 1\nDvds: 1\nFilme: 1\n");
    l = lauf({"loeschen", "box", "1"}, true);
    EXPECT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(l.err, u(u8"DORVANO: Box \"Alte Box\" löschen? -> Ja\n"));
    EXPECT_EQ(gut({"anzahl"}), "Boxen: 0\nDvds: 0\nFilme: 0\n");
    EXPECT_FALSE(gibtEs(basis + "Cover/1.jpg"));

    gut({"neu", "box", "--titel", "Neu"});
    l = lauf({"loeschen", "film", "1"}, true);
    EXPECT_EQ(l.err, u(u8"DORVANO: Film \"Neu\" löschen? -> Ja\n"));
    EXPECT_EQ(gut({"anzahl"}), "Boxen: 1\nDvds: 1\nFilme: 0\n");
}

TEST_F(CliKatalog, HochRunterUndKopieren) {
    gut({"neu", "box", "--titel", "B"});
    gut({"neu", "dvd", "1", "--titel", "Zweite"});
    gut({"neu", "box", "--titel", "Ziel"});
    Lauf l = lauf({"hoch", "dvd", "1"});
    EXPECT_EQ(l.code, 1);
    EXPECT_EQ(l.err, "Die DVD steht bereits an erster Stelle.\n");
    EXPECT_EQ(lauf({"runter", "film", "1"}).code, 1);
    EXPECT_EQ(lauf({"hoch", "box", "1"}).code, 2);
    gut({"runter", "dvd", "1"});
    std::string liste = gut({"liste"});
    EXPECT_LT(liste.find("Dvd\t2\t1\tZweite"), liste.find("Dvd\t1\t1\tB"));

    EXPECT_EQ(gut({"kopieren", "dvd", "1", "2"}), "4\n");
    EXPECT_EQ(gut({"kopieren", "film", "1", "4"}), "4\n");
    liste = gut({"liste"});
    EXPECT_NE(liste.find("Box\t2\t\tZiel\nDvd\t3\t2\tZiel\nFilm\t2\t3\tZiel\n"
                         "Dvd\t4\t2\tB\nFilm\t3\t4\tB\nFilm\t4\t4\tB\n"),
              std::string::npos)
        << liste;
}

}  // namespace
