#include "interchange/ObjektBestaetigung.h"

namespace dv {
namespace {

// A button that has no effect in the current mode (Edit in edit mode, Auswahl
// without a list) asks again; this many in a row count as the last button, so a
// faulty front end cannot keep the import waiting for ever.
constexpr int kLeerlaufMax = 100;

std::vector<std::string> gekappt(std::vector<std::string> felder, std::size_t anzahl,
                                 const std::vector<std::size_t>& breiten) {
    felder.resize(anzahl);
    for (std::size_t i = 0; i < felder.size(); ++i)
        if (i < breiten.size() && breiten[i] > 0 && felder[i].size() > breiten[i])
            felder[i].resize(breiten[i]);
    return felder;
}

}  // namespace

Bestaetigung bestaetigeObjekt(Benutzer& benutzer, ObjektDialog d,
                              const std::vector<std::vector<std::string>>& listenFelder,
                              const std::vector<std::size_t>& feldBreiten, bool& alleOk) {
    d.modus = ObjektModus::Normal;
    d.auswahlMoeglich = !d.liste.empty();
    int leerlauf = 0;
    for (;;) {
        const bool normal = d.modus == ObjektModus::Normal;
        d.letzteTaste = normal ? "Beenden" : "Abbruch";
        const ObjektAntwort a = benutzer.objektBestaetigen(d);
        bool wirkung = true;
        switch (a.taste) {
            case ObjektTaste::OK:
            case ObjektTaste::AlleOK:
                if (a.taste == ObjektTaste::AlleOK) alleOk = true;
                if (normal) return {Entscheidung::Annehmen, d.felder};
                if (d.modus == ObjektModus::Bearbeiten) {
                    d.felder = gekappt(a.felder, d.felder.size(), feldBreiten);
                } else if (a.gewaehlt >= 0 &&
                           static_cast<std::size_t>(a.gewaehlt) < listenFelder.size()) {
                    d.felder = gekappt(listenFelder[a.gewaehlt], d.felder.size(), feldBreiten);
                }
                d.modus = ObjektModus::Normal;
                break;
            case ObjektTaste::Edit:
                wirkung = normal;
                if (normal) d.modus = ObjektModus::Bearbeiten;
                break;
            case ObjektTaste::Auswahl:
                wirkung = normal && d.auswahlMoeglich;
                if (wirkung) d.modus = ObjektModus::Auswahl;
                break;
            case ObjektTaste::Nicht:
                return {Entscheidung::Ignorieren, {}};
            case ObjektTaste::Letzte:
                if (normal) return {Entscheidung::Abbrechen, {}};
                d.modus = ObjektModus::Normal;
                break;
        }
        leerlauf = wirkung ? 0 : leerlauf + 1;
        if (leerlauf >= kLeerlaufMax) return {Entscheidung::Abbrechen, {}};
    }
}

}  // namespace dv
