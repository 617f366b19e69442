#include "app/Benannte.h"

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "domain/Beschreibung.h"

namespace dv {

bool Benannte::gibtEs(long id) {
    for (const Benannt& b : lies())
        if (b.id == id) return true;
    return false;
}

std::string Benannte::name(long id) {
    for (const Benannt& b : lies())
        if (b.id == id) return b.name;
    return std::string();
}

Ergebnis Benannte::pruefe(long id) {
    if (id > 0 && gibtEs(id)) return Ergebnis::gut();
    return Ergebnis::eingabe(formatiere(texte_.unbekannt, id));
}

Ergebnis Benannte::pruefeName(const std::string& name) const {
    if (name.empty()) return Ergebnis::eingabe("Der Name darf nicht leer sein.");
    return pruefeText(name, kMaxLookupName, "Der Name");
}

ErgebnisMit<long> Benannte::neu(const std::string& name) {
    DV_PRUEFE(pruefeName(name));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) -> ErgebnisMit<long> {
        const long id = lege(name);
        if (id <= 0)
            return Ergebnis::fehlschlag(
                formatiere("%s konnte nicht angelegt werden.", texte_.derName));
        m.push_back({AenderungsArt::Neu, typ_, id, 0, 0});
        return id;
    });
}

Ergebnis Benannte::umbenennen(long id, const std::string& name) {
    DV_PRUEFE(pruefe(id));
    DV_PRUEFE(pruefeName(name));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!benenne(id, name))
            return Ergebnis::fehlschlag(
                formatiere("%s konnte nicht umbenannt werden.", texte_.derName));
        m.push_back({AenderungsArt::Geaendert, typ_, id, 0, 0});
        return Ergebnis::gut();
    });
}

Ergebnis Benannte::loesche(long id) {
    DV_PRUEFE(pruefe(id));
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        if (!tilge(id))
            return Ergebnis::fehlschlag(
                formatiere("%s konnte nicht gelöscht werden.", texte_.derName));
        m.push_back({AenderungsArt::Geloescht, typ_, id, 0, 0});
        return Ergebnis::gut();
    });
}

}  // namespace dv
