// Export of all boxes and the import of several box files.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "tests/interchange/Austauschtest.h"
#include "tests/support/FehlerDateisystem.h"

using namespace dv;
using namespace dv::test;

namespace {

// Counts how often each table file is opened.
class ZaehlendesDateisystem : public FehlerDateisystem {
  public:
    std::map<std::string, int> oeffnungen;
    std::unique_ptr<Datei> oeffne(const std::string& pfad, OeffnenModus modus,
                                  int* fehler) override {
        if (pfad.size() > 4 && pfad.compare(pfad.size() - 4, 4, ".dat") == 0) ++oeffnungen[pfad];
        return FehlerDateisystem::oeffne(pfad, modus, fehler);
    }
    int hoechste() const {
        int h = 0;
        for (const auto& [p, n] : oeffnungen) h = std::max(h, n);
        return h;
    }
};

std::vector<std::string> dateienIn(const std::string& ordner) {
    std::vector<std::string> v;
    for (const auto& e : std::filesystem::directory_iterator(ordner))
        v.push_back(e.path().filename().string());
    std::sort(v.begin(), v.end());
    return v;
}

}  // namespace

TEST(StapelExport, FortschrittDateienUndNichtExportierte) {
    Austauschumgebung k;
    k.db->neueBox("111", "Abcdefghijklmnopqrstuvwxy", 0);   // 25 characters
    k.db->neueBox("222", "Bbcdefghijklmnopqrstuvwxyz", 0);  // 26
    const long kaputt = k.db->neueBox("333", "Cover kaputt", 0);
    schreibeDatei(k.ordner.cover + std::to_string(kaputt) + ".tif", "TIF");
    TempOrdner ziel;
    // Left by an export that was killed; the user's own file stays.
    schreibeDatei(ziel / "999.box.tmp", "halb");
    schreibeDatei(ziel / "notiz.tmp", "eigen");
    const StapelExportErgebnis r = k.austausch.exportiereAlle(ziel.pfad(), false);
    EXPECT_EQ(r.gesamt, 3);
    EXPECT_EQ(r.exportiert, 2);
    EXPECT_EQ(
        k.nutzer.fortschritte,
        (std::vector<std::string>{
            "Exportiere Box 1 von 3\r\n111.box\r\n{Abcdefghijklmnopqrstuvwxy}\r\nNicht exportierte "
            "Boxen: 0",
            "Exportiere Box 2 von 3\r\n222.box\r\n{Bbcdefghijklmnopqrstuvwxy...}\r\nNicht "
            "exportierte Boxen: 0",
            "Exportiere Box 3 von 3\r\n333.box\r\n{Cover kaputt}\r\nNicht exportierte Boxen: 0"}));
    EXPECT_EQ(k.nutzer.texte, std::vector<std::string>{"\"Cover kaputt\"\r\n"});
    EXPECT_EQ(dateienIn(ziel.pfad()),
              (std::vector<std::string>{"111.box", "222.box", "notiz.tmp"}));
    EXPECT_EQ(k.austausch.letzterExportOrdner(), ziel.pfad());
    EXPECT_EQ(exportFortschritt(1, 1, "9", "x", 4),
              "Exportiere Box 1 von 1\r\n9.box\r\n{x}\r\nNicht exportierte Boxen: 4");
}

TEST(StapelExport, SchreibfehlerWerdenGezaehltUndDieRundeLaeuftWeiter) {
    FehlerDateisystem fs;
    Austauschumgebung k(fs);
    const char* titel[] = {"Eins", "Zwei", "Drei"};
    for (int i = 0; i < 3; ++i) k.db->neueBox(std::to_string(i + 1), titel[i], 0);
    TempOrdner ziel;
    fs.sperre = ziel / "2.box";
    const StapelExportErgebnis r = k.austausch.exportiereAlle(ziel.pfad(), false);
    EXPECT_EQ(r.exportiert, 2);
    EXPECT_EQ(r.nichtExportiert, std::vector<std::string>{"Zwei"});
    EXPECT_EQ(dateienIn(ziel.pfad()), (std::vector<std::string>{"1.box", "3.box"}));
    // A folder that does not exist: every box is listed, nothing is written.
    k.nutzer.texte.clear();
    EXPECT_EQ(k.austausch.exportiereAlle(ziel / "fehlt/", false).exportiert, 0);
    EXPECT_EQ(k.nutzer.texte, std::vector<std::string>{"\"Drei\"\r\n\"Eins\"\r\n\"Zwei\"\r\n"});
}

TEST(StapelExport, LiestJedeTabelleNurBegrenztOft) {
    auto oeffnungen = [](int boxen) {
        ZaehlendesDateisystem fs;
        Austauschumgebung k(fs);
        for (int i = 0; i < boxen; ++i)
            legeBeispielBoxAn(*k.db, k.ordner, std::to_string(1000 + i));
        TempOrdner ziel;
        fs.oeffnungen.clear();
        EXPECT_EQ(k.austausch.exportiereAlle(ziel.pfad(), true).exportiert, boxen);
        return fs.hoechste();
    };
    const int zwei = oeffnungen(2);
    EXPECT_LE(zwei, 3);
    EXPECT_EQ(oeffnungen(6), zwei);
}

namespace {

struct StapelFall : Austauschumgebung {
    StapelFall() {
        for (const char* ean : {"10", "20", "30"}) {
            Kodierer c;
            c.zahl(0x81, 0, 2).text(0x10, std::string("Box ") + ean).text(0x11, ean).ende();
            pfade.push_back(basis / (std::string(ean) + ".box"));
            schreibeDatei(pfade.back(), boxDatei(c.daten));
        }
        schreibeDatei(pfade[1], "kaputt");
    }
    std::vector<StapelImportEintrag> los(bool mitInfo) {
        return austausch.stapelImport(pfade, mitInfo, ImportOptionen{});
    }
    std::vector<std::string> pfade;
};

}  // namespace

TEST(StapelImport, InfoAbfrageUndLoeschenDerDateien) {
    StapelFall f;
    f.nutzer.infoAntworten = {true, true, false};
    const auto r = f.los(true);
    ASSERT_EQ(r.size(), 3u);
    EXPECT_EQ(r[0].ergebnis, ImportErgebnis::Importiert);
    EXPECT_EQ(r[1].ergebnis, ImportErgebnis::KeineBoxDatei);
    EXPECT_TRUE(r[2].uebersprungen);
    EXPECT_EQ(f.anzahlBoxen(), 1);
    for (const auto& p : f.pfade) EXPECT_FALSE(gibtEs(p)) << p;  // all consumed, whatever happened
    EXPECT_TRUE(f.nutzer.fragen.empty());
    // The info shows each file's preview; the damaged one with empty fields.
    ASSERT_EQ(f.nutzer.infos.size(), 3u);
    EXPECT_EQ(f.nutzer.infos[1].second[0], (std::pair<std::string, std::string>{"Box-Titel:", ""}));
    EXPECT_EQ(f.nutzer.infos[0].first, "Import-Info");
    EXPECT_EQ(f.nutzer.infos[0].second, (std::vector<std::pair<std::string, std::string>>{
                                            {"Box-Titel:", "Box 10"},
                                            {"EAN:", "10"},
                                            {"Anzahl Dvds:", "0"},
                                            {"Exportiert am:", "05.04.2023 06:07:08"}}));
}

TEST(StapelImport, StrgFragtNeinLaeuftWeiterJaBehaeltDieDatei) {
    StapelFall f;
    f.nutzer.unterbrechungen = {false, true, false};
    f.nutzer.antworten = {false};
    const auto r = f.los(false);
    ASSERT_EQ(r.size(), 3u);
    ASSERT_EQ(f.nutzer.fragen.size(), 1u);
    EXPECT_EQ(f.nutzer.fragen[0].titel, "Import abbrechen");
    EXPECT_EQ(f.nutzer.fragen[0].text,
              "Importierte Boxen: 1\nNoch weitere Boxen: 1\nImport wirklich abbrechen?");
    EXPECT_EQ(f.anzahlBoxen(), 2);
    for (const auto& p : f.pfade) EXPECT_FALSE(gibtEs(p));

    // Yes ends the batch after the current file, which is kept.
    StapelFall g;
    g.nutzer.unterbrechungen = {true};
    g.nutzer.antworten = {true};
    const auto j = g.los(false);
    ASSERT_EQ(j.size(), 1u);
    EXPECT_TRUE(j[0].behalten);
    EXPECT_EQ(j[0].ergebnis, ImportErgebnis::Importiert);
    EXPECT_EQ(g.nutzer.fragen[0].text,
              "Importierte Boxen: 1\nNoch weitere Boxen: 2\nImport wirklich abbrechen?");
    for (const auto& p : g.pfade) EXPECT_TRUE(gibtEs(p));
    EXPECT_EQ(g.anzahlBoxen(), 1);
}
