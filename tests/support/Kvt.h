#pragma once
// The packed index of an import server as the web import expects it: "KVT", two
// spare bytes, the unpacked length (little-endian) and one zlib stream.

#include <cstdint>
#include <string>

namespace dv::test {

// One zlib stream of text.
std::string zlibStrom(const std::string& text);

// laenge: the length written into the header (a wrong one makes a damaged file).
std::string kvt(const std::string& text, std::uint32_t laenge);
std::string kvt(const std::string& text);

}  // namespace dv::test
