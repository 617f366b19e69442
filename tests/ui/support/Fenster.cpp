#include "tests/ui/support/Fenster.h"

#include <QAction>
#include <QTreeView>

#include "base/Zeichensatz.h"
#include "ui/aktionen/Aktionen.h"
#include "ui/baum/KatalogAnsicht.h"
#include "ui/baum/KatalogModell.h"

namespace dv::test {

QString q(const std::string& cp1252) {
    return alsQString(cp1252);
}

Fenster::Fenster() : einstellungen(tmp / "einstellungen.conf"), app(benutzer, einstellungen) {
    if (!app.starte(tmp / "programm")) throw std::runtime_error("Programmordner");
}

Fenster::~Fenster() {
    fenster_.reset();
}

ui::CDorvanoDlg& Fenster::fenster() {
    if (!fenster_) {
        fenster_ = std::make_unique<ui::CDorvanoDlg>(app);
        fenster_->show();
        // Shortcuts work only in the active window.
        QApplication::setActiveWindow(fenster_.get());
    }
    return *fenster_;
}

ui::CDorvanoDlg& Fenster::neuesFenster() {
    if (fenster_) fenster_->close();
    fenster_.reset();
    return fenster();
}

std::string Fenster::letzteFrage() const {
    return benutzer.fragen.empty() ? std::string() : benutzer.fragen.back().text;
}

std::string Fenster::letzteMeldung() const {
    return benutzer.meldungen.empty() ? std::string() : benutzer.meldungen.back().text;
}

std::string Fenster::letzterMeldungsTitel() const {
    return benutzer.meldungen.empty() ? std::string() : benutzer.meldungen.back().titel;
}

bool Fenster::loese(int befehlsId) {
    QAction* a = fenster().aktionen().aktion(befehlsId);
    if (!a || !a->isEnabled()) return false;
    a->trigger();
    QApplication::processEvents();
    return true;
}

bool Fenster::aktiv(int befehlsId) {
    QAction* a = fenster().aktionen().aktion(befehlsId);
    return a && a->isEnabled();
}

bool Fenster::waehle(int typ, long id) {
    const bool gefunden = fenster().katalog().zeige(typ, id);
    QApplication::processEvents();
    return gefunden;
}

QString Fenster::aktuellerText() {
    return fenster().katalog().aktuell().data().toString();
}

QStringList Fenster::kinder(const QModelIndex& index) {
    ui::KatalogModell& m = fenster().katalog().modell();
    if (m.canFetchMore(index)) m.fetchMore(index);
    QStringList texte;
    for (int i = 0; i < m.rowCount(index); ++i) texte << m.index(i, 0, index).data().toString();
    return texte;
}

QModelIndex Fenster::wurzel() {
    return fenster().katalog().modell().wurzel();
}

QModelIndex Fenster::knoten(int typ, long id) {
    return fenster().katalog().modell().finde(typ, id);
}

// The value of a service's answer; a refusal ends the test's set-up.
template <class R>
static auto wert(R antwort) {
    if (!antwort.ok()) throw std::runtime_error(antwort.grund());
    return antwort.wert();
}

NeueBox Fenster::neueBox(const std::string& titel, const std::string& ean) {
    BoxWerte w;
    w.titel = titel;
    w.ean = ean;
    return wert(app.dienste().objekte().neueBox(w));
}

long Fenster::neueDvd(long box, const std::string& titel) {
    DvdWerte w;
    w.titel = titel;
    return wert(app.dienste().objekte().neueDvd(box, w));
}

long Fenster::neuerFilm(long dvd, const std::string& titel) {
    FilmWerte w;
    w.titel = titel;
    return wert(app.dienste().objekte().neuerFilm(dvd, w));
}

}  // namespace dv::test
