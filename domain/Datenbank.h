#pragma once
// The one catalogue object: owns an instance of every table and turns their rows
// into the object lists that the rest of the program works on; removes, creates,
// changes, copies and reorders boxes, DVDs and films.
//
// Lists are built on demand and never cached; every builder hands back an owner
// (see domain/Objekte.h) that releases the list with the matching operation.
// Every allocation and release of an element is written to the memory trace
// (mask 8) as "[malloc] pBox = [%08x] {Datenbank::Obj2BoxListe}" and the like.
// All texts are Windows-1252. Single-threaded, like the tables.

#include <string>
#include <utility>
#include <vector>

#include "base/Ordner.h"
#include "domain/Objekte.h"
#include "storage/Katalog.h"
#include "storage/Schreibvorgang.h"

namespace dv {

// The titles of a film by kind (see kTitelHaupt).
struct FilmTitel {
    std::string haupt;
    std::string original;
    std::vector<std::string> weitere;
};

// One person of a film as written by schreibeFilmPersonen.
struct PersonEintrag {
    long person = 0;                 // Person id
    long funktion = 0;               // Funktion id
    std::vector<std::string> alias;  // alias names of this link, in order
};

// What ladeSammlung builds below the boxes. A list needs its owners: extras of
// DVDs and films imply the DVDs, every list of a film implies the films (which
// always carry their main title).
inline constexpr unsigned kUmfangBoxExtras = 1u << 0;
inline constexpr unsigned kUmfangDvds = 1u << 1;
inline constexpr unsigned kUmfangDvdExtras = 1u << 2;
inline constexpr unsigned kUmfangFilme = 1u << 3;
inline constexpr unsigned kUmfangGenres = 1u << 4;
inline constexpr unsigned kUmfangBildformate = 1u << 5;
inline constexpr unsigned kUmfangUntertitel = 1u << 6;
inline constexpr unsigned kUmfangSprachen = 1u << 7;  // languages with sound formats
inline constexpr unsigned kUmfangPersonen = 1u << 8;  // persons with their aliases
inline constexpr unsigned kUmfangFunktionen = 1u << 9;
inline constexpr unsigned kUmfangAlles = (1u << 10) - 1;

class Datenbank {
  public:
    // umgebung (with its trace) and ordner must outlive the object.
    Datenbank(SpeicherUmgebung& umgebung, const Ordner& ordner);
    Datenbank(const Datenbank&) = delete;
    Datenbank& operator=(const Datenbank&) = delete;

    Katalog& katalog() { return katalog_; }
    // The all-or-nothing scope of a write operation on this catalogue, its side
    // folders (covers, texts, tags) included; see storage/Schreibvorgang.h. Every
    // operation below that changes several records opens one, so it joins a
    // scope that its caller opened around several of them.
    Schreibvorgang vorgang();
    const Ordner& ordner() const { return ordner_; }
    SpeicherUmgebung& umgebung() { return umgebung_; }
    Trace& trace() { return *umgebung_.trace; }
    Dateisystem& fs() { return *umgebung_.fs; }

    // ---- Elements from rows (sub-lists empty, links null); null when out of memory.
    BoxElement* Obj2BoxListe(const Zeile12& z);
    DvdElement* Obj2DvdListe(const Zeile9& z);
    FilmElement* Obj2FilmListe(const Zeile5& z);

    // ---- Builders (per object: each reads the tables it needs anew).
    // Every box of the collection, sorted by title (sortBoxListe): the catalogue
    // tree's order. Sub-lists are empty.
    BoxListe getBoxListe();
    // Single elements by id; empty when the row does not exist. Sub-lists empty;
    // a film carries its main title.
    BoxListe getBox(long id);
    DvdListe getDvd(long id);
    FilmListe getFilm(long id);
    // The DVDs of a box and the films of a DVD, in "Pos" order, Index from 1;
    // link rows whose target is missing are skipped.
    DvdListe getDvdListe(long boxId);
    FilmListe getFilmListe(long dvdId);
    // The linked lookups of an owner for a lookup type; empty for types that
    // have no link list (see getTypName).
    ObjektListe getObjektListe(long owner, int typ);
    // Languages of a film with their sound format; a row is listed only when both exist.
    ObjektListe getSprachenFormatListe(long filmId);
    // Link table rows of owner (first field) to lookup rows (second field), by "Pos".
    ObjektListe subObjekt10(long owner, Tabelle1& lookup, Tabelle10& link);
    ObjektListe subObjekt2(long owner, Tabelle1& lookup, Tabelle2& link);
    // The persons of a film by "Pos", each with its person row and its aliases.
    PersonenListe getPersonenListe(long filmId);
    // The functions of a film by "Pos"; for filmId <= 0 the whole Funktion table.
    FktListe getFktListe(long filmId);
    // The Titel rows of a film in table order.
    TitelListe getFilmTitel(long filmId);
    FilmTitel leseFilmTitel(long filmId);

    // Fill the sub-lists of an element with the per-object builders (the element's
    // own sub-lists must be empty): a box gets its extras and DVDs, a DVD its
    // extras and films, a film all its lists.
    void ladeBox(BoxElement& box);
    void ladeDvd(DvdElement& dvd);
    void ladeFilm(FilmElement& film);

    // The whole collection with everything below each box, the same lists in the
    // same order as getBoxListe + ladeBox, built reading each table a bounded
    // number of times (no per-object selects). Nothing is kept afterwards.
    // umfang (kUmfang... bits) limits what is built below the boxes: every list
    // in it is built exactly as by the whole reader, every other one stays empty,
    // and tables that only those lists need are not read.
    BoxListe ladeSammlung(unsigned umfang = kUmfangAlles);

    // Live records of Box, DVD and Film.
    void anzahl(long& boxen, long& dvds, long& filme);
    // The box that holds a DVD and the DVD that holds a film (first link row), or 0.
    long boxVonDvd(long dvdId);
    long dvdVonFilm(long filmId);

    // ---- Sorting.
    // By title: umlauts transcribed, letter case ignored. Returns the new head.
    BoxElement* sortBoxListe(BoxElement* kopf);

    // ---- Release operations. Each accepts null and any element of its list
    // (it rewinds first, where the list has back links).
    void FreeBoxListe(BoxElement* p);
    void FreeDvdListe(DvdElement* p);
    void FreeFilmListe(FilmElement* p);
    void FreeObjektListe(ObjektElement* p);
    void FreeObjektListenElement(ObjektElement* p);
    void FreePersonenListe(PersonenElement* p);
    void FreeFktListe(FktElement* p);
    void FreeTitelListe(TitelElement* p);

    // ---- Element removal: unlink one element from the list whose head *ppKopf
    // is, then release it with its sub-lists. Nothing happens when ppKopf, *ppKopf
    // or p is null. The owner forms keep the owner's head right.
    void delBoxElement(BoxElement** ppKopf, BoxElement* p);
    void delDvdElement(DvdElement** ppKopf, DvdElement* p);
    void delFilmElement(FilmElement** ppKopf, FilmElement* p);
    void delObjektListenElement(ObjektElement** ppKopf, ObjektElement* p);
    void delPersonenListenElement(PersonenElement** ppKopf, PersonenElement* p);
    void delFktElement(FktElement** ppKopf, FktElement* p);
    // A general list whose nodes each own one calloc'ed pObjekt.
    void delListenElement(ListenElement** ppKopf, ListenElement* p);
    void delBoxElement(BoxListe& l, BoxElement* p);
    void delDvdElement(DvdListe& l, DvdElement* p);
    void delFilmElement(FilmListe& l, FilmElement* p);
    void delObjektListenElement(ObjektListe& l, ObjektElement* p);
    void delPersonenListenElement(PersonenListe& l, PersonenElement* p);
    void delFktElement(FktListe& l, FktElement* p);

    // ---- Delete cascades: the object with every link row, watch-list row, tag
    // file and side file that belongs to it. Lookups and persons stay.
    // All or nothing; false when the object could not be deleted.
    bool loescheBox(long boxId);
    bool loescheDvd(long dvdId);
    bool loescheFilm(long filmId);

    // ---- Lookups.
    // The table of a lookup type (2, 4, 5, 7, 8, 9, 10, 11, 17, 18, 19), else null.
    Tabelle1* lookupTabelle(int typ);
    // Inserts a lookup entry; its new id, 0 on failure or for a type without table.
    // The name is cut to the field's 127 characters.
    long neuesLookup(int typ, const std::string& name);
    // The first entry of that name, ASCII letter case ignored; 0 when none.
    long findeLookup(int typ, const std::string& name);

    // ---- Creating and changing objects. Each is one operation: whole or not at all.
    long neueBox(const std::string& ean, const std::string& titel, long verpackung,
                 long zusatz = 0);
    // A DVD (the fields of dvd after the id) placed after the box's last DVD.
    long neueDvd(long boxId, const Zeile9& dvd);
    // A film with its main title, placed after the DVD's last film.
    long neuerFilm(long dvdId, const std::string& titel, int fsk, int laenge, int jahr);
    bool aendereBox(long id, const std::string& ean, const std::string& titel, long verpackung,
                    long zusatz);
    bool aendereDvd(long id, const Zeile9& dvd);
    bool aendereFilm(long id, int fsk, int laenge, int jahr);

    // Replace the link rows of an owner by the given list, "Pos" 1, 2, ... in
    // list order. New rows are written first and the old ones removed only when
    // all are in; a failure removes the new rows again and returns false.
    bool schreibeFilmTitel(long filmId, const FilmTitel& titel);
    bool schreibeFilmPersonen(long filmId, const std::vector<PersonEintrag>& personen);
    // Pairs of (Sprachen id, Tonformate id).
    bool schreibeFilmSprachen(long filmId, const std::vector<std::pair<long, long>>& sprachen);
    // typ: kTypGenre, kTypBildformat, kTypUntertitel or kTypFunktion.
    bool schreibeFilmObjekte(long filmId, int typ, const std::vector<long>& ids);
    // typ: kTypExtras (owner a DVD) or kTypBoxExtras (owner a box).
    bool schreibeExtras(int typ, long owner, const std::vector<long>& ids);
    // The aliases of one Film_Person row, as new Alias rows.
    bool schreibeFilmAlias(long filmPersonId, const std::vector<std::string>& namen);

    // Move a DVD within a box, or a film within a DVD, one place up or down by
    // exchanging the "Pos" of two neighbouring link rows. False at the edge.
    bool verschiebeDvd(long boxId, long dvdId, bool hoch);
    bool verschiebeFilm(long dvdId, long filmId, bool hoch);

    // Copies with all link rows (and a film's side texts), placed last under the
    // target; the new id, 0 on failure. The owner link is written last.
    long kopiereDvd(long dvdId, long zielBoxId);
    long kopiereFilm(long filmId, long zielDvdId);

    // Content and comment texts of a film (side files); an empty text removes the file.
    bool leseInhalt(long filmId, std::string& text);
    bool schreibeInhalt(long filmId, const std::string& text);
    bool leseKommentar(long filmId, std::string& text);
    bool schreibeKommentar(long filmId, const std::string& text);

  private:
    class Geloescht;
    void loescheFilmIntern(long filmId, Geloescht& g);
    void loescheDvdIntern(long dvdId, Geloescht& g);
    // A Film_Person row with its aliases. The cascade deletes each Alias row before
    // its Film_Alias link; linksZuerst turns that round, so that a failure midway
    // never leaves a link to a missing alias.
    void loeschePersonVerknuepfung(long filmPersonId, Geloescht& g, bool linksZuerst = false);
    void FreePersonenElement(PersonenElement* p);
    bool kopiereFilmInhalt(long vonFilm, long nachFilm);
    long kopiereFilmOhneLink(long filmId);

    SpeicherUmgebung& umgebung_;
    const Ordner& ordner_;
    Katalog katalog_;
};

}  // namespace dv
