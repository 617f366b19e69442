#include "ui/steuerung/RechercheSteuerung.h"

#include "ui/aktionen/Aktionen.h"

namespace dv::ui {

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

// The retrieval dialogs plug in here.
void RechercheSteuerung::suchen() {
    nochNichtVerfuegbar("Suchen");
}
void RechercheSteuerung::vormerklisten() {
    nochNichtVerfuegbar("Vormerklisten");
}
void RechercheSteuerung::tagsSuchen() {
    nochNichtVerfuegbar("Tags suchen");
}
void RechercheSteuerung::stempeltags() {
    nochNichtVerfuegbar("Stempeltags");
}
void RechercheSteuerung::webImport() {
    nochNichtVerfuegbar("Web-Import");
}
void RechercheSteuerung::uebersicht() {
    nochNichtVerfuegbar("Übersicht");
}
void RechercheSteuerung::filter() {
    nochNichtVerfuegbar("Filter");
}
void RechercheSteuerung::tags() {
    nochNichtVerfuegbar("Tags");
}
void RechercheSteuerung::stempeltagsDesObjekts() {
    nochNichtVerfuegbar("Stempeltags");
}
void RechercheSteuerung::tagsEntfernen() {
    nochNichtVerfuegbar("Alle Tags entfernen");
}
void RechercheSteuerung::vormerken() {
    nochNichtVerfuegbar("Vormerken");
}

}  // namespace dv::ui
