#include "tests/support/DvdAbbild.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>
#include <filesystem>

#include "tests/support/TempOrdner.h"

namespace dv::test {
namespace {

std::string zitiert(const std::string& s) {
    std::string q = "'";
    for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

// Runs a shell command; returns its standard output, and the exit status in *status.
std::string fuehreAus(const std::string& befehl, int* status) {
    std::string out;
    FILE* p = ::popen(befehl.c_str(), "r");
    if (!p) {
        *status = -1;
        return out;
    }
    char puffer[4096];
    std::size_t n;
    while ((n = std::fread(puffer, 1, sizeof puffer, p)) > 0) out.append(puffer, n);
    *status = ::pclose(p);
    return out;
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

bool abbildWerkzeugeDa() {
    int s1 = 0, s2 = 0;
    fuehreAus("command -v genisoimage >/dev/null 2>&1", &s1);
    fuehreAus("command -v udfinfo >/dev/null 2>&1", &s2);
    return s1 == 0 && s2 == 0;
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
    int status = 0;
    fuehreAus(std::string("genisoimage -quiet -input-charset utf-8 ") + (udf ? "-udf " : "") +
                  "-V " + zitiert(volumen) + " -o " + zitiert(abbild) + " " + zitiert(wurzel) +
                  " 2>&1",
              &status);
    return status == 0 ? abbild : "";
}

std::map<std::string, std::string> udfinfo(const std::string& abbild) {
    int status = 0;
    const std::string out = fuehreAus("udfinfo " + zitiert(abbild) + " 2>/dev/null", &status);
    std::map<std::string, std::string> werte;
    if (status != 0) return werte;
    std::size_t a = 0;
    while (a < out.size()) {
        std::size_t e = out.find('\n', a);
        if (e == std::string::npos) e = out.size();
        const std::string zeile = out.substr(a, e - a);
        const std::size_t gleich = zeile.find('=');
        if (gleich != std::string::npos && zeile.find(',') == std::string::npos) {
            werte[zeile.substr(0, gleich)] = zeile.substr(gleich + 1);
        }
        a = e + 1;
    }
    return werte;
}

long findeOrdnerEintrag(const std::string& bytes, const std::string& name) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    for (std::size_t off = 0; off + 40 + name.size() <= bytes.size(); off += 4) {
        if (p[off] != 0x01 || p[off + 1] != 0x01) continue;  // tag 257
        unsigned char summe = 0;
        for (int i = 0; i < 16; ++i) {
            if (i != 4) summe = static_cast<unsigned char>(summe + p[off + i]);
        }
        if (summe != p[off + 4]) continue;
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
    unsigned char summe = 0;
    for (int i = 0; i < 16; ++i) {
        if (i != 4) summe = static_cast<unsigned char>(summe + p[i]);
    }
    p[4] = summe;
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
