// libFuzzer target: the undo journal as a crash may leave it. Anything but a
// whole journal is refused; a whole one is put back onto a disk in memory.
#include <cstddef>
#include <cstdint>

#include "storage/Journal.h"
#include "tests/fuzz/Speicherplatte.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse) {
    const std::string bytes(reinterpret_cast<const char*>(daten), groesse);
    std::vector<dv::JournalEintrag> eintraege;
    if (!dv::entpackeJournal(bytes, eintraege)) return 0;
    if (dv::packeJournal(eintraege) != bytes) __builtin_trap();
    dv::fuzz::Speicherplatte platte;
    platte.erzeugeOrdner("/k/Daten/");
    dv::nimmZurueck(platte, eintraege);
    return 0;
}
