// The filter dialog and the overview's settings from the window: a filter made,
// renamed in place (an empty name refused), a translation set through its entry
// dialog, chosen as the active filter of XML, then deleted after the question;
// the overview's five inputs (the background preset from the settings menu)
// saved to a settings file and loaded back, and OK with a missing target
// refused with the dialog left open.
#include <QComboBox>
#include <QTreeWidget>
#include <QtTest>

#include "app/Hintergrund.h"
#include "app/LookupDienst.h"
#include "tests/support/TempOrdner.h"
#include "tests/ui/support/Dialoge.h"
#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/dialoge/filter/CDlgFilter.h"
#include "ui/dialoge/suche/Liste.h"
#include "ui/dialoge/uebersicht/CDlgUebersicht.h"

using namespace dv;
using namespace dv::ui;
using test::klicke;
using test::zeilen;

class FilterTest : public QObject {
    Q_OBJECT
  private slots:
    void anlegenBenennenSetzenLoeschen();
    void uebersichtSpeichernLaden();
};

namespace {

QStringList filterNamen(test::Fenster& f) {
    QStringList v;
    for (const Benannt& b : f.app.dienste().filter().liste()) v << test::q(b.name);
    return v;
}

// Types a name into the filter's item as the in-place editor does.
void benenne(CDlgFilter& d, const QString& name) {
    d.baum()->currentItem()->setText(0, name);
    QApplication::processEvents();
}

}  // namespace

void FilterTest::anlegenBenennenSetzenLoeschen() {
    test::Fenster f;
    QVERIFY(LookupDienst(f.app).neu(kTypGenre, "Horror").ok());
    QVERIFY(f.loese(kCmdFilter));
    auto* d = f.dialog<CDlgFilter>("WP_filter");
    QVERIFY(d);
    QVERIFY(klicke(*d, "Neuer Filter"));
    QCOMPARE(filterNamen(f), QStringList{"<<<Neuer Filter>>>"});
    QCOMPARE(d->baum()->currentItem()->childCount(), FilterDienst::kTypen);
    benenne(*d, QStringLiteral("Englisch"));
    QCOMPARE(filterNamen(f), QStringList{"Englisch"});
    benenne(*d, QString());
    QCOMPARE(filterNamen(f), QStringList{"Englisch"});
    QVERIFY(!f.letzteMeldung().empty());
    QCOMPARE(d->baum()->currentItem()->text(0), QStringLiteral("Englisch"));

    // The genre's entries with their translation, set through "Filtereintrag [Horror]".
    const long id = f.app.dienste().filter().liste().front().id;
    QVERIFY(d->waehle(id, kFilterGenre));
    const int horror = static_cast<int>(zeilen(d->eintraege()).indexOf("Horror | "));
    QVERIFY(horror >= 0);
    d->eintraege().waehle(horror);
    QVERIFY(klicke(*d, test::q("Eintrag bearbeiten...")));
    auto* eingabe = d->findChild<QDialog*>("WP_filtereintrag");
    QVERIFY(eingabe);
    QCOMPARE(eingabe->windowTitle(), QStringLiteral("Filtereintrag [Horror]"));
    QVERIFY(test::gibEin(*d, "WP_filtereintrag", "Horror movie"));
    QVERIFY(zeilen(d->eintraege()).contains("Horror | Horror movie"));

    // The active filter of XML; box files keep none.
    QComboBox* xml = d->aktiv(true);
    const int i = xml->findText(QStringLiteral("Englisch"));
    xml->setCurrentIndex(i);
    emit xml->activated(i);
    QCOMPARE(f.app.dienste().filter().aktiv(true), id);
    QCOMPARE(f.app.dienste().filter().aktiv(false), 0L);

    // Deleting asks: No keeps it, Yes removes it from the tree and the choices.
    QVERIFY(d->waehle(id));
    f.benutzer.antworten = {false, true};
    QVERIFY(klicke(*d, test::q("Löschen")));
    QCOMPARE(filterNamen(f), QStringList{"Englisch"});
    QVERIFY(klicke(*d, test::q("Löschen")));
    QVERIFY(filterNamen(f).isEmpty());
    QCOMPARE(d->baum()->topLevelItemCount(), 0);
    QCOMPARE(xml->count(), 1);
}

void FilterTest::uebersichtSpeichernLaden() {
    test::Fenster f;
    test::TempOrdner tmp;
    test::schreibeDatei(tmp / "bild.jpg", "JFIF");
    QVERIFY(setzeStandardHintergrund(f.app, tmp / "bild.jpg").ok());
    QVERIFY(f.loese(kCmdUebersicht));
    auto* d = f.dialog<CDlgUebersicht>("WP_uebersicht");
    QVERIFY(d);
    QCOMPARE(d->werte().hintergrund, tmp / "bild.jpg");
    // A bare template name is stored with the template folder.
    const UebersichtWerte w{f.app.ordner().vorlagen + "Uebersicht.html", tmp / "seite.html",
                            "Meine Filme", "Alle Boxen", tmp / "bild.jpg"};
    d->setzeWerte(w);
    QVERIFY(klicke(*d, "Speichern..."));
    QVERIFY(test::nimmDatei(*d, "Einstellungen speichern", tmp / "u.ini"));
    QVERIFY(test::gibtEs(tmp / "u.ini"));
    d->setzeWerte({});
    QVERIFY(klicke(*d, "Laden..."));
    QVERIFY(test::nimmDatei(*d, "Einstellungen laden", tmp / "u.ini"));
    QCOMPARE(d->werte(), w);

    d->setzeWerte({"Uebersicht.html", "", "", "", ""});
    QVERIFY(klicke(*d, "OK"));
    QCOMPARE(f.letzteMeldung(), std::string("Fehlende Vorlage, Zielpfad oder Zieldatei."));
    QVERIFY(d->isVisible());
}

QTEST_MAIN(FilterTest)
#include "filter.moc"
