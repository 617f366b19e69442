#include "ui/dialoge/webimport/Weiterleitung.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace dv::ui {

template <class T, class F>
T Weiterleitung::imGuiFaden(T nein, F f) {
    QCoreApplication* app = QCoreApplication::instance();
    if (aufgegeben_ || !app) return nein;
    if (QThread::currentThread() == app->thread()) return f();
    T antwort = nein;
    // Checked again on the GUI thread: the window may have given up meanwhile.
    QMetaObject::invokeMethod(
        app, [&] { antwort = aufgegeben_ ? nein : f(); }, Qt::BlockingQueuedConnection);
    return antwort;
}

void Weiterleitung::warte(QThread& faden) {
    // Only the calls queued to the application object are run, so no window
    // event reaches a dialog that is being taken down.
    while (!faden.wait(QDeadlineTimer(20)))
        QCoreApplication::sendPostedEvents(QCoreApplication::instance(), QEvent::MetaCall);
}

bool Weiterleitung::frage(const std::string& titel, const std::string& text) {
    return imGuiFaden(true, [&] { return ziel_.frage(titel, text); });
}

void Weiterleitung::meldung(const std::string& titel, const std::string& text, Symbol symbol) {
    imGuiFaden(0, [&] {
        ziel_.meldung(titel, text, symbol);
        return 0;
    });
}

ObjektAntwort Weiterleitung::objektBestaetigen(const ObjektDialog& dialog) {
    return imGuiFaden(ObjektAntwort{}, [&] { return ziel_.objektBestaetigen(dialog); });
}

std::vector<int> Weiterleitung::waehle(const std::string& titel, const std::string& spalte,
                                       const std::vector<std::string>& eintraege, bool mehrfach,
                                       int vorauswahl) {
    return imGuiFaden(std::vector<int>{},
                      [&] { return ziel_.waehle(titel, spalte, eintraege, mehrfach, vorauswahl); });
}

bool Weiterleitung::info(const std::string& titel,
                         const std::vector<std::pair<std::string, std::string>>& felder) {
    return imGuiFaden(false, [&] { return ziel_.info(titel, felder); });
}

void Weiterleitung::zeigeText(const std::string& titel, const std::string& text) {
    imGuiFaden(0, [&] {
        ziel_.zeigeText(titel, text);
        return 0;
    });
}

void Weiterleitung::fortschritt(const std::string& text, int schritt, int gesamt) {
    imGuiFaden(0, [&] {
        ziel_.fortschritt(text, schritt, gesamt);
        return 0;
    });
}

bool Weiterleitung::zwischenablage(const std::string& text) {
    return imGuiFaden(false, [&] { return ziel_.zwischenablage(text); });
}

}  // namespace dv::ui
