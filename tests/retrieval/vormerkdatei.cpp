// Watch-list files: export, re-import into the same catalogue, objects that
// cannot be found, and damaged files.
#include <gtest/gtest.h>

#include "retrieval/VormerkDatei.h"
#include "tests/retrieval/Katalogbau.h"
#include "tests/support/FesteUhr.h"

using namespace dv;
using namespace dv::test;

namespace {

class VormerkDateiTest : public ZweiBoxen {
  protected:
    void SetUp() override {
        ZweiBoxen::SetUp();
        // A DVD held by two boxes is written with the box that comes first.
        ASSERT_GT(k().DVD_Box.insert(b1, d2, 9, 9), 0);
    }

    std::string datei(const std::string& inhalt) {
        const std::string p = basis / "v.vml";
        schreibeDatei(p, inhalt);
        return p;
    }
    std::string log() { return leseDatei(ordner.meldungen + kVormerkImportLog); }

    FesteUhr uhr{7, 3, 2024, 9, 5, 1};
};

}  // namespace

TEST_F(VormerkDateiTest, ExportUndWiederImport) {
    const long a = v.neu("Verleihen");
    const long leer = v.neu("Leer");
    v.fuegeHinzu(a, kObjektBox, b1);
    v.fuegeHinzu(a, kObjektDvd, d2);
    v.fuegeHinzu(a, kObjektFilm, f3);
    v.fuegeHinzu(a, kObjektFilm, f1);
    v.fuegeHinzu(a, 7, f1);             // unknown type: not written
    v.fuegeHinzu(a, kObjektFilm, 999);  // gone: not written
    const std::string text = vormerkDateiText(*db, {a, 0, leer});
    EXPECT_EQ(text,
              "@V1.1\r\n# N=<Bezeichner>\r\n# <Typ>\t<Box-EAN>\t<Titel>\r\n"
              "N=Verleihen\r\n1\t111\tAlien Box\r\n2\t111\tDisc\tEins\r\n"
              "3\t111\tTitel\tmit Tab\r\n3\t111\tAlien\r\nN=Leer\r\n");

    const std::string p = basis / "Vormerklisten.vml";
    ASSERT_TRUE(exportiereVormerklisten(*db, {a, leer}, p));
    const VormerkImport e = importiereVormerklisten(*db, benutzer, p);
    EXPECT_TRUE(e.gelesen);
    EXPECT_EQ(e.listen, 2);
    EXPECT_EQ(e.importiert, 4);
    EXPECT_EQ(e.fehler, 0);
    EXPECT_TRUE(benutzer.meldungen.empty());
    // Every "N=" line makes a new list of the same name with the same entries.
    const auto listen = v.listen();
    ASSERT_EQ(listen.size(), 4u);
    EXPECT_EQ(listen[2].name, "Verleihen");
    EXPECT_EQ(listen[3].name, "Leer");
    EXPECT_EQ(liste(listen[2].id), el(1, b1) + el(2, d2) + el(3, f3) + el(3, f1));
    EXPECT_EQ(liste(listen[3].id), "");
    EXPECT_FALSE(gibtEs(ordner.meldungen + kVormerkImportLog));
}

TEST_F(VormerkDateiTest, NichtGefundeneObjekteWerdenProtokolliert) {
    const VormerkImport e = importiereVormerklisten(
        *db, benutzer,
        datei("@V1.1\n"
              "1\t111\tAlien Box\n"  // before the first list: ignored, no log line
              "N=Import\n"
              "1\t111\tAlien Box\n"
              "1\t111\talien box\n"  // titles compare exactly
              "2\t222\tAlien DVD\n"  // the DVD is not in the box of that EAN
              "3\t111\tAlien\n"
              "3\t999\n"              // no title at all
              "9\t111\tAlien\n"       // unknown type: ignored
              "-1\t111\tAlien Box\n"  // negative or non-numeric type: ignored too
              "x\t111\tAlien Box\n"
              "N\n"  // too short: ignored
              "\n"));
    EXPECT_EQ(e.listen, 1);
    EXPECT_EQ(e.importiert, 2);
    EXPECT_EQ(e.fehler, 3);
    EXPECT_EQ(
        log(),
        "<07.03.2024 09:05:01> Nicht importiert: Liste <Import>, Typ<Box>, EAN<111>, Titel<alien "
        "box>.\n"
        "<07.03.2024 09:05:01> Nicht importiert: Liste <Import>, Typ<Dvd>, EAN<222>, Titel<Alien "
        "DVD>.\n"
        "<07.03.2024 09:05:01> Nicht importiert: Liste <Import>, Typ<Film>, EAN<999>, Titel<>.\n");
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].text,
              "Es konnten nicht alle Elemente importiert werden!\nBitte untersuchen Sie dazu die "
              "Datei\n\"vormerklisten_import_error.log\"\nim Meldungs-Verzeichnis");
    const auto listen = v.listen();
    ASSERT_EQ(listen.size(), 1u);
    EXPECT_EQ(liste(listen[0].id), el(1, b1) + el(3, f1));
}

TEST_F(VormerkDateiTest, FremdeVersionBeendetDasLesen) {
    const VormerkImport e = importiereVormerklisten(
        *db, benutzer,
        datei("N=Vorher\r\n1\t111\tAlien Box\r\n@V2.0\r\nN=Nachher\r\n1\t111\tAlien Box\r\n"));
    EXPECT_TRUE(e.versionsfehler);
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].text, "IST-Version:\tV2.0\rSOLL-Version:\tV1.1");
    // The list created before the version line stays.
    const auto listen = v.listen();
    ASSERT_EQ(listen.size(), 1u);
    EXPECT_EQ(listen[0].name, "Vorher");
    EXPECT_EQ(liste(listen[0].id), el(1, b1));
}

TEST_F(VormerkDateiTest, KaputteDateien) {
    // Missing file: nothing happens, nothing is shown.
    VormerkImport e = importiereVormerklisten(*db, benutzer, basis / "fehlt.vml");
    EXPECT_FALSE(e.gelesen);
    EXPECT_TRUE(benutzer.meldungen.empty());

    // A long name is cut to 128 characters; a line of 3,000 bytes arrives in
    // pieces, and the pieces after the first are no entry lines.
    const std::string lang = "N=" + std::string(3000, 'x') + "\n1\t111\tAlien Box\n";
    e = importiereVormerklisten(*db, benutzer, datei(lang));
    EXPECT_EQ(e.listen, 1);
    EXPECT_EQ(e.importiert, 1);
    ASSERT_EQ(v.listen().size(), 1u);
    EXPECT_EQ(v.listen()[0].name, std::string(128, 'x'));

    // Binary rubbish: no list, no crash.
    std::string muell;
    for (int i = 0; i < 5000; ++i) muell += static_cast<char>((i * 37) % 256);
    e = importiereVormerklisten(*db, benutzer, datei(muell));
    EXPECT_TRUE(e.gelesen);
}
