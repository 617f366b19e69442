// The whole collection in one go: every table is read once, its rows are held
// by id or grouped by owner for this one operation, and the lists are assembled
// from memory exactly as the per-object builders assemble them.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "domain/Bausteine.h"
#include "domain/Datenbank.h"
#include "domain/Durchlauf.h"

namespace dv {
namespace {

constexpr const char* kFn = "Datenbank::ladeSammlung";

// The slots of the table files: as many rows as one pass over a table can meet,
// known before the pass from one listing of the data folder, so that what
// gathers the rows is sized once and never grows by copying. A size hint only:
// 0 where a file is not listed.
class Dateigroessen {
  public:
    explicit Dateigroessen(Katalog& k) : k_(k) {}
    std::size_t slots(const Tabelle& tab) {
        if (!gelistet_) {
            dateien_ = k_.Box.umgebung().fs->liste(k_.Box.umgebung().datenOrdner);
            gelistet_ = true;
        }
        const std::string name = tab.name() + ".dat";
        for (const OrdnerEintrag& e : dateien_)
            if (e.name == name && e.laenge > 0)
                return static_cast<std::size_t>(e.laenge / tab.getRecordSize());
        return 0;
    }

  private:
    Katalog& k_;
    bool gelistet_ = false;  // on the first question: a search of boxes asks none
    std::vector<OrdnerEintrag> dateien_;
};

// The live rows of a table, addressed by id (ids are dense slot numbers). Rows
// are kept in blocks of a fixed count, so that the store grows with the file
// without moving or zero-filling what it holds already.
template <class Z>
class NachId {
  public:
    // lesen false: the table is not read and every lookup finds nothing.
    // nurLebend: only whether a row lives is kept (lebt), no row (finde).
    template <class T>
    explicit NachId(T& tab, bool lesen = true, bool nurLebend = false) {
        if (!lesen) return;
        tab.scanne([&](const Z& z) {
            const auto id = static_cast<std::size_t>(z.Id);
            if (nurLebend) {
                lebend_.resize(id + 1, 0);
                lebend_[id] = 1;
                return;
            }
            while (id >> kBits >= bloecke_.size())
                bloecke_.push_back(std::make_unique_for_overwrite<Z[]>(kProBlock));
            Z* block = bloecke_[id >> kBits].get();
            // The scan goes up the slots; those between two live rows hold no row.
            for (std::size_t i = naechste_; i < id; ++i) block_(i).Id = 0;
            block[id & kMaske] = z;
            naechste_ = id + 1;
        });
    }
    // The highest live id (0 when none or not read).
    long hoechste() const {
        const std::size_t n = std::max(naechste_, lebend_.size());
        return n == 0 ? 0 : static_cast<long>(n) - 1;
    }
    bool lebt(long id) const {
        if (id > 0 && static_cast<std::size_t>(id) < lebend_.size()) return lebend_[id] != 0;
        return finde(id) != nullptr;
    }
    const Z* finde(long id) const {
        if (id <= 0 || static_cast<std::size_t>(id) >= naechste_) return nullptr;
        const Z& z = block_(static_cast<std::size_t>(id));
        return z.Id == 0 ? nullptr : &z;
    }
    // Asks the processor to fetch a row that will be needed soon: rows such as
    // persons are looked up all over the table, and fetching a film's few rows at
    // once lets their memory latencies overlap.
    void holeVorab(long id) const {
        if (id <= 0 || static_cast<std::size_t>(id) >= naechste_) return;
        const char* p = reinterpret_cast<const char*>(&block_(static_cast<std::size_t>(id)));
        for (std::size_t i = 0; i < sizeof(Z); i += 64) __builtin_prefetch(p + i);
    }

  private:
    static constexpr std::size_t kBits = 12;
    static constexpr std::size_t kProBlock = std::size_t{1} << kBits;
    static constexpr std::size_t kMaske = kProBlock - 1;

    Z& block_(std::size_t id) const { return bloecke_[id >> kBits][id & kMaske]; }

    std::vector<std::unique_ptr<Z[]>> bloecke_;
    std::size_t naechste_ = 0;  // one past the highest id read
    std::vector<char> lebend_;  // nurLebend
};

// The rows of a link table grouped by owner, each group in table (id) order,
// which is the order in which a select by example returns them. A row whose
// owner lies beyond the highest live id of the owner's table can belong to no
// owner and is left out, so the index is bounded by the files, not by the ids
// a damaged row may carry.
template <class Z>
class NachBesitzer {
  public:
    template <class T, class Besitzer>
    NachBesitzer(T& tab, Besitzer besitzer, long hoechsterBesitzer, bool lesen,
                 Dateigroessen& groessen) {
        if (!lesen) return;
        std::vector<Z> alle;
        alle.reserve(groessen.slots(tab));
        std::int32_t hoechster = 0;
        bool geordnet = true;  // owners never decrease: the rows are grouped already
        tab.scanne([&](const Z& z) {
            hoechsteZeile_ = z.Id;
            if (besitzer(z) <= 0 || besitzer(z) > hoechsterBesitzer) return;
            geordnet = geordnet && besitzer(z) >= hoechster;
            alle.push_back(z);
            hoechster = std::max(hoechster, besitzer(z));
        });
        anfang_.assign(static_cast<std::size_t>(hoechster) + 2, 0);
        for (const Z& z : alle) ++anfang_[besitzer(z) + 1];
        for (std::size_t i = 1; i < anfang_.size(); ++i) anfang_[i] += anfang_[i - 1];
        if (geordnet) {
            rows_ = std::move(alle);
        } else {
            // Stores spread over the groups, which the processor does not wait
            // for (moving rows in place would chain a cache miss per row).
            rows_.resize(alle.size());
            std::vector<std::uint32_t> naechster(anfang_.begin(), anfang_.end() - 1);
            for (const Z& z : alle) rows_[naechster[besitzer(z)]++] = z;
        }
        sortiereGruppen();
    }
    // The rows of one owner, in "Pos" order.
    std::span<const Z> von(long besitzer) const {
        if (besitzer <= 0 || besitzer + 1 >= static_cast<long>(anfang_.size())) return {};
        return {rows_.data() + anfang_[besitzer], rows_.data() + anfang_[besitzer + 1]};
    }
    // The same as pointers, as the list builders take them.
    struct Zeiger {
        struct It {
            const Z* p;
            const Z* operator*() const { return p; }
            It& operator++() {
                ++p;
                return *this;
            }
            bool operator!=(const It& o) const { return p != o.p; }
        };
        std::span<const Z> s;
        It begin() const { return {s.data()}; }
        It end() const { return {s.data() + s.size()}; }
    };
    Zeiger sortiert(long besitzer) const { return {von(besitzer)}; }
    // The highest live row id of the link table itself.
    long hoechsteZeile() const { return hoechsteZeile_; }

  private:
    // Puts each group in "Pos" order, once. Where the positions of a group all
    // differ, any sort gives that order; where some are equal, qsort on the rows
    // in table order gives the permutation that sortUrObjektListe gives.
    void sortiereGruppen() {
        std::vector<Z> tmp;
        std::vector<const Z*> zeiger;
        for (std::size_t g = 0; g + 1 < anfang_.size(); ++g) {
            Z* a = rows_.data() + anfang_[g];
            const std::size_t n = anfang_[g + 1] - anfang_[g];
            if (n < 2) continue;
            tmp.assign(a, a + n);
            bool gleich = false;
            for (std::size_t i = 1; i < n && !gleich; ++i) {
                const Z x = tmp[i];
                std::size_t j = i;
                for (; j > 0 && tmp[j - 1].Pos >= x.Pos; --j) {
                    if (tmp[j - 1].Pos == x.Pos) gleich = true;
                    tmp[j] = tmp[j - 1];
                }
                tmp[j] = x;
            }
            if (gleich) {
                zeiger.clear();
                for (std::size_t i = 0; i < n; ++i) zeiger.push_back(a + i);
                std::qsort(zeiger.data(), n, sizeof(const Z*), bau::vergleichePos<Z>);
                for (std::size_t i = 0; i < n; ++i) tmp[i] = *zeiger[i];
            }
            std::copy(tmp.begin(), tmp.end(), a);
        }
    }

    std::vector<std::uint32_t> anfang_;
    std::vector<Z> rows_;
    long hoechsteZeile_ = 0;
};

// The main title of each film: the best of its Titel rows (bau::besserTitel, an
// order of its own, so the order the rows come in does not matter). Per film
// only what that order needs is kept, and the title's text in a shared buffer.
class HauptTitel {
  public:
    template <class T>
    HauptTitel(T& tab, long hoechsterFilm, bool lesen, Dateigroessen& groessen) {
        if (!lesen || hoechsterFilm <= 0) return;
        beste_.assign(static_cast<std::size_t>(hoechsterFilm) + 1, Bester{});
        // Room for every row's whole title; only the pages used are touched.
        texte_.reserve(groessen.slots(tab) * (sizeof(Zeile4::cpTitel) + 1));
        tab.scanne([&](const Zeile4& z) {
            if (z.Id <= 0 || z.Fremd_Id <= 0 || z.Fremd_Id > hoechsterFilm) return;
            Bester& h = beste_[static_cast<std::size_t>(z.Fremd_Id)];
            if (h.id != 0 && !bau::besserTitel(z, h.alsZeile())) return;
            h = {z.Id, static_cast<std::uint32_t>(texte_.size()), z.Pos, z.Typ};
            texte_.append(z.cpTitel, ::strnlen(z.cpTitel, sizeof z.cpTitel));
            texte_ += '\0';
        });
    }
    const char* finde(long film) const {
        if (film <= 0 || film >= static_cast<long>(beste_.size()) || beste_[film].id == 0)
            return nullptr;
        return texte_.data() + beste_[film].stelle;
    }

  private:
    struct Bester {
        std::int32_t id = 0;
        std::uint32_t stelle = 0;  // of the text in texte_
        std::uint16_t pos = 0;
        std::int8_t typ = 0;
        Zeile4 alsZeile() const {
            Zeile4 z{};
            z.Id = id;
            z.Pos = pos;
            z.Typ = typ;
            return z;
        }
    };
    std::vector<Bester> beste_;
    std::string texte_;
};

class SammlungsLeser {
  public:
    // Tables that no list of the scope needs stay unread; their lists come out empty.
    // hoechsteBox: the highest box id of the collection.
    // nurLebendeDvds: the DVDs only as live or not (no ladeBox then).
    SammlungsLeser(Datenbank& db, unsigned u, long hoechsteBox, bool nurLebendeDvds = false)
        : db_(db),
          k_(db.katalog()),
          boxListen_((u & (kUmfangBoxExtras | kUmfangDvds)) != 0),
          groessen_(k_),
          dvds_(k_.DVD, u & kUmfangDvds, nurLebendeDvds),
          filme_(k_.Film, u & kUmfangFilme),
          extras_(k_.Extras, u & (kUmfangBoxExtras | kUmfangDvdExtras)),
          genres_(k_.Genre, u & kUmfangGenres),
          bildformate_(k_.Bildformate, u & kUmfangBildformate),
          sprachen_(k_.Sprachen, u & (kUmfangSprachen | kUmfangUntertitel)),
          tonformate_(k_.Tonformate, u & kUmfangSprachen),
          funktionen_(k_.Funktion, u & kUmfangFunktionen),
          alias_(k_.Alias, u & kUmfangPersonen),
          personen_(k_.Person, u & kUmfangPersonen),
          dvdBox_(
              k_.DVD_Box, [](const Zeile7& z) { return z.Box_Id; }, hoechsteBox, u & kUmfangDvds,
              groessen_),
          dvdFilm_(k_.DVD_Film, erstes, dvds_.hoechste(), u & kUmfangFilme, groessen_),
          boxExtras_(k_.Box_Extras, erstes, hoechsteBox, u & kUmfangBoxExtras, groessen_),
          dvdExtras_(k_.DVD_Extras, erstes, dvds_.hoechste(), u & kUmfangDvdExtras, groessen_),
          filmGenre_(k_.Film_Genre, erstes, filme_.hoechste(), u & kUmfangGenres, groessen_),
          filmBildformat_(k_.Film_Bildformat, erstes, filme_.hoechste(), u & kUmfangBildformate,
                          groessen_),
          filmUntertitel_(k_.Film_Untertitel, erstes, filme_.hoechste(), u & kUmfangUntertitel,
                          groessen_),
          filmFkt_(k_.Film_Fkt, erstes, filme_.hoechste(), u & kUmfangFunktionen, groessen_),
          filmSprachen_(
              k_.Film_Sprachen, [](const Zeile6& z) { return z.Film_Id; }, filme_.hoechste(),
              u & kUmfangSprachen, groessen_),
          filmPerson_(
              k_.Film_Person, [](const Zeile3& z) { return z.Film_Id; }, filme_.hoechste(),
              u & kUmfangPersonen, groessen_),
          filmAlias_(k_.Film_Alias, erstes, filmPerson_.hoechsteZeile(), u & kUmfangPersonen,
                     groessen_),
          titel_(k_.Titel, filme_.hoechste(), u & kUmfangFilme, groessen_) {}

    void ladeBox(BoxElement& b) {
        if (!boxListen_) return;  // both lists stay empty, as made
        b.pExtras = objekte(boxExtras_, extras_, b.Id);
        b.pDvds = bau::kinderListe<DvdElement>(dvdBox_.sortiert(b.Id), [&](const Zeile7& z) {
            const Zeile9* row = dvds_.finde(z.DVD_Id);
            return row ? db_.Obj2DvdListe(*row) : nullptr;
        });
        for (DvdElement* d = b.pDvds; d; d = d->pNext) ladeDvd(*d);
    }

    // Releases what ladeBox built below the box.
    void gibFrei(BoxElement& b) {
        if (!boxListen_) return;
        db_.FreeObjektListe(b.pExtras);
        b.pExtras = nullptr;
        db_.FreeDvdListe(b.pDvds);
        b.pDvds = nullptr;
    }

    // The first meeting of each film in the walk over the boxes, by film id.
    std::vector<Fundstelle> fundstellen(const std::vector<std::int32_t>& boxen) const {
        std::vector<Fundstelle> erste(static_cast<std::size_t>(filme_.hoechste()) + 1);
        long rang = 0;
        for (const std::int32_t box : boxen)
            for (const Zeile7& d : dvdBox_.von(box)) {
                if (!dvds_.lebt(d.DVD_Id)) continue;
                std::uint16_t index = 1;
                for (const Zeile2& f : dvdFilm_.von(d.DVD_Id)) {
                    if (!filme_.lebt(f.Objekt1_Id)) continue;
                    Fundstelle& s = erste[static_cast<std::size_t>(f.Objekt1_Id)];
                    if (s.rang == 0) s = {++rang, box, d.DVD_Id, index};
                    ++index;
                }
            }
        return erste;
    }

    void filmeNachId(const std::vector<std::int32_t>& boxen,
                     const std::function<void(const FilmElement&, const Fundstelle&)>& f) {
        const std::vector<Fundstelle> erste = fundstellen(boxen);
        for (std::size_t id = 1; id < erste.size(); ++id) {
            if (erste[id].rang == 0) continue;
            std::unique_ptr<FilmElement, FilmFreigabe> e(
                db_.Obj2FilmListe(*filme_.finde(static_cast<long>(id))), FilmFreigabe{&db_});
            if (!e) continue;
            e->Index = erste[id].index;
            ladeFilm(*e);
            f(*e, erste[id]);
        }
    }

    // The distinct live DVDs (or films) that the boxes' lists hold.
    long zaehle(const std::vector<std::int32_t>& boxen, bool filme) const {
        std::vector<char> gesehen;
        long n = 0;
        auto neu = [&](long id) {
            if (static_cast<std::size_t>(id) >= gesehen.size()) gesehen.resize(id + 1, 0);
            if (gesehen[id]) return;
            gesehen[id] = 1;
            ++n;
        };
        for (const std::int32_t box : boxen)
            for (const Zeile7& d : dvdBox_.von(box)) {
                if (!dvds_.lebt(d.DVD_Id)) continue;
                if (!filme) neu(d.DVD_Id);
                if (filme)
                    for (const Zeile2& f : dvdFilm_.von(d.DVD_Id))
                        if (filme_.lebt(f.Objekt1_Id)) neu(f.Objekt1_Id);
            }
        return n;
    }

  private:
    static std::int32_t erstes(const Zeile2& z) { return z.DVD_Id; }

    void ladeDvd(DvdElement& d) {
        d.pExtras = objekte(dvdExtras_, extras_, d.Id);
        d.pFilme = bau::kinderListe<FilmElement>(dvdFilm_.sortiert(d.Id), [&](const Zeile2& z) {
            const Zeile5* row = filme_.finde(z.Objekt1_Id);
            return row ? db_.Obj2FilmListe(*row) : nullptr;
        });
        for (FilmElement* f = d.pFilme; f; f = f->pNext) ladeFilm(*f);
    }

    void ladeFilm(FilmElement& f) {
        if (const char* haupt = titel_.finde(f.Id)) bau::kopiere(f.cpTitel, haupt);
        f.pGenres = objekte(filmGenre_, genres_, f.Id);
        f.pBildformate = objekte(filmBildformat_, bildformate_, f.Id);
        f.pUntertitel = objekte(filmUntertitel_, sprachen_, f.Id);
        f.pSprachen = sprachenMitTon(f.Id);
        f.pPersonen = personen(f.Id);
        f.pFunktionen = funktionen(f.Id);
    }

    ObjektElement* objekte(const NachBesitzer<Zeile2>& links, const NachId<Zeile1>& lookup,
                           long besitzer) {
        return bau::liste<ObjektElement>(links.sortiert(besitzer), [&](const Zeile2& z) {
            const Zeile1* o = lookup.finde(z.Objekt1_Id);
            return o ? bau::objekt(db_, kFn, *o, nullptr, z.Pos) : nullptr;
        });
    }

    ObjektElement* sprachenMitTon(long film) {
        return bau::liste<ObjektElement>(filmSprachen_.sortiert(film), [&](const Zeile6& z) {
            const Zeile1* s = sprachen_.finde(z.Sprachen_Id);
            const Zeile1* t = tonformate_.finde(z.Tonformat_Id);
            return s && t ? bau::objekt(db_, kFn, *s, t, z.Pos) : nullptr;
        });
    }

    PersonenElement* personen(long film) {
        PersonenElement* kopf = nullptr;
        PersonenElement* letzter = nullptr;
        for (const Zeile3* z : filmPerson_.sortiert(film)) personen_.holeVorab(z->Person_Id);
        for (const Zeile3* z : filmPerson_.sortiert(film)) {
            const Zeile8* p = personen_.finde(z->Person_Id);
            if (!p) continue;
            ListenElement* aliasKopf =
                bau::liste<ListenElement>(filmAlias_.sortiert(z->Id), [&](const Zeile2& a) {
                    const Zeile1* row = alias_.finde(a.Objekt1_Id);
                    return row ? bau::aliasKnoten(db_, kFn, *row) : nullptr;
                });
            if (PersonenElement* e = bau::person(db_, kFn, *z, *p, aliasKopf))
                bau::haengeAn(kopf, letzter, e);
        }
        return kopf;
    }

    FktElement* funktionen(long film) {
        return bau::liste<FktElement>(filmFkt_.sortiert(film), [&](const Zeile2& z) {
            const Zeile1* f = funktionen_.finde(z.Objekt1_Id);
            return f ? bau::funktion(db_, kFn, *f, z.Pos) : nullptr;
        });
    }

    Datenbank& db_;
    Katalog& k_;
    bool boxListen_;          // a box has lists in the scope
    Dateigroessen groessen_;  // before the tables, whose readers it sizes
    NachId<Zeile9> dvds_;
    NachId<Zeile5> filme_;
    NachId<Zeile1> extras_, genres_, bildformate_, sprachen_, tonformate_, funktionen_, alias_;
    NachId<Zeile8> personen_;
    NachBesitzer<Zeile7> dvdBox_;
    NachBesitzer<Zeile2> dvdFilm_, boxExtras_, dvdExtras_, filmGenre_, filmBildformat_,
        filmUntertitel_, filmFkt_;
    NachBesitzer<Zeile6> filmSprachen_;
    NachBesitzer<Zeile3> filmPerson_;  // before filmAlias_, whose owners are its rows
    NachBesitzer<Zeile2> filmAlias_;
    HauptTitel titel_;
};

// A list needs its owners.
unsigned mitBesitzern(unsigned umfang) {
    if (umfang & (kUmfangAlles & ~(kUmfangBoxExtras | kUmfangDvds | kUmfangDvdExtras)))
        umfang |= kUmfangFilme;
    if (umfang & (kUmfangFilme | kUmfangDvdExtras)) umfang |= kUmfangDvds;
    return umfang;
}

long hoechsteId(const BoxElement* boxen) {
    long h = 0;
    for (; boxen; boxen = boxen->pNext) h = std::max<long>(h, boxen->Id);
    return h;
}

}  // namespace

BoxListe Datenbank::ladeSammlung(unsigned umfang) {
    BoxListe boxen = getBoxListe();
    if (!boxen) return boxen;
    // Boxes in id order: ids follow the order in which the collection was entered,
    // so the rows of each table are then visited mostly front to back.
    std::vector<BoxElement*> nachId;
    for (BoxElement* b = boxen.get(); b; b = b->pNext) nachId.push_back(b);
    std::sort(nachId.begin(), nachId.end(),
              [](const BoxElement* a, const BoxElement* b) { return a->Id < b->Id; });
    SammlungsLeser leser(*this, mitBesitzern(umfang), nachId.back()->Id);
    for (BoxElement* b : nachId) leser.ladeBox(*b);
    return boxen;
}

struct Sammlungsdurchlauf::Leser : SammlungsLeser {
    using SammlungsLeser::SammlungsLeser;
};

Sammlungsdurchlauf::Sammlungsdurchlauf(Datenbank& db, unsigned umfang, Weise weise) : db_(db) {
    long hoechste = 0;
    if (weise == Weise::Filmweise) {
        boxIds_ = boxOrdnung(db);
        for (const std::int32_t id : boxIds_) hoechste = std::max<long>(hoechste, id);
    } else {
        boxen_ = db.getBoxListe();
        // The highest box id bounds the tables grouped by box; where none is
        // read, any box will do and the boxes need not be walked for it.
        const bool proBox = mitBesitzern(umfang) & (kUmfangBoxExtras | kUmfangDvds);
        hoechste = !boxen_ ? 0 : proBox ? hoechsteId(boxen_.get()) : boxen_->Id;
    }
    if (hoechste > 0)
        leser_ =
            std::make_unique<Leser>(db, mitBesitzern(umfang), hoechste, weise == Weise::Filmweise);
}

Sammlungsdurchlauf::~Sammlungsdurchlauf() {
    if (aktuell_) leser_->gibFrei(*aktuell_);
}

BoxElement* Sammlungsdurchlauf::naechste() {
    if (aktuell_) {
        leser_->gibFrei(*aktuell_);
        aktuell_ = aktuell_->pNext;
    } else if (!begonnen_) {
        aktuell_ = boxen_.get();
    }
    begonnen_ = true;
    if (aktuell_) leser_->ladeBox(*aktuell_);
    return aktuell_;
}

std::vector<std::int32_t> Sammlungsdurchlauf::boxIds() const {
    if (!boxen_) return boxIds_;
    std::vector<std::int32_t> ids;
    for (const BoxElement* b = boxen_.get(); b; b = b->pNext) ids.push_back(b->Id);
    return ids;
}

void Sammlungsdurchlauf::filmeNachId(
    const std::function<void(const FilmElement&, const Fundstelle&)>& f) {
    if (leser_) leser_->filmeNachId(boxIds(), f);
}

long Sammlungsdurchlauf::boxen() const {
    return static_cast<long>(boxIds().size());
}

long Sammlungsdurchlauf::dvds() const {
    return leser_ ? leser_->zaehle(boxIds(), false) : 0;
}

long Sammlungsdurchlauf::filme() const {
    return leser_ ? leser_->zaehle(boxIds(), true) : 0;
}

}  // namespace dv
