#include "ui/steuerung/BearbeitenSteuerung.h"

#include "app/BearbeitungsDienst.h"
#include "app/CApplikation.h"
#include "app/LookupDienst.h"
#include "app/Zeichensatz.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/lookups/LookupDlg.h"
#include "ui/dialoge/lookups/PersonenDlg.h"
#include "ui/dialoge/objekte/BoxDlg.h"
#include "ui/dialoge/objekte/DvdDlg.h"
#include "ui/dialoge/objekte/FilmDlg.h"

namespace dv::ui {

void BearbeitenSteuerung::verbinde(Aktionen& a) {
    using S = BearbeitenSteuerung;
    a.verbinde(kCmdBoxNeu, this, &S::boxNeu);
    a.verbinde(kCmdBoxBearbeiten, this, &S::boxBearbeiten);
    a.verbinde(kCmdDvdNeu, this, &S::dvdNeu);
    a.verbinde(kCmdBoxNeueDvd, this, &S::dvdNeu);
    a.verbinde(kCmdDvdBearbeiten, this, &S::dvdBearbeiten);
    a.verbinde(kCmdFilmNeu, this, &S::filmNeu);
    a.verbinde(kCmdDvdNeuerFilm, this, &S::filmNeu);
    a.verbinde(kCmdFilmBearbeiten, this, &S::filmBearbeiten);
    a.verbinde(kCmdBearbeiten, this, &S::bearbeiten);
    a.verbinde(kCmdFilmInhalt, this, &S::inhalt);
    a.verbinde(kCmdFilmKommentar, this, &S::kommentar);
    a.verbinde(kCmdFilmPersonenStruktur, this, &S::personenStruktur);
    a.verbinde(kCmdBildformate, this, &S::bildformate);
    a.verbinde(kCmdExtras, this, &S::extras);
    a.verbinde(kCmdFormate, this, &S::formate);
    a.verbinde(kCmdFunktion, this, &S::funktionen);
    a.verbinde(kCmdGenre, this, &S::genres);
    a.verbinde(kCmdPersonen, this, &S::personen);
    a.verbinde(kCmdSprachen, this, &S::sprachen);
    a.verbinde(kCmdTonformate, this, &S::tonformate);
    a.verbinde(kCmdUntertitel, this, &S::untertitel);
    a.verbinde(kCmdVerpackung, this, &S::verpackungen);
}

void BearbeitenSteuerung::bearbeiten() {
    switch (auswahl().objektTyp()) {
        case kBox:
            boxBearbeiten();
            break;
        case kDvd:
            dvdBearbeiten();
            break;
        case kFilm:
            filmBearbeiten();
            break;
        default:
            break;
    }
}

// ---- Boxes ----------------------------------------------------------------------

void BearbeitenSteuerung::boxNeu() {
    oeffneBox(BoxWerte{});
}

void BearbeitenSteuerung::boxBearbeiten() {
    auto box = app().dienste().objekte().ladeBox(auswahl().box);
    if (melde(box)) oeffneBox(box.wert());
}

void BearbeitenSteuerung::oeffneBox(const BoxWerte& w) {
    LookupDienst lookups(app());
    auto* dlg = new BoxDlg(fenster(), app(), w, lookups.eintraege(kTypVerpackung),
                           lookups.eintraege(kTypExtras));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    dlg->setzeSpeichern([this, dlg] {
        auto neu = BearbeitungsDienst(app()).speichereBox(dlg->werte(), dlg->cover());
        if (!melde(neu)) return false;
        baum().zeige(kBox, neu->box);
        return true;
    });
    dlg->open();
}

// ---- DVDs -----------------------------------------------------------------------

void BearbeitenSteuerung::dvdNeu() {
    if (const long box = auswahl().box; box > 0) oeffneDvd(box, DvdWerte{});
}

void BearbeitenSteuerung::dvdBearbeiten() {
    const Auswahl a = auswahl();
    auto dvd = app().dienste().objekte().ladeDvd(a.dvd);
    if (melde(dvd)) oeffneDvd(a.box, dvd.wert());
}

void BearbeitenSteuerung::oeffneDvd(long boxId, const DvdWerte& w) {
    LookupDienst lookups(app());
    auto* dlg = new DvdDlg(fenster(), app(), w, lookups.eintraege(kTypFormat),
                           lookups.eintraege(kTypExtras));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    dlg->setzeLesen([this]() -> std::optional<DiscFelder> {
        auto d = BearbeitungsDienst(app()).leseDisc();
        if (!melde(d)) return std::nullopt;
        DiscFelder f{alsQString(d->dateisystem), d->sn, d->bytesLow, d->bytesHigh, std::nullopt};
        if (d->rcGelesen) f.rc = static_cast<unsigned>(d->rc) & 0xffu;
        return f;
    });
    dlg->setzeSpeichern([this, dlg, boxId] {
        auto id = BearbeitungsDienst(app()).speichereDvd(boxId, dlg->werte());
        if (!melde(id)) return false;
        baum().zeige(kDvd, id.wert());
        return true;
    });
    dlg->open();
}

// ---- Films ----------------------------------------------------------------------

void BearbeitenSteuerung::filmNeu() {
    if (const long dvd = auswahl().dvd; dvd > 0) oeffneFilm(dvd, FilmWerte{}, FilmDlg::Allgemein);
}

void BearbeitenSteuerung::filmBearbeiten() {
    oeffneFilmSeite(FilmDlg::Allgemein);
}

void BearbeitenSteuerung::inhalt() {
    oeffneFilmSeite(FilmDlg::Inhalt);
}

void BearbeitenSteuerung::kommentar() {
    oeffneFilmSeite(FilmDlg::Kommentar);
}

void BearbeitenSteuerung::personenStruktur() {
    oeffneFilmSeite(FilmDlg::Personen);
}

void BearbeitenSteuerung::oeffneFilmSeite(int seite) {
    const Auswahl a = auswahl();
    auto film = app().dienste().objekte().ladeFilm(a.film);
    if (melde(film)) oeffneFilm(a.dvd, film.wert(), seite);
}

void BearbeitenSteuerung::oeffneFilm(long dvdId, const FilmWerte& w, int seite) {
    auto* dlg = new FilmDlg(fenster(), app(), w, ladeFilmKataloge(app()));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    dlg->setzeSpeichern([this, dlg, dvdId] {
        auto id = BearbeitungsDienst(app()).speichereFilm(dvdId, dlg->werte());
        if (!melde(id)) return false;
        baum().zeige(kFilm, id.wert());
        return true;
    });
    dlg->zeigeSeite(static_cast<FilmDlg::Seite>(seite));
    dlg->open();
}

// ---- Catalogues -----------------------------------------------------------------

void BearbeitenSteuerung::oeffneLookup(int typ, const QString& titel) {
    auto* dlg = new LookupDlg(fenster(), app(), typ, titel);
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    // The cover pane shows the packaging: it is read anew.
    connect(dlg, &QDialog::finished, this, [this] { emit baum().auswahlGeaendert(); });
    dlg->open();
}

void BearbeitenSteuerung::personen() {
    auto* dlg = new PersonenDlg(fenster(), app());
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    dlg->open();
}

void BearbeitenSteuerung::bildformate() {
    oeffneLookup(kTypBildformat, QStringLiteral("Bildformate"));
}
void BearbeitenSteuerung::extras() {
    oeffneLookup(kTypExtras, QStringLiteral("Extras"));
}
void BearbeitenSteuerung::formate() {
    oeffneLookup(kTypFormat, QStringLiteral("Formate"));
}
void BearbeitenSteuerung::funktionen() {
    oeffneLookup(kTypFunktion, QStringLiteral("Funktion"));
}
void BearbeitenSteuerung::genres() {
    oeffneLookup(kTypGenre, QStringLiteral("Genre"));
}
void BearbeitenSteuerung::sprachen() {
    oeffneLookup(kTypSprache, QStringLiteral("Sprachen"));
}
void BearbeitenSteuerung::tonformate() {
    oeffneLookup(kTypTonformat, QStringLiteral("Tonformate"));
}
void BearbeitenSteuerung::untertitel() {
    oeffneLookup(kTypUntertitel, QStringLiteral("Untertitel"));
}
void BearbeitenSteuerung::verpackungen() {
    oeffneLookup(kTypVerpackung, QStringLiteral("Verpackung"));
}

}  // namespace dv::ui
