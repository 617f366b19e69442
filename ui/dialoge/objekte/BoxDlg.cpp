#include "ui/dialoge/objekte/BoxDlg.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "app/Zeichensatz.h"
#include "ui/widgets/CoverVorschau.h"
#include "ui/widgets/EintragWahl.h"
#include "ui/widgets/ListenPaar.h"
#include "ui/widgets/TextFeld.h"

namespace dv::ui {

namespace {

QString boxTitel(const BoxWerte& w) {
    return w.id == 0 ? QStringLiteral("<<<Neue Box>>>")
                     : QStringLiteral("Box [%1]").arg(alsQString(w.titel));
}

QString bildFilter() {
    QStringList muster;
    for (const QByteArray& f : QImageReader::supportedImageFormats())
        muster << QStringLiteral("*.") + QString::fromLatin1(f);
    return QStringLiteral("Bilder (%1);;Alle Dateien (*)").arg(muster.join(QLatin1Char(' ')));
}

}  // namespace

BoxDlg::BoxDlg(QWidget* eltern, CApplikation& app, const BoxWerte& w,
               const std::vector<Eintrag>& verpackungen, const std::vector<Eintrag>& extras)
    : EditDlg(eltern, app, "WP_box", boxTitel(w)),
      alt_(w),
      titel_(new TextFeld(static_cast<int>(kMaxBezeichnung), this)),
      ean_(new TextFeld(static_cast<int>(kMaxEan), this)),
      verpackung_(new EintragWahl(true, this)),
      extras_(new ListenPaar(QStringLiteral("Extras"), this)),
      vorschau_(new CoverVorschau(this)),
      entfernen_(new QPushButton(QStringLiteral("Cover ent&fernen"), this)) {
    titel_->setzeText8(w.titel);
    titel_->setMinimumWidth(320);
    ean_->setzeText8(w.ean);
    verpackung_->setzeEintraege(verpackungen);
    verpackung_->setzeEintrag(w.verpackung);
    extras_->setzeZugeordnet(w.extras);
    extras_->setzeVerfuegbar(extras);
    erlaubeNeu(*extras_, QStringLiteral("Extras"));
    vorschau_->setObjectName(QStringLiteral("Coverbild"));
    vorschau_->setAccessibleName(QStringLiteral("Cover"));
    vorschau_->zeige(QString::fromStdString(w.cover));

    auto* form = new QFormLayout;
    auto zeile = [&](const QString& text, QWidget* feld) {
        auto* label = new QLabel(text, this);
        label->setBuddy(feld);
        form->addRow(label, feld);
    };
    zeile(QStringLiteral("&Bezeichnung:"), titel_);
    zeile(QStringLiteral("E&AN:"), ean_);
    zeile(QStringLiteral("&Verpackung:"), verpackung_);
    auto* gruppe = new QGroupBox(QStringLiteral("Extras"), this);
    (new QVBoxLayout(gruppe))->addWidget(extras_);
    auto* links = new QVBoxLayout;
    links->addLayout(form);
    links->addWidget(gruppe, 1);

    auto* waehlen = new QPushButton(QStringLiteral("&Cover wählen..."), this);
    for (QPushButton* k : {waehlen, entfernen_}) k->setAutoDefault(false);
    entfernen_->setEnabled(!w.cover.empty());
    setTabOrder(waehlen, entfernen_);
    auto* rechts = new QVBoxLayout;
    rechts->addWidget(vorschau_, 1);
    rechts->addWidget(waehlen);
    rechts->addWidget(entfernen_);
    auto* oben = new QHBoxLayout;
    oben->addLayout(links, 3);
    oben->addLayout(rechts, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(oben, 1);
    layout->addWidget(knoepfe());
    connect(waehlen, &QPushButton::clicked, this, &BoxDlg::coverDialog);
    connect(entfernen_, &QPushButton::clicked, this, &BoxDlg::entferneCover);
    connect(vorschau_, &CoverVorschau::dateiAbgelegt, this, &BoxDlg::waehleCover);
    resize(760, 460);
    fertig();
}

BoxWerte BoxDlg::werte() const {
    BoxWerte w = alt_;
    w.titel = titel_->text8();
    w.ean = ean_->text8();
    w.verpackung = verpackung_->eintrag();
    w.extras = extras_->zugeordnet();
    return w;
}

void BoxDlg::waehleCover(const QString& datei) {
    BearbeitungsDienst dienst(app_);
    const Ergebnis e = dienst.pruefeCover(datei.toStdString());
    if (!e.ok()) {
        hinweis(e.grund());
        return;
    }
    cover_ = {CoverWahl::Art::Neu, datei.toStdString()};
    vorschau_->zeige(datei);
    entfernen_->setEnabled(true);
    app_.einstellungen().setLastPicPath(QFileInfo(datei).absolutePath().toStdString());
}

void BoxDlg::entferneCover() {
    cover_ = {CoverWahl::Art::Entfernen, std::string()};
    vorschau_->zeige(QString());
    entfernen_->setEnabled(false);
}

void BoxDlg::coverDialog() {
    std::string ordner;
    app_.einstellungen().getLastPicPath(ordner);
    auto* wahl = new QFileDialog(this, QStringLiteral("Cover wählen"),
                                 ordner.empty() ? QDir::homePath() : QString::fromStdString(ordner),
                                 bildFilter());
    wahl->setObjectName(QStringLiteral("Coverwahl"));
    wahl->setFileMode(QFileDialog::ExistingFile);
    wahl->setAttribute(Qt::WA_DeleteOnClose);
    connect(wahl, &QFileDialog::fileSelected, this, &BoxDlg::waehleCover);
    wahl->open();
}

}  // namespace dv::ui
