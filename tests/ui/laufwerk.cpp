// The "D&VD" menu and the drive choice on disc images standing in for drives:
// no drive chosen, one drive taken at once, two offered for choice, the disc's
// facts in "DVD-Info", an unknown and a known disc recognised on request and by
// the window itself when put in, the tray.
#include <QLabel>
#include <QStatusBar>
#include <QtTest>

#include "platform/Laufwerke.h"
#include "tests/support/DvdAbbild.h"
#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/haupt/DvdInfoDlg.h"
#include "ui/steuerung/DiscWaechter.h"
#include "ui/steuerung/SystemSteuerung.h"

using namespace dv;
using namespace dv::ui;

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

class LaufwerkTest : public QObject {
    Q_OBJECT
  private slots:
    void laufwerkWaehlenUndDiscLesen();
    void discErkennenUndSchublade();
};

void LaufwerkTest::laufwerkWaehlenUndDiscLesen() {
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

void LaufwerkTest::discErkennenUndSchublade() {
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

QTEST_MAIN(LaufwerkTest)
#include "laufwerk.moc"
