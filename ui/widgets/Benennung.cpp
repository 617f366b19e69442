#include "ui/widgets/Benennung.h"

#include <QAbstractButton>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QWidget>

#include "ui/aktionen/Aktionen.h"

namespace dv::ui {

QString alsName(const QString& beschriftung) {
    QString t = ohneKuerzel(beschriftung).trimmed();
    if (t.endsWith(QLatin1Char(':'))) t.chop(1);
    return t.trimmed();
}

void benenne(QWidget& w, const QString& beschriftung) {
    const QString name = alsName(beschriftung);
    if (name.isEmpty()) return;
    if (w.objectName().isEmpty()) w.setObjectName(name);
    if (w.accessibleName().isEmpty()) w.setAccessibleName(name);
}

namespace {

void benenneFormZeilen(QFormLayout& form) {
    for (int i = 0; i < form.rowCount(); ++i) {
        QLayoutItem* l = form.itemAt(i, QFormLayout::LabelRole);
        QLayoutItem* f = form.itemAt(i, QFormLayout::FieldRole);
        auto* label = l ? qobject_cast<QLabel*>(l->widget()) : nullptr;
        if (label && f && f->widget()) benenne(*f->widget(), label->text());
    }
}

}  // namespace

void benenneSteuerelemente(QWidget& wurzel) {
    for (QLabel* label : wurzel.findChildren<QLabel*>())
        if (label->buddy()) benenne(*label->buddy(), label->text());
    for (QFormLayout* form : wurzel.findChildren<QFormLayout*>()) benenneFormZeilen(*form);
    for (QAbstractButton* knopf : wurzel.findChildren<QAbstractButton*>())
        benenne(*knopf, knopf->text());
    for (QGroupBox* gruppe : wurzel.findChildren<QGroupBox*>()) benenne(*gruppe, gruppe->title());
}

}  // namespace dv::ui
