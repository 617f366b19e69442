#include "retrieval/Stempeltags.h"

#include <utility>

#include "retrieval/Tagverwaltung.h"
#include "retrieval/Textformat.h"

namespace dv {

std::string maskeAlsText(int maske) {
    std::string t;
    if (maske & kMaskeBox) t += 'B';
    if (maske & kMaskeDvd) t += 'D';
    if (maske & kMaskeFilm) t += 'F';
    return t;
}

int maskeAusText(std::string_view text) {
    int m = 0;
    if (text.find('B') != std::string_view::npos) m |= kMaskeBox;
    if (text.find('D') != std::string_view::npos) m |= kMaskeDvd;
    if (text.find('F') != std::string_view::npos) m |= kMaskeFilm;
    return m;
}

bool maskeBietetAn(int maske, int objektTyp) {
    if (objektTyp < kObjektBox || objektTyp > kObjektFilm) return false;
    return (maske & (1 << (objektTyp - 1))) != 0;
}

std::vector<Stempel> Stempeltags::liste() {
    std::vector<Stempel> l;
    db_.katalog().TagStempel.scanne([&](const Zeile11& z) {
        l.push_back({z.Id, static_cast<std::uint8_t>(z.Typ), z.cpText});
    });
    return l;
}

std::vector<Stempel> Stempeltags::angebotenFuer(int objektTyp) {
    std::vector<Stempel> l;
    for (Stempel& s : liste())
        if (maskeBietetAn(s.maske, objektTyp)) l.push_back(std::move(s));
    return l;
}

bool Stempeltags::gibtEs(long id, Stempel* stempel) {
    if (id <= 0) return false;
    auto l = db_.katalog().TagStempel.eine(id);
    if (!l) return false;
    const Zeile11& z = Tabelle11::zeile(l.get());
    if (stempel) *stempel = {z.Id, static_cast<std::uint8_t>(z.Typ), z.cpText};
    return true;
}

long Stempeltags::neu(int maske, const std::string& text) {
    const int m = maske & (kMaskeBox | kMaskeDvd | kMaskeFilm);
    if (m == 0 || text.empty()) return 0;
    return db_.katalog().TagStempel.insert(m, text.substr(0, kStempelTextMax).c_str());
}

bool Stempeltags::aendere(long id, int maske, const std::string& text) {
    const int m = maske & (kMaskeBox | kMaskeDvd | kMaskeFilm);
    if (m == 0 || text.empty() || !gibtEs(id)) return false;
    return db_.katalog().TagStempel.update(id, m, text.substr(0, kStempelTextMax).c_str());
}

bool Stempeltags::loesche(long id) {
    if (!gibtEs(id)) return false;
    return db_.katalog().TagStempel.remove(id, true);
}

StempelAnwenden Stempeltags::wendeAn(long stempelId, int objektTyp, long objektId) {
    Stempel s;
    if (!gibtEs(stempelId, &s)) return StempelAnwenden::Unbekannt;
    if (!maskeBietetAn(s.maske, objektTyp)) return StempelAnwenden::NichtAngeboten;
    Tagverwaltung tags(db_, benutzer_);
    return tags.fuegeHinzu(objektTyp, objektId, s.text) ? StempelAnwenden::Hinzugefuegt
                                                        : StempelAnwenden::Fehler;
}

std::string Stempeltags::exportText() {
    TextDateiSchreiber s;
    s.version();
    s.zeile("# Typ\tText\t");
    for (const Stempel& st : liste())
        s.zeile(maskeAlsText(st.maske) + '\t' + ohneZeilenumbruch(st.text));
    return s.inhalt();
}

bool Stempeltags::exportiere(const std::string& pfad) {
    return schreibeSicher(db_.fs(), pfad, exportText());
}

StempelImport Stempeltags::importiere(const std::string& pfad) {
    StempelImport ergebnis;
    TextDateiLeser leser;
    if (!leser.oeffne(db_.fs(), pfad)) return ergebnis;
    ergebnis.gelesen = true;
    std::vector<std::pair<int, std::string>> zeilen;
    std::string stueck;
    while (leser.naechste(stueck)) {
        const Zeilenart art = ordneEin(stueck, benutzer_);
        if (art == Zeilenart::FremdeVersion) {
            ergebnis.versionsfehler = true;
            return ergebnis;
        }
        if (art == Zeilenart::Ueberspringen) continue;
        const std::string_view zeile = ohneZeilenende(stueck);
        std::size_t pos = 0;
        std::string_view maske;
        const bool gut =
            feldBisTab(zeile, pos, maske) && maskeAusText(maske) != 0 && pos < zeile.size();
        if (!gut) {
            ++ergebnis.uebersprungen;
            continue;
        }
        zeilen.emplace_back(maskeAusText(maske), std::string(zeile.substr(pos)));
    }
    auto v = db_.vorgang();
    for (const auto& [m, text] : zeilen) {
        if (v.offen() && neu(m, text) > 0)
            ++ergebnis.angelegt;
        else
            ++ergebnis.uebersprungen;
    }
    if (!v.abschliessen()) {
        ergebnis.uebersprungen += ergebnis.angelegt;
        ergebnis.angelegt = 0;
    }
    return ergebnis;
}

}  // namespace dv
