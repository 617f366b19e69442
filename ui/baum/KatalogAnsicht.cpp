#include "ui/baum/KatalogAnsicht.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTreeView>
#include <QVBoxLayout>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "ui/baum/BoxFilter.h"
#include "ui/baum/KatalogModell.h"
#include "ui/widgets/Benennung.h"

namespace dv::ui {

namespace {

QStringList pfadVon(const QModelIndex& quelle) {
    QStringList pfad;
    for (QModelIndex i = quelle; i.isValid(); i = i.parent())
        pfad.prepend(KatalogModell::schluessel(i));
    return pfad;
}

}  // namespace

KatalogAnsicht::KatalogAnsicht(CApplikation& app, QWidget* eltern)
    : QWidget(eltern),
      app_(app),
      modell_(new KatalogModell(app, this)),
      filterModell_(new BoxFilter(this)),
      filter_(new QLineEdit(this)),
      anzahl_(new QLabel(this)),
      baum_(new QTreeView(this)),
      hinweis_(new QLabel(baum_->viewport())) {
    filterModell_->setSourceModel(modell_);
    auto* beschriftung = new QLabel(QStringLiteral("Fi&lter:"), this);
    beschriftung->setBuddy(filter_);
    benenne(*filter_, beschriftung->text());
    filter_->setPlaceholderText(QStringLiteral("Titel oder EAN, auch mit * und ?"));
    filter_->setClearButtonEnabled(true);
    filter_->installEventFilter(this);
    anzahl_->setObjectName(QStringLiteral("Boxanzahl"));
    baum_->setObjectName(QStringLiteral("katalogBaum"));
    baum_->setAccessibleName(QStringLiteral("Katalog"));
    baum_->setHeaderHidden(true);
    baum_->setUniformRowHeights(true);
    baum_->setContextMenuPolicy(Qt::CustomContextMenu);
    baum_->setModel(filterModell_);
    // The hint stands in the empty tree itself, where a new collector looks
    // first; clicks go through to the root node.
    hinweis_->setObjectName(QStringLiteral("Hinweis"));
    hinweis_->setWordWrap(true);
    hinweis_->setAlignment(Qt::AlignCenter);
    hinweis_->setForegroundRole(QPalette::Text);
    hinweis_->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* hinweisFlaeche = new QVBoxLayout(baum_->viewport());
    hinweisFlaeche->setContentsMargins(24, 24, 24, 24);
    hinweisFlaeche->addStretch(1);
    hinweisFlaeche->addWidget(hinweis_);
    hinweisFlaeche->addStretch(2);
    hinweis_->setText(
        QStringLiteral("Der Katalog ist noch leer.\n\n"
                       "Eine Box anlegen: „Objekte › Box › Neu...“ (Strg+N)\n"
                       "Boxen holen: „Daten › Importieren“ (Strg+I) oder „Daten › Web-Import...“\n"
                       "oder .box-Dateien auf dieses Fenster ziehen."));

    auto* zeile = new QHBoxLayout;
    zeile->addWidget(beschriftung);
    zeile->addWidget(filter_, 1);
    zeile->addWidget(anzahl_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(zeile);
    layout->addWidget(baum_, 1);

    connect(filter_, &QLineEdit::textChanged, this, &KatalogAnsicht::filtere);
    connect(modell_, &KatalogModell::anzahlGeaendert, this, &KatalogAnsicht::zeigeAnzahl);
    connect(modell_, &KatalogModell::wirdNeuGeladen, this, &KatalogAnsicht::merkeZustand);
    connect(modell_, &KatalogModell::neuGeladen, this, &KatalogAnsicht::stelleZustandHer);
    connect(baum_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &KatalogAnsicht::auswahlGeaendert);
    // A move or removal changes first/last of the current node.
    connect(modell_, &QAbstractItemModel::rowsMoved, this, &KatalogAnsicht::auswahlGeaendert);
    connect(modell_, &QAbstractItemModel::rowsRemoved, this, &KatalogAnsicht::auswahlGeaendert);
    connect(modell_, &QAbstractItemModel::rowsInserted, this, &KatalogAnsicht::auswahlGeaendert);
    connect(modell_, &QAbstractItemModel::dataChanged, this, &KatalogAnsicht::auswahlGeaendert);
    connect(baum_, &QTreeView::customContextMenuRequested, this, [this](const QPoint& pos) {
        const QModelIndex i = baum_->currentIndex();
        if (!i.isValid()) return;
        const QRect r = baum_->visualRect(i);
        const QPoint wo = r.contains(pos) ? pos : r.center();
        emit kontextMenueGewuenscht(i.data(kRolleArt).toUInt(), baum_->viewport()->mapToGlobal(wo));
    });

    modell_->lade();
}

QModelIndex KatalogAnsicht::ausQuelle(const QModelIndex& quelle) const {
    return filterModell_->mapFromSource(quelle);
}

QModelIndex KatalogAnsicht::aktuell() const {
    return filterModell_->mapToSource(baum_->currentIndex());
}

Auswahl KatalogAnsicht::auswahl() const {
    Auswahl a;
    a.quelleTyp = kopierTyp_;
    a.quelleId = kopierId_;
    const QModelIndex i = aktuell();
    if (!i.isValid()) return a;
    a.art = i.data(kRolleArt).toUInt();
    for (QModelIndex p = i; p.isValid(); p = p.parent()) {
        const unsigned art = p.data(kRolleArt).toUInt();
        const long id = static_cast<long>(p.data(kRolleId).toLongLong());
        if (art == kBoxKnoten) a.box = id;
        if (art == kDvdKnoten) a.dvd = id;
        if (art == kFilmKnoten) a.film = id;
    }
    if (a.art & (kDvdKnoten | kFilmKnoten)) {
        a.erstes = i.row() == 0;
        a.letztes = i.row() + 1 == modell_->rowCount(i.parent());
    }
    if (a.art & (kBoxKnoten | kDvdKnoten | kFilmKnoten))
        a.hatTags = app_.tags().hat(a.objektTyp(), a.objektId());
    return a;
}

bool KatalogAnsicht::zeige(int typ, long id) {
    const QModelIndex quelle = modell_->finde(typ, id);
    if (!quelle.isValid()) return false;
    QModelIndex i = ausQuelle(quelle);
    if (!i.isValid()) {
        filter_->clear();
        i = ausQuelle(quelle);
    }
    for (QModelIndex e = i.parent(); e.isValid(); e = e.parent()) baum_->expand(e);
    baum_->setCurrentIndex(i);
    baum_->scrollTo(i);
    return true;
}

void KatalogAnsicht::klappeAuf(unsigned maxFilme) {
    unsigned filme = 0;
    klappeAuf(aktuell(), maxFilme, filme);
}

void KatalogAnsicht::klappeAuf(const QModelIndex& quelle, unsigned maxFilme, unsigned& filme) {
    if (!quelle.isValid()) return;
    if (quelle.data(kRolleArt).toUInt() == kFilmKnoten) {
        if (filme >= maxFilme) return;
        ++filme;
    }
    if (modell_->canFetchMore(quelle)) modell_->fetchMore(quelle);
    baum_->expand(ausQuelle(quelle));
    for (int i = 0; i < modell_->rowCount(quelle); ++i)
        klappeAuf(modell_->index(i, 0, quelle), maxFilme, filme);
}

void KatalogAnsicht::klappeBoxenZu() {
    const QModelIndex aktuellerKnoten = aktuell();
    baum_->collapseAll();
    baum_->expand(ausQuelle(modell_->wurzel()));
    // The current node stays visible: on a box or the root, or on the box that held it.
    QModelIndex sichtbar = aktuellerKnoten;
    while (sichtbar.isValid() && sichtbar.parent().isValid() &&
           sichtbar.data(kRolleArt).toUInt() != kBoxKnoten)
        sichtbar = sichtbar.parent();
    if (sichtbar.isValid()) baum_->setCurrentIndex(ausQuelle(sichtbar));
}

void KatalogAnsicht::ladeNeu() {
    modell_->lade();
}

void KatalogAnsicht::setzeKopierQuelle(int typ, long id) {
    kopierTyp_ = typ;
    kopierId_ = typ ? id : 0;
    modell_->setzeMarkiert(kopierTyp_, kopierId_);
    emit auswahlGeaendert();
}

void KatalogAnsicht::filtere(const QString& text) {
    filterModell_->setzeFilter(Schnellfilter(ausQString(text), app_.sucheGrossKlein()));
    baum_->expand(ausQuelle(modell_->wurzel()));
    zeigeAnzahl();
    emit auswahlGeaendert();
}

void KatalogAnsicht::zeigeAnzahl() {
    const int gesamt = modell_->boxAnzahl();
    const int gezeigt = filterModell_->rowCount(ausQuelle(modell_->wurzel()));
    anzahl_->setText(QStringLiteral("%1 von %2 Boxen").arg(gezeigt).arg(gesamt));
    anzahl_->setAccessibleName(anzahl_->text());
    hinweis_->setVisible(gesamt == 0);
}

void KatalogAnsicht::merkeZustand() {
    aufgeklappt_.clear();
    aktuellerPfad_ = pfadVon(aktuell());
    std::vector<QModelIndex> offen{modell_->wurzel()};
    while (!offen.empty()) {
        const QModelIndex i = offen.back();
        offen.pop_back();
        const int n = modell_->rowCount(i);
        if (n == 0 || !baum_->isExpanded(ausQuelle(i))) continue;
        aufgeklappt_.push_back(pfadVon(i));
        for (int z = 0; z < n; ++z) offen.push_back(modell_->index(z, 0, i));
    }
}

// Follows a key path from the root, loading on the way; the deepest node found.
static QModelIndex folge(KatalogModell& m, const QStringList& pfad) {
    QModelIndex i = m.wurzel();
    for (qsizetype k = 1; k < pfad.size() && i.isValid(); ++k) {
        if (m.canFetchMore(i)) m.fetchMore(i);
        const QModelIndex weiter = m.kind(i, pfad[k]);
        if (!weiter.isValid()) break;
        i = weiter;
    }
    return i;
}

void KatalogAnsicht::stelleZustandHer() {
    baum_->expand(ausQuelle(modell_->wurzel()));
    for (const QStringList& pfad : aufgeklappt_) baum_->expand(ausQuelle(folge(*modell_, pfad)));
    const QModelIndex ziel =
        aktuellerPfad_.isEmpty() ? modell_->wurzel() : folge(*modell_, aktuellerPfad_);
    baum_->setCurrentIndex(ausQuelle(ziel));
    aufgeklappt_.clear();
    zeigeAnzahl();
}

bool KatalogAnsicht::eventFilter(QObject* objekt, QEvent* ereignis) {
    if (objekt == filter_ && ereignis->type() == QEvent::KeyPress) {
        const int taste = static_cast<QKeyEvent*>(ereignis)->key();
        if (taste == Qt::Key_Escape && !filter_->text().isEmpty()) {
            filter_->clear();
            return true;
        }
        if (taste == Qt::Key_Down) {
            baum_->setFocus();
            return true;
        }
    }
    return QWidget::eventFilter(objekt, ereignis);
}

}  // namespace dv::ui
