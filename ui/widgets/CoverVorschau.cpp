#include "ui/widgets/CoverVorschau.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeData>

namespace dv::ui {

QString bildDatei(const QMimeData* daten) {
    if (!daten) return {};
    const QList<QByteArray> formate = QImageReader::supportedImageFormats();
    for (const QUrl& url : daten->urls()) {
        if (!url.isLocalFile()) continue;
        const QByteArray endung = QFileInfo(url.toLocalFile()).suffix().toLower().toLatin1();
        if (formate.contains(endung)) return url.toLocalFile();
    }
    return {};
}

CoverVorschau::CoverVorschau(QWidget* eltern) : QLabel(eltern) {
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::StyledPanel);
    setMinimumSize(160, 200);
    setWordWrap(true);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setAcceptDrops(true);
    setToolTip(QStringLiteral("Ein Bild hierher ziehen, um es als Cover zu nehmen"));
    zeige(QString());
}

bool CoverVorschau::zeige(const QString& datei) {
    bild_ = datei.isEmpty() ? QPixmap() : QPixmap(datei);
    if (bild_.isNull()) {
        clear();
        // Where nothing is shown, say how to get a picture there.
        setText(QStringLiteral("Kein Cover\n\nEin Bild hierher ziehen\noder „Cover wählen...“"));
    }
    setAccessibleDescription(bild_.isNull() ? QStringLiteral("Kein Cover")
                                            : QFileInfo(datei).fileName());
    skaliere();
    return datei.isEmpty() || !bild_.isNull();
}

void CoverVorschau::dragEnterEvent(QDragEnterEvent* ereignis) {
    if (!bildDatei(ereignis->mimeData()).isEmpty()) ereignis->acceptProposedAction();
}

void CoverVorschau::dropEvent(QDropEvent* ereignis) {
    const QString datei = bildDatei(ereignis->mimeData());
    if (datei.isEmpty()) return;
    ereignis->acceptProposedAction();
    emit dateiAbgelegt(datei);
}

void CoverVorschau::resizeEvent(QResizeEvent* ereignis) {
    QLabel::resizeEvent(ereignis);
    skaliere();
}

void CoverVorschau::skaliere() {
    if (bild_.isNull()) return;
    setPixmap(bild_.scaled(contentsRect().size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

}  // namespace dv::ui
