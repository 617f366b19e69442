#include "platform/Einzelinstanz.h"

#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

namespace dv {

Einzelinstanz::Einzelinstanz(const std::string& ordner) {
    QString basis = QString::fromStdString(ordner);
    if (basis.isEmpty()) basis = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (basis.isEmpty()) basis = QDir::tempPath();
    QDir().mkpath(basis);
    const QString datei = QDir(basis).filePath(QString::fromLatin1(kInstanzGuid) + ".lock");
    pfad_ = datei.toStdString();
    sperre_ = std::make_unique<QLockFile>(datei);
    sperre_->setStaleLockTime(0);  // never stale by age; a dead owner is detected by its pid
    erste_ = sperre_->tryLock(0);
}

Einzelinstanz::~Einzelinstanz() = default;

}  // namespace dv
