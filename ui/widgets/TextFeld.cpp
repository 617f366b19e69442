#include "ui/widgets/TextFeld.h"

#include <QToolTip>
#include <QValidator>

#include "app/Zeichensatz.h"

namespace dv::ui {

namespace {

// Refuses characters the code page cannot hold (a pasted "→" and the like) and
// keeps them for the hint.
class CodepageValidator : public QValidator {
  public:
    using QValidator::QValidator;
    State validate(QString& eingabe, int&) const override {
        fremd_.clear();
        bool ok = true;
        (void)ausQString(eingabe, &ok);
        if (ok) return Acceptable;
        for (const char32_t c : eingabe.toUcs4()) {
            const QString zeichen = QString::fromUcs4(&c, 1);
            bool einzeln = true;
            (void)ausQString(zeichen, &einzeln);
            if (!einzeln && !fremd_.contains(zeichen)) fremd_ += zeichen;
        }
        return Invalid;
    }
    // The characters of the last refused input ("" when it was taken).
    const QString& fremd() const { return fremd_; }

  private:
    mutable QString fremd_;
};

}  // namespace

TextFeld::TextFeld(int grenze, QWidget* eltern) : QLineEdit(eltern) {
    setMaxLength(grenze);
    auto* pruefer = new CodepageValidator(this);
    setValidator(pruefer);
    setToolTip(QStringLiteral("Höchstens %1 Zeichen").arg(grenze));
    // A refused key or paste says why, beside the field, without a dialog in the way.
    connect(this, &QLineEdit::inputRejected, this, [this, pruefer] {
        const QString grund =
            pruefer->fremd().isEmpty()
                ? QStringLiteral("Höchstens %1 Zeichen").arg(maxLength())
                : QStringLiteral("Zeichen nicht darstellbar: %1").arg(pruefer->fremd());
        QToolTip::showText(mapToGlobal(QPoint(0, height())), grund, this);
    });
}

std::string TextFeld::text8() const {
    return ausQString(text());
}

void TextFeld::setzeText8(const std::string& text) {
    setText(alsQString(text));
}

}  // namespace dv::ui
