// Tags and stamp tags: tag files, removing all tags of a box, the tag search over
// the tags folder, stamp-tag records and their files.
#include <gtest/gtest.h>

#include <filesystem>

#include "retrieval/Stempeltags.h"
#include "retrieval/Tagverwaltung.h"
#include "tests/retrieval/Katalogbau.h"

using namespace dv;
using namespace dv::test;

namespace {

class TagTest : public ZweiBoxen {
  protected:
    std::string suche(std::string_view text, int typ) {
        std::string s;
        for (const TagTreffer& t : tags.suche(text, typ))
            s += std::to_string(t.typ) + "_" + std::to_string(t.id) + ":" + t.tag + " ";
        return s;
    }

    Tagverwaltung tags{*db, benutzer};
};

}  // namespace

TEST_F(TagTest, LeereListeLoeschtDieDatei) {
    EXPECT_FALSE(tags.hat(kObjektFilm, f1));
    ASSERT_TRUE(tags.schreibe(kObjektFilm, f1, {"verliehen", "DVD fehlt"}));
    EXPECT_TRUE(tags.hat(kObjektFilm, f1));
    EXPECT_EQ(
        leseDatei(ordner.tags + std::to_string(kObjektFilm) + "_" + std::to_string(f1) + ".txt"),
        "verliehen\nDVD fehlt\n");
    EXPECT_TRUE(tags.fuegeHinzu(kObjektFilm, f1, "verliehen"));  // carried already
    EXPECT_EQ(tags.lese(kObjektFilm, f1), (std::vector<std::string>{"verliehen", "DVD fehlt"}));
    ASSERT_TRUE(tags.schreibe(kObjektFilm, f1, {}));
    EXPECT_FALSE(tags.hat(kObjektFilm, f1));
    EXPECT_TRUE(tags.lese(kObjektFilm, f1).empty());
}

TEST_F(TagTest, AlleTagsEinerBoxNurNachJa) {
    const std::vector<std::pair<int, long>> objekte = {{1, b1}, {2, d1}, {3, f1}, {1, b2}, {3, f3}};
    for (auto [typ, id] : objekte) ASSERT_TRUE(tags.schreibe(typ, id, {"x"}));
    benutzer.antworten = {false};
    EXPECT_FALSE(tags.entferneAlleDerBox(b1));
    EXPECT_TRUE(tags.hat(kObjektBox, b1));
    ASSERT_EQ(benutzer.fragen.size(), 1u);
    EXPECT_EQ(benutzer.fragen[0].text,
              "Sollen alle Tags dieser Box, ihrer DVDs und ihrer Filme entfernt werden?");
    benutzer.antworten = {true};
    EXPECT_TRUE(tags.entferneAlleDerBox(b1));
    EXPECT_FALSE(tags.hat(kObjektBox, b1));
    EXPECT_FALSE(tags.hat(kObjektDvd, d1));
    EXPECT_FALSE(tags.hat(kObjektFilm, f1));
    EXPECT_TRUE(tags.hat(kObjektBox, b2));
    EXPECT_TRUE(tags.hat(kObjektFilm, f3));
}

TEST_F(TagTest, TagsucheNachArtUndOhneGrossKlein) {
    ASSERT_TRUE(tags.schreibe(kObjektBox, b1, {"Sammler-DVD", "anderes"}));
    ASSERT_TRUE(tags.schreibe(kObjektDvd, d1, {"dvd defekt"}));
    ASSERT_TRUE(tags.schreibe(kObjektFilm, f3, {"Lieblings-Dvd", "DVD"}));
    ASSERT_TRUE(tags.schreibe(kObjektFilm, f1, {"\xc4rger mit DVD"}));
    const std::string B = "1_" + std::to_string(b1), D = "2_" + std::to_string(d1),
                      F1 = "3_" + std::to_string(f1), F3 = "3_" + std::to_string(f3);
    EXPECT_EQ(suche("dvd", 0), B + ":Sammler-DVD " + D + ":dvd defekt " + F1 +
                                   ":\xc4rger mit DVD " + F3 + ":Lieblings-Dvd " + F3 + ":DVD ");
    EXPECT_EQ(suche("dvd", kObjektFilm),
              F1 + ":\xc4rger mit DVD " + F3 + ":Lieblings-Dvd " + F3 + ":DVD ");
    // Umlauts are not folded.
    EXPECT_EQ(suche("\xe4rger", 0), "");
    EXPECT_EQ(suche("\xc4rger", 0), F1 + ":\xc4rger mit DVD ");
    EXPECT_EQ(suche("", 0), "");
    EXPECT_EQ(suche("gibt es nicht", 0), "");
}

TEST_F(TagTest, FremdeDateienImTagOrdner) {
    ASSERT_TRUE(tags.schreibe(kObjektFilm, f1, {"echt"}));
    const std::string o = ordner.tags;
    for (const char* n : {"notizen.txt", "3_abc.txt", "4_1.txt", "0_1.txt", "3_-5.txt",
                          "3_0012.txt", "3_7.txt.tmp", "3_8.TXT"})
        schreibeDatei(o + n, "echt\n");
    std::filesystem::create_directory(o + "3_9.txt");
    EXPECT_EQ(suche("echt", 0), "3_" + std::to_string(f1) + ":echt ");
    EXPECT_EQ(suche("echt", kObjektBox), "");
}

TEST(Stempelmaske, BuchstabenUndAngebot) {
    EXPECT_EQ(maskeAlsText(5), "BF");
    EXPECT_EQ(maskeAlsText(7), "BDF");
    EXPECT_EQ(maskeAlsText(0), "");
    EXPECT_EQ(maskeAusText("xFyB"), 5);
    EXPECT_EQ(maskeAusText("bdf"), 0);
    EXPECT_FALSE(maskeBietetAn(4, kObjektBox));
    EXPECT_TRUE(maskeBietetAn(4, kObjektFilm));
    EXPECT_TRUE(maskeBietetAn(2, kObjektDvd));
    EXPECT_FALSE(maskeBietetAn(7, 4));
}

TEST_F(TagTest, StempeltagsAnlegenAnwendenExportImport) {
    Stempeltags st(*db, benutzer);
    const long nurFilm = st.neu(kMaskeFilm, "verliehen");
    const long alle = st.neu(kMaskeBox | kMaskeDvd | kMaskeFilm, std::string(300, 's'));
    ASSERT_GT(nurFilm, 0);
    ASSERT_GT(alle, 0);
    EXPECT_EQ(st.neu(0, "ohne Art"), 0);
    EXPECT_EQ(st.neu(kMaskeBox, ""), 0);
    EXPECT_EQ(st.liste()[1].text.size(), kStempelTextMax);
    EXPECT_EQ(st.angebotenFuer(kObjektBox).size(), 1u);

    EXPECT_EQ(st.wendeAn(nurFilm, kObjektBox, b1), StempelAnwenden::NichtAngeboten);
    EXPECT_FALSE(tags.hat(kObjektBox, b1));
    EXPECT_EQ(st.wendeAn(nurFilm, kObjektFilm, f1), StempelAnwenden::Hinzugefuegt);
    EXPECT_EQ(st.wendeAn(nurFilm, kObjektFilm, f1), StempelAnwenden::Hinzugefuegt);
    EXPECT_EQ(tags.lese(kObjektFilm, f1), std::vector<std::string>{"verliehen"});
    EXPECT_EQ(st.wendeAn(999, kObjektFilm, f1), StempelAnwenden::Unbekannt);

    EXPECT_TRUE(st.aendere(alle, kMaskeBox | kMaskeDvd, "Box/DVD"));
    EXPECT_EQ(st.exportText(), "@V1.1\r\n# Typ\tText\t\r\nF\tverliehen\r\nBD\tBox/DVD\r\n");
    const std::string p = basis / "Stempeltags.asc";
    ASSERT_TRUE(st.exportiere(p));
    EXPECT_TRUE(st.loesche(nurFilm));
    EXPECT_FALSE(st.loesche(nurFilm));
    const StempelImport e = st.importiere(p);
    EXPECT_EQ(e.angelegt, 2);
    const auto l = st.liste();
    ASSERT_EQ(l.size(), 3u);
    EXPECT_EQ(maskeAlsText(l[2].maske) + l[2].text, "BDBox/DVD");
}

TEST_F(TagTest, StempelImportPrueftVersionUndZeilen) {
    Stempeltags st(*db, benutzer);
    const std::string p = basis / "s.asc";
    schreibeDatei(p, "F\tErster\n@V1.0\nB\tZweiter\n");
    StempelImport e = st.importiere(p);
    EXPECT_TRUE(e.versionsfehler);
    EXPECT_EQ(e.angelegt, 0);
    EXPECT_TRUE(st.liste().empty());  // nothing half-imported
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].titel, "Versionsfehler");

    schreibeDatei(p,
                  "@V1.1\r\n# Typ\tText\t\r\n"
                  "ohneTab\r\n"
                  "x\tkeine Art\r\n"
                  "F\t\r\n"
                  "DF\tmit\tTab\r\n" +
                      std::string(2000, 'x') +
                      "\tlang\r\n"
                      "B\tEnde ohne Zeilenende");
    e = st.importiere(p);
    EXPECT_FALSE(e.versionsfehler);
    EXPECT_EQ(e.angelegt, 2);
    const auto l = st.liste();
    ASSERT_EQ(l.size(), 2u);
    EXPECT_EQ(maskeAlsText(l[0].maske) + ":" + l[0].text, "DF:mit\tTab");
    EXPECT_EQ(maskeAlsText(l[1].maske) + ":" + l[1].text, "B:Ende ohne Zeilenende");
    EXPECT_FALSE(st.importiere(basis / "fehlt.asc").gelesen);
}
