// Construction and the side texts of films.

#include "domain/Datenbank.h"
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "app/base/Hilfen.h"

namespace dv {

Datenbank::Datenbank(SpeicherUmgebung& umgebung, const Ordner& ordner)
    : umgebung_(umgebung), ordner_(ordner), katalog_(umgebung) {
#ifdef __GLIBC__
    // A whole-collection read allocates and frees about a million small list
    // elements. With the C library's fast bins, freed elements are only merged
    // by the next large request, which then walks all of them at once; without
    // them they merge as they are freed, which costs a third less in all.
    // One setting for the whole process, made once by its one Datenbank.
    mallopt(M_MXFAST, 0);
#endif
}

bool Datenbank::leseInhalt(long filmId, std::string& text) {
    return leseSeitenDatei(fs(), ordner_.inhalt, filmId, text);
}

bool Datenbank::schreibeInhalt(long filmId, const std::string& text) {
    return schreibeSeitenDatei(fs(), ordner_.inhalt, filmId, text);
}

bool Datenbank::leseKommentar(long filmId, std::string& text) {
    return leseSeitenDatei(fs(), ordner_.kommentar, filmId, text);
}

bool Datenbank::schreibeKommentar(long filmId, const std::string& text) {
    return schreibeSeitenDatei(fs(), ordner_.kommentar, filmId, text);
}

}  // namespace dv
