#pragma once
// A list to choose from, for the questions of the layers below: the hits of the
// web import ("Web-Import Auswahl (%d)", column "BoxTitel", check boxes) and the
// choice of the DVD drive. Each kind keeps its own window position.

#include <string>
#include <vector>

#include "ui/dialoge/Dialog.h"

namespace dv::ui {

class ListenAnsicht;

class CDlgAuswahl : public Dialog {
    Q_OBJECT
  public:
    // mehrfach: check boxes ("Alle", "Keine"); else the current row is the
    // choice. vorauswahl: the row made current (-1: the first).
    CDlgAuswahl(QWidget* eltern, CApplikation& app, const char* wpName, const QString& titel,
                const QString& spalte, const std::vector<std::string>& eintraege, bool mehrfach,
                int vorauswahl);

    // The position key of a choice by its caption.
    static const char* wpNameFuer(const std::string& titel);

    ListenAnsicht& liste() const { return *liste_; }
    // The chosen rows in their order (empty when cancelled).
    std::vector<int> gewaehlt() const;

  private:
    ListenAnsicht* liste_;
    bool mehrfach_;
};

}  // namespace dv::ui
