// Building the object lists per object: order by "Pos", skipped links, running
// indexes, releasing and removing elements, lookup names, the memory trace.

#include <cstring>

#include "base/Hilfen.h"

#include "tests/domain/DomainUmgebung.h"

namespace dv {
namespace {

using test::idsVon;
using test::texte;

class ListenTest : public ::testing::Test {
  protected:
    void TearDown() override {
        EXPECT_TRUE(u.spur.offen().empty()) << ::testing::PrintToString(u.spur.offen());
    }
    long dvdZeile(const char* titel) {
        Zeile9 d{};
        std::strcpy(d.cpText, titel);
        return u.k().DVD.insert(d);
    }
    test::DomainUmgebung u;
};

TEST_F(ListenTest, DvdsFolgenPosMitLaufenderNummerUndUeberspringenFehlendeZiele) {
    const long box = u.box("Box");
    const long a = dvdZeile("A"), b = dvdZeile("B"), c = dvdZeile("C"), weg = dvdZeile("weg");
    u.k().DVD_Box.insert(box, a, 0, 3);
    u.k().DVD_Box.insert(box, weg, 0, 0);  // first by "Pos", but its DVD is gone
    u.k().DVD_Box.insert(box, b, 0, 1);
    u.k().DVD_Box.insert(box, c, 0, 2);
    u.k().DVD_Box.insert(box + 1, a, 0, 1);  // another box's link
    ASSERT_TRUE(u.k().DVD.remove(weg, true));

    auto liste = u.db->getDvdListe(box);
    EXPECT_EQ(idsVon(liste.get()), (std::vector<long>{b, c, a}));
    std::vector<int> indexe;
    for (DvdElement* d = liste.get(); d; d = d->pNext) indexe.push_back(d->Index);
    EXPECT_EQ(indexe, (std::vector<int>{1, 2, 3}));
    EXPECT_STREQ(liste->cpText, "B");
    EXPECT_EQ(liste->pPrev, nullptr);
    EXPECT_EQ(liste->pNext->pPrev, liste.get());
}

TEST_F(ListenTest, FilmeEinerDvdTragenIhrenHaupttitel) {
    const long dvd = u.dvd(u.box("Box"), "D");
    const long f1 = u.film(dvd, "Erster");
    const long f2 = u.k().Film.insert(16, 100, 1990);
    u.k().Titel.insert(f2, kTitelOriginal, "Original", 1);
    u.k().Titel.insert(f2, kTitelHaupt, "Haupt", 2);
    const long f3 = u.k().Film.insert(0, 80, 1980);
    u.k().Titel.insert(f3, kTitelAlternativ, "Zweiter", 2);
    u.k().Titel.insert(f3, kTitelOriginal, "Nur Original", 1);
    u.k().DVD_Film.insert(dvd, f2, 5);
    u.k().DVD_Film.insert(dvd, f3, 7);
    const long ohneZiel = u.k().Film.insert(0, 0, 0);
    u.k().DVD_Film.insert(dvd, ohneZiel, 6);
    u.k().Film.remove(ohneZiel, true);

    auto filme = u.db->getFilmListe(dvd);
    ASSERT_EQ(idsVon(filme.get()), (std::vector<long>{f1, f2, f3}));
    EXPECT_STREQ(filme->cpTitel, "Erster");
    EXPECT_STREQ(filme->pNext->cpTitel, "Haupt");
    // Without a main title the first title by "Pos" stands in.
    EXPECT_STREQ(filme->pNext->pNext->cpTitel, "Nur Original");
    EXPECT_EQ(filme->pNext->pNext->Index, 3);
    EXPECT_EQ(filme->pNext->Laenge, 100);

    const FilmTitel t = u.db->leseFilmTitel(f2);
    EXPECT_EQ(t.haupt, "Haupt");
    EXPECT_EQ(t.original, "Original");
    EXPECT_TRUE(t.weitere.empty());
}

TEST_F(ListenTest, BoxlisteNachTitelMitUmlautenUndOhneGrossKlein) {
    for (const char* t : {"Vogel", "über", "Affe", "Tal", "Ärger", "adler"}) u.box(t);
    auto boxen = u.db->getBoxListe();
    std::vector<std::string> titel;
    for (BoxElement* b = boxen.get(); b; b = b->pNext) titel.push_back(b->cpText);
    EXPECT_EQ(titel, (std::vector<std::string>{"adler", "Ärger", "Affe", "Tal", "über", "Vogel"}));
    EXPECT_EQ(boxen->bAnsicht1, 1);
    EXPECT_EQ(boxen->pDvds, nullptr);
    EXPECT_FALSE(u.db->getBox(999));
    EXPECT_FALSE(u.db->getDvd(0));
}

TEST_F(ListenTest, SortierschluesselOrdnetWieDerTitelvergleich) {
    const char* titel[] = {"Ärger",   "Aerger", "aerger", "AErger", "Affe",    "adler",
                           "über",    "Ueber",  "Tal",    "Vogel",  "Straße",  "Strasse",
                           "STRASSE", "Öl",     "Oel",    "Zürich", "Zuerich", "Élan",
                           "élan",    "Eis",    "",       "a",      "A",       "Šimek",
                           "šimek",   "100",    "1000",   "Ÿ",      "ÿ",       "Über alles"};
    auto vorzeichen = [](int v) { return (v > 0) - (v < 0); };
    for (const char* a : titel)
        for (const char* b : titel)
            EXPECT_EQ(vorzeichen(std::strcmp(boxTitelSchluessel(a).c_str(),
                                             boxTitelSchluessel(b).c_str())),
                      vorzeichen(vergleicheBoxTitel(a, b)))
                << a << " / " << b;
}

TEST_F(ListenTest, FreigabeVomLetztenElementGibtDieGanzeListeFrei) {
    const long box = u.box("Box");
    for (const char* t : {"1", "2", "3"}) u.film(u.dvd(box, t), t);
    BoxElement* boxen = u.db->getBoxListe().release();
    u.db->ladeBox(*boxen);
    DvdElement* letzte = boxen->pDvds;
    while (letzte->pNext) letzte = letzte->pNext;
    // Detach the DVDs and release them from their last element.
    boxen->pDvds = nullptr;
    u.db->FreeDvdListe(letzte);
    u.db->FreeBoxListe(boxen);
    // Null everywhere is accepted.
    u.db->FreeBoxListe(nullptr);
    u.db->FreeObjektListenElement(nullptr);
    u.db->FreeTitelListe(nullptr);
    EXPECT_TRUE(u.spur.offen().empty());
}

TEST_F(ListenTest, EntfernenAmKopfUndDesEinzigenElements) {
    const long box = u.box("Box");
    u.dvd(box, "1");
    const long d2 = u.dvd(box, "2");
    auto dvds = u.db->getDvdListe(box);
    u.db->delDvdElement(dvds, dvds.get());
    ASSERT_TRUE(dvds);
    EXPECT_EQ(dvds->Id, d2);
    EXPECT_EQ(dvds->pPrev, nullptr);
    u.db->delDvdElement(dvds, dvds.get());
    EXPECT_FALSE(dvds);

    // The raw forms do nothing for a null head address, head or element.
    auto genres = u.db->getObjektListe(0, kTypGenre);
    ObjektElement* kopf = nullptr;
    u.db->delObjektListenElement(&kopf, nullptr);
    u.db->delObjektListenElement(nullptr, nullptr);
    EXPECT_EQ(kopf, nullptr);

    // A middle element is unlinked from both neighbours.
    const long film = u.film(u.dvd(box, "3"), "F");
    std::vector<long> ids;
    for (const char* g : {"a", "b", "c"}) ids.push_back(u.lookup(kTypGenre, g));
    ASSERT_TRUE(u.db->schreibeFilmObjekte(film, kTypGenre, ids));
    auto liste = u.db->getObjektListe(film, kTypGenre);
    u.db->delObjektListenElement(liste, liste->pNext);
    EXPECT_EQ(texte(liste.get()), (std::vector<std::string>{"a", "c"}));
    EXPECT_EQ(liste->pNext->pPrev, liste.get());
}

TEST_F(ListenTest, ListenElementUndFktElementEntfernen) {
    auto alle = u.db->getFktListe(0);  // the seeded Darsteller and Regie
    ASSERT_TRUE(alle);
    EXPECT_STREQ(alle->cpText, "Darsteller");
    u.db->delFktElement(alle, alle.get());
    EXPECT_STREQ(alle->cpText, "Regie");
    EXPECT_EQ(alle->pNext, nullptr);

    ListenElement* aliase = u.k().Alias.selectAll();
    EXPECT_EQ(aliase, nullptr);
    u.lookup(kTypAlias, "x");
    u.lookup(kTypAlias, "y");
    aliase = u.k().Alias.selectAll();
    u.db->delListenElement(&aliase, aliase);
    EXPECT_STREQ(Tabelle1::zeile(aliase).cpText, "y");
    u.db->delListenElement(&aliase, aliase);
    EXPECT_EQ(aliase, nullptr);
}

TEST_F(ListenTest, TypNamenUndListenDerTypen) {
    std::string name = "unberuehrt";
    for (int typ : {-1, 0, 1, 3, 6, 13, 14, 15, 16, 19, 20}) {
        EXPECT_FALSE(getTypName(typ, true, name)) << typ;
        EXPECT_FALSE(getTypName(typ, false, name)) << typ;
    }
    EXPECT_EQ(name, "unberuehrt");
    const std::tuple<int, bool, const char*> namen[] = {{kTypVerpackung, false, "Verpackungen"},
                                                        {kTypVerpackung, true, "Verpackung"},
                                                        {kTypGenre, false, "Genre"},
                                                        {kTypFunktion, false, "Funktionen"},
                                                        {kTypAlias, true, "Alias"},
                                                        {kTypPerson, false, "Personen"}};
    for (const auto& [typ, einzahl, erwartet] : namen) {
        ASSERT_TRUE(getTypName(typ, einzahl, name)) << typ;
        EXPECT_EQ(name, erwartet);
    }
    EXPECT_STREQ(objektTypName(kObjektDvd), "Dvd");
    EXPECT_STREQ(objektTypName(4), "unbekannt");

    const long film = u.film(u.dvd(u.box("B"), "D"), "F");
    const long genre = u.lookup(kTypGenre, "Drama");
    u.k().Film_Genre.insert(film, genre, 1);
    EXPECT_TRUE(u.db->getObjektListe(film, kTypGenre));
    for (int typ : {kTypVerpackung, kTypFormat, kTypTonformat, kTypPerson, 0, 99})
        EXPECT_FALSE(u.db->getObjektListe(film, typ)) << typ;
}

TEST_F(ListenTest, SprachenNurMitSpracheUndTonformat) {
    const long film = u.film(u.dvd(u.box("B"), "D"), "F");
    const long de = u.lookup(kTypSprache, "Deutsch"), en = u.lookup(kTypSprache, "Englisch");
    const long weg = u.lookup(kTypSprache, "Latein");
    const long dd = u.lookup(kTypTonformat, "DD 5.1"), st = u.lookup(kTypTonformat, "Stereo");
    const long wegTon = u.lookup(kTypTonformat, "Mono");
    u.k().Film_Sprachen.insert(film, weg, dd, 1);
    u.k().Film_Sprachen.insert(film, de, wegTon, 2);
    u.k().Film_Sprachen.insert(film, en, st, 4);
    u.k().Film_Sprachen.insert(film, de, dd, 3);
    u.k().Sprachen.remove(weg, true);
    u.k().Tonformate.remove(wegTon, true);

    auto liste = u.db->getObjektListe(film, kTypSprache);
    ASSERT_EQ(texte(liste.get()), (std::vector<std::string>{"Deutsch", "Englisch"}));
    EXPECT_STREQ(liste->pObjekt2->zeile.cpText, "DD 5.1");
    EXPECT_EQ(liste->Id, de);
    EXPECT_EQ(liste->Id2, dd);
    EXPECT_EQ(liste->lPos, 3);
    EXPECT_STREQ(liste->pNext->pObjekt2->zeile.cpText, "Stereo");
}

TEST_F(ListenTest, PersonenMitFunktionUndAliasInPosReihenfolge) {
    const long film = u.film(u.dvd(u.box("B"), "D"), "F");
    const long a = u.person("Adams", "Amy"), b = u.person("Bauer", ""), weg = u.person("Weg");
    const long fb = u.k().Film_Person.insert(film, b, 2, 2);
    const long fa = u.k().Film_Person.insert(film, a, 1, 1);
    u.k().Film_Person.insert(film, weg, 1, 0);
    u.k().Person.remove(weg, true);
    const long x = u.lookup(kTypAlias, "Zweit"), y = u.lookup(kTypAlias, "Erst");
    u.k().Film_Alias.insert(fa, x, 2);
    u.k().Film_Alias.insert(fa, y, 1);

    auto personen = u.db->getPersonenListe(film);
    ASSERT_TRUE(personen);
    EXPECT_STREQ(personen->pPerson->zeile.cpName, "Adams");
    EXPECT_EQ(personen->lVerknuepfung, fa);
    EXPECT_EQ(personen->lFunktion, 1);
    ASSERT_TRUE(personen->pAlias);
    EXPECT_STREQ(Tabelle1::zeile(personen->pAlias).cpText, "Erst");
    EXPECT_STREQ(Tabelle1::zeile(personen->pAlias->pNext).cpText, "Zweit");
    ASSERT_TRUE(personen->pNext);
    EXPECT_EQ(personen->pNext->lVerknuepfung, fb);
    EXPECT_EQ(personen->pNext->pAlias, nullptr);
    EXPECT_EQ(personen->pNext->pNext, nullptr);

    // The aliases of one link as an object list, and removal of a person element.
    auto alias = u.db->getObjektListe(fa, kTypAlias);
    EXPECT_EQ(texte(alias.get()), (std::vector<std::string>{"Erst", "Zweit"}));
    u.db->delPersonenListenElement(personen, personen.get());
    EXPECT_EQ(personen->lVerknuepfung, fb);
}

TEST_F(ListenTest, FunktionenUndTitelEinesFilms) {
    const long film = u.film(u.dvd(u.box("B"), "D"), "Haupt");
    const long kamera = u.lookup(kTypFunktion, "Kamera");
    ASSERT_TRUE(u.db->schreibeFilmObjekte(film, kTypFunktion, {kamera, 1}));
    auto fkt = u.db->getFktListe(film);
    ASSERT_TRUE(fkt);
    EXPECT_STREQ(fkt->cpText, "Kamera");
    EXPECT_EQ(fkt->sWert, 1);
    EXPECT_STREQ(fkt->pNext->cpText, "Darsteller");
    EXPECT_EQ(fkt->pNext->pPrev, fkt.get());

    u.k().Titel.insert(film, kTitelAlternativ, "Alt", 2);
    auto titel = u.db->getFilmTitel(film);
    ASSERT_TRUE(titel);
    EXPECT_STREQ(titel->cpTitel, "Haupt");
    EXPECT_EQ(titel->Typ, kTitelHaupt);
    ASSERT_TRUE(titel->pNext);
    EXPECT_STREQ(titel->pNext->cpTitel, "Alt");
    EXPECT_EQ(titel->pNext->Fremd_Id, film);
    EXPECT_FALSE(u.db->getFilmTitel(0));
}

TEST_F(ListenTest, SpeicherspurNenntVariableAdresseUndFunktion) {
    const long box = u.box("B");
    u.spur.zeilen.clear();
    { auto boxen = u.db->getBoxListe(); }
    EXPECT_TRUE(u.spur.enthaelt(
        std::regex(R"(^\[malloc\] pBox = \[[0-9a-f]{8}\] \{Datenbank::Obj2BoxListe\}$)")));
    EXPECT_TRUE(u.spur.enthaelt(
        std::regex(R"(^\[free\] pBox = \[[0-9a-f]{8}\] \{Datenbank::FreeBoxListe\}$)")));
    EXPECT_TRUE(u.spur.enthaelt(
        std::regex(R"(^\[malloc\] pArray = \[[0-9a-f]{8}\] \{CApplikation::sortBoxListe\}$)")));

    const long film = u.film(u.dvd(box, "D"), "F");
    u.k().Film_Genre.insert(film, u.lookup(kTypGenre, "G"), 1);
    u.spur.zeilen.clear();
    { auto g = u.db->getObjektListe(film, kTypGenre); }
    EXPECT_TRUE(u.spur.enthaelt(
        std::regex(R"(^\[new\] pObj->pObjekt1 = \[[0-9a-f]{8}\] \{Datenbank::subObjekt10\}$)")));
    EXPECT_TRUE(u.spur.enthaelt(std::regex(
        R"(^\[delete\] p->pObjekt1 = \[[0-9a-f]{8}\] \{Datenbank::FreeObjektListenElement\}$)")));
}

}  // namespace
}  // namespace dv
