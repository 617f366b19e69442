// The XML document of a box, a DVD and a film: the whole text, escaping, the
// cover as data URI and the two switches.
#include <gtest/gtest.h>

#include "base/Optionen.h"
#include "interchange/XmlExport.h"
#include "tests/interchange/Austauschtest.h"

using namespace dv;
using namespace dv::test;

namespace {

struct XmlFall : Austauschumgebung {
    XmlFall() {
        Datenbank& d = *db;
        box = d.neueBox("12<3>", "A&B \"Box\"", d.neuesLookup(kTypVerpackung, "Amaray"));
        d.schreibeExtras(kTypBoxExtras, box, {d.neuesLookup(kTypExtras, "Poster")});
        Zeile9 z{};
        std::snprintf(z.cpText, sizeof z.cpText, "%s", "D<1>");
        z.Jahr = 2000;
        z.RC = 2;
        z.SN = 4000000000u;
        z.BytesLow = 5;
        z.Formate_Id = static_cast<std::int32_t>(d.neuesLookup(kTypFormat, "DVD-9"));
        dvd = d.neueDvd(box, z);
        d.schreibeExtras(kTypExtras, dvd, {d.neuesLookup(kTypExtras, "Trailer")});
        film = d.neuerFilm(dvd, "F'1", 12, 90, 1999);
        d.schreibeFilmTitel(film, FilmTitel{"F'1", "O", {}});
        d.schreibeFilmObjekte(film, kTypGenre, {d.neuesLookup(kTypGenre, "Drama")});
        d.schreibeFilmObjekte(film, kTypBildformat, {d.neuesLookup(kTypBildformat, "16:9")});
        const long de = d.neuesLookup(kTypSprache, "Deutsch");
        d.schreibeFilmObjekte(film, kTypUntertitel, {de});
        d.schreibeFilmSprachen(film, {{de, d.neuesLookup(kTypTonformat, "DTS")}});
        const long p = d.katalog().Person.insert(1, "Eastwood", "Clint");
        d.schreibeFilmPersonen(film, {PersonEintrag{p, 1, {"Blondie"}}, PersonEintrag{p, 2, {}}});
        d.schreibeInhalt(film, "Inhalt > alles");
        d.schreibeKommentar(film, "gut");
    }
    std::string xml(int typ, long id, bool cover, bool unter) {
        std::string d;
        EXPECT_TRUE(austausch.xml(typ, id, XmlOptionen{cover, unter}, d));
        return d;
    }
    long box = 0, dvd = 0, film = 0;
};

const char* kKopf =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<ZELKA_4>\r\n<ZELKA_XML "
    "version=\"1.0\">\r\n";
const char* kFuss = "</ZELKA_XML>\r\n</ZELKA_4>\r\n";
const std::string kBox =
    "<Box EAN=\"12&lt;3&gt;\" Verpackungstyp=\"Amaray\" Titel=\"A&amp;B &quot;Box&quot;\"";
const std::string kDvd =
    "<Dvd Titel=\"D&lt;1&gt;\" Jahr=\"2000\" SN=\"4000000000\" BytesLow=\"5\" BytesHigh=\"0\" "
    "Format=\"DVD-9\">\r\n<RC>2</RC>\r\n<Extra>Trailer</Extra>\r\n";

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

TEST(XmlExport, MitUndOhneUnterobjekte) {
    XmlFall f;
    const std::string boxKopf = kBox + ">\r\n<Extra>Poster</Extra>\r\n";
    EXPECT_EQ(f.xml(kObjektBox, f.box, false, true),
              kKopf + boxKopf + kDvd + kFilm + "</Dvd>\r\n</Box>\r\n" + kFuss);
    EXPECT_EQ(f.xml(kObjektBox, f.box, false, false), kKopf + boxKopf + "</Box>\r\n" + kFuss);
    EXPECT_EQ(f.xml(kObjektDvd, f.dvd, false, false), kKopf + kDvd + "</Dvd>\r\n" + kFuss);
    EXPECT_EQ(f.xml(kObjektFilm, f.film, false, false), std::string(kKopf) + kFilm + kFuss);
    // A film renders the same whatever the switch says.
    EXPECT_EQ(f.xml(kObjektFilm, f.film, true, true), std::string(kKopf) + kFilm + kFuss);
}

TEST(XmlExport, CoverAlsDatenUriMaskierungUndSchalter) {
    XmlFall f;
    const std::string stamm = f.ordner.cover + std::to_string(f.box);
    auto kopfzeile = [&](bool cover) {
        const std::string d = f.xml(kObjektBox, f.box, cover, false);
        const std::size_t a = d.find("<Box ");
        return d.substr(a, d.find("\r\n", a) - a);
    };
    const std::string& ohne = kBox;
    EXPECT_EQ(kopfzeile(true), ohne + ">");  // no cover file
    const std::pair<const char*, const char*> arten[] = {
        {".bmp", "bmp"}, {".JPG", "jpeg"}, {".gif", "gif"}, {".png", "???"}, {".jpeg", "???"}};
    for (const auto& [endung, art] : arten) {
        schreibeDatei(stamm + endung, "PIC");
        EXPECT_EQ(kopfzeile(true), ohne + " Cover=\"data:image/" + art + ";base64,UElD\">")
            << endung;
        EXPECT_EQ(kopfzeile(false), ohne + ">");
        std::remove((stamm + endung).c_str());
    }
    EXPECT_EQ(xmlText("a&b<c>d'e\"f\xE4"), "a&amp;b&lt;c&gt;d&apos;e&quot;f\xE4");
    EXPECT_EQ(xmlText("&amp;"), "&amp;amp;");
    EXPECT_FALSE(xmlOptionen(0).cover);
    EXPECT_TRUE(xmlOptionen(kOptXmlCover).cover);
    EXPECT_FALSE(xmlOptionen(kOptXmlCover).unterobjekte);
    EXPECT_TRUE(xmlOptionen(kOptXmlUnterobjekte).unterobjekte);
    Austausch& a = f.austausch;
    std::string d = "unberührt";
    EXPECT_FALSE(a.xml(kObjektBox, 999, XmlOptionen{}, d));
    EXPECT_FALSE(a.xml(7, f.box, XmlOptionen{}, d));
    EXPECT_EQ(d, "unberührt");
    EXPECT_EQ(a.titel(kObjektDvd, f.dvd), "D<1>");
    EXPECT_EQ(a.titel(kObjektFilm, f.film), "F'1");
}
