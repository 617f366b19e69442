#pragma once
// The 32 named tables of the catalogue, each binding a table name (the file's
// base name) to its record class, and the operations on the database as a whole.

#include <string>
#include <vector>

#include "storage/Satzarten.h"

namespace dv {

namespace tab {
#define DV_TABELLE(Name, Klasse)                                 \
    class Name : public Klasse {                                 \
      public:                                                    \
        explicit Name(SpeicherUmgebung& u) : Klasse(u, #Name) {} \
    };
// Lookup tables.
DV_TABELLE(Alias, Tabelle1)
DV_TABELLE(Bildformate, Tabelle1)
DV_TABELLE(Extras, Tabelle1)
DV_TABELLE(FilterName, Tabelle1)
DV_TABELLE(Formate, Tabelle1)
DV_TABELLE(Funktion, Tabelle1)
DV_TABELLE(Genre, Tabelle1)
DV_TABELLE(Sprachen, Tabelle1)
DV_TABELLE(Tonformate, Tabelle1)
DV_TABELLE(Verpackung, Tabelle1)
DV_TABELLE(VormerkName, Tabelle1)
// Object tables.
DV_TABELLE(Box, Tabelle12)
DV_TABELLE(DVD, Tabelle9)
DV_TABELLE(Film, Tabelle5)
DV_TABELLE(Titel, Tabelle4)
DV_TABELLE(Person, Tabelle8)
DV_TABELLE(TagStempel, Tabelle11)
DV_TABELLE(Filter, Tabelle13)
DV_TABELLE(DatenVersion, TabelleVersion)
// Link tables.
DV_TABELLE(Box_Extras, Tabelle2)
DV_TABELLE(DVD_Box, Tabelle7)
DV_TABELLE(DVD_Extras, Tabelle2)
DV_TABELLE(DVD_Film, Tabelle2)
// First field: the Film_Person row the alias belongs to; second: the Alias row.
DV_TABELLE(Film_Alias, Tabelle2)
DV_TABELLE(Film_Bildformat, Tabelle10)
DV_TABELLE(Film_Fkt, Tabelle10)
DV_TABELLE(Film_Genre, Tabelle10)
DV_TABELLE(Film_Person, Tabelle3)
DV_TABELLE(Film_Sprachen, Tabelle6)
DV_TABELLE(Film_Untertitel, Tabelle10)
DV_TABELLE(Vormerk, Tabelle14)
DV_TABELLE(Vormerk2, Tabelle15)
#undef DV_TABELLE
}  // namespace tab

// The program's own data version.
inline constexpr long kVersionTeile[4] = {4, 0, 0, 1};
inline constexpr const char* kVersionDatum = "20070406";

// One instance of every named table. Owns no file handle; see Tabelle.
struct Katalog {
    explicit Katalog(SpeicherUmgebung& u);

    tab::Alias Alias;
    tab::Bildformate Bildformate;
    tab::Extras Extras;
    tab::FilterName FilterName;
    tab::Formate Formate;
    tab::Funktion Funktion;
    tab::Genre Genre;
    tab::Sprachen Sprachen;
    tab::Tonformate Tonformate;
    tab::Verpackung Verpackung;
    tab::VormerkName VormerkName;
    tab::Box Box;
    tab::DVD DVD;
    tab::Film Film;
    tab::Titel Titel;
    tab::Person Person;
    tab::TagStempel TagStempel;
    tab::Filter Filter;
    tab::DatenVersion DatenVersion;
    tab::Box_Extras Box_Extras;
    tab::DVD_Box DVD_Box;
    tab::DVD_Extras DVD_Extras;
    tab::DVD_Film DVD_Film;
    tab::Film_Alias Film_Alias;
    tab::Film_Bildformat Film_Bildformat;
    tab::Film_Fkt Film_Fkt;
    tab::Film_Genre Film_Genre;
    tab::Film_Person Film_Person;
    tab::Film_Sprachen Film_Sprachen;
    tab::Film_Untertitel Film_Untertitel;
    tab::Vormerk Vormerk;
    tab::Vormerk2 Vormerk2;

    // All 32 tables, in creation order.
    std::vector<Tabelle*> alle();

    // Creates every missing table file (existing ones stay as they are) and seeds
    // the functions "Darsteller" (id 1) and "Regie" (id 2). False if any file
    // could not be created.
    bool erzeugeDatenbank();
    // Every table file exists and both functions are seeded.
    bool vollstaendig();

    // Reads the stored version; false if none is stored.
    bool leseVersion(DatenVersionSatz& v);
    bool schreibeVersion(const DatenVersionSatz& v);
    // The stored version, writing the program's own first if none is stored.
    DatenVersionSatz holeVersion();

    SpeicherUmgebung& umgebung;

  private:
    bool legeAn();
};

DatenVersionSatz aktuelleVersion();
// "%ld.%ld.%ld.%ld - %s"
std::string versionsText(const DatenVersionSatz& v);

}  // namespace dv
