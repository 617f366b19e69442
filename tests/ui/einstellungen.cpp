// The window's settings and background work: the day of remembrance item by the
// (fixed) clock, the options dialog, the import address and the overview's
// background picture round trip, the validation reading the tree anew, and the data folder watcher
// telling another writer's changes from the window's own.
#include <QCheckBox>
#include <QFileDialog>
#include <QSpinBox>
#include <QtTest>

#include "app/Hintergrund.h"
#include "tests/support/FesteUhr.h"
#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/DatenWaechter.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/haupt/OptionenDlg.h"
#include "ui/steuerung/SystemSteuerung.h"
#include "ui/widgets/TextFeld.h"

using namespace dv;
using namespace dv::ui;

class EinstellungenTest : public QObject {
    Q_OBJECT
  private slots:
    void memoriamNurAmErstenJuliMittags();
    void optionenUndImportUrl();
    void validierungUndFremdeSchreiber();
};

void EinstellungenTest::memoriamNurAmErstenJuliMittags() {
    test::Fenster f;
    QAction* memoriam = f.fenster().aktionen().aktion(kCmdMemoriam);
    auto* hilfe = f.fenster().findChild<HilfeSteuerung*>();
    struct Zeit {
        int tag, monat, stunde, minute;
        bool sichtbar;
    };
    for (const Zeit z :
         {Zeit{1, 7, 11, 0, true}, Zeit{1, 7, 12, 59, true}, Zeit{1, 7, 13, 0, false},
          Zeit{1, 7, 10, 59, false}, Zeit{30, 6, 11, 30, false}, Zeit{1, 8, 11, 30, false}}) {
        test::FesteUhr uhr(z.tag, z.monat, 2026, z.stunde, z.minute);
        hilfe->pruefeGedenkzeit();
        QCOMPARE(memoriam->isVisible(), z.sichtbar);
    }
    memoriam->trigger();
    QCOMPARE(f.letzterMeldungsTitel(), std::string("Memoriam"));
}

void EinstellungenTest::optionenUndImportUrl() {
    test::Fenster f;
    QVERIFY(f.loese(kCmdOptionen));
    auto* dlg = f.dialog<OptionenDlg>();
    QVERIFY(dlg);
    auto* cover = dlg->findChild<QCheckBox*>("Mit Cover");
    auto* erkennen = dlg->findChild<QCheckBox*>("Eingelegte DVDs selbst erkennen");
    auto* filme = dlg->findChild<QSpinBox*>(QStringLiteral("Höchstens aufgeklappte Filme"));
    QVERIFY(cover && erkennen && filme);
    QCOMPARE(cover->accessibleName(), QStringLiteral("Mit Cover"));
    QCOMPARE(cover->isChecked(), (kOptionsStandard & kOptXmlCover) != 0);
    cover->setChecked(!cover->isChecked());
    erkennen->setChecked(false);
    filme->setValue(3);
    dlg->accept();
    std::uint32_t options = 0, options2 = 0, max = 0;
    QVERIFY(f.einstellungen.getOptions(options) && f.einstellungen.getOptions2(options2) &&
            f.einstellungen.getMaxFilmeAufklappen(max));
    QCOMPARE(options, kOptionsStandard ^ kOptXmlCover);
    QCOMPARE(options2, kOptions2Standard | kOpt2KeineDiscErkennung);
    QCOMPARE(max, 3u);
    // Opened again it shows what was stored; cancel stores nothing.
    QVERIFY(f.loese(kCmdOptionen));
    dlg = f.dialog<OptionenDlg>();
    QCOMPARE(dlg->findChild<QCheckBox*>("Mit Cover")->isChecked(), (options & kOptXmlCover) != 0);
    QVERIFY(!dlg->findChild<QCheckBox*>("Eingelegte DVDs selbst erkennen")->isChecked());
    dlg->findChild<QSpinBox*>(QStringLiteral("Höchstens aufgeklappte Filme"))->setValue(9);
    dlg->reject();
    QVERIFY(f.einstellungen.getMaxFilmeAufklappen(max));
    QCOMPARE(max, 3u);

    // The import address must be an http or https address.
    for (const char* url : {"ftp://server/import/", "https://server.example/dorvano/"}) {
        QVERIFY(f.loese(kCmdImportUrl));
        auto* eingabe = f.dialog<EingabeDlg>(QStringLiteral("WP_importurl"));
        QVERIFY(eingabe);
        eingabe->feld()->setText(url);
        eingabe->accept();
    }
    QVERIFY(f.letzteMeldung().find("http- oder https-Adresse") != std::string::npos);
    std::string url;
    QVERIFY(f.einstellungen.getImportUrl(url));
    QCOMPARE(url, std::string("https://server.example/dorvano/"));

    // The overview's background: a file that cannot be read is refused, a picture kept.
    const std::string bild = f.tmp / "Sterne.png";
    test::schreibeDatei(bild, "PNG");
    for (const std::string& pfad : {f.tmp / "fehlt.png", bild}) {
        QVERIFY(f.loese(kCmdHintergrund));
        auto* wahl = f.fenster().findChild<QFileDialog*>(QStringLiteral("Hintergrundbild"));
        QVERIFY(wahl && wahl->isVisible());
        emit wahl->fileSelected(QString::fromStdString(pfad));
        wahl->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QVERIFY(f.letzteMeldung().find("fehlt.png) ist nicht lesbar") != std::string::npos);
    QCOMPARE(standardHintergrund(f.app), bild);
}

void EinstellungenTest::validierungUndFremdeSchreiber() {
    test::Fenster f;
    const NeueBox alien = f.neueBox("Alien", "4010");
    QVERIFY(f.waehle(3, alien.film));

    // Another program writes a box: the watcher reads the tree anew, the view stays.
    {
        test::FakeBenutzer benutzer;
        Einstellungen einstellungen(f.tmp / "andere.conf");
        CApplikation andere(benutzer, einstellungen);
        QVERIFY(andere.starte(f.programm()));
        BoxWerte w;
        w.titel = "Brazil";
        QVERIFY(andere.dienste().objekte().neueBox(w).ok());
    }
    QVERIFY(f.fenster().waechter().pruefe());
    QCOMPARE(f.kinder(f.wurzel()), (QStringList{"Alien", "Brazil"}));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Alien"));
    QCOMPARE(f.fenster().katalog().auswahl().art, unsigned{kFilmKnoten});
    // The window's own writes are no reason to read anew.
    f.neueBox("Casablanca");
    QVERIFY(!f.fenster().waechter().pruefe());

    // The validation asks, shows its phases and reads the tree anew afterwards.
    QVERIFY(f.app.katalog().Box.insert("4099", "Dune", 0, 0) > 0);
    QCOMPARE(f.kinder(f.wurzel()).size(), 3);
    f.benutzer.antworten = {true};
    QVERIFY(f.loese(kCmdValidieren));
    QCOMPARE(f.benutzer.fragen.size(), std::size_t{1});
    QCOMPARE(f.benutzer.fragen[0].titel, std::string("Hinweis..."));
    QVERIFY(!f.benutzer.fortschritte.empty());
    QCOMPARE(f.letzteMeldung(), std::string("Die Validierung ist abgeschlossen."));
    QCOMPARE(f.kinder(f.wurzel()), (QStringList{"Alien", "Brazil", "Casablanca", "Dune"}));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Alien"));
}

QTEST_MAIN(EinstellungenTest)
#include "einstellungen.moc"
