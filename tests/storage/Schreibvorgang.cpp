// All-or-nothing write operations: what an operation writes is seen inside it,
// reaches the files byte for byte as without it, or not at all; a journal left
// by a writer that died puts the files back; one writer at a time.

#include "storage/Schreibvorgang.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "storage/Journal.h"
#include "storage/Satzarten.h"
#include "tests/storage/Umgebung.h"
#include "tests/support/FehlerDateisystem.h"

namespace dv::test {
namespace {

constexpr unsigned G = Tabelle1::kGroesse;

// A mix of appends, slot reuse, updates and removes, with a side file, reading
// its own writes as it goes. Returns false at the first surprise.
bool arbeite(SpeicherUmgebung& u, const std::string& seitenOrdner) {
    Tabelle1 t(u, "Genre");
    Tabelle2 l(u, "DVD_Film");
    if (!t.create() || !l.create()) return false;
    const long a = t.insert("Drama"), b = t.insert("Komödie"), c = t.insert("Western");
    if (a <= 0 || !t.remove(b, true)) return false;
    if (t.insert("Krimi") != b) return false;  // the freed slot is reused at once
    if (!t.update(c, "Spätwestern") || l.insert(a, c, 1) <= 0 || l.insert(b, c, 2) <= 0)
        return false;
    auto krimi = t.eine(b);
    if (!krimi || std::string(Tabelle1::zeile(krimi.get()).cpText) != "Krimi") return false;
    Zeile2 beispiel{};
    beispiel.Objekt1_Id = static_cast<std::int32_t>(c);
    if (listenLaenge(l.liste(beispiel).get()) != 2) return false;
    Dateisystem& fs = *u.fs;
    if (!schreibeSicher(fs, seitenOrdner + "3_1.txt", "Tag\r\n")) return false;
    std::string gelesen;
    if (!leseAlles(fs, seitenOrdner + "3_1.txt", gelesen) || gelesen != "Tag\r\n") return false;
    if (!fs.loesche(seitenOrdner + "alt.txt") || fs.existiert(seitenOrdner + "alt.txt"))
        return false;
    for (const OrdnerEintrag& e : fs.liste(seitenOrdner))
        if (e.name == "alt.txt" || e.name == "3_1.txt.tmp") return false;
    return true;
}

struct Stand {
    std::string genre, links, tag, alt;
    bool journal = false;
    bool operator==(const Stand&) const = default;
};

class Vorgaenge : public ::testing::Test {
  protected:
    FehlerDateisystem fs;
    Umgebung env{fs};
    TempOrdner seiten;

    void SetUp() override {
        env.u.begleitOrdner = {seiten.pfad()};
        Tabelle1 t(env.u, "Genre");
        ASSERT_TRUE(t.create());
        for (const char* s : {"Action", "Doku"}) ASSERT_GT(t.insert(s), 0);
        schreibeDatei(seiten / "alt.txt", "alter Tag\r\n");
    }
    void TearDown() override { std::remove(journal().c_str()); }
    std::string journal() const { return journalPfad(env.u.datenOrdner); }
    Stand stand() const {
        return {env.datei("Genre"), env.datei("DVD_Film"), leseDatei(seiten / "3_1.txt"),
                leseDatei(seiten / "alt.txt"), journalOffen(echtesDateisystem(), journal())};
    }
    // The same work without any operation around it, on a copy of the start.
    Stand ohneVorgang() {
        TempOrdner daten, seiten2;
        schreibeDatei(daten / "Genre.dat", env.datei("Genre"));
        schreibeDatei(seiten2 / "alt.txt", leseDatei(seiten / "alt.txt"));
        SpeicherUmgebung u;
        u.datenOrdner = daten.pfad();
        EXPECT_TRUE(arbeite(u, seiten2.pfad()));
        return {leseDatei(daten / "Genre.dat"), leseDatei(daten / "DVD_Film.dat"),
                leseDatei(seiten2 / "3_1.txt"), leseDatei(seiten2 / "alt.txt"), false};
    }
};

TEST_F(Vorgaenge, ChangesStayInsideUntilTheEndAndThenMatchDirectWrites) {
    const Stand vorher = stand();
    const Stand erwartet = ohneVorgang();
    const int davor = fs.schreibvorgaenge;
    {
        Schreibvorgang v(env.u);
        ASSERT_TRUE(v.offen());
        {
            Schreibvorgang innen(env.u);  // a domain operation inside a service's one
            ASSERT_TRUE(arbeite(env.u, seiten.pfad()));
            EXPECT_TRUE(innen.abschliessen());
        }
        EXPECT_EQ(stand(), vorher);  // nothing reached a file yet
        EXPECT_EQ(fs.schreibvorgaenge, davor);
        EXPECT_TRUE(v.abschliessen());
    }
    EXPECT_EQ(stand(), erwartet);
    EXPECT_EQ(env.u.fs, &fs);
}

TEST_F(Vorgaenge, ThrownAwayOperationLeavesFilesAndTablesUsable) {
    const Stand vorher = stand();
    Tabelle1 t(env.u, "Genre");
    {
        Schreibvorgang v(env.u);
        ASSERT_TRUE(arbeite(env.u, seiten.pfad()));
        ASSERT_TRUE(t.remove(2, true));  // this table object now believes slot 2 is free
        Schreibvorgang innen(env.u);
        innen.verwerfen();
        EXPECT_FALSE(innen.abschliessen());
        EXPECT_FALSE(v.abschliessen());
    }
    EXPECT_EQ(stand(), vorher);
    // Slot 2 is live again on disk: the table must neither refuse it nor reuse it.
    EXPECT_TRUE(t.update(2, "Dokumentation"));
    EXPECT_EQ(t.insert("Neu"), 3);
}

// The end of an operation fails at its k-th write, for every k: the journal, the
// files or the journal's mark. Torn writes leave half their bytes. Afterwards the
// files are as the result says (a failed mark is made good by removing the
// journal), or a journal remains that the next start rolls back.
TEST_F(Vorgaenge, FailingAtEveryWriteOfTheEndLeavesTheFormerFiles) {
    const Stand vorher = stand();
    auto zumAnfang = [&] {
        schreibeDatei(env.daten / "Genre.dat", vorher.genre);
        std::remove((env.daten / "DVD_Film.dat").c_str());
        std::remove((seiten / "3_1.txt").c_str());
        schreibeDatei(seiten / "alt.txt", vorher.alt);
    };
    int schreibvorgaenge = 0;
    {
        Schreibvorgang v(env.u);
        ASSERT_TRUE(arbeite(env.u, seiten.pfad()));
        const int davor = fs.schreibvorgaenge;
        ASSERT_TRUE(v.abschliessen());
        schreibvorgaenge = fs.schreibvorgaenge - davor;
    }
    const Stand nachher = stand();
    ASSERT_GE(schreibvorgaenge, 4);
    int gescheitert = 0;
    for (int k = 1; k <= schreibvorgaenge; ++k) {
        SCOPED_TRACE("Schreibvorgang " + std::to_string(k));
        zumAnfang();
        fs.schreibvorgaenge = 0;
        fs.zerreissen = true;
        bool ganz = false;
        {
            Schreibvorgang v(env.u);
            ASSERT_TRUE(arbeite(env.u, seiten.pfad()));
            fs.scheitereAbSchreibvorgang = fs.schreibvorgaenge + k;
            ganz = v.abschliessen();
        }
        fs.scheitereAbSchreibvorgang = 0;
        if (stand().journal) {
            EXPECT_EQ(stelleWiederHer(env.u), Wiederherstellung::Zurueckgenommen);
        }
        Stand s = stand();
        if (!ganz) s.links = vorher.links;  // a table file made by create() may stay, empty
        EXPECT_EQ(s, ganz ? nachher : vorher);
        gescheitert += !ganz;
    }
    EXPECT_GE(gescheitert, schreibvorgaenge - 1);
    zumAnfang();
    Schreibvorgang v(env.u);
    ASSERT_TRUE(arbeite(env.u, seiten.pfad()));
    EXPECT_TRUE(v.abschliessen());
    EXPECT_EQ(stand(), nachher);
}

TEST_F(Vorgaenge, RecoveryRollsBackWholeJournalsAndDropsTornOnes) {
    const Stand vorher = stand();
    std::string journalBytes;
    {
        // Every write from the first file on fails, the rollback's too: the
        // journal is all that is left of the operation, as after a crash.
        Schreibvorgang v(env.u);
        ASSERT_TRUE(arbeite(env.u, seiten.pfad()));
        fs.scheitereAbSchreibvorgang = fs.schreibvorgaenge + 2;
        EXPECT_FALSE(v.abschliessen());
        fs.scheitereAbSchreibvorgang = 0;
    }
    ASSERT_TRUE(stand().journal);
    journalBytes = leseDatei(journal());
    std::vector<Wiederherstellung> gemeldet;
    env.u.beiWiederherstellung = [&](Wiederherstellung w) { gemeldet.push_back(w); };
    EXPECT_EQ(stelleWiederHer(env.u), Wiederherstellung::Zurueckgenommen);
    Stand s = stand();
    s.links = vorher.links;
    EXPECT_EQ(s, vorher);
    EXPECT_EQ(stelleWiederHer(env.u), Wiederherstellung::Nichts);

    // Any cut or changed byte makes the journal unusable: dropped, files untouched.
    // Bytes a longer journal left behind it do not count; an empty file is none.
    std::vector<JournalEintrag> e;
    ASSERT_TRUE(entpackeJournal(journalBytes, e));
    const std::string rest(journalBytes.size(), 'x');
    for (std::size_t n : {std::size_t{9}, journalBytes.size() / 2, journalBytes.size() - 1}) {
        EXPECT_FALSE(entpackeJournal(journalBytes.substr(0, n), e));
        schreibeDatei(journal(), journalBytes.substr(0, n));
        EXPECT_EQ(stelleWiederHer(env.u), Wiederherstellung::Verworfen);
        EXPECT_EQ(stand(), s);
        schreibeDatei(journal(), journalBytes.substr(0, n) + rest.substr(n));
        EXPECT_EQ(stelleWiederHer(env.u), Wiederherstellung::Verworfen);
    }
    schreibeDatei(journal(), "");
    EXPECT_EQ(stelleWiederHer(env.u), Wiederherstellung::Nichts);
    std::string kaputt = journalBytes;
    kaputt[kaputt.size() / 3] ^= 0x20;
    EXPECT_FALSE(entpackeJournal(kaputt, e));
    schreibeDatei(journal(), journalBytes + rest);
    EXPECT_EQ(stelleWiederHer(env.u), Wiederherstellung::Zurueckgenommen);
    EXPECT_EQ(gemeldet.size(), 8u);
    EXPECT_EQ(gemeldet.front(), Wiederherstellung::Zurueckgenommen);
}

TEST_F(Vorgaenge, OneWriterAtATimeAndTheOtherSeesItsChanges) {
    // Two writers on one folder, each with its own lock: as two processes are.
    auto sperreA = dateiSperre(env.log / "Schreibsperre.lock");
    auto sperreB = dateiSperre(env.log / "Schreibsperre.lock");
    Umgebung zweite;
    SpeicherUmgebung& a = env.u;
    SpeicherUmgebung& b = zweite.u;
    b.datenOrdner = a.datenOrdner;
    a.sperre = sperreA.get();
    b.sperre = sperreB.get();
    a.sperreWartenMs = b.sperreWartenMs = 50;
    Tabelle1 ta(a, "Genre"), tb(b, "Genre");
    {
        Schreibvorgang va(a);
        ASSERT_TRUE(va.offen());
        ASSERT_TRUE(ta.remove(2, true));
        Schreibvorgang vb(b);
        EXPECT_FALSE(vb.offen());
        EXPECT_EQ(vb.hindernis(), Hindernis::AndererSchreiber);
        tb.update(1, "vom zweiten");
        EXPECT_FALSE(vb.abschliessen());
        EXPECT_TRUE(va.abschliessen());
    }
    EXPECT_NE(env.datei("Genre").find("Action"), std::string::npos);
    {
        Schreibvorgang vb(b);
        ASSERT_TRUE(vb.offen());
        EXPECT_EQ(tb.insert("Thriller"), 2);  // b reads the free slot from the file
        EXPECT_TRUE(vb.abschliessen());
    }
    // a still remembers slot 2 as free; the lock's counter tells it otherwise.
    Schreibvorgang va(a);
    EXPECT_TRUE(ta.update(2, "Psychothriller"));
    EXPECT_EQ(ta.insert("Horror"), 3);
    EXPECT_TRUE(va.abschliessen());
}

}  // namespace
}  // namespace dv::test
