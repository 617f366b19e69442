#pragma once
// The import of one box file into the collection.
//
// Order: read and check the file, pre-scan (title, EAN, number of DVDs), refuse
// an EAN that exists, ask "Box importieren ?" when asked to, start the protocol
// "import_<EAN>.log" in the message folder, take the data block apart, resolve
// every lookup name and person (matching without regard to ASCII letter case,
// asking about unknown ones when asked to), and only then create the box, its
// DVDs and films with their links, tags, side texts and cover. An abort while
// resolving leaves the box uncreated (lookups and persons already created by
// then stay). A failure while creating removes what was created of the box.
//
// Each lookup table and the person table are read once per import; names that
// the import creates are added to what it has read.

#include <string>
#include <unordered_map>
#include <vector>

#include "base/Benutzer.h"
#include "base/Ordner.h"
#include "domain/Datenbank.h"
#include "interchange/BoxLeser.h"
#include "interchange/ImportDaten.h"

namespace dv {

struct ImportOptionen {
    bool doppelteStill = false;       // existing EAN: no message box
    bool boxBestaetigen = false;      // ask "Box importieren ?" first
    bool objekteBestaetigen = false;  // ask about unknown lookups and persons
};

enum class ImportErgebnis {
    Importiert,
    KeineBoxDatei,  // unreadable, damaged or foreign file: no message
    Doppelt,        // a box with this EAN exists
    Abgelehnt,      // "Box importieren ?" not answered Yes
    Abgebrochen,    // "Beenden" in a confirmation dialog
    Fehler,         // the catalogue could not be written
};

class BoxImport {
  public:
    // All references must outlive the object.
    BoxImport(Datenbank& db, const Ordner& ordner, Benutzer& benutzer);

    ImportOptionen optionen;

    ImportErgebnis importiere(const std::string& pfad);
    // The same on a file already read (the batch import reads before it asks).
    ImportErgebnis importiere(const BoxLeser& leser);

    // After Importiert: the new box.
    long neueBoxId() const { return boxId_; }
    // The protocol of the last import that got that far (empty otherwise).
    const std::string& protokollPfad() const { return protokoll_; }

    // Resolves one lookup name of a lookup type, setting its id; false only when
    // the user aborted. An empty name gets 0.
    bool importObj1(int typ, ImportName& n);
    // Resolves one person; false only when the user aborted.
    bool importObj8(ImportPerson& p);

  private:
    // Reads the lookup table once for this import (rows in table order and the
    // first id of each folded name).
    Tabelle1* tabelle(int typ);
    long findeName(Tabelle1& t, const std::string& name);
    // Looks the keys up in one pass over the person table (the first row of a key wins).
    void suchePersonen(const std::vector<std::string>& schluessel);
    long findePerson(const ImportPerson& p);
    // Every person, for the dialog's list; read on first use.
    const std::vector<Zeile8>& allePersonen();
    void zeile(const std::string& text);
    bool loeseAuf(ImportBox& box);
    bool loeseFilmAuf(ImportFilm& f);
    // A box of that EAN is in the catalogue: said unless quiet; true then.
    bool doppelt(const std::string& ean);
    // The box with everything below it, as one operation: whole or not at all.
    ImportErgebnis erzeuge(const ImportBox& box, const BoxLeser& leser);
    bool erzeugeDvd(long boxId, const ImportDvd& d);
    bool erzeugeFilm(long dvdId, const ImportFilm& f);
    void schreibeCover(long boxId, const BoxLeser& leser);
    void beginneProtokoll(const ImportBox& box, const box::Kopf& kopf);

    Datenbank& db_;
    const Ordner& ordner_;
    Benutzer& benutzer_;
    bool fragen_ = false;  // confirmation dialogs still shown in this import
    bool fehler_ = false;  // a lookup or person could not be created
    long boxId_ = 0;
    std::string protokoll_;
    std::unordered_map<const Tabelle1*, std::vector<std::pair<long, std::string>>> zeilen_;
    std::unordered_map<const Tabelle1*, std::unordered_map<std::string, long>> index_;
    bool personenGeladen_ = false;
    std::vector<Zeile8> personen_;
    // Person keys looked up so far: the id, or 0 when the table has none.
    std::unordered_map<std::string, long> personIndex_;
};

// The protocol file's name part for an EAN from a file: the characters that a
// file name cannot hold, control characters included, become '_', so the name
// never leaves the message folder. Returned as a native (UTF-8) name.
std::string sichererDateiTeil(const std::string& cp1252);

}  // namespace dv
