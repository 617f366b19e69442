// The table file engine: slots, the liveness bit, free-slot reuse and the
// frame of insert, update, remove and select, checked on the bytes on disk.

#include <gtest/gtest.h>

#include "storage/Satzarten.h"
#include "tests/storage/Umgebung.h"
#include "tests/support/FehlerDateisystem.h"

namespace dv::test {
namespace {

constexpr unsigned G = Tabelle1::kGroesse;

class Engine : public ::testing::Test {
  protected:
    Umgebung env;
    Tabelle1 genre{env.u, "Genre"};

    void fuenfSaetze() {
        ASSERT_TRUE(genre.create());
        for (const char* t : {"Drama", "Krimi", "Western", "Horror", "Musical"})
            ASSERT_GT(genre.insert(t), 0);
    }
    std::string text(long id) {
        auto l = genre.eine(id);
        return l ? Tabelle1::zeile(l.get()).cpText : "<null>";
    }
};

TEST_F(Engine, MissingFileGivesNothingAndCreatesNothing) {
    EXPECT_EQ(genre.init(), 0);
    EXPECT_TRUE(genre.freieSlots().empty());
    EXPECT_EQ(genre.insert("Drama"), 0);
    EXPECT_FALSE(gibtEs(genre.pfad()));
    EXPECT_EQ(genre.select(1), nullptr);
    EXPECT_EQ(genre.selectAll(), nullptr);
    EXPECT_FALSE(genre.update(1, "x"));
}

TEST_F(Engine, EmptyFileStartsAtOneAndAppends) {
    ASSERT_TRUE(genre.create());
    EXPECT_EQ(genre.init(), 1);
    EXPECT_EQ(genre.insert("Drama"), 1);
    EXPECT_EQ(genre.insert("Krimi"), 2);
    EXPECT_EQ(env.datei("Genre"), Satz(1).text("Drama", G - 4).s + Satz(2).text("Krimi", G - 4).s);
}

TEST_F(Engine, RemoveClearsLivenessBitAndZeroesTheSlot) {
    fuenfSaetze();
    ASSERT_TRUE(genre.remove(2, false));
    const std::string b = env.datei("Genre");
    ASSERT_EQ(b.size(), 5 * G);
    // The id stays, only bit 31 is gone.
    EXPECT_EQ(slot(b, G, 2), Satz(2, false).text("", G - 4).s);
    EXPECT_EQ(slot(b, G, 3), Satz(3).text("Western", G - 4).s);
    EXPECT_EQ(genre.select(2), nullptr);
}

TEST_F(Engine, FreedSlotsAreReusedLowestFirstOnceTheFreeListKnowsThem) {
    fuenfSaetze();
    ASSERT_TRUE(genre.remove(4, false));
    ASSERT_TRUE(genre.remove(2, false));
    EXPECT_EQ(genre.insert("Thriller"), 6);  // without a new free list the slots wait
    EXPECT_EQ(genre.init(), 4);              // the last free slot
    EXPECT_EQ(genre.freieSlots(), (std::vector<std::int32_t>{2, 4}));
    EXPECT_EQ(genre.anzahl(), 4);
    EXPECT_EQ(genre.insert("a"), 2);
    EXPECT_EQ(slot(env.datei("Genre"), G, 2), Satz(2).text("a", G - 4).s);
    EXPECT_EQ(text(2), "a");
    EXPECT_EQ(genre.insert("b"), 4);
    EXPECT_TRUE(genre.freieSlots().empty());
    EXPECT_EQ(genre.insert("c"), 7);
    ASSERT_TRUE(genre.remove(3, true));  // with a new free list at once
    EXPECT_EQ(genre.freieSlots(), std::vector<std::int32_t>{3});
    EXPECT_EQ(genre.insert("d"), 3);
    EXPECT_EQ(env.datei("Genre").size(), 7 * G);
}

TEST_F(Engine, RemovingAFreeListedIdWritesNothing) {
    FehlerDateisystem fs;
    Umgebung e(fs);
    Tabelle1 t(e.u, "Genre");
    ASSERT_TRUE(t.create());
    t.insert("a");
    t.insert("b");
    ASSERT_TRUE(t.remove(1, true));
    fs.scheitereAbSchreibvorgang = fs.schreibvorgaenge + 1;  // any write would fail
    EXPECT_TRUE(t.remove(1, false));
    EXPECT_TRUE(t.remove(1, true));
    EXPECT_FALSE(t.remove(0, false));
    EXPECT_FALSE(t.remove(-3, false));
}

TEST_F(Engine, IdsOfFreeSlotsZeroNegativeAndBeyondTheEnd) {
    fuenfSaetze();
    genre.remove(3, false);
    for (long id : {3L, 0L, -1L, 6L, 0x7FFFFFFFL}) EXPECT_EQ(genre.select(id), nullptr) << id;
    EXPECT_EQ(text(5), "Musical");
    // Select never writes the liveness bit back.
    EXPECT_EQ(slot(env.datei("Genre"), G, 3), Satz(3, false).text("", G - 4).s);
    // Neither remove nor update beyond the end grows the file; update of id 0 inserts.
    EXPECT_FALSE(genre.remove(6, false));
    EXPECT_FALSE(genre.remove(0x7FFFFFFF, false));
    EXPECT_EQ(env.datei("Genre").size(), 5 * G);
    EXPECT_TRUE(genre.update(0, "neu"));
    EXPECT_EQ(text(6), "neu");
    EXPECT_FALSE(genre.update(7, "weiter"));
    EXPECT_FALSE(genre.update(0x7FFFFFFF, "weit"));
    EXPECT_EQ(env.datei("Genre").size(), 6 * G);
}

TEST_F(Engine, UpdateOfLiveFreeListedAndStaleFreeSlots) {
    fuenfSaetze();
    ASSERT_TRUE(genre.update(3, "W"));  // zero-filled, the id word kept
    EXPECT_EQ(slot(env.datei("Genre"), G, 3), Satz(3).text("W", G - 4).s);
    EXPECT_EQ(text(3), "W");
    EXPECT_EQ(text(4), "Horror");
    genre.remove(1, true);
    const std::string vorher = env.datei("Genre");
    EXPECT_FALSE(genre.update(1, "neu"));  // a free-listed slot: the file untouched
    EXPECT_EQ(env.datei("Genre"), vorher);
    genre.remove(2, false);  // the free list does not know slot 2 yet
    EXPECT_TRUE(genre.update(2, "neu"));
    EXPECT_EQ(slot(env.datei("Genre"), G, 2), Satz(2, false).text("neu", G - 4).s);
    EXPECT_EQ(genre.select(2), nullptr);
    EXPECT_EQ(listenLaenge(genre.alle().get()), 3u);
    // After init the slot is reused, and the stale text is cleared first.
    genre.init();
    EXPECT_EQ(genre.insert("x"), 1);
    EXPECT_EQ(genre.insert("y"), 2);
    EXPECT_EQ(slot(env.datei("Genre"), G, 2), Satz(2).text("y", G - 4).s);
}

TEST_F(Engine, PartialTrailingRecordIsIgnoredAndOverwrittenInPlace) {
    fuenfSaetze();
    // 50 bytes that would read as a live record if a scan took them.
    std::string b = env.datei("Genre");
    b += std::string(4, '\xFF') + std::string(46, 'Z');
    schreibeDatei(genre.pfad(), b);

    EXPECT_EQ(listenLaenge(genre.alle().get()), 5u);
    EXPECT_EQ(genre.init(), 6);
    EXPECT_EQ(genre.anzahl(), 5);
    EXPECT_EQ(genre.select(6), nullptr);
    Tabelle1::Zeile alles{};
    alles.cpText[0] = '*';
    EXPECT_EQ(ids(genre.liste(alles).get()), (std::vector<long>{1, 2, 3, 4, 5}));

    EXPECT_EQ(genre.insert("Anime"), 6);
    const std::string nachher = env.datei("Genre");
    ASSERT_EQ(nachher.size(), 6 * G);
    EXPECT_EQ(slot(nachher, G, 6), Satz(6).text("Anime", G - 4).s);
    EXPECT_EQ(text(6), "Anime");
    EXPECT_EQ(genre.insert("Manga"), 7);
    EXPECT_EQ(text(7), "Manga");
}

TEST_F(Engine, ScansReturnLiveRecordsInIdOrder) {
    fuenfSaetze();
    genre.remove(1, false);
    genre.remove(4, false);
    EXPECT_EQ(ids(genre.alle().get()), (std::vector<long>{2, 3, 5}));
    std::vector<std::string> gesehen;
    EXPECT_TRUE(genre.scanne(
        [&](const Tabelle1::Zeile& z) { gesehen.push_back(std::to_string(z.Id) + z.cpText); }));
    EXPECT_EQ(gesehen, (std::vector<std::string>{"2Krimi", "3Western", "5Musical"}));
}

TEST_F(Engine, ListsAreDoublyLinkedAndFreedFromAnyNode) {
    Umgebung e(echtesDateisystem(), kTraceSpeicher);
    Tabelle1 t(e.u, "Genre");
    t.create();
    for (int i = 0; i < 4; ++i) t.insert("x");
    ListenElement* kopf = t.selectAll();
    ASSERT_EQ(listenLaenge(kopf), 4u);
    EXPECT_EQ(kopf->pPrev, nullptr);
    ListenElement* dritter = kopf->pNext->pNext;
    EXPECT_EQ(dritter->pPrev->pNext, dritter);
    EXPECT_EQ(dritter->cMarke, 0);
    EXPECT_EQ(dritter->sWert, 0);
    EXPECT_EQ(dritter->lWert, 0);
    e.leereLog();
    t.delListe(dritter);
    int zeilen = 0, objekte = 0;
    for (const auto& z : e.zeilen()) {
        zeilen += z == "[free] p = [ADR] {Tabelle::delListe}";
        objekte += z == "[free] p->pObjekt = [ADR] {Tabelle::delListe}";
    }
    EXPECT_EQ(zeilen, 4);
    EXPECT_EQ(objekte, 4);
    t.delListe(nullptr);
}

}  // namespace
}  // namespace dv::test
