#include "app/Objektbefehle.h"

#include <cstdio>

#include "domain/Beschreibung.h"

namespace dv {

long lookupNachName(Datenbank& db, int typ, const std::string& name) {
    if (name.empty()) return 0;
    const long id = db.findeLookup(typ, name);
    return id > 0 ? id : db.neuesLookup(typ, name);
}

bool legeBoxAn(CApplikation& app, const std::string& ean, const std::string& titel,
               const std::string& verpackung, NeueBox& neu) {
    Datenbank& db = app.db();
    neu = NeueBox{};
    long v = 0;
    if (!verpackung.empty() && (v = lookupNachName(db, kTypVerpackung, verpackung)) <= 0)
        return false;
    neu.box = db.neueBox(ean, titel, v, 0);
    if (neu.box <= 0) return false;
    Zeile9 dvd{};
    std::snprintf(dvd.cpText, sizeof dvd.cpText, "%s", titel.c_str());
    neu.dvd = db.neueDvd(neu.box, dvd);
    if (neu.dvd <= 0) return false;
    neu.film = db.neuerFilm(neu.dvd, titel, 0, 0, 0);
    return neu.film > 0;
}

void loescheCover(Dateisystem& fs, const std::string& coverOrdner, long boxId) {
    if (boxId <= 0) return;
    const std::string stamm = std::to_string(boxId) + ".";
    for (const OrdnerEintrag& e : fs.liste(coverOrdner))
        if (!e.istOrdner && e.name.compare(0, stamm.size(), stamm) == 0)
            fs.loesche(coverOrdner + e.name);
}

bool loescheMitFrage(CApplikation& app, int typ, long id, bool* abgelehnt) {
    if (abgelehnt) *abgelehnt = false;
    Datenbank& db = app.db();
    if (!app.benutzer().frage(CApplikation::titel(), loeschFrage(db, typ, id))) {
        if (abgelehnt) *abgelehnt = true;
        return false;
    }
    switch (typ) {
        case kObjektBox:
            if (!db.loescheBox(id)) return false;
            loescheCover(app.fs(), app.ordner().cover, id);
            return true;
        case kObjektDvd:
            return db.loescheDvd(id);
        case kObjektFilm:
            return db.loescheFilm(id);
        default:
            return false;
    }
}

}  // namespace dv
