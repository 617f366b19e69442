// libFuzzer target: the box file reader and the walk of the data block, on bytes
// from nowhere. Any input must be refused or read without a crash, a leak or
// undefined behaviour, and a file the reader accepts must walk to its end token.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "interchange/BoxLeser.h"
#include "interchange/ImportDaten.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse) {
    const std::string_view bytes(reinterpret_cast<const char*>(daten), groesse);
    dv::BoxLeser leser;
    if (leser.leseBytes(bytes)) {
        if (!dv::datenVollstaendig(leser.daten())) std::abort();
        dv::ImportBox box;
        if (!dv::zerlegeBoxDaten(leser.daten(), box)) std::abort();
        dv::vorschau(leser.daten());
    }
    // The same bytes as a bare data block, past every header check.
    dv::ImportBox roh;
    dv::zerlegeBoxDaten(bytes, roh);
    dv::vorschau(bytes);
    return 0;
}
