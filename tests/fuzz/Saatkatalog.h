#pragma once
// The catalogue in memory that the targets importing into it start from: one
// box with a DVD and a film, so that imported watch-list entries can find them.

#include "tests/fuzz/Speicherplatte.h"

namespace dv::fuzz {

inline SpeicherKatalog& saatkatalog() {
    static SpeicherKatalog k;
    static const bool gefuellt = [] {
        Datenbank& db = *k.db;
        const long box = db.neueBox("4006680012345", "Saatbox", 0);
        Zeile9 d{};
        d.cpText[0] = 'D';
        const long dvd = db.neueDvd(box, d);
        db.neuerFilm(dvd, "Saatfilm", 12, 90, 2001);
        db.katalog().VormerkName.insert("Liste");
        k.merke();
        return true;
    }();
    (void)gefuellt;
    return k;
}

}  // namespace dv::fuzz
