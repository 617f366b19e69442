// The web import against a real HTTP server on 127.0.0.1: the result codes and
// their messages, the three searches with the hit cap and the EAN rule, the
// selection, downloads that fail in transit, and hostile server data.

#include <gtest/gtest.h>

#include "retrieval/WebImport.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/FehlerDateisystem.h"
#include "tests/support/Kvt.h"
#include "tests/support/TempOrdner.h"
#include "tests/support/TestServer.h"

namespace dv {
namespace {

using test::TestServer;

using test::kvt;

// Reads in the working folder fail for one file name (the download itself works).
class LesesperreDateisystem : public test::FehlerDateisystem {
  public:
    std::string gesperrt;
    std::unique_ptr<Datei> oeffne(const std::string& pfad, OeffnenModus modus,
                                  int* fehler) override {
        if (modus == OeffnenModus::Lesen && !gesperrt.empty() && pfad.size() >= gesperrt.size() &&
            pfad.compare(pfad.size() - gesperrt.size(), gesperrt.size(), gesperrt) == 0)
            return nullptr;
        return FehlerDateisystem::oeffne(pfad, modus, fehler);
    }
};

class WebImportTest : public ::testing::Test {
  protected:
    WebImportTest() : server(srv.pfad()), wi(fs, benutzer, arbeit / "Updates/") {
        wi.grenzen.verbindenSekunden = 2;
        wi.grenzen.stillstandSekunden = 1;
        wi.grenzen.gesamtSekunden = 10;
        wi.grenzen.maxBytes = 1 << 20;
    }
    void links(const std::string& text) { test::schreibeDatei(srv / "links.ini", text); }
    void index(const std::string& db, const std::string& text) {
        echtesDateisystem().erzeugeOrdner(srv / db);
        test::schreibeDatei(srv / (db + "ImpDB.kvt"), kvt(text));
    }
    void box(const std::string& db, const std::string& ean) {
        test::schreibeDatei(srv / (db + ean + ".box"), "BOX " + ean);
    }
    WebImportErgebnis titel(const std::string& t) {
        WebImportSuche s;
        s.titel = t;
        return wi.fuehreAus(server.url(), s);
    }
    // The messages shown since the last call, without the closing "Suche beendet"
    // (checked once here).
    std::vector<std::string> meldungen() {
        std::vector<std::string> v;
        for (const auto& m : benutzer.meldungen) {
            EXPECT_EQ(m.titel, "Web-Import");
            v.push_back(m.text);
        }
        benutzer.meldungen.clear();
        EXPECT_FALSE(v.empty());
        if (!v.empty()) {
            EXPECT_EQ(v.back(), "Suche beendet");
            v.pop_back();
        }
        return v;
    }

    test::TempOrdner srv, arbeit;
    TestServer server;
    LesesperreDateisystem fs;
    test::FakeBenutzer benutzer;
    WebImport wi;
};

using Texte = std::vector<std::string>;

TEST_F(WebImportTest, FindetWaehltUndLaedt) {
    links("# Import-Datenbanken\n1;db1/;\n2;db2\\;\n");
    index(
        "db1/",
        "# EAN;SN;Low;High;Titel\n4001;1;2;3;\"Alien\";\n4002;0;0;0;\"Aliens; Die Rückkehr\";\r\n");
    index("db2/", "5001;7;8;9;\"Heat\";\n");
    box("db1/", "4002");
    benutzer.auswahlen.push_back({1});

    const WebImportErgebnis e = titel("alien");
    EXPECT_EQ(e.code, 2);
    ASSERT_EQ(e.treffer.size(), 2u);
    EXPECT_EQ(e.treffer[1].titel, "Aliens; Die Rückkehr");
    EXPECT_EQ(e.treffer[1].EAN, "4002");
    EXPECT_EQ(e.treffer[0].SN, 1u);
    EXPECT_EQ(e.treffer[0].BytesHigh, 3u);
    EXPECT_TRUE(e.treffer[1].selected);
    EXPECT_EQ(e.dateien, Texte{arbeit / "Updates/4002.box"});
    EXPECT_EQ(test::leseDatei(arbeit / "Updates/4002.box"), "BOX 4002");

    ASSERT_EQ(benutzer.auswahlDialoge.size(), 1u);
    EXPECT_EQ(benutzer.auswahlDialoge[0].titel, "Web-Import Auswahl (2)");
    EXPECT_EQ(benutzer.auswahlDialoge[0].text, "BoxTitel");
    EXPECT_EQ(benutzer.auswahlEintraege[0], (Texte{"Alien", "Aliens; Die Rückkehr"}));
    EXPECT_TRUE(meldungen().empty());
    // The index is kept unpacked; the packed file is gone.
    EXPECT_EQ(test::leseDatei(arbeit / "Updates/ImpDB.ini"), "5001;7;8;9;\"Heat\";\n");
    EXPECT_FALSE(test::gibtEs(arbeit / "Updates/ImpDB.kvt"));
    EXPECT_EQ(server.anfragen(),
              (Texte{"links.ini", "db1/ImpDB.kvt", "db2/ImpDB.kvt", "db1/4002.box"}));

    int importiert = 0;
    EXPECT_EQ(importiereWebDateien(
                  e, [&](const std::string& p) { return p == e.dateien[0] && ++importiert; }),
              1);
}

TEST_F(WebImportTest, NichtsGefundenUndLeereLinkliste) {
    links("# nur Kommentare\n");
    EXPECT_EQ(titel("x").code, 0);
    EXPECT_EQ(meldungen(), Texte{"Es konnte kein passender Import gefunden werden."});
    EXPECT_TRUE(benutzer.auswahlDialoge.empty());

    links("1;db1/;\n");
    index("db1/", "4001;1;2;3;\"Alien\";\n");
    EXPECT_EQ(titel("Predator").code, 0);
    EXPECT_EQ(meldungen(), Texte{"Es konnte kein passender Import gefunden werden."});
}

TEST_F(WebImportTest, FehlercodesMitIhrenMeldungen) {
    // -1: no links.ini on the server
    EXPECT_EQ(titel("x").code, kWebLinksFehlen);
    EXPECT_EQ(meldungen(), (Texte{"Error: HTTP 404", "<Import-URL> <Fehlerhafter Link>"}));

    // -2: downloaded but not readable
    links("1;db1/;\n");
    fs.gesperrt = "/links.ini";
    EXPECT_EQ(titel("x").code, kWebLinksUnlesbar);
    EXPECT_EQ(meldungen(), Texte{"<Import-URL> <Delegation> <Lesefehler>"});
    fs.gesperrt = "/nichts";

    // -3: the index of a link is missing
    EXPECT_EQ(titel("x").code, kWebIndexFehlt);
    EXPECT_EQ(meldungen(),
              (Texte{"Error: HTTP 404", "<Import-URL> <Delegation> <Fehlerhafter Link>"}));

    // -5: a chosen box file is missing; the one fetched before it stays
    index("db1/", "4001;1;2;3;\"Alien\";\n4002;1;2;3;\"Aliens\";\n");
    box("db1/", "4001");
    benutzer.auswahlen.push_back({0, 1});
    const WebImportErgebnis e = titel("Alien");
    EXPECT_EQ(e.code, kWebBoxFehlt);
    EXPECT_EQ(e.dateien, Texte{arbeit / "Updates/4001.box"});
    EXPECT_EQ(meldungen(), (Texte{"Error: HTTP 404", "<Import-Datei> <Lesefehler>"}));
    EXPECT_EQ(webImportMeldung(-9), "Es ist ein unbekannter Fehler aufgetreten.");
}

TEST_F(WebImportTest, KaputteIndexeGebenMinusVier) {
    links("1;db1/;\n");
    echtesDateisystem().erzeugeOrdner(srv / "db1/");
    const std::string gut = kvt("4001;1;2;3;\"Alien\";\n");
    const std::string faelle[] = {
        "XYZ" + gut.substr(3),                        // wrong magic
        kvt("4001;1;2;3;\"Alien\";\n", 0xFFFFFFFFu),  // a length far beyond the cap
        kvt("4001;1;2;3;\"Alien\";\n", 5),            // too short for the stream
        gut.substr(0, gut.size() - 6),                // the stream cut short
        "KVT",                                        // no header
    };
    for (const std::string& f : faelle) {
        test::schreibeDatei(srv / "db1/ImpDB.kvt", f);
        EXPECT_EQ(titel("Alien").code, kWebIndexUnlesbar);
        EXPECT_EQ(meldungen(), Texte{"<Import-DB> <Lesefehler>"});
        EXPECT_FALSE(test::gibtEs(arbeit / "Updates/ImpDB.kvt"));
    }
    std::string text;
    EXPECT_TRUE(entpackeKvt(kvt(""), text));
    EXPECT_EQ(text, "");
}

TEST_F(WebImportTest, TitelsucheEndetBeiFuenfhundertTreffern) {
    std::string text;
    for (int i = 0; i < 600; ++i)
        text += std::to_string(100000 + i) + ";0;0;0;\"Film " + std::to_string(i) + "\";\n";
    links("1;db1/;\n2;db2/;\n");
    index("db1/", text);
    index("db2/", "9;0;0;0;\"Film X\";\n");
    const WebImportErgebnis e = titel("Film");
    EXPECT_EQ(e.code, 500);
    EXPECT_EQ(e.treffer.size(), 500u);
    EXPECT_EQ(e.treffer.back().titel, "Film 499");
    ASSERT_EQ(benutzer.auswahlDialoge.size(), 1u);
    EXPECT_EQ(benutzer.auswahlDialoge[0].titel, "Web-Import Auswahl (500)");
    // The search stopped: the second index was never fetched.
    EXPECT_EQ(server.anfragen(), (Texte{"links.ini", "db1/ImpDB.kvt"}));
}

TEST_F(WebImportTest, EanNimmtNurDieErsteZeileJeIndex) {
    links("1;db1/;\n2;db2/;\n");
    index("db1/", "4001;0;0;0;\"Erste\";\n4001;0;0;0;\"Zweite\";\n4000;0;0;0;\"Andere\";\n");
    index("db2/", "40011;0;0;0;\"Laenger\";\n4001;0;0;0;\"Dritte\";\n4001;0;0;0;\"Vierte\";\n");
    WebImportSuche s;
    s.ean = "4001";
    const WebImportErgebnis e = wi.fuehreAus(server.url(), s);
    ASSERT_EQ(e.code, 2);
    EXPECT_EQ(e.treffer[0].titel, "Erste");
    EXPECT_EQ(e.treffer[1].titel, "Dritte");
    EXPECT_EQ(e.treffer[1].link, 1);
}

TEST_F(WebImportTest, DiscSucheVergleichtAlleDreiZahlenUndTitelNurEinmal) {
    links("1;db1/;\n2;db2/;\n");
    index("db1/", "1;11;22;1;\"A\";\n2;11;22;0;\"B\";\n3;11;23;1;\"C\";\n4;-1;22;1;\"D\";\n");
    index("db2/", "1;11;22;1;\"A\";\n5;11;22;1;\"E\";\n");
    WebImportSuche s;
    s.SN = 11;
    s.BytesLow = 22;
    s.BytesHigh = 1;
    s.titel = "ignoriert";
    WebImportErgebnis e = wi.fuehreAus(server.url(), s);
    ASSERT_EQ(e.code, 3);  // the disc search keeps a line found in two indexes twice
    EXPECT_EQ(e.treffer[2].EAN, "5");

    s.SN = 0xFFFFFFFFu;  // written as -1 in the index
    e = wi.fuehreAus(server.url(), s);
    ASSERT_EQ(e.code, 1);
    EXPECT_EQ(e.treffer[0].EAN, "4");

    e = titel("A");  // the title search takes an equal line only once
    EXPECT_EQ(e.code, 1);
}

TEST_F(WebImportTest, FeindlicheDatenBleibenImArbeitsordner) {
    links(
        "1;/abs/;\n2;../../oben/;\n3;http://anderer.example/;\n4;C:\\x\\;\n5;a/../../b/"
        ";\nkaputt\n6;db1/;\n");
    index("db1/",
          "../../x;0;0;0;\"Weg\";\n/etc/passwd;0;0;0;\"Weg\";\na/b;0;0;0;\"Weg\";\n"
          "12345678901234567;0;0;0;\"Weg\";\n4001;0;0;0;\"Gut\";\n4002;0;0;\"Weg\";\n"
          "4003;0;0;0;\"Weg\"\n4004;x;0;0;\"Weg\";\n");
    box("db1/", "4001");
    benutzer.auswahlen.push_back({0, 7, -1});
    const WebImportErgebnis e = titel("");
    ASSERT_EQ(e.code, 1);
    EXPECT_EQ(e.treffer[0].EAN, "4001");
    EXPECT_EQ(e.dateien, Texte{arbeit / "Updates/4001.box"});
    EXPECT_EQ(server.anfragen(), (Texte{"links.ini", "db1/ImpDB.kvt", "db1/4001.box"}));
    // Only the fixed names and the one box file were written.
    Texte namen;
    for (const auto& d : echtesDateisystem().liste(arbeit / "Updates/")) namen.push_back(d.name);
    std::sort(namen.begin(), namen.end());
    EXPECT_EQ(namen, (Texte{"4001.box", "ImpDB.ini", "links.ini"}));
    EXPECT_EQ(echtesDateisystem().liste(arbeit.pfad()).size(), 1u);

    EXPECT_EQ(leseLinks("1;a b/;\n2 ;c;\n3;d/e/\n").size(), 2u);
    EXPECT_EQ(leseLinks("7;a b/;\n")[0].pfad, "a b/");
}

TEST_F(WebImportTest, UebertragungsfehlerWerdenErkannt) {
    links("1;db1/;\n");
    index("db1/", "4001;0;0;0;\"Alien\";\n");
    const struct {
        TestServer::Art art;
        std::size_t groesse;
        const char* meldung;
        bool amAnfang;
    } faelle[] = {{TestServer::Art::Abgeschnitten, 0, "Error: HTTP", true},
                  {TestServer::Art::Riesig, 3 << 20, "größer", false},
                  {TestServer::Art::Langsam, 0, "Zeitüberschreitung", false}};
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.meldung);
        server.setze("db1/ImpDB.kvt", f.art, f.groesse);
        EXPECT_EQ(titel("Alien").code, kWebIndexFehlt);
        const Texte m = meldungen();
        ASSERT_EQ(m.size(), 2u);
        const std::size_t stelle = m[0].find(f.meldung);
        EXPECT_TRUE(f.amAnfang ? stelle == 0 : stelle != std::string::npos) << m[0];
    }
    EXPECT_EQ(wi.fuehreAus("http://127.0.0.1:1/", WebImportSuche{}).code, kWebLinksFehlen);
    const Texte m = meldungen();
    ASSERT_FALSE(m.empty());
    EXPECT_EQ(m[0].rfind("Error: HTTP", 0), 0u) << m[0];
    EXPECT_EQ(wi.fuehreAus("file:///etc/", WebImportSuche{}).code, kWebLinksFehlen);
}

TEST_F(WebImportTest, AbbruchBehaeltDieBisherigenTreffer) {
    links("1;db1/;\n2;db2/;\n");
    index("db1/", "4001;0;0;0;\"Alien\";\n");
    index("db2/", "4002;0;0;0;\"Aliens\";\n");
    benutzer.unterbrechungen = {false, true};
    benutzer.antworten = {true};
    const WebImportErgebnis e = titel("Alien");
    EXPECT_EQ(e.code, 1);
    ASSERT_EQ(benutzer.fragen.size(), 1u);
    EXPECT_EQ(benutzer.fragen[0].titel, "Web-Import");
    EXPECT_EQ(benutzer.fragen[0].text, "Suche wirklich abbrechen?");
    EXPECT_EQ(server.anfragen(), (Texte{"links.ini", "db1/ImpDB.kvt"}));

    // "Nein" goes on searching.
    benutzer.fragen.clear();
    benutzer.unterbrechungen = {true};
    benutzer.antworten = {false};
    EXPECT_EQ(titel("Alien").code, 2);
}

}  // namespace
}  // namespace dv
