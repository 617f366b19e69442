#pragma once
// Box files handed from a second start of the program to the running window. The
// running instance listens on a local socket named after its single-instance lock
// (the lock's path with ".sock" for ".lock"); a second start sends the absolute
// paths of its files there, one per line (UTF-8), closes the connection and ends.

#include <QObject>
#include <QStringList>

class QLocalServer;

namespace dv::ui {

// The socket's name for the lock file at sperrPfad.
QString uebergabeName(const QString& sperrPfad);

// Sends the paths (made absolute) to the running instance; false when nobody
// listens or the paths could not be written within a few seconds.
bool uebergebe(const QString& name, const QStringList& pfade);

class UebergabeEmpfang : public QObject {
    Q_OBJECT
  public:
    explicit UebergabeEmpfang(QObject* eltern = nullptr);
    // Listens under name; a socket left by a crashed instance is removed first.
    bool starte(const QString& name);

  signals:
    // The files of one second start, once its connection has closed.
    void dateienErhalten(const QStringList& pfade);

  private:
    void neueVerbindung();

    QLocalServer* server_;
};

}  // namespace dv::ui
