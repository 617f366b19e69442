// The catalogue reads as the tree shows them: boxes in title order with their
// counts and covers, DVDs and films with their running numbers, a film's groups,
// owners, and the texts of unknown objects.
#include "tests/app/Dienstumgebung.h"

using namespace dv;
using namespace dv::test;

namespace {

using KatalogLesen = Dienstumgebung;

TEST_F(KatalogLesen, BaumZeilenGruppenUndBesitzer) {
    BoxWerte b;
    b.titel = "Zorro";
    b.ean = "4001";
    const NeueBox zorro = objekte().neueBox(b).wert();
    b.titel = "Ärger im Paradies";
    b.ean.clear();
    const NeueBox aerger = objekte().neueBox(b).wert();
    DvdWerte d;
    d.titel = "Bonus";
    const long bonus = objekte().neueDvd(aerger.box, d).wert();
    schreibeDatei(programm("Cover/" + std::to_string(zorro.box) + ".jpg"), "bild");

    EXPECT_EQ(katalog().boxen(),
              (std::vector<BoxZeile>{{aerger.box, "Ärger im Paradies", "", false, 2},
                                     {zorro.box, "Zorro", "4001", true, 1}}));
    EXPECT_EQ(katalog().dvds(aerger.box),
              (std::vector<DvdZeile>{{aerger.dvd, aerger.box, "Ärger im Paradies", 1, 1},
                                     {bonus, aerger.box, "Bonus", 2, 0}}));
    EXPECT_EQ(katalog().dvd(bonus), (DvdZeile{bonus, aerger.box, "Bonus", 2, 0}));
    EXPECT_EQ(katalog().film(zorro.film), (FilmZeile{zorro.film, zorro.dvd, "Zorro", 1}));
    EXPECT_EQ(katalog().box(zorro.box), (BoxZeile{zorro.box, "Zorro", "4001", true, 1}));
    EXPECT_FALSE(katalog().box(99).has_value());
    EXPECT_TRUE(katalog().dvds(99).empty());

    FilmWerte f = objekte().ladeFilm(zorro.film).wert();
    f.genres = {{0, "Abenteuer"}};
    f.sprachen = {{{0, "Deutsch"}, {0, "DTS"}}};
    f.personen = {{{app.db().katalog().Person.insert(0, "Banderas", "Antonio"), ""},
                   {0, "Darsteller"},
                   {"Zorro"}},
                  {{app.db().katalog().Person.insert(0, "Campbell", ""), ""}, {0, "Regie"}, {}}};
    ASSERT_TRUE(objekte().speichereFilm(f).ok());
    const auto gruppen = katalog().gruppen(zorro.film);
    ASSERT_EQ(gruppen.size(), 3u);
    EXPECT_EQ(gruppen[0].text, "Genre");
    EXPECT_EQ(gruppen[1].eintraege[0].text, "Deutsch / DTS");
    EXPECT_EQ(gruppen[2].typ, kTypPerson);
    EXPECT_EQ(gruppen[2].eintraege[0].text, "Antonio Banderas (Darsteller)");
    EXPECT_EQ(gruppen[2].eintraege[0].unter, std::vector<std::string>{"Zorro"});
    EXPECT_EQ(gruppen[2].eintraege[1].text, "Campbell (Regie)");

    EXPECT_EQ(katalog().besitzer(kFilm, zorro.film), zorro.dvd);
    EXPECT_EQ(katalog().besitzer(kDvd, bonus), aerger.box);
    EXPECT_EQ(katalog().besitzer(kBox, zorro.box), 0);
    const Anzahl n = katalog().anzahl();
    EXPECT_EQ(n.boxen + n.dvds + n.filme, 2 + 3 + 2);
    EXPECT_EQ(katalog().spieldauer(kBox, zorro.box).wert(),
              "Alle Filme dieser Box haben eine Gesamtspieldauer von 0 Minuten.");
    EXPECT_TRUE(verweigert(katalog().info(kFilm, 9), Fehlerart::Eingabe,
                           "Kein Objekt vom Typ Film mit der ID 9."));
}

}  // namespace
