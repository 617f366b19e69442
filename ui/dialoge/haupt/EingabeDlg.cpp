#include "ui/dialoge/haupt/EingabeDlg.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/widgets/TextFeld.h"

namespace dv::ui {

EingabeDlg::EingabeDlg(QWidget* eltern, CApplikation& app, const char* wpName, const QString& titel,
                       const QString& beschriftung, const std::string& vorgabe, int grenze)
    : Dialog(eltern, app, wpName, titel), feld_(new TextFeld(grenze, this)) {
    feld_->setzeText8(vorgabe);
    feld_->selectAll();
    feld_->setMinimumWidth(320);
    auto* form = new QFormLayout;
    auto* label = new QLabel(beschriftung, this);
    label->setBuddy(feld_);
    form->addRow(label, feld_);
    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(knoepfe);
    fertig();
}

std::string EingabeDlg::text8() const {
    return feld_->text8();
}

}  // namespace dv::ui
