#pragma once
// The real file system with injectable faults: opens that fail, and writes that
// fail or tear (only part of the bytes reach the disk) from the n-th write on.

#include <string>

#include "platform/Dateisystem.h"

namespace dv::test {

class FehlerDateisystem : public Dateisystem {
  public:
    // Writes numbered from 1; 0 disables the fault.
    int scheitereAbSchreibvorgang = 0;
    // With a failing write, the first half of its bytes are still written.
    bool zerreissen = false;
    // Every open of a path containing this text fails (empty: none).
    std::string sperre;
    // A read-only medium: opening for writing, creating, deleting and renaming
    // fail (EROFS); reading works.
    bool nurLesen = false;
    int schreibvorgaenge = 0;
    // A crash: the process is killed (SIGKILL) at this change of a file, counted
    // from 1 over writes, cuts, removals, renames, copies and creations; a write
    // is torn first when zerreissen is set. 0: never.
    int abbruchBeiVeraenderung = 0;
    int veraenderungen = 0;

    std::unique_ptr<Datei> oeffne(const std::string& pfad, OeffnenModus modus,
                                  int* fehler = nullptr) override;
    bool existiert(const std::string& p) override { return echt().existiert(p); }
    bool istOrdner(const std::string& p) override { return echt().istOrdner(p); }
    bool erzeugeOrdner(const std::string& p) override;
    bool loesche(const std::string& p) override;
    bool kopiere(const std::string& von, const std::string& nach) override;
    bool benenneUm(const std::string& von, const std::string& nach) override;
    std::vector<OrdnerEintrag> liste(const std::string& o) override { return echt().liste(o); }
    bool synchronisiereOrdner(const std::string& o) override {
        return echt().synchronisiereOrdner(o);
    }

    // True when this write should fail; counts it.
    bool naechsterSchreibvorgangScheitert();
    // Counts a change; ends the process here when it is the one to crash at
    // (after vorher(), which tears a write).
    template <class F>
    void veraendere(F&& vorher) {
        if (++veraenderungen != abbruchBeiVeraenderung) return;
        if (zerreissen) vorher();
        absturz();
    }
    void veraendere() {
        veraendere([] {});
    }
    [[noreturn]] static void absturz();

  private:
    static Dateisystem& echt() { return echtesDateisystem(); }
    bool gesperrt(const std::string& p) const {
        return !sperre.empty() && p.find(sperre) != std::string::npos;
    }
};

}  // namespace dv::test
