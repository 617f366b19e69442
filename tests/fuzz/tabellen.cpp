// libFuzzer target: table files with any bytes in them. The same bytes stand in
// every table of the collection, each table reading them in its own record size;
// the whole-collection read, the single-object reads, the table engine's
// operations and a delete cascade run on them without a crash.
#include <cstddef>
#include <cstdint>

#include "tests/fuzz/Speicherplatte.h"

namespace {

dv::fuzz::SpeicherKatalog& katalog() {
    static dv::fuzz::SpeicherKatalog k;
    static const bool gemerkt = (k.merke(), true);
    (void)gemerkt;
    return k;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* daten, std::size_t groesse) {
    dv::fuzz::SpeicherKatalog& k = katalog();
    k.setzeZurueck();
    const std::string bytes(reinterpret_cast<const char*>(daten), groesse);
    dv::Katalog& tabellen = k.db->katalog();
    for (dv::Tabelle* t : tabellen.alle())
        if (t != &tabellen.DatenVersion) k.platte.lege(t->pfad(), bytes);
    dv::Datenbank& db = *k.db;
    {
        dv::BoxListe alle = db.ladeSammlung();
        dv::BoxListe wurzel = db.getBoxListe();
        if (wurzel) db.ladeBox(*wurzel);
    }
    long boxen = 0, dvds = 0, filme = 0;
    db.anzahl(boxen, dvds, filme);
    dv::Tabelle1& genre = tabellen.Genre;
    genre.init();
    dv::Zeile1 beispiel{};
    beispiel.cpText[0] = 'a';
    beispiel.cpText[1] = '*';
    genre.liste(beispiel);
    genre.eine(1);
    genre.update(1, "neu");
    genre.remove(2, true);
    genre.insert("eingefuegt");
    db.loescheBox(1);
    db.loescheFilm(1);
    return 0;
}
