#pragma once
// What the fuzz targets share: a file system in memory (a fuzzer runs thousands
// of inputs a second, the disk would be the bottleneck), a user who answers No
// and stays silent, and a small catalogue in that memory, restored before each
// input so that no input sees what an earlier one wrote.

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/Benutzer.h"
#include "base/Ordner.h"
#include "domain/Datenbank.h"
#include "platform/Dateisystem.h"
#include "storage/Trace.h"

namespace dv::fuzz {

class Speicherplatte final : public Dateisystem {
  public:
    using Inhalt = std::shared_ptr<std::string>;
    std::map<std::string, Inhalt> dateien;
    std::set<std::string> ordner{"/"};

    void lege(const std::string& pfad, std::string bytes) {
        dateien[pfad] = std::make_shared<std::string>(std::move(bytes));
    }
    // A copy whose files are independent of this one's.
    void kopiereNach(Speicherplatte& ziel) const {
        ziel.dateien.clear();
        for (const auto& [p, i] : dateien) ziel.lege(p, *i);
        ziel.ordner = ordner;
    }

    std::unique_ptr<Datei> oeffne(const std::string& pfad, OeffnenModus modus,
                                  int* fehler = nullptr) override {
        auto it = dateien.find(pfad);
        const bool neu = modus == OeffnenModus::Erzeugen || modus == OeffnenModus::Anhaengen;
        if (it == dateien.end()) {
            if (!neu || !istOrdner(ordnerVon(pfad))) {
                if (fehler) *fehler = 2;
                return nullptr;
            }
            lege(pfad, std::string());
            it = dateien.find(pfad);
        } else if (modus == OeffnenModus::Erzeugen) {
            it->second->clear();
        }
        return std::make_unique<SpeicherDatei>(it->second, modus == OeffnenModus::Lesen);
    }
    bool existiert(const std::string& p) override { return dateien.count(p) || istOrdner(p); }
    bool istOrdner(const std::string& p) override { return ordner.count(mitTrenner(p)) > 0; }
    bool erzeugeOrdner(const std::string& p) override {
        for (std::size_t i = 1; i <= p.size(); ++i)
            if (i == p.size() || p[i] == '/') ordner.insert(mitTrenner(p.substr(0, i)));
        return true;
    }
    bool loesche(const std::string& p) override { return dateien.erase(p) > 0; }
    bool kopiere(const std::string& von, const std::string& nach) override {
        auto it = dateien.find(von);
        if (it == dateien.end()) return false;
        lege(nach, *it->second);
        return true;
    }
    bool benenneUm(const std::string& von, const std::string& nach) override {
        auto it = dateien.find(von);
        if (it == dateien.end()) return false;
        Inhalt i = it->second;
        dateien.erase(it);
        dateien[nach] = i;
        return true;
    }
    std::vector<OrdnerEintrag> liste(const std::string& o) override {
        std::vector<OrdnerEintrag> v;
        const std::string basis = mitTrenner(o);
        for (const auto& [p, i] : dateien)
            if (ordnerVon(p) == basis)
                v.push_back({p.substr(basis.size()), false, static_cast<std::int64_t>(i->size())});
        return v;
    }

  private:
    static std::string ordnerVon(const std::string& p) {
        const std::size_t s = p.find_last_of('/');
        return s == std::string::npos ? std::string("/") : p.substr(0, s + 1);
    }

    class SpeicherDatei final : public Datei {
      public:
        SpeicherDatei(Inhalt i, bool nurLesen) : i_(std::move(i)), nurLesen_(nurLesen) {}
        std::int64_t laenge() override { return static_cast<std::int64_t>(i_->size()); }
        std::int64_t lese(std::int64_t pos, void* ziel, std::size_t n) override {
            if (pos < 0) return -1;
            if (static_cast<std::size_t>(pos) >= i_->size()) return 0;
            const std::size_t k = std::min(n, i_->size() - static_cast<std::size_t>(pos));
            i_->copy(static_cast<char*>(ziel), k, static_cast<std::size_t>(pos));
            return static_cast<std::int64_t>(k);
        }
        bool schreibe(std::int64_t pos, const void* quelle, std::size_t n) override {
            // Files of this disk stay small: a position far out is a full disk.
            if (nurLesen_ || pos < 0 || pos + static_cast<std::int64_t>(n) > (64 << 20))
                return false;
            if (i_->size() < static_cast<std::size_t>(pos) + n) i_->resize(pos + n, '\0');
            i_->replace(static_cast<std::size_t>(pos), n, static_cast<const char*>(quelle), n);
            return true;
        }
        bool haengeAn(const void* quelle, std::size_t n) override {
            return schreibe(laenge(), quelle, n);
        }
        bool kuerze(std::int64_t l) override {
            if (nurLesen_ || l < 0 || l > (64 << 20)) return false;
            i_->resize(static_cast<std::size_t>(l), '\0');
            return true;
        }

      private:
        Inhalt i_;
        bool nurLesen_;
    };
};

// Answers every question No, every choice with nothing, and shows nothing.
class StummerBenutzer final : public Benutzer {
  public:
    bool frage(const std::string&, const std::string&) override { return false; }
    void meldung(const std::string&, const std::string&, Symbol) override {}
    ObjektAntwort objektBestaetigen(const ObjektDialog&) override { return {}; }
    std::vector<int> waehle(const std::string&, const std::string&, const std::vector<std::string>&,
                            bool, int) override {
        return {};
    }
    bool info(const std::string&,
              const std::vector<std::pair<std::string, std::string>>&) override {
        return false;
    }
    void zeigeText(const std::string&, const std::string&) override {}
    void fortschritt(const std::string&, int, int) override {}
    bool zwischenablage(const std::string&) override { return false; }
};

// A catalogue below "/k/" on a memory disk. The state after construction (plus
// what fuelle() adds) is kept; setzeZurueck() brings it back before each input.
struct SpeicherKatalog {
    Speicherplatte platte;
    Speicherplatte anfang;
    Ordner ordner;
    KeinTrace spur;
    SpeicherUmgebung u;
    std::unique_ptr<Datenbank> db;
    StummerBenutzer nutzer;

    SpeicherKatalog() {
        ordner.setzeBasis("/k/");
        ordner.legeAn(platte);
        u.fs = &platte;
        u.trace = &spur;
        u.datenOrdner = ordner.daten;
        db = std::make_unique<Datenbank>(u, ordner);
        db->katalog().erzeugeDatenbank();
    }
    // Keeps the present state as the one every input starts from.
    void merke() { platte.kopiereNach(anfang); }
    void setzeZurueck() {
        anfang.kopiereNach(platte);
        // Table objects remember free slots: they must read the files anew.
        ++u.laufend.tabellenStand;
    }
};

}  // namespace dv::fuzz
