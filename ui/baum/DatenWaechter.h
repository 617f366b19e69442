#pragma once
// Notices when another process (dorvano-cli, a second writer) changes the table
// files and has the tree read anew, keeping selection and expansion. The
// program's own writes are told apart by the data folder's fingerprint, taken
// after each of them (their change notices) and after each reload.

#include <QObject>
#include <string>

#include "app/Aenderungen.h"

class QFileSystemWatcher;
class QTimer;

namespace dv {
class CApplikation;
}

namespace dv::ui {

class KatalogAnsicht;

class DatenWaechter : public QObject, public AenderungsBeobachter {
    Q_OBJECT
  public:
    // app and ansicht must outlive the object.
    DatenWaechter(CApplikation& app, KatalogAnsicht& ansicht, QObject* eltern = nullptr);
    ~DatenWaechter() override;

    // Compares the folder with the last known state now (the watcher calls it
    // shortly after the last file event) and reloads the tree when it differs.
    // True when it reloaded.
    bool pruefe();

    void geaendert(const Aenderung& a) override;

  private:
    void beobachte();

    CApplikation& app_;
    KatalogAnsicht& ansicht_;
    QFileSystemWatcher* waechter_;
    QTimer* verzoegerung_;
    std::string stand_;
};

}  // namespace dv::ui
