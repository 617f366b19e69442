// German texts for the system's error numbers, worded as the user knows them
// from the system's own messages.

#include <cerrno>
#include <cstdio>

#include "platform/Laufwerke.h"

namespace dv {

std::string systemFehlerText(int nummer) {
    switch (nummer) {
        case ENOENT:
            return "Das System kann die angegebene Datei nicht finden.";
        case ENOTDIR:
            return "Das System kann den angegebenen Pfad nicht finden.";
        case EACCES:
        case EPERM:
            return "Zugriff verweigert.";
        case EIO:
            return "Die Anforderung konnte wegen eines E/A-Gerätefehlers nicht ausgeführt werden.";
        case ENOMEDIUM:
            return "Das Gerät ist nicht bereit.";
        case ENXIO:
        case ENODEV:
            return "Das angegebene Gerät ist nicht vorhanden.";
        case EBUSY:
            return "Das Gerät wird zurzeit verwendet.";
        case ENOMEM:
            return "Nicht genügend Speicher verfügbar.";
        case EMFILE:
        case ENFILE:
            return "Das System kann die Datei nicht öffnen: zu viele offene Dateien.";
        case ENOTTY:
        case EOPNOTSUPP:
            return "Die Anforderung wird von diesem Gerät nicht unterstützt.";
        case EINVAL:
            return "Falscher Parameter.";
        case EISDIR:
            return "Der Pfad ist ein Ordner und keine Datei.";
        case ENAMETOOLONG:
            return "Der Dateiname ist zu lang.";
        case EROFS:
            return "Der Datenträger ist schreibgeschützt.";
        case ENOSPC:
            return "Auf dem Datenträger ist nicht genügend Speicherplatz verfügbar.";
        default:
            break;
    }
    char text[64];
    std::snprintf(text, sizeof text, "Systemfehler %d.", nummer);
    return text;
}

}  // namespace dv
