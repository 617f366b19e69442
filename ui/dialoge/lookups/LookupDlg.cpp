#include "ui/dialoge/lookups/LookupDlg.h"

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "app/LookupDienst.h"
#include "app/Zeichensatz.h"
#include "ui/dialoge/haupt/EingabeDlg.h"

namespace dv::ui {

std::string lookupWpName(int typ) {
    return "WP_lookup" + std::to_string(typ);
}

LookupDlg::LookupDlg(QWidget* eltern, CApplikation& app, int typ, const QString& titel)
    : KatalogDlg(eltern, app, lookupWpName(typ).c_str(), titel, QStringLiteral("Name"),
                 QStringLiteral("Verwendet"), QStringLiteral("&Umbenennen...")),
      typ_(typ) {
    fertigLaden();
}

std::vector<KatalogZeile> LookupDlg::lade() {
    std::vector<KatalogZeile> zeilen;
    for (const LookupWert& w : LookupDienst(app_).liste(typ_))
        zeilen.push_back({w.id, alsQString(w.name), w.anzahl});
    return zeilen;
}

void LookupDlg::frageName(long id, const std::string& vorgabe) {
    const QString titel = id == 0 ? QStringLiteral("Neuer Eintrag: %1").arg(windowTitle())
                                  : QStringLiteral("Umbenennen: %1").arg(windowTitle());
    auto* dlg = new EingabeDlg(this, app_, id == 0 ? "WP_neuereintrag" : "WP_umbenennen", titel,
                               QStringLiteral("&Name:"), vorgabe, static_cast<int>(kMaxLookupName));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this, [this, dlg, id] {
        LookupDienst dienst(app_);
        if (id == 0) {
            auto neu = dienst.neu(typ_, dlg->text8());
            if (melde(neu)) ladeNeu(neu.wert());
        } else if (melde(dienst.umbenennen(typ_, id, dlg->text8()))) {
            ladeNeu(id);
        }
    });
    dlg->open();
}

void LookupDlg::neuesEintrag() {
    frageName(0, std::string());
}

void LookupDlg::bearbeiteEintrag(long id) {
    if (const KatalogZeile* z = aktuelleZeile(); z && z->id == id)
        frageName(id, ausQString(z->text));
}

Ergebnis LookupDlg::loesche(long id) {
    return LookupDienst(app_).loesche(typ_, id);
}

ErgebnisMit<std::string> LookupDlg::zusammenfuehrFrage(long bleibt, long weg) {
    return LookupDienst(app_).zusammenfuehrFrage(typ_, bleibt, weg);
}

Ergebnis LookupDlg::fuehreZusammen(long bleibt, long weg) {
    return LookupDienst(app_).zusammenfuehren(typ_, bleibt, weg);
}

}  // namespace dv::ui
