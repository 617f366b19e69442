#include "app/KatalogDienst.h"

#include <cstdlib>
#include <unordered_map>
#include <unordered_set>

#include "app/CApplikation.h"
#include "domain/Beschreibung.h"
#include "interchange/ExportQuelle.h"

namespace dv {

static_assert(kBox == kObjektBox && kDvd == kObjektDvd && kFilm == kObjektFilm);

namespace {

// The box ids that have a cover file ("<id>.<extension>"), from one folder listing.
std::unordered_set<long> boxenMitCover(Dateisystem& fs, const std::string& ordner) {
    std::unordered_set<long> ids;
    for (const OrdnerEintrag& e : fs.liste(ordner)) {
        if (e.istOrdner) continue;
        char* ende = nullptr;
        const long id = std::strtol(e.name.c_str(), &ende, 10);
        if (id > 0 && ende != e.name.c_str() && *ende == '.') ids.insert(id);
    }
    return ids;
}

// Link rows per owner (first field), for the owners asked, in one pass.
template <class T>
std::unordered_map<long, int> zaehleLinks(T& tab, const std::unordered_set<long>& besitzer) {
    std::unordered_map<long, int> n;
    tab.scanneNachErstemFeld([&](std::int32_t id) { return besitzer.count(id) != 0; },
                             [&](const auto& z) { ++n[z.DVD_Id]; });
    return n;
}

std::string lookupText(Tabelle1& t, long id, std::unordered_map<long, std::string>& merker) {
    auto it = merker.find(id);
    if (it != merker.end()) return it->second;
    auto row = id > 0 ? t.eine(id) : ListenBesitz();
    return merker[id] = row ? Tabelle1::zeile(row.get()).cpText : "";
}

}  // namespace

std::string personAnzeige(const std::string& name, const std::string& vorname) {
    return vorname.empty() ? name : vorname + " " + name;
}

std::vector<BoxZeile> KatalogDienst::boxen() {
    Datenbank& db = app_.db();
    auto liste = db.getBoxListe();
    std::unordered_map<long, int> dvds;
    db.katalog().DVD_Box.scanne([&](const Zeile7& z) { ++dvds[z.Box_Id]; });
    const auto cover = boxenMitCover(app_.fs(), app_.ordner().cover);
    std::vector<BoxZeile> zeilen;
    for (const BoxElement* b = liste.get(); b; b = b->pNext) {
        const auto n = dvds.find(b->Id);
        zeilen.push_back(
            {b->Id, b->cpText, b->cpEAN, cover.count(b->Id) != 0, n == dvds.end() ? 0 : n->second});
    }
    return zeilen;
}

std::optional<BoxZeile> KatalogDienst::box(long id) {
    auto b = app_.db().getBox(id);
    if (!b) return std::nullopt;
    Zeile7 beispiel{};
    beispiel.Box_Id = static_cast<std::int32_t>(id);
    int dvds = 0;
    auto links = app_.db().katalog().DVD_Box.liste(beispiel);
    for (ListenElement* n = links.get(); n; n = n->pNext) ++dvds;
    return BoxZeile{b->Id, b->cpText, b->cpEAN,
                    !findeCover(app_.fs(), app_.ordner().cover, id).empty(), dvds};
}

std::vector<DvdZeile> KatalogDienst::dvds(long boxId) {
    std::vector<DvdZeile> zeilen;
    if (boxId <= 0) return zeilen;
    auto liste = app_.db().getDvdListe(boxId);
    std::unordered_set<long> ids;
    for (const DvdElement* d = liste.get(); d; d = d->pNext) ids.insert(d->Id);
    const auto filme = zaehleLinks(app_.db().katalog().DVD_Film, ids);
    int index = 0;
    for (const DvdElement* d = liste.get(); d; d = d->pNext) {
        const auto n = filme.find(d->Id);
        zeilen.push_back({d->Id, boxId, d->cpText, ++index, n == filme.end() ? 0 : n->second});
    }
    return zeilen;
}

std::vector<FilmZeile> KatalogDienst::filme(long dvdId) {
    std::vector<FilmZeile> zeilen;
    if (dvdId <= 0) return zeilen;
    auto liste = app_.db().getFilmListe(dvdId);
    int index = 0;
    for (const FilmElement* f = liste.get(); f; f = f->pNext)
        zeilen.push_back({f->Id, dvdId, f->cpTitel, ++index});
    return zeilen;
}

std::optional<DvdZeile> KatalogDienst::dvd(long id) {
    const long box = besitzer(kDvd, id);
    for (const DvdZeile& z : dvds(box))
        if (z.id == id) return z;
    auto d = app_.db().getDvd(id);
    if (!d) return std::nullopt;
    auto filme = app_.db().getFilmListe(id);
    int n = 0;
    for (const FilmElement* f = filme.get(); f; f = f->pNext) ++n;
    return DvdZeile{d->Id, box, d->cpText, 0, n};
}

std::optional<FilmZeile> KatalogDienst::film(long id) {
    const long dvd = besitzer(kFilm, id);
    for (const FilmZeile& z : filme(dvd))
        if (z.id == id) return z;
    auto f = app_.db().getFilm(id);
    if (!f) return std::nullopt;
    return FilmZeile{f->Id, dvd, f->cpTitel, 0};
}

const char* KatalogDienst::gruppenText(int lookupTyp) {
    switch (lookupTyp) {
        case kTypExtras:
            return "Extras";
        case kTypFormat:
            return "Formate";
        case kTypGenre:
            return "Genre";
        case kTypBildformat:
            return "Bildformate";
        case kTypSprache:
            return "Sprachen inkl. Tonformat";
        case kTypUntertitel:
            return "Untertitel";
        case kTypPerson:
            return "Personen";
        default:
            return "<unbekannt>";
    }
}

std::vector<Gruppe> KatalogDienst::gruppen(long filmId) {
    Datenbank& db = app_.db();
    std::vector<Gruppe> gruppen;
    if (filmId <= 0) return gruppen;
    for (int typ : {kTypGenre, kTypBildformat, kTypSprache, kTypUntertitel}) {
        auto liste = db.getObjektListe(filmId, typ);
        if (!liste) continue;
        Gruppe g{typ, gruppenText(typ), {}};
        for (const ObjektElement* e = liste.get(); e; e = e->pNext) {
            std::string text = e->pObjekt1->zeile.cpText;
            if (typ == kTypSprache)
                text = formatiere("%s / %s", text.c_str(), e->pObjekt2->zeile.cpText);
            g.eintraege.push_back({e->Id, text, {}});
        }
        gruppen.push_back(std::move(g));
    }
    auto personen = db.getPersonenListe(filmId);
    if (!personen) return gruppen;
    Gruppe g{kTypPerson, gruppenText(kTypPerson), {}};
    std::unordered_map<long, std::string> funktionen;
    for (const PersonenElement* p = personen.get(); p; p = p->pNext) {
        const Zeile8& z = p->pPerson->zeile;
        GruppenEintrag e{z.Id, personAnzeige(z.cpName, z.cpVorname), {}};
        const std::string fkt = lookupText(db.katalog().Funktion, p->lFunktion, funktionen);
        if (!fkt.empty()) e.text += formatiere(" (%s)", fkt.c_str());
        for (const ListenElement* a = p->pAlias; a; a = a->pNext)
            e.unter.push_back(static_cast<const Zeile1*>(a->pObjekt)->cpText);
        g.eintraege.push_back(std::move(e));
    }
    gruppen.push_back(std::move(g));
    return gruppen;
}

bool KatalogDienst::gibtEs(int typ, long id) {
    if (id <= 0) return false;
    Katalog& k = app_.db().katalog();
    switch (typ) {
        case kBox:
            return static_cast<bool>(k.Box.eine(id));
        case kDvd:
            return static_cast<bool>(k.DVD.eine(id));
        case kFilm:
            return static_cast<bool>(k.Film.eine(id));
        default:
            return false;
    }
}

long KatalogDienst::besitzer(int typ, long id) {
    if (typ == kDvd) return app_.db().boxVonDvd(id);
    if (typ == kFilm) return app_.db().dvdVonFilm(id);
    return 0;
}

Anzahl KatalogDienst::anzahl() {
    Anzahl a;
    app_.db().anzahl(a.boxen, a.dvds, a.filme);
    return a;
}

std::string KatalogDienst::name(int typ, long id) {
    return objektName(app_.db(), typ, id);
}

ErgebnisMit<std::string> KatalogDienst::info(int typ, long id) {
    if (!gibtEs(typ, id)) return unbekannt(typ, id);
    return infoText(app_.db(), typ, id);
}

ErgebnisMit<std::string> KatalogDienst::spieldauer(int typ, long id) {
    if (!gibtEs(typ, id)) return unbekannt(typ, id);
    return spieldauerText(app_.db(), typ, id);
}

const char* KatalogDienst::spieldauerTitel() {
    return kSpieldauerTitel;
}

Ergebnis KatalogDienst::unbekannt(int typ, long id) {
    return Ergebnis::eingabe(
        formatiere("Kein Objekt vom Typ %s mit der ID %ld.", objektTypName(typ), id));
}

}  // namespace dv
