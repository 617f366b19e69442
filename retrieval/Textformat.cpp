#include "retrieval/Textformat.h"

#include <climits>
#include <cstring>

namespace dv {

namespace {
constexpr std::size_t kBlock = 64 * 1024;
}

void TextDateiSchreiber::version() {
    inhalt_ += '@';
    zeile(kFormatVersion);
}

void TextDateiSchreiber::zeile(std::string_view text) {
    inhalt_.append(text);
    inhalt_ += "\r\n";
}

bool TextDateiSchreiber::schreibe(Dateisystem& fs, const std::string& pfad) const {
    return schreibeSicher(fs, pfad, inhalt_);
}

std::string ohneZeilenumbruch(std::string_view text) {
    std::string s(text);
    for (char& c : s)
        if (c == '\r' || c == '\n') c = ' ';
    return s;
}

bool TextDateiLeser::oeffne(Dateisystem& fs, const std::string& pfad) {
    datei_ = fs.oeffne(pfad, OeffnenModus::Lesen);
    pos_ = 0;
    block_.clear();
    inBlock_ = 0;
    ende_ = !datei_;
    return datei_ != nullptr;
}

bool TextDateiLeser::fuelle() {
    if (ende_) return false;
    char puffer[kBlock];
    const std::int64_t n = datei_->lese(pos_, puffer, sizeof puffer);
    if (n <= 0) {
        ende_ = true;
        return false;
    }
    pos_ += n;
    block_.erase(0, inBlock_);
    inBlock_ = 0;
    block_.append(puffer, static_cast<std::size_t>(n));
    return true;
}

int TextDateiLeser::zeichen() {
    if (inBlock_ >= block_.size() && !fuelle()) return -1;
    const auto c = static_cast<unsigned char>(block_[inBlock_++]);
    if (c == '\r') {
        if (inBlock_ >= block_.size()) fuelle();
        if (inBlock_ < block_.size() && block_[inBlock_] == '\n') {
            ++inBlock_;
            return '\n';
        }
    }
    return c;
}

bool TextDateiLeser::naechste(std::string& stueck) {
    stueck.clear();
    if (!datei_) return false;
    while (stueck.size() < kZeilenStueckMax) {
        const int c = zeichen();
        if (c < 0) break;
        stueck.push_back(static_cast<char>(c));
        if (c == '\n') break;
    }
    if (stueck.empty()) return false;
    const std::size_t nul = stueck.find('\0');
    if (nul != std::string::npos) stueck.resize(nul);
    return true;
}

std::string_view ohneZeilenende(std::string_view stueck) {
    const std::size_t n = stueck.find('\n');
    return n == std::string_view::npos ? stueck : stueck.substr(0, n);
}

bool istVersionsZeile(std::string_view stueck) {
    return stueck.substr(0, 2) == "@V";
}

bool versionPasst(std::string_view stueck) {
    if (stueck.empty() || stueck[0] != '@') return false;
    return stueck.substr(1) == std::string(kFormatVersion) + "\n";
}

void meldeVersionsfehler(Benutzer& benutzer, std::string_view stueck) {
    std::string_view ist = ohneZeilenende(stueck);
    if (!ist.empty() && ist[0] == '@') ist.remove_prefix(1);
    benutzer.meldung("Versionsfehler",
                     "IST-Version:\t" + std::string(ist) + "\rSOLL-Version:\t" + kFormatVersion,
                     Symbol::Fehler);
}

Zeilenart ordneEin(std::string_view stueck, Benutzer& benutzer) {
    if (stueck.empty() || stueck[0] == '\n' || stueck[0] == '#') return Zeilenart::Ueberspringen;
    if (!istVersionsZeile(stueck)) return Zeilenart::Daten;
    if (versionPasst(stueck)) return Zeilenart::Ueberspringen;
    meldeVersionsfehler(benutzer, stueck);
    return Zeilenart::FremdeVersion;
}

bool feldBisTab(std::string_view zeile, std::size_t& pos, std::string_view& feld) {
    if (pos > zeile.size()) return false;
    const std::size_t tab = zeile.find('\t', pos);
    if (tab == std::string_view::npos) return false;
    feld = zeile.substr(pos, tab - pos);
    pos = tab + 1;
    return true;
}

long long alsZahlLang(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r'))) ++i;
    bool negativ = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) negativ = text[i++] == '-';
    constexpr long long kGrenze = LLONG_MAX / 10 - 1;
    long long wert = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        wert = wert < kGrenze ? wert * 10 + (text[i] - '0') : LLONG_MAX;
    return negativ ? -wert : wert;
}

std::int32_t alsZahl(std::string_view text) {
    const long long wert = alsZahlLang(text);
    if (wert > INT_MAX) return INT_MAX;
    if (wert < INT_MIN) return INT_MIN;
    return static_cast<std::int32_t>(wert);
}

}  // namespace dv
