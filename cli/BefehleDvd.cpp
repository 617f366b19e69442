// dvd: the optical drives, the default drive, the disc (or a disc image) and the tray.
#include <memory>

#include "cli/Kontext.h"

namespace dv::cli {
namespace {

int zeigeInfo(Kontext& k, const std::string& abbild) {
    const auto d = k.dienste().geraete().disc(abbild);
    if (!d.ok()) return k.ergebnis(d);
    k.zeile("Dateisystem: " + d->dateisystem);
    k.zeile("Bezeichnung: " + d->bezeichnung);
    k.zeile("SN: " + d->sn);
    k.zeile("BytesLow: " + d->bytesLow);
    k.zeile("BytesHigh: " + d->bytesHigh);
    k.zeile("Größe: " + d->groesse);
    k.zeile("Typ: " + d->typ);
    if (d->rcGelesen) k.zeile("RC: " + std::to_string(d->rc));
    return kFertig;
}

int erkenneDisc(Kontext& k, const std::string& abbild) {
    const auto dvd = k.dienste().geraete().erkenne(abbild);
    if (!dvd.ok()) return k.ergebnis(dvd);
    k.zeile("Dvd\t" + std::to_string(dvd->id) + "\t" + std::to_string(dvd->box) + "\t" +
            dvd->titel);
    return kFertig;
}

// "D", "d", "D:" or "D:\" -> 'D'; 0 for anything else.
char buchstabeAus(const std::string& text) {
    if (text.empty() || text.size() > 3) return 0;
    const char b = static_cast<char>(text[0] >= 'a' && text[0] <= 'z' ? text[0] - 32 : text[0]);
    if (b < 'A' || b > 'Z') return 0;
    if (text.size() >= 2 && text[1] != ':') return 0;
    if (text.size() == 3 && text[2] != '\\' && text[2] != '/') return 0;
    return b;
}

}  // namespace

void registriereDvd(Register& reg) {
    CLI::App* dvd = reg.befehl(reg.wurzel(), "dvd", "DVD-Laufwerke und die Erkennung der DVD");
    dvd->require_subcommand(1);

    CLI::App* laufwerke =
        reg.befehl(dvd, "laufwerke", "Zeigt die CD/DVD-Laufwerke mit Buchstabe und Gerät");
    reg.handler(laufwerke, [](Kontext& k) {
        const auto liste = k.dienste().geraete().laufwerke();
        if (liste.empty())
            k.benutzer.meldung("Hinweis", "Kein DVD-Laufwerk gefunden.", Symbol::Information);
        for (const LaufwerkWert& l : liste) k.zeile(std::string(1, l.buchstabe) + ":\t" + l.geraet);
        return kFertig;
    });

    auto buchstabe = std::make_shared<std::string>();
    CLI::App* laufwerk = reg.befehl(dvd, "laufwerk", "Legt das Standard DVD-Laufwerk fest");
    laufwerk->add_option("BUCHSTABE", *buchstabe, "Laufwerksbuchstabe, z. B. D")->required();
    reg.handler(laufwerk, [buchstabe](Kontext& k) {
        const char b = buchstabeAus(*buchstabe);
        if (!b) return k.fehler(kNutzung, "Kein Laufwerksbuchstabe: " + katalogText(*buchstabe));
        return k.ergebnis(k.dienste().geraete().setzeLaufwerk(b));
    });

    auto abbildInfo = std::make_shared<std::string>();
    CLI::App* info = reg.befehl(dvd, "info", "Zeigt, was der DVD-Dialog von der DVD zeigt");
    info->add_option("--abbild", *abbildInfo, "Ein Abbild der DVD (ISO/UDF) statt des Laufwerks")
        ->type_name("DATEI");
    reg.handler(info, [abbildInfo](Kontext& k) { return zeigeInfo(k, *abbildInfo); });

    auto abbildErkennen = std::make_shared<std::string>();
    CLI::App* erkennen =
        reg.befehl(dvd, "erkennen", "Findet die DVD des Katalogs zur eingelegten DVD");
    erkennen
        ->add_option("--abbild", *abbildErkennen,
                     "Ein Abbild der DVD (ISO/UDF) statt des Laufwerks")
        ->type_name("DATEI");
    reg.handler(erkennen, [abbildErkennen](Kontext& k) { return erkenneDisc(k, *abbildErkennen); });

    for (const bool oeffnen : {true, false}) {
        CLI::App* c = reg.befehl(dvd, oeffnen ? "auswerfen" : "einfahren",
                                 oeffnen ? "Öffnet die Schublade des Standard DVD-Laufwerks"
                                         : "Schließt die Schublade des Standard DVD-Laufwerks");
        reg.handler(c, [oeffnen](Kontext& k) {
            return k.ergebnis(k.dienste().geraete().schublade(oeffnen));
        });
    }
}

}  // namespace dv::cli
