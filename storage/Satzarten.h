#pragma once
// The record classes Tabelle1 to Tabelle15 and the data version record.
// Each fixes its record size, the order and width of its fields on disk and in
// its row, the fields that insert, update and select take, and its trace lines.
// Fields are passed in table order; text fields as NUL-terminated strings of at
// most their width (longer texts are cut at the width).

#include <cstddef>
#include <cstdint>
#include <tuple>

#include "storage/TabelleT.h"

namespace dv {

struct Zeile1 {
    std::int32_t Id;
    char cpText[129];
};
class Tabelle1 : public TabelleT<Tabelle1, Zeile1> {
  public:
    static constexpr unsigned kGroesse = 132;
    static constexpr const char* kKlasse = "Tabelle1";
    static constexpr const char* kKlasseSelectId = "Tabelle1";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.cpText);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.cpText);
    }
    long insert(const char* cpText);
    bool update(long id, const char* cpText);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile& z);
};

// Tabelle2 and Tabelle10 share a layout; their trace lines name the first field
// DVD_Id or Film_Id.
struct Zeile2 {
    std::int32_t Id;
    std::int32_t DVD_Id;
    std::int32_t Objekt1_Id;
    std::uint16_t Pos;
};
class Tabelle2 : public TabelleT<Tabelle2, Zeile2> {
  public:
    static constexpr unsigned kGroesse = 14;
    static constexpr const char* kKlasse = "Tabelle2";
    static constexpr const char* kKlasseSelectId = "Tabelle2";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.DVD_Id, z.Objekt1_Id, z.Pos);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.DVD_Id, z.Objekt1_Id);
    }
    long insert(long DVD_Id, long Objekt1_Id, int Pos);
    bool update(long id, long DVD_Id, long Objekt1_Id, int Pos);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile& z);
};

struct Zeile3 {
    std::int32_t Id;
    std::int32_t Film_Id;
    std::int32_t Person_Id;
    std::int32_t Funktion;
    std::uint16_t Pos;
};
class Tabelle3 : public TabelleT<Tabelle3, Zeile3> {
  public:
    static constexpr unsigned kGroesse = 18;
    static constexpr const char* kKlasse = "Tabelle3";
    static constexpr const char* kKlasseSelectId = "Tabelle3";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.Film_Id, z.Person_Id, z.Funktion, z.Pos);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.Film_Id, z.Person_Id, z.Funktion);
    }
    long insert(long Film_Id, long Person_Id, long Funktion, int Pos);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile&) {}
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile&) {}
};

struct Zeile4 {
    std::int32_t Id;
    std::int32_t Fremd_Id;
    std::int8_t Typ;
    char cpTitel[65];
    std::uint16_t Pos;
};
class Tabelle4 : public TabelleT<Tabelle4, Zeile4> {
  public:
    static constexpr unsigned kGroesse = 75;
    static constexpr const char* kKlasse = "Tabelle4";
    static constexpr const char* kKlasseSelectId = "Tabelle4";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.Fremd_Id, z.Typ, z.cpTitel, z.Pos);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.Fremd_Id, z.Typ, z.cpTitel, z.Pos);
    }
    long insert(long Fremd_Id, int Typ, const char* cpTitel, int Pos);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile&) {}
};

struct Zeile5 {
    std::int32_t Id;
    std::int8_t FSK;
    std::int16_t Laenge;
    std::int16_t Jahr;
};
class Tabelle5 : public TabelleT<Tabelle5, Zeile5> {
  public:
    static constexpr unsigned kGroesse = 9;
    static constexpr const char* kKlasse = "Tabelle5";
    static constexpr const char* kKlasseSelectId = "Tabelle5";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.FSK, z.Laenge, z.Jahr);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.FSK, z.Laenge, z.Jahr);
    }
    long insert(int FSK, int Laenge, int Jahr);
    bool update(long id, int FSK, int Laenge, int Jahr);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile& z);
};

struct Zeile6 {
    std::int32_t Id;
    std::int32_t Film_Id;
    std::int32_t Sprachen_Id;
    std::int32_t Tonformat_Id;
    std::uint16_t Pos;
};
class Tabelle6 : public TabelleT<Tabelle6, Zeile6> {
  public:
    static constexpr unsigned kGroesse = 18;
    static constexpr const char* kKlasse = "Tabelle6";
    static constexpr const char* kKlasseSelectId = "Tabelle6";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.Film_Id, z.Sprachen_Id, z.Tonformat_Id, z.Pos);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.Film_Id, z.Sprachen_Id, z.Tonformat_Id, z.Pos);
    }
    long insert(long Film_Id, long Sprachen_Id, long Tonformat_Id, int Pos);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile&) {}
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile&) {}
};

struct Zeile7 {
    std::int32_t Id;
    std::int32_t Box_Id;
    std::int32_t DVD_Id;
    std::int32_t Sammelbox_Id;
    std::uint16_t Pos;
};
class Tabelle7 : public TabelleT<Tabelle7, Zeile7> {
  public:
    static constexpr unsigned kGroesse = 18;
    static constexpr const char* kKlasse = "Tabelle7";
    static constexpr const char* kKlasseSelectId = "Tabelle7";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.Box_Id, z.DVD_Id, z.Sammelbox_Id, z.Pos);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.Box_Id, z.DVD_Id, z.Sammelbox_Id, z.Pos);
    }
    long insert(long Box_Id, long DVD_Id, long Sammelbox_Id, int Pos);
    bool update(long id, long Box_Id, long DVD_Id, long Sammelbox_Id, int Pos);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile&) {}
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile& z);
};

struct Zeile8 {
    std::int32_t Id;
    std::int16_t Instanz;
    char cpName[65];
    char cpVorname[65];
};
class Tabelle8 : public TabelleT<Tabelle8, Zeile8> {
  public:
    static constexpr unsigned kGroesse = 134;
    static constexpr const char* kKlasse = "Tabelle8";
    static constexpr const char* kKlasseSelectId = "Tabelle8";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.Instanz, z.cpName, z.cpVorname);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.Instanz, z.cpName, z.cpVorname);
    }
    long insert(int Instanz, const char* cpName, const char* cpVorname);
    bool update(long id, int Instanz, const char* cpName, const char* cpVorname);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile& z);
};

// The DVD record.
struct Zeile9 {
    std::int32_t Id;
    std::int16_t Jahr;
    std::int8_t RC;
    std::int8_t Opt;
    char cpText[65];
    std::int32_t Formate_Id;
    std::uint32_t SN;
    std::int16_t Laenge;
    std::uint32_t BytesLow;
    std::uint32_t BytesHigh;
};
class Tabelle9 : public TabelleT<Tabelle9, Zeile9> {
  public:
    static constexpr unsigned kGroesse = 90;
    static constexpr const char* kKlasse = "Tabelle9";
    static constexpr const char* kKlasseSelectId = "Tabelle9";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.Jahr, z.RC, z.Opt, z.cpText, z.Formate_Id, z.SN, z.Laenge, z.BytesLow,
                        z.BytesHigh);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.Jahr, z.RC, z.Opt, z.cpText, z.Formate_Id, z.SN, z.Laenge,
                        z.BytesLow, z.BytesHigh);
    }
    // The fields of z after the id, in table order.
    long insert(const Zeile9& z);
    bool update(long id, const Zeile9& z);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile& z);
};

class Tabelle10 : public TabelleT<Tabelle10, Zeile2> {
  public:
    static constexpr unsigned kGroesse = 14;
    static constexpr const char* kKlasse = "Tabelle10";
    static constexpr const char* kKlasseSelectId = "Tabelle10";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.DVD_Id, z.Objekt1_Id, z.Pos);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.DVD_Id, z.Objekt1_Id);
    }
    // The first field is the film's id, stored where Tabelle2 keeps DVD_Id.
    long insert(long Film_Id, long Objekt1_Id, int Pos);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile&) {}
};

struct Zeile11 {
    std::int32_t Id;
    std::int8_t Typ;
    char cpText[129];
};
class Tabelle11 : public TabelleT<Tabelle11, Zeile11> {
  public:
    static constexpr unsigned kGroesse = 133;
    static constexpr const char* kKlasse = "Tabelle11";
    static constexpr const char* kKlasseSelectId = "Tabelle11";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.Typ, z.cpText);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.Typ, z.cpText);
    }
    long insert(int Typ, const char* cpText);
    bool update(long id, int Typ, const char* cpText);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile& z);
};

// The box record.
struct Zeile12 {
    std::int32_t Id;
    char cpEAN[17];
    char cpText[65];
    std::int32_t Verpackungs_Id;
    std::int32_t Zusatz_Id;
};
class Tabelle12 : public TabelleT<Tabelle12, Zeile12> {
  public:
    static constexpr unsigned kGroesse = 92;
    static constexpr const char* kKlasse = "Tabelle12";
    static constexpr const char* kKlasseSelectId = "Tabelle12";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.cpEAN, z.cpText, z.Verpackungs_Id, z.Zusatz_Id);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.cpEAN, z.cpText, z.Verpackungs_Id, z.Zusatz_Id);
    }
    long insert(const char* cpEAN, const char* cpText, long Verpackungs_Id, long Zusatz_Id);
    bool update(long id, const char* cpEAN, const char* cpText, long Verpackungs_Id,
                long Zusatz_Id);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile& z);
};

struct Zeile13 {
    std::int32_t Id;
    std::int32_t lFilterId;
    std::int8_t Typ;
    std::int32_t lIntern;
    char cpExtern[129];
};
class Tabelle13 : public TabelleT<Tabelle13, Zeile13> {
  public:
    static constexpr unsigned kGroesse = 141;
    static constexpr const char* kKlasse = "Tabelle13";
    static constexpr const char* kKlasseSelectId = "Tabelle13";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.lFilterId, z.Typ, z.lIntern, z.cpExtern);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.lFilterId, z.Typ, z.lIntern, z.cpExtern);
    }
    long insert(long lFilterId, int Typ, long lIntern, const char* cpExtern);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile&) {}
};

// Three unnamed longs; the watch-list logic gives them their meaning.
struct Zeile14 {
    std::int32_t Id;
    std::int32_t lWert1;
    std::int32_t lWert2;
    std::int32_t lWert3;
};
class Tabelle14 : public TabelleT<Tabelle14, Zeile14> {
  public:
    static constexpr unsigned kGroesse = 16;
    static constexpr const char* kKlasse = "Tabelle14";
    static constexpr const char* kKlasseSelectId = "Tabelle14";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.lWert1, z.lWert2, z.lWert3);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.lWert1, z.lWert2, z.lWert3);
    }
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile&) {}
    void traceAendern(const Zeile&) {}
};

struct Zeile15 {
    std::int32_t Id;
    std::int32_t Vormerk_Id;
    std::int32_t Objekt_Typ;
    std::int32_t Objekt_Id;
    std::uint16_t Pos;
};
class Tabelle15 : public TabelleT<Tabelle15, Zeile15> {
  public:
    static constexpr unsigned kGroesse = 18;
    static constexpr const char* kKlasse = "Tabelle15";
    // The select by id of this class names Tabelle14 in its memory line; kept so.
    static constexpr const char* kKlasseSelectId = "Tabelle14";
    using TabelleT::select;
    using TabelleT::TabelleT;
    template <class Z>
    static auto felder(Z& z) {
        return std::tie(z.Vormerk_Id, z.Objekt_Typ, z.Objekt_Id, z.Pos);
    }
    template <class Z>
    static auto schluessel(Z& z) {
        return std::tie(z.Id, z.Vormerk_Id, z.Objekt_Typ, z.Objekt_Id);
    }
    long insert(long Vormerk_Id, long Objekt_Typ, long Objekt_Id, int Pos);
    // Rewrites an entry in place (used to swap positions); same frame as every update.
    bool update(long id, long Vormerk_Id, long Objekt_Typ, long Objekt_Id, int Pos);
    void traceSelect(const Zeile& b);
    void traceTreffer(const Zeile& z);
    void traceEinfuegen(const Zeile& z);
    void traceAendern(const Zeile&) {}
};

// The longest text each field takes, derived from the record layouts: a row
// keeps one byte more than the field's width on disk for its terminator, and one
// byte of the width stays free on disk as well, so that other readers of these
// files always find a terminated text. Every layer refuses a longer text instead
// of cutting it.
template <std::size_t N>
constexpr std::size_t textGrenze(const char (&)[N]) {
    return N - 2;
}
inline constexpr std::size_t kMaxTitel = textGrenze(Zeile4{}.cpTitel);        // film titles
inline constexpr std::size_t kMaxBezeichnung = textGrenze(Zeile12{}.cpText);  // box, DVD
inline constexpr std::size_t kMaxEan = textGrenze(Zeile12{}.cpEAN);
inline constexpr std::size_t kMaxLookupName = textGrenze(Zeile1{}.cpText);  // also aliases, lists
inline constexpr std::size_t kMaxPersonName = textGrenze(Zeile8{}.cpName);  // name and first name
inline constexpr std::size_t kMaxStempelText = textGrenze(Zeile11{}.cpText);
inline constexpr std::size_t kMaxFilterExtern = textGrenze(Zeile13{}.cpExtern);
static_assert(kMaxTitel == 63 && kMaxEan == 15 && kMaxLookupName == 127);
static_assert(textGrenze(Zeile9{}.cpText) == kMaxBezeichnung);

// The data version record: always slot 1, no selects, no free-slot handling.
struct DatenVersionSatz {
    long teil[4] = {0, 0, 0, 0};
    char datum[9] = {};  // eight characters and a terminator
};
class TabelleVersion : public Tabelle {
  public:
    static constexpr unsigned kGroesse = 28;
    TabelleVersion(SpeicherUmgebung& u, std::string name);
    unsigned getRecordSize() const override { return kGroesse; }
    ListenElement* select(long) override { return nullptr; }
    ListenElement* selectAll() override { return nullptr; }
    // Reads slot 1; false when the file holds no whole live record.
    bool lese(DatenVersionSatz& v);
    // Writes slot 1, overwriting whatever it held.
    bool schreibe(const DatenVersionSatz& v);
};

}  // namespace dv
