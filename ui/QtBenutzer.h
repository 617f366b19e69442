#pragma once
// The user-interaction interface with Qt dialogs: message boxes, the list choice,
// the info dialog, a text window, the progress window and the clipboard. The
// layers below wait for each answer, so these dialogs (unlike the window's own)
// run modally until answered. The progress window's "Abbrechen" and a held Ctrl
// key both count as the wish to interrupt.

#include <QPointer>

#include "app/Benutzer.h"

class QWidget;

namespace dv {
class CApplikation;
}

namespace dv::ui {

class FortschrittFenster;

class QtBenutzer final : public Benutzer {
  public:
    explicit QtBenutzer(QWidget* eltern = nullptr) : eltern_(eltern) {}
    void setzeEltern(QWidget* eltern) { eltern_ = eltern; }
    // The application whose settings keep the dialogs' positions; set before the
    // first import question.
    void setzeApp(CApplikation& app) { app_ = &app; }

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
    CApplikation* app_ = nullptr;
    QPointer<FortschrittFenster> fortschritt_;
};

// A catalogue text for the screen: "\r\n" and "\r" become line breaks.
QString bildschirmText(const std::string& cp1252);

}  // namespace dv::ui
