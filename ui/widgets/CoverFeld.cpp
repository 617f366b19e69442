#include "ui/widgets/CoverFeld.h"

#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

namespace dv::ui {

CoverFeld::CoverFeld(QWidget* eltern)
    : QWidget(eltern), bildFeld_(new QLabel(this)), angaben_(new QLabel(this)) {
    setObjectName(QStringLiteral("Cover"));
    setAccessibleName(QStringLiteral("Cover"));
    bildFeld_->setObjectName(QStringLiteral("Coverbild"));
    bildFeld_->setAlignment(Qt::AlignCenter);
    bildFeld_->setMinimumSize(120, 120);
    bildFeld_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    angaben_->setObjectName(QStringLiteral("Boxangaben"));
    angaben_->setWordWrap(true);
    angaben_->setTextFormat(Qt::RichText);
    angaben_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    angaben_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    // The picture takes the height it needs, the box's data follow right below
    // it, and what is left stays empty at the bottom.
    layout->addWidget(bildFeld_, 1);
    layout->addWidget(angaben_);
    layout->addStretch(0);
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
    skaliere();
}

QString CoverFeld::beschreibung() const {
    return (bild_.isNull() ? QStringLiteral("Kein Cover\n") : QString()) + text_;
}

void CoverFeld::resizeEvent(QResizeEvent* ereignis) {
    QWidget::resizeEvent(ereignis);
    skaliere();
}

// Sized from the pane, never from the picture's own label, so that a new
// height cannot feed back into the next scaling.
void CoverFeld::skaliere() {
    const int abstand = layout()->spacing();
    const QSize frei(width(), std::max(bildFeld_->minimumHeight(),
                                       height() - angaben_->heightForWidth(width()) - abstand));
    // Without a picture a framed place of a cover's shape stands for it.
    bildFeld_->setFrameShape(bild_.isNull() ? QFrame::StyledPanel : QFrame::NoFrame);
    if (bild_.isNull()) {
        bildFeld_->setMaximumHeight(std::min(frei.height(), frei.width() * 7 / 5));
        return;
    }
    const QPixmap bild = bild_.scaled(frei, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    bildFeld_->setMaximumHeight(bild.height());
    bildFeld_->setPixmap(bild);
}

}  // namespace dv::ui
