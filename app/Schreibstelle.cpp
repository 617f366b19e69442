#include "app/Schreibstelle.h"

namespace dv {

std::string hindernisGrund(Hindernis h) {
    switch (h) {
        case Hindernis::AndererSchreiber:
            return "Der Katalog wird gerade von einem anderen Programm geändert.\n"
                   "Bitte versuchen Sie es gleich noch einmal; es wurde nichts geändert.";
        case Hindernis::NichtBeschreibbar:
            return "Der Katalog kann nicht geändert werden: im Programmordner lässt sich keine "
                   "Schreibsperre anlegen (schreibgeschützter Datenträger oder fehlende "
                   "Rechte).\nEs wurde nichts geändert.";
        case Hindernis::Journal:
            return "Ein unterbrochener Schreibvorgang konnte nicht zurückgenommen werden "
                   "(siehe Meldungen/meldung.log).\nEs wurde nichts geändert.";
        case Hindernis::Keins:
            break;
    }
    return "Der Katalog kann gerade nicht geändert werden.";
}

Ergebnis Schreibstelle::nichtGespeichert() {
    return Ergebnis::fehlschlag(
        "Die Änderung konnte nicht gespeichert werden (Datenträger voll oder nicht "
        "beschreibbar).\nEs wurde nichts geändert.");
}

}  // namespace dv
