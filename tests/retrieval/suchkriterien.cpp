// The rows of a search: names by code and back, and the normalisation.
#include <gtest/gtest.h>

#include "retrieval/Suchkriterien.h"
#include "tests/retrieval/Katalogbau.h"

using namespace dv;
using namespace dv::test;

namespace {

std::vector<const SearchCriterion*> zeilen(const KriterienListe& l) {
    std::vector<const SearchCriterion*> v;
    for (const SearchCriterion* k = l.kopf(); k; k = k->next) v.push_back(k);
    return v;
}

}  // namespace

TEST(Suchkriterien, NamenUndUnbekannteCodes) {
    EXPECT_STREQ(operatorName(4), ">=");
    EXPECT_STREQ(operatorName(0), "?");
    EXPECT_STREQ(operatorName(7), "?");
    EXPECT_STREQ(verknuepfungsName(1), "<=>");
    EXPECT_STREQ(verknuepfungsName(3), "ODER");
    EXPECT_STREQ(verknuepfungsName(4), "");
    EXPECT_STREQ(kriteriumsName(1, 4), "Extras");
    EXPECT_STREQ(kriteriumsName(2, 7), "Bytes (High)");
    EXPECT_STREQ(kriteriumsName(3, 3), "L\xe4nge");
    EXPECT_STREQ(kriteriumsName(3, 14), "Alias");
    EXPECT_STREQ(kriteriumsName(3, 15), "");
    EXPECT_STREQ(kriteriumsName(2, 9), "");
    EXPECT_STREQ(kriteriumsName(4, 1), "");

    EXPECT_EQ(kriteriumAusName(3, "l\xe4nge"), 3);
    EXPECT_EQ(kriteriumAusName(2, "BYTES (LOW)"), 6);
    EXPECT_EQ(kriteriumAusName(1, "Titel"), 0);
    EXPECT_EQ(operatorAusName("<="), 6);
    EXPECT_EQ(operatorAusName("=="), 0);
    EXPECT_EQ(verknuepfungAusName("oder"), 3);
    EXPECT_EQ(objektTypAusName("dvd"), 2);
    EXPECT_EQ(objektTypAusName("Person"), 0);
}

TEST(Suchkriterien, TextUndGeordneteKlassen) {
    for (int k = 1; k <= 4; ++k) EXPECT_TRUE(istTextKriterium(1, k)) << k;
    EXPECT_TRUE(istTextKriterium(2, 4));
    EXPECT_FALSE(istTextKriterium(2, 3));
    for (int k : {2, 3, 4, 14}) EXPECT_FALSE(istTextKriterium(3, k)) << k;
    for (int k : {1, 5, 9, 13}) EXPECT_TRUE(istTextKriterium(3, k)) << k;
    EXPECT_FALSE(istTextKriterium(3, 99));
}

TEST(Suchkriterien, ErsteZeileUndOperatorenWerdenNormalisiert) {
    KriterienListe l = kriterien({{3, 1, kOpGroesser, kVerknuepfungOder, "Matrix"},
                                  {2, 1, kOpKleinerGleich, kVerknuepfungUnd, "x"},
                                  {1, 4, kOpGroesser, kVerknuepfungOder, "2000"},
                                  {3, 14, kOpGroesser, kVerknuepfungUnd, "5"},
                                  {3, 6, 9, kVerknuepfungUnd, "Drama"}});
    normalisiere(l);
    const auto z = zeilen(l);
    EXPECT_EQ(z[0]->combination, kVerknuepfungUnd);
    EXPECT_EQ(z[0]->op, kOpUngleich);  // Titel > Matrix works as !=
    EXPECT_EQ(z[1]->op, kOpGleich);
    // Every row carries the first row's object type: Film criterion 4 is the year.
    EXPECT_EQ(z[2]->objectType, 3);
    EXPECT_EQ(z[2]->op, kOpGroesser);
    EXPECT_EQ(z[2]->combination, kVerknuepfungOder);
    EXPECT_EQ(z[3]->op, kOpGroesser);  // Alias is ordered
    EXPECT_EQ(z[4]->op, 9);            // unknown codes are carried along
}

TEST(Suchkriterien, PaareNurInFilmsuchenUndNieVerkettet) {
    KriterienListe box =
        kriterien({{1, 1, 1, kVerknuepfungPaar, "a"}, {1, 2, 1, kVerknuepfungPaar, "b"}});
    normalisiere(box);
    for (const SearchCriterion* k : zeilen(box)) {
        EXPECT_EQ(k->combination, kVerknuepfungUnd);
        EXPECT_EQ(k->partner, nullptr);
    }

    KriterienListe film = kriterien({{3, 7, 1, 2, "Deutsch"},
                                     {3, 8, 1, kVerknuepfungPaar, "DTS"},
                                     {3, 10, 1, kVerknuepfungPaar, "Hanks"},
                                     {3, 1, 1, 2, "X"},
                                     {3, 4, 1, kVerknuepfungPaar, "2000"}});
    normalisiere(film);
    const auto z = zeilen(film);
    // The third row pairs with the second, which gives up its pair with the first.
    EXPECT_EQ(z[0]->partner, nullptr);
    EXPECT_EQ(z[1]->combination, kVerknuepfungUnd);
    EXPECT_EQ(z[1]->partner, z[2]);
    EXPECT_EQ(z[2]->partner, z[1]);
    EXPECT_EQ(z[2]->combination, kVerknuepfungPaar);
    // Jahr cannot be paired: "UND", the links stay.
    EXPECT_EQ(z[4]->combination, kVerknuepfungUnd);
    EXPECT_EQ(z[4]->partner, z[3]);
    EXPECT_EQ(z[3]->partner, z[4]);
}

TEST(Suchkriterien, ListeGibtZeilenFreiUndLaesstSichVerschieben) {
    KriterienListe a;
    for (int i = 0; i < 100000; ++i) a.haengeAn(3, 1, 1, 2, "x");
    KriterienListe b = std::move(a);
    EXPECT_TRUE(a.leer());
    EXPECT_EQ(b.anzahl(), 100000u);
    normalisiere(a);  // an empty list is left alone
    b.leere();
    EXPECT_EQ(b.kopf(), nullptr);
}
