#pragma once
// The box dialog ("WP_box"): "<<<Neue Box>>>" for a new box, else
// "Box [<title>]". Title, EAN, packaging (a new name is created on OK), the
// extras as assigned and available lists, and the cover: a preview, "Cover
// wählen..." in the folder of the last picture chosen (setting LastPicPath), a
// picture dropped on the preview, "Cover entfernen". Nothing is stored before OK.

#include <vector>

#include "app/BearbeitungsDienst.h"
#include "app/Werte.h"
#include "ui/dialoge/objekte/EditDlg.h"

class QPushButton;

namespace dv::ui {

class CoverVorschau;
class EintragWahl;
class ListenPaar;
class TextFeld;

class BoxDlg : public EditDlg {
    Q_OBJECT
  public:
    // w: the stored box (id 0 for a new one); the catalogues to choose from.
    BoxDlg(QWidget* eltern, CApplikation& app, const BoxWerte& w,
           const std::vector<Eintrag>& verpackungen, const std::vector<Eintrag>& extras);

    BoxWerte werte() const;
    const CoverWahl& cover() const { return cover_; }

  public slots:
    // The file becomes the chosen cover when it is a picture (else a message).
    void waehleCover(const QString& datei);
    void entferneCover();
    // Opens the picture file dialog in LastPicPath.
    void coverDialog();

  private:
    BoxWerte alt_;
    CoverWahl cover_;
    TextFeld* titel_;
    TextFeld* ean_;
    EintragWahl* verpackung_;
    ListenPaar* extras_;
    CoverVorschau* vorschau_;
    QPushButton* entfernen_;  // only while there is a cover to remove
};

}  // namespace dv::ui
