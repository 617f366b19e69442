#pragma once
// What every command of dorvano-cli gets, and how command groups register.
//
// A command group is one .cpp with a function `void registriere<Gruppe>(Register&)`,
// called from main.cpp. It adds CLI11 subcommands and, for each, the handler that
// runs after the common start (folders, tables, data version check):
//
//   auto* c = reg.befehl(reg.wurzel(), "anzahl", "Zählt Boxen, DVDs und Filme");
//   reg.handler(c, [](Kontext& k) { ...; return kFertig; });
//
// Handlers return an exit code. Texts from arguments are UTF-8: take catalogue
// texts with katalogText(); print catalogue texts with k.zeile(). Paths stay UTF-8.

#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <string>

#include "app/CApplikation.h"
#include "cli/Terminal.h"

namespace dv::cli {

inline constexpr int kFertig = 0;      // done
inline constexpr int kFehlschlag = 1;  // the operation failed or was refused
inline constexpr int kNutzung = 2;     // wrong usage, bad number, unknown id
inline constexpr int kVersion = 3;     // data version mismatch

struct Kontext {
    CApplikation& app;
    TerminalBenutzer& benutzer;

    // One line of catalogue text (Windows-1252) on standard output, as UTF-8.
    void zeile(const std::string& cp1252) const;
    // A German message on standard error (catalogue encoding), returning the code.
    int fehler(int code, const std::string& cp1252) const;
    // The exit code of a service's answer, its reason printed: kFertig when done,
    // kNutzung for wrong input, kFehlschlag for a failure or a question answered No.
    int ergebnis(const Ergebnis& e) const;
    // As ergebnis(); when done, the id of what was made is printed.
    int neueId(const ErgebnisMit<long>& e) const;
    Dienste& dienste() const { return app.dienste(); }
};

using Handler = std::function<int(Kontext&)>;

class Register {
  public:
    explicit Register(CLI::App& wurzel) : wurzel_(wurzel) {}

    CLI::App* wurzel() { return &wurzel_; }
    // A subcommand of eltern with a German description and German help texts.
    CLI::App* befehl(CLI::App* eltern, const std::string& name, const std::string& beschreibung);
    void handler(CLI::App* befehl, Handler h) { handler_[befehl] = std::move(h); }
    // Commands that run without the data version check (they report it themselves).
    void ohneVersionspruefung(CLI::App* befehl) { ohnePruefung_[befehl] = true; }

    // The handler of the deepest parsed subcommand, or null.
    const Handler* gewaehlt(CLI::App** befehl = nullptr) const;
    bool brauchtVersionspruefung(CLI::App* befehl) const { return !ohnePruefung_.count(befehl); }

  private:
    CLI::App& wurzel_;
    std::map<CLI::App*, Handler> handler_;
    std::map<CLI::App*, bool> ohnePruefung_;
};

// German labels and help flag for a CLI11 app or subcommand.
void deutscheHilfe(CLI::App& app);

// An argument (UTF-8, already checked to be representable) as catalogue text.
std::string katalogText(const std::string& utf8);

// TYP: "box", "dvd", "film" or 1, 2, 3, case ignored; 0 when none of these.
int objektTyp(const std::string& text);
// A decimal number; false when the text is not one (or out of range).
bool zahl(const std::string& text, long& wert);

// The command groups.
void registriereBasis(Register& reg);
void registriereKatalog(Register& reg);
void registriereInterchange(Register& reg);
void registriereAusgabe(Register& reg);
void registriereWebimport(Register& reg);
void registriereDvd(Register& reg);
void registriereSuche(Register& reg);
void registriereTags(Register& reg);
void registriereVormerk(Register& reg);

}  // namespace dv::cli
