// webimport: searches the import databases by EAN, title or the disc's identity,
// fetches the chosen box files into "Updates/" and imports them.
#include <memory>

#include "app/Zeichensatz.h"
#include "cli/Kontext.h"

namespace dv::cli {
namespace {

struct WebArgumente {
    std::string url, ean, titel, abbild, auswahl;
    bool disc = false, alle = false;
};

// The terminal user, except that the hit selection comes from --alle / --auswahl;
// without either the hits are listed and none is chosen.
class AuswahlBenutzer final : public Benutzer {
  public:
    AuswahlBenutzer(Kontext& k, const WebArgumente& a, std::vector<long> nummern)
        : k_(k), innen_(k.benutzer), a_(a), nummern_(std::move(nummern)) {}

    std::vector<int> waehle(const std::string&, const std::string&,
                            const std::vector<std::string>& eintraege, bool, int) override {
        std::vector<int> gewaehlt;
        for (std::size_t i = 0; i < eintraege.size(); ++i) {
            if (!a_.alle && a_.auswahl.empty())
                k_.zeile(std::to_string(i + 1) + "\t" + eintraege[i]);
            if (a_.alle) gewaehlt.push_back(static_cast<int>(i));
        }
        for (long n : nummern_) {
            if (n >= 1 && static_cast<std::size_t>(n) <= eintraege.size())
                gewaehlt.push_back(static_cast<int>(n - 1));
            else
                innen_.meldung("Web-Import", "Keinen Treffer Nummer " + std::to_string(n) + ".",
                               Symbol::Warnung);
        }
        return gewaehlt;
    }
    bool frage(const std::string& t, const std::string& x) override { return innen_.frage(t, x); }
    void meldung(const std::string& t, const std::string& x, Symbol s) override {
        innen_.meldung(t, x, s);
    }
    ObjektAntwort objektBestaetigen(const ObjektDialog& d) override {
        return innen_.objektBestaetigen(d);
    }
    bool info(const std::string& t,
              const std::vector<std::pair<std::string, std::string>>& f) override {
        return innen_.info(t, f);
    }
    void zeigeText(const std::string& t, const std::string& x) override { innen_.zeigeText(t, x); }
    void fortschritt(const std::string& t, int i, int n) override { innen_.fortschritt(t, i, n); }
    bool unterbrechen() override { return innen_.unterbrechen(); }
    bool zwischenablage(const std::string& t) override { return innen_.zwischenablage(t); }

  private:
    Kontext& k_;
    Benutzer& innen_;
    const WebArgumente& a_;
    std::vector<long> nummern_;
};

// "N,M,..." -> numbers; false when a part is no number.
bool nummernAus(const std::string& text, std::vector<long>& nummern) {
    std::size_t a = 0;
    while (a <= text.size()) {
        const std::size_t e = std::min(text.find(',', a), text.size());
        long n = 0;
        if (!zahl(text.substr(a, e - a), n)) return false;
        nummern.push_back(n);
        a = e + 1;
    }
    return true;
}

int webimport(Kontext& k, const WebArgumente& a) {
    std::vector<long> nummern;
    if (!a.auswahl.empty() && !nummernAus(a.auswahl, nummern))
        return k.fehler(kNutzung, "Falsche Auswahl: " + katalogText(a.auswahl));
    WebSuche s;
    s.url = a.url;
    s.disc = a.disc;
    s.abbild = a.abbild;
    s.ean = katalogText(a.ean);
    s.titel = katalogText(a.titel);
    AuswahlBenutzer benutzer(k, a, nummern);
    std::vector<ImportZeile> zeilen;
    const Ergebnis e = k.dienste().austausch().webimport(s, benutzer, zeilen);
    for (const ImportZeile& z : zeilen)
        k.zeile(katalogText(z.pfad) + (z.importiert ? "\timportiert" : "\tnicht importiert"));
    return k.ergebnis(e);
}

}  // namespace

void registriereWebimport(Register& reg) {
    auto a = std::make_shared<WebArgumente>();
    CLI::App* c = reg.befehl(reg.wurzel(), "webimport",
                             "Sucht Boxen in den Import-Datenbanken und importiert die gewählten");
    c->add_option("--url", a->url,
                  cp1252NachUtf8("Adresse des Import-Servers (sonst die Einstellung ImportUrl)"))
        ->type_name("URL");
    auto* ean =
        c->add_option("--ean", a->ean, cp1252NachUtf8("Sucht nach der EAN"))->type_name("E");
    auto* titel =
        c->add_option("--titel", a->titel, cp1252NachUtf8("Sucht im Titel"))->type_name("T");
    auto* disc =
        c->add_flag("--disc", a->disc, cp1252NachUtf8("Sucht nach der DVD im Standard-Laufwerk"));
    c->add_option("--abbild", a->abbild, cp1252NachUtf8("Ein Abbild der DVD statt des Laufwerks"))
        ->type_name("DATEI")
        ->needs(disc);
    ean->excludes(titel)->excludes(disc);
    titel->excludes(disc);
    auto* alle = c->add_flag("--alle", a->alle, cp1252NachUtf8("Holt jeden Treffer"));
    c->add_option("--auswahl", a->auswahl, cp1252NachUtf8("Holt die Treffer dieser Nummern (ab 1)"))
        ->type_name("N,M,...")
        ->excludes(alle);
    reg.handler(c, [a, ean, titel, disc](Kontext& k) {
        if (ean->count() + titel->count() + disc->count() == 0)
            return k.fehler(kNutzung, "Falscher Aufruf: --ean, --titel oder --disc fehlt.");
        return webimport(k, *a);
    });
}

}  // namespace dv::cli
