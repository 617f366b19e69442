#pragma once
// Moving and removing the current row of a list, as the list pages of the
// film dialog do it.

class QListWidget;
class QTreeWidget;

namespace dv::ui {

// Moves the current row one place up (-1) or down (+1); it stays current.
void verschiebe(QListWidget& liste, int richtung);
void verschiebe(QTreeWidget& liste, int richtung);
// Removes the current row; the one after it (or before, at the end) becomes current.
void entferneAktuelle(QListWidget& liste);
void entferneAktuelle(QTreeWidget& liste);

}  // namespace dv::ui
