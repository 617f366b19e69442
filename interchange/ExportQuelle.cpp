#include "interchange/ExportQuelle.h"

#include <algorithm>
#include <cstdlib>

#include "domain/Bausteine.h"
#include "domain/Tags.h"
#include "interchange/BoxFormat.h"

namespace dv {
namespace {

// Rank of a cover name: known picture types first, in type order.
int rang(const std::string& endung) {
    const int typ = box::bildTypVonEndung(endung);
    return typ >= 0 ? typ : 3;
}

// The box id of a cover file name "<digits>.<extension>", else 0.
long coverId(const std::string& name, std::string& endung) {
    std::size_t i = 0;
    while (i < name.size() && name[i] >= '0' && name[i] <= '9') ++i;
    if (i == 0 || i >= name.size() || name[i] != '.' || i > 9) return 0;
    endung = name.substr(i + 1);
    if (endung.empty() || endung.find('.') != std::string::npos) return 0;
    return std::strtol(name.substr(0, i).c_str(), nullptr, 10);
}

// Keeps the better of two cover names for the same box.
void nimmBesseres(std::string& bisher, const std::string& name, const std::string& endung) {
    if (bisher.empty()) {
        bisher = name;
        return;
    }
    const int a = rang(endung), b = rang(dateiEndung(bisher));
    if (a < b || (a == b && name < bisher)) bisher = name;
}

}  // namespace

void ExportQuelle::uebernimmTitel(std::unordered_map<long, std::vector<Zeile4>>&& titel) {
    titel_ = std::move(titel);
    titelGeladen_ = true;
}

std::string dateiEndung(const std::string& pfad) {
    const std::size_t punkt = pfad.find_last_of('.');
    const std::size_t trenner = pfad.find_last_of('/');
    if (punkt == std::string::npos || (trenner != std::string::npos && punkt < trenner)) return {};
    return pfad.substr(punkt + 1);
}

std::string findeCover(Dateisystem& fs, const std::string& coverOrdner, long boxId) {
    if (boxId <= 0) return {};
    const std::string stamm = std::to_string(boxId) + ".";
    for (int typ : {box::kBildBmp, box::kBildJpg, box::kBildGif}) {
        const std::string pfad = coverOrdner + stamm + box::bildEndung(typ);
        if (fs.existiert(pfad)) return pfad;
    }
    // Other letter cases and other extensions: one look at the folder.
    std::string bester;
    for (const OrdnerEintrag& e : fs.liste(coverOrdner)) {
        std::string endung;
        if (!e.istOrdner && coverId(e.name, endung) == boxId) nimmBesseres(bester, e.name, endung);
    }
    return bester.empty() ? bester : coverOrdner + bester;
}

ExportQuelle::ExportQuelle(Datenbank& db, const Ordner& ordner) : db_(db), ordner_(ordner) {}

void ExportQuelle::merkeFilme(const DvdElement* dvds) {
    for (const DvdElement* d = dvds; d; d = d->pNext)
        for (const FilmElement* f = d->pFilme; f; f = f->pNext) gemerkt_.insert(f->Id);
}

void ExportQuelle::merkeFilme(const BoxElement* boxen) {
    for (const BoxElement* b = boxen; b; b = b->pNext) merkeFilme(b->pDvds);
}

void ExportQuelle::fuerSammlung() {
    sammlung_ = true;
    gemerkt_.clear();
    cover_.clear();
    for (const OrdnerEintrag& e : db_.fs().liste(ordner_.cover)) {
        std::string endung;
        const long id = e.istOrdner ? 0 : coverId(e.name, endung);
        if (id > 0) nimmBesseres(cover_[id], e.name, endung);
    }
}

std::unordered_set<std::string>* ExportQuelle::verzeichnis(const std::string& ordner) {
    if (!sammlung_) return nullptr;
    auto it = listen_.find(ordner);
    if (it == listen_.end()) {
        std::unordered_set<std::string> namen;
        for (const OrdnerEintrag& e : db_.fs().liste(ordner))
            if (!e.istOrdner) namen.insert(e.name);
        it = listen_.emplace(ordner, std::move(namen)).first;
    }
    return &it->second;
}

const std::string& ExportQuelle::lookupName(int typ, long id) {
    static const std::string leer;
    auto it = namen_.find(typ);
    if (it == namen_.end()) {
        std::vector<std::string> namen;
        if (Tabelle1* t = db_.lookupTabelle(typ)) {
            t->scanne([&](const Zeile1& z) {
                if (z.Id >= static_cast<long>(namen.size())) namen.resize(z.Id + 1);
                namen[z.Id] = z.cpText;
            });
        }
        it = namen_.emplace(typ, std::move(namen)).first;
    }
    if (id <= 0 || id >= static_cast<long>(it->second.size())) return leer;
    return it->second[id];
}

void ExportQuelle::ladeTitel() {
    titelGeladen_ = true;
    const bool alle = gemerkt_.empty();
    db_.katalog().Titel.scanne([&](const Zeile4& z) {
        if (alle || gemerkt_.count(z.Fremd_Id)) titel_[z.Fremd_Id].push_back(z);
    });
}

FilmTitel ExportQuelle::titel(const FilmElement& film) {
    if (!titelGeladen_) ladeTitel();
    FilmTitel t;
    t.haupt = film.cpTitel;
    auto it = titel_.find(film.Id);
    if (it == titel_.end()) return t;
    // As the domain reads them: each kind in "Pos" order, the best title is the
    // main one, the first further original title is the original title.
    std::vector<Zeile4>& rows = it->second;
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Zeile4& a, const Zeile4& b) { return a.Pos < b.Pos; });
    const Zeile4* haupt = nullptr;
    for (const Zeile4& z : rows)
        if (!haupt || bau::besserTitel(z, *haupt)) haupt = &z;
    for (const Zeile4& z : rows) {
        if (&z == haupt) continue;
        if (z.Typ == kTitelOriginal && t.original.empty())
            t.original = z.cpTitel;
        else
            t.weitere.push_back(z.cpTitel);
    }
    return t;
}

std::string ExportQuelle::inhalt(long filmId) {
    std::string text;
    auto* v = verzeichnis(ordner_.inhalt);
    if (!v || v->count(std::to_string(filmId) + ".txt")) db_.leseInhalt(filmId, text);
    return text;
}

std::string ExportQuelle::kommentar(long filmId) {
    std::string text;
    auto* v = verzeichnis(ordner_.kommentar);
    if (!v || v->count(std::to_string(filmId) + ".txt")) db_.leseKommentar(filmId, text);
    return text;
}

std::vector<std::string> ExportQuelle::tags(int objektTyp, long id) {
    auto* v = verzeichnis(ordner_.tags);
    const std::string name =
        std::to_string(objektTyp) + "_" + std::to_string(id) + "." + kTagEndung;
    if (v && !v->count(name)) return {};
    return leseTags(db_.fs(), ordner_.tags, objektTyp, id);
}

std::string ExportQuelle::cover(long boxId) {
    if (!sammlung_) return findeCover(db_.fs(), ordner_.cover, boxId);
    auto it = cover_.find(boxId);
    return it == cover_.end() ? std::string() : ordner_.cover + it->second;
}

}  // namespace dv
