#pragma once
// Small services that many layers share: side text files of films, list sorting,
// the file-name sanitiser, date stamps, size unit labels and the clipboard copy.

#include <cstdlib>
#include <string>
#include <vector>

#include "base/Benutzer.h"
#include "platform/Dateisystem.h"
#include "storage/Tabelle.h"

namespace dv {

// Side text files: "%s%ld.txt" of folder and object id. Ids of 0 or less have none.
std::string seitenDateiPfad(const std::string& ordner, long id);
bool seitenDateiExistiert(Dateisystem& fs, const std::string& ordner, long id);
bool loescheSeitenDatei(Dateisystem& fs, const std::string& ordner, long id);
// A missing or unreadable file reads as empty text and returns false.
bool leseSeitenDatei(Dateisystem& fs, const std::string& ordner, long id, std::string& text);
// An empty text removes the file. Written through a temporary file, so a failed
// write leaves the previous text in place.
bool schreibeSeitenDatei(Dateisystem& fs, const std::string& ordner, long id,
                         const std::string& text);

// Sorts a doubly linked list (elements with pPrev and pNext) with the C library's
// quicksort, which is not stable, and relinks it; returns the new first element.
// The pointer array is traced under `name` ("CApplikation::sortBoxListe" ...).
template <class E>
E* sortiereListe(E* kopf, int (*vergleich)(const void*, const void*), const Trace& trace,
                 const char* name) {
    if (!kopf) return kopf;
    while (kopf->pPrev) kopf = kopf->pPrev;
    std::size_t n = 0;
    for (E* e = kopf; e; e = e->pNext) ++n;
    auto** feld = static_cast<E**>(std::malloc(n * sizeof(E*)));
    if (!feld) return kopf;
    DV_TRACE(trace, kTraceSpeicher, "[malloc] pArray = [%08x] {%s}", adr(feld), name);
    std::size_t i = 0;
    for (E* e = kopf; e; e = e->pNext) feld[i++] = e;
    std::qsort(feld, n, sizeof(E*), vergleich);
    for (i = 0; i < n; ++i) {
        feld[i]->pPrev = i > 0 ? feld[i - 1] : nullptr;
        feld[i]->pNext = i + 1 < n ? feld[i + 1] : nullptr;
    }
    E* neu = feld[0];
    DV_TRACE(trace, kTraceSpeicher, "[free] pArray = [%08x] {%s}", adr(feld), name);
    std::free(feld);
    return neu;
}

// Box titles: a title holding any of ä ö ü Ä Ö Ü ß is transcribed (Ae, Oe, Ue,
// ae, oe, ue, ss), then both are compared without regard to letter case (the
// ASCII letters and the accented letters of the code page). Null counts as "".
int vergleicheBoxTitel(const char* a, const char* b);
std::string umlauteUmschreiben(const std::string& text);
// The sort key of a box title: transcribed and folded as vergleicheBoxTitel does,
// so that two keys compared byte by byte as unsigned numbers (std::strcmp) order
// like their titles; for sorting many titles without transcribing them again in
// every comparison.
std::string boxTitelSchluessel(const char* titel);

// Sorts result-list nodes ascending by their 16-bit value (sWert), as unsigned numbers.
ListenElement* sortUrObjektListe(ListenElement* kopf, const Trace& trace);

// Replaces each of \ / : * ? . , ' " < > | by '_', in place; the length stays.
void bereinigeDateiname(std::string& name);

// Today's date. Short form: day, month, two-digit year; long form: day, month,
// four-digit year; middle form: day, four-digit year, month. Separator 0: none.
enum class DatumsForm { Kurz, Lang, JahrInDerMitte };
std::string datumsStempel(char trenner, DatumsForm form = DatumsForm::Kurz);

// 1 "Bytes", 2 "KB", 3 "MB", 4 "GB", 5 "TB", any other "> TB".
const char* groessenEinheit(int index);

// Puts the text on the clipboard; unless still, confirms with "Der Text wurde kopiert."
bool kopiereText(Benutzer& benutzer, const std::string& text, bool still);

}  // namespace dv
