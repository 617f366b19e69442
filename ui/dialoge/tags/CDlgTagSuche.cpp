#include "ui/dialoge/tags/CDlgTagSuche.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "ui/dialoge/suche/CDlgTreffer.h"
#include "ui/widgets/TextFeld.h"

namespace dv::ui {

CDlgTagSuche::CDlgTagSuche(QWidget* eltern, CApplikation& app, Objektbefehle& befehle)
    : Dialog(eltern, app, "WP_suchtags", QStringLiteral("Tags suchen")),
      befehle_(befehle),
      text_(new TextFeld(1024, this)),
      objekt_(new QComboBox(this)) {
    objekt_->addItem(QStringLiteral("Alle"), 0);
    for (int t = 1; t <= 3; ++t) objekt_->addItem(alsQString(SuchDienst::objektName(t)), t);
    text_->setMinimumWidth(280);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("&Text:"), text_);
    form->addRow(QStringLiteral("&Objekt:"), objekt_);
    auto* knoepfe = new QDialogButtonBox(this);
    QPushButton* suchen =
        knoepfe->addButton(QStringLiteral("&Suchen"), QDialogButtonBox::ActionRole);
    suchen->setDefault(true);
    knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole);
    connect(suchen, &QPushButton::clicked, this, &CDlgTagSuche::suchen);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(knoepfe);
    fertig();
}

void CDlgTagSuche::suchen() {
    const std::string text = text_->text8();
    if (text.empty()) return;
    auto funde = app_.dienste().tags().suche(text, objekt_->currentData().toInt(), true);
    auto* treffer = new CDlgTagTreffer(this, app_, befehle_, std::move(funde));
    treffer->setAttribute(Qt::WA_DeleteOnClose);
    treffer->open();
}

}  // namespace dv::ui
