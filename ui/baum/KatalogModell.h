#pragma once
// The catalogue tree as a Qt model: the root "%s {%d Box%s}", one row per box in
// the order of the box list, below a box its DVDs, below a DVD its films, below a
// film the groups of its lookups with their entries ("Personen": "Vorname Name
// (Funktion)" with the aliases below). Everything below the boxes is read through
// the catalogue service when a node is expanded the first time (fetchMore).
//
// The model follows the services' change notices: only the nodes concerned are
// inserted, removed, moved or renamed, so the view keeps its selection and its
// expanded nodes; the root's count follows. A notice of kind Alles reads the
// whole tree anew (see KatalogAnsicht for keeping the view's state across it).

#include <QAbstractItemModel>
#include <memory>
#include <string>
#include <vector>

#include "app/Aenderungen.h"

namespace dv {
class CApplikation;
struct BoxZeile;
}  // namespace dv

namespace dv::ui {

// Roles of every index besides the display text.
inline constexpr int kRolleArt = Qt::UserRole;             // Knotenart
inline constexpr int kRolleId = Qt::UserRole + 1;          // object, lookup or person id
inline constexpr int kRolleLookup = Qt::UserRole + 2;      // a group's lookup type
inline constexpr int kRolleTitel = Qt::UserRole + 3;       // a box's title (catalogue bytes)
inline constexpr int kRolleEan = Qt::UserRole + 4;         // a box's EAN (catalogue bytes)
inline constexpr int kRolleSchluessel = Qt::UserRole + 5;  // see KatalogModell::schluessel

class KatalogModell : public QAbstractItemModel, public AenderungsBeobachter {
    Q_OBJECT
  public:
    // Registers with app's change notices for its lifetime; app must outlive it.
    explicit KatalogModell(CApplikation& app, QObject* eltern = nullptr);
    ~KatalogModell() override;

    // Reads the root and the boxes anew; nothing below the boxes is loaded.
    // Announced by wirdNeuGeladen() before and neuGeladen() after.
    void lade();
    QModelIndex wurzel() const;
    int boxAnzahl() const;

    // The index of a box, DVD or film node (object type 1, 2, 3), loading the
    // nodes on its path as needed; invalid when the object is not in the tree.
    QModelIndex finde(int typ, long id);
    // The index below eltern whose key is schluessel (loaded nodes only).
    QModelIndex kind(const QModelIndex& eltern, const QString& schluessel) const;
    // A key that names a node among its siblings and survives a reload:
    // "b12", "d7", "f30", "g9" (a group by lookup type), "e4" (an entry).
    static QString schluessel(const QModelIndex& index);

    // The copy source is shown in bold (object type 0: none).
    void setzeMarkiert(int typ, long id);

    // "%s {%d Box%s}": the suffix "en" unless the count is 1.
    static QString wurzelText(int anzahl);

    // QAbstractItemModel
    QModelIndex index(int zeile, int spalte, const QModelIndex& eltern = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& eltern = {}) const override;
    int columnCount(const QModelIndex& eltern = {}) const override;
    QVariant data(const QModelIndex& index, int rolle) const override;
    bool hasChildren(const QModelIndex& eltern = {}) const override;
    bool canFetchMore(const QModelIndex& eltern) const override;
    void fetchMore(const QModelIndex& eltern) override;

    // AenderungsBeobachter
    void geaendert(const Aenderung& a) override;

  signals:
    // The whole tree is about to be read anew / has been (lade()).
    void wirdNeuGeladen();
    void neuGeladen();
    // The number of boxes changed.
    void anzahlGeaendert(int boxen);

  public:
    struct Knoten;

  private:
    Knoten* knoten(const QModelIndex& index) const;
    QModelIndex indexVon(Knoten* k) const;
    void ladeKinder(Knoten& k);
    void setzeKinder(Knoten& eltern, std::vector<std::unique_ptr<Knoten>> neu);
    void entferne(Knoten& k);
    void boxGeaendert(const Aenderung& a);
    void unterobjektGeaendert(const Aenderung& a);
    void aktualisiereKinder(Knoten& eltern);
    void verschiebe(Knoten& eltern, int von, int nach);
    std::vector<Knoten*> geladeneFilme() const;
    void aktualisiereWurzel();
    // Every loaded node of that kind and id (kJedeId: any id).
    static constexpr long kJedeId = -1;
    std::vector<Knoten*> alleMit(unsigned art, long id) const;

    CApplikation& app_;
    std::unique_ptr<Knoten> unsichtbar_;  // holds the one root node
    int markiertTyp_ = 0;
    long markiertId_ = 0;
};

}  // namespace dv::ui
