#include "bench/generator/Cover.h"

#include <QFont>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>

#include "base/Ordner.h"
#include "base/Zeichensatz.h"
#include "bench/generator/Namen.h"
#include "storage/Katalog.h"

namespace dv::generator {

namespace {

constexpr int kBreite = 300, kHoehe = 420;  // the proportions of a DVD case's front

QColor ton(Zufall& z, int hell) {
    return QColor::fromHsv(static_cast<int>(z.bis(360)), 90 + static_cast<int>(z.bis(120)), hell);
}

void maleHintergrund(QPainter& p, Zufall& z) {
    QLinearGradient verlauf(0, 0, kBreite * 0.3, kHoehe);
    verlauf.setColorAt(0, ton(z, 200));
    verlauf.setColorAt(1, ton(z, 40));
    p.fillRect(0, 0, kBreite, kHoehe, verlauf);
    p.setPen(Qt::NoPen);
    for (int i = 0, n = 3 + static_cast<int>(z.bis(4)); i < n; ++i) {
        QColor c = ton(z, 255);
        c.setAlpha(40 + static_cast<int>(z.bis(60)));
        p.setBrush(c);
        const int r = 30 + static_cast<int>(z.bis(110));
        p.drawEllipse(QPoint(static_cast<int>(z.bis(kBreite)), static_cast<int>(z.bis(kHoehe))), r,
                      r);
    }
}

void maleTexte(QPainter& p, const QString& titel, long id) {
    QFont schrift(QStringLiteral("Sans"));
    schrift.setBold(true);
    schrift.setPixelSize(34);
    p.setFont(schrift);
    const QRect feld(20, 90, kBreite - 40, kHoehe - 180);
    const int flags = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;
    p.setPen(QColor(0, 0, 0, 150));
    p.drawText(feld.translated(2, 2), flags, titel);
    p.setPen(Qt::white);
    p.drawText(feld, flags, titel);
    // A band with an edition line at the top and the box number at the bottom, as
    // on a retail case.
    p.fillRect(0, 0, kBreite, 44, QColor(0, 0, 0, 170));
    schrift.setPixelSize(24);
    p.setFont(schrift);
    p.drawText(QRect(0, 0, kBreite, 44), Qt::AlignCenter, QStringLiteral("DEMO-EDITION"));
    schrift.setBold(false);
    schrift.setPixelSize(14);
    p.setFont(schrift);
    p.drawText(QRect(0, kHoehe - 30, kBreite - 12, 24), Qt::AlignRight | Qt::AlignVCenter,
               QStringLiteral("Nr. %1").arg(id));
}

}  // namespace

bool maleCover(const std::string& basis, long* anzahl, std::string* fehler) {
    Ordner ordner;
    ordner.setzeBasis(basis);
    SpeicherUmgebung u;
    u.datenOrdner = ordner.daten;
    Katalog k(u);
    ListenBesitz boxen = besitze(k.Box, k.Box.selectAll());
    long n = 0;
    for (ListenElement* e = boxen.get(); e; e = e->pNext) {
        const auto* box = static_cast<const Zeile12*>(e->pObjekt);
        Zufall z(static_cast<std::uint64_t>(box->Id) * 7919u);
        QImage bild(kBreite, kHoehe, QImage::Format_RGB32);
        QPainter p(&bild);
        p.setRenderHint(QPainter::Antialiasing);
        maleHintergrund(p, z);
        maleTexte(p, alsQString(box->cpText), box->Id);
        p.end();
        const std::string pfad = ordner.cover + std::to_string(box->Id) + ".jpg";
        if (!bild.save(QString::fromStdString(pfad), "JPG", 85)) {
            if (fehler) *fehler = "Cover nicht schreibbar: " + pfad;
            return false;
        }
        ++n;
    }
    if (anzahl) *anzahl = n;
    return true;
}

}  // namespace dv::generator
