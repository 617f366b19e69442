#include "interchange/BoxLeser.h"

#include <zlib.h>

#include <cstdio>
#include <cstring>

namespace dv {
namespace {

// Deflate cannot shrink data by more than about 1:1032; a stated length beyond
// that cannot come from the stored stream and is refused without allocating.
constexpr std::uint64_t kHoechsteRate = 1032;

// The largest file that can hold a header and two blocks within the limits.
constexpr std::int64_t kDateiMax =
    static_cast<std::int64_t>(box::kKopfGroesse) + box::kBildMax + box::kDatenMax + 8;

std::uint32_t zahlWert(std::string_view w) {
    std::uint32_t v = 0;
    for (std::size_t i = 0; i < w.size() && i < 4; ++i)
        v |= static_cast<std::uint32_t>(static_cast<unsigned char>(w[i])) << (8 * i);
    return v;
}

}  // namespace

bool entpackeBlock(std::string_view block, std::uint32_t limit, std::string& out) {
    if (block.size() < 4) return false;
    const std::uint32_t laenge = box::leseU32(reinterpret_cast<const unsigned char*>(block.data()));
    const std::uint64_t strom = block.size() - 4;
    if (laenge > limit || laenge > strom * kHoechsteRate + 64) return false;
    std::string ziel(laenge, '\0');
    uLongf n = laenge;
    // uncompress wants a non-null target even for an empty result.
    unsigned char leer = 0;
    auto* zeiger = laenge ? reinterpret_cast<Bytef*>(ziel.data()) : &leer;
    const int rc = ::uncompress(zeiger, &n, reinterpret_cast<const Bytef*>(block.data() + 4),
                                static_cast<uLong>(strom));
    if (rc != Z_OK || n != laenge) return false;
    out.swap(ziel);
    return true;
}

bool packeBlock(std::string_view roh, std::string& out) {
    if (roh.size() > 0xFFFFFFFFu) return false;
    uLongf n = ::compressBound(static_cast<uLong>(roh.size()));
    std::string ziel(4 + n, '\0');
    box::schreibeU32(reinterpret_cast<unsigned char*>(ziel.data()),
                     static_cast<std::uint32_t>(roh.size()));
    const int rc =
        ::compress(reinterpret_cast<Bytef*>(ziel.data() + 4), &n,
                   reinterpret_cast<const Bytef*>(roh.data()), static_cast<uLong>(roh.size()));
    if (rc != Z_OK) return false;
    ziel.resize(4 + n);
    out.swap(ziel);
    return true;
}

bool naechsterBoxEintrag(std::string_view daten, std::size_t pos, BoxEintrag& e) {
    if (pos >= daten.size()) return false;
    const auto* p = reinterpret_cast<const unsigned char*>(daten.data());
    const std::size_t rest = daten.size() - pos;
    const std::uint8_t token = p[pos];
    const bool lang = box::istLangerToken(token);
    const std::size_t kopf = lang ? 3 : 2;
    if (rest < kopf) return false;
    const std::size_t laenge =
        lang ? (p[pos + 1] | static_cast<std::size_t>(p[pos + 2]) << 8) : p[pos + 1];
    if (laenge > rest - kopf) return false;
    e.token = token;
    e.wert = daten.substr(pos + kopf, laenge);
    e.verbraucht = kopf + laenge;
    if (token == box::IMP_EXP_ENDE_TOKEN || token == box::IMP_EXP_FILM) {
        e.text.clear();
    } else if (box::istZahlToken(token)) {
        if (laenge != 1 && laenge != 2 && laenge != 4) return false;
        const std::uint32_t v = zahlWert(e.wert);
        char puffer[16];
        if (token == box::IMP_EXP_DVD_SN || token == box::IMP_EXP_DVD_LOW ||
            token == box::IMP_EXP_DVD_HIGH)
            std::snprintf(puffer, sizeof puffer, "%ld",
                          static_cast<long>(static_cast<std::int32_t>(v)));
        else
            std::snprintf(puffer, sizeof puffer, "%d", static_cast<int>(v));
        e.text = puffer;
    } else {
        e.text.assign(e.wert.data(), ::strnlen(e.wert.data(), e.wert.size()));
    }
    return true;
}

bool datenVollstaendig(std::string_view daten) {
    BoxEintrag e;
    for (std::size_t pos = 0; pos < daten.size(); pos += e.verbraucht) {
        if (!naechsterBoxEintrag(daten, pos, e)) return false;
        if (e.token == box::IMP_EXP_ENDE_TOKEN) return true;
    }
    return false;
}

void BoxLeser::leere() {
    gueltig_ = false;
    kopf_ = box::Kopf{};
    bild_.clear();
    bildGepackt_ = false;
    daten_.clear();
}

bool BoxLeser::lese(Dateisystem& fs, const std::string& pfad) {
    leere();
    auto datei = fs.oeffne(pfad, OeffnenModus::Lesen);
    if (!datei) return false;
    const std::int64_t laenge = datei->laenge();
    if (laenge < static_cast<std::int64_t>(box::kKopfGroesse) || laenge > kDateiMax) return false;
    std::string bytes(static_cast<std::size_t>(laenge), '\0');
    std::int64_t gelesen = 0;
    while (gelesen < laenge) {
        const std::int64_t n = datei->lese(gelesen, bytes.data() + gelesen,
                                           static_cast<std::size_t>(laenge - gelesen));
        if (n <= 0) return false;
        gelesen += n;
    }
    return leseBytes(bytes);
}

bool BoxLeser::leseBytes(std::string_view datei) {
    leere();
    if (datei.size() < box::kKopfGroesse || static_cast<std::int64_t>(datei.size()) > kDateiMax)
        return false;
    if (std::memcmp(datei.data(), box::kMagie, sizeof box::kMagie) != 0) return false;
    const box::Kopf k = box::entpackeKopf(reinterpret_cast<const unsigned char*>(datei.data()));
    // The picture runs from offset 64 for (data offset - picture offset) bytes;
    // both ends must lie inside the file.
    if (k.datenOffset < k.bildOffset || k.datenOffset > datei.size()) return false;
    const std::uint64_t bildGroesse = k.datenOffset - k.bildOffset;
    if (box::kKopfGroesse + bildGroesse > datei.size()) return false;
    std::string_view bild = datei.substr(box::kKopfGroesse, bildGroesse);
    std::string_view daten = datei.substr(k.datenOffset);

    std::string datenRoh;
    if (k.flags & box::kDatenGepackt) {
        if (!entpackeBlock(daten, box::kDatenMax, datenRoh)) return false;
    } else {
        if (daten.size() > box::kDatenMax) return false;
        datenRoh.assign(daten);
    }
    if (!datenVollstaendig(datenRoh)) return false;

    // A picture that cannot be unpacked is kept as read; the import leaves it out.
    if ((k.flags & box::kBildGepackt) && !bild.empty()) {
        if (!entpackeBlock(bild, box::kBildMax, bild_)) {
            bild_.assign(bild);
            bildGepackt_ = true;
        }
    } else {
        if (bild.size() > box::kBildMax) return false;
        bild_.assign(bild);
    }
    kopf_ = k;
    daten_.swap(datenRoh);
    gueltig_ = true;
    return true;
}

}  // namespace dv
