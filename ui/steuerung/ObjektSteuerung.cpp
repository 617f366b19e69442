#include "ui/steuerung/ObjektSteuerung.h"

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/widgets/TextFenster.h"

namespace dv::ui {

void ObjektSteuerung::verbinde(Aktionen& a) {
    using S = ObjektSteuerung;
    for (int id : {kCmdBoxLoeschen, kCmdDvdLoeschen, kCmdFilmLoeschen})
        a.verbinde(id, this, &S::loeschen);
    for (int id : {kCmdDvdHoch, kCmdFilmHoch}) a.verbinde(id, this, &S::hoch);
    for (int id : {kCmdDvdRunter, kCmdFilmRunter}) a.verbinde(id, this, &S::runter);
    for (int id : {kCmdDvdKopieren, kCmdFilmKopieren}) a.verbinde(id, this, &S::kopieren);
    a.verbinde(kCmdEinfuegen, this, &S::einfuegen);
    a.verbinde(kCmdAbbrechen, this, &S::kopierAbbruch);
    for (int id : {kCmdBoxInfoliste, kCmdDvdInfoliste, kCmdFilmInfoliste})
        a.verbinde(id, this, &S::infoliste);
    for (int id : {kCmdBoxXml, kCmdDvdXml, kCmdFilmXml}) a.verbinde(id, this, &S::xml);
    for (int id : {kCmdBoxSpieldauer, kCmdDvdSpieldauer, kCmdFilmSpieldauer})
        a.verbinde(id, this, &S::spieldauer);
    a.verbinde(kCmdAufklappen, this, &S::aufklappen);
    a.verbinde(kCmdZuklappen, this, &S::zuklappen);
    a.verbinde(kCmdNeuLaden, this, &S::neuLaden);
}

void ObjektSteuerung::loeschen() {
    const Auswahl a = auswahl();
    const int typ = a.objektTyp();
    const long id = a.objektId();
    if (typ == 0 || (a.art & (kGruppenKnoten | kEintragsKnoten))) return;
    ObjektDienst& objekte = app().dienste().objekte();
    const bool istQuelle = a.quelleTyp == typ && a.quelleId == id;
    std::string frage;
    if (istQuelle)
        frage = "Hinweis zu \"" + app().dienste().katalog().name(typ, id) + "\":\n" +
                (typ == 2 ? "Diese Dvd ist" : "Dieser Film ist") +
                " zur Zeit Quelle beim aktiven Kopiermodus.\nTrotzdem löschen? (Kopiermodus "
                "wird beendet).";
    if (!melde(objekte.loescheMitFrage(typ, id, frage))) return;
    // The source may have gone with a box or DVD that held it.
    if (a.quelleTyp && !app().dienste().katalog().gibtEs(a.quelleTyp, a.quelleId))
        baum().setzeKopierQuelle(0, 0);
}

void ObjektSteuerung::hoch() {
    verschiebe(true);
}

void ObjektSteuerung::runter() {
    verschiebe(false);
}

void ObjektSteuerung::verschiebe(bool nachOben) {
    const Auswahl a = auswahl();
    if (a.art != kDvdKnoten && a.art != kFilmKnoten) return;
    melde(app().dienste().objekte().verschiebe(a.objektTyp(), a.objektId(), nachOben));
}

void ObjektSteuerung::kopieren() {
    const Auswahl a = auswahl();
    if (a.art != kDvdKnoten && a.art != kFilmKnoten) return;
    baum().setzeKopierQuelle(a.objektTyp(), a.objektId());
}

void ObjektSteuerung::einfuegen() {
    const Auswahl a = auswahl();
    const long ziel = einfuegeZiel(a);
    if (ziel <= 0) return;
    auto neu = app().dienste().objekte().kopiere(a.quelleTyp, a.quelleId, ziel);
    if (melde(neu)) baum().zeige(a.quelleTyp, neu.wert());
}

void ObjektSteuerung::kopierAbbruch() {
    baum().setzeKopierQuelle(0, 0);
}

void ObjektSteuerung::infoliste() {
    const Auswahl a = auswahl();
    auto text = app().dienste().katalog().info(a.objektTyp(), a.objektId());
    if (!melde(text)) return;
    const QString titel = alsQString(app().dienste().katalog().name(a.objektTyp(), a.objektId()));
    auto* fenster =
        new TextFenster(this->fenster(), app(), titel, text.wert(), QStringLiteral("txt"));
    fenster->setAttribute(Qt::WA_DeleteOnClose);
    fenster->open();
}

void ObjektSteuerung::xml() {
    const Auswahl a = auswahl();
    const XmlOptionen o = xmlOptionen(app().austausch().optionen());
    std::string dokument;
    if (!app().austausch().xml(a.objektTyp(), a.objektId(), o, dokument)) {
        melde(KatalogDienst::unbekannt(a.objektTyp(), a.objektId()));
        return;
    }
    const std::string titel =
        "XML-Ausgabe [" + app().austausch().titel(a.objektTyp(), a.objektId()) + "]";
    auto* fenster =
        new TextFenster(this->fenster(), app(), alsQString(titel), dokument, QStringLiteral("xml"));
    fenster->setAttribute(Qt::WA_DeleteOnClose);
    fenster->open();
}

void ObjektSteuerung::spieldauer() {
    const Auswahl a = auswahl();
    auto text = app().dienste().katalog().spieldauer(a.objektTyp(), a.objektId());
    if (melde(text))
        benutzer().meldung(KatalogDienst::spieldauerTitel(), text.wert(), Symbol::Information);
}

void ObjektSteuerung::aufklappen() {
    std::uint32_t maxFilme = kMaxFilmeAufklappenStandard;
    app().einstellungen().getMaxFilmeAufklappen(maxFilme);
    baum().klappeAuf(maxFilme);
}

void ObjektSteuerung::zuklappen() {
    baum().klappeBoxenZu();
}

void ObjektSteuerung::neuLaden() {
    baum().ladeNeu();
}

}  // namespace dv::ui
