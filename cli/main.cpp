// dorvano-cli: the catalogue's jobs without a screen, on the same services as the
// desktop program. Every command first prepares folders and tables and checks the
// data version; exit codes: 0 done, 1 failed, 2 wrong usage, 3 version mismatch.
#include <cstdio>
#include <optional>
#include <string>

#include "app/Programm.h"
#include "app/Zeichensatz.h"
#include "cli/Kontext.h"

using namespace dv;
using namespace dv::cli;

namespace {

int nutzungsfehler(const CLI::ParseError& e) {
    const char* grund = "Falscher Aufruf.";
    if (dynamic_cast<const CLI::ExtrasError*>(&e))
        grund = "Falscher Aufruf: unbekannter Befehl oder überzähliges Argument.";
    else if (dynamic_cast<const CLI::RequiredError*>(&e))
        grund = "Falscher Aufruf: ein Pflichtargument fehlt.";
    else if (dynamic_cast<const CLI::ArgumentMismatch*>(&e))
        grund = "Falscher Aufruf: falsche Anzahl von Argumenten.";
    else if (dynamic_cast<const CLI::ConversionError*>(&e) ||
             dynamic_cast<const CLI::ValidationError*>(&e))
        grund = "Falscher Aufruf: ungültiger Wert.";
    std::fprintf(stderr, "%s %s\n", cp1252NachUtf8(grund).c_str(),
                 cp1252NachUtf8("Hilfe mit: dorvano-cli --help").c_str());
    return kNutzung;
}

}  // namespace

int main(int argc, char** argv) {
    // Catalogue texts are 8-bit: an argument the code page cannot hold is refused.
    for (int i = 1; i < argc; ++i) {
        std::string text;
        if (!utf8NachCp1252(argv[i], text)) {
            std::fprintf(stderr, "%s%s\n", cp1252NachUtf8("Zeichen nicht darstellbar: ").c_str(),
                         argv[i]);
            return kNutzung;
        }
    }

    CLI::App wurzel(cp1252NachUtf8("DORVANO: der Katalog Ihrer Filmsammlung auf der Kommandozeile"),
                    "dorvano-cli");
    deutscheHilfe(wurzel);
    std::string basis;
    bool ja = false;
    std::optional<unsigned> trace;
    wurzel
        .add_option("--basis", basis,
                    cp1252NachUtf8("Programmordner (sonst DORVANO_BASIS, "
                                   "portabler Ordner oder XDG-Datenordner)"))
        ->type_name("ORDNER");
    wurzel.add_flag("--ja", ja, cp1252NachUtf8("Beantwortet jede Ja/Nein-Frage mit Ja"));
    wurzel.add_option("--trace", trace, cp1252NachUtf8("Trace-Maske für diesen Lauf (dezimal)"))
        ->type_name("MASKE");

    Register reg(wurzel);
    registriereBasis(reg);
    registriereKatalog(reg);
    registriereInterchange(reg);
    registriereDvd(reg);
    registriereSuche(reg);
    registriereTags(reg);
    registriereVormerk(reg);
    registriereAusgabe(reg);
    registriereWebimport(reg);

    try {
        wurzel.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return wurzel.exit(e);
    } catch (const CLI::CallForAllHelp& e) {
        return wurzel.exit(e);
    } catch (const CLI::ParseError& e) {
        return nutzungsfehler(e);
    }

    CLI::App* befehl = nullptr;
    const Handler* handler = reg.gewaehlt(&befehl);
    if (!handler) {
        std::fputs(wurzel.help().c_str(), stderr);
        return kNutzung;
    }

    TerminalBenutzer benutzer(ja);
    Einstellungen einstellungen;
    CApplikation app(benutzer, einstellungen);
    Kontext kontext{app, benutzer};
    const std::string ordner = bestimmeProgrammOrdner(basis, programmDateiOrdner());
    if (const Ergebnis start = app.starte(ordner, trace); !start.ok())
        return kontext.ergebnis(start);
    if (reg.brauchtVersionspruefung(befehl) && !app.pruefeDatenversion()) return kVersion;
    return (*handler)(kontext);
}
