// libFuzzer target: the import server's packed index "ImpDB.kvt" and the index
// lines, packed and as they are. An EAN that comes back is a safe file name.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "retrieval/WebImport.h"

namespace {

void pruefeIndex(std::string_view text) {
    for (const dv::WebImportEntry& e : dv::leseIndex(text, 1))
        if (e.EAN.empty() || e.EAN.find_first_of("/.\\") != std::string::npos) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse) {
    const std::string_view bytes(reinterpret_cast<const char*>(daten), groesse);
    pruefeIndex(bytes);
    std::string index;
    if (dv::entpackeKvt(bytes, index)) pruefeIndex(index);
    return 0;
}
