// Writing the link rows of films, boxes and DVDs; moving DVDs and films within
// their owner; copying DVDs and films.

#include "domain/Bausteine.h"
#include "domain/Datenbank.h"

namespace dv {
namespace {

using bau::linkVon;
using bau::naechstePos;

template <class T>
std::vector<typename T::Zeile> zeilen(T& tab, const typename T::Zeile& beispiel) {
    std::vector<typename T::Zeile> v;
    auto l = tab.liste(beispiel);
    for (ListenElement* n = l.get(); n; n = n->pNext) v.push_back(T::zeile(n));
    return v;
}

// Replaces the rows of one owner in tab: neu(i, pos) inserts the i-th new row
// and returns its id. The old rows go only when every new one is in; otherwise
// the new ones go again. Either way nothing is left that names a missing row.
template <class T, class F>
bool ersetze(T& tab, const typename T::Zeile& alt, std::size_t n, F&& neu) {
    std::vector<long> alte;
    for (const auto& z : zeilen(tab, alt)) alte.push_back(z.Id);
    std::vector<long> neue;
    bool ok = true;
    for (std::size_t i = 0; i < n && ok; ++i) {
        const long id = neu(i, static_cast<int>(i + 1));
        if (id > 0)
            neue.push_back(id);
        else
            ok = false;
    }
    for (long id : ok ? alte : neue) tab.remove(id, false);
    tab.init();
    return ok;
}

// The result of an operation that wrote through v: true when its own work
// succeeded and its end made it durable.
bool schliesse(Schreibvorgang& v, bool ok) {
    return v.abschliessen() && ok;
}

bool alleGueltig(const std::vector<long>& ids) {
    for (long id : ids)
        if (id <= 0) return false;
    return true;
}

}  // namespace

bool Datenbank::schreibeFilmTitel(long filmId, const FilmTitel& titel) {
    auto v = vorgang();
    if (!v.offen() || !katalog_.Film.eine(filmId)) return false;
    std::vector<std::pair<int, const std::string*>> rows;
    if (!titel.haupt.empty()) rows.push_back({kTitelHaupt, &titel.haupt});
    if (!titel.original.empty()) rows.push_back({kTitelOriginal, &titel.original});
    for (const std::string& w : titel.weitere)
        if (!w.empty()) rows.push_back({kTitelAlternativ, &w});
    Zeile4 alt{};
    alt.Fremd_Id = static_cast<std::int32_t>(filmId);
    return schliesse(v, ersetze(katalog_.Titel, alt, rows.size(), [&](std::size_t i, int pos) {
                         return katalog_.Titel.insert(filmId, rows[i].first,
                                                      rows[i].second->c_str(), pos);
                     }));
}

bool Datenbank::schreibeFilmSprachen(long filmId,
                                     const std::vector<std::pair<long, long>>& sprachen) {
    for (const auto& [s, t] : sprachen)
        if (s <= 0 || t <= 0) return false;
    auto v = vorgang();
    if (!v.offen() || !katalog_.Film.eine(filmId)) return false;
    Zeile6 alt{};
    alt.Film_Id = static_cast<std::int32_t>(filmId);
    return schliesse(
        v, ersetze(katalog_.Film_Sprachen, alt, sprachen.size(), [&](std::size_t i, int pos) {
            return katalog_.Film_Sprachen.insert(filmId, sprachen[i].first, sprachen[i].second,
                                                 pos);
        }));
}

bool Datenbank::schreibeFilmObjekte(long filmId, int typ, const std::vector<long>& ids) {
    Tabelle10* tab = nullptr;
    switch (typ) {
        case kTypGenre:
            tab = &katalog_.Film_Genre;
            break;
        case kTypBildformat:
            tab = &katalog_.Film_Bildformat;
            break;
        case kTypUntertitel:
            tab = &katalog_.Film_Untertitel;
            break;
        case kTypFunktion:
            tab = &katalog_.Film_Fkt;
            break;
        default:
            return false;
    }
    auto v = vorgang();
    if (!v.offen() || !alleGueltig(ids) || !katalog_.Film.eine(filmId)) return false;
    return schliesse(v, ersetze(*tab, linkVon(filmId, 0), ids.size(), [&](std::size_t i, int pos) {
                         return tab->insert(filmId, ids[i], pos);
                     }));
}

bool Datenbank::schreibeExtras(int typ, long owner, const std::vector<long>& ids) {
    auto v = vorgang();
    Tabelle2* tab = nullptr;
    if (typ == kTypExtras && katalog_.DVD.eine(owner)) tab = &katalog_.DVD_Extras;
    if (typ == kTypBoxExtras && katalog_.Box.eine(owner)) tab = &katalog_.Box_Extras;
    if (!v.offen() || !tab || !alleGueltig(ids)) return false;
    return schliesse(v, ersetze(*tab, linkVon(owner, 0), ids.size(), [&](std::size_t i, int pos) {
                         return tab->insert(owner, ids[i], pos);
                     }));
}

namespace {

// Inserts alias rows and their Film_Alias links for one Film_Person row; the
// ids of the links made go to `links`. False on the first failure.
bool neueAlias(Katalog& k, long filmPersonId, const std::vector<std::string>& namen,
               std::vector<Zeile2>& links) {
    int pos = 1;
    for (const std::string& name : namen) {
        const long alias = k.Alias.insert(name.c_str());
        if (alias <= 0) return false;
        const long link = k.Film_Alias.insert(filmPersonId, alias, pos);
        if (link <= 0) {
            k.Alias.remove(alias, true);
            return false;
        }
        Zeile2 z = linkVon(filmPersonId, alias);
        z.Id = static_cast<std::int32_t>(link);
        links.push_back(z);
        ++pos;
    }
    return true;
}

}  // namespace

bool Datenbank::schreibeFilmAlias(long filmPersonId, const std::vector<std::string>& namen) {
    auto v = vorgang();
    if (!v.offen() || filmPersonId <= 0 || !katalog_.Film_Person.eine(filmPersonId)) return false;
    const std::vector<Zeile2> alte = zeilen(katalog_.Film_Alias, linkVon(filmPersonId, 0));
    std::vector<Zeile2> neue;
    const bool ok = neueAlias(katalog_, filmPersonId, namen, neue);
    Geloescht g;
    for (const Zeile2& z : ok ? alte : neue) {
        g.entferne(katalog_.Film_Alias, z.Id);
        if (z.Objekt1_Id > 0) g.entferne(katalog_.Alias, z.Objekt1_Id);
    }
    return schliesse(v, ok);
}

bool Datenbank::schreibeFilmPersonen(long filmId, const std::vector<PersonEintrag>& personen) {
    for (const PersonEintrag& p : personen)
        if (p.person <= 0 || p.funktion <= 0) return false;
    auto v = vorgang();
    if (!v.offen() || !katalog_.Film.eine(filmId)) return false;
    Zeile3 alt{};
    alt.Film_Id = static_cast<std::int32_t>(filmId);
    std::vector<long> alte;
    for (const Zeile3& z : zeilen(katalog_.Film_Person, alt)) alte.push_back(z.Id);
    std::vector<long> neue;
    bool ok = true;
    int pos = 1;
    for (const PersonEintrag& p : personen) {
        const long fp = katalog_.Film_Person.insert(filmId, p.person, p.funktion, pos++);
        if (fp <= 0) {
            ok = false;
            break;
        }
        neue.push_back(fp);
        std::vector<Zeile2> links;
        if (!neueAlias(katalog_, fp, p.alias, links)) {
            ok = false;
            break;
        }
    }
    Geloescht g;
    for (long fp : ok ? alte : neue) loeschePersonVerknuepfung(fp, g, true);
    return schliesse(v, ok);
}

// ---- Moving within the owner ------------------------------------------------

namespace {

// Swaps entry `id` with its neighbour among the owner's visible link rows (in
// "Pos" order, targets that exist). Equal positions are renumbered 1, 2, ...
// first, so the swap always changes the order.
template <class T, class Ziel, class Id, class Schreibe>
bool tausche(T& tab, const typename T::Zeile& beispiel, Ziel& ziel, Id zielId, long id, bool hoch,
             const Trace& trace, Schreibe&& schreibe) {
    std::vector<typename T::Zeile> rows;
    {
        auto links = bau::sortierteLinks(tab, beispiel, trace);
        for (ListenElement* n = links.get(); n; n = n->pNext)
            if (ziel.eine(zielId(T::zeile(n)))) rows.push_back(T::zeile(n));
    }
    std::size_t i = 0;
    while (i < rows.size() && zielId(rows[i]) != id) ++i;
    if (i == rows.size()) return false;
    if (hoch ? i == 0 : i + 1 == rows.size()) return false;
    const std::size_t j = hoch ? i - 1 : i + 1;
    if (rows[i].Pos != rows[j].Pos) {
        const auto pi = rows[i].Pos;
        return schreibe(rows[i], rows[j].Pos) && schreibe(rows[j], pi);
    }
    std::swap(rows[i], rows[j]);
    bool ok = true;
    for (std::size_t k = 0; k < rows.size(); ++k)
        if (rows[k].Pos != k + 1) ok = schreibe(rows[k], static_cast<int>(k + 1)) && ok;
    return ok;
}

}  // namespace

bool Datenbank::verschiebeDvd(long boxId, long dvdId, bool hoch) {
    auto v = vorgang();
    if (!v.offen() || boxId <= 0 || dvdId <= 0) return false;
    Zeile7 beispiel{};
    beispiel.Box_Id = static_cast<std::int32_t>(boxId);
    return schliesse(v, tausche(
                            katalog_.DVD_Box, beispiel, katalog_.DVD,
                            [](const Zeile7& z) { return z.DVD_Id; }, dvdId, hoch, trace(),
                            [&](const Zeile7& z, int pos) {
                                return katalog_.DVD_Box.update(z.Id, z.Box_Id, z.DVD_Id,
                                                               z.Sammelbox_Id, pos);
                            }));
}

bool Datenbank::verschiebeFilm(long dvdId, long filmId, bool hoch) {
    auto v = vorgang();
    if (!v.offen() || dvdId <= 0 || filmId <= 0) return false;
    return schliesse(v, tausche(
                            katalog_.DVD_Film, linkVon(dvdId, 0), katalog_.Film,
                            [](const Zeile2& z) { return z.Objekt1_Id; }, filmId, hoch, trace(),
                            [&](const Zeile2& z, int pos) {
                                return katalog_.DVD_Film.update(z.Id, z.DVD_Id, z.Objekt1_Id, pos);
                            }));
}

// ---- Copying ------------------------------------------------------------------

bool Datenbank::kopiereFilmInhalt(long vonFilm, long nachFilm) {
    std::string text;
    bool ok = true;
    if (leseInhalt(vonFilm, text)) ok = schreibeInhalt(nachFilm, text) && ok;
    if (leseKommentar(vonFilm, text)) ok = schreibeKommentar(nachFilm, text) && ok;
    return ok;
}

long Datenbank::kopiereFilmOhneLink(long filmId) {
    auto quelle = katalog_.Film.eine(filmId);
    if (!quelle) return 0;
    const Zeile5& f = Tabelle5::zeile(quelle.get());
    const long neu = katalog_.Film.insert(f.FSK, f.Laenge, f.Jahr);
    if (neu <= 0) return 0;
    Katalog& k = katalog_;
    bool ok = true;
    auto pruefe = [&](long id) { ok = ok && id > 0; };
    Zeile4 titel{};
    titel.Fremd_Id = static_cast<std::int32_t>(filmId);
    for (const Zeile4& z : zeilen(k.Titel, titel))
        if (ok) pruefe(k.Titel.insert(neu, z.Typ, z.cpTitel, z.Pos));
    for (Tabelle10* t : std::initializer_list<Tabelle10*>{&k.Film_Genre, &k.Film_Bildformat,
                                                          &k.Film_Untertitel, &k.Film_Fkt})
        for (const Zeile2& z : zeilen(*t, linkVon(filmId, 0)))
            if (ok) pruefe(t->insert(neu, z.Objekt1_Id, z.Pos));
    Zeile6 sprachen{};
    sprachen.Film_Id = static_cast<std::int32_t>(filmId);
    for (const Zeile6& z : zeilen(k.Film_Sprachen, sprachen))
        if (ok) pruefe(k.Film_Sprachen.insert(neu, z.Sprachen_Id, z.Tonformat_Id, z.Pos));
    Zeile3 personen{};
    personen.Film_Id = static_cast<std::int32_t>(filmId);
    for (const Zeile3& p : zeilen(k.Film_Person, personen)) {
        if (!ok) break;
        const long fp = k.Film_Person.insert(neu, p.Person_Id, p.Funktion, p.Pos);
        pruefe(fp);
        for (const Zeile2& a : zeilen(k.Film_Alias, linkVon(p.Id, 0))) {
            auto alias = ok && a.Objekt1_Id > 0 ? k.Alias.eine(a.Objekt1_Id) : ListenBesitz();
            if (!alias) continue;
            const long kopie = k.Alias.insert(Tabelle1::zeile(alias.get()).cpText);
            pruefe(kopie);
            if (ok) pruefe(k.Film_Alias.insert(fp, kopie, a.Pos));
        }
    }
    if (ok) ok = kopiereFilmInhalt(filmId, neu);
    return ok ? neu : 0;
}

long Datenbank::kopiereFilm(long filmId, long zielDvdId) {
    auto v = vorgang();
    if (!v.offen() || !katalog_.DVD.eine(zielDvdId)) return 0;
    const int pos = naechstePos(katalog_.DVD_Film, linkVon(zielDvdId, 0));
    if (pos > 0xFFFF) return 0;
    const long neu = kopiereFilmOhneLink(filmId);
    if (neu <= 0 || katalog_.DVD_Film.insert(zielDvdId, neu, pos) <= 0) v.verwerfen();
    return v.abschliessen() ? neu : 0;
}

long Datenbank::kopiereDvd(long dvdId, long zielBoxId) {
    auto v = vorgang();
    if (!v.offen() || !katalog_.Box.eine(zielBoxId)) return 0;
    auto quelle = katalog_.DVD.eine(dvdId);
    if (!quelle) return 0;
    Katalog& k = katalog_;
    Zeile7 imZiel{};
    imZiel.Box_Id = static_cast<std::int32_t>(zielBoxId);
    const int pos = naechstePos(k.DVD_Box, imZiel);
    if (pos > 0xFFFF) return 0;
    const long neu = k.DVD.insert(Tabelle9::zeile(quelle.get()));
    if (neu <= 0) return 0;
    bool ok = true;
    for (const Zeile2& z : zeilen(k.DVD_Extras, linkVon(dvdId, 0)))
        if (ok) ok = k.DVD_Extras.insert(neu, z.Objekt1_Id, z.Pos) > 0;
    for (const Zeile2& z : zeilen(k.DVD_Film, linkVon(dvdId, 0))) {
        if (!ok) break;
        if (!k.Film.eine(z.Objekt1_Id)) continue;  // a link to nothing is not copied
        const long film = kopiereFilmOhneLink(z.Objekt1_Id);
        ok = film > 0 && k.DVD_Film.insert(neu, film, z.Pos) > 0;
    }
    if (ok) ok = k.DVD_Box.insert(zielBoxId, neu, 0, pos) > 0;
    if (!ok) v.verwerfen();
    return v.abschliessen() ? neu : 0;
}

}  // namespace dv
