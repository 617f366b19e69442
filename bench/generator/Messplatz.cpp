#include "bench/generator/Messplatz.h"

#include <cstdlib>

#include "bench/generator/Generator.h"

namespace dv::generator {

OffeneDatenbank::OffeneDatenbank(const std::string& basis, bool anlegen) {
    ordner.setzeBasis(basis);
    if (anlegen) ordner.legeAn(echtesDateisystem());
    su.trace = &still;
    su.datenOrdner = ordner.daten;
    db = std::make_unique<Datenbank>(su, ordner);
}

std::string generierteSammlung(long faktor) {
    const std::string basis = gecachteSammlung(Groessen().mal(faktor));
    if (basis.empty()) std::abort();
    return basis;
}

}  // namespace dv::generator
