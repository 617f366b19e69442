#include "ui/dialoge/lookups/AuswahlDlg.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

#include "ui/widgets/Benennung.h"

namespace dv::ui {

QTreeView* katalogListe(QWidget* eltern, QSortFilterProxyModel& proxy, QLineEdit& filter) {
    auto* liste = new QTreeView(eltern);
    liste->setRootIsDecorated(false);
    liste->setUniformRowHeights(true);
    liste->setAllColumnsShowFocus(true);
    liste->setSelectionMode(QAbstractItemView::SingleSelection);
    liste->setModel(&proxy);
    liste->header()->setStretchLastSection(false);
    liste->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    liste->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    proxy.setFilterKeyColumn(0);
    filter.setPlaceholderText(QStringLiteral("Filter"));
    filter.setClearButtonEnabled(true);
    QObject::connect(&filter, &QLineEdit::textChanged, &proxy, [&proxy, liste](const QString& t) {
        proxy.setFilterFixedString(t);
        if (!liste->currentIndex().isValid() && proxy.rowCount() > 0)
            liste->setCurrentIndex(proxy.index(0, 0));
    });
    return liste;
}

AuswahlDlg::AuswahlDlg(QWidget* eltern, CApplikation& app, const QString& titel,
                       const QString& frage, std::vector<KatalogZeile> zeilen)
    : Dialog(eltern, app, "WP_auswahl", titel),
      modell_(new ZeilenModell(QStringLiteral("Name"), QStringLiteral("Verwendet"), this)),
      proxy_(new QSortFilterProxyModel(this)),
      filter_(new QLineEdit(this)) {
    modell_->setze(std::move(zeilen));
    proxy_->setSourceModel(modell_);
    liste_ = katalogListe(this, *proxy_, *filter_);
    auto* label = new QLabel(frage, this);
    label->setBuddy(liste_);
    label->setWordWrap(true);
    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::accepted, this, &AuswahlDlg::accept);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(liste_, &QTreeView::activated, this, &AuswahlDlg::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(filter_);
    layout->addWidget(liste_, 1);
    layout->addWidget(knoepfe);
    if (proxy_->rowCount() > 0) liste_->setCurrentIndex(proxy_->index(0, 0));
    resize(420, 480);
    benenne(*filter_, filter_->placeholderText());
    fertig();
    filter_->setFocus();
}

long AuswahlDlg::gewaehlt() const {
    const QModelIndex i = liste_->currentIndex();
    return i.isValid() ? static_cast<long>(i.siblingAtColumn(0).data(Qt::UserRole).toLongLong())
                       : 0;
}

void AuswahlDlg::waehle(long id) {
    const int zeile = modell_->zeileVon(id);
    if (zeile >= 0) liste_->setCurrentIndex(proxy_->mapFromSource(modell_->index(zeile, 0)));
}

void AuswahlDlg::accept() {
    if (gewaehlt() > 0) Dialog::accept();
}

}  // namespace dv::ui
