#pragma once
// The user of work that runs on a thread of its own (the web import's
// downloads): every question and message is handed to the program's Benutzer on
// the GUI thread, and the thread waits for the answer there. The wish to
// interrupt is the flag the window's "Abbrechen" sets, so the GUI thread never
// has to be asked from the worker. Once the window gives up (it is closing),
// nothing more reaches the user: a question is answered Yes (a worker asks
// only whether to stop), a choice comes back empty, messages are dropped.
//
// The GUI thread must never block on the worker while the worker may be waiting
// for an answer; to wait at the end, give up first and call warte().

#include <QThread>
#include <atomic>

#include "app/Benutzer.h"

namespace dv::ui {

class Weiterleitung final : public Benutzer {
  public:
    // ziel lives on the GUI thread and must outlive this object.
    explicit Weiterleitung(Benutzer& ziel) : ziel_(ziel) {}

    // The user pressed "Abbrechen": the worker's next unterbrechen() says so (once).
    void abbrechen() { abbruch_ = true; }
    void aufgeben() {
        aufgegeben_ = true;
        abbruch_ = true;
    }
    bool aufgegeben() const { return aufgegeben_; }
    // Waits on the GUI thread for the worker to end, answering what it still asks.
    static void warte(QThread& faden);

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
    bool unterbrechen() override { return abbruch_.exchange(false); }
    bool zwischenablage(const std::string& text) override;

  private:
    // Runs f on the GUI thread and returns its value; nein when given up.
    template <class T, class F>
    T imGuiFaden(T nein, F f);

    Benutzer& ziel_;
    std::atomic<bool> abbruch_{false};
    std::atomic<bool> aufgegeben_{false};
};

}  // namespace dv::ui
