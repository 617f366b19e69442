// importieren, stapel-import, exportieren, alle-exportieren, xml and filter: box
// files, XML documents and the filters that translate exported names.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "app/Zeichensatz.h"
#include "cli/Kontext.h"
#include "cli/Objektargumente.h"

namespace dv::cli {
namespace {

struct Args {
    std::string datei, id, ordner, typ, name, intern, extern_, art, ausgabe;
    std::vector<std::string> dateien;
    bool bestaetigen = false, fragen = false, ohneInfo = false, tags = false,
         ohneKompression = false;
    bool cover = false, unterobjekte = false;
};

void schalter(CLI::App* c, const char* name, bool& ziel, const char* hilfe) {
    c->add_flag(name, ziel, cp1252NachUtf8(hilfe));
}

void importieren(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, reg.wurzel(), "importieren", "Importiert eine Box-Datei", a);
    schalter(c, "--bestaetigen", a->bestaetigen, "Fragt vor dem Import \"Box importieren ?\"");
    schalter(c, "--fragen", a->fragen,
             "Fragt bei jedem unbekannten Objekt und jeder unbekannten Person");
    pflicht(c, "datei", a->datei, "Die Box-Datei");
    reg.handler(c, [a](Kontext& k) {
        const auto box =
            k.dienste().austausch().importiere(a->datei, ImportFragen{a->bestaetigen, a->fragen});
        if (!box.ok()) return k.ergebnis(box);
        k.zeile(std::to_string(box.wert()));
        return kFertig;
    });
}

void stapelImport(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c =
        unterbefehl(reg, reg.wurzel(), "stapel-import",
                    "Importiert mehrere Box-Dateien nacheinander und löscht sie danach", a);
    schalter(c, "--ohne-info", a->ohneInfo, "Ohne die Frage \"Import-Info\" vor jeder Datei");
    c->add_option("datei", a->dateien, cp1252NachUtf8("Die Box-Dateien"))->required();
    reg.handler(c, [a](Kontext& k) {
        bool alle = true;
        for (const ImportZeile& z :
             k.dienste().austausch().stapelImport(a->dateien, !a->ohneInfo)) {
            k.zeile(katalogText(z.pfad) + (z.importiert ? "\timportiert" : "\tnicht importiert"));
            alle = alle && z.importiert;
        }
        return alle ? kFertig : kFehlschlag;
    });
}

void exportieren(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c =
        unterbefehl(reg, reg.wurzel(), "exportieren", "Schreibt die Box-Datei einer Box", a);
    schalter(c, "--tags", a->tags, "Mit den Tags der Box, ihrer DVDs und Filme");
    schalter(c, "--ohne-kompression", a->ohneKompression, "Bild und Daten ungepackt schreiben");
    pflicht(c, "box-id", a->id, "ID der Box");
    pflicht(c, "ordner", a->ordner, "Das Zielverzeichnis");
    reg.handler(c, [a](Kontext& k) {
        long id = 0;
        if (const int code = idArgument(k, a->id, id)) return code;
        const auto pfad =
            k.dienste().austausch().exportiere(id, a->ordner, a->tags, !a->ohneKompression);
        if (!pfad.ok()) return k.ergebnis(pfad);
        k.zeile(katalogText(pfad.wert()));
        return kFertig;
    });
}

void alleExportieren(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c =
        unterbefehl(reg, reg.wurzel(), "alle-exportieren", "Schreibt je Box eine Box-Datei", a);
    schalter(c, "--tags", a->tags, "Mit den Tags der Boxen, DVDs und Filme");
    pflicht(c, "ordner", a->ordner, "Das Zielverzeichnis");
    reg.handler(c, [a](Kontext& k) {
        return k.ergebnis(k.dienste().austausch().exportiereAlle(a->ordner, a->tags));
    });
}

void xml(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c =
        unterbefehl(reg, reg.wurzel(), "xml", "Gibt das XML-Dokument eines Objekts aus", a);
    objektWorte(c, a->typ, a->id);
    schalter(c, "--cover", a->cover, "Das Cover einer Box einbetten");
    schalter(c, "--unterobjekte", a->unterobjekte,
             "Eine Box mit ihren DVDs, eine DVD mit ihren Filmen");
    c->add_option("-o", a->ausgabe, cp1252NachUtf8("In diese Datei statt auf die Standardausgabe"))
        ->type_name("DATEI");
    reg.handler(c, [a](Kontext& k) {
        const int typ = objektTyp(a->typ);
        if (!typ)
            return k.fehler(kNutzung, "Unbekannter Objekttyp: " + katalogText(a->typ) +
                                          " (box, dvd oder film)");
        long id = 0;
        if (const int code = idArgument(k, a->id, id)) return code;
        AustauschDienst& austausch = k.dienste().austausch();
        if (!a->ausgabe.empty())
            return k.ergebnis(austausch.xmlDatei(typ, id, a->cover, a->unterobjekte, a->ausgabe));
        const auto dokument = austausch.xml(typ, id, a->cover, a->unterobjekte);
        if (!dokument.ok()) return k.ergebnis(dokument);
        std::fwrite(dokument->data(), 1, dokument->size(), stdout);
        return std::fflush(stdout) == 0 ? kFertig : kFehlschlag;
    });
}

// ---- filter ----------------------------------------------------------------------

int filterArgument(Kontext& k, const std::string& text, long& id) {
    return benanntArgument(k, k.dienste().filter(), text, id);
}

void filterSetzen(Register& reg, CLI::App* gruppe) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, gruppe, "setzen",
                              "Setzt den externen Namen eines Eintrags (leer: entfernt ihn)", a);
    pflicht(c, "id", a->id, "ID des Filters");
    pflicht(c, "typ", a->typ, "Filtertyp 1 bis 8");
    pflicht(c, "intern", a->intern, "Der eigene Name des Eintrags");
    c->add_option("extern", a->extern_, cp1252NachUtf8("Der externe Name"))->required();
    reg.handler(c, [a](Kontext& k) {
        long id = 0, typ = 0;
        if (const int code = filterArgument(k, a->id, id)) return code;
        if (!zahl(a->typ, typ) || typ < 1 || typ > FilterDienst::kTypen)
            return k.fehler(kNutzung,
                            "Der Filtertyp muss zwischen 1 und 8 liegen: " + katalogText(a->typ));
        return k.ergebnis(k.dienste().filter().setze(
            id, static_cast<int>(typ), katalogText(a->intern), katalogText(a->extern_)));
    });
}

void filterAktiv(Register& reg, CLI::App* gruppe) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, gruppe, "aktiv",
                              "Macht einen Filter zum aktiven für Box-Dateien oder XML", a);
    c->add_option("art", a->art, cp1252NachUtf8("box oder xml"))
        ->required()
        ->check(CLI::IsMember({"box", "xml"}));
    pflicht(c, "id", a->id, "ID des Filters (0: keiner)");
    reg.handler(c, [a](Kontext& k) {
        long id = 0;
        if (!zahl(a->id, id) || id < 0)
            return k.fehler(kNutzung, "Keine gültige ID: " + katalogText(a->id));
        if (id > 0)
            if (const int code = filterArgument(k, a->id, id)) return code;
        return k.ergebnis(k.dienste().filter().setzeAktiv(a->art == "xml", id));
    });
}

void filter(Register& reg) {
    CLI::App* gruppe =
        reg.befehl(reg.wurzel(), "filter", "Filter für die Namen in Box-Dateien und XML");
    gruppe->require_subcommand(1);
    benannteBefehle(
        reg, gruppe, [](Kontext& k) -> Benannte& { return k.dienste().filter(); },
        {"liste", "Zeigt alle Filter", "Legt einen Filter an",
         "Gibt einem Filter einen neuen Namen", "Löscht einen Filter mit allen Einträgen",
         "des Filters"},
        [](Kontext& k, long id) { return k.dienste().filter().loescheMitFrage(id); });
    filterSetzen(reg, gruppe);
    filterAktiv(reg, gruppe);
}

}  // namespace

void registriereInterchange(Register& reg) {
    importieren(reg);
    stapelImport(reg);
    exportieren(reg);
    alleExportieren(reg);
    xml(reg);
    filter(reg);
}

}  // namespace dv::cli
