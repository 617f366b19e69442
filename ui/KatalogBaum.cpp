#include "ui/KatalogBaum.h"

#include <QTreeWidget>

#include "base/Zeichensatz.h"
#include "domain/Beschreibung.h"
#include "domain/Datenbank.h"

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

void gruppe(QTreeWidgetItem* film, int typ, const ObjektElement* liste, bool mitTon) {
    if (!liste) return;
    QTreeWidgetItem* g = knoten(film, KatalogBaum::gruppenText(typ), 0, 0);
    g->setData(0, kRolleLookup, typ);
    for (const ObjektElement* e = liste; e; e = e->pNext) {
        const std::string text =
            mitTon ? formatiere("%s / %s", e->pObjekt1->zeile.cpText, e->pObjekt2->zeile.cpText)
                   : std::string(e->pObjekt1->zeile.cpText);
        knoten(g, text, 0, e->Id);
    }
}

}  // namespace

KatalogBaum::KatalogBaum(QTreeWidget& baum, Datenbank& db) : QObject(&baum), baum_(baum), db_(db) {
    connect(&baum_, &QTreeWidget::itemExpanded, this, &KatalogBaum::ladeKinder);
}

const char* KatalogBaum::gruppenText(int lookupTyp) {
    switch (lookupTyp) {
        case kTypExtras:
            return "Extras";
        case kTypFormat:
            return "Formate";
        case kTypGenre:
            return "Genre";
        case kTypBildformat:
            return "Bildformate";
        case kTypSprache:
            return "Sprachen inkl. Tonformat";
        case kTypUntertitel:
            return "Untertitel";
        case kTypPerson:
            return "Personen";
        default:
            return "<unbekannt>";
    }
}

std::string KatalogBaum::wurzelText(const char* titel, int anzahl) {
    return formatiere("%s {%d Box%s}", titel, anzahl, anzahl == 1 ? "" : "en");
}

void KatalogBaum::lade(const char* titel) {
    baum_.clear();
    auto boxen = db_.getBoxListe();
    int anzahl = 0;
    for (const BoxElement* b = boxen.get(); b; b = b->pNext) ++anzahl;
    auto* wurzel = new QTreeWidgetItem(&baum_);
    wurzel->setText(0, alsQString(wurzelText(titel, anzahl)));
    for (const BoxElement* b = boxen.get(); b; b = b->pNext)
        ladbarerKnoten(wurzel, b->cpText, kObjektBox, b->Id);
    wurzel->setExpanded(true);
}

void KatalogBaum::ladeKinder(QTreeWidgetItem* item) {
    if (!item || item->data(0, kRolleGeladen).toBool()) return;
    const int typ = item->data(0, kRolleTyp).toInt();
    if (typ != kObjektBox && typ != kObjektDvd && typ != kObjektFilm) return;
    item->setData(0, kRolleGeladen, true);
    if (typ == kObjektBox) ladeDvds(item);
    if (typ == kObjektDvd) ladeFilme(item);
    if (typ == kObjektFilm) ladeGruppen(item);
    item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

void KatalogBaum::ladeDvds(QTreeWidgetItem* box) {
    auto dvds = db_.getDvdListe(box->data(0, kRolleId).toLongLong());
    for (const DvdElement* d = dvds.get(); d; d = d->pNext)
        ladbarerKnoten(box, d->cpText, kObjektDvd, d->Id);
}

void KatalogBaum::ladeFilme(QTreeWidgetItem* dvd) {
    auto filme = db_.getFilmListe(dvd->data(0, kRolleId).toLongLong());
    for (const FilmElement* f = filme.get(); f; f = f->pNext)
        ladbarerKnoten(dvd, f->cpTitel, kObjektFilm, f->Id);
}

void KatalogBaum::ladeGruppen(QTreeWidgetItem* film) {
    const long id = film->data(0, kRolleId).toLongLong();
    for (int typ : {kTypGenre, kTypBildformat, kTypSprache, kTypUntertitel})
        gruppe(film, typ, db_.getObjektListe(id, typ).get(), typ == kTypSprache);
    auto personen = db_.getPersonenListe(id);
    if (!personen) return;
    // One entry per person link: first name, name and the function; aliases below it.
    QTreeWidgetItem* g = knoten(film, gruppenText(kTypPerson), 0, 0);
    g->setData(0, kRolleLookup, kTypPerson);
    for (const PersonenElement* p = personen.get(); p; p = p->pNext) {
        const Zeile8& z = p->pPerson->zeile;
        std::string text = z.cpVorname[0] ? std::string(z.cpVorname) + " " + z.cpName : z.cpName;
        auto fkt = db_.katalog().Funktion.eine(p->lFunktion);
        if (fkt) text += formatiere(" (%s)", Tabelle1::zeile(fkt.get()).cpText);
        QTreeWidgetItem* person = knoten(g, text, 0, z.Id);
        for (const ListenElement* a = p->pAlias; a; a = a->pNext)
            knoten(person, static_cast<const Zeile1*>(a->pObjekt)->cpText, 0, 0);
    }
}

void KatalogBaum::klappeAuf(QTreeWidgetItem* item, unsigned maxFilme) {
    unsigned filme = 0;
    klappeAuf(item, maxFilme, filme);
}

void KatalogBaum::klappeAuf(QTreeWidgetItem* item, unsigned maxFilme, unsigned& filme) {
    if (!item) return;
    if (item->data(0, kRolleTyp).toInt() == kObjektFilm) {
        if (filme >= maxFilme) return;
        ++filme;
    }
    ladeKinder(item);
    item->setExpanded(true);
    for (int i = 0; i < item->childCount(); ++i) klappeAuf(item->child(i), maxFilme, filme);
}

}  // namespace dv::ui
