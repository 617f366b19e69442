#include "retrieval/Suche.h"

#include <memory>
#include <new>
#include <utility>
#include <vector>

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

// Where the walk meets an object: its box, and its DVD and film where they apply.
struct Ort {
    const BoxElement* box;
    const DvdElement* dvd;
    const FilmElement* film;
    const void* objekt() const {
        return film  ? static_cast<const void*>(film)
               : dvd ? static_cast<const void*>(dvd)
                     : static_cast<const void*>(box);
    }
};

// Every object of the kind once, in catalogue order.
std::vector<Ort> orte(const BoxElement* boxen, int typ) {
    std::vector<Ort> o;
    Gesehen dvds, filme;
    for (const BoxElement* b = boxen; b; b = b->pNext) {
        if (typ == kObjektBox) {
            o.push_back({b, nullptr, nullptr});
            continue;
        }
        for (const DvdElement* d = b->pDvds; d; d = d->pNext) {
            if (typ == kObjektDvd) {
                if (dvds.neu(d->Id)) o.push_back({b, d, nullptr});
                continue;
            }
            for (const FilmElement* f = d->pFilme; f; f = f->pNext)
                if (filme.neu(f->Id)) o.push_back({b, d, f});
        }
    }
    return o;
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
      sammlung_(std::move(o.sammlung_)),
      kopf_(std::exchange(o.kopf_, nullptr)),
      letzter_(std::exchange(o.letzter_, nullptr)),
      anzahl_(std::exchange(o.anzahl_, 0)),
      fundorte_(std::move(o.fundorte_)) {}

Suchergebnis& Suchergebnis::operator=(Suchergebnis&& o) noexcept {
    if (this != &o) {
        leere();
        objektTyp_ = o.objektTyp_;
        sammlung_ = std::move(o.sammlung_);
        kopf_ = std::exchange(o.kopf_, nullptr);
        letzter_ = std::exchange(o.letzter_, nullptr);
        anzahl_ = std::exchange(o.anzahl_, 0);
        fundorte_ = std::move(o.fundorte_);
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
    sammlung_.reset();
}

void Suchergebnis::haengeAn(SearchHit* h, const void* objekt) {
    fundorte_.push_back(objekt);
    if (letzter_)
        letzter_->next = h;
    else
        kopf_ = h;
    letzter_ = h;
    ++anzahl_;
}

std::string Suchergebnis::statusZeile() const {
    const char* art = objektTyp_ == kObjektBox   ? "Boxen"
                      : objektTyp_ == kObjektDvd ? "Dvds"
                                                 : "Filme";
    return std::string(art) + ": " + std::to_string(anzahl_) + " Treffer";
}

Suchergebnis suche(Datenbank& db, const KriterienListe& kriterien, const SuchOptionen& optionen) {
    Suchergebnis e;
    if (kriterien.leer()) return e;
    auswertung::Auswerter auswerter(db, kriterien, optionen.grossKlein);
    const int typ = auswerter.objektTyp();
    e.objektTyp_ = typ;
    if (typ < kObjektBox || typ > kObjektFilm) return e;
    e.sammlung_ = db.ladeSammlung(auswerter.umfang());

    const std::vector<Ort> alle = orte(e.sammlung_.get(), typ);
    const int gesamt = static_cast<int>(alle.size());
    std::string grund;
    for (std::size_t i = 0; i < alle.size(); ++i) {
        const Ort& o = alle[i];
        const bool treffer = typ == kObjektBox   ? auswerter.box(*o.box, grund)
                             : typ == kObjektDvd ? auswerter.dvd(*o.dvd, grund)
                                                 : auswerter.film(*o.film, grund);
        if (optionen.fortschritt) optionen.fortschritt(static_cast<int>(i) + 1, gesamt);
        if (!treffer) continue;
        auto* h = new (std::nothrow) SearchHit;
        if (!h) continue;  // the hit is dropped
        h->objectType = typ;
        h->boxId = o.box->Id;
        h->dvdId = o.dvd ? o.dvd->Id : 0;
        h->filmId = o.film ? o.film->Id : 0;
        h->reason = grund;
        e.haengeAn(h, o.objekt());
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
    // Elements by id, filled only when a hit is not where the walk met it.
    std::vector<const void*> nachId;
    auto finde = [&](long id) -> const void* {
        if (nachId.empty())
            for (const Ort& o : orte(ergebnis.sammlung(), typ)) {
                const long i = idVon(o.objekt(), typ);
                if (i >= static_cast<long>(nachId.size())) nachId.resize(i + 1, nullptr);
                if (!nachId[i]) nachId[i] = o.objekt();
            }
        return id > 0 && id < static_cast<long>(nachId.size()) ? nachId[id] : nullptr;
    };
    const int gesamt = static_cast<int>(ergebnis.anzahl());
    int schritt = 0;
    std::size_t i = 0;
    for (SearchHit* h = ergebnis.kopf(); h; h = h->next, ++i) {
        const long id = trefferObjektId(*h);
        const void* o = i < ergebnis.fundorte_.size() ? ergebnis.fundorte_[i] : nullptr;
        if (idVon(o, typ) != id) o = finde(id);
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

std::string trefferAlsText(const Suchergebnis& ergebnis) {
    std::string text;
    for (const SearchHit* h = ergebnis.kopf(); h; h = h->next) {
        text += trefferTitel(*h);
        text += '\t';
        text += h->reason;
        text += '\t';
        text += objektTypName(h->objectType);
        text += "\r\n";
    }
    return text;
}

}  // namespace dv
