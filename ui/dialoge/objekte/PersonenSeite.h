#pragma once
// The film dialog's "Personen": the film's persons in order, each with its
// function and its aliases. A person is added by typing into a field that
// completes from the whole person catalogue (any part of "Name, Vorname
// (Instanz)", tens of thousands of persons), choosing the function and typing
// the aliases separated by commas; Enter in the person field adds it. A text that
// names no person asks for a new one through the person dialog (neuePerson).
// Choosing a row puts its values into the fields, "Übernehmen" writes them back.

#include <QHash>
#include <QWidget>
#include <vector>

#include "app/PersonenDienst.h"
#include "app/Werte.h"

class QLineEdit;
class QStringListModel;
class QTreeWidget;
class QTreeWidgetItem;

namespace dv::ui {

class EintragWahl;
class TextFeld;

class PersonenSeite : public QWidget {
    Q_OBJECT
  public:
    PersonenSeite(const std::vector<PersonZeile>& personen, const std::vector<Eintrag>& funktionen,
                  QWidget* eltern = nullptr);

    void setze(const std::vector<FilmPerson>& liste);
    std::vector<FilmPerson> personen() const;
    // A person made meanwhile: it can be chosen from now on and is added to the
    // film with the function and aliases in the fields.
    void fuegeNeueHinzu(const PersonZeile& p);

    QTreeWidget* liste() const { return liste_; }
    QLineEdit* personFeld() const { return person_; }
    EintragWahl* funktion() const { return funktion_; }
    TextFeld* alias() const { return alias_; }

  signals:
    // The person dialog should make a person from this text ("Name, Vorname").
    void neuePerson(const QString& text);

  public slots:
    void hinzufuegen();
    void uebernehmen();

  private:
    long gewaehltePerson() const;
    void kenne(long id, const QString& text);
    void fuelle(QTreeWidgetItem& item, const Eintrag& person, const Eintrag& funktion,
                const std::vector<std::string>& alias);
    void zeigeZeile();

    QTreeWidget* liste_;
    QLineEdit* person_;
    EintragWahl* funktion_;
    TextFeld* alias_;
    QStringListModel* texte_;
    QHash<QString, long> ids_;
    QHash<long, QString> namen_;
};

// "Han, Solo" -> {"Han", "Solo"}: trimmed, empty parts dropped.
std::vector<std::string> aliasListe(const QString& text);

}  // namespace dv::ui
