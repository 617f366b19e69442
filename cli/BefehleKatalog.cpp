// The catalogue itself: liste, anzahl, info, spieldauer, neu, loeschen, hoch,
// runter, kopieren.
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "app/Objektbefehle.h"
#include "base/Zeichensatz.h"
#include "cli/Objektargumente.h"
#include "domain/Beschreibung.h"
#include "interchange/ExportQuelle.h"

namespace dv::cli {

namespace {

// Keys in the order of the documented layout.
using json = nlohmann::ordered_json;

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

// A catalogue text argument that must fit its field (width - 1 characters).
int textArgument(Kontext& k, const std::string& utf8, std::size_t max, const char* was,
                 std::string& text) {
    text = katalogText(utf8);
    if (text.size() > max)
        return k.fehler(kNutzung, formatiere("%s ist zu lang (höchstens %zu Zeichen).", was, max));
    return kFertig;
}

// ---- liste ------------------------------------------------------------------

json namen(const ObjektElement* e) {
    json a = json::array();
    for (; e; e = e->pNext) a.push_back(u8(e->pObjekt1->zeile.cpText));
    return a;
}

json tagsJson(ExportQuelle& q, int typ, long id) {
    json a = json::array();
    for (const std::string& t : q.tags(typ, id)) a.push_back(cp1252NachUtf8(t));
    return a;
}

json filmJson(ExportQuelle& q, const FilmElement& f) {
    const FilmTitel t = q.titel(f);
    json sprachen = json::array();
    for (const ObjektElement* s = f.pSprachen; s; s = s->pNext)
        sprachen.push_back({{"sprache", u8(s->pObjekt1->zeile.cpText)},
                            {"tonformat", u8(s->pObjekt2->zeile.cpText)}});
    json funktionen = json::array();
    for (const FktElement* x = f.pFunktionen; x; x = x->pNext) funktionen.push_back(u8(x->cpText));
    json personen = json::array();
    for (const PersonenElement* p = f.pPersonen; p; p = p->pNext) {
        json alias = json::array();
        for (const ListenElement* a = p->pAlias; a; a = a->pNext)
            alias.push_back(u8(static_cast<const Zeile1*>(a->pObjekt)->cpText));
        personen.push_back({{"name", u8(p->pPerson->zeile.cpName)},
                            {"vorname", u8(p->pPerson->zeile.cpVorname)},
                            {"instanz", p->pPerson->zeile.Instanz},
                            {"funktion", cp1252NachUtf8(q.lookupName(kTypFunktion, p->lFunktion))},
                            {"alias", alias}});
    }
    return {{"id", f.Id},
            {"titel", u8(f.cpTitel)},
            {"originaltitel", cp1252NachUtf8(t.original)},
            {"alternativtitel", cp1252NachUtf8(t.weitere.empty() ? "" : t.weitere.front())},
            {"fsk", f.FSK},
            {"laenge", f.Laenge},
            {"jahr", f.Jahr},
            {"bildformate", namen(f.pBildformate)},
            {"genres", namen(f.pGenres)},
            {"untertitel", namen(f.pUntertitel)},
            {"sprachen", sprachen},
            {"funktionen", funktionen},
            {"personen", personen},
            {"inhalt", cp1252NachUtf8(q.inhalt(f.Id))},
            {"kommentar", cp1252NachUtf8(q.kommentar(f.Id))},
            {"tags", tagsJson(q, kObjektFilm, f.Id)}};
}

json dvdJson(ExportQuelle& q, const DvdElement& d) {
    json filme = json::array();
    for (const FilmElement* f = d.pFilme; f; f = f->pNext) filme.push_back(filmJson(q, *f));
    return {{"id", d.Id},
            {"titel", u8(d.cpText)},
            {"jahr", d.Jahr},
            {"rc", static_cast<unsigned char>(d.RC)},
            {"opt", static_cast<unsigned char>(d.Opt)},
            {"format", cp1252NachUtf8(q.lookupName(kTypFormat, d.Formate_Id))},
            {"sn", d.SN},
            {"bytesLow", d.BytesLow},
            {"bytesHigh", d.BytesHigh},
            {"laenge", d.Laenge},
            {"extras", namen(d.pExtras)},
            {"tags", tagsJson(q, kObjektDvd, d.Id)},
            {"filme", filme}};
}

json boxJson(ExportQuelle& q, const BoxElement& b) {
    json dvds = json::array();
    for (const DvdElement* d = b.pDvds; d; d = d->pNext) dvds.push_back(dvdJson(q, *d));
    std::string cover = q.cover(b.Id);
    cover = cover.substr(cover.find_last_of('/') + 1);
    return {{"id", b.Id},
            {"ean", u8(b.cpEAN)},
            {"titel", u8(b.cpText)},
            {"verpackung", cp1252NachUtf8(q.lookupName(kTypVerpackung, b.Verpackungs_Id))},
            {"extras", namen(b.pExtras)},
            {"tags", tagsJson(q, kObjektBox, b.Id)},
            {"cover", cover},
            {"dvds", dvds}};
}

void liste(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, reg.wurzel(), "liste", "Zeigt den ganzen Katalog", a);
    c->add_flag("--json", a->json, u8("Als JSON-Dokument (UTF-8)"));
    reg.handler(c, [a](Kontext& k) {
        // The text form needs only the boxes, DVDs and films with their titles.
        auto boxen = k.app.db().ladeSammlung(a->json ? kUmfangAlles : kUmfangFilme);
        if (a->json) {
            ExportQuelle q(k.app.db(), k.app.ordner());
            q.fuerSammlung();
            // One box at a time: the document of a large collection is never
            // held whole.
            std::fputs("{\"boxen\":[", stdout);
            for (const BoxElement* b = boxen.get(); b; b = b->pNext) {
                const std::string text = boxJson(q, *b).dump();
                if (b != boxen.get()) std::fputc(',', stdout);
                std::fwrite(text.data(), 1, text.size(), stdout);
            }
            std::fputs("]}\n", stdout);
            return kFertig;
        }
        for (const BoxElement* b = boxen.get(); b; b = b->pNext) {
            k.zeile(formatiere("Box\t%ld\t%s\t%s", long{b->Id}, b->cpEAN, b->cpText));
            for (const DvdElement* d = b->pDvds; d; d = d->pNext) {
                k.zeile(formatiere("Dvd\t%ld\t%ld\t%s", long{d->Id}, long{b->Id}, d->cpText));
                for (const FilmElement* f = d->pFilme; f; f = f->pNext)
                    k.zeile(formatiere("Film\t%ld\t%ld\t%s", long{f->Id}, long{d->Id}, f->cpTitel));
            }
        }
        return kFertig;
    });
}

// ---- anzahl, info, spieldauer -----------------------------------------------

void lesen(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, reg.wurzel(), "anzahl", "Zählt Boxen, DVDs und Filme", a);
    reg.handler(c, [](Kontext& k) {
        long boxen = 0, dvds = 0, filme = 0;
        k.app.db().anzahl(boxen, dvds, filme);
        k.zeile(formatiere("Boxen: %ld", boxen));
        k.zeile(formatiere("Dvds: %ld", dvds));
        k.zeile(formatiere("Filme: %ld", filme));
        return kFertig;
    });

    for (const bool info : {true, false}) {
        c = unterbefehl(reg, reg.wurzel(), info ? "info" : "spieldauer",
                        info ? "Zeigt den Informationstext eines Objekts"
                             : "Zeigt die Gesamtspieldauer eines Objekts",
                        a);
        pflicht(c, "typ", a->typ, "box, dvd oder film");
        pflicht(c, "id", a->id, "ID des Objekts");
        reg.handler(c, [a, info](Kontext& k) {
            int typ = 0;
            long id = 0;
            if (const int code = objektArgument(k, a->typ, a->id, typ, id)) return code;
            zeilen(k, info ? infoText(k.app.db(), typ, id) : spieldauerText(k.app.db(), typ, id));
            return kFertig;
        });
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
        std::string titel, ean, verpackung;
        if (const int code = textArgument(k, a->titel, 63, "Der Titel", titel)) return code;
        if (const int code = textArgument(k, a->ean, 15, "Die EAN", ean)) return code;
        if (const int code = textArgument(k, a->verpackung, 127, "Die Verpackung", verpackung))
            return code;
        NeueBox angelegt;
        if (!legeBoxAn(k.app, ean, titel, verpackung, angelegt))
            return k.fehler(kFehlschlag, "Die Box konnte nicht angelegt werden.");
        k.zeile(formatiere("%ld\t%ld\t%ld", angelegt.box, angelegt.dvd, angelegt.film));
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
        std::string titel, format;
        if (const int code = textArgument(k, a->titel, 63, "Der Titel", titel)) return code;
        if (const int code = textArgument(k, a->format, 127, "Das Format", format)) return code;
        Zeile9 d{};
        std::snprintf(d.cpText, sizeof d.cpText, "%s", titel.c_str());
        d.Jahr = static_cast<std::int16_t>(a->jahr);
        d.Laenge = static_cast<std::int16_t>(a->laenge);
        d.RC = static_cast<std::int8_t>(static_cast<unsigned char>(a->rc));
        if (!format.empty() && (d.Formate_Id = static_cast<std::int32_t>(
                                    lookupNachName(k.app.db(), kTypFormat, format))) <= 0)
            return k.fehler(kFehlschlag, "Das Format konnte nicht angelegt werden.");
        const long id = k.app.db().neueDvd(box, d);
        if (id <= 0) return k.fehler(kFehlschlag, "Die DVD konnte nicht angelegt werden.");
        k.zeile(std::to_string(id));
        return kFertig;
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
        std::string titel;
        if (const int code = textArgument(k, a->titel, 63, "Der Titel", titel)) return code;
        const long id = k.app.db().neuerFilm(dvd, titel, a->fsk, a->laenge, a->jahr);
        if (id <= 0) return k.fehler(kFehlschlag, "Der Film konnte nicht angelegt werden.");
        k.zeile(std::to_string(id));
        return kFertig;
    });
}

// ---- loeschen, hoch, runter, kopieren -----------------------------------------

void aendern(Register& reg) {
    std::shared_ptr<Args> a;
    CLI::App* c = unterbefehl(reg, reg.wurzel(), "loeschen",
                              "Löscht ein Objekt mit allem, was daran hängt (nach Rückfrage)", a);
    pflicht(c, "typ", a->typ, "box, dvd oder film");
    pflicht(c, "id", a->id, "ID des Objekts");
    reg.handler(c, [a](Kontext& k) {
        int typ = 0;
        long id = 0;
        if (const int code = objektArgument(k, a->typ, a->id, typ, id)) return code;
        bool abgelehnt = false;
        if (loescheMitFrage(k.app, typ, id, &abgelehnt)) return kFertig;
        return abgelehnt ? kFehlschlag
                         : k.fehler(kFehlschlag, "Das Objekt konnte nicht gelöscht werden.");
    });

    for (const bool hoch : {true, false}) {
        c = unterbefehl(
            reg, reg.wurzel(), hoch ? "hoch" : "runter",
            hoch ? "Schiebt eine DVD in ihrer Box oder einen Film auf seiner DVD nach oben"
                 : "Schiebt eine DVD in ihrer Box oder einen Film auf seiner DVD nach unten",
            a);
        pflicht(c, "typ", a->typ, "dvd oder film");
        pflicht(c, "id", a->id, "ID der DVD oder des Films");
        reg.handler(c, [a, hoch](Kontext& k) {
            int typ = 0;
            long id = 0;
            if (const int code = objektArgument(k, a->typ, a->id, typ, id)) return code;
            Datenbank& db = k.app.db();
            if (typ == kObjektBox)
                return k.fehler(kNutzung, "Nur eine DVD oder ein Film kann verschoben werden.");
            const bool dvd = typ == kObjektDvd;
            const long besitzer = dvd ? db.boxVonDvd(id) : db.dvdVonFilm(id);
            if (besitzer <= 0)
                return k.fehler(kFehlschlag, dvd ? "Die DVD gehört zu keiner Box."
                                                 : "Der Film gehört zu keiner DVD.");
            const bool ok =
                dvd ? db.verschiebeDvd(besitzer, id, hoch) : db.verschiebeFilm(besitzer, id, hoch);
            if (ok) return kFertig;
            return k.fehler(kFehlschlag,
                            formatiere("%s steht bereits an %s Stelle.",
                                       dvd ? "Die DVD" : "Der Film", hoch ? "erster" : "letzter"));
        });
    }

    c = unterbefehl(reg, reg.wurzel(), "kopieren",
                    "Kopiert eine DVD in eine Box oder einen Film auf eine DVD, als letztes Objekt",
                    a);
    pflicht(c, "typ", a->typ, "dvd oder film");
    pflicht(c, "id", a->id, "ID der DVD oder des Films");
    pflicht(c, "ziel-id", a->ziel, "ID der Ziel-Box (für eine DVD) oder Ziel-DVD (für einen Film)");
    reg.handler(c, [a](Kontext& k) {
        int typ = 0, zielTyp = 0;
        long id = 0, ziel = 0;
        if (const int code = objektArgument(k, a->typ, a->id, typ, id)) return code;
        if (typ == kObjektBox)
            return k.fehler(kNutzung, "Nur eine DVD oder ein Film kann kopiert werden.");
        const bool dvd = typ == kObjektDvd;
        if (const int code = objektArgument(k, dvd ? "box" : "dvd", a->ziel, zielTyp, ziel))
            return code;
        const long neu = dvd ? k.app.db().kopiereDvd(id, ziel) : k.app.db().kopiereFilm(id, ziel);
        if (neu <= 0) return k.fehler(kFehlschlag, "Das Kopieren ist fehlgeschlagen.");
        k.zeile(std::to_string(neu));
        return kFertig;
    });
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
