// dorvano-cli as a whole process: suchen, suche-speichern, tags, stempeltags, vormerk.
#include <gtest/gtest.h>

#include <memory>
#include <nlohmann/json.hpp>

#include "base/Einstellungen.h"
#include "base/Optionen.h"
#include "base/Ordner.h"
#include "domain/Datenbank.h"
#include "tests/cli/CliProgramm.h"

using namespace dv;
using namespace dv::test;

namespace {

// A program folder with a small catalogue written in-process before the runs.
class CliRetrieval : public ::testing::Test, protected CliProgramm {
  protected:
    void SetUp() override {
        ASSERT_EQ(lauf({"init"}).code, 0);
        ordner.setzeBasis(basis);
        su.datenOrdner = ordner.daten;
        db = std::make_unique<Datenbank>(su, ordner);
        box = db->neueBox("4001", "Box", 0, 0);
        Zeile9 d{};
        std::snprintf(d.cpText, sizeof d.cpText, "DVD");
        dvd = db->neueDvd(box, d);
        abend = film("Abend", 2001, "Drama");
        krabbe = film("Krabbe", 1999, "Drama");
        labyrinth = film("Labyrinth", 2005,
                         "Kom\xf6"
                         "die");
        grab = film(
            "\xdc"
            "ber das Grab",
            2010, "Dramaserie");
    }
    long film(const char* titel, int jahr, const char* genre) {
        const long f = db->neuerFilm(dvd, titel, 12, 90, jahr);
        long g = db->findeLookup(kTypGenre, genre);
        if (g <= 0) g = db->neuesLookup(kTypGenre, genre);
        EXPECT_TRUE(db->schreibeFilmObjekte(f, kTypGenre, {g}));
        return f;
    }
    Lauf lauf(const std::vector<std::string>& args) { return run(args); }
    std::string id(long v) const { return std::to_string(v); }

    Ordner ordner;
    SpeicherUmgebung su;
    std::unique_ptr<Datenbank> db;
    long box = 0, dvd = 0, abend = 0, krabbe = 0, labyrinth = 0, grab = 0;
};

}  // namespace

TEST_F(CliRetrieval, SuchenGibtTrefferUndStatus) {
    Lauf l = lauf({"suchen", "Film", "Titel", "=", "*ab*", "UND", "Genre", "=", "Drama*", "UND",
                   "Jahr", ">=", "2000"});
    EXPECT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(l.aus, "Film\t" + id(abend) +
                         "\tAbend\tTitel: <Abend> Genre: <Drama> Jahr: <2001> \n" + "Film\t" +
                         id(grab) +
                         "\t\xc3\x9c"
                         "ber das Grab\tTitel: <\xc3\x9c"
                         "ber das Grab> "
                         "Genre: <Dramaserie> Jahr: <2010> \nFilme: 2 Treffer\n");

    l = lauf({"suchen", "--json", "Box", "EAN", "!=", "1"});
    ASSERT_EQ(l.code, 0) << l.err;
    const auto j = nlohmann::json::parse(l.aus);
    EXPECT_EQ(j["status"], "Boxen: 1 Treffer");
    ASSERT_EQ(j["treffer"].size(), 1u);
    EXPECT_EQ(j["treffer"][0]["id"], box);
    EXPECT_EQ(j["treffer"][0]["grund"], "EAN: <4001> ");

    // "Länge" as typed on a UTF-8 terminal; no hit still prints the status.
    l = lauf({"suchen", "Film", "L\xc3\xa4nge", ">", "100"});
    EXPECT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(l.aus, "Filme: 0 Treffer\n");
}

TEST_F(CliRetrieval, SuchenMitGrossKleinAusDenOptionen) {
    EXPECT_EQ(lauf({"suchen", "Film", "Titel", "=", "abend"}).aus.substr(0, 5), "Film\t");
    Einstellungen e(tmp / "cfg/Tormel/DORVANO.conf");
    ASSERT_TRUE(e.setOptions(kOptionsStandard | kOptSucheGrossKlein));
    EXPECT_EQ(lauf({"suchen", "Film", "Titel", "=", "abend"}).aus, "Filme: 0 Treffer\n");
}

TEST_F(CliRetrieval, FalscheSuchangaben) {
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"suchen", "Person", "Titel", "=", "x"},
          {"suchen", "Film", "Titl", "=", "x"},
          {"suchen", "Film", "Titel", "==", "x"},
          {"suchen", "Film", "Titel", "=", "x", "UND", "Jahr"},
          {"suchen", "Film", "Titel", "=", "x", "ABER", "Jahr", "=", "1"},
          {"suchen"}}) {
        const Lauf l = lauf(args);
        EXPECT_EQ(l.code, 2) << args.back();
        EXPECT_EQ(l.aus, "");
    }
    EXPECT_NE(lauf({"suchen", "Film", "Titl", "=", "x"}).err.find("Unbekanntes Kriterium: Titl"),
              std::string::npos);
}

TEST_F(CliRetrieval, SucheSpeichernUndAusDateiSuchen) {
    const std::string datei = tmp / "Suche.asc";
    Lauf l = lauf({"suche-speichern", datei, "Film", "Genre", "<=", "Drama", "ODER", "Jahr", ">",
                   "2004", "<=>", "Titel", "=", "K*"});
    ASSERT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(leseDatei(datei),
              "@V1.1\r\n# Suchobjekt\tKriterium\tOperator\tVerkn\xfcpfung\tSuchdaten\t\r\n"
              "3\t6\t1\t2\tDrama\t\r\n3\t4\t3\t3\t2004\t\r\n3\t1\t1\t2\tK*\t\r\n");
    // ((Drama or Jahr > 2004) and Titel = K*)
    l = lauf({"suchen", "--datei", datei});
    EXPECT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(l.aus, "Film\t" + id(krabbe) +
                         "\tKrabbe\tGenre: <Drama> Titel: <Krabbe> \nFilme: 1 Treffer\n");

    // An existing file is replaced only after Yes.
    EXPECT_TRUE(meldet(lauf({"suche-speichern", datei, "Box", "EAN", "=", "1"}), 1,
                       "Warnung: Die Datei existiert bereits."));
    EXPECT_NE(leseDatei(datei).find("Drama"), std::string::npos);
    EXPECT_EQ(lauf({"--ja", "suche-speichern", datei, "Box", "EAN", "=", "1"}).code, 0);
    EXPECT_EQ(leseDatei(datei).find("Drama"), std::string::npos);

    schreibeDatei(datei, "@V1.0\n3\t1\t1\t2\tA*\t\n");
    l = lauf({"suchen", "--datei", datei});
    EXPECT_TRUE(meldet(l, 1, "Versionsfehler: IST-Version:\tV1.0"));
    EXPECT_EQ(l.aus, "");
    EXPECT_EQ(lauf({"suchen", "--datei", tmp / "fehlt.asc"}).code, 1);
}

TEST_F(CliRetrieval, TagsSetzenZeigenSuchenEntfernen) {
    ASSERT_EQ(lauf({"tags", "setzen", "film", id(abend), "Sammler-DVD", "gr\xc3\xbcn"}).code, 0);
    ASSERT_EQ(lauf({"tags", "setzen", "box", id(box), "DVD-Box"}).code, 0);
    Lauf l = lauf({"tags", "zeigen", "3", id(abend)});
    EXPECT_EQ(l.aus, "Sammler-DVD\ngr\xc3\xbcn\n");
    l = lauf({"tags", "suchen", "dvd"});
    EXPECT_EQ(l.aus, "Box\t" + id(box) + "\tBox\tDVD-Box\nFilm\t" + id(abend) +
                         "\tAbend\tSammler-DVD\nGefundene Tags: 2\n");
    l = lauf({"tags", "suchen", "--objekt", "film", "dvd"});
    EXPECT_EQ(l.aus, "Film\t" + id(abend) + "\tAbend\tSammler-DVD\nGefundene Tags: 1\n");

    EXPECT_TRUE(meldet(lauf({"tags", "entfernen-alle", id(box)}), 1,
                       "ihrer Filme entfernt werden? -> Nein"));
    EXPECT_EQ(lauf({"--ja", "tags", "entfernen-alle", id(box)}).code, 0);
    EXPECT_EQ(lauf({"tags", "suchen", "dvd"}).aus, "Gefundene Tags: 0\n");

    EXPECT_EQ(lauf({"tags", "zeigen", "film", "999"}).code, 2);
    EXPECT_EQ(lauf({"tags", "zeigen", "person", "1"}).code, 2);
    EXPECT_EQ(lauf({"tags", "setzen", "film", "x1"}).code, 2);
}

TEST_F(CliRetrieval, Stempeltags) {
    Lauf l = lauf({"stempeltags", "neu", "F", "verliehen"});
    ASSERT_EQ(l.code, 0) << l.err;
    const std::string nurFilm = l.aus.substr(0, l.aus.size() - 1);
    ASSERT_EQ(lauf({"stempeltags", "neu", "BD", "Box oder DVD"}).code, 0);
    EXPECT_EQ(lauf({"stempeltags", "neu", "x", "nichts"}).code, 2);
    EXPECT_EQ(lauf({"stempeltags", "liste"}).aus,
              nurFilm + "\tF\tverliehen\n2\tBD\tBox oder DVD\n");

    EXPECT_EQ(lauf({"stempeltags", "anwenden", nurFilm, "box", id(box)}).code, 1);
    EXPECT_EQ(lauf({"tags", "zeigen", "box", id(box)}).aus, "");
    EXPECT_EQ(lauf({"stempeltags", "anwenden", nurFilm, "film", id(krabbe)}).code, 0);
    EXPECT_EQ(lauf({"tags", "zeigen", "film", id(krabbe)}).aus, "verliehen\n");
    EXPECT_EQ(lauf({"stempeltags", "anwenden", "77", "film", id(krabbe)}).code, 2);

    const std::string datei = tmp / "Stempeltags.asc";
    ASSERT_EQ(lauf({"stempeltags", "export", datei}).code, 0);
    EXPECT_EQ(leseDatei(datei), "@V1.1\r\n# Typ\tText\t\r\nF\tverliehen\r\nBD\tBox oder DVD\r\n");
    ASSERT_EQ(lauf({"stempeltags", "loeschen", nurFilm}).code, 0);
    EXPECT_EQ(lauf({"stempeltags", "loeschen", nurFilm}).code, 2);
    ASSERT_EQ(lauf({"stempeltags", "import", datei}).code, 0);
    EXPECT_EQ(lauf({"stempeltags", "liste"}).aus,
              nurFilm + "\tF\tverliehen\n2\tBD\tBox oder DVD\n3\tBD\tBox oder DVD\n");
}

TEST_F(CliRetrieval, VormerklistenUndMengen) {
    const std::string a = lauf({"vormerk", "neu", "Verleihen"}).aus.substr(0, 1);
    const std::string b = lauf({"vormerk", "neu", "Kaufen"}).aus.substr(0, 1);
    for (long f : {abend, krabbe, abend})
        ASSERT_EQ(lauf({"vormerk", "hinzu", a, "film", id(f)}).code, 0);
    ASSERT_EQ(lauf({"vormerk", "hinzu", b, "film", id(abend)}).code, 0);
    ASSERT_EQ(lauf({"vormerk", "hinzu", b, "box", id(box)}).code, 0);
    EXPECT_EQ(lauf({"vormerk", "hinzu", b, "film", "999"}).code, 2);
    EXPECT_EQ(lauf({"vormerk", "hinzu", "9", "film", id(abend)}).code, 2);

    EXPECT_EQ(lauf({"vormerk", "listen"}).aus, a + "\tVerleihen\n" + b + "\tKaufen\n");
    const std::string A = "Verleihen\tFilm\t" + id(abend) + "\tAbend\n";
    const std::string K = "Verleihen\tFilm\t" + id(krabbe) + "\tKrabbe\n";
    EXPECT_EQ(lauf({"vormerk", "zeigen", a}).aus,
              A + K + A + "Inhalt der Vormerkliste(n) [3 Elemente]\n");
    EXPECT_EQ(lauf({"vormerk", "runter", a, "film", id(abend)}).code, 0);
    EXPECT_EQ(lauf({"vormerk", "zeigen", a}).aus,
              K + A + A + "Inhalt der Vormerkliste(n) [3 Elemente]\n");
    EXPECT_EQ(lauf({"vormerk", "hoch", a, "film", id(krabbe)}).code, 1);
    EXPECT_EQ(lauf({"vormerk", "hoch", a, "box", id(box)}).code, 1);

    EXPECT_EQ(
        lauf({"vormerk", "vereinigen", a, b}).aus,
        K + A + "Kaufen\tBox\t" + id(box) + "\tBox\nInhalt der Vormerkliste(n) [3 Elemente]\n");
    EXPECT_EQ(lauf({"vormerk", "schneiden", a, b}).aus,
              A + A + "Inhalt der Vormerkliste(n) [2 Elemente]\n");
    EXPECT_EQ(lauf({"vormerk", "komplement", a, "--gegen", b}).aus,
              K + A + "Inhalt der Vormerkliste(n) [2 Elemente]\n");
    EXPECT_EQ(lauf({"vormerk", "komplement", a, "--gegen", a}).aus,
              "Inhalt der Vormerkliste(n) [0 Elemente]\n");

    EXPECT_EQ(lauf({"vormerk", "verschieben", a, b, "film", id(krabbe)}).code, 0);
    EXPECT_EQ(lauf({"vormerk", "kopieren", a, b, "film", id(krabbe)}).code, 1);
    EXPECT_EQ(lauf({"vormerk", "umbenennen", b, "Gekauft"}).code, 0);
    EXPECT_EQ(lauf({"vormerk", "zeigen", b}).aus,
              "Gekauft\tFilm\t" + id(abend) + "\tAbend\nGekauft\tBox\t" + id(box) +
                  "\tBox\nGekauft\tFilm\t" + id(krabbe) +
                  "\tKrabbe\nInhalt der Vormerkliste(n) [3 Elemente]\n");
    EXPECT_EQ(lauf({"vormerk", "loeschen", a}).code, 0);
    EXPECT_EQ(lauf({"vormerk", "listen"}).aus, b + "\tGekauft\n");
}

TEST_F(CliRetrieval, VormerkDateienExportUndImport) {
    const std::string a = lauf({"vormerk", "neu", "Liste"}).aus.substr(0, 1);
    ASSERT_EQ(lauf({"vormerk", "hinzu", a, "film", id(grab)}).code, 0);
    ASSERT_EQ(lauf({"vormerk", "hinzu", a, "dvd", id(dvd)}).code, 0);
    const std::string datei = tmp / "Vormerklisten.vml";
    ASSERT_EQ(lauf({"vormerk", "export", datei, a}).code, 0);
    EXPECT_EQ(leseDatei(datei),
              "@V1.1\r\n# N=<Bezeichner>\r\n# <Typ>\t<Box-EAN>\t<Titel>\r\n"
              "N=Liste\r\n3\t4001\t\xdc"
              "ber das Grab\r\n2\t4001\tDVD\r\n");
    ASSERT_EQ(lauf({"vormerk", "import", datei}).code, 0);
    EXPECT_EQ(lauf({"vormerk", "zeigen", "2"}).aus,
              "Liste\tFilm\t" + id(grab) +
                  "\t\xc3\x9c"
                  "ber das Grab\nListe\tDvd\t" +
                  id(dvd) + "\tDVD\nInhalt der Vormerkliste(n) [2 Elemente]\n");

    schreibeDatei(datei, "N=Fremd\n3\t9999\tGibt es nicht\n3\t4001\tAbend\n");
    EXPECT_TRUE(meldet(lauf({"vormerk", "import", datei}), 1,
                       "Es konnten nicht alle Elemente importiert werden!"));
    EXPECT_NE(
        leseDatei(basis + "Meldungen/vormerklisten_import_error.log")
            .find("Nicht importiert: Liste <Fremd>, Typ<Film>, EAN<9999>, Titel<Gibt es nicht>."),
        std::string::npos);
    EXPECT_EQ(lauf({"vormerk", "zeigen", "3"}).aus,
              "Fremd\tFilm\t" + id(abend) + "\tAbend\nInhalt der Vormerkliste(n) [1 Element]\n");
}
