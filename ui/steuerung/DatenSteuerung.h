#pragma once
// "&Daten": finding a box by title or EAN, import of one or several box files
// (also dropped on the window or handed over by a second start), export of the
// current box and of all boxes, the counts, and the end of the program.

#include <QStringList>

#include "ui/steuerung/Steuerung.h"

namespace dv::ui {

class DatenSteuerung : public Steuerung {
    Q_OBJECT
  public:
    explicit DatenSteuerung(Fensterteile& teile) : Steuerung(teile) {}
    void verbinde(Aktionen& aktionen) override;

    // One file runs the single import, several the import of several box files.
    void importiereDateien(const QStringList& pfade);

  public slots:
    void boxTitelFinden();
    void eanFinden();
    void importieren();
    void exportieren();
    void alleExportieren();
    void anzahl();
    void beenden();
};

}  // namespace dv::ui
