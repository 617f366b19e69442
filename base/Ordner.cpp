#include "base/Ordner.h"

#include <cstdlib>

namespace dv {

std::string mitTrenner(std::string ordner) {
    if (ordner.empty() || ordner.back() != '/') ordner += '/';
    return ordner;
}

void Ordner::setzeBasis(const std::string& programmOrdner) {
    programm = mitTrenner(programmOrdner);
    daten = programm + "Daten/";
    cover = programm + "Cover/";
    kommentar = programm + "Kommentar/";
    inhalt = programm + "Inhalt/";
    reste = programm + "Reste/";
    meldungen = programm + "Meldungen/";
    vorlagen = programm + "Vorlagen/";
    tags = programm + "Tags/";
    backups = programm + "Backups/";
    updates = programm + "Updates/";
    ocl = programm + "Ocl/";
}

bool Ordner::legeAn(Dateisystem& fs) const {
    bool alle = fs.istOrdner(programm) || fs.erzeugeOrdner(programm);
    for (const std::string* o : {&daten, &cover, &kommentar, &inhalt, &reste, &meldungen, &vorlagen,
                                 &tags, &backups, &updates, &ocl}) {
        if (!fs.istOrdner(*o) && !fs.erzeugeOrdner(*o)) alle = false;
    }
    return alle;
}

std::string bestimmeProgrammOrdner(const std::string& option, const std::string& exeOrdner,
                                   Dateisystem& fs) {
    if (!option.empty()) return mitTrenner(option);
    if (const char* env = std::getenv("DORVANO_BASIS"); env && *env) return mitTrenner(env);
    if (!exeOrdner.empty() && fs.istOrdner(mitTrenner(exeOrdner) + "Daten"))
        return mitTrenner(exeOrdner);
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg)
        return mitTrenner(xdg) + "dorvano/";
    const char* home = std::getenv("HOME");
    return mitTrenner(home && *home ? home : ".") + ".local/share/dorvano/";
}

}  // namespace dv
