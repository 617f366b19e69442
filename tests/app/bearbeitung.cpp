// The services behind the edit dialogs: lookup catalogues with their usage
// counts, refusals, merges (links moved, nothing dangling, filter entries
// following); persons with duplicates, refusals and merges that carry their
// aliases; the box's EAN checks and covers converted to the formats box files
// carry; a film stored with its function list following its persons.
#include <algorithm>
#include <string>

#include "app/BearbeitungsDienst.h"
#include "app/LookupDienst.h"
#include "app/PersonenDienst.h"
#include "tests/app/Dienstumgebung.h"

using namespace dv;
using namespace dv::test;

namespace {

// A 2x2 PNG with half-transparent red pixels, and a 1x1 GIF.
const std::string kPng(
    "\x89PNG\r\n\x1a\n\x00\x00\x00\x0dIHDR\x00\x00\x00\x02\x00\x00\x00\x02\x08\x06\x00\x00\x00"
    "\x72\xb6\x0d\x24\x00\x00\x00\x11IDAT\x78\x9c\x63\xf8\xcf\xc0\xd0\x00\xc2\x0c\x30\x06\x00"
    "\x38\xe8\x05\xfd\x11\x33\x30\xc9\x00\x00\x00\x00IEND\xae\x42\x60\x82",
    74);
const std::string kGif(
    "GIF89a\x01\x00\x01\x00\x80\x00\x00\xff\xff\xff\x00\x00\x00!\xf9\x04\x01\x00\x00\x00\x00,"
    "\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02\x44\x01\x00;",
    43);

BoxWerte boxWerte(const std::string& titel, const std::string& ean = std::string()) {
    BoxWerte w;
    w.titel = titel;
    w.ean = ean;
    return w;
}

class Bearbeitung : public Dienstumgebung {
  protected:
    Bearbeitung() : lookups(app), personen(app), bearbeitung(app) {
        box = objekte().neueBox(boxWerte("Sammlung")).wert();
    }

    long film(const std::string& titel, std::vector<Eintrag> genres,
              std::vector<FilmPerson> leute = {}) {
        FilmWerte f;
        f.titel = titel;
        f.genres = std::move(genres);
        f.personen = std::move(leute);
        auto id = bearbeitung.speichereFilm(box.dvd, f);
        EXPECT_TRUE(id.ok()) << id.grund();
        return id.wert();
    }
    std::vector<std::string> namen(const std::vector<Eintrag>& e) {
        std::vector<std::string> n;
        for (const Eintrag& x : e) n.push_back(x.name);
        return n;
    }
    std::vector<std::pair<std::string, long>> anzahlen(int typ) {
        std::vector<std::pair<std::string, long>> v;
        for (const LookupWert& w : lookups.liste(typ)) v.emplace_back(w.name, w.anzahl);
        return v;
    }
    long genre(const std::string& name) { return lookups.neu(kTypGenre, name).wert(); }
    long person(const std::string& name, const std::string& vorname, int instanz = 0) {
        auto id = personen.neu({0, name, vorname, instanz});
        EXPECT_TRUE(id.ok()) << id.grund();
        return id.wert();
    }
    // "Vorname Name (Funktion): alias, alias" per person of a film.
    std::vector<std::string> leute(long filmId) {
        std::vector<std::string> v;
        const FilmWerte f = objekte().ladeFilm(filmId).wert();
        for (const FilmPerson& p : f.personen) {
            std::string t = p.person.name + " (" + p.funktion.name + ")";
            for (const std::string& a : p.alias) t += (t.back() == ')' ? ": " : ", ") + a;
            v.push_back(t);
        }
        return v;
    }

    LookupDienst lookups;
    PersonenDienst personen;
    BearbeitungsDienst bearbeitung;
    NeueBox box;
};

TEST_F(Bearbeitung, GenresGezaehltGeschuetztUndZusammengefuehrt) {
    const long drama = genre("Drama"), krimi = genre("Krimi"), krimis = genre("Krimis");
    const long leer = genre("Leer");
    const long a = film("A", {{krimi, ""}, {drama, ""}});
    const long b = film("B", {{krimis, ""}, {krimis, ""}});  // twice: still one object
    const long c = film("C", {{drama, ""}, {krimis, ""}});
    const long filter = app.filter().neu("Englisch");
    ASSERT_TRUE(app.filter().setzeEintrag(filter, 5, krimis, "Crime"));
    using Zeilen = std::vector<std::pair<std::string, long>>;
    EXPECT_EQ(anzahlen(kTypGenre),
              (Zeilen{{"Drama", 2}, {"Krimi", 1}, {"Krimis", 2}, {"Leer", 0}}));

    // Names are unique without regard to case; what is used cannot go.
    EXPECT_TRUE(verweigert(lookups.umbenennen(kTypGenre, leer, "drama"), Fehlerart::Eingabe,
                           "Im Katalog \"Genre\" gibt es \"Drama\" bereits."));
    EXPECT_TRUE(
        verweigert(lookups.neu(kTypGenre, " "), Fehlerart::Eingabe, "Bitte einen Namen eingeben."));
    EXPECT_TRUE(verweigert(lookups.loesche(kTypGenre, krimis), Fehlerart::Eingabe,
                           "\"Krimis\" wird noch von 2 Objekten verwendet."));
    EXPECT_TRUE(verweigert(lookups.loesche(kTypGenre, krimi), Fehlerart::Eingabe,
                           "\"Krimi\" wird noch von 1 Objekt verwendet."));

    EXPECT_EQ(lookups.zusammenfuehrFrage(kTypGenre, krimi, krimis).wert(),
              "\"Krimis\" mit \"Krimi\" zusammenführen?\n3 Verknüpfungen werden auf \"Krimi\" "
              "umgestellt, danach wird \"Krimis\" gelöscht.");
    mitschrift.gesehen.clear();
    ASSERT_TRUE(lookups.zusammenfuehren(kTypGenre, krimi, krimis).ok());
    EXPECT_EQ(mitschrift.gesehen.front(),
              (Aenderung{AenderungsArt::Geloescht, AenderungsTyp::Lookup, krimis, 0, kTypGenre}));
    EXPECT_EQ(namen(objekte().ladeFilm(a)->genres), (std::vector<std::string>{"Krimi", "Drama"}));
    EXPECT_EQ(namen(objekte().ladeFilm(b)->genres), (std::vector<std::string>{"Krimi"}));
    EXPECT_EQ(namen(objekte().ladeFilm(c)->genres), (std::vector<std::string>{"Drama", "Krimi"}));
    EXPECT_EQ(anzahlen(kTypGenre), (Zeilen{{"Drama", 2}, {"Krimi", 3}, {"Leer", 0}}));
    std::string extern_;
    EXPECT_TRUE(uebersetze(app.filter().lade(filter).get(), 5, krimi, extern_));
    EXPECT_EQ(extern_, "Crime");

    // A deleted entry's slot goes to the next new one: nothing may still name it.
    ASSERT_TRUE(lookups.loesche(kTypGenre, leer).ok());
    const long western = genre("Western");
    EXPECT_TRUE(western == krimis || western == leer);
    EXPECT_EQ(anzahlen(kTypGenre), (Zeilen{{"Drama", 2}, {"Krimi", 3}, {"Western", 0}}));
    EXPECT_FALSE(uebersetze(app.filter().lade(filter).get(), 5, western, extern_));
}

TEST_F(Bearbeitung, PersonenDoppeltGeschuetztUndMitAliasZusammengefuehrt) {
    const long ford = person("Ford", "Harrison");
    const long ford2 = person("Ford", "Harrison", 1);
    const long lucas = person("Lucas", "George");
    const long kamera = lookups.neu(kTypFunktion, "Schauspieler").wert();
    const long a = film("A", {}, {{{ford, ""}, {1, ""}, {"Han"}}, {{lucas, ""}, {2, ""}, {}}});
    const long b = film("B", {}, {{{ford2, ""}, {kamera, ""}, {"Indy"}}});
    const long c =
        film("C", {}, {{{ford, ""}, {1, ""}, {"Deckard"}}, {{ford2, ""}, {1, ""}, {"Rick"}}});

    // A film's function list follows its persons: distinct, in order.
    EXPECT_EQ(namen(objekte().ladeFilm(a)->funktionen),
              (std::vector<std::string>{"Darsteller", "Regie"}));
    const auto liste = personen.liste();
    ASSERT_EQ(liste.size(), 3u);
    EXPECT_EQ(liste[0].text, "Ford, Harrison (0)");
    EXPECT_EQ(liste[1].filme, 2);
    EXPECT_EQ(liste[2].text, "Lucas, George (0)");

    // A duplicate is refused with the next free instance; letter case does not matter.
    EXPECT_EQ(personen.freieInstanz({0, "FORD", "harrison", 1}), 2);
    EXPECT_EQ(personen.freieInstanz({0, "Ford", "Harrison", 5}), 5);
    EXPECT_TRUE(verweigert(personen.neu({0, "ford", "Harrison", 0}), Fehlerart::Eingabe,
                           "Die Person \"ford, Harrison (0)\" gibt es bereits.\nDie nächste freie "
                           "Instanz ist 2."));
    EXPECT_TRUE(personen.speichere({ford2, "Ford", "Harrison", 1}).ok());  // itself is no duplicate
    EXPECT_TRUE(verweigert(personen.loesche(lucas), Fehlerart::Eingabe,
                           "\"Lucas, George (0)\" gehört noch zu 1 Film und kann nicht gelöscht "
                           "werden."));

    // Merging: B's link moves with its alias; C has Ford as actor already and
    // gets the alias there.
    EXPECT_EQ(personen.zusammenfuehrFrage(ford, ford2).wert(),
              "\"Ford, Harrison (1)\" mit \"Ford, Harrison (0)\" zusammenführen?\n2 "
              "Filmverknüpfungen werden auf \"Ford, Harrison (0)\" umgestellt, danach wird "
              "\"Ford, Harrison (1)\" gelöscht.");
    ASSERT_TRUE(personen.zusammenfuehren(ford, ford2).ok());
    EXPECT_FALSE(personen.lade(ford2).ok());
    EXPECT_EQ(leute(b), (std::vector<std::string>{"Harrison Ford (Schauspieler): Indy"}));
    EXPECT_EQ(leute(c), (std::vector<std::string>{"Harrison Ford (Darsteller): Deckard, Rick"}));
    EXPECT_EQ(personen.liste()[0].filme, 3);

    // Functions merge the same way; the fixed ones stay.
    ASSERT_TRUE(lookups.zusammenfuehren(kTypFunktion, 1, kamera).ok());
    EXPECT_EQ(leute(b), (std::vector<std::string>{"Harrison Ford (Darsteller): Indy"}));
    EXPECT_EQ(namen(objekte().ladeFilm(b)->funktionen), (std::vector<std::string>{"Darsteller"}));
    EXPECT_TRUE(verweigert(lookups.loesche(kTypFunktion, 2), Fehlerart::Eingabe,
                           "\"Regie\" kann umbenannt, aber nicht gelöscht werden."));
    EXPECT_FALSE(lookups.zusammenfuehren(kTypFunktion, 2, 1).ok());
    EXPECT_TRUE(lookups.umbenennen(kTypFunktion, 2, "Regisseur").ok());

    // A film stored after an entry vanished keeps only what still exists.
    FilmWerte f = objekte().ladeFilm(a).wert();
    f.genres = {{genre("Weg"), ""}, {0, "Neu"}};
    ASSERT_TRUE(lookups.loesche(kTypGenre, f.genres[0].id).ok());
    ASSERT_TRUE(bearbeitung.speichereFilm(box.dvd, f).ok());
    EXPECT_EQ(namen(objekte().ladeFilm(a)->genres), (std::vector<std::string>{"Neu"}));
}

TEST_F(Bearbeitung, EanPruefungenUndCoverFormate) {
    EXPECT_FALSE(BearbeitungsDienst::pruefzifferFalsch("4006381333931"));
    int richtig = 0;
    EXPECT_TRUE(BearbeitungsDienst::pruefzifferFalsch("4006381333932", &richtig));
    EXPECT_EQ(richtig, 1);
    EXPECT_FALSE(BearbeitungsDienst::pruefzifferFalsch("96385074"));
    EXPECT_TRUE(BearbeitungsDienst::pruefzifferFalsch("036000291453"));
    EXPECT_FALSE(BearbeitungsDienst::pruefzifferFalsch("ABC-123"));

    // A wrong check digit is asked about; No writes nothing.
    BoxWerte w = boxWerte("Alien", "4006381333932");
    const CoverWahl ohne;
    EXPECT_EQ(bearbeitung.speichereBox(w, ohne).art(), Fehlerart::Abgelehnt);
    EXPECT_EQ(benutzer.fragen.back().text,
              "Die Prüfziffer der EAN [4006381333932] stimmt nicht (richtig wäre 1).\n"
              "Trotzdem speichern?");
    EXPECT_EQ(katalog().anzahl().boxen, 1);
    benutzer.antworten = {true};
    const auto alien = bearbeitung.speichereBox(w, ohne);
    ASSERT_TRUE(alien.ok());
    EXPECT_EQ(katalog().anzahl().boxen, 2);
    // Another box with that EAN is refused as the import would refuse it.
    EXPECT_TRUE(verweigert(bearbeitung.speichereBox(boxWerte("Aliens", w.ean), ohne),
                           Fehlerart::Eingabe,
                           "Eine Box mit dieser EAN [4006381333932]\nexistiert bereits im "
                           "System.\n{\"Alien\"}"));

    // A PNG becomes a JPEG; a GIF later replaces it under its own extension.
    const std::string cover = programm("Cover/") + std::to_string(alien->box);
    schreibeDatei(tmp / "bild.png", kPng);
    schreibeDatei(tmp / "bild.gif", kGif);
    schreibeDatei(tmp / "text.png", "kein Bild");
    w.id = alien->box;
    ASSERT_TRUE(bearbeitung.speichereBox(w, {CoverWahl::Art::Neu, tmp / "bild.png"}).ok());
    EXPECT_EQ(leseDatei(cover + ".jpg").substr(0, 3), "\xff\xd8\xff");
    EXPECT_EQ(objekte().ladeBox(alien->box)->cover, cover + ".jpg");
    ASSERT_TRUE(bearbeitung.speichereCover(alien->box, tmp / "bild.gif").ok());
    EXPECT_EQ(leseDatei(cover + ".gif"), kGif);
    EXPECT_FALSE(gibtEs(cover + ".jpg"));
    EXPECT_TRUE(verweigert(bearbeitung.speichereBox(w, {CoverWahl::Art::Neu, tmp / "text.png"}),
                           Fehlerart::Eingabe,
                           "Die Datei \"" + tmp / "text.png" + "\" ist kein lesbares Bild."));
    EXPECT_EQ(leseDatei(cover + ".gif"), kGif);
    ASSERT_TRUE(bearbeitung.speichereBox(w, {CoverWahl::Art::Entfernen, ""}).ok());
    EXPECT_FALSE(gibtEs(cover + ".gif"));
}

}  // namespace
