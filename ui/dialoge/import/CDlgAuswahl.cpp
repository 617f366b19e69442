#include "ui/dialoge/import/CDlgAuswahl.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"
#include "ui/dialoge/suche/Liste.h"

namespace dv::ui {

CDlgAuswahl::CDlgAuswahl(QWidget* eltern, CApplikation& app, const char* wpName,
                         const QString& titel, const QString& spalte,
                         const std::vector<std::string>& eintraege, bool mehrfach, int vorauswahl)
    : Dialog(eltern, app, wpName, titel),
      liste_(new ListenAnsicht(spalte, {spalte}, this)),
      mehrfach_(mehrfach) {
    liste_->modell().setzeAbhakbar(mehrfach);
    std::vector<QStringList> zeilen;
    zeilen.reserve(eintraege.size());
    for (const std::string& e : eintraege) zeilen.push_back({alsQString(e)});
    liste_->modell().setzeZeilen(std::move(zeilen));
    const int n = static_cast<int>(eintraege.size());
    liste_->setzeAnzahl(n == 1 ? QStringLiteral("1 Eintrag")
                               : QStringLiteral("%1 Einträge").arg(n));
    if (n > 0) liste_->waehle(vorauswahl >= 0 && vorauswahl < n ? vorauswahl : 0);
    if (!mehrfach) {
        liste_->setzeEinzelwahl();
        connect(liste_, &ListenAnsicht::aktiviert, this, &QDialog::accept);
    }

    auto* knoepfe = new QDialogButtonBox(this);
    if (mehrfach) {
        for (bool an : {true, false}) {
            QPushButton* b =
                knoepfe->addButton(an ? QStringLiteral("&Alle") : QStringLiteral("&Keine"),
                                   QDialogButtonBox::ResetRole);
            b->setAutoDefault(false);
            connect(b, &QPushButton::clicked, this, [this, an] {
                for (int i = 0; i < liste_->modell().rowCount(); ++i)
                    liste_->modell().setzeAbgehakt(i, an);
            });
        }
    }
    knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(liste_, 1);
    layout->addWidget(knoepfe);
    resize(480, 420);
    fertig();
}

const char* CDlgAuswahl::wpNameFuer(const std::string& titel) {
    if (titel.rfind("Web-Import", 0) == 0) return "WP_webauswahl";
    if (titel.find("Laufwerk") != std::string::npos) return "WP_laufwerkwahl";
    return "WP_auswahl";
}

std::vector<int> CDlgAuswahl::gewaehlt() const {
    if (result() != QDialog::Accepted) return {};
    if (mehrfach_) return liste_->modell().abgehakte();
    const int z = liste_->aktuelle();
    return z >= 0 ? std::vector<int>{z} : std::vector<int>{};
}

}  // namespace dv::ui
