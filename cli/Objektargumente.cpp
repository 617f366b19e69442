#include "cli/Objektargumente.h"

#include "base/Zeichensatz.h"

namespace dv::cli {

void pflicht(CLI::App* c, const char* name, std::string& ziel, const char* hilfe) {
    c->add_option(name, ziel, cp1252NachUtf8(hilfe))->required();
}

int nichtGeschrieben(Kontext& k, const std::string& pfad) {
    return k.fehler(kFehlschlag,
                    "Die Datei \"" + katalogText(pfad) + "\" kann nicht geschrieben werden.");
}

int nichtGelesen(Kontext& k, const std::string& pfad) {
    return k.fehler(kFehlschlag,
                    "Die Datei \"" + katalogText(pfad) + "\" kann nicht gelesen werden.");
}

int idArgument(Kontext& k, const std::string& text, long& id) {
    if (!zahl(text, id) || id <= 0)
        return k.fehler(kNutzung, "Keine gültige ID: " + katalogText(text));
    return kFertig;
}

int objektArgument(Kontext& k, const std::string& typText, const std::string& idText, int& typ,
                   long& id) {
    typ = objektTyp(typText);
    if (!typ)
        return k.fehler(kNutzung,
                        "Unbekannter Objekttyp: " + katalogText(typText) + " (box, dvd oder film)");
    if (const int code = idArgument(k, idText, id)) return code;
    if (!k.dienste().katalog().gibtEs(typ, id))
        return k.ergebnis(KatalogDienst::unbekannt(typ, id));
    return kFertig;
}

int listenArgument(Kontext& k, const std::string& text, long& id) {
    if (const int code = idArgument(k, text, id)) return code;
    if (!k.app.vormerklisten().gibtEs(id))
        return k.fehler(kNutzung, "Keine Vormerkliste mit der ID " + std::to_string(id) + ".");
    return kFertig;
}

int listenArgumente(Kontext& k, const std::vector<std::string>& texte, std::vector<long>& ids) {
    for (const std::string& t : texte) {
        long id = 0;
        if (const int code = listenArgument(k, t, id)) return code;
        ids.push_back(id);
    }
    return kFertig;
}

}  // namespace dv::cli
