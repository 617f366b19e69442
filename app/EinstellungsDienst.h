#pragma once
// The settings beside the options (see OptionenDienst for the option words and
// MaxFilmeAufklappen): the import server's address and the window positions.
// The store itself is base/Einstellungen.h, re-exported here for the programs.

#include <string>

#include "base/Einstellungen.h"

namespace dv {

class CApplikation;

class EinstellungsDienst {
  public:
    // app must outlive the service.
    explicit EinstellungsDienst(CApplikation& app) : app_(app) {}

    // The import server's address (its default when none is stored); storing it
    // is speichereImportUrl's, which checks it.
    std::string importUrl();
    // A window position "WP_..." as text ("" when none is stored).
    std::string fensterPosition(const char* name);
    void setzeFensterPosition(const char* name, const std::string& text);

  private:
    CApplikation& app_;
};

}  // namespace dv
