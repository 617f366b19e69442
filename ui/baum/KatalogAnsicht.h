#pragma once
// The left half of the main window: the quick filter ("Filter:", "%d von %d
// Boxen"), the catalogue tree and, on an empty catalogue, a short hint how to
// fill it. Owns the model and its box filter, answers what the commands need to
// know about the current node (Auswahl), and finds, selects and expands nodes.
//
// The view keeps its state across every change: single changes arrive as
// fine-grained model updates; a whole reload (F5, validation, another program
// writing) puts back the expanded nodes and the current node by their keys.

#include <QStringList>
#include <QWidget>
#include <vector>

#include "ui/aktionen/Auswahl.h"

class QLabel;
class QLineEdit;
class QModelIndex;
class QTreeView;

namespace dv {
class CApplikation;
}

namespace dv::ui {

class BoxFilter;
class KatalogModell;

class KatalogAnsicht : public QWidget {
    Q_OBJECT
  public:
    // app must outlive the widget. The tree is read at once.
    explicit KatalogAnsicht(CApplikation& app, QWidget* eltern = nullptr);

    QTreeView* baum() const { return baum_; }
    QLineEdit* filterFeld() const { return filter_; }
    KatalogModell& modell() const { return *modell_; }

    // The current node as the commands see it, with copy mode and the tag mark.
    Auswahl auswahl() const;
    // The current node's index in the model (invalid when none).
    QModelIndex aktuell() const;

    // Makes a box, DVD or film (object type 1, 2, 3) the current node: loads and
    // expands its path, clears the quick filter when it hides the box, scrolls to
    // it. False when the object is not in the tree.
    bool zeige(int typ, long id);
    // Expands the current node and everything below it, at most maxFilme films.
    void klappeAuf(unsigned maxFilme);
    // Collapses every box.
    void klappeBoxenZu();
    // Reads the whole tree anew, keeping expansion and the current node.
    void ladeNeu();

    // Copy mode: the source (object type 2 or 3, 0 ends it) is shown in bold.
    void setzeKopierQuelle(int typ, long id);
    int kopierTyp() const { return kopierTyp_; }
    long kopierId() const { return kopierId_; }

  signals:
    // The current node or what the commands know about it changed.
    void auswahlGeaendert();
    // The context menu of a node kind is wanted at a global position.
    void kontextMenueGewuenscht(unsigned art, const QPoint& wo);

  private:
    void filtere(const QString& text);
    void zeigeAnzahl();
    void merkeZustand();
    void stelleZustandHer();
    void klappeAuf(const QModelIndex& quelle, unsigned maxFilme, unsigned& filme);
    QModelIndex ausQuelle(const QModelIndex& quelle) const;
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

    CApplikation& app_;
    KatalogModell* modell_;
    BoxFilter* filterModell_;
    QLineEdit* filter_;
    QLabel* anzahl_;
    QTreeView* baum_;
    QLabel* hinweis_;
    int kopierTyp_ = 0;
    long kopierId_ = 0;
    // Saved across a reload: key paths of the expanded nodes and of the current one.
    std::vector<QStringList> aufgeklappt_;
    QStringList aktuellerPfad_;
};

}  // namespace dv::ui
