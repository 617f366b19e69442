#include "app/GeraeteDienst.h"

#include "app/CApplikation.h"
#include "domain/Disc.h"

namespace dv {
namespace {

DiscQuelle quelle(Einstellungen& e, const std::string& abbild) {
    DiscQuelle q;
    q.abbild = abbild;
    if (abbild.empty()) q.laufwerk = gespeichertesLaufwerk(e);
    return q;
}

}  // namespace

std::vector<LaufwerkWert> GeraeteDienst::laufwerke() {
    std::vector<LaufwerkWert> v;
    for (const OptischesLaufwerk& l : systemLaufwerke().liste())
        v.push_back({l.buchstabe, l.geraet, l.modell});
    return v;
}

char GeraeteDienst::laufwerk() {
    return gespeichertesLaufwerk(app_.einstellungen());
}

Ergebnis GeraeteDienst::setzeLaufwerk(char buchstabe) {
    if (buchstabe < 'A' || buchstabe > 'Z')
        return Ergebnis::eingabe("Kein Laufwerksbuchstabe: " + std::string(1, buchstabe));
    if (!dv::setzeLaufwerk(app_.benutzer(), systemLaufwerke(), app_.einstellungen(), buchstabe))
        return Ergebnis::fehlschlag("");  // the reason has been shown
    app_.aenderungen().verkuende({AenderungsArt::Geaendert, AenderungsTyp::Einstellung, 0, 0, 0});
    return Ergebnis::gut();
}

ErgebnisMit<DiscWerte> GeraeteDienst::disc(const std::string& abbild) {
    Laufwerke& lw = systemLaufwerke();
    const DiscQuelle q = quelle(app_.einstellungen(), abbild);
    DiscInfo d;
    const int code = leseDiscInfo(lw, q, d);
    if (code != kDiscOk) {
        meldeDiscFehler(app_.benutzer(), code, d);
        return Ergebnis::fehlschlag("");
    }
    DiscAnzeige a;
    fuelleDiscAnzeige(lw, q, d, a);
    DiscWerte w{a.dateisystem, d.volumenName, a.sn,       a.bytesLow,  a.bytesHigh, a.groesse,
                a.typ,         d.SN,          d.BytesLow, d.BytesHigh, a.rc,        a.rcGelesen};
    return w;
}

ErgebnisMit<DvdZeile> GeraeteDienst::erkenne(const std::string& abbild) {
    const DiscFund f = findeDisc(app_.db(), app_.benutzer(), systemLaufwerke(),
                                 quelle(app_.einstellungen(), abbild));
    if (f.dvdId <= 0) return Ergebnis::fehlschlag("");  // the system's message has been shown
    auto zeile = app_.dienste().katalog().dvd(f.dvdId);
    if (!zeile) return Ergebnis::fehlschlag("");
    zeile->box = f.boxId;
    return *zeile;
}

Ergebnis GeraeteDienst::schublade(bool oeffnen) {
    if (!bewegeSchublade(app_.benutzer(), systemLaufwerke(), laufwerk(), oeffnen))
        return Ergebnis::fehlschlag("");
    return Ergebnis::gut();
}

}  // namespace dv
