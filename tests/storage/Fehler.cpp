// Bad input under the table engine: missing, locked, cut and garbage files, and
// writes that fail or tear. Nothing crashes, nothing already stored is damaged.

#include <gtest/gtest.h>

#include <random>

#include "storage/Katalog.h"
#include "tests/storage/Umgebung.h"
#include "tests/support/FehlerDateisystem.h"

namespace dv::test {
namespace {

constexpr unsigned G = Tabelle1::kGroesse;

class Fehler : public ::testing::Test {
  protected:
    FehlerDateisystem fs;
    Umgebung env{fs, kTraceTabelle};
    Tabelle1 t{env.u, "Genre"};

    void fuenf() {
        ASSERT_TRUE(t.create());
        for (const char* s : {"eins", "zwei", "drei", "vier", "fuenf"}) ASSERT_GT(t.insert(s), 0);
    }
    // From the next write on, every write fails and leaves its first half on disk.
    void reisseAb() {
        fs.zerreissen = true;
        fs.scheitereAbSchreibvorgang = fs.schreibvorgaenge + 1;
    }
    void heile() { fs.scheitereAbSchreibvorgang = 0; }
    std::vector<std::string> texte() {
        std::vector<std::string> out;
        t.scanne([&](const Tabelle1::Zeile& z) { out.push_back(z.cpText); });
        return out;
    }
    bool hatZeile(const std::string& zeile) {
        const auto z = env.zeilen();
        return std::find(z.begin(), z.end(), zeile) != z.end();
    }
};

TEST_F(Fehler, LockedFileOrFolderGivesNothingAndIsLogged) {
    fuenf();
    const std::string vorher = env.datei("Genre");
    fs.sperre = "Genre.dat";
    env.leereLog();
    EXPECT_EQ(t.selectAll(), nullptr);
    EXPECT_EQ(t.select(1), nullptr);
    EXPECT_EQ(t.insert("neu"), 0);
    EXPECT_FALSE(t.update(1, "neu"));
    EXPECT_FALSE(t.remove(1, true));
    EXPECT_EQ(t.init(), 0);
    EXPECT_FALSE(t.scanne([](const Tabelle1::Zeile&) {}));
    EXPECT_EQ(t.letzterFehler(), "13");
    EXPECT_TRUE(hatZeile("Error [13]"));
    // create() must not truncate a file it merely cannot open.
    EXPECT_FALSE(t.create());
    fs.sperre.clear();
    EXPECT_EQ(env.datei("Genre"), vorher);
    EXPECT_EQ(texte(), (std::vector<std::string>{"eins", "zwei", "drei", "vier", "fuenf"}));
    // A locked folder: nothing can be created in it.
    Tabelle1 neu(env.u, "Sprachen");
    fs.sperre = env.daten.pfad();
    env.leereLog();
    EXPECT_FALSE(neu.create());
    EXPECT_EQ(neu.letzterFehler(), "13");
    EXPECT_TRUE(hatZeile("Error [13]"));
}

TEST_F(Fehler, TornAppendLeavesOtherRecordsAndAlignment) {
    fuenf();
    const std::string vorher = env.datei("Genre");
    reisseAb();
    EXPECT_EQ(t.insert("sechs"), 0);
    heile();
    const std::string nachher = env.datei("Genre");
    EXPECT_EQ(nachher.substr(0, 5 * G), vorher);
    EXPECT_EQ(texte().size(), 5u);
    EXPECT_EQ(t.insert("sechs"), 6);
    EXPECT_EQ(env.datei("Genre").size(), 6 * G);
    EXPECT_EQ(texte().back(), "sechs");
}

TEST_F(Fehler, TornWriteOfTheLivenessWordLeavesTheSlotFree) {
    fuenf();
    // The record itself is written, the word that makes it live tears.
    fs.zerreissen = true;
    fs.scheitereAbSchreibvorgang = fs.schreibvorgaenge + 2;
    EXPECT_EQ(t.insert("sechs"), 0);
    heile();
    EXPECT_EQ(t.select(6), nullptr);
    EXPECT_EQ(texte().size(), 5u);
    EXPECT_EQ(t.init(), 6);
    EXPECT_EQ(t.insert("sieben"), 6);
    EXPECT_EQ(texte().back(), "sieben");
}

TEST_F(Fehler, TornInsertIntoAFreeSlotKeepsItFreeAndListed) {
    fuenf();
    ASSERT_TRUE(t.remove(3, true));
    const std::string vorher = env.datei("Genre");
    reisseAb();
    EXPECT_EQ(t.insert("neu"), 0);
    heile();
    EXPECT_EQ(t.select(3), nullptr);
    const std::string nachher = env.datei("Genre");
    EXPECT_EQ(nachher.substr(0, 2 * G), vorher.substr(0, 2 * G));
    EXPECT_EQ(nachher.substr(3 * G), vorher.substr(3 * G));
    EXPECT_EQ(t.freieSlots(), std::vector<std::int32_t>{3});
    EXPECT_EQ(t.insert("neu"), 3);
    EXPECT_EQ(texte(), (std::vector<std::string>{"eins", "zwei", "neu", "vier", "fuenf"}));
}

TEST_F(Fehler, TornUpdateKeepsTheOldRecordTornRemoveTouchesOnlyItsSlot) {
    fuenf();
    const std::string vorher = env.datei("Genre");
    reisseAb();
    EXPECT_FALSE(t.update(2, std::string(100, 'X').c_str()));
    heile();
    EXPECT_EQ(env.datei("Genre"), vorher);
    EXPECT_EQ(texte()[1], "zwei");
    reisseAb();
    t.remove(4, false);
    heile();
    const std::string nachher = env.datei("Genre");
    EXPECT_EQ(nachher.substr(0, 3 * G), vorher.substr(0, 3 * G));
    EXPECT_EQ(nachher.substr(4 * G), vorher.substr(4 * G));
    EXPECT_EQ(nachher.size(), vorher.size());
}

TEST_F(Fehler, SlotUsedByAnotherTableObjectIsNotOverwritten) {
    fuenf();
    ASSERT_TRUE(t.remove(2, true));
    Tabelle1 andere(env.u, "Genre");
    ASSERT_EQ(andere.insert("fremd"), 2);
    // t still lists slot 2 as free; its insert must not destroy the other's record.
    EXPECT_EQ(t.insert("meins"), 6);
    EXPECT_EQ(texte(),
              (std::vector<std::string>{"eins", "fremd", "drei", "vier", "fuenf", "meins"}));
}

// Garbage in every record class: a whole number of records of random bytes plus
// a ragged tail. Scans, selects and inserts must stay in bounds.
template <class T>
void garbage(Umgebung& env, const char* name, std::uint32_t saat) {
    SCOPED_TRACE(name);
    T t(env.u, name);
    std::mt19937 zufall(saat);
    const unsigned g = t.getRecordSize();
    std::string bytes(37 * g + g / 2, '\0');
    for (char& c : bytes) c = static_cast<char>(zufall());
    schreibeDatei(t.pfad(), bytes);
    long lebend = 0;
    for (long id = 1; id <= 37; ++id) lebend += (wortVon(bytes, g, id) & kLebendBit) != 0;

    EXPECT_EQ(listenLaenge(t.alle().get()), static_cast<std::size_t>(lebend));
    const long naechste = t.init();
    EXPECT_EQ(t.anzahl(), lebend);
    EXPECT_EQ(t.anzahl() + static_cast<long>(t.freieSlots().size()), 37);
    EXPECT_TRUE(naechste >= 1 && naechste <= 38);
    for (long id = 0; id <= 40; ++id) {
        auto l = t.eine(id);
        if (l) {
            EXPECT_EQ(T::zeile(l.get()).Id, id);
        }
    }
    typename T::Zeile beispiel{};
    std::memset(&beispiel, 0, sizeof beispiel);
    beispiel.Id = 0;
    auto l = t.liste(beispiel);
    EXPECT_EQ(listenLaenge(l.get()), static_cast<std::size_t>(lebend));
    EXPECT_EQ(leseDatei(t.pfad()).size(), bytes.size());
}

TEST(Garbage, EveryRecordClassSurvivesRandomFiles) {
    Umgebung env(echtesDateisystem(), kTraceTabelle | kTraceSpeicher);
    garbage<Tabelle1>(env, "Genre", 1);
    garbage<Tabelle2>(env, "DVD_Film", 2);
    garbage<Tabelle3>(env, "Film_Person", 3);
    garbage<Tabelle4>(env, "Titel", 4);
    garbage<Tabelle5>(env, "Film", 5);
    garbage<Tabelle6>(env, "Film_Sprachen", 6);
    garbage<Tabelle7>(env, "DVD_Box", 7);
    garbage<Tabelle8>(env, "Person", 8);
    garbage<Tabelle9>(env, "DVD", 9);
    garbage<Tabelle10>(env, "Film_Genre", 10);
    garbage<Tabelle11>(env, "TagStempel", 11);
    garbage<Tabelle12>(env, "Box", 12);
    garbage<Tabelle13>(env, "Filter", 13);
    garbage<Tabelle14>(env, "Vormerk", 14);
    garbage<Tabelle15>(env, "Vormerk2", 15);
    // Every text printed into the trace was cut at its field.
    for (const auto& z : env.zeilen()) EXPECT_LT(z.size(), 1024u);
}

TEST(Garbage, InsertIntoGarbageKeepsTheLiveRecords) {
    Umgebung env;
    Tabelle1 t(env.u, "Genre");
    std::mt19937 zufall(99);
    std::string bytes(20 * G + 7, '\0');
    for (char& c : bytes) c = static_cast<char>(zufall());
    schreibeDatei(t.pfad(), bytes);
    const long neu = t.insert("neu");
    ASSERT_GT(neu, 0);
    const std::string nachher = leseDatei(t.pfad());
    for (long id = 1; id <= 20; ++id) {
        if (id == neu) continue;
        EXPECT_EQ(nachher.substr((id - 1) * G, G), bytes.substr((id - 1) * G, G)) << id;
    }
    EXPECT_STREQ(Tabelle1::zeile(t.eine(neu).get()).cpText, "neu");
}

TEST(Garbage, VersionRecordOfGarbageReadsBoundedDate) {
    Umgebung env;
    Katalog k(env.u);
    std::string bytes(28, 'x');
    bytes[3] = '\x80';
    schreibeDatei(k.DatenVersion.pfad(), bytes);
    DatenVersionSatz v;
    ASSERT_TRUE(k.leseVersion(v));
    EXPECT_STREQ(v.datum, "xxxxxxxx");
}

}  // namespace
}  // namespace dv::test
