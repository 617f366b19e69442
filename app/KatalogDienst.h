#pragma once
// Reading the catalogue as the tree and the simple commands show it: the boxes
// in tree order, the DVDs of a box, the films of a DVD, the groups of a film,
// owners, counts, the information and playing-time texts. Reads only; every call
// reads the tables anew (nothing is cached), so a row always shows what is stored.

#include <optional>
#include <string>
#include <vector>

#include "app/Ergebnis.h"
#include "app/Werte.h"

namespace dv {

class CApplikation;

// Object types, as watch lists, tags and every service name the kind of an object.
inline constexpr int kBox = 1;
inline constexpr int kDvd = 2;
inline constexpr int kFilm = 3;

class KatalogDienst {
  public:
    // app must outlive the service.
    explicit KatalogDienst(CApplikation& app) : app_(app) {}

    // Every box in the tree's order (by title, umlauts transcribed, case ignored).
    // Reads the box table, the DVD links and the cover folder once each.
    std::vector<BoxZeile> boxen();
    // One box, DVD or film as its node shows it (after a change); nullopt when
    // it does not exist. A DVD or film with several owners is shown under the
    // first; index 0 when it has none.
    std::optional<BoxZeile> box(long id);
    std::optional<DvdZeile> dvd(long id);
    std::optional<FilmZeile> film(long id);
    // The DVDs of a box and the films of a DVD, in position order, index from 1.
    // Empty for an unknown owner.
    std::vector<DvdZeile> dvds(long boxId);
    std::vector<FilmZeile> filme(long dvdId);
    // The groups of a film that have entries, in the order "Genre", "Bildformate",
    // "Sprachen inkl. Tonformat" ("%s / %s"), "Untertitel", "Personen"
    // ("Vorname Name (Funktion)" with the aliases below).
    std::vector<Gruppe> gruppen(long filmId);
    // The label of a group by lookup type; "<unbekannt>" for other types.
    static const char* gruppenText(int lookupTyp);

    bool gibtEs(int typ, long id);
    // The box that holds a DVD, the DVD that holds a film (the first link); 0 for
    // a box, an unknown object or one that nothing holds.
    long besitzer(int typ, long id);
    Anzahl anzahl();
    // The name an object is shown under ("" when it does not exist).
    std::string name(int typ, long id);
    // The information text and the playing-time text (lines joined by "\r\n");
    // the reason for an unknown object.
    ErgebnisMit<std::string> info(int typ, long id);
    ErgebnisMit<std::string> spieldauer(int typ, long id);
    // The caption of the playing-time message: "Gesamtspieldauer".
    static const char* spieldauerTitel();

    // "Kein Objekt vom Typ Box mit der ID 7." as an input error.
    static Ergebnis unbekannt(int typ, long id);

  private:
    CApplikation& app_;
};

// "Vorname Name", or the name alone when the first name is empty.
std::string personAnzeige(const std::string& name, const std::string& vorname);

}  // namespace dv
