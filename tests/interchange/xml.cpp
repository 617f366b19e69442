// The XML document of a box, a DVD and a film: the whole text, escaping, the
// cover as data URI and the two switches.
#include <gtest/gtest.h>

#include "app/base/Optionen.h"
#include "interchange/Austausch.h"
#include "interchange/XmlExport.h"
#include "tests/interchange/Austauschtest.h"
#include "tests/support/FakeBenutzer.h"

using namespace dv;
using namespace dv::test;

namespace {

struct XmlFall {
    XmlFall() {
        Datenbank& db = *k.db;
        box = db.neueBox("12<3>", "A&B \"Box\"", db.neuesLookup(kTypVerpackung, "Amaray"));
        db.schreibeExtras(kTypBoxExtras, box, {db.neuesLookup(kTypExtras, "Poster")});
        Zeile9 z{};
        std::snprintf(z.cpText, sizeof z.cpText, "%s", "D<1>");
        z.Jahr = 2000;
        z.RC = 2;
        z.SN = 4000000000u;
        z.BytesLow = 5;
        z.Formate_Id = static_cast<std::int32_t>(db.neuesLookup(kTypFormat, "DVD-9"));
        dvd = db.neueDvd(box, z);
        db.schreibeExtras(kTypExtras, dvd, {db.neuesLookup(kTypExtras, "Trailer")});
        film = db.neuerFilm(dvd, "F'1", 12, 90, 1999);
        db.schreibeFilmTitel(film, FilmTitel{"F'1", "O", {}});
        db.schreibeFilmObjekte(film, kTypGenre, {db.neuesLookup(kTypGenre, "Drama")});
        db.schreibeFilmObjekte(film, kTypBildformat, {db.neuesLookup(kTypBildformat, "16:9")});
        const long de = db.neuesLookup(kTypSprache, "Deutsch");
        db.schreibeFilmObjekte(film, kTypUntertitel, {de});
        db.schreibeFilmSprachen(film, {{de, db.neuesLookup(kTypTonformat, "DTS")}});
        const long p = db.katalog().Person.insert(1, "Eastwood", "Clint");
        db.schreibeFilmPersonen(film, {PersonEintrag{p, 1, {"Blondie"}}, PersonEintrag{p, 2, {}}});
        db.schreibeInhalt(film, "Inhalt > alles");
        db.schreibeKommentar(film, "gut");
    }
    std::string xml(int typ, long id, bool cover, bool unter) {
        FakeBenutzer nutzer;
        Einstellungen e(k.basis / "e.conf");
        Austausch a(*k.db, k.ordner, nutzer, e);
        std::string d;
        EXPECT_TRUE(a.xml(typ, id, XmlOptionen{cover, unter}, d));
        return d;
    }
    Katalogumgebung k;
    long box = 0, dvd = 0, film = 0;
};

const char* kKopf = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<ZELKA_4>\r\n<ZELKA_XML version=\"1.0\">\r\n";
const char* kFuss = "</ZELKA_XML>\r\n</ZELKA_4>\r\n";

const char* kFilm =
    "<Film Titel=\"F&apos;1\" FSK=\"12\" Jahr=\"1999\" Dauer=\"90\">\r\n"
    "<Original-Titel>O</Original-Titel>\r\n"
    "<Alternativ-Titel></Alternativ-Titel>\r\n"
    "<Bildformat>16:9</Bildformat>\r\n"
    "<Genre>Drama</Genre>\r\n"
    "<Sprache Tonformat=\"DTS\">Deutsch</Sprache>\r\n"
    "<Untertitel>Deutsch</Untertitel>\r\n"
    "<Person Instanz=\"1\" Name=\"Eastwood\" Vorname=\"Clint\">\r\n"
    "<Funktion>Darsteller</Funktion>\r\n"
    "<Funktion>Regie</Funktion>\r\n"
    "<Alias>Blondie</Alias>\r\n"
    "</Person>\r\n"
    "<Inhalt>Inhalt &gt; alles</Inhalt>\r\n"
    "<Kommentar>gut</Kommentar>\r\n"
    "</Film>\r\n";

}  // namespace

TEST(XmlExport, BoxMitUnterobjektenGanz) {
    XmlFall f;
    const std::string erwartet = std::string(kKopf) +
        "<Box EAN=\"12&lt;3&gt;\" Verpackungstyp=\"Amaray\" Titel=\"A&amp;B &quot;Box&quot;\">\r\n"
        "<Extra>Poster</Extra>\r\n"
        "<Dvd Titel=\"D&lt;1&gt;\" Jahr=\"2000\" SN=\"4000000000\" BytesLow=\"5\" BytesHigh=\"0\" Format=\"DVD-9\">\r\n"
        "<RC>2</RC>\r\n"
        "<Extra>Trailer</Extra>\r\n" + kFilm + "</Dvd>\r\n</Box>\r\n" + kFuss;
    EXPECT_EQ(f.xml(kObjektBox, f.box, false, true), erwartet);
}

TEST(XmlExport, OhneUnterobjekteNurDasObjektSelbst) {
    XmlFall f;
    EXPECT_EQ(f.xml(kObjektBox, f.box, false, false),
              std::string(kKopf) +
                  "<Box EAN=\"12&lt;3&gt;\" Verpackungstyp=\"Amaray\" Titel=\"A&amp;B &quot;Box&quot;\">\r\n"
                  "<Extra>Poster</Extra>\r\n</Box>\r\n" + kFuss);
    EXPECT_EQ(f.xml(kObjektDvd, f.dvd, false, false),
              std::string(kKopf) +
                  "<Dvd Titel=\"D&lt;1&gt;\" Jahr=\"2000\" SN=\"4000000000\" BytesLow=\"5\" BytesHigh=\"0\" Format=\"DVD-9\">\r\n"
                  "<RC>2</RC>\r\n<Extra>Trailer</Extra>\r\n</Dvd>\r\n" + kFuss);
    EXPECT_EQ(f.xml(kObjektFilm, f.film, false, false), std::string(kKopf) + kFilm + kFuss);
    // A film renders the same whatever the switch says.
    EXPECT_EQ(f.xml(kObjektFilm, f.film, true, true), std::string(kKopf) + kFilm + kFuss);
}

TEST(XmlExport, CoverAlsDatenUri) {
    XmlFall f;
    const std::string stamm = f.k.ordner.cover + std::to_string(f.box);
    auto kopfzeile = [&](bool cover) {
        const std::string d = f.xml(kObjektBox, f.box, cover, false);
        const std::size_t a = d.find("<Box ");
        return d.substr(a, d.find("\r\n", a) - a);
    };
    const std::string ohne = "<Box EAN=\"12&lt;3&gt;\" Verpackungstyp=\"Amaray\" Titel=\"A&amp;B &quot;Box&quot;\"";
    EXPECT_EQ(kopfzeile(true), ohne + ">");  // no cover file
    const std::pair<const char*, const char*> arten[] = {
        {".bmp", "bmp"}, {".JPG", "jpeg"}, {".gif", "gif"}, {".png", "???"}, {".jpeg", "???"}};
    for (const auto& [endung, art] : arten) {
        schreibeDatei(stamm + endung, "PIC");
        EXPECT_EQ(kopfzeile(true), ohne + " Cover=\"data:image/" + art + ";base64,UElD\">") << endung;
        EXPECT_EQ(kopfzeile(false), ohne + ">");
        std::remove((stamm + endung).c_str());
    }
}

TEST(XmlExport, MaskierungUndSchalter) {
    EXPECT_EQ(xmlText("a&b<c>d'e\"f\xE4"), "a&amp;b&lt;c&gt;d&apos;e&quot;f\xE4");
    EXPECT_EQ(xmlText("&amp;"), "&amp;amp;");
    EXPECT_FALSE(xmlOptionen(0).cover);
    EXPECT_TRUE(xmlOptionen(kOptXmlCover).cover);
    EXPECT_FALSE(xmlOptionen(kOptXmlCover).unterobjekte);
    EXPECT_TRUE(xmlOptionen(kOptXmlUnterobjekte).unterobjekte);
    XmlFall f;
    FakeBenutzer nutzer;
    Einstellungen e(f.k.basis / "e.conf");
    Austausch a(*f.k.db, f.k.ordner, nutzer, e);
    std::string d = "unberührt";
    EXPECT_FALSE(a.xml(kObjektBox, 999, XmlOptionen{}, d));
    EXPECT_FALSE(a.xml(7, f.box, XmlOptionen{}, d));
    EXPECT_EQ(d, "unberührt");
    EXPECT_EQ(a.titel(kObjektDvd, f.dvd), "D<1>");
    EXPECT_EQ(a.titel(kObjektFilm, f.film), "F'1");
}
