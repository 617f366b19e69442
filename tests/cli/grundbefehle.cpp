// dorvano-cli as a whole process: init, version, the global options and exit codes.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <vector>

#include "base/Zeichensatz.h"
#include "tests/cli/CliProgramm.h"

using namespace dv::test;

namespace {

int anzahlDateien(const std::string& ordner) {
    int n = 0;
    for (const auto& e : std::filesystem::directory_iterator(ordner)) n += e.is_regular_file();
    return n;
}

// The command names a help text lists: lines of two blanks and a lower-case word.
std::vector<std::string> befehleDerHilfe(const std::string& hilfe) {
    std::vector<std::string> namen;
    std::istringstream zeilen(hilfe);
    for (std::string z; std::getline(zeilen, z);)
        if (z.size() > 2 && z.compare(0, 2, "  ") == 0 && z[2] >= 'a' && z[2] <= 'z')
            namen.push_back(z.substr(2, z.find(' ', 2) - 2));
    return namen;
}

}  // namespace

// Every help text, down to the subcommands, reaches the terminal as UTF-8 that
// the catalogue's code page can hold: no 8-bit text slipped through unconverted.
TEST(CliGrundbefehle, JedeHilfeIstUtf8) {
    TempOrdner tmp;
    std::vector<std::vector<std::string>> offen{{}};
    int gesehen = 0;
    while (!offen.empty()) {
        std::vector<std::string> pfad = offen.back();
        offen.pop_back();
        std::vector<std::string> args = pfad;
        args.push_back("--help");
        const Lauf lauf = cli(args, tmp / "cfg");
        ASSERT_EQ(lauf.code, 0) << lauf.err;
        std::string cp1252;
        EXPECT_TRUE(dv::utf8NachCp1252(lauf.aus, cp1252)) << lauf.aus;
        EXPECT_TRUE(!pfad.empty() || lauf.aus.find("Aufruf: dorvano-cli") != std::string::npos);
        ++gesehen;
        if (pfad.size() < 2)
            for (const std::string& b : befehleDerHilfe(lauf.aus)) {
                offen.push_back(pfad);
                offen.back().push_back(b);
            }
    }
    EXPECT_GT(gesehen, 40);
}

TEST(CliGrundbefehle, InitLegtTabellenUndOrdnerAn) {
    CliProgramm p;
    const Lauf lauf = p.run({"init"});
    EXPECT_EQ(lauf.code, 0) << lauf.err;
    EXPECT_EQ(lauf.aus, "4.0.0.1 - 20070406\n");
    EXPECT_EQ(anzahlDateien(p.basis + "Daten"), 32);
    for (const char* o : {"Daten", "Cover", "Kommentar", "Inhalt", "Reste", "Meldungen", "Vorlagen",
                          "Tags", "Backups", "Updates", "Ocl"})
        EXPECT_TRUE(std::filesystem::is_directory(p.basis + o)) << o;
    // The settings store is not created by a run that only reads.
    EXPECT_FALSE(gibtEs(p.tmp / "cfg/Tormel/DORVANO.conf"));

    // A second run changes nothing: still one "Darsteller", same files.
    const std::string funktionen = leseDatei(p.basis + "Daten/Funktion.dat");
    EXPECT_EQ(p.run({"init"}).code, 0);
    EXPECT_EQ(leseDatei(p.basis + "Daten/Funktion.dat"), funktionen);
    EXPECT_EQ(funktionen.size(), 2u * 132u);
}

TEST(CliGrundbefehle, BasisAusUmgebungUndVersionszeilen) {
    TempOrdner tmp;
    const Lauf lauf =
        fuehreAus(std::string(DORVANO_BIN_DIR) + "/dorvano-cli", {"version"}, "",
                  {"XDG_CONFIG_HOME=" + (tmp / "cfg"), "DORVANO_BASIS=" + (tmp / "env")});
    EXPECT_EQ(lauf.code, 0) << lauf.err;
    EXPECT_EQ(lauf.aus, "Ist  : 4.0.0.1 - 20070406\nSoll : 4.0.0.1 - 20070406\n");
    EXPECT_TRUE(gibtEs(tmp / "env/Daten/DatenVersion.dat"));
    EXPECT_TRUE(gibtEs(tmp / "env/Meldungen/datenversion.log"));
}

TEST(CliGrundbefehle, FremdeDatenversionEndetMitCode3) {
    CliProgramm p;
    ASSERT_EQ(p.run({"init"}).code, 0);
    // Slot 1 of the version table: live id word, then 3.9.0.0 and a date.
    std::string satz(28, '\0');
    const unsigned char kopf[] = {1, 0, 0, 0x80, 3, 0, 0, 0, 9, 0, 0, 0};
    satz.replace(0, sizeof kopf, reinterpret_cast<const char*>(kopf), sizeof kopf);
    satz.replace(20, 8, "20010101");
    schreibeDatei(p.basis + "Daten/DatenVersion.dat", satz);

    EXPECT_TRUE(meldet(p.run({"init"}), 3,
                       "### Falsche Datenversion ###: Die Datenversion ist inkompatibel\nIST\t: "
                       "3.9.0.0 - 20010101\nSOLL\t: 4.0.0.1 - 20070406"));
    EXPECT_NE(
        leseDatei(p.basis + "Meldungen/datenversion.log").find("### Falsche Datenversion entdeckt"),
        std::string::npos);

    const Lauf version = p.run({"version"});
    EXPECT_EQ(version.code, 3);
    EXPECT_EQ(version.aus, "Ist  : 3.9.0.0 - 20010101\nSoll : 4.0.0.1 - 20070406\n");
}

TEST(CliGrundbefehle, FalscheAufrufeUndUnbrauchbarerOrdner) {
    CliProgramm p;
    EXPECT_TRUE(meldet(p.run({"gibtsnicht"}), 2, "Falscher Aufruf"));
    const Lauf lauf = p.run({"init", "\xCE\xA9"});  // Ω
    EXPECT_EQ(lauf.code, 2);
    EXPECT_EQ(lauf.err, "Zeichen nicht darstellbar: \xCE\xA9\n");
    EXPECT_EQ(p.run({"--trace", "zwei", "init"}).code, 2);

    // A program folder below a plain file cannot be created.
    schreibeDatei(p.tmp / "datei", "x");
    EXPECT_TRUE(meldet(cli({"--basis", p.tmp / "datei/unter", "init"}, p.tmp / "cfg"), 1,
                       "kann nicht angelegt werden."));
}

TEST(CliGrundbefehle, TraceMaskeSchreibtZelkaLog) {
    CliProgramm p, ohne;
    ASSERT_EQ(p.run({"--trace", "2", "init"}).code, 0);
    const std::string log = leseDatei(p.basis + "zelka.log");
    EXPECT_NE(log.find(">: Datenbank erzeugen\n"), std::string::npos);
    EXPECT_NE(log.find("inserted cpText [Darsteller] into Funktion"), std::string::npos);
    ASSERT_EQ(ohne.run({"init"}).code, 0);
    EXPECT_FALSE(gibtEs(ohne.basis + "zelka.log"));
}
