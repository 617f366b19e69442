// dorvano-cli dvd on disc images: the dialog's lines, finding the catalogue DVD,
// the default drive and its errors.
#include <gtest/gtest.h>

#include <cstring>

#include "storage/Katalog.h"
#include "tests/cli/CliProgramm.h"
#include "tests/support/DvdAbbild.h"

using namespace dv::test;

namespace {

class CliDvd : public ::testing::Test, protected CliProgramm {
  protected:
    void SetUp() override {
        if (!abbildWerkzeugeDa()) GTEST_SKIP() << "genisoimage oder udfinfo fehlt";
        abbild = baueAbbild(tmp.pfad(),
                            {{"VIDEO_TS/VIDEO_TS.IFO", ifoDatei(0xFB)},
                             {"VIDEO_TS/VTS_01_1.VOB", std::string(100000, 'v')},
                             {"AUDIO_TS/", ""}},
                            reinterpret_cast<const char*>(u8"Müde Helden"));
        ASSERT_FALSE(abbild.empty());
    }
    Lauf dvd(std::vector<std::string> argumente) {
        argumente.insert(argumente.begin(), "dvd");
        return run(argumente);
    }

    std::string abbild;
};

TEST_F(CliDvd, InfoZeigtDieZeilenDesDialogs) {
    const auto referenz = udfinfo(abbild);
    const unsigned long sn = std::stoul(referenz.at("winserialnum"), nullptr, 16);
    const Lauf lauf = dvd({"info", "--abbild", abbild});
    ASSERT_EQ(lauf.code, 0) << lauf.err;
    EXPECT_EQ(lauf.aus,
              "Dateisystem: UDF\n"
              "Bezeichnung: M\xC3\xBC"
              "de Helden\n"
              "SN: " +
                  std::to_string(sn) +
                  "\n"
                  "BytesLow: 102048\n"
                  "BytesHigh: 0\n"
                  "Gr\xC3\xB6\xC3\x9F"
                  "e: 99.66 KB\n"
                  "Typ: DVD 5 oder DVD 10\n"
                  "RC: 4\n");
}

TEST_F(CliDvd, ErkennenFindetDieDvdDesKatalogs) {
    Lauf lauf = dvd({"erkennen", "--abbild", abbild});
    EXPECT_EQ(lauf.code, 1);
    EXPECT_EQ(lauf.err, "Hinweis: Diese DVD ist noch unbekannt.\n");

    const unsigned long sn = std::stoul(udfinfo(abbild).at("winserialnum"), nullptr, 16);
    {
        dv::KeinTrace trace;
        dv::SpeicherUmgebung u;
        u.trace = &trace;
        u.datenOrdner = basis + "Daten/";
        dv::Katalog k(u);
        dv::Zeile9 z{};
        std::strcpy(z.cpText,
                    "M\xFC"
                    "de Helden");  // catalogue text, Windows-1252
        z.SN = static_cast<std::uint32_t>(sn);
        z.BytesLow = 102048;
        const long id = k.DVD.insert(z);
        ASSERT_GT(id, 0);
        ASSERT_GT(k.DVD_Box.insert(3, id, 0, 1), 0);
    }
    lauf = dvd({"erkennen", "--abbild", abbild});
    EXPECT_EQ(lauf.code, 0) << lauf.err;
    EXPECT_EQ(lauf.aus,
              "Dvd\t1\t3\tM\xC3\xBC"
              "de Helden\n");

    schreibeDatei(tmp / "leer.iso", std::string(4096, '\0'));
    lauf = dvd({"erkennen", "--abbild", tmp / "leer.iso"});
    EXPECT_EQ(lauf.code, 1);
    EXPECT_EQ(lauf.err, "Hinweis: Die DVD-Daten konnten nicht gelesen werden.\n");
}

TEST_F(CliDvd, OhneLaufwerkUndFalschesDateisystem) {
    Lauf lauf = dvd({"info"});
    EXPECT_EQ(lauf.code, 1);
    EXPECT_EQ(lauf.err,
              "Undefiniertes Laufwerk: Es wurde noch kein Standard DVD-Laufwerk "
              "ausgew\xC3\xA4hlt.\n");

    const std::string iso = baueAbbild(tmp.pfad(), {{"A.TXT", "a"}}, "CD", false, "cd.iso");
    lauf = dvd({"info", "--abbild", iso});
    EXPECT_EQ(lauf.code, 1);
    EXPECT_EQ(lauf.err.rfind("Falsches Dateisystem: ", 0), 0u) << lauf.err;
    EXPECT_TRUE(lauf.aus.empty());

    lauf = dvd({"info", "--abbild", tmp / "fehlt.iso"});
    EXPECT_EQ(lauf.code, 1);
    EXPECT_EQ(lauf.err,
              "DVD-Info konnte nicht ermittelt werden: Das System kann die angegebene "
              "Datei nicht finden.\n");
}

TEST_F(CliDvd, LaufwerkWaehlen) {
    EXPECT_EQ(dvd({"laufwerk", "7"}).code, 2);
    EXPECT_EQ(dvd({"laufwerk"}).code, 2);
    // No machine of the tests has a drive Z:.
    const Lauf lauf = dvd({"laufwerk", "z:"});
    EXPECT_EQ(lauf.code, 1);
    EXPECT_EQ(lauf.err, "Undefiniertes Laufwerk: Laufwerk Z: ist kein CD/DVD-Laufwerk.\n");
    EXPECT_FALSE(gibtEs(tmp / "cfg/Tormel/DORVANO.conf"));
    EXPECT_EQ(dvd({"laufwerke"}).code, 0);
}

}  // namespace
