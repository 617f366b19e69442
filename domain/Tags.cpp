#include "domain/Tags.h"

#include <cstdio>
#include <cstdlib>

namespace dv {

std::string tagDateiPfad(const std::string& ordner, int typ, long id) {
    char pfad[1024];
    std::snprintf(pfad, sizeof pfad, "%s%d_%ld.%s", ordner.c_str(), typ, id, kTagEndung);
    return pfad;
}

std::vector<std::string> leseTags(Dateisystem& fs, const std::string& ordner, int typ, long id) {
    std::vector<std::string> tags;
    std::string text;
    if (!leseAlles(fs, tagDateiPfad(ordner, typ, id), text)) return tags;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t ende = text.find('\n', pos);
        const bool mitEnde = ende != std::string::npos;
        if (!mitEnde) ende = text.size();
        std::string zeile = text.substr(pos, ende - pos);
        if (mitEnde && !zeile.empty() && zeile.back() == '\r') zeile.pop_back();
        // A long line comes in pieces, as a line reader with a fixed buffer delivers it.
        std::size_t teil = 0;
        do {
            tags.push_back(zeile.substr(teil, kTagMaxLaenge));
            teil += kTagMaxLaenge;
        } while (teil < zeile.size());
        pos = ende + 1;
    }
    return tags;
}

bool schreibeTags(Dateisystem& fs, const std::string& ordner, int typ, long id,
                  const std::vector<std::string>& tags) {
    const std::string pfad = tagDateiPfad(ordner, typ, id);
    if (tags.empty()) return loescheTags(fs, ordner, typ, id);
    std::string text;
    for (const std::string& tag : tags) {
        for (char c : tag) text += (c == '\n' || c == '\r') ? ' ' : c;
        text += '\n';
    }
    return schreibeSicher(fs, pfad, text);
}

bool loescheTags(Dateisystem& fs, const std::string& ordner, int typ, long id) {
    const std::string pfad = tagDateiPfad(ordner, typ, id);
    fs.loesche(pfad);
    return !fs.existiert(pfad);
}

void loescheAlleTagDateien(Dateisystem& fs, const std::string& ordner, int typ, long id) {
    char anfang[64];
    std::snprintf(anfang, sizeof anfang, "%d_%ld.", typ, id);
    const std::string praefix = anfang;
    for (const OrdnerEintrag& e : fs.liste(ordner))
        if (!e.istOrdner && e.name.compare(0, praefix.size(), praefix) == 0)
            fs.loesche(ordner + e.name);
}

bool hatTags(Dateisystem& fs, const std::string& ordner, int typ, long id) {
    return fs.oeffne(tagDateiPfad(ordner, typ, id), OeffnenModus::Lesen) != nullptr;
}

bool zerlegeTagDateiname(const std::string& name, int& typ, long& id) {
    const char* s = name.c_str();
    char* ende = nullptr;
    const long t = std::strtol(s, &ende, 10);
    if (ende == s || *ende != '_' || t < 1 || t > 3) return false;
    const char* s2 = ende + 1;
    if (*s2 < '0' || *s2 > '9') return false;
    const long i = std::strtol(s2, &ende, 10);
    if (ende == s2 || *ende != '.' || i <= 0) return false;
    typ = static_cast<int>(t);
    id = i;
    return true;
}

}  // namespace dv
