#include "retrieval/Objektzugriff.h"

#include <algorithm>

namespace dv {

namespace {

// Up to this many objects of one kind are read by id; more read the table once.
constexpr std::size_t kWenige = 16;

// The positions in objekte of the objects of one kind.
std::vector<std::size_t> vomTyp(const std::vector<ObjektRef>& objekte, int typ) {
    std::vector<std::size_t> pos;
    for (std::size_t i = 0; i < objekte.size(); ++i)
        if (objekte[i].typ == typ && objekte[i].id > 0) pos.push_back(i);
    return pos;
}

// The asked ids, sorted, for a table scan. Not an array by id: the ids come
// from stored rows and may be far beyond every table.
using Ids = std::vector<long>;
Ids gefragt(const std::vector<ObjektRef>& objekte, const std::vector<std::size_t>& pos) {
    Ids ids;
    for (std::size_t i : pos) ids.push_back(objekte[i].id);
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

bool istGefragt(const Ids& ids, long id) {
    return std::binary_search(ids.begin(), ids.end(), id);
}

// The name field of boxes or DVDs: by id for a few, else one scan.
template <class T>
void namenAus(T& tab, int typ, const std::vector<ObjektRef>& objekte,
              std::vector<std::optional<std::string>>& aus) {
    const std::vector<std::size_t> pos = vomTyp(objekte, typ);
    if (pos.size() <= kWenige) {
        for (std::size_t i : pos)
            if (auto l = tab.eine(objekte[i].id)) aus[i] = T::zeile(l.get()).cpText;
        return;
    }
    const Ids flags = gefragt(objekte, pos);
    std::unordered_map<long, std::string> namen;
    tab.scanne([&](const typename T::Zeile& z) {
        if (istGefragt(flags, z.Id)) namen.emplace(z.Id, z.cpText);
    });
    for (std::size_t i : pos) {
        auto it = namen.find(objekte[i].id);
        if (it != namen.end()) aus[i] = it->second;
    }
}

// The title a film is shown under: a main title first, then the lower "Pos",
// then the lower id (the catalogue tree's choice).
bool besser(const Zeile4& a, const Zeile4& b) {
    const bool hauptA = a.Typ == kTitelHaupt, hauptB = b.Typ == kTitelHaupt;
    if (hauptA != hauptB) return hauptA;
    if (a.Pos != b.Pos) return a.Pos < b.Pos;
    return a.Id < b.Id;
}

void filmTitel(Katalog& k, const std::vector<ObjektRef>& objekte,
               std::vector<std::optional<std::string>>& aus) {
    const std::vector<std::size_t> pos = vomTyp(objekte, kObjektFilm);
    if (pos.empty()) return;
    const Ids flags = gefragt(objekte, pos);
    // Films that do not exist are dropped.
    Ids lebt;
    if (pos.size() <= kWenige) {
        for (long id : flags)
            if (k.Film.eine(id)) lebt.push_back(id);
    } else {
        k.Film.scanne([&](const Zeile5& z) {
            if (istGefragt(flags, z.Id)) lebt.push_back(z.Id);
        });
    }
    std::unordered_map<long, Zeile4> beste;
    k.Titel.scanne([&](const Zeile4& z) {
        if (!istGefragt(lebt, z.Fremd_Id)) return;
        auto [it, neu] = beste.emplace(z.Fremd_Id, z);
        if (!neu && besser(z, it->second)) it->second = z;
    });
    for (std::size_t i : pos) {
        if (!istGefragt(lebt, objekte[i].id)) continue;
        auto it = beste.find(objekte[i].id);
        aus[i] = it != beste.end() ? std::string(it->second.cpTitel) : std::string();
    }
}

}  // namespace

std::vector<std::optional<std::string>> objektTitel(Datenbank& db,
                                                    const std::vector<ObjektRef>& objekte) {
    std::vector<std::optional<std::string>> aus(objekte.size());
    Katalog& k = db.katalog();
    namenAus(k.Box, kObjektBox, objekte, aus);
    namenAus(k.DVD, kObjektDvd, objekte, aus);
    filmTitel(k, objekte, aus);
    return aus;
}

bool objektExistiert(Datenbank& db, int typ, long id) {
    if (id <= 0) return false;
    Katalog& k = db.katalog();
    switch (typ) {
        case kObjektBox:
            return k.Box.eine(id) != nullptr;
        case kObjektDvd:
            return k.DVD.eine(id) != nullptr;
        case kObjektFilm:
            return k.Film.eine(id) != nullptr;
        default:
            return false;
    }
}

Sammlungsindex::Sammlungsindex(Datenbank& db) : boxen_(db.ladeSammlung(kUmfangFilme)) {
    for (const BoxElement* b = boxen_.get(); b; b = b->pNext) {
        boxNachId_.emplace(b->Id, Ort{b, b});
        nachEan_[b->cpEAN].push_back(b);
        for (const DvdElement* d = b->pDvds; d; d = d->pNext) {
            dvdNachId_.emplace(d->Id, Ort{d, b});
            for (const FilmElement* f = d->pFilme; f; f = f->pNext)
                filmNachId_.emplace(f->Id, Ort{f, b});
        }
    }
    for (auto& [ean, boxen] : nachEan_)
        std::sort(boxen.begin(), boxen.end(),
                  [](const BoxElement* a, const BoxElement* b) { return a->Id < b->Id; });
}

const BoxElement* Sammlungsindex::box(long id) const {
    auto it = boxNachId_.find(id);
    return it == boxNachId_.end() ? nullptr : it->second.box;
}

const DvdElement* Sammlungsindex::dvd(long id, const BoxElement** box) const {
    auto it = dvdNachId_.find(id);
    if (it == dvdNachId_.end()) return nullptr;
    if (box) *box = it->second.box;
    return static_cast<const DvdElement*>(it->second.objekt);
}

const FilmElement* Sammlungsindex::film(long id, const BoxElement** box) const {
    auto it = filmNachId_.find(id);
    if (it == filmNachId_.end()) return nullptr;
    if (box) *box = it->second.box;
    return static_cast<const FilmElement*>(it->second.objekt);
}

long Sammlungsindex::finde(int typ, const std::string& ean, const std::string& titel) const {
    auto it = nachEan_.find(ean);
    if (it == nachEan_.end()) return 0;
    for (const BoxElement* b : it->second) {
        if (typ == kObjektBox && titel == b->cpText) return b->Id;
        for (const DvdElement* d = b->pDvds; d && typ != kObjektBox; d = d->pNext) {
            if (typ == kObjektDvd && titel == d->cpText) return d->Id;
            for (const FilmElement* f = d->pFilme; f && typ == kObjektFilm; f = f->pNext)
                if (titel == f->cpTitel) return f->Id;
        }
    }
    return 0;
}

}  // namespace dv
