#include "ui/dialoge/haupt/ExportOptionenDlg.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace dv::ui {

ExportOptionenDlg::ExportOptionenDlg(QWidget* eltern, CApplikation& app, bool tags)
    : Dialog(eltern, app, "WP_exportoptionen", QStringLiteral("Alle Boxen exportieren")),
      tags_(new QCheckBox(QStringLiteral("&Tags mit exportieren"), this)) {
    tags_->setChecked(tags);
    auto* layout = new QVBoxLayout(this);
    auto* text = new QLabel(
        QStringLiteral("Jede Box wird als eigene Box-Datei (EAN.box) in einen Ordner geschrieben."),
        this);
    text->setWordWrap(true);
    layout->addWidget(text);
    layout->addWidget(tags_);
    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(knoepfe);
    fertig();
}

bool ExportOptionenDlg::tags() const {
    return tags_->isChecked();
}

}  // namespace dv::ui
