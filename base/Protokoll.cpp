#include "base/Protokoll.h"

#include <cstdarg>
#include <cstdio>

#include "platform/Zeit.h"

namespace dv {

Protokoll::Protokoll(Dateisystem& fs) : fs_(fs) {}

void Protokoll::setzeLogPfad(const std::string& pfad) {
    const std::size_t schnitt = pfad.find_last_of('/');
    std::string ordner = schnitt == std::string::npos ? std::string() : pfad.substr(0, schnitt + 1);
    std::string datei = schnitt == std::string::npos ? pfad : pfad.substr(schnitt + 1);
    if (!ordner.empty() && !fs_.istOrdner(ordner) && !fs_.erzeugeOrdner(ordner)) ordner = "C:\\";
    const std::size_t punkt = datei.find_last_of('.');
    std::string stamm = punkt == std::string::npos ? datei : datei.substr(0, punkt);
    std::string endung = punkt == std::string::npos ? ".log" : datei.substr(punkt);
    logPfad_ = ordner + stamm + endung;
    backupPfad_ = ordner + stamm + ".bak";
}

std::string Protokoll::zeitstempel() {
    const LokaleZeit z = jetzt();
    char text[64];
    std::snprintf(text, sizeof text, "<%.2d.%.2d.%.4d %.2d:%.2d:%.2d>", z.tag, z.monat, z.jahr,
                  z.stunde, z.minute, z.sekunde);
    return text;
}

void Protokoll::schreibe(const char* nachricht) const {
    const LokaleZeit z = jetzt();
    char zeile[1024];
    const int n = std::snprintf(zeile, sizeof zeile, "<%.2d.%.2d.%.4d %.2d:%.2d:%.2d>: %s\n", z.tag,
                                z.monat, z.jahr, z.stunde, z.minute, z.sekunde, nachricht);
    if (n < 0) return;
    std::size_t laenge = static_cast<std::size_t>(n);
    if (laenge >= sizeof zeile) {
        // Cut to the buffer, but keep the line end so the next line starts on its own.
        laenge = sizeof zeile - 1;
        zeile[laenge - 1] = '\n';
    }
    std::int64_t groesse = 0;
    {
        auto datei = fs_.oeffne(logPfad_, OeffnenModus::Anhaengen);
        if (!datei) return;
        if (!datei->haengeAn(zeile, laenge)) return;
        groesse = datei->laenge();
    }
    // The line that crosses the limit is written first, then the file moves to the backup.
    if (groesse > kTraceMaxGroesse) {
        if (fs_.kopiere(logPfad_, backupPfad_)) fs_.loesche(logPfad_);
    }
}

void Protokoll::meldung(const char* format, ...) {
    char text[4096];
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    haengeZeileAn(fs_, meldungsPfad(), text);
}

bool haengeZeileAn(Dateisystem& fs, const std::string& pfad, const std::string& zeile) {
    auto datei = fs.oeffne(pfad, OeffnenModus::Anhaengen);
    if (!datei) return false;
    std::string mitEnde = zeile + "\n";
    return datei->haengeAn(mitEnde.data(), mitEnde.size());
}

}  // namespace dv
