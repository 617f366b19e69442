// Writes the seed files of every fuzz target but the box reader's (which has its
// own tool): files as the program itself writes them, made on a catalogue in
// memory. Usage: fuzz_saat ORDNER; each target's seeds go to ORDNER/<target>/.
#include <zlib.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "domain/Tags.h"
#include "output/Uebersicht.h"
#include "retrieval/Stempeltags.h"
#include "retrieval/SuchDatei.h"
#include "retrieval/VormerkDatei.h"
#include "retrieval/Vormerklisten.h"
#include "storage/Journal.h"
#include "tests/fuzz/Saatkatalog.h"

using namespace dv;

namespace {

std::string zielOrdner;
int anzahl = 0;

void saat(const std::string& ziel, const std::string& name, const std::string& bytes) {
    const std::string ordner = zielOrdner + ziel + "/";
    std::filesystem::create_directories(ordner);
    std::ofstream(ordner + name, std::ios::binary) << bytes;
    ++anzahl;
}

std::string inhalt(fuzz::Speicherplatte& platte, const std::string& pfad) {
    std::string s;
    leseAlles(platte, pfad, s);
    return s;
}

void suchdateien() {
    KriterienListe film;
    film.haengeAn(3, 1, 1, 1, "*ab*");
    film.haengeAn(3, 7, 1, 3, "Deutsch");
    film.haengeAn(3, 8, 1, 3, "DTS");
    film.haengeAn(3, 13, 5, 2, "2000");
    saat("suchdatei", "film.asc", suchDateiText(film));
    KriterienListe box;
    box.haengeAn(1, 1, 2, 1, "Matrix?");
    saat("suchdatei", "box.asc", suchDateiText(box));
}

void katalogdateien() {
    fuzz::SpeicherKatalog& k = fuzz::saatkatalog();
    Datenbank& db = *k.db;
    Vormerklisten v(db);
    const long liste = v.neu("Zu sehen");
    v.fuegeHinzu(liste, kObjektBox, 1);
    v.fuegeHinzu(liste, kObjektDvd, 1);
    v.fuegeHinzu(liste, kObjektFilm, 1);
    saat("vormerkdatei", "listen.vml", vormerkDateiText(db, {1, liste}));

    Stempeltags st(db, k.nutzer);
    st.neu(1, "Box-Stempel");
    st.neu(7, "überall");
    saat("stempeldatei", "stempel.txt", st.exportText());

    schreibeTags(k.platte, k.ordner.tags, kObjektFilm, 1, {"gesehen", "Lieblingsfilm"});
    saat("tagdatei", "3_1.txt", inhalt(k.platte, tagDateiPfad(k.ordner.tags, kObjektFilm, 1)));

    for (const char* t : {"Box", "DVD", "Film", "Titel", "DVD_Box", "DVD_Film", "Funktion"})
        saat("tabellen", std::string(t) + ".dat", inhalt(k.platte, k.ordner.daten + t + ".dat"));
}

void uebersicht() {
    fuzz::Speicherplatte platte;
    fuzz::StummerBenutzer nutzer;
    UebersichtEinstellungen e{"/v/Uebersicht.html", "/z/Seite.html", "Titel", "Kopf", "/b.svg"};
    schreibeUebersichtEinstellungen(platte, nutzer, "/u.ini", e);
    saat("uebersicht", "einstellungen.ini", inhalt(platte, "/u.ini"));
    for (const EingebauteDatei& d : standardVorlagen())
        if (std::string(d.name).find("Farben") != std::string::npos)
            saat("uebersicht", d.name, d.inhalt);
}

void webimport() {
    saat("weblinks", "links.ini", "1;filme/;\r\n2;serien/neu/;\r\n3;;\r\n");
    const std::string index =
        "4006680012345;2309737967;4;1;\"Saatfilm\";\r\n4001;0;0;0;\"Zweiter Titel\";\r\n";
    saat("webindex", "ImpDB.ini", index);
    uLongf n = compressBound(index.size());
    std::string gepackt(n, '\0');
    compress(reinterpret_cast<Bytef*>(gepackt.data()), &n,
             reinterpret_cast<const Bytef*>(index.data()), index.size());
    gepackt.resize(n);
    const auto laenge = static_cast<std::uint32_t>(index.size());
    std::string kvt = "KVT";
    kvt.append(2, '\0');
    kvt.append(reinterpret_cast<const char*>(&laenge), 4);
    saat("webindex", "ImpDB.kvt", kvt + gepackt);
}

void journal() {
    saat("journal", "journal",
         packeJournal({{JournalEintrag::Neu, "/k/Tags/1_1.txt", 0, {}},
                       {JournalEintrag::Bereich, "/k/Daten/Box.dat", 0, std::string(96, 'b')},
                       {JournalEintrag::Laenge, "/k/Daten/Box.dat", 96, {}},
                       {JournalEintrag::Inhalt, "/k/Inhalt/1.txt", 0, "Inhalt"}}));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Aufruf: %s ORDNER\n", argv[0]);
        return 2;
    }
    zielOrdner = mitTrenner(argv[1]);
    suchdateien();
    katalogdateien();
    uebersicht();
    webimport();
    journal();
    std::printf("%d Dateien in %s\n", anzahl, zielOrdner.c_str());
    return 0;
}
