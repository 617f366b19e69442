#pragma once
// The filters ("WP_filter"): the tree of filters, each with its eight type items
// ("Bildformate" ... "Verpackungsarten"), and beside it the entries of the chosen
// type's catalogue with their external names ("Intern", "Extern"). A new filter
// is "<<<Neuer Filter>>>" until renamed in place (F2); deleting asks first;
// Enter or a double click on an entry opens "Filtereintrag [%s]" (an empty text
// removes the translation). Below, the active filter of box files and of XML
// documents is chosen. Every change is stored at once through the filter service.

#include <vector>

#include "app/CApplikation.h"
#include "ui/dialoge/Dialog.h"

class QComboBox;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace dv::ui {

class ListenAnsicht;

class CDlgFilter : public Dialog {
    Q_OBJECT
  public:
    CDlgFilter(QWidget* eltern, CApplikation& app);

    QTreeWidget* baum() const { return baum_; }
    ListenAnsicht& eintraege() const { return *eintraege_; }
    // The active filter's choice: box files (xml false) or XML documents.
    QComboBox* aktiv(bool xml) const { return xml ? aktivXml_ : aktivBox_; }
    // Makes the filter (typ 0) or its type item current.
    bool waehle(long id, int typ = 0);

  public slots:
    void neu();
    void umbenennen();
    void loeschen();
    void eintragBearbeiten();

  private:
    void lade(long waehlen = 0);
    void fuelleAktive();
    void zeigeEintraege();
    void umbenannt(QTreeWidgetItem* item);
    void aktivGewaehlt(bool xml);
    long filterId(const QTreeWidgetItem* item) const;
    int filterTyp(const QTreeWidgetItem* item) const;

    QTreeWidget* baum_;
    ListenAnsicht* eintraege_;
    QComboBox* aktivBox_;
    QComboBox* aktivXml_;
    QPushButton* loeschen_;
    std::vector<FilterEintrag> liste_;
    bool laedt_ = false;
};

}  // namespace dv::ui
