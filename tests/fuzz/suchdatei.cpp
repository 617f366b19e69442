// libFuzzer target: search definition files. Any bytes load or are refused
// without a crash; loaded rows are normalised and name only known codes' names.
#include <cstddef>
#include <cstdint>

#include "retrieval/SuchDatei.h"
#include "tests/fuzz/Speicherplatte.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse) {
    dv::fuzz::Speicherplatte platte;
    platte.lege("/Suche.asc", std::string(reinterpret_cast<const char*>(daten), groesse));
    dv::fuzz::StummerBenutzer nutzer;
    dv::KriterienListe rows;
    if (dv::ladeSuche(platte, "/Suche.asc", nutzer, rows) == dv::SuchLaden::Geladen) {
        for (const dv::SearchCriterion* r = rows.kopf(); r; r = r->next) {
            dv::operatorName(r->op);
            dv::verknuepfungsName(r->combination);
            dv::kriteriumsName(r->objectType, r->criterion);
        }
        dv::suchDateiText(rows);
    }
    return 0;
}
