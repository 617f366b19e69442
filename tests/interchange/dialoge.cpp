// The confirmation dialogs for unknown lookups and persons: what each button does
// to the dialog's state, to the protocol and to what the import creates.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/interchange/Austauschtest.h"

using namespace dv;
using namespace dv::test;

namespace {

ObjektAntwort taste(ObjektTaste t, std::vector<std::string> felder = {}, int gewaehlt = -1) {
    return ObjektAntwort{t, std::move(felder), gewaehlt};
}

// A catalogue with the genre "Drama" and a file whose film names the genres
// "Krimi" and "Western" and the unknown person "Neu, Person (0)" as Darsteller.
struct DialogFall : Austauschumgebung {
    DialogFall() {
        db->neuesLookup(kTypGenre, "Drama");
        Kodierer c;
        c.zahl(0x81, 1, 2).text(0x10, "Dialogbox").text(0x11, "321");
        c.zahl(0x83, 1, 2).text(0x30, "D").zahl(0x85, 0, 1).text(0x50, "F");
        c.text(0x57, "Krimi").text(0x57, "Western").text(0x5c, "Darsteller");
        c.text(0x5d, "Neu\tPerson\t0").text(0x5e, "1#1").ende();
        schreibeDatei(basis / "d.box", boxDatei(c.daten));
        imp.optionen.objekteBestaetigen = true;
    }
    ImportErgebnis los(std::vector<ObjektAntwort> antworten) {
        for (auto& a : antworten) nutzer.objektAntworten.push_back(std::move(a));
        return imp.importiere(basis / "d.box");
    }
    // Every line is in the protocol.
    void imProtokoll(std::initializer_list<const char*> zeilen) {
        const auto p = zeilenVon(ordner.meldungen + "import_321.log");
        for (const char* z : zeilen) EXPECT_NE(std::find(p.begin(), p.end(), z), p.end()) << z;
    }
    // The imported box shows every part.
    void filmHat(std::initializer_list<const char*> teile) {
        const std::string dump = beschreibeBox(*db, ordner, imp.neueBoxId());
        for (const char* t : teile) EXPECT_NE(dump.find(t), std::string::npos) << t << "\n" << dump;
    }
    std::string film() { return beschreibeBox(*db, ordner, imp.neueBoxId()); }
};

}  // namespace

TEST(ImportDialog, OkNimmtDenGezeigtenNamen) {
    DialogFall f;
    ASSERT_EQ(f.los({taste(ObjektTaste::OK), taste(ObjektTaste::OK), taste(ObjektTaste::OK)}),
              ImportErgebnis::Importiert);
    ASSERT_EQ(f.nutzer.objektDialoge.size(), 3u);
    const ObjektDialog& d = f.nutzer.objektDialoge[0];
    EXPECT_EQ(d.titel, "Neues Objekt bestätigen...");
    EXPECT_EQ(d.zeile, "Das folgende zu importierende Objekt ist noch unbekannt:");
    EXPECT_EQ(d.typ, "Genre");
    EXPECT_EQ(d.felder, std::vector<std::string>{"Krimi"});
    EXPECT_EQ(d.liste, std::vector<std::string>{"Drama"});
    EXPECT_TRUE(d.auswahlMoeglich);
    EXPECT_EQ(d.modus, ObjektModus::Normal);
    EXPECT_EQ(d.letzteTaste, "Beenden");
    // The second genre sees the first one in the list already.
    EXPECT_EQ(f.nutzer.objektDialoge[1].liste, (std::vector<std::string>{"Drama", "Krimi"}));
    const ObjektDialog& p = f.nutzer.objektDialoge[2];
    EXPECT_EQ(p.titel, "Neue Person bestätigen...");
    EXPECT_EQ(p.zeile, "Die folgende zu importierende Person ist noch unbekannt:");
    EXPECT_EQ(p.feldNamen, (std::vector<std::string>{"Nachname", "Vorname", "Instanz"}));
    EXPECT_EQ(p.felder, (std::vector<std::string>{"Neu", "Person", "0"}));
    EXPECT_FALSE(p.auswahlMoeglich);  // no persons yet
    f.imProtokoll({"Neu / Genre <Krimi>", "Neu / Genre <Western>", "Alt / Funktion <Darsteller>",
                   "Neu / Person <Neu, Person (0)>"});
    f.filmHat({"Genres|Krimi;Western;", "Person|Neu|Person|0|Darsteller|"});
}

TEST(ImportDialog, EditUndAbbruchImBearbeitungsmodus) {
    DialogFall f;
    ASSERT_EQ(f.los({taste(ObjektTaste::Edit), taste(ObjektTaste::OK, {"Thriller"}),
                     taste(ObjektTaste::OK), taste(ObjektTaste::Edit),
                     taste(ObjektTaste::Letzte, {"verworfen"}), taste(ObjektTaste::OK),
                     taste(ObjektTaste::Edit), taste(ObjektTaste::OK, {"Anders", "Hans", "3"}),
                     taste(ObjektTaste::OK)}),
              ImportErgebnis::Importiert);
    const auto& d = f.nutzer.objektDialoge;
    ASSERT_EQ(d.size(), 9u);
    EXPECT_EQ(d[1].modus, ObjektModus::Bearbeiten);
    EXPECT_EQ(d[1].letzteTaste, "Abbruch");
    EXPECT_EQ(d[2].modus, ObjektModus::Normal);
    EXPECT_EQ(d[2].felder, std::vector<std::string>{"Thriller"});
    EXPECT_EQ(d[5].felder, std::vector<std::string>{"Western"});  // "Abbruch" keeps the old text
    EXPECT_EQ(d[8].felder, (std::vector<std::string>{"Anders", "Hans", "3"}));
    f.imProtokoll(
        {"Neu / Genre <Thriller>", "Neu / Genre <Western>", "Neu / Person <Anders, Hans (3)>"});
    f.filmHat({"Genres|Thriller;Western;", "Person|Anders|Hans|3|Darsteller|"});
    EXPECT_EQ(f.anzahlLookups(kTypGenre), 3);
}

TEST(ImportDialog, BearbeiteterNameTrifftVorhandenen) {
    DialogFall f;
    ASSERT_EQ(f.los({taste(ObjektTaste::Edit), taste(ObjektTaste::OK, {"DRAMA"}),
                     taste(ObjektTaste::OK), taste(ObjektTaste::Nicht), taste(ObjektTaste::Nicht)}),
              ImportErgebnis::Importiert);
    f.imProtokoll({"Alt / Genre <DRAMA>", "Ignorieren / Genre <Western>",
                   "Ignorieren / Person <Neu, Person (0)>"});
    EXPECT_EQ(f.anzahlLookups(kTypGenre), 1);
    EXPECT_EQ(f.anzahlPersonen(), 0);
    f.filmHat({"Genres|Drama;\n"});
    EXPECT_EQ(f.film().find("Person|"), std::string::npos);
}

TEST(ImportDialog, AuswahlUebernimmtDenGewaehltenEintrag) {
    DialogFall f;
    f.db->katalog().Person.insert(2, "Alt", "Bekannt");
    ASSERT_EQ(
        f.los({taste(ObjektTaste::Auswahl), taste(ObjektTaste::OK, {}, 0), taste(ObjektTaste::OK),
               taste(ObjektTaste::Auswahl), taste(ObjektTaste::Letzte), taste(ObjektTaste::OK),
               taste(ObjektTaste::Auswahl), taste(ObjektTaste::OK, {}, 0), taste(ObjektTaste::OK)}),
        ImportErgebnis::Importiert);
    const auto& d = f.nutzer.objektDialoge;
    ASSERT_EQ(d.size(), 9u);
    EXPECT_EQ(d[1].modus, ObjektModus::Auswahl);
    EXPECT_EQ(d[1].letzteTaste, "Abbruch");
    EXPECT_EQ(d[2].felder, std::vector<std::string>{"Drama"});
    EXPECT_EQ(d[5].felder, std::vector<std::string>{"Western"});
    EXPECT_EQ(d[6].liste, std::vector<std::string>{"Alt, Bekannt (2)"});
    EXPECT_EQ(d[8].felder, (std::vector<std::string>{"Alt", "Bekannt", "2"}));
    f.imProtokoll({"Alt / Genre <Drama>", "Alt / Person <Alt, Bekannt (2)>"});
    EXPECT_EQ(f.anzahlPersonen(), 1);
    f.filmHat({"Genres|Drama;Western;"});
}

TEST(ImportDialog, BeendenBrichtVorDemAnlegenAb) {
    DialogFall f;
    f.db->katalog().Person.insert(0, "X", "Y");
    const std::string boxVorher = leseDatei(f.ordner.daten + "Box.dat");
    ASSERT_EQ(f.los({taste(ObjektTaste::OK), taste(ObjektTaste::Letzte)}),
              ImportErgebnis::Abgebrochen);
    f.imProtokoll({"Neu / Genre <Krimi>", "Abbruch / Genre <Western>"});
    EXPECT_EQ(f.anzahlBoxen(), 0);
    EXPECT_EQ(leseDatei(f.ordner.daten + "Box.dat"), boxVorher);
    long b = 0, d = 0, fi = 0;
    f.db->anzahl(b, d, fi);
    EXPECT_EQ(d + fi, 0);
    EXPECT_EQ(f.anzahlLookups(kTypGenre), 2);  // "Krimi", created before the abort, stays
    // Abort at the person: the same.
    DialogFall h;
    h.db->neuesLookup(kTypGenre, "Krimi");
    h.db->neuesLookup(kTypGenre, "Western");
    ASSERT_EQ(h.los({taste(ObjektTaste::Letzte)}), ImportErgebnis::Abgebrochen);
    h.imProtokoll({"Abbruch / Person <Neu, Person (0)>"});
    EXPECT_EQ(h.anzahlBoxen(), 0);
}

TEST(ImportDialog, AlleOkGiltFuerDenRestDesImports) {
    DialogFall f;
    ASSERT_EQ(f.los({taste(ObjektTaste::AlleOK)}), ImportErgebnis::Importiert);
    EXPECT_EQ(f.nutzer.objektDialoge.size(), 1u);
    f.imProtokoll({"Neu / Genre <Western>", "Neu / Person <Neu, Person (0)>"});
    // Only for that import: the next one asks again.
    f.db->loescheBox(f.imp.neueBoxId());
    f.db->katalog().Person.remove(1, true);
    EXPECT_EQ(f.los({taste(ObjektTaste::OK)}), ImportErgebnis::Importiert);
    EXPECT_EQ(f.nutzer.objektDialoge.size(), 2u);
}

TEST(ImportDialog, AlleOkImBearbeitungsmodus) {
    DialogFall f;
    ASSERT_EQ(f.los({taste(ObjektTaste::Edit), taste(ObjektTaste::AlleOK, {"Noir"}),
                     taste(ObjektTaste::OK)}),
              ImportErgebnis::Importiert);
    ASSERT_EQ(f.nutzer.objektDialoge.size(), 3u);
    EXPECT_EQ(f.nutzer.objektDialoge[2].felder, std::vector<std::string>{"Noir"});
    EXPECT_EQ(f.nutzer.objektDialoge[2].modus, ObjektModus::Normal);
    f.filmHat({"Genres|Noir;Western;"});
}

TEST(ImportDialog, OhneObjekteKeineAuswahlUndLangeNamenGekappt) {
    DialogFall f;
    f.db->katalog().Genre.remove(1, true);
    ASSERT_EQ(f.anzahlLookups(kTypGenre), 0);
    ASSERT_EQ(f.los({taste(ObjektTaste::Auswahl), taste(ObjektTaste::Edit),
                     taste(ObjektTaste::OK, {std::string(200, 'g')}), taste(ObjektTaste::OK),
                     taste(ObjektTaste::AlleOK)}),
              ImportErgebnis::Importiert);
    const auto& d = f.nutzer.objektDialoge;
    EXPECT_FALSE(d[0].auswahlMoeglich);
    EXPECT_EQ(d[1].modus, ObjektModus::Normal);  // "Auswahl" without objects changes nothing
    EXPECT_EQ(d[3].felder[0].size(), 128u);
    // A front end that keeps pressing a button without effect ends as "Beenden".
    DialogFall g;
    g.db->katalog().Genre.remove(1, true);
    EXPECT_EQ(g.los(std::vector<ObjektAntwort>(100, taste(ObjektTaste::Auswahl))),
              ImportErgebnis::Abgebrochen);
}
