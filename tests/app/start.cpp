// Starting on a program folder that cannot be used: a table that cannot be read
// is named with its cause instead of showing an empty catalogue, and a
// catalogue on a read-only medium still opens and reads.
#include "tests/app/Dienstumgebung.h"
#include "tests/support/FehlerDateisystem.h"

using namespace dv;
using namespace dv::test;

namespace {

TEST(Start, UnlesbareTabelleUndSchreibgeschuetzterDatentraeger) {
    TempOrdner tmp;
    FakeBenutzer benutzer;
    Einstellungen einstellungen(tmp / "e.conf");
    const std::string basis = tmp / "programm/";
    {
        CApplikation app(benutzer, einstellungen);
        ASSERT_TRUE(app.starte(basis).ok());
        BoxWerte b;
        b.titel = "Zorro";
        ASSERT_TRUE(app.dienste().objekte().neueBox(b).ok());
    }

    FehlerDateisystem fs;
    fs.sperre = "Daten/DVD_Box.dat";
    {
        CApplikation app(benutzer, einstellungen, fs);
        EXPECT_TRUE(verweigert(app.starte(basis), Fehlerart::Fehlschlag,
                               "Die Tabelle \"" + basis +
                                   "Daten/DVD_Box.dat\" kann nicht gelesen werden: "
                                   "Zugriff verweigert."));
    }

    fs.sperre.clear();
    fs.nurLesen = true;
    CApplikation app(benutzer, einstellungen, fs);
    ASSERT_TRUE(app.starte(basis).ok());
    const auto boxen = app.dienste().katalog().boxen();
    ASSERT_EQ(boxen.size(), 1u);
    EXPECT_EQ(boxen[0].dvds, 1);
    EXPECT_EQ(app.dienste().objekte().ladeBox(boxen[0].id).wert().titel, "Zorro");
}

}  // namespace
