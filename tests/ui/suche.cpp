// The retrieval dialogs driven like a user: search rows built in the editor, the
// hits the search service gives for them, sorting, copying, "Im Baum zeigen",
// saving, discarding and loading the rows; tags and stamp tags (offered only for
// the kinds of their mask), the tag search; watch lists made, filled, combined
// through the chooser and rearranged in the content view.
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QTreeView>
#include <QtTest>

#include "tests/support/TempOrdner.h"
#include "tests/ui/support/Dialoge.h"
#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/suche/CDlgSuche.h"
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
using test::setze;
using test::zeilen;

class SucheTest : public QObject {
    Q_OBJECT
  private slots:
    void zeilenTrefferUndText();
    void speichernVerwerfenLaden();
    void tagsUndStempel();
    void vormerklisten();
};

namespace {

long film(test::Fenster& f, const std::string& titel, int jahr) {
    const NeueBox b = f.neueBox(titel);
    auto w = f.app.dienste().objekte().ladeFilm(b.film);
    w->jahr = jahr;
    if (!f.app.dienste().objekte().speichereFilm(w.wert()).ok()) throw std::runtime_error(titel);
    return b.film;
}

// Fills the row editor and presses the button (add or change).
bool zeile(CDlgSuche& d, const char* verknuepfung, const char* kriterium, const char* op,
           const char* daten, const char* knopf = "Hinzufügen") {
    return setze(*d.verknuepfung(), test::q(verknuepfung)) &&
           setze(*d.kriterium(), test::q(kriterium)) && setze(*d.op(), test::q(op)) &&
           (d.daten()->setText(test::q(daten)), true) && klicke(d, test::q(knopf));
}

}  // namespace

void SucheTest::zeilenTrefferUndText() {
    test::Fenster f;
    film(f, "The Matrix", 1999);
    film(f, "Matrix Reloaded", 2003);
    const long alien = film(f, "Alien", 1979);
    QVERIFY(f.loese(kCmdSuchen));
    auto* d = f.dialog<CDlgSuche>("WP_suche");
    QVERIFY(d);
    QCOMPARE(d->objekt()->currentText(), QStringLiteral("Film"));

    // A text criterion offers equal and not equal only; a number all six.
    QVERIFY(setze(*d->kriterium(), "Titel"));
    QCOMPARE(d->op()->count(), 2);
    QVERIFY(setze(*d->kriterium(), test::q("Länge")));
    QCOMPARE(d->op()->count(), 6);

    QVERIFY(zeile(*d, "UND", "Titel", "=", "*matrix*"));
    QVERIFY(zeile(*d, "UND", "Jahr", ">=", "2000"));
    QCOMPARE(zeilen(d->liste()),
             (QStringList{"Titel | = | *matrix* | UND", "Jahr | >= | 2000 | UND"}));
    QVERIFY(klicke(*d, "Suchen"));
    auto* treffer = f.dialog<CDlgTreffer>("WP_treffer");
    QVERIFY(treffer);
    QCOMPARE(zeilen(treffer->liste()),
             QStringList{"Matrix Reloaded | Titel: <Matrix Reloaded> Jahr: <2003>  | Film"});
    QCOMPARE(treffer->liste().anzahlZeile()->text(), QStringLiteral("Filme: 1 Treffer"));
    QVERIFY(!f.benutzer.fortschritte.empty());
    treffer->close();

    // The second row changed to ODER finds every film the service finds for the same rows.
    d->liste().waehle(1);
    QVERIFY(zeile(*d, "ODER", "Jahr", "=", "1979", "Ändern"));
    QCOMPARE(d->zeilen().size(), 2u);
    QVERIFY(klicke(*d, "Suchen"));
    treffer = f.dialog<CDlgTreffer>("WP_treffer");
    auto erwartet = f.app.dienste().suche().suche(d->zeilen());
    QVERIFY(erwartet.ok());
    QCOMPARE(treffer->liste().modell().rowCount(), 3);
    QCOMPARE(treffer->liste().anzahlZeile()->text(), test::q(erwartet->status));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(treffer->liste().modell().index(i, 0).data().toString(),
                 test::q(erwartet->treffer[static_cast<std::size_t>(i)].titel));

    // Sorted by title, every row copied in the order shown, the selection by Ctrl+C.
    treffer->liste().sortiere(0);
    QVERIFY(klicke(*treffer, "In die Zwischenablage"));
    QCOMPARE(f.benutzer.ablage.back(),
             std::string("Alien\tJahr: <1979> \tFilm\r\n"
                         "Matrix Reloaded\tTitel: <Matrix Reloaded> \tFilm\r\n"
                         "The Matrix\tTitel: <The Matrix> \tFilm\r\n"));
    QTreeView* ansicht = treffer->liste().ansicht();
    ansicht->setFocus();
    QTest::keyClick(ansicht, Qt::Key_Home);
    QTest::keyClick(ansicht, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(f.benutzer.ablage.back(), std::string("Alien\tJahr: <1979> \tFilm\r\n"));

    // Enter on a hit makes its film the current node of the tree.
    QTest::keyClick(ansicht, Qt::Key_Return);
    QCOMPARE(f.fenster().katalog().auswahl().film, alien);
    QVERIFY(f.benutzer.meldungen.empty());
}

void SucheTest::speichernVerwerfenLaden() {
    test::Fenster f;
    QVERIFY(f.loese(kCmdSuchen));
    auto* d = f.dialog<CDlgSuche>("WP_suche");
    // Nothing to save and nothing to search without rows.
    QVERIFY(!klicke(*d, "Suchen"));
    QVERIFY(zeile(*d, "ODER", "Jahr", ">=", "2000"));
    QVERIFY(zeile(*d, "UND", "Sprache", "=", "Deutsch"));
    QVERIFY(zeile(*d, "<=>", "Tonformat", "!=", "DTS"));
    const std::vector<SuchZeile> gebaut = d->zeilen();

    const std::string datei = f.tmp / "meine.asc";
    QVERIFY(klicke(*d, "Speichern..."));
    QVERIFY(test::nimmDatei(*d, "Suche speichern", datei));
    QVERIFY(test::gibtEs(datei));

    // "Neue Suche..." asks; No keeps the rows, Yes discards them.
    QVERIFY(klicke(*d, "Neue Suche..."));
    QCOMPARE(f.letzteFrage(), std::string("Aktuelle Suche verwerfen?"));
    QCOMPARE(d->zeilen().size(), 3u);
    f.benutzer.antworten = {true};
    QVERIFY(klicke(*d, "Neue Suche..."));
    QVERIFY(d->zeilen().empty());

    // Loaded back, the rows are the saved ones in their normalised form.
    QVERIFY(klicke(*d, "Laden..."));
    QVERIFY(test::nimmDatei(*d, "Suche laden", datei));
    QCOMPARE(d->zeilen(), SuchDienst::normalisiert(gebaut));
    QCOMPARE(zeilen(d->liste()).front(), QStringLiteral("Jahr | >= | 2000 | UND"));

    // Saving over the file asks first; No leaves it as it was.
    QVERIFY(klicke(*d, "Neue Suche..."));
    f.benutzer.antworten = {true};
    QVERIFY(klicke(*d, "Neue Suche..."));
    QVERIFY(zeile(*d, "UND", "Titel", "=", "X"));
    QVERIFY(klicke(*d, "Speichern..."));
    QVERIFY(test::nimmDatei(*d, "Suche speichern", datei));
    QCOMPARE(f.letzteFrage(), std::string("Die Datei existiert bereits.\nÜberschreiben?"));
    QVERIFY(test::leseDatei(datei).find("Deutsch") != std::string::npos);

    // A file of another version is refused with its message; the rows stay.
    const std::string alt = f.tmp / "alt.asc";
    test::schreibeDatei(alt, "@V1.0\r\n3\t1\t1\t2\tX\t\r\n");
    QVERIFY(klicke(*d, "Laden..."));
    QVERIFY(test::nimmDatei(*d, "Suche laden", alt));
    QCOMPARE(f.benutzer.meldungen.back().titel, std::string("Versionsfehler"));
    QCOMPARE(zeilen(d->liste()), QStringList{"Titel | = | X | UND"});
}

void SucheTest::tagsUndStempel() {
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

void SucheTest::vormerklisten() {
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

QTEST_MAIN(SucheTest)
#include "suche.moc"
