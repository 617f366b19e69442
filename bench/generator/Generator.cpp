#include "bench/generator/Generator.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

#include "base/Hilfen.h"
#include "base/Ordner.h"
#include "bench/generator/Namen.h"
#include "bench/generator/Stapel.h"
#include "domain/Objekte.h"
#include "storage/Katalog.h"

namespace dv::generator {

Groessen Groessen::mal(long f) const {
    Groessen g = *this;
    g.boxen *= f;
    g.dvds *= f;
    g.filme *= f;
    g.personen *= f;
    g.texte *= f;
    return g;
}

namespace {

template <std::size_t N>
void setze(char (&ziel)[N], const std::string& text) {
    std::snprintf(ziel, N, "%s", text.c_str());
}

Zeile1 lookupZeile(const std::string& text) {
    Zeile1 z{};
    setze(z.cpText, text);
    return z;
}

// Ids first, first + 1, ... of n appended rows.
std::vector<long> ids(long erste, std::size_t n) {
    std::vector<long> v(n);
    for (std::size_t i = 0; i < n; ++i) v[i] = erste + static_cast<long>(i);
    return v;
}

class Schreiber {
  public:
    Schreiber(Katalog& k, const Groessen& g) : k_(k), g_(g), z_(g.saat) {}

    bool lookups();
    bool objekte(Ergebnis& e);
    std::vector<long> filmIds;  // for the side texts

  private:
    template <class T>
    std::vector<long> schreibe(T& tab, const std::vector<typename T::Zeile>& zeilen) {
        const long erste = haengeAn(tab, zeilen);
        if (erste <= 0 && !zeilen.empty()) ok_ = false;
        return ids(erste, zeilen.size());
    }
    std::vector<long> lookupTabelle(Tabelle1& t, const std::vector<std::string>& namen) {
        std::vector<Zeile1> zeilen;
        for (const std::string& n : namen) zeilen.push_back(lookupZeile(n));
        return schreibe(t, zeilen);
    }
    // Shuffles link rows, as years of editing leave them scattered through the file.
    template <class Z>
    void mische(std::vector<Z>& v) {
        for (std::size_t i = v.size(); i > 1; --i)
            std::swap(v[i - 1], v[static_cast<std::size_t>(z_.bis(static_cast<long>(i)))]);
    }
    // Spreads n children over owners: one each first, the rest at random.
    std::vector<std::vector<long>> verteile(long besitzer, long kinder);
    std::string ean();
    void filmLinks(long film, const std::string& haupttitel);

    Katalog& k_;
    Groessen g_;
    Zufall z_;
    bool ok_ = true;
    std::vector<long> verpackungen_, extras_, formate_, genres_, bildformate_, sprachen_,
        tonformate_, funktionen_, personen_;
    std::vector<Zeile2> filmGenre_, filmBild_, filmUnter_, filmFkt_;
    std::vector<Zeile6> filmSprachen_;
    std::vector<Zeile3> filmPerson_;
    std::vector<Zeile4> titel_;
};

bool Schreiber::lookups() {
    const Wortschatz& w = wortschatz();
    verpackungen_ = lookupTabelle(k_.Verpackung, w.verpackungen);
    extras_ = lookupTabelle(k_.Extras, w.extras);
    formate_ = lookupTabelle(k_.Formate, w.formate);
    sprachen_ = lookupTabelle(k_.Sprachen, w.sprachen);
    std::vector<std::string> namen;
    for (const std::string& b : w.tonBasis)
        for (const std::string& kanal : w.tonKanaele) namen.push_back(b + kanal);
    tonformate_ = lookupTabelle(k_.Tonformate, namen);
    namen.clear();
    for (long i = 0; i < g_.genres; ++i) {
        const std::size_t nb = w.genreBasis.size(), nz = w.genreZusatz.size();
        std::string n = w.genreBasis[i % nb] + w.genreZusatz[(i / nb) % nz];
        if (static_cast<std::size_t>(i) >= nb * nz) n += " " + std::to_string(i / (nb * nz) + 1);
        namen.push_back(n);
    }
    genres_ = lookupTabelle(k_.Genre, namen);
    namen.clear();
    static const char* kArt[] = {"",          " anamorph",       " Letterbox",
                                 " Vollbild", " 16:9-optimiert", " Pan & Scan",
                                 " gezoomt",  " Original"};
    for (long i = 0; i < g_.bildformate; ++i) {
        const std::size_t nb = w.bildformate.size(), na = std::size(kArt);
        std::string n = w.bildformate[i % nb] + kArt[(i / nb) % na];
        if (static_cast<std::size_t>(i) >= nb * na) n += " (" + std::to_string(i / (nb * na)) + ")";
        namen.push_back(n);
    }
    bildformate_ = lookupTabelle(k_.Bildformate, namen);
    // Darsteller (1) and Regie (2) are seeded with the database.
    funktionen_ = lookupTabelle(k_.Funktion, w.funktionen);
    std::vector<Zeile8> personen;
    std::map<std::pair<std::string, std::string>, int> namensvettern;
    for (long i = 0; i < g_.personen; ++i) {
        Zeile8 p{};
        const std::string& v = z_.eins(w.vornamen);
        const std::string& n = z_.eins(w.nachnamen);
        setze(p.cpVorname, z_.prozent(3) ? std::string() : v);
        setze(p.cpName, n);
        p.Instanz = static_cast<std::int16_t>(namensvettern[{p.cpName, p.cpVorname}]++);
        personen.push_back(p);
    }
    personen_ = schreibe(k_.Person, personen);
    return ok_;
}

std::vector<std::vector<long>> Schreiber::verteile(long besitzer, long kinder) {
    std::vector<std::vector<long>> v(static_cast<std::size_t>(besitzer));
    for (long i = 0; i < kinder; ++i) {
        const long b = i < besitzer ? i : z_.bis(besitzer);
        v[static_cast<std::size_t>(b)].push_back(i);
    }
    return v;
}

std::string Schreiber::ean() {
    std::string e = "40";
    for (int i = 0; i < 10; ++i) e += static_cast<char>('0' + z_.bis(10));
    int summe = 0;
    for (int i = 0; i < 12; ++i) summe += (e[i] - '0') * (i % 2 ? 3 : 1);
    e += static_cast<char>('0' + (10 - summe % 10) % 10);
    return e;
}

void Schreiber::filmLinks(long film, const std::string& haupttitel) {
    const auto f = static_cast<std::int32_t>(film);
    auto titel = [&](int typ, const std::string& t, int pos) {
        Zeile4 z{};
        z.Fremd_Id = f;
        z.Typ = static_cast<std::int8_t>(typ);
        setze(z.cpTitel, t);
        z.Pos = static_cast<std::uint16_t>(pos);
        titel_.push_back(z);
    };
    int pos = 1;
    titel(kTitelHaupt, haupttitel, pos++);
    if (z_.prozent(50)) titel(kTitelOriginal, titel_.back().cpTitel + std::string(" (OT)"), pos++);
    if (z_.prozent(25)) titel(kTitelAlternativ, generator::titel(z_, 64), pos++);
    auto link = [&](std::vector<Zeile2>& v, const std::vector<long>& aus, long n) {
        for (long i = 0; i < n; ++i)
            v.push_back(Zeile2{0, f, static_cast<std::int32_t>(z_.eins(aus)),
                               static_cast<std::uint16_t>(i + 1)});
    };
    link(filmGenre_, genres_, z_.zwischen(1, 3));
    link(filmBild_, bildformate_, z_.zwischen(1, 2));
    link(filmUnter_, sprachen_, z_.zwischen(0, 2));
    const long sprachen = z_.zwischen(1, 3);
    for (long i = 0; i < sprachen; ++i)
        filmSprachen_.push_back(Zeile6{0, f, static_cast<std::int32_t>(z_.eins(sprachen_)),
                                       static_cast<std::int32_t>(z_.eins(tonformate_)),
                                       static_cast<std::uint16_t>(i + 1)});
    std::vector<std::int32_t> fkt;
    const long personen = z_.zwischen(2, 10);
    for (long i = 0; i < personen; ++i) {
        std::int32_t funktion = i == 0 ? 2 : 1;
        if (i > 0 && z_.prozent(20)) funktion = static_cast<std::int32_t>(z_.eins(funktionen_));
        if (std::find(fkt.begin(), fkt.end(), funktion) == fkt.end()) fkt.push_back(funktion);
        filmPerson_.push_back(Zeile3{0, f, static_cast<std::int32_t>(z_.eins(personen_)), funktion,
                                     static_cast<std::uint16_t>(i + 1)});
    }
    for (std::size_t i = 0; i < fkt.size(); ++i)
        filmFkt_.push_back(Zeile2{0, f, fkt[i], static_cast<std::uint16_t>(i + 1)});
}

bool Schreiber::objekte(Ergebnis& e) {
    const Wortschatz& w = wortschatz();
    std::vector<Zeile12> boxen;
    std::vector<Zeile2> boxExtras;
    for (long i = 0; i < g_.boxen; ++i) {
        Zeile12 b{};
        setze(b.cpEAN, z_.prozent(95) ? ean() : std::string());
        setze(b.cpText, titel(z_, 64));
        b.Verpackungs_Id = static_cast<std::int32_t>(z_.eins(verpackungen_));
        boxen.push_back(b);
    }
    const std::vector<long> boxIds = schreibe(k_.Box, boxen);
    for (long b : boxIds)
        for (long n = z_.zwischen(0, 2), p = 1; p <= n; ++p)
            boxExtras.push_back(Zeile2{0, static_cast<std::int32_t>(b),
                                       static_cast<std::int32_t>(z_.eins(extras_)),
                                       static_cast<std::uint16_t>(p)});

    // DVDs, in the order of their boxes.
    const auto dvdsDerBox = verteile(g_.boxen, g_.dvds);
    std::vector<Zeile9> dvds;
    std::vector<std::pair<long, int>> dvdBesitzer;  // box index, position
    for (std::size_t b = 0; b < dvdsDerBox.size(); ++b) {
        for (std::size_t i = 0; i < dvdsDerBox[b].size(); ++i) {
            Zeile9 d{};
            std::string t = boxen[b].cpText;
            if (dvdsDerBox[b].size() > 1) t += " - DVD " + std::to_string(i + 1);
            setze(d.cpText, t);
            d.Jahr = static_cast<std::int16_t>(z_.zwischen(1995, 2007));
            d.RC = static_cast<std::int8_t>(z_.prozent(85) ? 2 : (z_.prozent(50) ? 0x16 : 1));
            d.Formate_Id = static_cast<std::int32_t>(z_.eins(formate_));
            d.SN = static_cast<std::uint32_t>(z_.naechste());
            d.Laenge = static_cast<std::int16_t>(z_.zwischen(60, 240));
            d.BytesLow = static_cast<std::uint32_t>(z_.naechste());
            d.BytesHigh = static_cast<std::uint32_t>(z_.bis(2));
            dvds.push_back(d);
            dvdBesitzer.push_back({static_cast<long>(b), static_cast<int>(i + 1)});
        }
    }
    const std::vector<long> dvdIds = schreibe(k_.DVD, dvds);
    std::vector<Zeile7> dvdBox;
    std::vector<Zeile2> dvdExtras;
    for (std::size_t i = 0; i < dvdIds.size(); ++i) {
        const auto d = static_cast<std::int32_t>(dvdIds[i]);
        dvdBox.push_back(Zeile7{0, static_cast<std::int32_t>(boxIds[dvdBesitzer[i].first]), d, 0,
                                static_cast<std::uint16_t>(dvdBesitzer[i].second)});
        for (long n = z_.zwischen(0, 3), p = 1; p <= n; ++p)
            dvdExtras.push_back(Zeile2{0, d, static_cast<std::int32_t>(z_.eins(extras_)),
                                       static_cast<std::uint16_t>(p)});
    }

    // Films, in the order of their DVDs.
    const auto filmeDerDvd = verteile(static_cast<long>(dvdIds.size()), g_.filme);
    std::vector<Zeile5> filme;
    std::vector<std::pair<long, int>> filmBesitzer;
    for (std::size_t d = 0; d < filmeDerDvd.size(); ++d) {
        for (std::size_t i = 0; i < filmeDerDvd[d].size(); ++i) {
            static const int kFsk[] = {0, 6, 12, 16, 18};
            filme.push_back(Zeile5{0, static_cast<std::int8_t>(kFsk[z_.bis(5)]),
                                   static_cast<std::int16_t>(z_.zwischen(70, 180)),
                                   static_cast<std::int16_t>(z_.zwischen(1930, 2007))});
            filmBesitzer.push_back({static_cast<long>(d), static_cast<int>(i + 1)});
        }
    }
    filmIds = schreibe(k_.Film, filme);
    std::vector<Zeile2> dvdFilm;
    for (std::size_t i = 0; i < filmIds.size(); ++i) {
        dvdFilm.push_back(Zeile2{0, static_cast<std::int32_t>(dvdIds[filmBesitzer[i].first]),
                                 static_cast<std::int32_t>(filmIds[i]),
                                 static_cast<std::uint16_t>(filmBesitzer[i].second)});
        filmLinks(filmIds[i], titel(z_, 64));
    }

    for (auto* v :
         {&boxExtras, &dvdExtras, &dvdFilm, &filmGenre_, &filmBild_, &filmUnter_, &filmFkt_})
        mische(*v);
    mische(dvdBox);
    mische(filmSprachen_);
    mische(titel_);
    mische(filmPerson_);
    schreibe(k_.Box_Extras, boxExtras);
    schreibe(k_.DVD_Box, dvdBox);
    schreibe(k_.DVD_Extras, dvdExtras);
    schreibe(k_.DVD_Film, dvdFilm);
    schreibe(k_.Titel, titel_);
    schreibe(k_.Film_Genre, filmGenre_);
    schreibe(k_.Film_Bildformat, filmBild_);
    schreibe(k_.Film_Untertitel, filmUnter_);
    schreibe(k_.Film_Fkt, filmFkt_);
    schreibe(k_.Film_Sprachen, filmSprachen_);
    const std::vector<long> fpIds = schreibe(k_.Film_Person, filmPerson_);

    // Some person links carry one or two aliases.
    std::vector<Zeile1> alias;
    std::vector<std::pair<long, int>> aliasBesitzer;
    for (long fp : fpIds) {
        if (!z_.prozent(8)) continue;
        for (int n = static_cast<int>(z_.zwischen(1, 2)), p = 1; p <= n; ++p) {
            alias.push_back(lookupZeile(z_.eins(w.vornamen) + " \"" + z_.eins(w.nachnamen) + "\""));
            aliasBesitzer.push_back({fp, p});
        }
    }
    const std::vector<long> aliasIds = schreibe(k_.Alias, alias);
    std::vector<Zeile2> filmAlias;
    for (std::size_t i = 0; i < aliasIds.size(); ++i)
        filmAlias.push_back(Zeile2{0, static_cast<std::int32_t>(aliasBesitzer[i].first),
                                   static_cast<std::int32_t>(aliasIds[i]),
                                   static_cast<std::uint16_t>(aliasBesitzer[i].second)});
    mische(filmAlias);
    schreibe(k_.Film_Alias, filmAlias);

    e.boxen = static_cast<long>(boxIds.size());
    e.dvds = static_cast<long>(dvdIds.size());
    e.filme = static_cast<long>(filmIds.size());
    e.titel = static_cast<long>(titel_.size());
    e.personen = static_cast<long>(personen_.size());
    e.filmPersonen = static_cast<long>(fpIds.size());
    e.alias = static_cast<long>(aliasIds.size());
    return ok_;
}

}  // namespace

bool erzeugeSammlung(const std::string& basis, const Groessen& g, Ergebnis* ergebnis,
                     std::string* fehler) {
    auto scheitere = [&](const std::string& grund) {
        if (fehler) *fehler = grund;
        return false;
    };
    if (g.boxen < 1 || g.dvds < g.boxen || g.filme < g.dvds || g.personen < 1 || g.genres < 1 ||
        g.bildformate < 1)
        return scheitere("Ungültige Größen: jede Box braucht eine DVD, jede DVD einen Film.");
    Dateisystem& fs = echtesDateisystem();
    Ordner ordner;
    ordner.setzeBasis(basis);
    if (!ordner.legeAn(fs)) return scheitere("Ordner nicht anlegbar: " + ordner.programm);
    std::string vorhanden;
    if (leseAlles(fs, ordner.daten + "Box.dat", vorhanden) && !vorhanden.empty())
        return scheitere("Der Ordner enthält bereits eine Sammlung: " + ordner.programm);
    KeinTrace still;
    SpeicherUmgebung u;
    u.fs = &fs;
    u.trace = &still;
    u.datenOrdner = ordner.daten;
    Katalog k(u);
    if (!k.erzeugeDatenbank()) return scheitere("Tabellen nicht anlegbar in " + ordner.daten);
    k.holeVersion();
    Schreiber s(k, g);
    Ergebnis e;
    if (!s.lookups() || !s.objekte(e)) return scheitere("Schreibfehler in " + ordner.daten);
    Zufall z(g.saat ^ 0x5EED);
    for (long i = 0; i < g.texte && !s.filmIds.empty(); ++i) {
        const long film = z.eins(s.filmIds);
        schreibeSeitenDatei(
            fs, ordner.inhalt, film,
            "Eine Geschichte über Mut, Schuld und Vergebung in " + titel(z, 40) + ".");
        schreibeSeitenDatei(
            fs, ordner.kommentar, film,
            "Gekauft für " + std::to_string(z.zwischen(5, 30)) + " €, sehr schöne Ausgabe.");
    }
    if (ergebnis) *ergebnis = e;
    return true;
}

std::string gecachteSammlung(const Groessen& g) {
    char name[256];
    std::snprintf(name, sizeof name, "/tmp/dorvano-sammlung-v2-%ld-%ld-%ld-%ld-%ld-%ld-%llu/",
                  g.boxen, g.dvds, g.filme, g.personen, g.genres, g.bildformate,
                  static_cast<unsigned long long>(g.saat));
    const std::string ordner = name;
    Dateisystem& fs = echtesDateisystem();
    const std::string fertig = ordner + "fertig";
    if (fs.existiert(fertig)) return ordner;
    // Written in a folder of its own and renamed when complete, so an interrupted
    // run never leaves a half-written cache under the final name.
    const std::string neu = ordner.substr(0, ordner.size() - 1) + ".neu-" +
                            std::to_string(static_cast<long>(::getpid())) + "/";
    if (!erzeugeSammlung(neu, g, nullptr, nullptr)) return "";
    schreibeAlles(fs, neu + "fertig", "ok");
    if (fs.benenneUm(neu.substr(0, neu.size() - 1), ordner.substr(0, ordner.size() - 1)))
        return ordner;
    return fs.existiert(fertig) ? ordner : neu;
}

}  // namespace dv::generator
