#include "app/SuchDienst.h"

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "domain/Beschreibung.h"
#include "retrieval/SuchDatei.h"
#include "retrieval/Suche.h"

namespace dv {
namespace {

KriterienListe alsListe(const std::vector<SuchZeile>& zeilen) {
    KriterienListe l;
    for (const SuchZeile& z : zeilen)
        l.haengeAn(z.objekt, z.kriterium, z.op, z.verknuepfung, z.daten);
    return l;
}

std::vector<SuchZeile> alsZeilen(const KriterienListe& l) {
    std::vector<SuchZeile> v;
    for (const SearchCriterion* c = l.kopf(); c; c = c->next)
        v.push_back({c->objectType, c->criterion, c->op, c->combination, c->data});
    return v;
}

Ergebnis pruefeZeilen(const std::vector<SuchZeile>& zeilen) {
    if (zeilen.empty()) return Ergebnis::eingabe("Die Suche hat keine Zeile.");
    for (const SuchZeile& z : zeilen) {
        if (!kriteriumsName(z.objekt, z.kriterium)[0] || !operatorName(z.op)[0] ||
            (&z != &zeilen.front() && !verknuepfungsName(z.verknuepfung)[0]))
            return Ergebnis::eingabe("Die Suchzeile ist unvollständig.");
    }
    return Ergebnis::gut();
}

}  // namespace

ErgebnisMit<std::vector<SuchZeile>> SuchDienst::zeilenAusWorten(const std::vector<std::string>& a) {
    if (a.size() < 4 || (a.size() - 4) % 4 != 0)
        return Ergebnis::eingabe(
            "Falscher Aufruf: OBJEKT KRITERIUM OPERATOR DATEN [VERKNÜPFUNG KRITERIUM OPERATOR "
            "DATEN]...");
    const int typ = objektTypAusName(a[0]);
    if (!typ) return Ergebnis::eingabe("Unbekanntes Suchobjekt: " + a[0]);
    std::vector<SuchZeile> zeilen;
    for (std::size_t i = 1; i < a.size(); i += 4) {
        const int verknuepfung = i == 1 ? kVerknuepfungUnd : verknuepfungAusName(a[i - 1]);
        if (!verknuepfung) return Ergebnis::eingabe("Unbekannte Verknüpfung: " + a[i - 1]);
        const int kriterium = kriteriumAusName(typ, a[i]);
        if (!kriterium) return Ergebnis::eingabe("Unbekanntes Kriterium: " + a[i]);
        const int op = operatorAusName(a[i + 1]);
        if (!op) return Ergebnis::eingabe("Unbekannter Operator: " + a[i + 1]);
        zeilen.push_back({typ, kriterium, op, verknuepfung, a[i + 2]});
    }
    return normalisiert(zeilen);
}

std::vector<SuchZeile> SuchDienst::normalisiert(const std::vector<SuchZeile>& zeilen) {
    KriterienListe l = alsListe(zeilen);
    normalisiere(l);
    return alsZeilen(l);
}

ErgebnisMit<SuchErgebnisWerte> SuchDienst::suche(const std::vector<SuchZeile>& zeilen,
                                                 bool fortschritt) {
    DV_PRUEFE(pruefeZeilen(zeilen));
    KriterienListe l = alsListe(zeilen);
    // The "<=>" pairs live in the list's links, which plain rows do not carry.
    normalisiere(l);
    SuchOptionen o;
    o.grossKlein = app_.sucheGrossKlein();
    if (fortschritt) o.fortschritt = fortschrittUeber(app_.benutzer(), "Suche läuft...");
    Suchergebnis e = dv::suche(app_.db(), l, o);
    loeseAuf(e);
    SuchErgebnisWerte w;
    w.objekt = e.objektTyp();
    w.treffer.reserve(e.anzahl());
    for (const SearchHit* h = e.kopf(); h; h = h->next)
        w.treffer.push_back({h->objectType, trefferObjektId(*h), h->boxId,
                             h->objectType == kObjektBox ? 0 : h->dvdId, trefferTitel(*h),
                             h->reason});
    w.status = e.statusZeile();
    return w;
}

ErgebnisMit<std::vector<SuchZeile>> SuchDienst::ladeDatei(const std::string& datei) {
    KriterienListe l;
    switch (ladeSuche(app_.fs(), datei, app_.benutzer(), l)) {
        case SuchLaden::Geladen:
            return alsZeilen(l);
        case SuchLaden::Versionsfehler:
            return Ergebnis::fehlschlag("");  // "Versionsfehler" has been shown
        case SuchLaden::KeineZeilen:
            return Ergebnis::fehlschlag("Die Datei enthält keine gültige Suchzeile.");
        case SuchLaden::NichtLesbar:
            break;
    }
    return dateiNichtLesbar(datei);
}

Ergebnis SuchDienst::speichereDatei(const std::string& datei,
                                    const std::vector<SuchZeile>& zeilen) {
    DV_PRUEFE(pruefeZeilen(zeilen));
    if (!darfUeberschreiben(app_.fs(), app_.benutzer(), datei)) return Ergebnis::abgelehnt();
    KriterienListe l = alsListe(zeilen);
    if (!speichereSuche(app_.fs(), datei, l)) return dateiNichtSchreibbar(datei);
    return Ergebnis::gut();
}

const char* SuchDienst::objektName(int objekt) {
    return objektTypName(objekt);
}

int SuchDienst::kriterienAnzahl(int objekt) {
    return dv::kriterienAnzahl(objekt);
}

const char* SuchDienst::kriteriumName(int objekt, int kriterium) {
    return kriteriumsName(objekt, kriterium);
}

const char* SuchDienst::operatorName(int op) {
    return dv::operatorName(op);
}

const char* SuchDienst::verknuepfungName(int verknuepfung) {
    return verknuepfungsName(verknuepfung);
}

bool SuchDienst::istText(int objekt, int kriterium) {
    return istTextKriterium(objekt, kriterium);
}

std::string SuchDienst::alsText(const std::vector<SuchTreffer>& treffer) {
    std::string text;
    for (const SuchTreffer& t : treffer) text += trefferZeile(t.titel, t.grund, t.typ);
    return text;
}

}  // namespace dv
