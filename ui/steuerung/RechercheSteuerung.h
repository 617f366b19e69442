#pragma once
// Finding and collecting: search, watch lists, tags and stamp tags (also of the
// current object), filters, the web import and the HTML overview. Each slot
// opens its dialog with open(); the object commands are shared with the hit
// lists and the watch-list view through Objektbefehle.

#include "ui/steuerung/Steuerung.h"

namespace dv::ui {

class Objektbefehle;

class RechercheSteuerung : public Steuerung {
    Q_OBJECT
  public:
    explicit RechercheSteuerung(Fensterteile& teile);
    void verbinde(Aktionen& aktionen) override;

  public slots:
    void suchen();
    void vormerklisten();
    void tagsSuchen();
    void stempeltags();
    void webImport();
    void uebersicht();
    void filter();
    // The current box, DVD or film: its tags, its stamp tags, removing all its
    // tags, putting it on a watch list.
    void tags();
    void stempeltagsDesObjekts();
    void tagsEntfernen();
    void vormerken();

  private:
    Objektbefehle* befehle_;
};

}  // namespace dv::ui
