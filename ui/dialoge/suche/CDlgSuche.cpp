#include "ui/dialoge/suche/CDlgSuche.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"
#include "ui/dialoge/suche/CDlgTreffer.h"
#include "ui/dialoge/suche/Dateiwahl.h"
#include "ui/dialoge/suche/Liste.h"
#include "ui/widgets/TextFeld.h"

namespace dv::ui {

namespace {

// Search data is read in lines of up to 1,024 characters.
constexpr int kMaxDaten = 1024;
constexpr int kUnd = 2;

QString zeilenText(std::size_t n) {
    return n == 1 ? QStringLiteral("1 Zeile")
                  : QStringLiteral("%1 Zeilen").arg(static_cast<qulonglong>(n));
}

void waehleDaten(QComboBox* c, int code) {
    const int i = c->findData(code);
    if (i >= 0) c->setCurrentIndex(i);
}

}  // namespace

CDlgSuche::CDlgSuche(QWidget* eltern, CApplikation& app, Objektbefehle& befehle)
    : Dialog(eltern, app, "WP_suche", QStringLiteral("Suchen")),
      befehle_(befehle),
      objekt_(new QComboBox(this)),
      liste_(new ListenAnsicht(QStringLiteral("Suchzeilen"),
                               {QStringLiteral("Kriterium"), QStringLiteral("Operator"),
                                QStringLiteral("Daten"), QStringLiteral("Verknüpfung")},
                               this)),
      verknuepfung_(new QComboBox(this)),
      kriterium_(new QComboBox(this)),
      op_(new QComboBox(this)),
      daten_(new TextFeld(kMaxDaten, this)),
      status_(new QLabel(this)) {
    for (int t = 1; t <= 3; ++t) objekt_->addItem(alsQString(SuchDienst::objektName(t)), t);
    waehleDaten(objekt_, typ_);
    for (int v = 1; v <= 3; ++v)
        verknuepfung_->addItem(alsQString(SuchDienst::verknuepfungName(v)), v);
    waehleDaten(verknuepfung_, kUnd);
    liste_->setzeSortierbar(false);
    liste_->setzeEinzelwahl();
    liste_->setzeBreiten({150, 70, 220});
    status_->setObjectName(QStringLiteral("Ergebnis"));
    status_->setAccessibleName(status_->objectName());

    auto* kopf = new QFormLayout;
    kopf->addRow(QStringLiteral("Such&objekt:"), objekt_);

    auto* zeile = new QGroupBox(QStringLiteral("Suchzeile"), this);
    auto* raster = new QGridLayout(zeile);
    const std::pair<const char*, QWidget*> felder[] = {{"&Verknüpfung:", verknuepfung_},
                                                       {"&Kriterium:", kriterium_},
                                                       {"O&perator:", op_},
                                                       {"&Daten:", daten_}};
    int spalte = 0;
    for (const auto& [text, feld] : felder) {
        auto* label = new QLabel(alsQString(text), zeile);
        label->setBuddy(feld);
        raster->addWidget(label, 0, spalte);
        raster->addWidget(feld, 1, spalte);
        ++spalte;
    }
    raster->setColumnStretch(1, 1);
    raster->setColumnStretch(3, 2);

    auto* zeilenKnoepfe = new QHBoxLayout;
    const struct {
        const char* text;
        void (CDlgSuche::*slot)();
        bool brauchtZeile;
    } kKnoepfe[] = {{"&Hinzufügen", &CDlgSuche::hinzufuegen, false},
                    {"&Ändern", &CDlgSuche::aendern, true},
                    {"&Löschen", &CDlgSuche::loeschen, true},
                    {"Ho&ch", &CDlgSuche::hoch, true},
                    {"R&unter", &CDlgSuche::runter, true}};
    for (const auto& k : kKnoepfe) {
        auto* b = new QPushButton(alsQString(k.text), zeile);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, k.slot);
        zeilenKnoepfe->addWidget(b);
        if (k.brauchtZeile) mitZeile_.push_back(b);
    }
    zeilenKnoepfe->addStretch();
    raster->addLayout(zeilenKnoepfe, 2, 0, 1, 4);

    auto* knoepfe = new QDialogButtonBox(this);
    const std::pair<const char*, void (CDlgSuche::*)()> kDatei[] = {
        {"&Neue Suche...", &CDlgSuche::neueSuche},
        {"L&aden...", &CDlgSuche::laden},
        {"Speiche&rn...", &CDlgSuche::speichern}};
    for (const auto& [text, slot] : kDatei) {
        QPushButton* b = knoepfe->addButton(alsQString(text), QDialogButtonBox::ResetRole);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, slot);
    }
    suchen_ = knoepfe->addButton(QStringLiteral("&Suchen"), QDialogButtonBox::ActionRole);
    suchen_->setDefault(true);
    connect(suchen_, &QPushButton::clicked, this, &CDlgSuche::suchen);
    knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);

    connect(objekt_, &QComboBox::currentIndexChanged, this, &CDlgSuche::objektGewechselt);
    connect(kriterium_, &QComboBox::currentIndexChanged, this, &CDlgSuche::fuelleOperatoren);
    connect(liste_, &ListenAnsicht::auswahlGeaendert, this, &CDlgSuche::zeigeZeile);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(kopf);
    layout->addWidget(liste_, 1);
    layout->addWidget(zeile);
    layout->addWidget(status_);
    layout->addWidget(knoepfe);
    resize(680, 520);
    fuelleKriterien();
    setzeZeilen({}, -1);
    fertig();
}

int CDlgSuche::objektTyp() const {
    return objekt_->currentData().toInt();
}

// A new kind of object takes criteria of its own: the rows of the old kind go.
void CDlgSuche::objektGewechselt() {
    const int neu = objektTyp();
    if (neu == typ_) return;
    if (!zeilen_.empty() && !app_.benutzer().frage("Neue Suche", "Aktuelle Suche verwerfen?")) {
        const QSignalBlocker sperre(objekt_);
        waehleDaten(objekt_, typ_);
        return;
    }
    typ_ = neu;
    setzeZeilen({}, -1);
    fuelleKriterien();
}

void CDlgSuche::fuelleKriterien() {
    const QSignalBlocker sperre(kriterium_);
    kriterium_->clear();
    for (int k = 1; k <= SuchDienst::kriterienAnzahl(typ_); ++k)
        kriterium_->addItem(alsQString(SuchDienst::kriteriumName(typ_, k)), k);
    fuelleOperatoren();
}

void CDlgSuche::fuelleOperatoren() {
    const int vorher = op_->currentData().toInt();
    const int anzahl = SuchDienst::istText(typ_, kriterium_->currentData().toInt()) ? 2 : 6;
    op_->clear();
    for (int o = 1; o <= anzahl; ++o) op_->addItem(alsQString(SuchDienst::operatorName(o)), o);
    waehleDaten(op_, vorher > 0 ? vorher : 1);
}

SuchZeile CDlgSuche::editorZeile() const {
    return {typ_, kriterium_->currentData().toInt(), op_->currentData().toInt(),
            verknuepfung_->currentData().toInt(), daten_->text8()};
}

void CDlgSuche::zeigeZeile() {
    const int z = liste_->aktuelle();
    aktualisiere();
    if (z < 0) return;
    const SuchZeile& s = zeilen_[static_cast<std::size_t>(z)];
    waehleDaten(verknuepfung_, s.verknuepfung);
    waehleDaten(kriterium_, s.kriterium);
    fuelleOperatoren();
    waehleDaten(op_, s.op);
    daten_->setzeText8(s.daten);
}

void CDlgSuche::setzeZeilen(std::vector<SuchZeile> zeilen, int waehlen) {
    zeilen_ = std::move(zeilen);
    std::vector<QStringList> texte;
    for (const SuchZeile& s : zeilen_)
        texte.push_back({alsQString(SuchDienst::kriteriumName(s.objekt, s.kriterium)),
                         alsQString(SuchDienst::operatorName(s.op)), alsQString(s.daten),
                         alsQString(SuchDienst::verknuepfungName(s.verknuepfung))});
    liste_->modell().setzeZeilen(std::move(texte));
    liste_->setzeAnzahl(zeilenText(zeilen_.size()));
    if (waehlen >= 0 && waehlen < static_cast<int>(zeilen_.size())) liste_->waehle(waehlen);
    aktualisiere();
}

void CDlgSuche::aktualisiere() {
    const bool zeile = liste_->aktuelle() >= 0;
    for (QPushButton* b : mitZeile_) b->setEnabled(zeile);
    suchen_->setEnabled(!zeilen_.empty());
}

void CDlgSuche::hinzufuegen() {
    std::vector<SuchZeile> neu = zeilen_;
    neu.push_back(editorZeile());
    setzeZeilen(std::move(neu), static_cast<int>(zeilen_.size()));
}

void CDlgSuche::aendern() {
    const int z = liste_->aktuelle();
    if (z < 0) return;
    std::vector<SuchZeile> neu = zeilen_;
    neu[static_cast<std::size_t>(z)] = editorZeile();
    setzeZeilen(std::move(neu), z);
}

void CDlgSuche::loeschen() {
    const int z = liste_->aktuelle();
    if (z < 0) return;
    std::vector<SuchZeile> neu = zeilen_;
    neu.erase(neu.begin() + z);
    setzeZeilen(std::move(neu), std::min(z, static_cast<int>(neu.size()) - 1));
}

void CDlgSuche::hoch() {
    const int z = liste_->aktuelle();
    if (z <= 0) return;
    std::vector<SuchZeile> neu = zeilen_;
    std::swap(neu[static_cast<std::size_t>(z)], neu[static_cast<std::size_t>(z - 1)]);
    setzeZeilen(std::move(neu), z - 1);
}

void CDlgSuche::runter() {
    const int z = liste_->aktuelle();
    if (z < 0 || z + 1 >= static_cast<int>(zeilen_.size())) return;
    std::vector<SuchZeile> neu = zeilen_;
    std::swap(neu[static_cast<std::size_t>(z)], neu[static_cast<std::size_t>(z + 1)]);
    setzeZeilen(std::move(neu), z + 1);
}

void CDlgSuche::neueSuche() {
    if (!zeilen_.empty() && !app_.benutzer().frage("Neue Suche", "Aktuelle Suche verwerfen?"))
        return;
    setzeZeilen({}, -1);
    daten_->clear();
    status_->clear();
}

void CDlgSuche::laden() {
    waehleLadeDatei(this, app_, QStringLiteral("Suche laden"), QStringLiteral("asc"),
                    [this](const std::string& pfad) {
                        auto gelesen = app_.dienste().suche().ladeDatei(pfad);
                        if (!meldeErgebnis(app_, gelesen) || gelesen->empty()) return;
                        {
                            const QSignalBlocker sperre(objekt_);
                            typ_ = gelesen->front().objekt;
                            waehleDaten(objekt_, typ_);
                        }
                        fuelleKriterien();
                        setzeZeilen(std::move(gelesen.wert()), 0);
                    });
}

void CDlgSuche::speichern() {
    if (zeilen_.empty()) return;
    waehleSpeicherDatei(this, app_, QStringLiteral("Suche speichern"), QStringLiteral("Suche.asc"),
                        QStringLiteral("asc"), [this](const std::string& pfad) {
                            meldeErgebnis(app_,
                                          app_.dienste().suche().speichereDatei(pfad, zeilen_));
                        });
}

void CDlgSuche::suchen() {
    if (zeilen_.empty()) return;
    auto ergebnis = app_.dienste().suche().suche(zeilen_, true);
    if (!meldeErgebnis(app_, ergebnis)) return;
    status_->setText(alsQString(ergebnis->status));
    if (ergebnis->treffer.empty()) return;
    auto* treffer = new CDlgTreffer(this, app_, befehle_, std::move(ergebnis.wert()));
    treffer->setAttribute(Qt::WA_DeleteOnClose);
    treffer->open();
}

}  // namespace dv::ui
