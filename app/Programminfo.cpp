#include "app/Programminfo.h"

#include <zlib.h>

#include "app/CApplikation.h"
#include "domain/Beschreibung.h"
#include "interchange/BoxFormat.h"

namespace dv {

ProgrammInfo programmInfo(CApplikation& app) {
    ProgrammInfo i;
    i.programmVersion =
        formatiere("%u.%u.%u.%u", box::kVersionHoch >> 16, box::kVersionHoch & 0xFFFF,
                   box::kVersionNiedrig >> 16, box::kVersionNiedrig & 0xFFFF);
    i.datenVersion = CApplikation::versionsText();
    i.programmOrdner = app.ordner().programm;
    i.einstellungen = app.einstellungen().dateiPfad();
    i.bibliotheken = {
        {"Qt 6 (Oberfläche)", "GNU LGPL 3"},
        {std::string("zlib ") + zlibVersion() + " (Box-Dateien)", "zlib-Lizenz"},
        {"libcurl (Web-Import, bei Bedarf geladen)", "curl-Lizenz (MIT-artig)"},
        {"libudev (DVD-Laufwerke)", "GNU LGPL 2.1"},
        {"CLI11 (dorvano-cli)", "BSD-3-Clause"},
        {"nlohmann/json (dorvano-cli)", "MIT"},
    };
    return i;
}

}  // namespace dv
