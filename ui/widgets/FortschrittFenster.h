#pragma once
// The progress window of long work (validation, export of all boxes, import of
// several files): the running text, a bar and "Abbrechen". Each step repaints the
// window, so the program stays painted while the work runs on the GUI thread; the
// work asks abgebrochen() between its steps and stops where nothing is half done.

#include <QProgressDialog>

namespace dv::ui {

class FortschrittFenster : public QProgressDialog {
    Q_OBJECT
  public:
    FortschrittFenster(QWidget* eltern, const QString& titel);

    // Shows text at step schritt of gesamt and handles waiting events.
    void setzeStand(const QString& text, int schritt, int gesamt);
    bool abgebrochen() const { return wasCanceled(); }
};

}  // namespace dv::ui
