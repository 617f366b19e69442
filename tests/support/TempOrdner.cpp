#include "tests/support/TempOrdner.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace dv::test {

TempOrdner::TempOrdner() {
    char muster[] = "/tmp/dorvano-test-XXXXXX";
    if (!::mkdtemp(muster)) throw std::runtime_error("mkdtemp");
    pfad_ = std::string(muster) + "/";
}

TempOrdner::~TempOrdner() {
    std::error_code ec;
    std::filesystem::remove_all(pfad_, ec);
}

std::string leseDatei(const std::string& pfad) {
    std::ifstream in(pfad, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void schreibeDatei(const std::string& pfad, const std::string& inhalt) {
    std::ofstream out(pfad, std::ios::binary | std::ios::trunc);
    out.write(inhalt.data(), static_cast<std::streamsize>(inhalt.size()));
}

bool gibtEs(const std::string& pfad) {
    return std::filesystem::exists(pfad);
}

}  // namespace dv::test
