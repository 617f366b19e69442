#include "tests/support/FakeBenutzer.h"

namespace dv::test {

template <class T>
static T nimm(std::deque<T>& q, T sonst) {
    if (q.empty()) return sonst;
    T v = std::move(q.front());
    q.pop_front();
    return v;
}

bool FakeBenutzer::frage(const std::string& titel, const std::string& text) {
    fragen.push_back({titel, text, Symbol::Frage});
    return nimm(antworten, false);
}

void FakeBenutzer::meldung(const std::string& titel, const std::string& text, Symbol symbol) {
    meldungen.push_back({titel, text, symbol});
}

ObjektAntwort FakeBenutzer::objektBestaetigen(const ObjektDialog& dialog) {
    objektDialoge.push_back(dialog);
    ObjektAntwort beenden;
    beenden.taste = ObjektTaste::Letzte;
    beenden.felder = dialog.felder;
    ObjektAntwort a = nimm(objektAntworten, beenden);
    if (a.felder.empty()) a.felder = dialog.felder;
    return a;
}

std::vector<int> FakeBenutzer::waehle(const std::string& titel, const std::string& spalte,
                                      const std::vector<std::string>& eintraege, bool, int) {
    auswahlDialoge.push_back({titel, spalte, Symbol::Keins});
    auswahlEintraege.push_back(eintraege);
    return nimm(auswahlen, std::vector<int>{});
}

bool FakeBenutzer::info(const std::string& titel,
                        const std::vector<std::pair<std::string, std::string>>& felder) {
    infos.emplace_back(titel, felder);
    return nimm(infoAntworten, true);
}

void FakeBenutzer::zeigeText(const std::string&, const std::string& text) {
    texte.push_back(text);
}

void FakeBenutzer::fortschritt(const std::string& text, int, int) {
    fortschritte.push_back(text);
}

bool FakeBenutzer::unterbrechen() {
    return nimm(unterbrechungen, false);
}

bool FakeBenutzer::zwischenablage(const std::string& text) {
    ablage.push_back(text);
    return true;
}

}  // namespace dv::test
