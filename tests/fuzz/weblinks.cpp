// libFuzzer target: the import server's "links.ini". Nothing it sends may become
// a path that leaves the download folder.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string_view>

#include "retrieval/WebImport.h"

namespace {

bool verlaesstOrdner(const std::string& pfad) {
    if (!pfad.empty() && pfad[0] == '/') return true;
    std::istringstream teile(pfad);
    for (std::string teil; std::getline(teile, teil, '/');)
        if (teil == ".." || teil == ".") return true;
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse) {
    const std::string_view bytes(reinterpret_cast<const char*>(daten), groesse);
    for (const dv::WebLink& l : dv::leseLinks(bytes))
        if (verlaesstOrdner(l.pfad)) __builtin_trap();
    return 0;
}
