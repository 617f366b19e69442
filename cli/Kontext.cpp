#include "cli/Kontext.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "app/Zeichensatz.h"

namespace dv::cli {

void Kontext::zeile(const std::string& cp1252) const {
    std::fputs(cp1252NachUtf8(cp1252).c_str(), stdout);
    std::fputc('\n', stdout);
}

int Kontext::fehler(int code, const std::string& cp1252) const {
    std::fprintf(stderr, "%s\n", fuerTerminal(cp1252).c_str());
    return code;
}

int Kontext::neueId(const ErgebnisMit<long>& e) const {
    if (e.ok()) zeile(std::to_string(e.wert()));
    return ergebnis(e);
}

int Kontext::ergebnis(const Ergebnis& e) const {
    switch (e.art()) {
        case Fehlerart::Keiner:
            return kFertig;
        case Fehlerart::Abgelehnt:
            return kFehlschlag;
        case Fehlerart::Eingabe:
            return fehler(kNutzung, e.grund());
        case Fehlerart::Fehlschlag:
            break;
    }
    // Without a reason the message has been shown already.
    return e.grund().empty() ? kFehlschlag : fehler(kFehlschlag, e.grund());
}

void deutscheHilfe(CLI::App& app) {
    app.option_defaults()->group(cp1252NachUtf8("Optionen"));
    app.set_help_flag("-h,--help", cp1252NachUtf8("Zeigt diese Hilfe an und beendet das Programm"));
    auto f = app.get_formatter();
    f->label("Usage", "Aufruf");
    f->label("OPTIONS", "OPTIONEN");
    f->label("SUBCOMMAND", "BEFEHL");
    f->label("SUBCOMMANDS", "BEFEHLE");
    f->label("Positionals", "Argumente");
    f->label("REQUIRED", "Pflicht");
    f->label("Needs", "Braucht");
    f->label("Excludes", cp1252NachUtf8("Schließt aus"));
    f->label("Env", "Umgebung");
    f->label("TEXT", "TEXT");
}

CLI::App* Register::befehl(CLI::App* eltern, const std::string& name,
                           const std::string& beschreibung) {
    // One command per level: once it is chosen, a later word that names another
    // command (of this level or above) is a text, as in "tags setzen box 1 liste".
    eltern->require_subcommand(eltern->get_require_subcommand_min(), std::size_t{1});
    CLI::App* c = eltern->add_subcommand(name, cp1252NachUtf8(beschreibung));
    c->group("Befehle");
    deutscheHilfe(*c);
    return c;
}

const Handler* Register::gewaehlt(CLI::App** befehl) const {
    const CLI::App* app = &wurzel_;
    const Handler* h = nullptr;
    for (;;) {
        auto subs = app->get_subcommands();
        if (subs.empty()) break;
        app = subs.front();
        auto it = handler_.find(const_cast<CLI::App*>(app));
        if (it != handler_.end()) {
            h = &it->second;
            if (befehl) *befehl = it->first;
        }
    }
    return h;
}

std::string katalogText(const std::string& utf8) {
    std::string text;
    if (!utf8NachCp1252(utf8, text)) return std::string();
    return text;
}

int objektTyp(const std::string& text) {
    std::string t;
    for (char c : text) t += static_cast<char>((c >= 'A' && c <= 'Z') ? c + 32 : c);
    if (t == "box" || t == "1") return 1;
    if (t == "dvd" || t == "2") return 2;
    if (t == "film" || t == "3") return 3;
    return 0;
}

bool zahl(const std::string& text, long& wert) {
    if (text.empty()) return false;
    errno = 0;
    char* ende = nullptr;
    const long v = std::strtol(text.c_str(), &ende, 10);
    if (errno != 0 || !ende || *ende != '\0') return false;
    wert = v;
    return true;
}

}  // namespace dv::cli
