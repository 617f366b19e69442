// libFuzzer target: watch-list files, imported into a small catalogue in memory.
// Any bytes import what they can or nothing, without a crash.
#include <cstddef>
#include <cstdint>

#include "retrieval/VormerkDatei.h"
#include "tests/fuzz/Saatkatalog.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse) {
    static dv::fuzz::SpeicherKatalog& k = dv::fuzz::saatkatalog();
    k.setzeZurueck();
    k.platte.lege("/Listen.vml", std::string(reinterpret_cast<const char*>(daten), groesse));
    dv::importiereVormerklisten(*k.db, k.nutzer, "/Listen.vml");
    return 0;
}
