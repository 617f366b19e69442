// The HTML overview: placeholders, the per-box section, the colour rotation, the
// side folder with background and covers, the messages, the settings file, the
// box data and the default template set.

#include <gtest/gtest.h>

#include <tuple>

#include "output/Uebersicht.h"
#include "tests/domain/DomainUmgebung.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/TempOrdner.h"

namespace dv {
namespace {

using test::leseDatei;
using test::schreibeDatei;

class UebersichtTest : public ::testing::Test {
  protected:
    UebersichtTest() {
        vorlagen = ordner / "Vorlagen/";
        echtesDateisystem().erzeugeOrdner(vorlagen);
        echtesDateisystem().erzeugeOrdner(ordner / "Cover/");
        daten.coverOrdner = ordner / "Cover/";
        e.vorlage = ordner / "seite.html";
        e.ziel = ordner / "aus/Liste.html";
        echtesDateisystem().erzeugeOrdner(ordner / "aus/");
    }
    void box(long id, const std::string& titel, const std::string& orig = "",
             const std::string& cover = "") {
        daten.boxen.push_back({id, titel, orig, cover});
        daten.anzahlBoxen = static_cast<long>(daten.boxen.size());
    }
    // Writes the template and a section file, generates, returns the page.
    std::string erzeuge(const std::string& vorlage, const std::string& abschnitt = "") {
        schreibeDatei(e.vorlage, vorlage);
        if (!abschnitt.empty()) schreibeDatei(vorlagen + "box.html", abschnitt);
        ok = erzeugeUebersicht(umgebung, e, daten);
        return leseDatei(e.ziel);
    }

    test::TempOrdner ordner;
    std::string vorlagen;
    test::FakeBenutzer benutzer;
    FarbZaehler farben;
    std::vector<std::string> geoeffnet;
    UebersichtUmgebung umgebung{echtesDateisystem(), benutzer, farben, "",
                                [this](const std::string& p) {
                                    geoeffnet.push_back(p);
                                    return true;
                                }};
    UebersichtEinstellungen e;
    UebersichtDaten daten;
    bool ok = false;

    void SetUp() override { umgebung.vorlagenOrdner = vorlagen; }
};

TEST_F(UebersichtTest, ErsetztMehrerePlatzhalterEinerZeileVonLinksNachRechts) {
    daten.anzahlDvds = 7;
    daten.anzahlFilme = 12;
    const std::string seite = erzeuge(
        "<title>%LISTENTITEL% / %LISTENUEBERSCHRIFT%</title>\r\n"
        "<p>%BOXANZAHL%-%DVDANZAHL%-%FILMANZAHL% %HINTERGRUNDBILD%</p>\n"
        "<p style=\"width: 50%; height: 20%\">%%</p>");
    ASSERT_TRUE(ok);
    EXPECT_EQ(seite,
              "<title>Listentitel / Überschrift</title>\r\n"
              "<p>0-7-12 none.jpg</p>\n"
              "<p style=\"width: 50%; height: 20%\">%%</p>");
    EXPECT_EQ(geoeffnet, std::vector<std::string>{e.ziel});
    EXPECT_TRUE(benutzer.meldungen.empty());
    // The side folder exists even without pictures.
    EXPECT_TRUE(echtesDateisystem().istOrdner(ordner / "aus/Liste_Dateien/"));
}

TEST_F(UebersichtTest, WerteWerdenUnveraendertUndNurEinmalEingesetzt) {
    e.titel = "A & B <i>";
    e.ueberschrift = "100%BOXANZAHL%";
    box(1, "50% %BOXTITEL%");
    const std::string seite =
        erzeuge("%LISTENTITEL%|%LISTENUEBERSCHRIFT%|%LOOP=box.html%\nEnde\n", "[%BOXTITEL%]\n");
    ASSERT_TRUE(ok);
    // A value holding percent signs is not read as a placeholder; the LOOP line
    // stands for the section as a whole.
    EXPECT_EQ(seite, "[50% %BOXTITEL%]\nEnde\n");
    erzeuge("%LISTENTITEL%|%LISTENUEBERSCHRIFT%\n");
    EXPECT_EQ(leseDatei(e.ziel), "A & B <i>|100%BOXANZAHL%\n");
}

TEST_F(UebersichtTest, AbschnittJeBoxMitLaufenderNummer) {
    // Without boxes the section is never written.
    EXPECT_EQ(erzeuge("a\n%LOOP=box.html%\nb\n", "<li>%BOXTITEL%</li>\n"), "a\nb\n");
    EXPECT_TRUE(ok);
    box(4, "Alpha", "Alpha Orig");
    box(2, "Beta");
    box(9, "Gamma");
    const std::string seite = erzeuge("<ul>\n%LOOP=box.html%\n</ul>\n%BOXANZAHL%\n",
                                      "<li>%BOXLFDNR%:%BOXTITEL%:%BOXORIGTITEL%</li>\n<hr>\n");
    ASSERT_TRUE(ok);
    EXPECT_EQ(seite,
              "<ul>\n<li>1:Alpha:Alpha Orig</li>\n<hr>\n<li>2:Beta:</li>\n<hr>\n"
              "<li>3:Gamma:</li>\n<hr>\n</ul>\n3\n");
}

TEST_F(UebersichtTest, FehlenderAbschnittWirdGemeldet) {
    box(1, "Box");
    erzeuge("a\n%LOOP=fehlt.html%\n");
    EXPECT_FALSE(ok);
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].text,
              "Die Vorlagendatei (" + vorlagen + "fehlt.html) ist nicht lesbar");
    EXPECT_TRUE(geoeffnet.empty());
}

TEST_F(UebersichtTest, FarbenWiederholenSichUndDerZaehlerGiltFuerDasProgramm) {
    for (long i = 1; i <= 4; ++i) box(i, "B" + std::to_string(i));
    schreibeDatei(vorlagen + "farben.txt",
                  "@V1.0\n# Kommentar\n\nFarbe=\"#aaa\";2\nunsinn\nFarbe=\"#bbb\";1\r\n");
    const std::string vorlage = "%COLORFILE=farben.txt%\n%LOOP=box.html%\n";
    EXPECT_EQ(erzeuge(vorlage, "%COLOR%\n"), "\n#aaa\n#aaa\n#bbb\n#aaa\n");
    // The next page starts at the first entry again but keeps the counter (2).
    EXPECT_EQ(erzeuge(vorlage, "%COLOR%\n"), "\n#aaa\n#bbb\n#aaa\n#aaa\n");
    FarbZaehler neu;
    umgebung.farben = neu;
    EXPECT_EQ(erzeuge(vorlage, "%COLOR%\n"), "\n#aaa\n#aaa\n#bbb\n#aaa\n");
    // No colour file: COLOR is empty.
    EXPECT_EQ(erzeuge("%LOOP=box.html%\n", "[%COLOR%]\n"), "[]\n[]\n[]\n[]\n");
}

TEST(FarbDatei, FormatUndStandardanzahl) {
    const auto f =
        leseFarbDatei("Farbe=\"rot\"\n  Farbe=\"x y\";0\nFarbe=\"z\";12\nFarbe=\"kaputt\n");
    ASSERT_EQ(f.size(), 3u);
    EXPECT_EQ(f[0].text, "rot");
    EXPECT_EQ(f[0].anzahl, 1);
    EXPECT_EQ(f[1].text, "x y");
    EXPECT_EQ(f[1].anzahl, 1);
    EXPECT_EQ(f[2].anzahl, 12);
}

TEST_F(UebersichtTest, HintergrundUndCoverLandenImNebenordner) {
    schreibeDatei(ordner / "bild.png", "PNG");
    e.hintergrund = ordner / "bild.png";
    schreibeDatei(ordner / "Cover/7.jpg", "JPEG7");
    box(7, "Mit", "", "7.jpg");
    box(8, "Ohne");
    const std::string seite =
        erzeuge("%HINTERGRUNDBILD%\n%LOOP=box.html%\n", "%BOXCOVER% %BOXCOVER%\n");
    ASSERT_TRUE(ok);
    EXPECT_EQ(
        seite,
        "Liste_Dateien/bild.png\nListe_Dateien/7.jpg Liste_Dateien/7.jpg\nnone.jpg none.jpg\n");
    EXPECT_EQ(leseDatei(ordner / "aus/Liste_Dateien/bild.png"), "PNG");
    EXPECT_EQ(leseDatei(ordner / "aus/Liste_Dateien/7.jpg"), "JPEG7");

    e.hintergrund = ordner / "fehlt.png";
    erzeuge("x\n");
    EXPECT_FALSE(ok);
    EXPECT_EQ(benutzer.meldungen.back().titel, "Fehler...");
}

TEST_F(UebersichtTest, MeldungenBeiFehlendenOderFalschenEingaben) {
    const auto letzte = [&] {
        return benutzer.meldungen.empty() ? "" : benutzer.meldungen.back().text;
    };
    e.ziel = "";
    erzeuge("x");
    EXPECT_EQ(letzte(), "Fehlende Vorlage, Zielpfad oder Zieldatei.");
    e.ziel = ordner / "aus/Liste.htm";
    erzeuge("x");
    EXPECT_FALSE(ok);
    EXPECT_NE(letzte().find(".html"), std::string::npos);
    e.ziel = ordner / "aus/LISTE.HTML";  // the extension is compared without regard to case
    erzeuge("x");
    EXPECT_TRUE(ok);

    e.vorlage = ordner / "fehlt.html";
    EXPECT_FALSE(erzeugeUebersicht(umgebung, e, daten));
    EXPECT_EQ(letzte(), "Die Vorlagendatei (" + e.vorlage + ") ist nicht lesbar");

    e.vorlage = ordner / "seite.html";
    e.ziel = ordner / "gibt/es/nicht/Liste.html";
    EXPECT_FALSE(erzeugeUebersicht(umgebung, e, daten));
    EXPECT_EQ(letzte(), "Die Zieldatei (" + e.ziel + ") kann nicht geschrieben werden");

    e.ziel = ordner / "aus/Liste.html";
    umgebung.oeffnen = [](const std::string&) { return false; };
    EXPECT_FALSE(erzeugeUebersicht(umgebung, e, daten));
    EXPECT_EQ(letzte(), "Fehler beim Erzeugen der Übersicht");
    EXPECT_EQ(leseDatei(e.ziel), "x");  // the page itself was written
}

TEST_F(UebersichtTest, EinstellungsdateiHinUndZurueck) {
    e.titel = "Meine Sammlung";
    e.ueberschrift = "Übersicht aller Boxen";
    e.hintergrund = ordner / "bild.jpg";
    const std::string ini = ordner / "uebersicht.ini";
    ASSERT_TRUE(schreibeUebersichtEinstellungen(echtesDateisystem(), benutzer, ini, e));
    EXPECT_EQ(leseDatei(ini), "@V1.0\n\n# Vorlage-Datei\nVorlage=\"" + e.vorlage +
                                  "\"\n\n# Zieldatei\nZiel=\"" + e.ziel +
                                  "\"\n\n# Listentitel\nTitel=\"Meine Sammlung\"\n\n"
                                  "# Listen-Überschrift\nUeberschrift=\"Übersicht aller Boxen\"\n\n"
                                  "# Hintergrundbild\nHintergrund=\"" +
                                  e.hintergrund + "\"\n\n");
    UebersichtEinstellungen g;
    ASSERT_TRUE(leseUebersichtEinstellungen(echtesDateisystem(), benutzer, ini, g));
    EXPECT_EQ(std::tie(g.vorlage, g.ziel, g.titel, g.ueberschrift, g.hintergrund),
              std::tie(e.vorlage, e.ziel, e.titel, e.ueberschrift, e.hintergrund));
}

TEST_F(UebersichtTest, FehlerhafteEinstellungsdateiNenntIhrenCode) {
    const std::string ini = ordner / "kaputt.ini";
    const std::pair<const char*, int> faelle[] = {
        {"Vorlage=\"a.html\"\nZiel=\"b.html\"\n", 2},
        {"@V1.0\nVorlage=\"a.html\nZiel=\"b.html\"\n", 3},
        {"@V1.0\nVorlage=\"a.html\"\nTitel=\"t\"\n", 4},
    };
    for (const auto& [inhalt, code] : faelle) {
        schreibeDatei(ini, inhalt);
        UebersichtEinstellungen gelesen;
        gelesen.titel = "unberührt";
        EXPECT_FALSE(leseUebersichtEinstellungen(echtesDateisystem(), benutzer, ini, gelesen));
        EXPECT_EQ(gelesen.titel, "unberührt");
        EXPECT_EQ(benutzer.meldungen.back().titel, "Fehler...");
        EXPECT_EQ(benutzer.meldungen.back().text,
                  "Die Datei ist fehlerhaft (Code = " + std::to_string(code) + ")");
    }
    UebersichtEinstellungen gelesen;
    EXPECT_FALSE(
        leseUebersichtEinstellungen(echtesDateisystem(), benutzer, ordner / "fehlt.ini", gelesen));
    EXPECT_EQ(benutzer.meldungen.back().text, "Die Datei ist fehlerhaft (Code = 1)");
}

TEST(UebersichtDatenTest, BoxenInBaumReihenfolgeMitOriginaltitelUndCover) {
    test::DomainUmgebung u;
    const long zebra = u.box("Zebra");
    const long affe = u.box("Affe");
    const long d1 = u.dvd(affe, "Erste");
    const long f1 = u.film(d1, "Film Eins");
    u.k().Titel.insert(f1, kTitelOriginal, "Film One", 1);
    const long f2 = u.film(d1, "Film Zwei");
    u.k().Titel.insert(f2, kTitelOriginal, "Film Two", 1);
    u.film(u.dvd(zebra, "Z"), "Ohne Original");
    test::schreibeDatei(u.ordner.cover + std::to_string(zebra) + ".png", "P");
    test::schreibeDatei(u.ordner.cover + "notiz.txt", "x");

    const UebersichtDaten d = sammleUebersichtDaten(*u.db);
    EXPECT_EQ(d.anzahlBoxen, 2);
    EXPECT_EQ(d.anzahlDvds, 2);
    EXPECT_EQ(d.anzahlFilme, 3);
    ASSERT_EQ(d.boxen.size(), 2u);
    EXPECT_EQ(d.boxen[0].titel, "Affe");
    EXPECT_EQ(d.boxen[0].origTitel, "Film One");
    EXPECT_EQ(d.boxen[0].cover, "");
    EXPECT_EQ(d.boxen[1].titel, "Zebra");
    EXPECT_EQ(d.boxen[1].origTitel, "");
    EXPECT_EQ(d.boxen[1].cover, std::to_string(zebra) + ".png");
    EXPECT_EQ(d.coverOrdner, u.ordner.cover);
}

TEST(StandardVorlagen, WerdenUnveraendertEingebautUndNurFehlendeInstalliert) {
    // The project root is the test data folder without "/tests/data" (which need not exist).
    const std::string daten = DORVANO_TESTDATA;
    const std::string quelle =
        daten.substr(0, daten.size() - std::string("/tests/data").size()) + "/output/vorlagen/";
    ASSERT_TRUE(test::gibtEs(quelle + "Uebersicht.html")) << quelle;
    ASSERT_EQ(standardVorlagen().size(), 4u);
    for (const EingebauteDatei& f : standardVorlagen())
        EXPECT_EQ(f.inhalt, leseDatei(quelle + f.name)) << f.name;

    test::TempOrdner ordner;
    const std::string vorlagen = ordner / "Vorlagen/";
    echtesDateisystem().erzeugeOrdner(vorlagen);
    schreibeDatei(vorlagen + "Uebersicht.html", "eigene");
    ASSERT_TRUE(installiereStandardVorlagen(echtesDateisystem(), vorlagen));
    EXPECT_EQ(leseDatei(vorlagen + "Uebersicht.html"), "eigene");
    EXPECT_EQ(leseDatei(vorlagen + "Uebersicht_Box.html"),
              leseDatei(quelle + "Uebersicht_Box.html"));
    EXPECT_TRUE(test::gibtEs(vorlagen + "Hintergrund.svg"));
}

TEST(StandardVorlagen, ErgebenEineVollstaendigeSeite) {
    test::TempOrdner ordner;
    const std::string vorlagen = ordner / "Vorlagen/";
    ASSERT_TRUE(installiereStandardVorlagen(echtesDateisystem(), vorlagen));
    test::FakeBenutzer benutzer;
    FarbZaehler farben;
    UebersichtUmgebung u{echtesDateisystem(), benutzer, farben, vorlagen, nullptr};
    UebersichtEinstellungen e;
    e.vorlage = vorlagen + "Uebersicht.html";
    e.ziel = ordner / "Uebersicht.html";
    e.hintergrund = vorlagen + "Hintergrund.svg";
    UebersichtDaten d;
    d.boxen = {{1, "Erste Box", "First", ""}, {2, "Zweite Box", "", ""}};
    d.anzahlBoxen = 2;
    ASSERT_TRUE(erzeugeUebersicht(u, e, d));
    const std::string seite = leseDatei(e.ziel);
    EXPECT_EQ(seite.rfind("<!DOCTYPE html>", 0), 0u);
    EXPECT_NE(seite.find("<title>Listentitel</title>"), std::string::npos);
    EXPECT_NE(seite.find("<div class=\"boxtitel\">Zweite Box</div>"), std::string::npos);
    EXPECT_NE(seite.find("style=\"background: #f1f4fa\""), std::string::npos);
    EXPECT_NE(seite.find("url(\"Uebersicht_Dateien/Hintergrund.svg\")"), std::string::npos);
    EXPECT_EQ(seite.find("%BOX"), std::string::npos);
    EXPECT_EQ(seite.find("%COLOR"), std::string::npos);
    EXPECT_NE(seite.find("</html>"), std::string::npos);
}

}  // namespace
}  // namespace dv
