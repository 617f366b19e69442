#pragma once
// The longest texts the catalogue takes, one constant per field kind, derived
// from the record layouts (see storage/Satzarten.h): kMaxTitel (63, film titles),
// kMaxBezeichnung (63, names of boxes and DVDs), kMaxEan (15), kMaxLookupName
// (127, lookup entries, aliases, watch lists, filters), kMaxPersonName (63),
// kMaxStempelText and kMaxFilterExtern (127). Edit fields take their limit from
// here; the services refuse a longer text with the message of pruefeText.

#include <cstddef>
#include <string>

#include "app/Ergebnis.h"
#include "storage/Satzarten.h"

namespace dv {

// Refuses a text longer than max characters (bytes of the code page):
// "<was> ist zu lang (höchstens <max> Zeichen)." as an input error.
Ergebnis pruefeText(const std::string& text, std::size_t max, const char* was);

// A path (UTF-8, as the system names files) as a catalogue text for a reason;
// characters the code page cannot hold become '?'.
std::string pfadText(const std::string& pfad);

// The failures "Die Datei \"<pfad>\" kann nicht gelesen werden." and "... nicht
// geschrieben werden.".
Ergebnis dateiNichtLesbar(const std::string& pfad);
Ergebnis dateiNichtSchreibbar(const std::string& pfad);

// Refuses a number outside [von, bis]: "<was> muss zwischen <von> und <bis> liegen.".
Ergebnis pruefeZahl(long wert, long von, long bis, const char* was);

}  // namespace dv
