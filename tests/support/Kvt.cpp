#include "tests/support/Kvt.h"

#include <zlib.h>

namespace dv::test {

std::string zlibStrom(const std::string& text) {
    uLongf n = compressBound(static_cast<uLong>(text.size()));
    std::string gepackt(n, '\0');
    compress(reinterpret_cast<Bytef*>(gepackt.data()), &n,
             reinterpret_cast<const Bytef*>(text.data()), static_cast<uLong>(text.size()));
    gepackt.resize(n);
    return gepackt;
}

std::string kvt(const std::string& text, std::uint32_t laenge) {
    std::string d = "KVT\x01\x02";
    for (int i = 0; i < 4; ++i) d += static_cast<char>((laenge >> (8 * i)) & 0xFF);
    return d + zlibStrom(text);
}

std::string kvt(const std::string& text) {
    return kvt(text, static_cast<std::uint32_t>(text.size()));
}

}  // namespace dv::test
