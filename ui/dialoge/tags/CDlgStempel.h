#pragma once
// The stamp tags: prepared tag texts, each offered for the kinds of object its
// mask names.
//
// CDlgStempel ("Stem&peltags..." of the data menu): lists every stamp tag
// (column "Text"), the check boxes "Box", "Dvd", "Film" show and change the mask
// of the current one; new, edit, delete, export to and import from a file. Each
// change is stored at once through the tag service.
//
// CDlgStempelWahl ("&Stempeltags..." of an object): only the stamp tags offered
// for the object's kind, with check boxes; OK adds the ticked texts to the
// object's tags.

#include "ui/dialoge/Dialog.h"

class QCheckBox;
class QPushButton;

namespace dv::ui {

class ListenAnsicht;

class CDlgStempel : public Dialog {
    Q_OBJECT
  public:
    CDlgStempel(QWidget* eltern, CApplikation& app);

    ListenAnsicht& liste() const { return *liste_; }
    QCheckBox* maske(int bit) const;

  public slots:
    void neu();
    void bearbeiten();
    void loeschen();
    void exportieren();
    void importieren();

  private:
    void lade(long waehlen = 0);
    void zeigeMaske();
    void aendereMaske();
    long aktuelleId() const;

    ListenAnsicht* liste_;
    QCheckBox* box_;
    QCheckBox* dvd_;
    QCheckBox* film_;
    QPushButton* bearbeiten_;
    QPushButton* loeschen_;
    std::vector<long> ids_;
    std::vector<int> masken_;
    std::vector<std::string> texte_;
};

class CDlgStempelWahl : public Dialog {
    Q_OBJECT
  public:
    CDlgStempelWahl(QWidget* eltern, CApplikation& app, int typ, long id);

    ListenAnsicht& liste() const { return *liste_; }

  public slots:
    void accept() override;

  private:
    int typ_;
    long id_;
    ListenAnsicht* liste_;
    std::vector<long> ids_;
};

}  // namespace dv::ui
