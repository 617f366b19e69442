#include "ui/CDorvanoDlg.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/CApplikation.h"
#include "base/Einstellungen.h"
#include "base/Hilfen.h"
#include "base/Zeichensatz.h"
#include "ui/Fensterposition.h"
#include "ui/KatalogBaum.h"

namespace dv::ui {

CDorvanoDlg::CDorvanoDlg(CApplikation& app, QWidget* eltern)
    : QMainWindow(eltern),
      app_(app),
      baum_(new QTreeWidget(this)),
      katalogBaum_(new KatalogBaum(*baum_, app.dienste().katalog())) {
    setWindowTitle(alsQString(CApplikation::titel()));
    baum_->setHeaderHidden(true);
    baum_->setObjectName(QStringLiteral("katalogBaum"));
    setCentralWidget(baum_);
    resize(640, 720);
    leseOptionen();
    stelleFensterWiederHer(*this, app_.einstellungen(), "WP_main");
    ladeBaum();
}

CDorvanoDlg::~CDorvanoDlg() = default;

void CDorvanoDlg::leseOptionen() {
    std::uint32_t v = kOptionsStandard;
    app_.einstellungen().getOptions(v);
    options_ = v;
    v = kOptions2Standard;
    app_.einstellungen().getOptions2(v);
    options2_ = v;
    v = kMaxFilmeAufklappenStandard;
    app_.einstellungen().getMaxFilmeAufklappen(v);
    maxFilmeAufklappen_ = v;
}

std::string CDorvanoDlg::wurzelText(const char* titel, int anzahl) {
    return KatalogBaum::wurzelText(titel, anzahl);
}

QTreeWidgetItem* CDorvanoDlg::wurzel() const {
    return baum_->topLevelItem(0);
}

void CDorvanoDlg::ladeBaum() {
    katalogBaum_->lade(CApplikation::titel());
}

void CDorvanoDlg::klappeAuf(QTreeWidgetItem* item) {
    katalogBaum_->klappeAuf(item, maxFilmeAufklappen_);
}

void CDorvanoDlg::closeEvent(QCloseEvent* ereignis) {
    speichereFenster(*this, app_.einstellungen(), "WP_main");
    QMainWindow::closeEvent(ereignis);
}

}  // namespace dv::ui
