#include "base/Einstellungen.h"

#include <QFileInfo>
#include <QSettings>
#include <memory>

namespace dv {
namespace {

const char* kOrganisation = "Tormel";
const char* kAnwendung = "DORVANO";

// Numbers are stored as unsigned integers; texts as byte arrays of their 8-bit bytes.
bool istZahl(const QVariant& v) {
    return v.isValid() && v.typeId() != QMetaType::QByteArray;
}

}  // namespace

Einstellungen::Einstellungen() = default;
Einstellungen::Einstellungen(std::string dateiPfad) : datei_(std::move(dateiPfad)) {}

static std::unique_ptr<QSettings> oeffne(const std::string& datei) {
    if (datei.empty())
        return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                           QString::fromLatin1(kOrganisation),
                                           QString::fromLatin1(kAnwendung));
    return std::make_unique<QSettings>(QString::fromStdString(datei), QSettings::IniFormat);
}

std::string Einstellungen::dateiPfad() const {
    return oeffne(datei_)->fileName().toStdString();
}

bool Einstellungen::vorhanden() const {
    return QFileInfo::exists(QString::fromStdString(dateiPfad()));
}

bool Einstellungen::getZahl(const char* name, std::uint32_t& wert) {
    if (!vorhanden()) return false;
    auto s = oeffne(datei_);
    const QVariant v = s->value(QString::fromLatin1(name));
    // A text stored under the name is neither read as a number nor overwritten.
    if (v.isValid() && !istZahl(v)) return false;
    bool ok = false;
    const std::uint32_t gelesen = v.isValid() ? v.toUInt(&ok) : 0;
    if (ok) {
        wert = gelesen;
    } else {
        // As the registry getter does: the caller's value is stored under the missing name.
        s->setValue(QString::fromLatin1(name), wert);
        s->sync();
    }
    return true;
}

bool Einstellungen::setZahl(const char* name, std::uint32_t wert) {
    auto s = oeffne(datei_);
    s->setValue(QString::fromLatin1(name), wert);
    s->sync();
    return s->status() == QSettings::NoError;
}

bool Einstellungen::getBenannt(const char* name, std::uint32_t standard, std::uint32_t& wert) {
    if (!vorhanden()) return false;
    auto s = oeffne(datei_);
    const QVariant v = s->value(QString::fromLatin1(name));
    bool ok = false;
    const std::uint32_t gelesen = istZahl(v) ? v.toUInt(&ok) : 0;
    wert = ok ? gelesen : standard;
    return true;
}

bool Einstellungen::getOhneStandard(const char* name, std::uint32_t& wert) {
    if (!vorhanden()) return false;
    auto s = oeffne(datei_);
    const QVariant v = s->value(QString::fromLatin1(name));
    bool ok = false;
    const std::uint32_t gelesen = istZahl(v) ? v.toUInt(&ok) : 0;
    if (!ok) return false;
    wert = gelesen;
    return true;
}

bool Einstellungen::getTextMax(const char* name, std::size_t puffer, std::string& text) {
    if (!vorhanden()) return false;
    auto s = oeffne(datei_);
    const QVariant v = s->value(QString::fromLatin1(name));
    if (!v.isValid() || v.typeId() != QMetaType::QByteArray) return false;
    const QByteArray bytes = v.toByteArray();
    // A value that does not fit the caller's buffer fails as the registry query does.
    if (static_cast<std::size_t>(bytes.size()) + 1 > puffer) return false;
    text.assign(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return true;
}

bool Einstellungen::getText(const char* name, std::string& text) {
    return getTextMax(name, 256, text);
}

bool Einstellungen::setText(const char* name, const std::string& text) {
    auto s = oeffne(datei_);
    s->setValue(QString::fromLatin1(name),
                QByteArray(text.data(), static_cast<qsizetype>(text.size())));
    s->sync();
    return s->status() == QSettings::NoError;
}

bool Einstellungen::loescheFensterPosition(const char* name) {
    if (!vorhanden()) return false;
    auto s = oeffne(datei_);
    s->remove(QString::fromLatin1(name));
    s->sync();
    return true;
}

}  // namespace dv
