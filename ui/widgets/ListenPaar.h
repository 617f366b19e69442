#pragma once
// The pair of lists of an edit dialog: what an object has ("Zugeordnet", in its
// order) and what it could have ("Verfügbar"). Entries move between them with the
// buttons, a double click or Enter; the assigned ones can be reordered. A filter
// field narrows the available list, which may hold tens of thousands of persons;
// Enter in it assigns the first entry it shows. Where the catalogue may grow,
// "Neu..." asks the dialog for a name (neuGewuenscht) and weiseZu assigns it.
// The entries are app's Eintrag values; nothing is written until the dialog's OK.

#include <QWidget>
#include <vector>

#include "app/Werte.h"

class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace dv::ui {

class ListenPaar : public QWidget {
    Q_OBJECT
  public:
    // titel names the pair (objectName and accessible name, "Genres"); inside it
    // the lists and buttons carry their labels ("Zugeordnet", "Hinzufügen", ...).
    explicit ListenPaar(const QString& titel, QWidget* eltern = nullptr);

    // The available entries; those also assigned are not shown there.
    void setzeVerfuegbar(const std::vector<Eintrag>& eintraege);
    void setzeZugeordnet(const std::vector<Eintrag>& eintraege);
    std::vector<Eintrag> zugeordnet() const;
    // Shows "&Neu..." (signal neuGewuenscht).
    void erlaubeNeu();
    // Assigns the entry: the available one of that name (letter case ignored),
    // else a new one (id 0) that the store creates. Nothing when it is assigned.
    void weiseZu(const Eintrag& e);

    QListWidget* zugeordnetListe() const { return zugeordnet_; }
    QListWidget* verfuegbarListe() const { return verfuegbar_; }

  signals:
    void geaendert();
    void neuGewuenscht();

  public slots:
    void hinzufuegen();
    void entfernen();
    void hoch();
    void runter();

  private:
    void filtere(const QString& text);
    void verschiebe(int richtung);
    void aktualisiereKnoepfe();

    QListWidget* zugeordnet_;
    QListWidget* verfuegbar_;
    QLineEdit* filter_;
    QPushButton* hinzu_;
    QPushButton* weg_;
    QPushButton* hoch_;
    QPushButton* runter_;
    QPushButton* neu_;
};

}  // namespace dv::ui
