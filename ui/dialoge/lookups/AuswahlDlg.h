#pragma once
// Choosing one entry of a catalogue list, with a filter field: the entry that
// another one is merged into. Hands out the chosen id on OK.

#include <vector>

#include "ui/dialoge/Dialog.h"
#include "ui/dialoge/lookups/ZeilenModell.h"

class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace dv::ui {

class AuswahlDlg : public Dialog {
    Q_OBJECT
  public:
    // frage: the line above the list ("\"Krimis\" zusammenführen mit:").
    AuswahlDlg(QWidget* eltern, CApplikation& app, const QString& titel, const QString& frage,
               std::vector<KatalogZeile> zeilen);

    // The chosen entry's id, 0 when none.
    long gewaehlt() const;
    QTreeView* liste() const { return liste_; }
    QLineEdit* filter() const { return filter_; }
    void waehle(long id);

  public slots:
    void accept() override;

  private:
    ZeilenModell* modell_;
    QSortFilterProxyModel* proxy_;
    QLineEdit* filter_;
    QTreeView* liste_;
};

// A list view over a catalogue model as the catalogue dialogs show it: one row
// per entry, the text column stretched, the count column as wide as its numbers;
// the filter field narrows it to the entries whose text contains what is typed.
QTreeView* katalogListe(QWidget* eltern, QSortFilterProxyModel& proxy, QLineEdit& filter);

}  // namespace dv::ui
