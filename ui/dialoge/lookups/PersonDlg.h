#pragma once
// The person dialog ("WP_person"): "Nachname", "Vorname", "Instanz". A person
// whose name, first name and instance another person has already is a
// duplicate: OK then says so below the fields and proposes the next free
// instance instead of storing; a second OK takes the proposal.

#include <functional>

#include "app/PersonenDienst.h"
#include "ui/dialoge/objekte/EditDlg.h"

class QLabel;
class QSpinBox;

namespace dv::ui {

class TextFeld;

class PersonDlg : public EditDlg {
    Q_OBJECT
  public:
    PersonDlg(QWidget* eltern, CApplikation& app, const PersonWerte& w);

    PersonWerte werte() const;
    QLabel* hinweisFeld() const { return hinweis_; }

    // Opens the dialog for w (id 0: a new person) with open(); stores on OK
    // through the person service and then calls gespeichert with the person.
    static PersonDlg* oeffne(QWidget* eltern, CApplikation& app, const PersonWerte& w,
                             std::function<void(const PersonZeile&)> gespeichert);

  private:
    // A duplicate: shows why and proposes the instance; false when w is none.
    bool schlageVor(const PersonWerte& w);

    PersonWerte alt_;
    TextFeld* name_;
    TextFeld* vorname_;
    QSpinBox* instanz_;
    QLabel* hinweis_;
};

// "Ford, Harrison" -> name "Ford", first name "Harrison"; "Ford" -> name only.
// A trailing " (1)" gives the instance.
PersonWerte personAusText(const QString& text);

}  // namespace dv::ui
