#include "ui/dialoge/tags/CDlgStempel.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/suche/Dateiwahl.h"
#include "ui/dialoge/suche/Liste.h"

namespace dv::ui {

namespace {

constexpr int kAlleArten = 1 | 2 | 4;  // Box, Dvd, Film

QString anzahlText(std::size_t n) {
    return n == 1 ? QStringLiteral("1 Stempel-Tag")
                  : QStringLiteral("%1 Stempel-Tags").arg(static_cast<qulonglong>(n));
}

}  // namespace

// ---- CDlgStempel -----------------------------------------------------------------

CDlgStempel::CDlgStempel(QWidget* eltern, CApplikation& app)
    : Dialog(eltern, app, "WP_stempel", QStringLiteral("Stempel-Tags")),
      liste_(new ListenAnsicht(QStringLiteral("Stempel-Tags"), {QStringLiteral("Text")}, this)),
      box_(new QCheckBox(QStringLiteral("&Box"), this)),
      dvd_(new QCheckBox(QStringLiteral("&Dvd"), this)),
      film_(new QCheckBox(QStringLiteral("&Film"), this)) {
    auto* arten = new QGroupBox(QStringLiteral("Angeboten für"), this);
    auto* artenLayout = new QHBoxLayout(arten);
    for (QCheckBox* c : {box_, dvd_, film_}) {
        artenLayout->addWidget(c);
        connect(c, &QCheckBox::clicked, this, &CDlgStempel::aendereMaske);
    }
    artenLayout->addStretch();

    auto* neu = new QPushButton(QStringLiteral("&Neu..."), this);
    bearbeiten_ = new QPushButton(QStringLiteral("B&earbeiten..."), this);
    loeschen_ = new QPushButton(QStringLiteral("&Löschen"), this);
    auto* exportieren = new QPushButton(QStringLiteral("E&xportieren..."), this);
    auto* importieren = new QPushButton(QStringLiteral("&Importieren..."), this);
    connect(neu, &QPushButton::clicked, this, &CDlgStempel::neu);
    connect(bearbeiten_, &QPushButton::clicked, this, &CDlgStempel::bearbeiten);
    connect(loeschen_, &QPushButton::clicked, this, &CDlgStempel::loeschen);
    connect(exportieren, &QPushButton::clicked, this, &CDlgStempel::exportieren);
    connect(importieren, &QPushButton::clicked, this, &CDlgStempel::importieren);
    connect(liste_, &ListenAnsicht::aktiviert, this, &CDlgStempel::bearbeiten);
    connect(liste_, &ListenAnsicht::auswahlGeaendert, this, &CDlgStempel::zeigeMaske);
    auto* seite = new QVBoxLayout;
    for (QPushButton* b : {neu, bearbeiten_, loeschen_}) seite->addWidget(b);
    seite->addSpacing(12);
    seite->addWidget(exportieren);
    seite->addWidget(importieren);
    seite->addStretch();

    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* links = new QVBoxLayout;
    links->addWidget(liste_, 1);
    links->addWidget(arten);
    auto* oben = new QHBoxLayout;
    oben->addLayout(links, 1);
    oben->addLayout(seite);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(oben);
    layout->addWidget(knoepfe);
    resize(520, 400);
    lade();
    fertig();
}

QCheckBox* CDlgStempel::maske(int bit) const {
    return bit == 1 ? box_ : bit == 2 ? dvd_ : bit == 4 ? film_ : nullptr;
}

void CDlgStempel::lade(long waehlen) {
    ids_.clear();
    masken_.clear();
    texte_.clear();
    std::vector<QStringList> zeilen;
    int gewaehlt = 0;
    for (const StempelWerte& s : app_.dienste().tags().stempel()) {
        if (s.id == waehlen) gewaehlt = static_cast<int>(ids_.size());
        ids_.push_back(s.id);
        masken_.push_back(s.maske);
        texte_.push_back(s.text);
        zeilen.push_back({alsQString(s.text)});
    }
    liste_->modell().setzeZeilen(std::move(zeilen));
    liste_->setzeAnzahl(anzahlText(ids_.size()));
    if (!ids_.empty()) liste_->waehle(gewaehlt);
    zeigeMaske();
}

long CDlgStempel::aktuelleId() const {
    const int z = liste_->aktuelle();
    return z >= 0 ? ids_[static_cast<std::size_t>(z)] : 0;
}

void CDlgStempel::zeigeMaske() {
    const int z = liste_->aktuelle();
    const int m = z >= 0 ? masken_[static_cast<std::size_t>(z)] : 0;
    for (int bit : {1, 2, 4}) {
        maske(bit)->setChecked((m & bit) != 0);
        maske(bit)->setEnabled(z >= 0);
    }
    bearbeiten_->setEnabled(z >= 0);
    loeschen_->setEnabled(z >= 0);
}

void CDlgStempel::aendereMaske() {
    const int z = liste_->aktuelle();
    if (z < 0) return;
    const auto i = static_cast<std::size_t>(z);
    int m = 0;
    for (int bit : {1, 2, 4})
        if (maske(bit)->isChecked()) m |= bit;
    if (meldeErgebnis(app_, app_.dienste().tags().aendereStempel({ids_[i], m, texte_[i]})))
        masken_[i] = m;
    zeigeMaske();
}

void CDlgStempel::neu() {
    auto* dlg =
        new EingabeDlg(this, app_, "WP_stempeltext", QStringLiteral("Neuer Stempel-Tag"),
                       QStringLiteral("&Text:"), std::string(), static_cast<int>(kMaxStempelText));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this, [this, dlg] {
        auto id = app_.dienste().tags().neuerStempel(kAlleArten, dlg->text8());
        if (meldeErgebnis(app_, id)) lade(id.wert());
    });
    dlg->open();
}

void CDlgStempel::bearbeiten() {
    const int z = liste_->aktuelle();
    if (z < 0) return;
    const auto i = static_cast<std::size_t>(z);
    auto* dlg =
        new EingabeDlg(this, app_, "WP_stempeltext", QStringLiteral("Stempel-Tag bearbeiten"),
                       QStringLiteral("&Text:"), texte_[i], static_cast<int>(kMaxStempelText));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    const StempelWerte alt{ids_[i], masken_[i], texte_[i]};
    connect(dlg, &QDialog::accepted, this, [this, dlg, alt] {
        if (meldeErgebnis(app_,
                          app_.dienste().tags().aendereStempel({alt.id, alt.maske, dlg->text8()})))
            lade(alt.id);
    });
    dlg->open();
}

void CDlgStempel::loeschen() {
    const int z = liste_->aktuelle();
    if (z < 0) return;
    const auto i = static_cast<std::size_t>(z);
    if (!app_.benutzer().frage("Löschen", "Stempel-Tag \"" + texte_[i] + "\" wirklich löschen?"))
        return;
    if (meldeErgebnis(app_, app_.dienste().tags().loescheStempel(ids_[i]))) lade();
}

void CDlgStempel::exportieren() {
    waehleSpeicherDatei(this, app_, QStringLiteral("Stempeltags speichern"),
                        QStringLiteral("Stempeltags.txt"), QStringLiteral("txt"),
                        [this](const std::string& pfad) {
                            meldeErgebnis(app_, app_.dienste().tags().exportiereStempel(pfad));
                        });
}

void CDlgStempel::importieren() {
    waehleLadeDatei(this, app_, QStringLiteral("Stempeltags laden"), QStringLiteral("txt"),
                    [this](const std::string& pfad) {
                        meldeErgebnis(app_, app_.dienste().tags().importiereStempel(pfad));
                        lade(aktuelleId());
                    });
}

// ---- CDlgStempelWahl -------------------------------------------------------------

CDlgStempelWahl::CDlgStempelWahl(QWidget* eltern, CApplikation& app, int typ, long id)
    : Dialog(eltern, app, "WP_stempeltags", QStringLiteral("Stempel-Tags")),
      typ_(typ),
      id_(id),
      liste_(new ListenAnsicht(QStringLiteral("Stempel-Tags"), {QStringLiteral("Text")}, this)) {
    liste_->modell().setzeAbhakbar(true);
    std::vector<QStringList> zeilen;
    for (const StempelWerte& s : app_.dienste().tags().stempelFuer(typ)) {
        ids_.push_back(s.id);
        zeilen.push_back({alsQString(s.text)});
    }
    liste_->modell().setzeZeilen(std::move(zeilen));
    liste_->setzeAnzahl(ids_.empty() ? QStringLiteral("Für diese Objektart gibt es keine "
                                                      "Stempel-Tags.")
                                     : anzahlText(ids_.size()));
    if (!ids_.empty()) liste_->waehle(0);

    auto* objekt = new QLabel(alsQString(app_.dienste().katalog().name(typ, id)), this);
    objekt->setObjectName(QStringLiteral("Objekt"));
    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::accepted, this, &CDlgStempelWahl::accept);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(objekt);
    layout->addWidget(liste_, 1);
    layout->addWidget(knoepfe);
    resize(420, 360);
    fertig();
}

void CDlgStempelWahl::accept() {
    for (int z : liste_->modell().abgehakte())
        if (!meldeErgebnis(app_, app_.dienste().tags().wendeStempelAn(
                                     ids_[static_cast<std::size_t>(z)], typ_, id_)))
            return;
    Dialog::accept();
}

}  // namespace dv::ui
