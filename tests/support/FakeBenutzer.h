#pragma once
// A scripted user: answers come from queues the test fills; everything shown is
// recorded. An empty queue answers No / cancel / "Beenden".

#include <deque>
#include <string>
#include <vector>

#include "base/Benutzer.h"

namespace dv::test {

struct Gezeigt {
    std::string titel;
    std::string text;
    Symbol symbol = Symbol::Keins;
};

class FakeBenutzer : public Benutzer {
  public:
    std::deque<bool> antworten;                 // for frage()
    std::deque<ObjektAntwort> objektAntworten;  // for objektBestaetigen()
    std::deque<std::vector<int>> auswahlen;     // for waehle()
    std::deque<bool> infoAntworten;             // for info()
    std::deque<bool> unterbrechungen;           // for unterbrechen()

    std::vector<Gezeigt> fragen;
    std::vector<Gezeigt> meldungen;
    std::vector<ObjektDialog> objektDialoge;
    std::vector<std::string> fortschritte;
    std::vector<std::string> texte;
    std::vector<std::string> ablage;
    // Each waehle(): caption and column (in text), and the entries offered.
    std::vector<Gezeigt> auswahlDialoge;
    std::vector<std::vector<std::string>> auswahlEintraege;
    // Each info(): caption and fields.
    std::vector<std::pair<std::string, std::vector<std::pair<std::string, std::string>>>> infos;

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
};

}  // namespace dv::test
