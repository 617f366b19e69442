#pragma once
// The program folder and the eleven working folders below it. Every folder text
// ends in '/'. The drive C: defaults stand until start-up replaces them.

#include <string>

#include "platform/Dateisystem.h"

namespace dv {

struct Ordner {
    std::string programm;  // the program ("base") folder; empty until start-up
    std::string daten = "C:\\Daten\\";
    std::string cover = "C:\\Cover\\";
    // The default says "Kommentare", the folder below the program "Kommentar"; both kept.
    std::string kommentar = "C:\\Kommentare\\";
    std::string inhalt = "C:\\Inhalt\\";
    std::string reste = "C:\\Reste\\";
    std::string meldungen = "C:\\Meldungen\\";
    std::string vorlagen = "C:\\Vorlagen\\";
    std::string tags = "C:\\Tags\\";
    std::string backups = "C:\\Backups\\";
    std::string updates = "C:\\Updates\\";
    std::string ocl = "C:\\Ocl\\";

    // Builds every working folder below the program folder (which gets a trailing '/').
    void setzeBasis(const std::string& programmOrdner);
    // Creates the program folder and each working folder that cannot be entered.
    // False if any is missing afterwards; the start carries on regardless.
    bool legeAn(Dateisystem& fs) const;
};

// The program folder by the rule of the command-line contract: the option, else
// DORVANO_BASIS, else the executable's folder when "Daten/" lies beside it, else
// $XDG_DATA_HOME/dorvano/ (~/.local/share/dorvano/ when unset).
std::string bestimmeProgrammOrdner(const std::string& option, const std::string& exeOrdner,
                                   Dateisystem& fs = echtesDateisystem());

// Appends '/' unless the text already ends in one.
std::string mitTrenner(std::string ordner);

}  // namespace dv
