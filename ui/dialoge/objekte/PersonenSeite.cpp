#include "ui/dialoge/objekte/PersonenSeite.h"

#include <QCompleter>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"
#include "ui/dialoge/objekte/Reihen.h"
#include "ui/widgets/EintragWahl.h"
#include "ui/widgets/Tastatur.h"
#include "ui/widgets/TextFeld.h"

namespace dv::ui {

namespace {

constexpr int kId = Qt::UserRole;
constexpr int kName = Qt::UserRole + 1;  // the name the film's value carries
constexpr int kFunktionId = Qt::UserRole;
constexpr int kDarsteller = 1;  // the function a new row starts with

}  // namespace

std::vector<std::string> aliasListe(const QString& text) {
    std::vector<std::string> v;
    for (const QString& teil : text.split(QLatin1Char(','))) {
        const QString t = teil.trimmed();
        if (!t.isEmpty()) v.push_back(ausQString(t));
    }
    return v;
}

PersonenSeite::PersonenSeite(const std::vector<PersonZeile>& personen,
                             const std::vector<Eintrag>& funktionen, QWidget* eltern)
    : QWidget(eltern),
      liste_(new QTreeWidget(this)),
      person_(new QLineEdit(this)),
      funktion_(new EintragWahl(false, this)),
      alias_(new TextFeld(511, this)),
      texte_(new QStringListModel(this)) {
    QStringList texte;
    texte.reserve(static_cast<int>(personen.size()));
    ids_.reserve(static_cast<int>(personen.size()));
    for (const PersonZeile& p : personen) {
        const QString t = alsQString(p.text);
        texte << t;
        ids_.insert(t, p.person.id);
        namen_.insert(p.person.id, t);
    }
    texte_->setStringList(texte);
    auto* vervollstaendigung = new QCompleter(texte_, this);
    vervollstaendigung->setCaseSensitivity(Qt::CaseInsensitive);
    vervollstaendigung->setFilterMode(Qt::MatchContains);
    vervollstaendigung->setMaxVisibleItems(15);
    // The first letter matches thousands of persons: rows of one height spare
    // the popup measuring each of them.
    if (auto* liste = qobject_cast<QListView*>(vervollstaendigung->popup()))
        liste->setUniformItemSizes(true);
    person_->setCompleter(vervollstaendigung);
    person_->setPlaceholderText(QStringLiteral("Name, Vorname"));
    funktion_->setzeEintraege(funktionen);
    funktion_->setzeEintrag({kDarsteller, std::string()});
    alias_->setToolTip(QStringLiteral("Mehrere Alias durch Kommas trennen"));

    liste_->setColumnCount(3);
    liste_->setHeaderLabels(
        {QStringLiteral("Person"), QStringLiteral("Funktion"), QStringLiteral("Alias")});
    liste_->setRootIsDecorated(false);
    liste_->setUniformRowHeights(true);
    liste_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    auto* form = new QFormLayout;
    const std::pair<QString, QWidget*> zeilen[] = {{QStringLiteral("Perso&n:"), person_},
                                                   {QStringLiteral("&Funktion:"), funktion_},
                                                   {QStringLiteral("A&lias:"), alias_}};
    for (const auto& [text, feld] : zeilen) {
        auto* label = new QLabel(text, this);
        label->setBuddy(feld);
        form->addRow(label, feld);
    }
    auto* knoepfe = new QVBoxLayout;
    const std::pair<QString, std::function<void()>> befehle[] = {
        {QStringLiteral("&Hinzufügen"), [this] { hinzufuegen(); }},
        {QStringLiteral("&Übernehmen"), [this] { uebernehmen(); }},
        {QStringLiteral("Neue P&erson..."), [this] { emit neuePerson(person_->text()); }},
        {QStringLiteral("En&tfernen"), [this] { entferneAktuelle(*liste_); }},
        {QStringLiteral("Nach &oben"), [this] { verschiebe(*liste_, -1); }},
        {QStringLiteral("Nach &unten"), [this] { verschiebe(*liste_, +1); }}};
    for (const auto& [text, tu] : befehle) {
        auto* k = new QPushButton(text, this);
        k->setAutoDefault(false);
        connect(k, &QPushButton::clicked, this, tu);
        knoepfe->addWidget(k);
    }
    knoepfe->addStretch();
    auto* titel = new QLabel(QStringLiteral("Personen des Films:"), this);
    titel->setBuddy(liste_);
    auto* raster = new QGridLayout(this);
    raster->addWidget(titel, 0, 0);
    raster->addWidget(liste_, 1, 0);
    raster->addLayout(knoepfe, 1, 1);
    raster->addLayout(form, 2, 0, 1, 2);
    beiEnter(*person_, [this] { hinzufuegen(); });
    beiEnter(*alias_, [this] { hinzufuegen(); });
    connect(liste_, &QTreeWidget::currentItemChanged, this, &PersonenSeite::zeigeZeile);
}

void PersonenSeite::kenne(long id, const QString& text) {
    if (ids_.contains(text)) return;
    ids_.insert(text, id);
    namen_.insert(id, text);
    texte_->insertRows(texte_->rowCount(), 1);
    texte_->setData(texte_->index(texte_->rowCount() - 1), text);
}

void PersonenSeite::fuelle(QTreeWidgetItem& item, const Eintrag& person, const Eintrag& funktion,
                           const std::vector<std::string>& alias) {
    item.setText(0, namen_.value(person.id));
    item.setData(0, kId, static_cast<qlonglong>(person.id));
    item.setData(0, kName, alsQString(person.name));
    item.setText(1, alsQString(funktion.name));
    item.setData(1, kFunktionId, static_cast<qlonglong>(funktion.id));
    QStringList a;
    for (const std::string& x : alias) a << alsQString(x);
    item.setText(2, a.join(QStringLiteral(", ")));
}

void PersonenSeite::setze(const std::vector<FilmPerson>& liste) {
    liste_->clear();
    for (const FilmPerson& p : liste) {
        if (!namen_.contains(p.person.id)) kenne(p.person.id, alsQString(p.person.name));
        auto* item = new QTreeWidgetItem(liste_);
        fuelle(*item, p.person, p.funktion, p.alias);
    }
    // The row the fields below show is marked: it is the one "Übernehmen" changes.
    if (liste_->topLevelItemCount() > 0) liste_->setCurrentItem(liste_->topLevelItem(0));
}

std::vector<FilmPerson> PersonenSeite::personen() const {
    std::vector<FilmPerson> v;
    for (int i = 0; i < liste_->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = liste_->topLevelItem(i);
        v.push_back({{static_cast<long>(item->data(0, kId).toLongLong()),
                      ausQString(item->data(0, kName).toString())},
                     {static_cast<long>(item->data(1, kFunktionId).toLongLong()),
                      ausQString(item->text(1))},
                     aliasListe(item->text(2))});
    }
    return v;
}

long PersonenSeite::gewaehltePerson() const {
    const QString text = person_->text().trimmed();
    if (text.isEmpty()) return 0;
    if (const auto it = ids_.constFind(text); it != ids_.constEnd()) return *it;
    // The only person the completion offers for what was typed.
    long einzige = 0;
    for (auto it = ids_.constBegin(); it != ids_.constEnd(); ++it) {
        if (!it.key().contains(text, Qt::CaseInsensitive)) continue;
        if (einzige != 0) return 0;
        einzige = it.value();
    }
    return einzige;
}

void PersonenSeite::hinzufuegen() {
    const long id = gewaehltePerson();
    if (id <= 0) {
        if (!person_->text().trimmed().isEmpty()) emit neuePerson(person_->text().trimmed());
        return;
    }
    const Eintrag f = funktion_->eintrag();
    if (f.name.empty()) {
        funktion_->setFocus();
        return;
    }
    auto* item = new QTreeWidgetItem(liste_);
    fuelle(*item, {id, ausQString(namen_.value(id))}, f, aliasListe(alias_->text()));
    liste_->setCurrentItem(item);
    person_->clear();
    alias_->clear();
    person_->setFocus();
}

void PersonenSeite::uebernehmen() {
    QTreeWidgetItem* item = liste_->currentItem();
    const long id = gewaehltePerson();
    const Eintrag f = funktion_->eintrag();
    if (!item || id <= 0 || f.name.empty()) return;
    const bool gleich = item->data(0, kId).toLongLong() == id;
    fuelle(
        *item,
        {id, gleich ? ausQString(item->data(0, kName).toString()) : ausQString(namen_.value(id))},
        f, aliasListe(alias_->text()));
}

void PersonenSeite::fuegeNeueHinzu(const PersonZeile& p) {
    const QString text = alsQString(p.text);
    kenne(p.person.id, text);
    person_->setText(text);
    hinzufuegen();
}

void PersonenSeite::zeigeZeile() {
    const QTreeWidgetItem* item = liste_->currentItem();
    if (!item) return;
    person_->setText(item->text(0));
    funktion_->setzeEintrag(
        {static_cast<long>(item->data(1, kFunktionId).toLongLong()), ausQString(item->text(1))});
    alias_->setText(item->text(2));
}

}  // namespace dv::ui
