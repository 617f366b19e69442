// The web import from the window against a local HTTP server: a title search
// whose selection is answered through the scripted user, the chosen box fetched
// on the download thread and imported into the catalogue; a search without hits
// with its message; a search without a text refused before anything runs; the
// forwarding of a worker's questions to the GUI thread.
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>
#include <filesystem>

#include "interchange/Austausch.h"
#include "tests/support/Kvt.h"
#include "tests/support/TempOrdner.h"
#include "tests/support/TestServer.h"
#include "tests/ui/support/Dialoge.h"
#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/dialoge/webimport/CDlgWebImport.h"
#include "ui/dialoge/webimport/Weiterleitung.h"
#include "ui/widgets/TextFeld.h"

using namespace dv;
using namespace dv::ui;

class WebImportTest : public QObject {
    Q_OBJECT
  private slots:
    void suchenWaehlenImportieren();
    void weiterleitungAusDemFaden();
};

namespace {

// Runs one search of the dialog to its end.
bool lauf(CDlgWebImport& d) {
    QSignalSpy ende(&d, &CDlgWebImport::beendet);
    if (!test::klicke(d, "Suchen")) return false;
    return ende.count() > 0 || ende.wait(30000);
}

long boxen(CApplikation& app) {
    long b = 0, d = 0, f = 0;
    app.db().anzahl(b, d, f);
    return b;
}

}  // namespace

void WebImportTest::suchenWaehlenImportieren() {
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
    QCOMPARE(boxen(f.app), 1L);
    QCOMPARE(f.letzteMeldung(), std::string("Suche beendet"));

    // Nothing found: the engine's message, nothing imported.
    QVERIFY(d->art(1)->isEnabled());
    d->ean()->setText(QStringLiteral("9"));
    d->art(1)->click();
    QVERIFY(lauf(*d));
    QVERIFY(d->ergebnis().empty());
    const auto& m = f.benutzer.meldungen;
    QCOMPARE(m[m.size() - 2].text, std::string("Es konnte kein passender Import gefunden werden."));
    QCOMPARE(boxen(f.app), 1L);

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
void WebImportTest::weiterleitungAusDemFaden() {
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
        QSignalSpy ende(faden, &QThread::finished);
        faden->start();
        const bool fertig = ende.wait(30000);
        delete faden;
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

QTEST_MAIN(WebImportTest)
#include "webimport.moc"
