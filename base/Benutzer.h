#pragma once
// The one interface through which every layer below the user interface puts a
// question or a message to the user. The desktop program implements it with Qt
// dialogs, dorvano-cli with the terminal, the tests with a scripted fake.
// All texts are catalogue texts (Windows-1252); the implementations convert.

#include <string>
#include <utility>
#include <vector>

namespace dv {

enum class Symbol { Keins, Information, Warnung, Fehler, Frage };

// The confirmation dialog for an unknown lookup or person during a box import.
// The import drives the dialog's modes; the implementation only shows the state
// it is given and reports which button was pressed with what the fields hold.
enum class ObjektModus { Normal, Bearbeiten, Auswahl };
enum class ObjektTaste { OK, AlleOK, Edit, Auswahl, Nicht, Letzte /* "Beenden" or "Abbruch" */ };

struct ObjektDialog {
    std::string titel;  // "Neues Objekt bestätigen..." / "Neue Person bestätigen..."
    std::string zeile;  // "Das folgende zu importierende Objekt ist noch unbekannt:" ...
    std::string typ;    // the type's label
    std::vector<std::string> feldNamen;  // empty for a lookup; "Nachname", "Vorname", "Instanz"
    std::vector<std::string> felder;     // current field contents
    std::vector<std::string> liste;      // the type's existing objects
    ObjektModus modus = ObjektModus::Normal;
    bool auswahlMoeglich = false;  // "Auswahl" only when the type has objects
    std::string letzteTaste;       // "Beenden" in normal mode, else "Abbruch"
};

struct ObjektAntwort {
    ObjektTaste taste = ObjektTaste::Letzte;
    std::vector<std::string> felder;  // the fields as the user left them
    int gewaehlt = -1;                // index into liste in choice mode
};

class Benutzer {
  public:
    virtual ~Benutzer() = default;

    // A Yes/No question; true for Yes.
    virtual bool frage(const std::string& titel, const std::string& text) = 0;
    // A message box with caption and icon.
    virtual void meldung(const std::string& titel, const std::string& text, Symbol symbol) = 0;
    // One step of the confirmation dialog for an unknown object.
    virtual ObjektAntwort objektBestaetigen(const ObjektDialog& dialog) = 0;
    // A list to choose from; returns the chosen indexes (empty: cancelled or none).
    // mehrfach: several may be ticked; vorauswahl: preset index or -1.
    virtual std::vector<int> waehle(const std::string& titel, const std::string& spalte,
                                    const std::vector<std::string>& eintraege, bool mehrfach,
                                    int vorauswahl) = 0;
    // An info dialog with labelled fields and OK / Abbrechen; true for OK.
    virtual bool info(const std::string& titel,
                      const std::vector<std::pair<std::string, std::string>>& felder) = 0;
    // A window showing a longer text (lists of boxes not exported and the like).
    virtual void zeigeText(const std::string& titel, const std::string& text) = 0;
    // Progress of a long operation: the current text and step i of n.
    virtual void fortschritt(const std::string& text, int schritt, int gesamt) = 0;
    // Whether the user asks to interrupt (cancel key, Ctrl held) at this moment.
    virtual bool unterbrechen() { return false; }
    // Puts the text on the clipboard; true when it was handed over.
    virtual bool zwischenablage(const std::string& text) = 0;
};

}  // namespace dv
