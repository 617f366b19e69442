#include "retrieval/Suche.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "domain/Durchlauf.h"
#include "retrieval/Auswertung.h"

namespace dv {

namespace {

// Marks ids as seen; ids are dense slot numbers, so a flat array serves.
class Gesehen {
  public:
    // True the first time an id is offered.
    bool neu(long id) {
        if (id <= 0) return false;
        const auto i = static_cast<std::size_t>(id);
        if (i >= flags_.size()) flags_.resize(i * 2 + 16, 0);
        if (flags_[i]) return false;
        flags_[i] = 1;
        return true;
    }

  private:
    std::vector<char> flags_;
};

// A copy of an element without its lists and neighbours: what a hit keeps of
// the object once the walk has released the object's box.
template <class E>
E kopfVon(const E& e) {
    E k = e;
    k.pPrev = nullptr;
    k.pNext = nullptr;
    return k;
}

FilmElement ohneListen(const FilmElement& f) {
    FilmElement k = kopfVon(f);
    k.pGenres = k.pBildformate = k.pUntertitel = k.pSprachen = nullptr;
    k.pPersonen = nullptr;
    k.pFunktionen = nullptr;
    return k;
}

DvdElement ohneListen(const DvdElement& d) {
    DvdElement k = kopfVon(d);
    k.pFilme = nullptr;
    k.pExtras = nullptr;
    return k;
}

BoxElement ohneListen(const BoxElement& b) {
    BoxElement k = kopfVon(b);
    k.pDvds = nullptr;
    k.pExtras = nullptr;
    return k;
}

// A film hit of the pass in id order, before it takes its place in walk order.
struct Filmtreffer {
    Fundstelle erste;
    std::string grund;
    FilmElement kopie;
};

// Films in id order read the tables front to back; the hits come back in walk
// order. A hit that finds no memory is dropped.
template <class Weiter>
std::vector<Filmtreffer> filmeNachId(Sammlungsdurchlauf& lauf, auswertung::Auswerter& auswerter,
                                     Weiter&& weiter) {
    std::vector<Filmtreffer> treffer;
    std::string grund;
    lauf.filmeNachId([&](const FilmElement& f, const Fundstelle& erste) {
        const bool passt = auswerter.film(f, grund);
        weiter();
        if (!passt) return;
        try {
            treffer.push_back({erste, grund, ohneListen(f)});
        } catch (const std::bad_alloc&) {
            return;  // the hit is dropped
        }
    });
    std::sort(treffer.begin(), treffer.end(), [](const Filmtreffer& a, const Filmtreffer& b) {
        return a.erste.rang < b.erste.rang;
    });
    return treffer;
}

}  // namespace

Fortschritt fortschrittUeber(Benutzer& benutzer, std::string text) {
    auto letzter = std::make_shared<int>(-1);
    return [&benutzer, text = std::move(text), letzter](int schritt, int gesamt) {
        const int prozent = gesamt > 0 ? static_cast<int>(100LL * schritt / gesamt) : 100;
        if (prozent == *letzter && schritt != gesamt) return;
        *letzter = prozent;
        benutzer.fortschritt(text, schritt, gesamt);
    };
}

Suchergebnis::~Suchergebnis() {
    leere();
}

Suchergebnis::Suchergebnis(Suchergebnis&& o) noexcept
    : objektTyp_(o.objektTyp_),
      kopf_(std::exchange(o.kopf_, nullptr)),
      letzter_(std::exchange(o.letzter_, nullptr)),
      anzahl_(std::exchange(o.anzahl_, 0)),
      fundorte_(std::move(o.fundorte_)),
      boxen_(std::move(o.boxen_)),
      dvds_(std::move(o.dvds_)),
      filme_(std::move(o.filme_)) {}

Suchergebnis& Suchergebnis::operator=(Suchergebnis&& o) noexcept {
    if (this != &o) {
        leere();
        objektTyp_ = o.objektTyp_;
        kopf_ = std::exchange(o.kopf_, nullptr);
        letzter_ = std::exchange(o.letzter_, nullptr);
        anzahl_ = std::exchange(o.anzahl_, 0);
        fundorte_ = std::move(o.fundorte_);
        boxen_ = std::move(o.boxen_);
        dvds_ = std::move(o.dvds_);
        filme_ = std::move(o.filme_);
    }
    return *this;
}

void Suchergebnis::leere() {
    // Hits first: they point into the collection.
    while (kopf_) {
        SearchHit* n = kopf_->next;
        delete kopf_;
        kopf_ = n;
    }
    letzter_ = nullptr;
    anzahl_ = 0;
    fundorte_.clear();
    boxen_.clear();
    dvds_.clear();
    filme_.clear();
}

std::string Suchergebnis::statusZeile() const {
    const char* art = objektTyp_ == kObjektBox   ? "Boxen"
                      : objektTyp_ == kObjektDvd ? "Dvds"
                                                 : "Filme";
    return std::string(art) + ": " + std::to_string(anzahl_) + " Treffer";
}

// Records a hit on the object met at box b, DVD d, film f.
void Suchergebnis::nimmAuf(const BoxElement& b, const DvdElement* d, const FilmElement* f,
                           const std::string& grund) {
    const void* objekt = nullptr;
    try {
        if (f)
            objekt = &filme_.emplace_back(ohneListen(*f));
        else if (d)
            objekt = &dvds_.emplace_back(ohneListen(*d));
        else
            objekt = &boxen_.emplace_back(ohneListen(b));
    } catch (const std::bad_alloc&) {
        return;  // the hit is dropped
    }
    haengeAn(b.Id, d ? d->Id : 0, f ? f->Id : 0, grund, objekt);
}

void Suchergebnis::haengeAn(long box, long dvd, long film, const std::string& grund,
                            const void* objekt) {
    auto* h = new (std::nothrow) SearchHit;
    if (!h) return;  // the hit is dropped
    h->objectType = objektTyp_;
    h->boxId = box;
    h->dvdId = dvd;
    h->filmId = film;
    try {
        h->reason = grund;
        fundorte_.push_back(objekt);
    } catch (const std::bad_alloc&) {
        delete h;
        return;
    }
    if (letzter_)
        letzter_->next = h;
    else
        kopf_ = h;
    letzter_ = h;
    ++anzahl_;
}

Suchergebnis suche(Datenbank& db, const KriterienListe& kriterien, const SuchOptionen& optionen) {
    Suchergebnis e;
    if (kriterien.leer()) return e;
    auswertung::Auswerter auswerter(db, kriterien, optionen.grossKlein);
    const int typ = auswerter.objektTyp();
    e.objektTyp_ = typ;
    if (typ < kObjektBox || typ > kObjektFilm) return e;
    // Box by box: each object is judged while its box's lists exist, so memory
    // holds one box's lists, not the collection's.
    // Films are judged in id order, unless a memory trace asks for its lines,
    // which follow the order in which the box walk builds the lists.
    const bool filmweise = typ == kObjektFilm && !db.trace().aktiv(kTraceSpeicher);
    Sammlungsdurchlauf lauf(
        db, auswerter.umfang(),
        filmweise ? Sammlungsdurchlauf::Weise::Filmweise : Sammlungsdurchlauf::Weise::Boxweise);
    const long gesamt = !optionen.fortschritt ? 0
                        : typ == kObjektBox   ? lauf.boxen()
                        : typ == kObjektDvd   ? lauf.dvds()
                                              : lauf.filme();
    long schritt = 0;
    auto weiter = [&] {
        if (optionen.fortschritt)
            optionen.fortschritt(static_cast<int>(++schritt), static_cast<int>(gesamt));
    };
    Gesehen dvds, filme;
    std::string grund;
    if (filmweise) {
        for (const Filmtreffer& t : filmeNachId(lauf, auswerter, weiter)) {
            const FilmElement* kopie = nullptr;
            try {
                kopie = &e.filme_.emplace_back(t.kopie);
            } catch (const std::bad_alloc&) {
                continue;  // the hit is dropped
            }
            e.haengeAn(t.erste.box, t.erste.dvd, kopie->Id, t.grund, kopie);
        }
        return e;
    }
    while (const BoxElement* b = lauf.naechste()) {
        if (typ == kObjektBox) {
            const bool treffer = auswerter.box(*b, grund);
            weiter();
            if (treffer) e.nimmAuf(*b, nullptr, nullptr, grund);
            continue;
        }
        for (const DvdElement* d = b->pDvds; d; d = d->pNext) {
            if (typ == kObjektDvd) {
                if (!dvds.neu(d->Id)) continue;
                const bool treffer = auswerter.dvd(*d, grund);
                weiter();
                if (treffer) e.nimmAuf(*b, d, nullptr, grund);
                continue;
            }
            for (const FilmElement* f = d->pFilme; f; f = f->pNext) {
                if (!filme.neu(f->Id)) continue;
                const bool treffer = auswerter.film(*f, grund);
                weiter();
                if (treffer) e.nimmAuf(*b, d, f, grund);
            }
        }
    }
    return e;
}

namespace {

// The id of an element of the kind.
long idVon(const void* o, int typ) {
    if (!o) return 0;
    if (typ == kObjektBox) return static_cast<const BoxElement*>(o)->Id;
    if (typ == kObjektDvd) return static_cast<const DvdElement*>(o)->Id;
    return static_cast<const FilmElement*>(o)->Id;
}

}  // namespace

void loeseAuf(Suchergebnis& ergebnis, const Fortschritt& fortschritt) {
    const int typ = ergebnis.objektTyp();
    const int gesamt = static_cast<int>(ergebnis.anzahl());
    int schritt = 0;
    std::size_t i = 0;
    for (SearchHit* h = ergebnis.kopf(); h; h = h->next, ++i) {
        const void* o = i < ergebnis.fundorte_.size() ? ergebnis.fundorte_[i] : nullptr;
        if (idVon(o, typ) != trefferObjektId(*h)) o = nullptr;
        if (typ == kObjektBox) h->box = static_cast<const BoxElement*>(o);
        if (typ == kObjektDvd) h->dvd = static_cast<const DvdElement*>(o);
        if (typ == kObjektFilm) h->film = static_cast<const FilmElement*>(o);
        if (fortschritt) fortschritt(++schritt, gesamt);
    }
}

long trefferObjektId(const SearchHit& hit) {
    switch (hit.objectType) {
        case kObjektBox:
            return hit.boxId;
        case kObjektDvd:
            return hit.dvdId;
        case kObjektFilm:
            return hit.filmId;
        default:
            return 0;
    }
}

std::string trefferTitel(const SearchHit& hit) {
    if (hit.box) return hit.box->cpText;
    if (hit.dvd) return hit.dvd->cpText;
    if (hit.film) return hit.film->cpTitel;
    return std::string();
}

std::string trefferZeile(const std::string& titel, const std::string& grund, int objektTyp) {
    return titel + '\t' + grund + '\t' + objektTypName(objektTyp) + "\r\n";
}

std::string trefferAlsText(const Suchergebnis& ergebnis) {
    std::string text;
    for (const SearchHit* h = ergebnis.kopf(); h; h = h->next)
        text += trefferZeile(trefferTitel(*h), h->reason, h->objectType);
    return text;
}

}  // namespace dv
