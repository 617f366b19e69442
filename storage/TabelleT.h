#pragma once
// The typed frame shared by the record classes. A record class R supplies:
//   struct Zeile { std::int32_t Id; ...fields... };    the row, trivially copyable
//   static constexpr unsigned kGroesse;                 record size on disk
//   static constexpr const char* kKlasse;               class name in memory lines
//   static auto felder(Z& z);      std::tie of the fields after the id, disk order
//   static auto schluessel(Z& z);  std::tie of the select keys (id first)
//   void traceSelect(const Zeile&), traceTreffer(const Zeile&) (may do nothing)
// Text fields are char[n + 1] in the row and n bytes on disk.

#include <bit>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "storage/Muster.h"
#include "storage/Tabelle.h"

namespace dv {

static_assert(std::endian::native == std::endian::little,
              "the table files are little-endian and read by plain copies");

namespace feld {

template <class T>
inline constexpr bool istText = std::is_array_v<std::remove_cvref_t<T>>;

template <class T>
constexpr std::size_t breite() {
    using U = std::remove_cvref_t<T>;
    if constexpr (std::is_array_v<U>)
        return std::extent_v<U> - 1;
    else
        return sizeof(U);
}

template <class Tupel, std::size_t... I>
constexpr std::size_t summe(std::index_sequence<I...>) {
    return (breite<std::tuple_element_t<I, Tupel>>() + ... + 0);
}

// Bytes that the fields of a tuple occupy on disk.
template <class Tupel>
constexpr std::size_t platz() {
    return summe<Tupel>(std::make_index_sequence<std::tuple_size_v<Tupel>>{});
}

template <class Tupel>
void packe(const Tupel& t, unsigned char* ziel) {
    std::apply(
        [&](const auto&... f) {
            (
                [&](const auto& v) {
                    constexpr std::size_t n = breite<decltype(v)>();
                    if constexpr (istText<decltype(v)>) {
                        std::memcpy(ziel, v, ::strnlen(v, n));
                    } else {
                        std::memcpy(ziel, &v, n);
                    }
                    ziel += n;
                }(f),
                ...);
        },
        t);
}

template <class Tupel>
void entpacke(const unsigned char* quelle, Tupel&& t) {
    std::apply(
        [&](auto&... f) {
            (
                [&](auto& v) {
                    constexpr std::size_t n = breite<decltype(v)>();
                    if constexpr (istText<decltype(v)>) {
                        std::memcpy(v, quelle, n);
                        v[n] = '\0';
                    } else {
                        std::memcpy(&v, quelle, n);
                    }
                    quelle += n;
                }(f),
                ...);
        },
        t);
}

// A text key of the example, trimmed once for the whole scan. An empty key
// (first byte NUL) matches any text; one of blanks only matches blank texts.
struct TextSchluessel {
    bool beliebig;
    std::string_view muster;
};

template <class A>
auto bereiteEins(const A& beispiel) {
    if constexpr (istText<A>)
        return TextSchluessel{beispiel[0] == '\0', ohneRandLeer(beispiel)};
    else
        return beispiel;
}

// The example's keys as the scan compares them: texts trimmed, numbers as they are.
template <class Tupel>
auto bereite(const Tupel& t) {
    return std::apply([](const auto&... f) { return std::make_tuple(bereiteEins(f)...); }, t);
}

template <class B>
bool passtEins(const TextSchluessel& beispiel, const B& wert, bool grossKlein) {
    if (beispiel.beliebig) return true;
    return musterPasst(beispiel.muster, ohneRandLeer(wert), grossKlein);
}

template <class A, class B>
bool passtEins(const A& beispiel, const B& wert, bool) {
    if (beispiel <= 0) return true;
    return beispiel == wert;
}

// Every key of the example matches: a number of 0 or less and an empty text match
// anything. beispiel comes from bereite().
template <class Tupel, class Tupel2>
bool passt(const Tupel& beispiel, const Tupel2& wert, bool grossKlein) {
    return [&]<std::size_t... I>(std::index_sequence<I...>) {
        return (passtEins(std::get<I>(beispiel), std::get<I>(wert), grossKlein) && ...);
    }
    (std::make_index_sequence<std::tuple_size_v<Tupel>>{});
}

// Ends every text field at its width, so that a row filled by a caller can be
// printed and matched safely.
template <class Tupel>
void terminiere(Tupel&& t) {
    std::apply(
        [&](auto&... f) {
            (
                [&](auto& v) {
                    if constexpr (istText<decltype(v)>) v[breite<decltype(v)>()] = '\0';
                }(f),
                ...);
        },
        t);
}

// The first text key (empty or not), used as the hint of the memory line; ""
// when the class has none.
template <class Tupel>
const char* ersterText(const Tupel& t) {
    const char* hinweis = nullptr;
    std::apply(
        [&](const auto&... f) {
            (
                [&](const auto& v) {
                    if constexpr (istText<decltype(v)>) {
                        if (!hinweis) hinweis = v;
                    }
                }(f),
                ...);
        },
        t);
    return hinweis ? hinweis : "";
}

}  // namespace feld

template <class R, class ZeileT>
class TabelleT : public Tabelle {
  public:
    using Zeile = ZeileT;

    TabelleT(SpeicherUmgebung& u, std::string name) : Tabelle(u, std::move(name)) {
        puffer_.assign(getRecordSize(), 0);
    }

    unsigned getRecordSize() const override { return R::kGroesse; }

    ListenElement* select(long id) override {
        if (!leseSlot(id, satz_)) return nullptr;
        auto* row = neueZeile();
        if (!row) return nullptr;
        DV_TRACE(trace(), kTraceSpeicher, "[malloc] pNew = [%08x] {%s::select(Id)}", adr(row),
                 R::kKlasseSelectId);
        ListenElement* node = newElement(row);
        if (!node) {
            std::free(row);
            return nullptr;
        }
        fuelle(id, satz_.data() + 4, *row);
        return node;
    }

    ListenElement* select(const Zeile& beispiel) {
        Zeile b = beispiel;
        feld::terminiere(R::felder(b));
        static_cast<R*>(this)->traceSelect(b);
        return sammle(&b);
    }

    ListenElement* selectAll() override {
        DV_TRACE(trace(), kTraceTabelle, "-> selectAll from %s", name().c_str());
        Zeile leer{};
        static_cast<R*>(this)->traceSelect(leer);
        return sammle(nullptr);
    }

    // Owned forms of the selects.
    ListenBesitz liste(const Zeile& beispiel) { return besitze(*this, select(beispiel)); }
    ListenBesitz alle() { return besitze(*this, selectAll()); }
    ListenBesitz eine(long id) { return besitze(*this, select(id)); }

    // One pass over the live records without allocating; f(const Zeile&).
    // For whole-collection work that groups rows in memory for one operation.
    template <class F>
    bool scanne(F&& f) {
        Zeile z{};
        return scanneRoh([&](long id, const unsigned char* felder) {
            fuelle(id, felder, z);
            f(static_cast<const Zeile&>(z));
        });
    }

    // The same pass for records of a few owners: auswahl(first field) decides on
    // the raw bytes, and only the records it accepts are decoded and handed to f.
    // The first field after the id word must be a 32-bit id (the owner of a link
    // row, the titled object of a title row).
    template <class A, class F>
    bool scanneNachErstemFeld(A&& auswahl, F&& f) {
        using Erstes = std::remove_cvref_t<
            std::tuple_element_t<0, decltype(R::felder(std::declval<Zeile&>()))>>;
        static_assert(std::is_same_v<Erstes, std::int32_t>, "the first field is no 32-bit id");
        Zeile z{};
        return scanneRoh([&](long id, const unsigned char* felder) {
            std::int32_t erstes;
            std::memcpy(&erstes, felder, sizeof erstes);
            if (!auswahl(erstes)) return;
            fuelle(id, felder, z);
            f(static_cast<const Zeile&>(z));
        });
    }

    static Zeile& zeile(ListenElement* node) { return *static_cast<Zeile*>(node->pObjekt); }

  protected:
    long einfuegen(const Zeile& eingabe) {
        Zeile z = eingabe;
        feld::terminiere(R::felder(z));
        unsigned char felder[R::kGroesse] = {};
        feld::packe(R::felder(z), felder);
        const long id = einfuegenRoh(felder);
        if (id > 0) static_cast<R*>(this)->traceEinfuegen(z);
        return id;
    }

    bool aendern(long id, const Zeile& eingabe) {
        Zeile z = eingabe;
        feld::terminiere(R::felder(z));
        unsigned char felder[R::kGroesse] = {};
        feld::packe(R::felder(z), felder);
        bool warEinfuegen = false;
        long neueId = 0;
        const bool ok = aendernRoh(id, felder, &warEinfuegen, &neueId);
        if (ok && warEinfuegen) static_cast<R*>(this)->traceEinfuegen(z);
        if (ok && !warEinfuegen) {
            Zeile mitId = z;
            mitId.Id = static_cast<std::int32_t>(id);
            static_cast<R*>(this)->traceAendern(mitId);
        }
        return ok;
    }

  private:
    static_assert(std::is_trivially_copyable_v<Zeile>);

    static Zeile* neueZeile() { return static_cast<Zeile*>(std::calloc(1, sizeof(Zeile))); }

    static void fuelle(long id, const unsigned char* felder, Zeile& z) {
        z.Id = static_cast<std::int32_t>(id);
        feld::entpacke(felder, R::felder(z));
    }

    ListenElement* sammle(const Zeile* beispiel) {
        ListenElement* kopf = nullptr;
        ListenElement* letzter = nullptr;
        Zeile z{};
        const bool gk = umgebung_.grossKlein;
        const char* hinweis = beispiel ? feld::ersterText(R::schluessel(*beispiel)) : "";
        Zeile leer{};
        const auto schluessel = feld::bereite(R::schluessel(beispiel ? *beispiel : leer));
        const bool ok = scanneRoh([&](long id, const unsigned char* felder) {
            fuelle(id, felder, z);
            if (beispiel && !feld::passt(schluessel, R::schluessel(z), gk)) return;
            Zeile* row = neueZeile();
            if (!row) return;
            DV_TRACE(trace(), kTraceSpeicher,
                     "[malloc] pNew = [%08x] {%s::select(obj) [hint:[%s]]}", adr(row), R::kKlasse,
                     hinweis);
            *row = z;
            ListenElement* node = newElement(row);
            if (!node) {
                std::free(row);
                return;
            }
            if (letzter) {
                node->pPrev = letzter;
                letzter->pNext = node;
            } else {
                kopf = node;
            }
            letzter = node;
            static_cast<R*>(this)->traceTreffer(z);
        });
        (void)ok;
        return kopf;
    }

    std::vector<unsigned char> satz_;
};

}  // namespace dv
