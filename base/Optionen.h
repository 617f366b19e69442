#pragma once
// The bits of the option word "Options" (default 47118 = 0xB80E) that the program
// reads. Each layer receives the word (or the single switch) from its caller.

#include <cstdint>

namespace dv {

// Box import: a box whose EAN exists is skipped without a message box.
inline constexpr std::uint32_t kOptDoppelteStill = 0x0001;
// XML export: embed the box's cover picture.
inline constexpr std::uint32_t kOptXmlCover = 0x0002;
// XML export: a box contains its DVDs, a DVD its films.
inline constexpr std::uint32_t kOptXmlUnterobjekte = 0x0004;
// Box file export: write the tag entries.
inline constexpr std::uint32_t kOptExportTags = 0x0008;
// Search: letters must be equal (no folding of A-Z).
inline constexpr std::uint32_t kOptSucheGrossKlein = 0x0010;
// Box import: ask "Box importieren ?" before anything is changed.
inline constexpr std::uint32_t kOptBoxBestaetigen = 0x0020;
// Box import: confirm every unknown lookup and person.
inline constexpr std::uint32_t kOptObjekteBestaetigen = 0x0800;
// Import of several box files: show the "Import-Info" dialog for each file.
inline constexpr std::uint32_t kOptStapelInfo = 0x1000;

}  // namespace dv
