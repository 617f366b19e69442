#pragma once
// "Web-Import" ("WP_webimport"): looks for box files on the import server by the
// disc in the drive, by EAN or by title. The downloads run on a thread of their
// own while the window stays painted; the bar shows that work is going on and
// "Abbrechen" asks "Suche wirklich abbrechen?". The hits are chosen in "Web-Import
// Auswahl (%d)" and every message of the run is shown on the GUI thread through
// the program's Benutzer. The fetched files are imported on the GUI thread once
// the thread has ended. Closing the dialog during a run stops it: what has been
// downloaded then stays in "Updates/" unimported.

#include <memory>
#include <vector>

#include "app/AustauschDienst.h"
#include "ui/dialoge/Dialog.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QThread;

namespace dv::ui {

class TextFeld;
class Weiterleitung;

class CDlgWebImport : public Dialog {
    Q_OBJECT
  public:
    CDlgWebImport(QWidget* eltern, CApplikation& app);
    ~CDlgWebImport() override;

    // What the inputs ask for; url is left to the setting.
    WebSuche suche() const;
    TextFeld* ean() const { return ean_; }
    TextFeld* titel() const { return titel_; }
    QRadioButton* art(int i) const { return arten_[static_cast<std::size_t>(i)]; }
    bool laeuft() const { return faden_ != nullptr; }
    // The files of the last run and whether each was imported.
    const std::vector<ImportZeile>& ergebnis() const { return zeilen_; }

  public slots:
    void suchen();
    void abbrechen();
    void reject() override;

  signals:
    // A run has ended and its files are imported (or it brought none).
    void beendet();

  private:
    void fertigGeholt();
    void zeigeLauf(bool an);

    std::vector<QRadioButton*> arten_;
    TextFeld* ean_;
    TextFeld* titel_;
    QProgressBar* balken_;
    QLabel* stand_;
    QPushButton* suchen_;
    QPushButton* abbrechen_;
    QThread* faden_ = nullptr;
    std::unique_ptr<Weiterleitung> weiter_;
    WebFund fund_;
    std::vector<ImportZeile> zeilen_;
    bool schliessen_ = false;
};

}  // namespace dv::ui
