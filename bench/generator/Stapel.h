#pragma once
// Appending many rows to a table file in one open and one write, for the
// generator: the rows land in new slots at the end of the file (free slots are
// left alone), packed by the record class exactly as its insert packs them, and
// each gets the class's insert trace line. Meant for a fresh collection: a torn
// write may leave a partly written tail.

#include <cstring>
#include <vector>

#include "storage/TabelleT.h"

namespace dv::generator {

// Returns the id of the first row (the others follow one by one), 0 on failure
// or when there is nothing to append.
template <class T>
long haengeAn(T& tab, const std::vector<typename T::Zeile>& zeilen) {
    if (zeilen.empty()) return 0;
    auto datei = tab.open();
    if (!datei) return 0;
    const std::int64_t laenge = datei->laenge();
    if (laenge < 0) return 0;
    const unsigned groesse = tab.getRecordSize();
    const long erste = static_cast<long>(laenge / groesse + 1);
    std::vector<unsigned char> block(zeilen.size() * groesse, 0);
    for (std::size_t i = 0; i < zeilen.size(); ++i) {
        unsigned char* satz = block.data() + i * groesse;
        const std::uint32_t wort =
            static_cast<std::uint32_t>(erste + static_cast<long>(i)) | kLebendBit;
        std::memcpy(satz, &wort, 4);
        feld::packe(T::felder(zeilen[i]), satz + 4);
    }
    if (!datei->schreibe((erste - 1) * static_cast<std::int64_t>(groesse), block.data(),
                         block.size()))
        return 0;
    datei.reset();
    if (tab.trace().aktiv(kTraceTabelle)) {
        for (std::size_t i = 0; i < zeilen.size(); ++i) {
            typename T::Zeile z = zeilen[i];
            z.Id = static_cast<std::int32_t>(erste + static_cast<long>(i));
            tab.traceEinfuegen(z);
        }
    }
    return erste;
}

}  // namespace dv::generator
