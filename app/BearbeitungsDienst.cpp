#include "app/BearbeitungsDienst.h"

#include <strings.h>

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <algorithm>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "base/Zeichensatz.h"
#include "domain/Beschreibung.h"
#include "domain/Disc.h"

namespace dv {
namespace {

// A cover as it will be written: its bytes and the extension box files know.
struct CoverBild {
    std::string bytes;
    std::string endung;  // "bmp", "jpg" or "gif"
};

std::string dateiText(const std::string& datei) {
    return ausQString(QString::fromStdString(datei));
}

// Box files carry only BMP, JPEG and GIF: those stay as they are; any other
// picture is converted to JPEG, transparent parts laid on white as a viewer
// would show them. The format is told by the content, not by the name.
ErgebnisMit<CoverBild> bereiteCoverVor(Dateisystem& fs, const std::string& datei) {
    const QString pfad = QString::fromStdString(datei);
    QImageReader leser(pfad);
    leser.setDecideFormatFromContent(true);
    const QByteArray format = leser.format().toLower();
    const std::string kein =
        formatiere("Die Datei \"%s\" ist kein lesbares Bild.", dateiText(datei).c_str());
    if (format.isEmpty()) return Ergebnis::eingabe(kein);
    CoverBild bild;
    if (format == "bmp" || format == "jpeg" || format == "gif") {
        if (!leseAlles(fs, datei, bild.bytes) || bild.bytes.empty()) return Ergebnis::eingabe(kein);
        bild.endung = format == "jpeg" ? "jpg" : format.toStdString();
        return bild;
    }
    const QImage gelesen = leser.read();
    if (gelesen.isNull()) return Ergebnis::eingabe(kein);
    QImage flach(gelesen.size(), QImage::Format_RGB32);
    flach.fill(Qt::white);
    {
        QPainter maler(&flach);
        maler.drawImage(0, 0, gelesen);
    }
    QByteArray jpeg;
    QBuffer puffer(&jpeg);
    puffer.open(QIODevice::WriteOnly);
    if (!flach.save(&puffer, "JPEG", 90))
        return Ergebnis::fehlschlag("Das Bild konnte nicht als JPEG gespeichert werden.");
    bild.bytes = jpeg.toStdString();
    bild.endung = "jpg";
    return bild;
}

// The new cover is complete under its own name before the box's covers of other
// extensions go.
Ergebnis schreibeCover(Dateisystem& fs, const std::string& ordner, long boxId,
                       const CoverBild& bild) {
    const std::string stamm = std::to_string(boxId) + ".";
    const std::string name = stamm + bild.endung;
    if (!schreibeSicher(fs, ordner + name, bild.bytes))
        return Ergebnis::fehlschlag("Das Cover konnte nicht gespeichert werden.");
    for (const OrdnerEintrag& e : fs.liste(ordner))
        if (!e.istOrdner && e.name != name && e.name.compare(0, stamm.size(), stamm) == 0)
            fs.loesche(ordner + e.name);
    return Ergebnis::gut();
}

bool gleicheFunktion(const Eintrag& a, const Eintrag& b) {
    if (a.id > 0 || b.id > 0) return a.id == b.id;
    return ::strcasecmp(a.name.c_str(), b.name.c_str()) == 0;
}

}  // namespace

bool BearbeitungsDienst::pruefzifferFalsch(const std::string& ean, int* richtig) {
    const std::size_t n = ean.size();
    if (n != 8 && n != 12 && n != 13) return false;
    if (!std::all_of(ean.begin(), ean.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return false;
    // Weights 3, 1, 3, ... from the digit before the check digit leftwards.
    int summe = 0;
    for (std::size_t i = 0; i + 1 < n; ++i) summe += (ean[n - 2 - i] - '0') * (i % 2 == 0 ? 3 : 1);
    const int soll = (10 - summe % 10) % 10;
    if (richtig) *richtig = soll;
    return ean.back() - '0' != soll;
}

Ergebnis BearbeitungsDienst::eanFrei(const BoxWerte& w) {
    if (w.ean.empty()) return Ergebnis::gut();
    std::string ean, titel;
    app_.db().katalog().Box.scanne([&](const Zeile12& z) {
        if (ean.empty() && z.Id != w.id && w.ean == z.cpEAN) {
            ean = z.cpEAN;
            titel = z.cpText;
        }
    });
    if (ean.empty()) return Ergebnis::gut();
    return Ergebnis::eingabe(
        formatiere("Eine Box mit dieser EAN [%s]\nexistiert bereits im "
                   "System.\n{\"%s\"}",
                   ean.c_str(), titel.c_str()));
}

Ergebnis BearbeitungsDienst::pruefeCover(const std::string& datei) {
    auto bild = bereiteCoverVor(app_.fs(), datei);
    return bild.ok() ? Ergebnis::gut() : Ergebnis(bild);
}

Ergebnis BearbeitungsDienst::speichereCover(long boxId, const std::string& datei) {
    if (!app_.dienste().katalog().gibtEs(kBox, boxId)) return KatalogDienst::unbekannt(kBox, boxId);
    auto bild = bereiteCoverVor(app_.fs(), datei);
    if (!bild.ok()) return bild;
    return app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
        DV_PRUEFE(schreibeCover(app_.fs(), app_.ordner().cover, boxId, bild.wert()));
        m.push_back({AenderungsArt::Geaendert, AenderungsTyp::Box, boxId, 0, 0});
        return Ergebnis::gut();
    });
}

ErgebnisMit<NeueBox> BearbeitungsDienst::speichereBox(const BoxWerte& w, const CoverWahl& cover) {
    DV_PRUEFE(eanFrei(w));
    // The picture is read and converted before anything is written.
    ErgebnisMit<CoverBild> bild = CoverBild{};
    if (cover.art == CoverWahl::Art::Neu) {
        bild = bereiteCoverVor(app_.fs(), cover.datei);
        if (!bild.ok()) return Ergebnis(bild);
    }
    // Asked once: a box whose stored EAN was let through is not asked about again.
    auto gespeichert = w.id > 0 ? app_.db().getBox(w.id) : BoxListe();
    const bool neueEan = !gespeichert || w.ean != gespeichert->cpEAN;
    int richtig = 0;
    if (neueEan && pruefzifferFalsch(w.ean, &richtig) &&
        !app_.benutzer().frage(
            CApplikation::titel(),
            formatiere("Die Prüfziffer der EAN [%s] stimmt nicht (richtig wäre %d).\n"
                       "Trotzdem speichern?",
                       w.ean.c_str(), richtig)))
        return Ergebnis::abgelehnt();
    ObjektDienst& objekte = app_.dienste().objekte();
    NeueBox n;
    if (w.id == 0) {
        auto neu = objekte.neueBox(w);
        if (!neu.ok()) return neu;
        n = neu.wert();
    } else {
        DV_PRUEFE(objekte.speichereBox(w));
        n.box = w.id;
    }
    Ergebnis e;
    if (cover.art == CoverWahl::Art::Neu)
        e = app_.schreibstelle().schreibe([&](std::vector<Aenderung>& m) {
            DV_PRUEFE(schreibeCover(app_.fs(), app_.ordner().cover, n.box, bild.wert()));
            m.push_back({AenderungsArt::Geaendert, AenderungsTyp::Box, n.box, 0, 0});
            return Ergebnis::gut();
        });
    if (cover.art == CoverWahl::Art::Entfernen) e = objekte.entferneCover(n.box);
    if (e.ok()) return n;
    // A new box stands; asking OK again would make a second one, so it is only told.
    if (w.id == 0) {
        app_.benutzer().meldung("Fehler...", e.grund(), Symbol::Fehler);
        return n;
    }
    return e;
}

ErgebnisMit<long> BearbeitungsDienst::speichereDvd(long boxId, const DvdWerte& w) {
    ObjektDienst& objekte = app_.dienste().objekte();
    if (w.id == 0) return objekte.neueDvd(boxId, w);
    DV_PRUEFE(objekte.speichereDvd(w));
    return w.id;
}

GroessenTexte BearbeitungsDienst::groesse(std::uint32_t bytesLow, std::uint32_t bytesHigh) {
    return {groessenText(bytesLow, bytesHigh), groessenKlasse(bytesLow, bytesHigh)};
}

ErgebnisMit<DiscLesung> BearbeitungsDienst::leseDisc() {
    Laufwerke& laufwerke = systemLaufwerke();
    DiscQuelle quelle;
    quelle.laufwerk = gespeichertesLaufwerk(app_.einstellungen());
    DiscInfo info;
    if (const int code = leseDiscInfo(laufwerke, quelle, info); code != kDiscOk) {
        meldeDiscFehler(app_.benutzer(), code, info);
        return Ergebnis::fehlschlag(std::string());
    }
    DiscAnzeige anzeige;
    fuelleDiscAnzeige(laufwerke, quelle, info, anzeige);
    return DiscLesung{info.dateisystem, info.SN,    info.BytesLow,
                      info.BytesHigh,   anzeige.rc, anzeige.rcGelesen};
}

FilmWerte BearbeitungsDienst::bereinigt(const FilmWerte& w) {
    Datenbank& db = app_.db();
    auto fehlt = [&](int typ, const Eintrag& e) {
        return e.id > 0 && !db.lookupTabelle(typ)->eine(e.id);
    };
    FilmWerte b = w;
    for (auto [typ, liste] :
         {std::pair{kTypGenre, &b.genres}, std::pair{kTypBildformat, &b.bildformate},
          std::pair{kTypUntertitel, &b.untertitel}})
        std::erase_if(*liste, [&](const Eintrag& e) { return fehlt(typ, e); });
    std::erase_if(b.sprachen, [&](const SpracheWert& s) {
        return fehlt(kTypSprache, s.sprache) || fehlt(kTypTonformat, s.tonformat);
    });
    std::erase_if(b.personen, [&](const FilmPerson& p) {
        return !db.katalog().Person.eine(p.person.id) || fehlt(kTypFunktion, p.funktion);
    });
    b.funktionen.clear();
    for (const FilmPerson& p : b.personen)
        if (std::none_of(b.funktionen.begin(), b.funktionen.end(),
                         [&](const Eintrag& f) { return gleicheFunktion(f, p.funktion); }))
            b.funktionen.push_back(p.funktion);
    return b;
}

ErgebnisMit<long> BearbeitungsDienst::speichereFilm(long dvdId, const FilmWerte& w) {
    const FilmWerte b = bereinigt(w);
    ObjektDienst& objekte = app_.dienste().objekte();
    if (w.id == 0) return objekte.neuerFilm(dvdId, b);
    DV_PRUEFE(objekte.speichereFilm(b));
    return w.id;
}

}  // namespace dv
