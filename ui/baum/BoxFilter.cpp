#include "ui/baum/BoxFilter.h"

#include "ui/aktionen/Befehle.h"
#include "ui/baum/KatalogModell.h"

namespace dv::ui {

void BoxFilter::setzeFilter(Schnellfilter filter) {
    filter_ = std::move(filter);
    invalidateFilter();
}

bool BoxFilter::filterAcceptsRow(int zeile, const QModelIndex& eltern) const {
    if (filter_.leer() || eltern.data(kRolleArt).toUInt() != kWurzelKnoten) return true;
    const QModelIndex box = sourceModel()->index(zeile, 0, eltern);
    return filter_.passt(box.data(kRolleTitel).toByteArray().toStdString(),
                         box.data(kRolleEan).toByteArray().toStdString());
}

}  // namespace dv::ui
