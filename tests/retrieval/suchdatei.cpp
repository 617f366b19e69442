// Search definition files: the bytes written, the rows read back, and damaged files.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

#include "retrieval/SuchDatei.h"
#include "retrieval/Textformat.h"
#include "tests/retrieval/Katalogbau.h"
#include "tests/support/FehlerDateisystem.h"
#include "tests/support/TempOrdner.h"

using namespace dv;
using namespace dv::test;

namespace {

const std::string kKopf =
    "@V1.1\r\n# Suchobjekt\tKriterium\tOperator\tVerkn\xfcpfung\tSuchdaten\t\r\n";

struct Gelesen {
    SuchLaden ergebnis;
    std::vector<std::string> zeilen;  // "typ krit op comb [data]"
    std::vector<Gezeigt> meldungen;
};

std::string text(const KriterienListe& l) {
    std::string s;
    for (const SearchCriterion* k = l.kopf(); k; k = k->next) {
        s += std::to_string(k->objectType) + " " + std::to_string(k->criterion) + " " +
             std::to_string(k->op) + " " + std::to_string(k->combination) + " [" + k->data + "]";
        s += k->partner ? "*" : "";
        s += "\n";
    }
    return s;
}

std::string lade(const std::string& inhalt, SuchLaden* ergebnis = nullptr,
                 FakeBenutzer* benutzer = nullptr) {
    TempOrdner tmp;
    schreibeDatei(tmp / "s.asc", inhalt);
    FakeBenutzer eigener;
    KriterienListe ziel = kriterien({{1, 1, 1, 2, "bisher"}});
    const SuchLaden e =
        ladeSuche(echtesDateisystem(), tmp / "s.asc", benutzer ? *benutzer : eigener, ziel);
    if (ergebnis) *ergebnis = e;
    return text(ziel);
}

}  // namespace

TEST(SuchDatei, SchreibtDieZeilenNormalisiertMitCrLf) {
    TempOrdner tmp;
    KriterienListe l = kriterien({{3, 4, kOpGroesserGleich, kVerknuepfungOder, "2000"},
                                  {3, 7, kOpKleinerGleich, 2, "Deutsch"},
                                  {3, 8, kOpGleich, kVerknuepfungPaar, "DTS"},
                                  {2, 1, kOpGleich, 2, ""}});
    ASSERT_TRUE(speichereSuche(echtesDateisystem(), tmp / "Suche.asc", l));
    EXPECT_EQ(leseDatei(tmp / "Suche.asc"), kKopf +
                                                "3\t4\t4\t2\t2000\t\r\n"
                                                "3\t7\t1\t2\tDeutsch\t\r\n"
                                                "3\t8\t1\t1\tDTS\t\r\n"
                                                "3\t1\t1\t2\t\r\n");

    // Reading it back: the row without data is skipped, the pair comes back.
    FakeBenutzer b;
    KriterienListe ziel;
    EXPECT_EQ(ladeSuche(echtesDateisystem(), tmp / "Suche.asc", b, ziel), SuchLaden::Geladen);
    EXPECT_EQ(text(ziel), "3 4 4 2 [2000]\n3 7 1 2 [Deutsch]*\n3 8 1 1 [DTS]*\n");
    EXPECT_TRUE(b.meldungen.empty());

    KriterienListe leer;
    EXPECT_FALSE(speichereSuche(echtesDateisystem(), tmp / "leer.asc", leer));
    EXPECT_FALSE(gibtEs(tmp / "leer.asc"));
}

// A file's content, the rows it yields (on failure the list keeps its row
// "bisher") and the result.
TEST(SuchDatei, InhaltUndGeleseneZeilen) {
    const std::string alien = "3 1 1 2 [Alien]\n", bisher = "1 1 1 2 [bisher]\n";
    const char mitNul[] = "3\t1\t1\t2\tA\0B\t\n3\t1\t1\t2\tC\t\n";
    using L = SuchLaden;
    const struct {
        std::string inhalt, zeilen;
        SuchLaden ergebnis;
    } faelle[] = {
        // Plain LF ends are what text mode gives too; no version line is accepted.
        {"3\t1\t1\t3\tAlien\t\n", alien, L::Geladen},
        {"@V1.1\n3\t1\t1\t2\tAlien\t", alien, L::Geladen},
        {"@V1.1\r\n3\t1\t1\t2\tAlien\t\r\n", alien, L::Geladen},
        {"@X\n3\t1\t1\t2\tAlien\t\n", alien, L::Geladen},  // no version line
        // The version is compared with its line end: a last line without one fails,
        // and so does a lone CR (text mode leaves it in place).
        {"3\t1\t1\t2\tAlien\t\n@V1.1", bisher, L::Versionsfehler},
        {"@V1.1\r3\t1\t1\t2\tAlien\t\n", bisher, L::Versionsfehler},
        {"@V1.1 \n3\t1\t1\t2\tAlien\t\n", bisher, L::Versionsfehler},
        {"# nur Kommentar\n\n", bisher, L::KeineZeilen},
        {kKopf + "3\t1\t1\t2\t\t\n"           // empty data
                 "3\t1\t1\t2\tohneTab\n"      // no tab after the data
                 "3\t1\t1\tAlien\t\n"         // a number missing
                 "3\t-1\t1\t2\tAlien\t\n"     // negative
                 "3 1 1 2 Alien\n"            // blanks instead of tabs
                 "x\t1\ty\t2\tAlien\tRest\n"  // non-numeric reads as 0; data cut at the tab
                 "3\t1\t1\t2\tab\tcd\t\n",
         "0 1 0 2 [Alien]\n0 1 1 2 [ab]\n", L::Geladen},
        // A huge number is clamped, not wrapped into a negative one.
        {"3\t99999999999\t1\t2\tA\t\n", "3 2147483647 1 2 [A]\n", L::Geladen},
        // 1,030 bytes: the first piece of 1,024 lacks the data's closing tab and is
        // skipped; the rest "abcdef\t\n" is no row either.
        {"3\t1\t1\t2\t" + std::string(1016, 'x') + "abcdef\t\n", bisher, L::KeineZeilen},
        // A long line whose second piece is a row of its own is read as that row.
        {std::string(1024, '#') + "3\t1\t1\t2\tZweites\t\n", "3 1 1 2 [Zweites]\n", L::Geladen},
        // A piece can end between CR and LF: the pair is still one line end.
        {std::string(1023, '#') + "\r\n3\t1\t1\t2\tNach\t\r\n", "3 1 1 2 [Nach]\n", L::Geladen},
        // NUL bytes end a piece's text.
        {std::string(mitNul, sizeof mitNul - 1), "3 1 1 2 [C]\n", L::Geladen},
        // CR and LF that fall into two blocks of the reader are still one line end.
        {std::string(65535, '#') + "\r\n3\t1\t1\t2\tBlock\t\r\n", "3 1 1 2 [Block]\n", L::Geladen},
    };
    for (std::size_t i = 0; i < std::size(faelle); ++i) {
        SCOPED_TRACE(i);
        SuchLaden e = L::NichtLesbar;
        EXPECT_EQ(lade(faelle[i].inhalt, &e), faelle[i].zeilen);
        EXPECT_EQ(e, faelle[i].ergebnis);
    }
}

TEST(SuchDatei, FremdeVersionWirdGemeldet) {
    SuchLaden e;
    FakeBenutzer b;
    EXPECT_EQ(lade("3\t1\t1\t2\tAlien\t\n@V1.0\r\n3\t1\t1\t2\tBrazil\t\n", &e, &b),
              "1 1 1 2 [bisher]\n");
    EXPECT_EQ(e, SuchLaden::Versionsfehler);
    ASSERT_EQ(b.meldungen.size(), 1u);
    EXPECT_EQ(b.meldungen[0].titel, "Versionsfehler");
    EXPECT_EQ(b.meldungen[0].text, "IST-Version:\tV1.0\rSOLL-Version:\tV1.1");
    EXPECT_EQ(b.meldungen[0].symbol, Symbol::Fehler);
}

TEST(SuchDatei, DateiFehlerBleibenStill) {
    TempOrdner tmp;
    FakeBenutzer b;
    KriterienListe ziel = kriterien({{1, 1, 1, 2, "bisher"}});
    EXPECT_EQ(ladeSuche(echtesDateisystem(), tmp / "fehlt.asc", b, ziel), SuchLaden::NichtLesbar);
    EXPECT_EQ(ziel.anzahl(), 1u);
    EXPECT_TRUE(b.meldungen.empty());

    // A write that fails halfway leaves the previous file whole.
    schreibeDatei(tmp / "s.asc", "alt");
    FehlerDateisystem fs;
    fs.scheitereAbSchreibvorgang = 1;
    fs.zerreissen = true;
    KriterienListe l = kriterien({{3, 1, 1, 2, "Alien"}});
    EXPECT_FALSE(speichereSuche(fs, tmp / "s.asc", l));
    EXPECT_EQ(leseDatei(tmp / "s.asc"), "alt");
}

TEST(SuchDatei, UeberschreibenNurNachFrage) {
    TempOrdner tmp;
    FakeBenutzer b;
    EXPECT_TRUE(darfUeberschreiben(echtesDateisystem(), b, tmp / "neu.asc"));
    EXPECT_TRUE(b.fragen.empty());
    schreibeDatei(tmp / "da.asc", "x");
    b.antworten = {false, true};
    EXPECT_FALSE(darfUeberschreiben(echtesDateisystem(), b, tmp / "da.asc"));
    EXPECT_TRUE(darfUeberschreiben(echtesDateisystem(), b, tmp / "da.asc"));
    ASSERT_EQ(b.fragen.size(), 2u);
    EXPECT_EQ(b.fragen[0].titel, "Warnung");
    EXPECT_EQ(b.fragen[0].text,
              "Die Datei existiert bereits.\n\xdc"
              "berschreiben?");
}

TEST(Textformat, ZahlenWieAtoi) {
    EXPECT_EQ(alsZahl(" 42abc"), 42);
    EXPECT_EQ(alsZahl("-7"), -7);
    EXPECT_EQ(alsZahl("+3"), 3);
    EXPECT_EQ(alsZahl("abc"), 0);
    EXPECT_EQ(alsZahl(""), 0);
    EXPECT_EQ(alsZahl("-99999999999"), INT32_MIN);
    EXPECT_EQ(alsZahlLang("4294967295"), 4294967295LL);
    EXPECT_EQ(alsZahlLang(std::string(40, '9')), LLONG_MAX);
}
