#include "storage/Vorgang.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>

namespace dv {
namespace {

// Small pages: a record change costs one or two of them in memory and in the journal.
constexpr std::int64_t kSeite = 512;
// Neighbouring pages are written to the file in runs of up to this many bytes.
constexpr std::size_t kLauf = 1 << 20;
// Files written before their flushes are awaited together.
constexpr std::size_t kOffenHoechstens = 64;

}  // namespace

// One file changed by the operation.
struct Vorgang::Abbild {
    bool warDa = false;          // the file existed when the operation first changed it
    bool unlesbar = false;       // ... but its former content could not be read
    std::int64_t altLaenge = 0;  // its length then
    bool da = false;             // it exists in the operation's view
    std::int64_t laenge = 0;     // its length in the operation's view
    // Bytes of the file on disk at or beyond this length no longer show: the
    // operation cut the file there (or created it anew). Never above laenge.
    std::int64_t sichtbar = 0;
    std::map<std::int64_t, std::unique_ptr<unsigned char[]>> seiten;  // page number -> bytes
};

// A file handle of the operation: reads through the image once the file has
// one, and straight from the disk before.
class Vorgang::Sicht final : public Datei {
  public:
    Sicht(Vorgang& v, std::string pfad, OeffnenModus modus, std::unique_ptr<Datei> echt)
        : v_(v), pfad_(std::move(pfad)), modus_(modus), echt_(std::move(echt)) {}

    std::int64_t laenge() override {
        if (Abbild* a = abbild()) return a->da ? a->laenge : -1;
        return echt_ ? echt_->laenge() : -1;
    }
    std::int64_t lese(std::int64_t pos, void* ziel, std::size_t n) override {
        if (pos < 0) return -1;
        if (Abbild* a = abbild()) return v_.lese(*a, echt(*a), pos, ziel, n);
        return echt_ ? echt_->lese(pos, ziel, n) : -1;
    }
    bool schreibe(std::int64_t pos, const void* quelle, std::size_t n) override {
        Abbild* a = zumAendern();
        return a && pos >= 0 && v_.schreibe(*a, echt(*a), pos, quelle, n);
    }
    bool haengeAn(const void* quelle, std::size_t n) override {
        Abbild* a = zumAendern();
        return a && v_.schreibe(*a, echt(*a), a->laenge, quelle, n);
    }
    bool kuerze(std::int64_t laenge) override {
        Abbild* a = zumAendern();
        if (!a || laenge < 0) return false;
        v_.kuerze(*a, laenge);
        return true;
    }
    // Durability comes with the end of the operation.
    bool synchronisiere() override { return true; }

  private:
    Abbild* abbild() {
        if (!a_) a_ = v_.finde(pfad_);
        return a_;
    }
    Abbild* zumAendern() {
        if (modus_ == OeffnenModus::Lesen) return nullptr;
        Abbild& a = v_.abbild(pfad_);
        a_ = &a;
        return a.da ? &a : nullptr;
    }
    // The file on disk, for bytes of the image that have not been changed.
    Datei* echt(const Abbild& a) {
        if (!echt_ && a.sichtbar > 0) echt_ = v_.innen_.oeffne(pfad_, OeffnenModus::Lesen);
        return echt_.get();
    }

    Vorgang& v_;
    std::string pfad_;
    OeffnenModus modus_;
    std::unique_ptr<Datei> echt_;
    Abbild* a_ = nullptr;
};

Vorgang::Vorgang(Dateisystem& innen, std::vector<std::string> bereiche)
    : innen_(innen), bereiche_(std::move(bereiche)) {
    std::erase_if(bereiche_, [](const std::string& b) { return b.empty(); });
}

Vorgang::~Vorgang() = default;

bool Vorgang::imBereich(const std::string& pfad) const {
    for (const std::string& b : bereiche_)
        if (pfad.size() > b.size() && pfad.compare(0, b.size(), b) == 0) return true;
    return false;
}

Vorgang::Abbild* Vorgang::finde(const std::string& pfad) {
    auto it = abbilder_.find(pfad);
    return it == abbilder_.end() ? nullptr : it->second.get();
}

Vorgang::Abbild& Vorgang::abbild(const std::string& pfad) {
    if (Abbild* a = finde(pfad)) return *a;
    auto a = std::make_unique<Abbild>();
    if (auto d = innen_.oeffne(pfad, OeffnenModus::Lesen)) {
        a->warDa = true;
        a->altLaenge = std::max<std::int64_t>(0, d->laenge());
        a->unlesbar = d->laenge() < 0;
    } else if (innen_.existiert(pfad) && !innen_.istOrdner(pfad)) {
        a->warDa = true;
        a->unlesbar = true;
    }
    a->da = a->warDa;
    a->laenge = a->sichtbar = a->altLaenge;
    return *(abbilder_[pfad] = std::move(a));
}

bool Vorgang::geaendert() const {
    return !abbilder_.empty();
}

void Vorgang::leere(Abbild& a) {
    a.laenge = 0;
    a.sichtbar = 0;
    a.seiten.clear();
}

unsigned char* Vorgang::seite(Abbild& a, Datei* echt, std::int64_t nr) {
    auto& s = a.seiten[nr];
    if (!s) {
        s = std::make_unique<unsigned char[]>(kSeite);  // zero-filled
        const std::int64_t anfang = nr * kSeite;
        const std::int64_t bis = std::min(anfang + kSeite, a.sichtbar);
        if (echt && bis > anfang) {
            const std::int64_t r =
                echt->lese(anfang, s.get(), static_cast<std::size_t>(bis - anfang));
            if (r < 0) {
                a.seiten.erase(nr);
                return nullptr;
            }
        }
    }
    return s.get();
}

std::int64_t Vorgang::lese(Abbild& a, Datei* echt, std::int64_t pos, void* ziel, std::size_t n) {
    if (!a.da) return -1;
    const std::int64_t ende = std::min(pos + static_cast<std::int64_t>(n), a.laenge);
    if (pos >= ende) return 0;
    auto* z = static_cast<unsigned char*>(ziel);
    // What the disk still shows, zeros beyond it, then the changed pages on top.
    const std::int64_t vonDisk = std::min(ende, a.sichtbar) - pos;
    std::int64_t gelesen = 0;
    if (vonDisk > 0) {
        if (!echt) return -1;
        gelesen = echt->lese(pos, z, static_cast<std::size_t>(vonDisk));
        if (gelesen < 0) return -1;
    }
    std::memset(z + gelesen, 0, static_cast<std::size_t>(ende - pos - gelesen));
    for (auto it = a.seiten.lower_bound(pos / kSeite); it != a.seiten.end(); ++it) {
        const std::int64_t anfang = it->first * kSeite;
        if (anfang >= ende) break;
        const std::int64_t von = std::max(anfang, pos);
        const std::int64_t bis = std::min(anfang + kSeite, ende);
        std::memcpy(z + (von - pos), it->second.get() + (von - anfang),
                    static_cast<std::size_t>(bis - von));
    }
    return ende - pos;
}

bool Vorgang::schreibe(Abbild& a, Datei* echt, std::int64_t pos, const void* quelle,
                       std::size_t n) {
    const auto* q = static_cast<const unsigned char*>(quelle);
    const std::int64_t ende = pos + static_cast<std::int64_t>(n);
    for (std::int64_t p = pos; p < ende;) {
        const std::int64_t nr = p / kSeite;
        unsigned char* s = seite(a, echt, nr);
        if (!s) return false;
        const std::int64_t bis = std::min((nr + 1) * kSeite, ende);
        std::memcpy(s + (p - nr * kSeite), q + (p - pos), static_cast<std::size_t>(bis - p));
        p = bis;
    }
    a.laenge = std::max(a.laenge, ende);
    return true;
}

void Vorgang::kuerze(Abbild& a, std::int64_t laenge) {
    if (laenge < a.laenge) {
        a.seiten.erase(a.seiten.lower_bound((laenge + kSeite - 1) / kSeite), a.seiten.end());
        auto it = a.seiten.find(laenge / kSeite);
        if (it != a.seiten.end()) {
            const std::int64_t rest = laenge % kSeite;
            std::memset(it->second.get() + rest, 0, static_cast<std::size_t>(kSeite - rest));
        }
        a.sichtbar = std::min(a.sichtbar, laenge);
    }
    a.laenge = laenge;
}

std::unique_ptr<Datei> Vorgang::oeffne(const std::string& pfad, OeffnenModus modus, int* fehler) {
    if (!imBereich(pfad)) return innen_.oeffne(pfad, modus, fehler);
    Abbild* a = finde(pfad);
    std::unique_ptr<Datei> echt;
    switch (modus) {
        case OeffnenModus::Lesen:
        case OeffnenModus::LesenSchreiben:
            if (a && !a->da) {
                if (fehler) *fehler = ENOENT;
                return nullptr;
            }
            if (!a) {
                // Opened as asked, so that a file without the rights fails here as it would.
                echt = innen_.oeffne(pfad, modus, fehler);
                if (!echt) return nullptr;
            }
            break;
        case OeffnenModus::Erzeugen:
        case OeffnenModus::Anhaengen:
            if (!innen_.istOrdner(ordnerVon(pfad)) || innen_.istOrdner(pfad)) {
                if (fehler) *fehler = innen_.istOrdner(pfad) ? EISDIR : ENOENT;
                return nullptr;
            }
            a = &abbild(pfad);
            if (modus == OeffnenModus::Erzeugen || !a->da) leere(*a);
            a->da = true;
            break;
    }
    return std::make_unique<Sicht>(*this, pfad, modus, std::move(echt));
}

bool Vorgang::existiert(const std::string& pfad) {
    if (Abbild* a = imBereich(pfad) ? finde(pfad) : nullptr) return a->da;
    return innen_.existiert(pfad);
}

bool Vorgang::istOrdner(const std::string& pfad) {
    if (Abbild* a = imBereich(pfad) ? finde(pfad) : nullptr; a && a->da) return false;
    return innen_.istOrdner(pfad);
}

bool Vorgang::loesche(const std::string& pfad) {
    if (!imBereich(pfad)) return innen_.loesche(pfad);
    if (innen_.istOrdner(pfad)) return false;
    Abbild* a = finde(pfad);
    if (!a && !innen_.existiert(pfad)) return false;
    a = &abbild(pfad);
    if (!a->da) return false;
    a->da = false;
    leere(*a);
    return true;
}

bool Vorgang::kopiere(const std::string& von, const std::string& nach) {
    if (!imBereich(von) && !imBereich(nach)) return innen_.kopiere(von, nach);
    std::string daten;
    return leseAlles(*this, von, daten) && schreibeAlles(*this, nach, daten);
}

bool Vorgang::benenneUm(const std::string& von, const std::string& nach) {
    if (!imBereich(von) && !imBereich(nach)) return innen_.benenneUm(von, nach);
    std::string daten;
    return leseAlles(*this, von, daten) && schreibeAlles(*this, nach, daten) && loesche(von);
}

std::vector<OrdnerEintrag> Vorgang::liste(const std::string& ordner) {
    std::vector<OrdnerEintrag> eintraege = innen_.liste(ordner);
    std::string basis = ordner;
    if (!basis.empty() && basis.back() != '/') basis += '/';
    for (const auto& [pfad, a] : abbilder_) {
        if (ordnerVon(pfad) != basis) continue;
        const std::string name = pfad.substr(basis.size());
        auto it = std::find_if(eintraege.begin(), eintraege.end(),
                               [&](const OrdnerEintrag& e) { return e.name == name; });
        if (!a->da) {
            if (it != eintraege.end()) eintraege.erase(it);
        } else if (it != eintraege.end()) {
            it->laenge = a->laenge;
        } else {
            eintraege.push_back(OrdnerEintrag{name, false, a->laenge});
        }
    }
    return eintraege;
}

// ---- The end of the operation ------------------------------------------------

bool Vorgang::lasseUnveraenderteWeg(Abbild& a, Datei& echt) {
    // A page that holds what the file holds needs neither undo nor writing, and
    // a file left without changes needs no flush.
    unsigned char alt[kSeite];
    for (auto it = a.seiten.begin(); it != a.seiten.end();) {
        const std::int64_t anfang = it->first * kSeite;
        const std::int64_t bis = std::min(anfang + kSeite, a.laenge);
        if (bis > a.altLaenge) break;
        const auto n = static_cast<std::size_t>(std::max<std::int64_t>(0, bis - anfang));
        if (echt.lese(anfang, alt, n) != static_cast<std::int64_t>(n)) return false;
        it = std::memcmp(alt, it->second.get(), n) == 0 ? a.seiten.erase(it) : std::next(it);
    }
    return true;
}

bool Vorgang::sammleRueckweg(std::vector<JournalEintrag>& rueckweg) {
    std::vector<const std::string*> pfade;
    for (const auto& [pfad, a] : abbilder_) pfade.push_back(&pfad);
    std::sort(pfade.begin(), pfade.end(), [](auto* x, auto* y) { return *x < *y; });
    for (const std::string* pfad : pfade) {
        Abbild& a = *abbilder_[*pfad];
        if (!a.warDa) {
            if (a.da) rueckweg.push_back({JournalEintrag::Neu, *pfad, 0, {}});
            continue;
        }
        if (a.unlesbar) return false;
        if (!a.da || a.sichtbar < a.altLaenge) {
            // Cut or removed: the journal keeps the whole former file.
            JournalEintrag e{JournalEintrag::Inhalt, *pfad, 0, {}};
            if (!leseAlles(innen_, *pfad, e.bytes)) return false;
            rueckweg.push_back(std::move(e));
            continue;
        }
        auto echt = innen_.oeffne(*pfad, OeffnenModus::Lesen);
        if (!echt || !lasseUnveraenderteWeg(a, *echt)) return false;
        for (auto it = a.seiten.begin(); it != a.seiten.end();) {
            const std::int64_t anfang = it->first * kSeite;
            if (anfang >= a.altLaenge) break;
            // Neighbouring pages share one entry.
            std::int64_t nr = it->first;
            while (it != a.seiten.end() && it->first == nr && nr * kSeite < a.altLaenge) ++it, ++nr;
            const std::int64_t bis = std::min(nr * kSeite, a.altLaenge);
            JournalEintrag e{JournalEintrag::Bereich, *pfad, anfang, {}};
            e.bytes.resize(static_cast<std::size_t>(bis - anfang));
            if (echt->lese(anfang, e.bytes.data(), e.bytes.size()) != bis - anfang) return false;
            rueckweg.push_back(std::move(e));
        }
        if (a.laenge != a.altLaenge)
            rueckweg.push_back({JournalEintrag::Laenge, *pfad, a.altLaenge, {}});
    }
    return true;
}

bool Vorgang::wendeAn(const std::string& pfad, Abbild& a, std::vector<std::string>& ordner,
                      std::unique_ptr<Datei>& d) {
    if (!a.da) {
        if (!a.warDa) return true;
        ordner.push_back(ordnerVon(pfad));
        return innen_.loesche(pfad) || !innen_.existiert(pfad);
    }
    if (a.warDa && a.seiten.empty() && a.laenge == a.altLaenge && a.sichtbar == a.altLaenge)
        return true;
    const bool neu = !a.warDa || a.sichtbar == 0;
    if (!a.warDa) ordner.push_back(ordnerVon(pfad));
    d = innen_.oeffne(pfad, neu ? OeffnenModus::Erzeugen : OeffnenModus::LesenSchreiben);
    if (!d) return false;
    if (!neu && a.sichtbar < a.altLaenge && !d->kuerze(a.sichtbar)) return false;
    std::string lauf;
    std::int64_t laufAnfang = 0;
    auto schreibeLauf = [&] {
        const bool ok = lauf.empty() || d->schreibe(laufAnfang, lauf.data(), lauf.size());
        lauf.clear();
        return ok;
    };
    for (const auto& [nr, bytes] : a.seiten) {
        const std::int64_t anfang = nr * kSeite;
        if (anfang >= a.laenge) break;
        if (!lauf.empty() &&
            (laufAnfang + static_cast<std::int64_t>(lauf.size()) != anfang || lauf.size() >= kLauf))
            if (!schreibeLauf()) return false;
        if (lauf.empty()) laufAnfang = anfang;
        lauf.append(reinterpret_cast<const char*>(bytes.get()),
                    static_cast<std::size_t>(std::min(kSeite, a.laenge - anfang)));
    }
    if (!schreibeLauf()) return false;
    return d->laenge() == a.laenge || d->kuerze(a.laenge);
}

bool Vorgang::schreibeDateien(const std::vector<std::string>& pfade,
                              std::vector<std::string>& ordner) {
    // Every file's writeback starts before the first wait for one, so the flushes
    // overlap instead of queueing; each file is still made durable by its own
    // synchronisiere(). Open files are bounded for operations with many files.
    std::vector<std::unique_ptr<Datei>> offen;
    auto macheDauerhaft = [&] {
        for (auto& d : offen) d->beginneSynchronisieren();
        bool ok = true;
        for (auto& d : offen) ok = d->synchronisiere() && ok;
        offen.clear();
        return ok;
    };
    for (const std::string& pfad : pfade) {
        std::unique_ptr<Datei> d;
        if (!wendeAn(pfad, *abbilder_[pfad], ordner, d)) return false;
        if (d) offen.push_back(std::move(d));
        if (offen.size() >= kOffenHoechstens && !macheDauerhaft()) return false;
    }
    if (!macheDauerhaft()) return false;
    std::sort(ordner.begin(), ordner.end());
    ordner.erase(std::unique(ordner.begin(), ordner.end()), ordner.end());
    for (const std::string& o : ordner)
        if (!innen_.synchronisiereOrdner(o)) return false;
    return true;
}

bool Vorgang::schreibeDurch(const std::string& journalPfad) {
    if (verworfen_) return false;
    if (abbilder_.empty()) return true;
    std::vector<JournalEintrag> rueckweg;
    if (!sammleRueckweg(rueckweg)) return false;
    if (rueckweg.empty()) return true;  // every change wrote what was there
    if (!schreibeJournal(innen_, journalPfad, packeJournal(rueckweg))) {
        innen_.loesche(journalPfad);
        return false;
    }
    std::vector<std::string> pfade;
    for (const auto& [pfad, a] : abbilder_) pfade.push_back(pfad);
    std::sort(pfade.begin(), pfade.end());
    std::vector<std::string> ordner;
    if (schreibeDateien(pfade, ordner) && schliesseJournal(innen_, journalPfad)) return true;
    // Back to the files before the operation; if even that fails, the journal stays.
    if (nimmZurueck(innen_, rueckweg)) schliesseJournal(innen_, journalPfad);
    return false;
}

}  // namespace dv
