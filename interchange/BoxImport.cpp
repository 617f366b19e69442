#include "interchange/BoxImport.h"

#include <cstdio>
#include <cstring>

#include "base/Hilfen.h"
#include "base/Protokoll.h"
#include "base/Zeichensatz.h"
#include "domain/Tags.h"
#include "platform/Zeit.h"

namespace dv {
namespace {

template <std::size_t N>
void kopiere(char (&ziel)[N], const std::string& quelle) {
    std::snprintf(ziel, N, "%s", quelle.c_str());
}

// The digits of a header date or time field as numbers; a non-digit counts 0.
int ziffern(const char* p, std::size_t n) {
    int v = 0;
    for (std::size_t i = 0; i < n; ++i) v = v * 10 + (p[i] >= '0' && p[i] <= '9' ? p[i] - '0' : 0);
    return v;
}

std::string format(const char* f, int a, int b, int c) {
    char puffer[64];
    std::snprintf(puffer, sizeof puffer, f, a, b, c);
    return puffer;
}

// The ids of the resolved names, those without a record left out.
std::vector<long> ids(const std::vector<ImportName>& namen) {
    std::vector<long> v;
    for (const ImportName& n : namen)
        if (n.id > 0) v.push_back(n.id);
    return v;
}

}  // namespace

std::string sichererDateiTeil(const std::string& cp1252) {
    std::string t = cp1252;
    bereinigeDateiname(t);
    for (char& c : t)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '_';
    return cp1252NachUtf8(t);
}

BoxImport::BoxImport(Datenbank& db, const Ordner& ordner, Benutzer& benutzer)
    : db_(db), ordner_(ordner), benutzer_(benutzer) {}

void BoxImport::zeile(const std::string& text) {
    if (!protokoll_.empty()) haengeZeileAn(db_.fs(), protokoll_, text);
}

void BoxImport::beginneProtokoll(const ImportBox& b, const box::Kopf& k) {
    protokoll_ = ordner_.meldungen + "import_" + sichererDateiTeil(b.ean) + ".log";
    db_.fs().loesche(protokoll_);
    const LokaleZeit t = jetzt();
    zeile("Import-Infos:");
    zeile(format("Import-Datum: %02d.%02d.%04d", t.tag, t.monat, t.jahr));
    zeile(format("Import-Zeit : %02d:%02d:%02d", t.stunde, t.minute, t.sekunde));
    zeile("Titel       : " + b.titel);
    zeile("EAN         : " + b.ean);
    zeile(format("Export-Datum: %02d.%02d.%04d", ziffern(k.datum + 6, 2), ziffern(k.datum + 4, 2),
                 ziffern(k.datum, 4)));
    zeile(format("Export-Zeit : %02d:%02d:%02d", ziffern(k.zeit, 2), ziffern(k.zeit + 2, 2),
                 ziffern(k.zeit + 4, 2)));
    zeile("Anzahl DVDs : " + std::to_string(b.dvds.size()));
}

ImportErgebnis BoxImport::importiere(const std::string& pfad) {
    BoxLeser leser;
    leser.lese(db_.fs(), pfad);
    return importiere(leser);
}

ImportErgebnis BoxImport::importiere(const BoxLeser& leser) {
    boxId_ = 0;
    protokoll_.clear();
    fehler_ = false;
    fragen_ = optionen.objekteBestaetigen;
    zeilen_.clear();
    index_.clear();
    personenGeladen_ = false;
    personen_.clear();
    personIndex_.clear();

    const BoxVorschau v = leser.gueltig() ? vorschau(leser.daten()) : BoxVorschau{};
    ImportBox b;
    if (!v.daten || !zerlegeBoxDaten(leser.daten(), b)) return ImportErgebnis::KeineBoxDatei;

    if (doppelt(v.ean)) return ImportErgebnis::Doppelt;
    if (optionen.boxBestaetigen &&
        !benutzer_.frage("Box importieren ?",
                         "Soll die folgende Box importiert werden:\n{\"" + v.titel +
                             "\"}\nAnzahl DVDs: " + std::to_string(v.anzahlDvds) +
                             "\nEAN: " + v.ean + "\n"))
        return ImportErgebnis::Abgelehnt;

    beginneProtokoll(b, leser.kopf());
    if (!loeseAuf(b)) return ImportErgebnis::Abgebrochen;
    if (fehler_) return ImportErgebnis::Fehler;
    return erzeuge(b, leser);
}

bool BoxImport::doppelt(const std::string& gesucht) {
    if (gesucht.empty()) return false;
    std::string ean, titel;
    db_.katalog().Box.scanne([&](const Zeile12& z) {
        if (ean.empty() && gesucht == z.cpEAN) {
            ean = z.cpEAN;
            titel = z.cpText;
        }
    });
    if (ean.empty()) return false;
    if (!optionen.doppelteStill)
        benutzer_.meldung("Import-Fehler",
                          "Eine Box mit dieser EAN [" + ean +
                              "]\nexistiert bereits im System.\n{\"" + titel + "\"}",
                          Symbol::Fehler);
    return true;
}

void BoxImport::schreibeCover(long boxId, const BoxLeser& leser) {
    // A cover file that carries the new number belongs to a box deleted earlier.
    const std::string stamm = ordner_.cover + std::to_string(boxId) + ".";
    for (int typ : {box::kBildBmp, box::kBildJpg, box::kBildGif}) {
        const std::string alt = stamm + box::bildEndung(typ);
        if (db_.fs().existiert(alt)) db_.fs().loesche(alt);
    }
    if (leser.bild().empty() || leser.bildGepackt()) return;
    zeile("Bild speichern.");
    const std::string pfad = stamm + box::bildEndung(leser.bildTyp());
    if (!schreibeAlles(db_.fs(), pfad, leser.bild())) db_.fs().loesche(pfad);
}

ImportErgebnis BoxImport::erzeuge(const ImportBox& b, const BoxLeser& leser) {
    auto vorgang = db_.vorgang();
    if (!vorgang.offen()) return ImportErgebnis::Fehler;
    // Another program may have brought the same box in while the questions ran.
    if (doppelt(b.ean)) return ImportErgebnis::Doppelt;
    DV_TRACE(db_.trace(), kTraceDetail16, "NeueBox()");
    const long boxId = db_.neueBox(b.ean, b.titel, b.verpackung.id);
    bool ok = boxId > 0;
    if (const auto e = ids(b.extras); !e.empty()) ok = db_.schreibeExtras(kTypBoxExtras, boxId, e);
    if (ok && !b.tags.empty())
        ok = schreibeTags(db_.fs(), ordner_.tags, kObjektBox, boxId, tagsAusText(b.tags));
    if (ok) schreibeCover(boxId, leser);
    for (std::size_t i = 0; ok && i < b.dvds.size(); ++i) ok = erzeugeDvd(boxId, b.dvds[i]);
    if (!ok) vorgang.verwerfen();
    if (!vorgang.abschliessen()) return ImportErgebnis::Fehler;
    boxId_ = boxId;
    return ImportErgebnis::Importiert;
}

bool BoxImport::erzeugeDvd(long boxId, const ImportDvd& d) {
    DV_TRACE(db_.trace(), kTraceDetail16, "NeueDvd()");
    Zeile9 z{};
    z.Jahr = static_cast<std::int16_t>(d.jahr);
    z.RC = d.rc;
    z.Opt = d.opt;
    kopiere(z.cpText, d.titel);
    z.Formate_Id = static_cast<std::int32_t>(d.format.id);
    z.SN = d.sn;
    z.BytesLow = d.bytesLow;
    z.BytesHigh = d.bytesHigh;
    const long dvdId = db_.neueDvd(boxId, z);
    if (dvdId <= 0) return false;
    if (const auto e = ids(d.extras); !e.empty() && !db_.schreibeExtras(kTypExtras, dvdId, e))
        return false;
    if (!d.tags.empty() &&
        !schreibeTags(db_.fs(), ordner_.tags, kObjektDvd, dvdId, tagsAusText(d.tags)))
        return false;
    for (const ImportFilm& f : d.filme)
        if (!erzeugeFilm(dvdId, f)) return false;
    return true;
}

bool BoxImport::erzeugeFilm(long dvdId, const ImportFilm& f) {
    DV_TRACE(db_.trace(), kTraceDetail16, "NeuerFilm()");
    const long film = db_.neuerFilm(dvdId, f.titel, f.fsk, f.laenge, f.jahr);
    if (film <= 0) return false;
    bool ok = true;
    if (!f.original.empty() || !f.weitere.empty())
        ok = db_.schreibeFilmTitel(film, FilmTitel{f.titel, f.original, f.weitere});
    const std::pair<const std::vector<ImportName>*, int> listen[] = {
        {&f.bildformate, kTypBildformat},
        {&f.genres, kTypGenre},
        {&f.untertitel, kTypUntertitel},
        {&f.funktionen, kTypFunktion}};
    for (const auto& [liste, typ] : listen)
        if (const auto v = ids(*liste); ok && !v.empty())
            ok = db_.schreibeFilmObjekte(film, typ, v);

    auto nimm = [](const std::vector<ImportName>& l, long pos) {
        return pos >= 1 && pos <= static_cast<long>(l.size()) ? l[pos - 1].id : 0;
    };
    std::vector<std::pair<long, long>> sprachen;
    for (const auto& [s, t] : f.sprachTon)
        if (nimm(f.sprachen, s) > 0 && nimm(f.tonformate, t) > 0)
            sprachen.emplace_back(nimm(f.sprachen, s), nimm(f.tonformate, t));
    if (ok && !sprachen.empty()) ok = db_.schreibeFilmSprachen(film, sprachen);

    // One link per person/function pair; the person's aliases go with its first link.
    std::vector<PersonEintrag> personen;
    std::vector<bool> mitAlias(f.personen.size(), false);
    for (const auto& [p, fk] : f.personFunktion) {
        const long person =
            p >= 1 && p <= static_cast<long>(f.personen.size()) ? f.personen[p - 1].id : 0;
        const long funktion = nimm(f.funktionen, fk);
        if (person <= 0 || funktion <= 0) continue;
        PersonEintrag e{person, funktion, {}};
        if (!mitAlias[p - 1]) {
            mitAlias[p - 1] = true;
            for (const auto& [ap, name] : f.alias)
                if (ap == p) e.alias.push_back(name);
        }
        personen.push_back(std::move(e));
    }
    if (ok && !personen.empty()) ok = db_.schreibeFilmPersonen(film, personen);
    if (ok && !f.inhalt.empty()) ok = db_.schreibeInhalt(film, f.inhalt);
    if (ok && !f.kommentar.empty()) ok = db_.schreibeKommentar(film, f.kommentar);
    if (ok && !f.tags.empty())
        ok = schreibeTags(db_.fs(), ordner_.tags, kObjektFilm, film, tagsAusText(f.tags));
    return ok;
}

}  // namespace dv
