// vormerk: watch lists, their entries, the set operations and watch-list files.
#include <memory>
#include <string>
#include <vector>

#include "app/Zeichensatz.h"
#include "cli/Objektargumente.h"

namespace dv::cli {

namespace {

void posListen(CLI::App* c, const char* name, std::vector<std::string>& ziel) {
    c->add_option(name, ziel, cp1252NachUtf8("IDs der Vormerklisten"))->required();
}

// The content view: "Listenname TYP ID Titel" per element, then the status line.
int zeige(Kontext& k, const ErgebnisMit<std::vector<VormerkEintrag>>& e) {
    if (!e.ok()) return k.ergebnis(e);
    for (const VormerkEintrag& x : e.wert())
        k.zeile(x.listenName + '\t' + SuchDienst::objektName(x.typ) + '\t' + std::to_string(x.id) +
                '\t' + x.titel);
    k.zeile(VormerkDienst::status(e->size()));
    return kFertig;
}

void listenBefehle(Register& reg, CLI::App* gruppe) {
    benannteBefehle(reg, gruppe, [](Kontext& k) -> Benannte& { return k.dienste().vormerk(); },
                    {"listen", "Zeigt alle Vormerklisten", "Legt eine Vormerkliste an",
                     "Gibt einer Vormerkliste einen neuen Namen",
                     "Löscht eine Vormerkliste mit ihren Einträgen", "der Vormerkliste"});
}

// LISTE TYP ID of the entry commands; the object must exist.
int eintragArgumente(Kontext& k, const Argumente& a, long& liste, int& typ, long& id) {
    if (const int code = listenArgument(k, a.liste, liste)) return code;
    return objektArgument(k, a.typ, a.id, typ, id);
}

void eintragBefehle(Register& reg, CLI::App* gruppe) {
    struct Befehl {
        const char* name;
        const char* text;
        int art;  // 0 add, 1 remove, 2 up, 3 down
    };
    const Befehl befehle[] = {{"hinzu", "Hängt ein Objekt an eine Vormerkliste an", 0},
                              {"entfernen", "Entfernt ein Objekt aus einer Vormerkliste", 1},
                              {"hoch", "Schiebt ein Objekt eine Position nach oben", 2},
                              {"runter", "Schiebt ein Objekt eine Position nach unten", 3}};
    for (const Befehl& b : befehle) {
        std::shared_ptr<Argumente> a;
        CLI::App* c = unterbefehl(reg, gruppe, b.name, b.text, a);
        pflicht(c, "liste", a->liste, "ID der Vormerkliste");
        pflicht(c, "typ", a->typ, "box, dvd oder film");
        pflicht(c, "id", a->id, "ID des Objekts");
        reg.handler(c, [a, art = b.art](Kontext& k) {
            long liste = 0, id = 0;
            int typ = 0;
            if (const int code = eintragArgumente(k, *a, liste, typ, id)) return code;
            VormerkDienst& v = k.dienste().vormerk();
            if (art == 0) return k.ergebnis(v.hinzu(liste, typ, id));
            if (art == 1) return k.ergebnis(v.entferne(liste, typ, id));
            return k.ergebnis(v.verschiebe(liste, typ, id, art == 2));
        });
    }
}

void kopierBefehle(Register& reg, CLI::App* gruppe) {
    for (const bool verschieben : {false, true}) {
        std::shared_ptr<Argumente> a;
        CLI::App* c = unterbefehl(reg, gruppe, verschieben ? "verschieben" : "kopieren",
                                  verschieben ? "Verschiebt ein Objekt in eine andere Vormerkliste"
                                              : "Kopiert ein Objekt in eine andere Vormerkliste",
                                  a);
        pflicht(c, "von", a->liste, "ID der Quell-Vormerkliste");
        pflicht(c, "nach", a->nach, "ID der Ziel-Vormerkliste");
        pflicht(c, "typ", a->typ, "box, dvd oder film");
        pflicht(c, "id", a->id, "ID des Objekts");
        reg.handler(c, [a, verschieben](Kontext& k) {
            long von = 0, nach = 0, id = 0;
            int typ = 0;
            if (const int code = eintragArgumente(k, *a, von, typ, id)) return code;
            if (const int code = listenArgument(k, a->nach, nach)) return code;
            VormerkDienst& v = k.dienste().vormerk();
            return k.ergebnis(verschieben ? v.verschiebeNach(von, nach, typ, id)
                                          : v.kopiere(von, nach, typ, id));
        });
    }
}

void inhaltBefehle(Register& reg, CLI::App* gruppe) {
    const char* const namen[] = {"zeigen", "vereinigen", "schneiden", "komplement"};
    const char* const texte[] = {"Zeigt den Inhalt von Vormerklisten",
                                 "Vereinigung von Vormerklisten", "Schnitt von Vormerklisten",
                                 "Komplement: die ersten Listen ohne die Listen nach --gegen"};
    for (int art = 0; art < 4; ++art) {
        std::shared_ptr<Argumente> a;
        CLI::App* c = unterbefehl(reg, gruppe, namen[art], texte[art], a);
        posListen(c, "listen", a->listen);
        if (art == 3)
            c->add_option("--gegen", a->gegen, cp1252NachUtf8("IDs der zweiten Vormerklisten"))
                ->required()
                ->type_name("LISTE");
        reg.handler(c, [a, art](Kontext& k) {
            std::vector<long> ids, gegen;
            if (const int code = listenArgumente(k, a->listen, ids)) return code;
            if (const int code = listenArgumente(k, a->gegen, gegen)) return code;
            VormerkDienst& v = k.dienste().vormerk();
            if (art == 0) return zeige(k, v.inhalt(ids));
            if (art == 1) return zeige(k, v.vereinigung(ids));
            if (art == 2) return zeige(k, v.schnitt(ids));
            return zeige(k, v.komplement(ids, gegen));
        });
    }
}

void dateiBefehle(Register& reg, CLI::App* gruppe) {
    std::shared_ptr<Argumente> a;
    CLI::App* c =
        unterbefehl(reg, gruppe, "export", "Schreibt Vormerklisten in eine Datei (*.vml)", a);
    pflicht(c, "datei", a->datei, "Die Datei");
    posListen(c, "listen", a->listen);
    reg.handler(c, [a](Kontext& k) {
        std::vector<long> ids;
        if (const int code = listenArgumente(k, a->listen, ids)) return code;
        return k.ergebnis(k.dienste().vormerk().exportiere(a->datei, ids));
    });

    c = unterbefehl(reg, gruppe, "import", "Liest die Vormerklisten einer Datei (*.vml) ein", a);
    pflicht(c, "datei", a->datei, "Die Datei");
    reg.handler(c,
                [a](Kontext& k) { return k.ergebnis(k.dienste().vormerk().importiere(a->datei)); });
}

}  // namespace

void registriereVormerk(Register& reg) {
    CLI::App* v = reg.befehl(reg.wurzel(), "vormerk", "Vormerklisten");
    listenBefehle(reg, v);
    eintragBefehle(reg, v);
    kopierBefehle(reg, v);
    inhaltBefehle(reg, v);
    dateiBefehle(reg, v);
}

}  // namespace dv::cli
