// The catalogue itself: liste, anzahl, info, spieldauer, neu, loeschen, hoch,
// runter, kopieren, each through the services.
#include <cstdio>
#include <memory>
#include <string>

#include "app/KatalogJson.h"
#include "base/Zeichensatz.h"
#include "cli/Objektargumente.h"
#include "domain/Beschreibung.h"

namespace dv::cli {

namespace {

struct Args {
    std::string typ, id, ziel, titel, ean, verpackung, format;
    bool json = false;
    int jahr = 0, laenge = 0, fsk = 0, rc = 0;
};

std::string u8(const char* cp1252) {
    return cp1252NachUtf8(cp1252);
}

// Prints a text of several lines ("\r\n" or "\n" between them).
void zeilen(Kontext& k, const std::string& text) {
    std::size_t anfang = 0;
    while (anfang <= text.size()) {
        std::size_t ende = text.find('\n', anfang);
        if (ende == std::string::npos) ende = text.size();
        std::string z = text.substr(anfang, ende - anfang);
        if (!z.empty() && z.back() == '\r') z.pop_back();
        k.zeile(z);
        anfang = ende + 1;
    }
}

// ---- liste ------------------------------------------------------------------

void liste(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, reg.wurzel(), "liste", "Zeigt den ganzen Katalog", a);
    c->add_flag("--json", a->json, u8("Als JSON-Dokument (UTF-8)"));
    reg.handler(c, [a](Kontext& k) {
        if (a->json) {
            if (schreibeKatalogJson(k.app, stdout)) return kFertig;
            return k.fehler(kFehlschlag, "Die Ausgabe konnte nicht geschrieben werden.");
        }
        katalogZeilen(k.app, [&k](const std::string& z) { k.zeile(z); });
        return kFertig;
    });
}

// ---- anzahl, info, spieldauer -----------------------------------------------

void lesen(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, reg.wurzel(), "anzahl", "Zählt Boxen, DVDs und Filme", a);
    reg.handler(c, [](Kontext& k) {
        const Anzahl n = k.dienste().katalog().anzahl();
        k.zeile(formatiere("Boxen: %ld", n.boxen));
        k.zeile(formatiere("Dvds: %ld", n.dvds));
        k.zeile(formatiere("Filme: %ld", n.filme));
        return kFertig;
    });

    for (const bool info : {true, false}) {
        c = unterbefehl(reg, reg.wurzel(), info ? "info" : "spieldauer",
                        info ? "Zeigt den Informationstext eines Objekts"
                             : "Zeigt die Gesamtspieldauer eines Objekts",
                        a);
        objektWorte(c, a->typ, a->id);
        reg.handler(c, mitObjekt(a, [info](Kontext& k, int typ, long id) {
                        KatalogDienst& katalog = k.dienste().katalog();
                        const auto text =
                            info ? katalog.info(typ, id) : katalog.spieldauer(typ, id);
                        if (!text.ok()) return k.ergebnis(text);
                        zeilen(k, text.wert());
                        return kFertig;
                    }));
    }
}

// ---- neu ----------------------------------------------------------------------

void titelOption(CLI::App* c, Args& a) {
    c->add_option("--titel", a.titel, u8("Titel"))->required();
}

void neuBox(Register& reg, CLI::App* neu) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, neu, "box", "Legt eine Box mit einer DVD und einem Film an", a);
    titelOption(c, *a);
    c->add_option("--ean", a->ean, u8("EAN der Box"));
    c->add_option("--verpackung", a->verpackung, u8("Verpackung (eine unbekannte wird angelegt)"));
    reg.handler(c, [a](Kontext& k) {
        BoxWerte w;
        w.titel = katalogText(a->titel);
        w.ean = katalogText(a->ean);
        w.verpackung.name = katalogText(a->verpackung);
        const auto box = k.dienste().objekte().neueBox(w);
        if (!box.ok()) return k.ergebnis(box);
        k.zeile(formatiere("%ld\t%ld\t%ld", box->box, box->dvd, box->film));
        return kFertig;
    });
}

void neuDvd(Register& reg, CLI::App* neu) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, neu, "dvd", "Legt eine DVD als letzte einer Box an", a);
    pflicht(c, "box-id", a->id, "ID der Box");
    titelOption(c, *a);
    c->add_option("--jahr", a->jahr, u8("Produktionsjahr"))->check(CLI::Range(0, 32767));
    c->add_option("--laenge", a->laenge, u8("Länge in Minuten"))->check(CLI::Range(0, 32767));
    c->add_option("--format", a->format, u8("DVD-Format (ein unbekanntes wird angelegt)"));
    c->add_option("--rc", a->rc, u8("Regionalcodes als Bitmaske (Bit 0 = Region 1)"))
        ->check(CLI::Range(0, 255));
    reg.handler(c, [a](Kontext& k) {
        int typ = 0;
        long box = 0;
        if (const int code = objektArgument(k, "box", a->id, typ, box)) return code;
        DvdWerte w;
        w.titel = katalogText(a->titel);
        w.jahr = a->jahr;
        w.laenge = a->laenge;
        w.rc = static_cast<unsigned>(a->rc);
        w.format.name = katalogText(a->format);
        return k.neueId(k.dienste().objekte().neueDvd(box, w));
    });
}

void neuFilm(Register& reg, CLI::App* neu) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, neu, "film", "Legt einen Film als letzten einer DVD an", a);
    pflicht(c, "dvd-id", a->id, "ID der DVD");
    titelOption(c, *a);
    c->add_option("--jahr", a->jahr, u8("Produktionsjahr"))->check(CLI::Range(0, 32767));
    c->add_option("--fsk", a->fsk, u8("Freigabealter"))->check(CLI::Range(0, 127));
    c->add_option("--laenge", a->laenge, u8("Länge in Minuten"))->check(CLI::Range(0, 32767));
    reg.handler(c, [a](Kontext& k) {
        int typ = 0;
        long dvd = 0;
        if (const int code = objektArgument(k, "dvd", a->id, typ, dvd)) return code;
        FilmWerte w;
        w.titel = katalogText(a->titel);
        w.jahr = a->jahr;
        w.fsk = a->fsk;
        w.laenge = a->laenge;
        return k.neueId(k.dienste().objekte().neuerFilm(dvd, w));
    });
}

// ---- loeschen, hoch, runter, kopieren -----------------------------------------

void aendern(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, reg.wurzel(), "loeschen",
                              "Löscht ein Objekt mit allem, was daran hängt (nach Rückfrage)", a);
    objektWorte(c, a->typ, a->id);
    reg.handler(c, mitObjekt(a, [](Kontext& k, int typ, long id) {
                    return k.ergebnis(k.dienste().objekte().loescheMitFrage(typ, id));
                }));

    for (const bool hoch : {true, false}) {
        c = unterbefehl(
            reg, reg.wurzel(), hoch ? "hoch" : "runter",
            hoch ? "Schiebt eine DVD in ihrer Box oder einen Film auf seiner DVD nach oben"
                 : "Schiebt eine DVD in ihrer Box oder einen Film auf seiner DVD nach unten",
            a);
        pflicht(c, "typ", a->typ, "dvd oder film");
        pflicht(c, "id", a->id, "ID der DVD oder des Films");
        reg.handler(c, mitObjekt(a, [hoch](Kontext& k, int typ, long id) {
                        return k.ergebnis(k.dienste().objekte().verschiebe(typ, id, hoch));
                    }));
    }

    c = unterbefehl(reg, reg.wurzel(), "kopieren",
                    "Kopiert eine DVD in eine Box oder einen Film auf eine DVD, als letztes Objekt",
                    a);
    pflicht(c, "typ", a->typ, "dvd oder film");
    pflicht(c, "id", a->id, "ID der DVD oder des Films");
    pflicht(c, "ziel-id", a->ziel, "ID der Ziel-Box (für eine DVD) oder Ziel-DVD (für einen Film)");
    reg.handler(c, mitObjekt(a, [a](Kontext& k, int typ, long id) {
                    long ziel = 0;
                    if (const int code = idArgument(k, a->ziel, ziel)) return code;
                    return k.neueId(k.dienste().objekte().kopiere(typ, id, ziel));
                }));
}

}  // namespace

void registriereKatalog(Register& reg) {
    liste(reg);
    lesen(reg);
    CLI::App* neu = reg.befehl(reg.wurzel(), "neu", "Legt eine Box, eine DVD oder einen Film an");
    neu->require_subcommand(1);
    neuBox(reg, neu);
    neuDvd(reg, neu);
    neuFilm(reg, neu);
    aendern(reg);
}

}  // namespace dv::cli
