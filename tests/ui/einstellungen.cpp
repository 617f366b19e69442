// The window's settings and background work: the day of remembrance item by the
// (fixed) clock, the options dialog, the import address and the overview's
// background picture, the validation reading the tree anew, the data folder
// watcher telling another writer's changes from the window's own; the filter
// dialog and the overview settings; the "D&VD" menu and the drive choice on disc
// images standing in for drives: none, one taken at once, two offered, the
// facts in "DVD-Info", discs recognised on request and when put in, the tray.
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QSpinBox>
#include <QStatusBar>
#include <QTreeWidget>
#include <QtTest>

#include "app/Hintergrund.h"
#include "app/LookupDienst.h"
#include "platform/Laufwerke.h"
#include "tests/support/DvdAbbild.h"
#include "tests/support/FesteUhr.h"
#include "tests/support/TempOrdner.h"
#include "tests/ui/support/Dialoge.h"
#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/DatenWaechter.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/filter/CDlgFilter.h"
#include "ui/dialoge/haupt/DvdInfoDlg.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/haupt/OptionenDlg.h"
#include "ui/dialoge/suche/Liste.h"
#include "ui/dialoge/uebersicht/CDlgUebersicht.h"
#include "ui/steuerung/DiscWaechter.h"
#include "ui/steuerung/SystemSteuerung.h"
#include "ui/widgets/TextFeld.h"

using namespace dv;
using namespace dv::ui;
using test::klicke;
using test::zeilen;

class EinstellungenTest : public QObject {
    Q_OBJECT
  private slots:
    void memoriamNurAmErstenJuliMittags();
    void optionenUndImportUrl();
    void validierungUndFremdeSchreiber();
    void anlegenBenennenSetzenLoeschen();
    void uebersichtSpeichernLaden();
    void laufwerkWaehlenUndDiscLesen();
    void discErkennenUndSchublade();
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

void EinstellungenTest::anlegenBenennenSetzenLoeschen() {
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

void EinstellungenTest::uebersichtSpeichernLaden() {
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

namespace {

// Drives whose devices are image files; the tray only notes what was asked.
class AbbildLaufwerke : public Laufwerke {
  public:
    std::vector<OptischesLaufwerk> laufwerke;
    std::vector<std::pair<std::string, bool>> schubladen;

    std::vector<OptischesLaufwerk> liste() override { return laufwerke; }
    LaufwerkErgebnis volumen(const std::string& q, VolumenFakten& f) override {
        return systemLaufwerke().volumen(q, f);
    }
    LaufwerkErgebnis groesse(const std::string& q, std::uint64_t& b) override {
        return systemLaufwerke().groesse(q, b);
    }
    LaufwerkErgebnis leseDatei(const std::string& q, const std::string& p, std::size_t n,
                               std::string& d) override {
        return systemLaufwerke().leseDatei(q, p, n, d);
    }
    LaufwerkErgebnis schublade(const std::string& geraet, bool oeffnen) override {
        schubladen.emplace_back(geraet, oeffnen);
        return {};
    }
};

}  // namespace

void EinstellungenTest::laufwerkWaehlenUndDiscLesen() {
    if (!test::abbildWerkzeugeDa()) QSKIP("genisoimage oder udfinfo fehlt");
    test::Fenster f;
    AbbildLaufwerke lw;
    auto* steuerung = f.fenster().findChild<LaufwerkSteuerung*>();
    steuerung->setzeLaufwerke(lw);
    steuerung->waechter().setzeTakt(0);
    const std::string abbild =
        test::baueAbbild(f.tmp.pfad(),
                         {{"VIDEO_TS/VIDEO_TS.IFO", test::ifoDatei(0xFB)},
                          {"VIDEO_TS/VTS_01_1.VOB", std::string(100000, 'v')}},
                         reinterpret_cast<const char*>(u8"Müde Helden"));
    QVERIFY(!abbild.empty());

    // Nothing chosen yet: the dialog's error, no dialog.
    QVERIFY(f.loese(kCmdDvdInfo));
    QCOMPARE(f.letzterMeldungsTitel(), std::string("Undefiniertes Laufwerk"));
    QVERIFY(!f.dialog<DvdInfoDlg>());

    // No drive, then one drive taken without a question.
    QVERIFY(f.loese(kCmdLaufwerk));
    QCOMPARE(f.letzteMeldung(), std::string("Kein DVD-Laufwerk gefunden."));
    lw.laufwerke = {{'D', abbild, "Abbild"}};
    QVERIFY(f.loese(kCmdLaufwerk));
    QCOMPARE(f.letzteMeldung(), std::string("Laufwerk D:\\ wurde übernommen."));

    QVERIFY(f.loese(kCmdDvdInfo));
    auto* info = f.dialog<DvdInfoDlg>();
    QVERIFY(info);
    auto wert = [info](const char* name) {
        auto* feld = info->findChild<QLabel*>(test::q(name));
        return feld ? feld->text() : QStringLiteral("(fehlt)");
    };
    QCOMPARE(wert("Laufwerk"), QStringLiteral("D:\\"));
    QCOMPARE(wert("Bezeichnung"), QStringLiteral("Müde Helden"));
    QCOMPARE(wert("Dateisystem"), QStringLiteral("UDF"));
    QCOMPARE(wert("BytesLow"), QStringLiteral("102048"));
    QCOMPARE(wert("Größe"), QStringLiteral("99.66 KB"));
    QCOMPARE(wert("Typ"), QStringLiteral("DVD 5 oder DVD 10"));
    QCOMPARE(wert("Regionalcode"), QStringLiteral("4"));
    info->close();

    // Two drives: the choice is offered with the current one preset; E is kept.
    lw.laufwerke.push_back({'E', abbild, ""});
    f.benutzer.auswahlen = {{1}};
    QVERIFY(f.loese(kCmdLaufwerk));
    QCOMPARE(f.benutzer.auswahlEintraege.back().size(), std::size_t{2});
    std::string gespeichert;
    QVERIFY(f.einstellungen.getText("DvdRom", gespeichert));
    QCOMPARE(gespeichert, std::string("E"));
}

void EinstellungenTest::discErkennenUndSchublade() {
    if (!test::abbildWerkzeugeDa()) QSKIP("genisoimage oder udfinfo fehlt");
    test::Fenster f;
    AbbildLaufwerke lw;
    auto* steuerung = f.fenster().findChild<LaufwerkSteuerung*>();
    steuerung->setzeLaufwerke(lw);
    DiscWaechter& waechter = steuerung->waechter();
    waechter.setzeTakt(0);
    QStatusBar* zeile = f.fenster().statusBar();
    const std::string abbild = test::baueAbbild(
        f.tmp.pfad(), {{"VIDEO_TS/VTS_01_1.VOB", std::string(5000, 'v')}}, "ZORRO");
    QVERIFY(!abbild.empty());
    lw.laufwerke = {{'D', abbild, ""}};
    QVERIFY(f.einstellungen.setText("DvdRom", "D"));
    const NeueBox alien = f.neueBox("Alien", "4010");
    const NeueBox zorro = f.neueBox("Zorro", "4011");

    QVERIFY(f.loese(kCmdErkennen));
    QCOMPARE(f.letzteMeldung(), std::string("Diese DVD ist noch unbekannt."));
    // Noticed by itself: no question, a pointer to the web import.
    const std::size_t meldungen = f.benutzer.meldungen.size();
    waechter.pruefeJetzt();
    QVERIFY(zeile->currentMessage().startsWith(QStringLiteral("Unbekannte DVD „ZORRO“")));

    // The disc's identity stored on a DVD of the second box: that DVD is selected.
    auto dvd = f.app.dienste().objekte().ladeDvd(zorro.dvd);
    dvd->sn = static_cast<std::uint32_t>(
        std::stoul(test::udfinfo(abbild).at("winserialnum"), nullptr, 16));
    dvd->bytesLow = 5000;
    QVERIFY(f.app.dienste().objekte().speichereDvd(dvd.wert()).ok());
    QVERIFY(f.loese(kCmdErkennen));
    QCOMPARE(f.benutzer.meldungen.size(), meldungen);
    QCOMPARE(f.fenster().katalog().auswahl().dvd, zorro.dvd);

    // The disc still in is not looked at again; taken out and put back it is.
    QVERIFY(f.waehle(1, alien.box));
    waechter.pruefeJetzt();
    QCOMPARE(f.fenster().katalog().auswahl().box, alien.box);
    lw.laufwerke.clear();
    waechter.pruefeJetzt();
    lw.laufwerke = {{'D', abbild, ""}};
    waechter.pruefeJetzt();
    QCOMPARE(f.fenster().katalog().auswahl().dvd, zorro.dvd);
    QVERIFY(zeile->currentMessage().startsWith(QStringLiteral("Eingelegte DVD erkannt: ")));
    QCOMPARE(f.benutzer.meldungen.size(), meldungen);

    QVERIFY(f.loese(kCmdAusfahren));
    QVERIFY(f.loese(kCmdEinfahren));
    QCOMPARE(lw.schubladen,
             (std::vector<std::pair<std::string, bool>>{{abbild, true}, {abbild, false}}));
    QCOMPARE(zeile->currentMessage(), QStringLiteral("Die Schublade wurde geschlossen."));
}

QTEST_MAIN(EinstellungenTest)
#include "einstellungen.moc"
