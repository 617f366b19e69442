#pragma once
// The box file: a 64-byte header, an optional picture block (the cover's bytes)
// and a data block of tagged entries. Either block may be zlib-packed: then it is
// a u32 with the unpacked length followed by one zlib stream. All integers are
// little-endian.
//
// Header: 0 magic "ZELKA4.0"; 8/12 the writer's file version (most and least
// significant halves); 16 platform id, 20 major, 24 minor, 28 build of the
// writer's operating system; 32 zero (8); 40 export date "YYYYMMDD"; 48 export
// time "HHMMSS"; 54 flags; 55 zero; 56 picture offset (always 64); 60 data offset.
//
// Data entry: 1 byte token, the length (1 byte, or u16 for the five long tokens),
// then exactly that many value bytes without terminator.

#include <cstddef>
#include <cstdint>
#include <string>

namespace dv::box {

inline constexpr char kMagie[8] = {'Z', 'E', 'L', 'K', 'A', '4', '.', '0'};
inline constexpr std::size_t kKopfGroesse = 64;
inline constexpr std::uint32_t kBildOffset = 64;

// The program's file version 4.0.0.1 as the two header words.
inline constexpr std::uint32_t kVersionHoch = (4u << 16) | 0u;
inline constexpr std::uint32_t kVersionNiedrig = (0u << 16) | 1u;

// Flags byte: bits 0-2 picture type, 0x40 picture packed, 0x80 data packed.
inline constexpr std::uint8_t kBildTypMaske = 0x07;
inline constexpr std::uint8_t kBildGepackt = 0x40;
inline constexpr std::uint8_t kDatenGepackt = 0x80;

// Picture types and their cover file extensions.
inline constexpr int kBildBmp = 0;
inline constexpr int kBildJpg = 1;
inline constexpr int kBildGif = 2;
// "bmp", "jpg", "gif"; "bmp" for any other value (the flags' default).
const char* bildEndung(int bildTyp);
// The picture type of a file extension ("jpg", ".JPG" ...), compared without
// regard to case; -1 for an empty extension (no picture), -2 for an unknown one.
int bildTypVonEndung(const std::string& endung);

// Tokens.
inline constexpr std::uint8_t IMP_EXP_BOX = 0x81;
inline constexpr std::uint8_t IMP_EXP_BOX_TITEL = 0x10;
inline constexpr std::uint8_t IMP_EXP_BOX_EAN = 0x11;
inline constexpr std::uint8_t IMP_EXP_BOX_VERP = 0x12;
inline constexpr std::uint8_t IMP_EXP_BOX_EXTRAS = 0x13;
inline constexpr std::uint8_t IMP_EXP_BOX_TAGS = 0x14;
inline constexpr std::uint8_t IMP_EXP_DVD = 0x83;
inline constexpr std::uint8_t IMP_EXP_DVD_TITEL = 0x30;
inline constexpr std::uint8_t IMP_EXP_DVD_RC = 0x31;
inline constexpr std::uint8_t IMP_EXP_DVD_OPT = 0x32;
inline constexpr std::uint8_t IMP_EXP_DVD_SN = 0x33;
inline constexpr std::uint8_t IMP_EXP_DVD_LOW = 0x34;
inline constexpr std::uint8_t IMP_EXP_DVD_HIGH = 0x35;
inline constexpr std::uint8_t IMP_EXP_DVD_FORMAT = 0x36;
inline constexpr std::uint8_t IMP_EXP_DVD_EXTRAS = 0x37;
inline constexpr std::uint8_t IMP_EXP_DVD_JAHR = 0x38;
inline constexpr std::uint8_t IMP_EXP_DVD_TAGS = 0x39;
inline constexpr std::uint8_t IMP_EXP_FILM = 0x85;
inline constexpr std::uint8_t IMP_EXP_FILM_TITEL = 0x50;
inline constexpr std::uint8_t IMP_EXP_FILM_ORIG_TITEL = 0x51;
inline constexpr std::uint8_t IMP_EXP_FILM_ALTERNATIV_TITEL = 0x52;
inline constexpr std::uint8_t IMP_EXP_FILM_FSK = 0x53;
inline constexpr std::uint8_t IMP_EXP_FILM_JAHR = 0x54;
inline constexpr std::uint8_t IMP_EXP_FILM_LEN = 0x55;
inline constexpr std::uint8_t IMP_EXP_FILM_BILDFORMAT = 0x56;
inline constexpr std::uint8_t IMP_EXP_FILM_GENRE = 0x57;
inline constexpr std::uint8_t IMP_EXP_FILM_UNTERTITEL = 0x58;
inline constexpr std::uint8_t IMP_EXP_FILM_SPRACHE = 0x59;
inline constexpr std::uint8_t IMP_EXP_FILM_TONFORMAT = 0x5a;
inline constexpr std::uint8_t IMP_EXP_FILM_SPRACHEN_TONFORMAT = 0x5b;
inline constexpr std::uint8_t IMP_EXP_FILM_FUNKTION = 0x5c;
inline constexpr std::uint8_t IMP_EXP_FILM_PERSON = 0x5d;
inline constexpr std::uint8_t IMP_EXP_FILM_PERSON_FUNKTION = 0x5e;
inline constexpr std::uint8_t IMP_EXP_FILM_PERSON_ALIAS = 0x5f;
inline constexpr std::uint8_t IMP_EXP_FILM_INHALT = 0x60;
inline constexpr std::uint8_t IMP_EXP_FILM_KOMMENTAR = 0x61;
inline constexpr std::uint8_t IMP_EXP_FILM_TAGS = 0x62;
inline constexpr std::uint8_t IMP_EXP_ENDE_TOKEN = 0x80;

// The five tokens whose length is a u16.
bool istLangerToken(std::uint8_t token);
// Tokens whose value is a binary number; its width is the value's length.
bool istZahlToken(std::uint8_t token);

inline constexpr std::size_t kTextMax = 255;
inline constexpr std::size_t kLangMax = 65535;

// Sanity limits of the reader: a block whose unpacked size would exceed them is
// refused before anything is allocated.
inline constexpr std::uint32_t kBildMax = 32u << 20;
inline constexpr std::uint32_t kDatenMax = 16u << 20;

// Little-endian u32 at p.
std::uint32_t leseU32(const unsigned char* p);
void schreibeU32(unsigned char* p, std::uint32_t v);

// The header fields.
struct Kopf {
    std::uint32_t versionHoch = 0, versionNiedrig = 0;
    std::uint32_t plattform = 0, osHaupt = 0, osNeben = 0, osBuild = 0;
    char datum[8] = {};  // "YYYYMMDD", no terminator
    char zeit[6] = {};   // "HHMMSS"
    std::uint8_t flags = 0;
    std::uint32_t bildOffset = kBildOffset;
    std::uint32_t datenOffset = kBildOffset;
};
void packeKopf(const Kopf& k, unsigned char* ziel /* kKopfGroesse bytes */);
Kopf entpackeKopf(const unsigned char* quelle /* kKopfGroesse bytes */);

}  // namespace dv::box
