#pragma once
// Export of all boxes (one box file each into one folder) and the import of
// several box files one after the other.

#include <string>
#include <vector>

#include "base/Benutzer.h"
#include "interchange/BoxImport.h"
#include "interchange/BoxSchreiber.h"

namespace dv {

struct StapelExportErgebnis {
    int gesamt = 0;
    int exportiert = 0;
    std::vector<std::string> nichtExportiert;  // titles of the boxes whose file failed
};

// The progress text of box `nummer` (from 1) of `gesamt`: EAN, title (cut to 25
// characters and "..." when longer) and the count of boxes not exported so far.
std::string exportFortschritt(int nummer, int gesamt, const std::string& ean,
                              const std::string& titel, int nichtExportiert);

// Writes every box of the collection, in the order of the box list, as
// "<EAN>.box" into ordner (ending in '/'). The collection is read in one pass
// (Datenbank::ladeSammlung). Each box shows its progress text; at the end the
// titles of the boxes not exported, if any, are shown, one line "\"%s\"\r\n" each.
// schreiber carries the options and the translator. Temporary files that an
// interrupted earlier run left in ordner are removed first.
StapelExportErgebnis exportiereAlle(Datenbank& db, ExportQuelle& quelle, BoxSchreiber& schreiber,
                                    Benutzer& benutzer, const std::string& ordner);

struct StapelImportEintrag {
    std::string pfad;
    ImportErgebnis ergebnis = ImportErgebnis::KeineBoxDatei;
    bool uebersprungen = false;  // "Abbrechen" in the info dialog
    bool behalten = false;       // the run was stopped here; the file stays
};

// Imports the files in order. With mitInfo, the "Import-Info" dialog comes first
// for each file ("Abbrechen" skips it). After each file: when the user asks to
// interrupt, "Import abbrechen" is asked, and Yes ends the run keeping this file;
// otherwise the file is deleted, whether it was imported, skipped or refused.
// Each box is its own operation, and its file goes only once the box is durable;
// so the caller must not open a Schreibvorgang around the run (a crash would
// then take back boxes whose files are already gone). Returns one entry per file.
std::vector<StapelImportEintrag> stapelImport(BoxImport& import, Benutzer& benutzer,
                                              Dateisystem& fs,
                                              const std::vector<std::string>& pfade, bool mitInfo);

}  // namespace dv
