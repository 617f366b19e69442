#include "app/Hintergrund.h"

#include "app/CApplikation.h"
#include "base/Zeichensatz.h"

namespace dv {

namespace {

constexpr const char* kSchluessel = "Hintergrundbild";

}  // namespace

std::string standardHintergrund(CApplikation& app) {
    std::string pfad;
    if (!app.einstellungen().getText(kSchluessel, pfad)) return std::string();
    return pfad;
}

Ergebnis setzeStandardHintergrund(CApplikation& app, const std::string& pfad) {
    if (!pfad.empty()) {
        auto datei = app.fs().oeffne(pfad, OeffnenModus::Lesen);
        std::string name;
        if (!utf8NachCp1252(pfad, name)) name = pfad;
        if (!datei || app.fs().istOrdner(pfad))
            return Ergebnis::eingabe("Das Hintergrundbild (" + name + ") ist nicht lesbar.");
    }
    if (!app.einstellungen().setText(kSchluessel, pfad))
        return Ergebnis::fehlschlag("Das Hintergrundbild konnte nicht gespeichert werden.");
    return Ergebnis::gut();
}

}  // namespace dv
