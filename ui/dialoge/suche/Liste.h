#pragma once
// The lists of the retrieval dialogs (hits, tag hits, watch-list content, the
// filter's entries, the choice of lists): rows of display texts on Qt's
// model/view classes, so that ten thousand rows open at once. Every column sorts
// by a click on its header; Ctrl+C hands the selected rows (in the order shown)
// to the dialog, which builds the clipboard text through its service; the line
// below the list shows the count the dialog gives it.
//
// Rows are identified by their index in the order they were handed over
// ("Quellzeile"), whatever the current sort order is.

#include <QAbstractTableModel>
#include <QStringList>
#include <QWidget>
#include <vector>

class QAction;
class QLabel;
class QSortFilterProxyModel;
class QTreeView;

namespace dv::ui {

class TextTabelle : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit TextTabelle(QObject* eltern = nullptr) : QAbstractTableModel(eltern) {}

    void setzeSpalten(const QStringList& spalten);
    // Replaces every row; each row holds one text per column.
    void setzeZeilen(std::vector<QStringList> zeilen);
    // Replaces the texts of one row.
    void setzeZeile(int zeile, QStringList texte);
    // With check boxes in the first column (all unticked after setzeZeilen).
    void setzeAbhakbar(bool an) { abhakbar_ = an; }
    bool abgehakt(int zeile) const;
    void setzeAbgehakt(int zeile, bool an);
    // The rows ticked, in their original order.
    std::vector<int> abgehakte() const;

    int rowCount(const QModelIndex& eltern = QModelIndex()) const override;
    int columnCount(const QModelIndex& eltern = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int rolle) const override;
    bool setData(const QModelIndex& index, const QVariant& wert, int rolle) override;
    QVariant headerData(int abschnitt, Qt::Orientation richtung, int rolle) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  signals:
    void hakenGeaendert();

  private:
    QStringList spalten_;
    std::vector<QStringList> zeilen_;
    std::vector<char> haken_;
    bool abhakbar_ = false;
};

class ListenAnsicht : public QWidget {
    Q_OBJECT
  public:
    // name: objectName and accessible name of the list itself.
    ListenAnsicht(const QString& name, const QStringList& spalten, QWidget* eltern = nullptr);

    TextTabelle& modell() const { return *modell_; }
    QTreeView* ansicht() const { return ansicht_; }
    QLabel* anzahlZeile() const { return anzahl_; }

    // The text of the line below the list ("Filme: 3 Treffer").
    void setzeAnzahl(const QString& text);
    // Sets the column widths (in pixels, the last one stretches).
    void setzeBreiten(const std::vector<int>& breiten);
    // Only one row at a time can be selected.
    void setzeEinzelwahl();
    // Whether a click on a header sorts (off where the order itself matters).
    void setzeSortierbar(bool an);
    // Sorts by the column as a click on its header does; -1 restores the order
    // the rows were handed over in.
    void sortiere(int spalte, Qt::SortOrder richtung = Qt::AscendingOrder);

    // A command of the list's context menu, named after its caption (catalogue
    // code page, with its mnemonic); its key (QKeySequence text) works while the
    // list has the focus.
    QAction* befehl(const char* text, const char* taste = nullptr);

    // The selected rows in the order shown; the current row (-1 for none).
    std::vector<int> gewaehlte() const;
    int aktuelle() const;
    // Makes the row current and selected.
    void waehle(int zeile);
    // Every row in the order shown.
    std::vector<int> angezeigte() const;

  signals:
    // Double click or Enter on a row.
    void aktiviert(int zeile);
    // Ctrl+C: the selected rows (never empty).
    void kopieren(const std::vector<int>& zeilen);
    // The context menu is wanted for the current row at a global position.
    void kontextMenue(const QPoint& wo);
    void auswahlGeaendert();

  private:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

    TextTabelle* modell_;
    QSortFilterProxyModel* sortierung_;
    QTreeView* ansicht_;
    QLabel* anzahl_;
};

}  // namespace dv::ui
