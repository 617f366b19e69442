// Filters: loading with the first-wins rule, the free routines and their trace,
// create/rename/delete, entries, the two active filters, and their effect on the
// names that the box file and the XML export write.
#include <gtest/gtest.h>

#include "interchange/BoxLeser.h"
#include "interchange/BoxSchreiber.h"
#include "interchange/Filter.h"
#include "tests/domain/DomainUmgebung.h"
#include "tests/support/FakeBenutzer.h"

using namespace dv;
using namespace dv::test;

namespace {

struct FilterFall : DomainUmgebung {
    Einstellungen einstellungen{basis / "einstellungen.conf"};
    FilterVerwaltung fv{*db, einstellungen};
};

std::vector<std::string> objekte(const FilterListe& f, int typ) {
    std::vector<std::string> v;
    for (const FilterTypen* t = f.pTypen; t; t = t->pNext)
        if (t->Typ == typ)
            for (const FilterObjekte* o = t->pObjekte; o; o = o->pNext)
                v.push_back(std::to_string(o->lIntern) + "=" + o->cpExtern);
    return v;
}

}  // namespace

TEST(Filter, LadenMitAchtTypenErsterEintragGewinntUndFreigabe) {
    FilterFall f;
    const long id = f.fv.neu("Export");
    const long anderer = f.fv.neu("Anderer");
    f.k().Filter.insert(id, 5, 7, "Krimi extern");
    f.k().Filter.insert(id, 5, 7, "zweiter");  // same type and entry: ignored
    f.k().Filter.insert(id, 1, 3, "Breitbild");
    f.k().Filter.insert(anderer, 5, 7, "fremd");
    f.k().Filter.insert(id, 9, 1, "Typ ausserhalb");
    FilterBesitz filter = f.fv.lade(id);
    ASSERT_TRUE(filter);
    EXPECT_EQ(filter->lFilterId, id);
    EXPECT_STREQ(filter->cpName, "Export");
    std::vector<int> typen;
    for (const FilterTypen* t = filter->pTypen; t; t = t->pNext) typen.push_back(t->Typ);
    EXPECT_EQ(typen, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(objekte(*filter, 5), std::vector<std::string>{"7=Krimi extern"});
    EXPECT_EQ(objekte(*filter, 1), std::vector<std::string>{"3=Breitbild"});
    std::string text = "unberührt";
    EXPECT_TRUE(uebersetze(filter.get(), 5, 7, text));
    EXPECT_EQ(text, "Krimi extern");
    text = "unberührt";
    EXPECT_FALSE(uebersetze(filter.get(), 5, 8, text));
    EXPECT_FALSE(uebersetze(filter.get(), 2, 7, text));
    EXPECT_FALSE(uebersetze(nullptr, 5, 7, text));
    EXPECT_EQ(text, "unberührt");
    EXPECT_FALSE(f.fv.lade(999));
    EXPECT_FALSE(f.fv.lade(0));

    // Every filter with its eight types; releasing them writes one line per part.
    f.spur.zeilen.clear();
    {
        FilterBesitz alle = f.fv.ladeAlle();
        std::vector<std::string> namen;
        for (const FilterListe* l = alle.get(); l; l = l->pNext) namen.push_back(l->cpName);
        EXPECT_EQ(namen, (std::vector<std::string>{"Export", "Anderer"}));
    }
    EXPECT_TRUE(f.spur.offen().empty());
    auto zaehle = [&](const char* fn) {
        int n = 0;
        for (const std::string& z : f.spur.zeilen)
            if (z.find("[free] pDel = [") == 0 && z.find(fn) != std::string::npos) ++n;
        return n;
    };
    EXPECT_EQ(zaehle("{FreeFilterListe}"), 2);
    EXPECT_EQ(zaehle("{FreeFilterTypen}"), 16);
    EXPECT_EQ(zaehle("{FreeFilterObjekte}"), 3);
    EXPECT_EQ(filterTypLabel(3), std::string("Dvd-Formate"));
    EXPECT_EQ(filterTypLabel(8), std::string("Verpackungsarten"));
    EXPECT_EQ(filterTypLabel(0), std::string(""));
}

TEST(Filter, AnlegenUmbenennenLoeschenUndEintraege) {
    FilterFall f;
    const long id = f.fv.neu();
    ASSERT_GT(id, 0);
    EXPECT_STREQ(f.fv.lade(id)->cpName, "<<<Neuer Filter>>>");
    EXPECT_EQ(f.fv.umbenenne(id, std::string(200, 'n')), id);
    EXPECT_EQ(std::string(f.fv.lade(id)->cpName).size(), 128u);
    // A filter without its record gets one.
    const long neu = f.fv.umbenenne(77, "Nachgetragen");
    EXPECT_GT(neu, 0);
    EXPECT_NE(neu, id);
    f.fv.setzeEintrag(id, 3, 1, "x");
    f.fv.setzeEintrag(neu, 3, 1, "y");
    EXPECT_TRUE(f.fv.loesche(id));
    EXPECT_FALSE(f.fv.lade(id));
    EXPECT_EQ(f.zeilen(f.k().Filter), 1);  // the other filter's entry stays
    EXPECT_FALSE(f.fv.loesche(id));

    // Entries: replaced, cut to 128 characters, removed by an empty text or by id.
    ASSERT_TRUE(f.fv.loesche(neu));
    const long e = f.fv.neu("F");
    EXPECT_TRUE(f.fv.setzeEintrag(e, 4, 1, "Actor"));
    EXPECT_TRUE(f.fv.setzeEintrag(e, 4, 1, "Cast"));
    EXPECT_EQ(f.zeilen(f.k().Filter), 1);
    EXPECT_EQ(objekte(*f.fv.lade(e), 4), std::vector<std::string>{"1=Cast"});
    EXPECT_TRUE(f.fv.setzeEintrag(e, 4, 2, std::string(300, 'r')));
    EXPECT_EQ(objekte(*f.fv.lade(e), 4),
              (std::vector<std::string>{"2=" + std::string(128, 'r'), "1=Cast"}));  // table order
    EXPECT_TRUE(f.fv.setzeEintrag(e, 4, 1, ""));  // an empty text removes the translation
    EXPECT_EQ(objekte(*f.fv.lade(e), 4).size(), 1u);
    EXPECT_TRUE(f.fv.loescheEintrag(e, 4, 2));
    EXPECT_EQ(f.zeilen(f.k().Filter), 0);
    EXPECT_FALSE(f.fv.setzeEintrag(e, 0, 1, "x"));
    EXPECT_FALSE(f.fv.setzeEintrag(e, 9, 1, "x"));
    EXPECT_FALSE(f.fv.setzeEintrag(e, 1, 0, "x"));
    EXPECT_FALSE(f.fv.setzeEintrag(555, 1, 1, "x"));
}

TEST(Filter, AktiveFilterUndIhreEinstellungen) {
    FilterFall f;
    EXPECT_EQ(f.fv.aktiv(ExportArt::BoxDatei), nullptr);  // no setting stored
    std::uint32_t wert = 0;
    EXPECT_FALSE(f.einstellungen.getFilter(wert));  // and nothing written
    const long id = f.fv.neu("Box");
    f.fv.setzeEintrag(id, 5, 1, "extern");
    EXPECT_TRUE(f.fv.setzeAktiv(ExportArt::BoxDatei, id));
    ASSERT_NE(f.fv.aktiv(ExportArt::BoxDatei), nullptr);
    EXPECT_EQ(f.fv.aktiv(ExportArt::Xml), nullptr);
    std::string t;
    EXPECT_TRUE(f.fv.aktiv(ExportArt::BoxDatei)->uebersetze(5, 1, t));
    EXPECT_FALSE(f.fv.setzeAktiv(ExportArt::Xml, 999));
    EXPECT_FALSE(f.einstellungen.getXMLFilter(wert));
    EXPECT_TRUE(f.fv.setzeAktiv(ExportArt::Xml, id));
    EXPECT_EQ(f.fv.aktiveId(ExportArt::Xml), id);

    // Deleting the active filter: no filter, the setting becomes -1.
    EXPECT_TRUE(f.fv.loesche(id));
    EXPECT_EQ(f.fv.aktiv(ExportArt::BoxDatei), nullptr);
    ASSERT_TRUE(f.einstellungen.getFilter(wert));
    EXPECT_EQ(static_cast<std::int32_t>(wert), -1);
    ASSERT_TRUE(f.einstellungen.getXMLFilter(wert));
    EXPECT_EQ(static_cast<std::int32_t>(wert), -1);

    // A stored id that no longer loads is reset to 0 and saved.
    f.einstellungen.setFilter(4711);
    FilterVerwaltung zweite(*f.db, f.einstellungen);
    EXPECT_EQ(zweite.aktiv(ExportArt::BoxDatei), nullptr);
    ASSERT_TRUE(f.einstellungen.getFilter(wert));
    EXPECT_EQ(wert, 0u);
    EXPECT_TRUE(zweite.setzeAktiv(ExportArt::BoxDatei, 0));
    EXPECT_EQ(zweite.aktiveId(ExportArt::BoxDatei), 0);
}

// ---- Filters on the way out ------------------------------------------------------

namespace {

// A box that uses a lookup of each of the eight filter types.
struct ExportFall : FilterFall {
    ExportFall() {
        Datenbank& d = *db;
        verp = lookup(kTypVerpackung, "Amaray");
        boxId = d.neueBox("11", "B", verp);
        extra = lookup(kTypExtras, "Poster");
        d.schreibeExtras(kTypBoxExtras, boxId, {extra});
        Zeile9 z{};
        z.Formate_Id = static_cast<std::int32_t>(format = lookup(kTypFormat, "DVD-9"));
        const long dvdId = d.neueDvd(boxId, z);
        d.schreibeExtras(kTypExtras, dvdId, {extra});
        const long filmId = d.neuerFilm(dvdId, "F", 0, 0, 0);
        d.schreibeFilmObjekte(filmId, kTypBildformat, {bild = lookup(kTypBildformat, "16:9")});
        d.schreibeFilmObjekte(filmId, kTypGenre, {genre = lookup(kTypGenre, "Krimi")});
        d.schreibeFilmObjekte(filmId, kTypUntertitel, {sprache = lookup(kTypSprache, "Deutsch")});
        d.schreibeFilmSprachen(filmId, {{sprache, ton = lookup(kTypTonformat, "DTS")}});
        d.schreibeFilmObjekte(filmId, kTypFunktion, {1});
        d.schreibeFilmPersonen(filmId, {PersonEintrag{person("P"), 1, {}}});
    }
    long alleUebersetzen() {
        const long id = fv.neu("Englisch");
        fv.setzeEintrag(id, kFilterVerpackung, verp, "Keepcase");
        fv.setzeEintrag(id, kFilterExtras, extra, "Poster (EN)");
        fv.setzeEintrag(id, kFilterDvdFormate, format, "DVD dual layer");
        fv.setzeEintrag(id, kFilterFunktionen, 1, "Actor");
        fv.setzeEintrag(id, kFilterBildformate, bild, "Widescreen");
        fv.setzeEintrag(id, kFilterGenre, genre, "Crime");
        fv.setzeEintrag(id, kFilterSprachen, sprache, "German");
        fv.setzeEintrag(id, kFilterTonformate, ton, "DTS 5.1");
        return id;
    }
    // The names that the box file carries, token by token.
    std::string boxNamen(const NamensUebersetzer* u) {
        BoxListe b = db->getBox(boxId);
        db->ladeBox(*b);
        ExportQuelle q(*db, ordner);
        BoxSchreiber s(q, u);
        s.optionen.datenPacken = false;
        std::string datei;
        EXPECT_TRUE(s.baue(*b, datei));
        BoxLeser leser;
        EXPECT_TRUE(leser.leseBytes(datei));
        std::string namen;
        BoxEintrag e;
        for (std::size_t pos = 0; naechsterBoxEintrag(leser.daten(), pos, e); pos += e.verbraucht) {
            if (e.token == 0x12 || e.token == 0x13 || e.token == 0x36 || e.token == 0x37 ||
                (e.token >= 0x56 && e.token <= 0x5c))
                namen += e.text + ";";
            if (e.token == 0x80) break;
        }
        return namen;
    }
    std::string xml() {
        FakeBenutzer nutzer;
        Austausch a(*db, ordner, nutzer, einstellungen);
        a.setzeFilterAbfrage([this](ExportArt art) { return fv.aktiv(art); });
        std::string d;
        EXPECT_TRUE(a.xml(kObjektBox, boxId, XmlOptionen{false, true}, d));
        return d;
    }
    long boxId = 0, verp = 0, extra = 0, format = 0, bild = 0, genre = 0, sprache = 0, ton = 0;
};

}  // namespace

TEST(FilterExport, BoxDateiSchreibtUebersetzteNamen) {
    ExportFall f;
    const std::string eigen =
        "Amaray;Poster;DVD-9;Poster;16:9;Krimi;Deutsch;Deutsch;DTS;1#1;Darsteller;";
    EXPECT_EQ(f.boxNamen(nullptr), eigen);
    const long leer = f.fv.neu("Leer");
    FilterBesitz leerer = f.fv.lade(leer);
    FilterUebersetzer ohneEintraege(leerer.get());
    EXPECT_EQ(f.boxNamen(&ohneEintraege), eigen);  // a filter without entries changes nothing
    FilterBesitz alle = f.fv.lade(f.alleUebersetzen());
    FilterUebersetzer u(alle.get());
    EXPECT_EQ(f.boxNamen(&u),
              "Keepcase;Poster (EN);DVD dual layer;Poster (EN);Widescreen;Crime;German;German;DTS "
              "5.1;1#1;Actor;");
}

TEST(FilterExport, XmlNimmtDenXmlFilter) {
    ExportFall f;
    const std::string ohne = f.xml();
    const long id = f.alleUebersetzen();
    f.fv.setzeAktiv(ExportArt::BoxDatei, id);
    EXPECT_EQ(f.xml(), ohne);  // the box file's filter does not touch the XML
    f.fv.setzeAktiv(ExportArt::Xml, id);
    const std::string mit = f.xml();
    for (const char* name :
         {"Verpackungstyp=\"Keepcase\"", "<Extra>Poster (EN)</Extra>", "Format=\"DVD dual layer\"",
          "<Bildformat>Widescreen</Bildformat>", "<Genre>Crime</Genre>",
          "<Sprache Tonformat=\"DTS 5.1\">German</Sprache>", "<Untertitel>German</Untertitel>",
          "<Funktion>Actor</Funktion>"})
        EXPECT_NE(mit.find(name), std::string::npos) << name;
    EXPECT_EQ(mit.find("Krimi"), std::string::npos);
}
