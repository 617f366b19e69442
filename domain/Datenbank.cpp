#include "domain/Datenbank.h"

namespace dv {

Datenbank::Datenbank(SpeicherUmgebung& umgebung, const Ordner& ordner)
    : umgebung_(umgebung), ordner_(ordner), katalog_(umgebung) {}

}  // namespace dv
