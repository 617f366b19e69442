#pragma once
// Optical drives and the facts of the volume on a disc.
//
// Every operation takes a "source": the device of a drive ("/dev/sr0") or a disc
// image file. Both are read by the same code, 2048-byte sectors at a time, so an
// image answers exactly as the drive would with that disc inserted. Each call
// opens the source, does its work and closes it again; nothing stays open.
//
// Drive letters: the system names optical drives by device ("/dev/sr0"), the
// catalogue by letter. The drives are sorted by the number in their device name
// (sr0, sr1, ..., sr10) and lettered from "D" on in that order, as a Windows
// installation letters them after floppy and system disk. The first 23 drives
// get a letter; further ones are left out.
//
// Texts: volume and file names are UTF-8 (native texts, like paths); messages
// (Ergebnis::text) are German catalogue texts in Windows-1252.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace dv {

struct OptischesLaufwerk {
    char buchstabe = 0;  // 'D'..'Z'
    std::string geraet;  // "/dev/sr0"
    std::string modell;  // vendor and model as the system reports them; may be empty
};

enum class LaufwerkFehler {
    Keiner,
    System,            // an error of the system; nummer holds errno
    KeinZugriff,       // no right to read the device or file (EACCES/EPERM)
    KeinDatentraeger,  // the drive is empty, open or not ready
    KeinDateisystem,   // no file system that this reader knows
    Beschaedigt,       // descriptors missing, damaged or out of bounds
    NichtGefunden,     // a file or folder of the volume does not exist
    NichtMoeglich,     // the drive cannot do what was asked (tray without motor, ...)
};

// The outcome of one operation; text is empty when it succeeded.
struct LaufwerkErgebnis {
    LaufwerkFehler art = LaufwerkFehler::Keiner;
    int nummer = 0;    // errno for System and KeinZugriff, else 0
    std::string text;  // German, Windows-1252

    bool ok() const { return art == LaufwerkFehler::Keiner; }
};

// What a volume query yields.
struct VolumenFakten {
    std::string dateisystem;          // "UDF", "CDFS" (ISO 9660)
    std::string name;                 // the volume's name, UTF-8
    std::uint32_t seriennummer = 0;   // as Windows computes it for the file system
    std::uint32_t maxKomponente = 0;  // longest file name component
    std::uint32_t flags = 0;          // file system flags as Windows reports them
};

class Laufwerke {
  public:
    virtual ~Laufwerke() = default;

    // The optical drives the system knows, in letter order.
    virtual std::vector<OptischesLaufwerk> liste() = 0;

    // File system, name and serial number of the volume in quelle. A source with
    // no file system that this reader knows fails with KeinDateisystem.
    virtual LaufwerkErgebnis volumen(const std::string& quelle, VolumenFakten& fakten) = 0;

    // Sum of the lengths of all files of the volume (hidden ones included,
    // directories not counted). Only UDF volumes can be walked.
    virtual LaufwerkErgebnis groesse(const std::string& quelle, std::uint64_t& bytes) = 0;

    // Reads up to n bytes from the start of the file at pfad ("VIDEO_TS/VIDEO_TS.IFO",
    // '/'-separated, names matched without regard to ASCII letter case) into daten.
    // A shorter file yields fewer bytes; the caller checks the length.
    virtual LaufwerkErgebnis leseDatei(const std::string& quelle, const std::string& pfad,
                                       std::size_t n, std::string& daten) = 0;

    // Opens (oeffnen) or closes the tray of the drive at geraet.
    virtual LaufwerkErgebnis schublade(const std::string& geraet, bool oeffnen) = 0;
};

// The machine's drives (libudev, else /proc/sys/dev/cdrom/info).
Laufwerke& systemLaufwerke();

// The letter order above, applied to device paths in any order.
std::vector<OptischesLaufwerk> vergebeBuchstaben(std::vector<OptischesLaufwerk> laufwerke);

// The device names of the line "drive name:" of /proc/sys/dev/cdrom/info, as "/dev/<name>".
std::vector<std::string> cdromInfoGeraete(const std::string& inhalt);

// A German text for a system error number (errno), in Windows-1252.
std::string systemFehlerText(int nummer);

}  // namespace dv
