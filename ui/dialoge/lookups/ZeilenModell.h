#pragma once
// The rows of a catalogue list: an entry's text and how many objects use it,
// for tens of thousands of persons as cheaply as for a few genres. Filtering
// is done by a proxy over the text column.

#include <QAbstractTableModel>
#include <QString>
#include <vector>

namespace dv::ui {

struct KatalogZeile {
    long id = 0;
    QString text;
    long anzahl = 0;
};

class ZeilenModell : public QAbstractTableModel {
    Q_OBJECT
  public:
    // spalten: the headers of the text and the count column ("Name", "Verwendet").
    ZeilenModell(const QString& textSpalte, const QString& anzahlSpalte, QObject* eltern);

    void setze(std::vector<KatalogZeile> zeilen);
    const KatalogZeile* zeile(int i) const;
    int zeileVon(long id) const;  // -1 when not listed

    int rowCount(const QModelIndex& eltern = QModelIndex()) const override;
    int columnCount(const QModelIndex& eltern = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int rolle) const override;
    QVariant headerData(int spalte, Qt::Orientation o, int rolle) const override;

  private:
    QString spalten_[2];
    std::vector<KatalogZeile> zeilen_;
};

}  // namespace dv::ui
