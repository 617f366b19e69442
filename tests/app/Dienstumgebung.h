#pragma once
// What the service tests share: a started application on a fresh program folder,
// the scripted user, and an observer that keeps every change notice.

#include <gtest/gtest.h>

#include <vector>

#include "app/CApplikation.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/TempOrdner.h"

namespace dv::test {

struct Mitschrift final : AenderungsBeobachter {
    std::vector<Aenderung> gesehen;
    void geaendert(const Aenderung& a) override { gesehen.push_back(a); }
};

class Dienstumgebung : public ::testing::Test {
  protected:
    Dienstumgebung() : einstellungen(tmp / "einstellungen.conf"), app(benutzer, einstellungen) {
        EXPECT_TRUE(app.starte(tmp / "programm"));
        app.aenderungen().anmelden(mitschrift);
    }
    ~Dienstumgebung() override { app.aenderungen().abmelden(mitschrift); }

    ObjektDienst& objekte() { return app.dienste().objekte(); }
    KatalogDienst& katalog() { return app.dienste().katalog(); }
    std::string programm(const std::string& name) { return tmp / ("programm/" + name); }

    TempOrdner tmp;
    FakeBenutzer benutzer;
    Einstellungen einstellungen;
    CApplikation app;
    Mitschrift mitschrift;
};

// The reason of a refusal of that kind, or a description of what came instead.
inline ::testing::AssertionResult verweigert(const Ergebnis& e, Fehlerart art,
                                             const std::string& grund) {
    if (e.art() == art && e.grund() == grund) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "Art " << static_cast<int>(e.art()) << ", Grund \"" << e.grund() << "\"";
}

}  // namespace dv::test
