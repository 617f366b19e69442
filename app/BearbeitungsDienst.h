#pragma once
// What the edit dialogs of boxes, DVDs and films need around the object
// service: storing a new or changed object in one go with what the user chose
// (a cover picture, a new packaging typed by name), the EAN checks of the box
// import made before anything is written, the cover file in a format box files
// carry, and a film stored as the catalogue expects it (its function list
// follows its persons, links to entries deleted meanwhile are dropped).
//
// Each store checks everything first and writes only when all checks passed; a
// refusal carries the German reason and leaves the catalogue as it was.

#include <cstdint>
#include <string>

#include "app/Ergebnis.h"
#include "app/Werte.h"

namespace dv {

class CApplikation;

// What happens to a box's cover when its dialog is confirmed.
struct CoverWahl {
    enum class Art { Bleibt, Neu, Entfernen };
    Art art = Art::Bleibt;
    std::string datei;  // the picture file chosen (Art::Neu), a path of the system
};

// One read of the disc in the default drive for the DVD dialog.
struct DiscLesung {
    std::string dateisystem;
    std::uint32_t sn = 0, bytesLow = 0, bytesHigh = 0;
    int rc = 0;              // the region field from the disc's header ...
    bool rcGelesen = false;  // ... when the header could be read
};

// What the DVD dialog shows beside a disc's stored identity.
struct GroessenTexte {
    std::string groesse;  // the size in its unit, "4.38 GB"
    std::string klasse;   // "DVD 5 oder DVD 10" / "DVD 9 oder DVD 18"
};

class BearbeitungsDienst {
  public:
    // app must outlive the service.
    explicit BearbeitungsDienst(CApplikation& app) : app_(app) {}

    // An EAN of 8, 12 or 13 digits whose last digit is not its check digit;
    // the correct check digit in richtig.
    static bool pruefzifferFalsch(const std::string& ean, int* richtig = nullptr);
    // Refuses an EAN that another box has, in the words of the box import:
    // "Eine Box mit dieser EAN [%s]\nexistiert bereits im System.\n{\"%s\"}".
    Ergebnis eanFrei(const BoxWerte& w);

    // A new box (w.id == 0: with one DVD and one film of its title) or the
    // changed box w.id, with its cover. A wrong check digit of a new or changed
    // EAN is asked about first (No gives Ergebnis::abgelehnt()).
    ErgebnisMit<NeueBox> speichereBox(const BoxWerte& w, const CoverWahl& cover);
    // The picture file as the box's cover "Cover/<id>.<ext>": BMP, JPEG and GIF
    // as they are, every other picture Qt reads converted to JPEG; the box's
    // cover of another extension is removed. Refused for a file that is no picture.
    Ergebnis speichereCover(long boxId, const std::string& datei);
    // Whether the file can become a cover (the reason when not).
    Ergebnis pruefeCover(const std::string& datei);

    // A new DVD as the last of boxId (w.id == 0) or the changed DVD w.id; its id.
    ErgebnisMit<long> speichereDvd(long boxId, const DvdWerte& w);
    static GroessenTexte groesse(std::uint32_t bytesLow, std::uint32_t bytesHigh);
    // Reads the disc in the default drive ("DvdRom"); a failed read has been
    // reported with the system's messages (the refusal carries no text).
    ErgebnisMit<DiscLesung> leseDisc();

    // A new film as the last of dvdId (w.id == 0) or the changed film w.id; its
    // id. Links to entries and persons that no longer exist are dropped, and the
    // function list becomes the distinct functions of its persons in order.
    ErgebnisMit<long> speichereFilm(long dvdId, const FilmWerte& w);
    // w as it will be stored (what speichereFilm writes).
    FilmWerte bereinigt(const FilmWerte& w);

  private:
    CApplikation& app_;
};

}  // namespace dv
