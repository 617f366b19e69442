// libFuzzer target: stamp-tag files, imported into a catalogue in memory and
// written out again.
#include <cstddef>
#include <cstdint>

#include "retrieval/Stempeltags.h"
#include "tests/fuzz/Saatkatalog.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse) {
    static dv::fuzz::SpeicherKatalog& k = dv::fuzz::saatkatalog();
    k.setzeZurueck();
    k.platte.lege("/Stempel.txt", std::string(reinterpret_cast<const char*>(daten), groesse));
    dv::Stempeltags s(*k.db, k.nutzer);
    s.importiere("/Stempel.txt");
    s.exportText();
    return 0;
}
