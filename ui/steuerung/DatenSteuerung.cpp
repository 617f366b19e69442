#include "ui/steuerung/DatenSteuerung.h"

#include <QWidget>

#include "app/CApplikation.h"
#include "ui/aktionen/Aktionen.h"

namespace dv::ui {

void DatenSteuerung::verbinde(Aktionen& a) {
    using S = DatenSteuerung;
    a.verbinde(kCmdBoxTitelFinden, this, &S::boxTitelFinden);
    a.verbinde(kCmdEanFinden, this, &S::eanFinden);
    a.verbinde(kCmdImportieren, this, &S::importieren);
    a.verbinde(kCmdExportieren, this, &S::exportieren);
    a.verbinde(kCmdAlleExportieren, this, &S::alleExportieren);
    a.verbinde(kCmdAnzahl, this, &S::anzahl);
    a.verbinde(kCmdBeenden, this, &S::beenden);
}

void DatenSteuerung::importiereDateien(const QStringList&) {
    nochNichtVerfuegbar("Importieren");
}

void DatenSteuerung::boxTitelFinden() {
    nochNichtVerfuegbar("Box-Titel finden");
}

void DatenSteuerung::eanFinden() {
    nochNichtVerfuegbar("EAN finden");
}

void DatenSteuerung::importieren() {
    nochNichtVerfuegbar("Importieren");
}

void DatenSteuerung::exportieren() {
    nochNichtVerfuegbar("Exportieren");
}

void DatenSteuerung::alleExportieren() {
    nochNichtVerfuegbar("Alle exportieren");
}

void DatenSteuerung::anzahl() {
    const Anzahl n = app().dienste().katalog().anzahl();
    hinweis("Boxen: " + std::to_string(n.boxen) + "\nDvds: " + std::to_string(n.dvds) +
            "\nFilme: " + std::to_string(n.filme));
}

void DatenSteuerung::beenden() {
    fenster()->close();
}

}  // namespace dv::ui
