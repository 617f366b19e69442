// Watch lists: lists and entries in the tables, positions, the content view and
// the set operations with their occurrence rules.
#include <gtest/gtest.h>

#include "retrieval/Vormerklisten.h"
#include "tests/retrieval/Katalogbau.h"

using namespace dv;
using namespace dv::test;

namespace {

using VormerkTest = ZweiBoxen;

VormerkElement ve(int typ, long id) {
    VormerkElement e;
    e.typ = typ;
    e.objektId = id;
    return e;
}

}  // namespace

TEST_F(VormerkTest, ListenAnlegenUmbenennenLoeschen) {
    const long a = v.neu("Verleihen");
    const long b = v.neu(std::string(200, 'n'));
    ASSERT_GT(a, 0);
    ASSERT_GT(b, 0);
    EXPECT_EQ(v.name(b).size(), kVormerkNameMax);
    EXPECT_TRUE(v.benenneUm(a, "Ausgeliehen"));
    EXPECT_EQ(v.name(a), "Ausgeliehen");
    EXPECT_FALSE(v.benenneUm(999, "x"));
    ASSERT_GT(v.fuegeHinzu(a, kObjektFilm, f1), 0);
    ASSERT_GT(v.fuegeHinzu(b, kObjektFilm, f1), 0);

    // Deleting a list takes its entries along and leaves the other list alone.
    EXPECT_TRUE(v.loesche(a));
    EXPECT_FALSE(v.gibtEs(a));
    EXPECT_FALSE(v.loesche(a));
    EXPECT_EQ(zeilen(k().Vormerk2), 1);
    EXPECT_EQ(liste(b), el(3, f1));
    ASSERT_EQ(v.listen().size(), 1u);
    EXPECT_EQ(v.listen()[0].id, b);
}

TEST_F(VormerkTest, PositionenHochRunterKopierenVerschieben) {
    const long a = v.neu("A");
    const long z = v.neu("Z");
    v.fuegeHinzu(a, kObjektBox, b1);
    v.fuegeHinzu(a, kObjektDvd, d1);
    v.fuegeHinzu(a, kObjektFilm, f1);
    const std::string B = el(1, b1), D = el(2, d1), F = el(3, f1);
    EXPECT_EQ(liste(a), B + D + F);
    EXPECT_TRUE(v.verschiebe(a, kObjektFilm, f1, true));
    EXPECT_EQ(liste(a), B + F + D);
    EXPECT_FALSE(v.verschiebe(a, kObjektBox, b1, true));    // already at the top
    EXPECT_FALSE(v.verschiebe(a, kObjektDvd, d1, false));   // already at the bottom
    EXPECT_FALSE(v.verschiebe(a, kObjektFilm, f2, false));  // not listed
    EXPECT_TRUE(v.verschiebe(a, kObjektBox, b1, false));
    EXPECT_EQ(liste(a), F + B + D);

    EXPECT_TRUE(v.kopiere(a, z, kObjektBox, b1));
    EXPECT_FALSE(v.kopiere(a, z, kObjektFilm, f2));
    EXPECT_EQ(liste(a), F + B + D);
    EXPECT_TRUE(v.verschiebeNach(a, z, kObjektFilm, f1));
    EXPECT_EQ(liste(a), B + D);
    EXPECT_EQ(liste(z), B + F);
    EXPECT_TRUE(v.entferne(z, kObjektBox, b1));
    EXPECT_FALSE(v.entferne(z, kObjektBox, b1));
    EXPECT_EQ(liste(z), F);
}

TEST_F(VormerkTest, GleichePositionenLassenSichTauschen) {
    const long a = v.neu("A");
    ASSERT_GT(v.fuegeHinzuAn(a, kObjektFilm, f1, 5), 0);
    ASSERT_GT(v.fuegeHinzuAn(a, kObjektFilm, f2, 5), 0);
    const std::string F1 = el(3, f1), F2 = el(3, f2);
    EXPECT_EQ(liste(a), F1 + F2);
    EXPECT_TRUE(v.verschiebe(a, kObjektFilm, f2, true));
    EXPECT_EQ(liste(a), F2 + F1);
    // At the last position the list is numbered again before the next entry.
    ASSERT_GT(v.fuegeHinzuAn(a, kObjektBox, b1, 65535), 0);
    ASSERT_GT(v.fuegeHinzu(a, kObjektDvd, d1), 0);
    EXPECT_EQ(liste(a), F2 + F1 + el(1, b1) + el(2, d1));
    EXPECT_EQ(v.letztePosition(a), 4);
}

TEST_F(VormerkTest, InhaltMitTitelnUndStatus) {
    const long a = v.neu("Eins");
    const long b = v.neu("Zwei");
    v.fuegeHinzu(a, kObjektFilm, f2);
    v.fuegeHinzu(b, kObjektBox, b1);
    v.fuegeHinzu(b, kObjektFilm, 999);  // an object that does not exist
    const auto inhalt = v.inhalt({b, a});
    ASSERT_EQ(inhalt.size(), 3u);
    EXPECT_EQ(inhalt[0].titel, "Alien Box");
    EXPECT_EQ(inhalt[1].titel, "");
    EXPECT_EQ(inhalt[2].titel, "Aliens");
    EXPECT_EQ(vormerkAlsText(inhalt, v.listen()),
              "[Zwei]:\tBox\t{Alien Box}\r\n[Zwei]:\tFilm\t{}\r\n[Eins]:\tFilm\t{Aliens}\r\n");
    EXPECT_EQ(vormerkStatus(1), "Inhalt der Vormerkliste(n) [1 Element]");
    EXPECT_EQ(vormerkStatus(0), "Inhalt der Vormerkliste(n) [0 Elemente]");
    EXPECT_EQ(vormerkStatus(3), "Inhalt der Vormerkliste(n) [3 Elemente]");
    EXPECT_TRUE(v.inhalt({12345}).empty());
}

TEST_F(VormerkTest, TitelVielerObjekteKommenAusEinemDurchlauf) {
    const long a = v.neu("Viele");
    std::vector<long> filme;
    for (int i = 0; i < 40; ++i) {
        const std::string t = "Film " + std::to_string(i);
        filme.push_back(film(d1, t.c_str()));
        v.fuegeHinzu(a, kObjektFilm, filme.back());
        v.fuegeHinzu(a, kObjektDvd, d1);
        v.fuegeHinzu(a, kObjektBox, b1);
    }
    const auto inhalt = v.inhalt({a});
    ASSERT_EQ(inhalt.size(), 120u);
    for (int i = 0; i < 40; ++i) {
        EXPECT_EQ(inhalt[3 * i].titel, "Film " + std::to_string(i));
        EXPECT_EQ(inhalt[3 * i + 1].titel, "Alien DVD");
        EXPECT_EQ(inhalt[3 * i + 2].titel, "Alien Box");
    }
}

TEST(VormerkMengen, VereinigungSchnittKomplement) {
    const std::vector<VormerkElement> a = {ve(3, 1), ve(3, 1), ve(1, 1), ve(2, 7)};
    const std::vector<VormerkElement> b = {ve(3, 1), ve(1, 2)};
    std::vector<VormerkElement> ab = a;
    ab.insert(ab.end(), b.begin(), b.end());
    // Same id, other type: a different object.
    EXPECT_EQ(folge(vereinigung(ab)), "3:1 1:1 2:7 1:2 ");
    EXPECT_EQ(folge(vereinigung(a)), "3:1 1:1 2:7 ");
    EXPECT_EQ(folge(schnitt({a, b})), "3:1 3:1 ");
    EXPECT_EQ(folge(schnitt({b, a})), "3:1 ");
    EXPECT_EQ(folge(schnitt({a})), folge(a));
    EXPECT_EQ(folge(schnitt({a, b, {}})), "");
    EXPECT_EQ(folge(komplement(a, b)), "3:1 1:1 2:7 ");  // one of the two films goes
    EXPECT_EQ(folge(komplement(a, a)), "");
    EXPECT_EQ(folge(komplement(b, a)), "1:2 ");
    EXPECT_EQ(folge(komplement({}, a)), "");
}
