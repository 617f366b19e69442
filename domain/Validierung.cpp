#include "domain/Validierung.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <vector>

#include "base/Zeichensatz.h"
#include "domain/Datenbank.h"
#include "platform/Zeit.h"

namespace dv {

namespace {

constexpr const char* kFrage =
    "Die komplette Datenbank wird nun überprüft und ggf. korrigiert.\n"
    "Dies kann mehrere Minuten in Anspruch nehmen!\nMit der Validierung beginnen?";

// The validation log. Lines are collected and appended in blocks: a per-line
// open would cost more than the repairs on a large collection. Whatever is
// collected is written when the object goes away, also on an early return.
class ValidierungsLog {
  public:
    ValidierungsLog(Dateisystem& fs, std::string pfad) : fs_(fs), pfad_(std::move(pfad)) {
        fs_.loesche(pfad_);
    }
    ~ValidierungsLog() { leere(); }
    ValidierungsLog(const ValidierungsLog&) = delete;
    ValidierungsLog& operator=(const ValidierungsLog&) = delete;

    void zeile(const char* format, ...) __attribute__((format(printf, 2, 3))) {
        char text[1024];
        va_list args;
        va_start(args, format);
        std::vsnprintf(text, sizeof text, format, args);
        va_end(args);
        puffer_ += text;
        puffer_ += '\n';
        if (puffer_.size() >= (1u << 16)) leere();
    }

    void leere() {
        if (puffer_.empty()) return;
        if (auto d = fs_.oeffne(pfad_, OeffnenModus::Anhaengen))
            d->haengeAn(puffer_.data(), puffer_.size());
        puffer_.clear();
    }

  private:
    Dateisystem& fs_;
    std::string pfad_;
    std::string puffer_;
};

// Live ids of a table as a bit per slot.
template <class T>
std::vector<bool> lebendeIds(T& tabelle) {
    std::vector<bool> lebt;
    tabelle.scanne([&](const typename T::Zeile& z) {
        if (static_cast<std::size_t>(z.Id) >= lebt.size())
            lebt.resize(static_cast<std::size_t>(z.Id) * 2 + 16);
        lebt[static_cast<std::size_t>(z.Id)] = true;
    });
    return lebt;
}

bool enthaelt(const std::vector<bool>& menge, long id) {
    return id > 0 && static_cast<std::size_t>(id) < menge.size() &&
           menge[static_cast<std::size_t>(id)];
}

// Rows of a link table grouped by owner, each group in table order (the order a
// select of the owner's rows returns them in).
template <class Z>
class Gruppen {
  public:
    template <class T, class Besitzer>
    Gruppen(T& tabelle, Besitzer besitzer) {
        tabelle.scanne([&](const Z& z) { zeilen_.push_back(z); });
        std::stable_sort(zeilen_.begin(), zeilen_.end(),
                         [&](const Z& a, const Z& b) { return besitzer(a) < besitzer(b); });
        for (std::size_t i = 0; i < zeilen_.size(); ++i) {
            const long b = besitzer(zeilen_[i]);
            if (index_.empty() || index_.back().besitzer != b) index_.push_back({b, i, i});
            index_.back().ende = i + 1;
        }
    }
    // The rows of one owner (a copy the caller may change).
    std::vector<Z> von(long besitzer) const {
        auto it = std::lower_bound(index_.begin(), index_.end(), besitzer,
                                   [](const Bereich& b, long id) { return b.besitzer < id; });
        if (it == index_.end() || it->besitzer != besitzer) return {};
        return std::vector<Z>(zeilen_.begin() + static_cast<std::ptrdiff_t>(it->anfang),
                              zeilen_.begin() + static_cast<std::ptrdiff_t>(it->ende));
    }

  private:
    struct Bereich {
        long besitzer;
        std::size_t anfang, ende;
    };
    std::vector<Z> zeilen_;
    std::vector<Bereich> index_;
};

class Validierung {
  public:
    Validierung(Datenbank& db, Benutzer& benutzer, ValidierungsLog& log, ValidierungsErgebnis& erg)
        : k_(db.katalog()), benutzer_(benutzer), log_(log), erg_(erg) {}

    void phase1();
    void phase2();
    void phase3();

  private:
    // Gives the rows their ranked positions (rows in selection order); the new
    // positions are left in the rows.
    template <class T, class Z, class Schreibe>
    void normiere(T& tabelle, std::vector<Z>& zeilen, Schreibe schreibe);
    void fortschritt(const char* format, long i, long n) {
        char text[256];
        std::snprintf(text, sizeof text, format, static_cast<int>(i), static_cast<int>(n));
        benutzer_.fortschritt(text, static_cast<int>(i), static_cast<int>(n));
    }

    Katalog& k_;
    Benutzer& benutzer_;
    ValidierungsLog& log_;
    ValidierungsErgebnis& erg_;
    std::vector<bool> entfernteFilmAlias_;  // by Film_Alias id, filled by phase 2
};

template <class T, class Z, class Schreibe>
void Validierung::normiere(T& tabelle, std::vector<Z>& zeilen, Schreibe schreibe) {
    if (zeilen.empty()) return;
    if (zeilen.size() == 1) {
        if (zeilen[0].Pos == 1) return;
        zeilen[0].Pos = 1;
    } else {
        std::vector<std::int32_t> pos;
        pos.reserve(zeilen.size());
        for (const Z& z : zeilen) pos.push_back(z.Pos);
        normierePositionen(static_cast<int>(pos.size()), pos.data());
        for (std::size_t i = 0; i < zeilen.size(); ++i)
            zeilen[i].Pos = static_cast<std::uint16_t>(pos[i]);
    }
    for (const Z& z : zeilen) {
        if (schreibe(z)) {
            ++erg_.geaenderteZeilen;
        } else {
            ++erg_.schreibfehler;
            log_.zeile("### Fehler: Zeile %d von %s konnte nicht geschrieben werden", z.Id,
                       tabelle.name().c_str());
        }
    }
}

void Validierung::phase1() {
    std::vector<std::pair<long, std::string>> boxen;
    k_.Box.scanne([&](const Zeile12& z) { boxen.emplace_back(z.Id, z.cpText); });
    const std::vector<bool> dvds = lebendeIds(k_.DVD);
    const Gruppen<Zeile7> dvdBox(k_.DVD_Box, [](const Zeile7& z) { return long{z.Box_Id}; });
    const Gruppen<Zeile2> dvdFilm(k_.DVD_Film, [](const Zeile2& z) { return long{z.DVD_Id}; });

    const long n = static_cast<long>(boxen.size());
    log_.zeile("Normierung aller DVD- und Film-Positionen der Boxen [%d] prüfen...",
               static_cast<int>(n));
    for (long i = 0; i < n; ++i) {
        const long boxId = boxen[static_cast<std::size_t>(i)].first;
        fortschritt("(1/3) Normalisiere Objekte von Box %d / %d", i + 1, n);
        log_.zeile("Box %d [%s]", static_cast<int>(boxId),
                   boxen[static_cast<std::size_t>(i)].second.c_str());
        log_.zeile("### Alle DVD-Positionen der Box %d prüfen...", static_cast<int>(boxId));
        std::vector<Zeile7> links = dvdBox.von(boxId);
        normiere(k_.DVD_Box, links, [&](const Zeile7& z) {
            return k_.DVD_Box.update(z.Id, z.Box_Id, z.DVD_Id, z.Sammelbox_Id, z.Pos);
        });
        // The box's DVDs in their (new) order, as the DVD list shows them.
        std::stable_sort(links.begin(), links.end(),
                         [](const Zeile7& a, const Zeile7& b) { return a.Pos < b.Pos; });
        for (const Zeile7& link : links) {
            if (!enthaelt(dvds, link.DVD_Id)) continue;
            log_.zeile("### Alle Film-Positionen der DVD %d prüfen...", link.DVD_Id);
            std::vector<Zeile2> filme = dvdFilm.von(link.DVD_Id);
            normiere(k_.DVD_Film, filme, [&](const Zeile2& z) {
                return k_.DVD_Film.update(z.Id, z.DVD_Id, z.Objekt1_Id, z.Pos);
            });
        }
    }
    log_.zeile("Normierung aller DVD- und Film-Positionen der Boxen abgeschlossen.");
}

// A Film_Alias row belongs to a film person when its first field names a live
// Film_Person row; an alias link of a removed person is left over.
void Validierung::phase2() {
    const std::vector<bool> personen = lebendeIds(k_.Film_Person);
    std::vector<Zeile2> links;
    k_.Film_Alias.scanne([&](const Zeile2& z) { links.push_back(z); });
    const long n = static_cast<long>(links.size());
    log_.zeile("Suche nach unzugeordneten FilmAlias-Einträgen [%d]...", static_cast<int>(n));
    bool entfernt = false;
    for (long i = 0; i < n; ++i) {
        const Zeile2& z = links[static_cast<std::size_t>(i)];
        fortschritt("(2/3) Suche unzugeordneten Eintrag von FilmAlias %d / %d", i + 1, n);
        if (enthaelt(personen, z.DVD_Id)) continue;
        log_.zeile("...Alias [%d] wird entfernt", z.Objekt1_Id);
        if (k_.Alias.remove(z.Objekt1_Id, false)) ++erg_.entfernteAlias;
        log_.zeile("...Film_Alias [%d] wird entfernt", z.Id);
        if (k_.Film_Alias.remove(z.Id, false)) {
            ++erg_.entfernteFilmAlias;
            if (static_cast<std::size_t>(z.Id) >= entfernteFilmAlias_.size())
                entfernteFilmAlias_.resize(static_cast<std::size_t>(z.Id) + 1);
            entfernteFilmAlias_[static_cast<std::size_t>(z.Id)] = true;
        } else {
            ++erg_.schreibfehler;
        }
        entfernt = true;
    }
    // The free-slot lists are rebuilt once, not after every removal.
    if (entfernt) {
        k_.Alias.init();
        k_.Film_Alias.init();
    }
    log_.zeile("Suche nach unzugeordneten FilmAlias-Einträgen abgeschlossen.");
}

void Validierung::phase3() {
    std::vector<long> alias;
    k_.Alias.scanne([&](const Zeile1& z) { alias.push_back(z.Id); });
    // Marks only up to the highest alias: a link naming an id beyond it names nothing.
    std::vector<bool> benannt(alias.empty() ? 0 : static_cast<std::size_t>(alias.back()) + 1);
    k_.Film_Alias.scanne([&](const Zeile2& z) {
        if (enthaelt(entfernteFilmAlias_, z.Id) || z.Objekt1_Id <= 0) return;
        if (static_cast<std::size_t>(z.Objekt1_Id) < benannt.size())
            benannt[static_cast<std::size_t>(z.Objekt1_Id)] = true;
    });
    const long n = static_cast<long>(alias.size());
    log_.zeile("Suche nach unzugeordneten Alias-Einträgen [%d]...", static_cast<int>(n));
    bool entfernt = false;
    for (long i = 0; i < n; ++i) {
        const long id = alias[static_cast<std::size_t>(i)];
        fortschritt("(3/3) Suche unzugeordneten Eintrag von Alias %d / %d", i + 1, n);
        if (enthaelt(benannt, id)) continue;
        log_.zeile("...Alias [%d] wird entfernt", static_cast<int>(id));
        if (k_.Alias.remove(id, false)) {
            ++erg_.entfernteAlias;
        } else {
            ++erg_.schreibfehler;
        }
        entfernt = true;
    }
    if (entfernt) k_.Alias.init();
    log_.zeile("Suche nach unzugeordneten Alias-Einträgen abgeschlossen.");
}

// A folder path (UTF-8) for the log and the messages, which are Windows-1252.
std::string alsText(const std::string& pfad) {
    std::string text;
    return utf8NachCp1252(pfad, text) ? text : pfad;
}

std::string stempel(const LokaleZeit& z) {
    char text[32];
    std::snprintf(text, sizeof text, "%04d%02d%02d_%02d%02d%02d", z.jahr, z.monat, z.tag, z.stunde,
                  z.minute, z.sekunde);
    return text;
}

}  // namespace

bool normierePositionen(int n, std::int32_t* a) {
    for (int p = 1; p <= n; ++p) {
        int wahl = -1;
        for (int i = 0; i < n; ++i)
            if (a[i] > 0 && (wahl < 0 || a[i] <= a[wahl])) wahl = i;
        a[wahl < 0 ? 0 : wahl] = -p;
    }
    bool geaendert = false;
    for (int i = 0; i < n; ++i) {
        if (a[i] < 0) {
            a[i] = -a[i];
            geaendert = true;
        }
    }
    return geaendert;
}

std::string sichereDatenOrdner(Dateisystem& fs, const std::string& datenOrdner,
                               const std::string& backupOrdner) {
    const std::string basis = backupOrdner + "Daten_" + stempel(jetzt());
    std::string ziel = basis + "/";
    for (int nr = 2; fs.existiert(ziel) && nr < 1000; ++nr)
        ziel = basis + "_" + std::to_string(nr) + "/";
    if (fs.existiert(ziel) || !fs.erzeugeOrdner(ziel)) return std::string();
    if (!fs.istOrdner(datenOrdner)) return std::string();
    std::vector<std::string> kopiert;
    for (const OrdnerEintrag& e : fs.liste(datenOrdner)) {
        if (e.istOrdner) continue;
        if (!fs.kopiere(datenOrdner + e.name, ziel + e.name)) {
            for (const std::string& k : kopiert) fs.loesche(k);
            fs.loesche(ziel + e.name);
            return std::string();
        }
        kopiert.push_back(ziel + e.name);
    }
    return ziel;
}

bool validiereDatenbank(Datenbank& db, Benutzer& benutzer, const std::string& logOrdner,
                        const std::string& backupOrdner, ValidierungsErgebnis* ergebnis) {
    ValidierungsErgebnis eigenes;
    ValidierungsErgebnis& erg = ergebnis ? *ergebnis : eigenes;
    erg = ValidierungsErgebnis{};
    if (!benutzer.frage("Hinweis...", kFrage)) return false;
    // The backup and every repair as one operation: a crash midway repairs nothing.
    auto vorgang = db.vorgang();
    if (!vorgang.offen()) return false;

    benutzer.fortschritt("Datenbank validieren.", 0, 3);
    erg.sicherung = sichereDatenOrdner(db.fs(), db.ordner().daten, backupOrdner);
    if (erg.sicherung.empty()) {
        benutzer.meldung("Fehler...",
                         "Der Datenordner konnte nicht nach \"" + alsText(backupOrdner) +
                             "\" gesichert werden.\nDie Validierung wurde nicht gestartet; "
                             "die Datenbank ist unverändert.",
                         Symbol::Fehler);
        return false;
    }

    {
        ValidierungsLog log(db.fs(), logOrdner + "db_validate" + ".log");
        const LokaleZeit start = jetzt();
        log.zeile("Datenbank-Validierung gestartet =>");
        log.zeile("Start-Datum: %02d.%02d.%04d", start.tag, start.monat, start.jahr);
        log.zeile("Start-Zeit : %02d:%02d:%02d", start.stunde, start.minute, start.sekunde);
        log.zeile("Sicherung der Daten: %s", alsText(erg.sicherung).c_str());

        Validierung v(db, benutzer, log, erg);
        v.phase1();
        v.phase2();
        v.phase3();

        const LokaleZeit ende = jetzt();
        log.zeile("Ende-Datum: %02d.%02d.%04d", ende.tag, ende.monat, ende.jahr);
        log.zeile("Ende-Zeit : %02d:%02d:%02d", ende.stunde, ende.minute, ende.sekunde);
        log.zeile("<= Datenbank-Validierung beendet");
    }
    if (!vorgang.abschliessen()) {
        benutzer.meldung("Fehler...",
                         "Die Korrekturen der Validierung konnten nicht gespeichert werden.\n"
                         "Die Datenbank ist unverändert.",
                         Symbol::Fehler);
        return false;
    }
    benutzer.meldung("Datenbank", "Die Validierung ist abgeschlossen.", Symbol::Information);
    return true;
}

}  // namespace dv
