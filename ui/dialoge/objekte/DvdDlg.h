#pragma once
// The DVD dialog ("WP_dvd"): "<<<Neue Dvd>>>" for a new DVD, else
// "Dvd [<title>]". Title, year, length, the region code as eight check boxes
// (bit 0 = region 1, as stored), the disc format (a new name is created on OK),
// the extras, and the disc's identity: serial number and the two halves of its
// byte count, editable, with the file system, the size text and the size class
// beside them. "Von DVD lesen" fills them from the disc in the default drive.
// The option byte is kept as stored.

#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "app/Werte.h"
#include "ui/dialoge/objekte/EditDlg.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace dv::ui {

class EintragWahl;
class ListenPaar;
class TextFeld;

// What one read of the disc gives the dialog.
struct DiscFelder {
    QString dateisystem;
    std::uint32_t sn = 0, bytesLow = 0, bytesHigh = 0;
    std::optional<unsigned> rc;  // the region code, when the disc's header could be read
};

class DvdDlg : public EditDlg {
    Q_OBJECT
  public:
    DvdDlg(QWidget* eltern, CApplikation& app, const DvdWerte& w,
           const std::vector<Eintrag>& formate, const std::vector<Eintrag>& extras);

    // What "Von DVD lesen" calls: the disc's fields, or nothing when the read
    // failed (the reader has told the user).
    using Lesen = std::function<std::optional<DiscFelder>()>;
    void setzeLesen(Lesen lesen) { lesen_ = std::move(lesen); }

    DvdWerte werte() const;

  public slots:
    void vonDvdLesen();

  protected:
    bool pruefeEingaben() override;

  private:
    void zeigeGroesse();
    // A 32-bit identity field within its range; else its message.
    bool zahlPasst(const QLineEdit& feld, const char* was);

    DvdWerte alt_;
    Lesen lesen_;
    TextFeld* titel_;
    QSpinBox* jahr_;
    QSpinBox* laenge_;
    EintragWahl* format_;
    QCheckBox* regionen_[8];
    ListenPaar* extras_;
    QLineEdit* sn_;
    QLineEdit* low_;
    QLineEdit* high_;
    QLabel* dateisystem_;
    QLabel* groesse_;
    QLabel* klasse_;
};

}  // namespace dv::ui
