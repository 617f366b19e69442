// The commands of the main window: the menu bar against the menu table of the
// program's manual (captions, mnemonics, ids), the enabled state as a function of
// the current node, and the context menu of each node kind.
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QtTest>

#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/aktionen/Auswahl.h"
#include "ui/baum/KatalogAnsicht.h"

using namespace dv;
using namespace dv::ui;

namespace {

struct Punkt {
    const char* pfad;  // menu path, captions joined by '/'
    const char* text;
    int id;
};

// Written down independently of the program's table, from the menu of the manual.
const Punkt kMenue[] = {
    {"&Daten", "&Suchen...", 40014},
    {"&Daten", "&Vormerklisten", 32816},
    {"&Daten", "&Tags suchen...", 32798},
    {"&Daten", "Stem&peltags...", 32804},
    {"&Daten", "Box-Titel &finden...", 32789},
    {"&Daten", "EA&N finden...", 32799},
    {"&Daten", "&Importieren", 40022},
    {"&Daten", "&Exportieren", 40023},
    {"&Daten", "&Web-Import...", 32779},
    {"&Daten", "Alle e&xportieren", 40092},
    {"&Daten", "Ü&bersicht...", 32774},
    {"&Daten", "&Anzahl", 32794},
    {"&Daten", "Been&den", 57665},
    {"&Objekte/&Box", "&Neu...", 40001},
    {"&Objekte/&Box", "&Bearbeiten...", 40008},
    {"&Objekte/&Box", "&Löschen...", 40009},
    {"&Objekte/&Box", "Neue &Dvd...", 40097},
    {"&Objekte/&Box", "&Infoliste", 40055},
    {"&Objekte/&Box", "XML...", 32832},
    {"&Objekte/&Box", "Gesamtspieldauer", 32826},
    {"&Objekte/&Box", "&Tags", 32795},
    {"&Objekte/&Box", "&Stempeltags...", 32805},
    {"&Objekte/&Box", "Alle Tags entfernen", 32829},
    {"&Objekte/&Box", "&Vormerken...", 32812},
    {"&Objekte/&DVD", "&Neu...", 40015},
    {"&Objekte/&DVD", "&Bearbeiten...", 40016},
    {"&Objekte/&DVD", "&Löschen...", 40017},
    {"&Objekte/&DVD", "Neuer &Film...", 40098},
    {"&Objekte/&DVD", "&Hoch", 40080},
    {"&Objekte/&DVD", "&Runter", 40081},
    {"&Objekte/&DVD", "&Kopieren", 40070},
    {"&Objekte/&DVD", "&Infoliste", 40056},
    {"&Objekte/&DVD", "XML...", 32833},
    {"&Objekte/&DVD", "Gesamtspieldauer", 32827},
    {"&Objekte/&DVD", "&Tags", 32796},
    {"&Objekte/&DVD", "&Stempeltags...", 32806},
    {"&Objekte/&DVD", "Alle Tags entfernen", 32830},
    {"&Objekte/&DVD", "&Vormerken...", 32813},
    {"&Objekte/&Film", "&Neu...", 40018},
    {"&Objekte/&Film", "&Bearbeiten...", 40020},
    {"&Objekte/&Film", "&Löschen...", 40021},
    {"&Objekte/&Film", "&Hoch", 40082},
    {"&Objekte/&Film", "&Runter", 40083},
    {"&Objekte/&Film", "&Kopieren", 40069},
    {"&Objekte/&Film", "&Infoliste", 40057},
    {"&Objekte/&Film", "XML...", 32834},
    {"&Objekte/&Film", "Gesamtspieldauer", 32828},
    {"&Objekte/&Film", "&Tags", 32797},
    {"&Objekte/&Film", "&Stempeltags...", 32807},
    {"&Objekte/&Film", "Alle Tags entfernen", 32831},
    {"&Objekte/&Film", "&Vormerken...", 32814},
    {"&Objekte/&Film", "Inh&alt...", 40043},
    {"&Objekte/&Film", "Ko&mmentar...", 40046},
    {"&Objekte/&Film", "&Personen-Struktur", 40085},
    {"&Objekte", "Be&arbeiten...", 40099},
    {"&Objekte", "Aufklappe&n", 40068},
    {"&Objekte", "Boxen &zuklappen", 32815},
    {"&Objekte", "Bi&ldformate...", 40038},
    {"&Objekte", "&Extras...", 40037},
    {"&Objekte", "F&ormate...", 40049},
    {"&Objekte", "Fun&ktion...", 40025},
    {"&Objekte", "&Genre", 40088},
    {"&Objekte", "&Personen...", 40084},
    {"&Objekte", "&Sprachen...", 40003},
    {"&Objekte", "&Tonformate...", 40039},
    {"&Objekte", "&Untertitel...", 40011},
    {"&Objekte", "&Verpackung...", 61448},
    {"Daten&bank", "&Validieren", 40031},
    {"D&VD", "&Info...", 40028},
    {"D&VD", "Er&kennen", 40050},
    {"D&VD", "&Ausfahren", 40029},
    {"D&VD", "&Einfahren", 40032},
    {"&Einstellungen", "Dvd-Lauf&werk...", 40033},
    {"&Einstellungen", "&Optionen...", 32773},
    {"&Einstellungen", "&Filter...", 32786},
    {"&Einstellungen", "&Import-URL...", 32784},
    {"&Einstellungen", "Hintergrundbild...", 32785},
};

// The actions of a menu path, separators left out.
QList<QAction*> aktionenIn(QMenuBar* leiste, const QString& pfad) {
    QList<QAction*> ebene = leiste->actions();
    for (const QString& teil : pfad.split(QLatin1Char('/'))) {
        QMenu* menue = nullptr;
        for (QAction* a : ebene)
            if (a->text() == teil && a->menu()) menue = a->menu();
        if (!menue) return {};
        ebene = menue->actions();
    }
    QList<QAction*> ohneTrenner;
    for (QAction* a : ebene)
        if (!a->isSeparator() && !a->menu()) ohneTrenner << a;
    return ohneTrenner;
}

QStringList sichtbareTexte(QMenu* m) {
    QStringList t;
    for (QAction* a : m->actions())
        if (a->isVisible() && !a->isSeparator()) t << a->text();
    return t;
}

}  // namespace

class AktionenTest : public QObject {
    Q_OBJECT
  private slots:
    void menueleisteWieImHandbuch();
    void freigabeFolgtDemKnoten();
    void kontextmenueJeKnotenart();
};

void AktionenTest::menueleisteWieImHandbuch() {
    test::Fenster f;
    QMenuBar* leiste = f.fenster().menuBar();
    QStringList oben;
    for (QAction* a : leiste->actions())
        if (a->isVisible()) oben << a->text();
    QCOMPARE(oben,
             (QStringList{"&Daten", "&Objekte", "Daten&bank", "D&VD", "&Einstellungen", "&Hilfe"}));
    // Each menu holds exactly the manual's items, in its order, each named by its id.
    QMap<QString, QStringList> erwartet;
    for (const Punkt& p : kMenue)
        erwartet[test::q(p.pfad)] << test::q(p.text) + QStringLiteral("=cmd") +
                                         QString::number(p.id);
    for (auto it = erwartet.begin(); it != erwartet.end(); ++it) {
        QStringList ist;
        for (QAction* a : aktionenIn(leiste, it.key()))
            ist << a->text() + QLatin1Char('=') + a->objectName();
        QCOMPARE(ist, it.value());
    }
    QCOMPARE(aktionenIn(leiste, QStringLiteral("&Hilfe")).first()->text(),
             QStringLiteral("Inf&o..."));
}

void AktionenTest::freigabeFolgtDemKnoten() {
    Auswahl nichts;
    Auswahl wurzel;
    wurzel.art = kWurzelKnoten;
    Auswahl box = wurzel;
    box.art = kBoxKnoten;
    box.box = 4;
    Auswahl dvd = box;
    dvd.art = kDvdKnoten;
    dvd.dvd = 7;
    dvd.erstes = true;
    dvd.letztes = false;
    Auswahl film = dvd;
    film.art = kFilmKnoten;
    film.film = 9;
    film.erstes = false;
    film.letztes = true;
    Auswahl genre = film;
    genre.art = kEintragsKnoten;

    struct Fall {
        int id;
        bool nichts, wurzel, box, dvd, film, eintrag;
    };
    const Fall faelle[] = {
        {kCmdSuchen, true, true, true, true, true, true},
        {kCmdBoxLoeschen, false, false, true, false, false, false},
        {kCmdDvdLoeschen, false, false, false, true, false, false},
        {kCmdFilmLoeschen, false, false, false, false, true, false},
        {kCmdExportieren, false, false, true, false, false, false},
        {kCmdBearbeiten, false, false, true, true, true, true},
        {kCmdBoxNeueDvd, false, false, true, true, false, false},
        {kCmdFilmNeu, false, false, false, true, true, false},
        {kCmdFilmInhalt, false, false, false, false, true, true},
        {kCmdAufklappen, false, false, true, true, true, true},
        {kCmdDvdHoch, false, false, false, false, false, false},  // the first DVD
        {kCmdDvdRunter, false, false, false, true, false, false},
        {kCmdFilmHoch, false, false, false, false, true, false},
        {kCmdFilmRunter, false, false, false, false, false, false},  // the last film
        {kCmdEinfuegen, false, false, false, false, false, false},
        {kCmdAbbrechen, false, false, false, false, false, false},
    };
    for (const Fall& f : faelle) {
        const QByteArray id = QByteArray::number(f.id);
        QVERIFY2(istAktiv(f.id, nichts) == f.nichts, id);
        QVERIFY2(istAktiv(f.id, wurzel) == f.wurzel, id);
        QVERIFY2(istAktiv(f.id, box) == f.box, id);
        QVERIFY2(istAktiv(f.id, dvd) == f.dvd, id);
        QVERIFY2(istAktiv(f.id, film) == f.film, id);
        QVERIFY2(istAktiv(f.id, genre) == f.eintrag, id);
    }
    QCOMPARE(genre.objektTyp(), 3);
    QCOMPARE(genre.objektId(), 9L);

    // Copy mode: a DVD goes into a box (also through one of its DVDs), a film onto
    // a DVD (also through one of its films); "Abbrechen" works everywhere.
    for (Auswahl* a : {&wurzel, &box, &dvd, &film, &genre}) {
        a->quelleTyp = 2;
        a->quelleId = 7;
    }
    QVERIFY(!istAktiv(kCmdEinfuegen, wurzel));
    QCOMPARE(einfuegeZiel(box), 4L);
    QCOMPARE(einfuegeZiel(dvd), 4L);
    QCOMPARE(einfuegeZiel(film), 0L);
    QVERIFY(istAktiv(kCmdAbbrechen, wurzel));
    film.quelleTyp = dvd.quelleTyp = box.quelleTyp = 3;
    QCOMPARE(einfuegeZiel(film), 7L);
    QCOMPARE(einfuegeZiel(dvd), 7L);
    QCOMPARE(einfuegeZiel(box), 0L);

    // The check mark of "Tags" belongs to the node's own kind.
    film.hatTags = true;
    QVERIFY(istAbgehakt(*befehl(kCmdFilmTags), film));
    QVERIFY(!istAbgehakt(*befehl(kCmdDvdTags), film));
    film.hatTags = false;
    QVERIFY(!istAbgehakt(*befehl(kCmdFilmTags), film));
}

void AktionenTest::kontextmenueJeKnotenart() {
    test::Fenster f;
    const NeueBox neu = f.neueBox("Alien", "4010");
    Aktionen& aktionen = f.fenster().aktionen();
    QVERIFY(f.waehle(1, neu.box));
    QMenu* box = aktionen.kontextMenue(kBoxKnoten);
    QCOMPARE(
        sichtbareTexte(box),
        (QStringList{"&Bearbeiten", "Neu: DV&D", "A&ufklappen", "In&foliste", "Gesamtspieldauer",
                     "&Tags", "&Stempeltags...", "Alle Tags entfernen", "&Vormerken..."}));
    QCOMPARE(sichtbareTexte(aktionen.kontextMenue(kWurzelKnoten)),
             (QStringList{"&Neu: Box", "&Import", "&Web-Import"}));

    // Copy mode shows its two entries; "Einfuegen DVD" only where the copy can go.
    QVERIFY(f.waehle(3, neu.film));
    QVERIFY(f.loese(kCmdFilmKopieren));
    QMenu* film = aktionen.kontextMenue(kFilmKnoten);
    QVERIFY(sichtbareTexte(film).contains("&Einfuegen DVD"));
    QVERIFY(sichtbareTexte(film).contains("&Abbrechen"));
    QVERIFY(f.waehle(1, neu.box));
    QAction* einfuegen = box->findChild<QAction*>("kontext_cmdEinfuegen");
    QVERIFY(einfuegen && einfuegen->isVisible() && !einfuegen->isEnabled());
    box->findChild<QAction*>("kontext_cmdAbbrechen")->trigger();
    QVERIFY(!sichtbareTexte(box).contains("&Abbrechen"));

    // An entry runs its command: "Gesamtspieldauer" of the box.
    box->findChild<QAction*>("kontext_cmd32826")->trigger();
    QCOMPARE(f.benutzer.meldungen.size(), std::size_t{1});
    QCOMPARE(f.benutzer.meldungen[0].titel, std::string("Gesamtspieldauer"));
}

QTEST_MAIN(AktionenTest)
#include "aktionen.moc"
