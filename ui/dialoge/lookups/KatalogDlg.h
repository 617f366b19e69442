#pragma once
// The frame of the catalogue dialogs (a lookup catalogue, the persons): the
// entries with the number of objects that use each, a filter field, and "Neu...",
// "Bearbeiten..." (or "Umbenennen..."), "Löschen", "Zusammenführen...",
// "Schließen". Each change is confirmed on its own (the name dialog's OK, the
// question before deleting or merging) and stored by the service at once; the
// list is then read anew. Enter edits the current entry, Delete deletes it.

#include <string>
#include <vector>

#include "app/Ergebnis.h"
#include "ui/dialoge/Dialog.h"
#include "ui/dialoge/lookups/ZeilenModell.h"

class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace dv::ui {

class KatalogDlg : public Dialog {
    Q_OBJECT
  public:
    QTreeView* liste() const { return liste_; }
    QLineEdit* filter() const { return filter_; }
    const ZeilenModell& modell() const { return *modell_; }
    // The current entry's id (0: none) and its row.
    long aktuelleId() const;
    const KatalogZeile* aktuelleZeile() const;
    void waehle(long id);
    // Reads the rows anew; the entry id (else the current one) stays current.
    void ladeNeu(long id = 0);

  public slots:
    void neu();
    void bearbeiten();
    void loeschen();
    void zusammenfuehren();

  protected:
    // bearbeitenText: "&Bearbeiten..." or "&Umbenennen..."; spalten: the headers.
    KatalogDlg(QWidget* eltern, CApplikation& app, const char* wpName, const QString& titel,
               const QString& textSpalte, const QString& anzahlSpalte,
               const QString& bearbeitenText);
    // Call at the end of the subclass's constructor: reads the rows, names controls.
    void fertigLaden();

    virtual std::vector<KatalogZeile> lade() = 0;
    // Open the dialog of a new or of the given entry; call ladeNeu(id) when stored.
    virtual void neuesEintrag() = 0;
    virtual void bearbeiteEintrag(long id) = 0;
    virtual Ergebnis loesche(long id) = 0;
    virtual ErgebnisMit<std::string> zusammenfuehrFrage(long bleibt, long weg) = 0;
    virtual Ergebnis fuehreZusammen(long bleibt, long weg) = 0;

    bool melde(const Ergebnis& e);

  private:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

    ZeilenModell* modell_;
    QSortFilterProxyModel* proxy_;
    QLineEdit* filter_;
    QTreeView* liste_;
};

}  // namespace dv::ui
