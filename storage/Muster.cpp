#include "storage/Muster.h"

#include <vector>

namespace dv {

std::string_view ohneRandLeer(std::string_view s) {
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    return ohneEndLeer(s);
}

std::string_view ohneEndLeer(std::string_view s) {
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

namespace {

inline unsigned char falte(char c, bool grossKlein) {
    auto u = static_cast<unsigned char>(c);
    if (!grossKlein && u >= 'A' && u <= 'Z') return static_cast<unsigned char>(u + ('a' - 'A'));
    return u;
}

inline bool gleich(char a, char b, bool grossKlein) {
    return falte(a, grossKlein) == falte(b, grossKlein);
}

}  // namespace

bool musterPasst(std::string_view muster, std::string_view wert, bool grossKlein) {
    // Quick rejections before the full match.
    if (muster.empty()) return wert.empty();
    std::size_t sterne = 0;
    for (char c : muster) sterne += (c == '*');
    if (wert.empty()) return sterne == muster.size();
    if (muster.size() - sterne > wert.size()) return false;
    if (sterne == 0 && wert.size() > muster.size()) return false;
    if (muster[0] != '*' && muster[0] != '?' && !gleich(muster[0], wert[0], grossKlein))
        return false;
    if (sterne == 0) {
        for (std::size_t i = 0; i < muster.size(); ++i)
            if (muster[i] != '?' && !gleich(muster[i], wert[i], grossKlein)) return false;
        return true;
    }

    // One row over the value's positions, advanced pattern character by pattern
    // character: row[j] says whether the pattern so far covers the first j bytes.
    const std::size_t n = wert.size();
    char lokal[257];
    std::vector<char> gross;
    char* zeile = lokal;
    if (n + 1 > sizeof lokal) {
        gross.resize(n + 1);
        zeile = gross.data();
    }
    zeile[0] = 1;
    for (std::size_t j = 1; j <= n; ++j) zeile[j] = 0;
    for (char p : muster) {
        if (p == '*') {
            for (std::size_t j = 1; j <= n; ++j) zeile[j] = zeile[j] || zeile[j - 1];
        } else {
            bool irgendwas = false;
            for (std::size_t j = n; j >= 1; --j) {
                zeile[j] = zeile[j - 1] && (p == '?' || gleich(p, wert[j - 1], grossKlein));
                irgendwas = irgendwas || zeile[j];
            }
            zeile[0] = 0;
            if (!irgendwas) return false;
        }
    }
    return zeile[n] != 0;
}

}  // namespace dv
