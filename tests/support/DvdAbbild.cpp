#include "tests/support/DvdAbbild.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QStandardPaths>
#include <filesystem>
#include <sstream>

#include "tests/support/Prozess.h"
#include "tests/support/TempOrdner.h"

namespace dv::test {
namespace {

// The tool's full path ("" when it is not installed).
std::string werkzeug(const char* name) {
    return QStandardPaths::findExecutable(QString::fromLatin1(name)).toStdString();
}

void setzeZeit(const std::string& pfad) {
    const timespec zeit[2] = {{1577934245, 0}, {1577934245, 0}};  // 2020-01-02 03:04:05 UTC
    ::utimensat(AT_FDCWD, pfad.c_str(), zeit, AT_SYMLINK_NOFOLLOW);
}

std::uint16_t crcItu(const unsigned char* p, std::size_t n) {
    std::uint16_t crc = 0;
    for (std::size_t i = 0; i < n; ++i) {
        crc = static_cast<std::uint16_t>(crc ^ (p[i] << 8));
        for (int b = 0; b < 8; ++b) {
            crc = static_cast<std::uint16_t>(crc & 0x8000 ? (crc << 1) ^ 0x1021 : crc << 1);
        }
    }
    return crc;
}

}  // namespace

unsigned char tagPruefsumme(const unsigned char* tag) {
    unsigned char summe = 0;
    for (int i = 0; i < 16; ++i)
        if (i != 4) summe = static_cast<unsigned char>(summe + tag[i]);
    return summe;
}

bool abbildWerkzeugeDa() {
    return !werkzeug("genisoimage").empty() && !werkzeug("udfinfo").empty();
}

std::string baueAbbild(const std::string& ordner, const std::vector<BaumDatei>& baum,
                       const std::string& volumen, bool udf, const std::string& datei) {
    namespace fs = std::filesystem;
    const std::string wurzel = ordner + "baum-" + datei + "/";
    fs::create_directories(wurzel);
    for (const auto& d : baum) {
        const std::string pfad = wurzel + d.pfad;
        if (!d.pfad.empty() && d.pfad.back() == '/') {
            fs::create_directories(pfad);
            continue;
        }
        fs::create_directories(fs::path(pfad).parent_path());
        schreibeDatei(pfad, d.inhalt);
    }
    for (const auto& e : fs::recursive_directory_iterator(wurzel)) setzeZeit(e.path().string());
    setzeZeit(wurzel);
    const std::string abbild = ordner + datei;
    std::vector<std::string> argumente{"-quiet", "-input-charset", "utf-8"};
    if (udf) argumente.push_back("-udf");
    argumente.insert(argumente.end(), {"-V", volumen, "-o", abbild, wurzel});
    return fuehreAus(werkzeug("genisoimage"), argumente).code == 0 ? abbild : "";
}

std::map<std::string, std::string> udfinfo(const std::string& abbild) {
    const Lauf lauf = fuehreAus(werkzeug("udfinfo"), {abbild});
    std::map<std::string, std::string> werte;
    if (lauf.code != 0) return werte;
    std::istringstream zeilen(lauf.aus);
    for (std::string zeile; std::getline(zeilen, zeile);) {
        const std::size_t gleich = zeile.find('=');
        if (gleich != std::string::npos && zeile.find(',') == std::string::npos)
            werte[zeile.substr(0, gleich)] = zeile.substr(gleich + 1);
    }
    return werte;
}

long findeOrdnerEintrag(const std::string& bytes, const std::string& name) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    for (std::size_t off = 0; off + 40 + name.size() <= bytes.size(); off += 4) {
        if (p[off] != 0x01 || p[off + 1] != 0x01) continue;  // tag 257
        if (tagPruefsumme(p + off) != p[off + 4]) continue;
        const std::size_t liu = p[off + 36] | (p[off + 37] << 8);
        const std::size_t lfi = p[off + 19];
        if (lfi != name.size() + 1 || off + 38 + liu + lfi > bytes.size()) continue;
        if (p[off + 38 + liu] == 8 && bytes.compare(off + 39 + liu, name.size(), name) == 0) {
            return static_cast<long>(off);
        }
    }
    return -1;
}

void repariereTag(std::string& bytes, std::size_t off) {
    auto* p = reinterpret_cast<unsigned char*>(bytes.data()) + off;
    const std::size_t laenge = p[10] | (p[11] << 8);
    if (off + 16 + laenge <= bytes.size()) {
        const std::uint16_t crc = crcItu(p + 16, laenge);
        p[8] = static_cast<unsigned char>(crc & 0xFF);
        p[9] = static_cast<unsigned char>(crc >> 8);
    }
    p[4] = tagPruefsumme(p);
}

bool versteckeEintrag(const std::string& abbild, const std::string& name) {
    std::string bytes = leseDatei(abbild);
    const long off = findeOrdnerEintrag(bytes, name);
    if (off < 0) return false;
    bytes[static_cast<std::size_t>(off) + 18] |= 0x01;
    repariereTag(bytes, static_cast<std::size_t>(off));
    schreibeDatei(abbild, bytes);
    return true;
}

std::string ifoDatei(std::uint8_t region, std::size_t laenge) {
    std::string ifo(laenge, '\0');
    const std::string kennung = "DVDVIDEO-VMG";
    ifo.replace(0, std::min(kennung.size(), laenge), kennung.substr(0, laenge));
    if (laenge > 35) ifo[35] = static_cast<char>(region);
    return ifo;
}

}  // namespace dv::test
