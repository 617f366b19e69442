#pragma once
// The QActions of the command table, the menu bar and one context menu per node
// kind built from them. Every action is named "cmd<id>" (objectName) and carries
// its id as data; its accessible name is its caption without the mnemonic.
//
// A controller plugs in with verbinde(id, this, &Steuerung::slot); each id is
// connected exactly once. The enabled state and the check marks follow
// aktualisiere(Auswahl) and nothing else.

#include <QAction>
#include <QObject>
#include <map>
#include <vector>

#include "ui/aktionen/Auswahl.h"

class QMenu;
class QMenuBar;
class QWidget;

namespace dv::ui {

class Aktionen : public QObject {
    Q_OBJECT
  public:
    // Creates every action as a child of fenster and adds it there, so that its
    // shortcut works in the whole window; baum receives the actions whose shortcut
    // works only while the tree has the focus (Delete, Enter, ...).
    Aktionen(QWidget& fenster, QWidget& baum);

    // The action of a command id; null for an id not in the table.
    QAction* aktion(int id) const;

    template <class T>
    void verbinde(int id, T* ziel, void (T::*slot)()) {
        if (QAction* a = aktion(id)) connect(a, &QAction::triggered, ziel, slot);
    }

    // Fills the menu bar in the order of the command table.
    void baueMenues(QMenuBar& leiste);
    // The context menu of a node kind, with the state of the last aktualisiere();
    // owned by this object. Null for no node.
    QMenu* kontextMenue(unsigned art);

    // Sets enabled state and check marks of every action (menu and context) for a.
    void aktualisiere(const Auswahl& a);
    const Auswahl& auswahl() const { return auswahl_; }

  private:
    QMenu* untermenue(QMenuBar& leiste, Menue m, std::map<Menue, QMenu*>& menues);
    QMenu* baueKontext(unsigned art);

    QWidget& fenster_;
    std::map<int, QAction*> aktionen_;
    std::map<unsigned, QMenu*> kontext_;
    // Context entries and the command each stands for.
    std::vector<std::pair<QAction*, int>> kontextAktionen_;
    Auswahl auswahl_;
};

// A caption without its mnemonic ("&Neu..." -> "Neu..."; "&&" stays one '&').
QString ohneKuerzel(const QString& text);

}  // namespace dv::ui
