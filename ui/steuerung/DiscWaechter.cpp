#include "ui/steuerung/DiscWaechter.h"

#include <QThread>
#include <QTimer>
#include <memory>

#include "app/CApplikation.h"
#include "app/OptionenDienst.h"
#include "app/Zeichensatz.h"
#include "ui/baum/KatalogAnsicht.h"

namespace dv::ui {

namespace {

constexpr int kTaktMs = 3000;

struct Lesung {
    bool gelesen = false;
    DiscInfo info;
};

}  // namespace

DiscWaechter::DiscWaechter(CApplikation& app, KatalogAnsicht& baum, QObject* eltern)
    : QObject(eltern),
      app_(app),
      baum_(baum),
      laufwerke_(&systemLaufwerke()),
      uhr_(new QTimer(this)) {
    connect(uhr_, &QTimer::timeout, this, &DiscWaechter::starteLesung);
    setzeTakt(kTaktMs);
}

DiscWaechter::~DiscWaechter() {
    if (leser_) {
        leser_->wait();
        delete leser_;
    }
}

void DiscWaechter::setzeTakt(int ms) {
    uhr_->stop();
    if (ms > 0) uhr_->start(ms);
}

bool DiscWaechter::bereit(char& buchstabe) {
    if (!OptionenDienst(app_).lade().discErkennung()) return false;
    buchstabe = LaufwerkDienst(app_, *laufwerke_).standardLaufwerk();
    return buchstabe != 0;
}

void DiscWaechter::pruefeJetzt() {
    char buchstabe = 0;
    if (!bereit(buchstabe)) return;
    DiscInfo info;
    const bool gelesen = LaufwerkDienst::leseStill(*laufwerke_, buchstabe, info);
    werteAus(gelesen, info);
}

void DiscWaechter::starteLesung() {
    char buchstabe = 0;
    if (leser_ || !bereit(buchstabe)) return;
    Laufwerke* laufwerke = laufwerke_;
    auto lesung = std::make_shared<Lesung>();
    leser_ = QThread::create([laufwerke, buchstabe, lesung] {
        lesung->gelesen = LaufwerkDienst::leseStill(*laufwerke, buchstabe, lesung->info);
    });
    connect(leser_, &QThread::finished, this, [this, lesung] {
        leser_->deleteLater();
        leser_ = nullptr;
        werteAus(lesung->gelesen, lesung->info);
    });
    leser_->start();
}

void DiscWaechter::werteAus(bool gelesen, const DiscInfo& info) {
    if (!gelesen) {
        // An empty drive: the next disc counts as new, even the same one again.
        zuletzt_.reset();
        return;
    }
    const auto kennung = std::make_tuple(info.SN, info.BytesLow, info.BytesHigh);
    if (zuletzt_ == kennung) return;
    zuletzt_ = kennung;
    const DiscFund fund = LaufwerkDienst(app_, *laufwerke_).finde(info);
    if (fund.dvdId > 0 && baum_.zeige(2, fund.dvdId)) {
        emit gemeldet(QStringLiteral("Eingelegte DVD erkannt: ") +
                      alsQString(app_.dienste().katalog().name(2, fund.dvdId)));
        return;
    }
    emit gemeldet(QStringLiteral("Unbekannte DVD „%1“ eingelegt: mit „Daten › Web-Import...“ "
                                 "in den Katalog holen.")
                      .arg(alsQString(info.volumenName)));
}

}  // namespace dv::ui
