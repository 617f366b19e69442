#pragma once
// One dialog for every lookup catalogue ("WP_lookup<type>"): packaging types,
// extras, formats, functions, genres, picture formats, languages, sound formats
// and subtitles (languages and subtitles are the same catalogue). The entries in
// the tree's order with the number of objects that use them; "Neu...",
// "Umbenennen...", "Löschen" of an unused entry, "Zusammenführen...".

#include <string>

#include "ui/dialoge/lookups/KatalogDlg.h"

namespace dv::ui {

class LookupDlg : public KatalogDlg {
    Q_OBJECT
  public:
    // typ: the lookup type; titel: the menu's caption without its mnemonic.
    LookupDlg(QWidget* eltern, CApplikation& app, int typ, const QString& titel);

    int typ() const { return typ_; }

  protected:
    std::vector<KatalogZeile> lade() override;
    void neuesEintrag() override;
    void bearbeiteEintrag(long id) override;
    Ergebnis loesche(long id) override;
    ErgebnisMit<std::string> zusammenfuehrFrage(long bleibt, long weg) override;
    Ergebnis fuehreZusammen(long bleibt, long weg) override;

  private:
    // The name dialog for a new entry (id 0) or a rename.
    void frageName(long id, const std::string& vorgabe);

    int typ_;
};

// "WP_lookup7" and the like.
std::string lookupWpName(int typ);

}  // namespace dv::ui
