#include "ui/widgets/TextFeld.h"

#include <QValidator>

#include "app/Zeichensatz.h"

namespace dv::ui {

namespace {

// Refuses characters the code page cannot hold (a pasted "→" and the like).
class CodepageValidator : public QValidator {
  public:
    using QValidator::QValidator;
    State validate(QString& eingabe, int&) const override {
        bool ok = true;
        (void)ausQString(eingabe, &ok);
        return ok ? Acceptable : Invalid;
    }
};

}  // namespace

TextFeld::TextFeld(int grenze, QWidget* eltern) : QLineEdit(eltern) {
    setMaxLength(grenze);
    setValidator(new CodepageValidator(this));
    setToolTip(QStringLiteral("Höchstens %1 Zeichen").arg(grenze));
}

std::string TextFeld::text8() const {
    return ausQString(text());
}

void TextFeld::setzeText8(const std::string& text) {
    setText(alsQString(text));
}

}  // namespace dv::ui
