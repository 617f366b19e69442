#include "storage/Satzarten.h"

#include <cstring>

namespace dv {
namespace {

// Copies up to the field's width; a text of the full width has no terminator on disk.
template <std::size_t N>
void setzeText(char (&ziel)[N], const char* quelle) {
    std::memset(ziel, 0, N);
    if (quelle) std::memcpy(ziel, quelle, ::strnlen(quelle, N - 1));
}

}  // namespace

#define T (trace())
#define N (name().c_str())
#define M kTraceTabelle

// Tabelle1 ------------------------------------------------------------------
long Tabelle1::insert(const char* cpText) {
    Zeile z{};
    setzeText(z.cpText, cpText);
    return einfuegen(z);
}
bool Tabelle1::update(long id, const char* cpText) {
    Zeile z{};
    setzeText(z.cpText, cpText);
    return aendern(id, z);
}
void Tabelle1::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, [%s]> from %s", long{b.Id}, b.cpText, N);
}
void Tabelle1::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, [%s]> from %s", long{z.Id}, z.cpText, N);
}
void Tabelle1::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M, "inserted cpText [%s] into %s", z.cpText, N);
}
void Tabelle1::traceAendern(const Zeile& z) {
    // The format lacks its closing part: the text lands where the table name belongs.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-extra-args"
    DV_TRACE(T, M, "updated <%ld, cpText from %s", long{z.Id}, z.cpText, N);
#pragma GCC diagnostic pop
}

// Tabelle2 ------------------------------------------------------------------
long Tabelle2::insert(long DVD_Id, long Objekt1_Id, int Pos) {
    Zeile z{0, static_cast<std::int32_t>(DVD_Id), static_cast<std::int32_t>(Objekt1_Id),
            static_cast<std::uint16_t>(Pos)};
    return einfuegen(z);
}
bool Tabelle2::update(long id, long DVD_Id, long Objekt1_Id, int Pos) {
    Zeile z{0, static_cast<std::int32_t>(DVD_Id), static_cast<std::int32_t>(Objekt1_Id),
            static_cast<std::uint16_t>(Pos)};
    return aendern(id, z);
}
void Tabelle2::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %ld, %ld> from %s", long{b.Id}, long{b.DVD_Id},
             long{b.Objekt1_Id}, N);
}
void Tabelle2::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %ld, %ld, %d> from %s", long{z.Id}, long{z.DVD_Id},
             long{z.Objekt1_Id}, int{z.Pos}, N);
}
void Tabelle2::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M, "inserted DVD_Id [%ld], Objekt1_Id [%ld], Pos [%d] into %s", long{z.DVD_Id},
             long{z.Objekt1_Id}, int{z.Pos}, N);
}
void Tabelle2::traceAendern(const Zeile& z) {
    DV_TRACE(T, M, "updated <%ld, DVD_Id [%ld], Objekt1_Id [%ld], Pos [%d]> from %s", long{z.Id},
             long{z.DVD_Id}, long{z.Objekt1_Id}, int{z.Pos}, N);
}

// Tabelle3 ------------------------------------------------------------------
long Tabelle3::insert(long Film_Id, long Person_Id, long Funktion, int Pos) {
    Zeile z{0, static_cast<std::int32_t>(Film_Id), static_cast<std::int32_t>(Person_Id),
            static_cast<std::int32_t>(Funktion), static_cast<std::uint16_t>(Pos)};
    return einfuegen(z);
}
void Tabelle3::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %ld, %ld, %ld> from %s", long{b.Id}, long{b.Film_Id},
             long{b.Person_Id}, long{b.Funktion}, N);
}
void Tabelle3::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M, "inserted Film_Id [%ld], Person_Id [%ld], Funktion [%ld], Pos [%d] into %s",
             long{z.Film_Id}, long{z.Person_Id}, long{z.Funktion}, int{z.Pos}, N);
}

// Tabelle4 ------------------------------------------------------------------
long Tabelle4::insert(long Fremd_Id, int Typ, const char* cpTitel, int Pos) {
    Zeile z{};
    z.Fremd_Id = static_cast<std::int32_t>(Fremd_Id);
    z.Typ = static_cast<std::int8_t>(Typ);
    setzeText(z.cpTitel, cpTitel);
    z.Pos = static_cast<std::uint16_t>(Pos);
    return einfuegen(z);
}
void Tabelle4::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %ld, %d, %s, %d> from %s", long{b.Id}, long{b.Fremd_Id},
             int{b.Typ}, b.cpTitel, int{b.Pos}, N);
}
void Tabelle4::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %ld, %d, %s, %d> from %s", long{z.Id}, long{z.Fremd_Id},
             int{z.Typ}, z.cpTitel, int{z.Pos}, N);
}
void Tabelle4::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M, "inserted Fremd_Id [%ld], Typ [%d], cpTitel [%s], Pos [%d] into %s",
             long{z.Fremd_Id}, int{z.Typ}, z.cpTitel, int{z.Pos}, N);
}

// Tabelle5 ------------------------------------------------------------------
long Tabelle5::insert(int FSK, int Laenge, int Jahr) {
    Zeile z{0, static_cast<std::int8_t>(FSK), static_cast<std::int16_t>(Laenge),
            static_cast<std::int16_t>(Jahr)};
    return einfuegen(z);
}
bool Tabelle5::update(long id, int FSK, int Laenge, int Jahr) {
    Zeile z{0, static_cast<std::int8_t>(FSK), static_cast<std::int16_t>(Laenge),
            static_cast<std::int16_t>(Jahr)};
    return aendern(id, z);
}
void Tabelle5::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %d, %d, %d> from %s", long{b.Id}, int{b.FSK}, int{b.Laenge},
             int{b.Jahr}, N);
}
void Tabelle5::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %d, %d, %d> from %s", long{z.Id}, int{z.FSK}, int{z.Laenge},
             int{z.Jahr}, N);
}
void Tabelle5::traceEinfuegen(const Zeile& z) {
    // The comma before "into" is part of the wording.
    DV_TRACE(T, M, "inserted FSK [%d], Laenge [%d], Jahr [%d], into %s", int{z.FSK}, int{z.Laenge},
             int{z.Jahr}, N);
}
void Tabelle5::traceAendern(const Zeile& z) {
    DV_TRACE(T, M, "updated <%ld, FSK [%d], Laenge [%d], Jahr [%d]> from %s", long{z.Id},
             int{z.FSK}, int{z.Laenge}, int{z.Jahr}, N);
}

// Tabelle6 ------------------------------------------------------------------
long Tabelle6::insert(long Film_Id, long Sprachen_Id, long Tonformat_Id, int Pos) {
    Zeile z{0, static_cast<std::int32_t>(Film_Id), static_cast<std::int32_t>(Sprachen_Id),
            static_cast<std::int32_t>(Tonformat_Id), static_cast<std::uint16_t>(Pos)};
    return einfuegen(z);
}
void Tabelle6::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %ld, %ld, %ld, %d> from %s", long{b.Id}, long{b.Film_Id},
             long{b.Sprachen_Id}, long{b.Tonformat_Id}, int{b.Pos}, N);
}
void Tabelle6::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M,
             "inserted Film_Id [%ld], Sprachen_Id [%ld], Tonformat_Id [%ld], Pos [%d] into %s",
             long{z.Film_Id}, long{z.Sprachen_Id}, long{z.Tonformat_Id}, int{z.Pos}, N);
}

// Tabelle7 ------------------------------------------------------------------
long Tabelle7::insert(long Box_Id, long DVD_Id, long Sammelbox_Id, int Pos) {
    Zeile z{0, static_cast<std::int32_t>(Box_Id), static_cast<std::int32_t>(DVD_Id),
            static_cast<std::int32_t>(Sammelbox_Id), static_cast<std::uint16_t>(Pos)};
    return einfuegen(z);
}
bool Tabelle7::update(long id, long Box_Id, long DVD_Id, long Sammelbox_Id, int Pos) {
    Zeile z{0, static_cast<std::int32_t>(Box_Id), static_cast<std::int32_t>(DVD_Id),
            static_cast<std::int32_t>(Sammelbox_Id), static_cast<std::uint16_t>(Pos)};
    return aendern(id, z);
}
void Tabelle7::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %ld, %ld, %ld, %d> from %s", long{b.Id}, long{b.Box_Id},
             long{b.DVD_Id}, long{b.Sammelbox_Id}, int{b.Pos}, N);
}
void Tabelle7::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M, "inserted Box_Id [%ld], DVD_Id [%ld], Sammelbox_Id [%ld], Pos [%d] into %s",
             long{z.Box_Id}, long{z.DVD_Id}, long{z.Sammelbox_Id}, int{z.Pos}, N);
}
void Tabelle7::traceAendern(const Zeile& z) {
    DV_TRACE(T, M,
             "updated <%ld, Box_Id [%ld], DVD_Id [%ld], Sammelbox_Id [%ld], Pos [%d]> from %s",
             long{z.Id}, long{z.Box_Id}, long{z.DVD_Id}, long{z.Sammelbox_Id}, int{z.Pos}, N);
}

// Tabelle8 ------------------------------------------------------------------
long Tabelle8::insert(int Instanz, const char* cpName, const char* cpVorname) {
    Zeile z{};
    z.Instanz = static_cast<std::int16_t>(Instanz);
    setzeText(z.cpName, cpName);
    setzeText(z.cpVorname, cpVorname);
    return einfuegen(z);
}
bool Tabelle8::update(long id, int Instanz, const char* cpName, const char* cpVorname) {
    Zeile z{};
    z.Instanz = static_cast<std::int16_t>(Instanz);
    setzeText(z.cpName, cpName);
    setzeText(z.cpVorname, cpVorname);
    return aendern(id, z);
}
void Tabelle8::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %d, %s, %s> from %s", long{b.Id}, int{b.Instanz}, b.cpName,
             b.cpVorname, N);
}
void Tabelle8::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %d, %s, %s> from %s", long{z.Id}, int{z.Instanz}, z.cpName,
             z.cpVorname, N);
}
void Tabelle8::traceEinfuegen(const Zeile& z) {
    // "Instanz[" without blank is part of the wording.
    DV_TRACE(T, M, "inserted Instanz[%d], cpName [%s], cpVorname [%s] into %s", int{z.Instanz},
             z.cpName, z.cpVorname, N);
}
void Tabelle8::traceAendern(const Zeile& z) {
    DV_TRACE(T, M, "updated <%ld, Instanz [%d], cpName [%s], cpVorname [%s]> from %s", long{z.Id},
             int{z.Instanz}, z.cpName, z.cpVorname, N);
}

// Tabelle9 ------------------------------------------------------------------
long Tabelle9::insert(const Zeile9& z) {
    return einfuegen(z);
}
bool Tabelle9::update(long id, const Zeile9& z) {
    return aendern(id, z);
}
#define T9_ARGS(z)                                                                    \
    int{z.Jahr}, int{z.RC}, int{z.Opt}, z.cpText, long{z.Formate_Id}, unsigned{z.SN}, \
        int{z.Laenge}, unsigned{z.BytesLow}, unsigned {                               \
        z.BytesHigh                                                                   \
    }
void Tabelle9::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %d, %d, %d, %s, %ld, %u, %d, %u, %u> from %s", long{b.Id},
             T9_ARGS(b), N);
}
void Tabelle9::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %d, %d, %d, %s, %ld, %u, %d, %u, %u> from %s", long{z.Id},
             T9_ARGS(z), N);
}
void Tabelle9::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M,
             "inserted Jahr [%d], RC [%d], Opt [%d], cpText [%s], Formate_Id [%ld], SN [%u], "
             "Laenge [%d], BytesLow [%u], BytesHigh [%u] into %s",
             T9_ARGS(z), N);
}
void Tabelle9::traceAendern(const Zeile& z) {
    DV_TRACE(T, M,
             "updated <%ld, Jahr [%d], RC [%d], Opt [%d], cpText [%s], Formate_Id [%ld], SN [%u], "
             "Laenge [%d], BytesLow [%u], BytesHigh [%u]> from %s",
             long{z.Id}, T9_ARGS(z), N);
}
#undef T9_ARGS

// Tabelle10 -----------------------------------------------------------------
long Tabelle10::insert(long Film_Id, long Objekt1_Id, int Pos) {
    Zeile z{0, static_cast<std::int32_t>(Film_Id), static_cast<std::int32_t>(Objekt1_Id),
            static_cast<std::uint16_t>(Pos)};
    return einfuegen(z);
}
void Tabelle10::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %ld, %ld> from %s", long{b.Id}, long{b.DVD_Id},
             long{b.Objekt1_Id}, N);
}
void Tabelle10::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %ld, %ld, %d> from %s", long{z.Id}, long{z.DVD_Id},
             long{z.Objekt1_Id}, int{z.Pos}, N);
}
void Tabelle10::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M, "inserted Film_Id [%ld], Objekt1_Id [%ld], Pos [%d] into %s", long{z.DVD_Id},
             long{z.Objekt1_Id}, int{z.Pos}, N);
}

// Tabelle11 -----------------------------------------------------------------
long Tabelle11::insert(int Typ, const char* cpText) {
    Zeile z{};
    z.Typ = static_cast<std::int8_t>(Typ);
    setzeText(z.cpText, cpText);
    return einfuegen(z);
}
bool Tabelle11::update(long id, int Typ, const char* cpText) {
    Zeile z{};
    z.Typ = static_cast<std::int8_t>(Typ);
    setzeText(z.cpText, cpText);
    return aendern(id, z);
}
void Tabelle11::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %d, %s> from %s", long{b.Id}, int{b.Typ}, b.cpText, N);
}
void Tabelle11::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %d, %s> from %s", long{z.Id}, int{z.Typ}, z.cpText, N);
}
void Tabelle11::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M, "inserted Typ [%d], cpText [%s] into %s", int{z.Typ}, z.cpText, N);
}
void Tabelle11::traceAendern(const Zeile& z) {
    DV_TRACE(T, M, "updated <%ld, Typ [%d], cpText [%s]> from %s", long{z.Id}, int{z.Typ}, z.cpText,
             N);
}

// Tabelle12 -----------------------------------------------------------------
long Tabelle12::insert(const char* cpEAN, const char* cpText, long Verpackungs_Id, long Zusatz_Id) {
    Zeile z{};
    setzeText(z.cpEAN, cpEAN);
    setzeText(z.cpText, cpText);
    z.Verpackungs_Id = static_cast<std::int32_t>(Verpackungs_Id);
    z.Zusatz_Id = static_cast<std::int32_t>(Zusatz_Id);
    return einfuegen(z);
}
bool Tabelle12::update(long id, const char* cpEAN, const char* cpText, long Verpackungs_Id,
                       long Zusatz_Id) {
    Zeile z{};
    setzeText(z.cpEAN, cpEAN);
    setzeText(z.cpText, cpText);
    z.Verpackungs_Id = static_cast<std::int32_t>(Verpackungs_Id);
    z.Zusatz_Id = static_cast<std::int32_t>(Zusatz_Id);
    return aendern(id, z);
}
void Tabelle12::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %s, %s, %ld, %ld> from %s", long{b.Id}, b.cpEAN, b.cpText,
             long{b.Verpackungs_Id}, long{b.Zusatz_Id}, N);
}
void Tabelle12::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %s, %s, %ld, %ld> from %s", long{z.Id}, z.cpEAN, z.cpText,
             long{z.Verpackungs_Id}, long{z.Zusatz_Id}, N);
}
void Tabelle12::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M,
             "inserted cpEAN [%s], cpText [%s], Verpackungs_Id [%ld], Zusatz_Id [%ld] into %s",
             z.cpEAN, z.cpText, long{z.Verpackungs_Id}, long{z.Zusatz_Id}, N);
}
void Tabelle12::traceAendern(const Zeile& z) {
    DV_TRACE(
        T, M,
        "updated <%ld, cpEAN [%s], cpText [%s], Verpackungs_Id [%ld], Zusatz_Id [%ld]> from %s",
        long{z.Id}, z.cpEAN, z.cpText, long{z.Verpackungs_Id}, long{z.Zusatz_Id}, N);
}

// Tabelle13 -----------------------------------------------------------------
long Tabelle13::insert(long lFilterId, int Typ, long lIntern, const char* cpExtern) {
    Zeile z{};
    z.lFilterId = static_cast<std::int32_t>(lFilterId);
    z.Typ = static_cast<std::int8_t>(Typ);
    z.lIntern = static_cast<std::int32_t>(lIntern);
    setzeText(z.cpExtern, cpExtern);
    return einfuegen(z);
}
void Tabelle13::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %ld, %d, %ld, %s> from %s", long{b.Id}, long{b.lFilterId},
             int{b.Typ}, long{b.lIntern}, b.cpExtern, N);
}
void Tabelle13::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %ld, %d, %ld, %s> from %s", long{z.Id}, long{z.lFilterId},
             int{z.Typ}, long{z.lIntern}, z.cpExtern, N);
}
void Tabelle13::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M, "inserted lFilterId [%ld], Typ [%d], lIntern [%ld], cpExtern [%s] into %s",
             long{z.lFilterId}, int{z.Typ}, long{z.lIntern}, z.cpExtern, N);
}

// Tabelle14 -----------------------------------------------------------------
void Tabelle14::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %ld, %ld, %ld> from %s", long{b.Id}, long{b.lWert1},
             long{b.lWert2}, long{b.lWert3}, N);
}
void Tabelle14::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %ld, %ld, %ld> from %s", long{z.Id}, long{z.lWert1},
             long{z.lWert2}, long{z.lWert3}, N);
}

// Tabelle15 -----------------------------------------------------------------
long Tabelle15::insert(long Vormerk_Id, long Objekt_Typ, long Objekt_Id, int Pos) {
    Zeile z{0, static_cast<std::int32_t>(Vormerk_Id), static_cast<std::int32_t>(Objekt_Typ),
            static_cast<std::int32_t>(Objekt_Id), static_cast<std::uint16_t>(Pos)};
    return einfuegen(z);
}
bool Tabelle15::update(long id, long Vormerk_Id, long Objekt_Typ, long Objekt_Id, int Pos) {
    Zeile z{0, static_cast<std::int32_t>(Vormerk_Id), static_cast<std::int32_t>(Objekt_Typ),
            static_cast<std::int32_t>(Objekt_Id), static_cast<std::uint16_t>(Pos)};
    const bool ok = aendern(id, z);
    if (ok && id > 0)
        DV_TRACE(
            T, M,
            "updated <%ld, Vormerk_Id [%ld], Objekt_Typ [%ld], Objekt_Id [%ld], Pos [%d]> from %s",
            id, Vormerk_Id, Objekt_Typ, Objekt_Id, Pos, N);
    return ok;
}
void Tabelle15::traceSelect(const Zeile& b) {
    DV_TRACE(T, M, "-> select <%ld, %ld, %ld, %ld> from %s", long{b.Id}, long{b.Vormerk_Id},
             long{b.Objekt_Typ}, long{b.Objekt_Id}, N);
}
void Tabelle15::traceTreffer(const Zeile& z) {
    DV_TRACE(T, M, "<- selected <%ld, %ld, %ld, %ld, %d> from %s", long{z.Id}, long{z.Vormerk_Id},
             long{z.Objekt_Typ}, long{z.Objekt_Id}, int{z.Pos}, N);
}
void Tabelle15::traceEinfuegen(const Zeile& z) {
    DV_TRACE(T, M, "inserted Vormerk_Id [%ld], Objekt_Typ [%ld], Objekt_Id [%ld], Pos [%d] into %s",
             long{z.Vormerk_Id}, long{z.Objekt_Typ}, long{z.Objekt_Id}, int{z.Pos}, N);
}

// Data version --------------------------------------------------------------
TabelleVersion::TabelleVersion(SpeicherUmgebung& u, std::string name)
    : Tabelle(u, std::move(name)) {
    puffer_.assign(kGroesse, 0);
}

bool TabelleVersion::lese(DatenVersionSatz& v) {
    auto datei = open(OeffnenModus::Lesen);
    if (!datei) return false;
    unsigned char satz[kGroesse];
    if (datei->lese(0, satz, kGroesse) != kGroesse) return false;
    std::uint32_t wort;
    std::memcpy(&wort, satz, 4);
    if (!(wort & kLebendBit)) return false;
    for (int i = 0; i < 4; ++i) {
        std::int32_t t;
        std::memcpy(&t, satz + 4 + 4 * i, 4);
        v.teil[i] = t;
    }
    std::memcpy(v.datum, satz + 20, 8);
    v.datum[8] = '\0';
    return true;
}

bool TabelleVersion::schreibe(const DatenVersionSatz& v) {
    auto datei = open();
    if (!datei) return false;
    unsigned char satz[kGroesse] = {};
    const std::uint32_t wort = 1u | kLebendBit;
    std::memcpy(satz, &wort, 4);
    for (int i = 0; i < 4; ++i) {
        const auto t = static_cast<std::int32_t>(v.teil[i]);
        std::memcpy(satz + 4 + 4 * i, &t, 4);
    }
    char datum[9] = {};
    std::memcpy(datum, v.datum, ::strnlen(v.datum, 8));
    std::memcpy(satz + 20, datum, 8);
    if (!datei->schreibe(0, satz, kGroesse)) return false;
    datei.reset();
    DV_TRACE(T, M, "inserted [%ld.%ld.%ld.%ld:%s] into %s", v.teil[0], v.teil[1], v.teil[2],
             v.teil[3], datum, N);
    return true;
}

#undef T
#undef N
#undef M

}  // namespace dv
