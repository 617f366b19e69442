// Side files, list sorting, the file-name sanitiser, date stamps, size units,
// the clipboard copy, the code page and the folder layout.

#include "base/Hilfen.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/Ordner.h"
#include "base/Protokoll.h"
#include "base/Zeichensatz.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/FehlerDateisystem.h"
#include "tests/support/FesteUhr.h"
#include "tests/support/TempOrdner.h"

namespace dv::test {
namespace {

// A box element as the domain's lists carry it: a title and the two links.
struct BoxEl {
    const char* titel;
    BoxEl* pPrev;
    BoxEl* pNext;
};

int vergleicheBoxEl(const void* a, const void* b) {
    return vergleicheBoxTitel((*static_cast<BoxEl* const*>(a))->titel,
                              (*static_cast<BoxEl* const*>(b))->titel);
}

std::vector<std::string> sortiereTitel(std::vector<const char*> titel, const Trace& trace) {
    std::vector<BoxEl> el(titel.size());
    for (std::size_t i = 0; i < el.size(); ++i) {
        el[i].titel = titel[i];
        el[i].pPrev = i ? &el[i - 1] : nullptr;
        el[i].pNext = i + 1 < el.size() ? &el[i + 1] : nullptr;
    }
    // Any element will do: the sort walks back to the first.
    BoxEl* kopf =
        sortiereListe(&el[el.size() / 2], vergleicheBoxEl, trace, "CApplikation::sortBoxListe");
    std::vector<std::string> out;
    const BoxEl* vorher = nullptr;
    for (BoxEl* e = kopf; e; e = e->pNext) {
        EXPECT_EQ(e->pPrev, vorher);
        vorher = e;
        out.push_back(e->titel);
    }
    EXPECT_EQ(out.size(), titel.size());
    return out;
}

using V = std::vector<std::string>;

TEST(Sortieren, UmlautsAreTranscribedAndCaseIgnored) {
    KeinTrace still;
    EXPECT_EQ(sortiereTitel({"Affe", "Ärger", "Adler"}, still), (V{"Adler", "Ärger", "Affe"}));
    EXPECT_EQ(sortiereTitel({"Vogel", "über", "Tal"}, still), (V{"Tal", "über", "Vogel"}));
    EXPECT_EQ(sortiereTitel({"beta", "ALPHA", "Gamma", "delta"}, still),
              (V{"ALPHA", "beta", "delta", "Gamma"}));
    EXPECT_EQ(vergleicheBoxTitel("adler", "ADLER"), 0);
    EXPECT_EQ(vergleicheBoxTitel("Straße", "STRASSE"), 0);
    EXPECT_EQ(vergleicheBoxTitel("Öl", "oel"), 0);
    EXPECT_EQ(vergleicheBoxTitel("Élan", "élan"), 0);
    EXPECT_LT(vergleicheBoxTitel("Ab", "Abc"), 0);
    EXPECT_GT(vergleicheBoxTitel("b", nullptr), 0);
    EXPECT_EQ(umlauteUmschreiben("ÄÖÜäöüß!"), "AeOeUeaeoeuess!");
}

TEST(Sortieren, PointerArrayIsTraced) {
    TempOrdner tmp;
    Protokoll p;
    p.setzeLogPfad(tmp / "t.log");
    p.setzeMaske(kTraceSpeicher);
    sortiereTitel({"b", "a"}, p);
    const std::string log = leseDatei(tmp / "t.log");
    const auto m = log.find("[malloc] pArray = [");
    const auto f = log.find("[free] pArray = [");
    ASSERT_NE(m, std::string::npos);
    ASSERT_NE(f, std::string::npos);
    EXPECT_LT(m, f);
    EXPECT_NE(log.find("] {CApplikation::sortBoxListe}\n"), std::string::npos);
    // The same address in both lines.
    EXPECT_EQ(log.substr(m + 19, 8), log.substr(f + 17, 8));
}

TEST(Sortieren, NodesByTheirSixteenBitValueAsUnsigned) {
    KeinTrace still;
    std::vector<ListenElement> n(5);
    const std::uint16_t werte[5] = {300, 65535, 1, 5, 32768};
    for (std::size_t i = 0; i < n.size(); ++i) {
        n[i] = ListenElement{};
        n[i].sWert = werte[i];
        n[i].pPrev = i ? &n[i - 1] : nullptr;
        n[i].pNext = i + 1 < n.size() ? &n[i + 1] : nullptr;
    }
    ListenElement* kopf = sortUrObjektListe(&n[4], still);
    std::vector<int> gesehen;
    for (ListenElement* e = kopf; e; e = e->pNext) gesehen.push_back(e->sWert);
    EXPECT_EQ(gesehen, (std::vector<int>{1, 5, 300, 32768, 65535}));
    EXPECT_EQ(kopf->pPrev, nullptr);

    // One element comes back unchanged, and null stays null.
    ListenElement eins{};
    eins.sWert = 7;
    EXPECT_EQ(sortUrObjektListe(&eins, still), &eins);
    EXPECT_EQ(eins.pPrev, nullptr);
    EXPECT_EQ(eins.pNext, nullptr);
    EXPECT_EQ(sortUrObjektListe(nullptr, still), nullptr);
}

TEST(Dateiname, ForbiddenCharactersBecomeUnderscores) {
    const std::pair<std::string, std::string> faelle[] = {
        {"a/b:c?.txt", "a_b_c__txt"},
        {"\\/:*?.,'\"<>|", std::string(12, '_')},
        {"Über-Box (1) & Co; 100%", "Über-Box (1) & Co; 100%"},
        {std::string("a\0b.", 4), std::string("a\0b_", 4)}};
    for (auto [name, erwartet] : faelle) {
        bereinigeDateiname(name);
        EXPECT_EQ(name, erwartet);
    }
}

TEST(Einheiten, SizeLabels) {
    const char* erwartet[] = {"> TB", "> TB", "Bytes", "KB", "MB", "GB", "TB", "> TB"};
    for (int i = -1; i <= 6; ++i) EXPECT_STREQ(groessenEinheit(i), erwartet[i + 1]) << i;
}

TEST(Datum, StampForms) {
    FesteUhr uhr(5, 3, 2007);
    EXPECT_EQ(datumsStempel(0), "050307");
    EXPECT_EQ(datumsStempel('.'), "05.03.07");
    EXPECT_EQ(datumsStempel(0, DatumsForm::Lang), "05032007");
    EXPECT_EQ(datumsStempel('-', DatumsForm::Lang), "05-03-2007");
    EXPECT_EQ(datumsStempel(0, DatumsForm::JahrInDerMitte), "05200703");
    EXPECT_EQ(datumsStempel('_', DatumsForm::JahrInDerMitte), "05_2007_03");
}

TEST(Seitendateien, PathsLifecycleAndIdsWithoutFile) {
    TempOrdner tmp;
    auto& fs = echtesDateisystem();
    EXPECT_EQ(seitenDateiPfad(tmp.pfad(), 42), tmp / "42.txt");
    EXPECT_FALSE(seitenDateiExistiert(fs, tmp.pfad(), 42));
    EXPECT_TRUE(schreibeSeitenDatei(fs, tmp.pfad(), 42, "Kommentar mit ü\r\nZeile 2"));
    EXPECT_TRUE(seitenDateiExistiert(fs, tmp.pfad(), 42));
    std::string t;
    EXPECT_TRUE(leseSeitenDatei(fs, tmp.pfad(), 42, t));
    EXPECT_EQ(t, "Kommentar mit ü\r\nZeile 2");
    // Writing an empty text removes the file.
    EXPECT_TRUE(schreibeSeitenDatei(fs, tmp.pfad(), 42, ""));
    EXPECT_FALSE(gibtEs(tmp / "42.txt"));
    EXPECT_FALSE(leseSeitenDatei(fs, tmp.pfad(), 42, t));
    EXPECT_EQ(t, "");
    EXPECT_FALSE(loescheSeitenDatei(fs, tmp.pfad(), 42));
    schreibeSeitenDatei(fs, tmp.pfad(), 7, "x");
    EXPECT_TRUE(loescheSeitenDatei(fs, tmp.pfad(), 7));
    EXPECT_FALSE(gibtEs(tmp / "7.txt"));

    // Ids of zero or less have none, whatever lies in the folder.
    schreibeDatei(tmp / "0.txt", "da");
    schreibeDatei(tmp / "-1.txt", "da");
    t = "x";
    for (long id : {0L, -1L}) {
        EXPECT_FALSE(seitenDateiExistiert(fs, tmp.pfad(), id));
        EXPECT_FALSE(loescheSeitenDatei(fs, tmp.pfad(), id));
        EXPECT_FALSE(leseSeitenDatei(fs, tmp.pfad(), id, t));
        EXPECT_FALSE(schreibeSeitenDatei(fs, tmp.pfad(), id, "neu"));
    }
    EXPECT_EQ(leseDatei(tmp / "0.txt"), "da");
    EXPECT_EQ(leseDatei(tmp / "-1.txt"), "da");
}

TEST(Seitendateien, FailedWriteKeepsThePreviousText) {
    TempOrdner tmp;
    FehlerDateisystem fs;
    ASSERT_TRUE(schreibeSeitenDatei(fs, tmp.pfad(), 3, "alt"));
    fs.zerreissen = true;
    fs.scheitereAbSchreibvorgang = fs.schreibvorgaenge + 1;
    EXPECT_FALSE(schreibeSeitenDatei(fs, tmp.pfad(), 3, "neuer Text"));
    EXPECT_EQ(leseDatei(tmp / "3.txt"), "alt");
    EXPECT_FALSE(gibtEs(tmp / "3.txt.tmp"));
    fs.sperre = "3.txt";
    EXPECT_FALSE(seitenDateiExistiert(fs, tmp.pfad(), 3));
}

TEST(Zwischenablage, CopiesAndConfirmsUnlessSilent) {
    FakeBenutzer b;
    EXPECT_TRUE(kopiereText(b, "Alien (1979)", false));
    ASSERT_EQ(b.meldungen.size(), 1u);
    EXPECT_EQ(b.meldungen[0].titel, "Zwischenablage");
    EXPECT_EQ(b.meldungen[0].text, "Der Text wurde kopiert.");
    EXPECT_EQ(b.meldungen[0].symbol, Symbol::Information);
    EXPECT_TRUE(kopiereText(b, "still", true));
    EXPECT_EQ(b.meldungen.size(), 1u);
    EXPECT_EQ(b.ablage, (V{"Alien (1979)", "still"}));
}

TEST(Zeichensatz, EveryByteSurvivesTheRoundTrip) {
    std::string alle(256, '\0');
    for (int i = 0; i < 256; ++i) alle[i] = static_cast<char>(i);
    const std::string utf8 = cp1252NachUtf8(alle);
    std::string zurueck;
    ASSERT_TRUE(utf8NachCp1252(utf8, zurueck));
    EXPECT_EQ(zurueck, alle);
    bool ok = false;
    EXPECT_EQ(ausQString(alsQString(alle), &ok), alle);
    EXPECT_TRUE(ok);
    EXPECT_EQ(alsQString(alle).size(), 256);
    EXPECT_EQ(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())),
              alsQString(alle));
}

TEST(Zeichensatz, KnownCharacters) {
    EXPECT_EQ(cp1252NachUtf8("\x80"), "\xE2\x82\xAC");          // €
    EXPECT_EQ(cp1252NachUtf8("\xE4\xDF"), "\xC3\xA4\xC3\x9F");  // ä ß
    EXPECT_EQ(alsQString("\x9F"), QString(QChar(0x0178)));      // Ÿ
    std::string out;
    ASSERT_TRUE(
        utf8NachCp1252("\xE2\x80\x9E"
                       "Zitat\xE2\x80\x9C",
                       out));  // „Zitat“
    EXPECT_EQ(out, "\x84Zitat\x93");
}

TEST(Zeichensatz, UnrepresentableAndInvalidInputIsRefused) {
    std::string out = "alt";
    EXPECT_FALSE(utf8NachCp1252("Pfeil \xE2\x86\x92", out));  // →
    EXPECT_FALSE(utf8NachCp1252("\xF0\x9F\x8E\xAC", out));    // a film clapper
    EXPECT_FALSE(utf8NachCp1252("\xC2\x80", out));            // U+0080 has no byte: 0x80 is €
    EXPECT_FALSE(utf8NachCp1252("\x80", out));                // lone continuation byte
    EXPECT_FALSE(utf8NachCp1252("\xC3", out));                // cut short
    EXPECT_FALSE(utf8NachCp1252("\xC0\xAF", out));            // overlong slash
    EXPECT_FALSE(utf8NachCp1252("\xE0\x80\x80", out));        // overlong NUL
    EXPECT_FALSE(utf8NachCp1252("\xF0\x82\x82\xAC", out));    // overlong €
    EXPECT_EQ(out, "alt");
    bool ok = true;
    EXPECT_EQ(ausQString(QString::fromUtf8("a\xE2\x86\x92"
                                           "b"),
                         &ok),
              "a?b");
    EXPECT_FALSE(ok);
    EXPECT_EQ(ausQString(QString::fromUtf8("\xF0\x9F\x8E\xAC!")), "?!");
}

TEST(Ordner, LayoutBelowTheProgramFolder) {
    Ordner o;
    EXPECT_EQ(o.daten, "C:\\Daten\\");
    EXPECT_EQ(o.kommentar, "C:\\Kommentare\\");
    TempOrdner tmp;
    o.setzeBasis(tmp / "prog");
    EXPECT_EQ(o.programm, tmp / "prog/");
    EXPECT_EQ(o.daten, tmp / "prog/Daten/");
    EXPECT_EQ(o.kommentar, tmp / "prog/Kommentar/");
    EXPECT_EQ(o.meldungen, tmp / "prog/Meldungen/");
    EXPECT_TRUE(o.legeAn(echtesDateisystem()));
    const V erwartet{"Backups", "Cover", "Daten", "Inhalt",  "Kommentar", "Meldungen",
                     "Ocl",     "Reste", "Tags",  "Updates", "Vorlagen"};
    V namen;
    for (const auto& e : echtesDateisystem().liste(o.programm)) {
        EXPECT_TRUE(e.istOrdner) << e.name;
        namen.push_back(e.name);
    }
    std::sort(namen.begin(), namen.end());
    EXPECT_EQ(namen, erwartet);
    EXPECT_TRUE(o.legeAn(echtesDateisystem()));  // a second time changes nothing
}

TEST(Ordner, AnUncreatableFolderIsReportedButTheRestIsMade) {
    TempOrdner tmp;
    FehlerDateisystem fs;
    fs.sperre = "Cover";
    Ordner o;
    o.setzeBasis(tmp.pfad());
    EXPECT_FALSE(o.legeAn(fs));
    EXPECT_TRUE(gibtEs(tmp / "Daten"));
    EXPECT_TRUE(gibtEs(tmp / "Ocl"));
    EXPECT_FALSE(gibtEs(tmp / "Cover"));
    EXPECT_EQ(mitTrenner("a"), "a/");
    EXPECT_EQ(mitTrenner("a/"), "a/");
    EXPECT_EQ(bestimmeProgrammOrdner("/opt/x", ""), "/opt/x/");
}

}  // namespace
}  // namespace dv::test
