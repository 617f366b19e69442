// Writes the seed corpus of the box file fuzzer: box files of a small catalogue
// made in a temporary folder, with every kind of entry, packed and unpacked, with
// and without a cover. Usage: fuzz_boxleser_saat ORDNER
#include <stdlib.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "base/Protokoll.h"
#include "domain/Datenbank.h"
#include "domain/Tags.h"
#include "interchange/BoxSchreiber.h"

using namespace dv;

namespace {

long legeBoxAn(Datenbank& db, const Ordner& o) {
    const long box =
        db.neueBox("4006680012345", "Saat & <Box>", db.neuesLookup(kTypVerpackung, "Amaray"));
    db.schreibeExtras(kTypBoxExtras, box, {db.neuesLookup(kTypExtras, "Booklet")});
    schreibeTags(db.fs(), o.tags, kObjektBox, box, {"Tag eins", "Tag zwei"});
    Zeile9 d{};
    std::snprintf(d.cpText, sizeof d.cpText, "%s", "Disc 1");
    d.Jahr = 2004;
    d.RC = 2;
    d.SN = 0x89ABCDEFu;
    d.Formate_Id = static_cast<std::int32_t>(db.neuesLookup(kTypFormat, "DVD-9"));
    const long dvd = db.neueDvd(box, d);
    const long film = db.neuerFilm(dvd, "Film", 12, 101, 2003);
    db.schreibeFilmTitel(film, FilmTitel{"Film", "Original", {"Weiterer Titel"}});
    db.schreibeFilmObjekte(film, kTypGenre, {db.neuesLookup(kTypGenre, "Drama")});
    db.schreibeFilmObjekte(film, kTypBildformat, {db.neuesLookup(kTypBildformat, "16:9")});
    const long de = db.neuesLookup(kTypSprache, "Deutsch");
    db.schreibeFilmObjekte(film, kTypUntertitel, {de});
    db.schreibeFilmSprachen(film, {{de, db.neuesLookup(kTypTonformat, "DTS")}});
    db.schreibeFilmObjekte(film, kTypFunktion, {1, 2});
    const long p = db.katalog().Person.insert(0, "Name", "Vorname");
    db.schreibeFilmPersonen(film, {PersonEintrag{p, 1, {"Alias"}}, PersonEintrag{p, 2, {}}});
    db.schreibeInhalt(film, std::string(300, 'i'));
    db.schreibeKommentar(film, "Kommentar");
    db.neuerFilm(dvd, "Zweiter Film", 0, 0, 0);
    return box;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Aufruf: %s ORDNER\n", argv[0]);
        return 2;
    }
    const std::string ziel = mitTrenner(argv[1]);
    std::filesystem::create_directories(ziel);
    char muster[] = "/tmp/dorvano-saat-XXXXXX";
    if (!::mkdtemp(muster)) return 1;
    Ordner o;
    o.setzeBasis(muster);
    o.legeAn(echtesDateisystem());
    Protokoll protokoll;
    protokoll.setzeLogPfad(o.programm + "zelka.log");
    SpeicherUmgebung u;
    u.trace = &protokoll;
    u.datenOrdner = o.daten;
    Datenbank db(u, o);
    db.katalog().erzeugeDatenbank();
    const long box = legeBoxAn(db, o);
    const long leer = db.neueBox("1", "Leer", 0);
    int n = 0;
    for (int mitCover = 0; mitCover < 2; ++mitCover) {
        if (mitCover)
            schreibeAlles(db.fs(), o.cover + std::to_string(box) + ".gif", "GIF89a-Bilddaten");
        for (int packen = 0; packen < 4; ++packen) {
            for (long id : {box, leer}) {
                BoxListe b = db.getBox(id);
                db.ladeBox(*b);
                ExportQuelle q(db, o);
                BoxSchreiber s(q);
                s.optionen = SchreibOptionen{true, (packen & 1) != 0, (packen & 2) != 0};
                s.schreibe(*b, ziel, "saat" + std::to_string(++n) + ".box");
            }
        }
    }
    std::error_code ec;
    std::filesystem::remove_all(muster, ec);
    std::printf("%d Dateien in %s\n", n, ziel.c_str());
    return 0;
}
