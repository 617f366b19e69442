#include "ui/dialoge/objekte/Reihen.h"

#include <QListWidget>
#include <QTreeWidget>
#include <algorithm>

namespace dv::ui {

void verschiebe(QListWidget& liste, int richtung) {
    const int zeile = liste.currentRow();
    const int ziel = zeile + richtung;
    if (zeile < 0 || ziel < 0 || ziel >= liste.count()) return;
    liste.insertItem(ziel, liste.takeItem(zeile));
    liste.setCurrentRow(ziel);
}

void verschiebe(QTreeWidget& liste, int richtung) {
    const int zeile = liste.indexOfTopLevelItem(liste.currentItem());
    const int ziel = zeile + richtung;
    if (zeile < 0 || ziel < 0 || ziel >= liste.topLevelItemCount()) return;
    liste.insertTopLevelItem(ziel, liste.takeTopLevelItem(zeile));
    liste.setCurrentItem(liste.topLevelItem(ziel));
}

void entferneAktuelle(QListWidget& liste) {
    const int zeile = liste.currentRow();
    if (zeile < 0) return;
    delete liste.takeItem(zeile);
    if (liste.count() > 0) liste.setCurrentRow(std::min(zeile, liste.count() - 1));
}

void entferneAktuelle(QTreeWidget& liste) {
    const int zeile = liste.indexOfTopLevelItem(liste.currentItem());
    if (zeile < 0) return;
    delete liste.takeTopLevelItem(zeile);
    if (liste.topLevelItemCount() > 0)
        liste.setCurrentItem(liste.topLevelItem(std::min(zeile, liste.topLevelItemCount() - 1)));
}

}  // namespace dv::ui
