#pragma once
// Watch lists: the lists themselves (see Benannte), their entries, the content
// view with the set operations, and the watch-list files.

#include <string>
#include <vector>

#include "app/Benannte.h"

namespace dv {

class VormerkDienst final : public Benannte {
  public:
    explicit VormerkDienst(CApplikation& app);

    // The object as the last entry of the list; the entry's id.
    ErgebnisMit<long> hinzu(long liste, int typ, long id);
    // Removes the object's first entry, or swaps it with its neighbour.
    Ergebnis entferne(long liste, int typ, long id);
    Ergebnis verschiebe(long liste, int typ, long id, bool hoch);
    // Copies the entry to the end of nach, or moves it there.
    Ergebnis kopiere(long von, long nach, int typ, long id);
    Ergebnis verschiebeNach(long von, long nach, int typ, long id);

    // The content view of the lists (in the order given), and the set operations.
    ErgebnisMit<std::vector<VormerkEintrag>> inhalt(const std::vector<long>& listen);
    ErgebnisMit<std::vector<VormerkEintrag>> vereinigung(const std::vector<long>& listen);
    ErgebnisMit<std::vector<VormerkEintrag>> schnitt(const std::vector<long>& listen);
    ErgebnisMit<std::vector<VormerkEintrag>> komplement(const std::vector<long>& listen,
                                                        const std::vector<long>& gegen);
    // "Inhalt der Vormerkliste(n) [N Elemente]"; the entries as clipboard text.
    static std::string status(std::size_t anzahl);
    std::string alsText(const std::vector<VormerkEintrag>& eintraege);

    // The watch-list file of the lists (after the overwrite question); reading
    // one creates its lists. An import with entries that could not be found is
    // refused after its message (the details are in the import log).
    Ergebnis exportiere(const std::string& datei, const std::vector<long>& listen);
    Ergebnis importiere(const std::string& datei);

  private:
    std::vector<Benannt> lies() override;
    long lege(const std::string& name) override;
    bool benenne(long id, const std::string& name) override;
    bool tilge(long id) override;
    Ergebnis pruefeAlle(const std::vector<long>& listen);
    Ergebnis pruefeEintrag(long liste, int typ, long id);
};

}  // namespace dv
