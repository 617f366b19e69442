#pragma once
// The interchange services as the programs use them: import of one box file,
// export of one box, export of all boxes, the batch import and the XML document
// of an object. Holds what they share (catalogue, folders, the user, settings)
// and asks for the active translators at the moment of each export, so a filter
// switched meanwhile is honoured.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/Benutzer.h"
#include "base/Einstellungen.h"
#include "base/Ordner.h"
#include "domain/Datenbank.h"
#include "interchange/BoxImport.h"
#include "interchange/BoxSchreiber.h"
#include "interchange/Stapel.h"
#include "interchange/Uebersetzer.h"
#include "interchange/XmlExport.h"

namespace dv {

enum class ExportArt { BoxDatei, Xml };
// The translator active for an export kind, or null.
using FilterAbfrage = std::function<const NamensUebersetzer*(ExportArt)>;

// Import switches from the option word: quiet duplicates, confirm box, confirm objects.
ImportOptionen importOptionen(std::uint32_t optionen);

enum class ExportErgebnis { Exportiert, Unbekannt, KeineEan, NichtUeberschrieben, Fehler };

class Austausch {
  public:
    // All references must outlive the object.
    Austausch(Datenbank& db, const Ordner& ordner, Benutzer& benutzer,
              Einstellungen& einstellungen);

    void setzeFilterAbfrage(FilterAbfrage abfrage) { filter_ = std::move(abfrage); }
    // The option word "Options" (its default when not stored).
    std::uint32_t optionen();

    // One box file. boxId receives the new box's id when it was imported.
    ImportErgebnis importiere(const std::string& pfad, const ImportOptionen& o,
                              long* boxId = nullptr);
    // The box file of one box into ordner (ending in '/') as "<EAN>.box". A box
    // without EAN is refused with "Diese Box besitzt keine EAN."; an existing file
    // is replaced only when "Die Exportdatei existiert bereits.\nÜberschreiben?" is
    // answered Yes. pfad receives the target.
    ExportErgebnis exportiere(long boxId, const std::string& ordner, const SchreibOptionen& o,
                              std::string* pfad = nullptr);
    // Every box into ordner; the folder is kept as the setting "Export".
    StapelExportErgebnis exportiereAlle(const std::string& ordner, bool tags);
    // The folder of the last export of all boxes (empty when none is stored).
    std::string letzterExportOrdner();
    std::vector<StapelImportEintrag> stapelImport(const std::vector<std::string>& pfade,
                                                  bool mitInfo, const ImportOptionen& o);
    // The document of a box, DVD or film (object type 1, 2, 3) with head and tail;
    // false when there is no such object.
    bool xml(int typ, long id, const XmlOptionen& o, std::string& dokument);
    // The title of an object, for the caption "XML-Ausgabe [%s]".
    std::string titel(int typ, long id);

  private:
    const NamensUebersetzer* filter(ExportArt art) const {
        return filter_ ? filter_(art) : nullptr;
    }

    Datenbank& db_;
    const Ordner& ordner_;
    Benutzer& benutzer_;
    Einstellungen& einstellungen_;
    FilterAbfrage filter_;
};

}  // namespace dv
