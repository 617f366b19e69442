#pragma once
// The day of remembrance: the "&Memoriam" item of the main menu is shown on the
// 1st of July between 11:00 and 12:59 local time, and at no other time.

#include <string>

namespace dv {

// At this moment, by the clock of platform/Zeit.h (which tests can fix).
bool istGedenkzeit();

// What the item shows when chosen.
std::string gedenkText();

}  // namespace dv
