#pragma once
// What every storage test needs: a temporary data folder, a real trace log
// written by Protokoll into that folder, and a few readers for the bytes on disk.

#include <cstdint>
#include <cstring>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "app/base/Protokoll.h"
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

    std::string datei(const std::string& tabelle) const { return leseDatei(daten / (tabelle + ".dat")); }

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

// True if every byte of slot id after the id word is zero.
inline bool felderNull(const std::string& bytes, unsigned groesse, long id) {
    for (unsigned i = 4; i < groesse; ++i)
        if (bytes[static_cast<std::size_t>((id - 1) * groesse + i)] != 0) return false;
    return true;
}

// True if the bytes [von, bis) are all zero.
inline bool nullIm(const std::string& bytes, std::size_t von, std::size_t bis) {
    if (bis > bytes.size()) return false;
    for (std::size_t i = von; i < bis; ++i)
        if (bytes[i] != 0) return false;
    return true;
}

// The ids of a result list, in list order.
inline std::vector<long> ids(const ListenElement* kopf) {
    std::vector<long> out;
    for (; kopf; kopf = kopf->pNext) out.push_back(*static_cast<const std::int32_t*>(kopf->pObjekt));
    return out;
}

}  // namespace dv::test
