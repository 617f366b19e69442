// Validation: the ranking of positions with its kept orders, the three phases,
// the log, the question, and the backup of the data folder before any change.

#include <cstring>

#include "domain/Validierung.h"
#include "tests/domain/DomainUmgebung.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/FehlerDateisystem.h"
#include "tests/support/FesteUhr.h"

namespace dv {
namespace {

std::vector<std::int32_t> ranke(std::vector<std::int32_t> a, bool* geaendert = nullptr) {
    const bool g = normierePositionen(static_cast<int>(a.size()), a.data());
    if (geaendert) *geaendert = g;
    return a;
}

TEST(NormierePositionen, BehaeltDieFestgelegtenReihenfolgen) {
    using V = std::vector<std::int32_t>;
    bool geaendert = false;
    EXPECT_EQ(ranke({7, 3, 5}, &geaendert), (V{3, 1, 2}));
    EXPECT_TRUE(geaendert);
    EXPECT_EQ(ranke({2, 2}), (V{2, 1}));  // equal: the later row first
    EXPECT_EQ(ranke({5, 0}), (V{2, 0}));  // 0 never picked; leftover pass hits entry 0
    EXPECT_EQ(ranke({0, 5}), (V{2, 1}));
    EXPECT_EQ(ranke({0, 0, 0}), (V{3, 0, 0}));  // every pass marks entry 0, the last one stays
    EXPECT_EQ(ranke({4}), (V{1}));
    EXPECT_EQ(ranke({1, 2, 3}, &geaendert), (V{1, 2, 3}));
    EXPECT_TRUE(geaendert);  // every non-empty array counts as changed
    EXPECT_EQ(ranke({}, &geaendert), V{});
    EXPECT_FALSE(geaendert);
    EXPECT_EQ(ranke({65535, 9, 9, 1}), (V{4, 3, 2, 1}));
}

class ValidierungTest : public ::testing::Test {
  protected:
    bool validiere(ValidierungsErgebnis* erg = nullptr) {
        benutzer.antworten.push_back(true);
        return validiereDatenbank(*u.db, benutzer, u.ordner.meldungen, u.ordner.backups, erg);
    }
    // The positions of the link rows of one owner, in table order.
    std::vector<int> dvdPos(long box) {
        std::vector<int> v;
        u.k().DVD_Box.scanne([&](const Zeile7& z) {
            if (z.Box_Id == box) v.push_back(z.Pos);
        });
        return v;
    }
    std::vector<int> filmPos(long dvd) {
        std::vector<int> v;
        u.k().DVD_Film.scanne([&](const Zeile2& z) {
            if (z.DVD_Id == dvd) v.push_back(z.Pos);
        });
        return v;
    }
    void setzeDvdPos(long box, std::vector<int> pos) {
        std::vector<Zeile7> zeilen;
        u.k().DVD_Box.scanne([&](const Zeile7& z) {
            if (z.Box_Id == box) zeilen.push_back(z);
        });
        ASSERT_EQ(zeilen.size(), pos.size());
        for (std::size_t i = 0; i < pos.size(); ++i)
            ASSERT_TRUE(u.k().DVD_Box.update(zeilen[i].Id, box, zeilen[i].DVD_Id, 0, pos[i]));
    }
    long dvdZeile(const char* titel) {
        Zeile9 d{};
        std::strcpy(d.cpText, titel);
        return u.k().DVD.insert(d);
    }
    std::string log() { return test::leseDatei(u.ordner.meldungen + "db_validate.log"); }

    test::FesteUhr uhr{3, 4, 2024, 5, 6, 7};
    test::DomainUmgebung u;
    test::FakeBenutzer benutzer;
};

TEST_F(ValidierungTest, NormiertDvdUndFilmPositionenJederBox) {
    const long box = u.box("Drei");
    const long a = dvdZeile("A"), b = dvdZeile("B"), c = dvdZeile("C");
    u.k().DVD_Box.insert(box, a, 0, 7);
    u.k().DVD_Box.insert(box, b, 0, 3);
    u.k().DVD_Box.insert(box, c, 0, 5);
    u.k().DVD_Film.insert(b, u.k().Film.insert(0, 90, 2000), 2);
    u.k().DVD_Film.insert(b, u.k().Film.insert(0, 91, 2000), 2);
    u.k().DVD_Film.insert(c, u.k().Film.insert(0, 92, 2000), 4);

    const long einzeln = u.box("Eine");
    u.k().DVD_Box.insert(einzeln, dvdZeile("D"), 0, 4);
    u.k().DVD_Box.insert(u.box("Fremd") + 100, a, 0, 9);  // owner that is no box: untouched

    ValidierungsErgebnis erg;
    ASSERT_TRUE(validiere(&erg));
    EXPECT_EQ(dvdPos(box), (std::vector<int>{3, 1, 2}));
    EXPECT_EQ(filmPos(b), (std::vector<int>{2, 1}));
    EXPECT_EQ(filmPos(c), (std::vector<int>{1}));
    EXPECT_EQ(dvdPos(einzeln), (std::vector<int>{1}));
    EXPECT_EQ(dvdPos(box + 102), (std::vector<int>{9}));
    EXPECT_EQ(erg.geaenderteZeilen, 3 + 2 + 1 + 1);
    EXPECT_EQ(erg.schreibfehler, 0);

    // The DVD list now follows the ranks: B (1), C (2), A (3).
    {
        auto liste = u.db->getDvdListe(box);
        EXPECT_EQ(test::idsVon(liste.get()), (std::vector<long>{b, c, a}));
    }
    EXPECT_TRUE(u.spur.offen().empty());
}

TEST_F(ValidierungTest, EineZeileMitPosEinsWirdNichtGeschrieben) {
    const long dvd = u.dvd(u.box("Box"), "D");
    u.film(dvd, "F");
    ValidierungsErgebnis erg;
    ASSERT_TRUE(validiere(&erg));
    EXPECT_EQ(erg.geaenderteZeilen, 0);
    EXPECT_EQ(erg.entfernteAlias + erg.entfernteFilmAlias, 0);
}

TEST_F(ValidierungTest, EntferntVerwaisteFilmAliasUndUnbenutzteAlias) {
    const long film = u.film(u.dvd(u.box("Box"), "D"), "F");
    const long person = u.person("Muster", "Max");
    const long fp = u.k().Film_Person.insert(film, person, 1, 1);
    const long genutzt = u.k().Alias.insert("Genutzt");
    const long verwaist = u.k().Alias.insert("VonVerwaistemLink");
    const long frei = u.k().Alias.insert("Frei");
    const long gut = u.k().Film_Alias.insert(fp, genutzt, 1);
    const long schlecht = u.k().Film_Alias.insert(fp + 40, verwaist, 1);  // no such film person

    ValidierungsErgebnis erg;
    ASSERT_TRUE(validiere(&erg));
    EXPECT_EQ(erg.entfernteFilmAlias, 1);
    EXPECT_EQ(erg.entfernteAlias, 2);
    EXPECT_TRUE(u.k().Film_Alias.eine(gut));
    EXPECT_FALSE(u.k().Film_Alias.eine(schlecht));
    EXPECT_TRUE(u.k().Alias.eine(genutzt));
    EXPECT_FALSE(u.k().Alias.eine(verwaist));
    EXPECT_FALSE(u.k().Alias.eine(frei));

    const std::string text = log();
    EXPECT_NE(text.find("Suche nach unzugeordneten FilmAlias-Einträgen [2]...\n...Alias [" +
                        std::to_string(verwaist) + "] wird entfernt\n...Film_Alias [" +
                        std::to_string(schlecht) + "] wird entfernt\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("Suche nach unzugeordneten Alias-Einträgen [2]...\n...Alias [" +
                        std::to_string(frei) + "] wird entfernt\n"),
              std::string::npos)
        << text;

    // Freed slots are reused by the next insert right away.
    EXPECT_EQ(u.k().Alias.insert("Neu"), verwaist);
}

TEST_F(ValidierungTest, LogUndFortschrittInDerFestenFolge) {
    test::schreibeDatei(u.ordner.meldungen + "db_validate.log", "ALTER INHALT\n");
    const long box1 = u.box("Erste");
    const long dvd = u.dvd(box1, "D");
    u.box("Zweite");
    ASSERT_TRUE(validiere());

    const std::string erwartet =
        "Datenbank-Validierung gestartet =>\n"
        "Start-Datum: 03.04.2024\n"
        "Start-Zeit : 05:06:07\n"
        "Sicherung der Daten: " +
        u.ordner.backups +
        "Daten_20240403_050607/\n"
        "Normierung aller DVD- und Film-Positionen der Boxen [2] prüfen...\n"
        "Box " +
        std::to_string(box1) +
        " [Erste]\n"
        "### Alle DVD-Positionen der Box " +
        std::to_string(box1) +
        " prüfen...\n"
        "### Alle Film-Positionen der DVD " +
        std::to_string(dvd) +
        " prüfen...\n"
        "Box " +
        std::to_string(box1 + 1) +
        " [Zweite]\n"
        "### Alle DVD-Positionen der Box " +
        std::to_string(box1 + 1) +
        " prüfen...\n"
        "Normierung aller DVD- und Film-Positionen der Boxen abgeschlossen.\n"
        "Suche nach unzugeordneten FilmAlias-Einträgen [0]...\n"
        "Suche nach unzugeordneten FilmAlias-Einträgen abgeschlossen.\n"
        "Suche nach unzugeordneten Alias-Einträgen [0]...\n"
        "Suche nach unzugeordneten Alias-Einträgen abgeschlossen.\n"
        "Ende-Datum: 03.04.2024\n"
        "Ende-Zeit : 05:06:07\n"
        "<= Datenbank-Validierung beendet\n";
    EXPECT_EQ(log(), erwartet);

    ASSERT_EQ(benutzer.fragen.size(), 1u);
    EXPECT_EQ(benutzer.fragen[0].titel, "Hinweis...");
    EXPECT_EQ(benutzer.fragen[0].text,
              "Die komplette Datenbank wird nun überprüft und ggf. korrigiert.\nDies kann mehrere "
              "Minuten in Anspruch nehmen!\nMit der Validierung beginnen?");
    EXPECT_EQ(benutzer.fortschritte,
              (std::vector<std::string>{"Datenbank validieren.",
                                        "(1/3) Normalisiere Objekte von Box 1 / 2",
                                        "(1/3) Normalisiere Objekte von Box 2 / 2"}));
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].titel, "Datenbank");
    EXPECT_EQ(benutzer.meldungen[0].text, "Die Validierung ist abgeschlossen.");
}

TEST_F(ValidierungTest, FortschrittDerAliasPhasenZaehltJedeZeile) {
    const long fp = u.k().Film_Person.insert(1, 1, 1, 1);
    u.k().Film_Alias.insert(fp, u.k().Alias.insert("A"), 1);
    u.k().Film_Alias.insert(fp, u.k().Alias.insert("B"), 2);
    ASSERT_TRUE(validiere());
    const std::vector<std::string> erwartet{
        "Datenbank validieren.", "(2/3) Suche unzugeordneten Eintrag von FilmAlias 1 / 2",
        "(2/3) Suche unzugeordneten Eintrag von FilmAlias 2 / 2",
        "(3/3) Suche unzugeordneten Eintrag von Alias 1 / 2",
        "(3/3) Suche unzugeordneten Eintrag von Alias 2 / 2"};
    EXPECT_EQ(benutzer.fortschritte, erwartet);
}

TEST_F(ValidierungTest, OhneZustimmungBleibtAllesWieEsIst) {
    const long box = u.box("Box");
    u.k().DVD_Box.insert(box, dvdZeile("A"), 0, 5);
    benutzer.antworten.push_back(false);
    EXPECT_FALSE(validiereDatenbank(*u.db, benutzer, u.ordner.meldungen, u.ordner.backups));
    EXPECT_EQ(dvdPos(box), (std::vector<int>{5}));
    EXPECT_FALSE(test::gibtEs(u.ordner.meldungen + "db_validate.log"));
    EXPECT_TRUE(echtesDateisystem().liste(u.ordner.backups).empty());
    EXPECT_TRUE(benutzer.meldungen.empty());
}

TEST_F(ValidierungTest, SichertDenDatenordnerVorDerReparatur) {
    const long box = u.box("Box");
    u.k().DVD_Box.insert(box, dvdZeile("A"), 0, 5);
    const std::string vorher = test::leseDatei(u.ordner.daten + "DVD_Box.dat");

    ValidierungsErgebnis erg;
    ASSERT_TRUE(validiere(&erg));
    EXPECT_EQ(erg.sicherung, u.ordner.backups + "Daten_20240403_050607/");
    EXPECT_EQ(test::leseDatei(erg.sicherung + "DVD_Box.dat"), vorher);
    EXPECT_NE(test::leseDatei(u.ordner.daten + "DVD_Box.dat"), vorher);
    // Every table file is in the backup.
    for (Tabelle* t : u.k().alle())
        EXPECT_TRUE(test::gibtEs(erg.sicherung + t->name() + ".dat")) << t->name();

    // A second run in the same second gets its own folder.
    ASSERT_TRUE(validiere(&erg));
    EXPECT_EQ(erg.sicherung, u.ordner.backups + "Daten_20240403_050607_2/");
}

TEST(ValidierungSicherung, OhneSicherungWirdNichtsGeaendert) {
    test::FesteUhr uhr(3, 4, 2024, 5, 6, 7);
    test::FehlerDateisystem fs;
    test::DomainUmgebung u(fs);
    const long box = u.box("Box");
    Zeile9 d{};
    u.k().DVD_Box.insert(box, u.k().DVD.insert(d), 0, 5);

    // The backup folder is made, but the copies of the Film tables cannot be written.
    fs.sperre = "/Backups/Daten_20240403_050607/Film";
    test::FakeBenutzer benutzer;
    benutzer.antworten.push_back(true);
    EXPECT_FALSE(validiereDatenbank(*u.db, benutzer, u.ordner.meldungen, u.ordner.backups));

    std::vector<int> pos;
    u.k().DVD_Box.scanne([&](const Zeile7& z) { pos.push_back(z.Pos); });
    EXPECT_EQ(pos, std::vector<int>{5});
    EXPECT_FALSE(test::gibtEs(u.ordner.meldungen + "db_validate.log"));
    // The copies made before the failure are removed again.
    EXPECT_TRUE(fs.liste(u.ordner.backups + "Daten_20240403_050607/").empty());
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].titel, "Fehler...");
    EXPECT_EQ(benutzer.meldungen[0].symbol, Symbol::Fehler);
    EXPECT_NE(benutzer.meldungen[0].text.find("unverändert"), std::string::npos);
}

}  // namespace
}  // namespace dv
