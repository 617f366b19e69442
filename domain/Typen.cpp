#include <cstring>

#include "domain/Objekte.h"

namespace dv {

const char* objektTypName(int typ) {
    switch (typ) {
        case kObjektBox:
            return "Box";
        case kObjektDvd:
            return "Dvd";
        case kObjektFilm:
            return "Film";
        default:
            return "unbekannt";
    }
}

bool getTypName(int typ, bool einzahl, std::string& name) {
    struct Name {
        int typ;
        const char* einzahl;
        const char* mehrzahl;
    };
    static const Name kNamen[] = {
        {kTypVerpackung, "Verpackung", "Verpackungen"},
        {kTypExtras, "Extra", "Extras"},
        {kTypFormat, "Format", "Formate"},
        {kTypGenre, "Genre", "Genre"},
        {kTypBildformat, "Bildformat", "Bildformate"},
        {kTypSprache, "Sprache", "Sprachen"},
        {kTypTonformat, "Tonformat", "Tonformate"},
        {kTypUntertitel, "Untertitel", "Untertitel"},
        {kTypPerson, "Person", "Personen"},
        {kTypFunktion, "Funktion", "Funktionen"},
        {kTypAlias, "Alias", "Alias"},
    };
    for (const Name& n : kNamen) {
        if (n.typ == typ) {
            name = einzahl ? n.einzahl : n.mehrzahl;
            return true;
        }
    }
    return false;
}

}  // namespace dv
