#include "ui/widgets/CoverFeld.h"

#include <QLabel>
#include <QVBoxLayout>

namespace dv::ui {

CoverFeld::CoverFeld(QWidget* eltern)
    : QWidget(eltern), bildFeld_(new QLabel(this)), angaben_(new QLabel(this)) {
    setObjectName(QStringLiteral("Cover"));
    setAccessibleName(QStringLiteral("Cover"));
    bildFeld_->setObjectName(QStringLiteral("Coverbild"));
    bildFeld_->setAlignment(Qt::AlignCenter);
    bildFeld_->setMinimumSize(120, 120);
    bildFeld_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    bildFeld_->setFrameShape(QFrame::StyledPanel);
    angaben_->setObjectName(QStringLiteral("Boxangaben"));
    angaben_->setWordWrap(true);
    angaben_->setTextFormat(Qt::RichText);
    angaben_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    angaben_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(bildFeld_, 1);
    layout->addWidget(angaben_);
    leeren();
}

void CoverFeld::zeige(const CoverDaten& d) {
    bild_ = d.coverDatei.isEmpty() ? QPixmap() : QPixmap(d.coverDatei);
    if (bild_.isNull()) bildFeld_->setText(QStringLiteral("Kein Cover"));
    QStringList zeilen;
    zeilen << QStringLiteral("<b>%1</b>").arg(d.titel.toHtmlEscaped());
    zeilen << QStringLiteral("EAN: %1").arg(d.ean.isEmpty() ? QStringLiteral("–") : d.ean);
    zeilen << QStringLiteral("Verpackung: %1")
                  .arg(d.verpackung.isEmpty() ? QStringLiteral("–") : d.verpackung);
    zeilen << QStringLiteral("%1 DVD%2, %3 Film%4")
                  .arg(d.dvds)
                  .arg(d.dvds == 1 ? QString() : QStringLiteral("s"))
                  .arg(d.filme)
                  .arg(d.filme == 1 ? QString() : QStringLiteral("e"));
    angaben_->setText(zeilen.join(QStringLiteral("<br>")));
    zeilen[0] = d.titel;
    text_ = zeilen.join(QLatin1Char('\n'));
    angaben_->setAccessibleName(text_);
    bildFeld_->setAccessibleName(bild_.isNull() ? QStringLiteral("Kein Cover")
                                                : QStringLiteral("Cover von ") + d.titel);
    skaliere();
}

void CoverFeld::leeren() {
    bild_ = QPixmap();
    bildFeld_->setText(QStringLiteral("Kein Cover"));
    bildFeld_->setAccessibleName(bildFeld_->text());
    angaben_->clear();
    text_.clear();
}

QString CoverFeld::beschreibung() const {
    return (bild_.isNull() ? QStringLiteral("Kein Cover\n") : QString()) + text_;
}

void CoverFeld::resizeEvent(QResizeEvent* ereignis) {
    QWidget::resizeEvent(ereignis);
    skaliere();
}

void CoverFeld::skaliere() {
    if (bild_.isNull()) return;
    bildFeld_->setPixmap(
        bild_.scaled(bildFeld_->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

}  // namespace dv::ui
