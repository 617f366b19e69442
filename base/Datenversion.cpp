#include "base/Datenversion.h"

#include <cstdio>

#include "platform/Zeit.h"

namespace dv {

VersionsVergleich vergleicheVersion(Katalog& katalog) {
    VersionsVergleich v;
    v.ist = katalog.holeVersion();
    v.soll = aktuelleVersion();
    // The date text is deliberately left out of the comparison.
    v.passt = true;
    for (int i = 0; i < 4; ++i)
        if (v.ist.teil[i] != v.soll.teil[i]) v.passt = false;
    return v;
}

static std::string zeile(const char* format, const DatenVersionSatz& v) {
    char text[160];
    std::snprintf(text, sizeof text, format, static_cast<int>(v.teil[0]),
                  static_cast<int>(v.teil[1]), static_cast<int>(v.teil[2]),
                  static_cast<int>(v.teil[3]), v.datum);
    return text;
}

std::string istZeile(const DatenVersionSatz& v) {
    return zeile("Ist  : %d.%d.%d.%d - %s", v);
}
std::string sollZeile(const DatenVersionSatz& v) {
    return zeile("Soll : %d.%d.%d.%d - %s", v);
}

bool pruefeDatenversion(Katalog& katalog, Protokoll& protokoll, Benutzer& benutzer) {
    const std::string vorher = protokoll.meldungsDatei();
    protokoll.setzeMeldungsDatei(std::string("datenversion") + ".log");
    protokoll.fs().loesche(protokoll.meldungsPfad());
    const VersionsVergleich v = vergleicheVersion(katalog);
    const LokaleZeit z = jetzt();
    protokoll.meldung("Daten-Version [%02d.%02d.%04d, %02d:%02d:%02d]:", z.tag, z.monat, z.jahr,
                      z.stunde, z.minute, z.sekunde);
    protokoll.meldung("%s", istZeile(v.ist).c_str());
    protokoll.meldung("%s", sollZeile(v.soll).c_str());
    protokoll.meldung("%s", "");
    if (!v.passt) {
        protokoll.meldung("### Falsche Datenversion entdeckt ###");
        protokoll.meldung(
            "Bitte schauen Sie bzgl. dieses Problems auf den Internetseiten der ZELKA nach.");
    }
    protokoll.setzeMeldungsDatei(vorher);
    if (!v.passt) {
        char text[512];
        std::snprintf(text, sizeof text,
                      "Die Datenversion ist inkompatibel\rIST\t: %s\rSOLL\t: %s\rBitte schauen Sie "
                      "bzgl. dieses Problems\rauf den Internetseiten der ZELKA nach.",
                      versionsText(v.ist).c_str(), versionsText(v.soll).c_str());
        benutzer.meldung("### Falsche Datenversion ###", text, Symbol::Fehler);
    }
    return v.passt;
}

}  // namespace dv
