#pragma once
// Window positions in the settings store, one value "WP_" + the window's short name:
// ten numbers each followed by a comma ("%ld,"): flags, show state (1 normal,
// 3 maximised), minimised x and y, maximised x and y, then the normal frame's
// left, top, right and bottom; then further numbers of the window's own ("%d,"),
// such as the main window's splitter sizes.

#include <string>
#include <vector>

class QWidget;

namespace dv {
class Einstellungen;
}

namespace dv::ui {

std::string fensterpositionText(const QWidget& fenster, const std::vector<int>& weitere = {});
// False when the text does not hold ten numbers or a frame of no size. weitere
// (when given) receives the numbers after the ten.
bool wendeFensterpositionAn(QWidget& fenster, const std::string& text,
                            std::vector<int>* weitere = nullptr);

void stelleFensterWiederHer(QWidget& fenster, Einstellungen& einstellungen, const char* name,
                            std::vector<int>* weitere = nullptr);
void speichereFenster(const QWidget& fenster, Einstellungen& einstellungen, const char* name,
                      const std::vector<int>& weitere = {});

}  // namespace dv::ui
