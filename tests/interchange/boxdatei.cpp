// The box file as bytes: header, picture block, data block, entry order and the
// reader's refusal of damaged files.
#include <gtest/gtest.h>

#include <random>

#include "interchange/BoxLeser.h"
#include "interchange/BoxSchreiber.h"
#include "interchange/ImportDaten.h"
#include "platform/Zeit.h"
#include "tests/interchange/Austauschtest.h"

using namespace dv;
using namespace dv::test;

namespace {

std::uint32_t u32(const std::string& s, std::size_t pos) {
    return box::leseU32(reinterpret_cast<const unsigned char*>(s.data() + pos));
}
void setzeU32(std::string& s, std::size_t pos, std::uint32_t v) {
    box::schreibeU32(reinterpret_cast<unsigned char*>(s.data() + pos), v);
}

// Every entry of a data block as token and text.
std::vector<std::pair<int, std::string>> eintraege(const std::string& daten) {
    std::vector<std::pair<int, std::string>> v;
    BoxEintrag e;
    for (std::size_t pos = 0; pos < daten.size(); pos += e.verbraucht) {
        EXPECT_TRUE(naechsterBoxEintrag(daten, pos, e)) << pos;
        if (e.verbraucht == 0) break;
        v.emplace_back(e.token, e.text);
        if (e.token == box::IMP_EXP_ENDE_TOKEN) break;
    }
    return v;
}

// The texts of one token, in file order.
std::vector<std::string> texteVon(const std::vector<std::pair<int, std::string>>& e, int token) {
    std::vector<std::string> v;
    for (const auto& [t, text] : e)
        if (t == token) v.push_back(text);
    return v;
}

std::string baue(Katalogumgebung& k, long boxId, SchreibOptionen o) {
    BoxListe b = k.db->getBox(boxId);
    k.db->ladeBox(*b);
    ExportQuelle q(*k.db, k.ordner);
    BoxSchreiber s(q);
    s.optionen = o;
    std::string datei;
    EXPECT_TRUE(s.baue(*b, datei));
    return datei;
}

}  // namespace

TEST(BoxDatei, KleinsteBoxByteFuerByte) {
    FesteUhr uhr(5, 4, 2023, 6, 7, 8);
    Katalogumgebung k;
    const long box = k.db->neueBox("123", "T", 0);
    const Betriebssystem os = betriebssystem();
    // Magic, version 4.0 and .0.1, the system, 8 spare bytes, date and time, flags 0,
    // picture and data offsets, then the data block.
    const std::string kopf = "ZELKA4.0" + alsU32(0x00040000) + alsU32(0x00000001) +
                             alsU32(os.plattform) + alsU32(os.haupt) + alsU32(os.neben) +
                             alsU32(os.build) + std::string(8, '\0') + "20230405060708" +
                             std::string(2, '\0') + alsU32(64) + alsU32(64);
    const std::string daten(
        "\x81\x02\x00\x00\x10\x01T\x11\x03"
        "123\x12\x00\x80\x01\x00",
        17);
    EXPECT_EQ(baue(k, box, SchreibOptionen{false, false, false}), kopf + daten);
}

TEST(BoxDatei, ReihenfolgeUndPositionenDerListen) {
    Katalogumgebung k;
    const long box = legeBeispielBoxAn(*k.db, k.ordner);
    BoxLeser leser;
    ASSERT_TRUE(leser.leseBytes(baue(k, box, SchreibOptionen{true, true, true})));
    const auto e = eintraege(leser.daten());
    std::vector<int> tokens;
    for (const auto& [t, text] : e) tokens.push_back(t);
    const std::vector<int> erwartet = {
        0x81, 0x10, 0x11, 0x12, 0x13, 0x13, 0x14, 0x83, 0x30, 0x31, 0x32, 0x33, 0x34, 0x35,
        0x38, 0x36, 0x37, 0x39, 0x85, 0x50, 0x51, 0x52, 0x52, 0x53, 0x54, 0x55, 0x56, 0x56,
        0x57, 0x57, 0x58, 0x58, 0x59, 0x59, 0x5a, 0x5a, 0x5b, 0x5b, 0x5b, 0x5c, 0x5c, 0x5d,
        0x5d, 0x5e, 0x5e, 0x5e, 0x5f, 0x5f, 0x5f, 0x60, 0x61, 0x62, 0x85, 0x50, 0x51, 0x52,
        0x53, 0x54, 0x55, 0x60, 0x61, 0x62, 0x83, 0x30, 0x31, 0x32, 0x33, 0x34, 0x35, 0x38,
        0x36, 0x39, 0x85, 0x50, 0x51, 0x52, 0x53, 0x54, 0x55, 0x60, 0x61, 0x62, 0x80};
    EXPECT_EQ(tokens, erwartet);
    auto texte = [&](int token) { return texteVon(e, token); };
    EXPECT_EQ(texte(0x81), std::vector<std::string>{"2"});
    EXPECT_EQ(texte(0x83), (std::vector<std::string>{"2", "1"}));
    EXPECT_EQ(texte(0x33), (std::vector<std::string>{"-559038737", "7"}));  // 0xDEADBEEF as %ld
    EXPECT_EQ(texte(0x31), (std::vector<std::string>{"2", "255"}));
    EXPECT_EQ(texte(0x14), std::vector<std::string>{"Lieblingsbox\nverliehen an Jörg"});
    EXPECT_EQ(texte(0x59), (std::vector<std::string>{"Deutsch", "Englisch"}));
    EXPECT_EQ(texte(0x5a), (std::vector<std::string>{"DD 5.1", "DTS"}));
    EXPECT_EQ(texte(0x5b), (std::vector<std::string>{"1#1", "2#2", "1#2"}));
    EXPECT_EQ(texte(0x5c), (std::vector<std::string>{"Darsteller", "Regie"}));
    EXPECT_EQ(texte(0x5d), (std::vector<std::string>{"Wood\tElijah\t0", "Jackson\tPeter\t1"}));
    EXPECT_EQ(texte(0x5e), (std::vector<std::string>{"1#1", "2#2", "2#1"}));
    EXPECT_EQ(texte(0x5f),
              (std::vector<std::string>{"1\tFrodo", "1\tHerr Beutlin", "2\tBetrunkener"}));
    EXPECT_EQ(texte(0x60)[0].size(), 700u + 18u);  // longer than a short entry can hold
}

TEST(BoxDatei, PersonFunktionAusserhalbDerFilmlisteLangerInhaltUndDateiname) {
    Katalogumgebung k;
    const long box = k.db->neueBox("../../a:b", "B", 0);
    Zeile9 d{};
    const long dvd = k.db->neueDvd(box, d);
    const long film = k.db->neuerFilm(dvd, "F", 0, 0, 0);
    const long kamera = k.db->neuesLookup(kTypFunktion, "Kamera");
    const long p = k.db->katalog().Person.insert(0, "A", "B");
    k.db->schreibeFilmObjekte(film, kTypFunktion, {2});
    k.db->schreibeFilmPersonen(film, {PersonEintrag{p, kamera, {""}}});
    // A link whose function was deleted afterwards: its partner is -1.
    k.db->katalog().Film_Person.insert(film, p, 999, 9);
    k.db->schreibeInhalt(film, std::string(70000, 'i'));
    BoxLeser leser;
    ASSERT_TRUE(leser.leseBytes(baue(k, box, SchreibOptionen{})));
    const auto e = eintraege(leser.daten());
    EXPECT_EQ(texteVon(e, 0x5c), (std::vector<std::string>{"Regie", "Kamera"}));
    EXPECT_EQ(texteVon(e, 0x5e), (std::vector<std::string>{"1#2", "1#-1"}));
    EXPECT_TRUE(texteVon(e, 0x5f).empty());  // an empty alias is not written
    ASSERT_EQ(texteVon(e, 0x60).size(), 1u);
    EXPECT_EQ(texteVon(e, 0x60)[0].size(), 65535u);  // cut to what a long entry holds
    // The EAN becomes a safe file name.
    BoxListe b = k.db->getBox(box);
    EXPECT_EQ(BoxSchreiber::zielPfad(*b, "/z/"), "/z/______a_b.box");
    EXPECT_EQ(BoxSchreiber::zielPfad(*b, "/z/", "frei.box"), "/z/frei.box");
}

TEST(BoxDatei, BloeckeGepacktUndUngepackt) {
    Katalogumgebung k;
    const long box = legeBeispielBoxAn(*k.db, k.ordner);
    const std::string bild = std::string(5000, 'A') + "ende";
    schreibeDatei(k.ordner.cover + std::to_string(box) + ".gif", bild);
    for (bool bp : {false, true})
        for (bool dp : {false, true}) {
            const std::string d = baue(k, box, SchreibOptionen{true, bp, dp});
            const auto flags = static_cast<unsigned char>(d[54]);
            EXPECT_EQ(flags, (bp ? 0x40 : 0) | (dp ? 0x80 : 0) | 2) << bp << dp;
            if (bp) {
                EXPECT_LT(u32(d, 60), 64 + bild.size());
                EXPECT_EQ(u32(d, 64), bild.size());  // stated length before the stream
            } else {
                EXPECT_EQ(u32(d, 60), 64 + bild.size());
            }
            BoxLeser leser;
            ASSERT_TRUE(leser.leseBytes(d));
            EXPECT_EQ(leser.bild(), bild);
            EXPECT_EQ(leser.bildTyp(), 2);
            EXPECT_FALSE(leser.bildGepackt());
            EXPECT_EQ(vorschau(leser.daten()).ean, "4010232012345");
        }
}

TEST(BoxDatei, CoverTypenUndUnbekannteEndung) {
    Katalogumgebung k;
    const long box = k.db->neueBox("42", "Mit Cover", 0);
    const std::string stamm = k.ordner.cover + std::to_string(box);
    ExportQuelle q(*k.db, k.ordner);
    BoxListe b = k.db->getBox(box);
    BoxSchreiber s(q);
    std::string d;  // no picture: KleinsteBoxByteFuerByte
    const std::pair<const char*, int> typen[] = {{".BMP", 0}, {".jpg", 1}, {".Gif", 2}};
    for (const auto& [endung, typ] : typen) {
        schreibeDatei(stamm + endung, "PIC");
        ASSERT_TRUE(s.baue(*b, d)) << endung;
        EXPECT_EQ(d[54] & 7, typ) << endung;
        std::remove((stamm + endung).c_str());
    }
    schreibeDatei(stamm + ".png", "PNG");
    EXPECT_FALSE(s.baue(*b, d));
    EXPECT_FALSE(s.schreibe(*b, k.basis / ""));
    EXPECT_FALSE(gibtEs(k.basis / "42.box"));
    // A known type next to it wins.
    schreibeDatei(stamm + ".jpg", "JPG");
    EXPECT_TRUE(s.schreibe(*b, k.basis / ""));
    EXPECT_TRUE(gibtEs(k.basis / "42.box"));
}

// ---- The reader on damaged and foreign files ------------------------------------

namespace {

std::string kleineDatei(bool packen) {
    Kodierer c;
    c.zahl(0x81, 1, 2).text(0x10, "Box").text(0x11, "999").text(0x12, "Amaray");
    c.zahl(0x83, 1, 2).text(0x30, "Dvd").zahl(0x85, 0, 1).text(0x50, "Film").lang(0x60, "Inhalt");
    c.ende();
    return boxDatei(c.daten, "BILD", 1, packen, packen);
}

}  // namespace

TEST(BoxDateiBeschaedigt, JedeKuerzungWirdAbgelehnt) {
    for (bool packen : {false, true}) {
        const std::string datei = kleineDatei(packen);
        BoxLeser leser;
        ASSERT_TRUE(leser.leseBytes(datei));
        for (std::size_t n = 0; n < datei.size(); ++n) {
            EXPECT_FALSE(leser.leseBytes(datei.substr(0, n)))
                << "Länge " << n << " gepackt " << packen;
            EXPECT_FALSE(leser.gueltig());
            EXPECT_TRUE(leser.daten().empty());
        }
    }
}

TEST(BoxDateiBeschaedigt, LaengenUeberDasEndeHinaus) {
    BoxLeser leser;
    // A text entry claiming more bytes than follow.
    EXPECT_FALSE(
        leser.leseBytes(boxDatei(std::string("\x10\xff"
                                             "abc\x80\x01\x00",
                                             8))));
    // A long entry whose u16 runs past the end.
    EXPECT_FALSE(
        leser.leseBytes(boxDatei(std::string("\x60\xff\xff"
                                             "abc",
                                             6))));
    // A number of an impossible width.
    EXPECT_FALSE(leser.leseBytes(boxDatei(std::string("\x81\x03\x01\x02\x03\x80\x01\x00", 8))));
    // Data offset beyond the file, and below the picture offset.
    std::string d = kleineDatei(false);
    setzeU32(d, 60, static_cast<std::uint32_t>(d.size() + 1));
    EXPECT_FALSE(leser.leseBytes(d));
    setzeU32(d, 60, 10);
    EXPECT_FALSE(leser.leseBytes(d));
    // Wrong magic.
    d = kleineDatei(false);
    d[4] = 'B';
    EXPECT_FALSE(leser.leseBytes(d));
}

TEST(BoxDateiBeschaedigt, GepackteLaengeVonVierGigabyte) {
    BoxLeser leser;
    Kodierer c;
    c.zahl(0x81, 0, 2).text(0x11, "1").ende();
    std::string d = boxDatei(c.daten, "", 0, false, true);
    for (std::uint32_t laenge : {0xFFFFFFFFu, box::kDatenMax + 1, 100000u}) {
        setzeU32(d, 64, laenge);
        EXPECT_FALSE(leser.leseBytes(d)) << laenge;
    }
    // The same for the picture: the file is still read, without picture.
    std::string m = boxDatei(c.daten, std::string(300, 'p'), 0, true, false);
    setzeU32(m, 64, 0xFFFFFFFFu);
    ASSERT_TRUE(leser.leseBytes(m));
    EXPECT_TRUE(leser.bildGepackt());
    std::string blk;
    EXPECT_FALSE(entpackeBlock(std::string("\xff\xff\xff\xff\x78\x9c", 6), box::kBildMax, blk));
}

TEST(BoxDateiBeschaedigt, ZufallsbytesUndZerstoerteStroeme) {
    std::mt19937 zufall(4711);
    BoxLeser leser;
    for (int i = 0; i < 2000; ++i) {
        std::string d(zufall() % 300, '\0');
        for (char& c : d) c = static_cast<char>(zufall());
        if (i % 2)
            d.replace(0, std::min<std::size_t>(8, d.size()), "ZELKA4.0", 0,
                      std::min<std::size_t>(8, d.size()));
        EXPECT_FALSE(leser.leseBytes(d)) << i;
    }
    // Single bytes flipped in a packed data stream: refused or read, never a crash.
    const std::string gut = kleineDatei(true);
    for (std::size_t pos = 64; pos < gut.size(); ++pos) {
        std::string d = gut;
        d[pos] = static_cast<char>(d[pos] ^ 0x5A);
        if (leser.leseBytes(d)) {
            EXPECT_TRUE(datenVollstaendig(leser.daten()));
        }
    }
}
