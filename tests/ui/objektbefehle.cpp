// The object commands of the main window driven like a user: delete with its
// question (No, Yes, the copy source), copy mode with its bold source and the
// copy placed last, up and down, the information list, the XML window whose
// saved file holds the exporter's bytes, the playing time and the counts.
#include <QFileDialog>
#include <QPlainTextEdit>
#include <QTreeView>
#include <QtTest>

#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/widgets/TextFenster.h"

using namespace dv;
using namespace dv::ui;

class ObjektbefehleTest : public QObject {
    Q_OBJECT
  private slots:
    void loeschenFragtErst();
    void kopiermodusUndReihenfolge();
    void texteUndXml();
};

void ObjektbefehleTest::loeschenFragtErst() {
    test::Fenster f;
    const NeueBox alien = f.neueBox("Alien", "4010");
    const NeueBox zorro = f.neueBox("Zorro", "4011");
    const long zweiter = f.neuerFilm(alien.dvd, "Aliens");

    // No keeps everything; the question names the film.
    QVERIFY(f.waehle(3, zweiter));
    QTest::keyClick(f.fenster().katalog().baum(), Qt::Key_Delete);
    QCOMPARE(f.letzteFrage(), std::string("Film \"Aliens\" löschen?"));
    QVERIFY(f.app.dienste().katalog().gibtEs(3, zweiter));

    // Yes deletes the box with its DVD and films; the tree and its count follow.
    f.benutzer.antworten = {true};
    QVERIFY(f.waehle(1, alien.box));
    QVERIFY(f.loese(kCmdBoxLoeschen));
    QCOMPARE(f.letzteFrage(), std::string("Box \"Alien\" löschen?"));
    QVERIFY(!f.app.dienste().katalog().gibtEs(3, zweiter));
    QCOMPARE(f.kinder(f.wurzel()), QStringList{"Zorro"});
    QCOMPARE(f.wurzel().data().toString(), QStringLiteral("DORVANO {1 Box}"));

    // The copy source gets its own question, and deleting it ends copy mode.
    QVERIFY(f.waehle(2, zorro.dvd));
    QVERIFY(f.loese(kCmdDvdKopieren));
    QVERIFY(f.aktiv(kCmdAbbrechen));
    f.benutzer.antworten = {true};
    QVERIFY(f.loese(kCmdDvdLoeschen));
    QCOMPARE(f.letzteFrage(),
             std::string("Hinweis zu \"Zorro\":\nDiese Dvd ist zur Zeit Quelle beim aktiven "
                         "Kopiermodus.\nTrotzdem löschen? (Kopiermodus wird beendet)."));
    QVERIFY(!f.aktiv(kCmdAbbrechen));
    QCOMPARE(f.kinder(f.knoten(1, zorro.box)), QStringList{});
    QVERIFY(f.benutzer.meldungen.empty());
}

void ObjektbefehleTest::kopiermodusUndReihenfolge() {
    test::Fenster f;
    const NeueBox alien = f.neueBox("Alien", "4010");
    const NeueBox zorro = f.neueBox("Zorro", "4011");
    const long bonus = f.neueDvd(alien.box, "Bonus");

    // The source is shown in bold; pasted into another box it comes last.
    QVERIFY(f.waehle(2, alien.dvd));
    QVERIFY(f.loese(kCmdDvdKopieren));
    QVERIFY(f.knoten(2, alien.dvd).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(f.waehle(1, zorro.box));
    QVERIFY(f.loese(kCmdEinfuegen));
    QCOMPARE(f.kinder(f.knoten(1, zorro.box)), (QStringList{"Zorro", "Alien"}));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Alien"));
    QVERIFY(f.app.dienste().katalog().besitzer(2, f.fenster().katalog().auswahl().dvd) ==
            zorro.box);
    // A film cannot go into a box: the DVD mode offers no target there after "Abbrechen".
    QVERIFY(f.loese(kCmdAbbrechen));
    QVERIFY(!f.knoten(2, alien.dvd).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!f.aktiv(kCmdEinfuegen));

    // Up and down move the node and keep it current; the edges are disabled.
    QVERIFY(f.waehle(2, bonus));
    QVERIFY(!f.aktiv(kCmdDvdRunter));
    QTest::keyClick(f.fenster().katalog().baum(), Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(f.kinder(f.knoten(1, alien.box)), (QStringList{"Bonus", "Alien"}));
    QCOMPARE(f.aktuellerText(), QStringLiteral("Bonus"));
    QVERIFY(!f.aktiv(kCmdDvdHoch));
    QVERIFY(f.loese(kCmdDvdRunter));
    QCOMPARE(f.kinder(f.knoten(1, alien.box)), (QStringList{"Alien", "Bonus"}));
}

void ObjektbefehleTest::texteUndXml() {
    test::Fenster f;
    const NeueBox neu = f.neueBox("Tom & Jerry", "4010");
    auto film = f.app.dienste().objekte().ladeFilm(neu.film);
    film->laenge = 61;
    QVERIFY(f.app.dienste().objekte().speichereFilm(film.wert()).ok());

    QVERIFY(f.waehle(1, neu.box));
    QVERIFY(f.loese(kCmdBoxSpieldauer));
    QCOMPARE(f.letzterMeldungsTitel(), std::string("Gesamtspieldauer"));
    QCOMPARE(f.letzteMeldung(),
             std::string("Alle Filme dieser Box haben eine Gesamtspieldauer von 61 Minuten.\r\n"
                         "(1 Stunde, 1 Minute)"));
    QVERIFY(f.loese(kCmdAnzahl));
    QCOMPARE(f.letzteMeldung(), std::string("Boxen: 1\nDvds: 1\nFilme: 1"));

    QVERIFY(f.loese(kCmdBoxInfoliste));
    auto* info = f.dialog<TextFenster>();
    QVERIFY(info);
    QCOMPARE(info->windowTitle(), QStringLiteral("Tom & Jerry"));
    QVERIFY(info->anzeige()->toPlainText().startsWith("Information zur DVD-Box \"Tom & Jerry\""));
    info->close();

    // The XML window shows the exporter's document; saved, the file holds its bytes.
    QVERIFY(f.loese(kCmdBoxXml));
    auto* xml = f.dialog<TextFenster>();
    QCOMPARE(xml->windowTitle(), QStringLiteral("XML-Ausgabe [Tom & Jerry]"));
    std::string erwartet;
    QVERIFY(f.app.austausch().xml(1, neu.box, xmlOptionen(f.app.austausch().optionen()), erwartet));
    QVERIFY(erwartet.find("Titel=\"Tom &amp; Jerry\"") != std::string::npos);
    QCOMPARE(xml->text(), erwartet);
    xml->speichern();
    auto* wahl = xml->findChild<QFileDialog*>();
    QVERIFY(wahl);
    wahl->selectFile(QString::fromStdString(f.tmp / "box"));
    QMetaObject::invokeMethod(wahl, "accept");
    QCOMPARE(test::leseDatei(f.tmp / "box.xml"), erwartet);
    xml->close();
}

QTEST_MAIN(ObjektbefehleTest)
#include "objektbefehle.moc"
