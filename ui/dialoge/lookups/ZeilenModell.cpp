#include "ui/dialoge/lookups/ZeilenModell.h"

namespace dv::ui {

ZeilenModell::ZeilenModell(const QString& textSpalte, const QString& anzahlSpalte, QObject* eltern)
    : QAbstractTableModel(eltern), spalten_{textSpalte, anzahlSpalte} {}

void ZeilenModell::setze(std::vector<KatalogZeile> zeilen) {
    beginResetModel();
    zeilen_ = std::move(zeilen);
    endResetModel();
}

const KatalogZeile* ZeilenModell::zeile(int i) const {
    return i >= 0 && i < static_cast<int>(zeilen_.size()) ? &zeilen_[static_cast<std::size_t>(i)]
                                                          : nullptr;
}

int ZeilenModell::zeileVon(long id) const {
    for (std::size_t i = 0; i < zeilen_.size(); ++i)
        if (zeilen_[i].id == id) return static_cast<int>(i);
    return -1;
}

int ZeilenModell::rowCount(const QModelIndex& eltern) const {
    return eltern.isValid() ? 0 : static_cast<int>(zeilen_.size());
}

int ZeilenModell::columnCount(const QModelIndex& eltern) const {
    return eltern.isValid() ? 0 : 2;
}

QVariant ZeilenModell::data(const QModelIndex& index, int rolle) const {
    const KatalogZeile* z = zeile(index.row());
    if (!z) return {};
    if (rolle == Qt::DisplayRole || rolle == Qt::AccessibleTextRole)
        return index.column() == 0 ? QVariant(z->text) : QVariant(QString::number(z->anzahl));
    if (rolle == Qt::TextAlignmentRole && index.column() == 1)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (rolle == Qt::UserRole) return static_cast<qlonglong>(z->id);
    return {};
}

QVariant ZeilenModell::headerData(int spalte, Qt::Orientation o, int rolle) const {
    if (o == Qt::Horizontal && rolle == Qt::DisplayRole && spalte >= 0 && spalte < 2)
        return spalten_[spalte];
    return {};
}

}  // namespace dv::ui
