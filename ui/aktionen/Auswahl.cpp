#include "ui/aktionen/Auswahl.h"

namespace dv::ui {

namespace {

constexpr int kTypBox = 1;
constexpr int kTypDvd = 2;
constexpr int kTypFilm = 3;

}  // namespace

int Auswahl::objektTyp() const {
    if (art == kBoxKnoten) return kTypBox;
    if (art == kDvdKnoten) return kTypDvd;
    if (art & kFilmTeile) return kTypFilm;
    return 0;
}

long Auswahl::objektId() const {
    switch (objektTyp()) {
        case kTypBox:
            return box;
        case kTypDvd:
            return dvd;
        case kTypFilm:
            return film;
        default:
            return 0;
    }
}

long einfuegeZiel(const Auswahl& a) {
    if (a.quelleTyp == kTypDvd && (a.art & (kBoxKnoten | kDvdKnoten))) return a.box;
    if (a.quelleTyp == kTypFilm && (a.art & (kDvdKnoten | kFilmKnoten))) return a.dvd;
    return 0;
}

bool istAktiv(const Befehl& b, const Auswahl& a) {
    switch (b.id) {
        case kCmdEinfuegen:
            return einfuegeZiel(a) > 0;
        case kCmdAbbrechen:
            return a.quelleTyp != 0;
        case kCmdDvdHoch:
        case kCmdFilmHoch:
            return (a.art & b.arten) && !a.erstes;
        case kCmdDvdRunter:
        case kCmdFilmRunter:
            return (a.art & b.arten) && !a.letztes;
        default:
            return b.arten == 0 || (a.art & b.arten) != 0;
    }
}

bool istAktiv(int id, const Auswahl& a) {
    const Befehl* b = befehl(id);
    return b && istAktiv(*b, a);
}

bool istAbgehakt(const Befehl& b, const Auswahl& a) {
    return b.abhakbar && istAktiv(b, a) && a.hatTags;
}

}  // namespace dv::ui
