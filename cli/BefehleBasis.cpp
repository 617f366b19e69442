// init and version: the data folder and the data version.
#include <cstdio>

#include "cli/Kontext.h"

namespace dv::cli {

void registriereBasis(Register& reg) {
    CLI::App* init =
        reg.befehl(reg.wurzel(), "init", "Legt Ordner und Tabellen an und zeigt die Datenversion");
    reg.handler(init, [](Kontext& k) {
        k.zeile(k.app.gespeicherteVersion());
        return kFertig;
    });

    CLI::App* version = reg.befehl(reg.wurzel(), "version",
                                   "Zeigt die gespeicherte und die erwartete Datenversion");
    reg.ohneVersionspruefung(version);
    reg.handler(version, [](Kontext& k) {
        for (const std::string& z : k.app.versionsZeilen()) k.zeile(z);
        std::fflush(stdout);
        // The lines first, then the check with its protocol and, on a mismatch, its message.
        return k.app.pruefeDatenversion() ? kFertig : kVersion;
    });
}

}  // namespace dv::cli
