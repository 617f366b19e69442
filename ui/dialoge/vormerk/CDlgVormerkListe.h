#pragma once
// The content view of watch lists: the elements of the checked lists, or the
// result of a set operation ("Vereinigung", "Schnitt", "Komplement"), with the
// columns "Vormerkliste" and "Titel" and the line "Inhalt der Vormerkliste(n)
// [%d Element%s]". Its context menu copies or moves the selected elements into
// another list, moves one up or down within its list, removes it, and offers the
// object's tags and stamp tags; Ctrl+C copies the selected rows as text.
//
// The view reads its elements through the function it is given, again after
// every change, so that a set operation's result stays what it says.

#include <functional>
#include <vector>

#include "app/CApplikation.h"
#include "ui/dialoge/Dialog.h"

class QAction;

namespace dv::ui {

class ListenAnsicht;
class Objektbefehle;

class CDlgVormerkListe : public Dialog {
    Q_OBJECT
  public:
    using Quelle = std::function<ErgebnisMit<std::vector<VormerkEintrag>>()>;

    CDlgVormerkListe(QWidget* eltern, CApplikation& app, Objektbefehle& befehle,
                     const QString& titel, Quelle quelle);

    ListenAnsicht& liste() const { return *liste_; }
    const std::vector<VormerkEintrag>& eintraege() const { return eintraege_; }
    QAction* befehl(const QString& name) const;

  public slots:
    void kopieren();
    void verschieben();
    void hoch();
    void runter();
    void entfernen();
    void tags();
    void stempeltags();
    void imBaumZeigen();
    void alsTextKopieren();

  private:
    // Reads the elements anew; selects the first of waehlen that is shown.
    void lade(const VormerkEintrag* waehlen = nullptr);
    std::vector<VormerkEintrag> gewaehlte() const;
    const VormerkEintrag* aktueller() const;
    void verschiebe(bool hoch);
    void uebertrage(bool verschieben);
    void aktualisiere();

    Objektbefehle& befehle_;
    Quelle quelle_;
    ListenAnsicht* liste_;
    std::vector<VormerkEintrag> eintraege_;
    std::vector<QAction*> aktionen_;
};

}  // namespace dv::ui
