// dorvano: the desktop program. One instance per user; the same start-up as the
// command-line program, then the version check and the main window. Box files
// named on the command line are imported; a second start hands its files to the
// running window and ends.
#include <QApplication>
#include <QCommandLineParser>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>
#include <optional>
#include <thread>

#include "app/CApplikation.h"
#include "app/Programm.h"
#include "app/Zeichensatz.h"
#include "ui/CDorvanoDlg.h"
#include "ui/QtBenutzer.h"
#include "ui/Uebergabe.h"

using namespace dv;

namespace {

struct Optionen {
    QCommandLineOption basis{QStringLiteral("basis"), alsQString("Programmordner"),
                             QStringLiteral("ORDNER")};
    QCommandLineOption trace{QStringLiteral("trace"), alsQString("Trace-Maske (dezimal)"),
                             QStringLiteral("MASKE")};
    QCommandLineOption zuruecksetzen{
        QStringLiteral("fenster-zuruecksetzen"),
        alsQString("Löscht die gespeicherte Position des Hauptfensters")};
};

void richteEin(QCommandLineParser& parser, const Optionen& o) {
    parser.setApplicationDescription(alsQString("DORVANO: der Katalog Ihrer Filmsammlung"));
    parser.addHelpOption();
    parser.addOptions({o.basis, o.trace, o.zuruecksetzen});
    parser.addPositionalArgument(QStringLiteral("DATEI.box"),
                                 alsQString("Box-Dateien, die importiert werden"),
                                 QStringLiteral("[DATEI.box...]"));
}

}  // namespace

int main(int argc, char** argv) {
    // A second instance ends at once, before any window, without a message; the
    // box files it was started with go to the running window.
    Einzelinstanz instanz;
    if (!instanz.erste()) {
        QCoreApplication kern(argc, argv);
        QCommandLineParser parser;
        const Optionen o;
        richteEin(parser, o);
        parser.parse(kern.arguments());
        if (!parser.positionalArguments().isEmpty())
            ui::uebergebe(ui::uebergabeName(QString::fromStdString(instanz.pfad())),
                          parser.positionalArguments());
        return 0;
    }
    // Searches and exports build the whole collection: several hundred thousand
    // small elements.
    bereiteHeapVor(std::size_t{128} << 20);

    QApplication anwendung(argc, argv);
    // Qt's own texts (file dialogs, key names in the menus, edit fields' context
    // menus) in German; without the translations installed they stay English.
    QTranslator qtTexte;
    if (qtTexte.load(QLocale(QLocale::German, QLocale::Germany), QStringLiteral("qtbase"),
                     QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&qtTexte);
    QCommandLineParser parser;
    const Optionen o;
    richteEin(parser, o);
    parser.process(anwendung);
    const QCommandLineOption& basis = o.basis;
    const QCommandLineOption& trace = o.trace;
    const QCommandLineOption& zuruecksetzen = o.zuruecksetzen;

    ui::QtBenutzer benutzer;
    Einstellungen einstellungen;
    CApplikation app(benutzer, einstellungen);
    benutzer.setzeApp(app);
    std::optional<unsigned> maske;
    if (parser.isSet(trace)) maske = parser.value(trace).toUInt();
    const std::string ordner =
        bestimmeProgrammOrdner(parser.value(basis).toStdString(), programmDateiOrdner());
    if (const Ergebnis start = app.starte(ordner, maske); !start.ok()) {
        benutzer.meldung("Fehler...", start.grund(), Symbol::Fehler);
        return 1;
    }
    if (parser.isSet(zuruecksetzen)) app.setzeFensterpositionZurueck();
    std::this_thread::yield();  // the short pause before the window takes over
    if (!app.pruefeDatenversion()) return 1;

    ui::CDorvanoDlg fenster(app);
    benutzer.setzeEltern(&fenster);
    fenster.empfangeUebergaben(ui::uebergabeName(QString::fromStdString(instanz.pfad())));
    fenster.show();
    const QStringList dateien = parser.positionalArguments();
    if (!dateien.isEmpty())
        QTimer::singleShot(0, &fenster, [&fenster, dateien] { fenster.importiere(dateien); });
    return anwendung.exec();
}
