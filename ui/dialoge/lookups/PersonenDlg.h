#pragma once
// "&Personen..." ("WP_personen"): every person as "Name, Vorname (Instanz)" with
// the number of films it appears in; "Neu...", "Bearbeiten..." (the person
// dialog), "Löschen" of a person no film names, "Zusammenführen..." of two
// persons that are one.

#include "ui/dialoge/lookups/KatalogDlg.h"

namespace dv::ui {

class PersonenDlg : public KatalogDlg {
    Q_OBJECT
  public:
    PersonenDlg(QWidget* eltern, CApplikation& app);

  protected:
    std::vector<KatalogZeile> lade() override;
    void neuesEintrag() override;
    void bearbeiteEintrag(long id) override;
    Ergebnis loesche(long id) override;
    ErgebnisMit<std::string> zusammenfuehrFrage(long bleibt, long weg) override;
    Ergebnis fuehreZusammen(long bleibt, long weg) override;
};

}  // namespace dv::ui
