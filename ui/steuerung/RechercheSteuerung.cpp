#include "ui/steuerung/RechercheSteuerung.h"

#include "app/CApplikation.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/filter/CDlgFilter.h"
#include "ui/dialoge/suche/CDlgSuche.h"
#include "ui/dialoge/suche/Objektbefehle.h"
#include "ui/dialoge/tags/CDlgStempel.h"
#include "ui/dialoge/tags/CDlgTagSuche.h"
#include "ui/dialoge/uebersicht/CDlgUebersicht.h"
#include "ui/dialoge/vormerk/CDlgVormerkName.h"
#include "ui/dialoge/webimport/CDlgWebImport.h"

namespace dv::ui {

namespace {

void oeffne(QDialog* dlg) {
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    dlg->open();
}

}  // namespace

RechercheSteuerung::RechercheSteuerung(Fensterteile& teile)
    : Steuerung(teile), befehle_(new Objektbefehle(teile.app, teile.baum, teile.aktionen, this)) {}

void RechercheSteuerung::verbinde(Aktionen& a) {
    using S = RechercheSteuerung;
    a.verbinde(kCmdSuchen, this, &S::suchen);
    a.verbinde(kCmdVormerklisten, this, &S::vormerklisten);
    a.verbinde(kCmdTagsSuchen, this, &S::tagsSuchen);
    a.verbinde(kCmdStempeltags, this, &S::stempeltags);
    a.verbinde(kCmdWebImport, this, &S::webImport);
    a.verbinde(kCmdUebersicht, this, &S::uebersicht);
    a.verbinde(kCmdFilter, this, &S::filter);
    for (int id : {kCmdBoxTags, kCmdDvdTags, kCmdFilmTags}) a.verbinde(id, this, &S::tags);
    for (int id : {kCmdBoxStempeltags, kCmdDvdStempeltags, kCmdFilmStempeltags})
        a.verbinde(id, this, &S::stempeltagsDesObjekts);
    for (int id : {kCmdBoxTagsEntfernen, kCmdDvdTagsEntfernen, kCmdFilmTagsEntfernen})
        a.verbinde(id, this, &S::tagsEntfernen);
    for (int id : {kCmdBoxVormerken, kCmdDvdVormerken, kCmdFilmVormerken})
        a.verbinde(id, this, &S::vormerken);
}

void RechercheSteuerung::suchen() {
    oeffne(new CDlgSuche(fenster(), app(), *befehle_));
}

void RechercheSteuerung::vormerklisten() {
    oeffne(new CDlgVormerkName(fenster(), app(), *befehle_, CDlgVormerkName::Modus::Verwalten));
}

void RechercheSteuerung::tagsSuchen() {
    oeffne(new CDlgTagSuche(fenster(), app(), *befehle_));
}

void RechercheSteuerung::stempeltags() {
    oeffne(new CDlgStempel(fenster(), app()));
}

void RechercheSteuerung::webImport() {
    oeffne(new CDlgWebImport(fenster(), app()));
}

void RechercheSteuerung::uebersicht() {
    oeffne(new CDlgUebersicht(fenster(), app()));
}

void RechercheSteuerung::filter() {
    oeffne(new CDlgFilter(fenster(), app()));
}

void RechercheSteuerung::tags() {
    const Auswahl a = auswahl();
    befehle_->tags(fenster(), {a.objektTyp(), a.objektId()});
}

void RechercheSteuerung::stempeltagsDesObjekts() {
    const Auswahl a = auswahl();
    befehle_->stempeltags(fenster(), {a.objektTyp(), a.objektId()});
}

// A box takes its DVDs and films with it; a DVD or film only itself.
void RechercheSteuerung::tagsEntfernen() {
    const Auswahl a = auswahl();
    TagDienst& t = app().dienste().tags();
    if (a.objektTyp() == kBox) {
        melde(t.entferneAlleDerBox(a.objektId()));
        return;
    }
    const char* frage = a.objektTyp() == kDvd ? "Sollen alle Tags dieser Dvd entfernt werden?"
                                              : "Sollen alle Tags dieses Films entfernt werden?";
    if (a.objektTyp() > 0 && benutzer().frage("Alle Tags entfernen", frage))
        melde(t.setze(a.objektTyp(), a.objektId(), {}));
}

void RechercheSteuerung::vormerken() {
    const Auswahl a = auswahl();
    if (a.objektTyp() > 0) befehle_->vormerken(fenster(), {{a.objektTyp(), a.objektId()}});
}

}  // namespace dv::ui
