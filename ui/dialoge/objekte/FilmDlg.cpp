#include "ui/dialoge/objekte/FilmDlg.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <cstdio>

#include "app/CApplikation.h"
#include "app/Grenzen.h"
#include "app/LookupDienst.h"
#include "app/Zeichensatz.h"
#include "ui/dialoge/lookups/PersonDlg.h"
#include "ui/dialoge/objekte/PersonenSeite.h"
#include "ui/dialoge/objekte/Reihen.h"
#include "ui/dialoge/objekte/SprachenSeite.h"
#include "ui/widgets/Benennung.h"
#include "ui/widgets/ListenPaar.h"
#include "ui/widgets/Tastatur.h"
#include "ui/widgets/TextFeld.h"

namespace dv::ui {

namespace {

QString filmTitel(const FilmWerte& w) {
    return w.id == 0 ? QStringLiteral("<<<Neuer Film>>>")
                     : QStringLiteral("Film [%1]").arg(alsQString(w.titel));
}

ListenPaar* paar(const QString& titel, const std::vector<Eintrag>& zugeordnet,
                 const std::vector<Eintrag>& verfuegbar, QWidget* eltern) {
    auto* p = new ListenPaar(titel, eltern);
    p->setzeZugeordnet(zugeordnet);
    p->setzeVerfuegbar(verfuegbar);
    return p;
}

// Side texts show with the screen's line ends; one stored with CR LF is written
// back so, so that confirming unchanged text changes no byte.
QString alsAnzeige(const std::string& text, bool& crlf) {
    crlf = text.find("\r\n") != std::string::npos;
    QString t = alsQString(text);
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return t;
}

std::string alsText(const QString& anzeige, bool crlf) {
    QString t = anzeige;
    if (crlf) t.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return ausQString(t);
}

// The characters of text the code page cannot hold, each once, in order, by
// their code point ("U+2192"): the message itself is a catalogue text.
std::string nichtDarstellbar(const QString& text) {
    std::string fremd;
    for (const char32_t c : text.toUcs4()) {
        bool ok = true;
        (void)ausQString(QString::fromUcs4(&c, 1), &ok);
        char name[16];
        std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(c));
        if (!ok && fremd.find(name) == std::string::npos)
            fremd += (fremd.empty() ? "" : ", ") + std::string(name);
    }
    return fremd;
}

}  // namespace

FilmKataloge ladeFilmKataloge(CApplikation& app) {
    LookupDienst l(app);
    return {l.eintraege(kTypGenre),    l.eintraege(kTypBildformat),
            l.eintraege(kTypSprache),  l.eintraege(kTypTonformat),
            l.eintraege(kTypFunktion), PersonenDienst(app).liste(false)};
}

FilmDlg::FilmDlg(QWidget* eltern, CApplikation& app, const FilmWerte& w, const FilmKataloge& k)
    : EditDlg(eltern, app, "WP_film", filmTitel(w)),
      alt_(w),
      seiten_(new QTabWidget(this)),
      genres_(paar(QStringLiteral("Genre"), w.genres, k.genres, this)),
      bildformate_(paar(QStringLiteral("Bildformate"), w.bildformate, k.bildformate, this)),
      untertitel_(paar(QStringLiteral("Untertitel"), w.untertitel, k.sprachen, this)),
      sprachen_(new SprachenSeite(k.sprachen, k.tonformate, this)),
      personen_(new PersonenSeite(k.personen, k.funktionen, this)) {
    sprachen_->setze(w.sprachen);
    personen_->setze(w.personen);
    erlaubeNeu(*genres_, QStringLiteral("Genre"));
    erlaubeNeu(*bildformate_, QStringLiteral("Bildformate"));
    erlaubeNeu(*untertitel_, QStringLiteral("Untertitel"));
    seiten_->addTab(allgemein(w), QStringLiteral("&Allgemein"));
    seiten_->addTab(mitRand(genres_), QStringLiteral("&Genre"));
    seiten_->addTab(mitRand(bildformate_), QStringLiteral("&Bildformate"));
    seiten_->addTab(mitRand(untertitel_), QStringLiteral("Unte&rtitel"));
    seiten_->addTab(sprachen_, QStringLiteral("&Sprachen"));
    seiten_->addTab(personen_, QStringLiteral("&Personen"));
    seiten_->addTab(mitRand(inhalt_ = textFeld(), QStringLiteral("Inhalt")),
                    QStringLiteral("&Inhalt"));
    seiten_->addTab(mitRand(kommentar_ = textFeld(), QStringLiteral("Kommentar")),
                    QStringLiteral("&Kommentar"));
    inhalt_->setPlainText(alsAnzeige(w.inhalt, inhaltCrLf_));
    kommentar_->setPlainText(alsAnzeige(w.kommentar, kommentarCrLf_));
    for (int i = 0; i < seiten_->count(); ++i) benenne(*seiten_->widget(i), seiten_->tabText(i));
    connect(personen_, &PersonenSeite::neuePerson, this, &FilmDlg::neuePerson);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(seiten_, 1);
    layout->addWidget(knoepfe());
    resize(720, 560);
    fertig();
    titel_->setFocus();
}

QWidget* FilmDlg::allgemein(const FilmWerte& w) {
    auto* seite = new QWidget(this);
    titel_ = new TextFeld(static_cast<int>(kMaxTitel), seite);
    original_ = new TextFeld(static_cast<int>(kMaxTitel), seite);
    alternativ_ = new QListWidget(seite);
    neuerAlternativ_ = new TextFeld(static_cast<int>(kMaxTitel), seite);
    fsk_ = new QComboBox(seite);
    laenge_ = new QSpinBox(seite);
    jahr_ = new QSpinBox(seite);
    titel_->setzeText8(w.titel);
    original_->setzeText8(w.originaltitel);
    for (const std::string& t : w.alternativtitel) alternativ_->addItem(alsQString(t));
    alternativ_->setMaximumHeight(110);
    neuerAlternativ_->setPlaceholderText(QStringLiteral("Weiterer Titel, mit Enter hinzufügen"));
    fsk_->setEditable(true);
    fsk_->addItems({QStringLiteral("0"), QStringLiteral("6"), QStringLiteral("12"),
                    QStringLiteral("16"), QStringLiteral("18")});
    fsk_->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,3}")), fsk_));
    fsk_->setCurrentText(QString::number(w.fsk));
    fsk_->setMinimumContentsLength(4);
    laenge_->setRange(0, 9999);
    laenge_->setSuffix(QStringLiteral(" min"));
    laenge_->setValue(w.laenge);
    jahr_->setRange(0, 9999);
    jahr_->setValue(w.jahr);
    // Number fields as wide as their largest number, not as the form.
    for (QWidget* zahl : std::initializer_list<QWidget*>{fsk_, laenge_, jahr_})
        zahl->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    auto* hinzu = new QPushButton(QStringLiteral("Hin&zufügen"), seite);
    auto* weg = new QPushButton(QStringLiteral("Entfer&nen"), seite);
    for (QPushButton* k : {hinzu, weg}) k->setAutoDefault(false);
    const auto neuerTitel = [this] {
        const QString t = neuerAlternativ_->text().trimmed();
        if (t.isEmpty()) return;
        alternativ_->addItem(t);
        neuerAlternativ_->clear();
    };
    connect(hinzu, &QPushButton::clicked, this, neuerTitel);
    connect(weg, &QPushButton::clicked, this, [this] { entferneAktuelle(*alternativ_); });
    beiEnter(*neuerAlternativ_, neuerTitel);
    // The buttons beside the titles come before the fields below them.
    setTabOrder(neuerAlternativ_, hinzu);
    setTabOrder(hinzu, weg);
    setTabOrder(weg, fsk_);
    auto* alternativen = new QGridLayout;
    alternativen->setContentsMargins(0, 0, 0, 0);
    alternativen->addWidget(alternativ_, 0, 0, 3, 1);
    alternativen->addWidget(hinzu, 0, 1);
    alternativen->addWidget(weg, 1, 1);
    alternativen->addWidget(neuerAlternativ_, 3, 0);

    auto* form = new QFormLayout(seite);
    auto zeile = [&](const QString& text, QWidget* feld, QLayout* layout = nullptr) {
        auto* label = new QLabel(text, seite);
        label->setBuddy(feld);
        if (layout)
            form->addRow(label, layout);
        else
            form->addRow(label, feld);
    };
    zeile(QStringLiteral("&Titel:"), titel_);
    zeile(QStringLiteral("&Originaltitel:"), original_);
    zeile(QStringLiteral("Alternati&vtitel:"), alternativ_, alternativen);
    zeile(QStringLiteral("&FSK:"), fsk_);
    zeile(QStringLiteral("&Länge:"), laenge_);
    zeile(QStringLiteral("&Jahr:"), jahr_);
    benenne(*neuerAlternativ_, QStringLiteral("Weiterer Titel"));
    return seite;
}

QWidget* FilmDlg::mitRand(QWidget* inhalt, const QString& name) {
    // The lists and editors keep the distance from the tab's frame that the
    // form pages have; the page hands its focus on to them.
    auto* seite = new QWidget(this);
    (new QVBoxLayout(seite))->addWidget(inhalt);
    seite->setFocusProxy(inhalt);
    if (!name.isEmpty()) benenne(*inhalt, name);
    return seite;
}

QPlainTextEdit* FilmDlg::textFeld() {
    auto* feld = new QPlainTextEdit(this);
    feld->setTabChangesFocus(true);
    return feld;
}

FilmWerte FilmDlg::werte() const {
    FilmWerte w = alt_;
    w.titel = titel_->text8();
    w.originaltitel = original_->text8();
    w.alternativtitel.clear();
    for (int i = 0; i < alternativ_->count(); ++i)
        w.alternativtitel.push_back(ausQString(alternativ_->item(i)->text()));
    w.fsk = fsk_->currentText().toInt();
    w.laenge = laenge_->value();
    w.jahr = jahr_->value();
    w.genres = genres_->zugeordnet();
    w.bildformate = bildformate_->zugeordnet();
    w.untertitel = untertitel_->zugeordnet();
    w.sprachen = sprachen_->sprachen();
    w.personen = personen_->personen();
    w.inhalt = alsText(inhalt_->toPlainText(), inhaltCrLf_);
    w.kommentar = alsText(kommentar_->toPlainText(), kommentarCrLf_);
    return w;
}

void FilmDlg::zeigeSeite(Seite s) {
    seiten_->setCurrentIndex(s);
    seiten_->currentWidget()->setFocus();
}

bool FilmDlg::darstellbar(const QPlainTextEdit& feld, Seite s) {
    const std::string fremd = nichtDarstellbar(feld.toPlainText());
    if (fremd.empty()) return true;
    zeigeSeite(s);
    hinweis("Zeichen nicht darstellbar: " + fremd);
    return false;
}

bool FilmDlg::pruefeEingaben() {
    if (fsk_->currentText().isEmpty()) fsk_->setCurrentText(QStringLiteral("0"));
    return darstellbar(*inhalt_, Inhalt) && darstellbar(*kommentar_, Kommentar);
}

void FilmDlg::neuePerson(const QString& text) {
    PersonDlg::oeffne(this, app_, personAusText(text),
                      [this](const PersonZeile& p) { personen_->fuegeNeueHinzu(p); });
}

}  // namespace dv::ui
