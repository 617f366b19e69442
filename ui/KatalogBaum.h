#pragma once
// The catalogue tree of the main window: the root "%s {%d Box%s}", one node per
// box in the order of the box list, and below each box its DVDs, below each DVD
// its films, below each film the groups of its lookups ("Genre", "Bildformate",
// "Sprachen inkl. Tonformat", "Untertitel", "Personen"). Everything below the
// boxes is read from the catalogue when its node is expanded for the first time.

#include <QtCore/qnamespace.h>
#include <QObject>
#include <string>

class QTreeWidget;
class QTreeWidgetItem;

namespace dv {
class KatalogDienst;
}

namespace dv::ui {

// What a tree item carries: the object type (kBox, kDvd, kFilm;
// 0 for the root, a group or an entry) and the record number; a group also its
// lookup type.
inline constexpr int kRolleTyp = Qt::UserRole;
inline constexpr int kRolleId = Qt::UserRole + 1;
inline constexpr int kRolleLookup = Qt::UserRole + 2;
inline constexpr int kRolleGeladen = Qt::UserRole + 3;  // children read already

class KatalogBaum : public QObject {
    Q_OBJECT
  public:
    // baum and katalog must outlive the object.
    KatalogBaum(QTreeWidget& baum, KatalogDienst& katalog);

    // Clears the tree and shows the root and the boxes.
    void lade(const char* titel);
    // "%s {%d Box%s}": the suffix "en" unless the count is 1.
    static std::string wurzelText(const char* titel, int anzahl);

    // The "Aufklappen" command: expands item and everything below it, but at
    // most maxFilme film nodes (the option MaxFilmeAufklappen).
    void klappeAuf(QTreeWidgetItem* item, unsigned maxFilme);

    // Reads the children of an object node unless done already.
    void ladeKinder(QTreeWidgetItem* item);

    // The label of a film's group: "Extras", "Formate", "Genre", "Bildformate",
    // "Sprachen inkl. Tonformat", "Untertitel", "Personen"; "<unbekannt>" for any
    // other lookup type.
    static const char* gruppenText(int lookupTyp);

  private:
    void ladeDvds(QTreeWidgetItem* box);
    void ladeFilme(QTreeWidgetItem* dvd);
    void ladeGruppen(QTreeWidgetItem* film);
    void klappeAuf(QTreeWidgetItem* item, unsigned maxFilme, unsigned& filme);

    QTreeWidget& baum_;
    KatalogDienst& katalog_;
};

}  // namespace dv::ui
