#include "ui/dialoge/webimport/CDlgWebImport.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QThread>
#include <QVBoxLayout>
#include <algorithm>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "ui/dialoge/Meldung.h"
#include "ui/dialoge/webimport/Weiterleitung.h"
#include "ui/widgets/TextFeld.h"

namespace dv::ui {

namespace {

enum Art { kDisc, kEan, kTitel };

QString standText(const std::vector<ImportZeile>& zeilen) {
    const auto n = std::count_if(zeilen.begin(), zeilen.end(),
                                 [](const ImportZeile& z) { return z.importiert; });
    return QStringLiteral("%1 von %2 Boxen importiert").arg(n).arg(zeilen.size());
}

}  // namespace

CDlgWebImport::CDlgWebImport(QWidget* eltern, CApplikation& app)
    : Dialog(eltern, app, "WP_webimport", QStringLiteral("Web-Import")),
      ean_(new TextFeld(static_cast<int>(kMaxEan), this)),
      titel_(new TextFeld(static_cast<int>(kMaxTitel), this)),
      balken_(new QProgressBar(this)),
      stand_(new QLabel(this)) {
    auto* gruppe = new QGroupBox(QStringLiteral("Suchen nach"), this);
    auto* raster = new QGridLayout(gruppe);
    auto* wahl = new QButtonGroup(this);
    const QString namen[] = {QStringLiteral("&Disc im Laufwerk"), QStringLiteral("&EAN:"),
                             QStringLiteral("&Titel:")};
    for (int i = 0; i < 3; ++i) {
        auto* r = new QRadioButton(namen[i], gruppe);
        wahl->addButton(r, i);
        raster->addWidget(r, i, 0);
        arten_.push_back(r);
    }
    raster->addWidget(ean_, kEan, 1);
    raster->addWidget(titel_, kTitel, 1);
    raster->setColumnStretch(1, 1);
    titel_->setMinimumWidth(260);
    // Typing into a field chooses its kind of search.
    connect(ean_, &QLineEdit::textEdited, arten_[kEan], &QRadioButton::click);
    connect(titel_, &QLineEdit::textEdited, arten_[kTitel], &QRadioButton::click);
    arten_[kTitel]->setChecked(true);
    titel_->setFocus();

    balken_->setRange(0, 0);
    balken_->setTextVisible(false);
    balken_->setObjectName(QStringLiteral("Fortschritt"));
    balken_->setAccessibleName(QStringLiteral("Fortschritt"));
    stand_->setObjectName(QStringLiteral("Stand"));
    stand_->setAccessibleName(QStringLiteral("Stand"));

    auto* knoepfe = new QDialogButtonBox(this);
    suchen_ = knoepfe->addButton(QStringLiteral("&Suchen"), QDialogButtonBox::ActionRole);
    suchen_->setDefault(true);
    abbrechen_ = knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::ActionRole);
    abbrechen_->setAutoDefault(false);
    knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole);
    connect(suchen_, &QPushButton::clicked, this, &CDlgWebImport::suchen);
    connect(abbrechen_, &QPushButton::clicked, this, &CDlgWebImport::abbrechen);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &CDlgWebImport::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(gruppe);
    layout->addWidget(balken_);
    layout->addWidget(stand_);
    layout->addWidget(knoepfe);
    zeigeLauf(false);
    fertig();
}

CDlgWebImport::~CDlgWebImport() {
    if (!faden_) return;
    weiter_->aufgeben();
    Weiterleitung::warte(*faden_);
    delete faden_;
}

WebSuche CDlgWebImport::suche() const {
    WebSuche s;
    s.disc = arten_[kDisc]->isChecked();
    if (arten_[kEan]->isChecked()) s.ean = ean_->text8();
    if (arten_[kTitel]->isChecked()) s.titel = titel_->text8();
    return s;
}

void CDlgWebImport::zeigeLauf(bool an) {
    balken_->setVisible(an);
    abbrechen_->setEnabled(an);
    suchen_->setEnabled(!an);
    for (QRadioButton* r : arten_) r->setEnabled(!an);
    ean_->setEnabled(!an);
    titel_->setEnabled(!an);
    if (an) stand_->setText(QStringLiteral("Suche läuft..."));
}

// The disc and the settings are read here; only the downloads leave the thread.
void CDlgWebImport::suchen() {
    if (faden_) return;
    AustauschDienst& dienst = app_.dienste().austausch();
    auto auftrag = dienst.webVorbereiten(suche());
    if (!zeigeErgebnis(app_.benutzer(), auftrag)) return;
    zeilen_.clear();
    weiter_ = std::make_unique<Weiterleitung>(app_.benutzer());
    faden_ = QThread::create(
        [this, &dienst, a = auftrag.wert()] { fund_ = dienst.webHolen(a, *weiter_); });
    connect(faden_, &QThread::finished, this, &CDlgWebImport::fertigGeholt);
    zeigeLauf(true);
    faden_->start();
}

void CDlgWebImport::abbrechen() {
    if (weiter_) weiter_->abbrechen();
}

// Closing during a run stops it; the dialog closes once the thread has ended.
void CDlgWebImport::reject() {
    if (!faden_) {
        Dialog::reject();
        return;
    }
    schliessen_ = true;
    weiter_->aufgeben();
    stand_->setText(QStringLiteral("Wird abgebrochen..."));
}

void CDlgWebImport::fertigGeholt() {
    faden_->deleteLater();
    faden_ = nullptr;
    const bool aufgegeben = weiter_->aufgegeben();
    weiter_.reset();
    zeigeLauf(false);
    if (!aufgegeben) {
        zeigeErgebnis(app_.benutzer(), app_.dienste().austausch().webImportieren(fund_, zeilen_));
        stand_->setText(zeilen_.empty() ? QString() : standText(zeilen_));
    }
    fund_ = WebFund{};
    emit beendet();
    if (schliessen_) Dialog::reject();
}

}  // namespace dv::ui
