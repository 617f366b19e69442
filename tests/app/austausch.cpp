// Box files and searches through the services: a box exported, deleted and
// imported again comes back whole; refusals name their cause; a search from
// typed words finds with its reasons, and its rows survive a search file.
#include <filesystem>

#include "tests/app/Dienstumgebung.h"

using namespace dv;
using namespace dv::test;

namespace {

using Austausch = Dienstumgebung;

TEST_F(Austausch, ExportUndImportBringenDieBoxZurueck) {
    BoxWerte b;
    b.titel = "Metropolis";
    b.ean = "4006680012345";
    b.verpackung = {0, "Digipak"};
    b.extras = {{0, "Booklet"}};
    const NeueBox neu = objekte().neueBox(b).wert();
    FilmWerte f = objekte().ladeFilm(neu.film).wert();
    f.originaltitel = "Metropolis (1927)";
    f.genres = {{0, "Stummfilm"}};
    f.sprachen = {{{0, "Deutsch"}, {0, "Mono"}}};
    f.kommentar = "Restauriert";
    ASSERT_TRUE(objekte().speichereFilm(f).ok());
    f = objekte().ladeFilm(neu.film).wert();  // with the ids of the named entries
    const BoxWerte vorher = objekte().ladeBox(neu.box).wert();

    AustauschDienst& austausch = app.dienste().austausch();
    std::filesystem::create_directories(tmp / "export");
    EXPECT_TRUE(verweigert(austausch.exportiere(neu.box, tmp / "fehlt", false),
                           Fehlerart::Fehlschlag,
                           "Das Verzeichnis \"" + tmp / "fehlt" + "\" existiert nicht."));
    EXPECT_TRUE(verweigert(austausch.exportiere(99, tmp / "export", false), Fehlerart::Eingabe,
                           "Keine Box mit der ID 99."));
    const auto pfad = austausch.exportiere(neu.box, tmp / "export", true);
    ASSERT_TRUE(pfad.ok()) << pfad.grund();
    EXPECT_EQ(pfad.wert(), tmp / "export/4006680012345.box");
    // The same EAN is refused while the box exists (its message shown).
    EXPECT_EQ(austausch.importiere(pfad.wert(), {}).art(), Fehlerart::Fehlschlag);

    ASSERT_TRUE(objekte().loesche(kBox, neu.box).ok());
    mitschrift.gesehen.clear();
    const auto box = austausch.importiere(pfad.wert(), {});
    ASSERT_TRUE(box.ok()) << box.grund();
    BoxWerte nachher = objekte().ladeBox(box.wert()).wert();
    nachher.id = vorher.id;
    EXPECT_EQ(nachher.titel, vorher.titel);
    EXPECT_EQ(nachher.ean, vorher.ean);
    EXPECT_EQ(nachher.verpackung, vorher.verpackung);
    EXPECT_EQ(nachher.extras, vorher.extras);
    const auto filme = katalog().filme(katalog().dvds(box.wert()).front().id);
    FilmWerte wieder = objekte().ladeFilm(filme.front().id).wert();
    wieder.id = f.id;
    EXPECT_EQ(wieder, f);
    const Aenderung neueBox{AenderungsArt::Neu, AenderungsTyp::Box, box.wert(), 0, 0};
    EXPECT_EQ(mitschrift.gesehen, std::vector<Aenderung>{neueBox});

    schreibeDatei(tmp / "kaputt.box", "keine Box");
    EXPECT_TRUE(verweigert(austausch.importiere(tmp / "kaputt.box", {}), Fehlerart::Fehlschlag,
                           "Die Datei \"" + tmp / "kaputt.box" + "\" ist keine Box-Datei."));
    EXPECT_TRUE(verweigert(austausch.xml(kDvd, 42, false, false), Fehlerart::Eingabe,
                           "Kein Objekt vom Typ Dvd mit der ID 42."));
}

TEST_F(Austausch, SucheAusWortenUndSuchdatei) {
    BoxWerte b;
    b.titel = "Das Boot";
    const NeueBox boot = objekte().neueBox(b).wert();
    b.titel = "Alien";
    objekte().neueBox(b).wert();
    SuchDienst& suche = app.dienste().suche();

    EXPECT_TRUE(verweigert(SuchDienst::zeilenAusWorten({"Film", "Farbe", "=", "rot"}),
                           Fehlerart::Eingabe, "Unbekanntes Kriterium: Farbe"));
    EXPECT_TRUE(verweigert(SuchDienst::zeilenAusWorten({"Film", "Titel", "=", "x", "ABER"}),
                           Fehlerart::Eingabe,
                           "Falscher Aufruf: OBJEKT KRITERIUM OPERATOR DATEN [VERKNÜPFUNG "
                           "KRITERIUM OPERATOR DATEN]..."));
    const auto zeilen = SuchDienst::zeilenAusWorten({"Film", "Titel", ">=", "*boot*"});
    ASSERT_TRUE(zeilen.ok()) << zeilen.grund();
    // Text criteria know only "=" and "!=": ">=" becomes "=".
    EXPECT_EQ(SuchDienst::operatorName(zeilen->front().op), std::string("="));
    const auto e = suche.suche(zeilen.wert());
    ASSERT_TRUE(e.ok());
    ASSERT_EQ(e->treffer.size(), 1u);
    EXPECT_EQ(e->treffer[0].id, boot.film);
    EXPECT_EQ(e->treffer[0].box, boot.box);
    EXPECT_EQ(e->treffer[0].titel, "Das Boot");
    EXPECT_EQ(e->status, "Filme: 1 Treffer");

    ASSERT_TRUE(suche.speichereDatei(tmp / "suche.asc", zeilen.wert()).ok());
    EXPECT_EQ(suche.ladeDatei(tmp / "suche.asc").wert(), zeilen.wert());
    schreibeDatei(tmp / "leer.asc", "@V1.1\r\n# nichts\r\n");
    EXPECT_TRUE(verweigert(suche.ladeDatei(tmp / "leer.asc"), Fehlerart::Fehlschlag,
                           "Die Datei enthält keine gültige Suchzeile."));
    EXPECT_EQ(suche.suche({}).art(), Fehlerart::Eingabe);
}

}  // namespace
