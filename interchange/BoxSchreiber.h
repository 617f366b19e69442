#pragma once
// Writing one box, with its DVDs and films, as a box file (see BoxFormat.h).
//
// Lookups travel by name: every lookup name passes through the translator of the
// box file export when one is set. Within a film, spoken languages, sound
// formats, functions and persons are numbered from 1 in the order of first
// appearance (an entry with the same non-zero record id is entered once), and
// the language/sound-format pairs, person/function pairs and aliases refer to
// those numbers; a partner that is not in its list gives -1. The function list
// holds the film's own functions first, then those that only its persons carry.

#include <string>

#include "interchange/ExportQuelle.h"
#include "interchange/Uebersetzer.h"

namespace dv {

struct SchreibOptionen {
    bool tags = false;        // write the tag entries 0x14, 0x39, 0x62
    bool bildPacken = true;   // pack the picture block
    bool datenPacken = true;  // pack the data block
};

// The operating system as the header records it (see README: taken from uname
// on Linux: platform id 16, the release's first three numbers as major, minor,
// build). All zero when the system does not say.
struct Betriebssystem {
    std::uint32_t plattform = 0, haupt = 0, neben = 0, build = 0;
};
Betriebssystem betriebssystem();

class BoxSchreiber {
  public:
    // quelle (and the translator, when given) must outlive the writer.
    explicit BoxSchreiber(ExportQuelle& quelle, const NamensUebersetzer* filter = nullptr)
        : quelle_(quelle), filter_(filter) {}

    SchreibOptionen optionen;

    // The bytes of the box file of a box whose DVDs, films and their lists are
    // loaded. False when the box's cover has an extension other than ".bmp",
    // ".jpg" or ".gif": such a box is not written at all.
    bool baue(const BoxElement& box, std::string& datei);
    // Writes the file: "<folder><EAN>.box" without a name, else "<folder><name>".
    // The EAN is made safe as a file name first. The file is written through a
    // temporary file, so a failure never leaves a torn box file behind.
    bool schreibe(const BoxElement& box, const std::string& ordner,
                  const std::string& dateiName = std::string());
    // The target path that schreibe() uses.
    static std::string zielPfad(const BoxElement& box, const std::string& ordner,
                                const std::string& dateiName = std::string());

  private:
    std::string datenBlock(const BoxElement& box);
    void dvdEintraege(const DvdElement& dvd, std::string& out);
    void filmEintraege(const FilmElement& film, std::string& out);
    std::string lookupText(int lookupTyp, int filterTyp, long id);
    void liste(std::string& out, std::uint8_t token, const ObjektElement* e, int filterTyp);
    void tagEintrag(std::string& out, std::uint8_t token, int objektTyp, long id);

    ExportQuelle& quelle_;
    const NamensUebersetzer* filter_;
};

}  // namespace dv
