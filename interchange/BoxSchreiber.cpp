#include "interchange/BoxSchreiber.h"

#include <sys/utsname.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/Hilfen.h"
#include "base/Zeichensatz.h"
#include "interchange/BoxFormat.h"
#include "interchange/BoxLeser.h"
#include "platform/Zeit.h"

namespace dv {
namespace {

using namespace box;

void text(std::string& out, std::uint8_t token, std::string_view v) {
    if (!v.empty()) v = v.substr(0, ::strnlen(v.data(), std::min(v.size(), kTextMax)));
    out += static_cast<char>(token);
    out += static_cast<char>(v.size());
    out.append(v);
}

void lang(std::string& out, std::uint8_t token, std::string_view v) {
    if (v.size() > kLangMax) v = v.substr(0, kLangMax);
    out += static_cast<char>(token);
    out += static_cast<char>(v.size() & 0xFF);
    out += static_cast<char>(v.size() >> 8);
    out.append(v);
}

void zahl(std::string& out, std::uint8_t token, std::uint32_t v, int breite) {
    out += static_cast<char>(token);
    out += static_cast<char>(breite);
    for (int i = 0; i < breite; ++i) out += static_cast<char>(v >> (8 * i));
}

std::string verbunden(const std::vector<std::string>& tags) {
    std::string t;
    for (const std::string& s : tags) {
        if (!t.empty()) t += '\n';
        t += s;
    }
    return t;
}

const char* name(const ObjektElement& e) {
    return e.pObjekt1 ? e.pObjekt1->zeile.cpText : "";
}
const char* name2(const ObjektElement& e) {
    return e.pObjekt2 ? e.pObjekt2->zeile.cpText : "";
}

// A film's numbered list: entries by first appearance, one per non-zero id.
struct Nummern {
    std::vector<long> ids;
    std::vector<std::string> namen;
    long nimm(long id, const std::string& n) {
        if (long p = finde(id); p > 0) return p;
        ids.push_back(id);
        namen.push_back(n);
        return static_cast<long>(ids.size());
    }
    long finde(long id) const {
        if (id == 0) return -1;
        for (std::size_t i = 0; i < ids.size(); ++i)
            if (ids[i] == id) return static_cast<long>(i + 1);
        return -1;
    }
};

// Replaces the bytes by their packed block; false (bytes untouched) when zlib fails.
bool packe(std::string& bytes) {
    std::string gepackt;
    if (!packeBlock(bytes, gepackt)) return false;
    bytes.swap(gepackt);
    return true;
}

std::string paar(long a, long b) {
    char puffer[48];
    std::snprintf(puffer, sizeof puffer, "%ld#%ld", a, b);
    return puffer;
}

}  // namespace

Betriebssystem betriebssystem() {
    Betriebssystem b;
    struct utsname u {};
    if (::uname(&u) != 0) return b;
    // "6.1.0-18-amd64": the first three numbers are major, minor and build.
    unsigned long teile[3] = {0, 0, 0};
    const char* p = u.release;
    for (int i = 0; i < 3 && *p >= '0' && *p <= '9'; ++i) {
        char* ende = nullptr;
        teile[i] = std::strtoul(p, &ende, 10);
        p = ende;
        if (*p != '.') break;
        ++p;
    }
    b.plattform = 16;
    b.haupt = static_cast<std::uint32_t>(teile[0]);
    b.neben = static_cast<std::uint32_t>(teile[1]);
    b.build = static_cast<std::uint32_t>(teile[2]);
    return b;
}

std::string BoxSchreiber::zielPfad(const BoxElement& box, const std::string& ordner,
                                   const std::string& dateiName) {
    if (!dateiName.empty()) return ordner + dateiName;
    std::string ean = box.cpEAN;
    bereinigeDateiname(ean);
    for (char& c : ean)
        if (static_cast<unsigned char>(c) < 0x20) c = '_';
    return ordner + cp1252NachUtf8(ean) + ".box";
}

std::string BoxSchreiber::lookupText(int lookupTyp, int filterTyp, long id) {
    return uebersetzterName(filter_, filterTyp, id, quelle_.lookupName(lookupTyp, id));
}

void BoxSchreiber::liste(std::string& out, std::uint8_t token, const ObjektElement* e,
                         int filterTyp) {
    for (; e; e = e->pNext) text(out, token, uebersetzterName(filter_, filterTyp, e->Id, name(*e)));
}

void BoxSchreiber::tagEintrag(std::string& out, std::uint8_t token, int objektTyp, long id) {
    if (optionen.tags) lang(out, token, verbunden(quelle_.tags(objektTyp, id)));
}

void BoxSchreiber::filmEintraege(const FilmElement& f, std::string& out) {
    const FilmTitel titel = quelle_.titel(f);
    zahl(out, IMP_EXP_FILM, 0, 1);
    text(out, IMP_EXP_FILM_TITEL, titel.haupt);
    text(out, IMP_EXP_FILM_ORIG_TITEL, titel.original);
    if (titel.weitere.empty()) text(out, IMP_EXP_FILM_ALTERNATIV_TITEL, "");
    for (const std::string& w : titel.weitere) text(out, IMP_EXP_FILM_ALTERNATIV_TITEL, w);
    zahl(out, IMP_EXP_FILM_FSK, static_cast<std::uint8_t>(f.FSK), 1);
    zahl(out, IMP_EXP_FILM_JAHR, static_cast<std::uint16_t>(f.Jahr), 2);
    zahl(out, IMP_EXP_FILM_LEN, static_cast<std::uint16_t>(f.Laenge), 2);
    liste(out, IMP_EXP_FILM_BILDFORMAT, f.pBildformate, kFilterBildformate);
    liste(out, IMP_EXP_FILM_GENRE, f.pGenres, kFilterGenre);
    liste(out, IMP_EXP_FILM_UNTERTITEL, f.pUntertitel, kFilterSprachen);

    Nummern sprachen, tonformate, funktionen, personen;
    std::vector<std::string> sprachPaare, personPaare, aliase;
    for (const ObjektElement* e = f.pSprachen; e; e = e->pNext) {
        const long s =
            sprachen.nimm(e->Id, uebersetzterName(filter_, kFilterSprachen, e->Id, name(*e)));
        const long t = e->pObjekt2
                           ? tonformate.nimm(e->Id2, uebersetzterName(filter_, kFilterTonformate,
                                                                      e->Id2, name2(*e)))
                           : -1;
        sprachPaare.push_back(paar(s, t));
    }
    for (const FktElement* k = f.pFunktionen; k; k = k->pNext)
        funktionen.nimm(k->Id, uebersetzterName(filter_, kFilterFunktionen, k->Id, k->cpText));
    for (const PersonenElement* p = f.pPersonen; p; p = p->pNext) {
        if (!p->pPerson) continue;
        const Zeile8& z = p->pPerson->zeile;
        char eintrag[160];
        std::snprintf(eintrag, sizeof eintrag, "%s%c%s%c%d", z.cpName, 9, z.cpVorname, 9,
                      static_cast<int>(z.Instanz));
        const long pos = personen.nimm(z.Id, eintrag);
        const std::string& fname = quelle_.lookupName(kTypFunktion, p->lFunktion);
        const long fpos =
            fname.empty()
                ? -1
                : funktionen.nimm(p->lFunktion, uebersetzterName(filter_, kFilterFunktionen,
                                                                 p->lFunktion, fname));
        personPaare.push_back(paar(pos, fpos));
        for (const ListenElement* a = p->pAlias; a; a = a->pNext) {
            const auto* row = static_cast<const Zeile1*>(a->pObjekt);
            if (!row || row->cpText[0] == '\0') continue;
            const std::string alias = std::to_string(pos) + '\t' + row->cpText;
            if (std::find(aliase.begin(), aliase.end(), alias) == aliase.end())
                aliase.push_back(alias);
        }
    }
    for (const std::string& n : sprachen.namen) text(out, IMP_EXP_FILM_SPRACHE, n);
    for (const std::string& n : tonformate.namen) text(out, IMP_EXP_FILM_TONFORMAT, n);
    for (const std::string& n : sprachPaare) text(out, IMP_EXP_FILM_SPRACHEN_TONFORMAT, n);
    for (const std::string& n : funktionen.namen) text(out, IMP_EXP_FILM_FUNKTION, n);
    for (const std::string& n : personen.namen) text(out, IMP_EXP_FILM_PERSON, n);
    for (const std::string& n : personPaare) text(out, IMP_EXP_FILM_PERSON_FUNKTION, n);
    for (const std::string& n : aliase) text(out, IMP_EXP_FILM_PERSON_ALIAS, n);
    lang(out, IMP_EXP_FILM_INHALT, quelle_.inhalt(f.Id));
    lang(out, IMP_EXP_FILM_KOMMENTAR, quelle_.kommentar(f.Id));
    tagEintrag(out, IMP_EXP_FILM_TAGS, kObjektFilm, f.Id);
}

void BoxSchreiber::dvdEintraege(const DvdElement& d, std::string& out) {
    std::size_t filme = 0;
    for (const FilmElement* f = d.pFilme; f; f = f->pNext) ++filme;
    zahl(out, IMP_EXP_DVD, static_cast<std::uint32_t>(std::min<std::size_t>(filme, 0xFFFF)), 2);
    text(out, IMP_EXP_DVD_TITEL, d.cpText);
    zahl(out, IMP_EXP_DVD_RC, static_cast<std::uint8_t>(d.RC), 1);
    zahl(out, IMP_EXP_DVD_OPT, static_cast<std::uint8_t>(d.Opt), 1);
    zahl(out, IMP_EXP_DVD_SN, d.SN, 4);
    zahl(out, IMP_EXP_DVD_LOW, d.BytesLow, 4);
    zahl(out, IMP_EXP_DVD_HIGH, d.BytesHigh, 4);
    zahl(out, IMP_EXP_DVD_JAHR, static_cast<std::uint16_t>(d.Jahr), 2);
    text(out, IMP_EXP_DVD_FORMAT, lookupText(kTypFormat, kFilterDvdFormate, d.Formate_Id));
    liste(out, IMP_EXP_DVD_EXTRAS, d.pExtras, kFilterExtras);
    tagEintrag(out, IMP_EXP_DVD_TAGS, kObjektDvd, d.Id);
    for (const FilmElement* f = d.pFilme; f; f = f->pNext) filmEintraege(*f, out);
}

std::string BoxSchreiber::datenBlock(const BoxElement& b) {
    std::string out;
    out.reserve(4096);
    std::size_t dvds = 0;
    for (const DvdElement* d = b.pDvds; d; d = d->pNext) ++dvds;
    zahl(out, IMP_EXP_BOX, static_cast<std::uint32_t>(std::min<std::size_t>(dvds, 0xFFFF)), 2);
    text(out, IMP_EXP_BOX_TITEL, b.cpText);
    text(out, IMP_EXP_BOX_EAN, b.cpEAN);
    text(out, IMP_EXP_BOX_VERP, lookupText(kTypVerpackung, kFilterVerpackung, b.Verpackungs_Id));
    liste(out, IMP_EXP_BOX_EXTRAS, b.pExtras, kFilterExtras);
    tagEintrag(out, IMP_EXP_BOX_TAGS, kObjektBox, b.Id);
    for (const DvdElement* d = b.pDvds; d; d = d->pNext) dvdEintraege(*d, out);
    zahl(out, IMP_EXP_ENDE_TOKEN, 0, 1);
    return out;
}

bool BoxSchreiber::baue(const BoxElement& b, std::string& datei) {
    const std::string cover = quelle_.cover(b.Id);
    int bildTyp = kBildBmp;
    if (!cover.empty()) {
        bildTyp = bildTypVonEndung(dateiEndung(cover));
        if (bildTyp == -2) return false;
        if (bildTyp < 0) bildTyp = kBildBmp;
    }
    Kopf k;
    k.versionHoch = kVersionHoch;
    k.versionNiedrig = kVersionNiedrig;
    const Betriebssystem os = betriebssystem();
    k.plattform = os.plattform;
    k.osHaupt = os.haupt;
    k.osNeben = os.neben;
    k.osBuild = os.build;
    const LokaleZeit t = jetzt();
    char puffer[32];
    std::snprintf(puffer, sizeof puffer, "%04d%02d%02d", t.jahr % 10000, t.monat % 100,
                  t.tag % 100);
    std::memcpy(k.datum, puffer, sizeof k.datum);
    std::snprintf(puffer, sizeof puffer, "%02d%02d%02d", t.stunde % 100, t.minute % 100,
                  t.sekunde % 100);
    std::memcpy(k.zeit, puffer, sizeof k.zeit);
    k.flags = static_cast<std::uint8_t>(bildTyp);

    // A cover that cannot be read leaves the picture empty; its type stays.
    std::string bild;
    if (!cover.empty() && !leseAlles(quelle_.db().fs(), cover, bild)) bild.clear();
    if (!bild.empty() && optionen.bildPacken && packe(bild)) k.flags |= kBildGepackt;
    std::string daten = datenBlock(b);
    if (optionen.datenPacken && packe(daten)) k.flags |= kDatenGepackt;
    k.bildOffset = kBildOffset;
    k.datenOffset = static_cast<std::uint32_t>(kKopfGroesse + bild.size());
    datei.assign(kKopfGroesse, '\0');
    packeKopf(k, reinterpret_cast<unsigned char*>(datei.data()));
    datei += bild;
    datei += daten;
    return true;
}

bool BoxSchreiber::schreibe(const BoxElement& b, const std::string& ordner,
                            const std::string& dateiName) {
    std::string datei;
    if (!baue(b, datei)) return false;
    return schreibeSicher(quelle_.db().fs(), zielPfad(b, ordner, dateiName), datei);
}

}  // namespace dv
