// Box files through the main window: export of a box with the overwrite question
// and the EAN refusal, import of one file through the file dialog, of several
// (consumed, a damaged one reported), of files handed over by a second start,
// the export of all boxes, and finding a box by title and EAN.
#include <QFileDialog>
#include <QtTest>

#include "app/OptionenDienst.h"
#include "tests/ui/support/Fenster.h"
#include "ui/Uebergabe.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/haupt/ExportOptionenDlg.h"
#include "ui/steuerung/DatenSteuerung.h"
#include "ui/widgets/TextFeld.h"

using namespace dv;
using namespace dv::ui;

namespace {

// Answers the file dialog the last command opened: a folder as the user would
// pick it, files as the dialog reports them.
void waehleDatei(test::Fenster& f, const QString& pfad) {
    auto* wahl = f.dialog<QFileDialog>();
    QVERIFY(wahl);
    if (wahl->fileMode() == QFileDialog::Directory) {
        wahl->setDirectory(pfad);
        QMetaObject::invokeMethod(wahl, "accept");
    } else {
        emit wahl->filesSelected({pfad});
        wahl->close();
    }
}

QString q(const std::string& pfad) {
    return QString::fromStdString(pfad);
}

}  // namespace

class DatenaustauschTest : public QObject {
    Q_OBJECT
  private slots:
    void exportUndImportEinerBox();
    void mehrereDateienUndUebergabe();
    void alleExportierenUndFinden();
};

void DatenaustauschTest::exportUndImportEinerBox() {
    test::Fenster f;
    const NeueBox alien = f.neueBox("Alien", "4010");
    const NeueBox ohne = f.neueBox("Ohne EAN");
    const std::string ordner = f.tmp / "export";
    QDir().mkpath(q(ordner));

    QVERIFY(f.waehle(1, ohne.box));
    QVERIFY(f.loese(kCmdExportieren));
    QCOMPARE(f.letzteMeldung(), std::string("Diese Box besitzt keine EAN."));
    QVERIFY(!f.dialog<QFileDialog>());

    QVERIFY(f.waehle(1, alien.box));
    QVERIFY(f.loese(kCmdExportieren));
    waehleDatei(f, q(ordner));
    const std::string datei = ordner + "/4010.box";
    const std::string inhalt = test::leseDatei(datei);
    QVERIFY(inhalt.size() > 64);
    // An existing file is replaced only after Yes.
    test::schreibeDatei(datei, "alt");
    QVERIFY(f.loese(kCmdExportieren));
    waehleDatei(f, q(ordner));
    QCOMPARE(f.letzteFrage(), std::string("Die Exportdatei existiert bereits.\nÜberschreiben?"));
    QCOMPARE(test::leseDatei(datei), std::string("alt"));
    f.benutzer.antworten = {true};
    QVERIFY(f.loese(kCmdExportieren));
    waehleDatei(f, q(ordner));
    QCOMPARE(test::leseDatei(datei).substr(0, 8), std::string("ZELKA4.0"));
    QCOMPARE(test::leseDatei(datei).size(), inhalt.size());

    // Imported again after the box was deleted: it appears in the tree, selected.
    QVERIFY(f.app.dienste().objekte().loesche(1, alien.box).ok());
    QVERIFY(f.loese(kCmdImportieren));
    waehleDatei(f, q(datei));
    QCOMPARE(f.kinder(f.wurzel()), (QStringList{"Alien", "Ohne EAN"}));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Alien"));
    QVERIFY(test::gibtEs(datei));  // the single import keeps its file

    // A damaged file is refused with a message; nothing changes.
    test::schreibeDatei(f.tmp / "kaputt.box", "ZELKA4.0 kaputt");
    f.fenster().importiere({q(f.tmp / "kaputt.box")});
    QCOMPARE(f.letzterMeldungsTitel(), std::string("Import-Fehler"));
    QCOMPARE(f.kinder(f.wurzel()).size(), 2);
}

void DatenaustauschTest::mehrereDateienUndUebergabe() {
    test::Fenster f;
    const NeueBox a = f.neueBox("Alien", "4010");
    const NeueBox b = f.neueBox("Brazil", "4020");
    for (long id : {a.box, b.box}) {
        SchreibOptionen o;
        QCOMPARE(f.app.austausch().exportiere(id, f.tmp.pfad(), o), ExportErgebnis::Exportiert);
        QVERIFY(f.app.dienste().objekte().loesche(1, id).ok());
    }
    test::schreibeDatei(f.tmp / "fremd.box", "keine Box");
    f.fenster();
    QVERIFY(f.einstellungen.setOptions(kOptionsStandard & ~kOptStapelInfo));

    // Several files: each imported or refused, and every one consumed.
    f.fenster().importiere({q(f.tmp / "4010.box"), q(f.tmp / "fremd.box")});
    QCOMPARE(f.kinder(f.wurzel()), QStringList{"Alien"});
    QCOMPARE(f.aktuellerText(), QStringLiteral("Alien"));
    QVERIFY(!test::gibtEs(f.tmp / "4010.box") && !test::gibtEs(f.tmp / "fremd.box"));
    QVERIFY(f.letzteMeldung().find("fremd.box") != std::string::npos);

    // A second start hands its file over the local socket; the window imports it.
    const QString name = q(f.tmp / "uebergabe.sock");
    QVERIFY(f.fenster().empfangeUebergaben(name));
    QSignalSpy eingang(f.fenster().findChild<UebergabeEmpfang*>(),
                       &UebergabeEmpfang::dateienErhalten);
    QVERIFY(uebergebe(name, {q(f.tmp / "4020.box")}));
    QVERIFY(eingang.wait());
    QCOMPARE(f.kinder(f.wurzel()), (QStringList{"Alien", "Brazil"}));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Brazil"));
}

void DatenaustauschTest::alleExportierenUndFinden() {
    test::Fenster f;
    f.neueBox("Alien", "4010");
    const NeueBox aliens = f.neueBox("Aliens", "4011");
    f.neueBox("Brazil", "5020");
    const std::string ordner = f.tmp / "alle";
    QDir().mkpath(q(ordner));

    QVERIFY(f.loese(kCmdAlleExportieren));
    auto* optionen = f.dialog<ExportOptionenDlg>();
    QVERIFY(optionen);
    optionen->accept();
    waehleDatei(f, q(ordner));
    for (const char* ean : {"4010", "4011", "5020"})
        QVERIFY(test::gibtEs(ordner + "/" + ean + ".box"));
    QCOMPARE(f.app.austausch().letzterExportOrdner(), ordner + "/");
    QCOMPARE(f.benutzer.fortschritte.size(), std::size_t{3});

    // A folder that cannot be written is refused before anything is written.
    f.fenster().daten().exportiereAlleNach(false, q(f.tmp / "gibt-es-nicht"));
    QVERIFY(f.letzteMeldung().find("kann nicht geschrieben werden") != std::string::npos);

    // Finding: the same text again goes on to the next match; none gives a message.
    QVERIFY(f.loese(kCmdBoxTitelFinden));
    auto* eingabe = f.dialog<EingabeDlg>(QStringLiteral("WP_titelfinden"));
    QVERIFY(eingabe);
    eingabe->feld()->setText("ali*");
    eingabe->accept();
    QCOMPARE(f.aktuellerText(), QStringLiteral("Alien"));
    f.fenster().daten().findeWeiter(false, "ali*");
    QCOMPARE(f.fenster().katalog().auswahl().box, aliens.box);
    f.fenster().daten().findeWeiter(true, "50?0");
    QCOMPARE(f.aktuellerText(), QStringLiteral("Brazil"));
    f.fenster().daten().findeWeiter(true, "999");
    QCOMPARE(f.letzteMeldung(), std::string("EAN \"999\" nicht gefunden."));
}

QTEST_MAIN(DatenaustauschTest)
#include "datenaustausch.moc"
