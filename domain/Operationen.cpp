// Deleting boxes, DVDs and films with everything that hangs on them; creating
// and changing them.

#include <cstring>

#include "base/Hilfen.h"
#include "domain/Bausteine.h"
#include "domain/Datenbank.h"
#include "domain/Tags.h"

namespace dv {
namespace {

using bau::linkVon;

Zeile15 vormerkVon(int typ, long id) {
    Zeile15 z{};
    z.Objekt_Typ = typ;
    z.Objekt_Id = static_cast<std::int32_t>(id);
    return z;
}

}  // namespace

// ---- Delete cascades -------------------------------------------------------
// Every id is checked before it goes into a select example: an example id of 0
// matches every row.

void Datenbank::loeschePersonVerknuepfung(long filmPersonId, Geloescht& g, bool linksZuerst) {
    if (filmPersonId <= 0) return;
    std::vector<Zeile2> aliasLinks;
    {
        auto l = katalog_.Film_Alias.liste(linkVon(filmPersonId, 0));
        for (ListenElement* n = l.get(); n; n = n->pNext) aliasLinks.push_back(Tabelle2::zeile(n));
    }
    for (const Zeile2& a : aliasLinks) {
        if (linksZuerst) g.entferne(katalog_.Film_Alias, a.Id);
        if (a.Objekt1_Id > 0) g.entferne(katalog_.Alias, a.Objekt1_Id);
        if (!linksZuerst) g.entferne(katalog_.Film_Alias, a.Id);
    }
    g.entferne(katalog_.Film_Person, filmPersonId);
}

void Datenbank::loescheFilmIntern(long filmId, Geloescht& g) {
    if (filmId <= 0) return;
    loescheTags(fs(), ordner_.tags, kObjektFilm, filmId);
    {
        Zeile3 beispiel{};
        beispiel.Film_Id = static_cast<std::int32_t>(filmId);
        std::vector<long> personen;
        {
            auto l = katalog_.Film_Person.liste(beispiel);
            for (ListenElement* n = l.get(); n; n = n->pNext)
                personen.push_back(Tabelle3::zeile(n).Id);
        }
        for (long fp : personen) loeschePersonVerknuepfung(fp, g);
    }
    const Zeile2 vomFilm = linkVon(filmId, 0);
    g.alle(katalog_.Film_Fkt, vomFilm);
    Zeile4 titel{};
    titel.Fremd_Id = static_cast<std::int32_t>(filmId);
    g.alle(katalog_.Titel, titel);
    g.alle(katalog_.DVD_Film, linkVon(0, filmId));
    g.alle(katalog_.Film_Bildformat, vomFilm);
    g.alle(katalog_.Film_Genre, vomFilm);
    g.alle(katalog_.Film_Untertitel, vomFilm);
    Zeile6 sprachen{};
    sprachen.Film_Id = static_cast<std::int32_t>(filmId);
    g.alle(katalog_.Film_Sprachen, sprachen);
    g.alle(katalog_.Vormerk2, vormerkVon(kObjektFilm, filmId));
    loescheSeitenDatei(fs(), ordner_.kommentar, filmId);
    loescheSeitenDatei(fs(), ordner_.inhalt, filmId);
    g.entferne(katalog_.Film, filmId);
    loescheAlleTagDateien(fs(), ordner_.tags, kObjektFilm, filmId);
}

void Datenbank::loescheDvdIntern(long dvdId, Geloescht& g) {
    if (dvdId <= 0) return;
    loescheTags(fs(), ordner_.tags, kObjektDvd, dvdId);
    std::vector<Zeile2> filme;
    {
        auto l = katalog_.DVD_Film.liste(linkVon(dvdId, 0));
        for (ListenElement* n = l.get(); n; n = n->pNext) filme.push_back(Tabelle2::zeile(n));
    }
    for (const Zeile2& f : filme) {
        loescheFilmIntern(f.Objekt1_Id, g);
        g.entferne(katalog_.DVD_Film, f.Id);
    }
    Zeile7 inBoxen{};
    inBoxen.DVD_Id = static_cast<std::int32_t>(dvdId);
    g.alle(katalog_.DVD_Box, inBoxen);
    g.alle(katalog_.DVD_Extras, linkVon(dvdId, 0));
    g.alle(katalog_.Vormerk2, vormerkVon(kObjektDvd, dvdId));
    g.entferne(katalog_.DVD, dvdId);
    loescheAlleTagDateien(fs(), ordner_.tags, kObjektDvd, dvdId);
}

bool Datenbank::loescheFilm(long filmId) {
    auto v = vorgang();
    if (!v.offen() || !katalog_.Film.eine(filmId)) return false;
    Geloescht g;
    loescheFilmIntern(filmId, g);
    return !katalog_.Film.eine(filmId) && v.abschliessen();
}

bool Datenbank::loescheDvd(long dvdId) {
    auto v = vorgang();
    if (!v.offen() || !katalog_.DVD.eine(dvdId)) return false;
    Geloescht g;
    loescheDvdIntern(dvdId, g);
    return !katalog_.DVD.eine(dvdId) && v.abschliessen();
}

bool Datenbank::loescheBox(long boxId) {
    auto v = vorgang();
    if (!v.offen() || !katalog_.Box.eine(boxId)) return false;
    Geloescht g;
    std::vector<Zeile7> dvds;
    {
        Zeile7 beispiel{};
        beispiel.Box_Id = static_cast<std::int32_t>(boxId);
        auto l = katalog_.DVD_Box.liste(beispiel);
        for (ListenElement* n = l.get(); n; n = n->pNext) dvds.push_back(Tabelle7::zeile(n));
    }
    for (const Zeile7& d : dvds) {
        loescheDvdIntern(d.DVD_Id, g);
        g.entferne(katalog_.DVD_Box, d.Id);
    }
    g.alle(katalog_.Box_Extras, linkVon(boxId, 0));
    g.alle(katalog_.Vormerk2, vormerkVon(kObjektBox, boxId));
    g.entferne(katalog_.Box, boxId);
    loescheTags(fs(), ordner_.tags, kObjektBox, boxId);
    loescheAlleTagDateien(fs(), ordner_.tags, kObjektBox, boxId);
    return !katalog_.Box.eine(boxId) && v.abschliessen();
}

// ---- Lookups ---------------------------------------------------------------

Tabelle1* Datenbank::lookupTabelle(int typ) {
    Katalog& k = katalog_;
    switch (typ) {
        case kTypVerpackung:
            return &k.Verpackung;
        case kTypExtras:
        case kTypBoxExtras:
            return &k.Extras;
        case kTypFormat:
            return &k.Formate;
        case kTypGenre:
            return &k.Genre;
        case kTypBildformat:
            return &k.Bildformate;
        case kTypSprache:
        case kTypUntertitel:
            return &k.Sprachen;
        case kTypTonformat:
            return &k.Tonformate;
        case kTypFunktion:
            return &k.Funktion;
        case kTypAlias:
            return &k.Alias;
        default:
            return nullptr;
    }
}

long Datenbank::neuesLookup(int typ, const std::string& name) {
    Tabelle1* t = lookupTabelle(typ);
    return t ? t->insert(name.c_str()) : 0;
}

long Datenbank::findeLookup(int typ, const std::string& name) {
    Tabelle1* t = lookupTabelle(typ);
    if (!t) return 0;
    long gefunden = 0;
    t->scanne([&](const Zeile1& z) {
        if (gefunden == 0 && ::strcasecmp(z.cpText, name.c_str()) == 0) gefunden = z.Id;
    });
    return gefunden;
}

// ---- Creating and changing -------------------------------------------------

using bau::naechstePos;

long Datenbank::neueBox(const std::string& ean, const std::string& titel, long verpackung,
                        long zusatz) {
    return katalog_.Box.insert(ean.c_str(), titel.c_str(), verpackung, zusatz);
}

long Datenbank::neueDvd(long boxId, const Zeile9& dvd) {
    auto v = vorgang();
    if (!v.offen() || !katalog_.Box.eine(boxId)) return 0;
    Zeile7 beispiel{};
    beispiel.Box_Id = static_cast<std::int32_t>(boxId);
    const int pos = naechstePos(katalog_.DVD_Box, beispiel);
    if (pos > 0xFFFF) return 0;  // positions are full until validation renumbers them
    const long id = katalog_.DVD.insert(dvd);
    if (id <= 0 || katalog_.DVD_Box.insert(boxId, id, 0, pos) <= 0) {
        v.verwerfen();
        return 0;
    }
    return v.abschliessen() ? id : 0;
}

long Datenbank::neuerFilm(long dvdId, const std::string& titel, int fsk, int laenge, int jahr) {
    auto v = vorgang();
    if (!v.offen() || !katalog_.DVD.eine(dvdId)) return 0;
    const int pos = naechstePos(katalog_.DVD_Film, linkVon(dvdId, 0));
    if (pos > 0xFFFF) return 0;
    const long id = katalog_.Film.insert(fsk, laenge, jahr);
    bool ok = id > 0;
    if (ok) ok = titel.empty() || katalog_.Titel.insert(id, kTitelHaupt, titel.c_str(), 1) > 0;
    if (ok) ok = katalog_.DVD_Film.insert(dvdId, id, pos) > 0;
    if (!ok) v.verwerfen();
    return v.abschliessen() ? id : 0;
}

bool Datenbank::aendereBox(long id, const std::string& ean, const std::string& titel,
                           long verpackung, long zusatz) {
    if (!katalog_.Box.eine(id)) return false;
    return katalog_.Box.update(id, ean.c_str(), titel.c_str(), verpackung, zusatz);
}

bool Datenbank::aendereDvd(long id, const Zeile9& dvd) {
    if (!katalog_.DVD.eine(id)) return false;
    return katalog_.DVD.update(id, dvd);
}

bool Datenbank::aendereFilm(long id, int fsk, int laenge, int jahr) {
    if (!katalog_.Film.eine(id)) return false;
    return katalog_.Film.update(id, fsk, laenge, jahr);
}

}  // namespace dv
