#pragma once
// Window positions in the settings store, one value "WP_" + the window's short name:
// ten numbers each followed by a comma ("%ld,"): flags, show state (1 normal,
// 3 maximised), minimised x and y, maximised x and y, then the normal frame's
// left, top, right and bottom.

#include <string>

class QWidget;

namespace dv {
class Einstellungen;
}

namespace dv::ui {

std::string fensterpositionText(const QWidget& fenster);
// False when the text does not hold ten numbers or a frame of no size.
bool wendeFensterpositionAn(QWidget& fenster, const std::string& text);

void stelleFensterWiederHer(QWidget& fenster, Einstellungen& einstellungen, const char* name);
void speichereFenster(const QWidget& fenster, Einstellungen& einstellungen, const char* name);

}  // namespace dv::ui
