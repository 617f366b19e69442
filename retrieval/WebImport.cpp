#include "retrieval/WebImport.h"

#include <zlib.h>

#include <cstdio>
#include <cstring>
#include <limits>

#include "base/Zeichensatz.h"
#include "storage/Muster.h"

namespace dv {

namespace {

constexpr const char* kTitel = "Web-Import";

// The lines of a text without their line ends; "#" comment lines left out.
template <class F>
void jedeZeile(std::string_view text, F&& f) {
    while (!text.empty()) {
        const std::size_t nl = text.find('\n');
        std::string_view z = text.substr(0, nl);
        text = nl == std::string_view::npos ? std::string_view() : text.substr(nl + 1);
        if (!z.empty() && z.back() == '\r') z.remove_suffix(1);
        if (!z.empty() && z.front() != '#') f(z);
    }
}

// Takes the field up to the next ';'; false when there is none.
bool feld(std::string_view& rest, std::string_view& wert) {
    const std::size_t p = rest.find(';');
    if (p == std::string_view::npos) return false;
    wert = rest.substr(0, p);
    rest.remove_prefix(p + 1);
    return true;
}

std::string_view ohneLeer(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

// A 32-bit number as the index writes it (negative values stand for the high
// half of an unsigned one).
bool zahl32(std::string_view s, std::uint32_t& wert) {
    s = ohneLeer(s);
    bool minus = false;
    if (!s.empty() && (s.front() == '-' || s.front() == '+')) {
        minus = s.front() == '-';
        s.remove_prefix(1);
    }
    if (s.empty() || s.size() > 10) return false;
    std::int64_t n = 0;
    for (char c : s) {
        if (c < '0' || c > '9') return false;
        n = n * 10 + (c - '0');
    }
    if (minus) n = -n;
    if (n < std::numeric_limits<std::int32_t>::min() ||
        n > std::numeric_limits<std::uint32_t>::max())
        return false;
    wert = static_cast<std::uint32_t>(n);
    return true;
}

bool sichereEan(std::string_view ean) {
    if (ean.empty() || ean.size() > 16) return false;
    for (char c : ean)
        if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
              c == '-' || c == '_'))
            return false;
    return true;
}

// A relative path with '/' separators ending in '/', or "" when it is unsafe.
bool sichererPfad(std::string_view roh, std::string& pfad) {
    pfad.clear();
    for (char c : ohneLeer(roh)) pfad += c == '\\' ? '/' : c;
    if (pfad.empty()) return true;
    if (pfad.front() == '/' || pfad.find(':') != std::string::npos) return false;
    for (unsigned char c : pfad)
        if (c < 0x20 || c == 0x7F || c == '?' || c == '#' || c == '%') return false;
    if (pfad.back() != '/') pfad += '/';
    for (std::size_t a = 0; a < pfad.size();) {
        const std::size_t e = pfad.find('/', a);
        const std::string_view teil(pfad.data() + a, e - a);
        if (teil == ".." || teil == ".") return false;
        a = e + 1;
    }
    return true;
}

// Percent-encodes what a URL path cannot hold as it is (blanks, 8-bit characters).
std::string alsUrlPfad(const std::string& pfad) {
    std::string url;
    for (unsigned char c : pfad) {
        if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
            std::strchr("-._~/!$&'()*+,;=@", c)) {
            url += static_cast<char>(c);
        } else {
            char hex[4];
            std::snprintf(hex, sizeof hex, "%%%02X", c);
            url += hex;
        }
    }
    return url;
}

bool gleich(const WebImportEntry& a, const WebImportEntry& b) {
    return a.EAN == b.EAN && a.titel == b.titel && a.SN == b.SN && a.BytesLow == b.BytesLow &&
           a.BytesHigh == b.BytesHigh;
}

}  // namespace

std::vector<WebLink> leseLinks(std::string_view text) {
    std::vector<WebLink> links;
    jedeZeile(text, [&](std::string_view z) {
        std::string_view nummer, pfad;
        std::uint32_t n = 0;
        WebLink l;
        if (!feld(z, nummer) || !feld(z, pfad) || !zahl32(nummer, n)) return;
        if (!sichererPfad(pfad, l.pfad)) return;
        l.nummer = static_cast<std::int32_t>(n);
        links.push_back(std::move(l));
    });
    return links;
}

std::vector<WebImportEntry> leseIndex(std::string_view text, int link) {
    std::vector<WebImportEntry> index;
    jedeZeile(text, [&](std::string_view z) {
        WebImportEntry e;
        e.link = link;
        std::string_view ean, sn, low, high;
        if (!feld(z, ean) || !feld(z, sn) || !feld(z, low) || !feld(z, high)) return;
        // The title may itself hold ';': it is everything up to the line's last ';'.
        const std::string_view rest = ohneLeer(z);
        if (rest.size() < 3 || rest.back() != ';') return;
        ean = ohneLeer(ean);
        if (!sichereEan(ean) || !zahl32(sn, e.SN) || !zahl32(low, e.BytesLow) ||
            !zahl32(high, e.BytesHigh))
            return;
        e.EAN = std::string(ean);
        e.titel = std::string(rest.substr(1, rest.size() - 3));  // without the quotes and ';'
        index.push_back(std::move(e));
    });
    return index;
}

bool entpackeKvt(std::string_view datei, std::string& index) {
    if (datei.size() < 9 || datei.substr(0, 3) != "KVT") return false;
    const auto* b = reinterpret_cast<const unsigned char*>(datei.data());
    const std::uint32_t laenge =
        static_cast<std::uint32_t>(b[5]) | static_cast<std::uint32_t>(b[6]) << 8 |
        static_cast<std::uint32_t>(b[7]) << 16 | static_cast<std::uint32_t>(b[8]) << 24;
    if (laenge > kWebMaxIndex) return false;
    std::string puffer(laenge == 0 ? 1 : laenge, '\0');
    uLongf ziel = laenge;
    const int rc = uncompress(reinterpret_cast<Bytef*>(puffer.data()), &ziel, b + 9,
                              static_cast<uLong>(datei.size() - 9));
    if (rc != Z_OK) return false;
    puffer.resize(ziel);
    index = std::move(puffer);
    return true;
}

std::string webImportMeldung(int code) {
    char text[128];
    switch (code) {
        case 0:
            return "Es konnte kein passender Import gefunden werden.";
        case kWebLinksFehlen:
            std::snprintf(text, sizeof text, "<%s> <%s>", "Import-URL", "Fehlerhafter Link");
            break;
        case kWebLinksUnlesbar:
            std::snprintf(text, sizeof text, "<%s> <%s> <%s>", "Import-URL", "Delegation",
                          "Lesefehler");
            break;
        case kWebIndexFehlt:
            std::snprintf(text, sizeof text, "<%s> <%s> <%s>", "Import-URL", "Delegation",
                          "Fehlerhafter Link");
            break;
        case kWebIndexUnlesbar:
            std::snprintf(text, sizeof text, "<%s> <%s>", "Import-DB", "Lesefehler");
            break;
        case kWebBoxFehlt:
            std::snprintf(text, sizeof text, "<%s> <%s>", "Import-Datei", "Lesefehler");
            break;
        default:
            return "Es ist ein unbekannter Fehler aufgetreten.";
    }
    return text;
}

WebImport::WebImport(Dateisystem& fs, Benutzer& benutzer, std::string arbeitsOrdner, Http& http)
    : fs_(fs), benutzer_(benutzer), ordner_(std::move(arbeitsOrdner)), http_(http) {}

bool WebImport::lade(const std::string& basis, const std::string& relativ,
                     const std::string& name) {
    std::string daten, fehler;
    if (!http_.hole(basis + alsUrlPfad(relativ), grenzen, daten, fehler)) {
        benutzer_.meldung(kTitel, fehler, Symbol::Fehler);
        return false;
    }
    const std::string pfad = ordner_ + name;
    if ((!fs_.istOrdner(ordner_) && !fs_.erzeugeOrdner(ordner_)) ||
        !schreibeSicher(fs_, pfad, daten)) {
        std::string text;
        if (!utf8NachCp1252(pfad, text)) text = pfad;
        benutzer_.meldung(kTitel,
                          "Die Datei '" + text + "' konnte nicht zum Schreiben geöffnet werden.",
                          Symbol::Fehler);
        return false;
    }
    return true;
}

bool WebImport::abbrechen() {
    if (!abgebrochen_ && benutzer_.unterbrechen())
        abgebrochen_ = benutzer_.frage(kTitel, "Suche wirklich abbrechen?");
    return abgebrochen_;
}

bool WebImport::suche(const std::vector<WebImportEntry>& index, const WebImportSuche& s,
                      std::vector<WebImportEntry>& treffer) {
    const std::string muster = "*" + s.titel + "*";
    std::size_t n = 0;
    for (const WebImportEntry& e : index) {
        if (++n % 4096 == 0 && abbrechen()) return false;
        if (s.perDisc()) {
            if (e.SN == s.SN && e.BytesLow == s.BytesLow && e.BytesHigh == s.BytesHigh)
                treffer.push_back(e);
        } else if (!s.ean.empty()) {
            if (e.EAN == s.ean) {
                treffer.push_back(e);
                return true;  // only the first line of each index
            }
        } else if (musterPasst(ohneRandLeer(muster), ohneRandLeer(e.titel), grossKlein)) {
            bool schonDa = false;
            for (const WebImportEntry& t : treffer) schonDa = schonDa || gleich(t, e);
            if (!schonDa) treffer.push_back(e);
            if (treffer.size() >= static_cast<std::size_t>(kWebMaxTreffer)) return false;
        }
    }
    return true;
}

int WebImport::durchsuche(const std::string& basis, const std::vector<WebLink>& links,
                          const WebImportSuche& s, std::vector<WebImportEntry>& treffer) {
    for (std::size_t i = 0; i < links.size(); ++i) {
        if (abbrechen()) break;
        if (!lade(basis, links[i].pfad + "ImpDB.kvt", "ImpDB.kvt")) return kWebIndexFehlt;
        std::string gepackt, index;
        const bool gelesen = leseAlles(fs_, ordner_ + "ImpDB.kvt", gepackt);
        fs_.loesche(ordner_ + "ImpDB.kvt");
        if (!gelesen || !entpackeKvt(gepackt, index) ||
            !schreibeSicher(fs_, ordner_ + "ImpDB.ini", index))
            return kWebIndexUnlesbar;
        gepackt.clear();
        if (!suche(leseIndex(index, static_cast<int>(i)), s, treffer)) break;
    }
    return static_cast<int>(treffer.size());
}

int WebImport::ladeGewaehlte(const std::string& basis, const std::vector<WebLink>& links,
                             WebImportErgebnis& e) {
    char titel[64];
    std::snprintf(titel, sizeof titel, "Web-Import Auswahl (%d)",
                  static_cast<int>(e.treffer.size()));
    std::vector<std::string> zeilen;
    for (const WebImportEntry& t : e.treffer) zeilen.push_back(t.titel);
    for (int i : benutzer_.waehle(titel, "BoxTitel", zeilen, true, -1))
        if (i >= 0 && static_cast<std::size_t>(i) < e.treffer.size())
            e.treffer[static_cast<std::size_t>(i)].selected = true;
    for (const WebImportEntry& t : e.treffer) {
        if (!t.selected) continue;
        const std::string name = t.EAN + ".box";
        if (!lade(basis, links[static_cast<std::size_t>(t.link)].pfad + name, name))
            return kWebBoxFehlt;
        e.dateien.push_back(ordner_ + name);
    }
    return e.code;
}

WebImportErgebnis WebImport::fuehreAus(const std::string& basisUrl, const WebImportSuche& s) {
    WebImportErgebnis e;
    abgebrochen_ = false;
    std::string basis = basisUrl;
    if (!basis.empty() && basis.back() != '/') basis += '/';
    std::string text;
    if (!lade(basis, "links.ini", "links.ini")) {
        e.code = kWebLinksFehlen;
    } else if (!leseAlles(fs_, ordner_ + "links.ini", text)) {
        e.code = kWebLinksUnlesbar;
    } else {
        const std::vector<WebLink> links = leseLinks(text);
        e.code = durchsuche(basis, links, s, e.treffer);
        if (e.code < 0) e.treffer.clear();
        if (e.code > 0) e.code = ladeGewaehlte(basis, links, e);
    }
    if (e.code <= 0)
        benutzer_.meldung(kTitel, webImportMeldung(e.code),
                          e.code == 0 ? Symbol::Information : Symbol::Fehler);
    benutzer_.meldung(kTitel, "Suche beendet", Symbol::Information);
    return e;
}

std::string importUrl(Einstellungen& einstellungen) {
    std::string url;
    if (!einstellungen.getImportUrl(url) || url.empty()) url = kStandardImportUrl;
    return url;
}

int importiereWebDateien(const WebImportErgebnis& e, const BoxDateiImport& import) {
    int n = 0;
    for (const std::string& pfad : e.dateien)
        if (import && import(pfad)) ++n;
    return n;
}

}  // namespace dv
