#pragma once
// What every list of found or collected objects offers on its objects, the same
// in the catalogue tree, the hit lists and the watch-list view: show the object
// in the tree, edit it, its tags, its stamp tags, put it on watch lists. The
// commands open their dialogs with open() as children of the list's dialog.

#include <QObject>
#include <vector>

class QMenu;
class QWidget;

namespace dv {
class CApplikation;
}

namespace dv::ui {

class Aktionen;
class KatalogAnsicht;

// A box, DVD or film (object type 1, 2, 3) by id.
struct KatalogObjekt {
    int typ = 0;
    long id = 0;
    bool operator==(const KatalogObjekt&) const = default;
};

class Objektbefehle : public QObject {
    Q_OBJECT
  public:
    // Everything given must outlive the object.
    Objektbefehle(CApplikation& app, KatalogAnsicht& baum, Aktionen& aktionen,
                  QObject* eltern = nullptr);

    CApplikation& app() const { return app_; }

    // Makes the object the current node of the tree; says so when it is gone.
    bool zeigen(const KatalogObjekt& o);
    // The edit dialog of the object, as "Be&arbeiten..." on its node.
    void bearbeiten(const KatalogObjekt& o);
    // "Tags [<name>]" of the object.
    void tags(QWidget* eltern, const KatalogObjekt& o);
    // The stamp tags offered for the object's kind.
    void stempeltags(QWidget* eltern, const KatalogObjekt& o);
    // The watch lists to append the objects to ("&Vormerken...").
    void vormerken(QWidget* eltern, const std::vector<KatalogObjekt>& objekte);

    // The context menu of a list row: "&Bearbeiten", "&Tags" (checked when the
    // current object has tags), "&Stempeltags...", "&Vormerken..." (all of
    // objekte), and "Im Baum zeigen". Deleted when closed.
    QMenu* kontextMenue(QWidget* eltern, const KatalogObjekt& aktuell,
                        const std::vector<KatalogObjekt>& objekte);

  private:
    CApplikation& app_;
    KatalogAnsicht& baum_;
    Aktionen& aktionen_;
};

}  // namespace dv::ui
