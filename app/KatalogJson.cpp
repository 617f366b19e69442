#include "app/KatalogJson.h"

#include <charconv>
#include <string_view>
#include <vector>

#include "app/CApplikation.h"
#include "base/Zeichensatz.h"
#include "domain/Beschreibung.h"
#include "domain/Durchlauf.h"
#include "interchange/ExportQuelle.h"

namespace dv {

namespace {

// Appends JSON text to one box's buffer.
class Json {
  public:
    explicit Json(std::string& s) : s_(s) {}

    Json& roh(std::string_view t) {
        s_ += t;
        return *this;
    }
    // A key with its colon; a comma first unless the object or array just began.
    Json& schluessel(const char* k) {
        trenne();
        s_ += '"';
        s_ += k;
        s_ += "\":";
        return *this;
    }
    Json& zahl(long long n) {
        char b[24];
        const auto r = std::to_chars(b, b + sizeof b, n);
        s_.append(b, r.ptr);
        return *this;
    }
    // A Windows-1252 text as a JSON string.
    Json& text(std::string_view cp1252) { return utf8(cp1252NachUtf8(std::string(cp1252))); }
    Json& utf8(std::string_view t) {
        s_ += '"';
        for (const char c : t) {
            const auto u = static_cast<unsigned char>(c);
            if (c == '"' || c == '\\') {
                s_ += '\\';
                s_ += c;
            } else if (u < 0x20) {
                steuerzeichen(u);
            } else {
                s_ += c;
            }
        }
        s_ += '"';
        return *this;
    }
    // An element of an array (a comma first unless the array just began).
    Json& element() {
        trenne();
        return *this;
    }
    Json& auf(char c) {
        s_ += c;
        return *this;
    }

  private:
    void trenne() {
        const char v = s_.empty() ? '[' : s_.back();
        if (v != '{' && v != '[') s_ += ',';
    }
    void steuerzeichen(unsigned char u) {
        static constexpr char kKurz[] = "btn\0fr";
        if (u >= 8 && u <= 13 && u != 11) {
            s_ += '\\';
            s_ += kKurz[u - 8];
            return;
        }
        static constexpr char kHex[] = "0123456789abcdef";
        s_ += "\\u00";
        s_ += kHex[u >> 4];
        s_ += kHex[u & 15];
    }
    std::string& s_;
};

void namen(Json& j, const char* k, const ObjektElement* e) {
    j.schluessel(k).auf('[');
    for (; e; e = e->pNext) j.element().text(e->pObjekt1->zeile.cpText);
    j.auf(']');
}

void texte(Json& j, const char* k, const std::vector<std::string>& t) {
    j.schluessel(k).auf('[');
    for (const std::string& x : t) j.element().text(x);
    j.auf(']');
}

void personen(Json& j, ExportQuelle& q, const PersonenElement* p) {
    j.schluessel("personen").auf('[');
    for (; p; p = p->pNext) {
        j.element().auf('{');
        j.schluessel("name").text(p->pPerson->zeile.cpName);
        j.schluessel("vorname").text(p->pPerson->zeile.cpVorname);
        j.schluessel("instanz").zahl(p->pPerson->zeile.Instanz);
        j.schluessel("funktion").text(q.lookupName(kTypFunktion, p->lFunktion));
        j.schluessel("alias").auf('[');
        for (const ListenElement* a = p->pAlias; a; a = a->pNext)
            j.element().text(static_cast<const Zeile1*>(a->pObjekt)->cpText);
        j.auf(']').auf('}');
    }
    j.auf(']');
}

void filmTeil(Json& j, ExportQuelle& q, const FilmElement& f) {
    const FilmTitel t = q.titel(f);
    j.auf('{');
    j.schluessel("id").zahl(f.Id);
    j.schluessel("titel").text(f.cpTitel);
    j.schluessel("originaltitel").text(t.original);
    j.schluessel("alternativtitel").text(t.weitere.empty() ? "" : t.weitere.front());
    j.schluessel("fsk").zahl(f.FSK);
    j.schluessel("laenge").zahl(f.Laenge);
    j.schluessel("jahr").zahl(f.Jahr);
    namen(j, "bildformate", f.pBildformate);
    namen(j, "genres", f.pGenres);
    namen(j, "untertitel", f.pUntertitel);
    j.schluessel("sprachen").auf('[');
    for (const ObjektElement* s = f.pSprachen; s; s = s->pNext) {
        j.element().auf('{');
        j.schluessel("sprache").text(s->pObjekt1->zeile.cpText);
        j.schluessel("tonformat").text(s->pObjekt2->zeile.cpText);
        j.auf('}');
    }
    j.auf(']');
    j.schluessel("funktionen").auf('[');
    for (const FktElement* x = f.pFunktionen; x; x = x->pNext) j.element().text(x->cpText);
    j.auf(']');
    personen(j, q, f.pPersonen);
    j.schluessel("inhalt").text(q.inhalt(f.Id));
    j.schluessel("kommentar").text(q.kommentar(f.Id));
    texte(j, "tags", q.tags(kObjektFilm, f.Id));
    j.auf('}');
}

void dvdTeil(Json& j, ExportQuelle& q, const DvdElement& d) {
    j.auf('{');
    j.schluessel("id").zahl(d.Id);
    j.schluessel("titel").text(d.cpText);
    j.schluessel("jahr").zahl(d.Jahr);
    j.schluessel("rc").zahl(static_cast<unsigned char>(d.RC));
    j.schluessel("opt").zahl(static_cast<unsigned char>(d.Opt));
    j.schluessel("format").text(q.lookupName(kTypFormat, d.Formate_Id));
    j.schluessel("sn").zahl(d.SN);
    j.schluessel("bytesLow").zahl(d.BytesLow);
    j.schluessel("bytesHigh").zahl(d.BytesHigh);
    j.schluessel("laenge").zahl(d.Laenge);
    namen(j, "extras", d.pExtras);
    texte(j, "tags", q.tags(kObjektDvd, d.Id));
    j.schluessel("filme").auf('[');
    for (const FilmElement* f = d.pFilme; f; f = f->pNext) filmTeil(j.element(), q, *f);
    j.auf(']').auf('}');
}

void boxTeil(Json& j, ExportQuelle& q, const BoxElement& b) {
    std::string cover = q.cover(b.Id);
    cover = cover.substr(cover.find_last_of('/') + 1);
    j.auf('{');
    j.schluessel("id").zahl(b.Id);
    j.schluessel("ean").text(b.cpEAN);
    j.schluessel("titel").text(b.cpText);
    j.schluessel("verpackung").text(q.lookupName(kTypVerpackung, b.Verpackungs_Id));
    namen(j, "extras", b.pExtras);
    texte(j, "tags", q.tags(kObjektBox, b.Id));
    // The cover name is a file name: UTF-8 already, like every path.
    j.schluessel("cover").utf8(cover);
    j.schluessel("dvds").auf('[');
    for (const DvdElement* d = b.pDvds; d; d = d->pNext) dvdTeil(j.element(), q, *d);
    j.auf(']').auf('}');
}

}  // namespace

void katalogZeilen(CApplikation& app, const std::function<void(const std::string&)>& zeile) {
    Sammlungsdurchlauf lauf(app.db(), kUmfangFilme);
    while (const BoxElement* b = lauf.naechste()) {
        zeile(formatiere("Box\t%ld\t%s\t%s", long{b->Id}, b->cpEAN, b->cpText));
        for (const DvdElement* d = b->pDvds; d; d = d->pNext) {
            zeile(formatiere("Dvd\t%ld\t%ld\t%s", long{d->Id}, long{b->Id}, d->cpText));
            for (const FilmElement* f = d->pFilme; f; f = f->pNext)
                zeile(formatiere("Film\t%ld\t%ld\t%s", long{f->Id}, long{d->Id}, f->cpTitel));
        }
    }
}

bool schreibeKatalogJson(CApplikation& app, std::FILE* aus) {
    ExportQuelle q(app.db(), app.ordner());
    q.fuerSammlung();
    Sammlungsdurchlauf lauf(app.db(), kUmfangAlles);
    bool gut = std::fputs("{\"boxen\":[", aus) >= 0;
    std::string teil;
    bool erste = true;
    while (const BoxElement* b = lauf.naechste()) {
        teil.clear();
        if (!erste) teil += ',';
        erste = false;
        // A fresh writer per box: its first key follows the brace directly.
        Json j(teil);
        boxTeil(j, q, *b);
        gut = gut && std::fwrite(teil.data(), 1, teil.size(), aus) == teil.size();
    }
    gut = gut && std::fputs("]}\n", aus) >= 0;
    return gut && std::fflush(aus) == 0;
}

}  // namespace dv
