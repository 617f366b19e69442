#pragma once
// Notices a disc put into the default drive. Every few seconds, unless the
// option "Eingelegte DVDs selbst erkennen" is off or no drive is chosen, the
// disc is read on a worker thread (a drive spinning up must not stop the
// window); a disc not seen before is looked up on the GUI thread: a known one's
// DVD becomes the current node, for an unknown one the status bar points to the
// web import. Nothing is asked and nothing is stored.

#include <QObject>
#include <QString>
#include <optional>
#include <tuple>

#include "app/LaufwerkDienst.h"

class QThread;
class QTimer;

namespace dv::ui {

class KatalogAnsicht;

class DiscWaechter : public QObject {
    Q_OBJECT
  public:
    // app and baum must outlive the object; reads the machine's drives.
    DiscWaechter(CApplikation& app, KatalogAnsicht& baum, QObject* eltern = nullptr);
    // Waits for a read still running.
    ~DiscWaechter() override;

    // l must outlive the object (tests put disc images in the place of drives).
    void setzeLaufwerke(Laufwerke& l) { laufwerke_ = &l; }
    // The pause between two looks; 0 stops looking by the clock.
    void setzeTakt(int ms);
    // One look at the drive, done on the calling thread.
    void pruefeJetzt();

  signals:
    // A line for the status bar.
    void gemeldet(const QString& text);

  private:
    bool bereit(char& buchstabe);
    void starteLesung();
    void werteAus(bool gelesen, const DiscInfo& info);

    CApplikation& app_;
    KatalogAnsicht& baum_;
    Laufwerke* laufwerke_;
    QTimer* uhr_;
    QThread* leser_ = nullptr;
    // The identity of the disc seen last; none while the drive is empty.
    std::optional<std::tuple<std::uint32_t, std::uint32_t, std::uint32_t>> zuletzt_;
};

}  // namespace dv::ui
