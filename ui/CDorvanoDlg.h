#pragma once
// The main window: the whole collection as one tree. The root reads
// "%s {%d Box%s}" with the title "DORVANO"; below it one node per box.
// Menus hand their work to small controllers; the window itself only shows the tree.

#include <QMainWindow>

class QTreeWidget;
class QTreeWidgetItem;

namespace dv {
class CApplikation;
}

namespace dv::ui {

class KatalogBaum;

class CDorvanoDlg : public QMainWindow {
    Q_OBJECT
  public:
    // app must outlive the window. Reads the options and restores "WP_main".
    explicit CDorvanoDlg(CApplikation& app, QWidget* eltern = nullptr);
    ~CDorvanoDlg() override;

    // Rebuilds the tree from the catalogue.
    void ladeBaum();
    QTreeWidget* baum() const { return baum_; }
    QTreeWidgetItem* wurzel() const;

    // "%s {%d Box%s}": "en" unless the count is 1.
    static std::string wurzelText(const char* titel, int anzahl);

    // The "Aufklappen" command on an item: everything below it, at most
    // MaxFilmeAufklappen films.
    void klappeAuf(QTreeWidgetItem* item);
    KatalogBaum& katalogBaum() { return *katalogBaum_; }

  protected:
    void closeEvent(QCloseEvent* ereignis) override;

  private:
    void leseOptionen();

    CApplikation& app_;
    QTreeWidget* baum_;
    KatalogBaum* katalogBaum_;  // owned by baum_
    unsigned options_ = 0;
    unsigned options2_ = 0;
    unsigned maxFilmeAufklappen_ = 0;
};

}  // namespace dv::ui
