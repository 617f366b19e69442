#include "tests/interchange/Austauschtest.h"

#include <fstream>
#include <sstream>

#include "domain/Tags.h"
#include "interchange/ExportQuelle.h"
#include "tests/support/Kvt.h"

namespace dv::test {
namespace {

long lookup(Datenbank& db, int typ, const std::string& name) {
    const long id = db.findeLookup(typ, name);
    return id ? id : db.neuesLookup(typ, name);
}

std::string lookupName(Datenbank& db, int typ, long id) {
    Tabelle1* t = db.lookupTabelle(typ);
    if (!t || id <= 0) return "-";
    auto l = t->eine(id);
    return l ? Tabelle1::zeile(l.get()).cpText : "?";
}

std::string namen(const ObjektElement* e) {
    std::string s;
    for (; e; e = e->pNext) s += std::string(e->pObjekt1 ? e->pObjekt1->zeile.cpText : "?") + ";";
    return s;
}

std::string tagsVon(Datenbank& db, const Ordner& o, int typ, long id) {
    std::string s;
    for (const std::string& t : leseTags(db.fs(), o.tags, typ, id)) s += t + ";";
    return s;
}

void beschreibeFilm(Datenbank& db, const Ordner& o, const FilmElement& f, bool mitTags,
                    std::ostringstream& out) {
    const FilmTitel t = db.leseFilmTitel(f.Id);
    out << "Film|" << t.haupt << "|" << t.original << "|";
    for (const std::string& w : t.weitere) out << w << ";";
    out << "|" << int(f.FSK) << "|" << f.Laenge << "|" << f.Jahr << "\n";
    out << "  Bildformate|" << namen(f.pBildformate) << "\n";
    out << "  Genres|" << namen(f.pGenres) << "\n";
    out << "  Untertitel|" << namen(f.pUntertitel) << "\n";
    out << "  Sprachen|";
    for (const ObjektElement* e = f.pSprachen; e; e = e->pNext)
        out << e->pObjekt1->zeile.cpText << "/" << e->pObjekt2->zeile.cpText << ";";
    out << "\n  Funktionen|";
    for (const FktElement* k = f.pFunktionen; k; k = k->pNext) out << k->cpText << ";";
    out << "\n";
    for (const PersonenElement* p = f.pPersonen; p; p = p->pNext) {
        const Zeile8& z = p->pPerson->zeile;
        out << "  Person|" << z.cpName << "|" << z.cpVorname << "|" << z.Instanz << "|"
            << lookupName(db, kTypFunktion, p->lFunktion) << "|";
        for (const ListenElement* a = p->pAlias; a; a = a->pNext)
            out << static_cast<const Zeile1*>(a->pObjekt)->cpText << ";";
        out << "\n";
    }
    std::string text;
    db.leseInhalt(f.Id, text);
    out << "  Inhalt|" << text << "\n";
    text.clear();
    db.leseKommentar(f.Id, text);
    out << "  Kommentar|" << text << "\n";
    if (mitTags) out << "  Tags|" << tagsVon(db, o, kObjektFilm, f.Id) << "\n";
}

}  // namespace

ImportErgebnis Austauschumgebung::importiere(const std::string& name, const std::string& bytes) {
    schreibeDatei(basis / name, bytes);
    return imp.importiere(basis / name);
}

long legeBeispielBoxAn(Datenbank& db, const Ordner& o, const std::string& ean) {
    auto& k = db.katalog();
    const long box =
        db.neueBox(ean, "Der Herr der Ringe & <Gefährten>", lookup(db, kTypVerpackung, "Amaray"));
    db.schreibeExtras(kTypBoxExtras, box,
                      {lookup(db, kTypExtras, "Booklet"), lookup(db, kTypExtras, "Poster")});
    schreibeTags(db.fs(), o.tags, kObjektBox, box, {"Lieblingsbox", "verliehen an Jörg"});

    Zeile9 d{};
    d.Jahr = 2002;
    d.RC = 2;
    d.Opt = 3;
    std::snprintf(d.cpText, sizeof d.cpText, "%s", "Disc 1: Der Film");
    d.Formate_Id = static_cast<std::int32_t>(lookup(db, kTypFormat, "DVD-9"));
    d.SN = 0xDEADBEEFu;
    d.BytesLow = 0x80000001u;
    d.BytesHigh = 1;
    const long dvd1 = db.neueDvd(box, d);
    db.schreibeExtras(kTypExtras, dvd1, {lookup(db, kTypExtras, "Making of")});
    schreibeTags(db.fs(), o.tags, kObjektDvd, dvd1, {"Disc-Tag"});

    const long film = db.neuerFilm(dvd1, "Die Gefährten", 12, 178, 2001);
    db.schreibeFilmTitel(
        film,
        FilmTitel{"Die Gefährten", "The Fellowship of the Ring", {"LOTR 1", "Herr der Ringe 1"}});
    db.schreibeFilmObjekte(
        film, kTypBildformat,
        {lookup(db, kTypBildformat, "16:9"), lookup(db, kTypBildformat, "2.35:1")});
    db.schreibeFilmObjekte(film, kTypGenre,
                           {lookup(db, kTypGenre, "Fantasy"), lookup(db, kTypGenre, "Abenteuer")});
    db.schreibeFilmObjekte(
        film, kTypUntertitel,
        {lookup(db, kTypUntertitel, "Deutsch"), lookup(db, kTypUntertitel, "Türkisch")});
    const long deutsch = lookup(db, kTypSprache, "Deutsch"),
               englisch = lookup(db, kTypSprache, "Englisch");
    const long dd = lookup(db, kTypTonformat, "DD 5.1"), dts = lookup(db, kTypTonformat, "DTS");
    db.schreibeFilmSprachen(film, {{deutsch, dd}, {englisch, dts}, {deutsch, dts}});
    db.schreibeFilmObjekte(film, kTypFunktion, {1, 2});
    const long wood = k.Person.insert(0, "Wood", "Elijah");
    const long jackson = k.Person.insert(1, "Jackson", "Peter");
    db.schreibeFilmPersonen(
        film, {PersonEintrag{wood, 1, {"Frodo", "Herr Beutlin"}},
               PersonEintrag{jackson, 2, {"Betrunkener"}}, PersonEintrag{jackson, 1, {}}});
    db.schreibeInhalt(film, std::string(700, 'x') + "\r\nEnde & <Schluss>");
    db.schreibeKommentar(film, "Extended Edition \"lang\"");
    schreibeTags(db.fs(), o.tags, kObjektFilm, film, {"gesehen", "Film-Tag"});
    db.neuerFilm(dvd1, "Zweiter Film", 0, 90, 1999);

    std::snprintf(d.cpText, sizeof d.cpText, "%s", "Disc 2: Bonus");
    d.Formate_Id = static_cast<std::int32_t>(lookup(db, kTypFormat, "DVD-5"));
    d.SN = 7;
    d.RC = static_cast<std::int8_t>(0xFF);
    const long dvd2 = db.neueDvd(box, d);
    db.neuerFilm(dvd2, "Bonusmaterial", 6, 45, 2002);
    return box;
}

std::string beschreibeBox(Datenbank& db, const Ordner& o, long boxId, bool mitTags) {
    BoxListe b = db.getBox(boxId);
    if (!b) return "keine Box";
    db.ladeBox(*b);
    std::ostringstream out;
    out << "Box|" << b->cpEAN << "|" << b->cpText << "|"
        << lookupName(db, kTypVerpackung, b->Verpackungs_Id) << "\n";
    out << "Extras|" << namen(b->pExtras) << "\n";
    if (mitTags) out << "Tags|" << tagsVon(db, o, kObjektBox, boxId) << "\n";
    const std::string cover = findeCover(db.fs(), o.cover, boxId);
    std::string bytes;
    if (!cover.empty()) leseAlles(db.fs(), cover, bytes);
    out << "Cover|" << dateiEndung(cover) << "|" << bytes.size() << "|"
        << std::hash<std::string>()(bytes) << "\n";
    for (const DvdElement* d = b->pDvds; d; d = d->pNext) {
        out << "Dvd|" << d->cpText << "|" << d->Jahr << "|" << int(d->RC) << "|" << int(d->Opt)
            << "|" << d->SN << "|" << d->BytesLow << "|" << d->BytesHigh << "|"
            << lookupName(db, kTypFormat, d->Formate_Id) << "\n";
        out << " Extras|" << namen(d->pExtras) << "\n";
        if (mitTags) out << " Tags|" << tagsVon(db, o, kObjektDvd, d->Id) << "\n";
        for (const FilmElement* f = d->pFilme; f; f = f->pNext)
            beschreibeFilm(db, o, *f, mitTags, out);
    }
    return out.str();
}

long boxMitEan(Datenbank& db, const std::string& ean) {
    long id = 0;
    db.katalog().Box.scanne([&](const Zeile12& z) {
        if (!id && ean == z.cpEAN) id = z.Id;
    });
    return id;
}

Kodierer& Kodierer::text(std::uint8_t token, const std::string& wert) {
    daten += static_cast<char>(token);
    daten += static_cast<char>(wert.size());
    daten += wert;
    return *this;
}

Kodierer& Kodierer::lang(std::uint8_t token, const std::string& wert) {
    daten += static_cast<char>(token);
    daten += static_cast<char>(wert.size() % 256);
    daten += static_cast<char>(wert.size() / 256);
    daten += wert;
    return *this;
}

Kodierer& Kodierer::zahl(std::uint8_t token, std::uint32_t wert, int breite) {
    daten += static_cast<char>(token);
    daten += static_cast<char>(breite);
    for (int i = 0; i < breite; ++i) daten += static_cast<char>((wert >> (8 * i)) & 0xFF);
    return *this;
}

std::string alsU32(std::uint32_t v) {
    std::string s;
    for (int i = 0; i < 4; ++i) s += static_cast<char>((v >> (8 * i)) & 0xFF);
    return s;
}

namespace {

std::string gepackt(const std::string& roh) {
    return alsU32(static_cast<std::uint32_t>(roh.size())) + zlibStrom(roh);
}

}  // namespace

std::string boxDatei(const std::string& daten, const std::string& bild, int bildTyp,
                     bool bildPacken, bool datenPacken) {
    const std::string b = bildPacken && !bild.empty() ? gepackt(bild) : bild;
    const std::string d = datenPacken ? gepackt(daten) : daten;
    std::string kopf = "ZELKA4.0" + alsU32(0x00040000) + alsU32(0x00000001) + std::string(24, '\0');
    kopf += "20230405";
    kopf += "060708";
    kopf += static_cast<char>(bildTyp | (bildPacken ? 0x40 : 0) | (datenPacken ? 0x80 : 0));
    kopf += '\0';
    kopf += alsU32(64) + alsU32(static_cast<std::uint32_t>(64 + b.size()));
    return kopf + b + d;
}

std::vector<std::string> zeilenVon(const std::string& pfad) {
    std::vector<std::string> z;
    std::ifstream in(pfad, std::ios::binary);
    for (std::string s; std::getline(in, s);) {
        if (!s.empty() && s.back() == '\r') s.pop_back();
        z.push_back(s);
    }
    return z;
}

}  // namespace dv::test
