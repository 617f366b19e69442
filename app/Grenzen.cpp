#include "app/Grenzen.h"

#include "base/Zeichensatz.h"
#include "domain/Beschreibung.h"

namespace dv {

Ergebnis pruefeText(const std::string& text, std::size_t max, const char* was) {
    if (text.size() <= max) return Ergebnis::gut();
    return Ergebnis::eingabe(formatiere("%s ist zu lang (höchstens %zu Zeichen).", was, max));
}

std::string pfadText(const std::string& pfad) {
    std::string text;
    if (utf8NachCp1252(pfad, text)) return text;
    for (unsigned char c : pfad) text += c < 0x80 ? static_cast<char>(c) : '?';
    return text;
}

Ergebnis dateiNichtLesbar(const std::string& pfad) {
    return Ergebnis::fehlschlag(
        formatiere("Die Datei \"%s\" kann nicht gelesen werden.", pfadText(pfad).c_str()));
}

Ergebnis dateiNichtSchreibbar(const std::string& pfad) {
    return Ergebnis::fehlschlag(
        formatiere("Die Datei \"%s\" kann nicht geschrieben werden.", pfadText(pfad).c_str()));
}

Ergebnis pruefeZahl(long wert, long von, long bis, const char* was) {
    if (wert >= von && wert <= bis) return Ergebnis::gut();
    return Ergebnis::eingabe(formatiere("%s muss zwischen %ld und %ld liegen.", was, von, bis));
}

}  // namespace dv
