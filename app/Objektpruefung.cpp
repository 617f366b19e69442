#include "app/Objektpruefung.h"

#include <cstring>

#include "app/Grenzen.h"
#include "domain/Beschreibung.h"
#include "domain/Datenbank.h"

namespace dv::pruefung {
namespace {

std::string katalogName(int typ) {
    std::string name;
    if (typ == kTypBoxExtras) typ = kTypExtras;
    if (!getTypName(typ, false, name)) name = "Katalog";
    return name;
}

Ergebnis eintrag(Datenbank& db, int typ, const Eintrag& e) {
    if (e.id > 0) {
        Tabelle1* t = db.lookupTabelle(typ);
        if (t && t->eine(e.id)) return Ergebnis::gut();
        return Ergebnis::eingabe(
            formatiere("Im Katalog \"%s\" gibt es keinen Eintrag mit der ID %ld.",
                       katalogName(typ).c_str(), e.id));
    }
    return pruefeText(e.name, kMaxLookupName,
                      formatiere("Der Eintrag \"%s\"", katalogName(typ).c_str()).c_str());
}

Ergebnis eintraege(Datenbank& db, int typ, const std::vector<Eintrag>& liste) {
    for (const Eintrag& e : liste) {
        DV_PRUEFE(eintrag(db, typ, e));
        if (e.id <= 0 && e.name.empty())
            return Ergebnis::eingabe(formatiere("Die Liste \"%s\" enthält einen leeren Eintrag.",
                                                katalogName(typ).c_str()));
    }
    return Ergebnis::gut();
}

Ergebnis jahrUndLaenge(int jahr, int laenge) {
    DV_PRUEFE(pruefeZahl(jahr, 0, 32767, "Das Jahr"));
    return pruefeZahl(laenge, 0, 32767, "Die Länge");
}

Ergebnis eanFrei(Datenbank& db, const BoxWerte& w) {
    if (w.ean.empty()) return Ergebnis::gut();
    std::string andere;
    db.katalog().Box.scanne([&](const Zeile12& z) {
        if (andere.empty() && z.Id != w.id && w.ean == z.cpEAN) andere = z.cpText;
    });
    if (andere.empty()) return Ergebnis::gut();
    return Ergebnis::eingabe(
        formatiere("Die EAN %s gehört bereits zur Box \"%s\".", w.ean.c_str(), andere.c_str()));
}

}  // namespace

Ergebnis box(Datenbank& db, const BoxWerte& w) {
    DV_PRUEFE(pruefeText(w.titel, kMaxBezeichnung, "Der Titel"));
    DV_PRUEFE(pruefeText(w.ean, kMaxEan, "Die EAN"));
    DV_PRUEFE(eintrag(db, kTypVerpackung, w.verpackung));
    DV_PRUEFE(eintraege(db, kTypBoxExtras, w.extras));
    return eanFrei(db, w);
}

Ergebnis dvd(Datenbank& db, const DvdWerte& w) {
    DV_PRUEFE(pruefeText(w.titel, kMaxBezeichnung, "Der Titel"));
    DV_PRUEFE(jahrUndLaenge(w.jahr, w.laenge));
    DV_PRUEFE(pruefeZahl(w.rc, 0, 255, "Der Regionalcode"));
    DV_PRUEFE(pruefeZahl(w.opt, 0, 255, "Die Option"));
    DV_PRUEFE(eintrag(db, kTypFormat, w.format));
    return eintraege(db, kTypExtras, w.extras);
}

Ergebnis film(Datenbank& db, const FilmWerte& w) {
    DV_PRUEFE(pruefeText(w.titel, kMaxTitel, "Der Titel"));
    DV_PRUEFE(pruefeText(w.originaltitel, kMaxTitel, "Der Originaltitel"));
    for (const std::string& t : w.alternativtitel)
        DV_PRUEFE(pruefeText(t, kMaxTitel, "Ein weiterer Titel"));
    DV_PRUEFE(pruefeZahl(w.fsk, 0, 127, "Das Freigabealter"));
    DV_PRUEFE(jahrUndLaenge(w.jahr, w.laenge));
    DV_PRUEFE(eintraege(db, kTypGenre, w.genres));
    DV_PRUEFE(eintraege(db, kTypBildformat, w.bildformate));
    DV_PRUEFE(eintraege(db, kTypUntertitel, w.untertitel));
    DV_PRUEFE(eintraege(db, kTypFunktion, w.funktionen));
    for (const SpracheWert& s : w.sprachen) {
        if ((s.sprache.id <= 0 && s.sprache.name.empty()) ||
            (s.tonformat.id <= 0 && s.tonformat.name.empty()))
            return Ergebnis::eingabe("Zu jeder Sprache gehört ein Tonformat.");
        DV_PRUEFE(eintrag(db, kTypSprache, s.sprache));
        DV_PRUEFE(eintrag(db, kTypTonformat, s.tonformat));
    }
    for (const FilmPerson& p : w.personen) {
        if (p.person.id <= 0 || !db.katalog().Person.eine(p.person.id))
            return Ergebnis::eingabe(
                formatiere("Es gibt keine Person mit der ID %ld.", p.person.id));
        if (p.funktion.id <= 0 && p.funktion.name.empty())
            return Ergebnis::eingabe("Zu jeder Person gehört eine Funktion.");
        DV_PRUEFE(eintrag(db, kTypFunktion, p.funktion));
        for (const std::string& a : p.alias) DV_PRUEFE(pruefeText(a, kMaxLookupName, "Ein Alias"));
    }
    return Ergebnis::gut();
}

ErgebnisMit<long> loeseAuf(Datenbank& db, int typ, const Eintrag& e) {
    if (e.id > 0) return e.id;
    if (e.name.empty()) return 0L;
    const long gefunden = db.findeLookup(typ, e.name);
    if (gefunden > 0) return gefunden;
    const long neu = db.neuesLookup(typ, e.name);
    if (neu > 0) return neu;
    return Ergebnis::fehlschlag(
        formatiere("Der Eintrag \"%s\" konnte nicht angelegt werden.", e.name.c_str()));
}

ErgebnisMit<std::vector<long>> loeseAuf(Datenbank& db, int typ, const std::vector<Eintrag>& e) {
    std::vector<long> ids;
    for (const Eintrag& x : e) {
        auto id = loeseAuf(db, typ, x);
        if (!id.ok()) return Ergebnis(id);
        ids.push_back(id.wert());
    }
    return ids;
}

}  // namespace dv::pruefung
