#include "ui/dialoge/tags/CDlgTags.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/suche/Dateiwahl.h"

namespace dv::ui {

namespace {

// The tag file is read in lines of up to 1,024 characters.
constexpr int kMaxTag = 1024;

QString titelFuer(CApplikation& app, int typ, long id) {
    return QStringLiteral("Tags [%1]").arg(alsQString(app.dienste().katalog().name(typ, id)));
}

}  // namespace

CDlgTags::CDlgTags(QWidget* eltern, CApplikation& app, int typ, long id)
    : Dialog(eltern, app, "WP_tags", titelFuer(app, typ, id)),
      typ_(typ),
      id_(id),
      liste_(new QListWidget(this)) {
    liste_->setObjectName(QStringLiteral("Tags"));
    liste_->setAccessibleName(QStringLiteral("Tags"));
    for (const std::string& t : app_.dienste().tags().lese(typ, id)) liste_->addItem(alsQString(t));
    if (liste_->count() > 0) liste_->setCurrentRow(0);

    auto* neu = new QPushButton(QStringLiteral("&Neuen Tag erstellen..."), this);
    bearbeiten_ = new QPushButton(QStringLiteral("Tag &bearbeiten..."), this);
    loeschen_ = new QPushButton(QStringLiteral("Tag &löschen"), this);
    connect(neu, &QPushButton::clicked, this, &CDlgTags::neu);
    connect(bearbeiten_, &QPushButton::clicked, this, &CDlgTags::bearbeiten);
    connect(loeschen_, &QPushButton::clicked, this, &CDlgTags::loeschen);
    connect(liste_, &QListWidget::itemActivated, this, &CDlgTags::bearbeiten);
    connect(liste_, &QListWidget::currentRowChanged, this, &CDlgTags::zeigeAnzahl);
    auto* seite = new QVBoxLayout;
    seite->addWidget(neu);
    seite->addWidget(bearbeiten_);
    seite->addWidget(loeschen_);
    seite->addStretch();

    auto* anzahl = new QLabel(this);
    anzahl->setObjectName(QStringLiteral("Tags Anzahl"));
    anzahl->setAccessibleName(anzahl->objectName());
    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::accepted, this, &CDlgTags::accept);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* oben = new QHBoxLayout;
    oben->addWidget(liste_, 1);
    oben->addLayout(seite);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(oben);
    layout->addWidget(anzahl);
    layout->addWidget(knoepfe);
    resize(520, 320);
    zeigeAnzahl();
    fertig();
}

std::vector<std::string> CDlgTags::tags() const {
    std::vector<std::string> v;
    for (int i = 0; i < liste_->count(); ++i) v.push_back(ausQString(liste_->item(i)->text()));
    return v;
}

void CDlgTags::neu() {
    frageText(QStringLiteral("Neuen Tag erstellen"), std::string(), -1);
}

void CDlgTags::bearbeiten() {
    const int zeile = liste_->currentRow();
    if (zeile < 0) return;
    frageText(QStringLiteral("Tag bearbeiten"), ausQString(liste_->item(zeile)->text()), zeile);
}

// zeile -1 appends a new tag.
void CDlgTags::frageText(const QString& titel, const std::string& vorgabe, int zeile) {
    auto* dlg =
        new EingabeDlg(this, app_, "WP_tag", titel, QStringLiteral("&Tag:"), vorgabe, kMaxTag);
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this, [this, dlg, zeile] {
        const QString text = alsQString(dlg->text8()).trimmed();
        if (text.isEmpty()) return;
        if (zeile < 0) {
            liste_->addItem(text);
            liste_->setCurrentRow(liste_->count() - 1);
        } else if (QListWidgetItem* item = liste_->item(zeile)) {
            item->setText(text);
        }
        zeigeAnzahl();
    });
    dlg->open();
}

void CDlgTags::loeschen() {
    const int zeile = liste_->currentRow();
    if (zeile < 0) return;
    delete liste_->takeItem(zeile);
    zeigeAnzahl();
}

void CDlgTags::accept() {
    // Stays open on a refusal, so that nothing typed is lost.
    if (meldeErgebnis(app_, app_.dienste().tags().setze(typ_, id_, tags()))) Dialog::accept();
}

void CDlgTags::zeigeAnzahl() {
    const bool gewaehlt = liste_->currentRow() >= 0;
    bearbeiten_->setEnabled(gewaehlt);
    loeschen_->setEnabled(gewaehlt);
    const int n = liste_->count();
    if (auto* anzahl = findChild<QLabel*>(QStringLiteral("Tags Anzahl")))
        anzahl->setText(n == 1 ? QStringLiteral("1 Tag") : QStringLiteral("%1 Tags").arg(n));
}

}  // namespace dv::ui
