// The whole-collection reader with a scope: every list in the scope is built as
// the whole reader builds it, every other list stays empty.
#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "tests/domain/DomainUmgebung.h"

using namespace dv;
using namespace dv::test;

namespace {

std::string namen(const ObjektElement* e, bool mitTon = false) {
    std::string s = "[";
    for (; e; e = e->pNext) {
        s += e->pObjekt1 ? e->pObjekt1->zeile.cpText : "?";
        if (mitTon) s += std::string("/") + (e->pObjekt2 ? e->pObjekt2->zeile.cpText : "?");
        s += ",";
    }
    return s + "]";
}

std::string personen(const PersonenElement* p) {
    std::string s = "[";
    for (; p; p = p->pNext) {
        s += std::string(p->pPerson ? p->pPerson->zeile.cpName : "?") + "/" +
             std::to_string(p->lFunktion);
        for (const ListenElement* a = p->pAlias; a; a = a->pNext)
            s += std::string("~") + static_cast<const Zeile1*>(a->pObjekt)->cpText;
        s += ",";
    }
    return s + "]";
}

std::string funktionen(const FktElement* f) {
    std::string s = "[";
    for (; f; f = f->pNext) s += std::string(f->cpText) + ",";
    return s + "]";
}

// One text per list kind over the whole tree.
using Beschreibung = std::function<std::string(const BoxElement*)>;
std::string ueberFilme(const BoxElement* b,
                       const std::function<std::string(const FilmElement*)>& f) {
    std::string s;
    for (; b; b = b->pNext)
        for (const DvdElement* d = b->pDvds; d; d = d->pNext)
            for (const FilmElement* fi = d->pFilme; fi; fi = fi->pNext) s += f(fi) + ";";
    return s;
}

const std::map<unsigned, Beschreibung>& arten() {
    static const std::map<unsigned, Beschreibung> m = {
        {kUmfangBoxExtras,
         [](const BoxElement* b) {
             std::string s;
             for (; b; b = b->pNext) s += namen(b->pExtras) + ";";
             return s;
         }},
        {kUmfangDvds,
         [](const BoxElement* b) {
             std::string s;
             for (; b; b = b->pNext)
                 for (const DvdElement* d = b->pDvds; d; d = d->pNext)
                     s += std::to_string(d->Id) + d->cpText + std::to_string(d->Index) + ";";
             return s;
         }},
        {kUmfangDvdExtras,
         [](const BoxElement* b) {
             std::string s;
             for (; b; b = b->pNext)
                 for (const DvdElement* d = b->pDvds; d; d = d->pNext) s += namen(d->pExtras) + ";";
             return s;
         }},
        {kUmfangFilme,
         [](const BoxElement* b) {
             return ueberFilme(b, [](const FilmElement* f) {
                 return std::to_string(f->Id) + f->cpTitel + std::to_string(f->Index);
             });
         }},
        {kUmfangGenres,
         [](const BoxElement* b) {
             return ueberFilme(b, [](auto* f) { return namen(f->pGenres); });
         }},
        {kUmfangBildformate,
         [](const BoxElement* b) {
             return ueberFilme(b, [](auto* f) { return namen(f->pBildformate); });
         }},
        {kUmfangUntertitel,
         [](const BoxElement* b) {
             return ueberFilme(b, [](auto* f) { return namen(f->pUntertitel); });
         }},
        {kUmfangSprachen,
         [](const BoxElement* b) {
             return ueberFilme(b, [](auto* f) { return namen(f->pSprachen, true); });
         }},
        {kUmfangPersonen,
         [](const BoxElement* b) {
             return ueberFilme(b, [](auto* f) { return personen(f->pPersonen); });
         }},
        {kUmfangFunktionen,
         [](const BoxElement* b) {
             return ueberFilme(b, [](auto* f) { return funktionen(f->pFunktionen); });
         }},
    };
    return m;
}

class SammlungUmfang : public ::testing::Test, public DomainUmgebung {
  protected:
    void SetUp() override {
        for (int i = 0; i < 2; ++i) {
            const long b = box(i ? "Zweite" : "Erste", i ? "2" : "1");
            ASSERT_TRUE(
                db->schreibeExtras(kTypBoxExtras, b, {lookup(kTypExtras, i ? "Poster" : "Heft")}));
            const long d = dvd(b, "DVD");
            ASSERT_TRUE(db->schreibeExtras(kTypExtras, d, {lookup(kTypExtras, "Trailer")}));
            const long f = film(d, i ? "Film B" : "Film A");
            ASSERT_TRUE(db->schreibeFilmObjekte(f, kTypGenre, {lookup(kTypGenre, "Drama")}));
            ASSERT_TRUE(
                db->schreibeFilmObjekte(f, kTypBildformat, {lookup(kTypBildformat, "16:9")}));
            const long deutsch = lookup(kTypSprache, "Deutsch");
            ASSERT_TRUE(db->schreibeFilmObjekte(f, kTypUntertitel, {deutsch}));
            ASSERT_TRUE(db->schreibeFilmSprachen(f, {{deutsch, lookup(kTypTonformat, "DTS")}}));
            ASSERT_TRUE(db->schreibeFilmObjekte(f, kTypFunktion, {1}));
            PersonEintrag p;
            p.person = person("Reeves", "Keanu");
            p.funktion = 1;
            p.alias = {"Neo"};
            ASSERT_TRUE(db->schreibeFilmPersonen(f, {p}));
        }
    }
};

}  // namespace

TEST_F(SammlungUmfang, JederUmfangBautGenauSeineListen) {
    BoxListe ganz = db->ladeSammlung();
    for (const auto& [art, beschreibe] : arten()) {
        const std::string text = beschreibe(ganz.get());
        EXPECT_NE(text.find_first_not_of(";[]"), std::string::npos) << "art " << art << " leer";
    }
    const unsigned filmListen = kUmfangGenres | kUmfangBildformate | kUmfangUntertitel |
                                kUmfangSprachen | kUmfangPersonen | kUmfangFunktionen;
    std::vector<unsigned> umfaenge = {0, kUmfangGenres | kUmfangSprachen, kUmfangAlles};
    for (const auto& [art, b] : arten()) umfaenge.push_back(art);
    for (unsigned u : umfaenge) {
        // The owners a list needs come with it.
        unsigned erwartet = u;
        if (erwartet & filmListen) erwartet |= kUmfangFilme;
        if (erwartet & (kUmfangFilme | kUmfangDvdExtras)) erwartet |= kUmfangDvds;
        BoxListe teil = db->ladeSammlung(u);
        ASSERT_EQ(idsVon(teil.get()), idsVon(ganz.get()));
        for (const auto& [art, beschreibe] : arten()) {
            const std::string soll = (erwartet & art) ? beschreibe(ganz.get()) : "";
            const std::string ist = beschreibe(teil.get());
            if (erwartet & art)
                EXPECT_EQ(ist, soll) << "Umfang " << u << ", Art " << art;
            else
                EXPECT_EQ(ist.find_first_not_of(";[]"), std::string::npos)
                    << "Umfang " << u << ", Art " << art << ": " << ist;
        }
    }
    ganz.reset();
    EXPECT_TRUE(spur.offen().empty());
}
