#include "ui/dialoge/uebersicht/CDlgUebersicht.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "app/Hintergrund.h"
#include "app/Zeichensatz.h"
#include "ui/dialoge/suche/Dateiwahl.h"
#include "ui/widgets/TextFeld.h"

namespace dv::ui {

namespace {

// Titles are catalogue texts; the file names are the system's.
constexpr int kMaxText = 255;

QString pfadAlsText(const std::string& pfad) {
    return QFile::decodeName(pfad.c_str());
}

std::string textAlsPfad(const QString& text) {
    return QFile::encodeName(text.trimmed()).toStdString();
}

}  // namespace

CDlgUebersicht::CDlgUebersicht(QWidget* eltern, CApplikation& app)
    : Dialog(eltern, app, "WP_uebersicht", QStringLiteral("Übersicht")),
      vorlage_(new QComboBox(this)),
      ziel_(new QLineEdit(this)),
      titel_(new TextFeld(kMaxText, this)),
      ueberschrift_(new TextFeld(kMaxText, this)),
      hintergrund_(new QLineEdit(this)) {
    vorlage_->setEditable(true);
    const QDir vorlagen(QFile::decodeName(app_.ordner().vorlagen.c_str()));
    for (const QString& name :
         vorlagen.entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name))
        vorlage_->addItem(name);
    vorlage_->setCurrentIndex(vorlage_->findText(QStringLiteral("Uebersicht.html")));
    ziel_->setText(QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
                       .filePath(QStringLiteral("Uebersicht.html")));
    ziel_->setMinimumWidth(340);
    titel_->setPlaceholderText(QStringLiteral("Listentitel"));
    ueberschrift_->setPlaceholderText(QStringLiteral("Überschrift"));
    hintergrund_->setPlaceholderText(QStringLiteral("(keines)"));
    hintergrund_->setText(pfadAlsText(standardHintergrund(app_)));

    auto* form = new QFormLayout;
    auto mitWahl = [&](const QString& label, QWidget* feld, const QString& knopf, auto&& waehlen) {
        auto* zeile = new QHBoxLayout;
        zeile->addWidget(feld, 1);
        auto* b = new QPushButton(knopf, this);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, std::forward<decltype(waehlen)>(waehlen));
        zeile->addWidget(b);
        auto* l = new QLabel(label, this);
        l->setBuddy(feld);
        form->addRow(l, zeile);
    };
    mitWahl(QStringLiteral("&Vorlage:"), vorlage_, QStringLiteral("Vorlage wählen..."), [this] {
        auto* feld = vorlage_->lineEdit();
        waehlePfad(feld, QStringLiteral("Vorlage wählen"), false,
                   QStringLiteral("HTML-Datei (*.html)"));
    });
    mitWahl(QStringLiteral("&Zieldatei:"), ziel_, QStringLiteral("Zieldatei wählen..."), [this] {
        waehlePfad(ziel_, QStringLiteral("Zieldatei wählen"), true,
                   QStringLiteral("HTML-Datei (*.html)"));
    });
    form->addRow(QStringLiteral("&Listentitel:"), titel_);
    form->addRow(QStringLiteral("Über&schrift:"), ueberschrift_);
    mitWahl(QStringLiteral("&Hintergrundbild:"), hintergrund_, QStringLiteral("Bild wählen..."),
            [this] {
                waehlePfad(hintergrund_, QStringLiteral("Hintergrundbild wählen"), false,
                           QStringLiteral("Bilder (*.jpg *.jpeg *.png *.gif *.bmp *.svg);;"
                                          "Alle Dateien (*)"));
            });

    auto* knoepfe = new QDialogButtonBox(this);
    QPushButton* laden =
        knoepfe->addButton(QStringLiteral("L&aden..."), QDialogButtonBox::ResetRole);
    QPushButton* speichern =
        knoepfe->addButton(QStringLiteral("Speiche&rn..."), QDialogButtonBox::ResetRole);
    for (QPushButton* b : {laden, speichern}) b->setAutoDefault(false);
    connect(laden, &QPushButton::clicked, this, &CDlgUebersicht::laden);
    connect(speichern, &QPushButton::clicked, this, &CDlgUebersicht::speichern);
    knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::accepted, this, &CDlgUebersicht::accept);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(knoepfe);
    fertig();
}

UebersichtWerte CDlgUebersicht::werte() const {
    return {textAlsPfad(vorlage_->currentText()), textAlsPfad(ziel_->text()), titel_->text8(),
            ueberschrift_->text8(), textAlsPfad(hintergrund_->text())};
}

void CDlgUebersicht::setzeWerte(const UebersichtWerte& w) {
    vorlage_->setEditText(pfadAlsText(w.vorlage));
    ziel_->setText(pfadAlsText(w.ziel));
    titel_->setzeText8(w.titel);
    ueberschrift_->setzeText8(w.ueberschrift);
    hintergrund_->setText(pfadAlsText(w.hintergrund));
}

void CDlgUebersicht::waehlePfad(QLineEdit* feld, const QString& name, bool speichern,
                                const QString& filter) {
    auto* wahl = new QFileDialog(this, name, QFileInfo(feld->text()).absolutePath());
    wahl->setObjectName(name);
    wahl->setNameFilter(filter);
    wahl->setAcceptMode(speichern ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    wahl->setFileMode(speichern ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (speichern) wahl->setDefaultSuffix(QStringLiteral("html"));
    wahl->setAttribute(Qt::WA_DeleteOnClose);
    connect(wahl, &QFileDialog::fileSelected, feld, &QLineEdit::setText);
    wahl->open();
}

void CDlgUebersicht::laden() {
    waehleLadeDatei(this, app_, QStringLiteral("Einstellungen laden"), QStringLiteral("ini"),
                    [this](const std::string& pfad) {
                        auto w = app_.dienste().ausgabe().ladeUebersicht(pfad);
                        if (meldeErgebnis(app_, w)) setzeWerte(w.wert());
                    });
}

void CDlgUebersicht::speichern() {
    waehleSpeicherDatei(
        this, app_, QStringLiteral("Einstellungen speichern"), QStringLiteral("Uebersicht.ini"),
        QStringLiteral("ini"), [this](const std::string& pfad) {
            meldeErgebnis(app_, app_.dienste().ausgabe().speichereUebersicht(pfad, werte()));
        });
}

void CDlgUebersicht::accept() {
    if (meldeErgebnis(app_, app_.dienste().ausgabe().uebersicht(werte(), true))) Dialog::accept();
}

}  // namespace dv::ui
