// Drive letters, the /proc fallback, error texts, name decoding, and how the
// reader passes on a failing source.

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <map>

#include "platform/Laufwerke.h"
#include "platform/Udf.h"

namespace dv {
namespace {

std::string u8s(const char8_t* s) {
    return reinterpret_cast<const char*>(s);
}

// "D=/dev/sr0 E=/dev/sr2 ..." for a list of drives.
std::string buchstaben(const std::vector<OptischesLaufwerk>& liste) {
    std::string s;
    for (const auto& l : liste)
        s += (s.empty() ? "" : " ") + std::string(1, l.buchstabe) + "=" + l.geraet;
    return s;
}

TEST(Laufwerksbuchstaben, NachGeraetenummerAbD) {
    EXPECT_EQ(buchstaben(vergebeBuchstaben({{0, "/dev/sr10", ""},
                                            {0, "/dev/sr2", "B"},
                                            {0, "/dev/sr0", "A"},
                                            {0, "/dev/sr2", "B"}})),
              "D=/dev/sr0 E=/dev/sr2 F=/dev/sr10");
    std::vector<OptischesLaufwerk> viele;
    for (int i = 29; i >= 0; --i) viele.push_back({0, "/dev/sr" + std::to_string(i), ""});
    viele = vergebeBuchstaben(viele);
    ASSERT_EQ(viele.size(), 23u);
    EXPECT_TRUE(buchstaben(viele).ends_with(" Y=/dev/sr21 Z=/dev/sr22"));
}

TEST(Laufwerksbuchstaben, ProcCdromInfo) {
    EXPECT_EQ(cdromInfoGeraete("CD-ROM information, Id: cdrom.c 3.20 2003/12/17\n\n"
                               "drive name:\t\tsr1\tsr0\ndrive speed:\t\t24\t48\n"),
              (std::vector<std::string>{"/dev/sr1", "/dev/sr0"}));
    EXPECT_TRUE(cdromInfoGeraete("").empty());
    EXPECT_TRUE(cdromInfoGeraete("drive name:\n").empty());
}

TEST(Systemfehler, DeutscheTexte) {
    EXPECT_EQ(systemFehlerText(ENOENT), "Das System kann die angegebene Datei nicht finden.");
    EXPECT_EQ(systemFehlerText(ENOMEDIUM), "Das Gerät ist nicht bereit.");
    EXPECT_EQ(systemFehlerText(12345), "Systemfehler 12345.");
}

TEST(Udf, NamenAusOstaUnicode) {
    const std::uint8_t acht[] = {8, 'G', 'r', 0xF6, 0xDF, 'e'};
    const std::string groesse = u8s(u8"Größe");
    EXPECT_EQ(udf::cs0NachUtf8(acht, sizeof acht), groesse);
    const std::uint8_t sechzehn[] = {16,   0x20, 0xAC, 0x03, 0xA9, 0xD8, 0x3D,
                                     0xDE, 0x00, 0x00, 0x00, 0x00, 0x41};  // ends at the NUL
    const std::string euroOmegaLachen = u8s(u8"€Ω\U0001F600");
    EXPECT_EQ(udf::cs0NachUtf8(sechzehn, sizeof sechzehn), euroOmegaLachen);
    const std::uint8_t einzeln[] = {16, 0xDC, 0x00, 0x00, 0x41, 0x00};  // lone surrogate, odd tail
    EXPECT_EQ(udf::cs0NachUtf8(einzeln, sizeof einzeln),
              "\xEF\xBF\xBD"
              "A");
    const std::uint8_t fremd[] = {3, 'A', 'B'};
    EXPECT_EQ(udf::cs0NachUtf8(fremd, sizeof fremd), "");
    EXPECT_EQ(udf::cs0NachUtf8(acht, 0), "");
}

// Sectors in memory; a read of a sector in `defekt` fails as the drive would.
class SpeicherQuelle : public SektorQuelle {
  public:
    std::map<std::uint64_t, std::string> sektorDaten;
    std::uint64_t anzahl = 600;
    std::uint64_t defekt = ~0ull;

    std::uint64_t sektoren() const override { return anzahl; }
    LaufwerkErgebnis lies(std::uint64_t s, std::uint32_t n, void* ziel) override {
        for (std::uint32_t i = 0; i < n; ++i) {
            if (s + i == defekt) return {LaufwerkFehler::System, EIO, systemFehlerText(EIO)};
            auto it = sektorDaten.find(s + i);
            auto* z = static_cast<char*>(ziel) + i * kSektorGroesse;
            std::memset(z, 0, kSektorGroesse);
            if (it != sektorDaten.end()) std::memcpy(z, it->second.data(), it->second.size());
        }
        return {};
    }
    void kennung(std::uint64_t s, const char* id) { sektorDaten[s] = std::string("\0", 1) + id; }
};

TEST(Udf, ErkennungsfolgeUndLesefehlerDesLaufwerks) {
    SpeicherQuelle q;
    VolumenFakten f;
    // In the wrong order the recognition sequence is none.
    q.kennung(16, "NSR02");
    q.kennung(17, "BEA01");
    q.kennung(18, "TEA01");
    EXPECT_EQ(udf::volumen(q, f).art, LaufwerkFehler::KeinDateisystem);
    q.kennung(16, "BEA01");
    q.kennung(17, "NSR02");
    // A recognition sequence but no anchor anywhere: no known file system.
    EXPECT_EQ(udf::volumen(q, f).art, LaufwerkFehler::KeinDateisystem);
    // An anchor that cannot be read: its read error is the answer.
    q.defekt = 256;
    EXPECT_EQ(udf::volumen(q, f).nummer, EIO);
    q.defekt = 17;
    const auto r = udf::volumen(q, f);
    EXPECT_EQ(r.art, LaufwerkFehler::System);
    EXPECT_EQ(r.nummer, EIO);
    EXPECT_EQ(r.text, systemFehlerText(EIO));
    q.anzahl = 10;  // shorter than the system area
    q.defekt = ~0ull;
    EXPECT_EQ(udf::volumen(q, f).art, LaufwerkFehler::KeinDateisystem);
}

}  // namespace
}  // namespace dv
