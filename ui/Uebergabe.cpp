#include "ui/Uebergabe.h"

#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <memory>

namespace dv::ui {

namespace {

constexpr int kWartezeitMs = 3000;

}  // namespace

QString uebergabeName(const QString& sperrPfad) {
    QString name = sperrPfad;
    if (name.endsWith(QStringLiteral(".lock"))) name.chop(5);
    return name + QStringLiteral(".sock");
}

bool uebergebe(const QString& name, const QStringList& pfade) {
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(kWartezeitMs)) return false;
    QByteArray daten;
    for (const QString& p : pfade) daten += QFileInfo(p).absoluteFilePath().toUtf8() + '\n';
    socket.write(daten);
    if (!socket.waitForBytesWritten(kWartezeitMs)) return false;
    socket.disconnectFromServer();
    if (socket.state() != QLocalSocket::UnconnectedState) socket.waitForDisconnected(kWartezeitMs);
    return true;
}

UebergabeEmpfang::UebergabeEmpfang(QObject* eltern)
    : QObject(eltern), server_(new QLocalServer(this)) {
    connect(server_, &QLocalServer::newConnection, this, &UebergabeEmpfang::neueVerbindung);
}

bool UebergabeEmpfang::starte(const QString& name) {
    // Only the holder of the instance lock gets here, so a socket file is stale.
    QLocalServer::removeServer(name);
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    return server_->listen(name);
}

void UebergabeEmpfang::neueVerbindung() {
    while (QLocalSocket* s = server_->nextPendingConnection()) {
        auto puffer = std::make_shared<QByteArray>();
        connect(s, &QLocalSocket::readyRead, this, [s, puffer] { *puffer += s->readAll(); });
        connect(s, &QLocalSocket::disconnected, this, [this, s, puffer] {
            *puffer += s->readAll();
            QStringList pfade;
            for (const QByteArray& zeile : puffer->split('\n'))
                if (!zeile.isEmpty()) pfade << QString::fromUtf8(zeile);
            s->deleteLater();
            if (!pfade.isEmpty()) emit dateienErhalten(pfade);
        });
    }
}

}  // namespace dv::ui
