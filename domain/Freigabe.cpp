// Releasing object lists and removing single elements from them.

#include <cstdlib>

#include "domain/Datenbank.h"

namespace dv {
namespace {

// A list element goes back to the block store it came from (bau::neu).
template <class E>
void gibZurueck(E* p) {
    vorratFuer<sizeof(E)>().gib(p);
}

// The release walks touch each element once, in an order the cache cannot
// guess: the heads of the next lists are fetched ahead, several at a time.
inline void vorab(const void* p) {
    __builtin_prefetch(p);
}

template <class E>
E* zurueck(E* p) {
    while (p && p->pPrev) p = p->pPrev;
    return p;
}

// Unlinks p from the list whose head *ppKopf is; false when there is nothing to do.
template <class E>
bool ausketten(E** ppKopf, E* p) {
    if (!ppKopf || !*ppKopf || !p) return false;
    if (p->pPrev)
        p->pPrev->pNext = p->pNext;
    else
        *ppKopf = p->pNext;
    if (p->pNext) p->pNext->pPrev = p->pPrev;
    p->pPrev = nullptr;
    p->pNext = nullptr;
    return true;
}

// The owner form: hands the head to the raw operation and takes it back.
template <class L, class E, class F>
void mitBesitzer(L& liste, E* p, F&& op) {
    E* kopf = liste.release();
    op(&kopf, p);
    liste.reset(kopf);
}

}  // namespace

#define DV_FREI(var, fn, p) \
    DV_TRACE(trace(), kTraceSpeicher, "[free] " var " = [%08x] {Datenbank::" fn "}", adr(p))
#define DV_DELETE(var, fn, p) \
    DV_TRACE(trace(), kTraceSpeicher, "[delete] " var " = [%08x] {Datenbank::" fn "}", adr(p))

void BoxFreigabe::operator()(BoxElement* p) const {
    if (db) db->FreeBoxListe(p);
}
void DvdFreigabe::operator()(DvdElement* p) const {
    if (db) db->FreeDvdListe(p);
}
void FilmFreigabe::operator()(FilmElement* p) const {
    if (db) db->FreeFilmListe(p);
}
void ObjektFreigabe::operator()(ObjektElement* p) const {
    if (db) db->FreeObjektListe(p);
}
void PersonenFreigabe::operator()(PersonenElement* p) const {
    if (db) db->FreePersonenListe(p);
}
void FktFreigabe::operator()(FktElement* p) const {
    if (db) db->FreeFktListe(p);
}
void TitelFreigabe::operator()(TitelElement* p) const {
    if (db) db->FreeTitelListe(p);
}

void Datenbank::FreeBoxListe(BoxElement* p) {
    for (p = zurueck(p); p;) {
        BoxElement* naechste = p->pNext;
        vorab(naechste);
        vorab(p->pDvds);
        FreeObjektListe(p->pExtras);
        p->pExtras = nullptr;
        FreeDvdListe(p->pDvds);
        p->pDvds = nullptr;
        DV_FREI("pBox", "FreeBoxListe", p);
        gibZurueck(p);
        p = naechste;
    }
}

void Datenbank::FreeDvdListe(DvdElement* p) {
    for (p = zurueck(p); p;) {
        DvdElement* naechste = p->pNext;
        vorab(naechste);
        vorab(p->pExtras);
        FreeFilmListe(p->pFilme);
        p->pFilme = nullptr;
        FreeObjektListe(p->pExtras);
        p->pExtras = nullptr;
        DV_FREI("pDvd", "FreeDvdListe", p);
        gibZurueck(p);
        p = naechste;
    }
}

void Datenbank::FreeFilmListe(FilmElement* p) {
    for (p = zurueck(p); p;) {
        FilmElement* naechste = p->pNext;
        vorab(naechste);
        for (const void* kopf :
             {static_cast<const void*>(p->pBildformate), static_cast<const void*>(p->pGenres),
              static_cast<const void*>(p->pSprachen), static_cast<const void*>(p->pUntertitel),
              static_cast<const void*>(p->pPersonen), static_cast<const void*>(p->pFunktionen)})
            vorab(kopf);
        FreeObjektListe(p->pBildformate);
        FreeObjektListe(p->pGenres);
        FreeObjektListe(p->pSprachen);
        FreeObjektListe(p->pUntertitel);
        FreePersonenListe(p->pPersonen);
        FreeFktListe(p->pFunktionen);
        DV_FREI("pFilm", "FreeFilmListe", p);
        gibZurueck(p);
        p = naechste;
    }
}

void Datenbank::FreeObjektListe(ObjektElement* p) {
    for (p = zurueck(p); p;) {
        ObjektElement* naechste = p->pNext;
        vorab(naechste);
        FreeObjektListenElement(p);
        p = naechste;
    }
}

void Datenbank::FreeObjektListenElement(ObjektElement* p) {
    if (!p) return;
    if (p->pObjekt1) {
        DV_DELETE("p->pObjekt1", "FreeObjektListenElement", p->pObjekt1);
        delete p->pObjekt1;
        p->pObjekt1 = nullptr;
    }
    if (p->pObjekt2) {
        DV_DELETE("p->pObjekt2", "FreeObjektListenElement", p->pObjekt2);
        delete p->pObjekt2;
        p->pObjekt2 = nullptr;
    }
    katalog_.Alias.delListe(p->pAlias);
    p->pAlias = nullptr;
    if (p->pPerson) {
        DV_DELETE("p->pPerson", "FreeObjektListenElement", p->pPerson);
        delete p->pPerson;
        p->pPerson = nullptr;
    }
    DV_FREI("p", "FreeObjektListenElement", p);
    gibZurueck(p);
}

void Datenbank::FreePersonenListe(PersonenElement* p) {
    for (p = zurueck(p); p;) {
        PersonenElement* naechste = p->pNext;
        vorab(naechste);
        if (p->pPerson) {
            DV_DELETE("p->pPerson", "FreePersonenListe", p->pPerson);
            delete p->pPerson;
            p->pPerson = nullptr;
        }
        katalog_.Alias.delListe(p->pAlias);
        p->pAlias = nullptr;
        DV_FREI("p", "FreePersonenListe", p);
        gibZurueck(p);
        p = naechste;
    }
}

void Datenbank::FreePersonenElement(PersonenElement* p) {
    if (!p) return;
    if (p->pPerson) {
        DV_DELETE("p->pPerson", "delPersonenListenElement", p->pPerson);
        delete p->pPerson;
        p->pPerson = nullptr;
    }
    for (ListenElement* a = p->pAlias; a;) {
        ListenElement* naechste = a->pNext;
        if (a->pObjekt) {
            DV_FREI("pAlias->pObjekt", "delPersonenListenElement", a->pObjekt);
            std::free(a->pObjekt);
        }
        DV_FREI("pAlias", "delPersonenListenElement", a);
        std::free(a);
        a = naechste;
    }
    p->pAlias = nullptr;
    DV_FREI("p", "delPersonenListenElement", p);
    gibZurueck(p);
}

void Datenbank::FreeFktListe(FktElement* p) {
    for (p = zurueck(p); p;) {
        FktElement* naechste = p->pNext;
        DV_FREI("p", "FreeFktListe", p);
        gibZurueck(p);
        p = naechste;
    }
}

void Datenbank::FreeTitelListe(TitelElement* p) {
    while (p) {
        TitelElement* naechste = p->pNext;
        DV_FREI("p", "FreeTitelListe", p);
        gibZurueck(p);
        p = naechste;
    }
}

// ---- Element removal -----------------------------------------------------

void Datenbank::delBoxElement(BoxElement** ppKopf, BoxElement* p) {
    if (ausketten(ppKopf, p)) FreeBoxListe(p);
}

void Datenbank::delDvdElement(DvdElement** ppKopf, DvdElement* p) {
    if (ausketten(ppKopf, p)) FreeDvdListe(p);
}

void Datenbank::delFilmElement(FilmElement** ppKopf, FilmElement* p) {
    if (ausketten(ppKopf, p)) FreeFilmListe(p);
}

void Datenbank::delObjektListenElement(ObjektElement** ppKopf, ObjektElement* p) {
    if (ausketten(ppKopf, p)) FreeObjektListenElement(p);
}

void Datenbank::delPersonenListenElement(PersonenElement** ppKopf, PersonenElement* p) {
    if (ausketten(ppKopf, p)) FreePersonenElement(p);
}

void Datenbank::delFktElement(FktElement** ppKopf, FktElement* p) {
    if (!ausketten(ppKopf, p)) return;
    DV_FREI("p", "delFktElement", p);
    gibZurueck(p);
}

void Datenbank::delListenElement(ListenElement** ppKopf, ListenElement* p) {
    if (!ausketten(ppKopf, p)) return;
    if (p->pObjekt) {
        DV_FREI("p->pObjekt", "delListenElement", p->pObjekt);
        std::free(p->pObjekt);
    }
    DV_FREI("p", "delListenElement", p);
    std::free(p);
}

void Datenbank::delBoxElement(BoxListe& l, BoxElement* p) {
    mitBesitzer(l, p, [this](BoxElement** k, BoxElement* e) { delBoxElement(k, e); });
}
void Datenbank::delDvdElement(DvdListe& l, DvdElement* p) {
    mitBesitzer(l, p, [this](DvdElement** k, DvdElement* e) { delDvdElement(k, e); });
}
void Datenbank::delFilmElement(FilmListe& l, FilmElement* p) {
    mitBesitzer(l, p, [this](FilmElement** k, FilmElement* e) { delFilmElement(k, e); });
}
void Datenbank::delObjektListenElement(ObjektListe& l, ObjektElement* p) {
    mitBesitzer(l, p,
                [this](ObjektElement** k, ObjektElement* e) { delObjektListenElement(k, e); });
}
void Datenbank::delPersonenListenElement(PersonenListe& l, PersonenElement* p) {
    mitBesitzer(
        l, p, [this](PersonenElement** k, PersonenElement* e) { delPersonenListenElement(k, e); });
}
void Datenbank::delFktElement(FktListe& l, FktElement* p) {
    mitBesitzer(l, p, [this](FktElement** k, FktElement* e) { delFktElement(k, e); });
}

#undef DV_FREI
#undef DV_DELETE

}  // namespace dv
