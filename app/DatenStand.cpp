#include "app/DatenStand.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

namespace dv {

std::string datenFingerabdruck(const std::string& datenOrdner) {
    namespace fs = std::filesystem;
    std::error_code fehler;
    std::vector<std::string> zeilen;
    for (const auto& e : fs::directory_iterator(datenOrdner, fehler)) {
        if (!e.is_regular_file(fehler) || e.path().extension() != ".dat") continue;
        const auto laenge = e.file_size(fehler);
        const auto zeit = e.last_write_time(fehler).time_since_epoch().count();
        zeilen.push_back(e.path().filename().string() + ":" + std::to_string(laenge) + ":" +
                         std::to_string(zeit));
    }
    std::sort(zeilen.begin(), zeilen.end());
    std::string text;
    for (const std::string& z : zeilen) text += z + ";";
    return text;
}

}  // namespace dv
