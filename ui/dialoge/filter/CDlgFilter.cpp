#include "ui/dialoge/filter/CDlgFilter.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/suche/Dateiwahl.h"
#include "ui/dialoge/suche/Liste.h"

namespace dv::ui {

namespace {

constexpr int kIdRolle = Qt::UserRole;
constexpr int kTypRolle = Qt::UserRole + 1;

QString eintraegeText(std::size_t n) {
    return n == 1 ? QStringLiteral("1 Eintrag")
                  : QStringLiteral("%1 Einträge").arg(static_cast<qulonglong>(n));
}

}  // namespace

CDlgFilter::CDlgFilter(QWidget* eltern, CApplikation& app)
    : Dialog(eltern, app, "WP_filter", QStringLiteral("Filter")),
      baum_(new QTreeWidget(this)),
      eintraege_(new ListenAnsicht(QStringLiteral("Einträge"),
                                   {QStringLiteral("Intern"), QStringLiteral("Extern")}, this)),
      aktivBox_(new QComboBox(this)),
      aktivXml_(new QComboBox(this)) {
    baum_->setObjectName(QStringLiteral("Filter"));
    baum_->setAccessibleName(QStringLiteral("Filter"));
    baum_->setHeaderHidden(true);
    baum_->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    eintraege_->setzeBreiten({200});
    eintraege_->setzeEinzelwahl();

    auto* neu = new QPushButton(QStringLiteral("&Neuer Filter"), this);
    auto* umbenennen = new QPushButton(QStringLiteral("&Umbenennen"), this);
    loeschen_ = new QPushButton(QStringLiteral("&Löschen"), this);
    auto* bearbeiten = new QPushButton(QStringLiteral("Eintrag &bearbeiten..."), this);
    connect(neu, &QPushButton::clicked, this, &CDlgFilter::neu);
    connect(umbenennen, &QPushButton::clicked, this, &CDlgFilter::umbenennen);
    connect(loeschen_, &QPushButton::clicked, this, &CDlgFilter::loeschen);
    connect(bearbeiten, &QPushButton::clicked, this, &CDlgFilter::eintragBearbeiten);
    connect(baum_, &QTreeWidget::currentItemChanged, this, &CDlgFilter::zeigeEintraege);
    connect(baum_, &QTreeWidget::itemChanged, this, &CDlgFilter::umbenannt);
    connect(eintraege_, &ListenAnsicht::aktiviert, this, &CDlgFilter::eintragBearbeiten);
    connect(aktivBox_, &QComboBox::activated, this, [this] { aktivGewaehlt(false); });
    connect(aktivXml_, &QComboBox::activated, this, [this] { aktivGewaehlt(true); });

    auto* links = new QWidget(this);
    auto* linksLayout = new QVBoxLayout(links);
    linksLayout->setContentsMargins(0, 0, 0, 0);
    linksLayout->addWidget(baum_, 1);
    auto* filterKnoepfe = new QHBoxLayout;
    filterKnoepfe->addWidget(neu);
    filterKnoepfe->addWidget(umbenennen);
    filterKnoepfe->addWidget(loeschen_);
    linksLayout->addLayout(filterKnoepfe);
    auto* rechts = new QWidget(this);
    auto* rechtsLayout = new QVBoxLayout(rechts);
    rechtsLayout->setContentsMargins(0, 0, 0, 0);
    rechtsLayout->addWidget(eintraege_, 1);
    rechtsLayout->addWidget(bearbeiten, 0, Qt::AlignLeft);
    auto* teiler = new QSplitter(this);
    teiler->setObjectName(QStringLiteral("Teiler"));
    teiler->addWidget(links);
    teiler->addWidget(rechts);
    teiler->setStretchFactor(1, 2);
    teiler->setChildrenCollapsible(false);

    auto* aktive = new QGroupBox(QStringLiteral("Aktive Filter"), this);
    auto* form = new QFormLayout(aktive);
    form->addRow(QStringLiteral("Für Bo&x-Dateien:"), aktivBox_);
    form->addRow(QStringLiteral("Für X&ML:"), aktivXml_);

    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(teiler, 1);
    layout->addWidget(aktive);
    layout->addWidget(knoepfe);
    resize(720, 500);
    lade();
    fertig();
}

long CDlgFilter::filterId(const QTreeWidgetItem* item) const {
    return item ? item->data(0, kIdRolle).toLongLong() : 0;
}

int CDlgFilter::filterTyp(const QTreeWidgetItem* item) const {
    return item ? item->data(0, kTypRolle).toInt() : 0;
}

void CDlgFilter::lade(long waehlen) {
    laedt_ = true;
    baum_->clear();
    for (const Benannt& f : app_.dienste().filter().liste()) {
        auto* oben = new QTreeWidgetItem(baum_, {alsQString(f.name)});
        oben->setData(0, kIdRolle, static_cast<qlonglong>(f.id));
        oben->setFlags(oben->flags() | Qt::ItemIsEditable);
        for (int typ = 1; typ <= FilterDienst::kTypen; ++typ) {
            auto* t = new QTreeWidgetItem(oben, {alsQString(FilterDienst::typText(typ))});
            t->setData(0, kIdRolle, static_cast<qlonglong>(f.id));
            t->setData(0, kTypRolle, typ);
        }
    }
    laedt_ = false;
    if (!waehle(waehlen) && baum_->topLevelItemCount() > 0)
        baum_->setCurrentItem(baum_->topLevelItem(0));
    fuelleAktive();
    zeigeEintraege();
}

bool CDlgFilter::waehle(long id, int typ) {
    for (int i = 0; i < baum_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* oben = baum_->topLevelItem(i);
        if (filterId(oben) != id) continue;
        QTreeWidgetItem* ziel = typ > 0 && typ <= oben->childCount() ? oben->child(typ - 1) : oben;
        oben->setExpanded(true);
        baum_->setCurrentItem(ziel);
        return true;
    }
    return false;
}

void CDlgFilter::fuelleAktive() {
    const auto filter = app_.dienste().filter().liste();
    for (bool xml : {false, true}) {
        QComboBox* c = aktiv(xml);
        const QSignalBlocker sperre(c);
        c->clear();
        c->addItem(QStringLiteral("(kein Filter)"), 0);
        for (const Benannt& f : filter)
            c->addItem(alsQString(f.name), static_cast<qlonglong>(f.id));
        const int i = c->findData(static_cast<qlonglong>(app_.dienste().filter().aktiv(xml)));
        c->setCurrentIndex(i >= 0 ? i : 0);
    }
}

void CDlgFilter::zeigeEintraege() {
    QTreeWidgetItem* item = baum_->currentItem();
    loeschen_->setEnabled(item && !item->parent());
    const int typ = filterTyp(item);
    liste_.clear();
    if (typ > 0) {
        auto gelesen = app_.dienste().filter().eintraege(filterId(item), typ);
        if (meldeErgebnis(app_, gelesen)) liste_ = std::move(gelesen.wert());
    }
    std::vector<QStringList> zeilen;
    for (const FilterEintrag& e : liste_)
        zeilen.push_back({alsQString(e.intern), alsQString(e.extern_)});
    eintraege_->modell().setzeZeilen(std::move(zeilen));
    eintraege_->setzeAnzahl(typ > 0 ? eintraegeText(liste_.size()) : QString());
    if (!liste_.empty()) eintraege_->waehle(0);
}

void CDlgFilter::neu() {
    auto id = app_.dienste().filter().neu("<<<Neuer Filter>>>");
    if (!meldeErgebnis(app_, id)) return;
    lade(id.wert());
    baum_->editItem(baum_->currentItem());
}

void CDlgFilter::umbenennen() {
    QTreeWidgetItem* item = baum_->currentItem();
    if (item && !item->parent()) baum_->editItem(item);
}

// The name typed in place; a refused name goes back to the stored one.
void CDlgFilter::umbenannt(QTreeWidgetItem* item) {
    if (laedt_ || !item || item->parent()) return;
    const long id = filterId(item);
    meldeErgebnis(app_, app_.dienste().filter().umbenennen(id, ausQString(item->text(0))));
    // The editor is still closing: the tree is rebuilt after it.
    QMetaObject::invokeMethod(
        this, [this, id] { lade(id); }, Qt::QueuedConnection);
}

void CDlgFilter::loeschen() {
    QTreeWidgetItem* item = baum_->currentItem();
    if (!item || item->parent()) return;
    if (meldeErgebnis(app_, app_.dienste().filter().loescheMitFrage(filterId(item)))) lade();
}

void CDlgFilter::eintragBearbeiten() {
    QTreeWidgetItem* item = baum_->currentItem();
    const int z = eintraege_->aktuelle();
    if (filterTyp(item) <= 0 || z < 0) return;
    const FilterEintrag e = liste_[static_cast<std::size_t>(z)];
    const long id = filterId(item);
    const int typ = filterTyp(item);
    auto* dlg =
        new EingabeDlg(this, app_, "WP_filtereintrag",
                       QStringLiteral("Filtereintrag [%1]").arg(alsQString(e.intern)),
                       QStringLiteral("&Extern:"), e.extern_, static_cast<int>(kMaxFilterExtern));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this, [this, dlg, e, id, typ, z] {
        if (!meldeErgebnis(app_, app_.dienste().filter().setze(id, typ, e.intern, dlg->text8())))
            return;
        zeigeEintraege();
        eintraege_->waehle(z);
    });
    dlg->open();
}

void CDlgFilter::aktivGewaehlt(bool xml) {
    const long id = aktiv(xml)->currentData().toLongLong();
    meldeErgebnis(app_, app_.dienste().filter().setzeAktiv(xml, id));
    fuelleAktive();
}

}  // namespace dv::ui
