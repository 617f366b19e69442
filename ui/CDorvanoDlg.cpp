#include "ui/CDorvanoDlg.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QTreeView>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "ui/Uebergabe.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/DatenWaechter.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/dialoge/Fensterposition.h"
#include "ui/steuerung/BearbeitenSteuerung.h"
#include "ui/steuerung/DatenSteuerung.h"
#include "ui/steuerung/ObjektSteuerung.h"
#include "ui/steuerung/RechercheSteuerung.h"
#include "ui/steuerung/SystemSteuerung.h"
#include "ui/widgets/CoverFeld.h"

namespace dv::ui {

namespace {

QStringList boxDateien(const QMimeData* daten) {
    QStringList pfade;
    if (!daten) return pfade;
    for (const QUrl& url : daten->urls())
        if (url.isLocalFile() &&
            url.toLocalFile().endsWith(QStringLiteral(".box"), Qt::CaseInsensitive))
            pfade << url.toLocalFile();
    return pfade;
}

}  // namespace

CDorvanoDlg::CDorvanoDlg(CApplikation& app, QWidget* eltern)
    : QMainWindow(eltern),
      app_(app),
      katalog_(new KatalogAnsicht(app, this)),
      cover_(new CoverFeld(this)),
      teiler_(new QSplitter(this)) {
    setObjectName(QStringLiteral("WP_main"));
    setWindowTitle(alsQString(CApplikation::titel()));
    setAcceptDrops(true);
    teiler_->setObjectName(QStringLiteral("Teiler"));
    teiler_->addWidget(katalog_);
    teiler_->addWidget(cover_);
    teiler_->setStretchFactor(0, 3);
    teiler_->setStretchFactor(1, 1);
    teiler_->setChildrenCollapsible(false);
    teiler_->setContentsMargins(6, 4, 6, 0);
    setCentralWidget(teiler_);
    statusBar()->setObjectName(QStringLiteral("Statuszeile"));

    aktionen_ = new Aktionen(*this, *katalog_->baum());
    aktionen_->baueMenues(*menuBar());
    teile_ = std::make_unique<Fensterteile>(Fensterteile{app_, *this, *katalog_, *aktionen_});
    daten_ = new DatenSteuerung(*teile_);
    const std::vector<Steuerung*> steuerungen{
        daten_,
        new ObjektSteuerung(*teile_),
        new BearbeitenSteuerung(*teile_),
        new RechercheSteuerung(*teile_),
        new DatenbankSteuerung(*teile_),
        new LaufwerkSteuerung(*teile_),
        new EinstellungenSteuerung(*teile_),
        new HilfeSteuerung(*teile_),
    };
    for (Steuerung* s : steuerungen) s->verbinde(*aktionen_);

    waechter_ = new DatenWaechter(app_, *katalog_, this);
    coverUhr_ = new QTimer(this);
    coverUhr_->setSingleShot(true);
    coverUhr_->setInterval(0);
    connect(coverUhr_, &QTimer::timeout, this, &CDorvanoDlg::zeigeCover);
    connect(katalog_, &KatalogAnsicht::auswahlGeaendert, this, &CDorvanoDlg::auswahlGeaendert);
    connect(katalog_, &KatalogAnsicht::kontextMenueGewuenscht, this,
            [this](unsigned art, const QPoint& wo) {
                aktionen_->aktualisiere(katalog_->auswahl());
                if (QMenu* m = aktionen_->kontextMenue(art)) m->popup(wo);
            });

    resize(900, 720);
    std::vector<int> teilung;
    stelleFensterWiederHer(*this, app_.einstellungen(), "WP_main", &teilung);
    if (teilung.size() == 2 && teilung[0] > 0 && teilung[1] > 0)
        teiler_->setSizes({teilung[0], teilung[1]});
    else
        teiler_->setSizes({600, 300});
    auswahlGeaendert();
    katalog_->baum()->setFocus();
}

CDorvanoDlg::~CDorvanoDlg() = default;

void CDorvanoDlg::importiere(const QStringList& pfade) {
    daten_->importiereDateien(pfade);
}

bool CDorvanoDlg::empfangeUebergaben(const QString& name) {
    auto* empfang = new UebergabeEmpfang(this);
    connect(empfang, &UebergabeEmpfang::dateienErhalten, this, [this](const QStringList& pfade) {
        if (isMinimized()) showNormal();
        raise();
        activateWindow();
        importiere(pfade);
    });
    return empfang->starte(name);
}

void CDorvanoDlg::auswahlGeaendert() {
    const Auswahl a = katalog_->auswahl();
    aktionen_->aktualisiere(a);
    // The cover follows once the events of a change have settled: loading a
    // picture for every row a reload inserts would cost far more than the tree.
    coverBox_ = a.box;
    if (!coverUhr_->isActive()) coverUhr_->start();
}

// Read anew on every change: the box may have been edited meanwhile.
void CDorvanoDlg::zeigeCover() {
    const long boxId = coverBox_;
    if (boxId <= 0) {
        cover_->leeren();
        return;
    }
    auto box = app_.dienste().objekte().ladeBox(boxId);
    if (!box.ok()) {
        cover_->leeren();
        return;
    }
    CoverDaten d;
    d.titel = alsQString(box->titel);
    d.ean = alsQString(box->ean);
    d.verpackung = alsQString(box->verpackung.name);
    d.coverDatei = QString::fromLocal8Bit(box->cover.c_str());
    for (const DvdZeile& z : app_.dienste().katalog().dvds(boxId)) {
        ++d.dvds;
        d.filme += z.filme;
    }
    cover_->zeige(d);
}

void CDorvanoDlg::closeEvent(QCloseEvent* ereignis) {
    const QList<int> teilung = teiler_->sizes();
    speichereFenster(*this, app_.einstellungen(), "WP_main", {teilung.value(0), teilung.value(1)});
    QMainWindow::closeEvent(ereignis);
}

void CDorvanoDlg::dragEnterEvent(QDragEnterEvent* ereignis) {
    if (!boxDateien(ereignis->mimeData()).isEmpty()) ereignis->acceptProposedAction();
}

void CDorvanoDlg::dropEvent(QDropEvent* ereignis) {
    const QStringList pfade = boxDateien(ereignis->mimeData());
    if (pfade.isEmpty()) return;
    ereignis->acceptProposedAction();
    importiere(pfade);
}

}  // namespace dv::ui
