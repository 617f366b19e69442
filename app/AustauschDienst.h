#pragma once
// Box files, XML documents and the web import: importing one box file or many,
// exporting one box or all, the XML document of an object, and fetching box
// files from the import servers.

#include <cstdint>
#include <string>
#include <vector>

#include "app/Ergebnis.h"
#include "app/Werte.h"

namespace dv {

class Benutzer;
class CApplikation;

// What the import asks: "Box importieren ?" first, and about every unknown lookup
// and person (otherwise each is created).
struct ImportFragen {
    bool box = false;
    bool objekte = false;
};

// One file of a batch or web import and whether its box was imported.
struct ImportZeile {
    std::string pfad;
    bool importiert = false;
    bool operator==(const ImportZeile&) const = default;
};

// What a web import looks for: an EAN, a title, or the disc in the default drive
// (or a disc image).
struct WebSuche {
    std::string url;  // empty: the setting ImportUrl
    std::string ean;
    std::string titel;
    bool disc = false;
    std::string abbild;
};

// A prepared web import: nothing is left to read from the catalogue or settings.
struct WebAuftrag {
    std::string url;  // the base address, ending in '/'
    std::string ean;
    std::string titel;
    std::uint32_t sn = 0, bytesLow = 0, bytesHigh = 0;  // the disc's identity
    bool grossKlein = false;                            // letter case in the title search
};

// What a web import fetched: the result code (number of hits, 0 for none, below
// 0 for an error, whose message has been shown) and the local box files.
struct WebFund {
    int code = 0;
    std::vector<std::string> dateien;
};

class AustauschDienst {
  public:
    // app must outlive the service.
    explicit AustauschDienst(CApplikation& app) : app_(app) {}

    // The questions the options ask (the desktop's import).
    ImportFragen fragenNachOptionen();
    // One box file; the new box's id. Announces the box as new.
    ErgebnisMit<long> importiere(const std::string& datei, const ImportFragen& fragen);
    // The files one after the other, each deleted afterwards; without questions
    // about the box or unknown objects, with the info dialog per file when mitInfo.
    std::vector<ImportZeile> stapelImport(const std::vector<std::string>& dateien, bool mitInfo);

    // The box file "<EAN>.box" of one box in ordner (after the overwrite
    // question); its path.
    ErgebnisMit<std::string> exportiere(long boxId, const std::string& ordner, bool tags,
                                        bool packen = true);
    // One box file per box; refused when any box could not be exported (the
    // titles of those have been shown).
    Ergebnis exportiereAlle(const std::string& ordner, bool tags);
    std::string letzterExportOrdner();

    // The XML document of an object with head and tail (8-bit, CR LF), or written
    // into a file.
    ErgebnisMit<std::string> xml(int typ, long id, bool cover, bool unterobjekte);
    Ergebnis xmlDatei(int typ, long id, bool cover, bool unterobjekte, const std::string& datei);

    // Searches the import servers; the hits are offered through auswahl.waehle()
    // (every other question goes to it as well), the chosen box files are fetched
    // into "Updates/" and imported, each noted in zeilen. Refused when nothing
    // could be fetched or a fetched file was not imported.
    Ergebnis webimport(const WebSuche& suche, Benutzer& auswahl, std::vector<ImportZeile>& zeilen);

    // The same in three steps, for a caller that keeps its window alive while the
    // files come: webVorbereiten checks the input and reads the disc and the
    // settings (the disc's errors are shown); webHolen only downloads into "Updates/" and asks
    // through auswahl, touching neither the catalogue nor the settings, so it may run on another
    // thread (auswahl must be usable from there); webImportieren imports the fetched files on the
    // catalogue's thread.
    ErgebnisMit<WebAuftrag> webVorbereiten(const WebSuche& suche);
    WebFund webHolen(const WebAuftrag& auftrag, Benutzer& auswahl);
    Ergebnis webImportieren(const WebFund& fund, std::vector<ImportZeile>& zeilen);

  private:
    Ergebnis ordnerDa(const std::string& ordner);

    CApplikation& app_;
};

}  // namespace dv
