// tags and stempeltags: tag files of objects, the tag search, stamp tags and
// their file.
#include <memory>
#include <string>
#include <vector>

#include "app/Zeichensatz.h"
#include "cli/Objektargumente.h"

namespace dv::cli {

namespace {

void tagsZeigen(Register& reg, CLI::App* tags) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, tags, "zeigen", "Zeigt die Tags eines Objekts", a);
    objektWorte(c, a->typ, a->id);
    reg.handler(c, mitObjekt(a, [](Kontext& k, int typ, long id) {
                    for (const std::string& t : k.dienste().tags().lese(typ, id)) k.zeile(t);
                    return kFertig;
                }));
}

void tagsSetzen(Register& reg, CLI::App* tags) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, tags, "setzen",
                              "Ersetzt die Tags eines Objekts (ohne TEXT: alle entfernen)", a);
    objektWorte(c, a->typ, a->id);
    c->add_option("text", a->texte, cp1252NachUtf8("Die Tags, je ein Argument"));
    reg.handler(c, mitObjekt(a, [a](Kontext& k, int typ, long id) {
                    std::vector<std::string> neu;
                    for (const std::string& t : a->texte) neu.push_back(katalogText(t));
                    return k.ergebnis(k.dienste().tags().setze(typ, id, neu));
                }));
}

void tagsSuchen(Register& reg, CLI::App* tags) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, tags, "suchen", "Sucht einen Text in allen Tags", a);
    c->add_option("--objekt", a->objekt, cp1252NachUtf8("Nur Objekte dieser Art (box, dvd, film)"))
        ->type_name("TYP");
    pflicht(c, "text", a->text, "Der gesuchte Text");
    reg.handler(c, [a](Kontext& k) {
        const int typ = a->objekt.empty() ? 0 : objektTyp(a->objekt);
        if (!a->objekt.empty() && !typ)
            return k.fehler(kNutzung, "Unbekannter Objekttyp: " + katalogText(a->objekt));
        const auto funde = k.dienste().tags().suche(katalogText(a->text), typ);
        for (const TagFund& f : funde)
            k.zeile(std::string(SuchDienst::objektName(f.typ)) + '\t' + std::to_string(f.id) +
                    '\t' + f.titel + '\t' + f.tag);
        k.zeile(TagDienst::status(funde.size()));
        return kFertig;
    });
}

void tagsEntfernenAlle(Register& reg, CLI::App* tags) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, tags, "entfernen-alle",
                              "Entfernt die Tags einer Box, ihrer DVDs und Filme", a);
    pflicht(c, "box-id", a->id, "ID der Box");
    reg.handler(c, [a](Kontext& k) {
        int typ = 0;
        long id = 0;
        if (const int code = objektArgument(k, "box", a->id, typ, id)) return code;
        return k.ergebnis(k.dienste().tags().entferneAlleDerBox(id));
    });
}

void registriereTagBefehle(Register& reg) {
    CLI::App* tags = reg.befehl(reg.wurzel(), "tags", "Tags von Boxen, DVDs und Filmen");
    tagsZeigen(reg, tags);
    tagsSetzen(reg, tags);
    tagsSuchen(reg, tags);
    tagsEntfernenAlle(reg, tags);
}

int stempelArgument(Kontext& k, const std::string& text, long& id) {
    if (const int code = idArgument(k, text, id)) return code;
    return k.ergebnis(k.dienste().tags().pruefeStempel(id));
}

void stempelListe(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "liste", "Zeigt alle Stempel-Tags", a);
    reg.handler(c, [](Kontext& k) {
        for (const StempelWerte& s : k.dienste().tags().stempel())
            k.zeile(std::to_string(s.id) + '\t' + TagDienst::maskeText(s.maske) + '\t' + s.text);
        return kFertig;
    });
}

void stempelNeu(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "neu", "Legt einen Stempel-Tag an", a);
    pflicht(c, "maske", a->typ, "Objektarten als Buchstaben B, D, F (z. B. BF)");
    pflicht(c, "text", a->text, "Der Text");
    reg.handler(c, [a](Kontext& k) {
        const int maske = TagDienst::maskeAusText(a->typ);
        if (!maske)
            return k.fehler(kNutzung, "Ungültige Maske: " + katalogText(a->typ) + " (B, D, F)");
        return k.neueId(k.dienste().tags().neuerStempel(maske, katalogText(a->text)));
    });
}

void stempelLoeschen(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "loeschen", "Löscht einen Stempel-Tag", a);
    pflicht(c, "id", a->id, "ID des Stempel-Tags");
    reg.handler(c, [a](Kontext& k) {
        long id = 0;
        if (const int code = stempelArgument(k, a->id, id)) return code;
        return k.ergebnis(k.dienste().tags().loescheStempel(id));
    });
}

void stempelAnwenden(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "anwenden",
                              "Fügt den Text eines Stempel-Tags zu den Tags eines Objekts", a);
    pflicht(c, "id", a->text, "ID des Stempel-Tags");
    pflicht(c, "typ", a->typ, "box, dvd oder film");
    pflicht(c, "objekt-id", a->id, "ID des Objekts");
    reg.handler(c, [a](Kontext& k) {
        long stempel = 0;
        if (const int code = stempelArgument(k, a->text, stempel)) return code;
        int typ = 0;
        long id = 0;
        if (const int code = objektArgument(k, a->typ, a->id, typ, id)) return code;
        return k.ergebnis(k.dienste().tags().wendeStempelAn(stempel, typ, id));
    });
}

void stempelExport(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "export", "Schreibt alle Stempel-Tags in eine Datei", a);
    pflicht(c, "datei", a->datei, "Die Datei");
    reg.handler(
        c, [a](Kontext& k) { return k.ergebnis(k.dienste().tags().exportiereStempel(a->datei)); });
}

void stempelImport(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "import", "Legt die Stempel-Tags einer Datei an", a);
    pflicht(c, "datei", a->datei, "Die Datei");
    reg.handler(
        c, [a](Kontext& k) { return k.ergebnis(k.dienste().tags().importiereStempel(a->datei)); });
}

void registriereStempelBefehle(Register& reg) {
    CLI::App* st = reg.befehl(reg.wurzel(), "stempeltags", "Stempel-Tags: vorbereitete Tag-Texte");
    stempelListe(reg, st);
    stempelNeu(reg, st);
    stempelLoeschen(reg, st);
    stempelAnwenden(reg, st);
    stempelExport(reg, st);
    stempelImport(reg, st);
}

}  // namespace

void registriereTags(Register& reg) {
    registriereTagBefehle(reg);
    registriereStempelBefehle(reg);
}

}  // namespace dv::cli
