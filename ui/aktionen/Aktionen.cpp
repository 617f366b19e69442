#include "ui/aktionen/Aktionen.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QWidget>

#include "app/Zeichensatz.h"

namespace dv::ui {

QString ohneKuerzel(const QString& text) {
    QString t;
    t.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('&') && i + 1 < text.size()) ++i;
        t += text[i];
    }
    return t;
}

namespace {

QList<QKeySequence> kuerzel(const char* text) {
    QList<QKeySequence> liste;
    if (!text) return liste;
    for (const QString& teil : QString::fromLatin1(text).split(QLatin1Char(';')))
        liste << QKeySequence(teil, QKeySequence::PortableText);
    return liste;
}

QString menueName(Menue m) {
    return QStringLiteral("menu") + ohneKuerzel(alsQString(menueText(m)));
}

}  // namespace

Aktionen::Aktionen(QWidget& fenster, QWidget& baum) : QObject(&fenster), fenster_(fenster) {
    for (const Befehl& b : befehle()) {
        auto* a = new QAction(alsQString(b.text), &fenster);
        char puffer[24];
        a->setObjectName(QString::fromLatin1(befehlsName(b.id, puffer)));
        a->setData(b.id);
        a->setCheckable(b.abhakbar);
        a->setShortcuts(kuerzel(b.kuerzel));
        if (b.nurImBaum) {
            a->setShortcutContext(Qt::WidgetWithChildrenShortcut);
            baum.addAction(a);
        } else {
            fenster.addAction(a);
        }
        aktionen_[b.id] = a;
    }
    aktualisiere(Auswahl{});
}

QAction* Aktionen::aktion(int id) const {
    auto it = aktionen_.find(id);
    return it == aktionen_.end() ? nullptr : it->second;
}

QMenu* Aktionen::untermenue(QMenuBar& leiste, Menue m, std::map<Menue, QMenu*>& menues) {
    const Menue oben =
        (m == Menue::Box || m == Menue::Dvd || m == Menue::Film || m == Menue::Lookups)
            ? Menue::Objekte
            : m;
    QMenu*& haupt = menues[oben];
    if (!haupt) {
        haupt = leiste.addMenu(alsQString(menueText(oben)));
        haupt->setObjectName(menueName(oben));
        if (oben == Menue::Objekte) {
            for (Menue u : {Menue::Box, Menue::Dvd, Menue::Film}) {
                QMenu* unter = haupt->addMenu(alsQString(menueText(u)));
                unter->setObjectName(menueName(u));
                menues[u] = unter;
            }
        }
    }
    return m == Menue::Lookups ? haupt : menues[m];
}

void Aktionen::baueMenues(QMenuBar& leiste) {
    std::map<Menue, QMenu*> menues;
    for (const Befehl& b : befehle()) {
        if (b.menue == Menue::Keins) continue;
        QAction* a = aktion(b.id);
        if (b.menue == Menue::Memoriam) {
            leiste.addAction(a);
            continue;
        }
        QMenu* menue = untermenue(leiste, b.menue, menues);
        const bool ersterEintrag = menue->actions().isEmpty();
        if (b.trennerDavor && !ersterEintrag) menue->addSeparator();
        menue->addAction(a);
    }
}

QMenu* Aktionen::baueKontext(unsigned art) {
    const auto eintraege = kontextEintraege(art);
    if (eintraege.empty()) return nullptr;
    auto* menue = new QMenu(&fenster_);
    menue->setObjectName(QStringLiteral("kontextMenue%1").arg(art));
    for (const KontextEintrag& e : eintraege) {
        if (e.id == 0) {
            menue->addSeparator();
            continue;
        }
        QAction* ziel = aktion(e.id);
        QAction* a = menue->addAction(alsQString(e.text));
        char puffer[24];
        a->setObjectName(QStringLiteral("kontext_") +
                         QString::fromLatin1(befehlsName(e.id, puffer)));
        a->setData(e.id);
        a->setCheckable(ziel->isCheckable());
        connect(a, &QAction::triggered, ziel, [ziel] { ziel->trigger(); });
        kontextAktionen_.emplace_back(a, e.id);
    }
    return menue;
}

QMenu* Aktionen::kontextMenue(unsigned art) {
    auto it = kontext_.find(art);
    if (it != kontext_.end()) return it->second;
    QMenu* menue = baueKontext(art);
    kontext_[art] = menue;
    aktualisiere(auswahl_);
    return menue;
}

void Aktionen::aktualisiere(const Auswahl& a) {
    auswahl_ = a;
    for (const Befehl& b : befehle()) {
        QAction* aktion = aktionen_.at(b.id);
        aktion->setEnabled(istAktiv(b, a));
        if (b.abhakbar) aktion->setChecked(istAbgehakt(b, a));
    }
    // Copy mode's two entries appear only while it is active.
    for (auto [eintrag, id] : kontextAktionen_) {
        QAction* ziel = aktionen_.at(id);
        eintrag->setEnabled(ziel->isEnabled());
        eintrag->setChecked(ziel->isChecked());
        if (id == kCmdEinfuegen || id == kCmdAbbrechen) eintrag->setVisible(a.quelleTyp != 0);
    }
}

}  // namespace dv::ui
