#pragma once
// What the box file writer and the XML export read beside the object lists: the
// names of the lookups that elements carry only by id (packaging, disc format,
// a person's function), the further titles of films, the side texts and tags,
// and the cover file of a box.
//
// Each table is read at most once per ExportQuelle, on first use, so one object
// serves a whole export run. For the export of a single object, merkeFilme()
// limits the titles kept to that object's films; for the whole collection,
// fuerSammlung() also lists the cover, tag and side-text folders once, so that
// no file is opened for an object that has none.

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/Ordner.h"
#include "domain/Datenbank.h"

namespace dv {

// The cover file of a box: "<id>.<extension>" in the cover folder. Of several,
// ".bmp", ".jpg", ".gif" (any letter case) come first, in that order, then any
// other extension by name. Empty when the box has none.
std::string findeCover(Dateisystem& fs, const std::string& coverOrdner, long boxId);
// The extension of a path ("jpg" of "/x/12.jpg"); empty when it has none.
std::string dateiEndung(const std::string& pfad);

class ExportQuelle {
  public:
    ExportQuelle(Datenbank& db, const Ordner& ordner);
    ExportQuelle(const ExportQuelle&) = delete;
    ExportQuelle& operator=(const ExportQuelle&) = delete;

    // Keep only the titles of the films below these objects (call before the
    // first titel()); without it every film's titles are kept.
    void merkeFilme(const BoxElement* boxen);
    void merkeFilme(const DvdElement* dvds);
    void merkeFilm(long filmId) { gemerkt_.insert(filmId); }
    // Takes the title rows of films (by film id) that someone has read already.
    void uebernimmTitel(std::unordered_map<long, std::vector<Zeile4>>&& titel);
    // Whole-collection mode: list the folders once (see above).
    void fuerSammlung();

    // Name of a packaging (kTypVerpackung), disc format (kTypFormat) or function
    // (kTypFunktion) by id; empty when there is none.
    const std::string& lookupName(int typ, long id);
    // The titles of a film by kind; the main title is the film element's own.
    FilmTitel titel(const FilmElement& film);
    std::string inhalt(long filmId);
    std::string kommentar(long filmId);
    std::vector<std::string> tags(int objektTyp, long id);
    std::string cover(long boxId);

    Datenbank& db() { return db_; }

  private:
    void ladeTitel();
    std::unordered_set<std::string>* verzeichnis(const std::string& ordner);

    Datenbank& db_;
    const Ordner& ordner_;
    std::unordered_map<int, std::vector<std::string>> namen_;
    bool titelGeladen_ = false;
    std::unordered_set<long> gemerkt_;
    std::unordered_map<long, std::vector<Zeile4>> titel_;
    bool sammlung_ = false;
    // Folder listings in whole-collection mode: the names present.
    std::unordered_map<std::string, std::unordered_set<std::string>> listen_;
    std::unordered_map<long, std::string> cover_;
};

}  // namespace dv
