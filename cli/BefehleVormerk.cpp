// vormerk: watch lists, their entries, the set operations and watch-list files.
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/Zeichensatz.h"
#include "cli/Objektargumente.h"
#include "retrieval/SuchDatei.h"
#include "retrieval/VormerkDatei.h"

namespace dv::cli {

namespace {

void posListen(CLI::App* c, const char* name, std::vector<std::string>& ziel) {
    c->add_option(name, ziel, cp1252NachUtf8("IDs der Vormerklisten"))->required();
}

// The content view: "Listenname TYP ID Titel" per element, then the status line.
void zeige(Kontext& k, const std::vector<VormerkElement>& elemente) {
    std::unordered_map<long, std::string> namen;
    for (const VormerkListe& l : k.app.vormerklisten().listen()) namen.emplace(l.id, l.name);
    for (const VormerkElement& e : elemente)
        k.zeile(namen[e.listeId] + '\t' + objektTypName(e.typ) + '\t' + std::to_string(e.objektId) +
                '\t' + e.titel);
    k.zeile(vormerkStatus(elemente.size()));
}

void listenBefehle(Register& reg, CLI::App* gruppe) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, gruppe, "listen", "Zeigt alle Vormerklisten", a);
    reg.handler(c, [](Kontext& k) {
        for (const VormerkListe& l : k.app.vormerklisten().listen())
            k.zeile(std::to_string(l.id) + '\t' + l.name);
        return kFertig;
    });

    c = unterbefehl(reg, gruppe, "neu", "Legt eine Vormerkliste an", a);
    pflicht(c, "name", a->name, "Name der Vormerkliste");
    reg.handler(c, [a](Kontext& k) {
        const long id = k.app.vormerklisten().neu(katalogText(a->name));
        if (id <= 0) return k.fehler(kFehlschlag, "Die Vormerkliste konnte nicht angelegt werden.");
        k.zeile(std::to_string(id));
        return kFertig;
    });

    c = unterbefehl(reg, gruppe, "umbenennen", "Gibt einer Vormerkliste einen neuen Namen", a);
    pflicht(c, "id", a->liste, "ID der Vormerkliste");
    pflicht(c, "name", a->name, "Neuer Name der Vormerkliste");
    reg.handler(c, [a](Kontext& k) {
        long id = 0;
        if (const int code = listenArgument(k, a->liste, id)) return code;
        return k.app.vormerklisten().benenneUm(id, katalogText(a->name)) ? kFertig : kFehlschlag;
    });

    c = unterbefehl(reg, gruppe, "loeschen", "Löscht eine Vormerkliste mit ihren Einträgen", a);
    pflicht(c, "id", a->liste, "ID der Vormerkliste");
    reg.handler(c, [a](Kontext& k) {
        long id = 0;
        if (const int code = listenArgument(k, a->liste, id)) return code;
        return k.app.vormerklisten().loesche(id) ? kFertig : kFehlschlag;
    });
}

// LISTE TYP ID of the entry commands; the object must exist.
int eintragArgumente(Kontext& k, const Argumente& a, long& liste, int& typ, long& id) {
    if (const int code = listenArgument(k, a.liste, liste)) return code;
    return objektArgument(k, a.typ, a.id, typ, id);
}

int nichtInListe(Kontext& k) {
    return k.fehler(kFehlschlag, "Das Objekt steht nicht in der Vormerkliste.");
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
            Vormerklisten& v = k.app.vormerklisten();
            if (art == 0)
                return v.fuegeHinzu(liste, typ, id) > 0
                           ? kFertig
                           : k.fehler(kFehlschlag, "Das Objekt konnte nicht vorgemerkt werden.");
            if (art == 1) return v.entferne(liste, typ, id) ? kFertig : nichtInListe(k);
            if (v.verschiebe(liste, typ, id, art == 2)) return kFertig;
            if (!v.enthaelt(liste, typ, id)) return nichtInListe(k);
            return k.fehler(kFehlschlag, art == 2 ? "Das Element steht bereits ganz oben."
                                                  : "Das Element steht bereits ganz unten.");
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
            Vormerklisten& v = k.app.vormerklisten();
            const bool ok =
                verschieben ? v.verschiebeNach(von, nach, typ, id) : v.kopiere(von, nach, typ, id);
            return ok ? kFertig : nichtInListe(k);
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
            Vormerklisten& v = k.app.vormerklisten();
            if (art == 0) zeige(k, v.inhalt(ids));
            if (art == 1) zeige(k, vereinigung(v.inhalt(ids)));
            if (art == 2) zeige(k, schnitt(v.eintraege(ids, true)));
            if (art == 3) zeige(k, komplement(v.inhalt(ids), v.inhalt(gegen)));
            return kFertig;
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
        if (!darfUeberschreiben(k.app.fs(), k.app.benutzer(), a->datei)) return kFehlschlag;
        if (!exportiereVormerklisten(k.app.db(), ids, a->datei))
            return nichtGeschrieben(k, a->datei);
        return kFertig;
    });

    c = unterbefehl(reg, gruppe, "import", "Liest die Vormerklisten einer Datei (*.vml) ein", a);
    pflicht(c, "datei", a->datei, "Die Datei");
    reg.handler(c, [a](Kontext& k) {
        const VormerkImport e = importiereVormerklisten(k.app.db(), k.app.benutzer(), a->datei);
        if (!e.gelesen) return nichtGelesen(k, a->datei);
        return e.versionsfehler || e.fehler > 0 ? kFehlschlag : kFertig;
    });
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
