#pragma once
// The whole-catalogue jobs: the validation with its repairs and log, and the
// HTML overview with its settings file.

#include <string>

#include "app/Ergebnis.h"

namespace dv {

class CApplikation;

// The inputs of the overview, as its settings file holds them.
struct UebersichtWerte {
    std::string vorlage;       // the main template; a bare name is one of "Vorlagen/"
    std::string ziel;          // the page to write (".html")
    std::string titel;         // empty: "Listentitel"
    std::string ueberschrift;  // empty: "Überschrift"
    std::string hintergrund;   // a picture file; empty: none
    bool operator==(const UebersichtWerte&) const = default;
};

class AusgabeDienst {
  public:
    // app must outlive the service.
    explicit AusgabeDienst(CApplikation& app) : app_(app) {}

    // Asks, backs up the data folder, runs the three phases with their progress
    // and log, and shows the closing message. Announces that everything changed.
    Ergebnis validiere();

    // The overview page (opened with the desktop's default program when oeffnen).
    Ergebnis uebersicht(const UebersichtWerte& w, bool oeffnen);
    // The settings file (messages of a malformed or unwritable file are shown).
    ErgebnisMit<UebersichtWerte> ladeUebersicht(const std::string& datei);
    Ergebnis speichereUebersicht(const std::string& datei, const UebersichtWerte& w);

  private:
    CApplikation& app_;
};

}  // namespace dv
