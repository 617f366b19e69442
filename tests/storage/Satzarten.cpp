// Every record class: its size on disk, the bytes of its fields, and a round
// trip at the edges of its field widths.

#include <gtest/gtest.h>

#include <tuple>

#include "storage/Katalog.h"
#include "tests/storage/Umgebung.h"

namespace dv::test {
namespace {

class Satzarten : public ::testing::Test {
  protected:
    Umgebung env;
    Katalog k{env.u};
    void SetUp() override {
        for (Tabelle* t : k.alle()) ASSERT_TRUE(t->create());
    }
    // The bytes of slot id of a table file.
    std::string satz(const Tabelle& t, long id) {
        return leseDatei(t.pfad()).substr((id - 1) * t.getRecordSize(), t.getRecordSize());
    }
    // Slot id holds exactly the bytes b, and reads back as the field values w.
    template <class T, class... W>
    void pruefe(T& t, long id, const Satz& b, W... w) {
        SCOPED_TRACE(t.name());
        EXPECT_EQ(satz(t, id), b.s);
        auto l = t.eine(id);
        ASSERT_TRUE(l);
        EXPECT_EQ(T::felder(T::zeile(l.get())), std::make_tuple(w...));
    }
};

TEST_F(Satzarten, RecordSizes) {
    const std::pair<Tabelle*, unsigned> faelle[] = {
        {&k.Genre, 132},  {&k.DVD_Film, 14},      {&k.Film_Person, 18}, {&k.Titel, 75},
        {&k.Film, 9},     {&k.Film_Sprachen, 18}, {&k.DVD_Box, 18},     {&k.Person, 134},
        {&k.DVD, 90},     {&k.Film_Genre, 14},    {&k.TagStempel, 133}, {&k.Box, 92},
        {&k.Filter, 141}, {&k.Vormerk, 16},       {&k.Vormerk2, 18},    {&k.DatenVersion, 28}};
    for (auto [t, groesse] : faelle) EXPECT_EQ(t->getRecordSize(), groesse) << t->name();
}

TEST_F(Satzarten, Tabelle1TextsAtTheFieldWidth) {
    Tabelle1& t = k.Genre;
    const std::string t127(127, 'a'), t128(128, 'b'), t200(200, 'c');
    const long a = t.insert(t127.c_str()), b = t.insert(t128.c_str()), c = t.insert(t200.c_str());
    pruefe(t, a, Satz(1).text(t127, 128), t127);
    pruefe(t, b, Satz(2).text(t128, 128), t128);  // no terminator on disk
    // A caller passing more than the field holds gets it cut, never spilling over.
    pruefe(t, c, Satz(3).text(t200, 128), std::string(128, 'c'));
    EXPECT_EQ(leseDatei(t.pfad()).size(), 3 * 132u);
    // Bytes above 0x7F are stored as they are (Windows-1252).
    const long d = t.insert("Komödie \x80");
    EXPECT_STREQ(Tabelle1::zeile(t.eine(d).get()).cpText, "Komödie \x80");
}

TEST_F(Satzarten, LinkClassesAtTheEdgesOfTheirNumbers) {
    pruefe(k.DVD_Film, k.DVD_Film.insert(0x7FFFFFFF, 17, 65535),
           Satz(1).i32(0x7FFFFFFF).i32(17).u16(65535), 0x7FFFFFFF, 17, 65535);
    ASSERT_TRUE(k.DVD_Film.update(1, 1, 2, 9));
    pruefe(k.DVD_Film, 1, Satz(1).i32(1).i32(2).u16(9), 1, 2, 9);
    pruefe(k.Film_Genre, k.Film_Genre.insert(42, 7, 3), Satz(1).i32(42).i32(7).u16(3), 42, 7, 3);
    pruefe(k.Film_Person, k.Film_Person.insert(1, 2, 3, 4), Satz(1).i32(1).i32(2).i32(3).u16(4), 1,
           2, 3, 4);
    pruefe(k.Film_Sprachen, k.Film_Sprachen.insert(5, 6, 7, 8), Satz(1).i32(5).i32(6).i32(7).u16(8),
           5, 6, 7, 8);
    pruefe(k.DVD_Box, k.DVD_Box.insert(9, 10, 11, 12), Satz(1).i32(9).i32(10).i32(11).u16(12), 9,
           10, 11, 12);
    ASSERT_TRUE(k.DVD_Box.update(1, 9, 10, 0, 2));
    pruefe(k.DVD_Box, 1, Satz(1).i32(9).i32(10).i32(0).u16(2), 9, 10, 0, 2);
    pruefe(k.Vormerk2, k.Vormerk2.insert(1, 3, 77, 4), Satz(1).i32(1).i32(3).i32(77).u16(4), 1, 3,
           77, 4);
    ASSERT_TRUE(k.Vormerk2.update(1, 1, 3, 77, 5));
    pruefe(k.Vormerk2, 1, Satz(1).i32(1).i32(3).i32(77).u16(5), 1, 3, 77, 5);
}

TEST_F(Satzarten, TitleFilmAndStampTag) {
    const std::string t64(64, 'T'), s128(128, 'S');
    pruefe(k.Titel, k.Titel.insert(123, -2, t64.c_str(), 7),
           Satz(1).i32(123).i8(-2).text(t64, 64).u16(7), 123, -2, t64, 7);
    pruefe(k.Film, k.Film.insert(18, 142, 1999), Satz(1).i8(18).i16(142).i16(1999), 18, 142, 1999);
    ASSERT_TRUE(k.Film.update(1, 0, 90, 2007));
    pruefe(k.Film, 1, Satz(1).i8(0).i16(90).i16(2007), 0, 90, 2007);
    pruefe(k.TagStempel, k.TagStempel.insert(5, s128.c_str()), Satz(1).i8(5).text(s128, 128), 5,
           s128);
    // A shorter text leaves no tail of the longer one.
    ASSERT_TRUE(k.TagStempel.update(1, 6, "kurz"));
    pruefe(k.TagStempel, 1, Satz(1).i8(6).text("kurz", 128), 6, std::string("kurz"));
}

TEST_F(Satzarten, PersonShorterNameLeavesNoTail) {
    Tabelle8& t = k.Person;
    const long id = t.insert(2, "Schwarzenegger", "Arnold");
    ASSERT_TRUE(t.update(id, 1, "Li", "Jet"));
    pruefe(t, id, Satz(1).i16(1).text("Li", 64).text("Jet", 64), 1, std::string("Li"),
           std::string("Jet"));
    const std::string n64(64, 'N');
    pruefe(t, t.insert(0, n64.c_str(), n64.c_str()), Satz(2).i16(0).text(n64, 64).text(n64, 64), 0,
           n64, n64);
}

TEST_F(Satzarten, DvdLayoutAndUnsignedFields) {
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
    const std::string d64(64, 'D');
    auto bytes = [&](const std::string& text) {
        return Satz(1)
            .i16(2004)
            .i8(2)
            .i8(-128)
            .text(text, 64)
            .i32(3)
            .n(0xFFFFFFFFu)
            .i16(148)
            .n(0x89ABCDEFu)
            .n(1u);
    };
    pruefe(k.DVD, k.DVD.insert(d), bytes(d64), 2004, 2, -128, d64, 3, 0xFFFFFFFFu, 148, 0x89ABCDEFu,
           1u);
    d.cpText[0] = 'x';
    d.cpText[1] = '\0';
    EXPECT_TRUE(k.DVD.update(1, d));
    pruefe(k.DVD, 1, bytes("x"), 2004, 2, -128, std::string("x"), 3, 0xFFFFFFFFu, 148, 0x89ABCDEFu,
           1u);
}

TEST_F(Satzarten, BoxWithThirteenDigitEanAndFilter) {
    pruefe(k.Box, k.Box.insert("4011846012345", "Der Pate - Trilogie", 2, 3),
           Satz(1).text("4011846012345", 16).text("Der Pate - Trilogie", 64).i32(2).i32(3),
           std::string("4011846012345"), std::string("Der Pate - Trilogie"), 2, 3);
    ASSERT_TRUE(k.Box.update(1, "123", "Pate", 0, 0));
    pruefe(k.Box, 1, Satz(1).text("123", 16).text("Pate", 64).i32(0).i32(0), std::string("123"),
           std::string("Pate"), 0, 0);
    const std::string e128(128, 'E');
    pruefe(k.Filter, k.Filter.insert(4, 9, -1, e128.c_str()),
           Satz(1).i32(4).i8(9).i32(-1).text(e128, 128), 4, 9, -1, e128);
}

TEST_F(Satzarten, WatchListIsReadOnlyThroughTheEngine) {
    // No insert of its own: the rows come from the file as written elsewhere.
    schreibeDatei(k.Vormerk.pfad(), Satz(1).i32(7).i32(8).i32(9).i32(2).s + std::string(12, '\0'));
    EXPECT_EQ(ids(k.Vormerk.alle().get()), std::vector<long>{1});
    pruefe(k.Vormerk, 1, Satz(1).i32(7).i32(8).i32(9), 7, 8, 9);
    EXPECT_EQ(k.Vormerk.select(2), nullptr);
}

TEST_F(Satzarten, VersionRecordKeepsItsEightCharacterDate) {
    TabelleVersion& v = k.DatenVersion;
    DatenVersionSatz s;
    s.teil[0] = 4;
    s.teil[3] = 1;
    std::memcpy(s.datum, "20070406", 9);
    ASSERT_TRUE(v.schreibe(s));
    EXPECT_EQ(leseDatei(v.pfad()), Satz(1).i32(4).i32(0).i32(0).i32(1).text("20070406", 8).s);
    DatenVersionSatz gelesen;
    ASSERT_TRUE(v.lese(gelesen));
    EXPECT_EQ(std::string(gelesen.datum), "20070406");
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
