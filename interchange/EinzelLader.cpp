#include "interchange/EinzelLader.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "domain/Bausteine.h"
#include "interchange/ExportQuelle.h"

namespace dv {
namespace {

constexpr const char* kFn = "EinzelLader";

// The link rows of the wanted owners, grouped, each group in table order and then
// sorted by "Pos" with the C library's quicksort, as the domain sorts them.
long besitzerVon(const Zeile2& z) {
    return z.DVD_Id;
}
long besitzerVon(const Zeile3& z) {
    return z.Film_Id;
}
long besitzerVon(const Zeile4& z) {
    return z.Fremd_Id;
}
long besitzerVon(const Zeile6& z) {
    return z.Film_Id;
}
long besitzerVon(const Zeile7& z) {
    return z.Box_Id;
}

template <class Z>
class Gruppen {
  public:
    // The owner is the first field of every table read here; rows of other
    // owners are passed over undecoded.
    template <class T>
    Gruppen(T& tab, const std::unordered_set<long>& gesucht) {
        if (gesucht.empty()) return;
        // A table holds hundreds of thousands of rows and an object a handful of
        // owners: a flag per id answers faster than a hash.
        long hoechste = 0;
        for (long id : gesucht) hoechste = std::max(hoechste, id);
        std::vector<char> flag(static_cast<std::size_t>(hoechste) + 1, 0);
        for (long id : gesucht)
            if (id > 0) flag[static_cast<std::size_t>(id)] = 1;
        tab.scanneNachErstemFeld(
            [&](std::int32_t b) {
                return b > 0 && b <= hoechste && flag[static_cast<std::size_t>(b)];
            },
            [&](const Z& z) { rows_[besitzerVon(z)].push_back(z); });
    }
    std::vector<const Z*> von(long besitzer) const {
        std::vector<const Z*> p;
        auto it = rows_.find(besitzer);
        if (it == rows_.end()) return p;
        for (const Z& z : it->second) p.push_back(&z);
        std::qsort(p.data(), p.size(), sizeof(const Z*), bau::vergleichePos<Z>);
        return p;
    }
    std::unordered_map<long, std::vector<Z>>& alle() { return rows_; }

  private:
    std::unordered_map<long, std::vector<Z>> rows_;
};

class Lader {
  public:
    explicit Lader(Datenbank& db) : db_(db), k_(db.katalog()) {}

    ObjektElement* extras(Tabelle2& link, long besitzer) {
        return objekte(Gruppen<Zeile2>(link, {besitzer}), k_.Extras, besitzer);
    }

    DvdElement* dvds(long boxId) {
        Gruppen<Zeile7> links(k_.DVD_Box, {boxId});
        DvdElement* kopf = nullptr;
        DvdElement* letzter = nullptr;
        std::uint16_t index = 1;
        for (const Zeile7* z : links.von(boxId)) {
            auto row = k_.DVD.eine(z->DVD_Id);
            DvdElement* d = row ? db_.Obj2DvdListe(Tabelle9::zeile(row.get())) : nullptr;
            if (!d) continue;
            d->Index = index++;
            bau::haengeAn(kopf, letzter, d);
        }
        return kopf;
    }

    // Extras and films of the DVDs, and the films' lists.
    void ladeDvds(DvdElement* dvds) {
        std::unordered_set<long> ids;
        for (DvdElement* d = dvds; d; d = d->pNext) ids.insert(d->Id);
        Gruppen<Zeile2> extras(k_.DVD_Extras, ids);
        Gruppen<Zeile2> filme(k_.DVD_Film, ids);
        std::unordered_set<long> filmIds;
        for (DvdElement* d = dvds; d; d = d->pNext) {
            d->pExtras = objekte(extras, k_.Extras, d->Id);
            FilmElement* letzter = nullptr;
            std::uint16_t index = 1;
            for (const Zeile2* z : filme.von(d->Id)) {
                auto row = k_.Film.eine(z->Objekt1_Id);
                FilmElement* f = row ? db_.Obj2FilmListe(Tabelle5::zeile(row.get())) : nullptr;
                if (!f) continue;
                f->Index = index++;
                bau::haengeAn(d->pFilme, letzter, f);
                filmIds.insert(f->Id);
            }
        }
        ladeFilme(dvds, filmIds);
    }

    std::unordered_map<long, std::vector<Zeile4>> titel;

  private:
    void ladeFilme(DvdElement* dvds, const std::unordered_set<long>& ids) {
        Gruppen<Zeile4> t(k_.Titel, ids);
        Gruppen<Zeile2> genre(k_.Film_Genre, ids), bild(k_.Film_Bildformat, ids),
            untertitel(k_.Film_Untertitel, ids), fkt(k_.Film_Fkt, ids);
        Gruppen<Zeile6> sprachen(k_.Film_Sprachen, ids);
        Gruppen<Zeile3> personen(k_.Film_Person, ids);
        std::unordered_set<long> links;
        for (auto& [film, rows] : personen.alle())
            for (const Zeile3& z : rows) links.insert(z.Id);
        Gruppen<Zeile2> alias(k_.Film_Alias, links);
        for (DvdElement* d = dvds; d; d = d->pNext) {
            for (FilmElement* f = d->pFilme; f; f = f->pNext) {
                const Zeile4* haupt = nullptr;
                for (const Zeile4* z : t.von(f->Id))
                    if (!haupt || bau::besserTitel(*z, *haupt)) haupt = z;
                if (haupt) std::snprintf(f->cpTitel, sizeof f->cpTitel, "%s", haupt->cpTitel);
                f->pGenres = objekte(genre, k_.Genre, f->Id);
                f->pBildformate = objekte(bild, k_.Bildformate, f->Id);
                f->pUntertitel = objekte(untertitel, k_.Sprachen, f->Id);
                f->pSprachen = sprachenMitTon(sprachen, f->Id);
                f->pPersonen = personenVon(personen, alias, f->Id);
                f->pFunktionen = funktionen(fkt, f->Id);
            }
        }
        titel.swap(t.alle());
    }

    // A lookup row by id, read once per table and id.
    const Zeile1* lookup(Tabelle1& tab, long id) {
        auto key = std::make_pair(&tab, id);
        auto it = lookups_.find(key);
        if (it == lookups_.end()) {
            auto row = id > 0 ? tab.eine(id) : ListenBesitz();
            std::unique_ptr<Zeile1> z;
            if (row) z = std::make_unique<Zeile1>(Tabelle1::zeile(row.get()));
            it = lookups_.emplace(key, std::move(z)).first;
        }
        return it->second.get();
    }

    ObjektElement* objekte(const Gruppen<Zeile2>& links, Tabelle1& tab, long besitzer) {
        return bau::liste<ObjektElement>(links.von(besitzer), [&](const Zeile2& z) {
            const Zeile1* o = lookup(tab, z.Objekt1_Id);
            return o ? bau::objekt(db_, kFn, *o, nullptr, z.Pos) : nullptr;
        });
    }

    ObjektElement* sprachenMitTon(const Gruppen<Zeile6>& links, long film) {
        return bau::liste<ObjektElement>(links.von(film), [&](const Zeile6& z) {
            const Zeile1* s = lookup(k_.Sprachen, z.Sprachen_Id);
            const Zeile1* t = lookup(k_.Tonformate, z.Tonformat_Id);
            return s && t ? bau::objekt(db_, kFn, *s, t, z.Pos) : nullptr;
        });
    }

    ListenElement* aliasListe(const Gruppen<Zeile2>& alias, long link) {
        return bau::liste<ListenElement>(alias.von(link), [&](const Zeile2& a) {
            const Zeile1* row = lookup(k_.Alias, a.Objekt1_Id);
            return row ? bau::aliasKnoten(db_, kFn, *row) : nullptr;
        });
    }

    PersonenElement* personenVon(const Gruppen<Zeile3>& links, const Gruppen<Zeile2>& alias,
                                 long film) {
        return bau::liste<PersonenElement>(
            links.von(film), [&](const Zeile3& z) -> PersonenElement* {
                auto person = k_.Person.eine(z.Person_Id);
                if (!person) return nullptr;
                return bau::person(db_, kFn, z, Tabelle8::zeile(person.get()),
                                   aliasListe(alias, z.Id));
            });
    }

    FktElement* funktionen(const Gruppen<Zeile2>& links, long film) {
        return bau::liste<FktElement>(links.von(film), [&](const Zeile2& z) {
            const Zeile1* f = lookup(k_.Funktion, z.Objekt1_Id);
            return f ? bau::funktion(db_, kFn, *f, z.Pos) : nullptr;
        });
    }

    Datenbank& db_;
    Katalog& k_;
    std::map<std::pair<Tabelle1*, long>, std::unique_ptr<Zeile1>> lookups_;
};

}  // namespace

BoxListe ladeBoxGanz(Datenbank& db, long boxId, ExportQuelle* quelle) {
    BoxListe b = db.getBox(boxId);
    if (!b) return b;
    Lader l(db);
    b->pExtras = l.extras(db.katalog().Box_Extras, boxId);
    b->pDvds = l.dvds(boxId);
    l.ladeDvds(b->pDvds);
    if (quelle) quelle->uebernimmTitel(std::move(l.titel));
    return b;
}

DvdListe ladeDvdGanz(Datenbank& db, long dvdId, ExportQuelle* quelle) {
    DvdListe d = db.getDvd(dvdId);
    if (!d) return d;
    Lader l(db);
    d->pNext = nullptr;
    l.ladeDvds(d.get());
    if (quelle) quelle->uebernimmTitel(std::move(l.titel));
    return d;
}

}  // namespace dv
