#include "ui/dialoge/haupt/DvdInfoDlg.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"

namespace dv::ui {

DvdInfoDlg::DvdInfoDlg(QWidget* eltern, CApplikation& app, const std::vector<DiscAngabe>& angaben)
    : Dialog(eltern, app, "WP_dvdinfo", QStringLiteral("DVD-Info")) {
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    for (const auto& [name, wert] : angaben) {
        auto* feld = new QLabel(alsQString(wert), this);
        feld->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        feld->setObjectName(alsQString(name));
        feld->setAccessibleName(feld->objectName());
        form->addRow(alsQString(name) + QLatin1Char(':'), feld);
    }
    layout->addLayout(form);
    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole)
        ->setDefault(true);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(knoepfe);
    fertig();
}

}  // namespace dv::ui
