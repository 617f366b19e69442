#pragma once
// Narrows the boxes of the tree to those the quick filter lets pass; every level
// below a box is shown as it is.

#include <QSortFilterProxyModel>

#include "app/Schnellfilter.h"

namespace dv::ui {

class BoxFilter : public QSortFilterProxyModel {
    Q_OBJECT
  public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setzeFilter(Schnellfilter filter);
    bool aktiv() const { return !filter_.leer(); }

  protected:
    bool filterAcceptsRow(int zeile, const QModelIndex& eltern) const override;

  private:
    Schnellfilter filter_;
};

}  // namespace dv::ui
