#include "retrieval/SuchDatei.h"

#include <cstdio>

#include "retrieval/Textformat.h"

namespace dv {

std::string suchDateiText(const KriterienListe& kriterien) {
    TextDateiSchreiber s;
    s.version();
    s.zeile("# Suchobjekt\tKriterium\tOperator\tVerknüpfung\tSuchdaten\t");
    for (const SearchCriterion* k = kriterien.kopf(); k; k = k->next) {
        char zahlen[64];
        std::snprintf(zahlen, sizeof zahlen, "%d\t%d\t%d\t%d\t", k->objectType, k->criterion, k->op,
                      k->combination);
        std::string zeile = zahlen;
        if (!k->data.empty()) zeile += ohneZeilenumbruch(k->data) + '\t';
        s.zeile(zeile);
    }
    return s.inhalt();
}

bool speichereSuche(Dateisystem& fs, const std::string& pfad, KriterienListe& kriterien) {
    if (kriterien.leer()) return false;
    normalisiere(kriterien);
    return schreibeSicher(fs, pfad, suchDateiText(kriterien));
}

namespace {

// One row line; false when it is malformed or incomplete.
bool leseZeile(std::string_view zeile, KriterienListe& ziel) {
    std::size_t pos = 0;
    std::int32_t zahl[4];
    for (std::int32_t& z : zahl) {
        std::string_view feld;
        if (!feldBisTab(zeile, pos, feld)) return false;
        z = alsZahl(feld);
        if (z < 0) return false;
    }
    std::string_view daten;
    if (!feldBisTab(zeile, pos, daten) || daten.empty()) return false;
    ziel.haengeAn(zahl[0], zahl[1], zahl[2], zahl[3], std::string(daten));
    return true;
}

}  // namespace

SuchLaden ladeSuche(Dateisystem& fs, const std::string& pfad, Benutzer& benutzer,
                    KriterienListe& ziel) {
    TextDateiLeser leser;
    if (!leser.oeffne(fs, pfad)) return SuchLaden::NichtLesbar;
    KriterienListe gelesen;
    std::string stueck;
    while (leser.naechste(stueck)) {
        const Zeilenart art = ordneEin(stueck, benutzer);
        if (art == Zeilenart::FremdeVersion) return SuchLaden::Versionsfehler;
        if (art == Zeilenart::Ueberspringen) continue;
        leseZeile(stueck, gelesen);
    }
    if (gelesen.leer()) return SuchLaden::KeineZeilen;
    normalisiere(gelesen);
    ziel = std::move(gelesen);
    return SuchLaden::Geladen;
}

bool darfUeberschreiben(Dateisystem& fs, Benutzer& benutzer, const std::string& pfad) {
    if (!fs.existiert(pfad)) return true;
    return benutzer.frage("Warnung", "Die Datei existiert bereits.\nÜberschreiben?");
}

}  // namespace dv
