#pragma once
// The user-interaction interface with Qt dialogs: message boxes, the list choice,
// the info dialog, a text window, a progress dialog and the clipboard.

#include <QPointer>
#include <QProgressDialog>

#include "base/Benutzer.h"

class QWidget;

namespace dv::ui {

class QtBenutzer final : public Benutzer {
  public:
    explicit QtBenutzer(QWidget* eltern = nullptr) : eltern_(eltern) {}
    void setzeEltern(QWidget* eltern) { eltern_ = eltern; }

    bool frage(const std::string& titel, const std::string& text) override;
    void meldung(const std::string& titel, const std::string& text, Symbol symbol) override;
    ObjektAntwort objektBestaetigen(const ObjektDialog& dialog) override;
    std::vector<int> waehle(const std::string& titel, const std::string& spalte,
                            const std::vector<std::string>& eintraege, bool mehrfach,
                            int vorauswahl) override;
    bool info(const std::string& titel,
              const std::vector<std::pair<std::string, std::string>>& felder) override;
    void zeigeText(const std::string& titel, const std::string& text) override;
    void fortschritt(const std::string& text, int schritt, int gesamt) override;
    bool unterbrechen() override;
    bool zwischenablage(const std::string& text) override;

  private:
    QWidget* eltern_;
    QPointer<QProgressDialog> fortschritt_;
};

// A catalogue text for the screen: "\r\n" and "\r" become line breaks.
QString bildschirmText(const std::string& cp1252);

}  // namespace dv::ui
