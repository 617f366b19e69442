#include "app/AusgabeDienst.h"

#include "app/CApplikation.h"

namespace dv {
namespace {

// The inputs with a bare template name that is not in the current folder taken
// as one of the program's templates.
UebersichtEinstellungen einstellungen(Dateisystem& fs, const Ordner& o, const UebersichtWerte& w) {
    UebersichtEinstellungen e{w.vorlage, w.ziel, w.titel, w.ueberschrift, w.hintergrund};
    if (!e.vorlage.empty() && e.vorlage.find('/') == std::string::npos && !fs.existiert(e.vorlage))
        e.vorlage = o.vorlagen + e.vorlage;
    return e;
}

}  // namespace

Ergebnis AusgabeDienst::validiere() {
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        // Declined or not possible: either way the user has been told.
        if (!app_.validiereDatenbank()) return Ergebnis::fehlschlag("");
        m.push_back({AenderungsArt::Alles, AenderungsTyp::Katalog, 0, 0, 0});
        return Ergebnis::gut();
    });
}

Ergebnis AusgabeDienst::uebersicht(const UebersichtWerte& w, bool oeffnen) {
    return app_.erzeugeUebersicht(einstellungen(app_.fs(), app_.ordner(), w), oeffnen)
               ? Ergebnis::gut()
               : Ergebnis::fehlschlag("");
}

ErgebnisMit<UebersichtWerte> AusgabeDienst::ladeUebersicht(const std::string& datei) {
    UebersichtEinstellungen e;
    if (!leseUebersichtEinstellungen(app_.fs(), app_.benutzer(), datei, e))
        return Ergebnis::fehlschlag("");
    return UebersichtWerte{e.vorlage, e.ziel, e.titel, e.ueberschrift, e.hintergrund};
}

Ergebnis AusgabeDienst::speichereUebersicht(const std::string& datei, const UebersichtWerte& w) {
    if (!schreibeUebersichtEinstellungen(app_.fs(), app_.benutzer(), datei,
                                         einstellungen(app_.fs(), app_.ordner(), w)))
        return Ergebnis::fehlschlag("");
    return Ergebnis::gut();
}

}  // namespace dv
