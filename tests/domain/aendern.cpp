// Creating, changing, linking, moving and copying objects; and what a failing
// disk leaves behind.

#include "tests/domain/DomainUmgebung.h"
#include "tests/support/FehlerDateisystem.h"

namespace dv {
namespace {

using test::idsVon;
using test::texte;

class AendernTest : public ::testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(u.spur.offen().empty()); }
    test::DomainUmgebung u;
};

TEST_F(AendernTest, NeueObjekteKommenNachDerLetztenPosition) {
    const long box = u.box("B");
    const long alt = u.k().DVD.insert(Zeile9{});
    u.k().DVD_Box.insert(box, alt, 0, 7);  // a gap before it
    const long d1 = u.dvd(box, "Eins");
    const long d2 = u.dvd(box, "Zwei");
    std::vector<int> pos;
    auto l = u.k().DVD_Box.liste(Zeile7{0, static_cast<std::int32_t>(box), 0, 0, 0});
    for (ListenElement* n = l.get(); n; n = n->pNext) pos.push_back(Tabelle7::zeile(n).Pos);
    EXPECT_EQ(pos, (std::vector<int>{7, 8, 9}));
    auto dvds = u.db->getDvdListe(box);
    EXPECT_EQ(idsVon(dvds.get()), (std::vector<long>{alt, d1, d2}));

    EXPECT_EQ(u.db->neueDvd(999, Zeile9{}), 0);
    EXPECT_EQ(u.db->neuerFilm(999, "x", 0, 0, 0), 0);
    const long f = u.film(d1, "Film", 95);
    auto filme = u.db->getFilmListe(d1);
    ASSERT_TRUE(filme);
    EXPECT_STREQ(filme->cpTitel, "Film");
    EXPECT_EQ(filme->Laenge, 95);
    EXPECT_EQ(filme->Id, f);
}

TEST_F(AendernTest, FelderAendern) {
    const long box = u.box("Alt", "111");
    const long verpackung = u.lookup(kTypVerpackung, "Amaray");
    ASSERT_TRUE(u.db->aendereBox(box, "4012345678901", "Neu", verpackung, 0));
    auto b = u.db->getBox(box);
    EXPECT_STREQ(b->cpEAN, "4012345678901");
    EXPECT_STREQ(b->cpText, "Neu");
    EXPECT_EQ(b->Verpackungs_Id, verpackung);
    EXPECT_FALSE(u.db->aendereBox(0, "", "x", 0, 0));  // never an insert
    EXPECT_EQ(u.zeilen(u.k().Box), 1);

    const long dvd = u.dvd(box, "D");
    Zeile9 d{};
    std::strcpy(d.cpText, "Disc");
    d.RC = 6;
    d.SN = 4000000000u;
    ASSERT_TRUE(u.db->aendereDvd(dvd, d));
    auto dv = u.db->getDvd(dvd);
    EXPECT_STREQ(dv->cpText, "Disc");
    EXPECT_EQ(dv->SN, 4000000000u);

    const long film = u.film(dvd, "F");
    ASSERT_TRUE(u.db->aendereFilm(film, 16, 123, 1999));
    auto f = u.db->getFilm(film);
    EXPECT_EQ(f->FSK, 16);
    EXPECT_EQ(f->Laenge, 123);
    EXPECT_EQ(f->Jahr, 1999);
    EXPECT_FALSE(u.db->aendereFilm(film + 1, 0, 0, 0));

    EXPECT_TRUE(u.db->schreibeInhalt(film, "Ein Film über Bäume"));
    std::string text;
    EXPECT_TRUE(u.db->leseInhalt(film, text));
    EXPECT_EQ(text, "Ein Film über Bäume");
    EXPECT_FALSE(u.db->leseKommentar(film, text));
    EXPECT_EQ(text, "");
}

TEST_F(AendernTest, LookupsAnlegenUndFinden) {
    const long g = u.db->neuesLookup(kTypGenre, "Science-Fiction");
    EXPECT_GT(g, 0);
    EXPECT_EQ(u.db->findeLookup(kTypGenre, "science-FICTION"), g);
    EXPECT_EQ(u.db->findeLookup(kTypGenre, "Science"), 0);
    EXPECT_EQ(u.db->findeLookup(kTypBildformat, "Science-Fiction"), 0);
    EXPECT_EQ(u.db->neuesLookup(kTypPerson, "Niemand"), 0);
    EXPECT_EQ(u.db->neuesLookup(1, "x"), 0);
    // Languages and subtitles share one table, as do the two kinds of extras.
    EXPECT_EQ(u.db->lookupTabelle(kTypSprache), u.db->lookupTabelle(kTypUntertitel));
    EXPECT_EQ(u.db->lookupTabelle(kTypExtras), u.db->lookupTabelle(kTypBoxExtras));
    EXPECT_EQ(u.db->findeLookup(kTypFunktion, "regie"), 2);
}

TEST_F(AendernTest, VerknuepfungenInListenreihenfolgeErsetzen) {
    const long box = u.box("B");
    const long dvd = u.dvd(box, "D");
    const long film = u.film(dvd, "F");
    const long a = u.lookup(kTypGenre, "A"), b = u.lookup(kTypGenre, "B"),
               c = u.lookup(kTypGenre, "C");
    ASSERT_TRUE(u.db->schreibeFilmObjekte(film, kTypGenre, {c, a, b}));
    auto g = u.db->getObjektListe(film, kTypGenre);
    EXPECT_EQ(texte(g.get()), (std::vector<std::string>{"C", "A", "B"}));
    EXPECT_EQ(g->pNext->pNext->lPos, 3);
    ASSERT_TRUE(u.db->schreibeFilmObjekte(film, kTypGenre, {b}));
    EXPECT_EQ(u.zeilen(u.k().Film_Genre), 1);
    EXPECT_FALSE(u.db->schreibeFilmObjekte(film, kTypGenre, {a, 0}));
    EXPECT_FALSE(u.db->schreibeFilmObjekte(film, kTypPerson, {a}));
    EXPECT_EQ(texte(u.db->getObjektListe(film, kTypGenre).get()), std::vector<std::string>{"B"});

    const long de = u.lookup(kTypSprache, "Deutsch"), en = u.lookup(kTypSprache, "Englisch");
    const long dts = u.lookup(kTypTonformat, "DTS");
    ASSERT_TRUE(u.db->schreibeFilmSprachen(film, {{en, dts}, {de, dts}}));
    EXPECT_EQ(texte(u.db->getObjektListe(film, kTypSprache).get()),
              (std::vector<std::string>{"Englisch", "Deutsch"}));
    ASSERT_TRUE(u.db->schreibeFilmObjekte(film, kTypUntertitel, {de}));
    EXPECT_EQ(texte(u.db->getObjektListe(film, kTypUntertitel).get()),
              std::vector<std::string>{"Deutsch"});

    const long x = u.lookup(kTypExtras, "Trailer"), y = u.lookup(kTypExtras, "Booklet");
    ASSERT_TRUE(u.db->schreibeExtras(kTypBoxExtras, box, {y, x}));
    ASSERT_TRUE(u.db->schreibeExtras(kTypExtras, dvd, {x}));
    EXPECT_FALSE(u.db->schreibeExtras(kTypExtras, box + 50, {x}));
    EXPECT_EQ(texte(u.db->getObjektListe(box, kTypBoxExtras).get()),
              (std::vector<std::string>{"Booklet", "Trailer"}));
    EXPECT_EQ(texte(u.db->getObjektListe(dvd, kTypExtras).get()),
              std::vector<std::string>{"Trailer"});

    ASSERT_TRUE(u.db->schreibeFilmTitel(film, {"Haupt", "Original", {"Alt 1", "", "Alt 2"}}));
    const FilmTitel t = u.db->leseFilmTitel(film);
    EXPECT_EQ(t.haupt, "Haupt");
    EXPECT_EQ(t.original, "Original");
    EXPECT_EQ(t.weitere, (std::vector<std::string>{"Alt 1", "Alt 2"}));
    EXPECT_EQ(u.zeilen(u.k().Titel), 4);
}

TEST_F(AendernTest, PersonenMitAliasSchreibenUndErsetzen) {
    const long film = u.film(u.dvd(u.box("B"), "D"), "F");
    const long p = u.person("Lang", "Fritz"), q = u.person("Brühl", "Daniel");
    ASSERT_TRUE(u.db->schreibeFilmPersonen(film, {{q, 1, {}}, {p, 2, {"F. L.", "Fritz"}}}));
    auto personen = u.db->getPersonenListe(film);
    ASSERT_TRUE(personen && personen->pNext);
    EXPECT_STREQ(personen->pPerson->zeile.cpName, "Brühl");
    EXPECT_EQ(personen->pNext->lFunktion, 2);
    EXPECT_STREQ(Tabelle1::zeile(personen->pNext->pAlias).cpText, "F. L.");
    EXPECT_STREQ(Tabelle1::zeile(personen->pNext->pAlias->pNext).cpText, "Fritz");

    const long fp = personen->pNext->lVerknuepfung;
    ASSERT_TRUE(u.db->schreibeFilmAlias(fp, {"Der Meister"}));
    EXPECT_EQ(texte(u.db->getObjektListe(fp, kTypAlias).get()),
              std::vector<std::string>{"Der Meister"});
    EXPECT_EQ(u.zeilen(u.k().Alias), 1);

    ASSERT_TRUE(u.db->schreibeFilmPersonen(film, {{p, 1, {"X"}}}));
    EXPECT_EQ(u.zeilen(u.k().Film_Person), 1);
    EXPECT_EQ(u.zeilen(u.k().Alias), 1);
    EXPECT_EQ(u.zeilen(u.k().Film_Alias), 1);
    EXPECT_EQ(u.zeilen(u.k().Person), 2);
    EXPECT_FALSE(u.db->schreibeFilmPersonen(film, {{p, 0, {}}}));
}

TEST_F(AendernTest, HochUndRunterTauschenNachbarn) {
    const long box = u.box("B");
    const long d1 = u.dvd(box, "1"), d2 = u.dvd(box, "2"), d3 = u.dvd(box, "3");
    EXPECT_FALSE(u.db->verschiebeDvd(box, d1, true));
    EXPECT_FALSE(u.db->verschiebeDvd(box, d3, false));
    EXPECT_FALSE(u.db->verschiebeDvd(box, 999, true));
    ASSERT_TRUE(u.db->verschiebeDvd(box, d3, true));
    EXPECT_EQ(idsVon(u.db->getDvdListe(box).get()), (std::vector<long>{d1, d3, d2}));
    ASSERT_TRUE(u.db->verschiebeDvd(box, d1, false));
    EXPECT_EQ(idsVon(u.db->getDvdListe(box).get()), (std::vector<long>{d3, d1, d2}));

    // Equal positions (left by an import, say) are renumbered so the move shows.
    u.film(d1, "a");
    u.film(d1, "b");
    auto links = u.k().DVD_Film.alle();
    for (ListenElement* n = links.get(); n; n = n->pNext) {
        const Zeile2& z = Tabelle2::zeile(n);
        u.k().DVD_Film.update(z.Id, z.DVD_Id, z.Objekt1_Id, 4);
    }
    const std::vector<long> vorher = idsVon(u.db->getFilmListe(d1).get());
    ASSERT_TRUE(u.db->verschiebeFilm(d1, vorher[1], true));
    EXPECT_EQ(idsVon(u.db->getFilmListe(d1).get()), (std::vector<long>{vorher[1], vorher[0]}));
}

TEST_F(AendernTest, KopierenMitAllenVerknuepfungenAlsLetztes) {
    const long box = u.box("B"), ziel = u.box("Z");
    const long dvd = u.dvd(box, "Quelle");
    const long vorhanden = u.dvd(ziel, "Vorhanden");
    const long film = u.film(dvd, "F");
    const long p = u.person("Lang", "Fritz");
    ASSERT_TRUE(u.db->schreibeFilmPersonen(film, {{p, 2, {"FL"}}}));
    ASSERT_TRUE(u.db->schreibeFilmObjekte(film, kTypGenre, {u.lookup(kTypGenre, "Drama")}));
    ASSERT_TRUE(u.db->schreibeExtras(kTypExtras, dvd, {u.lookup(kTypExtras, "Trailer")}));
    u.db->schreibeKommentar(film, "gut");

    const long kopie = u.db->kopiereDvd(dvd, ziel);
    ASSERT_GT(kopie, 0);
    auto dvds = u.db->getDvdListe(ziel);
    EXPECT_EQ(idsVon(dvds.get()), (std::vector<long>{vorhanden, kopie}));
    u.db->ladeDvd(*dvds->pNext);
    const DvdElement& k = *dvds->pNext;
    EXPECT_STREQ(k.cpText, "Quelle");
    EXPECT_EQ(texte(k.pExtras), std::vector<std::string>{"Trailer"});
    ASSERT_TRUE(k.pFilme);
    EXPECT_NE(k.pFilme->Id, film);
    EXPECT_STREQ(k.pFilme->cpTitel, "F");
    EXPECT_EQ(texte(k.pFilme->pGenres), std::vector<std::string>{"Drama"});
    ASSERT_TRUE(k.pFilme->pPersonen);
    EXPECT_EQ(k.pFilme->pPersonen->pPerson->zeile.Id, p);
    EXPECT_STREQ(Tabelle1::zeile(k.pFilme->pPersonen->pAlias).cpText, "FL");
    std::string text;
    EXPECT_TRUE(u.db->leseKommentar(k.pFilme->Id, text));
    EXPECT_EQ(text, "gut");

    // The copy is independent: deleting it leaves the source whole.
    ASSERT_TRUE(u.db->loescheDvd(kopie));
    auto quelle = u.db->getFilmListe(dvd);
    ASSERT_TRUE(quelle);
    u.db->ladeFilm(*quelle);
    EXPECT_STREQ(Tabelle1::zeile(quelle->pPersonen->pAlias).cpText, "FL");

    const long filmKopie = u.db->kopiereFilm(film, vorhanden);
    ASSERT_GT(filmKopie, 0);
    EXPECT_EQ(idsVon(u.db->getFilmListe(vorhanden).get()), std::vector<long>{filmKopie});
    EXPECT_EQ(u.db->kopiereFilm(film, 999), 0);
    EXPECT_EQ(u.db->kopiereDvd(999, ziel), 0);
}

// Every link row of the owner tables names a row that exists.
void pruefeKeineLinksInsLeere(test::DomainUmgebung& u) {
    Katalog& k = u.k();
    k.DVD_Box.scanne([&](const Zeile7& z) {
        EXPECT_TRUE(k.Box.eine(z.Box_Id)) << "DVD_Box " << z.Id;
        EXPECT_TRUE(k.DVD.eine(z.DVD_Id)) << "DVD_Box " << z.Id;
    });
    k.DVD_Film.scanne([&](const Zeile2& z) {
        EXPECT_TRUE(k.DVD.eine(z.DVD_Id)) << "DVD_Film " << z.Id;
        EXPECT_TRUE(k.Film.eine(z.Objekt1_Id)) << "DVD_Film " << z.Id;
    });
    k.Film_Alias.scanne([&](const Zeile2& z) {
        EXPECT_TRUE(k.Film_Person.eine(z.DVD_Id)) << "Film_Alias " << z.Id;
        EXPECT_TRUE(k.Alias.eine(z.Objekt1_Id)) << "Film_Alias " << z.Id;
    });
    k.Film_Person.scanne(
        [&](const Zeile3& z) { EXPECT_TRUE(k.Film.eine(z.Film_Id)) << "Film_Person " << z.Id; });
}

// Runs op with the disk failing from its n-th write on, for every n until op
// runs through; after each failure and the next start (which puts back what a
// disk that failed even the rollback left) the catalogue must hold no link to
// nothing and must still build its lists.
template <class Vorbereitung, class Op, class Nachher = void (*)(test::DomainUmgebung&, long)>
void mitFehlerAnJederStelle(
    Vorbereitung&& vorbereiten, Op&& op, Nachher nachFehler = [](test::DomainUmgebung&, long) {}) {
    for (int n = 1; n < 80; ++n) {
        test::FehlerDateisystem fs;
        test::DomainUmgebung u(fs);
        const long box = vorbereiten(u);
        fs.scheitereAbSchreibvorgang = fs.schreibvorgaenge + n;
        fs.zerreissen = n % 2 == 0;
        const bool ok = op(u, box);
        fs.scheitereAbSchreibvorgang = 0;
        SCOPED_TRACE(n);
        stelleWiederHer(u.su);
        pruefeKeineLinksInsLeere(u);
        if (!ok) nachFehler(u, box);
        {
            auto alles = u.db->ladeSammlung();
            EXPECT_TRUE(alles);
        }
        EXPECT_TRUE(u.spur.offen().empty());
        if (ok) return;
    }
    ADD_FAILURE() << "op never succeeded";
}

long dvdMitFilm(test::DomainUmgebung& u) {
    const long box = u.box("B");
    const long film = u.film(u.dvd(box, "D"), "F");
    u.db->schreibeFilmPersonen(film, {{u.person("P"), 1, {"A1", "A2"}}});
    u.db->schreibeFilmObjekte(film, kTypGenre, {u.lookup(kTypGenre, "G")});
    return box;
}

TEST(AendernFehler, NeuerFilmHinterlaesstHoechstensUnbenutzteZeilen) {
    mitFehlerAnJederStelle(dvdMitFilm, [](test::DomainUmgebung& u, long box) {
        return u.db->neuerFilm(u.db->getDvdListe(box)->Id, "Neu", 0, 90, 2000) > 0;
    });
}

TEST(AendernFehler, KopierenHinterlaesstHoechstensUnbenutzteZeilen) {
    mitFehlerAnJederStelle(dvdMitFilm, [](test::DomainUmgebung& u, long box) {
        const long dvd = u.db->getDvdListe(box)->Id;
        return u.db->kopiereDvd(dvd, box) > 0;
    });
}

TEST(AendernFehler, PersonenSchreibenVerliertDieAltenNicht) {
    auto film = [](test::DomainUmgebung& u, long box) {
        return u.db->getFilmListe(u.db->getDvdListe(box)->Id)->Id;
    };
    mitFehlerAnJederStelle(
        dvdMitFilm,
        [&](test::DomainUmgebung& u, long box) {
            return u.db->schreibeFilmPersonen(film(u, box), {{u.person("Q"), 2, {"B1"}}});
        },
        [&](test::DomainUmgebung& u, long box) {
            // The old person is still listed with both aliases.
            auto personen = u.db->getPersonenListe(film(u, box));
            bool alterDa = false;
            for (PersonenElement* p = personen.get(); p; p = p->pNext)
                if (std::string(p->pPerson->zeile.cpName) == "P" && p->pAlias && p->pAlias->pNext)
                    alterDa = true;
            EXPECT_TRUE(alterDa);
        });
}

}  // namespace
}  // namespace dv
