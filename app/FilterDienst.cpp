#include "app/FilterDienst.h"

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "domain/Beschreibung.h"

namespace dv {

FilterDienst::FilterDienst(CApplikation& app)
    : Benannte(app, AenderungsTyp::Filter, {"Kein Filter mit der ID %ld.", "Der Filter"}) {}

const char* FilterDienst::typText(int typ) {
    return filterTypLabel(typ);
}

std::vector<Benannt> FilterDienst::lies() {
    std::vector<Benannt> v;
    app_.db().katalog().FilterName.scanne([&](const Zeile1& z) { v.push_back({z.Id, z.cpText}); });
    return v;
}

long FilterDienst::lege(const std::string& name) {
    return app_.filter().neu(name);
}

bool FilterDienst::benenne(long id, const std::string& name) {
    return app_.filter().umbenenne(id, name) == id;
}

bool FilterDienst::tilge(long id) {
    return app_.filter().loesche(id);
}

Ergebnis FilterDienst::loescheMitFrage(long id) {
    DV_PRUEFE(pruefe(id));
    if (!app_.benutzer().frage("Löschen",
                               formatiere("Filter \"%s\" wirklich löschen?", name(id).c_str())))
        return Ergebnis::abgelehnt();
    return loesche(id);
}

Ergebnis FilterDienst::setze(long id, int typ, const std::string& intern,
                             const std::string& extern_) {
    DV_PRUEFE(pruefe(id));
    DV_PRUEFE(pruefeZahl(typ, 1, kTypen, "Der Filtertyp"));
    DV_PRUEFE(pruefeText(extern_, kMaxFilterExtern, "Der externe Name"));
    const long eintrag = app_.db().findeLookup(lookupTypVonFilterTyp(typ), intern);
    if (eintrag <= 0)
        return Ergebnis::eingabe(
            formatiere("Kein Eintrag \"%s\" unter \"%s\".", intern.c_str(), typText(typ)));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!app_.filter().setzeEintrag(id, typ, eintrag, extern_))
            return Ergebnis::fehlschlag("Der Filtereintrag konnte nicht geschrieben werden.");
        m.push_back({AenderungsArt::Geaendert, AenderungsTyp::Filter, id, 0, typ});
        return Ergebnis::gut();
    });
}

ErgebnisMit<std::vector<FilterEintrag>> FilterDienst::eintraege(long id, int typ) {
    DV_PRUEFE(pruefe(id));
    DV_PRUEFE(pruefeZahl(typ, 1, kTypen, "Der Filtertyp"));
    const FilterBesitz filter = app_.filter().lade(id);
    std::vector<FilterEintrag> v;
    if (Tabelle1* t = app_.db().lookupTabelle(lookupTypVonFilterTyp(typ)))
        t->scanne([&](const Zeile1& z) {
            FilterEintrag e{z.Id, z.cpText, std::string(), false};
            e.uebersetzt = uebersetze(filter.get(), typ, z.Id, e.extern_);
            v.push_back(std::move(e));
        });
    return v;
}

Ergebnis FilterDienst::setzeAktiv(bool xml, long id) {
    if (id != 0) DV_PRUEFE(pruefe(id));
    if (!app_.filter().setzeAktiv(xml ? ExportArt::Xml : ExportArt::BoxDatei, id))
        return Ergebnis::fehlschlag("Der Filter konnte nicht aktiviert werden.");
    app_.aenderungen().verkuende({AenderungsArt::Geaendert, AenderungsTyp::Einstellung, id, 0, 0});
    return Ergebnis::gut();
}

long FilterDienst::aktiv(bool xml) {
    return app_.filter().aktiveId(xml ? ExportArt::Xml : ExportArt::BoxDatei);
}

}  // namespace dv
