// The whole-collection reader against the per-object builders, on generated
// collections, intact and damaged; and how often it opens each table file.

#include <cstring>
#include <map>

#include "bench/generator/Generator.h"
#include "domain/Vorrat.h"
#include "tests/domain/Abbild.h"
#include "tests/domain/DomainUmgebung.h"
#include "tests/support/FehlerDateisystem.h"

namespace dv {
namespace {

using test::Abbild;

// Counts how often each file is opened (no faults are set).
class ZaehlDateisystem : public test::FehlerDateisystem {
  public:
    std::map<std::string, int> oeffnungen;
    std::unique_ptr<Datei> oeffne(const std::string& p, OeffnenModus m, int* f) override {
        ++oeffnungen[p.substr(p.find_last_of('/') + 1)];
        return FehlerDateisystem::oeffne(p, m, f);
    }
};

// A Datenbank on a generated collection.
struct GenerierteSammlung {
    explicit GenerierteSammlung(std::uint64_t saat, Dateisystem& fs = echtesDateisystem()) {
        generator::Groessen g;
        g.boxen = 40;
        g.dvds = 70;
        g.filme = 150;
        g.personen = 90;
        g.genres = 25;
        g.bildformate = 15;
        g.saat = saat;
        std::string fehler;
        EXPECT_TRUE(generator::erzeugeSammlung(tmp.pfad(), g, nullptr, &fehler)) << fehler;
        ordner.setzeBasis(tmp.pfad());
        spur.setzeMaske(kTraceSpeicher);
        su.fs = &fs;
        su.trace = &spur;
        su.datenOrdner = ordner.daten;
        db = std::make_unique<Datenbank>(su, ordner);
    }
    std::string proObjekt() {
        auto boxen = db->getBoxListe();
        for (BoxElement* b = boxen.get(); b; b = b->pNext) db->ladeBox(*b);
        return Abbild().von(boxen.get());
    }
    std::string ganz() {
        auto boxen = db->ladeSammlung();
        return Abbild().von(boxen.get());
    }
    test::TempOrdner tmp;
    Ordner ordner;
    test::SammelTrace spur;
    SpeicherUmgebung su;
    std::unique_ptr<Datenbank> db;
};

// Rows that links still name go away; positions collide; links name owners
// that do not exist; a box holds a DVD twice.
void beschaedige(Katalog& k) {
    for (long id : {3L, 17L, 40L}) k.DVD.remove(id, true);
    for (long id : {5L, 6L, 77L, 120L}) k.Film.remove(id, true);
    for (long id : {2L, 4L}) k.Sprachen.remove(id, true);
    k.Tonformate.remove(3, true);
    for (long id : {1L, 8L, 30L}) k.Person.remove(id, true);
    for (long id : {1L, 2L, 3L}) k.Alias.remove(id, true);
    k.Genre.remove(1, true);
    k.Extras.remove(2, true);
    k.Funktion.remove(2, true);
    k.Titel.remove(1, true);
    auto links = k.DVD_Film.alle();
    int n = 0;
    for (ListenElement* e = links.get(); e; e = e->pNext, ++n) {
        const Zeile2& z = Tabelle2::zeile(e);
        if (n % 3 == 0) k.DVD_Film.update(z.Id, z.DVD_Id, z.Objekt1_Id, 1);
    }
    k.DVD_Box.insert(5000, 1, 0, 1);
    k.DVD_Box.insert(1, 2, 0, 1);
    k.DVD_Film.insert(9999, 1, 1);
    k.Film_Genre.insert(-3, 1, 1);
    k.Film_Alias.insert(123456, 4, 1);
}

TEST(Sammlung, GleicheListenWieDieEinzelnenBuilderAuchBeiZeilenDieInsLeereZeigen) {
    for (std::uint64_t saat : {1u, 2u, 3u}) {
        GenerierteSammlung s(saat);
        if (saat == 3) beschaedige(s.db->katalog());
        const std::string erwartet = s.proObjekt();
        EXPECT_NE(erwartet.find("   Person"), std::string::npos);
        EXPECT_NE(erwartet.find(" / "), std::string::npos);
        EXPECT_NE(erwartet.find(" ["), std::string::npos);  // some aliases
        EXPECT_EQ(s.ganz(), erwartet) << "Saat " << saat;
        EXPECT_TRUE(s.spur.offen().empty());
    }
}

TEST(Sammlung, OeffnetJedeTabelleHoechstensEinmal) {
    ZaehlDateisystem fs;
    GenerierteSammlung s(4, fs);
    fs.oeffnungen.clear();
    { auto alles = s.db->ladeSammlung(); }
    ASSERT_FALSE(fs.oeffnungen.empty());
    for (const auto& [datei, n] : fs.oeffnungen) EXPECT_EQ(n, 1) << datei;
    // The per-object way opens the link tables once per owner.
    fs.oeffnungen.clear();
    s.proObjekt();
    EXPECT_GT(fs.oeffnungen["DVD_Film.dat"], 60);
}

TEST(Generator, GleicheSaatGleicheDateienAndereSaatAndere) {
    generator::Groessen g;
    g.boxen = 30;
    g.dvds = 40;
    g.filme = 70;
    g.personen = 50;
    g.genres = 10;
    g.bildformate = 5;
    g.texte = 3;
    test::TempOrdner a, b, c;
    generator::Ergebnis e;
    std::string fehler;
    ASSERT_TRUE(generator::erzeugeSammlung(a.pfad(), g, &e, &fehler)) << fehler;
    ASSERT_TRUE(generator::erzeugeSammlung(b.pfad(), g, nullptr, &fehler)) << fehler;
    EXPECT_EQ(e.boxen, 30);
    EXPECT_EQ(e.dvds, 40);
    EXPECT_EQ(e.filme, 70);
    EXPECT_GE(e.titel, 70);
    EXPECT_GE(e.filmPersonen, 2 * 70);
    for (const char* t : {"Box", "DVD", "Film", "Titel", "Film_Person", "Film_Alias", "Person"})
        EXPECT_EQ(test::leseDatei(a / "Daten/" + t + ".dat"),
                  test::leseDatei(b / "Daten/" + t + ".dat"))
            << t;
    g.saat += 1;
    ASSERT_TRUE(generator::erzeugeSammlung(c.pfad(), g, nullptr, &fehler)) << fehler;
    EXPECT_NE(test::leseDatei(a / "Daten/Box.dat"), test::leseDatei(c / "Daten/Box.dat"));
    // A folder that holds a collection already is refused; so are sizes that
    // leave a box without a DVD.
    EXPECT_FALSE(generator::erzeugeSammlung(a.pfad(), g, nullptr, &fehler));
    EXPECT_NE(fehler.find("bereits eine Sammlung"), std::string::npos);
    g.dvds = 10;
    test::TempOrdner d;
    EXPECT_FALSE(generator::erzeugeSammlung(d.pfad(), g, nullptr, &fehler));
}

TEST(BlockVorrat, GibtBloeckeWiederUndDiePlattenZurueck) {
    BlockVorrat v(40);
    std::vector<void*> bloecke;
    for (int i = 0; i < 30000; ++i) {
        void* p = v.hole();
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(p) % alignof(std::max_align_t), 0u);
        std::memset(p, 0xAB, 40);
        bloecke.push_back(p);
    }
    EXPECT_EQ(v.belegt(), 30000u);
    EXPECT_GT(v.platten(), 1u);
    // A released block is handed out again.
    void* letzter = bloecke.back();
    v.gib(letzter);
    EXPECT_EQ(v.hole(), letzter);
    for (void* p : bloecke) v.gib(p);
    EXPECT_EQ(v.belegt(), 0u);
    EXPECT_EQ(v.platten(), 1u);
    v.gib(nullptr);
    void* neu = v.hole();
    EXPECT_NE(neu, nullptr);
    v.gib(neu);
}

}  // namespace
}  // namespace dv
