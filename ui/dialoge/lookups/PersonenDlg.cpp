#include "ui/dialoge/lookups/PersonenDlg.h"

#include "app/CApplikation.h"
#include "app/PersonenDienst.h"
#include "app/Zeichensatz.h"
#include "ui/dialoge/lookups/PersonDlg.h"

namespace dv::ui {

PersonenDlg::PersonenDlg(QWidget* eltern, CApplikation& app)
    : KatalogDlg(eltern, app, "WP_personen", QStringLiteral("Personen"), QStringLiteral("Person"),
                 QStringLiteral("Filme"), QStringLiteral("&Bearbeiten...")) {
    fertigLaden();
}

std::vector<KatalogZeile> PersonenDlg::lade() {
    std::vector<KatalogZeile> zeilen;
    const std::vector<PersonZeile> personen = PersonenDienst(app_).liste();
    zeilen.reserve(personen.size());
    for (const PersonZeile& p : personen)
        zeilen.push_back({p.person.id, alsQString(p.text), p.filme});
    return zeilen;
}

void PersonenDlg::neuesEintrag() {
    PersonDlg::oeffne(this, app_, PersonWerte{},
                      [this](const PersonZeile& p) { ladeNeu(p.person.id); });
}

void PersonenDlg::bearbeiteEintrag(long id) {
    auto p = PersonenDienst(app_).lade(id);
    if (!melde(p)) return;
    PersonDlg::oeffne(this, app_, p.wert(), [this](const PersonZeile& z) { ladeNeu(z.person.id); });
}

Ergebnis PersonenDlg::loesche(long id) {
    return PersonenDienst(app_).loesche(id);
}

ErgebnisMit<std::string> PersonenDlg::zusammenfuehrFrage(long bleibt, long weg) {
    return PersonenDienst(app_).zusammenfuehrFrage(bleibt, weg);
}

Ergebnis PersonenDlg::fuehreZusammen(long bleibt, long weg) {
    return PersonenDienst(app_).zusammenfuehren(bleibt, weg);
}

}  // namespace dv::ui
