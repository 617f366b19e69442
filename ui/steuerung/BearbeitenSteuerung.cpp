#include "ui/steuerung/BearbeitenSteuerung.h"

#include "ui/aktionen/Aktionen.h"

namespace dv::ui {

void BearbeitenSteuerung::verbinde(Aktionen& a) {
    using S = BearbeitenSteuerung;
    a.verbinde(kCmdBoxNeu, this, &S::boxNeu);
    a.verbinde(kCmdBoxBearbeiten, this, &S::boxBearbeiten);
    a.verbinde(kCmdDvdNeu, this, &S::dvdNeu);
    a.verbinde(kCmdBoxNeueDvd, this, &S::dvdNeu);
    a.verbinde(kCmdDvdBearbeiten, this, &S::dvdBearbeiten);
    a.verbinde(kCmdFilmNeu, this, &S::filmNeu);
    a.verbinde(kCmdDvdNeuerFilm, this, &S::filmNeu);
    a.verbinde(kCmdFilmBearbeiten, this, &S::filmBearbeiten);
    a.verbinde(kCmdBearbeiten, this, &S::bearbeiten);
    a.verbinde(kCmdFilmInhalt, this, &S::inhalt);
    a.verbinde(kCmdFilmKommentar, this, &S::kommentar);
    a.verbinde(kCmdFilmPersonenStruktur, this, &S::personenStruktur);
    a.verbinde(kCmdBildformate, this, &S::bildformate);
    a.verbinde(kCmdExtras, this, &S::extras);
    a.verbinde(kCmdFormate, this, &S::formate);
    a.verbinde(kCmdFunktion, this, &S::funktionen);
    a.verbinde(kCmdGenre, this, &S::genres);
    a.verbinde(kCmdPersonen, this, &S::personen);
    a.verbinde(kCmdSprachen, this, &S::sprachen);
    a.verbinde(kCmdTonformate, this, &S::tonformate);
    a.verbinde(kCmdUntertitel, this, &S::untertitel);
    a.verbinde(kCmdVerpackung, this, &S::verpackungen);
}

void BearbeitenSteuerung::bearbeiten() {
    switch (auswahl().objektTyp()) {
        case 1:
            boxBearbeiten();
            break;
        case 2:
            dvdBearbeiten();
            break;
        case 3:
            filmBearbeiten();
            break;
        default:
            break;
    }
}

// The edit dialogs plug in here.
void BearbeitenSteuerung::boxNeu() {
    nochNichtVerfuegbar("Box: Neu");
}
void BearbeitenSteuerung::boxBearbeiten() {
    nochNichtVerfuegbar("Box: Bearbeiten");
}
void BearbeitenSteuerung::dvdNeu() {
    nochNichtVerfuegbar("DVD: Neu");
}
void BearbeitenSteuerung::dvdBearbeiten() {
    nochNichtVerfuegbar("DVD: Bearbeiten");
}
void BearbeitenSteuerung::filmNeu() {
    nochNichtVerfuegbar("Film: Neu");
}
void BearbeitenSteuerung::filmBearbeiten() {
    nochNichtVerfuegbar("Film: Bearbeiten");
}
void BearbeitenSteuerung::inhalt() {
    nochNichtVerfuegbar("Inhalt");
}
void BearbeitenSteuerung::kommentar() {
    nochNichtVerfuegbar("Kommentar");
}
void BearbeitenSteuerung::personenStruktur() {
    nochNichtVerfuegbar("Personen-Struktur");
}
void BearbeitenSteuerung::bildformate() {
    nochNichtVerfuegbar("Bildformate");
}
void BearbeitenSteuerung::extras() {
    nochNichtVerfuegbar("Extras");
}
void BearbeitenSteuerung::formate() {
    nochNichtVerfuegbar("Formate");
}
void BearbeitenSteuerung::funktionen() {
    nochNichtVerfuegbar("Funktion");
}
void BearbeitenSteuerung::genres() {
    nochNichtVerfuegbar("Genre");
}
void BearbeitenSteuerung::personen() {
    nochNichtVerfuegbar("Personen");
}
void BearbeitenSteuerung::sprachen() {
    nochNichtVerfuegbar("Sprachen");
}
void BearbeitenSteuerung::tonformate() {
    nochNichtVerfuegbar("Tonformate");
}
void BearbeitenSteuerung::untertitel() {
    nochNichtVerfuegbar("Untertitel");
}
void BearbeitenSteuerung::verpackungen() {
    nochNichtVerfuegbar("Verpackung");
}

}  // namespace dv::ui
