#include "ui/dialoge/vormerk/CDlgVormerkName.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QMenu>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "app/CApplikation.h"
#include "app/Zeichensatz.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/dialoge/haupt/EingabeDlg.h"
#include "ui/dialoge/suche/Dateiwahl.h"
#include "ui/dialoge/suche/Liste.h"
#include "ui/dialoge/vormerk/CDlgVormerkListe.h"

namespace dv::ui {

namespace {

enum Art { kInhalt, kVereinigung, kSchnitt, kKomplement };

QString anzahlText(std::size_t n) {
    return n == 1 ? QStringLiteral("1 Vormerkliste")
                  : QStringLiteral("%1 Vormerklisten").arg(static_cast<qulonglong>(n));
}

}  // namespace

CDlgVormerkName::CDlgVormerkName(QWidget* eltern, CApplikation& app, Objektbefehle& befehle,
                                 Modus modus, const QString& titel)
    : Dialog(eltern, app, "WP_vormerkname", titel),
      befehle_(befehle),
      modus_(modus),
      liste_(new ListenAnsicht(QStringLiteral("Vormerklisten"), {QStringLiteral("Vormerkliste")},
                               this)) {
    liste_->modell().setzeAbhakbar(modus != Modus::Einzeln);
    if (modus == Modus::Einzeln) liste_->setzeEinzelwahl();
    auto* knoepfe = new QDialogButtonBox(this);
    auto* neu = knoepfe->addButton(QStringLiteral("&Neu..."), QDialogButtonBox::ActionRole);
    connect(neu, &QPushButton::clicked, this, &CDlgVormerkName::neu);
    if (modus == Modus::Verwalten) {
        anzeigen_ = knoepfe->addButton(QStringLiteral("&Anzeigen"), QDialogButtonBox::ActionRole);
        connect(anzeigen_, &QPushButton::clicked, this, &CDlgVormerkName::anzeigen);
        anzeigen_->setDefault(true);
        knoepfe->addButton(QStringLiteral("Schl&ießen"), QDialogButtonBox::RejectRole);
        // Space ticks a list, Enter shows the ticked ones.
    } else {
        ok_ = knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
        ok_->setDefault(true);
        knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
        connect(knoepfe, &QDialogButtonBox::accepted, this, &QDialog::accept);
    }
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);
    baueBefehle();
    connect(&liste_->modell(), &TextTabelle::hakenGeaendert, this, &CDlgVormerkName::aktualisiere);
    connect(liste_, &ListenAnsicht::auswahlGeaendert, this, &CDlgVormerkName::aktualisiere);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(liste_, 1);
    layout->addWidget(knoepfe);
    resize(380, 420);
    lade();
    fertig();
}

// The context menu's commands; those that need checked lists are collected.
void CDlgVormerkName::baueBefehle() {
    const struct {
        const char* text;
        const char* taste;
        void (CDlgVormerkName::*slot)();
        bool brauchtHaken;
        bool nurVerwalten;
    } kBefehle[] = {
        {"&Neu", "Ins", &CDlgVormerkName::neu, false, false},
        {"&Import", nullptr, &CDlgVormerkName::importieren, false, true},
        {"&Export", nullptr, &CDlgVormerkName::exportieren, true, true},
        {"&Vereinigen", nullptr, &CDlgVormerkName::vereinigen, true, true},
        {"&Schneiden", nullptr, &CDlgVormerkName::schneiden, true, true},
        {"&Komplement", nullptr, &CDlgVormerkName::komplement, true, true},
        {"&Umbenennen...", "F2", &CDlgVormerkName::umbenennen, false, false},
        {"&Löschen...", "Del", &CDlgVormerkName::loeschen, false, true},
    };
    auto* menue = new QMenu(this);
    menue->setObjectName(QStringLiteral("Kontextmenü"));
    for (const auto& b : kBefehle) {
        if (b.nurVerwalten && modus_ != Modus::Verwalten) continue;
        if (b.slot == &CDlgVormerkName::vereinigen || b.slot == &CDlgVormerkName::umbenennen)
            menue->addSeparator();
        QAction* a = liste_->befehl(b.text, b.taste);
        menue->addAction(a);
        connect(a, &QAction::triggered, this, b.slot);
        if (b.brauchtHaken) mitAuswahl_.push_back(a);
    }
    liste_->ansicht()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(liste_->ansicht(), &QWidget::customContextMenuRequested, this,
            [this, menue](const QPoint& p) {
                aktualisiere();
                menue->popup(liste_->ansicht()->viewport()->mapToGlobal(p));
            });
}

QAction* CDlgVormerkName::befehl(const QString& name) const {
    for (QAction* a : findChildren<QAction*>())
        if (a->objectName() == name) return a;
    return nullptr;
}

void CDlgVormerkName::aktualisiere() {
    const bool gehakt = !abgehakte().empty();
    for (QAction* a : mitAuswahl_) a->setEnabled(gehakt);
    const bool aktuell = liste_->aktuelle() >= 0;
    if (QAction* a = befehl(QStringLiteral("Umbenennen..."))) a->setEnabled(aktuell);
    if (QAction* a = befehl(QStringLiteral("Löschen..."))) a->setEnabled(aktuell);
    if (ok_) ok_->setEnabled(modus_ == Modus::Einzeln ? aktuell : gehakt);
    if (anzeigen_) anzeigen_->setEnabled(gehakt);
}

void CDlgVormerkName::lade(long waehlen) {
    const std::vector<long> gehakt = abgehakte();
    ids_.clear();
    namen_.clear();
    std::vector<QStringList> zeilen;
    int gewaehlt = -1;
    for (const Benannt& l : app_.dienste().vormerk().liste()) {
        if (l.id == waehlen) gewaehlt = static_cast<int>(ids_.size());
        ids_.push_back(l.id);
        namen_.push_back(l.name);
        zeilen.push_back({alsQString(l.name)});
    }
    liste_->modell().setzeZeilen(std::move(zeilen));
    for (long id : gehakt) hake(id);
    liste_->setzeAnzahl(anzahlText(ids_.size()));
    if (gewaehlt < 0 && !ids_.empty()) gewaehlt = 0;
    if (gewaehlt >= 0) liste_->waehle(gewaehlt);
    aktualisiere();
}

std::vector<long> CDlgVormerkName::abgehakte() const {
    std::vector<long> v;
    for (int z : liste_->modell().abgehakte()) v.push_back(ids_[static_cast<std::size_t>(z)]);
    return v;
}

long CDlgVormerkName::aktuelle() const {
    const int z = liste_->aktuelle();
    return z >= 0 ? ids_[static_cast<std::size_t>(z)] : 0;
}

void CDlgVormerkName::hake(long id, bool an) {
    auto it = std::find(ids_.begin(), ids_.end(), id);
    if (it != ids_.end()) liste_->modell().setzeAbgehakt(static_cast<int>(it - ids_.begin()), an);
}

void CDlgVormerkName::neu() {
    auto* dlg = new EingabeDlg(this, app_, "WP_vormerkneu", QStringLiteral("Neue Vormerkliste"),
                               QStringLiteral("&Name der Vormerkliste:"), std::string(),
                               static_cast<int>(kMaxLookupName));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this, [this, dlg] {
        auto id = app_.dienste().vormerk().neu(dlg->text8());
        if (!meldeErgebnis(app_, id)) return;
        lade(id.wert());
        // A list made while choosing is the one wanted.
        if (modus_ == Modus::Mehrfach) hake(id.wert());
    });
    dlg->open();
}

void CDlgVormerkName::umbenennen() {
    const long id = aktuelle();
    if (id <= 0) return;
    const std::string alt = namen_[static_cast<std::size_t>(liste_->aktuelle())];
    auto* dlg = new EingabeDlg(this, app_, "WP_vormerkneu", QStringLiteral("Umbenennen"),
                               QStringLiteral("&Neuer Name der Vormerkliste:"), alt,
                               static_cast<int>(kMaxLookupName));
    dlg->setAttribute(Qt::WA_DeleteOnClose);
    connect(dlg, &QDialog::accepted, this, [this, dlg, id] {
        if (meldeErgebnis(app_, app_.dienste().vormerk().umbenennen(id, dlg->text8()))) lade(id);
    });
    dlg->open();
}

void CDlgVormerkName::loeschen() {
    const long id = aktuelle();
    if (id <= 0) return;
    const std::string& name = namen_[static_cast<std::size_t>(liste_->aktuelle())];
    if (!app_.benutzer().frage("Löschen", "Vormerkliste \"" + name + "\" wirklich löschen?"))
        return;
    if (meldeErgebnis(app_, app_.dienste().vormerk().loesche(id))) lade();
}

void CDlgVormerkName::importieren() {
    waehleLadeDatei(this, app_, QStringLiteral("Vormerklisten laden"), QStringLiteral("vml"),
                    [this](const std::string& pfad) {
                        meldeErgebnis(app_, app_.dienste().vormerk().importiere(pfad));
                        lade(aktuelle());
                    });
}

void CDlgVormerkName::exportieren() {
    const std::vector<long> listen = abgehakte();
    if (listen.empty()) return;
    waehleSpeicherDatei(this, app_, QStringLiteral("Vormerklisten speichern"),
                        QStringLiteral("Vormerklisten.vml"), QStringLiteral("vml"),
                        [this, listen](const std::string& pfad) {
                            meldeErgebnis(app_, app_.dienste().vormerk().exportiere(pfad, listen));
                        });
}

void CDlgVormerkName::anzeigen() {
    zeigeInhalt(QStringLiteral("Vormerkliste"), abgehakte(), kInhalt);
}

void CDlgVormerkName::vereinigen() {
    zeigeInhalt(QStringLiteral("Vereinigung"), abgehakte(), kVereinigung);
}

void CDlgVormerkName::schneiden() {
    zeigeInhalt(QStringLiteral("Schnitt"), abgehakte(), kSchnitt);
}

void CDlgVormerkName::komplement() {
    const std::vector<long> erste = abgehakte();
    if (erste.empty()) return;
    auto* zweite = new CDlgVormerkName(this, app_, befehle_, Modus::Mehrfach,
                                       QStringLiteral("Bitte die zweite Liste auswählen..."));
    zweite->setAttribute(Qt::WA_DeleteOnClose);
    connect(zweite, &QDialog::accepted, this, [this, zweite, erste] {
        zeigeInhalt(QStringLiteral("Komplement"), erste, kKomplement, zweite->abgehakte());
    });
    zweite->open();
}

void CDlgVormerkName::zeigeInhalt(const QString& titel, const std::vector<long>& listen, int art,
                                  const std::vector<long>& gegen) {
    if (listen.empty()) return;
    VormerkDienst& v = app_.dienste().vormerk();
    CDlgVormerkListe::Quelle quelle = [&v, listen, art, gegen] {
        switch (art) {
            case kVereinigung:
                return v.vereinigung(listen);
            case kSchnitt:
                return v.schnitt(listen);
            case kKomplement:
                return v.komplement(listen, gegen);
            default:
                return v.inhalt(listen);
        }
    };
    auto* ansicht = new CDlgVormerkListe(this, app_, befehle_, titel, std::move(quelle));
    ansicht->setAttribute(Qt::WA_DeleteOnClose);
    ansicht->open();
}

}  // namespace dv::ui
