#pragma once
// "Import-Info" ("WP_importinfo"): before each file of an import of several box
// files, its "Box-Titel:", "EAN:", "Anzahl Dvds:" and "Exportiert am:"; "OK"
// imports the file, "Abbrechen" skips it.

#include <string>
#include <utility>
#include <vector>

#include "ui/dialoge/Dialog.h"

namespace dv::ui {

class CDlgImportInfo : public Dialog {
    Q_OBJECT
  public:
    // felder: label and value (catalogue code page), in order.
    CDlgImportInfo(QWidget* eltern, CApplikation& app, const QString& titel,
                   const std::vector<std::pair<std::string, std::string>>& felder);
};

}  // namespace dv::ui
