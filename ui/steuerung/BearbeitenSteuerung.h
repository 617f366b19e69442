#pragma once
// "&Objekte": creating and editing boxes, DVDs and films, a film's content,
// comment and persons, and the lookup and person catalogues. Each slot opens
// its dialog with open(); the dialog's OK stores through the services (a
// refusal keeps the dialog open) and the tree follows their change notices. A
// new object becomes the tree's current node.

#include "ui/steuerung/Steuerung.h"

namespace dv {
struct BoxWerte;
struct DvdWerte;
struct FilmWerte;
}  // namespace dv

namespace dv::ui {

class BearbeitenSteuerung : public Steuerung {
    Q_OBJECT
  public:
    explicit BearbeitenSteuerung(Fensterteile& teile) : Steuerung(teile) {}
    void verbinde(Aktionen& aktionen) override;

  public slots:
    void boxNeu();
    void boxBearbeiten();
    // A new DVD in the current box (or in the box of the current DVD).
    void dvdNeu();
    void dvdBearbeiten();
    // A new film on the current DVD (or on the DVD of the current film).
    void filmNeu();
    void filmBearbeiten();
    // "Be&arbeiten..." and Enter: the dialog of the current node's object.
    void bearbeiten();
    // The film dialog on its page "Inhalt", "Kommentar" or "Personen".
    void inhalt();
    void kommentar();
    void personenStruktur();

    // The lookup catalogues.
    void bildformate();
    void extras();
    void formate();
    void funktionen();
    void genres();
    void personen();
    void sprachen();
    void tonformate();
    void untertitel();
    void verpackungen();

  private:
    void oeffneBox(const BoxWerte& w);
    void oeffneDvd(long boxId, const DvdWerte& w);
    void oeffneFilm(long dvdId, const FilmWerte& w, int seite);
    void oeffneFilmSeite(int seite);
    void oeffneLookup(int typ, const QString& titel);
};

}  // namespace dv::ui
