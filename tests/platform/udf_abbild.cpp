// The volume reader on real images made by genisoimage, with udfinfo as the
// reference for name and serial number and the tree itself for the size.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <random>

#include "platform/Laufwerke.h"
#include "tests/support/DvdAbbild.h"
#include "tests/support/TempOrdner.h"

namespace dv {
namespace {

using test::BaumDatei;

std::string u8s(const char8_t* s) {
    return reinterpret_cast<const char*>(s);
}

std::string muster(std::size_t n, unsigned saat) {
    std::string s(n, '\0');
    std::mt19937 zufall(saat);
    for (auto& c : s) c = static_cast<char>(zufall());
    return s;
}

std::vector<BaumDatei> dvdBaum() {
    return {
        {"VIDEO_TS/VIDEO_TS.IFO", test::ifoDatei(0xFD, 12288)},
        {"VIDEO_TS/VIDEO_TS.BUP", test::ifoDatei(0xFD, 12288)},
        {"VIDEO_TS/VTS_01_0.IFO", muster(30001, 1)},
        {"VIDEO_TS/VTS_01_1.VOB", muster(1'000'001, 2)},
        {"VIDEO_TS/LEER.DAT", ""},
        {"AUDIO_TS/", ""},
        {"EXTRA/TIEF/NOCH/TIEFER/bonus.txt", "Bonus"},
        {".versteckt", "geheim"},
    };
}

std::uint64_t summe(const std::vector<BaumDatei>& baum) {
    std::uint64_t s = 0;
    for (const auto& d : baum) s += d.inhalt.size();
    return s;
}

std::string hex(std::uint32_t wert) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08x", wert);
    return text;
}

// Byte offset of the first sector whose descriptor tag has that identifier.
long sektorMitTag(const std::string& bytes, int id, std::size_t ab = 0) {
    for (std::size_t off = ab; off + 2048 <= bytes.size(); off += 2048) {
        const auto* p = reinterpret_cast<const unsigned char*>(bytes.data()) + off;
        if ((p[0] | (p[1] << 8)) == id && test::tagPruefsumme(p) == p[4] && (p[0] | p[1]))
            return static_cast<long>(off);
    }
    return -1;
}

class UdfAbbild : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!test::abbildWerkzeugeDa()) GTEST_SKIP() << "genisoimage oder udfinfo fehlt";
    }

    std::string baue(const std::vector<BaumDatei>& baum, const std::string& name = "MEIN FILM",
                     bool udf = true, const std::string& datei = "dvd.iso") {
        const std::string abbild = test::baueAbbild(tmp.pfad(), baum, name, udf, datei);
        EXPECT_FALSE(abbild.empty()) << "genisoimage ist gescheitert";
        return abbild;
    }

    test::TempOrdner tmp;
    Laufwerke& lw = systemLaufwerke();
};

TEST_F(UdfAbbild, NameSeriennummerUndGroesseWieUdfinfoAuchVersteckt) {
    const auto baum = dvdBaum();
    int nr = 0;
    for (const std::string& name :
         {u8s(u8"MEIN FILM"), u8s(u8"Größe der Welt"), u8s(u8"Ωmega € 2")}) {
        const std::string abbild = baue(baum, name, true, "dvd" + std::to_string(++nr) + ".iso");
        const auto info = test::udfinfo(abbild);
        ASSERT_FALSE(info.empty());
        VolumenFakten f;
        const auto r = lw.volumen(abbild, f);
        ASSERT_TRUE(r.ok()) << r.text;
        EXPECT_EQ(f.dateisystem, "UDF");
        EXPECT_EQ(f.name, info.at("label"));
        EXPECT_EQ(f.name, name);
        EXPECT_EQ(hex(f.seriennummer), info.at("winserialnum")) << name;
        std::uint64_t bytes = 0;
        ASSERT_TRUE(lw.groesse(abbild, bytes).ok());
        EXPECT_EQ(bytes, summe(baum));
        // Hidden files count as well.
        ASSERT_TRUE(test::versteckeEintrag(abbild, ".versteckt"));
        ASSERT_TRUE(test::versteckeEintrag(abbild, "VTS_01_1.VOB"));
        ASSERT_TRUE(lw.groesse(abbild, bytes).ok());
        EXPECT_EQ(bytes, summe(baum));
        // An image file has no tray.
        const auto schublade = lw.schublade(abbild, true);
        EXPECT_FALSE(schublade.ok());
        EXPECT_FALSE(schublade.text.empty());
    }
}

TEST_F(UdfAbbild, GrosserOrdnerUeberMehrereSektoren) {
    // 400 entries make a directory of several sectors, with entries that cross
    // sector boundaries.
    std::vector<BaumDatei> baum;
    for (int i = 0; i < 400; ++i) {
        baum.push_back({"VIELE/datei_mit_langem_namen_" + std::to_string(i) + ".bin",
                        std::string(static_cast<std::size_t>(i), 'a')});
    }
    const std::string abbild = baue(baum);
    std::uint64_t bytes = 0;
    ASSERT_TRUE(lw.groesse(abbild, bytes).ok());
    EXPECT_EQ(bytes, summe(baum));
    std::string daten;
    ASSERT_TRUE(lw.leseDatei(abbild, "viele/DATEI_MIT_LANGEM_NAMEN_399.BIN", 1000, daten).ok());
    EXPECT_EQ(daten, std::string(399, 'a'));
}

TEST_F(UdfAbbild, DateiOhneRuecksichtAufGrossKlein) {
    auto baum = dvdBaum();
    baum.push_back({"KURZ/VIDEO_TS.IFO", test::ifoDatei(0x00, 50)});
    const std::string abbild = baue(baum);
    std::string daten;
    ASSERT_TRUE(lw.leseDatei(abbild, "video_ts/Video_TS.ifo", 104, daten).ok());
    EXPECT_EQ(daten, baum[0].inhalt.substr(0, 104));
    EXPECT_EQ(static_cast<unsigned char>(daten[35]), 0xFD);
    // More asked than the file holds: the whole file.
    ASSERT_TRUE(lw.leseDatei(abbild, "EXTRA/TIEF/NOCH/TIEFER/bonus.txt", 104, daten).ok());
    EXPECT_EQ(daten, "Bonus");
    ASSERT_TRUE(lw.leseDatei(abbild, "KURZ/VIDEO_TS.IFO", 104, daten).ok());
    EXPECT_EQ(daten.size(), 50u);
    ASSERT_TRUE(lw.leseDatei(abbild, "VIDEO_TS/VTS_01_1.VOB", 5000, daten).ok());
    EXPECT_EQ(daten, baum[3].inhalt.substr(0, 5000));

    for (const char* fehlt : {"VIDEO_TS/FEHLT.IFO", "VIDEO_TS", "VIDEO_TS/VIDEO_TS.IFO/x",
                              "AUDIO_TS/VIDEO_TS.IFO", ""}) {
        const auto r = lw.leseDatei(abbild, fehlt, 104, daten);
        EXPECT_EQ(r.art, LaufwerkFehler::NichtGefunden) << fehlt;
        EXPECT_FALSE(r.text.empty());
    }
}

TEST_F(UdfAbbild, Iso9660IstKeinUdf) {
    const std::string abbild = baue(dvdBaum(), "NUR ISO", false);
    VolumenFakten f;
    ASSERT_TRUE(lw.volumen(abbild, f).ok());
    EXPECT_EQ(f.dateisystem, "CDFS");
    EXPECT_EQ(f.name, "NUR ISO");
    std::uint64_t bytes = 0;
    EXPECT_FALSE(lw.groesse(abbild, bytes).ok());
    std::string daten;
    EXPECT_FALSE(lw.leseDatei(abbild, "VIDEO_TS/VIDEO_TS.IFO", 104, daten).ok());
}

TEST_F(UdfAbbild, ZweiterAnkerUndBruecke) {
    const std::string abbild = baue(dvdBaum());
    VolumenFakten vorher;
    ASSERT_TRUE(lw.volumen(abbild, vorher).ok());
    std::string bytes = test::leseDatei(abbild);
    const std::size_t letzter = bytes.size() - 2048;
    ASSERT_EQ(sektorMitTag(bytes, 2, 256 * 2048), 256 * 2048);

    bytes.replace(256 * 2048, 2048, std::string(2048, '\0'));
    test::schreibeDatei(abbild, bytes);
    VolumenFakten f;
    ASSERT_TRUE(lw.volumen(abbild, f).ok());
    EXPECT_EQ(f.dateisystem, "UDF");
    EXPECT_EQ(f.seriennummer, vorher.seriennummer);

    // Without any anchor the ISO 9660 side of the bridge is all that is left.
    bytes.replace(letzter, 2048, std::string(2048, '\0'));
    test::schreibeDatei(abbild, bytes);
    ASSERT_TRUE(lw.volumen(abbild, f).ok());
    EXPECT_EQ(f.dateisystem, "CDFS");
}

TEST_F(UdfAbbild, BeschaedigteDeskriptorenGebenFehler) {
    const std::string abbild = baue(dvdBaum());
    const std::string heil = test::leseDatei(abbild);
    const long fsd = sektorMitTag(heil, 256);
    const long wurzel = sektorMitTag(heil, 261);
    ASSERT_GT(fsd, 0);
    ASSERT_GT(wurzel, fsd);

    std::string kaputt = heil;
    kaputt[static_cast<std::size_t>(fsd) + 4] ^= 0x55;  // tag checksum
    test::schreibeDatei(abbild, kaputt);
    VolumenFakten f;
    auto r = lw.volumen(abbild, f);
    EXPECT_EQ(r.art, LaufwerkFehler::Beschaedigt);
    EXPECT_NE(r.text.find("beschädigt"), std::string::npos);

    // A root directory claiming a terabyte is refused before anything is allocated.
    kaputt = heil;
    kaputt[static_cast<std::size_t>(wurzel) + 56 + 5] = 0x01;
    test::repariereTag(kaputt, static_cast<std::size_t>(wurzel));
    test::schreibeDatei(abbild, kaputt);
    ASSERT_TRUE(lw.volumen(abbild, f).ok());
    std::uint64_t bytes = 0;
    EXPECT_EQ(lw.groesse(abbild, bytes).art, LaufwerkFehler::Beschaedigt);

    // A directory entry pointing back at the root makes a loop; the walk ends.
    kaputt = heil;
    const long eintrag = test::findeOrdnerEintrag(kaputt, "TIEFER");
    ASSERT_GT(eintrag, 0);
    const auto wurzelLbn = static_cast<std::uint32_t>(
        static_cast<unsigned char>(heil[static_cast<std::size_t>(fsd) + 404]) |
        (static_cast<unsigned char>(heil[static_cast<std::size_t>(fsd) + 405]) << 8));
    kaputt[static_cast<std::size_t>(eintrag) + 24] = static_cast<char>(wurzelLbn & 0xFF);
    kaputt[static_cast<std::size_t>(eintrag) + 25] = static_cast<char>(wurzelLbn >> 8);
    test::repariereTag(kaputt, static_cast<std::size_t>(eintrag));
    test::schreibeDatei(abbild, kaputt);
    ASSERT_TRUE(lw.groesse(abbild, bytes).ok());
    EXPECT_EQ(bytes, summe(dvdBaum()) - 5);  // bonus.txt is no longer reachable
}

TEST_F(UdfAbbild, AbgeschnitteneZufaelligeUndGestoerteAbbilder) {
    VolumenFakten f;
    test::schreibeDatei(tmp / "zufall.iso", muster(1 << 20, 7));
    const auto r = lw.volumen(tmp / "zufall.iso", f);
    EXPECT_EQ(r.art, LaufwerkFehler::KeinDateisystem);
    EXPECT_FALSE(r.text.empty());

    // Random damage anywhere in the descriptors, directories and file entries:
    // every answer is an answer, never a crash.
    const std::string abbild = baue(dvdBaum());
    const std::string heil = test::leseDatei(abbild);
    const std::size_t bereich = std::min<std::size_t>(heil.size(), 320 * 2048);
    std::mt19937 zufall(42);
    int fehler = 0;
    for (int runde = 0; runde < 300; ++runde) {
        std::string kaputt = heil;
        const int stellen = 1 + static_cast<int>(zufall() % 8);
        const std::size_t sektor = 16 + zufall() % (bereich / 2048 - 16);
        for (int i = 0; i < stellen; ++i) {
            kaputt[sektor * 2048 + zufall() % 2048] = static_cast<char>(zufall());
        }
        test::schreibeDatei(abbild, kaputt);
        std::uint64_t bytes = 0;
        std::string daten;
        if (!lw.volumen(abbild, f).ok()) ++fehler;
        if (!lw.groesse(abbild, bytes).ok()) ++fehler;
        if (!lw.leseDatei(abbild, "VIDEO_TS/VIDEO_TS.IFO", 104, daten).ok()) ++fehler;
        EXPECT_LE(daten.size(), 104u);
    }
    EXPECT_GT(fehler, 0);

    // Cut short anywhere: no UDF before the anchor, and every refusal explains itself.
    const std::size_t laengen[] = {0,          1000,       16 * 2048 + 5,   100 * 2048,
                                   256 * 2048, 257 * 2048, heil.size() / 2, heil.size() - 2048};
    for (std::size_t n : laengen) {
        test::schreibeDatei(abbild, heil.substr(0, n));
        VolumenFakten v;
        std::uint64_t bytes = 0;
        std::string daten;
        const auto vol = lw.volumen(abbild, v);
        const auto g = lw.groesse(abbild, bytes);
        lw.leseDatei(abbild, "VIDEO_TS/VIDEO_TS.IFO", 104, daten);
        if (n < 257 * 2048) {
            EXPECT_TRUE(!vol.ok() || v.dateisystem != "UDF") << n;
            EXPECT_FALSE(g.ok()) << n;
        }
        EXPECT_TRUE(g.ok() || !g.text.empty()) << n;
    }
}

// Runs the volume query as a user without rights (nobody, when the test runs as
// root) and returns the kind of answer ('Z' no access, 'O' ok, 'F' other) and its text.
std::string alsNiemand(const std::string& pfad) {
    int rohr[2];
    if (::pipe(rohr) != 0) return "pipe";
    const pid_t kind = ::fork();
    if (kind < 0) return "fork";
    if (kind == 0) {
        if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(2);
        VolumenFakten f;
        const auto r = systemLaufwerke().volumen(pfad, f);
        const char art = r.art == LaufwerkFehler::KeinZugriff ? 'Z' : r.ok() ? 'O' : 'F';
        const std::string text = art + r.text;
        if (::write(rohr[1], text.data(), text.size()) < 0) ::_exit(3);
        ::_exit(0);
    }
    ::close(rohr[1]);
    std::string antwort;
    char puffer[512];
    ssize_t n;
    while ((n = ::read(rohr[0], puffer, sizeof puffer)) > 0) {
        antwort.append(puffer, static_cast<std::size_t>(n));
    }
    ::close(rohr[0]);
    int status = 0;
    ::waitpid(kind, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? antwort : "kind";
}

TEST_F(UdfAbbild, OhneLeserechtEineKlareMeldung) {
    const std::string abbild = baue(dvdBaum());
    ::chmod(tmp.pfad().c_str(), 0755);
    ::chmod(abbild.c_str(), 0000);
    std::string antwort = alsNiemand(abbild);
    ASSERT_FALSE(antwort.empty());
    EXPECT_EQ(antwort[0], 'Z') << antwort;
    EXPECT_NE(antwort.find("Kein Lesezugriff auf die Abbilddatei"), std::string::npos) << antwort;

    // A drive's device node that only root and the cdrom group may read.
    if (::geteuid() == 0 && ::mknod((tmp / "sr").c_str(), S_IFBLK | 0660, makedev(11, 0)) == 0) {
        antwort = alsNiemand(tmp / "sr");
        EXPECT_EQ(antwort[0], 'Z') << antwort;
        EXPECT_NE(antwort.find("Gruppe \"cdrom\""), std::string::npos) << antwort;
    }
}

}  // namespace
}  // namespace dv
