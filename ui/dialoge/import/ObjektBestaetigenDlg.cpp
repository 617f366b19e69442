#include "ui/dialoge/import/ObjektBestaetigenDlg.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"

namespace dv::ui {

namespace {

QString text(const std::string& cp1252) {
    return alsQString(cp1252);
}

}  // namespace

ObjektBestaetigenDlg::ObjektBestaetigenDlg(QWidget* eltern, CApplikation& app,
                                           const ObjektDialog& d)
    : Dialog(eltern, app, d.feldNamen.empty() ? "WP_neuesobjekt" : "WP_neueperson", text(d.titel)),
      liste_(new QListWidget(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(text(d.zeile), this));
    layout->addWidget(new QLabel(text(d.typ), this));
    auto* form = new QFormLayout;
    for (std::size_t i = 0; i < d.felder.size(); ++i) {
        auto* e = new QLineEdit(text(d.felder[i]), this);
        e->setMaxLength(128);
        e->setReadOnly(d.modus != ObjektModus::Bearbeiten);
        const QString name = i < d.feldNamen.size() ? text(d.feldNamen[i]) : text(d.typ);
        form->addRow(name + QLatin1Char(':'), e);
        felder_.push_back(e);
    }
    layout->addLayout(form);
    for (const auto& s : d.liste) liste_->addItem(text(s));
    liste_->setEnabled(d.modus == ObjektModus::Auswahl);
    liste_->setObjectName(QStringLiteral("Vorhandene Objekte"));
    liste_->setAccessibleName(liste_->objectName());
    layout->addWidget(liste_);
    auto* knoepfe = new QDialogButtonBox(this);
    auto knopf = [&](const QString& t, ObjektTaste taste, bool aktiv) {
        QPushButton* b = knoepfe->addButton(t, QDialogButtonBox::ActionRole);
        b->setEnabled(aktiv);
        connect(b, &QPushButton::clicked, this, [this, taste] {
            taste_ = taste;
            accept();
        });
    };
    const bool normal = d.modus == ObjektModus::Normal;
    knopf(QStringLiteral("OK"), ObjektTaste::OK, true);
    knopf(QStringLiteral("Alle OK"), ObjektTaste::AlleOK, true);
    knopf(QStringLiteral("Edit"), ObjektTaste::Edit, normal);
    knopf(QStringLiteral("Auswahl"), ObjektTaste::Auswahl, normal && d.auswahlMoeglich);
    knopf(QStringLiteral("Nicht"), ObjektTaste::Nicht, true);
    knopf(text(d.letzteTaste), ObjektTaste::Letzte, true);
    layout->addWidget(knoepfe);
    fertig();
}

ObjektAntwort ObjektBestaetigenDlg::antwort() const {
    ObjektAntwort a;
    a.taste = result() == QDialog::Accepted ? taste_ : ObjektTaste::Letzte;
    for (const QLineEdit* e : felder_) a.felder.push_back(ausQString(e->text()));
    a.gewaehlt = liste_->currentRow();
    return a;
}

}  // namespace dv::ui
