// dorvano-cli: validieren, uebersicht and webimport, run as a whole process on a
// catalogue built in the test; the web import against a local HTTP test server.
#include <gtest/gtest.h>

#include <filesystem>

#include "interchange/Austausch.h"
#include "tests/cli/CliProgramm.h"
#include "tests/support/Kvt.h"
#include "tests/support/TestServer.h"

using namespace dv;
using namespace dv::test;
using namespace std::string_literals;

namespace {

// A program folder with the box "Größe" (EAN 4711) whose DVD link has "Pos" 5.
struct Katalog : CliProgramm {
    Katalog() {
        mitApp([](CApplikation& app, FakeBenutzer&, Einstellungen&) {
            const long box = app.db().neueBox("4711", "Größe", 0);
            const long dvd = app.db().neueDvd(box, Zeile9{});
            app.db().neuerFilm(dvd, "Film", 12, 90, 2001);
            Zeile7 link{};
            app.katalog().DVD_Box.scanne([&](const Zeile7& z) { link = z; });
            app.katalog().DVD_Box.update(link.Id, link.Box_Id, link.DVD_Id, 0, 5);
        });
    }
    long boxen() const {
        long b = 0, d = 0, f = 0;
        mitApp([&](CApplikation& app, FakeBenutzer&, Einstellungen&) { app.db().anzahl(b, d, f); });
        return b;
    }
    int pos() const {
        int p = -1;
        mitApp([&](CApplikation& app, FakeBenutzer&, Einstellungen&) {
            app.katalog().DVD_Box.scanne([&](const Zeile7& z) { p = z.Pos; });
        });
        return p;
    }
};

TEST(CliAusgabe, ValidierenFragtSichertUndRepariert) {
    Katalog k;
    // Standard input is no terminal: "Nein".
    EXPECT_TRUE(meldet(k.run({"validieren"}), 1, "Mit der Validierung beginnen? -> Nein"));
    EXPECT_EQ(k.pos(), 5);
    EXPECT_FALSE(gibtEs(k.basis + "Meldungen/db_validate.log"));

    const Lauf lauf = k.run({"validieren"}, "", true);
    EXPECT_TRUE(meldet(lauf, 0, "Datenbank: Die Validierung ist abgeschlossen."));
    EXPECT_NE(lauf.aus.find("(1/3) Normalisiere Objekte von Box 1 / 1\n"), std::string::npos)
        << lauf.aus;
    EXPECT_EQ(k.pos(), 1);
    EXPECT_NE(leseDatei(k.basis + "Meldungen/db_validate.log")
                  .find("Box 1 [Gr\xF6\xDF"
                        "e]"),
              std::string::npos);
    int sicherungen = 0;
    for (const auto& e : std::filesystem::directory_iterator(k.basis + "Backups")) {
        ++sicherungen;
        EXPECT_EQ(e.path().filename().string().rfind("Daten_", 0), 0u);
        EXPECT_TRUE(gibtEs(e.path().string() + "/DVD_Box.dat"));
    }
    EXPECT_EQ(sicherungen, 1);
}

TEST(CliAusgabe, UebersichtMitUndAusEinstellungsdatei) {
    Katalog k;
    const std::string ziel = k.tmp / "Seite.html";
    const std::string ini = k.tmp / "seite.ini";
    const std::string titel =
        "Gr\xC3\xB6\xC3\x9F"
        "e";  // the argument is UTF-8
    Lauf lauf = k.run({"uebersicht", "--vorlage", "Uebersicht.html", "--ziel", ziel, "--titel",
                       titel, "--speichern", ini, "--nicht-oeffnen"});
    ASSERT_EQ(lauf.code, 0) << lauf.err;
    std::string seite = leseDatei(ziel);
    EXPECT_NE(seite.find("<title>Gr\xF6\xDF"
                         "e</title>"),
              std::string::npos);
    EXPECT_NE(seite.find("<h1>\xDC"
                         "berschrift</h1>"),
              std::string::npos);
    EXPECT_NE(seite.find("<div class=\"boxtitel\">Gr\xF6\xDF"
                         "e</div>"),
              std::string::npos);
    EXPECT_NE(leseDatei(ini).find("Vorlage=\"" + k.basis + "Vorlagen/Uebersicht.html\""),
              std::string::npos);

    std::filesystem::remove(ziel);
    lauf = k.run({"uebersicht", "--einstellungen", ini, "--nicht-oeffnen"});
    ASSERT_EQ(lauf.code, 0) << lauf.err;
    EXPECT_EQ(leseDatei(ziel), seite);

    schreibeDatei(ini, "Vorlage=\"x.html\"\n");
    EXPECT_TRUE(meldet(k.run({"uebersicht", "--einstellungen", ini, "--nicht-oeffnen"}), 1,
                       "Fehler...: Die Datei ist fehlerhaft (Code = 2)"));
    EXPECT_EQ(k.run({"uebersicht", "--einstellungen", ini, "--ziel", ziel}).code, 2);
    EXPECT_TRUE(meldet(k.run({"uebersicht", "--ziel", ziel, "--nicht-oeffnen"}), 1,
                       "Fehlende Vorlage, Zielpfad oder Zieldatei."));
}

TEST(CliAusgabe, WebimportListetHoltUndImportiert) {
    // The server offers the box of another catalogue, exported as a box file.
    Katalog quelle;
    TempOrdner srv;
    quelle.mitApp([&](CApplikation& app, FakeBenutzer& nutzer, Einstellungen& e) {
        const long box = app.db().neueBox("5001", "Vom Server", 0);
        app.db().neueDvd(box, Zeile9{});
        Austausch a(app.db(), app.ordner(), nutzer, e);
        echtesDateisystem().erzeugeOrdner(srv / "db/");
        ASSERT_EQ(a.exportiere(box, srv / "db/", SchreibOptionen{}), ExportErgebnis::Exportiert);
    });
    schreibeDatei(srv / "links.ini", "# Import\n1;db/;\n");
    schreibeDatei(srv / "db/ImpDB.kvt",
                  kvt("5001;0;0;0;\"Vom Server\";\n5002;0;0;0;\"Vom Server 2\";\n"));
    TestServer server(srv.pfad());

    Katalog k;
    Lauf lauf = k.run({"webimport", "--url", server.url(), "--titel", "vom server"});
    EXPECT_TRUE(meldet(lauf, 0, "Web-Import: Suche beendet"));
    EXPECT_EQ(lauf.aus, "1\tVom Server\n2\tVom Server 2\n");
    EXPECT_TRUE(meldet(k.run({"webimport", "--url", server.url(), "--ean", "9"}), 1,
                       "Web-Import: Es konnte kein passender Import gefunden werden."));

    lauf = k.run({"--ja", "webimport", "--url", server.url(), "--titel", "Vom", "--auswahl", "1"});
    EXPECT_EQ(lauf.code, 0) << lauf.err;
    EXPECT_EQ(lauf.aus, k.basis + "Updates/5001.box\timportiert\n");
    EXPECT_EQ(k.boxen(), 2);

    // The second hit has no box file on the server.
    EXPECT_TRUE(
        meldet(k.run({"webimport", "--url", server.url(), "--titel", "Vom", "--auswahl", "2"}), 1,
               "<Import-Datei> <Lesefehler>"));
    EXPECT_EQ(k.run({"webimport", "--url", server.url()}).code, 2);
    EXPECT_EQ(k.run({"webimport", "--ean", "1", "--titel", "x"}).code, 2);
    EXPECT_EQ(k.run({"webimport", "--url", server.url(), "--titel", "x", "--auswahl", "1,a"}).code,
              2);
}

}  // namespace
