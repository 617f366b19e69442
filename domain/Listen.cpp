// Building the object lists from the tables, one object at a time.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "base/Hilfen.h"
#include "domain/Bausteine.h"
#include "domain/Datenbank.h"
#include "domain/Durchlauf.h"

namespace dv {
namespace {

// A box with the place of its title's sort key in one shared buffer, led by the
// key's first eight bytes as a big-endian number: most comparisons of a sort then
// end on that number, without following a pointer to the key.
struct BoxSchluessel {
    std::uint64_t anfang;
    const char* schluessel;
    std::size_t stelle;  // of the box in the unsorted order
};

std::uint64_t anfangVon(const char* s) {
    std::uint64_t n = 0;
    int i = 0;
    for (; i < 8 && s[i]; ++i) n = n << 8 | static_cast<unsigned char>(s[i]);
    return n << 8 * (8 - i);
}

int vergleicheBoxSchluessel(const void* a, const void* b) {
    const auto* x = static_cast<const BoxSchluessel*>(a);
    const auto* y = static_cast<const BoxSchluessel*>(b);
    if (x->anfang != y->anfang) return x->anfang < y->anfang ? -1 : 1;
    return std::strcmp(x->schluessel, y->schluessel);
}

}  // namespace

// ---- Elements from rows ---------------------------------------------------

BoxElement* Datenbank::Obj2BoxListe(const Zeile12& z) {
    auto* e = bau::neu<BoxElement>(*this, "pBox", "Datenbank::Obj2BoxListe");
    if (!e) return nullptr;
    e->Id = z.Id;
    e->Verpackungs_Id = z.Verpackungs_Id;
    e->Zusatz_Id = z.Zusatz_Id;
    bau::kopiere(e->cpEAN, z.cpEAN);
    bau::kopiere(e->cpText, z.cpText);
    e->bAnsicht1 = 1;
    return e;
}

DvdElement* Datenbank::Obj2DvdListe(const Zeile9& z) {
    auto* e = bau::neu<DvdElement>(*this, "pDvd", "Datenbank::Obj2DvdListe");
    if (!e) return nullptr;
    e->Id = z.Id;
    e->Jahr = z.Jahr;
    e->RC = z.RC;
    e->Opt = z.Opt;
    bau::kopiere(e->cpText, z.cpText);
    e->Formate_Id = z.Formate_Id;
    e->SN = z.SN;
    e->Laenge = z.Laenge;
    e->BytesLow = z.BytesLow;
    e->BytesHigh = z.BytesHigh;
    return e;
}

FilmElement* Datenbank::Obj2FilmListe(const Zeile5& z) {
    auto* e = bau::neu<FilmElement>(*this, "pFilm", "Datenbank::Obj2FilmListe");
    if (!e) return nullptr;
    e->Id = z.Id;
    e->FSK = z.FSK;
    e->Laenge = z.Laenge;
    e->Jahr = z.Jahr;
    return e;
}

namespace {

// The order of n titles as the catalogue tree sorts them; titel(i) is the i-th
// title. The key array is traced as sortBoxListe's pointer array.
template <class Titel>
std::vector<std::size_t> titelOrdnung(std::size_t n, Titel&& titel, const Trace& trace) {
    // Room for every key at its longest (each umlaut written as two letters);
    // only the pages used are touched, and the buffer never moves.
    std::string text;
    text.reserve(n * (2 * sizeof(BoxElement::cpText) + 1));
    std::vector<std::size_t> stelle;
    stelle.reserve(n);
    for (std::size_t i = 0; i < n; ++i) {
        stelle.push_back(text.size());
        text += boxTitelSchluessel(titel(i));
        text += '\0';
    }
    std::vector<std::size_t> ordnung;
    auto* feld = static_cast<BoxSchluessel*>(std::malloc(n * sizeof(BoxSchluessel)));
    if (!feld) return ordnung;
    DV_TRACE(trace, kTraceSpeicher, "[malloc] pArray = [%08x] {%s}", adr(feld),
             "CApplikation::sortBoxListe");
    for (std::size_t i = 0; i < n; ++i) {
        const char* k = text.c_str() + stelle[i];
        feld[i] = {anfangVon(k), k, i};
    }
    // The C library's sort, as for every other list: boxes of equal keys come out
    // in the order it gives them.
    std::qsort(feld, n, sizeof(BoxSchluessel), vergleicheBoxSchluessel);
    for (std::size_t i = 0; i < n; ++i) ordnung.push_back(feld[i].stelle);
    DV_TRACE(trace, kTraceSpeicher, "[free] pArray = [%08x] {%s}", adr(feld),
             "CApplikation::sortBoxListe");
    std::free(feld);
    return ordnung;
}

}  // namespace

BoxElement* Datenbank::sortBoxListe(BoxElement* kopf) {
    if (!kopf) return kopf;
    while (kopf->pPrev) kopf = kopf->pPrev;
    std::vector<BoxElement*> boxen;
    for (BoxElement* b = kopf; b; b = b->pNext) boxen.push_back(b);
    const std::vector<std::size_t> ordnung = titelOrdnung(
        boxen.size(), [&](std::size_t i) { return boxen[i]->cpText; }, trace());
    if (ordnung.empty()) return kopf;
    BoxElement* neu = nullptr;
    BoxElement* letzter = nullptr;
    for (const std::size_t i : ordnung) bau::haengeAn(neu, letzter, boxen[i]);
    return neu;
}

std::vector<std::int32_t> boxOrdnung(Datenbank& db) {
    struct Box {
        std::int32_t id;
        char text[sizeof BoxElement::cpText];
    };
    std::vector<Box> boxen;
    db.katalog().Box.scanne([&](const Zeile12& z) {
        Box& b = boxen.emplace_back();
        b.id = z.Id;
        bau::kopiere(b.text, z.cpText);  // as Obj2BoxListe copies it
    });
    const std::vector<std::size_t> ordnung = titelOrdnung(
        boxen.size(), [&](std::size_t i) { return boxen[i].text; }, db.trace());
    std::vector<std::int32_t> ids;
    ids.reserve(ordnung.size());
    for (const std::size_t i : ordnung) ids.push_back(boxen[i].id);
    return ids;
}

// ---- Builders ------------------------------------------------------------

BoxListe Datenbank::getBoxListe() {
    BoxElement* kopf = nullptr;
    BoxElement* letzter = nullptr;
    katalog_.Box.scanne([&](const Zeile12& z) {
        if (BoxElement* e = Obj2BoxListe(z)) bau::haengeAn(kopf, letzter, e);
    });
    return BoxListe(sortBoxListe(kopf), BoxFreigabe{this});
}

BoxListe Datenbank::getBox(long id) {
    auto row = katalog_.Box.eine(id);
    return BoxListe(row ? Obj2BoxListe(Tabelle12::zeile(row.get())) : nullptr, BoxFreigabe{this});
}

DvdListe Datenbank::getDvd(long id) {
    auto row = katalog_.DVD.eine(id);
    return DvdListe(row ? Obj2DvdListe(Tabelle9::zeile(row.get())) : nullptr, DvdFreigabe{this});
}

namespace {

// Copies the main title of every film of the list, in one pass over Titel.
void setzeTitel(Katalog& k, FilmElement* kopf) {
    std::vector<std::pair<std::int32_t, Zeile4>> beste;  // sorted by film id
    for (FilmElement* f = kopf; f; f = f->pNext) beste.push_back({f->Id, Zeile4{}});
    if (beste.empty()) return;
    std::sort(beste.begin(), beste.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    k.Titel.scanne([&](const Zeile4& t) {
        auto it = std::lower_bound(beste.begin(), beste.end(), t.Fremd_Id,
                                   [](const auto& a, std::int32_t id) { return a.first < id; });
        for (; it != beste.end() && it->first == t.Fremd_Id; ++it)
            if (it->second.Id == 0 || bau::besserTitel(t, it->second)) it->second = t;
    });
    for (FilmElement* f = kopf; f; f = f->pNext) {
        auto it = std::lower_bound(beste.begin(), beste.end(), f->Id,
                                   [](const auto& a, std::int32_t id) { return a.first < id; });
        if (it != beste.end() && it->first == f->Id) bau::kopiere(f->cpTitel, it->second.cpTitel);
    }
}

}  // namespace

FilmListe Datenbank::getFilm(long id) {
    auto row = katalog_.Film.eine(id);
    FilmElement* e = row ? Obj2FilmListe(Tabelle5::zeile(row.get())) : nullptr;
    setzeTitel(katalog_, e);
    return FilmListe(e, FilmFreigabe{this});
}

DvdListe Datenbank::getDvdListe(long boxId) {
    DvdElement* kopf = nullptr;
    if (boxId > 0) {
        Zeile7 beispiel{};
        beispiel.Box_Id = static_cast<std::int32_t>(boxId);
        auto links = bau::sortierteLinks(katalog_.DVD_Box, beispiel, trace());
        kopf = bau::kinderListe<DvdElement>(bau::zeiger<Tabelle7>(links), [&](const Zeile7& z) {
            auto row = katalog_.DVD.eine(z.DVD_Id);
            return row ? Obj2DvdListe(Tabelle9::zeile(row.get())) : nullptr;
        });
    }
    return DvdListe(kopf, DvdFreigabe{this});
}

FilmListe Datenbank::getFilmListe(long dvdId) {
    FilmElement* kopf = nullptr;
    if (dvdId > 0) {
        auto links = bau::sortierteLinks(katalog_.DVD_Film, bau::linkVon(dvdId, 0), trace());
        kopf = bau::kinderListe<FilmElement>(bau::zeiger<Tabelle2>(links), [&](const Zeile2& z) {
            auto row = katalog_.Film.eine(z.Objekt1_Id);
            return row ? Obj2FilmListe(Tabelle5::zeile(row.get())) : nullptr;
        });
    }
    setzeTitel(katalog_, kopf);
    return FilmListe(kopf, FilmFreigabe{this});
}

ObjektListe Datenbank::getObjektListe(long owner, int typ) {
    Katalog& k = katalog_;
    switch (typ) {
        case kTypExtras:
            return subObjekt2(owner, k.Extras, k.DVD_Extras);
        case kTypGenre:
            return subObjekt10(owner, k.Genre, k.Film_Genre);
        case kTypBildformat:
            return subObjekt10(owner, k.Bildformate, k.Film_Bildformat);
        case kTypSprache:
            return getSprachenFormatListe(owner);
        case kTypUntertitel:
            return subObjekt10(owner, k.Sprachen, k.Film_Untertitel);
        case kTypFunktion:
            return subObjekt10(owner, k.Funktion, k.Film_Fkt);
        case kTypAlias:
            return subObjekt2(owner, k.Alias, k.Film_Alias);
        case kTypBoxExtras:
            return subObjekt2(owner, k.Extras, k.Box_Extras);
        default:
            return ObjektListe(nullptr, ObjektFreigabe{this});
    }
}

ObjektListe Datenbank::getSprachenFormatListe(long filmId) {
    const char* fn = "Datenbank::getSprachenFormatListe";
    ObjektElement* kopf = nullptr;
    ObjektElement* letzter = nullptr;
    if (filmId > 0) {
        Zeile6 beispiel{};
        beispiel.Film_Id = static_cast<std::int32_t>(filmId);
        auto links = bau::sortierteLinks(katalog_.Film_Sprachen, beispiel, trace());
        for (ListenElement* n = links.get(); n; n = n->pNext) {
            const Zeile6& z = Tabelle6::zeile(n);
            auto sprache = katalog_.Sprachen.eine(z.Sprachen_Id);
            if (!sprache) continue;
            auto ton = katalog_.Tonformate.eine(z.Tonformat_Id);
            if (!ton) continue;
            ObjektElement* e = bau::objekt(*this, fn, Tabelle1::zeile(sprache.get()),
                                           &Tabelle1::zeile(ton.get()), z.Pos);
            if (e) bau::haengeAn(kopf, letzter, e);
        }
    }
    return ObjektListe(kopf, ObjektFreigabe{this});
}

namespace {

template <class T>
ObjektElement* subObjekt(Datenbank& db, long owner, Tabelle1& lookup, T& link, const char* fn) {
    ObjektElement* kopf = nullptr;
    ObjektElement* letzter = nullptr;
    if (owner <= 0) return nullptr;
    Zeile2 beispiel{};
    beispiel.DVD_Id = static_cast<std::int32_t>(owner);
    auto links = bau::sortierteLinks(link, beispiel, db.trace());
    for (ListenElement* n = links.get(); n; n = n->pNext) {
        const Zeile2& z = T::zeile(n);
        auto row = lookup.eine(z.Objekt1_Id);
        if (!row) continue;
        ObjektElement* e = bau::objekt(db, fn, Tabelle1::zeile(row.get()), nullptr, z.Pos);
        if (e) bau::haengeAn(kopf, letzter, e);
    }
    return kopf;
}

}  // namespace

ObjektListe Datenbank::subObjekt10(long owner, Tabelle1& lookup, Tabelle10& link) {
    return ObjektListe(subObjekt(*this, owner, lookup, link, "Datenbank::subObjekt10"),
                       ObjektFreigabe{this});
}

ObjektListe Datenbank::subObjekt2(long owner, Tabelle1& lookup, Tabelle2& link) {
    return ObjektListe(subObjekt(*this, owner, lookup, link, "Datenbank::subObjekt2"),
                       ObjektFreigabe{this});
}

PersonenListe Datenbank::getPersonenListe(long filmId) {
    const char* fn = "Datenbank::getPersonenListe";
    PersonenElement* kopf = nullptr;
    PersonenElement* letzter = nullptr;
    if (filmId > 0) {
        Zeile3 beispiel{};
        beispiel.Film_Id = static_cast<std::int32_t>(filmId);
        auto links = bau::sortierteLinks(katalog_.Film_Person, beispiel, trace());
        for (ListenElement* n = links.get(); n; n = n->pNext) {
            const Zeile3& z = Tabelle3::zeile(n);
            auto person = katalog_.Person.eine(z.Person_Id);
            if (!person) continue;
            // The aliases of this link, each node as the Alias table hands it out.
            ListenElement* aliasKopf = nullptr;
            ListenElement* aliasLetzter = nullptr;
            Zeile2 ab{};
            ab.DVD_Id = z.Id;
            auto aliasLinks = bau::sortierteLinks(katalog_.Film_Alias, ab, trace());
            for (ListenElement* a = aliasLinks.get(); a; a = a->pNext) {
                ListenElement* knoten = katalog_.Alias.select(Tabelle2::zeile(a).Objekt1_Id);
                if (knoten) bau::haengeAn(aliasKopf, aliasLetzter, knoten);
            }
            PersonenElement* e =
                bau::person(*this, fn, z, Tabelle8::zeile(person.get()), aliasKopf);
            if (e) bau::haengeAn(kopf, letzter, e);
        }
    }
    return PersonenListe(kopf, PersonenFreigabe{this});
}

FktListe Datenbank::getFktListe(long filmId) {
    const char* fn = "Datenbank::getFktListe";
    FktElement* kopf = nullptr;
    FktElement* letzter = nullptr;
    if (filmId > 0) {
        Zeile2 beispiel{};
        beispiel.DVD_Id = static_cast<std::int32_t>(filmId);
        auto links = bau::sortierteLinks(katalog_.Film_Fkt, beispiel, trace());
        for (ListenElement* n = links.get(); n; n = n->pNext) {
            const Zeile2& z = Tabelle10::zeile(n);
            auto row = katalog_.Funktion.eine(z.Objekt1_Id);
            if (!row) continue;
            if (FktElement* e = bau::funktion(*this, fn, Tabelle1::zeile(row.get()), z.Pos))
                bau::haengeAn(kopf, letzter, e);
        }
    } else {
        katalog_.Funktion.scanne([&](const Zeile1& f) {
            if (FktElement* e = bau::funktion(*this, fn, f, 0)) bau::haengeAn(kopf, letzter, e);
        });
    }
    return FktListe(kopf, FktFreigabe{this});
}

TitelListe Datenbank::getFilmTitel(long filmId) {
    TitelElement* kopf = nullptr;
    TitelElement* letzter = nullptr;
    if (filmId > 0) {
        Zeile4 beispiel{};
        beispiel.Fremd_Id = static_cast<std::int32_t>(filmId);
        auto rows = katalog_.Titel.liste(beispiel);
        for (ListenElement* n = rows.get(); n; n = n->pNext) {
            const Zeile4& z = Tabelle4::zeile(n);
            auto* e = bau::neu<TitelElement>(*this, "pTitel", "Datenbank::getFilmTitel");
            if (!e) continue;
            e->Fremd_Id = z.Fremd_Id;
            e->Typ = z.Typ;
            bau::kopiere(e->cpTitel, z.cpTitel);
            e->Pos = z.Pos;
            (letzter ? letzter->pNext : kopf) = e;
            letzter = e;
        }
    }
    return TitelListe(kopf, TitelFreigabe{this});
}

FilmTitel Datenbank::leseFilmTitel(long filmId) {
    // Each kind in "Pos" order; a second original title counts as a further one.
    std::vector<Zeile4> rows;
    if (filmId > 0) {
        Zeile4 beispiel{};
        beispiel.Fremd_Id = static_cast<std::int32_t>(filmId);
        auto alle = katalog_.Titel.liste(beispiel);
        for (ListenElement* n = alle.get(); n; n = n->pNext) rows.push_back(Tabelle4::zeile(n));
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Zeile4& a, const Zeile4& b) { return a.Pos < b.Pos; });
    FilmTitel t;
    const Zeile4* haupt = nullptr;
    for (const Zeile4& z : rows)
        if (!haupt || bau::besserTitel(z, *haupt)) haupt = &z;
    for (const Zeile4& z : rows) {
        if (&z == haupt)
            t.haupt = z.cpTitel;
        else if (z.Typ == kTitelOriginal && t.original.empty())
            t.original = z.cpTitel;
        else
            t.weitere.push_back(z.cpTitel);
    }
    return t;
}

// ---- Filling per object ---------------------------------------------------

void Datenbank::ladeFilm(FilmElement& f) {
    f.pGenres = getObjektListe(f.Id, kTypGenre).release();
    f.pBildformate = getObjektListe(f.Id, kTypBildformat).release();
    f.pUntertitel = getObjektListe(f.Id, kTypUntertitel).release();
    f.pSprachen = getObjektListe(f.Id, kTypSprache).release();
    f.pPersonen = getPersonenListe(f.Id).release();
    f.pFunktionen = getFktListe(f.Id).release();
}

void Datenbank::ladeDvd(DvdElement& d) {
    d.pExtras = getObjektListe(d.Id, kTypExtras).release();
    d.pFilme = getFilmListe(d.Id).release();
    for (FilmElement* f = d.pFilme; f; f = f->pNext) ladeFilm(*f);
}

void Datenbank::ladeBox(BoxElement& b) {
    b.pExtras = getObjektListe(b.Id, kTypBoxExtras).release();
    b.pDvds = getDvdListe(b.Id).release();
    for (DvdElement* d = b.pDvds; d; d = d->pNext) ladeDvd(*d);
}

// ---- Small reads ---------------------------------------------------------

void Datenbank::anzahl(long& boxen, long& dvds, long& filme) {
    boxen = dvds = filme = 0;
    katalog_.Box.scanne([&](const Zeile12&) { ++boxen; });
    katalog_.DVD.scanne([&](const Zeile9&) { ++dvds; });
    katalog_.Film.scanne([&](const Zeile5&) { ++filme; });
}

long Datenbank::boxVonDvd(long dvdId) {
    if (dvdId <= 0) return 0;
    Zeile7 beispiel{};
    beispiel.DVD_Id = static_cast<std::int32_t>(dvdId);
    auto l = katalog_.DVD_Box.liste(beispiel);
    return l ? Tabelle7::zeile(l.get()).Box_Id : 0;
}

long Datenbank::dvdVonFilm(long filmId) {
    if (filmId <= 0) return 0;
    Zeile2 beispiel{};
    beispiel.Objekt1_Id = static_cast<std::int32_t>(filmId);
    auto l = katalog_.DVD_Film.liste(beispiel);
    return l ? Tabelle2::zeile(l.get()).DVD_Id : 0;
}

}  // namespace dv
