#include "ui/widgets/ListenPaar.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <set>

#include "app/Zeichensatz.h"
#include "ui/widgets/Benennung.h"
#include "ui/widgets/Tastatur.h"

namespace dv::ui {

namespace {

constexpr int kRolleId = Qt::UserRole;
constexpr int kRolleName = Qt::UserRole + 1;  // the catalogue text, kept byte for byte

QListWidgetItem* eintragItem(const Eintrag& e) {
    auto* item = new QListWidgetItem(alsQString(e.name));
    item->setData(kRolleId, static_cast<qlonglong>(e.id));
    item->setData(kRolleName, QByteArray::fromStdString(e.name));
    return item;
}

Eintrag alsEintrag(const QListWidgetItem& item) {
    return Eintrag{static_cast<long>(item.data(kRolleId).toLongLong()),
                   item.data(kRolleName).toByteArray().toStdString()};
}

QPushButton* knopf(const QString& text, QWidget* eltern) {
    auto* k = new QPushButton(text, eltern);
    k->setAutoDefault(false);
    return k;
}

}  // namespace

ListenPaar::ListenPaar(const QString& titel, QWidget* eltern)
    : QWidget(eltern),
      zugeordnet_(new QListWidget(this)),
      verfuegbar_(new QListWidget(this)),
      filter_(new QLineEdit(this)),
      hinzu_(knopf(QStringLiteral("&Hinzufügen"), this)),
      weg_(knopf(QStringLiteral("&Entfernen"), this)),
      hoch_(knopf(QStringLiteral("Nach &oben"), this)),
      runter_(knopf(QStringLiteral("Nach &unten"), this)),
      neu_(knopf(QStringLiteral("&Neu..."), this)) {
    setObjectName(titel);
    auto* raster = new QGridLayout(this);
    raster->setContentsMargins(0, 0, 0, 0);
    auto* links = new QLabel(QStringLiteral("Zugeordnet:"), this);
    auto* rechts = new QLabel(QStringLiteral("Verfügbar:"), this);
    links->setBuddy(zugeordnet_);
    rechts->setBuddy(verfuegbar_);
    filter_->setPlaceholderText(QStringLiteral("Filter"));
    benenne(*filter_, filter_->placeholderText());
    setAccessibleName(titel);
    auto* mitte = new QVBoxLayout;
    mitte->addStretch();
    for (QPushButton* k : {hinzu_, weg_, hoch_, runter_, neu_}) {
        mitte->addWidget(k);
        benenne(*k, k->text());
    }
    neu_->hide();
    mitte->addStretch();
    benenne(*zugeordnet_, links->text());
    benenne(*verfuegbar_, rechts->text());
    raster->addWidget(links, 0, 0);
    raster->addWidget(rechts, 0, 2);
    raster->addWidget(zugeordnet_, 1, 0, 2, 1);
    raster->addLayout(mitte, 1, 1, 2, 1);
    raster->addWidget(filter_, 1, 2);
    raster->addWidget(verfuegbar_, 2, 2);
    connect(hinzu_, &QPushButton::clicked, this, &ListenPaar::hinzufuegen);
    connect(weg_, &QPushButton::clicked, this, &ListenPaar::entfernen);
    connect(hoch_, &QPushButton::clicked, this, &ListenPaar::hoch);
    connect(runter_, &QPushButton::clicked, this, &ListenPaar::runter);
    connect(verfuegbar_, &QListWidget::itemActivated, this, &ListenPaar::hinzufuegen);
    connect(zugeordnet_, &QListWidget::itemActivated, this, &ListenPaar::entfernen);
    connect(filter_, &QLineEdit::textChanged, this, &ListenPaar::filtere);
    connect(zugeordnet_, &QListWidget::currentRowChanged, this, &ListenPaar::aktualisiereKnoepfe);
    connect(neu_, &QPushButton::clicked, this, &ListenPaar::neuGewuenscht);
    beiEnter(*filter_, [this] {
        hinzufuegen();
        filter_->clear();
    });
    // Filter, choice and assigned list in the order of the work.
    setTabOrder(filter_, verfuegbar_);
    setTabOrder(verfuegbar_, hinzu_);
    setTabOrder(hinzu_, zugeordnet_);
    setTabOrder(zugeordnet_, weg_);
    connect(verfuegbar_, &QListWidget::currentRowChanged, this, &ListenPaar::aktualisiereKnoepfe);
    aktualisiereKnoepfe();
}

void ListenPaar::setzeVerfuegbar(const std::vector<Eintrag>& eintraege) {
    std::set<long> vergeben;
    for (const Eintrag& e : zugeordnet()) vergeben.insert(e.id);
    verfuegbar_->clear();
    for (const Eintrag& e : eintraege)
        if (!vergeben.count(e.id)) verfuegbar_->addItem(eintragItem(e));
    filtere(filter_->text());
    aktualisiereKnoepfe();
}

void ListenPaar::setzeZugeordnet(const std::vector<Eintrag>& eintraege) {
    std::set<long> neu;
    for (const Eintrag& e : eintraege) neu.insert(e.id);
    // What is no longer assigned becomes available again, and the other way round.
    for (const Eintrag& e : zugeordnet())
        if (!neu.count(e.id)) verfuegbar_->addItem(eintragItem(e));
    for (int i = verfuegbar_->count() - 1; i >= 0; --i)
        if (neu.count(alsEintrag(*verfuegbar_->item(i)).id)) delete verfuegbar_->takeItem(i);
    zugeordnet_->clear();
    for (const Eintrag& e : eintraege) zugeordnet_->addItem(eintragItem(e));
    aktualisiereKnoepfe();
}

std::vector<Eintrag> ListenPaar::zugeordnet() const {
    std::vector<Eintrag> liste;
    for (int i = 0; i < zugeordnet_->count(); ++i)
        liste.push_back(alsEintrag(*zugeordnet_->item(i)));
    return liste;
}

void ListenPaar::erlaubeNeu() {
    neu_->show();
}

void ListenPaar::weiseZu(const Eintrag& e) {
    const QString name = alsQString(e.name);
    for (int i = 0; i < zugeordnet_->count(); ++i)
        if (zugeordnet_->item(i)->text().compare(name, Qt::CaseInsensitive) == 0) return;
    QListWidgetItem* item = nullptr;
    for (int i = 0; i < verfuegbar_->count() && !item; ++i)
        if (verfuegbar_->item(i)->text().compare(name, Qt::CaseInsensitive) == 0)
            item = verfuegbar_->takeItem(i);
    zugeordnet_->addItem(item ? item : eintragItem(e));
    zugeordnet_->setCurrentRow(zugeordnet_->count() - 1);
    emit geaendert();
}

void ListenPaar::hinzufuegen() {
    QListWidgetItem* item = verfuegbar_->currentItem();
    // Without a visible current entry the first one the filter shows is taken.
    for (int i = 0; (!item || item->isHidden()) && i < verfuegbar_->count(); ++i)
        item = verfuegbar_->item(i);
    if (!item || item->isHidden()) return;
    const int zeile = verfuegbar_->row(item);
    zugeordnet_->addItem(verfuegbar_->takeItem(zeile));
    zugeordnet_->setCurrentRow(zugeordnet_->count() - 1);
    emit geaendert();
}

void ListenPaar::entfernen() {
    const int zeile = zugeordnet_->currentRow();
    if (zeile < 0) return;
    QListWidgetItem* item = zugeordnet_->takeItem(zeile);
    verfuegbar_->addItem(item);
    verfuegbar_->sortItems();
    filtere(filter_->text());
    emit geaendert();
}

void ListenPaar::hoch() {
    verschiebe(-1);
}

void ListenPaar::runter() {
    verschiebe(+1);
}

void ListenPaar::verschiebe(int richtung) {
    const int zeile = zugeordnet_->currentRow();
    const int ziel = zeile + richtung;
    if (zeile < 0 || ziel < 0 || ziel >= zugeordnet_->count()) return;
    zugeordnet_->insertItem(ziel, zugeordnet_->takeItem(zeile));
    zugeordnet_->setCurrentRow(ziel);
    emit geaendert();
}

void ListenPaar::filtere(const QString& text) {
    for (int i = 0; i < verfuegbar_->count(); ++i) {
        QListWidgetItem* item = verfuegbar_->item(i);
        item->setHidden(!text.isEmpty() && !item->text().contains(text, Qt::CaseInsensitive));
    }
}

void ListenPaar::aktualisiereKnoepfe() {
    const int zeile = zugeordnet_->currentRow();
    hinzu_->setEnabled(verfuegbar_->currentItem() != nullptr);
    weg_->setEnabled(zeile >= 0);
    hoch_->setEnabled(zeile > 0);
    runter_->setEnabled(zeile >= 0 && zeile + 1 < zugeordnet_->count());
}

}  // namespace dv::ui
