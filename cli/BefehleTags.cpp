// tags and stempeltags: tag files of objects, the tag search, stamp tags and
// their file.
#include <memory>
#include <string>
#include <vector>

#include "base/Zeichensatz.h"
#include "cli/Objektargumente.h"
#include "retrieval/Objektzugriff.h"
#include "retrieval/SuchDatei.h"

namespace dv::cli {

namespace {

void tagsZeigen(Register& reg, CLI::App* tags) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, tags, "zeigen", "Zeigt die Tags eines Objekts", a);
    pflicht(c, "typ", a->typ, "box, dvd oder film");
    pflicht(c, "id", a->id, "ID des Objekts");
    reg.handler(c, [a](Kontext& k) {
        int typ = 0;
        long id = 0;
        if (const int code = objektArgument(k, a->typ, a->id, typ, id)) return code;
        for (const std::string& t : k.app.tags().lese(typ, id)) k.zeile(t);
        return kFertig;
    });
}

void tagsSetzen(Register& reg, CLI::App* tags) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, tags, "setzen",
                              "Ersetzt die Tags eines Objekts (ohne TEXT: alle entfernen)", a);
    pflicht(c, "typ", a->typ, "box, dvd oder film");
    pflicht(c, "id", a->id, "ID des Objekts");
    c->add_option("text", a->texte, cp1252NachUtf8("Die Tags, je ein Argument"));
    reg.handler(c, [a](Kontext& k) {
        int typ = 0;
        long id = 0;
        if (const int code = objektArgument(k, a->typ, a->id, typ, id)) return code;
        std::vector<std::string> neu;
        for (const std::string& t : a->texte) neu.push_back(katalogText(t));
        if (!k.app.tags().schreibe(typ, id, neu))
            return k.fehler(kFehlschlag, "Die Tags konnten nicht geschrieben werden.");
        return kFertig;
    });
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
        const auto treffer = k.app.tags().suche(katalogText(a->text), typ);
        std::vector<ObjektRef> objekte;
        for (const TagTreffer& t : treffer) objekte.push_back({t.typ, t.id});
        const auto titel = objektTitel(k.app.db(), objekte);
        for (std::size_t i = 0; i < treffer.size(); ++i)
            k.zeile(std::string(objektTypName(treffer[i].typ)) + '\t' +
                    std::to_string(treffer[i].id) + '\t' + titel[i].value_or(std::string()) + '\t' +
                    treffer[i].tag);
        k.zeile(tagStatus(treffer.size()));
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
        return k.app.tags().entferneAlleDerBox(id) ? kFertig : kFehlschlag;
    });
}

void registriereTagBefehle(Register& reg) {
    CLI::App* tags = reg.befehl(reg.wurzel(), "tags", "Tags von Boxen, DVDs und Filmen");
    tagsZeigen(reg, tags);
    tagsSetzen(reg, tags);
    tagsSuchen(reg, tags);
    tagsEntfernenAlle(reg, tags);
}

int stempelArgument(Kontext& k, const std::string& text, Stempel& s) {
    long id = 0;
    if (const int code = idArgument(k, text, id)) return code;
    if (!k.app.stempeltags().gibtEs(id, &s))
        return k.fehler(kNutzung, "Kein Stempel-Tag mit der ID " + std::to_string(id) + ".");
    return kFertig;
}

void stempelListe(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "liste", "Zeigt alle Stempel-Tags", a);
    reg.handler(c, [](Kontext& k) {
        for (const Stempel& s : k.app.stempeltags().liste())
            k.zeile(std::to_string(s.id) + '\t' + maskeAlsText(s.maske) + '\t' + s.text);
        return kFertig;
    });
}

void stempelNeu(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "neu", "Legt einen Stempel-Tag an", a);
    pflicht(c, "maske", a->typ, "Objektarten als Buchstaben B, D, F (z. B. BF)");
    pflicht(c, "text", a->text, "Der Text");
    reg.handler(c, [a](Kontext& k) {
        const int maske = maskeAusText(a->typ);
        if (!maske)
            return k.fehler(kNutzung, "Ungültige Maske: " + katalogText(a->typ) + " (B, D, F)");
        if (a->text.empty()) return k.fehler(kNutzung, "Der Text des Stempel-Tags fehlt.");
        const long id = k.app.stempeltags().neu(maske, katalogText(a->text));
        if (id <= 0) return k.fehler(kFehlschlag, "Der Stempel-Tag konnte nicht angelegt werden.");
        k.zeile(std::to_string(id));
        return kFertig;
    });
}

void stempelLoeschen(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "loeschen", "Löscht einen Stempel-Tag", a);
    pflicht(c, "id", a->id, "ID des Stempel-Tags");
    reg.handler(c, [a](Kontext& k) {
        Stempel s;
        if (const int code = stempelArgument(k, a->id, s)) return code;
        return k.app.stempeltags().loesche(s.id) ? kFertig : kFehlschlag;
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
        Stempel s;
        if (const int code = stempelArgument(k, a->text, s)) return code;
        int typ = 0;
        long id = 0;
        if (const int code = objektArgument(k, a->typ, a->id, typ, id)) return code;
        switch (k.app.stempeltags().wendeAn(s.id, typ, id)) {
            case StempelAnwenden::Hinzugefuegt:
                return kFertig;
            case StempelAnwenden::NichtAngeboten:
                return k.fehler(kFehlschlag,
                                std::string("Der Stempel-Tag wird für die Objektart ") +
                                    objektTypName(typ) + " nicht angeboten.");
            default:
                return k.fehler(kFehlschlag, "Die Tags konnten nicht geschrieben werden.");
        }
    });
}

void stempelExport(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "export", "Schreibt alle Stempel-Tags in eine Datei", a);
    pflicht(c, "datei", a->datei, "Die Datei");
    reg.handler(c, [a](Kontext& k) {
        if (!darfUeberschreiben(k.app.fs(), k.app.benutzer(), a->datei)) return kFehlschlag;
        if (!k.app.stempeltags().exportiere(a->datei)) return nichtGeschrieben(k, a->datei);
        return kFertig;
    });
}

void stempelImport(Register& reg, CLI::App* st) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, st, "import", "Legt die Stempel-Tags einer Datei an", a);
    pflicht(c, "datei", a->datei, "Die Datei");
    reg.handler(c, [a](Kontext& k) {
        const StempelImport e = k.app.stempeltags().importiere(a->datei);
        if (!e.gelesen) return nichtGelesen(k, a->datei);
        return e.versionsfehler ? kFehlschlag : kFertig;
    });
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
