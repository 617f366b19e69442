#include "ui/dialoge/haupt/InfoDlg.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"

namespace dv::ui {

InfoDlg::InfoDlg(QWidget* eltern, CApplikation& app, const ProgrammInfo& info)
    : Dialog(eltern, app, "WP_info", QStringLiteral("Info über DORVANO")) {
    auto* layout = new QVBoxLayout(this);
    auto* kopf =
        new QLabel(QStringLiteral("<b>DORVANO</b> – der Katalog Ihrer Filmsammlung"), this);
    kopf->setObjectName(QStringLiteral("Titel"));
    layout->addWidget(kopf);
    auto* form = new QFormLayout;
    auto zeile = [&](const QString& name, const QString& wert) {
        auto* feld = new QLabel(wert, this);
        feld->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        feld->setAccessibleName(name);
        feld->setObjectName(name);
        form->addRow(name + QLatin1Char(':'), feld);
    };
    zeile(QStringLiteral("Programmversion"), QString::fromStdString(info.programmVersion));
    zeile(QStringLiteral("Datenversion"), alsQString(info.datenVersion));
    zeile(QStringLiteral("Programmordner"), QString::fromLocal8Bit(info.programmOrdner.c_str()));
    zeile(QStringLiteral("Einstellungsdatei"), QString::fromLocal8Bit(info.einstellungen.c_str()));
    layout->addLayout(form);
    auto* lizenzen = new QTreeWidget(this);
    lizenzen->setObjectName(QStringLiteral("Bibliotheken"));
    lizenzen->setAccessibleName(lizenzen->objectName());
    lizenzen->setHeaderLabels({QStringLiteral("Bibliothek"), QStringLiteral("Lizenz")});
    lizenzen->setRootIsDecorated(false);
    for (const auto& [name, lizenz] : info.bibliotheken)
        new QTreeWidgetItem(lizenzen, {alsQString(name), alsQString(lizenz)});
    lizenzen->resizeColumnToContents(0);
    layout->addWidget(lizenzen);
    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole)
        ->setDefault(true);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(knoepfe);
    resize(520, 380);
    fertig();
}

}  // namespace dv::ui
