// The main window: the catalogue tree read as it is expanded, the groups of a
// film, the tree following the services' change notices while the selection
// and the expanded nodes stay, the quick filter, the hint on an empty catalogue,
// the cover pane and the saved window position; the menu bar against the menu
// table of the program's manual, the enabled state as a function of the current
// node, the context menu of each node kind; the object commands driven like a
// user: delete with its question, copy mode, up and down, the information list,
// the XML window whose saved file holds the exporter's bytes, the playing time.
#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTreeView>
#include <QtTest>

#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/aktionen/Auswahl.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/baum/KatalogModell.h"
#include "ui/widgets/CoverFeld.h"
#include "ui/widgets/TextFenster.h"

using namespace dv;
using namespace dv::ui;

class HauptfensterTest : public QObject {
    Q_OBJECT
  private slots:
    void ebenenUndGruppen();
    void baumFolgtDenAenderungen();
    void filterHinweisUndCover();
    void fensterpositionMitTeiler();
    void menueleisteWieImHandbuch();
    void freigabeFolgtDemKnoten();
    void kontextmenueJeKnotenart();
    void loeschenFragtErst();
    void kopiermodusUndReihenfolge();
    void texteUndXml();
};

void HauptfensterTest::ebenenUndGruppen() {
    test::Fenster f;
    const NeueBox neu = f.neueBox("Metropolis-Box", "4001");
    const long leer = f.neueDvd(neu.box, "Leer");
    auto film = f.app.dienste().objekte().ladeFilm(neu.film);
    QVERIFY(film.ok());
    film->genres = {{0, "Stummfilm"}, {0, "Science-Fiction"}};
    film->sprachen = {{{0, "Deutsch"}, {0, "Mono"}}};
    film->funktionen = {{0, "Regie"}};
    const long lang = f.app.katalog().Person.insert(0, "Lang", "Fritz");
    film->personen = {{{lang, ""}, {0, "Regie"}, {"F. L."}}};
    QVERIFY(f.app.dienste().objekte().speichereFilm(film.wert()).ok());

    KatalogModell& m = f.fenster().katalog().modell();
    QCOMPARE(f.wurzel().data().toString(), QStringLiteral("DORVANO {1 Box}"));
    const QModelIndex box = m.index(0, 0, f.wurzel());
    // Nothing below a box is read before it is expanded, yet it shows the mark.
    QCOMPARE(m.rowCount(box), 0);
    QVERIFY(m.hasChildren(box));
    QCOMPARE(f.kinder(box), (QStringList{"Metropolis-Box", "Leer"}));
    const QModelIndex leereDvd = f.knoten(2, leer);
    QCOMPARE(f.kinder(leereDvd), QStringList{});
    QVERIFY(!m.hasChildren(leereDvd));
    const QModelIndex filmKnoten = f.knoten(3, neu.film);
    QCOMPARE(f.kinder(filmKnoten), (QStringList{"Genre", "Sprachen inkl. Tonformat", "Personen"}));
    QCOMPARE(f.kinder(m.index(0, 0, filmKnoten)), (QStringList{"Stummfilm", "Science-Fiction"}));
    QCOMPARE(f.kinder(m.index(1, 0, filmKnoten)), QStringList{"Deutsch / Mono"});
    const QModelIndex personen = m.index(2, 0, filmKnoten);
    QCOMPARE(f.kinder(personen), QStringList{"Fritz Lang (Regie)"});
    QCOMPARE(f.kinder(m.index(0, 0, personen)), QStringList{"F. L."});

    // "Aufklappen" stops at MaxFilmeAufklappen films.
    const long zweiter = f.neuerFilm(neu.dvd, "Die Nibelungen");
    QVERIFY(f.einstellungen.setMaxFilmeAufklappen(1));
    QVERIFY(f.waehle(1, neu.box));
    QVERIFY(f.loese(kCmdAufklappen));
    QTreeView* baum = f.fenster().katalog().baum();
    auto offen = [&](const QModelIndex& quelle) {
        return baum->isExpanded(
            static_cast<QSortFilterProxyModel*>(baum->model())->mapFromSource(quelle));
    };
    QVERIFY(offen(f.knoten(2, neu.dvd)));
    QVERIFY(offen(f.knoten(3, neu.film)));
    QVERIFY(!offen(f.knoten(3, zweiter)));
    QVERIFY(f.loese(kCmdZuklappen));
    QVERIFY(!offen(f.knoten(1, neu.box)));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Metropolis-Box"));
}

void HauptfensterTest::baumFolgtDenAenderungen() {
    test::Fenster f;
    const NeueBox alien = f.neueBox("Alien", "4010");
    f.neueBox("Zorro", "4011");
    const long bonus = f.neueDvd(alien.box, "Bonus");
    const long aliens = f.neuerFilm(alien.dvd, "Aliens");
    KatalogAnsicht& k = f.fenster().katalog();
    QVERIFY(f.waehle(3, aliens));
    const auto texte = [&] { return f.kinder(f.wurzel()); };

    // A new box lands in title order and the root counts it; nothing else moves.
    ObjektDienst& objekte = f.app.dienste().objekte();
    const NeueBox matrix = f.neueBox("Matrix");
    QCOMPARE(texte(), (QStringList{"Alien", "Matrix", "Zorro"}));
    QCOMPARE(f.wurzel().data().toString(), QStringLiteral("DORVANO {3 Boxen}"));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Aliens"));

    // Moving a film reorders its DVD's node; it stays the current node.
    QVERIFY(objekte.verschiebe(3, aliens, true).ok());
    QCOMPARE(f.kinder(f.knoten(2, alien.dvd)), (QStringList{"Aliens", "Alien"}));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Aliens"));
    QVERIFY(!f.aktiv(kCmdFilmHoch) && f.aktiv(kCmdFilmRunter));

    // A renamed box moves to its new place; a deleted DVD and box disappear.
    auto box = objekte.ladeBox(alien.box);
    box->titel = "Xenomorph";
    QVERIFY(objekte.speichereBox(box.wert()).ok());
    QCOMPARE(texte(), (QStringList{"Matrix", "Xenomorph", "Zorro"}));
    QVERIFY(objekte.loesche(2, bonus).ok());
    QCOMPARE(f.kinder(f.knoten(1, alien.box)), QStringList{"Alien"});
    QVERIFY(objekte.loesche(1, matrix.box).ok());
    QCOMPARE(texte(), (QStringList{"Xenomorph", "Zorro"}));
    QCOMPARE(f.wurzel().data().toString(), QStringLiteral("DORVANO {2 Boxen}"));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Aliens"));

    // A notice of everything reads the tree anew and puts the view back.
    f.app.aenderungen().verkuende(Aenderung{});
    QCOMPARE(f.aktuellerText(), QStringLiteral("Aliens"));
    QVERIFY(k.baum()->isExpanded(k.baum()->currentIndex().parent()));
}

void HauptfensterTest::filterHinweisUndCover() {
    test::Fenster f;
    KatalogAnsicht& k = f.fenster().katalog();
    auto* hinweis = k.findChild<QLabel*>("Hinweis");
    QVERIFY(hinweis->isVisible());
    const NeueBox alien = f.neueBox("Alien", "4010");
    f.neueBox("Aliens", "5020");
    f.neueBox("Zorro", "4011");
    QVERIFY(!hinweis->isVisible());
    auto* anzahl = k.findChild<QLabel*>("Boxanzahl");
    QCOMPARE(anzahl->text(), QStringLiteral("3 von 3 Boxen"));

    QVERIFY(f.waehle(1, alien.box));
    QLineEdit* filter = k.filterFeld();
    QCOMPARE(filter->objectName(), QStringLiteral("Filter"));
    QTest::keyClicks(filter, "ALI");
    QCOMPARE(anzahl->text(), QStringLiteral("2 von 3 Boxen"));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Alien"));
    filter->setText("40?0");  // wildcards match the whole EAN
    QCOMPARE(anzahl->text(), QStringLiteral("1 von 3 Boxen"));
    QTest::keyClick(filter, Qt::Key_Escape);
    QCOMPARE(filter->text(), QString());
    QCOMPARE(anzahl->text(), QStringLiteral("3 von 3 Boxen"));

    // The cover pane: the box of the current node, "Kein Cover" without a picture.
    QVERIFY(f.waehle(3, alien.film));
    CoverFeld& cover = f.fenster().cover();
    QVERIFY(!cover.hatBild());
    QCOMPARE(cover.beschreibung(),
             QStringLiteral("Kein Cover\nAlien\nEAN: 4010\nVerpackung: –\n1 DVD, 1 Film"));
    QImage bild(40, 60, QImage::Format_RGB32);
    bild.fill(Qt::gray);
    const std::string datei = f.tmp / "bild.jpg";
    QVERIFY(bild.save(QString::fromStdString(datei)));
    QVERIFY(f.app.dienste().objekte().setzeCover(alien.box, datei).ok());
    QVERIFY(f.waehle(1, alien.box));
    QVERIFY(cover.hatBild());
}

void HauptfensterTest::fensterpositionMitTeiler() {
    test::Fenster f;
    f.fenster().setGeometry(40, 50, 700, 500);
    f.fenster().findChild<QSplitter*>("Teiler")->setSizes({420, 280});
    const QList<int> vorher = f.fenster().findChild<QSplitter*>("Teiler")->sizes();
    CDorvanoDlg& wieder = f.neuesFenster();
    std::string text;
    QVERIFY(f.einstellungen.getFensterPosition("WP_main", text));
    QVERIFY(QString::fromStdString(text).startsWith("0,1,-1,-1,-1,-1,40,50,740,550,"));
    QCOMPARE(wieder.geometry(), QRect(40, 50, 700, 500));
    QCOMPARE(wieder.findChild<QSplitter*>("Teiler")->sizes(), vorher);
}

namespace {

// Written down independently of the program's table, from the menu of the manual:
// each menu path (captions joined by '/') with its items as "caption=id", in order.
const std::pair<const char*, const char*> kMenue[] = {
    {"&Daten",
     "&Suchen...=40014|&Vormerklisten=32816|&Tags suchen...=32798|"
     "Stem&peltags...=32804|Box-Titel &finden...=32789|EA&N finden...=32799|"
     "&Importieren=40022|&Exportieren=40023|&Web-Import...=32779|"
     "Alle e&xportieren=40092|Ü&bersicht...=32774|&Anzahl=32794|Been&den=57665"},
    {"&Objekte/&Box",
     "&Neu...=40001|&Bearbeiten...=40008|&Löschen...=40009|Neue &Dvd...=40097|"
     "&Infoliste=40055|XML...=32832|Gesamtspieldauer=32826|&Tags=32795|"
     "&Stempeltags...=32805|Alle Tags entfernen=32829|&Vormerken...=32812"},
    {"&Objekte/&DVD",
     "&Neu...=40015|&Bearbeiten...=40016|&Löschen...=40017|Neuer &Film...=40098|"
     "&Hoch=40080|&Runter=40081|&Kopieren=40070|&Infoliste=40056|XML...=32833|"
     "Gesamtspieldauer=32827|&Tags=32796|&Stempeltags...=32806|"
     "Alle Tags entfernen=32830|&Vormerken...=32813"},
    {"&Objekte/&Film",
     "&Neu...=40018|&Bearbeiten...=40020|&Löschen...=40021|&Hoch=40082|&Runter=40083|"
     "&Kopieren=40069|&Infoliste=40057|XML...=32834|Gesamtspieldauer=32828|"
     "&Tags=32797|&Stempeltags...=32807|Alle Tags entfernen=32831|&Vormerken...=32814|"
     "Inh&alt...=40043|Ko&mmentar...=40046|&Personen-Struktur=40085"},
    {"&Objekte",
     "Be&arbeiten...=40099|Aufklappe&n=40068|Boxen &zuklappen=32815|"
     "Bi&ldformate...=40038|&Extras...=40037|F&ormate...=40049|Fun&ktion...=40025|"
     "&Genre=40088|&Personen...=40084|&Sprachen...=40003|&Tonformate...=40039|"
     "&Untertitel...=40011|&Verpackung...=61448"},
    {"Daten&bank", "&Validieren=40031"},
    {"D&VD", "&Info...=40028|Er&kennen=40050|&Ausfahren=40029|&Einfahren=40032"},
    {"&Einstellungen",
     "Dvd-Lauf&werk...=40033|&Optionen...=32773|&Filter...=32786|&Import-URL...=32784|"
     "Hintergrundbild...=32785"},
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

void HauptfensterTest::menueleisteWieImHandbuch() {
    test::Fenster f;
    QMenuBar* leiste = f.fenster().menuBar();
    QStringList oben;
    for (QAction* a : leiste->actions())
        if (a->isVisible()) oben << a->text();
    QCOMPARE(oben,
             (QStringList{"&Daten", "&Objekte", "Daten&bank", "D&VD", "&Einstellungen", "&Hilfe"}));
    // Each menu holds exactly the manual's items, in its order, each named by its id.
    QMap<QString, QStringList> erwartet;
    for (const auto& [pfad, punkte] : kMenue)
        for (const QString& p : test::q(punkte).split(QLatin1Char('|')))
            erwartet[test::q(pfad)] << QString(p).replace(QLatin1Char('='), QStringLiteral("=cmd"));
    for (auto it = erwartet.begin(); it != erwartet.end(); ++it) {
        QStringList ist;
        for (QAction* a : aktionenIn(leiste, it.key()))
            ist << a->text() + QLatin1Char('=') + a->objectName();
        QCOMPARE(ist, it.value());
    }
    QCOMPARE(aktionenIn(leiste, QStringLiteral("&Hilfe")).first()->text(),
             QStringLiteral("Inf&o..."));
}

void HauptfensterTest::freigabeFolgtDemKnoten() {
    const Auswahl nichts;
    Auswahl wurzel{.art = kWurzelKnoten};
    Auswahl box{.art = kBoxKnoten, .box = 4};
    Auswahl dvd{.art = kDvdKnoten, .box = 4, .dvd = 7, .letztes = false};
    Auswahl film{.art = kFilmKnoten, .box = 4, .dvd = 7, .film = 9, .erstes = false};
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

void HauptfensterTest::kontextmenueJeKnotenart() {
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

void HauptfensterTest::loeschenFragtErst() {
    test::Fenster f;
    const NeueBox alien = f.neueBox("Alien", "4010");
    const NeueBox zorro = f.neueBox("Zorro", "4011");
    const long zweiter = f.neuerFilm(alien.dvd, "Aliens");

    // No keeps everything; the question names the film.
    QVERIFY(f.waehle(3, zweiter));
    QTest::keyClick(f.fenster().katalog().baum(), Qt::Key_Delete);
    QCOMPARE(f.letzteFrage(), std::string("Film \"Aliens\" löschen?"));
    QVERIFY(f.app.dienste().katalog().gibtEs(3, zweiter));

    // Yes deletes the box with its DVD and films; the tree and its count follow.
    f.benutzer.antworten = {true};
    QVERIFY(f.waehle(1, alien.box));
    QVERIFY(f.loese(kCmdBoxLoeschen));
    QCOMPARE(f.letzteFrage(), std::string("Box \"Alien\" löschen?"));
    QVERIFY(!f.app.dienste().katalog().gibtEs(3, zweiter));
    QCOMPARE(f.kinder(f.wurzel()), QStringList{"Zorro"});
    QCOMPARE(f.wurzel().data().toString(), QStringLiteral("DORVANO {1 Box}"));

    // The copy source gets its own question, and deleting it ends copy mode.
    QVERIFY(f.waehle(2, zorro.dvd));
    QVERIFY(f.loese(kCmdDvdKopieren));
    QVERIFY(f.aktiv(kCmdAbbrechen));
    f.benutzer.antworten = {true};
    QVERIFY(f.loese(kCmdDvdLoeschen));
    QCOMPARE(f.letzteFrage(),
             std::string("Hinweis zu \"Zorro\":\nDiese Dvd ist zur Zeit Quelle beim aktiven "
                         "Kopiermodus.\nTrotzdem löschen? (Kopiermodus wird beendet)."));
    QVERIFY(!f.aktiv(kCmdAbbrechen));
    QCOMPARE(f.kinder(f.knoten(1, zorro.box)), QStringList{});
    QVERIFY(f.benutzer.meldungen.empty());
}

void HauptfensterTest::kopiermodusUndReihenfolge() {
    test::Fenster f;
    const NeueBox alien = f.neueBox("Alien", "4010");
    const NeueBox zorro = f.neueBox("Zorro", "4011");
    const long bonus = f.neueDvd(alien.box, "Bonus");

    // The source is shown in bold; pasted into another box it comes last.
    QVERIFY(f.waehle(2, alien.dvd));
    QVERIFY(f.loese(kCmdDvdKopieren));
    QVERIFY(f.knoten(2, alien.dvd).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(f.waehle(1, zorro.box));
    QVERIFY(f.loese(kCmdEinfuegen));
    QCOMPARE(f.kinder(f.knoten(1, zorro.box)), (QStringList{"Zorro", "Alien"}));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Alien"));
    QVERIFY(f.app.dienste().katalog().besitzer(2, f.fenster().katalog().auswahl().dvd) ==
            zorro.box);
    // A film cannot go into a box: the DVD mode offers no target there after "Abbrechen".
    QVERIFY(f.loese(kCmdAbbrechen));
    QVERIFY(!f.knoten(2, alien.dvd).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!f.aktiv(kCmdEinfuegen));

    // Up and down move the node and keep it current; the edges are disabled.
    QVERIFY(f.waehle(2, bonus));
    QVERIFY(!f.aktiv(kCmdDvdRunter));
    QTest::keyClick(f.fenster().katalog().baum(), Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(f.kinder(f.knoten(1, alien.box)), (QStringList{"Bonus", "Alien"}));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Bonus"));
    QVERIFY(!f.aktiv(kCmdDvdHoch));
    QVERIFY(f.loese(kCmdDvdRunter));
    QCOMPARE(f.kinder(f.knoten(1, alien.box)), (QStringList{"Alien", "Bonus"}));
}

void HauptfensterTest::texteUndXml() {
    test::Fenster f;
    const NeueBox neu = f.neueBox("Tom & Jerry", "4010");
    auto film = f.app.dienste().objekte().ladeFilm(neu.film);
    film->laenge = 61;
    QVERIFY(f.app.dienste().objekte().speichereFilm(film.wert()).ok());

    QVERIFY(f.waehle(1, neu.box));
    QVERIFY(f.loese(kCmdBoxSpieldauer));
    QCOMPARE(f.letzterMeldungsTitel(), std::string("Gesamtspieldauer"));
    QCOMPARE(f.letzteMeldung(),
             std::string("Alle Filme dieser Box haben eine Gesamtspieldauer von 61 Minuten.\r\n"
                         "(1 Stunde, 1 Minute)"));
    QVERIFY(f.loese(kCmdAnzahl));
    QCOMPARE(f.letzteMeldung(), std::string("Boxen: 1\nDvds: 1\nFilme: 1"));

    QVERIFY(f.loese(kCmdBoxInfoliste));
    auto* info = f.dialog<TextFenster>();
    QVERIFY(info);
    QCOMPARE(info->windowTitle(), QStringLiteral("Tom & Jerry"));
    QVERIFY(info->anzeige()->toPlainText().startsWith("Information zur DVD-Box \"Tom & Jerry\""));
    info->close();

    // The XML window shows the exporter's document; saved, the file holds its bytes.
    QVERIFY(f.loese(kCmdBoxXml));
    auto* xml = f.dialog<TextFenster>();
    QCOMPARE(xml->windowTitle(), QStringLiteral("XML-Ausgabe [Tom & Jerry]"));
    std::string erwartet;
    QVERIFY(f.app.austausch().xml(1, neu.box, xmlOptionen(f.app.austausch().optionen()), erwartet));
    QVERIFY(erwartet.find("Titel=\"Tom &amp; Jerry\"") != std::string::npos);
    QCOMPARE(xml->text(), erwartet);
    xml->speichern();
    auto* wahl = xml->findChild<QFileDialog*>();
    QVERIFY(wahl);
    wahl->selectFile(QString::fromStdString(f.tmp / "box"));
    QMetaObject::invokeMethod(wahl, "accept");
    QCOMPARE(test::leseDatei(f.tmp / "box.xml"), erwartet);
    xml->close();
}

QTEST_MAIN(HauptfensterTest)
#include "hauptfenster.moc"
