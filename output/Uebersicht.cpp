// The overview page: inputs, the placeholder engine with its per-box section and
// colour rotation, the side folder, and the settings file.
#include "output/Uebersicht.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <new>
#include <set>
#include <string_view>

#include "base/Zeichensatz.h"

namespace dv {

namespace {

constexpr const char* kFehler = "Fehler...";
constexpr const char* kKeinBild = "none.jpg";

// A native path (UTF-8) as catalogue text for messages and the page.
std::string alsText(const std::string& pfad) {
    std::string text;
    return utf8NachCp1252(pfad, text) ? text : pfad;
}

bool endetMitHtml(const std::string& pfad) {
    if (pfad.size() < 5) return false;
    std::string ende = pfad.substr(pfad.size() - 5);
    for (char& c : ende)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return ende == ".html";
}

std::string ordnerVon(const std::string& pfad) {
    const auto p = pfad.find_last_of('/');
    return p == std::string::npos ? std::string() : pfad.substr(0, p + 1);
}
std::string nameVon(const std::string& pfad) {
    const auto p = pfad.find_last_of('/');
    return p == std::string::npos ? pfad : pfad.substr(p + 1);
}
std::string endungVon(const std::string& name) {
    const auto p = name.find_last_of('.');
    return p == std::string::npos ? std::string() : name.substr(p);
}

// The lines of a text, each with its own line end ("" for a last line without one).
struct Zeile {
    std::string_view text;
    std::string_view ende;
};
std::vector<Zeile> zerlege(std::string_view text) {
    std::vector<Zeile> zeilen;
    std::size_t anfang = 0;
    while (anfang < text.size()) {
        const std::size_t nl = text.find('\n', anfang);
        std::size_t ende = nl == std::string_view::npos ? text.size() : nl;
        const std::size_t weiter = nl == std::string_view::npos ? text.size() : nl + 1;
        if (ende > anfang && text[ende - 1] == '\r') --ende;
        zeilen.push_back({text.substr(anfang, ende - anfang), text.substr(ende, weiter - ende)});
        anfang = weiter;
    }
    return zeilen;
}

class Seite {
  public:
    Seite(UebersichtUmgebung& u, const UebersichtEinstellungen& e, const UebersichtDaten& d)
        : u_(u), e_(e), d_(d) {}

    // Everything from the template's checks to the finished file.
    bool schreibe();

  private:
    bool bereiteDateienVor(std::unique_ptr<Datei>& ziel);
    // Fills one template line into aus_. A line holding LOOP= is replaced by the
    // per-box section (false when its file cannot be read).
    bool zeile(std::string_view text, std::string_view ende, bool imAbschnitt);
    // The value of a placeholder; false when the name is none.
    bool wert(std::string_view name, std::string& w);
    bool abschnitt(const std::string& datei);
    bool ladeFarben(const std::string& datei);
    bool liesVorlage(const std::string& name, std::string& inhalt);
    std::string cover();
    void fehler(const std::string& text) { u_.benutzer.meldung(kFehler, text, Symbol::Fehler); }

    UebersichtUmgebung& u_;
    const UebersichtEinstellungen& e_;
    const UebersichtDaten& d_;
    std::string aus_;
    std::string seitenOrdner_;  // native, ends in '/'
    std::string seitenRel_;     // relative to the page, catalogue text, ends in '/'
    std::string hintergrund_;   // value of HINTERGRUNDBILD
    const UebersichtBox* box_ = nullptr;
    long lfdnr_ = 0;
    std::vector<FarbEintrag> farben_;
    std::size_t farbe_ = 0;
    std::set<long> kopiert_;
    bool abgebrochen_ = false;  // a section file could not be read
};

bool Seite::liesVorlage(const std::string& name, std::string& inhalt) {
    const std::string neben = ordnerVon(e_.vorlage) + name;
    if (leseAlles(u_.fs, u_.vorlagenOrdner + name, inhalt) || leseAlles(u_.fs, neben, inhalt))
        return true;
    fehler("Die Vorlagendatei (" + alsText(u_.vorlagenOrdner + name) + ") ist nicht lesbar");
    return false;
}

bool Seite::ladeFarben(const std::string& datei) {
    std::string inhalt;
    if (!liesVorlage(datei, inhalt)) return false;
    farben_ = leseFarbDatei(inhalt);
    farbe_ = 0;
    return true;
}

std::string Seite::cover() {
    if (!box_ || box_->cover.empty()) return kKeinBild;
    const std::string name = std::to_string(box_->id) + endungVon(box_->cover);
    if (!kopiert_.count(box_->id)) {
        if (!u_.fs.kopiere(d_.coverOrdner + box_->cover, seitenOrdner_ + name)) return kKeinBild;
        kopiert_.insert(box_->id);
    }
    return seitenRel_ + alsText(name);
}

bool Seite::wert(std::string_view name, std::string& w) {
    const auto zahl = [&](long n) { w = std::to_string(n); };
    if (name == "LISTENTITEL")
        w = e_.titel.empty() ? "Listentitel" : e_.titel;
    else if (name == "LISTENUEBERSCHRIFT")
        w = e_.ueberschrift.empty() ? "Überschrift" : e_.ueberschrift;
    else if (name == "HINTERGRUNDBILD")
        w = hintergrund_;
    else if (name == "BOXTITEL")
        w = box_ ? box_->titel : "";
    else if (name == "BOXORIGTITEL")
        w = box_ ? box_->origTitel : "";
    else if (name == "BOXCOVER")
        w = cover();
    else if (name == "BOXANZAHL")
        zahl(d_.anzahlBoxen);
    else if (name == "DVDANZAHL")
        zahl(d_.anzahlDvds);
    else if (name == "FILMANZAHL")
        zahl(d_.anzahlFilme);
    else if (name == "BOXLFDNR")
        zahl(lfdnr_);
    else if (name == "COLOR") {
        w.clear();
        if (farben_.empty()) return true;
        const FarbEintrag& f = farben_[farbe_];
        w = f.text;
        // The counter belongs to the program run; a new page keeps it (see FarbZaehler).
        if (u_.farben.zaehler >= f.anzahl) {
            farbe_ = (farbe_ + 1) % farben_.size();
            u_.farben.zaehler = 1;
        } else {
            ++u_.farben.zaehler;
        }
    } else if (name.substr(0, 10) == "COLORFILE=") {
        w.clear();
        if (!ladeFarben(std::string(name.substr(10)))) abgebrochen_ = true;
    } else {
        return false;
    }
    return true;
}

bool Seite::zeile(std::string_view text, std::string_view ende, bool imAbschnitt) {
    std::string ergebnis;
    std::size_t pos = 0;
    // Left to right; an inserted value is never searched again, so a title with
    // a percent sign cannot start a placeholder.
    while (pos < text.size()) {
        const std::size_t a = text.find('%', pos);
        const std::size_t b = a == std::string_view::npos ? a : text.find('%', a + 1);
        if (b == std::string_view::npos) break;
        const std::string_view name = text.substr(a + 1, b - a - 1);
        ergebnis.append(text.substr(pos, a - pos));
        if (name.substr(0, 5) == "LOOP=") {
            // The whole line stands for the section; a section cannot hold another.
            return imAbschnitt || abschnitt(std::string(name.substr(5)));
        }
        std::string w;
        if (wert(name, w)) {
            if (abgebrochen_) return false;
            ergebnis += w;
            pos = b + 1;
        } else {
            // Not a placeholder: the first percent sign stays, the second may open one.
            ergebnis += '%';
            pos = a + 1;
        }
    }
    ergebnis.append(text.substr(std::min(pos, text.size())));
    aus_ += ergebnis;
    aus_.append(ende);
    return true;
}

bool Seite::abschnitt(const std::string& datei) {
    std::string inhalt;
    if (!liesVorlage(datei, inhalt)) return false;
    const std::vector<Zeile> zeilen = zerlege(inhalt);
    lfdnr_ = 0;
    for (const UebersichtBox& b : d_.boxen) {
        box_ = &b;
        ++lfdnr_;
        for (const Zeile& z : zeilen)
            if (!zeile(z.text, z.ende, true)) return false;
    }
    box_ = nullptr;
    return true;
}

bool Seite::bereiteDateienVor(std::unique_ptr<Datei>& ziel) {
    // The side folder: "%s_%s" of the target without its extension and "Dateien".
    const std::string name = nameVon(e_.ziel);
    const std::string stamm = name.substr(0, name.size() - 5);
    seitenOrdner_ = ordnerVon(e_.ziel) + stamm + "_" + "Dateien" + "/";
    seitenRel_ = alsText(stamm + "_Dateien/");

    if (u_.fs.existiert(e_.ziel)) u_.fs.loesche(e_.ziel);
    ziel = u_.fs.oeffne(e_.ziel, OeffnenModus::Erzeugen);
    if (!ziel) {
        fehler("Die Zieldatei (" + alsText(e_.ziel) + ") kann nicht geschrieben werden");
        return false;
    }
    if (!u_.fs.istOrdner(seitenOrdner_) && !u_.fs.erzeugeOrdner(seitenOrdner_)) {
        fehler("Der Ordner (" + alsText(seitenOrdner_) + ") kann nicht angelegt werden");
        return false;
    }
    hintergrund_ = kKeinBild;
    if (!e_.hintergrund.empty()) {
        const std::string bild = nameVon(e_.hintergrund);
        if (!u_.fs.kopiere(e_.hintergrund, seitenOrdner_ + bild)) {
            fehler("Das Hintergrundbild (" + alsText(e_.hintergrund) + ") ist nicht lesbar");
            return false;
        }
        hintergrund_ = seitenRel_ + alsText(bild);
    }
    return true;
}

bool Seite::schreibe() {
    if (e_.vorlage.empty() || e_.ziel.empty() || nameVon(e_.ziel).empty()) {
        fehler("Fehlende Vorlage, Zielpfad oder Zieldatei.");
        return false;
    }
    if (!endetMitHtml(e_.vorlage) || !endetMitHtml(e_.ziel) || nameVon(e_.ziel).size() <= 5) {
        fehler("Vorlage und Zieldatei müssen die Endung \".html\" tragen.");
        return false;
    }
    std::string vorlage;
    if (!leseAlles(u_.fs, e_.vorlage, vorlage)) {
        fehler("Die Vorlagendatei (" + alsText(e_.vorlage) + ") ist nicht lesbar");
        return false;
    }
    std::unique_ptr<Datei> ziel;
    if (!bereiteDateienVor(ziel)) return false;
    for (const Zeile& z : zerlege(vorlage))
        if (!zeile(z.text, z.ende, false)) return false;
    if (!ziel->schreibe(0, aus_.data(), aus_.size())) {
        fehler("Die Zieldatei (" + alsText(e_.ziel) + ") kann nicht geschrieben werden");
        return false;
    }
    ziel.reset();
    if (u_.oeffnen && !u_.oeffnen(e_.ziel)) {
        fehler("Fehler beim Erzeugen der Übersicht");
        return false;
    }
    return true;
}

// ---- Settings file ----------------------------------------------------------

struct Feld {
    const char* kopf;
    const char* schluessel;
    std::string UebersichtEinstellungen::*wert;
    bool pfad;
};
const Feld kFelder[] = {
    {"# Vorlage-Datei", "Vorlage=", &UebersichtEinstellungen::vorlage, true},
    {"# Zieldatei", "Ziel=", &UebersichtEinstellungen::ziel, true},
    {"# Listentitel", "Titel=", &UebersichtEinstellungen::titel, false},
    {"# Listen-Überschrift", "Ueberschrift=", &UebersichtEinstellungen::ueberschrift, false},
    {"# Hintergrundbild", "Hintergrund=", &UebersichtEinstellungen::hintergrund, true},
};

bool fehlerhaft(Benutzer& benutzer, int code) {
    char text[64];
    std::snprintf(text, sizeof text, "Die Datei ist fehlerhaft (Code = %d)", code);
    benutzer.meldung(kFehler, text, Symbol::Fehler);
    return false;
}

}  // namespace

bool erzeugeUebersicht(UebersichtUmgebung& u, const UebersichtEinstellungen& e,
                       const UebersichtDaten& daten) {
    try {
        Seite seite(u, e, daten);
        return seite.schreibe();
    } catch (const std::bad_alloc&) {
        u.benutzer.meldung(kFehler, "Speicherfehler", Symbol::Fehler);
        return false;
    }
}

std::vector<FarbEintrag> leseFarbDatei(const std::string& inhalt) {
    std::vector<FarbEintrag> farben;
    for (const Zeile& z : zerlege(inhalt)) {
        std::string_view t = z.text;
        while (!t.empty() && (t.front() == ' ' || t.front() == '\t')) t.remove_prefix(1);
        if (t.substr(0, 7) != "Farbe=\"") continue;
        const std::size_t zu = t.find('"', 7);
        if (zu == std::string_view::npos) continue;
        FarbEintrag f;
        f.text = std::string(t.substr(7, zu - 7));
        std::string_view rest = t.substr(zu + 1);
        if (!rest.empty() && rest.front() == ';') {
            rest.remove_prefix(1);
            long n = 0;
            std::size_t i = 0;
            for (; i < rest.size() && rest[i] >= '0' && rest[i] <= '9' && n < 100000; ++i)
                n = n * 10 + (rest[i] - '0');
            if (i > 0 && n >= 1) f.anzahl = static_cast<int>(n);
        }
        farben.push_back(std::move(f));
    }
    return farben;
}

bool schreibeUebersichtEinstellungen(Dateisystem& fs, Benutzer& benutzer, const std::string& pfad,
                                     const UebersichtEinstellungen& e) {
    std::string text = "@V1.0\n\n";
    for (const Feld& f : kFelder) {
        std::string wert = e.*f.wert;
        if (f.pfad && !utf8NachCp1252(e.*f.wert, wert)) {
            benutzer.meldung(kFehler, "Der Pfad kann in der Datei nicht dargestellt werden.",
                             Symbol::Fehler);
            return false;
        }
        text += std::string(f.kopf) + "\n" + f.schluessel + "\"" + wert + "\"\n\n";
    }
    if (!schreibeSicher(fs, pfad, text)) {
        benutzer.meldung(kFehler, "Die Datei (" + alsText(pfad) + ") kann nicht geschrieben werden",
                         Symbol::Fehler);
        return false;
    }
    return true;
}

bool leseUebersichtEinstellungen(Dateisystem& fs, Benutzer& benutzer, const std::string& pfad,
                                 UebersichtEinstellungen& e) {
    std::string inhalt;
    if (!leseAlles(fs, pfad, inhalt)) return fehlerhaft(benutzer, 1);
    const std::vector<Zeile> zeilen = zerlege(inhalt);
    if (zeilen.empty() || zeilen[0].text != "@V1.0") return fehlerhaft(benutzer, 2);
    UebersichtEinstellungen neu;
    bool gefunden[std::size(kFelder)] = {};
    for (const Zeile& z : zeilen) {
        for (std::size_t i = 0; i < std::size(kFelder); ++i) {
            const std::string_view schluessel = kFelder[i].schluessel;
            if (z.text.substr(0, schluessel.size()) != schluessel) continue;
            const std::string_view rest = z.text.substr(schluessel.size());
            if (rest.size() < 2 || rest.front() != '"' || rest.back() != '"')
                return fehlerhaft(benutzer, 3);
            const std::string wert(rest.substr(1, rest.size() - 2));
            neu.*kFelder[i].wert = kFelder[i].pfad ? cp1252NachUtf8(wert) : wert;
            gefunden[i] = true;
        }
    }
    if (!gefunden[0] || !gefunden[1]) return fehlerhaft(benutzer, 4);
    e = std::move(neu);
    return true;
}

}  // namespace dv
