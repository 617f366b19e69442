#pragma once
// File access of the whole program goes through this interface, so that tests can
// put a failing disk or a torn write underneath any layer.
//
// Paths are native file-system paths (UTF-8 on Linux), never catalogue texts:
// a catalogue text (Windows-1252) that becomes part of a file name is converted
// by the caller (see base/Zeichensatz.h).

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace dv {

// One open file. The object closes the file when it is destroyed.
class Datei {
  public:
    virtual ~Datei() = default;
    // Length in bytes, or -1 when it cannot be read.
    virtual std::int64_t laenge() = 0;
    // Reads up to n bytes at pos; returns the number read (0 at the end) or -1 on error.
    virtual std::int64_t lese(std::int64_t pos, void* ziel, std::size_t n) = 0;
    // Writes all n bytes at pos; false if any byte could not be written.
    virtual bool schreibe(std::int64_t pos, const void* quelle, std::size_t n) = 0;
    // Appends n bytes at the current end; false on any failure.
    virtual bool haengeAn(const void* quelle, std::size_t n) = 0;
    // Cuts or extends the file to the given length.
    virtual bool kuerze(std::int64_t laenge) = 0;
    // Makes the bytes written and the length durable on the medium (survives a
    // power loss once this returned true).
    virtual bool synchronisiere() { return true; }
    // Starts writing the changed bytes to the medium without waiting, so that the
    // flushes of several files overlap. A hint only: durability still needs
    // synchronisiere().
    virtual void beginneSynchronisieren() {}
};

enum class OeffnenModus {
    Lesen,           // read only, the file must exist
    LesenSchreiben,  // read and write, the file must exist
    Erzeugen,        // read and write, created or truncated
    Anhaengen,       // write at the end, created if missing, never truncated
};

struct OrdnerEintrag {
    std::string name;  // file name without folder
    bool istOrdner = false;
    std::int64_t laenge = 0;
};

class Dateisystem {
  public:
    virtual ~Dateisystem() = default;
    // Opens a file; on failure returns null and stores the system's error number
    // in *fehler when fehler is not null.
    virtual std::unique_ptr<Datei> oeffne(const std::string& pfad, OeffnenModus modus,
                                          int* fehler = nullptr) = 0;
    virtual bool existiert(const std::string& pfad) = 0;
    virtual bool istOrdner(const std::string& pfad) = 0;
    // Creates the folder and any missing parents; true if it exists afterwards.
    virtual bool erzeugeOrdner(const std::string& pfad) = 0;
    virtual bool loesche(const std::string& pfad) = 0;
    // Copies a file, replacing the target.
    virtual bool kopiere(const std::string& von, const std::string& nach) = 0;
    // Renames atomically where the system allows it, replacing the target.
    virtual bool benenneUm(const std::string& von, const std::string& nach) = 0;
    // Entries of a folder, "." and ".." left out; empty when it cannot be read.
    virtual std::vector<OrdnerEintrag> liste(const std::string& ordner) = 0;
    // Makes the folder's entries (files created, renamed or deleted in it) durable.
    virtual bool synchronisiereOrdner(const std::string& /*ordner*/) { return true; }
};

// The real file system of the machine.
Dateisystem& echtesDateisystem();

// The folder of the running executable with a trailing '/', or "" when the
// system does not tell (the portable program folder is looked for there).
std::string programmDateiOrdner();

// Bytes free for this user on the medium that holds the folder; -1 when the
// system does not tell.
std::int64_t freierPlatz(const std::string& ordner);

// Whole-file helpers on top of the interface.
// Reads the whole file into out; false if it cannot be opened or read completely.
bool leseAlles(Dateisystem& fs, const std::string& pfad, std::string& out);
// Writes the file anew (created or truncated) with the given bytes.
bool schreibeAlles(Dateisystem& fs, const std::string& pfad, const std::string& daten);
// Writes through a temporary file beside the target and renames it over the target,
// so that a failure never leaves a half-written target behind.
bool schreibeSicher(Dateisystem& fs, const std::string& pfad, const std::string& daten);

}  // namespace dv
