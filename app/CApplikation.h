#pragma once
// The application object: owns the folder layout, the logs, the catalogue, and
// hands each layer what it needs. Both programs (desktop and command line) run the
// same start-up through it; every feature is reached through its members.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/Aenderungen.h"
#include "app/Dienste.h"
#include "app/Schreibstelle.h"
#include "base/Benutzer.h"
#include "base/Einstellungen.h"
#include "base/Ordner.h"
#include "base/Protokoll.h"
#include "domain/Datenbank.h"
#include "domain/Validierung.h"
#include "interchange/Austausch.h"
#include "interchange/Filter.h"
#include "output/Uebersicht.h"
#include "retrieval/Stempeltags.h"
#include "retrieval/Tagverwaltung.h"
#include "retrieval/Vormerklisten.h"

namespace dv {

class CApplikation {
  public:
    // benutzer, einstellungen and fs must outlive the object.
    CApplikation(Benutzer& benutzer, Einstellungen& einstellungen,
                 Dateisystem& fs = echtesDateisystem());
    ~CApplikation();
    CApplikation(const CApplikation&) = delete;
    CApplikation& operator=(const CApplikation&) = delete;

    // Start-up below the program folder: the trace log "zelka.log", the eleven
    // working folders, the message folder, the writer lock, the rollback of an
    // operation that a crash left unfinished (noted in the message log), then the
    // tables (missing files created, functions seeded). traceMaske replaces the
    // stored mask when given.
    // Refused with the reason when the program folder or its data folder cannot be
    // created, or a table file cannot be read. Tables that can be read but not
    // written (a read-only medium) start; writes are refused by the Schreibstelle.
    Ergebnis starte(const std::string& programmOrdner, std::optional<unsigned> traceMaske = {});

    // The data version check with its protocol; false on a mismatch (the message
    // has been shown; the caller ends the process).
    bool pruefeDatenversion();

    // Deletes "WP_main" at the user's request and notes it in "reset_wp.log".
    void setzeFensterpositionZurueck();

    // The text of the program's own data version: "4.0.0.1 - 20070406".
    static std::string versionsText();
    // The stored data version as that text, and the two lines "Ist  : ..." and
    // "Soll : ..." of the check.
    std::string gespeicherteVersion();
    std::vector<std::string> versionsZeilen();
    // The title text of the application: "DORVANO".
    static const char* titel() { return "DORVANO"; }

    // The services both programs call; the change notices of their writes; the
    // one place every service write passes through.
    Dienste& dienste() { return *dienste_; }
    Aenderungen& aenderungen() { return aenderungen_; }
    Schreibstelle& schreibstelle() { return schreibstelle_; }

    Benutzer& benutzer() { return benutzer_; }
    Einstellungen& einstellungen() { return einstellungen_; }
    // The files as the running write operation sees them (see Schreibstelle), the
    // real ones otherwise: a service's cover or text writes belong to its operation.
    Dateisystem& fs() { return *umgebung_.fs; }
    Protokoll& protokoll() { return protokoll_; }
    const Ordner& ordner() const { return ordner_; }
    Datenbank& db() { return *db_; }
    Katalog& katalog() { return db_->katalog(); }

    // Case setting of select and search (on: letters must be equal).
    bool grossKlein() const { return umgebung_.grossKlein; }
    void setzeGrossKlein(bool an) { umgebung_.grossKlein = an; }

    // Retrieval: watch lists, tags and stamp tags on this catalogue.
    Vormerklisten& vormerklisten() { return *vormerklisten_; }
    Tagverwaltung& tags() { return *tags_; }
    Stempeltags& stempeltags() { return *stempeltags_; }
    // The search's case switch: the option bit kOptSucheGrossKlein of "Options"
    // (its default when the store holds none).
    bool sucheGrossKlein();

    // Interchange: box files, XML documents, export and import of all boxes. Each
    // export takes the filter of its kind that is active at that moment.
    Austausch& austausch() { return *austausch_; }
    FilterVerwaltung& filter() { return *filter_; }

    // Validation of the whole catalogue, with the backup of the data folder first
    // and the log in the message folder. False when declined or not possible.
    bool validiereDatenbank();
    // The HTML overview of every box (inputs as in the settings file); the finished
    // page is opened with the desktop's default program when oeffnen is set.
    bool erzeugeUebersicht(const UebersichtEinstellungen& e, bool oeffnen);
    // The colour rotation's counter, kept for the whole program run.
    FarbZaehler& farbZaehler() { return farben_; }

  private:
    // The writer lock of the program folder and the hooks through which the
    // storage layer's reports reach the user and the message log.
    void bereiteSchreibenVor();
    Ergebnis pruefeTabellen();

    Benutzer& benutzer_;
    Einstellungen& einstellungen_;
    Dateisystem& fs_;
    Protokoll protokoll_;
    Ordner ordner_;
    SpeicherUmgebung umgebung_;
    std::unique_ptr<Schreibsperre> sperre_;
    std::unique_ptr<Datenbank> db_;
    FarbZaehler farben_;
    std::unique_ptr<FilterVerwaltung> filter_;
    std::unique_ptr<Austausch> austausch_;
    std::unique_ptr<Vormerklisten> vormerklisten_;
    std::unique_ptr<Tagverwaltung> tags_;
    std::unique_ptr<Stempeltags> stempeltags_;
    Aenderungen aenderungen_;
    Schreibstelle schreibstelle_{aenderungen_, umgebung_};
    std::unique_ptr<Dienste> dienste_;
};

}  // namespace dv
