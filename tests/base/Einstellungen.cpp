// The settings store on a file of its own: the registry's semantics of a missing
// key, of defaults that are not written back, and of numbers against texts.

#include "base/Einstellungen.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/TempOrdner.h"

namespace dv::test {
namespace {

class EinstellungenTest : public ::testing::Test {
  protected:
    TempOrdner tmp;
    std::string pfad = tmp / "dorvano.ini";
    Einstellungen e{pfad};

    // Makes the store exist with one value that the test does not look at.
    void legeAn() { ASSERT_TRUE(e.setText("Export", "/tmp/")); }
    // The text a getter (getText by default) yields; "-" where it fails and leaves
    // its output alone.
    std::string text(const char* name, bool (Einstellungen::*get)(std::string&) = nullptr) {
        std::string t = "alt";
        return (get ? (e.*get)(t) : e.getText(name, t)) ? t : t == "alt" ? "-" : "?";
    }
};

using Werte = std::vector<long long>;

// The six named numbers in a row: the value read, -1 where the getter fails and
// leaves its output alone, -2 where it fails but changed it.
Werte benannte(Einstellungen& e) {
    Werte w;
    for (auto get : {&Einstellungen::getOptions, &Einstellungen::getOptions2,
                     &Einstellungen::getMaxFilmeAufklappen, &Einstellungen::getFilmTitelSuche,
                     &Einstellungen::getFilter, &Einstellungen::getXMLFilter}) {
        std::uint32_t z = 99;
        w.push_back((e.*get)(z) ? static_cast<long long>(z) : z == 99 ? -1 : -2);
    }
    return w;
}

TEST_F(EinstellungenTest, WithoutAStoreEveryGetterFailsAndNothingIsWritten) {
    EXPECT_EQ(benannte(e), Werte(6, -1));
    std::uint32_t z = 99;
    std::string t = "unverändert";
    EXPECT_FALSE(e.getZahl("Irgendwas", z));
    EXPECT_EQ(z, 99u);
    EXPECT_FALSE(e.getText("DvdRom", t));
    EXPECT_FALSE(e.getImportUrl(t));
    EXPECT_FALSE(e.getLastPicPath(t));
    EXPECT_FALSE(e.getFensterPosition("WP_main", t));
    EXPECT_EQ(t, "unverändert");
    EXPECT_FALSE(e.loescheFensterPosition());
    EXPECT_FALSE(e.vorhanden());
    EXPECT_FALSE(gibtEs(pfad));
    EXPECT_EQ(e.dateiPfad(), pfad);
}

TEST_F(EinstellungenTest, DefaultsAreNotWrittenBackStoredValuesWinAndTheGenericGetterStores) {
    legeAn();
    const std::string vorher = leseDatei(pfad);
    EXPECT_EQ(benannte(e), (Werte{47118, 12, 10, 7, -1, -1}));
    EXPECT_EQ(leseDatei(pfad), vorher);

    EXPECT_TRUE(e.setOptions(1));
    EXPECT_TRUE(e.setOptions2(2));
    EXPECT_TRUE(e.setMaxFilmeAufklappen(0));
    EXPECT_TRUE(e.setFilmTitelSuche(0xFFFFFFFFu));
    EXPECT_TRUE(e.setFilter(0));
    EXPECT_TRUE(e.setXMLFilter(4));
    Einstellungen neu(pfad);
    EXPECT_EQ(benannte(neu), (Werte{1, 2, 0, 0xFFFFFFFFll, 0, 4}));
    // A number without a default: the caller's value is stored and read back.
    std::uint32_t z = 1234;
    EXPECT_TRUE(e.getZahl("SplashTime", z));
    EXPECT_EQ(z, 1234u);
    EXPECT_NE(leseDatei(pfad).find("SplashTime"), std::string::npos);
    std::uint32_t w = 1;
    EXPECT_TRUE(Einstellungen(pfad).getZahl("SplashTime", w));
    EXPECT_EQ(w, 1234u);
}

TEST_F(EinstellungenTest, NumbersAndTextsStayApart) {
    ASSERT_TRUE(e.setText("A", "123"));
    ASSERT_TRUE(e.setZahl("B", 5));
    std::uint32_t z = 9;
    EXPECT_FALSE(e.getZahl("A", z));
    EXPECT_FALSE(e.getFilter(z));
    EXPECT_EQ(z, 9u);
    EXPECT_EQ(text("A"), "123");  // neither read as a number nor overwritten by one
    EXPECT_EQ(text("B"), "-");
    ASSERT_TRUE(e.setText("Options", "47"));
    EXPECT_EQ(benannte(e)[0], 47118);
}

TEST_F(EinstellungenTest, TextLengthLimits) {
    const std::string t255(255, 'x'), t256(256, 'y'), t259(259, 'u'), t260(260, 'v');
    ASSERT_TRUE(e.setText("DvdRom", t255));
    ASSERT_TRUE(e.setText("Export", t256));
    ASSERT_TRUE(e.setImportUrl(t259));
    ASSERT_TRUE(e.setLastPicPath(t260));
    EXPECT_EQ(text("DvdRom"), t255);
    EXPECT_EQ(text("Export"), "-");
    EXPECT_EQ(text("ImportUrl", &Einstellungen::getImportUrl), t259);
    EXPECT_EQ(text("LastPicPath", &Einstellungen::getLastPicPath), "-");
    ASSERT_TRUE(e.setLastPicPath("/bilder/Größe \x80/"));
    EXPECT_EQ(text("LastPicPath", &Einstellungen::getLastPicPath), "/bilder/Größe \x80/");
}

TEST_F(EinstellungenTest, DeletingTheMainWindowPosition) {
    ASSERT_TRUE(e.setFensterPosition("WP_main", "1,2,3,4,5,6,7,8,9,10,"));
    ASSERT_TRUE(e.setFensterPosition("WP_suche", "5,"));
    EXPECT_TRUE(e.loescheFensterPosition());
    EXPECT_EQ(text("WP_main"), "-");
    EXPECT_EQ(text("WP_suche"), "5,");
    EXPECT_TRUE(e.loescheFensterPosition("WP_suche"));
    EXPECT_EQ(text("WP_suche"), "-");
}

TEST_F(EinstellungenTest, UnwritableStoreReportsFailure) {
    schreibeDatei(tmp / "datei", "keine Ordner");
    Einstellungen kaputt(tmp / "datei/dorvano.ini");
    EXPECT_FALSE(kaputt.setZahl("Options", 1));
    EXPECT_FALSE(kaputt.setText("ImportUrl", "x"));
    std::uint32_t z = 3;
    EXPECT_FALSE(kaputt.getOptions(z));
    EXPECT_EQ(z, 3u);
}

}  // namespace
}  // namespace dv::test
