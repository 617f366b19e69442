#include "ui/widgets/TextFenster.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QVBoxLayout>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"

namespace dv::ui {

namespace {

QString bildschirm(const std::string& cp1252) {
    QString t = alsQString(cp1252);
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return t;
}

}  // namespace

TextFenster::TextFenster(QWidget* eltern, CApplikation& app, const QString& titel, std::string text,
                         const QString& endung)
    : Dialog(eltern, app, "WP_text", titel),
      text_(std::move(text)),
      endung_(endung),
      anzeige_(new QPlainTextEdit(this)) {
    anzeige_->setReadOnly(true);
    anzeige_->setPlainText(bildschirm(text_));
    anzeige_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    anzeige_->setLineWrapMode(QPlainTextEdit::NoWrap);
    anzeige_->setObjectName(QStringLiteral("Text"));
    anzeige_->setAccessibleName(titel);
    auto* knoepfe = new QDialogButtonBox(this);
    QPushButton* speichern =
        knoepfe->addButton(QStringLiteral("&Speichern..."), QDialogButtonBox::ActionRole);
    QPushButton* kopieren =
        knoepfe->addButton(QStringLiteral("&Kopieren"), QDialogButtonBox::ActionRole);
    QPushButton* schliessen =
        knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole);
    schliessen->setDefault(true);
    connect(speichern, &QPushButton::clicked, this, &TextFenster::speichern);
    connect(kopieren, &QPushButton::clicked, this, &TextFenster::kopieren);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(anzeige_);
    layout->addWidget(knoepfe);
    resize(640, 480);
    fertig();
}

void TextFenster::speichern() {
    auto* wahl = new QFileDialog(this, QStringLiteral("Speichern unter"));
    wahl->setObjectName(QStringLiteral("Speichern unter"));
    wahl->setAcceptMode(QFileDialog::AcceptSave);
    wahl->setDefaultSuffix(endung_);
    wahl->setNameFilter(QStringLiteral("%1 Datei (*.%2)").arg(endung_.toUpper(), endung_));
    wahl->setAttribute(Qt::WA_DeleteOnClose);
    connect(wahl, &QFileDialog::fileSelected, this, &TextFenster::schreibe);
    wahl->open();
}

void TextFenster::schreibe(const QString& pfad) {
    QSaveFile datei(pfad);
    const bool ok = datei.open(QIODevice::WriteOnly) &&
                    datei.write(text_.data(), static_cast<qint64>(text_.size())) ==
                        static_cast<qint64>(text_.size()) &&
                    datei.commit();
    if (!ok)
        app_.benutzer().meldung(
            "Fehler...", "Die Datei \"" + ausQString(pfad) + "\" konnte nicht geschrieben werden.",
            Symbol::Fehler);
}

void TextFenster::kopieren() {
    if (QClipboard* ablage = QGuiApplication::clipboard()) ablage->setText(anzeige_->toPlainText());
}

}  // namespace dv::ui
