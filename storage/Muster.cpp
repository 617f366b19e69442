#include "storage/Muster.h"

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
    // Walk both texts once; on a mismatch after a star, let that star take one
    // more character of the value and retry from just behind it. Only the last
    // star ever needs to be revisited, so this stays linear for usual patterns.
    const std::size_t m = muster.size();
    const std::size_t n = wert.size();
    std::size_t p = 0, w = 0;
    std::size_t stern = std::string_view::npos;  // position of the last star seen
    std::size_t sternWert = 0;                   // value position that star resumes at
    while (w < n) {
        if (p < m && muster[p] == '*') {
            stern = p++;
            sternWert = w;
        } else if (p < m && (muster[p] == '?' || gleich(muster[p], wert[w], grossKlein))) {
            ++p;
            ++w;
        } else if (stern != std::string_view::npos) {
            p = stern + 1;
            w = ++sternWert;
        } else {
            return false;
        }
    }
    while (p < m && muster[p] == '*') ++p;
    return p == m;
}

}  // namespace dv
