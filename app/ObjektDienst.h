#pragma once
// Boxes, DVDs and films as a user edits them: load one with all its lists and
// side texts, store it back, create, delete with the whole cascade, move within
// its owner, copy under another owner, and the cover of a box.
//
// Every write is checked whole before anything is written (ids exist, texts fit
// their fields, numbers their ranges) and then runs as one operation through the
// Schreibstelle; on success it announces its change notice. A refusal carries
// the German reason; an input error (unknown id, text too long) changes nothing.

#include <string>

#include "app/Ergebnis.h"
#include "app/Werte.h"

namespace dv {

class CApplikation;

class ObjektDienst {
  public:
    // app must outlive the service.
    explicit ObjektDienst(CApplikation& app) : app_(app) {}

    ErgebnisMit<BoxWerte> ladeBox(long id);
    ErgebnisMit<DvdWerte> ladeDvd(long id);
    ErgebnisMit<FilmWerte> ladeFilm(long id);

    // Store the fields and lists of an existing object (w.id). The lists replace
    // the stored ones in the order given; a film's texts replace its side files
    // (an empty text removes the file). An EAN that another box has is refused.
    Ergebnis speichereBox(const BoxWerte& w);
    Ergebnis speichereDvd(const DvdWerte& w);
    Ergebnis speichereFilm(const FilmWerte& w);

    // A new box with one DVD and one film, both carrying the box's title, as the
    // main window makes it (w.id is ignored). Announces the box as new.
    ErgebnisMit<NeueBox> neueBox(const BoxWerte& w);
    // A DVD as the last of the box, a film as the last of the DVD; the new id.
    ErgebnisMit<long> neueDvd(long boxId, const DvdWerte& w);
    ErgebnisMit<long> neuerFilm(long dvdId, const FilmWerte& w);

    // The object with the whole cascade (links, watch-list entries, tags, side
    // texts, a box's cover). loescheMitFrage asks first ("Box \"%s\" löschen?" ...,
    // or the given question) under the application's title; No gives
    // Ergebnis::abgelehnt().
    Ergebnis loesche(int typ, long id);
    Ergebnis loescheMitFrage(int typ, long id, const std::string& frage = std::string());
    // The main window's delete question for the object.
    std::string loeschFrage(int typ, long id);

    // A DVD within its box, a film within its DVD, one place up or down.
    Ergebnis verschiebe(int typ, long id, bool hoch);
    // A copy of a DVD into the box ziel, or of a film onto the DVD ziel, with all
    // its links, as the last one; the new id.
    ErgebnisMit<long> kopiere(int typ, long id, long ziel);

    // The cover of a box: the file datei is copied into the cover folder as
    // "<id>.<extension>", replacing the box's earlier cover; entferneCover
    // removes it.
    Ergebnis setzeCover(long boxId, const std::string& datei);
    Ergebnis entferneCover(long boxId);

  private:
    CApplikation& app_;
};

}  // namespace dv
