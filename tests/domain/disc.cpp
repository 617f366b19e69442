// Disc identification over the platform reader: codes, size text and class,
// region field, finding the catalogue DVD, the drive choice and the tray.

#include <gtest/gtest.h>

#include <cstring>

#include "domain/Datenbank.h"
#include "domain/Disc.h"
#include "tests/domain/DomainUmgebung.h"
#include "tests/support/DvdAbbild.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/TempOrdner.h"

namespace dv {
namespace {

using test::BaumDatei;

// Drives as the test sets them; volume operations go to the real reader, so a
// drive whose device is an image file reads exactly like the image itself.
class TestLaufwerke : public Laufwerke {
  public:
    std::vector<OptischesLaufwerk> laufwerke;
    int zugriffe = 0;  // volume and file operations
    std::vector<std::pair<std::string, bool>> schubladen;
    LaufwerkErgebnis schubladeErgebnis;

    std::vector<OptischesLaufwerk> liste() override { return laufwerke; }
    LaufwerkErgebnis volumen(const std::string& q, VolumenFakten& f) override {
        ++zugriffe;
        return systemLaufwerke().volumen(q, f);
    }
    LaufwerkErgebnis groesse(const std::string& q, std::uint64_t& b) override {
        ++zugriffe;
        return systemLaufwerke().groesse(q, b);
    }
    LaufwerkErgebnis leseDatei(const std::string& q, const std::string& p, std::size_t n,
                               std::string& d) override {
        ++zugriffe;
        return systemLaufwerke().leseDatei(q, p, n, d);
    }
    LaufwerkErgebnis schublade(const std::string& g, bool oeffnen) override {
        schubladen.emplace_back(g, oeffnen);
        return schubladeErgebnis;
    }
};

// The scripted user, also remembering what a selection offered.
class WahlBenutzer : public test::FakeBenutzer {
  public:
    std::vector<std::string> angeboten;
    int vorauswahl = -2;
    std::vector<int> waehle(const std::string& titel, const std::string& spalte,
                            const std::vector<std::string>& eintraege, bool mehrfach,
                            int vor) override {
        angeboten = eintraege;
        vorauswahl = vor;
        return FakeBenutzer::waehle(titel, spalte, eintraege, mehrfach, vor);
    }
};

std::vector<BaumDatei> baum(const std::string& ifo) {
    return {{"VIDEO_TS/VIDEO_TS.IFO", ifo},
            {"VIDEO_TS/VTS_01_1.VOB", std::string(70000, 'v')},
            {"AUDIO_TS/", ""}};
}

TEST(DiscGroesse, TextMitAbsichtlicherNaeherung) {
    // 4,700,000,000 = 1 * 2^32 + 405,032,704
    EXPECT_EQ(groessenText(405032704u, 1u), "4.38 GB");
    EXPECT_EQ(groessenText(405032703u, 1u), "4.38 GB");
    EXPECT_EQ(groessenText(0u, 0u), "0.00 Bytes");
    EXPECT_EQ(groessenText(1023u, 0u), "1.00 Bytes");
    EXPECT_EQ(groessenText(1024u, 0u), "1.00 KB");
    EXPECT_EQ(groessenText(1536u * 1024u, 0u), "1.50 MB");
    // The carry is always 2^22, whatever the high word: 12 GiB shows as 4.00 GB.
    EXPECT_EQ(groessenText(0u, 3u), "4.00 GB");
    EXPECT_EQ(groessenText(0xFFFFFFFFu, 0xFFFFFFFFu), "4.00 > TB");
}

TEST(DiscGroesse, KlasseAnDerGrenze) {
    EXPECT_STREQ(groessenKlasse(405032704u, 1u), "DVD 9 oder DVD 18");
    EXPECT_STREQ(groessenKlasse(405032703u, 1u), "DVD 5 oder DVD 10");
    EXPECT_STREQ(groessenKlasse(0xFFFFFFFFu, 0u), "DVD 5 oder DVD 10");
    EXPECT_STREQ(groessenKlasse(0u, 2u), "DVD 9 oder DVD 18");
}

TEST(DiscLesen, OhneLaufwerkOderMitUnbekanntemBuchstaben) {
    TestLaufwerke lw;
    lw.laufwerke = {{'D', "/dev/sr0", ""}};
    DiscInfo info;
    info.SN = 77;
    // Without a drive: -3 and not one access.
    EXPECT_EQ(leseDiscInfo(lw, DiscQuelle{}, info), kDiscKeinLaufwerk);
    EXPECT_EQ(info.SN, 77u);
    std::array<std::uint8_t, kDvdKopfGroesse> kopf{};
    EXPECT_FALSE(leseDvdKopf(lw, DiscQuelle{}, kopf));
    EXPECT_EQ(lw.zugriffe, 0);
    EXPECT_EQ(leseDiscInfo(lw, DiscQuelle{'G', ""}, info), kDiscLesefehler);
    EXPECT_EQ(info.fehlerText, "Das Laufwerk G: ist nicht vorhanden.");
    EXPECT_STREQ(info.cRoot, "G:");
}

class DiscAbbild : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!test::abbildWerkzeugeDa()) GTEST_SKIP() << "genisoimage oder udfinfo fehlt";
    }
    std::string baue(const std::vector<BaumDatei>& b, const std::string& name = "FILM",
                     bool udf = true, const std::string& datei = "dvd.iso") {
        const std::string abbild = test::baueAbbild(tmp.pfad(), b, name, udf, datei);
        EXPECT_FALSE(abbild.empty());
        return abbild;
    }
    test::TempOrdner tmp;
    TestLaufwerke lw;
};

TEST_F(DiscAbbild, LaufwerkUndAbbildGebenDasSelbe) {
    const std::string abbild =
        baue(baum(test::ifoDatei(0xFD)), reinterpret_cast<const char*>(u8"Größe €Ω"));
    const auto referenz = test::udfinfo(abbild);
    lw.laufwerke = {{'D', "/dev/sr0", ""}, {'E', abbild, ""}};
    DiscInfo ausAbbild, ausLaufwerk;
    ASSERT_EQ(leseDiscInfo(lw, DiscQuelle{0, abbild}, ausAbbild), kDiscOk);
    ASSERT_EQ(leseDiscInfo(lw, DiscQuelle{'E', ""}, ausLaufwerk), kDiscOk);

    char sn[16];
    std::snprintf(sn, sizeof sn, "0x%08x", ausAbbild.SN);
    EXPECT_EQ(sn, referenz.at("winserialnum"));
    EXPECT_EQ(ausAbbild.dateisystem, "UDF");
    EXPECT_EQ(ausAbbild.volumenName,
              "Gr\xF6\xDF"
              "e \x80?");  // Windows-1252, Omega has none
    EXPECT_EQ(ausAbbild.BytesLow, 2048u + 70000u);
    EXPECT_EQ(ausAbbild.BytesHigh, 0u);
    EXPECT_STREQ(ausAbbild.cRoot, "");
    EXPECT_STREQ(ausLaufwerk.cRoot, "E:");
    EXPECT_EQ(ausLaufwerk.SN, ausAbbild.SN);
    EXPECT_EQ(ausLaufwerk.volumenName, ausAbbild.volumenName);
    EXPECT_EQ(ausLaufwerk.BytesLow, ausAbbild.BytesLow);
}

TEST_F(DiscAbbild, RegionsfeldAusDemKopf) {
    struct Fall {
        std::string ifo;
        bool gelesen;
        int rc;
    };
    const Fall faelle[] = {
        {test::ifoDatei(0xFD), true, 2},        // region 2 only
        {test::ifoDatei(0x00), true, 255},      // all regions
        {test::ifoDatei(0xC0, 104), true, 63},  // exactly the header
        {test::ifoDatei(0x00, 103), false, 0},  // one byte short
        {"", false, 0},
    };
    int nr = 0;
    for (const auto& f : faelle) {
        const std::string abbild = baue(baum(f.ifo), "FILM", true, std::to_string(++nr) + ".iso");
        DiscInfo info;
        ASSERT_EQ(leseDiscInfo(lw, DiscQuelle{0, abbild}, info), kDiscOk);
        DiscAnzeige anzeige;
        anzeige.rc = 99;
        fuelleDiscAnzeige(lw, DiscQuelle{0, abbild}, info, anzeige);
        EXPECT_EQ(anzeige.rcGelesen, f.gelesen) << nr;
        EXPECT_EQ(anzeige.rc, f.gelesen ? f.rc : 99) << nr;
        EXPECT_EQ(anzeige.dateisystem, "UDF");
        EXPECT_EQ(anzeige.sn, std::to_string(info.SN));
        EXPECT_EQ(anzeige.bytesLow, std::to_string(f.ifo.size() + 70000));
        EXPECT_EQ(anzeige.bytesHigh, "0");
        EXPECT_EQ(anzeige.typ, "DVD 5 oder DVD 10");
    }
    // Without the folder the field stays too.
    const std::string ohne =
        baue({{"ANDERES/VIDEO_TS.IFO", test::ifoDatei(0xFD)}}, "X", true, "o.iso");
    DiscAnzeige anzeige;
    anzeige.rc = 5;
    fuelleDiscAnzeige(lw, DiscQuelle{0, ohne}, DiscInfo{}, anzeige);
    EXPECT_FALSE(anzeige.rcGelesen);
    EXPECT_EQ(anzeige.rc, 5);
}

TEST_F(DiscAbbild, FalschesDateisystemUndDefekteAbbilder) {
    test::FakeBenutzer benutzer;
    const std::string iso = baue(baum(test::ifoDatei(0xFD)), "CD", false);
    DiscInfo info;
    int code = leseDiscInfo(lw, DiscQuelle{0, iso}, info);
    EXPECT_EQ(code, kDiscFalschesDateisystem);
    EXPECT_EQ(info.dateisystem, "CDFS");
    meldeDiscFehler(benutzer, code, info);

    test::schreibeDatei(tmp / "zufall.iso", std::string(300000, '\x5A'));
    code = leseDiscInfo(lw, DiscQuelle{0, tmp / "zufall.iso"}, info);
    EXPECT_EQ(code, kDiscLesefehler);
    meldeDiscFehler(benutzer, code, info);

    const std::string udf = baue(baum(test::ifoDatei(0xFD)), "FILM", true, "kurz.iso");
    test::schreibeDatei(udf, test::leseDatei(udf).substr(0, 257 * 2048));  // anchor only
    EXPECT_EQ(leseDiscInfo(lw, DiscQuelle{0, udf}, info), kDiscLesefehler);
    EXPECT_FALSE(info.fehlerText.empty());

    meldeDiscFehler(benutzer, kDiscKeinLaufwerk, info);
    ASSERT_EQ(benutzer.meldungen.size(), 3u);
    EXPECT_EQ(benutzer.meldungen[0].titel, "Falsches Dateisystem");
    EXPECT_NE(benutzer.meldungen[0].text.find("\"CDFS\""), std::string::npos);
    EXPECT_EQ(benutzer.meldungen[1].titel, "DVD-Info konnte nicht ermittelt werden");
    EXPECT_EQ(benutzer.meldungen[1].text, "Der Datenträger enthält kein bekanntes Dateisystem.");
    EXPECT_EQ(benutzer.meldungen[2].titel, "Undefiniertes Laufwerk");
    EXPECT_EQ(benutzer.meldungen[2].text, "Es wurde noch kein Standard DVD-Laufwerk ausgewählt.");
    for (const auto& m : benutzer.meldungen) EXPECT_EQ(m.symbol, Symbol::Fehler);
}

TEST_F(DiscAbbild, KatalogDvdFinden) {
    const std::string abbild = baue(baum(test::ifoDatei(0xFD)));
    DiscInfo info;
    ASSERT_EQ(leseDiscInfo(lw, DiscQuelle{0, abbild}, info), kDiscOk);

    test::DomainUmgebung u;
    Datenbank& db = *u.db;
    test::FakeBenutzer benutzer;
    EXPECT_EQ(findeDisc(db, benutzer, lw, DiscQuelle{0, abbild}).dvdId, 0);
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].titel, "Hinweis");
    EXPECT_EQ(benutzer.meldungen[0].text, "Diese DVD ist noch unbekannt.");
    EXPECT_EQ(benutzer.meldungen[0].symbol, Symbol::Information);

    // A DVD with the same serial but another size is a different disc.
    tab::DVD::Zeile z{};
    std::strcpy(z.cpText, "Andere");
    z.SN = info.SN;
    z.BytesLow = info.BytesLow + 1;
    db.katalog().DVD.insert(z);
    std::strcpy(z.cpText, "Gesucht");
    z.BytesLow = info.BytesLow;
    const long dvd = db.katalog().DVD.insert(z);
    db.katalog().DVD_Box.insert(7, dvd, 0, 1);
    const DiscFund fund = findeDisc(db, benutzer, lw, DiscQuelle{0, abbild});
    EXPECT_EQ(fund.dvdId, dvd);
    EXPECT_EQ(fund.boxId, 7);
    EXPECT_EQ(benutzer.meldungen.size(), 1u);

    EXPECT_EQ(findeDisc(db, benutzer, lw, DiscQuelle{}).dvdId, 0);
    ASSERT_EQ(benutzer.meldungen.size(), 2u);
    EXPECT_EQ(benutzer.meldungen[1].titel, "Hinweis");
    EXPECT_EQ(benutzer.meldungen[1].text, "Die DVD-Daten konnten nicht gelesen werden.");
}

class DiscWahl : public ::testing::Test {
  protected:
    test::TempOrdner tmp;
    Einstellungen einstellungen{tmp / "einstellungen.conf"};
    TestLaufwerke lw;
    WahlBenutzer benutzer;
};

TEST_F(DiscWahl, KeinLaufwerkUndEinLaufwerkDasUebernommenWird) {
    char b = 'E';
    EXPECT_FALSE(waehleLaufwerk(benutzer, lw, einstellungen, b));
    EXPECT_EQ(b, 'E');
    EXPECT_EQ(gespeichertesLaufwerk(einstellungen), 0);
    lw.laufwerke = {{'D', "/dev/sr0", "Hersteller Typ"}};
    EXPECT_TRUE(waehleLaufwerk(benutzer, lw, einstellungen, b));
    EXPECT_EQ(b, 'D');
    std::string text;
    ASSERT_TRUE(einstellungen.getText("DvdRom", text));
    EXPECT_EQ(text, "D");
    ASSERT_EQ(benutzer.meldungen.size(), 2u);
    EXPECT_EQ(benutzer.meldungen[0].text, "Kein DVD-Laufwerk gefunden.");
    EXPECT_EQ(benutzer.meldungen[1].titel, "CD/DVD-Laufwerk gefunden");
    EXPECT_EQ(benutzer.meldungen[1].text, "Laufwerk D:\\ wurde übernommen.");
    EXPECT_EQ(benutzer.meldungen[1].symbol, Symbol::Information);
}

TEST_F(DiscWahl, MehrereZurAuswahl) {
    lw.laufwerke = {{'D', "/dev/sr0", ""}, {'E', "/dev/sr1", "Brenner"}, {'F', "/dev/sr2", ""}};
    std::array<int, 26> flags{};
    EXPECT_EQ(zaehleLaufwerke(lw, flags), 3);
    EXPECT_EQ(flags[3] + flags[4] + flags[5], 3);
    EXPECT_EQ(flags[0] + flags[2] + flags[6], 0);

    char b = 'E';
    benutzer.auswahlen.push_back({});  // cancelled
    EXPECT_FALSE(waehleLaufwerk(benutzer, lw, einstellungen, b));
    EXPECT_EQ(b, 'E');
    EXPECT_EQ(benutzer.vorauswahl, 1);
    ASSERT_EQ(benutzer.angeboten.size(), 3u);
    EXPECT_EQ(benutzer.angeboten[1], "E:\\  /dev/sr1  Brenner");
    EXPECT_EQ(gespeichertesLaufwerk(einstellungen), 0);

    benutzer.auswahlen.push_back({2});
    EXPECT_TRUE(waehleLaufwerk(benutzer, lw, einstellungen, b));
    EXPECT_EQ(b, 'F');
    EXPECT_EQ(gespeichertesLaufwerk(einstellungen), 'F');
    EXPECT_TRUE(benutzer.meldungen.empty());

    b = 'X';  // a letter that no drive has: nothing preset
    benutzer.auswahlen.push_back({0});
    EXPECT_TRUE(waehleLaufwerk(benutzer, lw, einstellungen, b));
    EXPECT_EQ(benutzer.vorauswahl, -1);
    EXPECT_EQ(b, 'D');
}

TEST_F(DiscWahl, LaufwerkSetzenUndSchublade) {
    lw.laufwerke = {{'D', "/dev/sr0", ""}, {'E', "/dev/sr1", ""}};
    EXPECT_TRUE(setzeLaufwerk(benutzer, lw, einstellungen, 'e'));
    EXPECT_EQ(gespeichertesLaufwerk(einstellungen), 'E');
    EXPECT_FALSE(setzeLaufwerk(benutzer, lw, einstellungen, 'Q'));
    EXPECT_EQ(gespeichertesLaufwerk(einstellungen), 'E');
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].text, "Laufwerk Q: ist kein CD/DVD-Laufwerk.");

    EXPECT_TRUE(bewegeSchublade(benutzer, lw, 'E', true));
    EXPECT_TRUE(bewegeSchublade(benutzer, lw, 0, false));
    ASSERT_EQ(lw.schubladen.size(), 2u);
    EXPECT_EQ(lw.schubladen[0], std::make_pair(std::string("/dev/sr1"), true));
    EXPECT_EQ(lw.schubladen[1], std::make_pair(std::string("/dev/sr0"), false));

    lw.schubladeErgebnis = {LaufwerkFehler::NichtMoeglich, 0, "geht nicht"};
    EXPECT_FALSE(bewegeSchublade(benutzer, lw, 'D', true));
    ASSERT_EQ(benutzer.meldungen.size(), 2u);
    EXPECT_EQ(benutzer.meldungen[1].text, "geht nicht");
    EXPECT_EQ(benutzer.meldungen[1].symbol, Symbol::Fehler);
}

}  // namespace
}  // namespace dv
