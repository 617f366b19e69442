// The search dialog driven like a user: rows built in the editor (text criteria
// offer only "=" and "!="), the hits and status the search service gives for the
// same rows, sorting, the copied text, "Im Baum zeigen"; then saving the rows,
// discarding them with the question, loading them back, the overwrite question
// and a file of a foreign version.
#include <QLabel>
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
    QCOMPARE(test::leseDatei(datei),
             std::string("@V1.1\r\n# Suchobjekt\tKriterium\tOperator\tVerknüpfung\tSuchdaten\t\r\n"
                         "3\t4\t4\t2\t2000\t\r\n3\t7\t1\t2\tDeutsch\t\r\n3\t8\t2\t1\tDTS\t\r\n"));

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

QTEST_MAIN(SucheTest)
#include "suche.moc"
