// dvd: the optical drives, the default drive, the disc (or a disc image) and the tray.
#include <memory>

#include "cli/Kontext.h"
#include "domain/Disc.h"
#include "platform/Laufwerke.h"

namespace dv::cli {
namespace {

// The disc to read: the image when one is named, else the stored default drive.
DiscQuelle quelle(Kontext& k, const std::string& abbild) {
    DiscQuelle q;
    q.abbild = abbild;
    if (abbild.empty()) q.laufwerk = gespeichertesLaufwerk(k.app.einstellungen());
    return q;
}

int zeigeInfo(Kontext& k, const std::string& abbild) {
    Laufwerke& lw = systemLaufwerke();
    const DiscQuelle q = quelle(k, abbild);
    DiscInfo d;
    const int code = leseDiscInfo(lw, q, d);
    if (code != kDiscOk) {
        meldeDiscFehler(k.benutzer, code, d);
        return kFehlschlag;
    }
    DiscAnzeige a;
    fuelleDiscAnzeige(lw, q, d, a);
    k.zeile("Dateisystem: " + a.dateisystem);
    k.zeile("Bezeichnung: " + d.volumenName);
    k.zeile("SN: " + a.sn);
    k.zeile("BytesLow: " + a.bytesLow);
    k.zeile("BytesHigh: " + a.bytesHigh);
    k.zeile("Größe: " + a.groesse);
    k.zeile("Typ: " + a.typ);
    if (a.rcGelesen) k.zeile("RC: " + std::to_string(a.rc));
    return kFertig;
}

int erkenneDisc(Kontext& k, const std::string& abbild) {
    const DiscFund f = findeDisc(k.app.db(), k.benutzer, systemLaufwerke(), quelle(k, abbild));
    if (f.dvdId <= 0) return kFehlschlag;
    auto dvd = k.app.katalog().DVD.eine(f.dvdId);
    const std::string titel = dvd ? tab::DVD::zeile(dvd.get()).cpText : "";
    k.zeile("Dvd\t" + std::to_string(f.dvdId) + "\t" + std::to_string(f.boxId) + "\t" + titel);
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
        const auto liste = systemLaufwerke().liste();
        if (liste.empty())
            k.benutzer.meldung("Hinweis", "Kein DVD-Laufwerk gefunden.", Symbol::Information);
        for (const auto& l : liste) k.zeile(std::string(1, l.buchstabe) + ":\t" + l.geraet);
        return kFertig;
    });

    auto buchstabe = std::make_shared<std::string>();
    CLI::App* laufwerk = reg.befehl(dvd, "laufwerk", "Legt das Standard DVD-Laufwerk fest");
    laufwerk->add_option("BUCHSTABE", *buchstabe, "Laufwerksbuchstabe, z. B. D")->required();
    reg.handler(laufwerk, [buchstabe](Kontext& k) {
        const char b = buchstabeAus(*buchstabe);
        if (!b) return k.fehler(kNutzung, "Kein Laufwerksbuchstabe: " + katalogText(*buchstabe));
        return setzeLaufwerk(k.benutzer, systemLaufwerke(), k.app.einstellungen(), b) ? kFertig
                                                                                      : kFehlschlag;
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
            const char b = gespeichertesLaufwerk(k.app.einstellungen());
            return bewegeSchublade(k.benutzer, systemLaufwerke(), b, oeffnen) ? kFertig
                                                                              : kFehlschlag;
        });
    }
}

}  // namespace dv::cli
