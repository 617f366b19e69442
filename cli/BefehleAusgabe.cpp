// validieren and uebersicht: the database validation and the HTML overview.
#include <memory>

#include "app/Zeichensatz.h"
#include "cli/Kontext.h"

namespace dv::cli {
namespace {

struct UebersichtArgumente {
    std::string vorlage, ziel, titel, ueberschrift, hintergrund, speichern, einstellungen;
    bool nichtOeffnen = false;
};

int uebersicht(Kontext& k, const UebersichtArgumente& a) {
    AusgabeDienst& ausgabe = k.dienste().ausgabe();
    UebersichtWerte w;
    if (!a.einstellungen.empty()) {
        const auto gelesen = ausgabe.ladeUebersicht(a.einstellungen);
        if (!gelesen.ok()) return k.ergebnis(gelesen);
        w = gelesen.wert();
    } else {
        w = {a.vorlage, a.ziel, katalogText(a.titel), katalogText(a.ueberschrift), a.hintergrund};
    }
    if (!a.speichern.empty())
        if (const int code = k.ergebnis(ausgabe.speichereUebersicht(a.speichern, w))) return code;
    return k.ergebnis(ausgabe.uebersicht(w, !a.nichtOeffnen));
}

}  // namespace

void registriereAusgabe(Register& reg) {
    CLI::App* validieren =
        reg.befehl(reg.wurzel(), "validieren",
                   "Prüft und korrigiert die Datenbank (mit Sicherung des Datenordners)");
    reg.handler(validieren,
                [](Kontext& k) { return k.ergebnis(k.dienste().ausgabe().validiere()); });

    auto a = std::make_shared<UebersichtArgumente>();
    CLI::App* ue =
        reg.befehl(reg.wurzel(), "uebersicht", "Schreibt die HTML-Übersicht aller Boxen");
    auto* vorlage =
        ue->add_option("--vorlage", a->vorlage,
                       cp1252NachUtf8("Vorlage (.html); ein bloßer Name aus dem Ordner Vorlagen"))
            ->type_name("V");
    auto* ziel =
        ue->add_option("--ziel", a->ziel, cp1252NachUtf8("Zieldatei (.html)"))->type_name("Z");
    auto* titel =
        ue->add_option("--titel", a->titel, cp1252NachUtf8("Listentitel"))->type_name("T");
    auto* ueberschrift =
        ue->add_option("--ueberschrift", a->ueberschrift, cp1252NachUtf8("Listen-Überschrift"))
            ->type_name("U");
    auto* hintergrund =
        ue->add_option("--hintergrund", a->hintergrund, cp1252NachUtf8("Hintergrundbild"))
            ->type_name("H");
    auto* speichern = ue->add_option("--speichern", a->speichern,
                                     cp1252NachUtf8("Schreibt auch die Einstellungsdatei"))
                          ->type_name("DATEI.ini");
    ue->add_option("--einstellungen", a->einstellungen,
                   cp1252NachUtf8("Liest die Eingaben aus einer Einstellungsdatei"))
        ->type_name("DATEI.ini")
        ->excludes(vorlage)
        ->excludes(ziel)
        ->excludes(titel)
        ->excludes(ueberschrift)
        ->excludes(hintergrund)
        ->excludes(speichern);
    ue->add_flag("--nicht-oeffnen", a->nichtOeffnen,
                 cp1252NachUtf8("Öffnet die fertige Seite nicht"));
    reg.handler(ue, [a](Kontext& k) { return uebersicht(k, *a); });
}

}  // namespace dv::cli
