#include "interchange/Stapel.h"

#include <cstdio>

namespace dv {
namespace {

std::string exportiertAm(const box::Kopf& k) {
    auto z = [](const char* p, std::size_t n) {
        std::string s(p, n);
        for (char& c : s)
            if (c < '0' || c > '9') c = '0';
        return s;
    };
    return z(k.datum + 6, 2) + "." + z(k.datum + 4, 2) + "." + z(k.datum, 4) + " " + z(k.zeit, 2) +
           ":" + z(k.zeit + 2, 2) + ":" + z(k.zeit + 4, 2);
}

}  // namespace

std::string exportFortschritt(int nummer, int gesamt, const std::string& ean,
                              const std::string& titel, int nichtExportiert) {
    const std::string kurz = titel.size() > 25 ? titel.substr(0, 25) + "..." : titel;
    return "Exportiere Box " + std::to_string(nummer) + " von " + std::to_string(gesamt) + "\r\n" +
           ean + ".box\r\n{" + kurz +
           "}\r\nNicht exportierte Boxen: " + std::to_string(nichtExportiert);
}

void raeumeExportAuf(Dateisystem& fs, const std::string& ordner) {
    static const std::string endung = ".box.tmp";
    for (const OrdnerEintrag& e : fs.liste(ordner))
        if (!e.istOrdner && e.name.size() > endung.size() &&
            e.name.compare(e.name.size() - endung.size(), endung.size(), endung) == 0)
            fs.loesche(ordner + e.name);
}

StapelExportErgebnis exportiereAlle(Datenbank& db, ExportQuelle& quelle, BoxSchreiber& schreiber,
                                    Benutzer& benutzer, const std::string& ordner) {
    raeumeExportAuf(db.fs(), ordner);
    StapelExportErgebnis e;
    BoxListe boxen = db.ladeSammlung();
    quelle.fuerSammlung();
    for (const BoxElement* b = boxen.get(); b; b = b->pNext) ++e.gesamt;
    int nummer = 0;
    for (const BoxElement* b = boxen.get(); b; b = b->pNext) {
        ++nummer;
        benutzer.fortschritt(exportFortschritt(nummer, e.gesamt, b->cpEAN, b->cpText,
                                               static_cast<int>(e.nichtExportiert.size())),
                             nummer, e.gesamt);
        if (schreiber.schreibe(*b, ordner))
            ++e.exportiert;
        else
            e.nichtExportiert.push_back(b->cpText);
    }
    if (!e.nichtExportiert.empty()) {
        std::string text;
        for (const std::string& t : e.nichtExportiert) text += "\"" + t + "\"\r\n";
        benutzer.zeigeText("Nicht exportierte Boxen", text);
    }
    return e;
}

std::vector<StapelImportEintrag> stapelImport(BoxImport& import, Benutzer& benutzer,
                                              Dateisystem& fs,
                                              const std::vector<std::string>& pfade, bool mitInfo) {
    std::vector<StapelImportEintrag> ergebnis;
    int importiert = 0;
    for (std::size_t i = 0; i < pfade.size(); ++i) {
        StapelImportEintrag e;
        e.pfad = pfade[i];
        BoxLeser leser;
        leser.lese(fs, e.pfad);
        if (mitInfo) {
            const BoxVorschau v = leser.gueltig() ? vorschau(leser.daten()) : BoxVorschau{};
            const std::string am = leser.gueltig() ? exportiertAm(leser.kopf()) : std::string();
            e.uebersprungen =
                !benutzer.info("Import-Info", {{"Box-Titel:", v.titel},
                                               {"EAN:", v.ean},
                                               {"Anzahl Dvds:", std::to_string(v.anzahlDvds)},
                                               {"Exportiert am:", am}});
        }
        if (!e.uebersprungen) {
            e.ergebnis = import.importiere(leser);
            if (e.ergebnis == ImportErgebnis::Importiert) ++importiert;
        }
        if (benutzer.unterbrechen()) {
            char text[160];
            std::snprintf(
                text, sizeof text,
                "Importierte Boxen: %d\nNoch weitere Boxen: %d\nImport wirklich abbrechen?",
                importiert, static_cast<int>(pfade.size() - i - 1));
            if (benutzer.frage("Import abbrechen", text)) {
                e.behalten = true;
                ergebnis.push_back(e);
                break;
            }
        }
        fs.loesche(e.pfad);
        ergebnis.push_back(e);
    }
    return ergebnis;
}

}  // namespace dv
