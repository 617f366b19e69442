// The delete cascades, observed in the table files and the side folders.

#include "base/Hilfen.h"
#include "domain/Tags.h"
#include "tests/domain/DomainUmgebung.h"

namespace dv {
namespace {

using test::gibtEs;
using test::schreibeDatei;

class LoeschenTest : public ::testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(u.spur.offen().empty()); }

    // A film with everything that can hang on it: a person with two aliases,
    // a function, two titles, a genre, a picture format, a subtitle, a language,
    // a watch-list row, both side texts and a tag file (and its leftover temp file).
    long vollerFilm(long dvd) {
        const long film = u.film(dvd, "Voll");
        u.k().Titel.insert(film, kTitelOriginal, "Full", 2);
        person = u.person("Muster", "Max");
        const long fp = u.k().Film_Person.insert(film, person, 1, 1);
        for (const char* a : {"Maxi", "MM"}) u.k().Film_Alias.insert(fp, u.lookup(kTypAlias, a), 1);
        u.k().Film_Fkt.insert(film, 1, 1);
        genre = u.lookup(kTypGenre, "Drama");
        u.k().Film_Genre.insert(film, genre, 1);
        u.k().Film_Bildformat.insert(film, u.lookup(kTypBildformat, "16:9"), 1);
        const long de = u.lookup(kTypSprache, "Deutsch");
        u.k().Film_Untertitel.insert(film, de, 1);
        u.k().Film_Sprachen.insert(film, de, u.lookup(kTypTonformat, "DTS"), 1);
        u.k().Vormerk2.insert(1, kObjektFilm, film, 1);
        u.db->schreibeInhalt(film, "Inhalt");
        u.db->schreibeKommentar(film, "Kommentar");
        schreibeTags(*u.su.fs, u.ordner.tags, kObjektFilm, film, {"tag"});
        schreibeDatei(tagDateiPfad(u.ordner.tags, kObjektFilm, film) + ".tmp", "halb");
        return film;
    }

    test::DomainUmgebung u;
    long person = 0;
    long genre = 0;
};

TEST_F(LoeschenTest, FilmMitAllemLaesstNurLookupsUndPersonZurueck) {
    const long box = u.box("B");
    const long dvd = u.dvd(box, "D"), andereDvd = u.dvd(box, "E");
    const long film = vollerFilm(dvd);
    u.k().DVD_Film.insert(andereDvd, film, 1);  // the film is also on another DVD
    const long bleibt = u.film(dvd, "Bleibt");
    u.k().Vormerk2.insert(1, kObjektDvd, film, 2);  // same id, other kind: stays

    ASSERT_TRUE(u.db->loescheFilm(film));
    EXPECT_FALSE(u.k().Film.eine(film));
    Katalog& k = u.k();
    EXPECT_EQ(
        u.ohneZeilenzahl(0, {&k.Alias, &k.Film_Alias, &k.Film_Person, &k.Film_Fkt, &k.Film_Genre,
                             &k.Film_Bildformat, &k.Film_Untertitel, &k.Film_Sprachen}),
        std::vector<std::string>{});
    // The other film's title, its DVD_Film row and the watch-list row of the other kind.
    EXPECT_EQ(u.ohneZeilenzahl(1, {&k.Titel, &k.DVD_Film, &k.Vormerk2}),
              std::vector<std::string>{});
    EXPECT_TRUE(u.k().Person.eine(person));
    EXPECT_TRUE(u.k().Genre.eine(genre));
    EXPECT_FALSE(gibtEs(seitenDateiPfad(u.ordner.inhalt, film)));
    EXPECT_FALSE(gibtEs(seitenDateiPfad(u.ordner.kommentar, film)));
    EXPECT_FALSE(gibtEs(tagDateiPfad(u.ordner.tags, kObjektFilm, film)));
    EXPECT_FALSE(gibtEs(tagDateiPfad(u.ordner.tags, kObjektFilm, film) + ".tmp"));
    auto filme = u.db->getFilmListe(dvd);
    EXPECT_EQ(test::idsVon(filme.get()), std::vector<long>{bleibt});
    EXPECT_FALSE(u.db->getFilmListe(andereDvd));
    // Freed slots are reused by the next insert.
    EXPECT_EQ(u.k().Film.insert(0, 0, 0), film);
}

// The tables of the "deleted" lines, in order.
std::vector<std::string> geloeschteTabellen(const test::SammelTrace& spur) {
    std::vector<std::string> v;
    for (const std::string& z : spur.zeilen)
        if (z.rfind("deleted <", 0) == 0) v.push_back(z.substr(z.find(" from ") + 6));
    return v;
}

TEST_F(LoeschenTest, ReihenfolgeDerKaskaden) {
    const long box = u.box("B");
    const long dvd = u.dvd(box, "D");
    vollerFilm(dvd);
    u.k().DVD_Extras.insert(dvd, u.lookup(kTypExtras, "Trailer"), 1);
    u.k().Vormerk2.insert(1, kObjektDvd, dvd, 2);
    u.k().Box_Extras.insert(box, u.lookup(kTypBoxExtras, "Booklet"), 1);
    u.k().Vormerk2.insert(1, kObjektBox, box, 3);
    u.spur.setzeMaske(kTraceTabelle | kTraceSpeicher);
    u.spur.zeilen.clear();
    ASSERT_TRUE(u.db->loescheBox(box));
    const std::vector<std::string> erwartet = {
        // the film
        "Alias", "Film_Alias", "Alias", "Film_Alias", "Film_Person", "Film_Fkt", "Titel", "Titel",
        "DVD_Film", "Film_Bildformat", "Film_Genre", "Film_Untertitel", "Film_Sprachen", "Vormerk2",
        "Film",
        // its DVD_Film row once more, then the DVD
        "DVD_Film", "DVD_Box", "DVD_Extras", "Vormerk2", "DVD",
        // the box's link row to the DVD, then the box
        "DVD_Box", "Box_Extras", "Vormerk2", "Box"};
    EXPECT_EQ(geloeschteTabellen(u.spur), erwartet);
}

TEST_F(LoeschenTest, BoxNimmtGeteilteDvdAuchAusDerAnderenBox) {
    const long box = u.box("B"), andere = u.box("A");
    const long dvd = u.dvd(box, "D"), eigene = u.dvd(andere, "Eigene");
    u.k().DVD_Box.insert(andere, dvd, 0, 9);
    const long film = vollerFilm(dvd);
    u.k().Box_Extras.insert(box, u.lookup(kTypBoxExtras, "Booklet"), 1);
    u.k().DVD_Extras.insert(dvd, u.lookup(kTypExtras, "Trailer"), 1);
    u.k().Vormerk2.insert(1, kObjektBox, box, 3);
    u.k().Vormerk2.insert(1, kObjektDvd, dvd, 4);
    schreibeTags(echtesDateisystem(), u.ordner.tags, kObjektBox, box, {"b"});
    schreibeTags(echtesDateisystem(), u.ordner.tags, kObjektDvd, dvd, {"d"});
    schreibeTags(echtesDateisystem(), u.ordner.tags, kObjektBox, andere, {"bleibt"});

    ASSERT_TRUE(u.db->loescheBox(box));
    EXPECT_FALSE(u.k().Box.eine(box));
    EXPECT_FALSE(u.k().DVD.eine(dvd));
    EXPECT_FALSE(u.k().Film.eine(film));
    auto dvds = u.db->getDvdListe(andere);
    EXPECT_EQ(test::idsVon(dvds.get()), std::vector<long>{eigene});
    EXPECT_EQ(u.zeilen(u.k().DVD_Box), 1);
    EXPECT_EQ(u.ohneZeilenzahl(0, {&u.k().Box_Extras, &u.k().DVD_Extras, &u.k().Vormerk2}),
              std::vector<std::string>{});
    EXPECT_EQ(u.zeilen(u.k().Extras), 2);  // lookups stay
    EXPECT_FALSE(hatTags(echtesDateisystem(), u.ordner.tags, kObjektBox, box));
    EXPECT_FALSE(hatTags(echtesDateisystem(), u.ordner.tags, kObjektDvd, dvd));
    EXPECT_TRUE(hatTags(echtesDateisystem(), u.ordner.tags, kObjektBox, andere));
}

TEST_F(LoeschenTest, BoxOhneDvds) {
    const long box = u.box("Leer"), andere = u.box("Andere");
    const long extra = u.lookup(kTypBoxExtras, "Poster");
    u.k().Box_Extras.insert(box, extra, 1);
    u.k().Box_Extras.insert(andere, extra, 1);
    u.k().Vormerk2.insert(2, kObjektBox, box, 1);
    ASSERT_TRUE(u.db->loescheBox(box));
    EXPECT_EQ(u.zeilen(u.k().Box), 1);
    EXPECT_EQ(u.zeilen(u.k().Box_Extras), 1);
    EXPECT_EQ(u.zeilen(u.k().Vormerk2), 0);
    EXPECT_TRUE(u.k().Extras.eine(extra));
}

TEST_F(LoeschenTest, UnbekannteIdLoeschtNichts) {
    const long box = u.box("B");
    u.film(u.dvd(box, "D"), "F");
    for (long id : {0L, -1L, 99L}) {
        EXPECT_FALSE(u.db->loescheBox(id));
        EXPECT_FALSE(u.db->loescheDvd(id));
        EXPECT_FALSE(u.db->loescheFilm(id));
    }
    EXPECT_EQ(u.ohneZeilenzahl(1, {&u.k().Box, &u.k().DVD_Box, &u.k().DVD_Film, &u.k().Titel}),
              std::vector<std::string>{});
}

TEST_F(LoeschenTest, DvdMitFilmenUndFilmOhneAlles) {
    const long box = u.box("B");
    const long dvd = u.dvd(box, "D");
    const long f1 = u.film(dvd, "1"), f2 = u.film(dvd, "2");
    const long zweite = u.dvd(box, "Zweite");
    const long nackt = u.k().Film.insert(0, 0, 0);
    u.k().DVD_Film.insert(zweite, nackt, 1);

    ASSERT_TRUE(u.db->loescheFilm(nackt));
    EXPECT_FALSE(u.db->getFilmListe(zweite));
    ASSERT_TRUE(u.db->loescheDvd(dvd));
    EXPECT_FALSE(u.k().Film.eine(f1));
    EXPECT_FALSE(u.k().Film.eine(f2));
    EXPECT_EQ(u.zeilen(u.k().Titel), 0);
    EXPECT_EQ(u.zeilen(u.k().DVD_Film), 0);
    auto dvds = u.db->getDvdListe(box);
    EXPECT_EQ(test::idsVon(dvds.get()), std::vector<long>{zweite});
}

}  // namespace
}  // namespace dv
