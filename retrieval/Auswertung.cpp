#include "retrieval/Auswertung.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "retrieval/Suche.h"
#include "retrieval/Textformat.h"
#include "storage/Muster.h"

namespace dv::auswertung {

namespace {

std::string format(const char* f, ...) __attribute__((format(printf, 1, 2)));
std::string format(const char* f, ...) {
    char puffer[1200];
    va_list args;
    va_start(args, f);
    const int n = std::vsnprintf(puffer, sizeof puffer, f, args);
    va_end(args);
    if (n < 0) return std::string();
    return std::string(puffer,
                       std::min<std::size_t>(static_cast<std::size_t>(n), sizeof puffer - 1));
}

// The names of a lookup table by id ("" where no row lives).
std::vector<std::string> namenVon(Tabelle1& tab) {
    std::vector<std::string> namen;
    tab.scanne([&](const Zeile1& z) {
        if (z.Id >= static_cast<std::int32_t>(namen.size())) namen.resize(z.Id + 1);
        namen[z.Id] = z.cpText;
    });
    return namen;
}

// The regions of the region code mask: bit 0 is region 1, "1,2" and so on.
std::string regionen(std::int8_t rc) {
    const auto maske = static_cast<std::uint8_t>(rc);
    std::string text;
    for (int i = 0; i < 8; ++i) {
        if (!(maske & (1u << i))) continue;
        if (!text.empty()) text += ',';
        text += static_cast<char>('1' + i);
    }
    return text;
}

// "Vorname Name", or the name alone.
std::string vollerName(const Zeile8& p) {
    if (p.cpVorname[0] == '\0') return p.cpName;
    return std::string(p.cpVorname) + ' ' + p.cpName;
}

const char* lookupName(const ObjektElement* e) {
    return e->pObjekt1 ? e->pObjekt1->zeile.cpText : "";
}
const char* tonName(const ObjektElement* e) {
    return e->pObjekt2 ? e->pObjekt2->zeile.cpText : "";
}

bool istPaar(int a, int b) {
    const bool spracheA = a == kFilmSprache || a == kFilmTonformat;
    const bool spracheB = b == kFilmSprache || b == kFilmTonformat;
    const bool personA = a == kFilmPerson || a == kFilmFunktion;
    const bool personB = b == kFilmPerson || b == kFilmFunktion;
    return (spracheA && spracheB) || (personA && personB);
}

}  // namespace

void fuegeGrundAn(std::string& grund, std::string_view stueck) {
    if (grund.find(stueck) != std::string::npos) return;
    if (grund.size() + stueck.size() + 1 > kGrundMax) return;
    grund.append(stueck);
    grund += ' ';
}

Auswerter::Auswerter(Datenbank& db, const KriterienListe& kriterien, bool grossKlein) : db_(db) {
    const SearchCriterion* erste = kriterien.kopf();
    if (!erste) return;
    typ_ = erste->objectType;
    std::vector<const SearchCriterion*> zeilen;
    for (const SearchCriterion* k = erste; k; k = k->next) zeilen.push_back(k);
    bool verpackung = false, format_ = false, funktion = false;
    for (std::size_t i = 0; i < zeilen.size(); ++i) {
        const SearchCriterion& k = *zeilen[i];
        Bedingung b;
        b.krit = k.criterion;
        b.op = k.op;
        b.comb = k.combination;
        b.text = istTextKriterium(typ_, k.criterion);
        b.muster = Suchmuster(ohneRandLeer(k.data), grossKlein);
        b.zahl = alsZahlLang(k.data);
        // A pair is tested on one entry only when both rows look at the same list.
        if (typ_ == 3 && k.combination == kVerknuepfungPaar && i > 0 &&
            k.partner == zeilen[i - 1] && istPaar(zeilen[i - 1]->criterion, k.criterion)) {
            b.paar = static_cast<int>(i - 1);
            zeilen_[i - 1].paar = static_cast<int>(i);
        }
        verpackung = verpackung || (typ_ == 1 && b.krit == 3);
        format_ = format_ || (typ_ == 2 && b.krit == 4);
        funktion = funktion || (typ_ == 3 && (b.krit == kFilmPerson || b.krit == kFilmFunktion));
        zeilen_.push_back(std::move(b));
    }
    paarErgebnis_.assign(zeilen_.size(), 0);
    if (verpackung) verpackungen_ = namenVon(db.katalog().Verpackung);
    if (format_) formate_ = namenVon(db.katalog().Formate);
    if (funktion) funktionen_ = namenVon(db.katalog().Funktion);
}

unsigned Auswerter::umfang() const {
    unsigned u = typ_ == kObjektDvd ? kUmfangDvds : typ_ == kObjektFilm ? kUmfangFilme : 0;
    for (const Bedingung& b : zeilen_) {
        if (typ_ == kObjektBox && b.krit == 4) u |= kUmfangBoxExtras;
        if (typ_ == kObjektDvd && b.krit == 8) u |= kUmfangDvdExtras;
        if (typ_ != kObjektFilm) continue;
        switch (b.krit) {
            case 5:
                u |= kUmfangBildformate;
                break;
            case 6:
                u |= kUmfangGenres;
                break;
            case kFilmSprache:
            case kFilmTonformat:
                u |= kUmfangSprachen;
                break;
            case 9:
                u |= kUmfangUntertitel;
                break;
            case kFilmPerson:
            case kFilmFunktion:
                u |= kUmfangPersonen | kUmfangFunktionen;
                break;
            case 14:
                u |= kUmfangPersonen;
                break;
            default:
                break;
        }
    }
    return u;
}

std::string_view Auswerter::name(const std::vector<std::string>& namen, long id) const {
    if (id <= 0 || id >= static_cast<long>(namen.size())) return {};
    return namen[static_cast<std::size_t>(id)];
}

bool Auswerter::passt(const Bedingung& b, std::string_view wert) const {
    return b.muster.passt(wert);
}

bool Auswerter::textWert(const Bedingung& b, bool treffer) const {
    if (b.op == kOpGleich) return treffer;
    if (b.op == kOpUngleich) return !treffer;
    return true;
}

bool Auswerter::zahlWert(const Bedingung& b, long long wert) {
    const bool gleich = wert == b.zahl;
    const bool groesser = wert > b.zahl;
    switch (b.op) {
        case kOpGleich:
            return gleich;
        case kOpUngleich:
            return !gleich;
        case kOpGroesser:
            return groesser;
        case kOpGroesserGleich:
            return gleich || groesser;
        case kOpKleiner:
            return !gleich && !groesser;
        case kOpKleinerGleich:
            return gleich || !groesser;
        default:
            return true;
    }
}

// The running result starts true; every row is evaluated, and its value is
// joined with AND ("<=>", "UND") or OR ("ODER") in row order.
template <class F>
bool Auswerter::falte(std::string& grund, F&& wert) {
    grund.clear();
    bool lauf = true;
    for (std::size_t i = 0; i < zeilen_.size(); ++i) {
        const bool w = wert(i);
        lauf = zeilen_[i].comb == kVerknuepfungOder ? (lauf || w) : (lauf && w);
    }
    return lauf;
}

bool Auswerter::box(const BoxElement& b, std::string& grund) {
    return falte(grund, [&](std::size_t i) { return boxWert(zeilen_[i], b, grund); });
}

bool Auswerter::dvd(const DvdElement& d, std::string& grund) {
    return falte(grund, [&](std::size_t i) { return dvdWert(zeilen_[i], d, grund); });
}

bool Auswerter::film(const FilmElement& f, std::string& grund) {
    return falte(grund, [&](std::size_t i) {
        const Bedingung& b = zeilen_[i];
        if (b.paar < 0) return filmWert(b, f, grund);
        if (b.paar < static_cast<int>(i))
            return paarErgebnis_[static_cast<std::size_t>(b.paar)] != 0;
        const bool w = paarWert(b, zeilen_[static_cast<std::size_t>(b.paar)], f, grund);
        paarErgebnis_[i] = w ? 1 : 0;
        return w;
    });
}

namespace {

// Adds the formatted reason when the value is true; returns the value.
template <class... A>
bool mitGrund(bool wert, std::string& grund, const char* f, A... a) {
    if (wert) fuegeGrundAn(grund, format(f, a...));
    return wert;
}

// Names and lookup ids of list entries (function objects, so each use is inlined).
constexpr auto objektName = [](const ObjektElement& e) -> std::string_view {
    return lookupName(&e);
};
constexpr auto tonformatName = [](const ObjektElement& e) -> std::string_view {
    return tonName(&e);
};
constexpr auto funktionsName = [](const FktElement& e) -> std::string_view { return e.cpText; };
constexpr auto objektId = [](const ObjektElement& e) { return e.Id; };
constexpr auto tonformatId = [](const ObjektElement& e) { return e.Id2; };
constexpr auto funktionsId = [](const FktElement& e) { return e.Id; };

}  // namespace

template <class E, class Name, class Id>
bool Auswerter::passtEintrag(const Bedingung& b, const E& e, Name nameVon, Id idVon, bool trimmen) {
    const std::int32_t id = idVon(e);
    constexpr std::int32_t kMerkerMax = 1 << 20;
    auto pruefe = [&] {
        const std::string_view n = nameVon(e);
        return passt(b, trimmen ? ohneEndLeer(n) : n);
    };
    if (id <= 0 || id >= kMerkerMax) return pruefe();
    if (static_cast<std::size_t>(id) >= b.merker.size()) b.merker.resize(id + 1, -1);
    signed char& m = b.merker[static_cast<std::size_t>(id)];
    if (m < 0) m = pruefe() ? 1 : 0;
    return m == 1;
}

// An entry list is true when any entry matches (before the operator); the reason
// names the matching entry, else the list's first one.
template <class E, class Name, class Id>
bool Auswerter::listenWert(const Bedingung& b, const E* kopf, Name nameVon, Id idVon, const char* f,
                           std::string& g, bool trimmen) {
    const E* treffer = nullptr;
    for (const E* e = kopf; e && !treffer; e = e->pNext)
        if (passtEintrag(b, *e, nameVon, idVon, trimmen)) treffer = e;
    const E* zeigen = treffer ? treffer : kopf;
    if (!textWert(b, treffer != nullptr)) return false;
    const std::string wert = zeigen ? std::string(nameVon(*zeigen)) : std::string();
    return mitGrund(true, g, f, wert.c_str());
}

bool Auswerter::boxWert(const Bedingung& b, const BoxElement& x, std::string& g) {
    std::string_view wert;
    const char* f = nullptr;
    switch (b.krit) {
        case 1:
            wert = x.cpText;
            f = "Bezeichnung: <%.*s>";
            break;
        case 2:
            wert = x.cpEAN;
            f = "EAN: <%.*s>";
            break;
        case 3:
            wert = name(verpackungen_, x.Verpackungs_Id);
            f = "Verpackung: <%.*s>";
            break;
        case 4:
            return listenWert(b, x.pExtras, objektName, objektId, "Extra: <%s>", g, true);
        default:
            return zahlWert(b, 0);
    }
    wert = ohneEndLeer(wert);
    return mitGrund(textWert(b, passt(b, wert)), g, f, static_cast<int>(wert.size()), wert.data());
}

bool Auswerter::dvdWert(const Bedingung& b, const DvdElement& x, std::string& g) {
    switch (b.krit) {
        case 1:
            return mitGrund(textWert(b, passt(b, x.cpText)), g, "Bezeichnung: <%s>", x.cpText);
        case 2:
            return mitGrund(zahlWert(b, x.Jahr), g, "Jahr: <%d>", static_cast<int>(x.Jahr));
        case 3: {
            const int rc = static_cast<std::uint8_t>(x.RC);
            return mitGrund(zahlWert(b, rc), g, "RC: %s <%d>", regionen(x.RC).c_str(), rc);
        }
        case 4: {
            const std::string_view n = name(formate_, x.Formate_Id);
            return mitGrund(textWert(b, passt(b, n)), g, "Format: <%.*s>",
                            static_cast<int>(n.size()), n.data());
        }
        case 5:
            return mitGrund(zahlWert(b, x.SN), g, "SN: <%u>", x.SN);
        case 6:
            return mitGrund(zahlWert(b, x.BytesLow), g, "Low: <%u>", x.BytesLow);
        case 7:
            return mitGrund(zahlWert(b, x.BytesHigh), g, "High: <%u>", x.BytesHigh);
        case 8:
            return listenWert(b, x.pExtras, objektName, objektId, "Extras: <%s>", g);
        default:
            return zahlWert(b, 0);
    }
}

bool Auswerter::filmWert(const Bedingung& b, const FilmElement& x, std::string& g) {
    switch (b.krit) {
        case 1:
            return mitGrund(textWert(b, passt(b, x.cpTitel)), g, "Titel: <%s>", x.cpTitel);
        case 2:
            return mitGrund(zahlWert(b, x.FSK), g, "FSK: <%d>", static_cast<int>(x.FSK));
        case 3:
            return mitGrund(zahlWert(b, x.Laenge), g, "Laenge: <%d>", static_cast<int>(x.Laenge));
        case 4:
            return mitGrund(zahlWert(b, x.Jahr), g, "Jahr: <%d>", static_cast<int>(x.Jahr));
        case 12:
            return seitenText(b, x.Id, true, g);
        case 13:
            return seitenText(b, x.Id, false, g);
        case 14: {
            // Ordered on purpose: each alias is read as a number.
            for (const PersonenElement* p = x.pPersonen; p; p = p->pNext)
                for (const ListenElement* a = p->pAlias; a; a = a->pNext) {
                    const auto* z = static_cast<const Zeile1*>(a->pObjekt);
                    if (z && zahlWert(b, alsZahlLang(z->cpText)))
                        return mitGrund(true, g, "Alias: <%s>", z->cpText);
                }
            return false;
        }
        default:
            if (b.krit >= 5 && b.krit <= 11) return filmListe(b, x, g);
            return zahlWert(b, 0);
    }
}

// The entry lists of a film.
bool Auswerter::filmListe(const Bedingung& b, const FilmElement& x, std::string& g) {
    switch (b.krit) {
        case 5:
            return listenWert(b, x.pBildformate, objektName, objektId, "Bildformat: <%s>", g);
        case 6:
            return listenWert(b, x.pGenres, objektName, objektId, "Genre: <%s>", g);
        case 7:
            return listenWert(b, x.pSprachen, objektName, objektId, "Sprache: <%s>", g);
        case 8:
            return listenWert(b, x.pSprachen, tonformatName, tonformatId, "Tonformat: <%s>", g);
        case 9:
            return listenWert(b, x.pUntertitel, objektName, objektId, "Untertitel: <%s>", g);
        case 11:
            return listenWert(b, x.pFunktionen, funktionsName, funktionsId, "Funktion: <%s>", g);
        default:
            break;
    }
    const PersonenElement* treffer = nullptr;
    for (const PersonenElement* p = x.pPersonen; p && !treffer; p = p->pNext)
        if (personWert(b, *p)) treffer = p;
    const PersonenElement* z = treffer ? treffer : x.pPersonen;
    const std::string zeigen = z && z->pPerson ? vollerName(z->pPerson->zeile) : std::string();
    return mitGrund(textWert(b, treffer != nullptr), g, "Person: <%s>", zeigen.c_str());
}

bool Auswerter::personWert(const Bedingung& b, const PersonenElement& p) {
    if (!p.pPerson) return false;
    const Zeile8& z = p.pPerson->zeile;
    return passt(b, z.cpName) || (z.cpVorname[0] != '\0' && passt(b, vollerName(z)));
}

// Both rows of a pair hold on one and the same entry: a language entry with its
// sound format, or a person link with its function.
bool Auswerter::paarWert(const Bedingung& a, const Bedingung& b, const FilmElement& x,
                         std::string& g) {
    auto sprache = [&](const Bedingung& c, const ObjektElement& e) {
        const bool treffer = c.krit == kFilmSprache
                                 ? passtEintrag(c, e, objektName, objektId, false)
                                 : passtEintrag(c, e, tonformatName, tonformatId, false);
        return textWert(c, treffer);
    };
    auto person = [&](const Bedingung& c, const PersonenElement& p) {
        if (c.krit == kFilmPerson) return textWert(c, personWert(c, p));
        return textWert(c, passt(c, name(funktionen_, p.lFunktion)));
    };
    if (a.krit == kFilmSprache || a.krit == kFilmTonformat) {
        for (const ObjektElement* e = x.pSprachen; e; e = e->pNext)
            if (sprache(a, *e) && sprache(b, *e))
                return mitGrund(true, g, "Sprache: <%s> <=> Tonformat: <%s>", lookupName(e),
                                tonName(e));
        return false;
    }
    for (const PersonenElement* p = x.pPersonen; p; p = p->pNext) {
        if (!person(a, *p) || !person(b, *p)) continue;
        const std::string_view fkt = name(funktionen_, p->lFunktion);
        return mitGrund(true, g, "Person: <%s> <=> Funktion: <%.*s>",
                        p->pPerson ? vollerName(p->pPerson->zeile).c_str() : "",
                        static_cast<int>(fkt.size()), fkt.data());
    }
    return false;
}

bool Auswerter::seitenText(const Bedingung& b, long filmId, bool inhalt, std::string& g) {
    puffer_.clear();
    if (inhalt)
        db_.leseInhalt(filmId, puffer_);
    else
        db_.leseKommentar(filmId, puffer_);
    if (!textWert(b, passt(b, puffer_))) return false;
    // The whole text is the value; a text too long for the reason drops the piece
    // (checked first, so a long text is not copied for nothing).
    const std::string_view label = inhalt ? "Inhalt: <" : "Kommentar: <";
    if (label.size() + puffer_.size() + 2 > kGrundMax) return true;
    std::string stueck(label);
    stueck += puffer_;
    stueck += '>';
    fuegeGrundAn(g, stueck);
    return true;
}

}  // namespace dv::auswertung
