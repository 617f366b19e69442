// dorvano-cli: validieren, uebersicht and webimport, run as a whole process on a
// catalogue built in the test; the web import against a local HTTP test server.
#include <gtest/gtest.h>
#include <zlib.h>

#include <filesystem>

#include "app/CApplikation.h"
#include "interchange/Austausch.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/Prozess.h"
#include "tests/support/TempOrdner.h"
#include "tests/support/TestServer.h"

using namespace dv;
using namespace dv::test;
using namespace std::string_literals;

namespace {

struct Katalog {
    // A program folder with the box "Größe" (EAN 4711) whose DVD link has "Pos" 5.
    Katalog() {
        FakeBenutzer nutzer;
        Einstellungen e(tmp / "intern.conf");
        CApplikation app(nutzer, e);
        EXPECT_TRUE(app.starte(basis));
        const long box = app.db().neueBox("4711", "Größe", 0);
        const long dvd = app.db().neueDvd(box, Zeile9{});
        app.db().neuerFilm(dvd, "Film", 12, 90, 2001);
        app.katalog().DVD_Box.scanne([&](const Zeile7& z) { link = z; });
        app.katalog().DVD_Box.update(link.Id, link.Box_Id, link.DVD_Id, 0, 5);
    }
    Lauf run(std::vector<std::string> args, const std::string& eingabe = std::string()) {
        args.insert(args.begin(), {"--basis", basis});
        return cli(args, tmp / "cfg", eingabe);
    }
    long boxen() {
        FakeBenutzer nutzer;
        Einstellungen e(tmp / "intern.conf");
        CApplikation app(nutzer, e);
        app.starte(basis);
        long b = 0, d = 0, f = 0;
        app.db().anzahl(b, d, f);
        return b;
    }
    int pos() {
        FakeBenutzer nutzer;
        Einstellungen e(tmp / "intern.conf");
        CApplikation app(nutzer, e);
        app.starte(basis);
        int p = -1;
        app.katalog().DVD_Box.scanne([&](const Zeile7& z) { p = z.Pos; });
        return p;
    }
    TempOrdner tmp;
    std::string basis = tmp / "basis/";
    Zeile7 link{};
};

TEST(CliAusgabe, ValidierenFragtSichertUndRepariert) {
    Katalog k;
    Lauf lauf = k.run({"validieren"});  // standard input is no terminal: "Nein"
    EXPECT_EQ(lauf.code, 1);
    EXPECT_NE(lauf.err.find("Mit der Validierung beginnen? -> Nein"), std::string::npos) << lauf.err;
    EXPECT_EQ(k.pos(), 5);
    EXPECT_FALSE(gibtEs(k.basis + "Meldungen/db_validate.log"));

    lauf = k.run({"--ja", "validieren"});
    EXPECT_EQ(lauf.code, 0) << lauf.err;
    EXPECT_NE(lauf.aus.find("(1/3) Normalisiere Objekte von Box 1 / 1\n"), std::string::npos) << lauf.aus;
    EXPECT_NE(lauf.err.find("Datenbank: Die Validierung ist abgeschlossen."), std::string::npos);
    EXPECT_EQ(k.pos(), 1);
    EXPECT_NE(leseDatei(k.basis + "Meldungen/db_validate.log").find("Box 1 [Gr\xF6\xDF" "e]"),
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
    const std::string titel = "Gr\xC3\xB6\xC3\x9F" "e";  // the argument is UTF-8
    Lauf lauf = k.run({"uebersicht", "--vorlage", "Uebersicht.html", "--ziel", ziel, "--titel", titel,
                       "--speichern", ini, "--nicht-oeffnen"});
    ASSERT_EQ(lauf.code, 0) << lauf.err;
    std::string seite = leseDatei(ziel);
    EXPECT_NE(seite.find("<title>Gr\xF6\xDF" "e</title>"), std::string::npos);
    EXPECT_NE(seite.find("<h1>\xDC" "berschrift</h1>"), std::string::npos);
    EXPECT_NE(seite.find("<div class=\"boxtitel\">Gr\xF6\xDF" "e</div>"), std::string::npos);
    EXPECT_NE(leseDatei(ini).find("Vorlage=\"" + k.basis + "Vorlagen/Uebersicht.html\""), std::string::npos);

    std::filesystem::remove(ziel);
    lauf = k.run({"uebersicht", "--einstellungen", ini, "--nicht-oeffnen"});
    ASSERT_EQ(lauf.code, 0) << lauf.err;
    EXPECT_EQ(leseDatei(ziel), seite);

    schreibeDatei(ini, "Vorlage=\"x.html\"\n");
    lauf = k.run({"uebersicht", "--einstellungen", ini, "--nicht-oeffnen"});
    EXPECT_EQ(lauf.code, 1);
    EXPECT_NE(lauf.err.find("Fehler...: Die Datei ist fehlerhaft (Code = 2)"), std::string::npos) << lauf.err;

    lauf = k.run({"uebersicht", "--einstellungen", ini, "--ziel", ziel});
    EXPECT_EQ(lauf.code, 2);
    lauf = k.run({"uebersicht", "--ziel", ziel, "--nicht-oeffnen"});
    EXPECT_EQ(lauf.code, 1);
    EXPECT_NE(lauf.err.find("Fehlende Vorlage, Zielpfad oder Zieldatei."), std::string::npos) << lauf.err;
}

std::string kvt(const std::string& text) {
    uLongf n = compressBound(static_cast<uLong>(text.size()));
    std::string gepackt(n, '\0');
    compress(reinterpret_cast<Bytef*>(gepackt.data()), &n, reinterpret_cast<const Bytef*>(text.data()),
             static_cast<uLong>(text.size()));
    gepackt.resize(n);
    std::string d = "KVT\0\0"s;
    for (int i = 0; i < 4; ++i) d += static_cast<char>((text.size() >> (8 * i)) & 0xFF);
    return d + gepackt;
}

TEST(CliAusgabe, WebimportListetHoltUndImportiert) {
    // The server offers the box of another catalogue, exported as a box file.
    Katalog quelle;
    TempOrdner srv;
    {
        FakeBenutzer nutzer;
        Einstellungen e(quelle.tmp / "intern.conf");
        CApplikation app(nutzer, e);
        ASSERT_TRUE(app.starte(quelle.basis));
        const long box = app.db().neueBox("5001", "Vom Server", 0);
        app.db().neueDvd(box, Zeile9{});
        Austausch a(app.db(), app.ordner(), nutzer, e);
        echtesDateisystem().erzeugeOrdner(srv / "db/");
        ASSERT_EQ(a.exportiere(box, srv / "db/", SchreibOptionen{}), ExportErgebnis::Exportiert);
    }
    schreibeDatei(srv / "links.ini", "# Import\n1;db/;\n");
    schreibeDatei(srv / "db/ImpDB.kvt", kvt("5001;0;0;0;\"Vom Server\";\n5002;0;0;0;\"Vom Server 2\";\n"));
    TestServer server(srv.pfad());

    Katalog k;
    Lauf lauf = k.run({"webimport", "--url", server.url(), "--titel", "vom server"});
    EXPECT_EQ(lauf.code, 0) << lauf.err;
    EXPECT_EQ(lauf.aus, "1\tVom Server\n2\tVom Server 2\n");
    EXPECT_NE(lauf.err.find("Web-Import: Suche beendet"), std::string::npos);

    lauf = k.run({"webimport", "--url", server.url(), "--ean", "9"});
    EXPECT_EQ(lauf.code, 1);
    EXPECT_NE(lauf.err.find("Web-Import: Es konnte kein passender Import gefunden werden."), std::string::npos);

    lauf = k.run({"--ja", "webimport", "--url", server.url(), "--titel", "Vom", "--auswahl", "1"});
    EXPECT_EQ(lauf.code, 0) << lauf.err;
    EXPECT_EQ(lauf.aus, k.basis + "Updates/5001.box\timportiert\n");
    EXPECT_EQ(k.boxen(), 2);

    // The second hit has no box file on the server.
    lauf = k.run({"webimport", "--url", server.url(), "--titel", "Vom", "--auswahl", "2"});
    EXPECT_EQ(lauf.code, 1);
    EXPECT_NE(lauf.err.find("<Import-Datei> <Lesefehler>"), std::string::npos) << lauf.err;

    EXPECT_EQ(k.run({"webimport", "--url", server.url()}).code, 2);
    EXPECT_EQ(k.run({"webimport", "--ean", "1", "--titel", "x"}).code, 2);
    EXPECT_EQ(k.run({"webimport", "--url", server.url(), "--titel", "x", "--auswahl", "1,a"}).code, 2);
}

}  // namespace
