#pragma once
// The search dialog ("WP_suche"): the kind of object to look for, the rows of
// criteria ("Kriterium", "Operator", "Daten", "Verknüpfung") and an editor for
// one row with the criteria of the kind by their names, the operators that make
// sense for the criterion (only "=" and "!=" for texts) and the three
// combinations. Rows are added, changed, deleted and moved; "Neue Suche..."
// discards them after "Aktuelle Suche verwerfen?"; a search definition file is
// saved from and loaded into the rows. "Suchen" runs the search through the
// search service (with its progress) and opens the hits.

#include <vector>

#include "app/CApplikation.h"
#include "ui/dialoge/Dialog.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace dv::ui {

class ListenAnsicht;
class Objektbefehle;
class TextFeld;

class CDlgSuche : public Dialog {
    Q_OBJECT
  public:
    CDlgSuche(QWidget* eltern, CApplikation& app, Objektbefehle& befehle);

    // The rows as the dialog holds them.
    const std::vector<SuchZeile>& zeilen() const { return zeilen_; }
    ListenAnsicht& liste() const { return *liste_; }
    QComboBox* objekt() const { return objekt_; }
    QComboBox* kriterium() const { return kriterium_; }
    QComboBox* op() const { return op_; }
    QComboBox* verknuepfung() const { return verknuepfung_; }
    TextFeld* daten() const { return daten_; }
    QLabel* status() const { return status_; }

  public slots:
    void hinzufuegen();
    void aendern();
    void loeschen();
    void hoch();
    void runter();
    void neueSuche();
    void laden();
    void speichern();
    void suchen();

  private:
    int objektTyp() const;
    void objektGewechselt();
    void fuelleKriterien();
    void fuelleOperatoren();
    void zeigeZeile();
    SuchZeile editorZeile() const;
    void setzeZeilen(std::vector<SuchZeile> zeilen, int waehlen);
    void aktualisiere();

    Objektbefehle& befehle_;
    QComboBox* objekt_;
    ListenAnsicht* liste_;
    QComboBox* verknuepfung_;
    QComboBox* kriterium_;
    QComboBox* op_;
    TextFeld* daten_;
    QLabel* status_;
    std::vector<QPushButton*> mitZeile_;
    QPushButton* suchen_;
    std::vector<SuchZeile> zeilen_;
    int typ_ = 3;
};

}  // namespace dv::ui
