#include "app/OptionenDienst.h"

#include "app/CApplikation.h"
#include "app/Grenzen.h"

namespace dv {

OptionenWerte OptionenDienst::lade() {
    OptionenWerte w{kOptionsStandard, kOptions2Standard, kMaxFilmeAufklappenStandard};
    Einstellungen& e = app_.einstellungen();
    e.getOptions(w.options);
    e.getOptions2(w.options2);
    e.getMaxFilmeAufklappen(w.maxFilmeAufklappen);
    return w;
}

Ergebnis OptionenDienst::speichere(const OptionenWerte& w) {
    DV_PRUEFE(pruefeZahl(static_cast<long>(w.maxFilmeAufklappen), 1, kMaxFilmeAufklappenHoechstens,
                         "Die Zahl der aufzuklappenden Filme"));
    Einstellungen& e = app_.einstellungen();
    if (!e.setOptions(w.options) || !e.setOptions2(w.options2) ||
        !e.setMaxFilmeAufklappen(w.maxFilmeAufklappen))
        return Ergebnis::fehlschlag("Die Einstellungen konnten nicht gespeichert werden.");
    app_.aenderungen().verkuende(
        Aenderung{AenderungsArt::Geaendert, AenderungsTyp::Einstellung, 0, 0, 0});
    return Ergebnis::gut();
}

Ergebnis speichereImportUrl(CApplikation& app, const std::string& url) {
    DV_PRUEFE(pruefeText(url, kMaxImportUrl, "Die Import-URL"));
    const auto schema = url.find("://");
    const std::string art = schema == std::string::npos ? "" : url.substr(0, schema);
    const bool http = art == "http" || art == "https";
    const std::string rest = http ? url.substr(schema + 3) : "";
    if (!http || rest.empty() || rest[0] == '/' ||
        rest.find_first_of(" \t\"<>") != std::string::npos)
        return Ergebnis::eingabe(
            "Die Import-URL muss eine http- oder https-Adresse sein, z. B. "
            "\"http://server/dorvano/import/\".");
    if (!app.einstellungen().setImportUrl(url))
        return Ergebnis::fehlschlag("Die Import-URL konnte nicht gespeichert werden.");
    app.aenderungen().verkuende(
        Aenderung{AenderungsArt::Geaendert, AenderungsTyp::Einstellung, 0, 0, 0});
    return Ergebnis::gut();
}

}  // namespace dv
