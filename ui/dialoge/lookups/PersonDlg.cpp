#include "ui/dialoge/lookups/PersonDlg.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QRegularExpression>
#include <QSpinBox>
#include <QVBoxLayout>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "app/Zeichensatz.h"
#include "ui/dialoge/Meldung.h"
#include "ui/widgets/TextFeld.h"

namespace dv::ui {

namespace {

QString personTitel(const PersonWerte& w) {
    return w.id == 0 ? QStringLiteral("<<<Neue Person>>>")
                     : QStringLiteral("Person [%1]").arg(alsQString(PersonenDienst::text(w)));
}

}  // namespace

PersonWerte personAusText(const QString& text) {
    PersonWerte w;
    QString rest = text.trimmed();
    static const QRegularExpression instanz(QStringLiteral("\\s*\\((\\d{1,5})\\)$"));
    if (const auto m = instanz.match(rest); m.hasMatch()) {
        w.instanz = m.captured(1).toInt();
        rest.truncate(m.capturedStart());
    }
    const int komma = rest.indexOf(QLatin1Char(','));
    w.name = ausQString(komma < 0 ? rest : rest.left(komma).trimmed());
    if (komma >= 0) w.vorname = ausQString(rest.mid(komma + 1).trimmed());
    w.name = w.name.substr(0, kMaxPersonName);
    w.vorname = w.vorname.substr(0, kMaxPersonName);
    return w;
}

PersonDlg::PersonDlg(QWidget* eltern, CApplikation& app, const PersonWerte& w)
    : EditDlg(eltern, app, "WP_person", personTitel(w)),
      alt_(w),
      name_(new TextFeld(static_cast<int>(kMaxPersonName), this)),
      vorname_(new TextFeld(static_cast<int>(kMaxPersonName), this)),
      instanz_(new QSpinBox(this)),
      hinweis_(new QLabel(this)) {
    name_->setzeText8(w.name);
    name_->setMinimumWidth(280);
    vorname_->setzeText8(w.vorname);
    instanz_->setRange(0, 32767);
    instanz_->setValue(w.instanz);
    instanz_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    instanz_->setToolTip(QStringLiteral("Unterscheidet Personen mit gleichem Namen und Vornamen"));
    hinweis_->setObjectName(QStringLiteral("Hinweis"));
    hinweis_->setWordWrap(true);
    hinweis_->hide();
    auto* form = new QFormLayout;
    const std::pair<QString, QWidget*> zeilen[] = {{QStringLiteral("&Nachname:"), name_},
                                                   {QStringLiteral("&Vorname:"), vorname_},
                                                   {QStringLiteral("&Instanz:"), instanz_}};
    for (const auto& [text, feld] : zeilen) {
        auto* label = new QLabel(text, this);
        label->setBuddy(feld);
        form->addRow(label, feld);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(hinweis_);
    layout->addWidget(knoepfe());
    fertig();
}

PersonWerte PersonDlg::werte() const {
    PersonWerte w = alt_;
    w.name = name_->text8();
    w.vorname = vorname_->text8();
    w.instanz = instanz_->value();
    return w;
}

bool PersonDlg::schlageVor(const PersonWerte& w) {
    PersonenDienst dienst(app_);
    const std::string text = dienst.doppeltText(w);
    if (text.empty()) return false;
    instanz_->setValue(dienst.freieInstanz(w));
    hinweis_->setText(alsQString(text));
    hinweis_->setAccessibleName(hinweis_->text());
    hinweis_->show();
    instanz_->setFocus();
    instanz_->selectAll();
    return true;
}

PersonDlg* PersonDlg::oeffne(QWidget* eltern, CApplikation& app, const PersonWerte& w,
                             std::function<void(const PersonZeile&)> gespeichert) {
    auto* dlg = new PersonDlg(eltern, app, w);
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    dlg->setzeSpeichern([dlg, &app, gespeichert] {
        PersonWerte p = dlg->werte();
        if (dlg->schlageVor(p)) return false;
        PersonenDienst dienst(app);
        if (p.id == 0) {
            auto neu = dienst.neu(p);
            if (!zeigeErgebnis(app.benutzer(), neu)) return false;
            p.id = neu.wert();
        } else if (!zeigeErgebnis(app.benutzer(), dienst.speichere(p))) {
            return false;
        }
        if (gespeichert) gespeichert({p, PersonenDienst::text(p), 0});
        return true;
    });
    dlg->open();
    return dlg;
}

}  // namespace dv::ui
