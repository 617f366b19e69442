#pragma once
// The XML document of a box, a DVD or a film: lines ending in CR LF, no
// indentation, declared ISO-8859-1 (the catalogue's 8-bit texts go out as they
// are). Lookup names pass through the XML export's translator when one is set.
// Nothing is read back; the format is for other programs.

#include <cstdint>
#include <string>
#include <vector>

#include "interchange/ExportQuelle.h"
#include "interchange/Uebersetzer.h"

namespace dv {

struct XmlOptionen {
    bool cover = false;         // embed a box's cover as a data URI
    bool unterobjekte = false;  // a box holds its DVDs, a DVD its films
};
// The two switches from the option word ("Options").
XmlOptionen xmlOptionen(std::uint32_t optionen);

// Replaces & < > ' " by their entities; every other byte stays.
std::string xmlText(const std::string& text);

class XmlExport {
  public:
    // quelle (and the translator, when given) must outlive the object.
    explicit XmlExport(ExportQuelle& quelle, const NamensUebersetzer* filter = nullptr)
        : quelle_(quelle), filter_(filter) {}

    XmlOptionen optionen;

    // The object's document. ganz: with head and tail (the call from a menu);
    // the nested DVDs and films are written without. Lists must be loaded as
    // far as the switches reach (a box's DVDs and their films with sub-objects).
    std::string box(const BoxElement& b, bool ganz = true);
    std::string dvd(const DvdElement& d, bool ganz = true);
    std::string film(const FilmElement& f, bool ganz = true);

  private:
    void boxZeilen(const BoxElement& b);
    void dvdZeilen(const DvdElement& d);
    void filmZeilen(const FilmElement& f);
    void personZeilen(const FilmElement& f);
    std::string fertig(bool ganz);
    std::string coverAttribut(long boxId);

    ExportQuelle& quelle_;
    const NamensUebersetzer* filter_;
    std::vector<std::string> zeilen_;
};

}  // namespace dv
