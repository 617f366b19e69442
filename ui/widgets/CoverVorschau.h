#pragma once
// The cover preview of the box dialog: the picture scaled to fit, or "Kein
// Cover". A picture file dropped on it is offered as the new cover
// (dateiAbgelegt); nothing is stored until the dialog's OK.

#include <QLabel>
#include <QPixmap>

class QMimeData;

namespace dv::ui {

class CoverVorschau : public QLabel {
    Q_OBJECT
  public:
    explicit CoverVorschau(QWidget* eltern = nullptr);

    // Shows the picture file; an empty path or a file that is no picture shows
    // "Kein Cover". False in the latter case.
    bool zeige(const QString& datei);
    bool hatBild() const { return !bild_.isNull(); }

  signals:
    void dateiAbgelegt(const QString& datei);

  protected:
    void dragEnterEvent(QDragEnterEvent* ereignis) override;
    void dropEvent(QDropEvent* ereignis) override;
    void resizeEvent(QResizeEvent* ereignis) override;

  private:
    void skaliere();

    QPixmap bild_;
};

// The first local file of a drop that Qt can read as a picture ("" if none).
QString bildDatei(const QMimeData* daten);

}  // namespace dv::ui
