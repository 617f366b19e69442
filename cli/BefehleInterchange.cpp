// importieren, stapel-import, exportieren, alle-exportieren, xml and filter: box
// files, XML documents and the filters that translate exported names.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "base/Zeichensatz.h"
#include "cli/Kontext.h"
#include "cli/Objektargumente.h"
#include "interchange/Austausch.h"
#include "interchange/Filter.h"

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

// A folder argument that must exist; ends in '/'.
int ordnerArgument(Kontext& k, const std::string& text, std::string& ordner) {
    ordner = mitTrenner(text);
    if (!k.app.fs().istOrdner(ordner))
        return k.fehler(kFehlschlag,
                        "Das Verzeichnis \"" + katalogText(text) + "\" existiert nicht.");
    return kFertig;
}

int importErgebnis(Kontext& k, ImportErgebnis e, const std::string& pfad, long boxId) {
    switch (e) {
        case ImportErgebnis::Importiert:
            k.zeile(std::to_string(boxId));
            return kFertig;
        case ImportErgebnis::KeineBoxDatei:
            return k.fehler(kFehlschlag,
                            "Die Datei \"" + katalogText(pfad) + "\" ist keine Box-Datei.");
        case ImportErgebnis::Doppelt:
            return kFehlschlag;  // the system's message has been shown
        case ImportErgebnis::Abgelehnt:
            return kFehlschlag;
        case ImportErgebnis::Abgebrochen:
            return k.fehler(kFehlschlag, "Der Import wurde abgebrochen.");
        case ImportErgebnis::Fehler:
            break;
    }
    return k.fehler(kFehlschlag, "Die Box konnte nicht angelegt werden.");
}

void importieren(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, reg.wurzel(), "importieren", "Importiert eine Box-Datei", a);
    schalter(c, "--bestaetigen", a->bestaetigen, "Fragt vor dem Import \"Box importieren ?\"");
    schalter(c, "--fragen", a->fragen,
             "Fragt bei jedem unbekannten Objekt und jeder unbekannten Person");
    pflicht(c, "datei", a->datei, "Die Box-Datei");
    reg.handler(c, [a](Kontext& k) {
        ImportOptionen o = importOptionen(k.app.austausch().optionen());
        o.boxBestaetigen = a->bestaetigen;
        o.objekteBestaetigen = a->fragen;
        long boxId = 0;
        const ImportErgebnis e = k.app.austausch().importiere(a->datei, o, &boxId);
        return importErgebnis(k, e, a->datei, boxId);
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
        ImportOptionen o = importOptionen(k.app.austausch().optionen());
        o.boxBestaetigen = false;
        o.objekteBestaetigen = false;
        bool alle = true;
        for (const StapelImportEintrag& e :
             k.app.austausch().stapelImport(a->dateien, !a->ohneInfo, o)) {
            const bool ok = e.ergebnis == ImportErgebnis::Importiert && !e.uebersprungen;
            k.zeile(katalogText(e.pfad) + (ok ? "\timportiert" : "\tnicht importiert"));
            alle = alle && ok;
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
        std::string ordner;
        if (const int code = ordnerArgument(k, a->ordner, ordner)) return code;
        const SchreibOptionen o{a->tags, !a->ohneKompression, !a->ohneKompression};
        std::string pfad;
        switch (k.app.austausch().exportiere(id, ordner, o, &pfad)) {
            case ExportErgebnis::Exportiert:
                k.zeile(katalogText(pfad));
                return kFertig;
            case ExportErgebnis::Unbekannt:
                return k.fehler(kNutzung, "Keine Box mit der ID " + std::to_string(id) + ".");
            case ExportErgebnis::KeineEan:
            case ExportErgebnis::NichtUeberschrieben:
                return kFehlschlag;
            case ExportErgebnis::Fehler:
                break;
        }
        return k.fehler(kFehlschlag, "Die Box-Datei \"" + katalogText(pfad) +
                                         "\" konnte nicht geschrieben werden.");
    });
}

void alleExportieren(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c =
        unterbefehl(reg, reg.wurzel(), "alle-exportieren", "Schreibt je Box eine Box-Datei", a);
    schalter(c, "--tags", a->tags, "Mit den Tags der Boxen, DVDs und Filme");
    pflicht(c, "ordner", a->ordner, "Das Zielverzeichnis");
    reg.handler(c, [a](Kontext& k) {
        std::string ordner;
        if (const int code = ordnerArgument(k, a->ordner, ordner)) return code;
        const StapelExportErgebnis e = k.app.austausch().exportiereAlle(ordner, a->tags);
        return e.nichtExportiert.empty() ? kFertig : kFehlschlag;
    });
}

void xml(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c =
        unterbefehl(reg, reg.wurzel(), "xml", "Gibt das XML-Dokument eines Objekts aus", a);
    pflicht(c, "typ", a->typ, "box, dvd oder film");
    pflicht(c, "id", a->id, "ID des Objekts");
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
        std::string dokument;
        if (!k.app.austausch().xml(typ, id, XmlOptionen{a->cover, a->unterobjekte}, dokument))
            return k.fehler(kNutzung, std::string("Kein Objekt vom Typ ") + objektTypName(typ) +
                                          " mit der ID " + std::to_string(id) + ".");
        if (!a->ausgabe.empty()) {
            if (!schreibeAlles(k.app.fs(), a->ausgabe, dokument))
                return k.fehler(kFehlschlag, "Die Datei \"" + katalogText(a->ausgabe) +
                                                 "\" kann nicht geschrieben werden.");
            return kFertig;
        }
        std::fwrite(dokument.data(), 1, dokument.size(), stdout);
        return std::fflush(stdout) == 0 ? kFertig : kFehlschlag;
    });
}

// ---- filter ----------------------------------------------------------------------

int filterArgument(Kontext& k, const std::string& text, long& id) {
    if (const int code = idArgument(k, text, id)) return code;
    if (!k.app.katalog().FilterName.eine(id))
        return k.fehler(kNutzung, "Kein Filter mit der ID " + std::to_string(id) + ".");
    return kFertig;
}

void filterListe(Register& reg, CLI::App* gruppe) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, gruppe, "liste", "Zeigt alle Filter", a);
    reg.handler(c, [](Kontext& k) {
        k.app.katalog().FilterName.scanne(
            [&](const Zeile1& z) { k.zeile(std::to_string(z.Id) + '\t' + z.cpText); });
        return kFertig;
    });
}

void filterNeu(Register& reg, CLI::App* gruppe) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, gruppe, "neu", "Legt einen Filter an", a);
    pflicht(c, "name", a->name, "Name des Filters");
    reg.handler(c, [a](Kontext& k) {
        const long id = k.app.filter().neu(katalogText(a->name));
        if (id <= 0) return k.fehler(kFehlschlag, "Der Filter konnte nicht angelegt werden.");
        k.zeile(std::to_string(id));
        return kFertig;
    });
}

void filterUmbenennen(Register& reg, CLI::App* gruppe) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, gruppe, "umbenennen", "Gibt einem Filter einen neuen Namen", a);
    pflicht(c, "id", a->id, "ID des Filters");
    pflicht(c, "name", a->name, "Der neue Name");
    reg.handler(c, [a](Kontext& k) {
        long id = 0;
        if (const int code = filterArgument(k, a->id, id)) return code;
        if (k.app.filter().umbenenne(id, katalogText(a->name)) != id)
            return k.fehler(kFehlschlag, "Der Filter konnte nicht umbenannt werden.");
        return kFertig;
    });
}

void filterLoeschen(Register& reg, CLI::App* gruppe) {
    std::shared_ptr<Args> a;
    CLI::App* c =
        unterbefehl(reg, gruppe, "loeschen", "Löscht einen Filter mit allen Einträgen", a);
    pflicht(c, "id", a->id, "ID des Filters");
    reg.handler(c, [a](Kontext& k) {
        long id = 0;
        if (const int code = filterArgument(k, a->id, id)) return code;
        auto name = k.app.katalog().FilterName.eine(id);
        if (!k.benutzer.frage("Löschen", std::string("Filter \"") +
                                             Tabelle1::zeile(name.get()).cpText +
                                             "\" wirklich löschen?"))
            return kFehlschlag;
        if (!k.app.filter().loesche(id))
            return k.fehler(kFehlschlag, "Der Filter konnte nicht gelöscht werden.");
        return kFertig;
    });
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
        if (!zahl(a->typ, typ) || typ < 1 || typ > kFilterTypen)
            return k.fehler(kNutzung,
                            "Der Filtertyp muss zwischen 1 und 8 liegen: " + katalogText(a->typ));
        const std::string intern = katalogText(a->intern);
        const long eintrag =
            k.app.db().findeLookup(lookupTypVonFilterTyp(static_cast<int>(typ)), intern);
        if (eintrag <= 0)
            return k.fehler(kNutzung, "Kein Eintrag \"" + intern + "\" unter \"" +
                                          filterTypLabel(static_cast<int>(typ)) + "\".");
        if (!k.app.filter().setzeEintrag(id, static_cast<int>(typ), eintrag,
                                         katalogText(a->extern_)))
            return k.fehler(kFehlschlag, "Der Filtereintrag konnte nicht geschrieben werden.");
        return kFertig;
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
        const ExportArt art = a->art == "xml" ? ExportArt::Xml : ExportArt::BoxDatei;
        if (!k.app.filter().setzeAktiv(art, id))
            return k.fehler(kFehlschlag, "Der Filter konnte nicht aktiviert werden.");
        return kFertig;
    });
}

void filter(Register& reg) {
    CLI::App* gruppe =
        reg.befehl(reg.wurzel(), "filter", "Filter für die Namen in Box-Dateien und XML");
    gruppe->require_subcommand(1);
    filterListe(reg, gruppe);
    filterNeu(reg, gruppe);
    filterUmbenennen(reg, gruppe);
    filterLoeschen(reg, gruppe);
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
