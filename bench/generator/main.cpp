// dorvano-generator: writes a synthetic collection for trying out and measuring
// the program. Developer tool; texts are German like the rest of the program.

#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <cstdio>

#include "base/Zeichensatz.h"
#include "bench/generator/Cover.h"
#include "bench/generator/Generator.h"

int main(int argc, char** argv) {
    using dv::cp1252NachUtf8;
    dv::generator::Groessen g;
    std::string basis;
    CLI::App app(cp1252NachUtf8("Erzeugt eine synthetische Sammlung (Boxen, DVDs, Filme mit allen "
                                "Verknüpfungen) in einem Programmordner."),
                 "dorvano-generator");
    app.option_defaults()->group("Optionen");
    app.set_help_flag("-h,--help", "Zeigt diese Hilfe an und beendet das Programm");
    app.get_formatter()->label("Usage", "Aufruf");
    app.get_formatter()->label("OPTIONS", "OPTIONEN");
    app.get_formatter()->label("REQUIRED", "Pflicht");
    app.add_option("--basis", basis, "Programmordner (darf noch keine Sammlung enthalten)")
        ->required()
        ->type_name("ORDNER");
    app.add_option("--boxen", g.boxen, "Anzahl der Boxen")->capture_default_str();
    app.add_option("--dvds", g.dvds, "Anzahl der DVDs (mindestens eine je Box)")
        ->capture_default_str();
    app.add_option("--filme", g.filme, "Anzahl der Filme (mindestens einer je DVD)")
        ->capture_default_str();
    app.add_option("--personen", g.personen, "Anzahl der Personen")->capture_default_str();
    app.add_option("--genres", g.genres, "Anzahl der Genres")->capture_default_str();
    app.add_option("--bildformate", g.bildformate, "Anzahl der Bildformate")->capture_default_str();
    app.add_option("--texte", g.texte, cp1252NachUtf8("Filme mit Inhalts- und Kommentartext"))
        ->capture_default_str();
    app.add_option("--saat", g.saat,
                   cp1252NachUtf8("Startwert des Zufalls (gleiche Saat, gleiche "
                                  "Sammlung)"))
        ->capture_default_str();
    bool cover = false;
    app.add_flag("--cover", cover,
                 cp1252NachUtf8("Malt für jede Box ein Cover (Cover/<ID>.jpg) mit ihrem Titel"));
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::ParseError&) {
        std::fprintf(stderr, "%s\n",
                     cp1252NachUtf8("Falscher Aufruf. Hilfe mit: "
                                    "dorvano-generator --help")
                         .c_str());
        return 2;
    }
    dv::generator::Ergebnis e;
    std::string fehler;
    if (!dv::generator::erzeugeSammlung(basis, g, &e, &fehler)) {
        std::fprintf(stderr, "%s\n", cp1252NachUtf8(fehler).c_str());
        return 1;
    }
    long covers = 0;
    if (cover) {
        // The covers need Qt's fonts, not a screen.
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        QGuiApplication qt(argc, argv);
        if (!dv::generator::maleCover(basis, &covers, &fehler)) {
            std::fprintf(stderr, "%s\n", cp1252NachUtf8(fehler).c_str());
            return 1;
        }
    }
    std::printf(
        "Boxen: %ld\nDvds: %ld\nFilme: %ld\nTitel: %ld\nPersonen: %ld\n"
        "Film-Personen: %ld\nAlias: %ld\nCover: %ld\n",
        e.boxen, e.dvds, e.filme, e.titel, e.personen, e.filmPersonen, e.alias, covers);
    return 0;
}
