#include "tests/support/FehlerDateisystem.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace dv::test {
namespace {

class FehlerDatei : public Datei {
  public:
    FehlerDatei(std::unique_ptr<Datei> innen, FehlerDateisystem& fs)
        : innen_(std::move(innen)), fs_(fs) {}
    std::int64_t laenge() override { return innen_->laenge(); }
    std::int64_t lese(std::int64_t pos, void* ziel, std::size_t n) override {
        return innen_->lese(pos, ziel, n);
    }
    bool schreibe(std::int64_t pos, const void* quelle, std::size_t n) override {
        return gestoert(n, [&](std::size_t k) { return innen_->schreibe(pos, quelle, k); });
    }
    bool haengeAn(const void* quelle, std::size_t n) override {
        return gestoert(n, [&](std::size_t k) { return innen_->haengeAn(quelle, k); });
    }
    bool kuerze(std::int64_t l) override {
        fs_.veraendere();
        return innen_->kuerze(l);
    }
    bool synchronisiere() override { return innen_->synchronisiere(); }
    void beginneSynchronisieren() override { innen_->beginneSynchronisieren(); }

  private:
    // A write of n bytes through schreib(k), with the crash and the fault it may meet.
    template <class F>
    bool gestoert(std::size_t n, F&& schreib) {
        fs_.veraendere([&] { schreib(n / 2); });
        if (fs_.naechsterSchreibvorgangScheitert()) {
            if (fs_.zerreissen && n > 1) schreib(n / 2);
            return false;
        }
        return schreib(n);
    }

    std::unique_ptr<Datei> innen_;
    FehlerDateisystem& fs_;
};

}  // namespace

bool FehlerDateisystem::naechsterSchreibvorgangScheitert() {
    ++schreibvorgaenge;
    return scheitereAbSchreibvorgang > 0 && schreibvorgaenge >= scheitereAbSchreibvorgang;
}

std::unique_ptr<Datei> FehlerDateisystem::oeffne(const std::string& pfad, OeffnenModus modus,
                                                 int* fehler) {
    if (gesperrt(pfad) || (nurLesen && modus != OeffnenModus::Lesen)) {
        if (fehler) *fehler = gesperrt(pfad) ? EACCES : EROFS;
        return nullptr;
    }
    if (modus == OeffnenModus::Erzeugen) veraendere();
    auto innen = echt().oeffne(pfad, modus, fehler);
    if (!innen) return nullptr;
    return std::make_unique<FehlerDatei>(std::move(innen), *this);
}

bool FehlerDateisystem::erzeugeOrdner(const std::string& p) {
    if (nurLesen) return echt().istOrdner(p);
    return !gesperrt(p) && echt().erzeugeOrdner(p);
}
bool FehlerDateisystem::loesche(const std::string& p) {
    if (nurLesen || gesperrt(p)) return false;
    veraendere();
    return echt().loesche(p);
}
bool FehlerDateisystem::kopiere(const std::string& von, const std::string& nach) {
    if (nurLesen || gesperrt(von) || gesperrt(nach)) return false;
    veraendere();
    if (naechsterSchreibvorgangScheitert()) return false;
    return echt().kopiere(von, nach);
}
bool FehlerDateisystem::benenneUm(const std::string& von, const std::string& nach) {
    if (nurLesen || gesperrt(von) || gesperrt(nach)) return false;
    veraendere();
    return echt().benenneUm(von, nach);
}

void FehlerDateisystem::absturz() {
    std::raise(SIGKILL);
    std::_Exit(137);
}

}  // namespace dv::test
