#include "retrieval/Suchkriterien.h"

#include <iterator>
#include <utility>

namespace dv {

namespace {

const char* const kBoxKriterien[] = {"Bezeichnung", "EAN", "Verpackung", "Extras"};
const char* const kDvdKriterien[] = {"Bezeichnung",  "Jahr",        "Regionalcode", "Format",
                                     "Seriennummer", "Bytes (Low)", "Bytes (High)", "Extras"};
const char* const kFilmKriterien[] = {
    "Titel",     "FSK",        "Länge",  "Jahr",     "Bildformat", "Genre",     "Sprache",
    "Tonformat", "Untertitel", "Person", "Funktion", "Inhalt",     "Kommentar", "Alias"};
const char* const kOperatoren[] = {"=", "!=", ">", ">=", "<", "<="};
const char* const kVerknuepfungen[] = {"<=>", "UND", "ODER"};
const char* const kObjekte[] = {"Box", "Dvd", "Film"};

template <std::size_t N>
const char* ausTabelle(const char* const (&tabelle)[N], int code) {
    return code >= 1 && code <= static_cast<int>(N) ? tabelle[code - 1] : nullptr;
}

bool gleichOhneFall(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'A' && x <= 'Z') x = static_cast<char>(x + 32);
        if (y >= 'A' && y <= 'Z') y = static_cast<char>(y + 32);
        if (x != y) return false;
    }
    return true;
}

bool paarbar(int criterion) {
    return criterion == kFilmSprache || criterion == kFilmTonformat || criterion == kFilmPerson ||
           criterion == kFilmFunktion;
}

}  // namespace

KriterienListe::KriterienListe(KriterienListe&& o) noexcept
    : kopf_(std::exchange(o.kopf_, nullptr)),
      letzter_(std::exchange(o.letzter_, nullptr)),
      anzahl_(std::exchange(o.anzahl_, 0)) {}

KriterienListe& KriterienListe::operator=(KriterienListe&& o) noexcept {
    if (this != &o) {
        leere();
        kopf_ = std::exchange(o.kopf_, nullptr);
        letzter_ = std::exchange(o.letzter_, nullptr);
        anzahl_ = std::exchange(o.anzahl_, 0);
    }
    return *this;
}

SearchCriterion* KriterienListe::haengeAn(int objectType, int criterion, int op, int combination,
                                          std::string data) {
    auto* k = new SearchCriterion;
    k->objectType = objectType;
    k->criterion = criterion;
    k->op = op;
    k->combination = combination;
    k->data = std::move(data);
    if (letzter_)
        letzter_->next = k;
    else
        kopf_ = k;
    letzter_ = k;
    ++anzahl_;
    return k;
}

void KriterienListe::leere() {
    while (kopf_) {
        SearchCriterion* n = kopf_->next;
        delete kopf_;
        kopf_ = n;
    }
    letzter_ = nullptr;
    anzahl_ = 0;
}

const char* operatorName(int op) {
    const char* n = ausTabelle(kOperatoren, op);
    return n ? n : "?";
}

const char* verknuepfungsName(int combination) {
    const char* n = ausTabelle(kVerknuepfungen, combination);
    return n ? n : "";
}

const char* kriteriumsName(int objectType, int criterion) {
    const char* n = nullptr;
    switch (objectType) {
        case 1:
            n = ausTabelle(kBoxKriterien, criterion);
            break;
        case 2:
            n = ausTabelle(kDvdKriterien, criterion);
            break;
        case 3:
            n = ausTabelle(kFilmKriterien, criterion);
            break;
        default:
            break;
    }
    return n ? n : "";
}

int kriterienAnzahl(int objectType) {
    switch (objectType) {
        case 1:
            return static_cast<int>(std::size(kBoxKriterien));
        case 2:
            return static_cast<int>(std::size(kDvdKriterien));
        case 3:
            return static_cast<int>(std::size(kFilmKriterien));
        default:
            return 0;
    }
}

bool istTextKriterium(int objectType, int criterion) {
    switch (objectType) {
        case 1:
            return criterion >= 1 && criterion <= 4;
        case 2:
            return criterion == 1 || criterion == 4 || criterion == 8;
        case 3:
            return criterion == 1 || (criterion >= 5 && criterion <= 13);
        default:
            return false;
    }
}

int objektTypAusName(std::string_view name) {
    for (int i = 1; i <= 3; ++i)
        if (gleichOhneFall(name, kObjekte[i - 1])) return i;
    return 0;
}

int kriteriumAusName(int objectType, std::string_view name) {
    for (int c = 1; c <= kriterienAnzahl(objectType); ++c)
        if (gleichOhneFall(name, kriteriumsName(objectType, c))) return c;
    return 0;
}

int operatorAusName(std::string_view name) {
    for (int i = 1; i <= 6; ++i)
        if (name == kOperatoren[i - 1]) return i;
    return 0;
}

int verknuepfungAusName(std::string_view name) {
    for (int i = 1; i <= 3; ++i)
        if (gleichOhneFall(name, kVerknuepfungen[i - 1])) return i;
    return 0;
}

void normalisiere(KriterienListe& liste) {
    SearchCriterion* erste = liste.kopf();
    if (!erste) return;
    const int typ = erste->objectType;
    erste->combination = kVerknuepfungUnd;
    SearchCriterion* vorige = nullptr;
    for (SearchCriterion* k = erste; k; vorige = k, k = k->next) {
        k->objectType = typ;
        if (k->combination == kVerknuepfungPaar && vorige) {
            if (typ != 3) {
                k->combination = kVerknuepfungUnd;
            } else {
                // Pairs never chain: the row before gives up its own pair.
                if (vorige->combination == kVerknuepfungPaar)
                    vorige->combination = kVerknuepfungUnd;
                if (vorige->partner && vorige->partner->partner == vorige)
                    vorige->partner->partner = nullptr;
                vorige->partner = k;
                k->partner = vorige;
                if (!paarbar(k->criterion)) k->combination = kVerknuepfungUnd;
            }
        }
        if (istTextKriterium(typ, k->criterion)) {
            if (k->op == kOpGleich || k->op == kOpGroesserGleich || k->op == kOpKleinerGleich)
                k->op = kOpGleich;
            else if (k->op == kOpUngleich || k->op == kOpGroesser || k->op == kOpKleiner)
                k->op = kOpUngleich;
        }
    }
}

}  // namespace dv
