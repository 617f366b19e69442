#include "ui/dialoge/suche/CDlgTreffer.h"

#include <QDialogButtonBox>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"
#include "ui/dialoge/suche/Liste.h"

namespace dv::ui {

CDlgTrefferBasis::CDlgTrefferBasis(QWidget* eltern, CApplikation& app, Objektbefehle& befehle,
                                   const char* wpName, const QString& titel,
                                   const QStringList& spalten)
    : Dialog(eltern, app, wpName, titel),
      befehle_(befehle),
      liste_(new ListenAnsicht(QStringLiteral("Treffer"), spalten, this)) {
    connect(liste_, &ListenAnsicht::aktiviert, this, &CDlgTrefferBasis::imBaumZeigen);
    connect(liste_, &ListenAnsicht::kopieren, this, [this](const std::vector<int>& zeilen) {
        app_.benutzer().zwischenablage(text(zeilen));
    });
    connect(liste_, &ListenAnsicht::kontextMenue, this, [this](const QPoint& wo) {
        std::vector<KatalogObjekt> gewaehlt;
        for (int z : liste_->gewaehlte()) gewaehlt.push_back(objekte_[static_cast<std::size_t>(z)]);
        const KatalogObjekt aktuell = objekte_[static_cast<std::size_t>(liste_->aktuelle())];
        befehle_.kontextMenue(this, aktuell, gewaehlt)->popup(wo);
    });

    auto* knoepfe = new QDialogButtonBox(this);
    QPushButton* zeigen =
        knoepfe->addButton(QStringLiteral("Im &Baum zeigen"), QDialogButtonBox::ActionRole);
    QPushButton* kopieren =
        knoepfe->addButton(QStringLiteral("In die &Zwischenablage"), QDialogButtonBox::ActionRole);
    knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole);
    connect(zeigen, &QPushButton::clicked, this, &CDlgTrefferBasis::imBaumZeigen);
    connect(kopieren, &QPushButton::clicked, this, &CDlgTrefferBasis::alsTextKopieren);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(liste_, 1);
    layout->addWidget(knoepfe);
    resize(760, 480);
}

void CDlgTrefferBasis::fuelle(std::vector<QStringList> zeilen, std::vector<KatalogObjekt> objekte,
                              const QString& anzahl) {
    objekte_ = std::move(objekte);
    liste_->modell().setzeZeilen(std::move(zeilen));
    liste_->setzeAnzahl(anzahl);
    if (!objekte_.empty()) liste_->waehle(0);
}

void CDlgTrefferBasis::imBaumZeigen() {
    const int z = liste_->aktuelle();
    if (z >= 0) befehle_.zeigen(objekte_[static_cast<std::size_t>(z)]);
}

void CDlgTrefferBasis::alsTextKopieren() {
    app_.benutzer().zwischenablage(text(liste_->angezeigte()));
}

// ---- Search hits -----------------------------------------------------------------

CDlgTreffer::CDlgTreffer(QWidget* eltern, CApplikation& app, Objektbefehle& befehle,
                         SuchErgebnisWerte ergebnis)
    : CDlgTrefferBasis(
          eltern, app, befehle, "WP_treffer", QStringLiteral("Suchergebnis"),
          {QStringLiteral("Treffer"), QStringLiteral("Grund"), QStringLiteral("Objekte")}),
      ergebnis_(std::move(ergebnis)) {
    std::vector<QStringList> zeilen;
    std::vector<KatalogObjekt> objekte;
    zeilen.reserve(ergebnis_.treffer.size());
    objekte.reserve(ergebnis_.treffer.size());
    for (const SuchTreffer& t : ergebnis_.treffer) {
        zeilen.push_back(
            {alsQString(t.titel), alsQString(t.grund), alsQString(SuchDienst::objektName(t.typ))});
        objekte.push_back({t.typ, t.id});
    }
    liste().setzeBreiten({230, 380});
    fuelle(std::move(zeilen), std::move(objekte), alsQString(ergebnis_.status));
    fertig();
}

std::string CDlgTreffer::text(const std::vector<int>& zeilen) const {
    std::vector<SuchTreffer> auswahl;
    auswahl.reserve(zeilen.size());
    for (int z : zeilen) auswahl.push_back(ergebnis_.treffer[static_cast<std::size_t>(z)]);
    return SuchDienst::alsText(auswahl);
}

// ---- Tag hits --------------------------------------------------------------------

CDlgTagTreffer::CDlgTagTreffer(QWidget* eltern, CApplikation& app, Objektbefehle& befehle,
                               std::vector<TagFund> funde)
    : CDlgTrefferBasis(eltern, app, befehle, "WP_tagtreffer", QStringLiteral("Tags suchen"),
                       {QStringLiteral("Objekt"), QStringLiteral("Titel")}),
      funde_(std::move(funde)) {
    std::vector<QStringList> zeilen;
    std::vector<KatalogObjekt> objekte;
    zeilen.reserve(funde_.size());
    objekte.reserve(funde_.size());
    for (const TagFund& f : funde_) {
        // The tag in braces after the title, as the copied text shows it.
        zeilen.push_back(
            {alsQString(SuchDienst::objektName(f.typ)), alsQString(f.titel + " {" + f.tag + "}")});
        objekte.push_back({f.typ, f.id});
    }
    liste().setzeBreiten({90});
    fuelle(std::move(zeilen), std::move(objekte), alsQString(TagDienst::status(funde_.size())));
    fertig();
}

std::string CDlgTagTreffer::text(const std::vector<int>& zeilen) const {
    std::vector<TagFund> auswahl;
    auswahl.reserve(zeilen.size());
    for (int z : zeilen) auswahl.push_back(funde_[static_cast<std::size_t>(z)]);
    return TagDienst::alsText(auswahl);
}

}  // namespace dv::ui
