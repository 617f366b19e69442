#include "base/Zeichensatz.h"

#include <array>

namespace dv {
namespace {

// Code points of the bytes 0x80 to 0x9F.
constexpr std::array<char16_t, 32> kOben = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t zeichen(unsigned char b) {
    if (b >= 0x80 && b < 0xA0) return kOben[b - 0x80];
    return b;
}

bool byteVon(char32_t cp, char& b) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) {
        b = static_cast<char>(cp);
        return true;
    }
    for (std::size_t i = 0; i < kOben.size(); ++i) {
        if (kOben[i] == cp) {
            b = static_cast<char>(0x80 + i);
            return true;
        }
    }
    return false;
}

void haengeUtf8An(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

}  // namespace

std::string cp1252NachUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size() + text.size() / 4);
    for (char c : text) haengeUtf8An(out, zeichen(static_cast<unsigned char>(c)));
    return out;
}

bool utf8NachCp1252(std::string_view utf8, std::string& out) {
    std::string ergebnis;
    ergebnis.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const auto b = static_cast<unsigned char>(utf8[i]);
        char32_t cp;
        std::size_t n;
        if (b < 0x80) {
            cp = b;
            n = 1;
        } else if ((b & 0xE0) == 0xC0) {
            cp = b & 0x1F;
            n = 2;
        } else if ((b & 0xF0) == 0xE0) {
            cp = b & 0x0F;
            n = 3;
        } else if ((b & 0xF8) == 0xF0) {
            cp = b & 0x07;
            n = 4;
        } else {
            return false;
        }
        if (i + n > utf8.size()) return false;
        for (std::size_t k = 1; k < n; ++k) {
            const auto f = static_cast<unsigned char>(utf8[i + k]);
            if ((f & 0xC0) != 0x80) return false;
            cp = (cp << 6) | (f & 0x3F);
        }
        // Overlong forms are not UTF-8: they would smuggle in a NUL or a slash.
        static constexpr char32_t kKleinste[5] = {0, 0, 0x80, 0x800, 0x10000};
        if (cp < kKleinste[n]) return false;
        char c;
        if (!byteVon(cp, c)) return false;
        ergebnis += c;
        i += n;
    }
    out = std::move(ergebnis);
    return true;
}

QString alsQString(std::string_view cp1252) {
    QString s;
    s.reserve(static_cast<qsizetype>(cp1252.size()));
    for (char c : cp1252)
        s.append(QChar(static_cast<char16_t>(zeichen(static_cast<unsigned char>(c)))));
    return s;
}

std::string ausQString(const QString& text, bool* ok) {
    std::string out;
    out.reserve(static_cast<std::size_t>(text.size()));
    bool alle = true;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar q = text[i];
        char c;
        if (byteVon(q.unicode(), c)) {
            out += c;
        } else {
            // A character outside the basic plane is one '?', not one per surrogate.
            if (q.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ++i;
            out += '?';
            alle = false;
        }
    }
    if (ok) *ok = alle;
    return out;
}

}  // namespace dv
