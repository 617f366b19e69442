#include "domain/Bausteine.h"

namespace dv::bau {

ObjektElement* objekt(Datenbank& db, const char* fn, const Zeile1& o1, const Zeile1* o2,
                      std::uint16_t pos) {
    auto* e = neu<ObjektElement>(db, "pObj", fn);
    if (!e) return nullptr;
    e->Id = o1.Id;
    e->lPos = pos;
    e->pObjekt1 = kopie(db, o1, "pObj->pObjekt1", fn);
    if (o2) {
        e->Id2 = o2->Id;
        e->pObjekt2 = kopie(db, *o2, "pObj->pObjekt2", fn);
    }
    if (!e->pObjekt1 || (o2 && !e->pObjekt2)) {
        db.FreeObjektListenElement(e);
        return nullptr;
    }
    return e;
}

PersonenElement* person(Datenbank& db, const char* fn, const Zeile3& link, const Zeile8& p,
                        ListenElement* alias) {
    auto* e = neu<PersonenElement>(db, "pPers", fn);
    if (!e) {
        db.katalog().Alias.delListe(alias);
        return nullptr;
    }
    e->lVerknuepfung = link.Id;
    e->lFunktion = link.Funktion;
    e->lPos = link.Pos;
    e->pAlias = alias;
    e->pPerson = kopie(db, p, "pPers->pPerson", fn);
    if (!e->pPerson) {
        db.FreePersonenListe(e);
        return nullptr;
    }
    return e;
}

FktElement* funktion(Datenbank& db, const char* fn, const Zeile1& f, std::uint16_t wert) {
    auto* e = neu<FktElement>(db, "pFkt", fn);
    if (!e) return nullptr;
    e->Id = f.Id;
    e->sWert = wert;
    kopiere(e->cpText, f.cpText);
    return e;
}

ListenElement* aliasKnoten(Datenbank& db, const char* fn, const Zeile1& a) {
    auto* row = static_cast<Zeile1*>(std::calloc(1, sizeof(Zeile1)));
    if (!row) return nullptr;
    DV_TRACE(db.trace(), kTraceSpeicher, "[malloc] pNew = [%08x] {%s}", adr(row), fn);
    *row = a;
    ListenElement* knoten = db.katalog().Alias.newElement(row);
    if (!knoten) std::free(row);
    return knoten;
}

bool besserTitel(const Zeile4& a, const Zeile4& b) {
    const bool ha = a.Typ == kTitelHaupt;
    const bool hb = b.Typ == kTitelHaupt;
    if (ha != hb) return ha;
    if (a.Pos != b.Pos) return a.Pos < b.Pos;
    return a.Id < b.Id;
}

}  // namespace dv::bau
