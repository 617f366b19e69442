#include "interchange/BoxFormat.h"

#include <strings.h>

#include <cstring>

namespace dv::box {

void schreibeU32(unsigned char* p, std::uint32_t v) {
    for (int i = 0; i < 4; ++i) p[i] = static_cast<unsigned char>(v >> (8 * i));
}

std::uint32_t leseU32(const unsigned char* p) {
    return static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
           static_cast<std::uint32_t>(p[2]) << 16 | static_cast<std::uint32_t>(p[3]) << 24;
}

const char* bildEndung(int bildTyp) {
    switch (bildTyp) {
        case kBildJpg:
            return "jpg";
        case kBildGif:
            return "gif";
        default:
            return "bmp";
    }
}

int bildTypVonEndung(const std::string& endung) {
    const char* e = endung.c_str();
    if (*e == '.') ++e;
    if (*e == '\0') return -1;
    if (::strcasecmp(e, "bmp") == 0) return kBildBmp;
    if (::strcasecmp(e, "jpg") == 0) return kBildJpg;
    if (::strcasecmp(e, "gif") == 0) return kBildGif;
    return -2;
}

bool istLangerToken(std::uint8_t token) {
    return token == IMP_EXP_BOX_TAGS || token == IMP_EXP_DVD_TAGS || token == IMP_EXP_FILM_INHALT ||
           token == IMP_EXP_FILM_KOMMENTAR || token == IMP_EXP_FILM_TAGS;
}

bool istZahlToken(std::uint8_t token) {
    switch (token) {
        case IMP_EXP_BOX:
        case IMP_EXP_DVD:
        case IMP_EXP_DVD_RC:
        case IMP_EXP_DVD_OPT:
        case IMP_EXP_DVD_SN:
        case IMP_EXP_DVD_LOW:
        case IMP_EXP_DVD_HIGH:
        case IMP_EXP_DVD_JAHR:
        case IMP_EXP_FILM_FSK:
        case IMP_EXP_FILM_JAHR:
        case IMP_EXP_FILM_LEN:
            return true;
        default:
            return false;
    }
}

void packeKopf(const Kopf& k, unsigned char* z) {
    std::memset(z, 0, kKopfGroesse);
    std::memcpy(z, kMagie, sizeof kMagie);
    schreibeU32(z + 8, k.versionHoch);
    schreibeU32(z + 12, k.versionNiedrig);
    schreibeU32(z + 16, k.plattform);
    schreibeU32(z + 20, k.osHaupt);
    schreibeU32(z + 24, k.osNeben);
    schreibeU32(z + 28, k.osBuild);
    std::memcpy(z + 40, k.datum, sizeof k.datum);
    std::memcpy(z + 48, k.zeit, sizeof k.zeit);
    z[54] = k.flags;
    schreibeU32(z + 56, k.bildOffset);
    schreibeU32(z + 60, k.datenOffset);
}

Kopf entpackeKopf(const unsigned char* q) {
    Kopf k;
    k.versionHoch = leseU32(q + 8);
    k.versionNiedrig = leseU32(q + 12);
    k.plattform = leseU32(q + 16);
    k.osHaupt = leseU32(q + 20);
    k.osNeben = leseU32(q + 24);
    k.osBuild = leseU32(q + 28);
    std::memcpy(k.datum, q + 40, sizeof k.datum);
    std::memcpy(k.zeit, q + 48, sizeof k.zeit);
    k.flags = q[54];
    k.bildOffset = leseU32(q + 56);
    k.datenOffset = leseU32(q + 60);
    return k;
}

}  // namespace dv::box
