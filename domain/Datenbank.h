#pragma once
// The one catalogue object: owns an instance of every table and turns their rows
// into the object lists that the rest of the program works on.

#include "app/base/Ordner.h"
#include "storage/Katalog.h"

namespace dv {

class Datenbank {
public:
    // umgebung and ordner must outlive the object.
    Datenbank(SpeicherUmgebung& umgebung, const Ordner& ordner);

    Katalog& katalog() { return katalog_; }
    const Ordner& ordner() const { return ordner_; }
    SpeicherUmgebung& umgebung() { return umgebung_; }
    Trace& trace() { return *umgebung_.trace; }
    Dateisystem& fs() { return *umgebung_.fs; }

private:
    SpeicherUmgebung& umgebung_;
    const Ordner& ordner_;
    Katalog katalog_;
};

}  // namespace dv
