#include "app/AustauschDienst.h"

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "base/Optionen.h"
#include "domain/Beschreibung.h"
#include "domain/Disc.h"
#include "retrieval/WebImport.h"

namespace dv {
namespace {

Ergebnis importGrund(ImportErgebnis e, const std::string& datei) {
    switch (e) {
        case ImportErgebnis::Importiert:
            return Ergebnis::gut();
        case ImportErgebnis::KeineBoxDatei:
            return Ergebnis::fehlschlag(
                formatiere("Die Datei \"%s\" ist keine Box-Datei.", pfadText(datei).c_str()));
        case ImportErgebnis::Doppelt:
            return Ergebnis::fehlschlag("");  // the system's message has been shown
        case ImportErgebnis::Abgelehnt:
            return Ergebnis::abgelehnt();
        case ImportErgebnis::Abgebrochen:
            return Ergebnis::fehlschlag("Der Import wurde abgebrochen.");
        case ImportErgebnis::Fehler:
            break;
    }
    return Ergebnis::fehlschlag("Die Box konnte nicht angelegt werden.");
}

Aenderung allesNeu() {
    return {AenderungsArt::Alles, AenderungsTyp::Katalog, 0, 0, 0};
}

}  // namespace

ImportFragen AustauschDienst::fragenNachOptionen() {
    const ImportOptionen o = importOptionen(app_.austausch().optionen());
    return {o.boxBestaetigen, o.objekteBestaetigen};
}

ErgebnisMit<long> AustauschDienst::importiere(const std::string& datei, const ImportFragen& f) {
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) -> ErgebnisMit<long> {
        ImportOptionen o = importOptionen(app_.austausch().optionen());
        o.boxBestaetigen = f.box;
        o.objekteBestaetigen = f.objekte;
        long box = 0;
        DV_PRUEFE(importGrund(app_.austausch().importiere(datei, o, &box), datei));
        m.push_back({AenderungsArt::Neu, AenderungsTyp::Box, box, 0, 0});
        return box;
    });
}

std::vector<ImportZeile> AustauschDienst::stapelImport(const std::vector<std::string>& dateien,
                                                       bool mitInfo) {
    std::vector<ImportZeile> zeilen;
    (void)app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        ImportOptionen o = importOptionen(app_.austausch().optionen());
        o.boxBestaetigen = false;
        o.objekteBestaetigen = false;
        for (const StapelImportEintrag& e : app_.austausch().stapelImport(dateien, mitInfo, o))
            zeilen.push_back(
                {e.pfad, e.ergebnis == ImportErgebnis::Importiert && !e.uebersprungen});
        m.push_back(allesNeu());
        return Ergebnis::gut();
    });
    return zeilen;
}

Ergebnis AustauschDienst::ordnerDa(const std::string& ordner) {
    if (app_.fs().istOrdner(ordner)) return Ergebnis::gut();
    return Ergebnis::fehlschlag(
        formatiere("Das Verzeichnis \"%s\" existiert nicht.", pfadText(ordner).c_str()));
}

ErgebnisMit<std::string> AustauschDienst::exportiere(long boxId, const std::string& ordner,
                                                     bool tags, bool packen) {
    if (!app_.dienste().katalog().gibtEs(kBox, boxId))
        return Ergebnis::eingabe(formatiere("Keine Box mit der ID %ld.", boxId));
    DV_PRUEFE(ordnerDa(ordner));
    std::string pfad;
    switch (app_.austausch().exportiere(boxId, mitTrenner(ordner), {tags, packen, packen}, &pfad)) {
        case ExportErgebnis::Exportiert:
            return pfad;
        case ExportErgebnis::Unbekannt:
            return Ergebnis::eingabe(formatiere("Keine Box mit der ID %ld.", boxId));
        case ExportErgebnis::KeineEan:
            return Ergebnis::fehlschlag("");  // "Diese Box besitzt keine EAN." was shown
        case ExportErgebnis::NichtUeberschrieben:
            return Ergebnis::abgelehnt();
        case ExportErgebnis::Fehler:
            break;
    }
    return Ergebnis::fehlschlag(formatiere("Die Box-Datei \"%s\" konnte nicht geschrieben werden.",
                                           pfadText(pfad).c_str()));
}

Ergebnis AustauschDienst::exportiereAlle(const std::string& ordner, bool tags) {
    DV_PRUEFE(ordnerDa(ordner));
    const StapelExportErgebnis e = app_.austausch().exportiereAlle(mitTrenner(ordner), tags);
    return e.nichtExportiert.empty() ? Ergebnis::gut() : Ergebnis::fehlschlag("");
}

std::string AustauschDienst::letzterExportOrdner() {
    return app_.austausch().letzterExportOrdner();
}

ErgebnisMit<std::string> AustauschDienst::xml(int typ, long id, bool cover, bool unterobjekte) {
    std::string dokument;
    if (!app_.austausch().xml(typ, id, XmlOptionen{cover, unterobjekte}, dokument))
        return KatalogDienst::unbekannt(typ, id);
    return dokument;
}

Ergebnis AustauschDienst::xmlDatei(int typ, long id, bool cover, bool unterobjekte,
                                   const std::string& datei) {
    const auto dokument = xml(typ, id, cover, unterobjekte);
    DV_PRUEFE(dokument);
    if (!schreibeAlles(app_.fs(), datei, dokument.wert())) return dateiNichtSchreibbar(datei);
    return Ergebnis::gut();
}

Ergebnis AustauschDienst::webimport(const WebSuche& s, Benutzer& auswahl,
                                    std::vector<ImportZeile>& zeilen) {
    auto auftrag = webVorbereiten(s);
    DV_PRUEFE(auftrag);
    return webImportieren(webHolen(auftrag.wert(), auswahl), zeilen);
}

ErgebnisMit<WebAuftrag> AustauschDienst::webVorbereiten(const WebSuche& s) {
    if (!s.disc && s.ean.empty() && s.titel.empty())
        return Ergebnis::eingabe("Bitte eine EAN oder einen Titel eingeben.");
    WebAuftrag a;
    if (s.disc) {
        DiscQuelle q;
        q.abbild = s.abbild;
        if (s.abbild.empty()) q.laufwerk = gespeichertesLaufwerk(app_.einstellungen());
        DiscInfo d;
        const int code = leseDiscInfo(systemLaufwerke(), q, d);
        if (code != kDiscOk) {
            meldeDiscFehler(app_.benutzer(), code, d);
            return Ergebnis::fehlschlag("");
        }
        a.sn = d.SN;
        a.bytesLow = d.BytesLow;
        a.bytesHigh = d.BytesHigh;
    } else {
        a.ean = s.ean;
        a.titel = s.titel;
    }
    a.url = s.url.empty() ? importUrl(app_.einstellungen()) : s.url;
    a.grossKlein = (app_.austausch().optionen() & kOptSucheGrossKlein) != 0;
    return a;
}

WebFund AustauschDienst::webHolen(const WebAuftrag& a, Benutzer& auswahl) {
    WebImportSuche suche;
    suche.SN = a.sn;
    suche.BytesLow = a.bytesLow;
    suche.BytesHigh = a.bytesHigh;
    suche.ean = a.ean;
    suche.titel = a.titel;
    WebImport wi(app_.fs(), auswahl, app_.ordner().updates);
    wi.grossKlein = a.grossKlein;
    WebImportErgebnis e = wi.fuehreAus(a.url, suche);
    return {e.code, std::move(e.dateien)};
}

Ergebnis AustauschDienst::webImportieren(const WebFund& f, std::vector<ImportZeile>& zeilen) {
    if (f.code <= 0 && f.dateien.empty()) return Ergebnis::fehlschlag("");
    bool alle = f.code > 0;
    DV_PRUEFE(app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        const ImportOptionen o = importOptionen(app_.austausch().optionen());
        for (const std::string& pfad : f.dateien) {
            long box = 0;
            const bool ok =
                app_.austausch().importiere(pfad, o, &box) == ImportErgebnis::Importiert;
            if (ok) m.push_back({AenderungsArt::Neu, AenderungsTyp::Box, box, 0, 0});
            zeilen.push_back({pfad, ok});
            alle = alle && ok;
        }
        return Ergebnis::gut();
    }));
    return alle ? Ergebnis::gut() : Ergebnis::fehlschlag("");
}

}  // namespace dv
