// init and version: the data folder and the data version.
#include <cstdio>

#include "base/Datenversion.h"
#include "cli/Kontext.h"

namespace dv::cli {

void registriereBasis(Register& reg) {
    CLI::App* init =
        reg.befehl(reg.wurzel(), "init", "Legt Ordner und Tabellen an und zeigt die Datenversion");
    reg.handler(init, [](Kontext& k) {
        k.zeile(versionsText(k.app.katalog().holeVersion()));
        return kFertig;
    });

    CLI::App* version = reg.befehl(reg.wurzel(), "version",
                                   "Zeigt die gespeicherte und die erwartete Datenversion");
    reg.ohneVersionspruefung(version);
    reg.handler(version, [](Kontext& k) {
        const VersionsVergleich v = vergleicheVersion(k.app.katalog());
        k.zeile(istZeile(v.ist));
        k.zeile(sollZeile(v.soll));
        std::fflush(stdout);
        // The lines first, then the check with its protocol and, on a mismatch, its message.
        return k.app.pruefeDatenversion() ? kFertig : kVersion;
    });
}

}  // namespace dv::cli
