#pragma once
// A reader for the volume structures of a disc: recognises UDF (and ISO 9660),
// reads the UDF volume's name and serial number, walks its directory tree and
// reads the start of one of its files. It works on any source of 2048-byte
// sectors, so a drive and an image file take the same path.
//
// Every descriptor is checked (tag identifier and checksum) and every address is
// checked against its partition and the source's size before it is read. Damaged
// or foreign data yields an error result (LaufwerkFehler::Beschaedigt), never a
// crash; no allocation is larger than the bounds below.

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/Laufwerke.h"

namespace dv {

inline constexpr std::size_t kSektorGroesse = 2048;

// Where the sectors come from.
class SektorQuelle {
  public:
    virtual ~SektorQuelle() = default;
    // Number of whole sectors of the source.
    virtual std::uint64_t sektoren() const = 0;
    // Reads anzahl sectors from sektor on into ziel (anzahl * 2048 bytes).
    virtual LaufwerkErgebnis lies(std::uint64_t sektor, std::uint32_t anzahl, void* ziel) = 0;
};

namespace udf {

// Largest directory that is read (bytes); a larger one counts as damaged.
inline constexpr std::uint64_t kMaxOrdnerBytes = 16u << 20;
// Bound of the whole walk: directory bytes read in total, and entries visited.
inline constexpr std::uint64_t kMaxWalkBytes = 256u << 20;
inline constexpr std::uint64_t kMaxEintraege = 1'000'000;
inline constexpr int kMaxTiefe = 64;

// File system, name and serial number. "UDF" needs a volume recognition sequence
// (BEA01, NSR02 or NSR03, TEA01) and a valid anchor; a UDF bridge disc counts as
// UDF. Otherwise an ISO 9660 volume yields "CDFS" (serial 0), anything else
// KeinDateisystem.
LaufwerkErgebnis volumen(SektorQuelle& quelle, VolumenFakten& fakten);

// Sum of the information lengths of all non-directory entries of the tree.
LaufwerkErgebnis groesse(SektorQuelle& quelle, std::uint64_t& bytes);

// Up to n bytes from the start of the file at pfad ('/'-separated, ASCII letter
// case ignored). n is capped at 16 MiB.
LaufwerkErgebnis leseDatei(SektorQuelle& quelle, const std::string& pfad, std::size_t n,
                           std::string& daten);

// OSTA compressed unicode (compression 8 or 16) as UTF-8; "" for another compression.
std::string cs0NachUtf8(const std::uint8_t* p, std::size_t n);

}  // namespace udf
}  // namespace dv
