// The "OK" of the film dialog, killed at every change of a file: titles, lists,
// persons and both side texts are stored whole or not at all.

#include "app/BearbeitungsDienst.h"
#include "tests/app/Dienstumgebung.h"
#include "tests/support/Absturzprobe.h"

namespace dv::test {
namespace {

TEST(DienstAbsturz, FilmDialogOkIsWholeOrNothing) {
    TempOrdner tmp;
    const std::string basis = tmp / "programm/";
    FakeBenutzer benutzer;
    Einstellungen einstellungen(tmp / "einstellungen.conf");
    long dvd = 0, film = 0;
    FilmWerte neu;
    {
        CApplikation app(benutzer, einstellungen);
        ASSERT_TRUE(app.starte(basis));
        BoxWerte w;
        w.titel = "Box";
        const NeueBox box = app.dienste().objekte().neueBox(w).wert();
        dvd = box.dvd;
        FilmWerte f;
        f.titel = "Vorher";
        f.genres = {{0, "Drama"}, {0, "Krimi"}};
        f.inhalt = "alter Inhalt";
        BearbeitungsDienst bearbeitung(app);
        film = bearbeitung.speichereFilm(dvd, f).wert();
        neu = app.dienste().objekte().ladeFilm(film).wert();
    }
    neu.titel = "Nachher";
    neu.alternativtitel = {"Zweiter", "Dritter"};
    neu.genres = {{0, "Western"}, neu.genres[0]};
    neu.funktionen = {{0, "Kamera"}};
    neu.inhalt = "neuer Inhalt";
    neu.kommentar = "ein Kommentar";
    const auto speichere = [&](CApplikation& app) {
        BearbeitungsDienst bearbeitung(app);
        EXPECT_TRUE(bearbeitung.speichereFilm(dvd, neu).ok());
    };

    Absturzprobe probe;
    probe.basis = basis;
    probe.erwartet = {abbild(basis)};
    {
        CApplikation app(benutzer, einstellungen);
        ASSERT_TRUE(app.starte(basis));
        speichere(app);
    }
    probe.erwartet.push_back(abbild(basis));
    probe.arbeit = [&](FehlerDateisystem& fs, const std::function<void()>& los) {
        CApplikation app(benutzer, einstellungen, fs);
        ASSERT_TRUE(app.starte(basis));
        los();
        speichere(app);
    };
    probe.pruefe();
}

}  // namespace
}  // namespace dv::test
