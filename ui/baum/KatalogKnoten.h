#pragma once
// The nodes behind KatalogModell and the helpers that build them; private to
// ui/baum.

#include <QIcon>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "app/Werte.h"
#include "ui/aktionen/Befehle.h"
#include "ui/baum/KatalogModell.h"

namespace dv::ui {

struct KatalogModell::Knoten {
    unsigned art = kKeinKnoten;
    long id = 0;
    int lookup = 0;
    QString text;
    std::string titel;  // a box's title and EAN, for the quick filter
    std::string ean;
    bool hatKinder = false;  // before the children are read
    bool geladen = false;
    Knoten* eltern = nullptr;
    int zeile = 0;
    std::vector<std::unique_ptr<Knoten>> kinder;
};

using Knoten = KatalogModell::Knoten;
using Kinder = std::vector<std::unique_ptr<Knoten>>;

std::unique_ptr<Knoten> neuerKnoten(unsigned art, long id, const std::string& text, bool hatKinder);
std::unique_ptr<Knoten> boxKnoten(const BoxZeile& z);
// A film's groups are complete when they are read: nothing below them is fetched.
Kinder gruppenKnoten(const std::vector<Gruppe>& gruppen);
QString schluesselVon(const Knoten& k);
// Sets parent and row of the children from index ab on.
void nummeriere(Knoten& eltern, std::size_t ab = 0);
QIcon symbol(unsigned art);

}  // namespace dv::ui
