#include "tests/support/Prozess.h"

#include <QProcess>

namespace dv::test {

Lauf fuehreAus(const std::string& programm, const std::vector<std::string>& argumente,
               const std::string& eingabe, const std::vector<std::string>& umgebung) {
    QProcess p;
    QStringList argv;
    for (const std::string& a : argumente) argv << QString::fromStdString(a);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const std::string& e : umgebung) {
        const std::size_t gleich = e.find('=');
        env.insert(QString::fromStdString(e.substr(0, gleich)),
                   QString::fromStdString(e.substr(gleich + 1)));
    }
    p.setProcessEnvironment(env);
    p.start(QString::fromStdString(programm), argv);
    Lauf lauf;
    if (!p.waitForStarted(-1)) return lauf;
    // Written while the outputs are drained, so a large input cannot block on a full pipe.
    p.write(eingabe.data(), static_cast<qint64>(eingabe.size()));
    p.closeWriteChannel();
    p.waitForFinished(-1);
    const QByteArray aus = p.readAllStandardOutput(), err = p.readAllStandardError();
    lauf.aus.assign(aus.constData(), static_cast<std::size_t>(aus.size()));
    lauf.err.assign(err.constData(), static_cast<std::size_t>(err.size()));
    lauf.code = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    return lauf;
}

Lauf cli(const std::vector<std::string>& argumente, const std::string& einstellungen,
         const std::string& eingabe) {
    return fuehreAus(std::string(DORVANO_BIN_DIR) + "/dorvano-cli", argumente, eingabe,
                     {"XDG_CONFIG_HOME=" + einstellungen, "DORVANO_BASIS="});
}

}  // namespace dv::test
