#include "ui/dialoge/suche/Objektbefehle.h"

#include <QAction>
#include <QMenu>

#include "app/CApplikation.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/suche/Dateiwahl.h"
#include "ui/dialoge/tags/CDlgStempel.h"
#include "ui/dialoge/tags/CDlgTags.h"
#include "ui/dialoge/vormerk/CDlgVormerkName.h"

namespace dv::ui {

namespace {

template <class D>
void oeffne(D* dlg) {
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    dlg->open();
}

}  // namespace

Objektbefehle::Objektbefehle(CApplikation& app, KatalogAnsicht& baum, Aktionen& aktionen,
                             QObject* eltern)
    : QObject(eltern), app_(app), baum_(baum), aktionen_(aktionen) {}

bool Objektbefehle::zeigen(const KatalogObjekt& o) {
    if (baum_.zeige(o.typ, o.id)) return true;
    app_.benutzer().meldung("Hinweis", "Das Objekt steht nicht mehr im Katalog.",
                            Symbol::Information);
    return false;
}

void Objektbefehle::bearbeiten(const KatalogObjekt& o) {
    if (!zeigen(o)) return;
    if (QAction* a = aktionen_.aktion(kCmdBearbeiten)) {
        aktionen_.aktualisiere(baum_.auswahl());
        a->trigger();
    }
}

void Objektbefehle::tags(QWidget* eltern, const KatalogObjekt& o) {
    if (app_.dienste().katalog().gibtEs(o.typ, o.id))
        oeffne(new CDlgTags(eltern, app_, o.typ, o.id));
}

void Objektbefehle::stempeltags(QWidget* eltern, const KatalogObjekt& o) {
    if (app_.dienste().katalog().gibtEs(o.typ, o.id))
        oeffne(new CDlgStempelWahl(eltern, app_, o.typ, o.id));
}

void Objektbefehle::vormerken(QWidget* eltern, const std::vector<KatalogObjekt>& objekte) {
    if (objekte.empty()) return;
    auto* dlg = new CDlgVormerkName(eltern, app_, *this, CDlgVormerkName::Modus::Mehrfach,
                                    QStringLiteral("Vormerken"));
    connect(dlg, &QDialog::accepted, this, [this, dlg, objekte] {
        VormerkDienst& v = app_.dienste().vormerk();
        for (long liste : dlg->abgehakte())
            for (const KatalogObjekt& o : objekte)
                if (!meldeErgebnis(app_, v.hinzu(liste, o.typ, o.id))) return;
    });
    oeffne(dlg);
}

QMenu* Objektbefehle::kontextMenue(QWidget* eltern, const KatalogObjekt& aktuell,
                                   const std::vector<KatalogObjekt>& objekte) {
    auto* m = new QMenu(eltern);
    m->setObjectName(QStringLiteral("Kontextmenü"));
    m->setAttribute(Qt::WA_DeleteOnClose);
    auto eintrag = [m](const QString& text, auto&& wenn) {
        QAction* a = m->addAction(text, m, std::forward<decltype(wenn)>(wenn));
        a->setObjectName(ohneKuerzel(text));
        return a;
    };
    eintrag(QStringLiteral("Im Baum &zeigen"), [this, aktuell] { zeigen(aktuell); });
    eintrag(QStringLiteral("&Bearbeiten"), [this, aktuell] { bearbeiten(aktuell); });
    m->addSeparator();
    QAction* t =
        eintrag(QStringLiteral("&Tags"), [this, eltern, aktuell] { tags(eltern, aktuell); });
    t->setCheckable(true);
    t->setChecked(app_.dienste().tags().hat(aktuell.typ, aktuell.id));
    eintrag(QStringLiteral("&Stempeltags..."),
            [this, eltern, aktuell] { stempeltags(eltern, aktuell); });
    eintrag(QStringLiteral("&Vormerken..."),
            [this, eltern, objekte] { vormerken(eltern, objekte); });
    return m;
}

}  // namespace dv::ui
