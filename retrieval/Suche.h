#pragma once
// The search engine: finds the boxes, DVDs or films of the collection that satisfy
// a normalised criteria list (see Suchkriterien.h). It reads the collection once,
// box by box (domain/Durchlauf.h), walks every object of the searched kind in
// catalogue order (boxes by title, DVDs and films by position, each object once),
// folds the rows' values left to right without precedence and without short cuts,
// and records one hit per matching object with the reason text.

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "base/Benutzer.h"
#include "domain/Datenbank.h"
#include "retrieval/Suchkriterien.h"

namespace dv {

// The reason text of a hit never grows past this many characters.
inline constexpr std::size_t kGrundMax = 256;

struct SearchHit {
    std::int32_t objectType = 0;  // 1 Box, 2 Dvd, 3 Film
    std::int32_t boxId = 0;       // the box (of a box hit; else the box it was found in)
    std::int32_t dvdId = 0;       // the DVD (of a DVD hit; else the DVD it was found on)
    std::int32_t filmId = 0;      // the film of a film hit
    std::string reason;           // "Titel: <...> Genre: <...> ", at most kGrundMax
    // Set by loeseAuf: the object of the hit's type as the result keeps it (its
    // own fields; its lists are empty).
    const BoxElement* box = nullptr;
    const DvdElement* dvd = nullptr;
    const FilmElement* film = nullptr;
    SearchHit* next = nullptr;
};

// Progress of a long pass: step i of n.
using Fortschritt = std::function<void(int schritt, int gesamt)>;
// A progress callback that reports through Benutzer::fortschritt with the given
// text, at most about a hundred times per pass (and always at the last step).
Fortschritt fortschrittUeber(Benutzer& benutzer, std::string text);

struct SuchOptionen {
    // Letters must be equal (the option kOptSucheGrossKlein); off: A-Z folded.
    bool grossKlein = false;
    // One step per object of the searched kind; may be empty.
    Fortschritt fortschritt;
};

// The hits of one search in walk order, and a copy of each hit's object without
// its lists, which the resolved hits point to. Owns both; releases the hits one
// by one.
class Suchergebnis {
  public:
    Suchergebnis() = default;
    ~Suchergebnis();
    Suchergebnis(Suchergebnis&& o) noexcept;
    Suchergebnis& operator=(Suchergebnis&& o) noexcept;
    Suchergebnis(const Suchergebnis&) = delete;
    Suchergebnis& operator=(const Suchergebnis&) = delete;

    int objektTyp() const { return objektTyp_; }
    SearchHit* kopf() const { return kopf_; }
    std::size_t anzahl() const { return anzahl_; }

    // "Boxen: %d Treffer", "Dvds: %d Treffer" or "Filme: %d Treffer".
    std::string statusZeile() const;

  private:
    friend Suchergebnis suche(Datenbank&, const KriterienListe&, const SuchOptionen&);
    friend void loeseAuf(Suchergebnis&, const Fortschritt&);
    void nimmAuf(const BoxElement& b, const DvdElement* d, const FilmElement* f,
                 const std::string& grund);
    // Appends the hit whose object copy is at objekt (one of the stores below).
    void haengeAn(long box, long dvd, long film, const std::string& grund, const void* objekt);
    void leere();

    int objektTyp_ = 0;
    SearchHit* kopf_ = nullptr;
    SearchHit* letzter_ = nullptr;
    std::size_t anzahl_ = 0;
    // Per hit, the kept copy of its object.
    std::vector<const void*> fundorte_;
    std::deque<BoxElement> boxen_;
    std::deque<DvdElement> dvds_;
    std::deque<FilmElement> filme_;
};

// Runs the search. The list must be normalised (normalisiere). An empty list or
// an unknown object type finds nothing.
Suchergebnis suche(Datenbank& db, const KriterienListe& kriterien, const SuchOptionen& optionen);

// Links every hit to its object in the result's collection, one progress step
// per hit. A hit whose object cannot be found keeps null links.
void loeseAuf(Suchergebnis& ergebnis, const Fortschritt& fortschritt = {});

// The id of the hit's object (the box, DVD or film id by its type).
long trefferObjektId(const SearchHit& hit);

// The shown title of a resolved hit (box or DVD name, film title); "" unresolved.
std::string trefferTitel(const SearchHit& hit);

// The hit list as text for the clipboard: per hit "%s%s%s%s%s\r\n" of the title
// ("Treffer"), a tab, the reason ("Grund"), a tab and the object type ("Objekte").
std::string trefferAlsText(const Suchergebnis& ergebnis);
// One line of that text.
std::string trefferZeile(const std::string& titel, const std::string& grund, int objektTyp);

}  // namespace dv
