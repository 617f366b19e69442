#include "ui/dialoge/vormerk/CDlgVormerkListe.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QMenu>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include "app/Zeichensatz.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/dialoge/suche/Dateiwahl.h"
#include "ui/dialoge/suche/Liste.h"
#include "ui/dialoge/suche/Objektbefehle.h"
#include "ui/dialoge/vormerk/CDlgVormerkName.h"

namespace dv::ui {

CDlgVormerkListe::CDlgVormerkListe(QWidget* eltern, CApplikation& app, Objektbefehle& befehle,
                                   const QString& titel, Quelle quelle)
    : Dialog(eltern, app, "WP_vormerkliste", titel),
      befehle_(befehle),
      quelle_(std::move(quelle)),
      liste_(new ListenAnsicht(QStringLiteral("Inhalt"),
                               {QStringLiteral("Vormerkliste"), QStringLiteral("Titel")}, this)) {
    liste_->setzeBreiten({180});
    const struct {
        const char* text;
        const char* taste;
        void (CDlgVormerkListe::*slot)();
    } kBefehle[] = {
        {"Kopieren", nullptr, &CDlgVormerkListe::kopieren},
        {"Verschieben", nullptr, &CDlgVormerkListe::verschieben},
        {"Hoch", "Alt+Up", &CDlgVormerkListe::hoch},
        {"Runter", "Alt+Down", &CDlgVormerkListe::runter},
        {"Aus der Liste &entfernen", "Del", &CDlgVormerkListe::entfernen},
        {"Tags", nullptr, &CDlgVormerkListe::tags},
        {"&Stempeltags...", nullptr, &CDlgVormerkListe::stempeltags},
        {"Im Baum &zeigen", nullptr, &CDlgVormerkListe::imBaumZeigen},
    };
    for (const auto& b : kBefehle) {
        QAction* a = liste_->befehl(b.text, b.taste);
        connect(a, &QAction::triggered, this, b.slot);
        aktionen_.push_back(a);
    }
    connect(liste_, &ListenAnsicht::kontextMenue, this, [this](const QPoint& wo) {
        auto* m = new QMenu(this);
        m->setAttribute(Qt::WA_DeleteOnClose);
        for (std::size_t i = 0; i < aktionen_.size(); ++i) {
            if (i == 2 || i == 5 || i == 7) m->addSeparator();
            m->addAction(aktionen_[i]);
        }
        m->popup(wo);
    });
    connect(liste_, &ListenAnsicht::aktiviert, this, &CDlgVormerkListe::imBaumZeigen);
    connect(liste_, &ListenAnsicht::kopieren, this, [this](const std::vector<int>&) {
        app_.benutzer().zwischenablage(app_.dienste().vormerk().alsText(gewaehlte()));
    });
    connect(liste_, &ListenAnsicht::auswahlGeaendert, this, &CDlgVormerkListe::aktualisiere);

    auto* knoepfe = new QDialogButtonBox(this);
    QPushButton* text =
        knoepfe->addButton(QStringLiteral("In die &Zwischenablage"), QDialogButtonBox::ActionRole);
    knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole);
    connect(text, &QPushButton::clicked, this, &CDlgVormerkListe::alsTextKopieren);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(liste_, 1);
    layout->addWidget(knoepfe);
    resize(620, 460);
    lade();
    fertig();
}

QAction* CDlgVormerkListe::befehl(const QString& name) const {
    for (QAction* a : aktionen_)
        if (a->objectName() == name) return a;
    return nullptr;
}

void CDlgVormerkListe::lade(const VormerkEintrag* waehlen) {
    const VormerkEintrag gesucht = waehlen ? *waehlen : VormerkEintrag{};
    auto gelesen = quelle_();
    meldeErgebnis(app_, gelesen);
    eintraege_ = std::move(gelesen.wert());
    std::vector<QStringList> zeilen;
    zeilen.reserve(eintraege_.size());
    int gewaehlt = -1;
    for (std::size_t i = 0; i < eintraege_.size(); ++i) {
        const VormerkEintrag& e = eintraege_[i];
        zeilen.push_back({alsQString(e.listenName), alsQString(e.titel)});
        if (waehlen && gewaehlt < 0 && e.liste == gesucht.liste && e.typ == gesucht.typ &&
            e.id == gesucht.id)
            gewaehlt = static_cast<int>(i);
    }
    if (gewaehlt < 0 && !eintraege_.empty()) gewaehlt = 0;
    liste_->modell().setzeZeilen(std::move(zeilen));
    liste_->setzeAnzahl(alsQString(VormerkDienst::status(eintraege_.size())));
    if (gewaehlt >= 0) liste_->waehle(gewaehlt);
    aktualisiere();
}

std::vector<VormerkEintrag> CDlgVormerkListe::gewaehlte() const {
    std::vector<VormerkEintrag> v;
    for (int z : liste_->gewaehlte()) v.push_back(eintraege_[static_cast<std::size_t>(z)]);
    return v;
}

const VormerkEintrag* CDlgVormerkListe::aktueller() const {
    const int z = liste_->aktuelle();
    return z >= 0 ? &eintraege_[static_cast<std::size_t>(z)] : nullptr;
}

void CDlgVormerkListe::aktualisiere() {
    const bool da = aktueller() != nullptr;
    for (QAction* a : aktionen_) a->setEnabled(da);
}

void CDlgVormerkListe::kopieren() {
    uebertrage(false);
}

void CDlgVormerkListe::verschieben() {
    uebertrage(true);
}

void CDlgVormerkListe::uebertrage(bool verschieben) {
    const std::vector<VormerkEintrag> auswahl = gewaehlte();
    if (auswahl.empty()) return;
    auto* wahl = new CDlgVormerkName(
        this, app_, befehle_, CDlgVormerkName::Modus::Einzeln,
        verschieben ? QStringLiteral("Verschieben nach...") : QStringLiteral("Kopieren nach..."));
    wahl->setAttribute(Qt::WA_DeleteOnClose);
    connect(wahl, &QDialog::accepted, this, [this, wahl, auswahl, verschieben] {
        const long nach = wahl->aktuelle();
        VormerkDienst& v = app_.dienste().vormerk();
        for (const VormerkEintrag& e : auswahl) {
            const Ergebnis r = verschieben ? v.verschiebeNach(e.liste, nach, e.typ, e.id)
                                           : v.kopiere(e.liste, nach, e.typ, e.id);
            if (!meldeErgebnis(app_, r)) break;
        }
        lade();
    });
    wahl->open();
}

void CDlgVormerkListe::hoch() {
    verschiebe(true);
}

void CDlgVormerkListe::runter() {
    verschiebe(false);
}

void CDlgVormerkListe::verschiebe(bool hoch) {
    const VormerkEintrag* e = aktueller();
    if (!e) return;
    const VormerkEintrag kopie = *e;
    if (meldeErgebnis(app_,
                      app_.dienste().vormerk().verschiebe(kopie.liste, kopie.typ, kopie.id, hoch)))
        lade(&kopie);
}

void CDlgVormerkListe::entfernen() {
    const std::vector<VormerkEintrag> auswahl = gewaehlte();
    for (const VormerkEintrag& e : auswahl)
        if (!meldeErgebnis(app_, app_.dienste().vormerk().entferne(e.liste, e.typ, e.id))) break;
    if (!auswahl.empty()) lade();
}

void CDlgVormerkListe::tags() {
    if (const VormerkEintrag* e = aktueller()) befehle_.tags(this, {e->typ, e->id});
}

void CDlgVormerkListe::stempeltags() {
    if (const VormerkEintrag* e = aktueller()) befehle_.stempeltags(this, {e->typ, e->id});
}

void CDlgVormerkListe::imBaumZeigen() {
    if (const VormerkEintrag* e = aktueller()) befehle_.zeigen({e->typ, e->id});
}

void CDlgVormerkListe::alsTextKopieren() {
    std::vector<VormerkEintrag> alle;
    for (int z : liste_->angezeigte()) alle.push_back(eintraege_[static_cast<std::size_t>(z)]);
    app_.benutzer().zwischenablage(app_.dienste().vormerk().alsText(alle));
}

}  // namespace dv::ui
