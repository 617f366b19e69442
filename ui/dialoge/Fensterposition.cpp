#include "ui/dialoge/Fensterposition.h"

#include <QWidget>
#include <cstdio>
#include <cstdlib>

#include "app/CApplikation.h"

namespace dv::ui {

std::string fensterpositionText(const QWidget& fenster, const std::vector<int>& weitere) {
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
    for (int w : weitere) text += std::to_string(w) + ",";
    return text;
}

bool wendeFensterpositionAn(QWidget& fenster, const std::string& text, std::vector<int>* weitere) {
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
    while (weitere && *p) {
        char* ende = nullptr;
        const long w = std::strtol(p, &ende, 10);
        if (ende == p || *ende != ',') break;
        weitere->push_back(static_cast<int>(w));
        p = ende + 1;
    }
    return true;
}

void stelleFensterWiederHer(QWidget& fenster, Einstellungen& einstellungen, const char* name,
                            std::vector<int>* weitere) {
    std::string text;
    if (einstellungen.getFensterPosition(name, text))
        wendeFensterpositionAn(fenster, text, weitere);
}

void speichereFenster(const QWidget& fenster, Einstellungen& einstellungen, const char* name,
                      const std::vector<int>& weitere) {
    einstellungen.setFensterPosition(name, fensterpositionText(fenster, weitere));
}

}  // namespace dv::ui
