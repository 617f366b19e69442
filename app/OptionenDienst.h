#pragma once
// The program's options as the options dialog shows them: the option words
// "Options" and "Options2" (each bit a switch; bits this program does not know are
// kept as stored) and "MaxFilmeAufklappen". Saving announces an Einstellung notice.
// The bits (kOpt...) come from base/Optionen.h.

#include <cstdint>
#include <string>

#include "app/Ergebnis.h"
#include "base/Einstellungen.h"
#include "base/Optionen.h"

namespace dv {

class CApplikation;

// Options2: the desktop program does not recognise an inserted disc by itself.
inline constexpr std::uint32_t kOpt2KeineDiscErkennung = 0x0100;
inline constexpr std::uint32_t kMaxFilmeAufklappenHoechstens = 1000;
// The web import's address ("ImportUrl"): at most 259 bytes.
inline constexpr int kMaxImportUrl = 259;

struct OptionenWerte {
    std::uint32_t options = 0;
    std::uint32_t options2 = 0;
    std::uint32_t maxFilmeAufklappen = 0;

    bool an(std::uint32_t bit) const { return (options & bit) != 0; }
    void setze(std::uint32_t bit, bool an) { options = an ? options | bit : options & ~bit; }
    bool discErkennung() const { return (options2 & kOpt2KeineDiscErkennung) == 0; }
    void setzeDiscErkennung(bool an) {
        options2 = an ? options2 & ~kOpt2KeineDiscErkennung : options2 | kOpt2KeineDiscErkennung;
    }
    bool operator==(const OptionenWerte&) const = default;
};

class OptionenDienst {
  public:
    // app must outlive the service.
    explicit OptionenDienst(CApplikation& app) : app_(app) {}

    // The stored values, the defaults where none are stored.
    OptionenWerte lade();
    // Refuses a MaxFilmeAufklappen outside 1..1000; a store that cannot be
    // written is reported.
    Ergebnis speichere(const OptionenWerte& w);

  private:
    CApplikation& app_;
};

// Stores "ImportUrl" after checking that it is an http or https address with a
// host; an empty text is refused too.
Ergebnis speichereImportUrl(CApplikation& app, const std::string& url);

}  // namespace dv
