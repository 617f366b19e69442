// dorvano: the desktop program. One instance per user; the same start-up as the
// command-line program, then the version check and the main window.
#include <unistd.h>

#include <QApplication>
#include <QCommandLineParser>
#include <optional>
#include <thread>

#include "app/CApplikation.h"
#include "app/base/Zeichensatz.h"
#include "platform/Einzelinstanz.h"
#include "ui/CDorvanoDlg.h"
#include "ui/QtBenutzer.h"

using namespace dv;

namespace {

std::string programmDateiOrdner() {
    char pfad[4096];
    const ssize_t n = ::readlink("/proc/self/exe", pfad, sizeof pfad - 1);
    if (n <= 0) return std::string();
    std::string p(pfad, static_cast<std::size_t>(n));
    return p.substr(0, p.find_last_of('/') + 1);
}

}  // namespace

int main(int argc, char** argv) {
    // A second instance ends at once, before any window, without a message.
    Einzelinstanz instanz;
    if (!instanz.erste()) return 0;

    QApplication anwendung(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(alsQString("DORVANO: der Katalog Ihrer Filmsammlung"));
    parser.addHelpOption();
    QCommandLineOption basis(QStringLiteral("basis"), alsQString("Programmordner"),
                             QStringLiteral("ORDNER"));
    QCommandLineOption trace(QStringLiteral("trace"), alsQString("Trace-Maske (dezimal)"),
                             QStringLiteral("MASKE"));
    QCommandLineOption zuruecksetzen(QStringLiteral("fenster-zuruecksetzen"),
                                     alsQString("Löscht die gespeicherte Position des Hauptfensters"));
    parser.addOptions({basis, trace, zuruecksetzen});
    parser.process(anwendung);

    ui::QtBenutzer benutzer;
    Einstellungen einstellungen;
    CApplikation app(benutzer, einstellungen);
    std::optional<unsigned> maske;
    if (parser.isSet(trace)) maske = parser.value(trace).toUInt();
    const std::string ordner =
        bestimmeProgrammOrdner(parser.value(basis).toStdString(), programmDateiOrdner());
    if (!app.starte(ordner, maske)) {
        benutzer.meldung("Fehler...", "Der Programmordner \"" + ausQString(QString::fromStdString(ordner)) +
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
