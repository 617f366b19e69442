// Watch lists, filters, tags and stamp tags through the services: the shared
// create/rename/delete with its limits, entries and set operations, a filter's
// translation, tags with a line break refused, stamps by their mask, and the
// watch-list and stamp files written and read back.
#include "tests/app/Dienstumgebung.h"

using namespace dv;
using namespace dv::test;

namespace {

class Listen : public Dienstumgebung {
  protected:
    Listen() {
        BoxWerte b;
        b.titel = "Zorro";
        b.ean = "4001";
        zorro = objekte().neueBox(b).wert();
        b.titel = "Alien";
        b.ean = "4002";
        alien = objekte().neueBox(b).wert();
        mitschrift.gesehen.clear();
    }
    VormerkDienst& vormerk() { return app.dienste().vormerk(); }
    std::vector<long> ids(const ErgebnisMit<std::vector<VormerkEintrag>>& e) {
        std::vector<long> v;
        for (const VormerkEintrag& x : e.wert()) v.push_back(x.id);
        return v;
    }
    NeueBox zorro, alien;
};

TEST_F(Listen, BenannteAnlegenUmbenennenLoeschen) {
    // Watch lists and filters share one implementation; each kind is checked once.
    for (Benannte* b : std::initializer_list<Benannte*>{&vormerk(), &app.dienste().filter()}) {
        const auto id = b->neu(std::string(kMaxLookupName, 'n'));
        ASSERT_TRUE(id.ok()) << id.grund();
        EXPECT_TRUE(verweigert(b->neu(std::string(kMaxLookupName + 1, 'n')), Fehlerart::Eingabe,
                               "Der Name ist zu lang (höchstens 127 Zeichen)."));
        EXPECT_TRUE(verweigert(b->neu(""), Fehlerart::Eingabe, "Der Name darf nicht leer sein."));
        ASSERT_TRUE(b->umbenennen(id.wert(), "Neu").ok());
        EXPECT_EQ(b->liste(), (std::vector<Benannt>{{id.wert(), "Neu"}}));
        ASSERT_TRUE(b->loesche(id.wert()).ok());
        EXPECT_TRUE(b->liste().empty());
        EXPECT_EQ(b->umbenennen(id.wert(), "x").art(), Fehlerart::Eingabe);
    }
    EXPECT_TRUE(
        verweigert(vormerk().loesche(9), Fehlerart::Eingabe, "Keine Vormerkliste mit der ID 9."));
    EXPECT_TRUE(verweigert(app.dienste().filter().loesche(9), Fehlerart::Eingabe,
                           "Kein Filter mit der ID 9."));
    ASSERT_EQ(mitschrift.gesehen.size(), 6u);
    EXPECT_EQ(mitschrift.gesehen[2].art, AenderungsArt::Geloescht);
    EXPECT_EQ(mitschrift.gesehen[5].typ, AenderungsTyp::Filter);
}

TEST_F(Listen, VormerkEintraegeMengenUndDatei) {
    const long a = vormerk().neu("A").wert();
    const long b = vormerk().neu("B").wert();
    ASSERT_TRUE(vormerk().hinzu(a, kBox, zorro.box).ok());
    ASSERT_TRUE(vormerk().hinzu(a, kFilm, alien.film).ok());
    ASSERT_TRUE(vormerk().hinzu(b, kFilm, alien.film).ok());
    EXPECT_TRUE(verweigert(vormerk().hinzu(a, kDvd, 77), Fehlerart::Eingabe,
                           "Kein Objekt vom Typ Dvd mit der ID 77."));
    EXPECT_TRUE(verweigert(vormerk().verschiebe(a, kBox, zorro.box, true), Fehlerart::Fehlschlag,
                           "Das Element steht bereits ganz oben."));
    EXPECT_TRUE(verweigert(vormerk().entferne(b, kBox, zorro.box), Fehlerart::Fehlschlag,
                           "Das Objekt steht nicht in der Vormerkliste."));
    ASSERT_TRUE(vormerk().verschiebe(a, kFilm, alien.film, true).ok());

    const auto inhalt = vormerk().inhalt({a, b});
    ASSERT_TRUE(inhalt.ok());
    EXPECT_EQ(inhalt->front(), (VormerkEintrag{a, "A", kFilm, alien.film, "Alien"}));
    EXPECT_EQ(ids(inhalt), (std::vector<long>{alien.film, zorro.box, alien.film}));
    EXPECT_EQ(ids(vormerk().vereinigung({a, b})), (std::vector<long>{alien.film, zorro.box}));
    EXPECT_EQ(ids(vormerk().schnitt({a, b})), std::vector<long>{alien.film});
    EXPECT_EQ(ids(vormerk().komplement({a}, {b})), std::vector<long>{zorro.box});
    EXPECT_EQ(vormerk().inhalt({a, 9}).art(), Fehlerart::Eingabe);
    EXPECT_EQ(VormerkDienst::status(1), "Inhalt der Vormerkliste(n) [1 Element]");

    // Written and read back: the import makes new lists of the same content.
    ASSERT_TRUE(vormerk().exportiere(tmp / "listen.vml", {a}).ok());
    ASSERT_TRUE(vormerk().importiere(tmp / "listen.vml").ok());
    const long kopie = vormerk().liste().back().id;
    EXPECT_EQ(ids(vormerk().inhalt({kopie})), ids(vormerk().inhalt({a})));
    // A second export to the same file asks first; No writes nothing.
    EXPECT_EQ(vormerk().exportiere(tmp / "listen.vml", {b}).art(), Fehlerart::Abgelehnt);
    EXPECT_TRUE(verweigert(vormerk().importiere(tmp / "fehlt.vml"), Fehlerart::Fehlschlag,
                           "Die Datei \"" + tmp / "fehlt.vml" + "\" kann nicht gelesen werden."));
}

TEST_F(Listen, TagsStempelUndFilter) {
    TagDienst& tags = app.dienste().tags();
    ASSERT_TRUE(tags.setze(kFilm, zorro.film, {"verliehen", "Lieblingsfilm"}).ok());
    EXPECT_TRUE(verweigert(tags.setze(kFilm, zorro.film, {"zwei\nZeilen"}), Fehlerart::Eingabe,
                           "Ein Tag darf keinen Zeilenumbruch enthalten."));
    EXPECT_EQ(tags.lese(kFilm, zorro.film),
              (std::vector<std::string>{"verliehen", "Lieblingsfilm"}));
    EXPECT_EQ(tags.suche("LIEB", 0),
              (std::vector<TagFund>{{kFilm, zorro.film, "Zorro", "Lieblingsfilm"}}));

    const auto stempel =
        tags.neuerStempel(kMaskeBox | kMaskeDvd, std::string(kMaxStempelText, 's'));
    ASSERT_TRUE(stempel.ok()) << stempel.grund();
    EXPECT_TRUE(verweigert(tags.neuerStempel(kMaskeBox, std::string(kMaxStempelText + 1, 's')),
                           Fehlerart::Eingabe,
                           "Der Text des Stempel-Tags ist zu lang (höchstens 127 Zeichen)."));
    EXPECT_TRUE(verweigert(tags.wendeStempelAn(stempel.wert(), kFilm, zorro.film),
                           Fehlerart::Fehlschlag,
                           "Der Stempel-Tag wird für die Objektart Film nicht angeboten."));
    ASSERT_TRUE(tags.wendeStempelAn(stempel.wert(), kBox, zorro.box).ok());
    EXPECT_EQ(tags.lese(kBox, zorro.box),
              std::vector<std::string>{std::string(kMaxStempelText, 's')});
    EXPECT_EQ(TagDienst::maskeText(TagDienst::maskeAusText("FB")), "BF");
    ASSERT_TRUE(tags.exportiereStempel(tmp / "stempel.txt").ok());
    ASSERT_TRUE(tags.importiereStempel(tmp / "stempel.txt").ok());
    EXPECT_EQ(tags.stempel().size(), 2u);
    EXPECT_EQ(tags.stempel()[1].maske, kMaskeBox | kMaskeDvd);

    FilterDienst& filter = app.dienste().filter();
    const long f = filter.neu("Englisch").wert();
    const long genre = app.db().neuesLookup(kTypGenre, "Abenteuer");
    ASSERT_GT(genre, 0);
    EXPECT_TRUE(verweigert(filter.setze(f, 5, "Komödie", "Comedy"), Fehlerart::Eingabe,
                           "Kein Eintrag \"Komödie\" unter \"Genre\"."));
    ASSERT_TRUE(filter.setze(f, 5, "abenteuer", "Adventure").ok());
    ASSERT_TRUE(filter.setzeAktiv(true, f).ok());
    EXPECT_EQ(filter.aktiv(true), f);
    EXPECT_EQ(filter.aktiv(false), 0);
    // The XML export of the box's film now names the genre as the filter says.
    FilmWerte film = objekte().ladeFilm(zorro.film).wert();
    film.genres = {{genre, ""}};
    ASSERT_TRUE(objekte().speichereFilm(film).ok());
    const auto xml = app.dienste().austausch().xml(kFilm, zorro.film, false, false);
    ASSERT_TRUE(xml.ok());
    EXPECT_NE(xml->find("Adventure"), std::string::npos);
    EXPECT_EQ(xml->find("Abenteuer"), std::string::npos);
}

}  // namespace
