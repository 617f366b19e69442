#include "ui/CDorvanoDlg.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/CApplikation.h"
#include "app/base/Einstellungen.h"
#include "app/base/Hilfen.h"
#include "app/base/Zeichensatz.h"
#include "ui/Fensterposition.h"

namespace dv::ui {

CDorvanoDlg::CDorvanoDlg(CApplikation& app, QWidget* eltern)
    : QMainWindow(eltern), app_(app), baum_(new QTreeWidget(this)) {
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
    char text[256];
    std::snprintf(text, sizeof text, "%s {%d Box%s}", titel, anzahl, anzahl == 1 ? "" : "en");
    return text;
}

QTreeWidgetItem* CDorvanoDlg::wurzel() const { return baum_->topLevelItem(0); }

void CDorvanoDlg::ladeBaum() {
    baum_->clear();
    // One pass over the box table; the tree shows the boxes by title.
    std::vector<Zeile12> boxen;
    app_.katalog().Box.scanne([&](const Zeile12& z) { boxen.push_back(z); });
    std::stable_sort(boxen.begin(), boxen.end(), [](const Zeile12& a, const Zeile12& b) {
        return vergleicheBoxTitel(a.cpText, b.cpText) < 0;
    });
    auto* wurzelItem = new QTreeWidgetItem(baum_);
    wurzelItem->setText(0, alsQString(wurzelText(CApplikation::titel(), static_cast<int>(boxen.size()))));
    for (const Zeile12& b : boxen) {
        auto* item = new QTreeWidgetItem(wurzelItem);
        item->setText(0, alsQString(b.cpText));
        item->setData(0, Qt::UserRole, 1);
        item->setData(0, Qt::UserRole + 1, b.Id);
    }
    wurzelItem->setExpanded(true);
}

void CDorvanoDlg::closeEvent(QCloseEvent* ereignis) {
    speichereFenster(*this, app_.einstellungen(), "WP_main");
    QMainWindow::closeEvent(ereignis);
}

}  // namespace dv::ui
