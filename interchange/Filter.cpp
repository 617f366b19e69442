#include "interchange/Filter.h"

#include <cstdlib>
#include <cstring>

namespace dv {
namespace {

template <class T>
T* knoten(const Trace& trace, const char* var) {
    auto* p = static_cast<T*>(std::calloc(1, sizeof(T)));
    if (p)
        DV_TRACE(trace, kTraceSpeicher, "[malloc] %s = [%08x] {FilterVerwaltung::lade}", var,
                 adr(p));
    return p;
}

std::string gekappt(const std::string& s) {
    return s.size() > kFilterTextMax ? s.substr(0, kFilterTextMax) : s;
}

// Appends an object to a type unless its lIntern is there already (the first wins).
// False when memory runs out.
bool haengeAn(const Trace& trace, FilterTypen& typ, FilterObjekte*& letztes, const Zeile13& z) {
    for (FilterObjekte* o = typ.pObjekte; o; o = o->pNext)
        if (o->lIntern == z.lIntern) return true;
    auto* o = knoten<FilterObjekte>(trace, "pObj");
    if (!o) return false;
    o->lIntern = z.lIntern;
    o->cpExtern = ::strdup(z.cpExtern);
    if (!o->cpExtern) {
        FreeFilterObjekte(trace, o);
        return false;
    }
    if (letztes)
        letztes->pNext = o;
    else
        typ.pObjekte = o;
    letztes = o;
    return true;
}

}  // namespace

void FreeFilterObjekte(const Trace& trace, FilterObjekte* p) {
    while (p) {
        FilterObjekte* pDel = p;
        p = p->pNext;
        std::free(pDel->cpExtern);
        DV_TRACE(trace, kTraceSpeicher, "[free] pDel = [%08x] {FreeFilterObjekte}", adr(pDel));
        std::free(pDel);
    }
}

void FreeFilterTypen(const Trace& trace, FilterTypen* p) {
    while (p) {
        FilterTypen* pDel = p;
        p = p->pNext;
        FreeFilterObjekte(trace, pDel->pObjekte);
        DV_TRACE(trace, kTraceSpeicher, "[free] pDel = [%08x] {FreeFilterTypen}", adr(pDel));
        std::free(pDel);
    }
}

void FreeFilterListe(const Trace& trace, FilterListe* p) {
    while (p) {
        FilterListe* pDel = p;
        p = p->pNext;
        FreeFilterTypen(trace, pDel->pTypen);
        DV_TRACE(trace, kTraceSpeicher, "[free] pDel = [%08x] {FreeFilterListe}", adr(pDel));
        std::free(pDel);
    }
}

const char* filterTypLabel(int typ) {
    static const char* const kLabel[] = {"Bildformate",     "Extras",          "Dvd-Formate",
                                         "Film-Funktionen", "Genre",           "Sprachen",
                                         "Tonformate",      "Verpackungsarten"};
    return typ >= 1 && typ <= kFilterTypen ? kLabel[typ - 1] : "";
}

bool uebersetze(const FilterListe* filter, int typ, long intern, std::string& text) {
    if (!filter) return false;
    for (const FilterTypen* t = filter->pTypen; t; t = t->pNext) {
        if (t->Typ != typ) continue;
        for (const FilterObjekte* o = t->pObjekte; o; o = o->pNext) {
            if (o->lIntern == intern) {
                text = o->cpExtern ? o->cpExtern : "";
                return true;
            }
        }
        return false;
    }
    return false;
}

FilterVerwaltung::FilterVerwaltung(Datenbank& db, Einstellungen& einstellungen)
    : db_(db), einstellungen_(einstellungen) {}

FilterBesitz FilterVerwaltung::lade(long filterId) {
    const Trace& trace = db_.trace();
    FilterBesitz f(nullptr, FilterFreigabe{&trace});
    auto name = filterId > 0 ? db_.katalog().FilterName.eine(filterId) : ListenBesitz();
    if (!name) return f;
    f.reset(knoten<FilterListe>(trace, "pFilter"));
    if (!f) return f;
    f->lFilterId = static_cast<std::int32_t>(filterId);
    std::snprintf(f->cpName, sizeof f->cpName, "%s", Tabelle1::zeile(name.get()).cpText);
    FilterTypen* typen[kFilterTypen] = {};
    FilterTypen** ende = &f->pTypen;
    for (int i = 0; i < kFilterTypen; ++i) {
        typen[i] = knoten<FilterTypen>(trace, "pTyp");
        if (!typen[i]) return FilterBesitz(nullptr, FilterFreigabe{&trace});
        typen[i]->Typ = static_cast<std::uint8_t>(i + 1);
        *ende = typen[i];
        ende = &typen[i]->pNext;
    }
    Zeile13 beispiel{};
    beispiel.lFilterId = static_cast<std::int32_t>(filterId);
    auto rows = db_.katalog().Filter.liste(beispiel);
    FilterObjekte* letzte[kFilterTypen] = {};
    for (ListenElement* n = rows.get(); n; n = n->pNext) {
        const Zeile13& z = Tabelle13::zeile(n);
        if (z.lFilterId != filterId || z.Typ < 1 || z.Typ > kFilterTypen) continue;
        if (!haengeAn(trace, *typen[z.Typ - 1], letzte[z.Typ - 1], z))
            return FilterBesitz(nullptr, FilterFreigabe{&trace});
    }
    return f;
}

FilterBesitz FilterVerwaltung::ladeAlle() {
    FilterBesitz alle(nullptr, FilterFreigabe{&db_.trace()});
    FilterListe* letzter = nullptr;
    auto namen = db_.katalog().FilterName.alle();
    for (ListenElement* n = namen.get(); n; n = n->pNext) {
        FilterBesitz f = lade(Tabelle1::zeile(n).Id);
        if (!f) continue;
        FilterListe* p = f.release();
        if (letzter)
            letzter->pNext = p;
        else
            alle.reset(p);
        letzter = p;
    }
    return alle;
}

long FilterVerwaltung::neu(const std::string& name) {
    return db_.katalog().FilterName.insert(gekappt(name).c_str());
}

long FilterVerwaltung::umbenenne(long filterId, const std::string& name) {
    auto& t = db_.katalog().FilterName;
    if (filterId > 0 && t.eine(filterId))
        return t.update(filterId, gekappt(name).c_str()) ? filterId : 0;
    return t.insert(gekappt(name).c_str());
}

std::vector<long> FilterVerwaltung::eintraege(long filterId, int typ, long intern) {
    std::vector<long> ids;
    Zeile13 beispiel{};
    beispiel.lFilterId = static_cast<std::int32_t>(filterId);
    beispiel.Typ = static_cast<std::int8_t>(typ);
    beispiel.lIntern = static_cast<std::int32_t>(intern);
    auto rows = db_.katalog().Filter.liste(beispiel);
    for (ListenElement* n = rows.get(); n; n = n->pNext) {
        const Zeile13& z = Tabelle13::zeile(n);
        if (z.lFilterId == filterId && (typ <= 0 || z.Typ == typ) &&
            (intern <= 0 || z.lIntern == intern))
            ids.push_back(z.Id);
    }
    return ids;
}

bool FilterVerwaltung::loesche(long filterId) {
    auto v = db_.vorgang();
    if (!v.offen() || filterId <= 0 || !db_.katalog().FilterName.eine(filterId)) return false;
    auto& filter = db_.katalog().Filter;
    for (long id : eintraege(filterId, 0, 0)) filter.remove(id, false);
    filter.init();
    const bool ok = db_.katalog().FilterName.remove(filterId, true) && v.abschliessen();
    for (ExportArt art : {ExportArt::BoxDatei, ExportArt::Xml}) {
        long aktiv = 0;
        if (leseEinstellung(art, aktiv) && aktiv == filterId) {
            schreibeEinstellung(art, -1);
            Aktiv& a = aktivVon(art);
            a.uebersetzer.reset();
            a.filter.reset();
            a.geprueft = true;
        }
    }
    return ok;
}

bool FilterVerwaltung::setzeEintrag(long filterId, int typ, long intern,
                                    const std::string& extern_) {
    if (typ < 1 || typ > kFilterTypen || intern <= 0) return false;
    if (filterId <= 0 || !db_.katalog().FilterName.eine(filterId)) return false;
    if (extern_.empty()) return loescheEintrag(filterId, typ, intern);
    // The table has no update: the new record first, then the old ones go, so a
    // failure leaves the old translation in place.
    auto v = db_.vorgang();
    const std::vector<long> alte = eintraege(filterId, typ, intern);
    auto& filter = db_.katalog().Filter;
    if (!v.offen() || filter.insert(filterId, typ, intern, gekappt(extern_).c_str()) <= 0)
        return false;
    for (long id : alte) filter.remove(id, false);
    filter.init();
    return v.abschliessen();
}

bool FilterVerwaltung::loescheEintrag(long filterId, int typ, long intern) {
    if (typ < 1 || typ > kFilterTypen || intern <= 0 || filterId <= 0) return false;
    auto v = db_.vorgang();
    auto& filter = db_.katalog().Filter;
    bool ok = v.offen();
    for (long id : eintraege(filterId, typ, intern)) ok = ok && filter.remove(id, false);
    filter.init();
    return v.abschliessen() && ok;
}

bool FilterVerwaltung::leseEinstellung(ExportArt art, long& id) {
    std::uint32_t wert = 0;
    const bool ok =
        art == ExportArt::Xml ? einstellungen_.getXMLFilter(wert) : einstellungen_.getFilter(wert);
    if (ok) id = static_cast<std::int32_t>(wert);
    return ok;
}

void FilterVerwaltung::schreibeEinstellung(ExportArt art, long id) {
    const auto wert = static_cast<std::uint32_t>(static_cast<std::int32_t>(id));
    if (art == ExportArt::Xml)
        einstellungen_.setXMLFilter(wert);
    else
        einstellungen_.setFilter(wert);
}

void FilterVerwaltung::aktiviere(ExportArt art) {
    Aktiv& a = aktivVon(art);
    a.uebersetzer.reset();
    a.filter.reset();
    a.geprueft = true;
    long id = 0;
    if (!leseEinstellung(art, id) || id <= 0) return;
    a.filter = lade(id);
    if (!a.filter) {
        schreibeEinstellung(art, 0);
        return;
    }
    a.uebersetzer = std::make_unique<FilterUebersetzer>(a.filter.get());
}

bool FilterVerwaltung::setzeAktiv(ExportArt art, long filterId) {
    if (filterId > 0 && !db_.katalog().FilterName.eine(filterId)) return false;
    schreibeEinstellung(art, filterId);
    aktiviere(art);
    return true;
}

const NamensUebersetzer* FilterVerwaltung::aktiv(ExportArt art) {
    Aktiv& a = aktivVon(art);
    if (!a.geprueft) aktiviere(art);
    return a.uebersetzer.get();
}

long FilterVerwaltung::aktiveId(ExportArt art) {
    Aktiv& a = aktivVon(art);
    if (!a.geprueft) aktiviere(art);
    return a.filter ? a.filter->lFilterId : 0;
}

}  // namespace dv
