#include "ui/widgets/EintragWahl.h"

#include <QCompleter>

#include "app/Grenzen.h"
#include "app/Zeichensatz.h"
#include "ui/widgets/TextFeld.h"

namespace dv::ui {

EintragWahl::EintragWahl(bool leer, QWidget* eltern) : QComboBox(eltern), leer_(leer) {
    setEditable(true);
    setLineEdit(new TextFeld(static_cast<int>(kMaxLookupName), this));
    setInsertPolicy(QComboBox::NoInsert);
    setMaxVisibleItems(20);
    completer()->setCaseSensitivity(Qt::CaseInsensitive);
    completer()->setFilterMode(Qt::MatchContains);
    completer()->setCompletionMode(QCompleter::PopupCompletion);
}

void EintragWahl::setzeEintraege(const std::vector<Eintrag>& eintraege) {
    const QString text = currentText();
    clear();
    if (leer_) addItem(QString(), 0LL);
    for (const Eintrag& e : eintraege) addItem(alsQString(e.name), static_cast<qlonglong>(e.id));
    setEditText(text);
}

void EintragWahl::setzeEintrag(const Eintrag& e) {
    if (e.id <= 0 && e.name.empty()) {
        setCurrentIndex(leer_ ? 0 : -1);
        setEditText(QString());
        return;
    }
    int i = e.id > 0 ? findData(static_cast<qlonglong>(e.id)) : -1;
    if (i < 0) {
        addItem(alsQString(e.name), static_cast<qlonglong>(e.id));
        i = count() - 1;
    }
    setCurrentIndex(i);
}

Eintrag EintragWahl::eintrag() const {
    const QString text = currentText().trimmed();
    if (text.isEmpty()) return {};
    // Exactly the listed text first, then the same name in other letter case.
    for (const Qt::MatchFlags art : {Qt::MatchFlags(Qt::MatchExactly | Qt::MatchCaseSensitive),
                                     Qt::MatchFlags(Qt::MatchFixedString)}) {
        const int i = findText(text, art);
        if (i >= 0 && itemData(i).toLongLong() > 0)
            return {static_cast<long>(itemData(i).toLongLong()), ausQString(itemText(i))};
    }
    return {0, ausQString(text)};
}

}  // namespace dv::ui
