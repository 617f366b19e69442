#pragma once
// The hit dialogs: the hits of a search ("WP_treffer": "Treffer", "Grund",
// "Objekte" and the line "Filme: %d Treffer") and of a tag search
// ("WP_tagtreffer": "Objekt", "Titel" and "Gefundene Tags: %d"). Columns sort
// by a click; Ctrl+C copies the selected rows, "In die Zwischenablage" every
// row in the order shown, each in the text format of its service. A double
// click or "Im Baum zeigen" selects the object in the main tree; the context
// menu offers the object commands (edit, tags, stamp tags, watch lists).

#include <vector>

#include "app/CApplikation.h"
#include "ui/dialoge/Dialog.h"
#include "ui/dialoge/suche/Objektbefehle.h"

namespace dv::ui {

class ListenAnsicht;

class CDlgTrefferBasis : public Dialog {
    Q_OBJECT
  public:
    ListenAnsicht& liste() const { return *liste_; }

  public slots:
    void imBaumZeigen();
    void alsTextKopieren();

  protected:
    CDlgTrefferBasis(QWidget* eltern, CApplikation& app, Objektbefehle& befehle, const char* wpName,
                     const QString& titel, const QStringList& spalten);
    // Fills the list; objekte[i] is the object of row i.
    void fuelle(std::vector<QStringList> zeilen, std::vector<KatalogObjekt> objekte,
                const QString& anzahl);
    // The clipboard text of these rows.
    virtual std::string text(const std::vector<int>& zeilen) const = 0;

    Objektbefehle& befehle_;

  private:
    ListenAnsicht* liste_;
    std::vector<KatalogObjekt> objekte_;
};

class CDlgTreffer : public CDlgTrefferBasis {
    Q_OBJECT
  public:
    CDlgTreffer(QWidget* eltern, CApplikation& app, Objektbefehle& befehle,
                SuchErgebnisWerte ergebnis);

  private:
    std::string text(const std::vector<int>& zeilen) const override;

    SuchErgebnisWerte ergebnis_;
};

class CDlgTagTreffer : public CDlgTrefferBasis {
    Q_OBJECT
  public:
    CDlgTagTreffer(QWidget* eltern, CApplikation& app, Objektbefehle& befehle,
                   std::vector<TagFund> funde);

  private:
    std::string text(const std::vector<int>& zeilen) const override;

    std::vector<TagFund> funde_;
};

}  // namespace dv::ui
