#include "platform/Udf.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace dv::udf {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Block = std::array<std::uint8_t, kSektorGroesse>;

// Descriptor tag identifiers (ECMA-167 3/7.2.1 and 4/7.2.1).
enum : std::uint16_t {
    kTagAnker = 2,
    kTagPartition = 5,
    kTagLogischesVolumen = 6,
    kTagEnde = 8,
    kTagFileSet = 256,
    kTagOrdnerEintrag = 257,
    kTagZuordnung = 258,
    kTagDateiEintrag = 261,
    kTagErweiterterEintrag = 266,
};

constexpr std::uint8_t kMerkmalOrdner = 0x02;
constexpr std::uint8_t kMerkmalGeloescht = 0x04;
constexpr std::uint8_t kMerkmalEltern = 0x08;
constexpr std::uint8_t kTypOrdner = 4;

std::uint16_t le16(const std::uint8_t* p) {
    return static_cast<std::uint16_t>(p[0] | (p[1] << 8));
}
std::uint32_t le32(const std::uint8_t* p) {
    return static_cast<std::uint32_t>(p[0]) | (static_cast<std::uint32_t>(p[1]) << 8) |
           (static_cast<std::uint32_t>(p[2]) << 16) | (static_cast<std::uint32_t>(p[3]) << 24);
}
std::uint64_t le64(const std::uint8_t* p) {
    return le32(p) | (static_cast<std::uint64_t>(le32(p + 4)) << 32);
}

// Identifier and checksum of the 16-byte tag at p.
bool tagOk(const std::uint8_t* p, std::uint16_t id) {
    std::uint8_t summe = 0;
    for (int i = 0; i < 16; ++i) {
        if (i != 4) summe = static_cast<std::uint8_t>(summe + p[i]);
    }
    return summe == p[4] && le16(p) == id;
}

LaufwerkErgebnis fehler(LaufwerkFehler art, std::string text) {
    LaufwerkErgebnis e;
    e.art = art;
    e.text = std::move(text);
    return e;
}

LaufwerkErgebnis beschaedigt(const char* teil) {
    return fehler(
        LaufwerkFehler::Beschaedigt,
        std::string("Die Datenträgerstruktur ist beschädigt und nicht lesbar (") + teil + ").");
}

LaufwerkErgebnis keinDateisystem() {
    return fehler(LaufwerkFehler::KeinDateisystem,
                  "Der Datenträger enthält kein bekanntes Dateisystem.");
}

void haengeUtf8An(std::string& out, std::uint32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

// A dstring: a field of feld bytes whose last byte holds the length used.
std::string dstring(const std::uint8_t* p, std::size_t feld) {
    const std::size_t benutzt = std::min<std::size_t>(p[feld - 1], feld - 1);
    return cs0NachUtf8(p, benutzt);
}

// Folds ASCII letters only, as names on the disc are compared.
bool gleichOhneFall(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        auto fa = static_cast<unsigned char>(a[i]);
        auto fb = static_cast<unsigned char>(b[i]);
        if (fa >= 'a' && fa <= 'z') fa = static_cast<unsigned char>(fa - 32);
        if (fb >= 'a' && fb <= 'z') fb = static_cast<unsigned char>(fb - 32);
        if (fa != fb) return false;
    }
    return true;
}

struct Adresse {
    std::uint32_t lbn = 0;
    std::uint16_t partition = 0;  // partition reference number (map index)
};

Adresse langeAdresse(const std::uint8_t* p) {
    return {le32(p + 4), le16(p + 8)};
}

// A file entry or extended file entry, reduced to what the reader needs.
struct Eintrag {
    std::uint8_t typ = 0;      // ICB file type
    std::uint64_t laenge = 0;  // information length
    unsigned adArt = 0;        // 0 short_ad, 1 long_ad, 2 ext_ad, 3 embedded
    Adresse ort;
    Bytes ads;  // allocation descriptors, or the embedded data
};

// One entry of a directory, parent and deleted ones left out.
struct Fid {
    std::uint8_t merkmale = 0;
    Adresse icb;
    std::string name;
};

// The opened volume: partitions, logical volume and file set.
class Volumen {
  public:
    explicit Volumen(SektorQuelle& quelle) : q_(quelle) {}

    // Anchor, volume descriptor sequence and file set descriptor.
    // KeinDateisystem when no valid anchor exists.
    LaufwerkErgebnis oeffne();

    std::string name() const { return dstring(lvd_.data() + 84, 128); }
    std::uint32_t seriennummer() const;
    Adresse wurzel() const { return langeAdresse(fsd_.data() + 400); }

    LaufwerkErgebnis eintrag(Adresse icb, Eintrag& e);
    // Up to max bytes of the entry's data.
    LaufwerkErgebnis inhalt(const Eintrag& e, std::uint64_t max, Bytes& daten);

  private:
    struct Partition {
        bool da = false;
        std::uint16_t nummer = 0;
        std::uint32_t vds = 0;
        std::uint32_t start = 0;
        std::uint32_t laenge = 0;
    };

    LaufwerkErgebnis lies(Adresse a, std::uint32_t bloecke, std::uint8_t* ziel);
    LaufwerkErgebnis leseSektor(std::uint64_t s, Block& b) { return q_.lies(s, 1, b.data()); }
    LaufwerkErgebnis sucheAnker(Block& anker);
    LaufwerkErgebnis leseSequenz(std::uint32_t laenge, std::uint32_t ort);
    LaufwerkErgebnis ordnePartitionenZu();
    LaufwerkErgebnis folgeZuordnung(Adresse a, Bytes& ads);

    SektorQuelle& q_;
    std::vector<Partition> pds_;   // partition descriptors found
    std::vector<Partition> maps_;  // by partition reference number
    bool lvdDa_ = false;
    std::uint32_t lvdVds_ = 0;
    Block lvd_{};
    Block fsd_{};
};

LaufwerkErgebnis Volumen::sucheAnker(Block& anker) {
    const std::uint64_t n = q_.sektoren();
    const std::uint64_t orte[3] = {256, n > 256 ? n - 256 : 0, n > 0 ? n - 1 : 0};
    // A sector that cannot be read is passed over like a damaged one; its error is
    // the answer only when no anchor is found at all.
    LaufwerkErgebnis lesefehler;
    for (std::uint64_t s : orte) {
        if (s < 256 || s >= n) continue;
        auto r = leseSektor(s, anker);
        if (!r.ok()) {
            if (lesefehler.ok()) lesefehler = r;
            continue;
        }
        if (tagOk(anker.data(), kTagAnker) && le32(anker.data() + 12) == s) return {};
    }
    return lesefehler.ok() ? keinDateisystem() : lesefehler;
}

LaufwerkErgebnis Volumen::leseSequenz(std::uint32_t laenge, std::uint32_t ort) {
    const std::uint32_t anzahl = std::min<std::uint32_t>(laenge / kSektorGroesse, 64);
    Block b;
    for (std::uint32_t i = 0; i < anzahl; ++i) {
        const std::uint64_t s = static_cast<std::uint64_t>(ort) + i;
        if (s >= q_.sektoren()) break;
        auto r = leseSektor(s, b);
        if (!r.ok()) return r;
        const std::uint16_t id = le16(b.data());
        if (!tagOk(b.data(), id) || id == kTagEnde) break;
        if (id == kTagPartition) {
            Partition p{true, le16(b.data() + 22), le32(b.data() + 16), le32(b.data() + 188),
                        le32(b.data() + 192)};
            auto alt = std::find_if(pds_.begin(), pds_.end(),
                                    [&](const Partition& x) { return x.nummer == p.nummer; });
            if (alt == pds_.end()) {
                pds_.push_back(p);
            } else if (p.vds >= alt->vds) {
                *alt = p;
            }
        } else if (id == kTagLogischesVolumen) {
            const std::uint32_t vds = le32(b.data() + 16);
            if (!lvdDa_ || vds >= lvdVds_) {
                lvd_ = b;
                lvdDa_ = true;
                lvdVds_ = vds;
            }
        }
    }
    return {};
}

LaufwerkErgebnis Volumen::ordnePartitionenZu() {
    const std::uint8_t* p = lvd_.data();
    if (le32(p + 212) != kSektorGroesse) return beschaedigt("logische Blockgröße");
    const std::uint64_t tabelle = le32(p + 264);
    const std::uint32_t anzahl = le32(p + 268);
    if (440 + tabelle > kSektorGroesse || anzahl > tabelle / 6) {
        return beschaedigt("Partitionstabelle");
    }
    std::size_t off = 440;
    const std::size_t ende = 440 + static_cast<std::size_t>(tabelle);
    for (std::uint32_t i = 0; i < anzahl; ++i) {
        if (off + 2 > ende) return beschaedigt("Partitionstabelle");
        const std::uint8_t typ = p[off];
        const std::uint8_t len = p[off + 1];
        if (len < 6 || off + len > ende) return beschaedigt("Partitionstabelle");
        // Type 1 names the partition at byte 4; type 2 (sparable and others) at byte 38.
        std::uint16_t nummer = 0;
        if (typ == 1) {
            nummer = le16(p + off + 4);
        } else if (typ == 2 && len >= 40) {
            nummer = le16(p + off + 38);
        } else {
            return beschaedigt("Partitionstabelle");
        }
        auto pd = std::find_if(pds_.begin(), pds_.end(),
                               [&](const Partition& x) { return x.nummer == nummer; });
        maps_.push_back(pd == pds_.end() ? Partition{} : *pd);
        off += len;
    }
    return {};
}

LaufwerkErgebnis Volumen::oeffne() {
    Block anker;
    auto r = sucheAnker(anker);
    if (!r.ok()) return r;
    r = leseSequenz(le32(anker.data() + 16), le32(anker.data() + 20));
    if (!r.ok()) return r;
    if (!lvdDa_ || pds_.empty()) {
        r = leseSequenz(le32(anker.data() + 24), le32(anker.data() + 28));
        if (!r.ok()) return r;
    }
    if (!lvdDa_ || pds_.empty()) return beschaedigt("Volumenbeschreibung");
    r = ordnePartitionenZu();
    if (!r.ok()) return r;
    Block b;
    r = lies(langeAdresse(lvd_.data() + 248), 1, b.data());
    if (!r.ok()) return r;
    if (!tagOk(b.data(), kTagFileSet)) return beschaedigt("File Set Descriptor");
    fsd_ = b;
    return {};
}

// Four lane sums of the 512-byte file set descriptor, byte i into lane i mod 4,
// packed little-endian: the serial number Windows shows for a UDF volume.
std::uint32_t Volumen::seriennummer() const {
    std::uint8_t summe[4] = {0, 0, 0, 0};
    for (std::size_t i = 0; i < 512; ++i) {
        summe[i % 4] = static_cast<std::uint8_t>(summe[i % 4] + fsd_[i]);
    }
    return static_cast<std::uint32_t>(summe[0]) | (static_cast<std::uint32_t>(summe[1]) << 8) |
           (static_cast<std::uint32_t>(summe[2]) << 16) |
           (static_cast<std::uint32_t>(summe[3]) << 24);
}

LaufwerkErgebnis Volumen::lies(Adresse a, std::uint32_t bloecke, std::uint8_t* ziel) {
    if (a.partition >= maps_.size() || !maps_[a.partition].da) return beschaedigt("Partition");
    const Partition& p = maps_[a.partition];
    if (static_cast<std::uint64_t>(a.lbn) + bloecke > p.laenge) {
        return beschaedigt("Adresse außerhalb der Partition");
    }
    const std::uint64_t s = static_cast<std::uint64_t>(p.start) + a.lbn;
    if (s + bloecke > q_.sektoren()) return beschaedigt("Adresse außerhalb des Datenträgers");
    return q_.lies(s, bloecke, ziel);
}

LaufwerkErgebnis Volumen::eintrag(Adresse icb, Eintrag& e) {
    Block b;
    auto r = lies(icb, 1, b.data());
    if (!r.ok()) return r;
    std::size_t basis = 0;
    std::uint64_t lea = 0;
    std::uint64_t lad = 0;
    if (tagOk(b.data(), kTagDateiEintrag)) {
        basis = 176;
        lea = le32(b.data() + 168);
        lad = le32(b.data() + 172);
    } else if (tagOk(b.data(), kTagErweiterterEintrag)) {
        basis = 216;
        lea = le32(b.data() + 208);
        lad = le32(b.data() + 212);
    } else {
        return beschaedigt("Dateieintrag");
    }
    if (basis + lea + lad > kSektorGroesse) return beschaedigt("Dateieintrag");
    e.typ = b[27];
    e.adArt = le16(b.data() + 34) & 7u;
    if (e.adArt > 3) return beschaedigt("Dateieintrag");
    e.laenge = le64(b.data() + 56);
    e.ort = icb;
    const auto* ads = b.data() + basis + lea;
    e.ads.assign(ads, ads + lad);
    return {};
}

LaufwerkErgebnis Volumen::folgeZuordnung(Adresse a, Bytes& ads) {
    Block b;
    auto r = lies(a, 1, b.data());
    if (!r.ok()) return r;
    if (!tagOk(b.data(), kTagZuordnung)) return beschaedigt("Zuordnungsblock");
    const std::uint64_t lad = le32(b.data() + 20);
    if (24 + lad > kSektorGroesse) return beschaedigt("Zuordnungsblock");
    ads.assign(b.data() + 24, b.data() + 24 + lad);
    return {};
}

LaufwerkErgebnis Volumen::inhalt(const Eintrag& e, std::uint64_t max, Bytes& daten) {
    const std::uint64_t soll = std::min(e.laenge, max);
    daten.clear();
    if (e.adArt == 3) {
        if (soll > e.ads.size()) return beschaedigt("eingebettete Daten");
        daten.assign(e.ads.begin(), e.ads.begin() + static_cast<std::ptrdiff_t>(soll));
        return {};
    }
    const std::size_t groesse = e.adArt == 0 ? 8 : e.adArt == 1 ? 16 : 20;
    Bytes ads = e.ads;
    std::size_t off = 0;
    int folgen = 0;
    daten.reserve(static_cast<std::size_t>(soll));
    Bytes puffer;
    while (daten.size() < soll) {
        if (off + groesse > ads.size()) break;
        const std::uint8_t* ad = ads.data() + off;
        off += groesse;
        const std::uint32_t roh = le32(ad);
        const std::uint32_t len = roh & 0x3FFFFFFFu;
        const unsigned art = roh >> 30;
        Adresse ort = e.adArt == 0   ? Adresse{le32(ad + 4), e.ort.partition}
                      : e.adArt == 1 ? langeAdresse(ad)
                                     : Adresse{le32(ad + 12), le16(ad + 16)};
        if (len == 0) break;
        if (art == 3) {
            if (++folgen > 1024) return beschaedigt("Zuordnungskette");
            auto r = folgeZuordnung(ort, ads);
            if (!r.ok()) return r;
            off = 0;
            continue;
        }
        const std::uint64_t teil = std::min<std::uint64_t>(len, soll - daten.size());
        if (art != 0) {  // allocated or unallocated but not recorded: reads as zeros
            daten.insert(daten.end(), static_cast<std::size_t>(teil), 0);
            continue;
        }
        const auto bloecke =
            static_cast<std::uint32_t>((teil + kSektorGroesse - 1) / kSektorGroesse);
        puffer.resize(static_cast<std::size_t>(bloecke) * kSektorGroesse);
        auto r = lies(ort, bloecke, puffer.data());
        if (!r.ok()) return r;
        daten.insert(daten.end(), puffer.begin(),
                     puffer.begin() + static_cast<std::ptrdiff_t>(teil));
    }
    if (daten.size() < soll) return beschaedigt("Dateiinhalt unvollständig");
    return {};
}

// Calls f(fid) for every entry of the directory data, parent and deleted ones left
// out; f returns a result, and the first error ends the loop.
template <class F>
LaufwerkErgebnis jederEintrag(const Bytes& d, F&& f) {
    std::size_t pos = 0;
    while (pos < d.size()) {
        const std::uint8_t* p = d.data() + pos;
        const std::size_t rest = d.size() - pos;
        if (le16(p) == 0 && std::all_of(p, p + rest, [](std::uint8_t c) { return c == 0; })) {
            break;  // zero padding after the last entry
        }
        if (rest < 38 || !tagOk(p, kTagOrdnerEintrag)) return beschaedigt("Ordnereintrag");
        const std::size_t gesamt = 38u + le16(p + 36) + p[19];
        if (gesamt > rest) return beschaedigt("Ordnereintrag");
        Fid fid{p[18], langeAdresse(p + 20), cs0NachUtf8(p + 38 + le16(p + 36), p[19])};
        pos += (gesamt + 3) & ~static_cast<std::size_t>(3);
        if (fid.merkmale & (kMerkmalGeloescht | kMerkmalEltern)) continue;
        auto r = f(fid);
        if (!r.ok()) return r;
    }
    return {};
}

LaufwerkErgebnis leseOrdner(Volumen& v, Adresse icb, Bytes& daten) {
    Eintrag e;
    auto r = v.eintrag(icb, e);
    if (!r.ok()) return r;
    if (e.typ != kTypOrdner) return beschaedigt("Ordner erwartet");
    if (e.laenge > kMaxOrdnerBytes) return beschaedigt("Ordner zu groß");
    return v.inhalt(e, e.laenge, daten);
}

// Recognition sequence from sector 16 on: whether it announces UDF, and the
// sector of an ISO 9660 primary volume descriptor (0: none).
LaufwerkErgebnis erkenneFolge(SektorQuelle& q, bool& udf, std::uint64_t& iso) {
    bool bea = false, nsr = false;
    udf = false;
    iso = 0;
    Block b;
    for (std::uint64_t s = 16; s < std::min<std::uint64_t>(q.sektoren(), 16 + 64); ++s) {
        auto r = q.lies(s, 1, b.data());
        if (!r.ok()) return r;
        const std::string_view id(reinterpret_cast<const char*>(b.data()) + 1, 5);
        if (id == "CD001") {
            if (b[0] == 1 && iso == 0) iso = s;
        } else if (id == "BEA01") {
            bea = true;
        } else if (id == "NSR02" || id == "NSR03") {
            nsr = nsr || bea;
        } else if (id == "TEA01") {
            if (nsr) {
                udf = true;
                break;
            }
        } else if (id != "BOOT2" && id != "CDW02") {
            break;
        }
    }
    return {};
}

LaufwerkErgebnis isoFakten(SektorQuelle& q, std::uint64_t sektor, VolumenFakten& fakten) {
    Block b;
    auto r = q.lies(sektor, 1, b.data());
    if (!r.ok()) return r;
    std::string name(reinterpret_cast<const char*>(b.data()) + 40, 32);
    name.erase(name.find_last_not_of(" \0", std::string::npos, 2) + 1);
    fakten = VolumenFakten{"CDFS", name, 0, 255, 0x00080000u};
    return {};
}

}  // namespace

std::string cs0NachUtf8(const std::uint8_t* p, std::size_t n) {
    std::string out;
    if (n == 0) return out;
    const std::uint8_t art = p[0];
    if (art == 8 || art == 254) {
        for (std::size_t i = 1; i < n && p[i] != 0; ++i) haengeUtf8An(out, p[i]);
    } else if (art == 16 || art == 255) {
        for (std::size_t i = 1; i + 1 < n; i += 2) {
            std::uint32_t cp = (static_cast<std::uint32_t>(p[i]) << 8) | p[i + 1];
            if (cp == 0) break;
            if (cp >= 0xD800 && cp < 0xDC00 && i + 3 < n) {
                const std::uint32_t tief = (static_cast<std::uint32_t>(p[i + 2]) << 8) | p[i + 3];
                if (tief >= 0xDC00 && tief < 0xE000) {
                    cp = 0x10000 + ((cp - 0xD800) << 10) + (tief - 0xDC00);
                    i += 2;
                }
            }
            if (cp >= 0xD800 && cp < 0xE000) cp = 0xFFFD;
            haengeUtf8An(out, cp);
        }
    }
    return out;
}

LaufwerkErgebnis volumen(SektorQuelle& quelle, VolumenFakten& fakten) {
    bool udf = false;
    std::uint64_t iso = 0;
    auto r = erkenneFolge(quelle, udf, iso);
    if (!r.ok()) return r;
    if (udf) {
        Volumen v(quelle);
        r = v.oeffne();
        if (r.ok()) {
            fakten = VolumenFakten{"UDF", v.name(), v.seriennummer(), 255, 0x00080007u};
            return {};
        }
        if (r.art != LaufwerkFehler::KeinDateisystem || iso == 0) return r;
    }
    if (iso != 0) return isoFakten(quelle, iso, fakten);
    return keinDateisystem();
}

LaufwerkErgebnis groesse(SektorQuelle& quelle, std::uint64_t& bytes) {
    Volumen v(quelle);
    auto r = v.oeffne();
    if (!r.ok()) return r;
    struct Offen {
        Adresse icb;
        int tiefe;
    };
    std::vector<Offen> stapel{{v.wurzel(), 0}};
    std::unordered_set<std::uint64_t> besucht;
    std::uint64_t summe = 0, gelesen = 0, eintraege = 0;
    Bytes daten;
    while (!stapel.empty()) {
        const Offen o = stapel.back();
        stapel.pop_back();
        // A directory reached a second time (a loop in damaged data) is walked once.
        const std::uint64_t schluessel =
            (static_cast<std::uint64_t>(o.icb.partition) << 32) | o.icb.lbn;
        if (!besucht.insert(schluessel).second) continue;
        r = leseOrdner(v, o.icb, daten);
        if (!r.ok()) return r;
        gelesen += daten.size();
        if (gelesen > kMaxWalkBytes) return beschaedigt("zu viele Ordner");
        r = jederEintrag(daten, [&](const Fid& f) -> LaufwerkErgebnis {
            if (++eintraege > kMaxEintraege) return beschaedigt("zu viele Einträge");
            if (f.merkmale & kMerkmalOrdner) {
                if (o.tiefe + 1 > kMaxTiefe) return beschaedigt("zu tief verschachtelt");
                stapel.push_back({f.icb, o.tiefe + 1});
                return {};
            }
            Eintrag e;
            auto er = v.eintrag(f.icb, e);
            if (er.ok()) summe += e.laenge;
            return er;
        });
        if (!r.ok()) return r;
    }
    bytes = summe;
    return {};
}

LaufwerkErgebnis leseDatei(SektorQuelle& quelle, const std::string& pfad, std::size_t n,
                           std::string& daten) {
    Volumen v(quelle);
    auto r = v.oeffne();
    if (!r.ok()) return r;
    std::vector<std::string> teile;
    for (std::size_t a = 0; a <= pfad.size();) {
        const std::size_t b = std::min(pfad.find('/', a), pfad.size());
        if (b > a) teile.push_back(pfad.substr(a, b - a));
        a = b + 1;
    }
    if (teile.empty()) return fehler(LaufwerkFehler::NichtGefunden, systemFehlerText(ENOENT));
    Adresse ort = v.wurzel();
    Bytes ordner;
    for (std::size_t i = 0; i < teile.size(); ++i) {
        r = leseOrdner(v, ort, ordner);
        if (!r.ok()) return r;
        bool gefunden = false;
        const bool letzter = i + 1 == teile.size();
        r = jederEintrag(ordner, [&](const Fid& f) -> LaufwerkErgebnis {
            const bool istOrdner = (f.merkmale & kMerkmalOrdner) != 0;
            if (!gefunden && istOrdner != letzter && gleichOhneFall(f.name, teile[i])) {
                gefunden = true;
                ort = f.icb;
            }
            return {};
        });
        if (!r.ok()) return r;
        if (!gefunden) return fehler(LaufwerkFehler::NichtGefunden, systemFehlerText(ENOENT));
    }
    Eintrag e;
    r = v.eintrag(ort, e);
    if (!r.ok()) return r;
    Bytes inhalt;
    r = v.inhalt(e, std::min<std::uint64_t>(n, kMaxOrdnerBytes), inhalt);
    if (!r.ok()) return r;
    daten.assign(inhalt.begin(), inhalt.end());
    return {};
}

}  // namespace dv::udf
