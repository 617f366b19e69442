// What the overview needs from outside the page: the boxes with their counts,
// original titles and covers, opening the finished page, the default templates.
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <thread>
#include <unordered_map>

#include "domain/Datenbank.h"
#include "output/Uebersicht.h"

extern char** environ;

namespace dv {

namespace {

// The link with the smallest "Pos" per owner, among links whose target lives.
// Ties keep the first row in table order.
struct ErsterLink {
    std::uint16_t pos = 0;
    std::int32_t ziel = 0;
};

template <class T>
std::vector<bool> lebendeIds(T& tabelle, long& anzahl) {
    std::vector<bool> lebt;
    anzahl = 0;
    tabelle.scanne([&](const typename T::Zeile& z) {
        const auto id = static_cast<std::size_t>(z.Id);
        if (id >= lebt.size()) lebt.resize(id * 2 + 16);
        lebt[id] = true;
        ++anzahl;
    });
    return lebt;
}

bool lebt(const std::vector<bool>& v, long id) {
    return id > 0 && static_cast<std::size_t>(id) < v.size() && v[static_cast<std::size_t>(id)];
}

void merke(std::unordered_map<long, ErsterLink>& erste, long besitzer, std::uint16_t pos,
           std::int32_t ziel) {
    auto [it, neu] = erste.try_emplace(besitzer, ErsterLink{pos, ziel});
    if (!neu && pos < it->second.pos) it->second = ErsterLink{pos, ziel};
}

// "<id>.<ext>" in the cover folder, by box id; of several the smallest name.
std::unordered_map<long, std::string> coverDateien(Dateisystem& fs, const std::string& ordner) {
    std::unordered_map<long, std::string> cover;
    for (const OrdnerEintrag& e : fs.liste(ordner)) {
        if (e.istOrdner) continue;
        const std::size_t punkt = e.name.find('.');
        if (punkt == 0 || punkt == std::string::npos || punkt > 9) continue;
        long id = 0;
        bool ziffern = true;
        for (std::size_t i = 0; i < punkt; ++i) {
            if (e.name[i] < '0' || e.name[i] > '9')
                ziffern = false;
            else
                id = id * 10 + (e.name[i] - '0');
        }
        if (!ziffern || id <= 0) continue;
        auto [it, neu] = cover.try_emplace(id, e.name);
        if (!neu && e.name < it->second) it->second = e.name;
    }
    return cover;
}

}  // namespace

UebersichtDaten sammleUebersichtDaten(Datenbank& db) {
    Katalog& k = db.katalog();
    UebersichtDaten d;
    d.coverOrdner = db.ordner().cover;
    const std::vector<bool> dvds = lebendeIds(k.DVD, d.anzahlDvds);
    const std::vector<bool> filme = lebendeIds(k.Film, d.anzahlFilme);

    // First DVD of each box, first film of each DVD.
    std::unordered_map<long, ErsterLink> ersteDvd, ersterFilm;
    k.DVD_Box.scanne([&](const Zeile7& z) {
        if (lebt(dvds, z.DVD_Id)) merke(ersteDvd, z.Box_Id, z.Pos, z.DVD_Id);
    });
    k.DVD_Film.scanne([&](const Zeile2& z) {
        if (lebt(filme, z.Objekt1_Id)) merke(ersterFilm, z.DVD_Id, z.Pos, z.Objekt1_Id);
    });
    // The original title (the first by "Pos") of each film that opens a box.
    std::unordered_map<long, std::pair<std::uint16_t, std::string>> original;
    for (const auto& [box, dvd] : ersteDvd) {
        auto f = ersterFilm.find(dvd.ziel);
        if (f != ersterFilm.end()) original.try_emplace(f->second.ziel, 0xFFFF, std::string());
    }
    k.Titel.scanne([&](const Zeile4& t) {
        if (t.Typ != kTitelOriginal) return;
        auto it = original.find(t.Fremd_Id);
        if (it != original.end() && (it->second.second.empty() || t.Pos < it->second.first))
            it->second = {t.Pos, t.cpTitel};
    });

    const auto cover = coverDateien(db.fs(), d.coverOrdner);
    BoxListe boxen = db.getBoxListe();
    for (const BoxElement* b = boxen.get(); b; b = b->pNext) {
        UebersichtBox u;
        u.id = b->Id;
        u.titel = b->cpText;
        if (auto dvd = ersteDvd.find(b->Id); dvd != ersteDvd.end())
            if (auto film = ersterFilm.find(dvd->second.ziel); film != ersterFilm.end())
                if (auto o = original.find(film->second.ziel); o != original.end())
                    u.origTitel = o->second.second;
        if (auto c = cover.find(b->Id); c != cover.end()) u.cover = c->second;
        d.boxen.push_back(std::move(u));
    }
    d.anzahlBoxen = static_cast<long>(d.boxen.size());
    return d;
}

bool oeffneMitStandardprogramm(const std::string& pfad) {
    if (std::getenv("DORVANO_NICHT_OEFFNEN")) return true;
    std::string programm = "xdg-open";
    std::string datei = pfad;
    char* argv[] = {programm.data(), datei.data(), nullptr};
    pid_t pid = 0;
    if (::posix_spawnp(&pid, "xdg-open", nullptr, nullptr, argv, environ) != 0) return false;
    // Reaped in the background so that a long-running program keeps no zombie.
    std::thread([pid] { ::waitpid(pid, nullptr, 0); }).detach();
    return true;
}

bool installiereStandardVorlagen(Dateisystem& fs, const std::string& vorlagenOrdner) {
    if (!fs.istOrdner(vorlagenOrdner) && !fs.erzeugeOrdner(vorlagenOrdner)) return false;
    bool ok = true;
    for (const EingebauteDatei& f : standardVorlagen()) {
        const std::string pfad = vorlagenOrdner + f.name;
        if (!fs.existiert(pfad) && !schreibeSicher(fs, pfad, f.inhalt)) ok = false;
    }
    return ok;
}

}  // namespace dv
