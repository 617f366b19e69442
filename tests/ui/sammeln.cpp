// Tags, stamp tags and watch lists driven from the main window: the tag dialog
// writes the tag file (and removes it with the last tag), a stamp tag is offered
// only for the kinds of its mask and adds its text, the tag search shows its hits
// and copies them; watch lists are made, filled with "&Vormerken...", combined
// through the chooser (union, intersection, complement with its second choice)
// and rearranged in the content view.
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QTreeView>
#include <QtTest>

#include "tests/ui/support/Dialoge.h"
#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/dialoge/suche/CDlgTreffer.h"
#include "ui/dialoge/suche/Liste.h"
#include "ui/dialoge/tags/CDlgStempel.h"
#include "ui/dialoge/tags/CDlgTagSuche.h"
#include "ui/dialoge/tags/CDlgTags.h"
#include "ui/dialoge/vormerk/CDlgVormerkListe.h"
#include "ui/dialoge/vormerk/CDlgVormerkName.h"
#include "ui/widgets/TextFeld.h"

using namespace dv;
using namespace dv::ui;
using test::klicke;
using test::zeilen;

class SammelnTest : public QObject {
    Q_OBJECT
  private slots:
    void tagsUndStempel();
    void vormerklisten();
};

void SammelnTest::tagsUndStempel() {
    test::Fenster f;
    const NeueBox alien = f.neueBox("Alien", "4010");
    TagDienst& tags = f.app.dienste().tags();

    // A new tag, Abbrechen keeps the file away; OK writes it.
    QVERIFY(f.waehle(3, alien.film));
    QVERIFY(f.loese(kCmdFilmTags));
    auto* d = f.dialog<CDlgTags>("WP_tags");
    QCOMPARE(d->windowTitle(), QStringLiteral("Tags [Alien]"));
    QVERIFY(klicke(*d, "Neuen Tag erstellen..."));
    QVERIFY(test::gibEin(*d, "WP_tag", "verliehen an Klaus"));
    d->reject();
    QVERIFY(!tags.hat(3, alien.film));
    QVERIFY(f.loese(kCmdFilmTags));
    d = f.dialog<CDlgTags>("WP_tags");
    QVERIFY(klicke(*d, "Neuen Tag erstellen..."));
    QVERIFY(test::gibEin(*d, "WP_tag", "verliehen an Klaus"));
    QVERIFY(klicke(*d, "OK"));
    QCOMPARE(tags.lese(3, alien.film), std::vector<std::string>{"verliehen an Klaus"});

    // Stamp tags: one for films only, one for every kind.
    QVERIFY(f.loese(kCmdStempeltags));
    auto* stempel = f.dialog<CDlgStempel>("WP_stempel");
    QVERIFY(klicke(*stempel, "Neu..."));
    QVERIFY(test::gibEin(*stempel, "WP_stempeltext", "Nur Film"));
    stempel->maske(1)->click();
    stempel->maske(2)->click();
    QVERIFY(klicke(*stempel, "Neu..."));
    QVERIFY(test::gibEin(*stempel, "WP_stempeltext", "Gesehen"));
    QCOMPARE(zeilen(stempel->liste()), (QStringList{"Nur Film", "Gesehen"}));
    QCOMPARE(tags.stempel().front().maske, 4);
    // A mask without any kind is refused and the box stays ticked.
    stempel->liste().waehle(0);
    stempel->maske(4)->click();
    QCOMPARE(f.benutzer.meldungen.back().titel, std::string("Hinweis"));
    QVERIFY(stempel->maske(4)->isChecked());
    stempel->close();

    // The box is offered only the stamp for every kind; the film both.
    QVERIFY(f.waehle(1, alien.box));
    QVERIFY(f.loese(kCmdBoxStempeltags));
    auto* wahl = f.dialog<CDlgStempelWahl>("WP_stempeltags");
    QCOMPARE(zeilen(wahl->liste()), QStringList{"Gesehen"});
    wahl->close();
    QVERIFY(f.waehle(3, alien.film));
    QVERIFY(f.loese(kCmdFilmStempeltags));
    wahl = f.dialog<CDlgStempelWahl>("WP_stempeltags");
    QCOMPARE(zeilen(wahl->liste()), (QStringList{"Nur Film", "Gesehen"}));
    wahl->liste().modell().setzeAbgehakt(1, true);
    QVERIFY(klicke(*wahl, "OK"));
    QCOMPARE(tags.lese(3, alien.film), (std::vector<std::string>{"verliehen an Klaus", "Gesehen"}));

    // The tag search over every kind finds the tag in another letter case.
    QVERIFY(f.loese(kCmdTagsSuchen));
    auto* suche = f.dialog<CDlgTagSuche>("WP_suchtags");
    suche->text()->setText("KLAUS");
    QVERIFY(klicke(*suche, "Suchen"));
    auto* treffer = f.dialog<CDlgTagTreffer>("WP_tagtreffer");
    QCOMPARE(zeilen(treffer->liste()), QStringList{"Film | Alien {verliehen an Klaus}"});
    QCOMPARE(treffer->liste().anzahlZeile()->text(), QStringLiteral("Gefundene Tags: 1"));
    QVERIFY(klicke(*treffer, "In die Zwischenablage"));
    QCOMPARE(f.benutzer.ablage.back(), std::string("[Film] \tAlien{verliehen an Klaus}\r\n"));
    treffer->close();
    suche->close();

    // Removing the last tags deletes the file: the check mark goes.
    QVERIFY(f.loese(kCmdFilmTags));
    d = f.dialog<CDlgTags>("WP_tags");
    QVERIFY(klicke(*d, test::q("Tag löschen")) && klicke(*d, test::q("Tag löschen")));
    QVERIFY(klicke(*d, "OK"));
    QVERIFY(!tags.hat(3, alien.film));
    QVERIFY(f.benutzer.meldungen.size() == 1);
}

namespace {

CDlgVormerkName* neueListe(CDlgVormerkName& wahl, const char* name) {
    return klicke(wahl, "Neu...") && test::gibEin(wahl, "WP_vormerkneu", name) ? &wahl : nullptr;
}

}  // namespace

void SammelnTest::vormerklisten() {
    test::Fenster f;
    const long a = f.neueBox("A").film;
    const long b = f.neueBox("B").film;
    const long c = f.neueBox("C").film;
    VormerkDienst& v = f.app.dienste().vormerk();

    // "&Vormerken..." on a film: a list made in the choice is ticked at once.
    QVERIFY(f.waehle(3, a));
    QVERIFY(f.loese(kCmdFilmVormerken));
    auto* ziel = f.dialog<CDlgVormerkName>("WP_vormerkname");
    QCOMPARE(ziel->windowTitle(), QStringLiteral("Vormerken"));
    QVERIFY(!klicke(*ziel, "OK"));
    QVERIFY(neueListe(*ziel, "Liste A"));
    QVERIFY(klicke(*ziel, "OK"));
    const long listeA = v.liste().front().id;
    QVERIFY(v.hinzu(listeA, 3, b).ok());
    const long listeB = v.neu("Liste B").wert();
    QVERIFY(v.hinzu(listeB, 3, b).ok() && v.hinzu(listeB, 3, c).ok());

    QVERIFY(f.loese(kCmdVormerklisten));
    auto* wahl = f.dialog<CDlgVormerkName>("WP_vormerkname");
    QCOMPARE(zeilen(wahl->liste()), (QStringList{"Liste A", "Liste B"}));
    QVERIFY(!wahl->befehl("Vereinigen")->isEnabled());
    wahl->hake(listeA);
    wahl->hake(listeB);

    auto ansicht = [&](const char* befehl) {
        wahl->befehl(befehl)->trigger();
        return f.dialog<CDlgVormerkListe>("WP_vormerkliste");
    };
    CDlgVormerkListe* inhalt = ansicht("Vereinigen");
    QCOMPARE(inhalt->windowTitle(), QStringLiteral("Vereinigung"));
    QCOMPARE(zeilen(inhalt->liste()), (QStringList{"Liste A | A", "Liste A | B", "Liste B | C"}));
    QCOMPARE(inhalt->liste().anzahlZeile()->text(),
             QStringLiteral("Inhalt der Vormerkliste(n) [3 Elemente]"));
    inhalt->close();
    inhalt = ansicht("Schneiden");
    QCOMPARE(zeilen(inhalt->liste()), QStringList{"Liste A | B"});
    QCOMPARE(inhalt->liste().anzahlZeile()->text(),
             QStringLiteral("Inhalt der Vormerkliste(n) [1 Element]"));
    inhalt->close();

    // The complement asks for the second lists first.
    wahl->hake(listeB, false);
    wahl->befehl("Komplement")->trigger();
    CDlgVormerkName* zweite = nullptr;
    for (auto* w : wahl->findChildren<CDlgVormerkName*>())
        if (w->isVisible()) zweite = w;
    QVERIFY(zweite);
    QCOMPARE(zweite->windowTitle(), QStringLiteral("Bitte die zweite Liste auswählen..."));
    zweite->hake(listeB);
    QVERIFY(klicke(*zweite, "OK"));
    inhalt = f.dialog<CDlgVormerkListe>("WP_vormerkliste");
    QCOMPARE(inhalt->windowTitle(), QStringLiteral("Komplement"));
    QCOMPARE(zeilen(inhalt->liste()), QStringList{"Liste A | A"});
    inhalt->close();

    // In the content view: down, then copied as text, then copied into list B.
    QVERIFY(klicke(*wahl, "Anzeigen"));
    inhalt = f.dialog<CDlgVormerkListe>("WP_vormerkliste");
    inhalt->liste().waehle(0);
    QTreeView* liste = inhalt->liste().ansicht();
    liste->setFocus();
    QTest::keyClick(liste, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(zeilen(inhalt->liste()), (QStringList{"Liste A | B", "Liste A | A"}));
    QCOMPARE(inhalt->liste().aktuelle(), 1);
    QVERIFY(klicke(*inhalt, "In die Zwischenablage"));
    QCOMPARE(f.benutzer.ablage.back(),
             std::string("[Liste A]:\tFilm\t{B}\r\n[Liste A]:\tFilm\t{A}\r\n"));
    inhalt->befehl("Kopieren")->trigger();
    CDlgVormerkName* nach = inhalt->findChild<CDlgVormerkName*>();
    QCOMPARE(nach->windowTitle(), QStringLiteral("Kopieren nach..."));
    nach->liste().waehle(1);
    QVERIFY(klicke(*nach, "OK"));
    auto b2 = v.inhalt({listeB});
    QCOMPARE(b2->size(), 3u);
    QCOMPARE(b2->back().id, a);
    QVERIFY(f.benutzer.meldungen.empty());
}

QTEST_MAIN(SammelnTest)
#include "sammeln.moc"
