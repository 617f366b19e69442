#include "ui/baum/KatalogModell.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QStyle>
#include <algorithm>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "ui/aktionen/Befehle.h"
#include "ui/baum/KatalogKnoten.h"

namespace dv::ui {

KatalogModell::KatalogModell(CApplikation& app, QObject* eltern)
    : QAbstractItemModel(eltern), app_(app), unsichtbar_(std::make_unique<Knoten>()) {
    app_.aenderungen().anmelden(*this);
}

KatalogModell::~KatalogModell() {
    app_.aenderungen().abmelden(*this);
}

QString KatalogModell::wurzelText(int anzahl) {
    return QStringLiteral("%1 {%2 Box%3}")
        .arg(alsQString(CApplikation::titel()))
        .arg(anzahl)
        .arg(anzahl == 1 ? QString() : QStringLiteral("en"));
}

void KatalogModell::lade() {
    emit wirdNeuGeladen();
    beginResetModel();
    unsichtbar_->kinder.clear();
    auto wurzel = neuerKnoten(kWurzelKnoten, 0, "", true);
    wurzel->geladen = true;
    for (const BoxZeile& z : app_.dienste().katalog().boxen())
        wurzel->kinder.push_back(boxKnoten(z));
    nummeriere(*wurzel);
    unsichtbar_->kinder.push_back(std::move(wurzel));
    nummeriere(*unsichtbar_);
    endResetModel();
    emit neuGeladen();
    emit anzahlGeaendert(boxAnzahl());
}

QModelIndex KatalogModell::wurzel() const {
    return unsichtbar_->kinder.empty() ? QModelIndex() : index(0, 0);
}

int KatalogModell::boxAnzahl() const {
    return unsichtbar_->kinder.empty() ? 0
                                       : static_cast<int>(unsichtbar_->kinder[0]->kinder.size());
}

KatalogModell::Knoten* KatalogModell::knoten(const QModelIndex& index) const {
    return index.isValid() ? static_cast<Knoten*>(index.internalPointer()) : unsichtbar_.get();
}

QModelIndex KatalogModell::indexVon(Knoten* k) const {
    if (!k || k == unsichtbar_.get()) return {};
    return createIndex(k->zeile, 0, k);
}

QModelIndex KatalogModell::index(int zeile, int spalte, const QModelIndex& eltern) const {
    const Knoten* e = knoten(eltern);
    if (spalte != 0 || zeile < 0 || zeile >= static_cast<int>(e->kinder.size())) return {};
    return createIndex(zeile, 0, e->kinder[static_cast<std::size_t>(zeile)].get());
}

QModelIndex KatalogModell::parent(const QModelIndex& index) const {
    return index.isValid() ? indexVon(knoten(index)->eltern) : QModelIndex();
}

int KatalogModell::rowCount(const QModelIndex& eltern) const {
    return static_cast<int>(knoten(eltern)->kinder.size());
}

int KatalogModell::columnCount(const QModelIndex&) const {
    return 1;
}

bool KatalogModell::hasChildren(const QModelIndex& eltern) const {
    const Knoten* k = knoten(eltern);
    return k->geladen || k == unsichtbar_.get() ? !k->kinder.empty() : k->hatKinder;
}

bool KatalogModell::canFetchMore(const QModelIndex& eltern) const {
    const Knoten* k = knoten(eltern);
    return !k->geladen && (k->art & (kBoxKnoten | kDvdKnoten | kFilmKnoten));
}

void KatalogModell::fetchMore(const QModelIndex& eltern) {
    if (canFetchMore(eltern)) ladeKinder(*knoten(eltern));
}

QVariant KatalogModell::data(const QModelIndex& index, int rolle) const {
    if (!index.isValid()) return {};
    const Knoten& k = *knoten(index);
    switch (rolle) {
        case Qt::DisplayRole:
        case Qt::AccessibleTextRole:
            return k.art == kWurzelKnoten ? wurzelText(boxAnzahl()) : k.text;
        case Qt::DecorationRole:
            return symbol(k.art);
        case Qt::ToolTipRole:
            if (k.art == kBoxKnoten && !k.ean.empty())
                return QStringLiteral("EAN: ") + alsQString(k.ean);
            return {};
        case Qt::FontRole: {
            const bool markiert = markiertTyp_ != 0 && k.id == markiertId_ &&
                                  ((markiertTyp_ == 2 && k.art == kDvdKnoten) ||
                                   (markiertTyp_ == 3 && k.art == kFilmKnoten));
            if (!markiert) return {};
            QFont f;
            f.setBold(true);
            return f;
        }
        case kRolleArt:
            return k.art;
        case kRolleId:
            return static_cast<qlonglong>(k.id);
        case kRolleLookup:
            return k.lookup;
        case kRolleTitel:
            return QByteArray::fromStdString(k.titel);
        case kRolleEan:
            return QByteArray::fromStdString(k.ean);
        case kRolleSchluessel:
            return schluesselVon(k);
        default:
            return {};
    }
}

QString KatalogModell::schluessel(const QModelIndex& index) {
    return index.data(kRolleSchluessel).toString();
}

QModelIndex KatalogModell::kind(const QModelIndex& eltern, const QString& gesucht) const {
    // Compared by number first: the root has tens of thousands of boxes.
    const Knoten* e = knoten(eltern);
    const long zahl = gesucht.mid(1, gesucht.indexOf(QLatin1Char(':')) - 1).toLong();
    for (const auto& k : e->kinder) {
        const long eigene = k->art == kGruppenKnoten ? k->lookup : k->id;
        if (eigene == zahl && schluesselVon(*k) == gesucht) return indexVon(k.get());
    }
    return {};
}

QModelIndex KatalogModell::finde(int typ, long id) {
    if (id <= 0 || typ < 1 || typ > 3 || unsichtbar_->kinder.empty()) return {};
    Knoten* eltern = unsichtbar_->kinder[0].get();
    if (typ > 1) {
        const long besitzer = app_.dienste().katalog().besitzer(typ, id);
        eltern = knoten(finde(typ - 1, besitzer));
        if (eltern == unsichtbar_.get()) return {};
        if (!eltern->geladen) ladeKinder(*eltern);
    }
    for (const auto& k : eltern->kinder)
        if (k->id == id) return indexVon(k.get());
    return {};
}

void KatalogModell::setzeMarkiert(int typ, long id) {
    std::vector<Knoten*> betroffen;
    auto merke = [&](int t, long i) {
        if (t == 2 || t == 3)
            for (Knoten* k : alleMit(t == 2 ? kDvdKnoten : kFilmKnoten, i)) betroffen.push_back(k);
    };
    merke(markiertTyp_, markiertId_);
    markiertTyp_ = typ;
    markiertId_ = id;
    merke(typ, id);
    for (Knoten* k : betroffen) {
        const QModelIndex i = indexVon(k);
        emit dataChanged(i, i, {Qt::FontRole});
    }
}

void KatalogModell::ladeKinder(Knoten& k) {
    KatalogDienst& katalog = app_.dienste().katalog();
    Kinder neu;
    if (k.art == kBoxKnoten)
        for (const DvdZeile& z : katalog.dvds(k.id))
            neu.push_back(neuerKnoten(kDvdKnoten, z.id, z.titel, z.filme > 0));
    if (k.art == kDvdKnoten)
        for (const FilmZeile& z : katalog.filme(k.id))
            neu.push_back(neuerKnoten(kFilmKnoten, z.id, z.titel, true));
    if (k.art == kFilmKnoten) neu = gruppenKnoten(katalog.gruppen(k.id));
    k.geladen = true;
    setzeKinder(k, std::move(neu));
}

// Brings the children of eltern to the list neu, node by node: kept nodes stay
// (with what is loaded below them), so the view keeps selection and expansion.
void KatalogModell::setzeKinder(Knoten& eltern, Kinder neu) {
    const QModelIndex ei = indexVon(&eltern);
    if (eltern.kinder.empty()) {
        // Read for the first time: all rows in one step.
        if (neu.empty()) return;
        beginInsertRows(ei, 0, static_cast<int>(neu.size()) - 1);
        eltern.kinder = std::move(neu);
        nummeriere(eltern);
        endInsertRows();
        return;
    }
    std::vector<QString> soll;
    for (const auto& n : neu) soll.push_back(schluesselVon(*n));
    for (int i = static_cast<int>(eltern.kinder.size()) - 1; i >= 0; --i) {
        if (std::find(soll.begin(), soll.end(), schluesselVon(*eltern.kinder[i])) != soll.end())
            continue;
        beginRemoveRows(ei, i, i);
        eltern.kinder.erase(eltern.kinder.begin() + i);
        nummeriere(eltern, static_cast<std::size_t>(i));
        endRemoveRows();
    }
    for (std::size_t i = 0; i < neu.size(); ++i) {
        auto gleich = [&](const auto& k) { return schluesselVon(*k) == soll[i]; };
        auto it =
            std::find_if(eltern.kinder.begin() + static_cast<long>(i), eltern.kinder.end(), gleich);
        if (it == eltern.kinder.end()) {
            beginInsertRows(ei, static_cast<int>(i), static_cast<int>(i));
            eltern.kinder.insert(eltern.kinder.begin() + static_cast<long>(i), std::move(neu[i]));
            nummeriere(eltern, i);
            endInsertRows();
            continue;
        }
        const int von = static_cast<int>(it - eltern.kinder.begin());
        if (von != static_cast<int>(i)) {
            beginMoveRows(ei, von, von, ei, static_cast<int>(i));
            auto k = std::move(eltern.kinder[static_cast<std::size_t>(von)]);
            eltern.kinder.erase(eltern.kinder.begin() + von);
            eltern.kinder.insert(eltern.kinder.begin() + static_cast<long>(i), std::move(k));
            nummeriere(eltern, i);
            endMoveRows();
        }
        Knoten& alt = *eltern.kinder[i];
        alt.text = neu[i]->text;
        alt.hatKinder = neu[i]->hatKinder;
        if (alt.art == kGruppenKnoten || alt.art == kEintragsKnoten)
            setzeKinder(alt, std::move(neu[i]->kinder));
        const QModelIndex ki = indexVon(&alt);
        emit dataChanged(ki, ki);
    }
    // Left over from duplicate keys (the same entry twice, now once).
    const int ende = static_cast<int>(eltern.kinder.size());
    if (ende > static_cast<int>(neu.size())) {
        beginRemoveRows(ei, static_cast<int>(neu.size()), ende - 1);
        eltern.kinder.resize(neu.size());
        endRemoveRows();
    }
}

void KatalogModell::entferne(Knoten& k) {
    Knoten& eltern = *k.eltern;
    const int zeile = k.zeile;
    beginRemoveRows(indexVon(&eltern), zeile, zeile);
    eltern.kinder.erase(eltern.kinder.begin() + zeile);
    nummeriere(eltern, static_cast<std::size_t>(zeile));
    endRemoveRows();
}

std::vector<KatalogModell::Knoten*> KatalogModell::alleMit(unsigned art, long id) const {
    std::vector<Knoten*> treffer;
    std::vector<Knoten*> offen{unsichtbar_.get()};
    while (!offen.empty()) {
        Knoten* k = offen.back();
        offen.pop_back();
        for (const auto& c : k->kinder) {
            if (c->art == art && (id == kJedeId || c->id == id)) treffer.push_back(c.get());
            if (!c->kinder.empty() && (c->art & (kWurzelKnoten | kBoxKnoten | kDvdKnoten)))
                offen.push_back(c.get());
        }
    }
    return treffer;
}

void KatalogModell::aktualisiereKinder(Knoten& k) {
    if (k.geladen)
        ladeKinder(k);
    else if (!k.hatKinder)
        ladeKinder(k);  // a first child: read now, so the expand mark appears
}

void KatalogModell::aktualisiereWurzel() {
    const QModelIndex w = wurzel();
    emit dataChanged(w, w);
    emit anzahlGeaendert(boxAnzahl());
}

}  // namespace dv::ui
