// The one-pass reader of a single box or DVD builds exactly the lists that the
// domain's per-object builders build, and every element it allocates is released.
#include <gtest/gtest.h>

#include <sstream>

#include "interchange/EinzelLader.h"
#include "interchange/ExportQuelle.h"
#include "tests/domain/DomainUmgebung.h"
#include "tests/interchange/Austauschtest.h"

using namespace dv;
using namespace dv::test;

namespace {

std::string objekte(const ObjektElement* e) {
    std::ostringstream o;
    for (; e; e = e->pNext)
        o << e->Id << "/" << e->pObjekt1->zeile.cpText << "/" << e->Id2 << "/"
          << (e->pObjekt2 ? e->pObjekt2->zeile.cpText : "-") << "/" << e->lPos
          << (e->pPrev ? "^" : "") << ";";
    return o.str();
}

std::string film(const FilmElement& f) {
    std::ostringstream o;
    o << "  Film " << f.Id << " " << int(f.FSK) << " " << f.Laenge << " " << f.Jahr << " ["
      << f.cpTitel << "] #" << f.Index << "\n   G " << objekte(f.pGenres) << "\n   B "
      << objekte(f.pBildformate) << "\n   U " << objekte(f.pUntertitel) << "\n   S "
      << objekte(f.pSprachen) << "\n   P ";
    for (const PersonenElement* p = f.pPersonen; p; p = p->pNext) {
        o << p->lVerknuepfung << "/" << p->lFunktion << "/" << p->lPos << "/"
          << p->pPerson->zeile.cpName << "(";
        for (const ListenElement* a = p->pAlias; a; a = a->pNext)
            o << static_cast<const Zeile1*>(a->pObjekt)->cpText << ",";
        o << ");";
    }
    o << "\n   F ";
    for (const FktElement* k = f.pFunktionen; k; k = k->pNext)
        o << k->Id << "/" << k->sWert << "/" << k->cpText << ";";
    return o.str() + "\n";
}

std::string dvd(const DvdElement& d) {
    std::ostringstream o;
    o << " Dvd " << d.Id << " [" << d.cpText << "] " << d.Jahr << " " << int(d.RC) << " "
      << int(d.Opt) << " " << d.Formate_Id << " " << d.SN << " #" << d.Index << " X "
      << objekte(d.pExtras) << "\n";
    for (const FilmElement* f = d.pFilme; f; f = f->pNext) o << film(*f);
    return o.str();
}

std::string boxText(const BoxElement& b) {
    std::string s =
        "Box " + std::to_string(b.Id) + " [" + b.cpText + "] X " + objekte(b.pExtras) + "\n";
    for (const DvdElement* d = b.pDvds; d; d = d->pNext) s += dvd(*d);
    return s;
}

}  // namespace

TEST(EinzelLader, GleicheListenWieDieDomaene) {
    DomainUmgebung u;
    const long id = legeBeispielBoxAn(*u.db, u.ordner);
    // Awkward rows: equal positions, a link to a deleted DVD and film, a language
    // whose sound format is gone, a film without main title.
    Katalog& k = u.k();
    const long dvd3 = u.dvd(id, "Dritte");
    k.DVD_Box.insert(id, 9999, 0, 1);
    const long f1 = u.film(dvd3, "Eins");
    const long f2 = u.film(dvd3, "Zwei");
    k.DVD_Film.insert(dvd3, 8888, 1);
    const long weg = u.lookup(kTypTonformat, "weg");
    u.db->schreibeFilmSprachen(
        f1, {{u.lookup(kTypSprache, "Latein"), weg}, {u.lookup(kTypSprache, "Griechisch"), 1}});
    k.Tonformate.remove(weg, true);
    u.db->schreibeFilmTitel(f2, FilmTitel{"", "nur Original", {"dies", "das"}});
    u.db->schreibeFilmObjekte(f2, kTypGenre, {1, 2, 1});

    BoxListe domaene = u.db->getBox(id);
    u.db->ladeBox(*domaene);
    ExportQuelle q(*u.db, u.ordner);
    BoxListe einzeln = ladeBoxGanz(*u.db, id, &q);
    ASSERT_TRUE(einzeln);
    EXPECT_EQ(boxText(*einzeln), boxText(*domaene));
    // The titles handed over serve the export without another pass.
    for (const FilmElement* f = einzeln->pDvds->pFilme; f; f = f->pNext) {
        const FilmTitel t = q.titel(*f);
        const FilmTitel d = u.db->leseFilmTitel(f->Id);
        EXPECT_EQ(t.haupt, d.haupt);
        EXPECT_EQ(t.original, d.original);
        EXPECT_EQ(t.weitere, d.weitere);
    }
    DvdListe d1 = u.db->getDvd(dvd3);
    u.db->ladeDvd(*d1);
    EXPECT_EQ(dvd(*ladeDvdGanz(*u.db, dvd3)), dvd(*d1));

    EXPECT_FALSE(ladeBoxGanz(*u.db, 4242));
    EXPECT_FALSE(ladeDvdGanz(*u.db, 4242));
    domaene.reset();
    einzeln.reset();
    d1.reset();
    EXPECT_TRUE(u.spur.offen().empty());
    EXPECT_TRUE(
        u.spur.enthaelt(std::regex(R"(^\[malloc\] pObj = \[[0-9a-f]{8}\] \{EinzelLader\})")));
}
