#pragma once
// The overview's default background picture, chosen in the desktop program's
// "&Einstellungen" menu: a native path (UTF-8) kept under the setting
// "Hintergrundbild". The overview offers it when no other background is given.

#include <string>

#include "app/Ergebnis.h"

namespace dv {

class CApplikation;

// The stored picture; "" when none was chosen.
std::string standardHintergrund(CApplikation& app);

// Stores pfad after checking that the file can be read ("" forgets the picture).
// A German reason when it cannot be read or stored; the setting stays as it was.
Ergebnis setzeStandardHintergrund(CApplikation& app, const std::string& pfad);

}  // namespace dv
