#include "ui/dialoge/objekte/EditDlg.h"

#include <QDialogButtonBox>
#include <QPushButton>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "app/Zeichensatz.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/widgets/ListenPaar.h"

namespace dv::ui {

EditDlg::EditDlg(QWidget* eltern, CApplikation& app, const char* wpName, const QString& titel)
    : Dialog(eltern, app, wpName, titel) {}

QDialogButtonBox* EditDlg::knoepfe() {
    auto* k = new QDialogButtonBox(this);
    k->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    k->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    connect(k, &QDialogButtonBox::accepted, this, &EditDlg::accept);
    connect(k, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return k;
}

void EditDlg::accept() {
    if (!pruefeEingaben()) return;
    if (speichern_ && !speichern_()) return;
    Dialog::accept();
}

void EditDlg::hinweis(const std::string& text) {
    app_.benutzer().meldung("Hinweis", text, Symbol::Warnung);
}

void EditDlg::erlaubeNeu(ListenPaar& paar, const QString& katalog) {
    paar.erlaubeNeu();
    connect(&paar, &ListenPaar::neuGewuenscht, this, [this, &paar, katalog] {
        auto* dlg = new EingabeDlg(
            this, app_, "WP_neuereintrag", QStringLiteral("Neuer Eintrag: %1").arg(katalog),
            QStringLiteral("&Name:"), std::string(), static_cast<int>(kMaxLookupName));
        dlg->setAttribute(Qt::WA_DeleteOnClose);
        connect(dlg, &QDialog::accepted, this, [dlg, &paar] {
            const std::string name = dlg->text8();
            if (name.find_first_not_of(' ') != std::string::npos) paar.weiseZu({0, name});
        });
        dlg->open();
    });
}

}  // namespace dv::ui
