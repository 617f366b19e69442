// The exact wording of the table layer's trace lines, read back from the log
// file that Protokoll writes (masks 2 and 8), deliberate oddities included.

#include <gtest/gtest.h>

#include "storage/Katalog.h"
#include "tests/storage/Umgebung.h"

namespace dv::test {
namespace {

using V = std::vector<std::string>;

class TraceZeilen : public ::testing::Test {
  protected:
    Umgebung env{echtesDateisystem(), kTraceTabelle | kTraceSpeicher};

    // Runs f on a fresh log and returns the lines it wrote.
    template <class F>
    V nach(F&& f) {
        env.leereLog();
        f();
        return env.zeilen();
    }
};

TEST_F(TraceZeilen, Tabelle1FullCycle) {
    Tabelle1 t(env.u, "Genre");
    EXPECT_EQ(nach([&] { t.create(); }), V{"created " + t.pfad()});
    EXPECT_EQ(nach([&] { t.create(); }), V{env.u.datenOrdner + "Genre.dat existiert bereits."});
    EXPECT_EQ(nach([&] { t.insert("Drama"); }),
              (V{"init() \"Genre\"", "inserted cpText [Drama] into Genre"}));
    // The update format lacks its closing part: the text stands where the table name belongs.
    EXPECT_EQ(nach([&] { t.update(1, "Krimi"); }), V{"updated <1, cpText from Krimi"});
    Tabelle1::Zeile b{};
    std::strcpy(b.cpText, "Kr*");
    EXPECT_EQ(nach([&] { t.liste(b); }),
              (V{"-> select <0, [Kr*]> from Genre",
                 "[malloc] pNew = [ADR] {Tabelle1::select(obj) [hint:[Kr*]]}",
                 "[malloc] p = [ADR] {Tabelle::newElement}", "<- selected <1, [Krimi]> from Genre",
                 "[free] p->pObjekt = [ADR] {Tabelle::delListe}",
                 "[free] p = [ADR] {Tabelle::delListe}"}));
    EXPECT_EQ(nach([&] { t.alle(); }),
              (V{"-> selectAll from Genre", "-> select <0, []> from Genre",
                 "[malloc] pNew = [ADR] {Tabelle1::select(obj) [hint:[]]}",
                 "[malloc] p = [ADR] {Tabelle::newElement}", "<- selected <1, [Krimi]> from Genre",
                 "[free] p->pObjekt = [ADR] {Tabelle::delListe}",
                 "[free] p = [ADR] {Tabelle::delListe}"}));
    EXPECT_EQ(nach([&] { t.eine(1); }), (V{"[malloc] pNew = [ADR] {Tabelle1::select(Id)}",
                                           "[malloc] p = [ADR] {Tabelle::newElement}",
                                           "[free] p->pObjekt = [ADR] {Tabelle::delListe}",
                                           "[free] p = [ADR] {Tabelle::delListe}"}));
    EXPECT_EQ(nach([&] { t.remove(1, true); }), (V{"deleted <1> from Genre", "init() \"Genre\""}));
    EXPECT_EQ(nach([&] { t.update(0, "Neu"); }), V{"inserted cpText [Neu] into Genre"});
}

TEST_F(TraceZeilen, MemoryLinesNameTheRealAddresses) {
    Tabelle1 t(env.u, "Genre");
    t.create();
    t.insert("a");
    env.leereLog();
    ListenElement* n = t.select(1);
    ASSERT_NE(n, nullptr);
    char erwartet[2][80];
    std::snprintf(erwartet[0], 80, "[malloc] pNew = [%08x] {Tabelle1::select(Id)}",
                  adr(n->pObjekt));
    std::snprintf(erwartet[1], 80, "[malloc] p = [%08x] {Tabelle::newElement}", adr(n));
    EXPECT_EQ(env.zeilen(false), (V{erwartet[0], erwartet[1]}));
    t.delListe(n);
}

TEST_F(TraceZeilen, MasksSelectTheirOwnLines) {
    Tabelle1 t(env.u, "Genre");
    t.create();
    t.insert("a");
    env.protokoll.setzeMaske(kTraceTabelle);
    EXPECT_EQ(nach([&] { t.eine(1); }), V{});
    EXPECT_EQ(nach([&] { t.alle(); }).size(), 3u);
    env.protokoll.setzeMaske(kTraceSpeicher);
    EXPECT_EQ(nach([&] { t.alle(); }).size(), 4u);
    EXPECT_EQ(nach([&] { t.insert("b"); }), V{});
    env.protokoll.setzeMaske(0);
    EXPECT_EQ(nach([&] {
                  t.alle();
                  t.remove(1, true);
              }),
              V{});
}

TEST_F(TraceZeilen, LinkClasses) {
    Katalog k(env.u);
    for (Tabelle* t : k.alle()) t->create();
    env.protokoll.setzeMaske(kTraceTabelle);
    EXPECT_EQ(nach([&] { k.Box_Extras.insert(3, 4, 5); }).back(),
              "inserted DVD_Id [3], Objekt1_Id [4], Pos [5] into Box_Extras");
    EXPECT_EQ(nach([&] { k.Box_Extras.update(1, 3, 4, 6); }),
              V{"updated <1, DVD_Id [3], Objekt1_Id [4], Pos [6]> from Box_Extras"});
    EXPECT_EQ(
        nach([&] {
            k.Box_Extras.liste(Zeile2{0, 3, 0, 0});
        }),
        (V{"-> select <0, 3, 0> from Box_Extras", "<- selected <1, 3, 4, 6> from Box_Extras"}));
    EXPECT_EQ(nach([&] { k.Film_Person.insert(1, 2, 3, 4); }).back(),
              "inserted Film_Id [1], Person_Id [2], Funktion [3], Pos [4] into Film_Person");
    EXPECT_EQ(nach([&] {
                  k.Film_Person.liste(Zeile3{0, 1, 2, 3, 0});
              }),
              V{"-> select <0, 1, 2, 3> from Film_Person"});
    EXPECT_EQ(
        nach([&] { k.Film_Sprachen.insert(1, 2, 3, 4); }).back(),
        "inserted Film_Id [1], Sprachen_Id [2], Tonformat_Id [3], Pos [4] into Film_Sprachen");
    EXPECT_EQ(nach([&] {
                  k.Film_Sprachen.liste(Zeile6{0, 1, 2, 3, 4});
              }),
              V{"-> select <0, 1, 2, 3, 4> from Film_Sprachen"});
    EXPECT_EQ(nach([&] { k.DVD_Box.insert(1, 2, 3, 4); }).back(),
              "inserted Box_Id [1], DVD_Id [2], Sammelbox_Id [3], Pos [4] into DVD_Box");
    EXPECT_EQ(nach([&] { k.DVD_Box.update(1, 1, 2, 0, 5); }),
              V{"updated <1, Box_Id [1], DVD_Id [2], Sammelbox_Id [0], Pos [5]> from DVD_Box"});
    EXPECT_EQ(nach([&] {
                  k.DVD_Box.liste(Zeile7{0, 1, 0, 0, 0});
              }),
              V{"-> select <0, 1, 0, 0, 0> from DVD_Box"});
    EXPECT_EQ(nach([&] { k.Film_Genre.insert(8, 9, 1); }).back(),
              "inserted Film_Id [8], Objekt1_Id [9], Pos [1] into Film_Genre");
    EXPECT_EQ(
        nach([&] {
            k.Film_Genre.liste(Zeile2{0, 8, 0, 0});
        }),
        (V{"-> select <0, 8, 0> from Film_Genre", "<- selected <1, 8, 9, 1> from Film_Genre"}));
}

TEST_F(TraceZeilen, ObjectClasses) {
    Katalog k(env.u);
    for (Tabelle* t : k.alle()) t->create();
    env.protokoll.setzeMaske(kTraceTabelle);
    EXPECT_EQ(nach([&] { k.Titel.insert(5, 1, "Alien", 2); }).back(),
              "inserted Fremd_Id [5], Typ [1], cpTitel [Alien], Pos [2] into Titel");
    Zeile4 t4{};
    t4.Fremd_Id = 5;
    EXPECT_EQ(nach([&] { k.Titel.liste(t4); }), (V{"-> select <0, 5, 0, , 0> from Titel",
                                                   "<- selected <1, 5, 1, Alien, 2> from Titel"}));
    // The stray comma before "into" belongs to the wording.
    EXPECT_EQ(nach([&] { k.Film.insert(16, 117, 1979); }).back(),
              "inserted FSK [16], Laenge [117], Jahr [1979], into Film");
    EXPECT_EQ(nach([&] { k.Film.update(1, 18, 117, 1979); }),
              V{"updated <1, FSK [18], Laenge [117], Jahr [1979]> from Film"});
    EXPECT_EQ(nach([&] {
                  k.Film.liste(Zeile5{0, 18, 0, 0});
              }),
              (V{"-> select <0, 18, 0, 0> from Film", "<- selected <1, 18, 117, 1979> from Film"}));
    // "Instanz[" without a blank belongs to the wording too.
    EXPECT_EQ(nach([&] { k.Person.insert(1, "Scott", "Ridley"); }).back(),
              "inserted Instanz[1], cpName [Scott], cpVorname [Ridley] into Person");
    EXPECT_EQ(nach([&] { k.Person.update(1, 2, "Scott", "Tony"); }),
              V{"updated <1, Instanz [2], cpName [Scott], cpVorname [Tony]> from Person"});
    Zeile8 p{};
    std::strcpy(p.cpName, "Sc*");
    EXPECT_EQ(nach([&] { k.Person.liste(p); }), (V{"-> select <0, 0, Sc*, > from Person",
                                                   "<- selected <1, 2, Scott, Tony> from Person"}));
    EXPECT_EQ(nach([&] { k.TagStempel.insert(3, "gesehen"); }).back(),
              "inserted Typ [3], cpText [gesehen] into TagStempel");
    EXPECT_EQ(nach([&] { k.TagStempel.update(1, 4, "neu"); }),
              V{"updated <1, Typ [4], cpText [neu]> from TagStempel"});
    EXPECT_EQ(nach([&] {
                  k.TagStempel.liste(Zeile11{0, 4, ""});
              }),
              (V{"-> select <0, 4, > from TagStempel", "<- selected <1, 4, neu> from TagStempel"}));
    EXPECT_EQ(nach([&] { k.Box.insert("4011846012345", "Alien", 1, 2); }).back(),
              "inserted cpEAN [4011846012345], cpText [Alien], Verpackungs_Id [1], Zusatz_Id [2] "
              "into Box");
    EXPECT_EQ(
        nach([&] { k.Box.update(1, "401", "Aliens", 1, 0); }),
        V{"updated <1, cpEAN [401], cpText [Aliens], Verpackungs_Id [1], Zusatz_Id [0]> from Box"});
    EXPECT_EQ(
        nach([&] {
            k.Box.liste(Zeile12{0, "401", "", 0, 0});
        }),
        (V{"-> select <0, 401, , 0, 0> from Box", "<- selected <1, 401, Aliens, 1, 0> from Box"}));
    EXPECT_EQ(nach([&] { k.Filter.insert(1, 7, 12, "Horror"); }).back(),
              "inserted lFilterId [1], Typ [7], lIntern [12], cpExtern [Horror] into Filter");
    EXPECT_EQ(nach([&] {
                  k.Filter.liste(Zeile13{0, 1, 0, 0, ""});
              }),
              (V{"-> select <0, 1, 0, 0, > from Filter",
                 "<- selected <1, 1, 7, 12, Horror> from Filter"}));
}

TEST_F(TraceZeilen, DvdRecordPrintsUnsignedFields) {
    Tabelle9 t(env.u, "DVD");
    t.create();
    Zeile9 d{};
    d.Jahr = 2004;
    d.RC = 2;
    d.Opt = 5;
    std::strcpy(d.cpText, "Disc 1");
    d.Formate_Id = 3;
    d.SN = 0xFFFFFFFFu;
    d.Laenge = 148;
    d.BytesLow = 4000000000u;
    d.BytesHigh = 1;
    EXPECT_EQ(nach([&] { t.insert(d); }).back(),
              "inserted Jahr [2004], RC [2], Opt [5], cpText [Disc 1], Formate_Id [3], "
              "SN [4294967295], Laenge [148], BytesLow [4000000000], BytesHigh [1] into DVD");
    EXPECT_EQ(nach([&] { t.update(1, d); }),
              V{"updated <1, Jahr [2004], RC [2], Opt [5], cpText [Disc 1], Formate_Id [3], "
                "SN [4294967295], Laenge [148], BytesLow [4000000000], BytesHigh [1]> from DVD"});
    Zeile9 b{};
    b.Jahr = 2004;
    const V z = nach([&] { t.liste(b); });
    EXPECT_EQ(z[0], "-> select <0, 2004, 0, 0, , 0, 0, 0, 0, 0> from DVD");
    EXPECT_EQ(z[1], "[malloc] pNew = [ADR] {Tabelle9::select(obj) [hint:[]]}");
    EXPECT_EQ(z[3],
              "<- selected <1, 2004, 2, 5, Disc 1, 3, 4294967295, 148, 4000000000, 1> from DVD");
}

TEST_F(TraceZeilen, WatchListClassesAndTheirMemoryLines) {
    Tabelle14 v(env.u, "Vormerk");
    Tabelle15 v2(env.u, "Vormerk2");
    v.create();
    v2.create();
    std::string f(16, '\0');
    const std::int32_t w[4] = {static_cast<std::int32_t>(0x80000001u), 7, 8, 9};
    std::memcpy(f.data(), w, 16);
    schreibeDatei(v.pfad(), f);
    EXPECT_EQ(
        nach([&] {
            v.liste(Zeile14{0, 7, 0, 0});
        }),
        (V{"-> select <0, 7, 0, 0> from Vormerk",
           "[malloc] pNew = [ADR] {Tabelle14::select(obj) [hint:[]]}",
           "[malloc] p = [ADR] {Tabelle::newElement}", "<- selected <1, 7, 8, 9> from Vormerk",
           "[free] p->pObjekt = [ADR] {Tabelle::delListe}",
           "[free] p = [ADR] {Tabelle::delListe}"}));
    EXPECT_EQ(nach([&] { v2.insert(2, 3, 44, 1); }).back(),
              "inserted Vormerk_Id [2], Objekt_Typ [3], Objekt_Id [44], Pos [1] into Vormerk2");
    EXPECT_EQ(nach([&] {
                  v2.liste(Zeile15{0, 2, 0, 0, 0});
              })[3],
              "<- selected <1, 2, 3, 44, 1> from Vormerk2");
    EXPECT_EQ(nach([&] {
                  v2.liste(Zeile15{0, 2, 3, 0, 0});
              })[0],
              "-> select <0, 2, 3, 0> from Vormerk2");
    // The select by id of Tabelle15 names Tabelle14; the select by example its own class.
    EXPECT_EQ(nach([&] { v2.eine(1); })[0], "[malloc] pNew = [ADR] {Tabelle14::select(Id)}");
    EXPECT_EQ(nach([&] { v2.alle(); })[2],
              "[malloc] pNew = [ADR] {Tabelle15::select(obj) [hint:[]]}");
    EXPECT_EQ(nach([&] { v2.remove(1, false); }), V{"deleted <1> from Vormerk2"});
}

TEST_F(TraceZeilen, EveryClassNamesItselfInTheMemoryLines) {
    Katalog k(env.u);
    for (Tabelle* t : k.alle()) t->create();
    k.Genre.insert("x");
    k.DVD_Film.insert(1, 1, 1);
    k.Film_Person.insert(1, 1, 1, 1);
    k.Titel.insert(1, 1, "t", 1);
    k.Film.insert(1, 1, 1);
    k.Film_Sprachen.insert(1, 1, 1, 1);
    k.DVD_Box.insert(1, 1, 1, 1);
    k.Person.insert(1, "n", "v");
    k.DVD.insert(Zeile9{});
    k.Film_Fkt.insert(1, 1, 1);
    k.TagStempel.insert(1, "t");
    k.Box.insert("e", "t", 1, 1);
    k.Filter.insert(1, 1, 1, "x");
    k.Vormerk2.insert(1, 1, 1, 1);
    const std::pair<Tabelle*, const char*> faelle[] = {
        {&k.Genre, "Tabelle1"},     {&k.DVD_Film, "Tabelle2"},    {&k.Film_Person, "Tabelle3"},
        {&k.Titel, "Tabelle4"},     {&k.Film, "Tabelle5"},        {&k.Film_Sprachen, "Tabelle6"},
        {&k.DVD_Box, "Tabelle7"},   {&k.Person, "Tabelle8"},      {&k.DVD, "Tabelle9"},
        {&k.Film_Fkt, "Tabelle10"}, {&k.TagStempel, "Tabelle11"}, {&k.Box, "Tabelle12"},
        {&k.Filter, "Tabelle13"},
    };
    env.protokoll.setzeMaske(kTraceSpeicher);
    for (auto [t, klasse] : faelle) {
        const V byId = nach([&] { t->delListe(t->select(1)); });
        ASSERT_FALSE(byId.empty()) << klasse;
        EXPECT_EQ(byId[0], "[malloc] pNew = [ADR] {" + std::string(klasse) + "::select(Id)}");
        const V alle = nach([&] { t->delListe(t->selectAll()); });
        ASSERT_FALSE(alle.empty()) << klasse;
        const std::string anfang =
            "[malloc] pNew = [ADR] {" + std::string(klasse) + "::select(obj) [hint:[";
        EXPECT_EQ(alle[0].rfind(anfang, 0), 0u) << alle[0];
    }
}

TEST_F(TraceZeilen, HintIsTheFirstTextKeyEvenWhenEmpty) {
    Tabelle8 t(env.u, "Person");
    t.create();
    t.insert(1, "Scott", "Tony");
    Zeile8 b{};
    std::strcpy(b.cpVorname, "Tony");
    EXPECT_EQ(nach([&] { t.liste(b); })[1],
              "[malloc] pNew = [ADR] {Tabelle8::select(obj) [hint:[]]}");
    std::strcpy(b.cpName, "Scott");
    EXPECT_EQ(nach([&] { t.liste(b); })[1],
              "[malloc] pNew = [ADR] {Tabelle8::select(obj) [hint:[Scott]]}");
}

TEST_F(TraceZeilen, FailedOpenIsLoggedWithItsCause) {
    Tabelle1 t(env.u, "Fehlt");
    EXPECT_EQ(nach([&] { t.insert("x"); }), (V{"init() \"Fehlt\"", "Error [2]", "Error [2]"}));
    EXPECT_EQ(t.letzterFehler(), "2");
    EXPECT_EQ(nach([&] { t.selectAll(); }),
              (V{"-> selectAll from Fehlt", "-> select <0, []> from Fehlt", "Error [2]"}));
}

TEST_F(TraceZeilen, CatalogCreationLogsItsStart) {
    Katalog k(env.u);
    const V z = nach([&] { k.erzeugeDatenbank(); });
    ASSERT_FALSE(z.empty());
    EXPECT_EQ(z[0], "Datenbank erzeugen");
    EXPECT_EQ(z[1], "created " + k.Alias.pfad());
    EXPECT_NE(std::find(z.begin(), z.end(), "inserted cpText [Darsteller] into Funktion"), z.end());
    EXPECT_NE(std::find(z.begin(), z.end(), "inserted cpText [Regie] into Funktion"), z.end());
    const V v = nach([&] { k.holeVersion(); });
    EXPECT_EQ(v, V{"inserted [4.0.0.1:20070406] into DatenVersion"});
}

}  // namespace
}  // namespace dv::test
