#include "ui/dialoge/lookups/KatalogDlg.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "ui/dialoge/Meldung.h"
#include "ui/dialoge/lookups/AuswahlDlg.h"
#include "ui/widgets/Benennung.h"

namespace dv::ui {

KatalogDlg::KatalogDlg(QWidget* eltern, CApplikation& app, const char* wpName, const QString& titel,
                       const QString& textSpalte, const QString& anzahlSpalte,
                       const QString& bearbeitenText)
    : Dialog(eltern, app, wpName, titel),
      modell_(new ZeilenModell(textSpalte, anzahlSpalte, this)),
      proxy_(new QSortFilterProxyModel(this)),
      filter_(new QLineEdit(this)) {
    proxy_->setSourceModel(modell_);
    liste_ = katalogListe(this, *proxy_, *filter_);
    liste_->setAccessibleName(titel);
    liste_->setObjectName(QStringLiteral("Liste"));
    liste_->installEventFilter(this);
    auto* knoepfe = new QVBoxLayout;
    const std::pair<QString, void (KatalogDlg::*)()> befehle[] = {
        {QStringLiteral("&Neu..."), &KatalogDlg::neu},
        {bearbeitenText, &KatalogDlg::bearbeiten},
        {QStringLiteral("&Löschen"), &KatalogDlg::loeschen},
        {QStringLiteral("&Zusammenführen..."), &KatalogDlg::zusammenfuehren}};
    for (const auto& [text, slot] : befehle) {
        auto* k = new QPushButton(text, this);
        k->setAutoDefault(false);
        connect(k, &QPushButton::clicked, this, slot);
        knoepfe->addWidget(k);
    }
    knoepfe->addStretch();
    auto* schliessen = new QDialogButtonBox(this);
    schliessen->addButton(QStringLiteral("Schließen"), QDialogButtonBox::RejectRole);
    connect(schliessen, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(liste_, &QTreeView::activated, this, &KatalogDlg::bearbeiten);
    auto* links = new QVBoxLayout;
    links->addWidget(filter_);
    links->addWidget(liste_, 1);
    auto* mitte = new QHBoxLayout;
    mitte->addLayout(links, 1);
    mitte->addLayout(knoepfe);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(mitte, 1);
    layout->addWidget(schliessen);
    resize(480, 520);
}

void KatalogDlg::fertigLaden() {
    ladeNeu();
    benenne(*filter_, filter_->placeholderText());
    fertig();
    liste_->setFocus();
}

long KatalogDlg::aktuelleId() const {
    const KatalogZeile* z = aktuelleZeile();
    return z ? z->id : 0;
}

const KatalogZeile* KatalogDlg::aktuelleZeile() const {
    const QModelIndex i = proxy_->mapToSource(liste_->currentIndex());
    return i.isValid() ? modell_->zeile(i.row()) : nullptr;
}

void KatalogDlg::waehle(long id) {
    const int zeile = modell_->zeileVon(id);
    if (zeile < 0) return;
    const QModelIndex i = proxy_->mapFromSource(modell_->index(zeile, 0));
    if (!i.isValid()) filter_->clear();
    liste_->setCurrentIndex(proxy_->mapFromSource(modell_->index(zeile, 0)));
    liste_->scrollTo(liste_->currentIndex());
}

void KatalogDlg::ladeNeu(long id) {
    const long behalten = id > 0 ? id : aktuelleId();
    const int alteZeile = liste_->currentIndex().row();
    modell_->setze(lade());
    if (modell_->zeileVon(behalten) >= 0)
        waehle(behalten);
    else if (proxy_->rowCount() > 0)
        liste_->setCurrentIndex(proxy_->index(std::clamp(alteZeile, 0, proxy_->rowCount() - 1), 0));
}

bool KatalogDlg::melde(const Ergebnis& e) {
    return zeigeErgebnis(app_.benutzer(), e);
}

void KatalogDlg::neu() {
    neuesEintrag();
}

void KatalogDlg::bearbeiten() {
    if (const long id = aktuelleId()) bearbeiteEintrag(id);
}

void KatalogDlg::loeschen() {
    const KatalogZeile* z = aktuelleZeile();
    if (!z) return;
    const long id = z->id;
    if (!app_.benutzer().frage(ausQString(windowTitle()),
                               "\"" + ausQString(z->text) + "\" löschen?"))
        return;
    if (melde(loesche(id))) ladeNeu();
}

void KatalogDlg::zusammenfuehren() {
    const KatalogZeile* z = aktuelleZeile();
    if (!z) return;
    const long weg = z->id;
    std::vector<KatalogZeile> andere;
    for (int i = 0; const KatalogZeile* x = modell_->zeile(i); ++i)
        if (x->id != weg) andere.push_back(*x);
    auto* wahl = new AuswahlDlg(this, app_, QStringLiteral("Zusammenführen"),
                                QStringLiteral("\"%1\" zusammenführen &mit:").arg(z->text),
                                std::move(andere));
    wahl->setAttribute(Qt::WA_DeleteOnClose);
    connect(wahl, &QDialog::accepted, this, [this, wahl, weg] {
        const long bleibt = wahl->gewaehlt();
        auto frage = zusammenfuehrFrage(bleibt, weg);
        if (!melde(frage) || !app_.benutzer().frage(ausQString(windowTitle()), frage.wert()))
            return;
        if (melde(fuehreZusammen(bleibt, weg))) ladeNeu(bleibt);
    });
    wahl->open();
}

bool KatalogDlg::eventFilter(QObject* objekt, QEvent* ereignis) {
    if (objekt == liste_ && ereignis->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(ereignis)->key() == Qt::Key_Delete) {
        loeschen();
        return true;
    }
    return Dialog::eventFilter(objekt, ereignis);
}

}  // namespace dv::ui
