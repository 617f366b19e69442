#pragma once
// "&Daten": finding a box by title or EAN, import of one or several box files
// (also dropped on the window or handed over by a second start), export of the
// current box and of all boxes, the counts, and the end of the program.

#include <QStringList>
#include <functional>
#include <string>
#include <vector>

#include "ui/steuerung/Steuerung.h"

namespace dv::ui {

class DatenSteuerung : public Steuerung {
    Q_OBJECT
  public:
    explicit DatenSteuerung(Fensterteile& teile) : Steuerung(teile) {}
    void verbinde(Aktionen& aktionen) override;

    // One file runs the single import, several the import of several box files
    // (which consumes them). The new boxes appear in the tree; the last is selected.
    void importiereDateien(const QStringList& pfade);
    // "Box-Titel finden" / "EAN finden" once the text is known: the next matching
    // box after the last one found with the same text, else the first.
    void findeWeiter(bool nachEan, const std::string& muster);
    void exportiereNach(long boxId, const QString& ordner);
    void exportiereAlleNach(bool tags, const QString& ordner);

  public slots:
    void boxTitelFinden();
    void eanFinden();
    void importieren();
    void exportieren();
    void alleExportieren();
    void anzahl();
    void beenden();

  private:
    void finde(bool nachEan);
    void importiereEine(const std::string& pfad);
    void importiereMehrere(const std::vector<std::string>& pfade);
    void waehleOrdner(const QString& start, std::function<void(const QString&)> weiter);

    std::string muster_[2];
    long fund_[2] = {0, 0};
};

}  // namespace dv::ui
