#pragma once
// The optical drives and the disc: the drives with their letters, the default
// drive (setting "DvdRom"), what the DVD dialog shows of a disc or a disc image,
// finding the catalogue DVD of a disc, and the tray.

#include <string>
#include <vector>

#include "app/Ergebnis.h"
#include "app/Werte.h"

namespace dv {

class CApplikation;

struct LaufwerkWert {
    char buchstabe = 0;  // 'D'..'Z'
    std::string geraet;  // "/dev/sr0"
    std::string modell;
};

// What the DVD dialog shows of a disc; the texts as shown, the numbers as read.
struct DiscWerte {
    std::string dateisystem, bezeichnung, sn, bytesLow, bytesHigh, groesse, typ;
    std::uint32_t snWert = 0, bytesLowWert = 0, bytesHighWert = 0;
    int rc = 0;  // the region field, when rcGelesen
    bool rcGelesen = false;
};

class GeraeteDienst {
  public:
    // app must outlive the service.
    explicit GeraeteDienst(CApplikation& app) : app_(app) {}

    std::vector<LaufwerkWert> laufwerke();
    // The stored default drive's letter, 0 when none is stored.
    char laufwerk();
    Ergebnis setzeLaufwerk(char buchstabe);
    // The disc in the default drive, or the disc image when abbild is given.
    // Reading failures have been shown to the user (the result carries no text).
    ErgebnisMit<DiscWerte> disc(const std::string& abbild = std::string());
    // The catalogue DVD of that disc (the system's message when none).
    ErgebnisMit<DvdZeile> erkenne(const std::string& abbild = std::string());
    Ergebnis schublade(bool oeffnen);

  private:
    CApplikation& app_;
};

}  // namespace dv
