#include "ui/dialoge/suche/Dateiwahl.h"

#include <QFile>
#include <QFileDialog>

#include "app/CApplikation.h"
#include "ui/dialoge/Meldung.h"

namespace dv::ui {

namespace {

QFileDialog* dateiDialog(QWidget* eltern, CApplikation& app, const QString& titel,
                         const QString& name, const QString& endung, DateiWeiter weiter) {
    auto* wahl = new QFileDialog(eltern, titel, QFile::decodeName(app.ordner().vorlagen.c_str()));
    wahl->setObjectName(name);
    wahl->setAccessibleName(titel);
    wahl->setNameFilter(QStringLiteral("%1 Datei (*.%1)").arg(endung));
    wahl->setDefaultSuffix(endung);
    wahl->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(wahl, &QFileDialog::fileSelected, wahl,
                     [weiter = std::move(weiter)](const QString& pfad) {
                         weiter(QFile::encodeName(pfad).toStdString());
                     });
    return wahl;
}

}  // namespace

void waehleSpeicherDatei(QWidget* eltern, CApplikation& app, const QString& name,
                         const QString& vorschlag, const QString& endung, DateiWeiter weiter) {
    QFileDialog* wahl = dateiDialog(eltern, app, QStringLiteral("Speichern unter"), name, endung,
                                    std::move(weiter));
    wahl->setAcceptMode(QFileDialog::AcceptSave);
    wahl->setOption(QFileDialog::DontConfirmOverwrite);
    wahl->selectFile(vorschlag);
    wahl->open();
}

void waehleLadeDatei(QWidget* eltern, CApplikation& app, const QString& name, const QString& endung,
                     DateiWeiter weiter) {
    QFileDialog* wahl = dateiDialog(eltern, app, QStringLiteral("Bitte das Verzeichnis auswählen"),
                                    name, endung, std::move(weiter));
    wahl->setFileMode(QFileDialog::ExistingFile);
    wahl->open();
}

bool meldeErgebnis(CApplikation& app, const Ergebnis& e) {
    return zeigeErgebnis(app.benutzer(), e);
}

}  // namespace dv::ui
