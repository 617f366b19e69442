#include "ui/steuerung/Steuerung.h"

#include <QStatusBar>

#include "app/CApplikation.h"
#include "ui/baum/KatalogAnsicht.h"

namespace dv::ui {

Steuerung::Steuerung(Fensterteile& teile) : QObject(&teile.fenster), teile_(teile) {}

Auswahl Steuerung::auswahl() const {
    return teile_.baum.auswahl();
}

Benutzer& Steuerung::benutzer() const {
    return teile_.app.benutzer();
}

bool Steuerung::melde(const Ergebnis& e) const {
    if (e.ok() || e.art() == Fehlerart::Abgelehnt) return e.ok();
    const bool eingabe = e.art() == Fehlerart::Eingabe;
    benutzer().meldung(eingabe ? "Hinweis" : "Fehler...", e.grund(),
                       eingabe ? Symbol::Warnung : Symbol::Fehler);
    return false;
}

void Steuerung::hinweis(const std::string& text) const {
    benutzer().meldung(CApplikation::titel(), text, Symbol::Information);
}

void Steuerung::status(const QString& text) const {
    if (auto* leiste = teile_.fenster.findChild<QStatusBar*>()) leiste->showMessage(text, 10000);
}

void Steuerung::nochNichtVerfuegbar(const char* befehl) const {
    benutzer().meldung("Hinweis", std::string("\"") + befehl + "\" ist noch nicht verfügbar.",
                       Symbol::Information);
}

}  // namespace dv::ui
