#include "app/LaufwerkDienst.h"

#include "app/CApplikation.h"

namespace dv {

DiscQuelle LaufwerkDienst::quelle() {
    DiscQuelle q;
    q.laufwerk = standardLaufwerk();
    return q;
}

std::vector<DiscAngabe> LaufwerkDienst::info() {
    const DiscQuelle q = quelle();
    DiscInfo d;
    if (const int code = leseDiscInfo(laufwerke_, q, d); code != kDiscOk) {
        meldeDiscFehler(app_.benutzer(), code, d);
        return {};
    }
    DiscAnzeige a;
    fuelleDiscAnzeige(laufwerke_, q, d, a);
    std::vector<DiscAngabe> angaben{
        {"Laufwerk", std::string(d.cRoot) + "\\"},
        {"Bezeichnung", d.volumenName},
        {"Dateisystem", a.dateisystem},
        {"SN", a.sn},
        {"BytesLow", a.bytesLow},
        {"BytesHigh", a.bytesHigh},
        {"Größe", a.groesse},
        {"Typ", a.typ},
    };
    if (a.rcGelesen) angaben.emplace_back("Regionalcode", std::to_string(a.rc));
    return angaben;
}

DiscFund LaufwerkDienst::erkenne() {
    return findeDisc(app_.db(), app_.benutzer(), laufwerke_, quelle());
}

bool LaufwerkDienst::waehleLaufwerk() {
    char buchstabe = gespeichertesLaufwerk(app_.einstellungen());  // preset in the choice
    return dv::waehleLaufwerk(app_.benutzer(), laufwerke_, app_.einstellungen(), buchstabe);
}

bool LaufwerkDienst::schublade(bool oeffnen) {
    return bewegeSchublade(app_.benutzer(), laufwerke_, quelle().laufwerk, oeffnen);
}

char LaufwerkDienst::standardLaufwerk() {
    return gespeichertesLaufwerk(app_.einstellungen());
}

DiscFund LaufwerkDienst::finde(const DiscInfo& info) {
    return findeDvdZu(app_.db(), info);
}

bool LaufwerkDienst::leseStill(Laufwerke& laufwerke, char buchstabe, DiscInfo& info) {
    DiscQuelle q;
    q.laufwerk = buchstabe;
    return leseDiscInfo(laufwerke, q, info) == kDiscOk;
}

}  // namespace dv
