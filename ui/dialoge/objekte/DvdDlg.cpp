#include "ui/dialoge/objekte/DvdDlg.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QVBoxLayout>

#include "app/BearbeitungsDienst.h"
#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "app/Zeichensatz.h"
#include "ui/widgets/EintragWahl.h"
#include "ui/widgets/ListenPaar.h"
#include "ui/widgets/TextFeld.h"

namespace dv::ui {

namespace {

QString dvdTitel(const DvdWerte& w) {
    return w.id == 0 ? QStringLiteral("<<<Neue Dvd>>>")
                     : QStringLiteral("Dvd [%1]").arg(alsQString(w.titel));
}

QSpinBox* zahlFeld(int bis, const QString& suffix, QWidget* eltern) {
    auto* s = new QSpinBox(eltern);
    s->setRange(0, bis);
    s->setSuffix(suffix);
    // A number field as wide as its largest number, not as the form.
    s->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return s;
}

QLineEdit* identitaetsFeld(std::uint32_t wert, QWidget* eltern) {
    auto* f = new QLineEdit(QString::number(wert), eltern);
    f->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,10}")), f));
    f->setToolTip(QStringLiteral("Eine Zahl von 0 bis 4294967295"));
    return f;
}

}  // namespace

DvdDlg::DvdDlg(QWidget* eltern, CApplikation& app, const DvdWerte& w,
               const std::vector<Eintrag>& formate, const std::vector<Eintrag>& extras)
    : EditDlg(eltern, app, "WP_dvd", dvdTitel(w)),
      alt_(w),
      titel_(new TextFeld(static_cast<int>(kMaxBezeichnung), this)),
      jahr_(zahlFeld(9999, QString(), this)),
      laenge_(zahlFeld(9999, QStringLiteral(" min"), this)),
      format_(new EintragWahl(true, this)),
      extras_(new ListenPaar(QStringLiteral("Extras"), this)),
      sn_(identitaetsFeld(w.sn, this)),
      low_(identitaetsFeld(w.bytesLow, this)),
      high_(identitaetsFeld(w.bytesHigh, this)),
      dateisystem_(new QLabel(QStringLiteral("–"), this)),
      groesse_(new QLabel(this)),
      klasse_(new QLabel(this)) {
    titel_->setzeText8(w.titel);
    titel_->setMinimumWidth(320);
    jahr_->setValue(w.jahr);
    laenge_->setValue(w.laenge);
    format_->setzeEintraege(formate);
    format_->setzeEintrag(w.format);
    extras_->setzeZugeordnet(w.extras);
    extras_->setzeVerfuegbar(extras);
    erlaubeNeu(*extras_, QStringLiteral("Extras"));

    auto* form = new QFormLayout;
    auto zeile = [this](QFormLayout* f, const QString& text, QWidget* feld) {
        auto* label = new QLabel(text, this);
        label->setBuddy(feld);
        f->addRow(label, feld);
    };
    zeile(form, QStringLiteral("&Bezeichnung:"), titel_);
    zeile(form, QStringLiteral("&Jahr:"), jahr_);
    zeile(form, QStringLiteral("L&änge:"), laenge_);
    zeile(form, QStringLiteral("&Format:"), format_);

    auto* region = new QGroupBox(QStringLiteral("&Regionalcode"), this);
    auto* regionReihe = new QHBoxLayout(region);
    for (int i = 0; i < 8; ++i) {
        regionen_[i] = new QCheckBox(QString::number(i + 1), region);
        regionen_[i]->setChecked(w.rc & (1u << i));
        regionReihe->addWidget(regionen_[i]);
    }
    regionReihe->addStretch();
    // Tab follows the form top down: the region codes come before the extras.
    setTabOrder(format_, regionen_[0]);
    for (int i = 0; i + 1 < 8; ++i) setTabOrder(regionen_[i], regionen_[i + 1]);
    setTabOrder(regionen_[7], extras_);

    auto* disc = new QGroupBox(QStringLiteral("Disc"), this);
    auto* discForm = new QFormLayout;
    zeile(discForm, QStringLiteral("&Seriennummer:"), sn_);
    zeile(discForm, QStringLiteral("Bytes &Low:"), low_);
    zeile(discForm, QStringLiteral("Bytes H&igh:"), high_);
    auto* anzeige = new QFormLayout;
    anzeige->addRow(QStringLiteral("Dateisystem:"), dateisystem_);
    anzeige->addRow(QStringLiteral("Größe:"), groesse_);
    anzeige->addRow(QStringLiteral("Typ:"), klasse_);
    for (QLabel* l : {dateisystem_, groesse_, klasse_})
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* lesen = new QPushButton(QStringLiteral("Von &DVD lesen"), this);
    lesen->setAutoDefault(false);
    auto* discRaster = new QGridLayout(disc);
    discRaster->addLayout(discForm, 0, 0);
    discRaster->addLayout(anzeige, 0, 1);
    discRaster->addWidget(lesen, 1, 0, 1, 2, Qt::AlignLeft);
    discRaster->setColumnStretch(0, 1);
    discRaster->setColumnStretch(1, 1);

    auto* extrasGruppe = new QGroupBox(QStringLiteral("Extras"), this);
    (new QVBoxLayout(extrasGruppe))->addWidget(extras_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(region);
    layout->addWidget(extrasGruppe, 1);
    layout->addWidget(disc);
    layout->addWidget(knoepfe());
    connect(lesen, &QPushButton::clicked, this, &DvdDlg::vonDvdLesen);
    for (QLineEdit* f : {low_, high_})
        connect(f, &QLineEdit::textChanged, this, &DvdDlg::zeigeGroesse);
    zeigeGroesse();
    resize(680, 640);
    fertig();
}

DvdWerte DvdDlg::werte() const {
    DvdWerte w = alt_;
    w.titel = titel_->text8();
    w.jahr = jahr_->value();
    w.laenge = laenge_->value();
    w.format = format_->eintrag();
    w.rc = 0;
    for (int i = 0; i < 8; ++i)
        if (regionen_[i]->isChecked()) w.rc |= 1u << i;
    w.extras = extras_->zugeordnet();
    w.sn = static_cast<std::uint32_t>(sn_->text().toULongLong());
    w.bytesLow = static_cast<std::uint32_t>(low_->text().toULongLong());
    w.bytesHigh = static_cast<std::uint32_t>(high_->text().toULongLong());
    return w;
}

bool DvdDlg::zahlPasst(const QLineEdit& feld, const char* was) {
    // Ten digits at most (the validator): every text fits a long.
    const Ergebnis e =
        pruefeZahl(static_cast<long>(feld.text().toULongLong()), 0, 4294967295L, was);
    if (!e.ok()) hinweis(e.grund());
    return e.ok();
}

bool DvdDlg::pruefeEingaben() {
    return zahlPasst(*sn_, "Die Seriennummer") && zahlPasst(*low_, "Bytes Low") &&
           zahlPasst(*high_, "Bytes High");
}

void DvdDlg::zeigeGroesse() {
    const GroessenTexte t =
        BearbeitungsDienst::groesse(static_cast<std::uint32_t>(low_->text().toULongLong()),
                                    static_cast<std::uint32_t>(high_->text().toULongLong()));
    groesse_->setText(alsQString(t.groesse));
    klasse_->setText(alsQString(t.klasse));
}

void DvdDlg::vonDvdLesen() {
    if (!lesen_) return;
    const std::optional<DiscFelder> d = lesen_();
    if (!d) return;
    dateisystem_->setText(d->dateisystem);
    sn_->setText(QString::number(d->sn));
    low_->setText(QString::number(d->bytesLow));
    high_->setText(QString::number(d->bytesHigh));
    if (d->rc)
        for (int i = 0; i < 8; ++i) regionen_[i]->setChecked(*d->rc & (1u << i));
}

}  // namespace dv::ui
