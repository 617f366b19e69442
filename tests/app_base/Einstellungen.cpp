// The settings store on a file of its own: the registry's semantics of a missing
// key, of defaults that are not written back, and of numbers against texts.

#include "app/base/Einstellungen.h"

#include <gtest/gtest.h>

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
};

TEST_F(EinstellungenTest, WithoutAStoreEveryGetterFailsAndNothingIsWritten) {
    std::uint32_t z = 99;
    std::string t = "unverändert";
    EXPECT_FALSE(e.getOptions(z));
    EXPECT_FALSE(e.getOptions2(z));
    EXPECT_FALSE(e.getMaxFilmeAufklappen(z));
    EXPECT_FALSE(e.getFilmTitelSuche(z));
    EXPECT_FALSE(e.getFilter(z));
    EXPECT_FALSE(e.getXMLFilter(z));
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

TEST_F(EinstellungenTest, NamedDefaultsAreNotWrittenBack) {
    legeAn();
    const std::string vorher = leseDatei(pfad);
    std::uint32_t z = 0;
    EXPECT_TRUE(e.getOptions(z));
    EXPECT_EQ(z, 47118u);
    EXPECT_TRUE(e.getOptions2(z));
    EXPECT_EQ(z, 12u);
    EXPECT_TRUE(e.getMaxFilmeAufklappen(z));
    EXPECT_EQ(z, 10u);
    EXPECT_TRUE(e.getFilmTitelSuche(z));
    EXPECT_EQ(z, 7u);
    z = 5;
    EXPECT_FALSE(e.getFilter(z));
    EXPECT_FALSE(e.getXMLFilter(z));
    EXPECT_EQ(z, 5u);
    EXPECT_EQ(leseDatei(pfad), vorher);
}

TEST_F(EinstellungenTest, StoredNamedValuesWin) {
    EXPECT_TRUE(e.setOptions(1));
    EXPECT_TRUE(e.setOptions2(2));
    EXPECT_TRUE(e.setMaxFilmeAufklappen(0));
    EXPECT_TRUE(e.setFilmTitelSuche(0xFFFFFFFFu));
    EXPECT_TRUE(e.setFilter(0));
    EXPECT_TRUE(e.setXMLFilter(4));
    Einstellungen neu(pfad);
    std::uint32_t z = 77;
    EXPECT_TRUE(neu.getOptions(z));
    EXPECT_EQ(z, 1u);
    EXPECT_TRUE(neu.getOptions2(z));
    EXPECT_EQ(z, 2u);
    EXPECT_TRUE(neu.getMaxFilmeAufklappen(z));
    EXPECT_EQ(z, 0u);
    EXPECT_TRUE(neu.getFilmTitelSuche(z));
    EXPECT_EQ(z, 0xFFFFFFFFu);
    EXPECT_TRUE(neu.getFilter(z));
    EXPECT_EQ(z, 0u);
    EXPECT_TRUE(neu.getXMLFilter(z));
    EXPECT_EQ(z, 4u);
}

TEST_F(EinstellungenTest, GenericNumberGetterStoresTheCallersValue) {
    legeAn();
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
    std::string t;
    EXPECT_TRUE(e.getText("A", t));
    EXPECT_EQ(t, "123");  // neither read as a number nor overwritten by one
    t = "bleibt";
    EXPECT_FALSE(e.getText("B", t));
    EXPECT_EQ(t, "bleibt");
    ASSERT_TRUE(e.setText("Options", "47"));
    EXPECT_TRUE(e.getOptions(z));
    EXPECT_EQ(z, 47118u);
}

TEST_F(EinstellungenTest, TextLengthLimits) {
    const std::string t255(255, 'x'), t256(256, 'y'), t259(259, 'u'), t260(260, 'v');
    ASSERT_TRUE(e.setText("DvdRom", t255));
    ASSERT_TRUE(e.setText("Export", t256));
    ASSERT_TRUE(e.setImportUrl(t259));
    ASSERT_TRUE(e.setLastPicPath(t260));
    std::string t = "alt";
    EXPECT_TRUE(e.getText("DvdRom", t));
    EXPECT_EQ(t, t255);
    t = "alt";
    EXPECT_FALSE(e.getText("Export", t));
    EXPECT_EQ(t, "alt");
    EXPECT_TRUE(e.getImportUrl(t));
    EXPECT_EQ(t, t259);
    t = "alt";
    EXPECT_FALSE(e.getLastPicPath(t));
    EXPECT_EQ(t, "alt");
    ASSERT_TRUE(e.setLastPicPath("/bilder/Größe \x80/"));
    EXPECT_TRUE(e.getLastPicPath(t));
    EXPECT_EQ(t, "/bilder/Größe \x80/");
}

TEST_F(EinstellungenTest, DeletingTheMainWindowPosition) {
    ASSERT_TRUE(e.setFensterPosition("WP_main", "1,2,3,4,5,6,7,8,9,10,"));
    ASSERT_TRUE(e.setFensterPosition("WP_suche", "5,"));
    EXPECT_TRUE(e.loescheFensterPosition());
    std::string t = "leer";
    EXPECT_FALSE(e.getFensterPosition("WP_main", t));
    EXPECT_EQ(t, "leer");
    EXPECT_TRUE(e.getFensterPosition("WP_suche", t));
    EXPECT_EQ(t, "5,");
    EXPECT_TRUE(e.loescheFensterPosition("WP_suche"));
    EXPECT_FALSE(e.getFensterPosition("WP_suche", t));
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
