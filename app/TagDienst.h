#pragma once
// Tags of boxes, DVDs and films (one tag per line in the object's tag file), the
// tag search, and stamp tags: prepared tag texts offered per kind of object.

#include <string>
#include <vector>

#include "app/Ergebnis.h"
#include "app/Werte.h"

namespace dv {

class CApplikation;

class TagDienst {
  public:
    // app must outlive the service.
    explicit TagDienst(CApplikation& app) : app_(app) {}

    std::vector<std::string> lese(int typ, long id);
    bool hat(int typ, long id);
    // Replaces the object's tags (none removes its tag file). A tag holding a
    // line break is refused: it would come back as two.
    Ergebnis setze(int typ, long id, const std::vector<std::string>& tags);
    // "Alle Tags entfernen" of a box, its DVDs and their films, after the question.
    Ergebnis entferneAlleDerBox(long boxId);
    // Every tag containing text (ASCII letters without regard to case), of one
    // kind of object or of all (typ 0), with the objects' titles; with
    // fortschritt, one progress step per tag file through Benutzer.
    std::vector<TagFund> suche(const std::string& text, int typ, bool fortschritt = false);
    // "Gefundene Tags: N"; the hits as clipboard text.
    static std::string status(std::size_t anzahl);
    static std::string alsText(const std::vector<TagFund>& funde);

    // ---- Stamp tags.
    std::vector<StempelWerte> stempel();
    std::vector<StempelWerte> stempelFuer(int objektTyp);
    Ergebnis pruefeStempel(long id);
    ErgebnisMit<long> neuerStempel(int maske, const std::string& text);
    Ergebnis aendereStempel(const StempelWerte& s);
    Ergebnis loescheStempel(long id);
    // Adds the stamp's text to the object's tags (once); refused when its mask
    // does not offer it for that kind of object.
    Ergebnis wendeStempelAn(long stempelId, int typ, long id);
    // The stamp-tag file (after the overwrite question), and reading one.
    Ergebnis exportiereStempel(const std::string& datei);
    Ergebnis importiereStempel(const std::string& datei);
    // The mask as letters ("BF") and back (0 when no letter names a kind).
    static std::string maskeText(int maske);
    static int maskeAusText(const std::string& text);

  private:
    Ergebnis pruefeStempelWerte(int maske, const std::string& text);

    CApplikation& app_;
};

}  // namespace dv
