#include "ui/dialoge/haupt/OptionenDlg.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace dv::ui {

namespace {

struct Schalter {
    const char16_t* text;
    std::uint32_t bit;
};

}  // namespace

OptionenDlg::OptionenDlg(QWidget* eltern, CApplikation& app, const OptionenWerte& w)
    : Dialog(eltern, app, "WP_optionen", QStringLiteral("Optionen")),
      alt_(w),
      discErkennung_(new QCheckBox(QStringLiteral("Eingelegte DVDs selbst &erkennen"), this)),
      maxFilme_(new QSpinBox(this)) {
    auto* layout = new QVBoxLayout(this);
    auto gruppe = [&](const QString& titel, std::initializer_list<Schalter> liste) {
        auto* g = new QGroupBox(titel, this);
        auto* l = new QVBoxLayout(g);
        for (const Schalter& s : liste) {
            auto* box = new QCheckBox(QString::fromUtf16(s.text), g);
            box->setChecked(w.an(s.bit));
            l->addWidget(box);
            schalter_.emplace_back(box, s.bit);
        }
        layout->addWidget(g);
        return l;
    };
    gruppe(QStringLiteral("Suche"),
           {{u"Groß- und Kleinschreibung &unterscheiden", kOptSucheGrossKlein}});
    gruppe(QStringLiteral("XML-Ausgabe"),
           {{u"Mit &Cover", kOptXmlCover},
            {u"Mit Unterob&jekten (DVDs, Filme)", kOptXmlUnterobjekte}});
    gruppe(QStringLiteral("Export"), {{u"&Tags in Box-Dateien schreiben", kOptExportTags}});
    gruppe(QStringLiteral("Import"),
           {{u"&Box vor dem Import bestätigen", kOptBoxBestaetigen},
            {u"Unbekannte &Objekte bestätigen", kOptObjekteBestaetigen},
            {u"Vorhandene EAN &still überspringen", kOptDoppelteStill},
            {u"&Import-Info bei mehreren Dateien zeigen", kOptStapelInfo}});
    QVBoxLayout* fenster = gruppe(QStringLiteral("Fenster"), {});
    discErkennung_->setChecked(w.discErkennung());
    fenster->addWidget(discErkennung_);
    maxFilme_->setRange(1, static_cast<int>(kMaxFilmeAufklappenHoechstens));
    maxFilme_->setValue(static_cast<int>(w.maxFilmeAufklappen));
    auto* form = new QFormLayout;
    auto* label = new QLabel(QStringLiteral("Höchstens &aufgeklappte Filme:"), this);
    label->setBuddy(maxFilme_);
    form->addRow(label, maxFilme_);
    fenster->addLayout(form);

    auto* knoepfe = new QDialogButtonBox(this);
    knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(knoepfe);
    fertig();
}

OptionenWerte OptionenDlg::werte() const {
    OptionenWerte w = alt_;
    for (const auto& [box, bit] : schalter_) w.setze(bit, box->isChecked());
    w.setzeDiscErkennung(discErkennung_->isChecked());
    w.maxFilmeAufklappen = static_cast<std::uint32_t>(maxFilme_->value());
    return w;
}

}  // namespace dv::ui
