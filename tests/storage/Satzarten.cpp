// Every record class: its size on disk, the positions of its fields, and a
// round trip at the edges of its field widths.

#include <gtest/gtest.h>

#include "storage/Katalog.h"
#include "tests/storage/Umgebung.h"

namespace dv::test {
namespace {

class Satzarten : public ::testing::Test {
protected:
    Umgebung env;
    // The bytes of slot id of a table file.
    std::string satz(const Tabelle& t, long id) {
        return leseDatei(t.pfad()).substr((id - 1) * t.getRecordSize(), t.getRecordSize());
    }
    template <class T>
    static std::int64_t zahl(const std::string& s, std::size_t pos) {
        T v;
        std::memcpy(&v, s.data() + pos, sizeof v);
        return v;
    }
};

TEST_F(Satzarten, RecordSizes) {
    Katalog k(env.u);
    EXPECT_EQ(k.Genre.getRecordSize(), 132u);
    EXPECT_EQ(k.DVD_Film.getRecordSize(), 14u);
    EXPECT_EQ(k.Film_Person.getRecordSize(), 18u);
    EXPECT_EQ(k.Titel.getRecordSize(), 75u);
    EXPECT_EQ(k.Film.getRecordSize(), 9u);
    EXPECT_EQ(k.Film_Sprachen.getRecordSize(), 18u);
    EXPECT_EQ(k.DVD_Box.getRecordSize(), 18u);
    EXPECT_EQ(k.Person.getRecordSize(), 134u);
    EXPECT_EQ(k.DVD.getRecordSize(), 90u);
    EXPECT_EQ(k.Film_Genre.getRecordSize(), 14u);
    EXPECT_EQ(k.TagStempel.getRecordSize(), 133u);
    EXPECT_EQ(k.Box.getRecordSize(), 92u);
    EXPECT_EQ(k.Filter.getRecordSize(), 141u);
    EXPECT_EQ(k.Vormerk.getRecordSize(), 16u);
    EXPECT_EQ(k.Vormerk2.getRecordSize(), 18u);
    EXPECT_EQ(k.DatenVersion.getRecordSize(), 28u);
}

TEST_F(Satzarten, Tabelle1TextsAtTheFieldWidth) {
    Tabelle1 t(env.u, "Genre");
    ASSERT_TRUE(t.create());
    const std::string t127(127, 'a'), t128(128, 'b'), t200(200, 'c');
    const long a = t.insert(t127.c_str()), b = t.insert(t128.c_str()), c = t.insert(t200.c_str());
    EXPECT_EQ(Tabelle1::zeile(t.eine(a).get()).cpText, t127);
    EXPECT_EQ(Tabelle1::zeile(t.eine(b).get()).cpText, t128);  // no terminator on disk
    EXPECT_EQ(satz(t, b).back(), 'b');
    // A caller passing more than the field holds gets it cut, never spilling over.
    EXPECT_EQ(Tabelle1::zeile(t.eine(c).get()).cpText, std::string(128, 'c'));
    EXPECT_EQ(leseDatei(t.pfad()).size(), 3 * 132u);
    // Bytes above 0x7F are stored as they are (Windows-1252).
    const long d = t.insert("Komödie \x80");
    EXPECT_STREQ(Tabelle1::zeile(t.eine(d).get()).cpText, "Komödie \x80");
}

TEST_F(Satzarten, LinkRecordsTabelle2And10) {
    Tabelle2 t2(env.u, "DVD_Film");
    ASSERT_TRUE(t2.create());
    Tabelle10 t10(env.u, "Film_Genre");
    ASSERT_TRUE(t10.create());
    const long a = t2.insert(0x7FFFFFFF, 17, 65535);
    const long b = t10.insert(42, 7, 3);
    const auto z2 = Tabelle2::zeile(t2.eine(a).get());
    EXPECT_EQ(z2.DVD_Id, 0x7FFFFFFF);
    EXPECT_EQ(z2.Objekt1_Id, 17);
    EXPECT_EQ(z2.Pos, 65535);
    const std::string s = satz(t10, b);
    EXPECT_EQ(zahl<std::int32_t>(s, 4), 42);
    EXPECT_EQ(zahl<std::int32_t>(s, 8), 7);
    EXPECT_EQ(zahl<std::uint16_t>(s, 12), 3);
    EXPECT_TRUE(t2.update(a, 1, 2, 9));
    EXPECT_EQ(Tabelle2::zeile(t2.eine(a).get()).Pos, 9);
}

TEST_F(Satzarten, Tabelle3And6And7) {
    Tabelle3 t3(env.u, "Film_Person");
    ASSERT_TRUE(t3.create());
    Tabelle6 t6(env.u, "Film_Sprachen");
    ASSERT_TRUE(t6.create());
    Tabelle7 t7(env.u, "DVD_Box");
    ASSERT_TRUE(t7.create());
    const long a = t3.insert(1, 2, 3, 4);
    const long b = t6.insert(5, 6, 7, 8);
    const long c = t7.insert(9, 10, 11, 12);
    const std::string s3 = satz(t3, a), s6 = satz(t6, b), s7 = satz(t7, c);
    EXPECT_EQ(zahl<std::int32_t>(s3, 12), 3);
    EXPECT_EQ(zahl<std::uint16_t>(s3, 16), 4);
    EXPECT_EQ(zahl<std::int32_t>(s6, 12), 7);
    EXPECT_EQ(zahl<std::uint16_t>(s7, 16), 12);
    const auto z7 = Tabelle7::zeile(t7.eine(c).get());
    EXPECT_EQ(z7.Box_Id, 9);
    EXPECT_EQ(z7.Sammelbox_Id, 11);
    EXPECT_TRUE(t7.update(c, 9, 10, 0, 2));
    EXPECT_EQ(Tabelle7::zeile(t7.eine(c).get()).Sammelbox_Id, 0);
    EXPECT_EQ(Tabelle6::zeile(t6.eine(b).get()).Tonformat_Id, 7);
    EXPECT_EQ(Tabelle3::zeile(t3.eine(a).get()).Person_Id, 2);
}

TEST_F(Satzarten, Tabelle4TitleLayout) {
    Tabelle4 t(env.u, "Titel");
    ASSERT_TRUE(t.create());
    const std::string lang(64, 'T');
    const long id = t.insert(123, -2, lang.c_str(), 7);
    const std::string s = satz(t, id);
    EXPECT_EQ(zahl<std::int32_t>(s, 4), 123);
    EXPECT_EQ(zahl<std::int8_t>(s, 8), -2);
    EXPECT_EQ(s.substr(9, 64), lang);
    EXPECT_EQ(zahl<std::uint16_t>(s, 73), 7);
    const auto z = Tabelle4::zeile(t.eine(id).get());
    EXPECT_EQ(z.cpTitel, lang);
    EXPECT_EQ(z.Typ, -2);
    EXPECT_EQ(z.Pos, 7);
}

TEST_F(Satzarten, Tabelle5FilmAndItsUpdate) {
    Tabelle5 t(env.u, "Film");
    ASSERT_TRUE(t.create());
    const long id = t.insert(18, 142, 1999);
    EXPECT_EQ(zahl<std::int8_t>(satz(t, id), 4), 18);
    EXPECT_EQ(zahl<std::int16_t>(satz(t, id), 5), 142);
    EXPECT_EQ(zahl<std::int16_t>(satz(t, id), 7), 1999);
    EXPECT_TRUE(t.update(id, 0, 90, 2007));
    const auto z = Tabelle5::zeile(t.eine(id).get());
    EXPECT_EQ(z.FSK, 0);
    EXPECT_EQ(z.Laenge, 90);
    EXPECT_EQ(z.Jahr, 2007);
}

TEST_F(Satzarten, Tabelle8ShorterNameLeavesNoTail) {
    Tabelle8 t(env.u, "Person");
    ASSERT_TRUE(t.create());
    const long id = t.insert(2, "Schwarzenegger", "Arnold");
    ASSERT_TRUE(t.update(id, 1, "Li", "Jet"));
    const auto z = Tabelle8::zeile(t.eine(id).get());
    EXPECT_STREQ(z.cpName, "Li");
    EXPECT_STREQ(z.cpVorname, "Jet");
    EXPECT_EQ(z.Instanz, 1);
    const std::string s = satz(t, id);
    EXPECT_EQ(s.substr(6, 3), std::string("Li\0", 3));
    EXPECT_TRUE(nullIm(s, 8, 70));
    EXPECT_EQ(s.substr(70, 4), std::string("Jet\0", 4));
    EXPECT_TRUE(nullIm(s, 73, 134));
    const std::string n64(64, 'N');
    const long voll = t.insert(0, n64.c_str(), n64.c_str());
    EXPECT_EQ(Tabelle8::zeile(t.eine(voll).get()).cpName, n64);
    EXPECT_EQ(Tabelle8::zeile(t.eine(voll).get()).cpVorname, n64);
}

TEST_F(Satzarten, Tabelle9DvdLayoutAndUnsignedFields) {
    Tabelle9 t(env.u, "DVD");
    ASSERT_TRUE(t.create());
    Zeile9 d{};
    d.Jahr = 2004;
    d.RC = 2;
    d.Opt = -128;
    std::memset(d.cpText, 'D', sizeof d.cpText);  // no terminator: the table cuts at 64
    d.Formate_Id = 3;
    d.SN = 0xFFFFFFFFu;
    d.Laenge = 148;
    d.BytesLow = 0x89ABCDEFu;
    d.BytesHigh = 0x00000001u;
    const long id = t.insert(d);
    const std::string s = satz(t, id);
    EXPECT_EQ(zahl<std::int16_t>(s, 4), 2004);
    EXPECT_EQ(zahl<std::int8_t>(s, 6), 2);
    EXPECT_EQ(zahl<std::int8_t>(s, 7), -128);
    EXPECT_EQ(s.substr(8, 64), std::string(64, 'D'));
    EXPECT_EQ(zahl<std::int32_t>(s, 72), 3);
    EXPECT_EQ(zahl<std::uint32_t>(s, 76), 0xFFFFFFFFu);
    EXPECT_EQ(zahl<std::int16_t>(s, 80), 148);
    EXPECT_EQ(zahl<std::uint32_t>(s, 82), 0x89ABCDEFu);
    EXPECT_EQ(zahl<std::uint32_t>(s, 86), 1u);
    const auto z = Tabelle9::zeile(t.eine(id).get());
    EXPECT_EQ(z.SN, 0xFFFFFFFFu);
    EXPECT_EQ(z.cpText, std::string(64, 'D'));
    d.cpText[0] = 'x';
    d.cpText[1] = '\0';
    EXPECT_TRUE(t.update(id, d));
    EXPECT_STREQ(Tabelle9::zeile(t.eine(id).get()).cpText, "x");
}

TEST_F(Satzarten, Tabelle11StampTags) {
    Tabelle11 t(env.u, "TagStempel");
    ASSERT_TRUE(t.create());
    const std::string lang(128, 'S');
    const long id = t.insert(5, lang.c_str());
    EXPECT_EQ(zahl<std::int8_t>(satz(t, id), 4), 5);
    EXPECT_EQ(Tabelle11::zeile(t.eine(id).get()).cpText, lang);
    EXPECT_TRUE(t.update(id, 6, "kurz"));
    EXPECT_STREQ(Tabelle11::zeile(t.eine(id).get()).cpText, "kurz");
    EXPECT_TRUE(nullIm(satz(t, id), 9, 133));
}

TEST_F(Satzarten, Tabelle12BoxWithThirteenDigitEan) {
    Tabelle12 t(env.u, "Box");
    ASSERT_TRUE(t.create());
    const long id = t.insert("4011846012345", "Der Pate - Trilogie", 2, 3);
    const std::string s = satz(t, id);
    EXPECT_EQ(s.substr(4, 16), std::string("4011846012345\0\0\0", 16));
    EXPECT_EQ(s.substr(20, 20), std::string("Der Pate - Trilogie\0", 20));
    EXPECT_EQ(zahl<std::int32_t>(s, 84), 2);
    EXPECT_EQ(zahl<std::int32_t>(s, 88), 3);
    const auto z = Tabelle12::zeile(t.eine(id).get());
    EXPECT_STREQ(z.cpEAN, "4011846012345");
    EXPECT_STREQ(z.cpText, "Der Pate - Trilogie");
    EXPECT_TRUE(t.update(id, "123", "Pate", 0, 0));
    EXPECT_STREQ(Tabelle12::zeile(t.eine(id).get()).cpEAN, "123");
    EXPECT_TRUE(nullIm(satz(t, id), 7, 20));
}

TEST_F(Satzarten, Tabelle13FilterEntries) {
    Tabelle13 t(env.u, "Filter");
    ASSERT_TRUE(t.create());
    const std::string lang(128, 'E');
    const long id = t.insert(4, 9, -1, lang.c_str());
    const std::string s = satz(t, id);
    EXPECT_EQ(zahl<std::int32_t>(s, 4), 4);
    EXPECT_EQ(zahl<std::int8_t>(s, 8), 9);
    EXPECT_EQ(zahl<std::int32_t>(s, 9), -1);
    EXPECT_EQ(s.substr(13, 128), lang);
    EXPECT_EQ(Tabelle13::zeile(t.eine(id).get()).cpExtern, lang);
}

TEST_F(Satzarten, Tabelle14IsReadOnlyThroughTheEngine) {
    // No insert of its own: the rows come from the file as written elsewhere.
    Tabelle14 t(env.u, "Vormerk");
    ASSERT_TRUE(t.create());
    std::string f(32, '\0');
    const std::int32_t werte[8] = {static_cast<std::int32_t>(0x80000001u), 7, 8, 9, 2, 0, 0, 0};
    std::memcpy(f.data(), werte, 32);
    schreibeDatei(t.pfad(), f);
    EXPECT_EQ(ids(t.alle().get()), std::vector<long>{1});
    const auto z = Tabelle14::zeile(t.eine(1).get());
    EXPECT_EQ(z.lWert1, 7);
    EXPECT_EQ(z.lWert3, 9);
    EXPECT_EQ(t.select(2), nullptr);
}

TEST_F(Satzarten, Tabelle15WatchListEntries) {
    Tabelle15 t(env.u, "Vormerk2");
    ASSERT_TRUE(t.create());
    const long id = t.insert(1, 3, 77, 4);
    EXPECT_EQ(zahl<std::int32_t>(satz(t, id), 12), 77);
    EXPECT_EQ(zahl<std::uint16_t>(satz(t, id), 16), 4);
    EXPECT_TRUE(t.update(id, 1, 3, 77, 5));
    EXPECT_EQ(Tabelle15::zeile(t.eine(id).get()).Pos, 5);
}

TEST_F(Satzarten, VersionRecordKeepsItsEightCharacterDate) {
    TabelleVersion v(env.u, "DatenVersion");
    ASSERT_TRUE(v.create());
    DatenVersionSatz s;
    s.teil[0] = 4;
    s.teil[3] = 1;
    std::memcpy(s.datum, "20070406", 9);
    ASSERT_TRUE(v.schreibe(s));
    const std::string b = leseDatei(v.pfad());
    ASSERT_EQ(b.size(), 28u);
    EXPECT_EQ(zahl<std::uint32_t>(b, 0), 0x80000001u);
    EXPECT_EQ(zahl<std::int32_t>(b, 4), 4);
    EXPECT_EQ(zahl<std::int32_t>(b, 16), 1);
    EXPECT_EQ(b.substr(20), "20070406");
    DatenVersionSatz gelesen;
    ASSERT_TRUE(v.lese(gelesen));
    EXPECT_EQ(std::strlen(gelesen.datum), 8u);
    EXPECT_STREQ(gelesen.datum, "20070406");
    EXPECT_EQ(gelesen.teil[0], 4);
    EXPECT_EQ(gelesen.teil[3], 1);
    // A date of nine characters without terminator is cut at eight.
    std::memset(s.datum, '9', 9);
    ASSERT_TRUE(v.schreibe(s));
    ASSERT_TRUE(v.lese(gelesen));
    EXPECT_STREQ(gelesen.datum, "99999999");
}

}  // namespace
}  // namespace dv::test
