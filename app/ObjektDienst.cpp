#include "app/ObjektDienst.h"

#include <cstdio>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "app/KatalogDienst.h"
#include "app/Objektpruefung.h"
#include "domain/Beschreibung.h"
#include "interchange/ExportQuelle.h"

namespace dv {
namespace {

using pruefung::loeseAuf;

// Every entry of a list, or every entry's name.
template <class F>
std::vector<Eintrag> eintraege(const ObjektElement* e, F&& name) {
    std::vector<Eintrag> v;
    for (; e; e = e->pNext) v.push_back({e->Id, name(*e)});
    return v;
}
std::vector<Eintrag> eintraege(const ObjektElement* e) {
    return eintraege(e,
                     [](const ObjektElement& x) { return std::string(x.pObjekt1->zeile.cpText); });
}

Eintrag lookupEintrag(Datenbank& db, int typ, long id) {
    Tabelle1* t = db.lookupTabelle(typ);
    auto row = id > 0 && t ? t->eine(id) : ListenBesitz();
    return row ? Eintrag{id, Tabelle1::zeile(row.get()).cpText} : Eintrag{};
}

Zeile9 dvdZeile(const DvdWerte& w, long format) {
    Zeile9 z{};
    std::snprintf(z.cpText, sizeof z.cpText, "%s", w.titel.c_str());
    z.Jahr = static_cast<std::int16_t>(w.jahr);
    z.RC = static_cast<std::int8_t>(static_cast<unsigned char>(w.rc));
    z.Opt = static_cast<std::int8_t>(static_cast<unsigned char>(w.opt));
    z.Formate_Id = static_cast<std::int32_t>(format);
    z.SN = w.sn;
    z.Laenge = static_cast<std::int16_t>(w.laenge);
    z.BytesLow = w.bytesLow;
    z.BytesHigh = w.bytesHigh;
    return z;
}

// Removes every cover file of a box ("<id>." and any extension), so that a later
// box with the same id does not inherit it.
void loescheCover(Dateisystem& fs, const std::string& coverOrdner, long boxId) {
    if (boxId <= 0) return;
    const std::string stamm = std::to_string(boxId) + ".";
    for (const OrdnerEintrag& e : fs.liste(coverOrdner))
        if (!e.istOrdner && e.name.compare(0, stamm.size(), stamm) == 0)
            fs.loesche(coverOrdner + e.name);
}

Ergebnis nichtGespeichert(const char* was) {
    return Ergebnis::fehlschlag(formatiere("%s konnte nicht gespeichert werden.", was));
}

// The writes of a box's own fields and extras, for new and changed boxes.
Ergebnis schreibeBox(Datenbank& db, long id, const BoxWerte& w) {
    auto verpackung = loeseAuf(db, kTypVerpackung, w.verpackung);
    if (!verpackung.ok()) return verpackung;
    auto extras = loeseAuf(db, kTypBoxExtras, w.extras);
    if (!extras.ok()) return extras;
    if (!db.aendereBox(id, w.ean, w.titel, verpackung.wert(), w.zusatz) ||
        !db.schreibeExtras(kTypBoxExtras, id, extras.wert()))
        return nichtGespeichert("Die Box");
    return Ergebnis::gut();
}

Ergebnis schreibeDvd(Datenbank& db, long id, const DvdWerte& w) {
    auto format = loeseAuf(db, kTypFormat, w.format);
    if (!format.ok()) return format;
    auto extras = loeseAuf(db, kTypExtras, w.extras);
    if (!extras.ok()) return extras;
    if (!db.aendereDvd(id, dvdZeile(w, format.wert())) ||
        !db.schreibeExtras(kTypExtras, id, extras.wert()))
        return nichtGespeichert("Die DVD");
    return Ergebnis::gut();
}

Ergebnis schreibeFilm(Datenbank& db, long id, const FilmWerte& w) {
    bool ok = db.aendereFilm(id, w.fsk, w.laenge, w.jahr) &&
              db.schreibeFilmTitel(id, {w.titel, w.originaltitel, w.alternativtitel});
    const std::pair<int, const std::vector<Eintrag>*> listen[] = {{kTypGenre, &w.genres},
                                                                  {kTypBildformat, &w.bildformate},
                                                                  {kTypUntertitel, &w.untertitel},
                                                                  {kTypFunktion, &w.funktionen}};
    for (const auto& [typ, liste] : listen) {
        auto ids = loeseAuf(db, typ, *liste);
        if (!ids.ok()) return ids;
        ok = ok && db.schreibeFilmObjekte(id, typ, ids.wert());
    }
    std::vector<std::pair<long, long>> sprachen;
    for (const SpracheWert& s : w.sprachen) {
        auto sprache = loeseAuf(db, kTypSprache, s.sprache);
        if (!sprache.ok()) return sprache;
        auto ton = loeseAuf(db, kTypTonformat, s.tonformat);
        if (!ton.ok()) return ton;
        sprachen.emplace_back(sprache.wert(), ton.wert());
    }
    std::vector<PersonEintrag> personen;
    for (const FilmPerson& p : w.personen) {
        auto fkt = loeseAuf(db, kTypFunktion, p.funktion);
        if (!fkt.ok()) return fkt;
        personen.push_back({p.person.id, fkt.wert(), p.alias});
    }
    ok = ok && db.schreibeFilmSprachen(id, sprachen) && db.schreibeFilmPersonen(id, personen) &&
         db.schreibeInhalt(id, w.inhalt) && db.schreibeKommentar(id, w.kommentar);
    return ok ? Ergebnis::gut() : nichtGespeichert("Der Film");
}

Aenderung meldung(AenderungsArt art, int typ, long id, long eltern = 0) {
    return {art, static_cast<AenderungsTyp>(typ), id, eltern, 0};
}

}  // namespace

// ---- Loading ------------------------------------------------------------------

ErgebnisMit<BoxWerte> ObjektDienst::ladeBox(long id) {
    Datenbank& db = app_.db();
    auto b = db.getBox(id);
    if (!b) return KatalogDienst::unbekannt(kBox, id);
    BoxWerte w;
    w.id = id;
    w.titel = b->cpText;
    w.ean = b->cpEAN;
    w.verpackung = lookupEintrag(db, kTypVerpackung, b->Verpackungs_Id);
    w.zusatz = b->Zusatz_Id;
    w.extras = eintraege(db.getObjektListe(id, kTypBoxExtras).get());
    w.cover = findeCover(app_.fs(), app_.ordner().cover, id);
    return w;
}

ErgebnisMit<DvdWerte> ObjektDienst::ladeDvd(long id) {
    Datenbank& db = app_.db();
    auto d = db.getDvd(id);
    if (!d) return KatalogDienst::unbekannt(kDvd, id);
    DvdWerte w;
    w.id = id;
    w.titel = d->cpText;
    w.jahr = d->Jahr;
    w.laenge = d->Laenge;
    w.rc = static_cast<unsigned char>(d->RC);
    w.opt = static_cast<unsigned char>(d->Opt);
    w.format = lookupEintrag(db, kTypFormat, d->Formate_Id);
    w.sn = d->SN;
    w.bytesLow = d->BytesLow;
    w.bytesHigh = d->BytesHigh;
    w.extras = eintraege(db.getObjektListe(id, kTypExtras).get());
    return w;
}

ErgebnisMit<FilmWerte> ObjektDienst::ladeFilm(long id) {
    Datenbank& db = app_.db();
    auto f = db.getFilm(id);
    if (!f) return KatalogDienst::unbekannt(kFilm, id);
    FilmWerte w;
    w.id = id;
    FilmTitel titel = db.leseFilmTitel(id);
    w.titel = titel.haupt;
    w.originaltitel = titel.original;
    w.alternativtitel = std::move(titel.weitere);
    w.fsk = f->FSK;
    w.laenge = f->Laenge;
    w.jahr = f->Jahr;
    w.genres = eintraege(db.getObjektListe(id, kTypGenre).get());
    w.bildformate = eintraege(db.getObjektListe(id, kTypBildformat).get());
    w.untertitel = eintraege(db.getObjektListe(id, kTypUntertitel).get());
    auto fkt = db.getFktListe(id);
    for (const FktElement* e = fkt.get(); e; e = e->pNext)
        w.funktionen.push_back({e->Id, e->cpText});
    auto sprachen = db.getSprachenFormatListe(id);
    for (const ObjektElement* e = sprachen.get(); e; e = e->pNext)
        w.sprachen.push_back(
            {{e->Id, e->pObjekt1->zeile.cpText}, {e->Id2, e->pObjekt2->zeile.cpText}});
    auto personen = db.getPersonenListe(id);
    for (const PersonenElement* p = personen.get(); p; p = p->pNext) {
        const Zeile8& z = p->pPerson->zeile;
        FilmPerson fp{{z.Id, personAnzeige(z.cpName, z.cpVorname)},
                      lookupEintrag(db, kTypFunktion, p->lFunktion),
                      {}};
        for (const ListenElement* a = p->pAlias; a; a = a->pNext)
            fp.alias.push_back(static_cast<const Zeile1*>(a->pObjekt)->cpText);
        w.personen.push_back(std::move(fp));
    }
    db.leseInhalt(id, w.inhalt);
    db.leseKommentar(id, w.kommentar);
    return w;
}

// ---- Storing ------------------------------------------------------------------

Ergebnis ObjektDienst::speichereBox(const BoxWerte& w) {
    Datenbank& db = app_.db();
    if (!db.getBox(w.id)) return KatalogDienst::unbekannt(kBox, w.id);
    DV_PRUEFE(pruefung::box(db, w));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        DV_PRUEFE(schreibeBox(db, w.id, w));
        m.push_back(meldung(AenderungsArt::Geaendert, kBox, w.id));
        return Ergebnis::gut();
    });
}

Ergebnis ObjektDienst::speichereDvd(const DvdWerte& w) {
    Datenbank& db = app_.db();
    if (!db.getDvd(w.id)) return KatalogDienst::unbekannt(kDvd, w.id);
    DV_PRUEFE(pruefung::dvd(db, w));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        DV_PRUEFE(schreibeDvd(db, w.id, w));
        m.push_back(meldung(AenderungsArt::Geaendert, kDvd, w.id, db.boxVonDvd(w.id)));
        return Ergebnis::gut();
    });
}

Ergebnis ObjektDienst::speichereFilm(const FilmWerte& w) {
    Datenbank& db = app_.db();
    if (!db.getFilm(w.id)) return KatalogDienst::unbekannt(kFilm, w.id);
    DV_PRUEFE(pruefung::film(db, w));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        DV_PRUEFE(schreibeFilm(db, w.id, w));
        m.push_back(meldung(AenderungsArt::Geaendert, kFilm, w.id, db.dvdVonFilm(w.id)));
        return Ergebnis::gut();
    });
}

// ---- Creating -----------------------------------------------------------------

ErgebnisMit<NeueBox> ObjektDienst::neueBox(const BoxWerte& w) {
    Datenbank& db = app_.db();
    BoxWerte neu = w;
    neu.id = 0;
    DV_PRUEFE(pruefung::box(db, neu));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) -> ErgebnisMit<NeueBox> {
        NeueBox n;
        n.box = db.neueBox(neu.ean, neu.titel, 0, neu.zusatz);
        if (n.box <= 0) return Ergebnis::fehlschlag("Die Box konnte nicht angelegt werden.");
        DV_PRUEFE(schreibeBox(db, n.box, neu));
        DvdWerte dvd;
        dvd.titel = neu.titel;
        n.dvd = db.neueDvd(n.box, dvdZeile(dvd, 0));
        if (n.dvd > 0) n.film = db.neuerFilm(n.dvd, neu.titel, 0, 0, 0);
        if (n.film <= 0) return Ergebnis::fehlschlag("Die Box konnte nicht angelegt werden.");
        m.push_back(meldung(AenderungsArt::Neu, kBox, n.box));
        return n;
    });
}

ErgebnisMit<long> ObjektDienst::neueDvd(long boxId, const DvdWerte& w) {
    Datenbank& db = app_.db();
    if (!db.getBox(boxId)) return KatalogDienst::unbekannt(kBox, boxId);
    DV_PRUEFE(pruefung::dvd(db, w));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) -> ErgebnisMit<long> {
        const long id = db.neueDvd(boxId, dvdZeile(w, 0));
        if (id <= 0) return Ergebnis::fehlschlag("Die DVD konnte nicht angelegt werden.");
        DV_PRUEFE(schreibeDvd(db, id, w));
        m.push_back(meldung(AenderungsArt::Neu, kDvd, id, boxId));
        return id;
    });
}

ErgebnisMit<long> ObjektDienst::neuerFilm(long dvdId, const FilmWerte& w) {
    Datenbank& db = app_.db();
    if (!db.getDvd(dvdId)) return KatalogDienst::unbekannt(kDvd, dvdId);
    DV_PRUEFE(pruefung::film(db, w));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) -> ErgebnisMit<long> {
        const long id = db.neuerFilm(dvdId, w.titel, w.fsk, w.laenge, w.jahr);
        if (id <= 0) return Ergebnis::fehlschlag("Der Film konnte nicht angelegt werden.");
        DV_PRUEFE(schreibeFilm(db, id, w));
        m.push_back(meldung(AenderungsArt::Neu, kFilm, id, dvdId));
        return id;
    });
}

// ---- Deleting, moving, copying --------------------------------------------------

std::string ObjektDienst::loeschFrage(int typ, long id) {
    return dv::loeschFrage(app_.db(), typ, id);
}

Ergebnis ObjektDienst::loesche(int typ, long id) {
    if (!app_.dienste().katalog().gibtEs(typ, id)) return KatalogDienst::unbekannt(typ, id);
    Datenbank& db = app_.db();
    const long eltern = app_.dienste().katalog().besitzer(typ, id);
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        const bool ok = typ == kBox   ? db.loescheBox(id)
                        : typ == kDvd ? db.loescheDvd(id)
                                      : db.loescheFilm(id);
        if (!ok) return Ergebnis::fehlschlag("Das Objekt konnte nicht gelöscht werden.");
        if (typ == kBox) loescheCover(app_.fs(), app_.ordner().cover, id);
        m.push_back(meldung(AenderungsArt::Geloescht, typ, id, eltern));
        return Ergebnis::gut();
    });
}

Ergebnis ObjektDienst::loescheMitFrage(int typ, long id, const std::string& frage) {
    if (!app_.dienste().katalog().gibtEs(typ, id)) return KatalogDienst::unbekannt(typ, id);
    if (!app_.benutzer().frage(CApplikation::titel(), frage.empty() ? loeschFrage(typ, id) : frage))
        return Ergebnis::abgelehnt();
    return loesche(typ, id);
}

Ergebnis ObjektDienst::verschiebe(int typ, long id, bool hoch) {
    if (typ != kDvd && typ != kFilm)
        return Ergebnis::eingabe("Nur eine DVD oder ein Film kann verschoben werden.");
    KatalogDienst& katalog = app_.dienste().katalog();
    if (!katalog.gibtEs(typ, id)) return KatalogDienst::unbekannt(typ, id);
    const bool dvd = typ == kDvd;
    const long eltern = katalog.besitzer(typ, id);
    if (eltern <= 0)
        return Ergebnis::fehlschlag(dvd ? "Die DVD gehört zu keiner Box."
                                        : "Der Film gehört zu keiner DVD.");
    Datenbank& db = app_.db();
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!(dvd ? db.verschiebeDvd(eltern, id, hoch) : db.verschiebeFilm(eltern, id, hoch)))
            return Ergebnis::fehlschlag(formatiere("%s steht bereits an %s Stelle.",
                                                   dvd ? "Die DVD" : "Der Film",
                                                   hoch ? "erster" : "letzter"));
        m.push_back(meldung(AenderungsArt::Verschoben, typ, id, eltern));
        return Ergebnis::gut();
    });
}

ErgebnisMit<long> ObjektDienst::kopiere(int typ, long id, long ziel) {
    if (typ != kDvd && typ != kFilm)
        return Ergebnis::eingabe("Nur eine DVD oder ein Film kann kopiert werden.");
    KatalogDienst& katalog = app_.dienste().katalog();
    if (!katalog.gibtEs(typ, id)) return KatalogDienst::unbekannt(typ, id);
    const int zielTyp = typ == kDvd ? kBox : kDvd;
    if (!katalog.gibtEs(zielTyp, ziel)) return KatalogDienst::unbekannt(zielTyp, ziel);
    Datenbank& db = app_.db();
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) -> ErgebnisMit<long> {
        const long neu = typ == kDvd ? db.kopiereDvd(id, ziel) : db.kopiereFilm(id, ziel);
        if (neu <= 0) return Ergebnis::fehlschlag("Das Kopieren ist fehlgeschlagen.");
        m.push_back(meldung(AenderungsArt::Neu, typ, neu, ziel));
        return neu;
    });
}

// ---- Cover --------------------------------------------------------------------

Ergebnis ObjektDienst::setzeCover(long boxId, const std::string& datei) {
    if (!app_.dienste().katalog().gibtEs(kBox, boxId)) return KatalogDienst::unbekannt(kBox, boxId);
    Dateisystem& fs = app_.fs();
    if (!fs.existiert(datei) || fs.istOrdner(datei))
        return Ergebnis::eingabe(
            formatiere("Die Datei \"%s\" gibt es nicht.", pfadText(datei).c_str()));
    const std::string ordner = app_.ordner().cover;
    const std::string endung = dateiEndung(datei);
    if (endung.empty())
        return Ergebnis::eingabe(
            formatiere("Die Datei \"%s\" hat keine Endung.", pfadText(datei).c_str()));
    const std::string ziel = ordner + std::to_string(boxId) + "." + endung;
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        // The new picture is complete under another name before the old one goes.
        const std::string zwischen = ordner + "neu_" + std::to_string(boxId);
        if (!fs.kopiere(datei, zwischen)) {
            fs.loesche(zwischen);
            return Ergebnis::fehlschlag("Das Cover konnte nicht gespeichert werden.");
        }
        loescheCover(fs, ordner, boxId);
        if (!fs.benenneUm(zwischen, ziel))
            return Ergebnis::fehlschlag("Das Cover konnte nicht gespeichert werden.");
        m.push_back(meldung(AenderungsArt::Geaendert, kBox, boxId));
        return Ergebnis::gut();
    });
}

Ergebnis ObjektDienst::entferneCover(long boxId) {
    if (!app_.dienste().katalog().gibtEs(kBox, boxId)) return KatalogDienst::unbekannt(kBox, boxId);
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        loescheCover(app_.fs(), app_.ordner().cover, boxId);
        m.push_back(meldung(AenderungsArt::Geaendert, kBox, boxId));
        return Ergebnis::gut();
    });
}

}  // namespace dv
