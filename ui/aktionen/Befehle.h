#pragma once
// Every command of the main window in one table: its command id, the caption with
// its mnemonic, the menu it sits in, its shortcut and the kinds of tree node it
// needs. The menu bar, the context menus and the enabled state are all built from
// this table, so a command exists exactly once.

#include <span>

namespace dv::ui {

// The kind of the current tree node, as bits so that a command can accept several.
enum Knotenart : unsigned {
    kKeinKnoten = 0,
    kWurzelKnoten = 1u << 0,
    kBoxKnoten = 1u << 1,
    kDvdKnoten = 1u << 2,
    kFilmKnoten = 1u << 3,
    kGruppenKnoten = 1u << 4,   // a group below a film ("Genre", "Personen", ...)
    kEintragsKnoten = 1u << 5,  // an entry of such a group (or an alias below a person)
};
inline constexpr unsigned kFilmTeile = kFilmKnoten | kGruppenKnoten | kEintragsKnoten;
inline constexpr unsigned kObjektKnoten = kBoxKnoten | kDvdKnoten | kFilmTeile;

// Where a command sits in the menu bar.
enum class Menue {
    Daten,
    Box,      // "&Objekte" / "&Box"
    Dvd,      // "&Objekte" / "&DVD"
    Film,     // "&Objekte" / "&Film"
    Objekte,  // "&Objekte" itself, after its three submenus
    Lookups,  // "&Objekte", the lookup catalogues at its end
    Datenbank,
    Laufwerk,  // "D&VD"
    Einstellungen,
    Memoriam,  // its own item in the menu bar, shown only on the day of remembrance
    Hilfe,
    Keins,  // context menu or keyboard only
};

// Commands that the menu resource has no number for carry ids below 0.
enum Befehlsnummer : int {
    kCmdEinfuegen = -1,  // "&Einfuegen DVD" of copy mode
    kCmdAbbrechen = -2,  // "&Abbrechen" of copy mode
    kCmdNeuLaden = -3,   // F5: reads the tree anew
    kCmdMemoriam = -4,
    kCmdInfo = -5,  // "&Hilfe" / "Inf&o..."

    kCmdSuchen = 40014,
    kCmdVormerklisten = 32816,
    kCmdTagsSuchen = 32798,
    kCmdStempeltags = 32804,
    kCmdBoxTitelFinden = 32789,
    kCmdEanFinden = 32799,
    kCmdImportieren = 40022,
    kCmdExportieren = 40023,
    kCmdWebImport = 32779,
    kCmdAlleExportieren = 40092,
    kCmdUebersicht = 32774,
    kCmdAnzahl = 32794,
    kCmdBeenden = 57665,

    kCmdBoxNeu = 40001,
    kCmdBoxBearbeiten = 40008,
    kCmdBoxLoeschen = 40009,
    kCmdBoxNeueDvd = 40097,
    kCmdBoxInfoliste = 40055,
    kCmdBoxXml = 32832,
    kCmdBoxSpieldauer = 32826,
    kCmdBoxTags = 32795,
    kCmdBoxStempeltags = 32805,
    kCmdBoxTagsEntfernen = 32829,
    kCmdBoxVormerken = 32812,

    kCmdDvdNeu = 40015,
    kCmdDvdBearbeiten = 40016,
    kCmdDvdLoeschen = 40017,
    kCmdDvdNeuerFilm = 40098,
    kCmdDvdHoch = 40080,
    kCmdDvdRunter = 40081,
    kCmdDvdKopieren = 40070,
    kCmdDvdInfoliste = 40056,
    kCmdDvdXml = 32833,
    kCmdDvdSpieldauer = 32827,
    kCmdDvdTags = 32796,
    kCmdDvdStempeltags = 32806,
    kCmdDvdTagsEntfernen = 32830,
    kCmdDvdVormerken = 32813,

    kCmdFilmNeu = 40018,
    kCmdFilmBearbeiten = 40020,
    kCmdFilmLoeschen = 40021,
    kCmdFilmHoch = 40082,
    kCmdFilmRunter = 40083,
    kCmdFilmKopieren = 40069,
    kCmdFilmInfoliste = 40057,
    kCmdFilmXml = 32834,
    kCmdFilmSpieldauer = 32828,
    kCmdFilmTags = 32797,
    kCmdFilmStempeltags = 32807,
    kCmdFilmTagsEntfernen = 32831,
    kCmdFilmVormerken = 32814,
    kCmdFilmInhalt = 40043,
    kCmdFilmKommentar = 40046,
    kCmdFilmPersonenStruktur = 40085,

    kCmdBearbeiten = 40099,
    kCmdAufklappen = 40068,
    kCmdZuklappen = 32815,
    kCmdBildformate = 40038,
    kCmdExtras = 40037,
    kCmdFormate = 40049,
    kCmdFunktion = 40025,
    kCmdGenre = 40088,
    kCmdPersonen = 40084,
    kCmdSprachen = 40003,
    kCmdTonformate = 40039,
    kCmdUntertitel = 40011,
    kCmdVerpackung = 61448,

    kCmdValidieren = 40031,

    kCmdDvdInfo = 40028,
    kCmdErkennen = 40050,
    kCmdAusfahren = 40029,
    kCmdEinfahren = 40032,

    kCmdLaufwerk = 40033,
    kCmdOptionen = 32773,
    kCmdFilter = 32786,
    kCmdImportUrl = 32784,
    kCmdHintergrund = 32785,
};

struct Befehl {
    int id;
    Menue menue;
    const char* text;     // caption with mnemonic (catalogue code page)
    const char* kuerzel;  // QKeySequence text ("Ctrl+F"), several split by ';'; or null
    unsigned arten;       // Knotenart bits the command needs; 0: needs no node
    bool trennerDavor;    // a separator above it in its menu
    bool nurImBaum;       // the shortcut works only while the tree has the focus
    bool abhakbar;        // carries a check mark ("&Tags": the object has tags)
};

// The whole table, in menu order.
std::span<const Befehl> befehle();
// The entry of an id; null for an unknown id.
const Befehl* befehl(int id);
// "cmd40014", "cmdEinfuegen", ...: the objectName of a command's action.
const char* befehlsName(int id, char (&puffer)[24]);

// The captions of the submenus and the menus of the bar, in the catalogue code page.
const char* menueText(Menue m);

// One line of a context menu: its own caption and the command it triggers; an
// entry with id 0 is a separator.
struct KontextEintrag {
    const char* text;
    int id;
};

// The context menu of a node kind (one Knotenart bit).
std::span<const KontextEintrag> kontextEintraege(unsigned art);

}  // namespace dv::ui
