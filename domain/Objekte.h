#pragma once
// The in-memory object model: doubly linked lists of plain elements built from
// the table rows. Elements are zero-filled blocks of the block store of their size
// (domain/Vorrat.h), so every field starts at zero and a partly built element can
// always be released. Record copies hung on
// object list elements (pObjekt1, pObjekt2, pPerson) are heap objects with a
// virtual destructor. A list is held by its first element; every builder of
// Datenbank returns it inside an owner (BoxListe, DvdListe, ...) that calls the
// matching release operation, so a list can never leak.

#include <cstdint>
#include <memory>
#include <new>
#include <string>

#include "domain/Vorrat.h"
#include "storage/Satzarten.h"

namespace dv {

class Datenbank;

// Object types: how watch lists, tags and side files name the kind of an object.
inline constexpr int kObjektBox = 1;
inline constexpr int kObjektDvd = 2;
inline constexpr int kObjektFilm = 3;
// "Box", "Dvd", "Film"; any other code "unbekannt".
const char* objektTypName(int typ);

// Lookup types: select a lookup catalogue or a link list and its display names.
inline constexpr int kTypVerpackung = 2;
inline constexpr int kTypExtras = 4;  // extras of a DVD
inline constexpr int kTypFormat = 5;
inline constexpr int kTypGenre = 7;
inline constexpr int kTypBildformat = 8;
inline constexpr int kTypSprache = 9;  // language with sound format
inline constexpr int kTypTonformat = 10;
inline constexpr int kTypUntertitel = 11;
inline constexpr int kTypPerson = 12;
inline constexpr int kTypFunktion = 17;
inline constexpr int kTypAlias = 18;
inline constexpr int kTypBoxExtras = 19;  // extras of a box; has no name

// Display name of a lookup type: singular when einzahl, else plural. False (and
// name untouched) for types below 2 or above 18 and for 3, 6 and 13 to 16.
bool getTypName(int typ, bool einzahl, std::string& name);

// Title kinds: the Typ of a `Titel` row whose Fremd_Id is a film.
//   1  main title: shown in the tree, in every list and as "Information zum Film"
//   2  original title (at most one is shown: the first by Pos)
//   3  alternative title ("Weitere Titel"), any number
// 0 is never written, because a select example reads Typ 0 as "any".
// A film without a main title is shown under its first title of any kind.
inline constexpr int kTitelHaupt = 1;
inline constexpr int kTitelOriginal = 2;
inline constexpr int kTitelAlternativ = 3;

// A heap copy of one row, owned by an object list element; deleted through the base.
struct Satz {
    virtual ~Satz() = default;
};
// Its memory comes from a BlockVorrat (see domain/Vorrat.h); create it with new
// (std::nothrow) and destroy it with delete as any heap object.
template <class Z>
struct SatzKopie final : Satz {
    explicit SatzKopie(const Z& z) : zeile(z) {}
    Z zeile;

    static void* operator new(std::size_t n) {
        void* p = operator new(n, std::nothrow);
        if (!p) throw std::bad_alloc();
        return p;
    }
    static void* operator new(std::size_t, const std::nothrow_t&) noexcept {
        return vorratFuer<sizeof(SatzKopie)>().hole();
    }
    static void operator delete(void* p) noexcept { vorratFuer<sizeof(SatzKopie)>().gib(p); }
};
using LookupSatz = SatzKopie<Zeile1>;  // a row of any lookup table
using PersonSatz = SatzKopie<Zeile8>;

// An entry of an object list: one linked lookup (a genre, an extra, a language
// with its sound format, an alias ...).
struct ObjektElement {
    std::int32_t Id;        // the referenced entry (Objekt1_Id, Sprachen_Id)
    LookupSatz* pObjekt1;   // its row
    std::int32_t Id2;       // the second referenced entry (Tonformat_Id), else 0
    LookupSatz* pObjekt2;   // its row, or null
    PersonSatz* pPerson;    // a person row, or null
    ListenElement* pAlias;  // alias rows (Alias table list), or null
    std::int32_t lPos;      // "Pos" of the link row
    ObjektElement* pPrev;
    ObjektElement* pNext;
    std::int32_t lReserve;
};

// A person of a film: one Film_Person link with its person and aliases.
struct PersonenElement {
    std::int32_t lVerknuepfung;  // id of the Film_Person row (0 in stand-alone lists)
    std::int32_t lFunktion;      // function id of the link
    std::int32_t lPos;           // "Pos" of the link row
    PersonSatz* pPerson;
    // The aliases. In a film's list: nodes and rows of the Alias table, in the
    // order of their Film_Alias "Pos". In stand-alone lists: nodes whose pObjekt is
    // a calloc'ed alias row. Both are freed node by node with free().
    ListenElement* pAlias;
    PersonenElement* pPrev;
    PersonenElement* pNext;
    std::int32_t lReserve;
};

// A function entry: of a film (Film_Fkt, sWert = the link's "Pos") or of the
// whole Funktion table (sWert = 0). The links come next first, then previous.
struct FktElement {
    std::int32_t Id;
    std::uint16_t sWert;
    std::int32_t lWert;
    std::uint8_t bMarke;
    char cpText[129];
    FktElement* pNext;
    FktElement* pPrev;
};

// A row of the Titel table; singly linked.
struct TitelElement {
    std::int32_t Fremd_Id;
    std::int8_t Typ;
    char cpTitel[65];
    std::uint16_t Pos;
    TitelElement* pNext;
};

struct FilmElement {
    std::int32_t Id;
    std::int8_t FSK;
    std::int16_t Laenge;
    std::int16_t Jahr;
    std::int32_t lAnsicht;  // view state of the main window
    char cpTitel[65];       // the main title (see kTitelHaupt)
    ObjektElement* pGenres;
    ObjektElement* pBildformate;
    ObjektElement* pUntertitel;
    ObjektElement* pSprachen;
    PersonenElement* pPersonen;
    FktElement* pFunktionen;
    FilmElement* pPrev;
    FilmElement* pNext;
    std::uint16_t Index;  // running number within the DVD, from 1
};

struct DvdElement {
    std::int32_t Id;
    std::int16_t Jahr;
    std::int8_t RC;
    std::int8_t Opt;
    char cpText[65];
    std::int32_t Formate_Id;
    std::uint32_t SN;
    std::int16_t Laenge;
    std::uint32_t BytesLow;
    std::uint32_t BytesHigh;
    std::int32_t lAnsicht;
    FilmElement* pFilme;
    ObjektElement* pExtras;
    DvdElement* pPrev;
    DvdElement* pNext;
    std::uint16_t Index;  // running number within the box, from 1
};

struct BoxElement {
    std::int32_t Id;
    std::int32_t Verpackungs_Id;
    std::int32_t Zusatz_Id;
    char cpEAN[17];
    char cpText[65];
    // View state of the main window.
    std::int32_t lAnsicht;
    std::uint8_t bAnsicht1;  // 1 when built
    std::uint8_t bAnsicht2;
    std::int32_t lAnsicht2;
    std::int32_t lAnsicht3;
    ObjektElement* pExtras;
    DvdElement* pDvds;
    BoxElement* pPrev;
    BoxElement* pNext;
};

// Owners: each releases the whole list it holds with the matching operation.
// The Datenbank must outlive every owner it handed out.
#define DV_FREIGABE(Name, Element)            \
    struct Name {                             \
        Datenbank* db = nullptr;              \
        void operator()(Element* kopf) const; \
    };
DV_FREIGABE(BoxFreigabe, BoxElement)
DV_FREIGABE(DvdFreigabe, DvdElement)
DV_FREIGABE(FilmFreigabe, FilmElement)
DV_FREIGABE(ObjektFreigabe, ObjektElement)
DV_FREIGABE(PersonenFreigabe, PersonenElement)
DV_FREIGABE(FktFreigabe, FktElement)
DV_FREIGABE(TitelFreigabe, TitelElement)
#undef DV_FREIGABE

using BoxListe = std::unique_ptr<BoxElement, BoxFreigabe>;
using DvdListe = std::unique_ptr<DvdElement, DvdFreigabe>;
using FilmListe = std::unique_ptr<FilmElement, FilmFreigabe>;
using ObjektListe = std::unique_ptr<ObjektElement, ObjektFreigabe>;
using PersonenListe = std::unique_ptr<PersonenElement, PersonenFreigabe>;
using FktListe = std::unique_ptr<FktElement, FktFreigabe>;
using TitelListe = std::unique_ptr<TitelElement, TitelFreigabe>;

}  // namespace dv
