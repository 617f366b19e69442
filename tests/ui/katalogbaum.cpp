// The catalogue tree below the boxes: DVDs, films and the film's groups read as
// their nodes are expanded, the texts of the entries, and the expand command
// with its limit of films.
#include <QTreeWidget>
#include <QtTest>

#include "app/CApplikation.h"
#include "base/Zeichensatz.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/TempOrdner.h"
#include "ui/CDorvanoDlg.h"
#include "ui/KatalogBaum.h"

using namespace dv;

namespace {

QString u(const char* cp1252) {
    return alsQString(cp1252);
}

QStringList kinder(const QTreeWidgetItem* item) {
    QStringList l;
    for (int i = 0; i < item->childCount(); ++i) l << item->child(i)->text(0);
    return l;
}

// A program folder with one box of two DVDs; the first DVD holds two films, the
// first film has every kind of group, the second DVD is empty.
struct Sammlung {
    Sammlung() : einstellungen(tmp / "einstellungen.conf"), app(benutzer, einstellungen) {}
    bool fuelle() {
        if (!app.starte(tmp / "programm")) return false;
        Datenbank& db = app.db();
        box = db.neueBox("4001", "Metropolis-Box", 0);
        Zeile9 d{};
        std::strcpy(d.cpText, "Disc 1");
        dvd1 = db.neueDvd(box, d);
        std::strcpy(d.cpText, "Leer");
        dvd2 = db.neueDvd(box, d);
        film1 = db.neuerFilm(dvd1, "Metropolis", 6, 153, 1927);
        film2 = db.neuerFilm(dvd1, "Die Nibelungen", 12, 280, 1924);
        const long de = db.neuesLookup(kTypSprache, "Deutsch");
        return db.schreibeFilmObjekte(film1, kTypGenre,
                                      {db.neuesLookup(kTypGenre, "Stummfilm"),
                                       db.neuesLookup(kTypGenre, "Science-Fiction")}) &&
               db.schreibeFilmObjekte(film1, kTypBildformat,
                                      {db.neuesLookup(kTypBildformat, "4:3")}) &&
               db.schreibeFilmSprachen(film1, {{de, db.neuesLookup(kTypTonformat, "Mono")}}) &&
               db.schreibeFilmObjekte(film1, kTypUntertitel, {de}) &&
               db.schreibeFilmPersonen(
                   film1, {{app.katalog().Person.insert(0, "Lang", "Fritz"), 2, {"F. L."}},
                           {app.katalog().Person.insert(0, "Helm", "Brigitte"), 1, {}}}) &&
               db.schreibeFilmObjekte(film2, kTypGenre, {db.neuesLookup(kTypGenre, "Sage")});
    }
    test::TempOrdner tmp;
    test::FakeBenutzer benutzer;
    Einstellungen einstellungen;
    CApplikation app;
    long box = 0, dvd1 = 0, dvd2 = 0, film1 = 0, film2 = 0;
};

}  // namespace

class KatalogBaumTest : public QObject {
    Q_OBJECT
  private slots:
    void aufklappenLiestDieEbenenNach();
    void aufklappenBegrenztDieFilme();
    void gruppenTexte();
};

void KatalogBaumTest::aufklappenLiestDieEbenenNach() {
    Sammlung s;
    QVERIFY(s.fuelle());
    ui::CDorvanoDlg fenster(s.app);
    QTreeWidgetItem* wurzel = fenster.wurzel();
    QCOMPARE(wurzel->text(0), QStringLiteral("DORVANO {1 Box}"));
    QTreeWidgetItem* box = wurzel->child(0);
    QCOMPARE(box->text(0), QStringLiteral("Metropolis-Box"));
    QCOMPARE(box->data(0, ui::kRolleTyp).toInt(), kObjektBox);
    QCOMPARE(box->data(0, ui::kRolleId).toLongLong(), static_cast<qlonglong>(s.box));
    // Nothing below a box is read before it is expanded, yet it shows the mark.
    QCOMPARE(box->childCount(), 0);
    QCOMPARE(box->childIndicatorPolicy(), QTreeWidgetItem::ShowIndicator);

    box->setExpanded(true);
    QCOMPARE(kinder(box), (QStringList{"Disc 1", "Leer"}));
    QTreeWidgetItem* leer = box->child(1);
    leer->setExpanded(true);
    QCOMPARE(leer->childCount(), 0);
    QCOMPARE(leer->childIndicatorPolicy(), QTreeWidgetItem::DontShowIndicatorWhenChildless);

    QTreeWidgetItem* disc = box->child(0);
    disc->setExpanded(true);
    QCOMPARE(kinder(disc), (QStringList{"Metropolis", "Die Nibelungen"}));
    QTreeWidgetItem* film = disc->child(0);
    QCOMPARE(film->data(0, ui::kRolleTyp).toInt(), kObjektFilm);
    film->setExpanded(true);
    QCOMPARE(kinder(film), (QStringList{"Genre", "Bildformate", "Sprachen inkl. Tonformat",
                                        "Untertitel", "Personen"}));
    QCOMPARE(kinder(film->child(0)), (QStringList{"Stummfilm", "Science-Fiction"}));
    QCOMPARE(kinder(film->child(2)), QStringList{"Deutsch / Mono"});
    QCOMPARE(kinder(film->child(4)),
             (QStringList{"Fritz Lang (Regie)", "Brigitte Helm (Darsteller)"}));
    QCOMPARE(kinder(film->child(4)->child(0)), QStringList{"F. L."});

    // Collapsing and expanding again reads nothing twice.
    film->setExpanded(false);
    film->setExpanded(true);
    QCOMPARE(film->childCount(), 5);
    // The second film has only a genre group.
    disc->child(1)->setExpanded(true);
    QCOMPARE(kinder(disc->child(1)), QStringList{"Genre"});
    QVERIFY(s.benutzer.meldungen.empty());
}

void KatalogBaumTest::aufklappenBegrenztDieFilme() {
    Sammlung s;
    QVERIFY(s.fuelle());
    QVERIFY(s.einstellungen.setMaxFilmeAufklappen(1));
    ui::CDorvanoDlg fenster(s.app);
    QTreeWidgetItem* box = fenster.wurzel()->child(0);
    fenster.klappeAuf(box);
    QTreeWidgetItem* disc = box->child(0);
    QVERIFY(disc->isExpanded());
    QVERIFY(disc->child(0)->isExpanded());
    QCOMPARE(disc->child(0)->childCount(), 5);
    // The second film stays as it was: closed, nothing read.
    QVERIFY(!disc->child(1)->isExpanded());
    QCOMPARE(disc->child(1)->childCount(), 0);
}

void KatalogBaumTest::gruppenTexte() {
    QCOMPARE(QString(ui::KatalogBaum::gruppenText(kTypExtras)), QStringLiteral("Extras"));
    QCOMPARE(QString(ui::KatalogBaum::gruppenText(kTypFormat)), QStringLiteral("Formate"));
    QCOMPARE(QString(ui::KatalogBaum::gruppenText(kTypPerson)), QStringLiteral("Personen"));
    QCOMPARE(QString(ui::KatalogBaum::gruppenText(kTypAlias)), QStringLiteral("<unbekannt>"));
    QCOMPARE(u(ui::KatalogBaum::wurzelText("DORVANO", 0).c_str()),
             QStringLiteral("DORVANO {0 Boxen}"));
}

QTEST_MAIN(KatalogBaumTest)
#include "katalogbaum.moc"
