#include "ui/dialoge/Meldung.h"

#include "app/CApplikation.h"

namespace dv::ui {

bool zeigeErgebnis(Benutzer& benutzer, const Ergebnis& e) {
    if (e.ok() || e.art() == Fehlerart::Abgelehnt || e.grund().empty()) return e.ok();
    const bool eingabe = e.art() == Fehlerart::Eingabe;
    benutzer.meldung(eingabe ? "Hinweis" : "Fehler...", e.grund(),
                     eingabe ? Symbol::Warnung : Symbol::Fehler);
    return false;
}

}  // namespace dv::ui
