#pragma once
// An editable choice of one lookup entry (packaging, format, language, sound
// format, function): the catalogue's entries to pick from, completing as the
// user types; a name that is not in the catalogue yet becomes an entry to be
// created when the dialog's OK stores it (letter case ignored when matching,
// as the box import matches names). The text takes at most the record field's
// characters and only what the code page holds.

#include <QComboBox>
#include <vector>

#include "app/Werte.h"

namespace dv::ui {

class EintragWahl : public QComboBox {
    Q_OBJECT
  public:
    // leer: whether "none" (an empty text) is a choice.
    explicit EintragWahl(bool leer, QWidget* eltern = nullptr);

    void setzeEintraege(const std::vector<Eintrag>& eintraege);
    // Shows e (an entry not in the list is added to it).
    void setzeEintrag(const Eintrag& e);
    // The entry of the text: the listed one of that name, else {0, text};
    // {0, ""} for an empty text.
    Eintrag eintrag() const;

  private:
    bool leer_;
};

}  // namespace dv::ui
