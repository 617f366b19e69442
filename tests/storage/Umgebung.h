#pragma once
// What every storage test needs: a temporary data folder, a real trace log
// written by Protokoll into that folder, and a few readers for the bytes on disk.

#include <cstdint>
#include <cstring>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "base/Protokoll.h"
#include "storage/Tabelle.h"
#include "tests/support/TempOrdner.h"

namespace dv::test {

struct Umgebung {
    explicit Umgebung(Dateisystem& fs = echtesDateisystem(), unsigned maske = 0) {
        protokoll.setzeLogPfad(log.pfad() + "trace.log");
        protokoll.setzeMaske(maske);
        u.fs = &fs;
        u.trace = &protokoll;
        u.datenOrdner = daten.pfad();
    }

    // Lines of the trace log without their time stamp; memory addresses in
    // brackets become [ADR].
    std::vector<std::string> zeilen(bool adressenErsetzen = true) const {
        std::vector<std::string> out;
        std::istringstream in(leseDatei(protokoll.logPfad()));
        static const std::regex stempel(R"(^<\d\d\.\d\d\.\d{4} \d\d:\d\d:\d\d>: )");
        static const std::regex adresse(R"(\[[0-9a-f]{8}\])");
        for (std::string z; std::getline(in, z);) {
            z = std::regex_replace(z, stempel, "");
            if (adressenErsetzen) z = std::regex_replace(z, adresse, "[ADR]");
            out.push_back(z);
        }
        return out;
    }
    void leereLog() const { schreibeDatei(protokoll.logPfad(), ""); }

    std::string datei(const std::string& tabelle) const {
        return leseDatei(daten / (tabelle + ".dat"));
    }

    TempOrdner daten;
    TempOrdner log;
    Protokoll protokoll;
    SpeicherUmgebung u;
};

// The id word of slot id (1-based) in the file bytes.
inline std::uint32_t wortVon(const std::string& bytes, unsigned groesse, long id) {
    std::uint32_t w = 0;
    std::memcpy(&w, bytes.data() + (id - 1) * groesse, 4);
    return w;
}

// The bytes of slot id (1-based) in the file bytes.
inline std::string slot(const std::string& bytes, unsigned groesse, long id) {
    return bytes.substr(static_cast<std::size_t>((id - 1) * groesse), groesse);
}

// The expected bytes of a record, field by field as they lie on disk: the id
// word (with the liveness bit unless the slot is free), then the fields.
struct Satz {
    std::string s;
    explicit Satz(std::uint32_t id, bool lebend = true) { n(lebend ? kLebendBit | id : id); }
    template <class T>
    Satz& n(T v) {
        s.append(reinterpret_cast<const char*>(&v), sizeof v);
        return *this;
    }
    Satz& i8(int v) { return n(static_cast<std::int8_t>(v)); }
    Satz& i16(int v) { return n(static_cast<std::int16_t>(v)); }
    Satz& u16(int v) { return n(static_cast<std::uint16_t>(v)); }
    Satz& i32(long v) { return n(static_cast<std::int32_t>(v)); }
    // A text field of the given width: cut, or padded with zero bytes.
    Satz& text(std::string t, std::size_t breite) {
        t.resize(breite, '\0');
        s += t;
        return *this;
    }
};

// The ids of a result list, in list order.
inline std::vector<long> ids(const ListenElement* kopf) {
    std::vector<long> out;
    for (; kopf; kopf = kopf->pNext)
        out.push_back(*static_cast<const std::int32_t*>(kopf->pObjekt));
    return out;
}

}  // namespace dv::test
