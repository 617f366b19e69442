// Box files through the main window: export of a box with the overwrite question
// and the EAN refusal, import through the file dialog, of several files, of files
// handed over by a second start, the export of all boxes, finding a box by title
// and EAN; the web import against a local HTTP server (a hit chosen, fetched on
// the download thread and imported; no hits; no text) and its forwarding of a
// worker's questions to the GUI thread.
#include <QFileDialog>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>
#include <filesystem>

#include "app/OptionenDienst.h"
#include "interchange/Austausch.h"
#include "tests/support/Kvt.h"
#include "tests/support/TempOrdner.h"
#include "tests/support/TestServer.h"
#include "tests/ui/support/Dialoge.h"
#include "tests/ui/support/Fenster.h"
#include "ui/Uebergabe.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/haupt/ExportOptionenDlg.h"
#include "ui/dialoge/webimport/CDlgWebImport.h"
#include "ui/dialoge/webimport/Weiterleitung.h"
#include "ui/steuerung/DatenSteuerung.h"
#include "ui/widgets/TextFeld.h"

using namespace dv;
using namespace dv::ui;

class DatenaustauschTest : public QObject {
    Q_OBJECT
  private slots:
    void exportUndImportEinerBox();
    void mehrereDateienUndUebergabe();
    void alleExportierenUndFinden();
    void suchenWaehlenImportieren();
    void weiterleitungAusDemFaden();
};

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

namespace {

// Runs one search of the dialog to its end.
bool lauf(CDlgWebImport& d) {
    QSignalSpy ende(&d, &CDlgWebImport::beendet);
    if (!test::klicke(d, "Suchen")) return false;
    return ende.count() > 0 || ende.wait(30000);
}

}  // namespace

void DatenaustauschTest::suchenWaehlenImportieren() {
    test::Fenster f;
    test::TempOrdner srv;
    // The server offers a box this catalogue had and lost; the second hit has no file.
    const NeueBox b = f.neueBox("Vom Server", "5001");
    std::filesystem::create_directories(srv / "db/");
    QCOMPARE(f.app.austausch().exportiere(b.box, srv / "db/", SchreibOptionen{}),
             ExportErgebnis::Exportiert);
    QVERIFY(f.app.dienste().objekte().loesche(kBox, b.box).ok());
    test::schreibeDatei(srv / "links.ini", "# Import\n1;db/;\n");
    test::schreibeDatei(srv / "db/ImpDB.kvt",
                        test::kvt("5001;0;0;0;\"Vom Server\";\n5002;0;0;0;\"Vom Server 2\";\n"));
    test::TestServer server(srv.pfad());
    f.einstellungen.setImportUrl(server.url());

    QVERIFY(f.loese(kCmdWebImport));
    auto* d = f.dialog<CDlgWebImport>("WP_webimport");
    QVERIFY(d);
    d->titel()->setText(QStringLiteral("vom"));
    f.benutzer.auswahlen.push_back({0});
    QVERIFY(lauf(*d));
    QCOMPARE(f.benutzer.auswahlDialoge.back().titel, std::string("Web-Import Auswahl (2)"));
    QCOMPARE(f.benutzer.auswahlEintraege.back(),
             (std::vector<std::string>{"Vom Server", "Vom Server 2"}));
    QCOMPARE(d->ergebnis(),
             (std::vector<ImportZeile>{{f.app.ordner().updates + "5001.box", true}}));
    QCOMPARE(f.app.dienste().katalog().anzahl().boxen, 1L);
    QCOMPARE(f.letzteMeldung(), std::string("Suche beendet"));

    // Nothing found: the engine's message, nothing imported.
    QVERIFY(d->art(1)->isEnabled());
    d->ean()->setText(QStringLiteral("9"));
    d->art(1)->click();
    QVERIFY(lauf(*d));
    QVERIFY(d->ergebnis().empty());
    const auto& m = f.benutzer.meldungen;
    QCOMPARE(m[m.size() - 2].text, std::string("Es konnte kein passender Import gefunden werden."));
    QCOMPARE(f.app.dienste().katalog().anzahl().boxen, 1L);

    // No title: a hint, no request to the server.
    const auto anfragen = server.anfragen().size();
    d->titel()->clear();
    d->art(2)->click();
    QVERIFY(test::klicke(*d, "Suchen"));
    QVERIFY(!d->laeuft());
    QCOMPARE(f.letzteMeldung(), std::string("Bitte eine EAN oder einen Titel eingeben."));
    QCOMPARE(server.anfragen().size(), anfragen);
}

// A worker's questions are answered by the window's user on the GUI thread; the
// cancel wish is reported once; after giving up nothing reaches the user.
void DatenaustauschTest::weiterleitungAusDemFaden() {
    struct : test::FakeBenutzer {
        QThread* faden = nullptr;
        bool frage(const std::string& titel, const std::string& text) override {
            faden = QThread::currentThread();
            return FakeBenutzer::frage(titel, text);
        }
    } nutzer;
    nutzer.antworten = {false};
    Weiterleitung w(nutzer);
    std::vector<bool> antworten;
    auto laufe = [&](auto&& arbeit) {
        QThread* faden = QThread::create(arbeit);
        faden->start();
        // Polled, not awaited as a signal: a worker may finish before any wait begins.
        const bool fertig = QTest::qWaitFor([faden] { return faden->isFinished(); }, 30000);
        if (fertig) delete faden;  // a hung worker is left alone; the test fails
        return fertig;
    };
    QVERIFY(laufe([&] {
        antworten.push_back(w.unterbrechen());
        antworten.push_back(w.frage("Web-Import", "Suche wirklich abbrechen?"));
    }));
    w.abbrechen();
    QVERIFY(laufe([&] {
        antworten.push_back(w.unterbrechen());
        antworten.push_back(w.unterbrechen());
    }));
    QCOMPARE(antworten, (std::vector<bool>{false, false, true, false}));
    QCOMPARE(nutzer.fragen.size(), std::size_t{1});
    QCOMPARE(nutzer.faden, QThread::currentThread());

    w.aufgeben();
    std::vector<int> wahl{7};
    QVERIFY(laufe([&] {
        antworten.push_back(w.frage("Web-Import", "Suche wirklich abbrechen?"));
        wahl = w.waehle("Web-Import Auswahl (1)", "BoxTitel", {"Alien"}, true, -1);
    }));
    QVERIFY(antworten.back());
    QVERIFY(wahl.empty());
    QCOMPARE(nutzer.fragen.size(), std::size_t{1});
    QVERIFY(nutzer.auswahlDialoge.empty());
}

QTEST_MAIN(DatenaustauschTest)
#include "datenaustausch.moc"
