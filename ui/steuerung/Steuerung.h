#pragma once
// The base of the controllers: one per menu area, each a set of slots that the
// action table's commands are connected to. A slot reads the current node, opens
// a dialog with open() and goes on when it closes, calls a service of app/ and
// leaves the tree to the services' change notices. Questions and messages go
// through the application's Benutzer, so tests answer them with the scripted user.

#include <QObject>
#include <QString>
#include <string>

#include "ui/aktionen/Auswahl.h"

class QWidget;

namespace dv {
class CApplikation;
class Benutzer;
class Ergebnis;
}  // namespace dv

namespace dv::ui {

class Aktionen;
class KatalogAnsicht;

// What every controller reaches. All of it outlives the controllers.
struct Fensterteile {
    CApplikation& app;
    QWidget& fenster;  // the parent of every dialog
    KatalogAnsicht& baum;
    Aktionen& aktionen;
};

class Steuerung : public QObject {
    Q_OBJECT
  public:
    // Connects the controller's slots to their commands.
    virtual void verbinde(Aktionen& aktionen) = 0;

  protected:
    explicit Steuerung(Fensterteile& teile);

    Auswahl auswahl() const;
    CApplikation& app() const { return teile_.app; }
    Benutzer& benutzer() const;
    QWidget* fenster() const { return &teile_.fenster; }
    KatalogAnsicht& baum() const { return teile_.baum; }

    // Shows the reason of a refusal ("Fehler..." or "Hinweis"); nothing for
    // success or for a question the user answered No. Returns e.ok().
    bool melde(const Ergebnis& e) const;
    // A short message under the program's title.
    void hinweis(const std::string& text) const;
    // A line in the window's status bar.
    void status(const QString& text) const;
    // Stands in for a command whose dialog is still being built.
    void nochNichtVerfuegbar(const char* befehl) const;

    Fensterteile& teile_;
};

}  // namespace dv::ui
