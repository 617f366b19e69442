#pragma once
// The pane beside the tree: the cover of a box scaled to fit, and below it the
// box's title, EAN, packaging and counts; "Kein Cover" when the box has none and
// nothing but that when no box is chosen.

#include <QPixmap>
#include <QWidget>

class QLabel;

namespace dv::ui {

struct CoverDaten {
    QString titel;
    QString ean;
    QString verpackung;
    QString coverDatei;  // empty: no cover
    int dvds = 0;
    int filme = 0;
};

class CoverFeld : public QWidget {
    Q_OBJECT
  public:
    explicit CoverFeld(QWidget* eltern = nullptr);

    void zeige(const CoverDaten& d);
    void leeren();
    // What the pane shows as text (the labels, line by line), for tests and
    // screen readers.
    QString beschreibung() const;
    bool hatBild() const { return !bild_.isNull(); }

  protected:
    void resizeEvent(QResizeEvent* ereignis) override;

  private:
    void skaliere();

    QLabel* bildFeld_;
    QLabel* angaben_;
    QPixmap bild_;
    QString text_;  // the lines without markup
};

}  // namespace dv::ui
