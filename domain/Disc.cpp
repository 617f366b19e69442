#include "domain/Disc.h"

#include <charconv>
#include <cstdio>

#include "base/Hilfen.h"
#include "base/Zeichensatz.h"
#include "domain/Datenbank.h"

namespace dv {
namespace {

constexpr const char* kDvdRom = "DvdRom";

// Platform texts (names, models) are UTF-8; the catalogue's are Windows-1252.
std::string alsKatalogText(const std::string& utf8, std::size_t max) {
    std::string text =
        ausQString(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
    if (text.size() > max) text.resize(max);
    return text;
}

std::string format(const char* muster, char c) {
    char text[128];
    std::snprintf(text, sizeof text, muster, c);
    return text;
}

const OptischesLaufwerk* findeLaufwerk(const std::vector<OptischesLaufwerk>& liste, char b) {
    for (const auto& l : liste) {
        if (l.buchstabe == b) return &l;
    }
    return nullptr;
}

// The device or image to read; false (with the reason in fehlerText) when the
// chosen letter names no optical drive. The caller has checked for no letter.
bool pfadVon(Laufwerke& laufwerke, const DiscQuelle& quelle, std::string& pfad,
             std::string& fehlerText) {
    if (!quelle.abbild.empty()) {
        pfad = quelle.abbild;
        return true;
    }
    const auto liste = laufwerke.liste();
    const OptischesLaufwerk* l = findeLaufwerk(liste, quelle.laufwerk);
    if (!l) {
        fehlerText = format("Das Laufwerk %c: ist nicht vorhanden.", quelle.laufwerk);
        return false;
    }
    pfad = l->geraet;
    return true;
}

bool speichere(Einstellungen& einstellungen, char buchstabe) {
    return einstellungen.setText(kDvdRom, format("%c", buchstabe));
}

std::string zahl(std::uint32_t wert) {
    return std::to_string(wert);
}

}  // namespace

int leseDiscInfo(Laufwerke& laufwerke, const DiscQuelle& quelle, DiscInfo& info) {
    if (quelle.abbild.empty() && quelle.laufwerk == 0) return kDiscKeinLaufwerk;
    info = DiscInfo{};
    if (quelle.abbild.empty()) {
        info.cRoot[0] = quelle.laufwerk;
        info.cRoot[1] = ':';
    }
    std::string pfad;
    if (!pfadVon(laufwerke, quelle, pfad, info.fehlerText)) return kDiscLesefehler;
    VolumenFakten fakten;
    auto r = laufwerke.volumen(pfad, fakten);
    if (!r.ok()) {
        info.fehlerText = r.text;
        return kDiscLesefehler;
    }
    info.volumenName = alsKatalogText(fakten.name, 256);
    info.dateisystem = alsKatalogText(fakten.dateisystem, 254);
    info.SN = fakten.seriennummer;
    info.maxKomponente = fakten.maxKomponente;
    info.flags = fakten.flags;
    if (info.dateisystem != "UDF") return kDiscFalschesDateisystem;
    std::uint64_t bytes = 0;
    r = laufwerke.groesse(pfad, bytes);
    if (!r.ok()) {
        info.fehlerText = r.text;
        return kDiscLesefehler;
    }
    info.BytesLow = static_cast<std::uint32_t>(bytes);
    info.BytesHigh = static_cast<std::uint32_t>(bytes >> 32);
    info.frei[0] = info.frei[1] = 0;
    return kDiscOk;
}

bool leseDvdKopf(Laufwerke& laufwerke, const DiscQuelle& quelle,
                 std::array<std::uint8_t, kDvdKopfGroesse>& kopf) {
    if (quelle.abbild.empty() && quelle.laufwerk == 0) return false;
    std::string pfad, fehlerText, daten;
    if (!pfadVon(laufwerke, quelle, pfad, fehlerText)) return false;
    auto r = laufwerke.leseDatei(pfad, "VIDEO_TS/VIDEO_TS.IFO", kDvdKopfGroesse, daten);
    if (!r.ok() || daten.size() != kDvdKopfGroesse) return false;
    for (std::size_t i = 0; i < kDvdKopfGroesse; ++i) kopf[i] = static_cast<std::uint8_t>(daten[i]);
    return true;
}

int regionAusKopf(const std::array<std::uint8_t, kDvdKopfGroesse>& kopf) {
    return kopf[35] ^ 255;
}

std::string groessenText(std::uint32_t low, std::uint32_t high) {
    int index = 1;
    std::uint32_t zuletzt = low;
    while (low >= 1024 || high > 0) {
        zuletzt = low;
        const std::uint32_t uebertrag = high > 0 ? 4194304u : 0u;
        high >>= 10;
        low >>= 10;
        low += uebertrag;
        ++index;
    }
    // Always a full stop as decimal sign, whatever locale the process runs in.
    char text[64];
    auto [ende, ec] =
        std::to_chars(text, text + sizeof text - 1, zuletzt / 1024.0, std::chars_format::fixed, 2);
    if (ec != std::errc()) ende = text;
    return std::string(text, ende) + " " + groessenEinheit(index);
}

const char* groessenKlasse(std::uint32_t low, std::uint32_t high) {
    const std::uint64_t bytes = (static_cast<std::uint64_t>(high) << 32) | low;
    return bytes < 4'700'000'000ull ? "DVD 5 oder DVD 10" : "DVD 9 oder DVD 18";
}

void fuelleDiscAnzeige(Laufwerke& laufwerke, const DiscQuelle& quelle, const DiscInfo& info,
                       DiscAnzeige& anzeige) {
    anzeige.dateisystem = info.dateisystem;
    anzeige.sn = zahl(info.SN);
    anzeige.bytesLow = zahl(info.BytesLow);
    anzeige.bytesHigh = zahl(info.BytesHigh);
    anzeige.groesse = groessenText(info.BytesLow, info.BytesHigh);
    anzeige.typ = groessenKlasse(info.BytesLow, info.BytesHigh);
    std::array<std::uint8_t, kDvdKopfGroesse> kopf{};
    anzeige.rcGelesen = leseDvdKopf(laufwerke, quelle, kopf);
    if (anzeige.rcGelesen) anzeige.rc = regionAusKopf(kopf);
}

void meldeDiscFehler(Benutzer& benutzer, int code, const DiscInfo& info) {
    if (code == kDiscKeinLaufwerk) {
        benutzer.meldung("Undefiniertes Laufwerk",
                         "Es wurde noch kein Standard DVD-Laufwerk ausgewählt.", Symbol::Fehler);
    } else if (code == kDiscFalschesDateisystem) {
        benutzer.meldung("Falsches Dateisystem",
                         "Die DVD hat das Dateisystem \"" + info.dateisystem +
                             "\". Erkannt werden nur DVDs mit dem Dateisystem \"UDF\".",
                         Symbol::Fehler);
    } else if (code < 0) {
        benutzer.meldung("DVD-Info konnte nicht ermittelt werden", info.fehlerText, Symbol::Fehler);
    }
}

DiscFund findeDisc(Datenbank& db, Benutzer& benutzer, Laufwerke& laufwerke,
                   const DiscQuelle& quelle) {
    DiscInfo info;
    if (leseDiscInfo(laufwerke, quelle, info) < 0) {
        benutzer.meldung("Hinweis", "Die DVD-Daten konnten nicht gelesen werden.",
                         Symbol::Information);
        return {};
    }
    const DiscFund fund = findeDvdZu(db, info);
    if (fund.dvdId <= 0)
        benutzer.meldung("Hinweis", "Diese DVD ist noch unbekannt.", Symbol::Information);
    return fund;
}

DiscFund findeDvdZu(Datenbank& db, const DiscInfo& info) {
    tab::DVD::Zeile beispiel{};
    beispiel.SN = info.SN;
    beispiel.BytesLow = info.BytesLow;
    beispiel.BytesHigh = info.BytesHigh;
    auto dvds = db.katalog().DVD.liste(beispiel);
    if (!dvds) return {};
    DiscFund fund;
    fund.dvdId = tab::DVD::zeile(dvds.get()).Id;
    tab::DVD_Box::Zeile link{};
    link.DVD_Id = static_cast<std::int32_t>(fund.dvdId);
    auto boxen = db.katalog().DVD_Box.liste(link);
    if (boxen) fund.boxId = tab::DVD_Box::zeile(boxen.get()).Box_Id;
    return fund;
}

int zaehleLaufwerke(Laufwerke& laufwerke, std::array<int, 26>& flags) {
    flags.fill(0);
    int anzahl = 0;
    for (const auto& l : laufwerke.liste()) {
        if (l.buchstabe < 'A' || l.buchstabe > 'Z') continue;
        flags[static_cast<std::size_t>(l.buchstabe - 'A')] = 1;
        ++anzahl;
    }
    return anzahl;
}

char gespeichertesLaufwerk(Einstellungen& einstellungen) {
    std::string text;
    if (!einstellungen.getText(kDvdRom, text) || text.empty()) return 0;
    const char b = text[0];
    if (b >= 'a' && b <= 'z') return static_cast<char>(b - 32);
    return b >= 'A' && b <= 'Z' ? b : 0;
}

bool waehleLaufwerk(Benutzer& benutzer, Laufwerke& laufwerke, Einstellungen& einstellungen,
                    char& buchstabe) {
    const auto liste = laufwerke.liste();
    std::array<int, 26> flags{};
    const int anzahl = zaehleLaufwerke(laufwerke, flags);
    if (anzahl == 0) {
        benutzer.meldung("Hinweis", "Kein DVD-Laufwerk gefunden.", Symbol::Information);
        return false;
    }
    std::vector<char> buchstaben;
    for (int i = 0; i < 26; ++i) {
        if (flags[static_cast<std::size_t>(i)]) buchstaben.push_back(static_cast<char>('A' + i));
    }
    if (buchstaben.size() == 1) {
        if (!speichere(einstellungen, buchstaben[0])) return false;
        buchstabe = buchstaben[0];
        benutzer.meldung("CD/DVD-Laufwerk gefunden",
                         format("Laufwerk %c:\\ wurde übernommen.", buchstabe),
                         Symbol::Information);
        return true;
    }
    std::vector<std::string> eintraege;
    int vorauswahl = -1;
    for (char b : buchstaben) {
        if (b == buchstabe) vorauswahl = static_cast<int>(eintraege.size());
        std::string eintrag = format("%c:\\", b);
        if (const OptischesLaufwerk* l = findeLaufwerk(liste, b)) {
            eintrag += "  " + l->geraet;
            if (!l->modell.empty()) eintrag += "  " + alsKatalogText(l->modell, 128);
        }
        eintraege.push_back(eintrag);
    }
    const auto wahl =
        benutzer.waehle("CD/DVD-Laufwerk auswählen", "Laufwerk", eintraege, false, vorauswahl);
    if (wahl.empty() || wahl[0] < 0 || static_cast<std::size_t>(wahl[0]) >= buchstaben.size()) {
        return false;
    }
    const char neu = buchstaben[static_cast<std::size_t>(wahl[0])];
    if (!speichere(einstellungen, neu)) return false;
    buchstabe = neu;
    return true;
}

bool setzeLaufwerk(Benutzer& benutzer, Laufwerke& laufwerke, Einstellungen& einstellungen,
                   char buchstabe) {
    if (buchstabe >= 'a' && buchstabe <= 'z') buchstabe = static_cast<char>(buchstabe - 32);
    const auto liste = laufwerke.liste();
    if (!findeLaufwerk(liste, buchstabe)) {
        benutzer.meldung("Undefiniertes Laufwerk",
                         format("Laufwerk %c: ist kein CD/DVD-Laufwerk.", buchstabe),
                         Symbol::Fehler);
        return false;
    }
    return speichere(einstellungen, buchstabe);
}

bool bewegeSchublade(Benutzer& benutzer, Laufwerke& laufwerke, char buchstabe, bool oeffnen) {
    const auto liste = laufwerke.liste();
    const OptischesLaufwerk* l =
        buchstabe ? findeLaufwerk(liste, buchstabe) : (liste.empty() ? nullptr : &liste.front());
    if (!l) {
        benutzer.meldung("Hinweis",
                         buchstabe ? format("Das Laufwerk %c: ist nicht vorhanden.", buchstabe)
                                   : std::string("Kein DVD-Laufwerk gefunden."),
                         Symbol::Information);
        return false;
    }
    const auto r = laufwerke.schublade(l->geraet, oeffnen);
    if (!r.ok()) {
        benutzer.meldung("CD/DVD-Laufwerk", r.text, Symbol::Fehler);
        return false;
    }
    return true;
}

}  // namespace dv
