#include "ui/dialoge/objekte/SprachenSeite.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"
#include "ui/dialoge/objekte/Reihen.h"
#include "ui/widgets/EintragWahl.h"
#include "ui/widgets/Tastatur.h"

namespace dv::ui {

namespace {

constexpr int kSprache = Qt::UserRole;
constexpr int kTon = Qt::UserRole + 1;

// An entry as item data: its id and its name as shown (the code page round trips).
QVariant alsDaten(const Eintrag& e) {
    return QVariantList{static_cast<qlonglong>(e.id), alsQString(e.name)};
}

Eintrag ausDaten(const QVariant& v) {
    const QVariantList l = v.toList();
    return l.size() == 2
               ? Eintrag{static_cast<long>(l[0].toLongLong()), ausQString(l[1].toString())}
               : Eintrag{};
}

}  // namespace

SprachenSeite::SprachenSeite(const std::vector<Eintrag>& sprachen,
                             const std::vector<Eintrag>& tonformate, QWidget* eltern)
    : QWidget(eltern),
      liste_(new QListWidget(this)),
      sprache_(new EintragWahl(false, this)),
      tonformat_(new EintragWahl(false, this)) {
    sprache_->setzeEintraege(sprachen);
    sprache_->setzeEintrag({});
    tonformat_->setzeEintraege(tonformate);
    tonformat_->setzeEintrag({});
    auto* form = new QFormLayout;
    auto* lSprache = new QLabel(QStringLiteral("Spra&che:"), this);
    auto* lTon = new QLabel(QStringLiteral("&Tonformat:"), this);
    lSprache->setBuddy(sprache_);
    lTon->setBuddy(tonformat_);
    form->addRow(lSprache, sprache_);
    form->addRow(lTon, tonformat_);
    auto* knoepfe = new QVBoxLayout;
    const std::pair<QString, std::function<void()>> befehle[] = {
        {QStringLiteral("&Hinzufügen"), [this] { hinzufuegen(); }},
        {QStringLiteral("&Entfernen"), [this] { entferneAktuelle(*liste_); }},
        {QStringLiteral("Nach &oben"), [this] { verschiebe(*liste_, -1); }},
        {QStringLiteral("Nach &unten"), [this] { verschiebe(*liste_, +1); }}};
    for (const auto& [text, tu] : befehle) {
        auto* k = new QPushButton(text, this);
        k->setAutoDefault(false);
        connect(k, &QPushButton::clicked, this, tu);
        knoepfe->addWidget(k);
    }
    knoepfe->addStretch();
    auto* titel = new QLabel(QStringLiteral("Sprachen mit Tonformat:"), this);
    titel->setBuddy(liste_);
    auto* raster = new QGridLayout(this);
    raster->addWidget(titel, 0, 0);
    raster->addWidget(liste_, 1, 0);
    raster->addLayout(knoepfe, 1, 1);
    raster->addLayout(form, 2, 0, 1, 2);
    beiEnter(*tonformat_->lineEdit(), [this] { hinzufuegen(); });
    setTabOrder(sprache_, tonformat_);
}

void SprachenSeite::fuegeAn(const SpracheWert& s) {
    auto* item = new QListWidgetItem(
        QStringLiteral("%1 / %2").arg(alsQString(s.sprache.name), alsQString(s.tonformat.name)));
    item->setData(kSprache, alsDaten(s.sprache));
    item->setData(kTon, alsDaten(s.tonformat));
    liste_->addItem(item);
}

void SprachenSeite::setze(const std::vector<SpracheWert>& liste) {
    liste_->clear();
    for (const SpracheWert& s : liste) fuegeAn(s);
}

std::vector<SpracheWert> SprachenSeite::sprachen() const {
    std::vector<SpracheWert> v;
    for (int i = 0; i < liste_->count(); ++i)
        v.push_back(
            {ausDaten(liste_->item(i)->data(kSprache)), ausDaten(liste_->item(i)->data(kTon))});
    return v;
}

void SprachenSeite::hinzufuegen() {
    const SpracheWert s{sprache_->eintrag(), tonformat_->eintrag()};
    if (s.sprache.name.empty() || s.tonformat.name.empty()) {
        (s.sprache.name.empty() ? static_cast<QWidget*>(sprache_) : tonformat_)->setFocus();
        return;
    }
    fuegeAn(s);
    liste_->setCurrentRow(liste_->count() - 1);
    sprache_->setzeEintrag({});
    sprache_->setFocus();
}

}  // namespace dv::ui
