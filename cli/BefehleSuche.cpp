// suchen and suche-speichern: the search engine and search definition files.
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "base/Zeichensatz.h"
#include "cli/Objektargumente.h"
#include "retrieval/SuchDatei.h"
#include "retrieval/Suche.h"

namespace dv::cli {

namespace {

// OBJEKT KRITERIUM OPERATOR DATEN [VERKNÜPFUNG KRITERIUM OPERATOR DATEN]... as
// rows; false with a German message on a wrong word or count.
bool leseZeilen(const std::vector<std::string>& args, KriterienListe& zeilen, std::string& fehler) {
    if (args.size() < 4 || (args.size() - 4) % 4 != 0) {
        fehler =
            "Falscher Aufruf: OBJEKT KRITERIUM OPERATOR DATEN [VERKNÜPFUNG KRITERIUM OPERATOR "
            "DATEN]...";
        return false;
    }
    std::vector<std::string> a;
    for (const std::string& s : args) a.push_back(katalogText(s));
    const int typ = objektTypAusName(a[0]);
    if (!typ) {
        fehler = "Unbekanntes Suchobjekt: " + a[0];
        return false;
    }
    // One row from KRITERIUM OPERATOR DATEN at position i.
    auto zeile = [&](int verknuepfung, std::size_t i) {
        const int kriterium = kriteriumAusName(typ, a[i]);
        const int op = operatorAusName(a[i + 1]);
        if (!kriterium) fehler = "Unbekanntes Kriterium: " + a[i];
        if (!op) fehler = "Unbekannter Operator: " + a[i + 1];
        if (!fehler.empty()) return false;
        zeilen.haengeAn(typ, kriterium, op, verknuepfung, a[i + 2]);
        return true;
    };
    if (!zeile(kVerknuepfungUnd, 1)) return false;
    for (std::size_t i = 4; i < a.size(); i += 4) {
        const int verknuepfung = verknuepfungAusName(a[i]);
        if (!verknuepfung) {
            fehler = "Unbekannte Verknüpfung: " + a[i];
            return false;
        }
        if (!zeile(verknuepfung, i + 1)) return false;
    }
    normalisiere(zeilen);
    return true;
}

void gibAus(Kontext& k, Suchergebnis& e, bool json) {
    loeseAuf(e);
    if (!json) {
        for (const SearchHit* h = e.kopf(); h; h = h->next) {
            k.zeile(std::string(objektTypName(h->objectType)) + '\t' +
                    std::to_string(trefferObjektId(*h)) + '\t' + trefferTitel(*h) + '\t' +
                    h->reason);
        }
        k.zeile(e.statusZeile());
        return;
    }
    nlohmann::ordered_json doc;
    doc["objekt"] = objektTypName(e.objektTyp());
    doc["treffer"] = nlohmann::ordered_json::array();
    for (const SearchHit* h = e.kopf(); h; h = h->next) {
        doc["treffer"].push_back({{"typ", objektTypName(h->objectType)},
                                  {"id", trefferObjektId(*h)},
                                  {"titel", cp1252NachUtf8(trefferTitel(*h))},
                                  {"grund", cp1252NachUtf8(h->reason)}});
    }
    doc["status"] = cp1252NachUtf8(e.statusZeile());
    std::fputs(doc.dump().c_str(), stdout);
    std::fputc('\n', stdout);
}

int sucheMit(Kontext& k, KriterienListe& zeilen, bool json) {
    SuchOptionen o;
    o.grossKlein = k.app.sucheGrossKlein();
    Suchergebnis e = suche(k.app.db(), zeilen, o);
    gibAus(k, e, json);
    return kFertig;
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
        KriterienListe zeilen;
        if (!a->datei.empty()) {
            if (!a->zeilen.empty())
                return k.fehler(kNutzung,
                                "Falscher Aufruf: --datei und Suchzeilen schließen sich aus.");
            switch (ladeSuche(k.app.fs(), a->datei, k.app.benutzer(), zeilen)) {
                case SuchLaden::Geladen:
                    break;
                case SuchLaden::Versionsfehler:
                    return kFehlschlag;
                case SuchLaden::KeineZeilen:
                    return k.fehler(kFehlschlag, "Die Datei enthält keine gültige Suchzeile.");
                case SuchLaden::NichtLesbar:
                    return nichtGelesen(k, a->datei);
            }
            return sucheMit(k, zeilen, a->json);
        }
        std::string fehler;
        if (!leseZeilen(a->zeilen, zeilen, fehler)) return k.fehler(kNutzung, fehler);
        return sucheMit(k, zeilen, a->json);
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
        KriterienListe zeilen;
        std::string fehler;
        if (!leseZeilen(s->zeilen, zeilen, fehler)) return k.fehler(kNutzung, fehler);
        if (!darfUeberschreiben(k.app.fs(), k.app.benutzer(), s->datei)) return kFehlschlag;
        if (!speichereSuche(k.app.fs(), s->datei, zeilen)) return nichtGeschrieben(k, s->datei);
        return kFertig;
    });
}

}  // namespace dv::cli
