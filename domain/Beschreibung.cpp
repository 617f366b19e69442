#include "domain/Beschreibung.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <vector>

#include "domain/Objekte.h"

namespace dv {
namespace {

constexpr const char* kZeile = "\r\n";
constexpr const char* kEintrag = "\r\n\t";  // an entry below a heading
constexpr const char* kUnterEintrag = "\r\n\t\t";

const char* nMinuten(unsigned n) {
    return n == 1 ? "" : "n";
}

unsigned minuten(std::int16_t laenge) {
    return laenge > 0 ? static_cast<unsigned>(laenge) : 0;
}

unsigned summeDvd(Datenbank& db, long dvdId) {
    unsigned summe = 0;
    auto filme = db.getFilmListe(dvdId);
    for (FilmElement* f = filme.get(); f; f = f->pNext) summe += minuten(f->Laenge);
    return summe;
}

std::string lookupName(Tabelle1& t, long id) {
    auto row = t.eine(id);
    return row ? Tabelle1::zeile(row.get()).cpText : "";
}

// "%s%s%s": each entry of an object list on its own line below the heading.
void eintraege(std::string& text, const ObjektElement* e) {
    for (; e; e = e->pNext)
        if (e->pObjekt1)
            text = formatiere("%s%s%s", text.c_str(), kEintrag, e->pObjekt1->zeile.cpText);
}

std::string infoBox(Datenbank& db, long id) {
    auto box = db.getBox(id);
    if (!box) return "";
    const BoxElement& b = *box;
    std::string t = formatiere("Information zur DVD-Box \"%s\"", b.cpText);
    t += kZeile + formatiere("Box-ID [%ld]", long{b.Id});
    t += kZeile + formatiere("EAN:\t\t[%s]", b.cpEAN);
    t += kZeile + formatiere("Verpackungstyp:\t'%s'",
                             lookupName(db.katalog().Verpackung, b.Verpackungs_Id).c_str());
    return t;
}

std::string infoDvd(Datenbank& db, long id) {
    auto dvd = db.getDvd(id);
    if (!dvd) return "";
    const DvdElement& d = *dvd;
    std::string t = formatiere("Information zur DVD \"%s\"", d.cpText);
    t += kZeile + formatiere("DVD-ID [%ld]", long{d.Id});
    t += kZeile + formatiere("Produktionsjahr:\t%d", int{d.Jahr});
    t += kZeile + formatiere("Gesamtlänge:\t%d Minuten", int{d.Laenge});
    t += kZeile + std::string("Regionalcode(s):\t") + regionalCodes(d.RC);
    t += kZeile + formatiere("Seriennummer:\t%u", d.SN);
    t += kZeile + formatiere("Bytes Low:\t%u", d.BytesLow);
    t += kZeile + formatiere("Bytes High:\t%u", d.BytesHigh);
    t += kZeile +
         formatiere("DVD-Format:\t'%s'", lookupName(db.katalog().Formate, d.Formate_Id).c_str());
    std::string extras = "DVD-Extras:";
    auto liste = db.getObjektListe(id, kTypExtras);
    eintraege(extras, liste.get());
    return t + kZeile + extras;
}

// The persons grouped by function, in the order in which the functions first appear.
std::string filmPersonen(Datenbank& db, const PersonenElement* personen) {
    std::vector<std::int32_t> funktionen;
    for (const PersonenElement* p = personen; p; p = p->pNext)
        if (std::find(funktionen.begin(), funktionen.end(), p->lFunktion) == funktionen.end())
            funktionen.push_back(p->lFunktion);
    std::string text = "Film-Personen:";
    for (std::int32_t fkt : funktionen) {
        std::string name = lookupName(db.katalog().Funktion, fkt);
        if (name.empty()) name = "<unbekannt>";
        text = formatiere("%s%s%s:", text.c_str(), kEintrag, name.c_str());
        for (const PersonenElement* p = personen; p; p = p->pNext) {
            if (p->lFunktion != fkt || !p->pPerson) continue;
            const Zeile8& z = p->pPerson->zeile;
            std::string zusatz;
            if (z.Instanz > 0) zusatz += formatiere(" (%d)", int{z.Instanz});
            for (const ListenElement* a = p->pAlias; a; a = a->pNext) {
                zusatz += a == p->pAlias ? " alias \"" : ", \"";
                zusatz += static_cast<const Zeile1*>(a->pObjekt)->cpText;
                zusatz += '"';
            }
            if (z.cpVorname[0])
                text = formatiere("%s%s%s%s%s", text.c_str(), kUnterEintrag, z.cpVorname, " ",
                                  (std::string(z.cpName) + zusatz).c_str());
            else
                text =
                    formatiere("%s%s%s%s", text.c_str(), kUnterEintrag, z.cpName, zusatz.c_str());
        }
    }
    return text;
}

std::string infoFilm(Datenbank& db, long id) {
    auto film = db.getFilm(id);
    if (!film) return "";
    FilmElement& f = *film;
    db.ladeFilm(f);
    const FilmTitel titel = db.leseFilmTitel(id);
    std::string t = formatiere("Information zum Film \"%s\"", f.cpTitel);
    t += kZeile + formatiere("Film-ID [%ld]", long{f.Id});
    t += kZeile + formatiere("Originaltitel:\t\"%s\"", titel.original.c_str());
    std::string weitere = "Weitere Titel:";
    for (const std::string& w : titel.weitere)
        weitere = formatiere("%s%s\"%s\"", weitere.c_str(), kEintrag, w.c_str());
    t += kZeile + weitere;
    t += kZeile + formatiere("Freigabealter:\t%d", int{f.FSK});
    t += kZeile + formatiere("Produktionsjahr:\t%d", int{f.Jahr});
    t += kZeile + formatiere("Gesamtlänge:\t%d Minuten", int{f.Laenge});
    std::string liste = "Bildformate:";
    eintraege(liste, f.pBildformate);
    t += kZeile + liste;
    liste = "Genre:";
    eintraege(liste, f.pGenres);
    t += kZeile + liste;
    liste = "Sprachen:";
    for (const ObjektElement* e = f.pSprachen; e; e = e->pNext)
        liste = formatiere("%s%s%s / %s", liste.c_str(), kEintrag, e->pObjekt1->zeile.cpText,
                           e->pObjekt2->zeile.cpText);
    t += kZeile + liste;
    liste = "Untertitel:";
    eintraege(liste, f.pUntertitel);
    t += kZeile + liste;
    t += kZeile + filmPersonen(db, f.pPersonen);
    std::string seite;
    db.leseInhalt(id, seite);
    t += kZeile + std::string("Inhaltsbeschreibung:") + (seite.empty() ? "" : kZeile + seite);
    db.leseKommentar(id, seite);
    t += kZeile + std::string("Kommentar:") + (seite.empty() ? "" : kZeile + seite);
    return t;
}

}  // namespace

std::string spieldauerText(int objektTyp, unsigned summe) {
    const char* satz = objektTyp == kObjektBox
                           ? "Alle Filme dieser Box haben eine Gesamtspieldauer von %u Minute%s."
                       : objektTyp == kObjektDvd
                           ? "Alle Filme dieser DVD haben eine Gesamtspieldauer von %u Minute%s."
                           : "Der Film hat eine Spieldauer von %u Minute%s.";
    std::string text = formatiere(satz, summe, nMinuten(summe));
    // Strictly more than an hour: exactly 60 minutes get no second line.
    if (summe > 60) {
        const unsigned stunden = summe / 60;
        const unsigned rest = summe % 60;
        text += formatiere("\r\n(%d Stunde%s, %d Minute%s)", static_cast<int>(stunden),
                           nMinuten(stunden), static_cast<int>(rest), nMinuten(rest));
    }
    return text;
}

std::string spieldauerText(Datenbank& db, int objektTyp, long id) {
    unsigned summe = 0;
    switch (objektTyp) {
        case kObjektBox: {
            if (!db.getBox(id)) return "";
            auto dvds = db.getDvdListe(id);
            for (DvdElement* d = dvds.get(); d; d = d->pNext) summe += summeDvd(db, d->Id);
            break;
        }
        case kObjektDvd:
            if (!db.getDvd(id)) return "";
            summe = summeDvd(db, id);
            break;
        case kObjektFilm: {
            auto film = db.getFilm(id);
            if (!film) return "";
            summe = minuten(film->Laenge);
            break;
        }
        default:
            return "";
    }
    return spieldauerText(objektTyp, summe);
}

bool zeigeSpieldauer(Datenbank& db, Benutzer& benutzer, int objektTyp, long id) {
    const std::string text = spieldauerText(db, objektTyp, id);
    if (text.empty()) return false;
    benutzer.meldung(kSpieldauerTitel, text, Symbol::Information);
    return true;
}

std::string infoText(Datenbank& db, int objektTyp, long id) {
    switch (objektTyp) {
        case kObjektBox:
            return infoBox(db, id);
        case kObjektDvd:
            return infoDvd(db, id);
        case kObjektFilm:
            return infoFilm(db, id);
        default:
            return "";
    }
}

std::string objektName(Datenbank& db, int objektTyp, long id) {
    switch (objektTyp) {
        case kObjektBox: {
            auto b = db.getBox(id);
            return b ? b->cpText : "";
        }
        case kObjektDvd: {
            auto d = db.getDvd(id);
            return d ? d->cpText : "";
        }
        case kObjektFilm: {
            auto f = db.getFilm(id);
            return f ? f->cpTitel : "";
        }
        default:
            return "";
    }
}

std::string loeschFrage(Datenbank& db, int objektTyp, long id) {
    const char* format = objektTyp == kObjektBox   ? "Box \"%s\" löschen?"
                         : objektTyp == kObjektDvd ? "Dvd \"%s\" löschen?"
                                                   : "Film \"%s\" löschen?";
    return formatiere(format, objektName(db, objektTyp, id).c_str());
}

std::string regionalCodes(int rc) {
    std::string text;
    for (int region = 1; region <= 8; ++region) {
        if (!(static_cast<unsigned>(rc) & (1u << (region - 1)))) continue;
        if (!text.empty()) text += ", ";
        text += static_cast<char>('0' + region);
    }
    return text.empty() ? "keiner" : text;
}

std::string formatiere(const char* f, ...) {
    va_list a;
    va_start(a, f);
    va_list b;
    va_copy(b, a);
    const int n = std::vsnprintf(nullptr, 0, f, a);
    va_end(a);
    std::string s(n > 0 ? static_cast<std::size_t>(n) : 0, '\0');
    if (n > 0) std::vsnprintf(s.data(), s.size() + 1, f, b);
    va_end(b);
    return s;
}

void haengeGrundAn(std::string& gruende, const std::string& g) {
    gruende += g;
}

}  // namespace dv
