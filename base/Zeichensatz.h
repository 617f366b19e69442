#pragma once
// Conversion between the catalogue's 8-bit Windows-1252 texts and UTF-8 / QString.
// Used only at the screen and terminal edges and where a catalogue text becomes
// part of a file name. The five bytes that Windows-1252 leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) map to the control characters of the same
// number, so every byte string survives the round trip.

#include <QString>
#include <string>
#include <string_view>

namespace dv {

std::string cp1252NachUtf8(std::string_view text);
// False when the input is not valid UTF-8 or holds a character that the code page
// cannot represent; out is then left unchanged.
bool utf8NachCp1252(std::string_view utf8, std::string& out);

QString alsQString(std::string_view cp1252);
// Characters the code page cannot hold become '?' and *ok is set false.
std::string ausQString(const QString& text, bool* ok = nullptr);

}  // namespace dv
