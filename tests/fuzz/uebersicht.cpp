// libFuzzer target: the overview's settings file and its colour file.
#include <cstddef>
#include <cstdint>

#include "output/Uebersicht.h"
#include "tests/fuzz/Speicherplatte.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse) {
    const std::string bytes(reinterpret_cast<const char*>(daten), groesse);
    dv::fuzz::Speicherplatte platte;
    platte.lege("/Uebersicht.ini", bytes);
    dv::fuzz::StummerBenutzer nutzer;
    dv::UebersichtEinstellungen e;
    dv::leseUebersichtEinstellungen(platte, nutzer, "/Uebersicht.ini", e);
    for (const dv::FarbEintrag& f : dv::leseFarbDatei(bytes))
        if (f.anzahl < 1) __builtin_trap();
    return 0;
}
