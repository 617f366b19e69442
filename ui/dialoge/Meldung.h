#pragma once
// Shows the reason of a refused service call as the controllers do: input
// errors as "Hinweis" with a warning icon, failures as "Fehler..."; nothing for
// success or for a question the user answered No. Returns e.ok().

namespace dv {
class Benutzer;
class Ergebnis;
}  // namespace dv

namespace dv::ui {

bool zeigeErgebnis(Benutzer& benutzer, const Ergebnis& e);

}  // namespace dv::ui
