#include "ui/KatalogBaum.h"

#include <QTreeWidget>

#include "app/KatalogDienst.h"
#include "app/Zeichensatz.h"

namespace dv::ui {

namespace {

QTreeWidgetItem* knoten(QTreeWidgetItem* eltern, const std::string& text, int typ, long id) {
    auto* item = new QTreeWidgetItem(eltern);
    item->setText(0, alsQString(text));
    item->setData(0, kRolleTyp, typ);
    item->setData(0, kRolleId, static_cast<qlonglong>(id));
    return item;
}

// A node whose children are read when it is expanded: it shows the expand mark
// until then.
QTreeWidgetItem* ladbarerKnoten(QTreeWidgetItem* eltern, const std::string& text, int typ,
                                long id) {
    QTreeWidgetItem* item = knoten(eltern, text, typ, id);
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    return item;
}

}  // namespace

KatalogBaum::KatalogBaum(QTreeWidget& baum, KatalogDienst& katalog)
    : QObject(&baum), baum_(baum), katalog_(katalog) {
    connect(&baum_, &QTreeWidget::itemExpanded, this, &KatalogBaum::ladeKinder);
}

const char* KatalogBaum::gruppenText(int lookupTyp) {
    return KatalogDienst::gruppenText(lookupTyp);
}

std::string KatalogBaum::wurzelText(const char* titel, int anzahl) {
    return std::string(titel) + " {" + std::to_string(anzahl) + " Box" + (anzahl == 1 ? "" : "en") +
           "}";
}

void KatalogBaum::lade(const char* titel) {
    baum_.clear();
    const std::vector<BoxZeile> boxen = katalog_.boxen();
    auto* wurzel = new QTreeWidgetItem(&baum_);
    wurzel->setText(0, alsQString(wurzelText(titel, static_cast<int>(boxen.size()))));
    for (const BoxZeile& b : boxen) ladbarerKnoten(wurzel, b.titel, kBox, b.id);
    wurzel->setExpanded(true);
}

void KatalogBaum::ladeKinder(QTreeWidgetItem* item) {
    if (!item || item->data(0, kRolleGeladen).toBool()) return;
    const int typ = item->data(0, kRolleTyp).toInt();
    if (typ != kBox && typ != kDvd && typ != kFilm) return;
    item->setData(0, kRolleGeladen, true);
    if (typ == kBox) ladeDvds(item);
    if (typ == kDvd) ladeFilme(item);
    if (typ == kFilm) ladeGruppen(item);
    item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

void KatalogBaum::ladeDvds(QTreeWidgetItem* box) {
    for (const DvdZeile& d : katalog_.dvds(box->data(0, kRolleId).toLongLong()))
        ladbarerKnoten(box, d.titel, kDvd, d.id);
}

void KatalogBaum::ladeFilme(QTreeWidgetItem* dvd) {
    for (const FilmZeile& f : katalog_.filme(dvd->data(0, kRolleId).toLongLong()))
        ladbarerKnoten(dvd, f.titel, kFilm, f.id);
}

void KatalogBaum::ladeGruppen(QTreeWidgetItem* film) {
    // Persons come with their function; their aliases below them.
    for (const Gruppe& g : katalog_.gruppen(film->data(0, kRolleId).toLongLong())) {
        QTreeWidgetItem* gruppe = knoten(film, g.text, 0, 0);
        gruppe->setData(0, kRolleLookup, g.typ);
        for (const GruppenEintrag& e : g.eintraege) {
            QTreeWidgetItem* eintrag = knoten(gruppe, e.text, 0, e.id);
            for (const std::string& u : e.unter) knoten(eintrag, u, 0, 0);
        }
    }
}

void KatalogBaum::klappeAuf(QTreeWidgetItem* item, unsigned maxFilme) {
    unsigned filme = 0;
    klappeAuf(item, maxFilme, filme);
}

void KatalogBaum::klappeAuf(QTreeWidgetItem* item, unsigned maxFilme, unsigned& filme) {
    if (!item) return;
    if (item->data(0, kRolleTyp).toInt() == kFilm) {
        if (filme >= maxFilme) return;
        ++filme;
    }
    ladeKinder(item);
    item->setExpanded(true);
    for (int i = 0; i < item->childCount(); ++i) klappeAuf(item->child(i), maxFilme, filme);
}

}  // namespace dv::ui
