// suchen and suche-speichern: the search engine and search definition files.
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "app/Zeichensatz.h"
#include "cli/Objektargumente.h"

namespace dv::cli {

namespace {

int gibAus(Kontext& k, const ErgebnisMit<SuchErgebnisWerte>& e, bool json) {
    if (!e.ok()) return k.ergebnis(e);
    if (!json) {
        for (const SuchTreffer& t : e->treffer)
            k.zeile(std::string(SuchDienst::objektName(t.typ)) + '\t' + std::to_string(t.id) +
                    '\t' + t.titel + '\t' + t.grund);
        k.zeile(e->status);
        return kFertig;
    }
    nlohmann::ordered_json doc;
    doc["objekt"] = SuchDienst::objektName(e->objekt);
    doc["treffer"] = nlohmann::ordered_json::array();
    for (const SuchTreffer& t : e->treffer) {
        doc["treffer"].push_back({{"typ", SuchDienst::objektName(t.typ)},
                                  {"id", t.id},
                                  {"titel", cp1252NachUtf8(t.titel)},
                                  {"grund", cp1252NachUtf8(t.grund)}});
    }
    doc["status"] = cp1252NachUtf8(e->status);
    std::fputs(doc.dump().c_str(), stdout);
    std::fputc('\n', stdout);
    return kFertig;
}

// The typed rows as catalogue texts.
ErgebnisMit<std::vector<SuchZeile>> zeilenAus(const std::vector<std::string>& worte) {
    std::vector<std::string> texte;
    for (const std::string& w : worte) texte.push_back(katalogText(w));
    return SuchDienst::zeilenAusWorten(texte);
}

struct SuchArgs {
    bool json = false;
    std::string datei;
    std::vector<std::string> zeilen;
};

}  // namespace

void registriereSuche(Register& reg) {
    auto a = std::make_shared<SuchArgs>();
    CLI::App* suchen =
        reg.befehl(reg.wurzel(), "suchen", "Sucht Boxen, DVDs oder Filme nach Kriterien");
    suchen->add_flag("--json", a->json, cp1252NachUtf8("Ausgabe als JSON"));
    suchen->add_option("--datei", a->datei, cp1252NachUtf8("Die Zeilen einer Suchdatei (*.asc)"))
        ->type_name("DATEI");
    suchen->add_option("zeilen", a->zeilen,
                       cp1252NachUtf8("OBJEKT KRITERIUM OPERATOR DATEN [VERKNÜPFUNG KRITERIUM "
                                      "OPERATOR DATEN]..."));
    reg.handler(suchen, [a](Kontext& k) {
        SuchDienst& suche = k.dienste().suche();
        if (!a->datei.empty()) {
            if (!a->zeilen.empty())
                return k.fehler(kNutzung,
                                "Falscher Aufruf: --datei und Suchzeilen schließen sich aus.");
            const auto zeilen = suche.ladeDatei(a->datei);
            if (!zeilen.ok()) return k.ergebnis(zeilen);
            return gibAus(k, suche.suche(zeilen.wert()), a->json);
        }
        const auto zeilen = zeilenAus(a->zeilen);
        if (!zeilen.ok()) return k.ergebnis(zeilen);
        return gibAus(k, suche.suche(zeilen.wert()), a->json);
    });

    auto s = std::make_shared<SuchArgs>();
    CLI::App* speichern =
        reg.befehl(reg.wurzel(), "suche-speichern", "Speichert Suchzeilen als Suchdatei");
    speichern->add_option("datei", s->datei, cp1252NachUtf8("Die Suchdatei"))->required();
    speichern
        ->add_option("zeilen", s->zeilen,
                     cp1252NachUtf8("OBJEKT KRITERIUM OPERATOR DATEN [VERKNÜPFUNG KRITERIUM "
                                    "OPERATOR DATEN]..."))
        ->required();
    reg.handler(speichern, [s](Kontext& k) {
        const auto zeilen = zeilenAus(s->zeilen);
        if (!zeilen.ok()) return k.ergebnis(zeilen);
        return k.ergebnis(k.dienste().suche().speichereDatei(s->datei, zeilen.wert()));
    });
}

}  // namespace dv::cli
