// Construction and the side texts of films.

#include "domain/Datenbank.h"

#include "base/Hilfen.h"

namespace dv {

Datenbank::Datenbank(SpeicherUmgebung& umgebung, const Ordner& ordner)
    : umgebung_(umgebung), ordner_(ordner), katalog_(umgebung) {}

Schreibvorgang Datenbank::vorgang() {
    // The folders are read now: start-up sets them after construction.
    if (!umgebung_.laufend.vorgang)
        umgebung_.begleitOrdner = {ordner_.cover, ordner_.kommentar, ordner_.inhalt, ordner_.tags};
    return Schreibvorgang(umgebung_);
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
