#include "ui/baum/KatalogKnoten.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <map>

#include "app/Zeichensatz.h"

namespace dv::ui {

std::unique_ptr<Knoten> neuerKnoten(unsigned art, long id, const std::string& text,
                                    bool hatKinder) {
    auto k = std::make_unique<Knoten>();
    k->art = art;
    k->id = id;
    k->text = alsQString(text);
    k->hatKinder = hatKinder;
    return k;
}

std::unique_ptr<Knoten> boxKnoten(const BoxZeile& z) {
    auto k = neuerKnoten(kBoxKnoten, z.id, z.titel, z.dvds > 0);
    k->titel = z.titel;
    k->ean = z.ean;
    return k;
}

Kinder gruppenKnoten(const std::vector<Gruppe>& gruppen) {
    Kinder liste;
    for (const Gruppe& g : gruppen) {
        auto gk = neuerKnoten(kGruppenKnoten, 0, g.text, !g.eintraege.empty());
        gk->lookup = g.typ;
        gk->geladen = true;
        for (const GruppenEintrag& e : g.eintraege) {
            auto ek = neuerKnoten(kEintragsKnoten, e.id, e.text, !e.unter.empty());
            ek->geladen = true;
            for (const std::string& u : e.unter) {
                ek->kinder.push_back(neuerKnoten(kEintragsKnoten, 0, u, false));
                ek->kinder.back()->geladen = true;
            }
            gk->kinder.push_back(std::move(ek));
        }
        liste.push_back(std::move(gk));
    }
    return liste;
}

QString schluesselVon(const Knoten& k) {
    switch (k.art) {
        case kBoxKnoten:
            return QStringLiteral("b%1").arg(k.id);
        case kDvdKnoten:
            return QStringLiteral("d%1").arg(k.id);
        case kFilmKnoten:
            return QStringLiteral("f%1").arg(k.id);
        case kGruppenKnoten:
            return QStringLiteral("g%1").arg(k.lookup);
        default:
            return QStringLiteral("e%1:").arg(k.id) + k.text;
    }
}

void nummeriere(Knoten& eltern, std::size_t ab) {
    for (std::size_t i = ab; i < eltern.kinder.size(); ++i) {
        eltern.kinder[i]->eltern = &eltern;
        eltern.kinder[i]->zeile = static_cast<int>(i);
    }
}

static QIcon neuesSymbol(unsigned art);

// A strip of film in the palette's text colour, so that it reads on light and
// dark palettes alike.
static QIcon filmSymbol() {
    QPixmap bild(16, 16);
    bild.fill(Qt::transparent);
    QPainter maler(&bild);
    const QColor farbe = QApplication::palette().color(QPalette::Text);
    maler.fillRect(QRect(2, 1, 12, 14), farbe);
    maler.setCompositionMode(QPainter::CompositionMode_Clear);
    for (int y = 2; y < 14; y += 3) {
        maler.fillRect(QRect(3, y, 2, 2), Qt::transparent);
        maler.fillRect(QRect(11, y, 2, 2), Qt::transparent);
    }
    maler.fillRect(QRect(6, 3, 4, 4), Qt::transparent);
    maler.fillRect(QRect(6, 9, 4, 4), Qt::transparent);
    return QIcon(bild);
}

// Made once per kind: the style's icons are decoded from pictures each time.
QIcon symbol(unsigned art) {
    static std::map<unsigned, QIcon> fertig;
    auto it = fertig.find(art);
    if (it == fertig.end()) it = fertig.emplace(art, neuesSymbol(art)).first;
    return it->second;
}

static QIcon neuesSymbol(unsigned art) {
    QStyle* stil = QApplication::style();
    switch (art) {
        case kWurzelKnoten:
            return stil->standardIcon(QStyle::SP_DirHomeIcon);
        case kBoxKnoten:
            return stil->standardIcon(QStyle::SP_DirIcon);
        case kDvdKnoten:
            return stil->standardIcon(QStyle::SP_DriveDVDIcon);
        case kFilmKnoten:
            return filmSymbol();
        case kGruppenKnoten:
            return stil->standardIcon(QStyle::SP_FileDialogDetailedView);
        default:
            return stil->standardIcon(QStyle::SP_FileIcon);
    }
}

}  // namespace dv::ui
