#include "base/Hilfen.h"

#include <cstdio>
#include <cstring>

#include "platform/Zeit.h"

namespace dv {

std::string seitenDateiPfad(const std::string& ordner, long id) {
    char name[32];
    std::snprintf(name, sizeof name, "%ld.txt", id);
    return ordner + name;
}

bool seitenDateiExistiert(Dateisystem& fs, const std::string& ordner, long id) {
    if (id <= 0) return false;
    return fs.oeffne(seitenDateiPfad(ordner, id), OeffnenModus::Lesen) != nullptr;
}

bool loescheSeitenDatei(Dateisystem& fs, const std::string& ordner, long id) {
    if (id <= 0) return false;
    return fs.loesche(seitenDateiPfad(ordner, id));
}

bool leseSeitenDatei(Dateisystem& fs, const std::string& ordner, long id, std::string& text) {
    text.clear();
    if (id <= 0) return false;
    return leseAlles(fs, seitenDateiPfad(ordner, id), text);
}

bool schreibeSeitenDatei(Dateisystem& fs, const std::string& ordner, long id,
                         const std::string& text) {
    if (id <= 0) return false;
    const std::string pfad = seitenDateiPfad(ordner, id);
    if (text.empty()) {
        fs.loesche(pfad);
        return !fs.existiert(pfad);
    }
    return schreibeSicher(fs, pfad, text);
}

std::string umlauteUmschreiben(const std::string& text) {
    std::string out;
    out.reserve(text.size() + 4);
    for (char c : text) {
        switch (static_cast<unsigned char>(c)) {
            case 0xC4:
                out += "Ae";
                break;  // Ä
            case 0xD6:
                out += "Oe";
                break;  // Ö
            case 0xDC:
                out += "Ue";
                break;  // Ü
            case 0xE4:
                out += "ae";
                break;  // ä
            case 0xF6:
                out += "oe";
                break;  // ö
            case 0xFC:
                out += "ue";
                break;  // ü
            case 0xDF:
                out += "ss";
                break;  // ß
            default:
                out += c;
        }
    }
    return out;
}

namespace {

// Lower case of a Windows-1252 byte: the ASCII letters, the accented capitals
// À to Þ (without ×) and the four capitals of the 0x80 row.
unsigned char klein(unsigned char c) {
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
        return static_cast<unsigned char>(c + 32);
    switch (c) {
        case 0x8A:
            return 0x9A;  // Š
        case 0x8C:
            return 0x9C;  // Œ
        case 0x8E:
            return 0x9E;  // Ž
        case 0x9F:
            return 0xFF;  // Ÿ
        default:
            return c;
    }
}

int vergleicheOhneFall(const char* a, const char* b) {
    for (;; ++a, ++b) {
        const unsigned char x = klein(static_cast<unsigned char>(*a));
        const unsigned char y = klein(static_cast<unsigned char>(*b));
        if (x != y || x == 0) return x - y;
    }
}

bool hatUmlaut(const char* s) {
    return std::strpbrk(s, "\xE4\xF6\xFC\xC4\xD6\xDC\xDF") != nullptr;
}

int vergleicheKnoten(const void* a, const void* b) {
    const auto* x = *static_cast<ListenElement* const*>(a);
    const auto* y = *static_cast<ListenElement* const*>(b);
    return static_cast<int>(x->sWert) - static_cast<int>(y->sWert);
}

}  // namespace

int vergleicheBoxTitel(const char* a, const char* b) {
    if (!a) a = "";
    if (!b) b = "";
    if (!hatUmlaut(a) && !hatUmlaut(b)) return vergleicheOhneFall(a, b);
    const std::string x = hatUmlaut(a) ? umlauteUmschreiben(a) : std::string(a);
    const std::string y = hatUmlaut(b) ? umlauteUmschreiben(b) : std::string(b);
    return vergleicheOhneFall(x.c_str(), y.c_str());
}

std::string boxTitelSchluessel(const char* titel) {
    std::string s = umlauteUmschreiben(titel ? titel : "");
    for (char& c : s) c = static_cast<char>(klein(static_cast<unsigned char>(c)));
    return s;
}

ListenElement* sortUrObjektListe(ListenElement* kopf, const Trace& trace) {
    return sortiereListe(kopf, vergleicheKnoten, trace, "CApplikation::sortUrObjektListe");
}

void bereinigeDateiname(std::string& name) {
    static const char kVerboten[] = "\\/:*?.,'\"<>|";
    for (char& c : name)
        if (std::strchr(kVerboten, c) && c != '\0') c = '_';
}

std::string datumsStempel(char trenner, DatumsForm form) {
    const LokaleZeit z = jetzt();
    char text[32];
    switch (form) {
        case DatumsForm::Kurz:
            if (trenner == 0)
                std::snprintf(text, sizeof text, "%02d%02d%02d", z.tag, z.monat, z.jahr % 100);
            else
                std::snprintf(text, sizeof text, "%02d%c%02d%c%02d", z.tag, trenner, z.monat,
                              trenner, z.jahr % 100);
            break;
        case DatumsForm::Lang:
            if (trenner == 0)
                std::snprintf(text, sizeof text, "%02d%02d%04d", z.tag, z.monat, z.jahr);
            else
                std::snprintf(text, sizeof text, "%02d%c%02d%c%04d", z.tag, trenner, z.monat,
                              trenner, z.jahr);
            break;
        case DatumsForm::JahrInDerMitte:
            if (trenner == 0)
                std::snprintf(text, sizeof text, "%02d%04d%02d", z.tag, z.jahr, z.monat);
            else
                std::snprintf(text, sizeof text, "%02d%c%04d%c%02d", z.tag, trenner, z.jahr,
                              trenner, z.monat);
            break;
    }
    return text;
}

const char* groessenEinheit(int index) {
    switch (index) {
        case 1:
            return "Bytes";
        case 2:
            return "KB";
        case 3:
            return "MB";
        case 4:
            return "GB";
        case 5:
            return "TB";
        default:
            return "> TB";
    }
}

bool kopiereText(Benutzer& benutzer, const std::string& text, bool still) {
    const bool ok = benutzer.zwischenablage(text);
    if (ok && !still)
        benutzer.meldung("Zwischenablage", "Der Text wurde kopiert.", Symbol::Information);
    return ok;
}

}  // namespace dv
