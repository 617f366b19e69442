#include "cli/Terminal.h"

#include <unistd.h>

#include <cstdlib>

#include "app/Zeichensatz.h"

namespace dv::cli {

std::string fuerTerminal(const std::string& cp1252) {
    std::string t;
    t.reserve(cp1252.size());
    for (std::size_t i = 0; i < cp1252.size(); ++i) {
        if (cp1252[i] == '\r') {
            t += '\n';
            if (i + 1 < cp1252.size() && cp1252[i + 1] == '\n') ++i;
        } else {
            t += cp1252[i];
        }
    }
    return cp1252NachUtf8(t);
}

TerminalBenutzer::TerminalBenutzer(bool immerJa, std::FILE* aus, std::FILE* err)
    : immerJa_(immerJa), interaktiv_(::isatty(STDIN_FILENO) == 1), aus_(aus), err_(err) {}

std::string TerminalBenutzer::liesZeile() {
    std::string zeile;
    int c;
    while ((c = std::fgetc(stdin)) != EOF && c != '\n') zeile += static_cast<char>(c);
    std::string text;
    return utf8NachCp1252(zeile, text) ? text : std::string();
}

bool TerminalBenutzer::jaNein(const std::string& titel, const std::string& text) {
    std::fprintf(err_, "%s: %s", fuerTerminal(titel).c_str(), fuerTerminal(text).c_str());
    bool ja = false;
    if (immerJa_) {
        ja = true;
    } else if (interaktiv_) {
        std::fputs(" [j/n] ", err_);
        std::fflush(err_);
        const std::string antwort = liesZeile();
        ja = !antwort.empty() && (antwort[0] == 'j' || antwort[0] == 'J');
    }
    std::fputs(ja ? " -> Ja\n" : " -> Nein\n", err_);
    std::fflush(err_);
    return ja;
}

bool TerminalBenutzer::frage(const std::string& titel, const std::string& text) {
    return jaNein(titel, text);
}

void TerminalBenutzer::meldung(const std::string& titel, const std::string& text, Symbol) {
    std::fprintf(err_, "%s: %s\n", fuerTerminal(titel).c_str(), fuerTerminal(text).c_str());
    std::fflush(err_);
}

ObjektAntwort TerminalBenutzer::objektBestaetigen(const ObjektDialog& d) {
    ObjektAntwort a;
    a.felder = d.felder;
    std::string felder;
    for (std::size_t i = 0; i < d.felder.size(); ++i) {
        if (i > 0) felder += ", ";
        if (i < d.feldNamen.size()) felder += d.feldNamen[i] + ": ";
        felder += d.felder[i];
    }
    std::fprintf(err_, "%s: %s %s <%s>\n", fuerTerminal(d.titel).c_str(),
                 fuerTerminal(d.zeile).c_str(), fuerTerminal(d.typ).c_str(),
                 fuerTerminal(felder).c_str());
    if (immerJa_ || !interaktiv_) {
        a.taste = immerJa_ ? ObjektTaste::OK : ObjektTaste::Letzte;
        std::fprintf(err_, " -> %s\n", immerJa_ ? "OK" : fuerTerminal(d.letzteTaste).c_str());
        return a;
    }
    const bool normal = d.modus == ObjektModus::Normal;
    std::fprintf(
        err_, "[o] OK, [a] Alle OK, [n] Nicht, [b] %s%s%s: ", fuerTerminal(d.letzteTaste).c_str(),
        normal ? ", [e] Edit" : "", normal && d.auswahlMoeglich ? ", [u] Auswahl" : "");
    std::fflush(err_);
    const std::string t = liesZeile();
    const char c = t.empty() ? 'b' : t[0];
    if (c == 'o')
        a.taste = ObjektTaste::OK;
    else if (c == 'a')
        a.taste = ObjektTaste::AlleOK;
    else if (c == 'n')
        a.taste = ObjektTaste::Nicht;
    else if (c == 'e' && normal)
        a.taste = ObjektTaste::Edit;
    else if (c == 'u' && normal && d.auswahlMoeglich)
        a.taste = ObjektTaste::Auswahl;
    else
        a.taste = ObjektTaste::Letzte;
    if (d.modus == ObjektModus::Bearbeiten && a.taste == ObjektTaste::OK) {
        for (std::size_t i = 0; i < a.felder.size(); ++i) {
            std::fprintf(err_, "%s: ",
                         i < d.feldNamen.size() ? fuerTerminal(d.feldNamen[i]).c_str() : "Name");
            std::fflush(err_);
            a.felder[i] = liesZeile();
        }
    }
    if (d.modus == ObjektModus::Auswahl && a.taste == ObjektTaste::OK) {
        for (std::size_t i = 0; i < d.liste.size(); ++i)
            std::fprintf(err_, "%zu\t%s\n", i + 1, fuerTerminal(d.liste[i]).c_str());
        std::fputs("Nummer: ", err_);
        std::fflush(err_);
        a.gewaehlt = std::atoi(liesZeile().c_str()) - 1;
    }
    return a;
}

std::vector<int> TerminalBenutzer::waehle(const std::string& titel, const std::string& spalte,
                                          const std::vector<std::string>& eintraege, bool mehrfach,
                                          int vorauswahl) {
    std::fprintf(err_, "%s: %s\n", fuerTerminal(titel).c_str(), fuerTerminal(spalte).c_str());
    for (std::size_t i = 0; i < eintraege.size(); ++i)
        std::fprintf(err_, "%zu\t%s\n", i + 1, fuerTerminal(eintraege[i]).c_str());
    if (!interaktiv_ || immerJa_) {
        if (vorauswahl >= 0) return {vorauswahl};
        return {};
    }
    std::fputs(mehrfach ? "Nummern (mit Komma getrennt): " : "Nummer: ", err_);
    std::fflush(err_);
    std::vector<int> gewaehlt;
    const std::string zeile = liesZeile();
    const char* p = zeile.c_str();
    while (*p) {
        char* ende = nullptr;
        const long n = std::strtol(p, &ende, 10);
        if (ende == p) {
            ++p;
            continue;
        }
        if (n >= 1 && n <= static_cast<long>(eintraege.size()))
            gewaehlt.push_back(static_cast<int>(n - 1));
        p = ende;
        if (!mehrfach) break;
    }
    return gewaehlt;
}

bool TerminalBenutzer::info(const std::string& titel,
                            const std::vector<std::pair<std::string, std::string>>& felder) {
    std::string text;
    for (const auto& [name, wert] : felder) text += "\n" + name + " " + wert;
    return jaNein(titel, text);
}

void TerminalBenutzer::zeigeText(const std::string&, const std::string& text) {
    std::fputs(fuerTerminal(text).c_str(), aus_);
    if (!text.empty() && text.back() != '\n') std::fputc('\n', aus_);
    std::fflush(aus_);
}

void TerminalBenutzer::fortschritt(const std::string& text, int, int) {
    std::fprintf(aus_, "%s\n", fuerTerminal(text).c_str());
}

bool TerminalBenutzer::zwischenablage(const std::string& text) {
    zeigeText("", text);
    return true;
}

}  // namespace dv::cli
