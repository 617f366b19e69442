#pragma once
// "Tags [<name>]": the tags of one box, DVD or film, one line each. New tags and
// changes are made in the list; OK writes the whole list through the tag service
// (an empty list removes the object's tag file), Abbrechen leaves the file alone.

#include <string>
#include <vector>

#include "ui/dialoge/Dialog.h"

class QListWidget;
class QPushButton;

namespace dv::ui {

class CDlgTags : public Dialog {
    Q_OBJECT
  public:
    CDlgTags(QWidget* eltern, CApplikation& app, int typ, long id);

    QListWidget* liste() const { return liste_; }
    // The tags as the list holds them now (catalogue code page).
    std::vector<std::string> tags() const;

  public slots:
    void neu();
    void bearbeiten();
    void loeschen();
    void accept() override;

  private:
    void frageText(const QString& titel, const std::string& vorgabe, int zeile);
    void zeigeAnzahl();

    int typ_;
    long id_;
    QListWidget* liste_;
    QPushButton* bearbeiten_;
    QPushButton* loeschen_;
};

}  // namespace dv::ui
