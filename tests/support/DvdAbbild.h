#pragma once
// Small disc images for the tests of disc recognition, built at test time from a
// folder tree with genisoimage, and udfinfo's view of them as the reference.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace dv::test {

// Whether genisoimage and udfinfo can be run.
bool abbildWerkzeugeDa();

// One file of the tree: '/'-separated path below the root and its bytes. A path
// ending in '/' makes an empty folder.
struct BaumDatei {
    std::string pfad;
    std::string inhalt;
};

// Writes the tree into ordner + "baum/", gives every file and folder the same
// fixed time, and builds ordner + datei from it: a UDF bridge image (udf) or a
// plain ISO 9660 one. volumen is the volume name (UTF-8). Returns the image path,
// or "" when genisoimage failed.
std::string baueAbbild(const std::string& ordner, const std::vector<BaumDatei>& baum,
                       const std::string& volumen, bool udf = true,
                       const std::string& datei = "dvd.iso");

// The "key=value" lines of udfinfo for the image (empty when it fails).
std::map<std::string, std::string> udfinfo(const std::string& abbild);

// Sets the hidden bit of the UDF directory entry with that (8-bit) name, with a
// correct tag checksum and CRC afterwards. False when no such entry was found.
bool versteckeEintrag(const std::string& abbild, const std::string& name);

// The UDF directory entry of that name: byte offset of its tag in the image, or -1.
long findeOrdnerEintrag(const std::string& bytes, const std::string& name);

// The checksum of the 16-byte descriptor tag at tag (byte 4 left out).
unsigned char tagPruefsumme(const unsigned char* tag);

// Recomputes checksum and CRC of the descriptor tag at offset off in bytes.
void repariereTag(std::string& bytes, std::size_t off);

// An IFO file of laenge bytes whose region byte (offset 35) is region.
std::string ifoDatei(std::uint8_t region, std::size_t laenge = 2048);

}  // namespace dv::test
