// dorvano-cli: importieren, stapel-import, exportieren, alle-exportieren, xml and
// filter, run as a whole process on a catalogue built in the test.
#include <gtest/gtest.h>

#include <filesystem>

#include "interchange/BoxLeser.h"
#include "tests/cli/CliProgramm.h"

using namespace dv;
using namespace dv::test;

namespace {

// A program folder with two boxes: "Tür & Tor" (EAN 4711, packaging "Amaray",
// one DVD with a film in the genre "Krimi") and "Zweite" (EAN 815).
struct CliKatalog : CliProgramm {
    CliKatalog() {
        mitApp([&](CApplikation& app, FakeBenutzer&, Einstellungen&) {
            Datenbank& db = app.db();
            box = db.neueBox("4711", "Tür & Tor", db.neuesLookup(kTypVerpackung, "Amaray"));
            const long dvd = db.neueDvd(box, Zeile9{});
            const long film = db.neuerFilm(dvd, "Der Film", 12, 90, 2001);
            db.schreibeFilmObjekte(film, kTypGenre, {db.neuesLookup(kTypGenre, "Krimi")});
            db.neueBox("815", "Zweite", 0);
        });
        schreibeDatei(basis + "Cover/" + std::to_string(box) + ".jpg", "JPEGDATEN");
    }
    long box = 0;
};

// An empty program folder, made by dorvano-cli itself.
struct LeeresProgramm : CliProgramm {
    LeeresProgramm() { EXPECT_EQ(run({"init"}).code, 0); }
};

// The packaging name and the genres that a box file carries.
std::string namenIn(const std::string& pfad) {
    BoxLeser l;
    if (!l.lese(echtesDateisystem(), pfad)) return "keine Box-Datei";
    std::string s;
    BoxEintrag e;
    for (std::size_t pos = 0; naechsterBoxEintrag(l.daten(), pos, e) && e.token != 0x80;
         pos += e.verbraucht)
        if (e.token == 0x12 || e.token == 0x57) s += e.text + ";";
    return s;
}

}  // namespace

TEST(CliInterchange, ExportierenUndWiederImportieren) {
    CliKatalog k;
    const std::string ziel = k.tmp / "ziel";
    std::filesystem::create_directory(ziel);
    Lauf l = k.run({"exportieren", std::to_string(k.box), ziel});
    ASSERT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(l.aus, ziel + "/4711.box\n");
    const std::string datei = leseDatei(ziel + "/4711.box");
    ASSERT_GE(datei.size(), 64u);
    EXPECT_EQ(static_cast<unsigned char>(datei[54]), 0xC1);  // both blocks packed, jpg
    EXPECT_EQ(namenIn(ziel + "/4711.box"), "Amaray;Krimi;");

    // The file exists: replaced only after Yes.
    EXPECT_TRUE(meldet(k.run({"exportieren", "--ohne-kompression", std::to_string(k.box), ziel}), 1,
                       "Warnung: Die Exportdatei existiert bereits.\n\xC3\x9C"
                       "berschreiben? -> Nein"));
    EXPECT_EQ(leseDatei(ziel + "/4711.box"), datei);
    l = k.run({"--ja", "exportieren", "--ohne-kompression", std::to_string(k.box), ziel});
    EXPECT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(static_cast<unsigned char>(leseDatei(ziel + "/4711.box")[54]), 0x01);

    EXPECT_EQ(k.run({"exportieren", "99", ziel}).code, 2);
    EXPECT_EQ(k.run({"exportieren", "abc", ziel}).code, 2);
    EXPECT_EQ(k.run({"exportieren", std::to_string(k.box), ziel + "/fehlt"}).code, 1);

    // Into a second collection: the box arrives with its lookups, once.
    CliKatalog zweite;
    const std::string kopie = k.tmp / "kopie.box";
    std::filesystem::copy_file(ziel + "/4711.box", kopie);
    // EAN 4711 is there already.
    EXPECT_TRUE(
        meldet(zweite.run({"importieren", kopie}), 1,
               "Import-Fehler: Eine Box mit dieser EAN [4711]\nexistiert bereits im System.\n"
               "{\"T\xC3\xBCr & Tor\"}"));
    LeeresProgramm leer;
    l = leer.run({"importieren", kopie});
    EXPECT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(l.aus, "1\n");
    EXPECT_EQ(leseDatei(leer.basis + "Cover/1.jpg"), "JPEGDATEN");
    EXPECT_TRUE(gibtEs(leer.basis + "Meldungen/import_4711.log"));
}

TEST(CliInterchange, ImportierenMitFragenUndKaputteDatei) {
    CliKatalog k;
    const std::string ziel = k.tmp / "ziel";
    std::filesystem::create_directory(ziel);
    ASSERT_EQ(k.run({"exportieren", std::to_string(k.box), ziel}).code, 0);
    LeeresProgramm t;
    // Not a terminal and no --ja: the box question is answered No.
    Lauf l = t.run({"importieren", "--bestaetigen", ziel + "/4711.box"});
    EXPECT_TRUE(meldet(
        l, 1,
        "Box importieren ?: Soll die folgende Box importiert werden:\n{\"T\xC3\xBCr & Tor\"}\n"
        "Anzahl DVDs: 1\nEAN: 4711"));
    EXPECT_TRUE(meldet(l, 1, "-> Nein"));
    // Every unknown name asked: the first dialog ends the import ("Beenden").
    l = t.run({"importieren", "--fragen", ziel + "/4711.box"});
    EXPECT_TRUE(meldet(l, 1,
                       "Neues Objekt best\xC3\xA4tigen...: Das folgende zu importierende Objekt "
                       "ist noch unbekannt:"));
    EXPECT_TRUE(meldet(l, 1, "Der Import wurde abgebrochen."));
    EXPECT_EQ(t.run({"importieren", "--fragen", ziel + "/4711.box"}, "", true).code, 0);

    schreibeDatei(t.tmp / "kaputt.box", "ZELKA4.0 und dann nichts");
    EXPECT_TRUE(meldet(t.run({"importieren", t.tmp / "kaputt.box"}), 1, "ist keine Box-Datei."));
}

TEST(CliInterchange, AlleExportierenUndStapelImport) {
    CliKatalog k;
    const std::string ziel = k.tmp / "alle";
    std::filesystem::create_directory(ziel);
    Lauf l = k.run({"alle-exportieren", ziel});
    ASSERT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(l.aus,
              "Exportiere Box 1 von 2\n4711.box\n{T\xC3\xBCr & Tor}\nNicht exportierte Boxen: 0\n"
              "Exportiere Box 2 von 2\n815.box\n{Zweite}\nNicht exportierte Boxen: 0\n");
    schreibeDatei(ziel + "/kaputt.box", "nichts");
    LeeresProgramm t;
    l = t.run({"stapel-import", "--ohne-info", ziel + "/4711.box", ziel + "/kaputt.box",
               ziel + "/815.box"});
    EXPECT_EQ(l.code, 1);
    EXPECT_EQ(l.aus, ziel + "/4711.box\timportiert\n" + ziel + "/kaputt.box\tnicht importiert\n" +
                         ziel + "/815.box\timportiert\n");
    EXPECT_TRUE(std::filesystem::is_empty(ziel));  // consumed
}

TEST(CliInterchange, XmlAufStandardausgabeUndInDatei) {
    CliKatalog k;
    Lauf l = k.run({"xml", "box", std::to_string(k.box), "--unterobjekte"});
    ASSERT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(l.aus.rfind("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<ZELKA_4>\r\n", 0),
              0u);
    // 8-bit as stored: the umlaut is one byte.
    EXPECT_NE(l.aus.find("Titel=\"T\xFCr &amp; Tor\">\r\n"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find("<Genre>Krimi</Genre>\r\n"), std::string::npos);
    l = k.run({"xml", "film", "1", "-o", k.tmp / "f.xml"});
    EXPECT_EQ(l.code, 0);
    EXPECT_TRUE(l.aus.empty());
    EXPECT_NE(leseDatei(k.tmp / "f.xml")
                  .find("<Film Titel=\"Der Film\" FSK=\"12\" Jahr=\"2001\" Dauer=\"90\">"),
              std::string::npos);
    l = k.run({"xml", "box", std::to_string(k.box), "--cover"});
    EXPECT_NE(l.aus.find("Cover=\"data:image/jpeg;base64,SlBFR0RBVEVO\""), std::string::npos);
    EXPECT_EQ(k.run({"xml", "dvd", "42"}).code, 2);
    EXPECT_EQ(k.run({"xml", "kiste", "1"}).code, 2);
}

TEST(CliInterchange, FilterBefehleUndIhreWirkung) {
    CliKatalog k;
    Lauf l = k.run({"filter", "neu", "Englisch"});
    ASSERT_EQ(l.code, 0) << l.err;
    EXPECT_EQ(l.aus, "1\n");
    EXPECT_EQ(k.run({"filter", "setzen", "1", "8", "amaray", "Keep case"}).code, 0);
    EXPECT_EQ(k.run({"filter", "setzen", "1", "5", "Krimi", "Crime"}).code, 0);
    EXPECT_EQ(k.run({"filter", "setzen", "1", "5", "Western", "x"}).code, 2);
    EXPECT_EQ(k.run({"filter", "setzen", "1", "9", "Krimi", "x"}).code, 2);
    EXPECT_EQ(k.run({"filter", "setzen", "7", "5", "Krimi", "x"}).code, 2);
    EXPECT_EQ(k.run({"filter", "umbenennen", "1", "Englisch (UK)"}).code, 0);
    EXPECT_EQ(k.run({"filter", "liste"}).aus, "1\tEnglisch (UK)\n");

    const std::string ziel = k.tmp / "ziel";
    std::filesystem::create_directory(ziel);
    ASSERT_EQ(k.run({"filter", "aktiv", "box", "1"}).code, 0);
    ASSERT_EQ(k.run({"exportieren", std::to_string(k.box), ziel}).code, 0);
    EXPECT_EQ(namenIn(ziel + "/4711.box"), "Keep case;Crime;");
    EXPECT_EQ(k.run({"xml", "box", std::to_string(k.box)}).aus.find("Keep case"),
              std::string::npos);
    ASSERT_EQ(k.run({"filter", "aktiv", "xml", "1"}).code, 0);
    EXPECT_NE(k.run({"xml", "box", std::to_string(k.box)}).aus.find("Verpackungstyp=\"Keep case\""),
              std::string::npos);
    EXPECT_EQ(k.run({"filter", "aktiv", "xml", "5"}).code, 2);

    EXPECT_TRUE(
        meldet(k.run({"filter", "loeschen", "1"}), 1,
               "L\xC3\xB6schen: Filter \"Englisch (UK)\" wirklich l\xC3\xB6schen? -> Nein"));
    EXPECT_EQ(k.run({"--ja", "filter", "loeschen", "1"}).code, 0);
    EXPECT_EQ(k.run({"filter", "liste"}).aus, "");
    // The deleted filter no longer translates.
    ASSERT_EQ(k.run({"--ja", "exportieren", std::to_string(k.box), ziel}).code, 0);
    EXPECT_EQ(namenIn(ziel + "/4711.box"), "Amaray;Krimi;");
}
