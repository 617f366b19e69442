#pragma once
// Covers for a generated collection, painted rather than taken from anywhere: the
// box title on a gradient with a few shapes, every colour derived from the box id,
// so the same collection always gets the same pictures.

#include <string>

namespace dv::generator {

// Paints Cover/<id>.jpg for every box of the collection in the program folder
// basis. Needs a QGuiApplication for the fonts (the caller makes one; the
// offscreen platform will do). Returns the number of covers written; on a
// failure false with a German reason in *fehler.
bool maleCover(const std::string& basis, long* anzahl, std::string* fehler);

}  // namespace dv::generator
