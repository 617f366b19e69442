// The catalogue tree of the main window: nodes read as they are expanded, the
// groups of a film, and the tree following the services' change notices node by
// node while the selection and the expanded nodes stay; the quick filter, the
// hint on an empty catalogue, the cover pane and the saved window position.
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTreeView>
#include <QtTest>

#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/baum/KatalogModell.h"
#include "ui/widgets/CoverFeld.h"

using namespace dv;
using namespace dv::ui;

class KatalogBaumTest : public QObject {
    Q_OBJECT
  private slots:
    void ebenenUndGruppen();
    void baumFolgtDenAenderungen();
    void filterHinweisUndCover();
    void fensterpositionMitTeiler();
};

void KatalogBaumTest::ebenenUndGruppen() {
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

void KatalogBaumTest::baumFolgtDenAenderungen() {
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

void KatalogBaumTest::filterHinweisUndCover() {
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

void KatalogBaumTest::fensterpositionMitTeiler() {
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

QTEST_MAIN(KatalogBaumTest)
#include "katalogbaum.moc"
