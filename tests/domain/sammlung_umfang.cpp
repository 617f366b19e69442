// The whole-collection reader with a scope: every list in the scope is built as
// the whole reader builds it, every other list stays empty.
#include <gtest/gtest.h>

#include "domain/Durchlauf.h"
#include "tests/domain/Abbild.h"
#include "tests/domain/DomainUmgebung.h"

using namespace dv;
using namespace dv::test;

namespace {

class SammlungUmfang : public ::testing::Test, public DomainUmgebung {
  protected:
    void SetUp() override {
        for (int i = 0; i < 2; ++i) {
            const long b = box(i ? "Zweite" : "Erste", i ? "2" : "1");
            ASSERT_TRUE(
                db->schreibeExtras(kTypBoxExtras, b, {lookup(kTypExtras, i ? "Poster" : "Heft")}));
            const long d = dvd(b, "DVD");
            ASSERT_TRUE(db->schreibeExtras(kTypExtras, d, {lookup(kTypExtras, "Trailer")}));
            const long f = film(d, i ? "Film B" : "Film A");
            ASSERT_TRUE(db->schreibeFilmObjekte(f, kTypGenre, {lookup(kTypGenre, "Drama")}));
            ASSERT_TRUE(
                db->schreibeFilmObjekte(f, kTypBildformat, {lookup(kTypBildformat, "16:9")}));
            const long deutsch = lookup(kTypSprache, "Deutsch");
            ASSERT_TRUE(db->schreibeFilmObjekte(f, kTypUntertitel, {deutsch}));
            ASSERT_TRUE(db->schreibeFilmSprachen(f, {{deutsch, lookup(kTypTonformat, "DTS")}}));
            ASSERT_TRUE(db->schreibeFilmObjekte(f, kTypFunktion, {1}));
            PersonEintrag p;
            p.person = person("Reeves", "Keanu");
            p.funktion = 1;
            p.alias = {"Neo"};
            ASSERT_TRUE(db->schreibeFilmPersonen(f, {p}));
        }
    }
};

}  // namespace

TEST_F(SammlungUmfang, JederUmfangBautGenauSeineListen) {
    BoxListe ganz = db->ladeSammlung();
    std::vector<unsigned> umfaenge = {0, kUmfangGenres | kUmfangSprachen, kUmfangAlles};
    for (unsigned art = 1; art < kUmfangAlles; art <<= 1) {
        EXPECT_NE(Abbild(art).von(ganz.get()), "") << "Art " << art << " leer";
        umfaenge.push_back(art);
    }
    const unsigned filmListen = kUmfangGenres | kUmfangBildformate | kUmfangUntertitel |
                                kUmfangSprachen | kUmfangPersonen | kUmfangFunktionen;
    for (unsigned u : umfaenge) {
        // The owners a list needs come with it.
        unsigned erwartet = u;
        if (erwartet & filmListen) erwartet |= kUmfangFilme;
        if (erwartet & (kUmfangFilme | kUmfangDvdExtras)) erwartet |= kUmfangDvds;
        BoxListe teil = db->ladeSammlung(u);
        // Every list of the part: those in the scope as in the whole, no others.
        EXPECT_EQ(Abbild().von(teil.get()), Abbild(erwartet | kAbbildBoxen).von(ganz.get()))
            << "Umfang " << u;
    }
    ganz.reset();
    EXPECT_TRUE(spur.offen().empty());
}

TEST_F(SammlungUmfang, DurchlaufBautJedeBoxWieDasGanzeUndGibtSieGleichFrei) {
    std::string ganz;
    {
        BoxListe alles = db->ladeSammlung();
        ganz = Abbild(kUmfangAlles).von(alles.get());
    }
    {
        Sammlungsdurchlauf lauf(*db, kUmfangAlles);
        EXPECT_EQ(lauf.boxen(), 2);
        EXPECT_EQ(lauf.dvds(), 2);
        EXPECT_EQ(lauf.filme(), 2);
        // Boxes not reached yet have empty lists, so one picture collects them all.
        Abbild abbild(kUmfangAlles);
        std::string text;
        std::vector<std::size_t> offen;
        while (BoxElement* b = lauf.naechste()) {
            text = abbild.von(b);
            offen.push_back(spur.offen().size());
        }
        EXPECT_EQ(text, ganz);
        // Both boxes are built alike: had the first one's lists stayed, the
        // second would leave twice as many elements open.
        ASSERT_EQ(offen.size(), 2u);
        EXPECT_EQ(offen[0], offen[1]);
        EXPECT_EQ(lauf.naechste(), nullptr);
    }
    EXPECT_TRUE(spur.offen().empty());
}
