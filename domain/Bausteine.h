#pragma once
// Internal to the domain layer: the element makers that the per-object builders
// and the whole-collection reader share, so both produce identical lists.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

#include "base/Hilfen.h"
#include "domain/Datenbank.h"

namespace dv {

// The tables in which one operation deleted rows. Rows are deleted without
// re-initialising their table; each table is re-initialised once at the end,
// so its freed slots are reused by the next insert.
class Datenbank::Geloescht {
  public:
    Geloescht() = default;
    Geloescht(const Geloescht&) = delete;
    Geloescht& operator=(const Geloescht&) = delete;
    ~Geloescht() {
        for (Tabelle* t : tabellen_) t->init();
    }
    bool entferne(Tabelle& t, long id) {
        if (std::find(tabellen_.begin(), tabellen_.end(), &t) == tabellen_.end())
            tabellen_.push_back(&t);
        return t.remove(id, false);
    }
    // Deletes every row that matches the example; the selection is released first.
    template <class T>
    void alle(T& tab, const typename T::Zeile& beispiel) {
        std::vector<long> ids;
        {
            auto l = tab.liste(beispiel);
            for (ListenElement* n = l.get(); n; n = n->pNext) ids.push_back(T::zeile(n).Id);
        }
        for (long id : ids) entferne(tab, id);
    }

  private:
    std::vector<Tabelle*> tabellen_;
};

}  // namespace dv

namespace dv::bau {

// A zero-filled element; traced "[malloc] <var> = [%08x] {<fn>}". Elements come
// from the block store of their size (see Vorrat.h) and go back there on release.
template <class E>
E* neu(Datenbank& db, const char* var, const char* fn) {
    void* roh = vorratFuer<sizeof(E)>().hole();
    if (!roh) return nullptr;
    std::memset(roh, 0, sizeof(E));
    auto* e = static_cast<E*>(roh);
    DV_TRACE(db.trace(), kTraceSpeicher, "[malloc] %s = [%08x] {%s}", var, adr(e), fn);
    return e;
}

// Appends e to the list kopf..letzter (doubly linked through pPrev/pNext).
template <class E>
void haengeAn(E*& kopf, E*& letzter, E* e) {
    e->pPrev = letzter;
    e->pNext = nullptr;
    if (letzter)
        letzter->pNext = e;
    else
        kopf = e;
    letzter = e;
}

// The list of the elements that mach makes from the rows (pointers), in row
// order; a row for which mach gives null (a missing entry, no memory) is left out.
template <class E, class Zeilen, class Mach>
E* liste(const Zeilen& zeilen, Mach&& mach) {
    E* kopf = nullptr;
    E* letzter = nullptr;
    for (const auto* z : zeilen)
        if (E* e = mach(*z)) haengeAn(kopf, letzter, e);
    return kopf;
}

template <std::size_t N>
void kopiere(char (&ziel)[N], const char* quelle) {
    std::memset(ziel, 0, N);
    std::memcpy(ziel, quelle, ::strnlen(quelle, N - 1));
}

// A heap copy of a row; traced "[new] <var> = [%08x] {<fn>}". Null when out of memory.
template <class Z>
SatzKopie<Z>* kopie(Datenbank& db, const Z& z, const char* var, const char* fn) {
    auto* s = new (std::nothrow) SatzKopie<Z>(z);
    if (s) DV_TRACE(db.trace(), kTraceSpeicher, "[new] %s = [%08x] {%s}", var, adr(s), fn);
    return s;
}

// An object list element for a lookup row o1 (and o2 beside it, if given);
// null when anything cannot be allocated (nothing is left behind then).
ObjektElement* objekt(Datenbank& db, const char* fn, const Zeile1& o1, const Zeile1* o2,
                      std::uint16_t pos);

// A person of a film: the link row, a copy of the person and the alias list
// (taken over: freed with the element, also on failure). Null when out of memory.
PersonenElement* person(Datenbank& db, const char* fn, const Zeile3& link, const Zeile8& p,
                        ListenElement* alias);

// A function entry with its 16-bit value.
FktElement* funktion(Datenbank& db, const char* fn, const Zeile1& f, std::uint16_t wert);

// A node of the Alias table carrying a calloc'ed copy of row a; null when out of memory.
ListenElement* aliasKnoten(Datenbank& db, const char* fn, const Zeile1& a);

// Whether title a is a better main title than b: kind 1 first, then lower "Pos",
// then lower id.
bool besserTitel(const Zeile4& a, const Zeile4& b);

// The link rows that match the example, sorted ascending by "Pos"
// (sortUrObjektListe on the nodes' 16-bit value).
template <class T>
ListenBesitz sortierteLinks(T& tab, const typename T::Zeile& beispiel, const Trace& trace) {
    ListenBesitz l = tab.liste(beispiel);
    for (ListenElement* n = l.get(); n; n = n->pNext) n->sWert = T::zeile(n).Pos;
    ListenElement* kopf = sortUrObjektListe(l.release(), trace);
    return besitze(tab, kopf);
}

// The rows of a list as pointers, in list order (the list must outlive them).
template <class T>
std::vector<const typename T::Zeile*> zeiger(const ListenBesitz& l) {
    std::vector<const typename T::Zeile*> v;
    for (ListenElement* n = l.get(); n; n = n->pNext) v.push_back(&T::zeile(n));
    return v;
}

// A child list (the DVDs of a box, the films of a DVD): one element per link
// row, in the given order, where element(link) finds the target and makes its
// element (null: the target is missing and the row is skipped). The running
// Index starts at 1 and does not advance for a skipped row.
template <class E, class Links, class Element>
E* kinderListe(const Links& links, Element&& element) {
    E* kopf = nullptr;
    E* letzter = nullptr;
    std::uint16_t index = 1;
    for (const auto* link : links) {
        E* e = element(*link);
        if (!e) continue;
        e->Index = index++;
        haengeAn(kopf, letzter, e);
    }
    return kopf;
}

// A link row of Tabelle2 or Tabelle10 with the two ids set (the rest zero),
// as a select example or for an insert.
inline Zeile2 linkVon(long erstes, long zweites) {
    Zeile2 z{};
    z.DVD_Id = static_cast<std::int32_t>(erstes);
    z.Objekt1_Id = static_cast<std::int32_t>(zweites);
    return z;
}

// The "Pos" after the last link row of an owner (1 for the first); above
// 0xFFFF when the positions are used up until validation renumbers them.
template <class T>
int naechstePos(T& tab, const typename T::Zeile& beispiel) {
    int hoechste = 0;
    auto l = tab.liste(beispiel);
    for (ListenElement* n = l.get(); n; n = n->pNext)
        hoechste = std::max<int>(hoechste, T::zeile(n).Pos);
    return hoechste + 1;
}

// Sort comparator on the "Pos" of link rows, as unsigned 16-bit numbers.
// The whole-collection reader sorts with std::qsort and this comparator, which
// gives the same permutation as sortUrObjektListe on the same input order.
template <class Z>
int vergleichePos(const void* a, const void* b) {
    const auto* x = *static_cast<const Z* const*>(a);
    const auto* y = *static_cast<const Z* const*>(b);
    return static_cast<int>(x->Pos) - static_cast<int>(y->Pos);
}

}  // namespace dv::bau
