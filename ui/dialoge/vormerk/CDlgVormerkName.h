#pragma once
// The watch-list chooser ("Vormerklisten"): every list by name with a check box.
//
// Modus::Verwalten ("&Vormerklisten" of the data menu): its context menu (and
// the keys shown there) creates, imports, exports, renames and deletes lists and
// combines the checked ones ("&Vereinigen", "&Schneiden", "&Komplement"); the
// result and the content of the checked lists ("&Anzeigen") open in the content
// view. Commands that need checked lists are disabled while none is checked.
// Modus::Mehrfach: the lists to append objects to, or the second choice of the
// complement; OK hands the checked lists to the caller.
// Modus::Einzeln: one target list (the current row) for copying or moving.

#include <vector>

#include "ui/dialoge/Dialog.h"

class QAction;
class QPushButton;

namespace dv::ui {

class ListenAnsicht;
class Objektbefehle;

class CDlgVormerkName : public Dialog {
    Q_OBJECT
  public:
    enum class Modus { Verwalten, Mehrfach, Einzeln };

    CDlgVormerkName(QWidget* eltern, CApplikation& app, Objektbefehle& befehle, Modus modus,
                    const QString& titel = QStringLiteral("Vormerklisten"));

    ListenAnsicht& liste() const { return *liste_; }
    // The ids of the checked lists in the chooser's order; the current list (0 for none).
    std::vector<long> abgehakte() const;
    long aktuelle() const;
    // Ticks the list of that id.
    void hake(long id, bool an = true);
    QAction* befehl(const QString& name) const;

  public slots:
    void neu();
    void umbenennen();
    void loeschen();
    void importieren();
    void exportieren();
    void anzeigen();
    void vereinigen();
    void schneiden();
    void komplement();

  private:
    void lade(long waehlen = 0);
    void baueBefehle();
    void aktualisiere();
    void zeigeInhalt(const QString& titel, const std::vector<long>& listen, int art,
                     const std::vector<long>& gegen = {});

    Objektbefehle& befehle_;
    Modus modus_;
    ListenAnsicht* liste_;
    QPushButton* ok_ = nullptr;
    QPushButton* anzeigen_ = nullptr;
    std::vector<long> ids_;
    std::vector<std::string> namen_;
    std::vector<QAction*> mitAuswahl_;
};

}  // namespace dv::ui
