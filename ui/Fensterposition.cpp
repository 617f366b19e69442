#include "ui/Fensterposition.h"

#include <QWidget>
#include <cstdio>
#include <cstdlib>

#include "base/Einstellungen.h"

namespace dv::ui {

std::string fensterpositionText(const QWidget& fenster) {
    const QRect r =
        fenster.normalGeometry().isValid() ? fenster.normalGeometry() : fenster.geometry();
    const long werte[10] = {0,
                            fenster.isMaximized() ? 3L : 1L,
                            -1,
                            -1,
                            -1,
                            -1,
                            r.left(),
                            r.top(),
                            r.left() + r.width(),
                            r.top() + r.height()};
    std::string text;
    for (long w : werte) {
        char teil[24];
        std::snprintf(teil, sizeof teil, "%ld,", w);
        text += teil;
    }
    return text;
}

bool wendeFensterpositionAn(QWidget& fenster, const std::string& text) {
    long werte[10];
    const char* p = text.c_str();
    for (long& w : werte) {
        char* ende = nullptr;
        w = std::strtol(p, &ende, 10);
        if (ende == p || *ende != ',') return false;
        p = ende + 1;
    }
    const long breite = werte[8] - werte[6];
    const long hoehe = werte[9] - werte[7];
    if (breite < 100 || hoehe < 100 || breite > 20000 || hoehe > 20000) return false;
    fenster.setGeometry(static_cast<int>(werte[6]), static_cast<int>(werte[7]),
                        static_cast<int>(breite), static_cast<int>(hoehe));
    if (werte[1] == 3) fenster.setWindowState(fenster.windowState() | Qt::WindowMaximized);
    return true;
}

void stelleFensterWiederHer(QWidget& fenster, Einstellungen& einstellungen, const char* name) {
    std::string text;
    if (einstellungen.getFensterPosition(name, text)) wendeFensterpositionAn(fenster, text);
}

void speichereFenster(const QWidget& fenster, Einstellungen& einstellungen, const char* name) {
    einstellungen.setFensterPosition(name, fensterpositionText(fenster));
}

}  // namespace dv::ui
