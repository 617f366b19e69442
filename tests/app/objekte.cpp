// The object service: a box, DVD and film written with every list and side text
// and read back whole; changes replace the lists; refusals at the limits and for
// unknown ids write nothing; delete, move, copy and the cover, each with its
// change notice.
#include <string>

#include "tests/app/Dienstumgebung.h"

using namespace dv;
using namespace dv::test;

namespace {

class Objekte : public Dienstumgebung {
  protected:
    // A film value with every list; lookups named only by their names.
    FilmWerte vollerFilm(long person) {
        FilmWerte f;
        f.titel = "Metropolis";
        f.originaltitel = "Metropolis (1927)";
        f.alternativtitel = {"Die Stadt", "Maschinenmensch"};
        f.fsk = 6;
        f.laenge = 153;
        f.jahr = 1927;
        f.genres = {{0, "Stummfilm"}, {0, "Science-Fiction"}};
        f.bildformate = {{0, "4:3"}};
        f.untertitel = {{0, "Englisch"}};
        f.funktionen = {{0, "Regie"}};
        f.sprachen = {{{0, "Deutsch"}, {0, "Mono"}}, {{0, "Englisch"}, {0, "Stereo"}}};
        f.personen = {{{person, ""}, {0, "Regie"}, {"F. L.", "Der Meister"}}};
        f.inhalt = "Eine Stadt über der Stadt.";
        f.kommentar = "Restaurierte Fassung";
        return f;
    }
    // The value as it reads back: ids filled in, the person's display name.
    void mitIds(FilmWerte& erwartet, const FilmWerte& gelesen) {
        erwartet.id = gelesen.id;
        auto ids = [](std::vector<Eintrag>& e, const std::vector<Eintrag>& g) {
            for (std::size_t i = 0; i < e.size() && i < g.size(); ++i) e[i].id = g[i].id;
        };
        ids(erwartet.genres, gelesen.genres);
        ids(erwartet.bildformate, gelesen.bildformate);
        ids(erwartet.untertitel, gelesen.untertitel);
        ids(erwartet.funktionen, gelesen.funktionen);
        for (std::size_t i = 0; i < erwartet.sprachen.size() && i < gelesen.sprachen.size(); ++i)
            erwartet.sprachen[i] = gelesen.sprachen[i];
        for (std::size_t i = 0; i < erwartet.personen.size() && i < gelesen.personen.size(); ++i) {
            erwartet.personen[i].person.name = gelesen.personen[i].person.name;
            erwartet.personen[i].funktion.id = gelesen.personen[i].funktion.id;
        }
    }
};

TEST_F(Objekte, BoxDvdUndFilmGeschriebenUndWiederGelesen) {
    BoxWerte b;
    b.titel = "Metropolis-Box";
    b.ean = "4006680012345";
    b.verpackung = {0, "Steelbook"};
    b.extras = {{0, "Booklet"}, {0, "Poster"}};
    const auto neu = objekte().neueBox(b);
    ASSERT_TRUE(neu.ok()) << neu.grund();
    auto box = objekte().ladeBox(neu->box);
    ASSERT_TRUE(box.ok());
    EXPECT_EQ(box->titel, b.titel);
    EXPECT_EQ(box->ean, b.ean);
    EXPECT_EQ(box->verpackung.name, "Steelbook");
    EXPECT_GT(box->verpackung.id, 0);
    ASSERT_EQ(box->extras.size(), 2u);
    EXPECT_EQ(box->extras[1].name, "Poster");
    // The new box's DVD and film carry its title.
    EXPECT_EQ(objekte().ladeDvd(neu->dvd)->titel, "Metropolis-Box");
    EXPECT_EQ(objekte().ladeFilm(neu->film)->titel, "Metropolis-Box");

    DvdWerte d;
    d.titel = "Bonus";
    d.jahr = 2010;
    d.laenge = 45;
    d.rc = 0x82;
    d.opt = 3;
    d.format = {0, "DVD-9"};
    d.sn = 4000000000u;
    d.bytesLow = 7;
    d.bytesHigh = 1;
    d.extras = {box->extras[1], {0, "Interviews"}};
    const auto dvd = objekte().neueDvd(neu->box, d);
    ASSERT_TRUE(dvd.ok()) << dvd.grund();
    auto gelesen = objekte().ladeDvd(dvd.wert());
    ASSERT_TRUE(gelesen.ok());
    d.id = dvd.wert();
    d.format.id = gelesen->format.id;
    d.extras[1].id = gelesen->extras[1].id;
    EXPECT_EQ(gelesen.wert(), d);

    const long person = app.db().katalog().Person.insert(0, "Lang", "Fritz");
    FilmWerte f = vollerFilm(person);
    const auto film = objekte().neuerFilm(dvd.wert(), f);
    ASSERT_TRUE(film.ok()) << film.grund();
    auto filmGelesen = objekte().ladeFilm(film.wert());
    ASSERT_TRUE(filmGelesen.ok());
    mitIds(f, filmGelesen.wert());
    EXPECT_EQ(filmGelesen.wert(), f);
    EXPECT_EQ(filmGelesen->personen[0].person.name, "Fritz Lang");
    // The same language entry serves languages and subtitles.
    EXPECT_EQ(filmGelesen->untertitel[0].id, filmGelesen->sprachen[1].sprache.id);

    // Storing again replaces every list and text in the order given.
    f.genres = {f.genres[1]};
    f.alternativtitel = {};
    f.personen[0].alias = {"Der Meister"};
    f.sprachen = {f.sprachen[1], f.sprachen[0]};
    f.inhalt.clear();
    ASSERT_TRUE(objekte().speichereFilm(f).ok());
    EXPECT_EQ(objekte().ladeFilm(f.id).wert(), f);
    EXPECT_FALSE(gibtEs(programm("Inhalt/" + std::to_string(f.id) + ".txt")));

    b = box.wert();
    b.titel = "Metropolis (Sammleredition)";
    b.extras = {b.extras[1]};
    b.verpackung = {};
    ASSERT_TRUE(objekte().speichereBox(b).ok());
    EXPECT_EQ(objekte().ladeBox(b.id).wert(), b);

    const std::vector<Aenderung> erwartet = {
        {AenderungsArt::Neu, AenderungsTyp::Box, neu->box, 0, 0},
        {AenderungsArt::Neu, AenderungsTyp::Dvd, dvd.wert(), neu->box, 0},
        {AenderungsArt::Neu, AenderungsTyp::Film, film.wert(), dvd.wert(), 0},
        {AenderungsArt::Geaendert, AenderungsTyp::Film, film.wert(), dvd.wert(), 0},
        {AenderungsArt::Geaendert, AenderungsTyp::Box, neu->box, 0, 0}};
    EXPECT_EQ(mitschrift.gesehen, erwartet);
}

TEST_F(Objekte, VerweigertesAendertNichts) {
    BoxWerte b;
    b.titel = std::string(kMaxBezeichnung, 'T');
    b.ean = std::string(kMaxEan, '4');
    b.verpackung = {0, std::string(kMaxLookupName, 'v')};
    const auto neu = objekte().neueBox(b);
    ASSERT_TRUE(neu.ok()) << neu.grund();
    mitschrift.gesehen.clear();
    const Anzahl vorher = katalog().anzahl();

    BoxWerte zuLang = b;
    zuLang.titel += 'T';
    EXPECT_TRUE(verweigert(objekte().neueBox(zuLang), Fehlerart::Eingabe,
                           "Der Titel ist zu lang (höchstens 63 Zeichen)."));
    zuLang = b;
    zuLang.ean = std::string(kMaxEan + 1, '4');
    EXPECT_TRUE(verweigert(objekte().neueBox(zuLang), Fehlerart::Eingabe,
                           "Die EAN ist zu lang (höchstens 15 Zeichen)."));
    zuLang = b;
    zuLang.verpackung.name += 'v';
    EXPECT_TRUE(verweigert(objekte().neueBox(zuLang), Fehlerart::Eingabe,
                           "Der Eintrag \"Verpackungen\" ist zu lang (höchstens 127 Zeichen)."));
    EXPECT_TRUE(verweigert(objekte().neueBox(b), Fehlerart::Eingabe,
                           "Die EAN " + b.ean + " gehört bereits zur Box \"" + b.titel + "\"."));
    BoxWerte andere = b;
    andere.id = 77;
    EXPECT_TRUE(verweigert(objekte().speichereBox(andere), Fehlerart::Eingabe,
                           "Kein Objekt vom Typ Box mit der ID 77."));

    FilmWerte f;
    f.titel = std::string(kMaxTitel, 'f');
    f.alternativtitel = {std::string(kMaxTitel + 1, 'a')};
    EXPECT_TRUE(verweigert(objekte().neuerFilm(neu->dvd, f), Fehlerart::Eingabe,
                           "Ein weiterer Titel ist zu lang (höchstens 63 Zeichen)."));
    f.alternativtitel.clear();
    f.fsk = 128;
    EXPECT_TRUE(verweigert(objekte().neuerFilm(neu->dvd, f), Fehlerart::Eingabe,
                           "Das Freigabealter muss zwischen 0 und 127 liegen."));
    f.fsk = 0;
    f.sprachen = {{{0, "Deutsch"}, {}}};
    EXPECT_TRUE(verweigert(objekte().neuerFilm(neu->dvd, f), Fehlerart::Eingabe,
                           "Zu jeder Sprache gehört ein Tonformat."));
    f.sprachen.clear();
    f.genres = {{4711, ""}};
    EXPECT_TRUE(verweigert(objekte().neuerFilm(neu->dvd, f), Fehlerart::Eingabe,
                           "Im Katalog \"Genre\" gibt es keinen Eintrag mit der ID 4711."));
    f.genres.clear();
    f.personen = {{{9, ""}, {0, "Regie"}, {}}};
    EXPECT_TRUE(verweigert(objekte().neuerFilm(neu->dvd, f), Fehlerart::Eingabe,
                           "Es gibt keine Person mit der ID 9."));
    f.personen.clear();
    f.id = neu->film;
    f.genres = {{0, "Drama"}};
    f.personen = {{{app.db().katalog().Person.insert(0, "Lang", ""), ""},
                   {0, "Regie"},
                   {std::string(kMaxLookupName + 1, 'x')}}};
    EXPECT_TRUE(verweigert(objekte().speichereFilm(f), Fehlerart::Eingabe,
                           "Ein Alias ist zu lang (höchstens 127 Zeichen)."));
    // Nothing was created on the way, not even the named lookups.
    EXPECT_EQ(app.db().findeLookup(kTypGenre, "Drama"), 0);
    EXPECT_EQ(objekte().ladeFilm(neu->film)->titel, b.titel);
    const Anzahl nachher = katalog().anzahl();
    EXPECT_EQ(nachher.dvds, vorher.dvds);
    EXPECT_EQ(nachher.filme, vorher.filme);
    EXPECT_TRUE(mitschrift.gesehen.empty());
}

TEST_F(Objekte, LoeschenVerschiebenKopierenUndCover) {
    BoxWerte b;
    b.titel = "Alte Box";
    const auto box = objekte().neueBox(b);
    ASSERT_TRUE(box.ok());
    DvdWerte d;
    d.titel = "Zweite";
    const long zweite = objekte().neueDvd(box->box, d).wert();
    b.titel = "Ziel";
    const auto ziel = objekte().neueBox(b);
    mitschrift.gesehen.clear();

    EXPECT_TRUE(verweigert(objekte().verschiebe(kDvd, box->dvd, true), Fehlerart::Fehlschlag,
                           "Die DVD steht bereits an erster Stelle."));
    EXPECT_TRUE(verweigert(objekte().verschiebe(kBox, box->box, true), Fehlerart::Eingabe,
                           "Nur eine DVD oder ein Film kann verschoben werden."));
    ASSERT_TRUE(objekte().verschiebe(kDvd, zweite, true).ok());
    const auto dvds = katalog().dvds(box->box);
    ASSERT_EQ(dvds.size(), 2u);
    EXPECT_EQ(dvds[0].id, zweite);
    EXPECT_EQ(dvds[1].index, 2);

    EXPECT_TRUE(verweigert(objekte().kopiere(kFilm, box->film, 99), Fehlerart::Eingabe,
                           "Kein Objekt vom Typ Dvd mit der ID 99."));
    const auto kopie = objekte().kopiere(kDvd, box->dvd, ziel->box);
    ASSERT_TRUE(kopie.ok()) << kopie.grund();
    EXPECT_EQ(katalog().dvds(ziel->box).back().id, kopie.wert());
    EXPECT_EQ(katalog().filme(kopie.wert()).front().titel, "Alte Box");

    schreibeDatei(tmp / "bild.JPG", "jpeg");
    EXPECT_TRUE(verweigert(objekte().setzeCover(box->box, tmp / "fehlt.jpg"), Fehlerart::Eingabe,
                           "Die Datei \"" + tmp / "fehlt.jpg" + "\" gibt es nicht."));
    schreibeDatei(programm("Cover/" + std::to_string(box->box) + ".bmp"), "alt");
    ASSERT_TRUE(objekte().setzeCover(box->box, tmp / "bild.JPG").ok());
    const std::string cover = programm("Cover/" + std::to_string(box->box) + ".JPG");
    EXPECT_EQ(objekte().ladeBox(box->box)->cover, cover);
    EXPECT_FALSE(gibtEs(programm("Cover/" + std::to_string(box->box) + ".bmp")));
    EXPECT_TRUE(katalog().box(box->box)->hatCover);

    // No: nothing goes. Yes: the box with its DVDs, films and cover.
    benutzer.antworten = {false, true};
    EXPECT_EQ(objekte().loescheMitFrage(kBox, box->box).art(), Fehlerart::Abgelehnt);
    EXPECT_TRUE(katalog().gibtEs(kBox, box->box));
    ASSERT_TRUE(objekte().loescheMitFrage(kBox, box->box).ok());
    EXPECT_EQ(benutzer.fragen.back().text, "Box \"Alte Box\" löschen?");
    EXPECT_FALSE(katalog().gibtEs(kDvd, zweite));
    EXPECT_FALSE(gibtEs(cover));
    EXPECT_FALSE(objekte().ladeBox(box->box).ok());
    ASSERT_TRUE(objekte().loesche(kFilm, katalog().filme(kopie.wert()).front().id).ok());

    ASSERT_EQ(mitschrift.gesehen.size(), 5u);
    EXPECT_EQ(mitschrift.gesehen[0],
              (Aenderung{AenderungsArt::Verschoben, AenderungsTyp::Dvd, zweite, box->box, 0}));
    EXPECT_EQ(mitschrift.gesehen[1],
              (Aenderung{AenderungsArt::Neu, AenderungsTyp::Dvd, kopie.wert(), ziel->box, 0}));
    EXPECT_EQ(mitschrift.gesehen[3],
              (Aenderung{AenderungsArt::Geloescht, AenderungsTyp::Box, box->box, 0, 0}));
    EXPECT_EQ(mitschrift.gesehen[4].eltern, kopie.wert());
}

}  // namespace
