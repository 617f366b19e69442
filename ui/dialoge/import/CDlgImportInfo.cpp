#include "ui/dialoge/import/CDlgImportInfo.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

#include "app/Zeichensatz.h"
#include "ui/widgets/Benennung.h"

namespace dv::ui {

CDlgImportInfo::CDlgImportInfo(QWidget* eltern, CApplikation& app, const QString& titel,
                               const std::vector<std::pair<std::string, std::string>>& felder)
    : Dialog(eltern, app, "WP_importinfo", titel) {
    auto* form = new QFormLayout(this);
    for (const auto& [name, wert] : felder) {
        auto* feld = new QLabel(alsQString(wert), this);
        feld->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        feld->setMinimumWidth(260);
        benenne(*feld, alsQString(name));
        form->addRow(alsQString(name), feld);
    }
    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(knoepfe);
    fertig();
}

}  // namespace dv::ui
