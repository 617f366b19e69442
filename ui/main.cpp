// dorvano: the desktop program. One instance per user; the same start-up as the
// command-line program, then the version check and the main window.
#include <QApplication>
#include <QCommandLineParser>
#include <optional>
#include <thread>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "platform/Dateisystem.h"
#include "platform/Einzelinstanz.h"
#include "platform/Speicher.h"
#include "ui/CDorvanoDlg.h"
#include "ui/QtBenutzer.h"

using namespace dv;

int main(int argc, char** argv) {
    // A second instance ends at once, before any window, without a message.
    Einzelinstanz instanz;
    if (!instanz.erste()) return 0;
    // Searches and exports build the whole collection: several hundred thousand
    // small elements.
    bereiteHeapVor(std::size_t{128} << 20);

    QApplication anwendung(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(alsQString("DORVANO: der Katalog Ihrer Filmsammlung"));
    parser.addHelpOption();
    QCommandLineOption basis(QStringLiteral("basis"), alsQString("Programmordner"),
                             QStringLiteral("ORDNER"));
    QCommandLineOption trace(QStringLiteral("trace"), alsQString("Trace-Maske (dezimal)"),
                             QStringLiteral("MASKE"));
    QCommandLineOption zuruecksetzen(
        QStringLiteral("fenster-zuruecksetzen"),
        alsQString("Löscht die gespeicherte Position des Hauptfensters"));
    parser.addOptions({basis, trace, zuruecksetzen});
    parser.process(anwendung);

    ui::QtBenutzer benutzer;
    Einstellungen einstellungen;
    CApplikation app(benutzer, einstellungen);
    benutzer.setzeApp(app);
    std::optional<unsigned> maske;
    if (parser.isSet(trace)) maske = parser.value(trace).toUInt();
    const std::string ordner =
        bestimmeProgrammOrdner(parser.value(basis).toStdString(), programmDateiOrdner());
    if (!app.starte(ordner, maske)) {
        benutzer.meldung("Fehler...",
                         "Der Programmordner \"" + ausQString(QString::fromStdString(ordner)) +
                             "\" kann nicht angelegt werden.",
                         Symbol::Fehler);
        return 1;
    }
    if (parser.isSet(zuruecksetzen)) app.setzeFensterpositionZurueck();
    std::this_thread::yield();  // the short pause before the window takes over
    if (!app.pruefeDatenversion()) return 1;

    ui::CDorvanoDlg fenster(app);
    benutzer.setzeEltern(&fenster);
    fenster.show();
    return anwendung.exec();
}
