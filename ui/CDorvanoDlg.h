#pragma once
// The main window: the quick filter and the catalogue tree on the left, the
// cover of the current box on the right, the menu bar and the context menus of
// the command table, and one controller per menu area that carries out the
// commands. The window itself only wires these together.

#include <QMainWindow>
#include <memory>
#include <vector>

class QSplitter;
class QTimer;

namespace dv {
class CApplikation;
}

namespace dv::ui {

class Aktionen;
class CoverFeld;
class DatenSteuerung;
class DatenWaechter;
class KatalogAnsicht;
class Steuerung;
struct Fensterteile;

class CDorvanoDlg : public QMainWindow {
    Q_OBJECT
  public:
    // app must outlive the window. Restores "WP_main" and reads the tree.
    explicit CDorvanoDlg(CApplikation& app, QWidget* eltern = nullptr);
    ~CDorvanoDlg() override;

    KatalogAnsicht& katalog() const { return *katalog_; }
    Aktionen& aktionen() const { return *aktionen_; }
    CoverFeld& cover() const { return *cover_; }
    DatenSteuerung& daten() const { return *daten_; }
    DatenWaechter& waechter() const { return *waechter_; }

    // Imports box files as "&Importieren" does (dropped files, a second start).
    void importiere(const QStringList& pfade);
    // Listens for the files of a second start under the socket name; the window
    // comes to the front and imports them. False when it cannot listen.
    bool empfangeUebergaben(const QString& name);

  protected:
    void closeEvent(QCloseEvent* ereignis) override;
    void dragEnterEvent(QDragEnterEvent* ereignis) override;
    void dropEvent(QDropEvent* ereignis) override;

  private:
    void auswahlGeaendert();
    void zeigeCover();

    CApplikation& app_;
    KatalogAnsicht* katalog_;
    CoverFeld* cover_;
    QSplitter* teiler_;
    Aktionen* aktionen_;
    std::unique_ptr<Fensterteile> teile_;
    DatenSteuerung* daten_;
    DatenWaechter* waechter_;
    QTimer* coverUhr_;
    long coverBox_ = 0;
};

}  // namespace dv::ui
