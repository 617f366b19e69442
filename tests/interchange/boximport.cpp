// The import of box files: round trips, a file of the tests' own encoder, name
// matching, the protocol, and refusal of duplicates, declined and damaged files.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/interchange/Austauschtest.h"
#include "tests/support/FehlerDateisystem.h"

using namespace dv;
using namespace dv::test;

namespace {

// A catalogue holding the sample box, exported on demand into a folder of its own.
struct Quelle : Austauschumgebung {
    long box = legeBeispielBoxAn(*db, ordner);
    TempOrdner ziel;
    // Writes the box file and returns its path.
    std::string exportiere(SchreibOptionen o) {
        BoxListe b = db->getBox(box);
        db->ladeBox(*b);
        ExportQuelle q(*db, ordner);
        BoxSchreiber s(q);
        s.optionen = o;
        EXPECT_TRUE(s.schreibe(*b, ziel.pfad()));
        return BoxSchreiber::zielPfad(*b, ziel.pfad());
    }
    std::string dump(bool mitTags = true) { return beschreibeBox(*db, ordner, box, mitTags); }
};

bool enthaelt(const std::vector<std::string>& zeilen, const std::string& z) {
    return std::find(zeilen.begin(), zeilen.end(), z) != zeilen.end();
}

// The bytes of every table file: a catalogue untouched by an import keeps them.
std::string tabellen(const Katalogumgebung& k) {
    std::string alles;
    for (const auto& e : std::filesystem::directory_iterator(k.ordner.daten))
        alles += e.path().filename().string() + leseDatei(e.path().string());
    return alles;
}

}  // namespace

// Every packing with each cover type; the last case leaves the tags out.
TEST(BoxImport, RundreiseMitCoverUndAllenPackarten) {
    Quelle a;
    const char* endungen[] = {"", "bmp", "jpg", "gif"};
    for (int fall = 0; fall < 9; ++fall) {
        SCOPED_TRACE(fall);
        const std::string endung = endungen[fall % 4];
        const bool tags = fall < 8;
        const std::string stamm = a.ordner.cover + std::to_string(a.box) + ".";
        for (const char* e : {"bmp", "jpg", "gif"}) std::remove((stamm + e).c_str());
        if (!endung.empty()) schreibeDatei(stamm + endung, std::string(3000, 'c') + endung);
        const std::string pfad =
            a.exportiere(SchreibOptionen{tags, fall % 2 == 0, fall < 4 || !tags});

        Austauschumgebung b;
        ASSERT_EQ(b.imp.importiere(pfad), ImportErgebnis::Importiert);
        EXPECT_EQ(beschreibeBox(*b.db, b.ordner, b.imp.neueBoxId(), tags), a.dump(tags));
        EXPECT_TRUE(b.nutzer.objektDialoge.empty());
        EXPECT_TRUE(b.nutzer.meldungen.empty());
        EXPECT_TRUE(tags || std::filesystem::is_empty(b.ordner.tags));
    }
}

TEST(BoxImport, EigeneKodierungMitJederEintragsart) {
    FesteUhr uhr(9, 10, 2024, 11, 12, 13);
    Kodierer c;
    c.zahl(0x81, 1, 2).text(0x10, "Kodiert").text(0x11, "5555").text(0x12, "Steelbook");
    c.text(0x13, "Schuber").lang(0x14, "a\r\nb");
    c.text(0x50, "ohne DVD ignoriert")
        .zahl(0x85, 0, 1);  // film entries before any DVD count nothing
    c.zahl(0x83, 1, 2).text(0x30, "Die DVD").zahl(0x31, 0x82, 1).zahl(0x32, 5, 1);
    c.zahl(0x33, 4000000000u, 4).zahl(0x34, 123456, 4).zahl(0x35, 2, 4).zahl(0x38, 1998, 2);
    c.text(0x36, "DVD-10").text(0x37, "Trailer").lang(0x39, "dvdtag");
    c.zahl(0x55, 77, 2);  // a film entry before any film counts nothing
    c.zahl(0x85, 0, 1)
        .text(0x50, "Der Film")
        .text(0x51, "The Film")
        .text(0x52, "Alt 1")
        .text(0x52, "");
    c.zahl(0x53, 16, 1).zahl(0x54, 1997, 2).zahl(0x55, 101, 2);
    c.text(0x56, "4:3").text(0x57, "Krimi").text(0x58, "Französisch");
    c.text(0x59, "Deutsch").text(0x59, "Englisch").text(0x5a, "Mono").text(0x5a, "Stereo");
    c.text(0x5b, "2#1").text(0x5b, "1#2").text(0x5b, "3#1").text(0x5b, "kaputt");
    c.text(0x5c, "Regie").text(0x5c, "Musik");
    c.text(0x5d, "Morricone\tEnnio\t0").text(0x5d, "Leone\tSergio\t2");
    c.text(0x5e, "2#1").text(0x5e, "1#2").text(0x5e, "1#-1").text(0x5e, "9#1");
    c.text(0x5f, "1\tMaestro").text(0x5f, "2\tIl Regista").text(0x5f, "1\tEM");
    c.lang(0x60, std::string(300, 'I')).lang(0x61, "Kommentar").lang(0x62, "filmtag");
    c.text(0x7f, "unbekannter Token");
    c.ende();
    c.text(0x10, "nach dem Ende");
    Austauschumgebung k;
    ASSERT_EQ(k.importiere("k.box", boxDatei(c.daten, "GIFDATA", 2, false, false)),
              ImportErgebnis::Importiert);
    const std::string erwartet =
        "Box|5555|Kodiert|Steelbook\nExtras|Schuber;\nTags|a;b;\nCover|gif|7|" +
        std::to_string(std::hash<std::string>()("GIFDATA")) +
        "\nDvd|Die DVD|1998|-126|5|4000000000|123456|2|DVD-10\n Extras|Trailer;\n Tags|dvdtag;\n"
        "Film|Der Film|The Film|Alt 1;|16|101|1997\n  Bildformate|4:3;\n  Genres|Krimi;\n"
        "  Untertitel|Französisch;\n  Sprachen|Englisch/Mono;Deutsch/Stereo;\n"
        "  Funktionen|Regie;Musik;\n  Person|Leone|Sergio|2|Regie|Il Regista;\n"
        "  Person|Morricone|Ennio|0|Musik|Maestro;EM;\n  Inhalt|" +
        std::string(300, 'I') + "\n  Kommentar|Kommentar\n  Tags|filmtag;\n";
    EXPECT_EQ(beschreibeBox(*k.db, k.ordner, k.imp.neueBoxId()), erwartet);

    const auto p = zeilenVon(k.ordner.meldungen + "import_5555.log");
    ASSERT_GE(p.size(), 8u);
    EXPECT_EQ(std::vector<std::string>(p.begin(), p.begin() + 8),
              (std::vector<std::string>{"Import-Infos:", "Import-Datum: 09.10.2024",
                                        "Import-Zeit : 11:12:13", "Titel       : Kodiert",
                                        "EAN         : 5555", "Export-Datum: 05.04.2023",
                                        "Export-Zeit : 06:07:08", "Anzahl DVDs : 1"}));
    for (const char* z :
         {"Neu / Verpackung <Steelbook>", "Neu / Extra <Trailer>", "Alt / Funktion <Regie>",
          "Neu / Person <Morricone, Ennio (0)>", "Bild speichern."})
        EXPECT_TRUE(enthaelt(p, z)) << z;
}

TEST(BoxImport, NamenOhneRuecksichtAufGrossKlein) {
    Quelle a;
    Austauschumgebung b;
    b.db->neuesLookup(kTypGenre, "FANTASY");
    b.db->neuesLookup(kTypVerpackung, "amaray");
    b.db->katalog().Person.insert(0, "WOOD", "elijah");
    b.db->katalog().Person.insert(1, "Wood", "Elijah");  // another instance: no match
    ASSERT_EQ(b.imp.importiere(a.exportiere(SchreibOptionen{})), ImportErgebnis::Importiert);
    EXPECT_EQ(b.anzahlLookups(kTypVerpackung), 1);
    EXPECT_EQ(b.anzahlLookups(kTypGenre), 2);  // FANTASY and Abenteuer
    EXPECT_EQ(b.anzahlPersonen(), 3);          // Jackson is new
    const std::string dump = beschreibeBox(*b.db, b.ordner, b.imp.neueBoxId());
    EXPECT_NE(dump.find("Genres|FANTASY;Abenteuer;"), std::string::npos) << dump;
    EXPECT_NE(dump.find("Person|WOOD|elijah|0|Darsteller|Frodo;Herr Beutlin;"), std::string::npos)
        << dump;
    const auto p = zeilenVon(b.imp.protokollPfad());
    for (const char* z : {"Alt / Genre <Fantasy>", "Alt / Verpackung <Amaray>",
                          "Alt / Person <Wood, Elijah (0)>", "Neu / Person <Jackson, Peter (1)>"})
        EXPECT_TRUE(enthaelt(p, z)) << z;
}

TEST(BoxImport, LeereNamenErgebenKeineVerknuepfung) {
    Kodierer c;
    c.zahl(0x81, 1, 2).text(0x10, "Leer").text(0x11, "1").text(0x12, "").text(0x13, "");
    c.zahl(0x83, 1, 2)
        .text(0x36, "")
        .zahl(0x85, 0, 1)
        .text(0x57, "")
        .text(0x59, "")
        .text(0x5a, "DTS");
    c.text(0x5b, "1#1").text(0x5c, "").text(0x5d, "\t\t0").text(0x5e, "1#1").ende();
    Austauschumgebung k;
    k.nutzer.objektAntworten.push_back(ObjektAntwort{ObjektTaste::OK, {}, -1});
    k.imp.optionen.objekteBestaetigen = true;
    ASSERT_EQ(k.importiere("l.box", boxDatei(c.daten)), ImportErgebnis::Importiert);
    for (int typ : {kTypVerpackung, kTypExtras, kTypFormat, kTypGenre, kTypSprache})
        EXPECT_EQ(k.anzahlLookups(typ), 0) << typ;
    EXPECT_EQ(k.anzahlPersonen(), 0);
    ASSERT_EQ(k.nutzer.objektDialoge.size(), 1u);  // only "DTS" is unknown and named
    EXPECT_EQ(k.nutzer.objektDialoge[0].felder, std::vector<std::string>{"DTS"});
    EXPECT_NE(beschreibeBox(*k.db, k.ordner, k.imp.neueBoxId()).find("Sprachen|\n"),
              std::string::npos);
}

TEST(BoxImport, DoppelteEanMitUndOhneMeldung) {
    Quelle k;
    const std::string pfad = k.exportiere(SchreibOptionen{});
    const std::string vorher = tabellen(k);
    EXPECT_EQ(k.imp.importiere(pfad), ImportErgebnis::Doppelt);
    ASSERT_EQ(k.nutzer.meldungen.size(), 1u);
    EXPECT_EQ(k.nutzer.meldungen[0].titel, "Import-Fehler");
    EXPECT_EQ(k.nutzer.meldungen[0].text,
              "Eine Box mit dieser EAN [4010232012345]\nexistiert bereits im System.\n"
              "{\"Der Herr der Ringe & <Gefährten>\"}");
    k.imp.optionen.doppelteStill = true;
    EXPECT_EQ(k.imp.importiere(pfad), ImportErgebnis::Doppelt);
    EXPECT_EQ(k.nutzer.meldungen.size(), 1u);
    EXPECT_EQ(tabellen(k), vorher);
    EXPECT_FALSE(gibtEs(k.ordner.meldungen + "import_4010232012345.log"));
}

TEST(BoxImport, BoxBestaetigenNeinAendertNichts) {
    Kodierer c;
    c.zahl(0x81, 3, 2).text(0x10, "Frage").text(0x11, "77").text(0x12, "Neu").ende();
    Austauschumgebung k;
    k.imp.optionen.boxBestaetigen = true;
    EXPECT_EQ(k.importiere("f.box", boxDatei(c.daten)), ImportErgebnis::Abgelehnt);
    ASSERT_EQ(k.nutzer.fragen.size(), 1u);
    EXPECT_EQ(k.nutzer.fragen[0].titel, "Box importieren ?");
    EXPECT_EQ(k.nutzer.fragen[0].text,
              "Soll die folgende Box importiert werden:\n{\"Frage\"}\nAnzahl DVDs: 3\nEAN: 77\n");
    EXPECT_EQ(k.anzahlBoxen(), 0);
    EXPECT_EQ(k.anzahlLookups(kTypVerpackung), 0);
    EXPECT_FALSE(gibtEs(k.ordner.meldungen + "import_77.log"));
    k.nutzer.antworten.push_back(true);
    EXPECT_EQ(k.imp.importiere(k.basis / "f.box"), ImportErgebnis::Importiert);
    EXPECT_EQ(k.anzahlBoxen(), 1);  // a box without DVDs: only the box
}

TEST(BoxImport, ProtokollImMeldungsordnerUnlesbaresBildWeggelassen) {
    Kodierer c;
    c.zahl(0x81, 0, 2).text(0x10, "Pfad").text(0x11, "../../\x01x/y*").ende();
    std::string d = boxDatei(c.daten, std::string(200, 'b'), 1, true, false);
    d[70] = static_cast<char>(d[70] ^ 0x33);  // inside the picture's zlib stream
    Austauschumgebung k;
    ASSERT_EQ(k.importiere("p.box", d), ImportErgebnis::Importiert);
    EXPECT_TRUE(std::filesystem::is_empty(k.ordner.cover));
    EXPECT_EQ(k.imp.protokollPfad(), k.ordner.meldungen + "import________x_y_.log");
    EXPECT_TRUE(gibtEs(k.imp.protokollPfad()));
    // An older protocol of the same name is replaced, not continued.
    k.db->loescheBox(k.imp.neueBoxId());
    ASSERT_EQ(k.imp.importiere(k.basis / "p.box"), ImportErgebnis::Importiert);
    const auto zeilen = zeilenVon(k.imp.protokollPfad());
    EXPECT_EQ(std::count(zeilen.begin(), zeilen.end(), std::string("Import-Infos:")), 1);
}

TEST(BoxImport, BeschaedigteDateienLassenDenKatalogUnberuehrt) {
    Quelle a;
    const std::string gut = leseDatei(a.exportiere(SchreibOptionen{true, false, false}));
    Austauschumgebung b;
    const std::string vorher = tabellen(b);
    for (std::size_t n = 0; n < gut.size(); n += 7)
        EXPECT_EQ(b.importiere("t.box", gut.substr(0, n)), ImportErgebnis::KeineBoxDatei) << n;
    EXPECT_EQ(b.imp.importiere(b.basis / "fehlt.box"), ImportErgebnis::KeineBoxDatei);
    EXPECT_EQ(tabellen(b), vorher);
    EXPECT_TRUE(std::filesystem::is_empty(b.ordner.meldungen));
    EXPECT_TRUE(b.nutzer.meldungen.empty());
}

TEST(BoxImport, SchreibfehlerNimmtDieHalbeBoxZurueck) {
    Quelle a;
    const std::string pfad = a.exportiere(SchreibOptionen{true, true, true});
    FehlerDateisystem fs;
    Austauschumgebung b(fs);
    fs.sperre = "Film_Person";
    EXPECT_EQ(b.imp.importiere(pfad), ImportErgebnis::Fehler);
    fs.sperre.clear();
    long boxen = 0, dvds = 0, filme = 0;
    b.db->anzahl(boxen, dvds, filme);
    EXPECT_EQ(b.anzahlBoxen() + dvds + filme, 0);
    for (const char* e : {"bmp", "jpg", "gif"}) EXPECT_FALSE(gibtEs(b.ordner.cover + "1." + e));
    EXPECT_TRUE(std::filesystem::is_empty(b.ordner.tags));
    // The lookups resolved before stay; a second try imports the box.
    EXPECT_EQ(b.imp.importiere(pfad), ImportErgebnis::Importiert);
    EXPECT_EQ(beschreibeBox(*b.db, b.ordner, b.imp.neueBoxId()), a.dump());
}

TEST(BoxImport, AustauschExportiertEinzelneBox) {
    Quelle k;
    Austausch& a = k.austausch;
    const long ohneEan = k.db->neueBox("", "Ohne", 0);
    std::string pfad;
    EXPECT_EQ(a.exportiere(k.box, k.ziel.pfad(), SchreibOptionen{}, &pfad),
              ExportErgebnis::Exportiert);
    EXPECT_EQ(pfad, k.ziel / "4010232012345.box");
    EXPECT_EQ(a.exportiere(k.box, k.ziel.pfad(), SchreibOptionen{}),
              ExportErgebnis::NichtUeberschrieben);
    ASSERT_EQ(k.nutzer.fragen.size(), 1u);
    EXPECT_EQ(k.nutzer.fragen[0].text, "Die Exportdatei existiert bereits.\nÜberschreiben?");
    k.nutzer.antworten.push_back(true);
    EXPECT_EQ(a.exportiere(k.box, k.ziel.pfad(), SchreibOptionen{}), ExportErgebnis::Exportiert);
    EXPECT_EQ(a.exportiere(ohneEan, k.ziel.pfad(), SchreibOptionen{}), ExportErgebnis::KeineEan);
    EXPECT_EQ(k.nutzer.meldungen.back().text, "Diese Box besitzt keine EAN.");
    EXPECT_EQ(a.exportiere(999, k.ziel.pfad(), SchreibOptionen{}), ExportErgebnis::Unbekannt);
}
