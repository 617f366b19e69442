#include "bench/generator/Namen.h"

namespace dv::generator {

const Wortschatz& wortschatz() {
    static const Wortschatz w = {
        {"Jürgen",  "Björn",   "Günther",  "Käthe",  "Hannelore", "Sören",     "Anna",   "Max",
         "Lena",    "Jörg",    "Uwe",      "Özlem",  "Renée",     "Françoise", "José",   "Ingrid",
         "Klaus",   "Sabine",  "Michael",  "Julia",  "Thomas",    "Petra",     "Stefan", "Monika",
         "Andreas", "Claudia", "Wolfgang", "Birgit", "Frank",     "Susanne",   "Dieter", "Heike",
         "Jürgen",  "Ute",     "Rüdiger",  "Bärbel", "Götz",      "Jessica",   "Kevin",  "Mia",
         "Noah",    "Emma",    "Ben",      "Sophie", "Paul",      "Marie",     "Leon",   "Hanna",
         "Finn",    "Lea",     "Elias",    "Clara",  "Jonas",     "Greta",     "Luis"},
        {"Müller",   "Schäfer",  "Schröder",  "Böhm",    "Köhler",    "Jäger",      "Günther",
         "Krüger",   "Wöhrle",   "Großmann",  "Schmidt", "Schneider", "Fischer",    "Weber",
         "Meyer",    "Wagner",   "Becker",    "Schulz",  "Hoffmann",  "Koch",       "Bauer",
         "Richter",  "Klein",    "Wolf",      "Neumann", "Schwarz",   "Zimmermann", "Braun",
         "Hofmann",  "Hartmann", "Lange",     "Schmitt", "Werner",    "Krause",     "Meier",
         "Lehmann",  "Schmid",   "Schulze",   "Maier",   "Köster",    "Huber",      "Kaiser",
         "Fuchs",    "Peters",   "Lang",      "Scholz",  "Möller",    "Weiß",       "Jung",
         "Hahn",     "Vogel",    "Friedrich", "Keller",  "Günes",     "Yildiz",     "Dubois",
         "Rossi",    "García",   "Nowak",     "Smith",   "Johnson",   "Brown",      "Tanaka",
         "Sørensen", "Øberg",    "Lindström", "Åberg",   "Nuñez",     "Çelik",      "Šimek"},
        {"Die Rückkehr", "Das Geheimnis", "Der Schatten",  "Die Jagd",      "Das Erbe",
         "Die Nacht",    "Der Fluch",     "Das Spiel",     "Die Stadt",     "Der Weg",
         "Die Brücke",   "Das Haus",      "Der König",     "Die Flucht",    "Das Lied",
         "Der Himmel",   "Die Straße",    "Das Ende",      "Der Sturm",     "Die Wölfe",
         "Das Blut",     "Der Traum",     "Die Insel",     "Das Schweigen", "Der Tag",
         "Das Grab",     "Der Rabe",      "Die Abrechnung"},
        {"der Mörder",     "des Grafen",      "der Zeit",   "im Nebel",    "der Drachen",
         "über Berlin",    "ohne Wiederkehr", "der Füchse", "aus dem All", "im Süden",
         "der Verdammten", "am Fluss",        "der Götter", "im Eis",      "des Schreckens",
         "der Träume",     "in Flammen",      "der Löwen",  "auf Zeit",    "des Glücks",
         "der Vergeltung", "im Dunkeln",      "ohne Namen", "am Abend",    "im Labyrinth"},
        {"München", "Köln", "Lübeck", "Zürich", "Düsseldorf", "Göttingen", "Würzburg", "Passau",
         "Wien", "Salzburg", "Hamburg", "Bremen", "Dresden", "Weimar", "Nürnberg", "Tübingen"},
        {"Drama",           "Komödie",       "Thriller",       "Krimi",      "Horror",
         "Science-Fiction", "Fantasy",       "Abenteuer",      "Action",     "Western",
         "Musical",         "Dokumentation", "Zeichentrick",   "Kriegsfilm", "Liebesfilm",
         "Historienfilm",   "Heimatfilm",    "Märchen",        "Satire",     "Mystery",
         "Biografie",       "Sportfilm",     "Roadmovie",      "Erotik",     "Familienfilm",
         "Stummfilm",       "Film noir",     "Monumentalfilm", "Kurzfilm",   "Konzert"},
        {"", " (Klassiker)", " (Kult)", " (Independent)", " (Europa)", " (Asien)", " (TV)",
         " (Remake)", " (Trilogie)", " (Serie)"},
        {"1,33:1 (4:3)", "1,37:1", "1,66:1", "1,78:1 (16:9)", "1,85:1", "2,20:1", "2,35:1",
         "2,39:1", "2,40:1", "2,55:1", "2,76:1"},
        {"Dolby Digital", "DTS", "DTS-ES", "Dolby Surround", "PCM", "MPEG", "Mono", "Stereo",
         "Dolby Digital EX", "DTS 96/24", "SDDS", "THX"},
        {" 1.0", " 2.0", " 2.1", " 4.0", " 5.1", " 6.1", " 7.1"},
        {"Deutsch",
         "Englisch",
         "Französisch",
         "Italienisch",
         "Spanisch",
         "Türkisch",
         "Japanisch",
         "Chinesisch",
         "Russisch",
         "Polnisch",
         "Tschechisch",
         "Ungarisch",
         "Schwedisch",
         "Dänisch",
         "Norwegisch",
         "Finnisch",
         "Niederländisch",
         "Portugiesisch",
         "Griechisch",
         "Hebräisch",
         "Arabisch",
         "Hindi",
         "Koreanisch",
         "Thailändisch",
         "Kroatisch",
         "Slowenisch",
         "Rumänisch",
         "Bulgarisch",
         "Isländisch",
         "Katalanisch",
         "Deutsch (Hörfilm)",
         "Englisch (Kommentar)",
         "Deutsch (Kommentar)"},
        {"Amaray", "Keep Case", "Steelbook", "Digipak", "Pappschuber", "Slimcase", "Metallbox",
         "Holzbox", "Snapper", "Jewel Case", "Mediabook", "Sammelbox"},
        {"Trailer",
         "Making-of",
         "Audiokommentar",
         "Deleted Scenes",
         "Interviews",
         "Booklet",
         "Bildergalerie",
         "Filmografien",
         "Featurette",
         "Storyboard",
         "Outtakes",
         "Wendecover",
         "Poster",
         "Hörspiel",
         "Soundtrack-CD",
         "Postkarten",
         "Trivia",
         "Dokumentation",
         "Kurzfilm",
         "Musikvideo",
         "Easter Egg",
         "Untertitelspur",
         "Hinter den Kulissen",
         "Premierenfeier",
         "Probeaufnahmen",
         "Originalfassung",
         "Fotoalbum",
         "Drehbuch",
         "Interaktive Menüs",
         "Kinotrailer",
         "TV-Spots",
         "Biografien",
         "Wissenswertes",
         "Synchronfassung",
         "Alternatives Ende",
         "Entfallene Szenen",
         "Pressematerial",
         "Werbematerial",
         "Schnittfassung",
         "3D-Fassung"},
        {"DVD-5", "DVD-9", "DVD-10", "DVD-14", "DVD-18", "DVD-R", "DVD+R", "DVD-RW", "VCD", "SVCD",
         "Mini-DVD", "HD-DVD", "Blu-ray"},
        {"Drehbuch", "Kamera", "Musik", "Produzent", "Schnitt", "Sprecher", "Ausstattung",
         "Kostüme", "Spezialeffekte", "Synchronsprecher"},
    };
    return w;
}

std::string titel(Zufall& z, std::size_t max) {
    const Wortschatz& w = wortschatz();
    std::string t;
    switch (z.bis(4)) {
        case 0:
            t = z.eins(w.titelAnfang) + " " + z.eins(w.titelWort);
            break;
        case 1:
            t = z.eins(w.titelAnfang) + " von " + z.eins(w.titelOrt);
            break;
        case 2:
            t = z.eins(w.titelOrt) + " " + z.eins(w.titelWort);
            break;
        default:
            t = z.eins(w.titelAnfang) + " " + z.eins(w.titelWort) + " " +
                std::to_string(z.zwischen(2, 5));
    }
    if (t.size() > max) t.resize(max);
    return t;
}

}  // namespace dv::generator
