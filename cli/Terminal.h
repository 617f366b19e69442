#pragma once
// The user-interaction interface on a terminal. Messages and questions go to
// standard error as "Caption: Text"; a question is followed by the answer taken,
// " -> Ja" or " -> Nein". With --ja every question is answered Yes; otherwise a
// question is asked when standard input is a terminal and answered No when it is not.

#include <cstdio>
#include <string>

#include "app/Benutzer.h"

namespace dv::cli {

class TerminalBenutzer final : public Benutzer {
  public:
    TerminalBenutzer(bool immerJa, std::FILE* aus = stdout, std::FILE* err = stderr);

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
    bool zwischenablage(const std::string& text) override;

    // Whether questions are put to a person (standard input is a terminal).
    bool interaktiv() const { return interaktiv_; }

  private:
    bool jaNein(const std::string& titel, const std::string& text);
    std::string liesZeile();

    bool immerJa_;
    bool interaktiv_;
    std::FILE* aus_;
    std::FILE* err_;
};

// A catalogue text for the terminal: UTF-8, and "\r\n", "\r" as line breaks.
std::string fuerTerminal(const std::string& cp1252);

}  // namespace dv::cli
