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

Suchmuster::Suchmuster(std::string_view muster, bool grossKlein)
    : muster_(muster), grossKlein_(grossKlein) {
    std::size_t sterne = 0;
    for (char c : muster) sterne += c == '*';
    ohneSterne_ = muster.size() - sterne;
    sterne_ = sterne > 0;
    const std::size_t anfang = muster.find_first_not_of('*');
    if (anfang == std::string_view::npos) {
        form_ = muster.empty() ? Form::Gleich : Form::Alles;
        return;
    }
    const std::size_t ende = muster.find_last_not_of('*') + 1;
    const std::string_view kern = muster.substr(anfang, ende - anfang);
    if (kern.find_first_of("*?") != std::string_view::npos) return;  // the general walk
    for (char c : kern) kern_ += static_cast<char>(falte(c, grossKlein));
    const bool vorn = anfang > 0, hinten = ende < muster.size();
    form_ = vorn ? (hinten ? Form::Enthaelt : Form::Ende) : (hinten ? Form::Anfang : Form::Gleich);
}

bool Suchmuster::gleichAb(std::string_view wert, std::size_t pos) const {
    for (std::size_t i = 0; i < kern_.size(); ++i)
        if (falte(wert[pos + i], grossKlein_) != static_cast<unsigned char>(kern_[i])) return false;
    return true;
}

bool Suchmuster::passt(std::string_view wert) const {
    // Quick rejections.
    if (muster_.empty()) return wert.empty();
    if (wert.empty()) return ohneSterne_ == 0;
    if (ohneSterne_ > wert.size()) return false;
    if (!sterne_ && wert.size() != muster_.size()) return false;
    const char erstes = muster_[0];
    if (erstes != '*' && erstes != '?' && !gleich(erstes, wert[0], grossKlein_)) return false;

    switch (form_) {
        case Form::Alles:
            return true;
        case Form::Gleich:
            return gleichAb(wert, 0);
        case Form::Anfang:
            return gleichAb(wert, 0);
        case Form::Ende:
            return gleichAb(wert, wert.size() - kern_.size());
        case Form::Enthaelt: {
            // Only where the first character fits (in either letter case) is the
            // rest compared.
            const auto erster = static_cast<unsigned char>(kern_[0]);
            const unsigned char auchSo =
                !grossKlein_ && erster >= 'a' && erster <= 'z' ? erster - ('a' - 'A') : erster;
            for (std::size_t i = 0; i + kern_.size() <= wert.size(); ++i) {
                const auto c = static_cast<unsigned char>(wert[i]);
                if ((c == erster || c == auchSo) && gleichAb(wert, i)) return true;
            }
            return false;
        }
        case Form::Allgemein:
            break;
    }
    return musterPasst(muster_, wert, grossKlein_);
}

}  // namespace dv
