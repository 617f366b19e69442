// libFuzzer target: tag files, and file names in the tag folder.
#include <cstddef>
#include <cstdint>

#include "domain/Tags.h"
#include "tests/fuzz/Speicherplatte.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse) {
    const std::string bytes(reinterpret_cast<const char*>(daten), groesse);
    dv::fuzz::Speicherplatte platte;
    platte.erzeugeOrdner("/Tags/");
    platte.lege(dv::tagDateiPfad("/Tags/", 3, 7), bytes);
    for (const std::string& tag : dv::leseTags(platte, "/Tags/", 3, 7))
        if (tag.find('\n') != std::string::npos) __builtin_trap();
    int typ = 0;
    long id = 0;
    if (dv::zerlegeTagDateiname(bytes, typ, id) && (typ < 1 || typ > 3 || id <= 0))
        __builtin_trap();
    return 0;
}
