// The edit dialogs driven like a collector entering boxes: a new box with a
// packaging typed by name, an extra made with "Neu..." and a PNG cover; edits
// that are refused stay in the dialog (an EAN another box has, a wrong check
// digit answered No, an identity past 32 bits, a side text the code page cannot
// hold); a film filled on every page and read back equal; Cancel leaves every
// byte of Daten/ as it was; lookup and person catalogues merged and protected.
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolTip>
#include <QTreeView>
#include <QTreeWidget>
#include <QtTest>
#include <map>

#include "app/PersonenDienst.h"
#include "tests/ui/support/Dialoge.h"
#include "tests/ui/support/Fenster.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/baum/KatalogModell.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/lookups/AuswahlDlg.h"
#include "ui/dialoge/lookups/LookupDlg.h"
#include "ui/dialoge/lookups/PersonDlg.h"
#include "ui/dialoge/lookups/PersonenDlg.h"
#include "ui/dialoge/objekte/BoxDlg.h"
#include "ui/dialoge/objekte/DvdDlg.h"
#include "ui/dialoge/objekte/FilmDlg.h"
#include "ui/dialoge/objekte/PersonenSeite.h"
#include "ui/dialoge/objekte/SprachenSeite.h"
#include "ui/widgets/EintragWahl.h"
#include "ui/widgets/ListenPaar.h"
#include "ui/widgets/TextFeld.h"

using namespace dv;
using namespace dv::ui;

namespace {

// Every file of the data folder with its bytes.
std::map<QString, std::string> datenStand(test::Fenster& f) {
    std::map<QString, std::string> stand;
    const QDir daten(QString::fromStdString(f.programm() + "Daten"));
    for (const QString& name : daten.entryList(QDir::Files))
        stand[name] = test::leseDatei(daten.filePath(name).toStdString());
    return stand;
}

template <class T>
T* kind(QWidget* w, const QString& name) {
    T* k = w ? w->findChild<T*>(name) : nullptr;
    if (!k) qWarning() << "kein" << name;
    return k;
}

void tippe(QWidget* w, const QString& name, const QString& text) {
    auto* feld = kind<QLineEdit>(w, name);
    feld->clear();
    // QTest types only ASCII keys; other characters arrive as typed text.
    bool ascii = true;
    for (const QChar c : text) ascii = ascii && c.unicode() < 128;
    if (ascii)
        QTest::keyClicks(feld, text);
    else
        feld->insert(text);
}

void ok(QDialog* d) {
    QMetaObject::invokeMethod(d, "accept");
    QApplication::processEvents();
}

}  // namespace

class BearbeitenTest : public QObject {
    Q_OBJECT
  private slots:
    void neueBoxUndAbbrechen();
    void boxEanVerweigertUndRundreise();
    void dvdMitIdentitaet();
    void filmAufAllenSeiten();
    void katalogeZusammenfuehren();
};

void BearbeitenTest::neueBoxUndAbbrechen() {
    test::Fenster f;
    f.fenster();
    const auto vorher = datenStand(f);
    QVERIFY(f.loese(kCmdBoxNeu));
    auto* dlg = f.dialog<BoxDlg>();
    QVERIFY(dlg);
    QCOMPARE(dlg->windowTitle(), QStringLiteral("<<<Neue Box>>>"));
    tippe(dlg, "Bezeichnung", "Alien");
    QTest::keyClick(dlg, Qt::Key_Escape);
    QVERIFY(!f.dialog<BoxDlg>());
    QCOMPARE(datenStand(f), vorher);

    // Packaging typed by name, an extra made with "Neu...", a PNG cover dropped.
    QVERIFY(f.loese(kCmdBoxNeu));
    dlg = f.dialog<BoxDlg>();
    tippe(dlg, "Bezeichnung", "Alien");
    tippe(dlg, "EAN", "4006381333931");
    kind<EintragWahl>(dlg, "Verpackung")->setEditText("Steelbook");
    QVERIFY(test::klicke(*dlg, "Neu..."));
    auto* neu = f.dialog<EingabeDlg>();
    QVERIFY(neu);
    QTest::keyClicks(neu->feld(), "Booklet");
    ok(neu);
    QImage bild(40, 60, QImage::Format_ARGB32);
    bild.fill(Qt::transparent);
    const QString png = QString::fromStdString(f.tmp / "cover.png");
    QVERIFY(bild.save(png));
    dlg->waehleCover(png);
    QTest::keyClick(kind<QLineEdit>(dlg, "Bezeichnung"), Qt::Key_Return);
    QVERIFY(!f.dialog<BoxDlg>());

    // One box with its DVD and film, the new node current.
    const long boxId = f.fenster().katalog().auswahl().box;
    QCOMPARE(f.aktuellerText(), QStringLiteral("Alien"));
    auto box = f.app.dienste().objekte().ladeBox(boxId);
    QCOMPARE(box->ean, std::string("4006381333931"));
    QCOMPARE(box->verpackung.name, std::string("Steelbook"));
    QCOMPARE(box->extras.size(), std::size_t{1});
    QCOMPARE(box->extras[0].name, std::string("Booklet"));
    QVERIFY(box->cover.ends_with(std::to_string(boxId) + ".jpg"));
    QCOMPARE(f.kinder(f.knoten(1, boxId)), QStringList{"Alien"});
    QCOMPARE(f.app.dienste().katalog().anzahl().filme, 1L);
}

void BearbeitenTest::boxEanVerweigertUndRundreise() {
    test::Fenster f;
    f.neueBox("Alien", "4006381333931");
    const NeueBox zorro = f.neueBox("Zorro", "4011");
    QVERIFY(f.waehle(1, zorro.box));
    QTest::keyClick(f.fenster().katalog().baum(), Qt::Key_Return);
    auto* dlg = f.dialog<BoxDlg>();
    QVERIFY(dlg);
    QCOMPARE(dlg->windowTitle(), QStringLiteral("Box [Zorro]"));

    // Another box's EAN: the import's words, and the dialog stays with the input.
    tippe(dlg, "EAN", "4006381333931");
    ok(dlg);
    QCOMPARE(f.letzteMeldung(), std::string("Eine Box mit dieser EAN [4006381333931]\nexistiert "
                                            "bereits im System.\n{\"Alien\"}"));
    QVERIFY(f.dialog<BoxDlg>());
    // A wrong check digit is asked about: No keeps the dialog, Yes stores.
    tippe(dlg, "EAN", "4006381333932");
    tippe(dlg, "Bezeichnung",
          QStringLiteral("Zorro – Der Rächer"));  // the dash is in the code page
    // An arrow is not: refused where it is typed, with the reason beside the field.
    const QString pfeil = QStringLiteral("→");
    kind<QLineEdit>(dlg, "Bezeichnung")->insert(pfeil);
    QCOMPARE(QToolTip::text(), QStringLiteral("Zeichen nicht darstellbar: ") + pfeil);
    QCOMPARE(kind<QLineEdit>(dlg, "Bezeichnung")->text(), QStringLiteral("Zorro – Der Rächer"));
    ok(dlg);
    QVERIFY(f.letzteFrage().starts_with("Die Prüfziffer der EAN [4006381333932]"));
    QVERIFY(f.dialog<BoxDlg>());
    f.benutzer.antworten = {true};
    ok(dlg);
    QVERIFY(!f.dialog<BoxDlg>());
    QCOMPARE(f.aktuellerText(), QStringLiteral("Zorro – Der Rächer"));

    // Reopened, the dialog shows what was stored; OK unchanged asks nothing more.
    const auto fragen = f.benutzer.fragen.size();
    QVERIFY(f.loese(kCmdBoxBearbeiten));
    dlg = f.dialog<BoxDlg>();
    QCOMPARE(dlg->werte(), f.app.dienste().objekte().ladeBox(zorro.box).wert());
    ok(dlg);
    QCOMPARE(f.benutzer.fragen.size(), fragen);
}

void BearbeitenTest::dvdMitIdentitaet() {
    test::Fenster f;
    const NeueBox neu = f.neueBox("Alien", "4010");
    auto alt = f.app.dienste().objekte().ladeDvd(neu.dvd);
    alt->opt = 3;
    QVERIFY(f.app.dienste().objekte().speichereDvd(alt.wert()).ok());

    QVERIFY(f.waehle(1, neu.box));
    QVERIFY(f.loese(kCmdBoxNeueDvd));
    auto* dlg = f.dialog<DvdDlg>();
    QCOMPARE(dlg->windowTitle(), QStringLiteral("<<<Neue Dvd>>>"));
    tippe(dlg, "Bezeichnung", "Bonus");
    kind<QSpinBox>(dlg, "Jahr")->setValue(2004);
    kind<QSpinBox>(dlg, QStringLiteral("Länge"))->setValue(95);
    kind<EintragWahl>(dlg, "Format")->setEditText("DVD-9");
    QTest::mouseClick(kind<QCheckBox>(dlg, "2"), Qt::LeftButton);
    QTest::mouseClick(kind<QCheckBox>(dlg, "8"), Qt::LeftButton);
    tippe(dlg, "Seriennummer", "4294967295");
    tippe(dlg, "Bytes Low", "4294967296");
    tippe(dlg, "Bytes High", "1");
    ok(dlg);
    QCOMPARE(f.letzteMeldung(), std::string("Bytes Low muss zwischen 0 und 4294967295 liegen."));
    QCOMPARE(f.app.dienste().katalog().dvds(neu.box).size(), std::size_t{1});
    tippe(dlg, "Bytes Low", "405032704");
    QCOMPARE(kind<QLabel>(dlg, "Typ")->text(), QStringLiteral("DVD 9 oder DVD 18"));
    ok(dlg);
    QVERIFY(!f.dialog<DvdDlg>());
    QCOMPARE(f.aktuellerText(), QStringLiteral("Bonus"));

    const long bonus = f.fenster().katalog().auswahl().dvd;
    const DvdWerte d = f.app.dienste().objekte().ladeDvd(bonus).wert();
    QCOMPARE(d.jahr, 2004);
    QCOMPARE(d.laenge, 95);
    QCOMPARE(d.rc, 0x82u);
    QCOMPARE(d.format.name, std::string("DVD-9"));
    QCOMPARE(d.sn, 4294967295u);
    QCOMPARE(d.bytesLow, 405032704u);
    QCOMPARE(d.bytesHigh, 1u);

    // Editing keeps the option byte; Cancel changes nothing.
    QVERIFY(f.waehle(2, neu.dvd));
    QVERIFY(f.loese(kCmdDvdBearbeiten));
    dlg = f.dialog<DvdDlg>();
    QCOMPARE(dlg->werte(), f.app.dienste().objekte().ladeDvd(neu.dvd).wert());
    const auto vorher = datenStand(f);
    tippe(dlg, "Bezeichnung", "Anders");
    QTest::keyClick(dlg, Qt::Key_Escape);
    QCOMPARE(datenStand(f), vorher);
}

void BearbeitenTest::filmAufAllenSeiten() {
    test::Fenster f;
    const NeueBox neu = f.neueBox("Blade Runner", "4010");
    PersonenDienst personen(f.app);
    const long ford = personen.neu({0, "Ford", "Harrison", 0}).wert();
    f.app.katalog().Genre.insert("Drama");
    f.app.katalog().Genre.insert("Science-Fiction");

    QVERIFY(f.waehle(2, neu.dvd));
    QVERIFY(f.loese(kCmdDvdNeuerFilm));
    auto* dlg = f.dialog<FilmDlg>();
    QCOMPARE(dlg->windowTitle(), QStringLiteral("<<<Neuer Film>>>"));
    tippe(dlg, "Titel", "Blade Runner");
    tippe(dlg, "Originaltitel", "Blade Runner (1982)");
    for (const char* t : {"Der Blade Runner", "Final Cut"}) {
        tippe(dlg, "Weiterer Titel", t);
        QTest::keyClick(kind<QLineEdit>(dlg, "Weiterer Titel"), Qt::Key_Return);
    }
    QVERIFY(f.dialog<FilmDlg>());  // Enter added the title instead of confirming
    kind<QComboBox>(dlg, "FSK")->setCurrentText("16");
    kind<QSpinBox>(dlg, QStringLiteral("Länge"))->setValue(117);

    // Genre: the filter and Enter assign what it shows.
    dlg->zeigeSeite(FilmDlg::Genre);
    auto* genres = kind<ListenPaar>(dlg, "Genre");
    QTest::keyClicks(kind<QLineEdit>(genres, "Filter"), "science");
    QTest::keyClick(kind<QLineEdit>(genres, "Filter"), Qt::Key_Return);

    SprachenSeite* sprachen = dlg->sprachenSeite();
    sprachen->sprache()->setEditText("Deutsch");
    sprachen->tonformat()->setEditText("DTS");
    sprachen->hinzufuegen();

    // A known person by part of the name; an unknown one through the person
    // dialog, whose duplicate check proposes the next instance.
    PersonenSeite* seite = dlg->personenSeite();
    QTest::keyClicks(seite->personFeld(), "Ford, Harr");
    QTest::keyClicks(seite->alias(), "Deckard, Rick");
    QTest::keyClick(seite->personFeld(), Qt::Key_Return);
    QTest::keyClicks(seite->personFeld(), "Ford, Harrison (0) doppelt");
    seite->funktion()->setEditText("Regie");
    seite->hinzufuegen();
    auto* person = f.dialog<PersonDlg>();
    QVERIFY(person);
    tippe(person, "Vorname", "Harrison");
    tippe(person, "Nachname", "Ford");
    ok(person);
    QCOMPARE(person->hinweisFeld()->text(),
             QStringLiteral("Die Person \"Ford, Harrison (0)\" gibt es bereits.\nDie nächste "
                            "freie Instanz ist 1."));
    QCOMPARE(kind<QSpinBox>(person, "Instanz")->value(), 1);
    tippe(person, "Nachname", "Scott");
    tippe(person, "Vorname", "Ridley");
    kind<QSpinBox>(person, "Instanz")->setValue(0);
    ok(person);
    QVERIFY(!f.dialog<PersonDlg>());

    // A side text the code page cannot hold is refused before anything is written.
    kind<QPlainTextEdit>(dlg, "Inhalt")->setPlainText(QStringLiteral("Replikanten → Erde"));
    ok(dlg);
    QCOMPARE(f.letzteMeldung(), std::string("Zeichen nicht darstellbar: U+2192"));
    QCOMPARE(dlg->seiten()->currentIndex(), int(FilmDlg::Inhalt));
    QCOMPARE(f.app.dienste().katalog().filme(neu.dvd).size(), std::size_t{1});
    kind<QPlainTextEdit>(dlg, "Inhalt")->setPlainText(QStringLiteral("Replikanten » Erde"));
    ok(dlg);
    QVERIFY(!f.dialog<FilmDlg>());

    const long filmId = f.fenster().katalog().auswahl().film;
    const FilmWerte w = f.app.dienste().objekte().ladeFilm(filmId).wert();
    QCOMPARE(w.alternativtitel, (std::vector<std::string>{"Der Blade Runner", "Final Cut"}));
    QCOMPARE(w.fsk, 16);
    QCOMPARE(w.genres.size(), std::size_t{1});
    QCOMPARE(w.genres[0].name, std::string("Science-Fiction"));
    QCOMPARE(w.sprachen.size(), std::size_t{1});
    QCOMPARE(w.sprachen[0].tonformat.name, std::string("DTS"));
    QCOMPARE(w.personen.size(), std::size_t{2});
    QCOMPARE(w.personen[0].person.id, ford);
    QCOMPARE(w.personen[0].alias, (std::vector<std::string>{"Deckard", "Rick"}));
    QCOMPARE(w.personen[1].person.name, std::string("Ridley Scott"));
    QCOMPARE(w.personen[1].funktion.name, std::string("Regie"));
    QCOMPARE(w.funktionen.size(), std::size_t{2});
    QCOMPARE(w.inhalt, std::string("Replikanten » Erde"));

    // Reopened on its persons: the same value; Cancel after changes writes nothing.
    QVERIFY(f.loese(kCmdFilmPersonenStruktur));
    dlg = f.dialog<FilmDlg>();
    QCOMPARE(dlg->seiten()->currentIndex(), int(FilmDlg::Personen));
    QCOMPARE(dlg->werte(), w);
    const auto vorher = datenStand(f);
    dlg->personenSeite()->liste()->clear();
    tippe(dlg, "Titel", "Anders");
    QTest::keyClick(dlg, Qt::Key_Escape);
    QCOMPARE(datenStand(f), vorher);
}

void BearbeitenTest::katalogeZusammenfuehren() {
    test::Fenster f;
    const NeueBox neu = f.neueBox("Heat", "4010");
    const long zweiter = f.neuerFilm(neu.dvd, "Ronin");
    auto& objekte = f.app.dienste().objekte();
    PersonenDienst personen(f.app);
    const long deniro = personen.neu({0, "De Niro", "Robert", 0}).wert();
    const long doppelt = personen.neu({0, "DeNiro", "Robert", 0}).wert();
    for (auto [film, genre, person] :
         {std::tuple{neu.film, "Krimi", deniro}, std::tuple{zweiter, "Krimis", doppelt}}) {
        FilmWerte w = objekte.ladeFilm(film).wert();
        w.genres = {{0, genre}};
        w.personen = {{{person, ""}, {1, ""}, {}}};
        QVERIFY(objekte.speichereFilm(w).ok());
    }
    QCOMPARE(f.kinder(f.knoten(3, zweiter)), (QStringList{"Genre", "Personen"}));

    QVERIFY(f.loese(kCmdGenre));
    auto* genres = f.dialog<LookupDlg>("WP_lookup7");
    QVERIFY(genres);
    genres->waehle(f.app.db().findeLookup(kTypGenre, "Krimis"));
    QCOMPARE(genres->aktuelleZeile()->anzahl, 1L);
    f.benutzer.antworten = {true};
    QTest::keyClick(genres->liste(), Qt::Key_Delete);
    QCOMPARE(f.letzteMeldung(), std::string("\"Krimis\" wird noch von 1 Objekt verwendet."));
    QVERIFY(test::klicke(*genres, QStringLiteral("Zusammenführen...")));
    auto* wahl = f.dialog<AuswahlDlg>();
    QVERIFY(wahl);
    QTest::keyClicks(wahl->filter(), "krimi");
    f.benutzer.antworten = {true};
    ok(wahl);
    QVERIFY(f.letzteFrage().starts_with("\"Krimis\" mit \"Krimi\" zusammenführen?"));
    QCOMPARE(genres->modell().rowCount(), 1);
    QCOMPARE(genres->aktuelleZeile()->anzahl, 2L);
    // The loaded film's group follows at once.
    QCOMPARE(f.kinder(f.fenster().katalog().modell().index(0, 0, f.knoten(3, zweiter))),
             QStringList{"Krimi"});
    genres->reject();

    QVERIFY(f.loese(kCmdPersonen));
    auto* liste = f.dialog<PersonenDlg>();
    QVERIFY(liste);
    liste->waehle(doppelt);
    f.benutzer.antworten = {true};
    QVERIFY(test::klicke(*liste, QStringLiteral("Löschen")));
    QCOMPARE(f.letzteMeldung(), std::string("\"DeNiro, Robert (0)\" gehört noch zu 1 Film und kann "
                                            "nicht gelöscht werden."));
    QVERIFY(test::klicke(*liste, QStringLiteral("Zusammenführen...")));
    wahl = f.dialog<AuswahlDlg>();
    wahl->waehle(deniro);
    f.benutzer.antworten = {true};
    ok(wahl);
    QCOMPARE(liste->modell().rowCount(), 1);
    QCOMPARE(liste->aktuelleZeile()->anzahl, 2L);
    QCOMPARE(objekte.ladeFilm(zweiter)->personen[0].person.id, deniro);
    liste->reject();
}

QTEST_MAIN(BearbeitenTest)
#include "bearbeiten.moc"
