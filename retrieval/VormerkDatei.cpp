#include "retrieval/VormerkDatei.h"

#include <memory>
#include <unordered_map>

#include "base/Protokoll.h"
#include "retrieval/Objektzugriff.h"
#include "retrieval/Textformat.h"

namespace dv {

std::string vormerkDateiText(Datenbank& db, const std::vector<long>& listen) {
    Vormerklisten vormerk(db);
    std::vector<long> ids;
    for (long id : listen)
        if (id > 0) ids.push_back(id);
    const auto eintraege = vormerk.eintraege(ids, false);
    std::unique_ptr<Sammlungsindex> index;
    for (const auto& l : eintraege)
        if (!l.empty() && !index) index = std::make_unique<Sammlungsindex>(db);

    TextDateiSchreiber s;
    s.version();
    s.zeile("# N=<Bezeichner>");
    s.zeile("# <Typ>\t<Box-EAN>\t<Titel>");
    for (std::size_t i = 0; i < ids.size(); ++i) {
        s.zeile("N=" + ohneZeilenumbruch(vormerk.name(ids[i])));
        for (const VormerkElement& e : eintraege[i]) {
            const BoxElement* box = nullptr;
            const char* titel = nullptr;
            if (e.typ == kObjektBox && (box = index->box(e.objektId))) titel = box->cpText;
            if (e.typ == kObjektDvd)
                if (const DvdElement* d = index->dvd(e.objektId, &box)) titel = d->cpText;
            if (e.typ == kObjektFilm)
                if (const FilmElement* f = index->film(e.objektId, &box)) titel = f->cpTitel;
            if (!titel || !box) continue;
            s.zeile(std::to_string(e.typ) + '\t' + ohneZeilenumbruch(box->cpEAN) + '\t' +
                    ohneZeilenumbruch(titel));
        }
    }
    return s.inhalt();
}

bool exportiereVormerklisten(Datenbank& db, const std::vector<long>& listen,
                             const std::string& pfad) {
    return schreibeSicher(db.fs(), pfad, vormerkDateiText(db, listen));
}

namespace {

// The state of one import: the current list and the next position of each list.
class Einleser {
  public:
    Einleser(Datenbank& db, VormerkImport& e) : db_(db), vormerk_(db), e_(e) {}

    void zeile(std::string_view z) {
        if (z.size() <= 2) return;
        if (z[0] == 'N') {
            liste_ = vormerk_.neu(std::string(z.substr(2)));
            listenName_ = std::string(z.substr(2, kVormerkNameMax));
            if (liste_ > 0) {
                ++e_.listen;
                naechste_[liste_] = 1;
            }
            return;
        }
        if (z[0] < '1' || z[0] > '3' || liste_ <= 0) return;
        const int typ = z[0] - '0';
        const std::string_view rest = z.substr(2);
        const std::size_t tab = rest.find('\t');
        const std::string ean(rest.substr(0, tab));
        const std::string titel(tab == std::string_view::npos ? std::string_view()
                                                              : rest.substr(tab + 1));
        eintrag(typ, ean, titel);
    }

  private:
    void eintrag(int typ, const std::string& ean, const std::string& titel) {
        if (!index_) index_ = std::make_unique<Sammlungsindex>(db_);
        const long id = index_->finde(typ, ean, titel);
        std::uint16_t& pos = naechste_[liste_];
        if (id > 0 && pos > 0 && vormerk_.fuegeHinzuAn(liste_, typ, id, pos) > 0) {
            ++pos;  // wraps to 0 after the last position: further entries fail
            ++e_.importiert;
            return;
        }
        ++e_.fehler;
        haengeZeileAn(db_.fs(), db_.ordner().meldungen + kVormerkImportLog,
                      Protokoll::zeitstempel() + " Nicht importiert: Liste <" + listenName_ +
                          ">, Typ<" + objektTypName(typ) + ">, EAN<" + ean + ">, Titel<" + titel +
                          ">.");
    }

    Datenbank& db_;
    Vormerklisten vormerk_;
    VormerkImport& e_;
    std::unique_ptr<Sammlungsindex> index_;  // built at the first entry
    long liste_ = 0;
    std::string listenName_;
    std::unordered_map<long, std::uint16_t> naechste_;
};

}  // namespace

VormerkImport importiereVormerklisten(Datenbank& db, Benutzer& benutzer, const std::string& pfad) {
    VormerkImport ergebnis;
    TextDateiLeser leser;
    if (!leser.oeffne(db.fs(), pfad)) return ergebnis;
    ergebnis.gelesen = true;
    // Every list and entry of the file as one operation.
    auto vorgang = db.vorgang();
    if (!vorgang.offen()) return ergebnis;
    Einleser einleser(db, ergebnis);
    std::string stueck;
    while (leser.naechste(stueck)) {
        const Zeilenart art = ordneEin(stueck, benutzer);
        if (art == Zeilenart::FremdeVersion) {
            ergebnis.versionsfehler = true;
            break;
        }
        if (art == Zeilenart::Ueberspringen) continue;
        einleser.zeile(ohneZeilenende(stueck));
    }
    if (!vorgang.abschliessen()) {
        ergebnis.fehler += ergebnis.importiert;
        ergebnis.importiert = 0;
        ergebnis.listen = 0;
    }
    if (ergebnis.fehler > 0)
        benutzer.meldung("Import-Fehler",
                         std::string("Es konnten nicht alle Elemente importiert werden!\nBitte "
                                     "untersuchen Sie dazu die Datei\n\"") +
                             kVormerkImportLog + "\"\nim Meldungs-Verzeichnis",
                         Symbol::Warnung);
    return ergebnis;
}

}  // namespace dv
