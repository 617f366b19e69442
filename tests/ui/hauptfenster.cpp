// The main window on a temporary program folder: start-up, the root text, the
// box nodes in title order, and the window position kept across a restart.
#include <QTreeWidget>
#include <QtTest>

#include "app/CApplikation.h"
#include "base/Zeichensatz.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/TempOrdner.h"
#include "ui/CDorvanoDlg.h"

using namespace dv;

class Hauptfenster : public QObject {
    Q_OBJECT
  private slots:
    void wurzelZeigtAnzahlUndBoxen();
    void wurzelTextEinzahlUndLeer();
    void fensterpositionUeberlebtNeustart();
};

void Hauptfenster::wurzelZeigtAnzahlUndBoxen() {
    test::TempOrdner tmp;
    test::FakeBenutzer benutzer;
    Einstellungen einstellungen(tmp / "einstellungen.conf");
    CApplikation app(benutzer, einstellungen);
    QVERIFY(app.starte(tmp / "programm"));
    QVERIFY(app.pruefeDatenversion());
    QVERIFY(app.katalog().Box.insert("4001", "Zorro", 0, 0) > 0);
    QVERIFY(app.katalog().Box.insert("4002", "\xC4rger im Paradies", 0, 0) > 0);  // Ärger

    ui::CDorvanoDlg fenster(app);
    QTreeWidgetItem* wurzel = fenster.wurzel();
    QVERIFY(wurzel);
    QCOMPARE(wurzel->text(0), QStringLiteral("DORVANO {2 Boxen}"));
    QCOMPARE(wurzel->childCount(), 2);
    QCOMPARE(wurzel->child(0)->text(0), QString::fromUtf8(u8"Ärger im Paradies"));
    QCOMPARE(wurzel->child(1)->text(0), QStringLiteral("Zorro"));
    QVERIFY(benutzer.meldungen.empty());
}

void Hauptfenster::wurzelTextEinzahlUndLeer() {
    QCOMPARE(ui::CDorvanoDlg::wurzelText("DORVANO", 1), std::string("DORVANO {1 Box}"));
    QCOMPARE(ui::CDorvanoDlg::wurzelText("DORVANO", 0), std::string("DORVANO {0 Boxen}"));
}

void Hauptfenster::fensterpositionUeberlebtNeustart() {
    test::TempOrdner tmp;
    test::FakeBenutzer benutzer;
    Einstellungen einstellungen(tmp / "einstellungen.conf");
    CApplikation app(benutzer, einstellungen);
    QVERIFY(app.starte(tmp / "programm"));
    {
        ui::CDorvanoDlg fenster(app);
        fenster.setGeometry(40, 50, 500, 400);
        fenster.close();
    }
    std::string text;
    QVERIFY(einstellungen.getFensterPosition("WP_main", text));
    QCOMPARE(text, std::string("0,1,-1,-1,-1,-1,40,50,540,450,"));
    ui::CDorvanoDlg wieder(app);
    QCOMPARE(wieder.geometry(), QRect(40, 50, 500, 400));
}

QTEST_MAIN(Hauptfenster)
#include "hauptfenster.moc"
