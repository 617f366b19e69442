#include "ui/dialoge/suche/Liste.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMetaMethod>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "app/Zeichensatz.h"
#include "ui/aktionen/Aktionen.h"

namespace dv::ui {

// ---- TextTabelle -----------------------------------------------------------------

void TextTabelle::setzeSpalten(const QStringList& spalten) {
    beginResetModel();
    spalten_ = spalten;
    endResetModel();
}

void TextTabelle::setzeZeilen(std::vector<QStringList> zeilen) {
    beginResetModel();
    zeilen_ = std::move(zeilen);
    haken_.assign(zeilen_.size(), 0);
    endResetModel();
}

void TextTabelle::setzeZeile(int zeile, QStringList texte) {
    if (zeile < 0 || zeile >= rowCount()) return;
    zeilen_[static_cast<std::size_t>(zeile)] = std::move(texte);
    emit dataChanged(index(zeile, 0), index(zeile, columnCount() - 1));
}

bool TextTabelle::abgehakt(int zeile) const {
    return zeile >= 0 && zeile < rowCount() && haken_[static_cast<std::size_t>(zeile)];
}

void TextTabelle::setzeAbgehakt(int zeile, bool an) {
    setData(index(zeile, 0), an ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

std::vector<int> TextTabelle::abgehakte() const {
    std::vector<int> v;
    for (int i = 0; i < rowCount(); ++i)
        if (haken_[static_cast<std::size_t>(i)]) v.push_back(i);
    return v;
}

int TextTabelle::rowCount(const QModelIndex& eltern) const {
    return eltern.isValid() ? 0 : static_cast<int>(zeilen_.size());
}

int TextTabelle::columnCount(const QModelIndex& eltern) const {
    return eltern.isValid() ? 0 : static_cast<int>(spalten_.size());
}

QVariant TextTabelle::data(const QModelIndex& index, int rolle) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const QStringList& z = zeilen_[static_cast<std::size_t>(index.row())];
    if (rolle == Qt::DisplayRole || rolle == Qt::ToolTipRole)
        return index.column() < z.size() ? z[index.column()] : QString();
    if (rolle == Qt::CheckStateRole && abhakbar_ && index.column() == 0)
        return haken_[static_cast<std::size_t>(index.row())] ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool TextTabelle::setData(const QModelIndex& index, const QVariant& wert, int rolle) {
    if (!index.isValid() || rolle != Qt::CheckStateRole || !abhakbar_ || index.column() != 0)
        return false;
    haken_[static_cast<std::size_t>(index.row())] =
        wert.value<Qt::CheckState>() == Qt::Checked ? 1 : 0;
    emit dataChanged(index, index, {Qt::CheckStateRole});
    emit hakenGeaendert();
    return true;
}

QVariant TextTabelle::headerData(int abschnitt, Qt::Orientation richtung, int rolle) const {
    if (richtung == Qt::Horizontal && rolle == Qt::DisplayRole && abschnitt < spalten_.size())
        return spalten_[abschnitt];
    return QAbstractTableModel::headerData(abschnitt, richtung, rolle);
}

Qt::ItemFlags TextTabelle::flags(const QModelIndex& index) const {
    Qt::ItemFlags f = QAbstractTableModel::flags(index);
    if (abhakbar_ && index.column() == 0) f |= Qt::ItemIsUserCheckable;
    return f;
}

// ---- ListenAnsicht ---------------------------------------------------------------

namespace {

// Numbers sort as numbers, texts by the user's language.
class Sortierung : public QSortFilterProxyModel {
  public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

  protected:
    bool lessThan(const QModelIndex& links, const QModelIndex& rechts) const override {
        const QString a = links.data().toString();
        const QString b = rechts.data().toString();
        bool zahlA = false, zahlB = false;
        const qlonglong x = a.toLongLong(&zahlA);
        const qlonglong y = b.toLongLong(&zahlB);
        if (zahlA && zahlB) return x < y;
        return QString::localeAwareCompare(a, b) < 0;
    }
};

}  // namespace

ListenAnsicht::ListenAnsicht(const QString& name, const QStringList& spalten, QWidget* eltern)
    : QWidget(eltern),
      modell_(new TextTabelle(this)),
      sortierung_(new Sortierung(this)),
      ansicht_(new QTreeView(this)),
      anzahl_(new QLabel(this)) {
    modell_->setzeSpalten(spalten);
    sortierung_->setSourceModel(modell_);
    ansicht_->setModel(sortierung_);
    ansicht_->setObjectName(name);
    ansicht_->setAccessibleName(name);
    ansicht_->setRootIsDecorated(false);
    ansicht_->setUniformRowHeights(true);
    ansicht_->setAlternatingRowColors(true);
    ansicht_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    ansicht_->setSelectionBehavior(QAbstractItemView::SelectRows);
    ansicht_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ansicht_->setContextMenuPolicy(Qt::CustomContextMenu);
    ansicht_->header()->setSortIndicator(-1, Qt::AscendingOrder);
    ansicht_->header()->setSectionsClickable(true);
    ansicht_->header()->setStretchLastSection(true);
    ansicht_->setSortingEnabled(true);
    ansicht_->installEventFilter(this);
    anzahl_->setObjectName(name + QStringLiteral(" Anzahl"));
    anzahl_->setAccessibleName(anzahl_->objectName());
    anzahl_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    connect(ansicht_, &QTreeView::doubleClicked, this, [this](const QModelIndex& i) {
        if (i.isValid()) emit aktiviert(sortierung_->mapToSource(i).row());
    });
    connect(ansicht_, &QTreeView::customContextMenuRequested, this, [this](const QPoint& p) {
        if (aktuelle() >= 0) emit kontextMenue(ansicht_->viewport()->mapToGlobal(p));
    });
    connect(ansicht_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ListenAnsicht::auswahlGeaendert);
    connect(ansicht_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ListenAnsicht::auswahlGeaendert);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(ansicht_);
    layout->addWidget(anzahl_);
}

void ListenAnsicht::setzeAnzahl(const QString& text) {
    anzahl_->setText(text);
}

void ListenAnsicht::setzeBreiten(const std::vector<int>& breiten) {
    for (std::size_t i = 0; i < breiten.size(); ++i)
        ansicht_->setColumnWidth(static_cast<int>(i), breiten[i]);
}

void ListenAnsicht::setzeEinzelwahl() {
    ansicht_->setSelectionMode(QAbstractItemView::SingleSelection);
}

void ListenAnsicht::setzeSortierbar(bool an) {
    if (!an) sortiere(-1);
    ansicht_->setSortingEnabled(an);
}

void ListenAnsicht::sortiere(int spalte, Qt::SortOrder richtung) {
    ansicht_->header()->setSortIndicator(spalte, richtung);
    sortierung_->sort(spalte, richtung);
}

QAction* ListenAnsicht::befehl(const char* text, const char* taste) {
    auto* a = new QAction(alsQString(text), this);
    a->setObjectName(ohneKuerzel(a->text()));
    if (taste) {
        a->setShortcut(QKeySequence(QString::fromLatin1(taste)));
        a->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        ansicht_->addAction(a);
    }
    return a;
}

std::vector<int> ListenAnsicht::gewaehlte() const {
    QModelIndexList zeilen = ansicht_->selectionModel()->selectedRows();
    std::sort(zeilen.begin(), zeilen.end(),
              [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    std::vector<int> v;
    v.reserve(static_cast<std::size_t>(zeilen.size()));
    for (const QModelIndex& i : zeilen) v.push_back(sortierung_->mapToSource(i).row());
    return v;
}

int ListenAnsicht::aktuelle() const {
    const QModelIndex i = ansicht_->currentIndex();
    return i.isValid() ? sortierung_->mapToSource(i).row() : -1;
}

void ListenAnsicht::waehle(int zeile) {
    const QModelIndex i = sortierung_->mapFromSource(modell_->index(zeile, 0));
    if (!i.isValid()) return;
    ansicht_->selectionModel()->setCurrentIndex(
        i, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    ansicht_->scrollTo(i);
}

std::vector<int> ListenAnsicht::angezeigte() const {
    std::vector<int> v;
    const int n = sortierung_->rowCount();
    v.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i)
        v.push_back(sortierung_->mapToSource(sortierung_->index(i, 0)).row());
    return v;
}

bool ListenAnsicht::eventFilter(QObject* objekt, QEvent* ereignis) {
    if (objekt == ansicht_ && ereignis->type() == QEvent::KeyPress) {
        auto* taste = static_cast<QKeyEvent*>(ereignis);
        if (taste->matches(QKeySequence::Copy)) {
            const std::vector<int> zeilen = gewaehlte();
            if (!zeilen.empty()) emit kopieren(zeilen);
            return true;
        }
        // Enter belongs to the dialog's default button unless the row does something.
        if ((taste->key() == Qt::Key_Return || taste->key() == Qt::Key_Enter) &&
            taste->modifiers() == Qt::NoModifier && aktuelle() >= 0 &&
            isSignalConnected(QMetaMethod::fromSignal(&ListenAnsicht::aktiviert))) {
            emit aktiviert(aktuelle());
            return true;
        }
    }
    return QWidget::eventFilter(objekt, ereignis);
}

}  // namespace dv::ui
