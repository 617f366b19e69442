// How the tree model follows the services' change notices: only the nodes
// concerned change, so the view keeps its selection and expansion.
#include <QModelIndex>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "ui/aktionen/Befehle.h"
#include "ui/baum/KatalogKnoten.h"
#include "ui/baum/KatalogModell.h"

namespace dv::ui {

void KatalogModell::geaendert(const Aenderung& a) {
    if (a.art == AenderungsArt::Alles || a.typ == AenderungsTyp::Katalog) {
        lade();
        return;
    }
    switch (a.typ) {
        case AenderungsTyp::Box:
            boxGeaendert(a);
            break;
        case AenderungsTyp::Dvd:
        case AenderungsTyp::Film:
            unterobjektGeaendert(a);
            break;
        case AenderungsTyp::Tags: {
            // The check mark of "Tags" follows the current node's data.
            const unsigned art = a.unterTyp == 1   ? kBoxKnoten
                                 : a.unterTyp == 2 ? kDvdKnoten
                                                   : kFilmKnoten;
            for (Knoten* k : alleMit(art, a.id)) {
                const QModelIndex i = indexVon(k);
                emit dataChanged(i, i);
            }
            break;
        }
        case AenderungsTyp::Lookup:
        case AenderungsTyp::Person:
            // A renamed or merged entry may show below any loaded film.
            for (Knoten* film : geladeneFilme()) ladeKinder(*film);
            break;
        default:
            break;
    }
}

void KatalogModell::boxGeaendert(const Aenderung& a) {
    Knoten& w = *unsichtbar_->kinder.at(0);
    std::vector<Knoten*> da = alleMit(kBoxKnoten, a.id);
    if (a.art == AenderungsArt::Geloescht) {
        for (Knoten* k : da) entferne(*k);
        aktualisiereWurzel();
        return;
    }
    // Where the box stands in the tree's order now.
    const std::vector<BoxZeile> boxen = app_.dienste().katalog().boxen();
    int soll = -1;
    for (std::size_t i = 0; i < boxen.size(); ++i)
        if (boxen[i].id == a.id) soll = static_cast<int>(i);
    if (soll < 0) {
        for (Knoten* k : da) entferne(*k);
        aktualisiereWurzel();
        return;
    }
    const BoxZeile& zeile = boxen[static_cast<std::size_t>(soll)];
    if (da.empty()) {
        soll = std::min(soll, static_cast<int>(w.kinder.size()));
        beginInsertRows(wurzel(), soll, soll);
        w.kinder.insert(w.kinder.begin() + soll, boxKnoten(zeile));
        nummeriere(w, static_cast<std::size_t>(soll));
        endInsertRows();
        aktualisiereWurzel();
        return;
    }
    Knoten& k = *da.front();
    k.text = alsQString(zeile.titel);
    k.titel = zeile.titel;
    k.ean = zeile.ean;
    k.hatKinder = zeile.dvds > 0;
    soll = std::min(soll, static_cast<int>(w.kinder.size()) - 1);
    if (soll != k.zeile) verschiebe(w, k.zeile, soll);
    const QModelIndex ki = indexVon(&k);
    emit dataChanged(ki, ki);
    if (k.geladen) ladeKinder(k);
}

void KatalogModell::unterobjektGeaendert(const Aenderung& a) {
    const unsigned art = a.typ == AenderungsTyp::Dvd ? kDvdKnoten : kFilmKnoten;
    const unsigned elternArt = a.typ == AenderungsTyp::Dvd ? kBoxKnoten : kDvdKnoten;
    switch (a.art) {
        case AenderungsArt::Neu:
        case AenderungsArt::Verschoben:
            for (Knoten* e : alleMit(elternArt, a.eltern)) aktualisiereKinder(*e);
            break;
        case AenderungsArt::Geaendert:
            for (Knoten* k : alleMit(art, a.id)) {
                const auto z = art == kDvdKnoten ? app_.dienste().katalog().dvd(a.id)
                                                 : std::optional<DvdZeile>();
                const auto f = art == kFilmKnoten ? app_.dienste().katalog().film(a.id)
                                                  : std::optional<FilmZeile>();
                if (z) k->text = alsQString(z->titel);
                if (f) k->text = alsQString(f->titel);
                const QModelIndex ki = indexVon(k);
                emit dataChanged(ki, ki);
                if (k->geladen) ladeKinder(*k);
            }
            break;
        case AenderungsArt::Geloescht:
            for (Knoten* k : alleMit(art, a.id)) {
                Knoten* eltern = k->eltern;
                entferne(*k);
                if (eltern->kinder.empty()) eltern->hatKinder = false;
            }
            break;
        case AenderungsArt::Alles:
            break;
    }
}

void KatalogModell::verschiebe(Knoten& eltern, int von, int nach) {
    const QModelIndex ei = indexVon(&eltern);
    // Qt counts the target before the move: one further down when moving down.
    if (!beginMoveRows(ei, von, von, ei, nach > von ? nach + 1 : nach)) return;
    auto k = std::move(eltern.kinder[static_cast<std::size_t>(von)]);
    eltern.kinder.erase(eltern.kinder.begin() + von);
    eltern.kinder.insert(eltern.kinder.begin() + nach, std::move(k));
    nummeriere(eltern, static_cast<std::size_t>(std::min(von, nach)));
    endMoveRows();
}

std::vector<KatalogModell::Knoten*> KatalogModell::geladeneFilme() const {
    std::vector<Knoten*> filme;
    for (Knoten* f : alleMit(kFilmKnoten, kJedeId))
        if (f->geladen) filme.push_back(f);
    return filme;
}

}  // namespace dv::ui
