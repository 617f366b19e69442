#include "ui/baum/DatenWaechter.h"

#include <QDir>
#include <QFileSystemWatcher>
#include <QTimer>

#include "app/CApplikation.h"
#include "app/DatenStand.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/baum/KatalogModell.h"

namespace dv::ui {

DatenWaechter::DatenWaechter(CApplikation& app, KatalogAnsicht& ansicht, QObject* eltern)
    : QObject(eltern),
      app_(app),
      ansicht_(ansicht),
      waechter_(new QFileSystemWatcher(this)),
      verzoegerung_(new QTimer(this)) {
    // A writer touches several files in a row: wait until it is quiet.
    verzoegerung_->setSingleShot(true);
    verzoegerung_->setInterval(400);
    connect(verzoegerung_, &QTimer::timeout, this, &DatenWaechter::pruefe);
    connect(waechter_, &QFileSystemWatcher::fileChanged, verzoegerung_,
            qOverload<>(&QTimer::start));
    connect(waechter_, &QFileSystemWatcher::directoryChanged, verzoegerung_,
            qOverload<>(&QTimer::start));
    connect(&ansicht_.modell(), &KatalogModell::neuGeladen, this,
            [this] { stand_ = datenFingerabdruck(app_.ordner().daten); });
    app_.aenderungen().anmelden(*this);
    stand_ = datenFingerabdruck(app_.ordner().daten);
    beobachte();
}

DatenWaechter::~DatenWaechter() {
    app_.aenderungen().abmelden(*this);
}

void DatenWaechter::beobachte() {
    const QString ordner = QString::fromLocal8Bit(app_.ordner().daten.c_str());
    if (!waechter_->files().isEmpty()) waechter_->removePaths(waechter_->files());
    if (waechter_->directories().isEmpty()) waechter_->addPath(ordner);
    QStringList dateien;
    for (const QString& name : QDir(ordner).entryList({QStringLiteral("*.dat")}, QDir::Files))
        dateien << QDir(ordner).filePath(name);
    if (!dateien.isEmpty()) waechter_->addPaths(dateien);
}

void DatenWaechter::geaendert(const Aenderung&) {
    stand_ = datenFingerabdruck(app_.ordner().daten);
}

bool DatenWaechter::pruefe() {
    beobachte();  // a file replaced by another is watched anew
    const std::string jetzt = datenFingerabdruck(app_.ordner().daten);
    if (jetzt == stand_) return false;
    stand_ = jetzt;
    ansicht_.ladeNeu();
    return true;
}

}  // namespace dv::ui
