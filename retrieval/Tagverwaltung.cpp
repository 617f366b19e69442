#include "retrieval/Tagverwaltung.h"

#include <algorithm>
#include <cstdio>

#include "domain/Tags.h"
#include "storage/Muster.h"

namespace dv {

std::vector<std::string> Tagverwaltung::lese(int typ, long id) {
    return leseTags(db_.fs(), ordner(), typ, id);
}

bool Tagverwaltung::schreibe(int typ, long id, const std::vector<std::string>& tags) {
    return schreibeTags(db_.fs(), ordner(), typ, id, tags);
}

bool Tagverwaltung::hat(int typ, long id) {
    return hatTags(db_.fs(), ordner(), typ, id);
}

bool Tagverwaltung::fuegeHinzu(int typ, long id, const std::string& tag) {
    std::vector<std::string> tags = lese(typ, id);
    if (std::find(tags.begin(), tags.end(), tag) != tags.end()) return true;
    tags.push_back(tag);
    return schreibe(typ, id, tags);
}

bool Tagverwaltung::entferneAlleDerBox(long boxId) {
    if (!benutzer_.frage(
            "Alle Tags entfernen",
            "Sollen alle Tags dieser Box, ihrer DVDs und ihrer Filme entfernt werden?"))
        return false;
    auto v = db_.vorgang();
    if (!v.offen()) return false;
    Dateisystem& fs = db_.fs();
    loescheTags(fs, ordner(), kObjektBox, boxId);
    DvdListe dvds = db_.getDvdListe(boxId);
    for (const DvdElement* d = dvds.get(); d; d = d->pNext) {
        loescheTags(fs, ordner(), kObjektDvd, d->Id);
        FilmListe filme = db_.getFilmListe(d->Id);
        for (const FilmElement* f = filme.get(); f; f = f->pNext)
            loescheTags(fs, ordner(), kObjektFilm, f->Id);
    }
    return v.abschliessen();
}

std::vector<TagTreffer> Tagverwaltung::suche(std::string_view text, int typ,
                                             const std::function<void(int, int)>& fortschritt) {
    std::vector<TagTreffer> treffer;
    if (text.empty()) return treffer;
    char muster[32];
    if (typ >= kObjektBox && typ <= kObjektFilm)
        std::snprintf(muster, sizeof muster, "%d_*.%s", typ, kTagEndung);
    else
        std::snprintf(muster, sizeof muster, "*.%s", kTagEndung);
    const Suchmuster textMuster("*" + std::string(text) + "*", false);

    struct TagDatei {
        int typ;
        long id;
    };
    std::vector<TagDatei> dateien;
    for (const OrdnerEintrag& e : db_.fs().liste(ordner())) {
        TagDatei d{};
        // File names are matched as the system's file search does: letters folded.
        if (e.istOrdner || !musterPasst(muster, e.name, false)) continue;
        if (!zerlegeTagDateiname(e.name, d.typ, d.id)) continue;
        // Only the canonical name: "3_0012.txt" names no object file of its own.
        if (e.name != tagDateiPfad("", d.typ, d.id)) continue;
        dateien.push_back(d);
    }
    std::sort(dateien.begin(), dateien.end(), [](const TagDatei& a, const TagDatei& b) {
        return a.typ != b.typ ? a.typ < b.typ : a.id < b.id;
    });
    const int n = static_cast<int>(dateien.size());
    for (int i = 0; i < n; ++i) {
        const TagDatei& d = dateien[static_cast<std::size_t>(i)];
        for (std::string& tag : lese(d.typ, d.id))
            if (textMuster.passt(tag)) treffer.push_back({d.typ, d.id, std::move(tag)});
        if (fortschritt) fortschritt(i + 1, n);
    }
    return treffer;
}

std::string tagStatus(std::size_t anzahl) {
    return "Gefundene Tags: " + std::to_string(anzahl);
}

std::string tagTrefferAlsText(const std::vector<TagTreffer>& treffer,
                              const std::vector<std::string>& titel) {
    std::string text;
    for (std::size_t i = 0; i < treffer.size(); ++i) {
        text += '[';
        text += objektTypName(treffer[i].typ);
        text += "] \t";
        if (i < titel.size()) text += titel[i];
        text += '{' + treffer[i].tag + "}\r\n";
    }
    return text;
}

}  // namespace dv
