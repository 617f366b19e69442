#include "ui/aktionen/Befehle.h"

#include <array>
#include <cstdio>

namespace dv::ui {

namespace {

constexpr unsigned B = kBoxKnoten;
constexpr unsigned D = kDvdKnoten;
constexpr unsigned F = kFilmKnoten;
constexpr unsigned FT = kFilmTeile;

// One row per command: id, menu, caption, shortcut, node kinds, separator above,
// shortcut only in the tree, check mark.
constexpr Befehl kBefehle[] = {
    {kCmdSuchen, Menue::Daten, "&Suchen...", "Ctrl+F", 0, false, false, false},
    {kCmdVormerklisten, Menue::Daten, "&Vormerklisten", nullptr, 0, false, false, false},
    {kCmdTagsSuchen, Menue::Daten, "&Tags suchen...", nullptr, 0, false, false, false},
    {kCmdStempeltags, Menue::Daten, "Stem&peltags...", nullptr, 0, false, false, false},
    {kCmdBoxTitelFinden, Menue::Daten, "Box-Titel &finden...", "Ctrl+T", 0, true, false, false},
    {kCmdEanFinden, Menue::Daten, "EA&N finden...", "Ctrl+Shift+N", 0, false, false, false},
    {kCmdImportieren, Menue::Daten, "&Importieren", "Ctrl+I", 0, true, false, false},
    {kCmdExportieren, Menue::Daten, "&Exportieren", "Ctrl+E", B, false, false, false},
    {kCmdWebImport, Menue::Daten, "&Web-Import...", nullptr, 0, false, false, false},
    {kCmdAlleExportieren, Menue::Daten, "Alle e&xportieren", nullptr, 0, false, false, false},
    {kCmdUebersicht, Menue::Daten, "Ü&bersicht...", nullptr, 0, true, false, false},
    {kCmdAnzahl, Menue::Daten, "&Anzahl", nullptr, 0, false, false, false},
    {kCmdBeenden, Menue::Daten, "Been&den", "Ctrl+Q", 0, true, false, false},

    {kCmdBoxNeu, Menue::Box, "&Neu...", "Ctrl+N", 0, false, false, false},
    {kCmdBoxBearbeiten, Menue::Box, "&Bearbeiten...", nullptr, B, false, false, false},
    {kCmdBoxLoeschen, Menue::Box, "&Löschen...", "Del", B, false, true, false},
    {kCmdBoxNeueDvd, Menue::Box, "Neue &Dvd...", nullptr, B | D, true, false, false},
    {kCmdBoxInfoliste, Menue::Box, "&Infoliste", nullptr, B, true, false, false},
    {kCmdBoxXml, Menue::Box, "XML...", nullptr, B, false, false, false},
    {kCmdBoxSpieldauer, Menue::Box, "Gesamtspieldauer", nullptr, B, false, false, false},
    {kCmdBoxTags, Menue::Box, "&Tags", nullptr, B, true, false, true},
    {kCmdBoxStempeltags, Menue::Box, "&Stempeltags...", nullptr, B, false, false, false},
    {kCmdBoxTagsEntfernen, Menue::Box, "Alle Tags entfernen", nullptr, B, false, false, false},
    {kCmdBoxVormerken, Menue::Box, "&Vormerken...", nullptr, B, false, false, false},

    {kCmdDvdNeu, Menue::Dvd, "&Neu...", nullptr, B | D, false, false, false},
    {kCmdDvdBearbeiten, Menue::Dvd, "&Bearbeiten...", nullptr, D, false, false, false},
    {kCmdDvdLoeschen, Menue::Dvd, "&Löschen...", "Del", D, false, true, false},
    {kCmdDvdNeuerFilm, Menue::Dvd, "Neuer &Film...", nullptr, D | F, true, false, false},
    {kCmdDvdHoch, Menue::Dvd, "&Hoch", "Alt+Up", D, true, true, false},
    {kCmdDvdRunter, Menue::Dvd, "&Runter", "Alt+Down", D, false, true, false},
    {kCmdDvdKopieren, Menue::Dvd, "&Kopieren", nullptr, D, false, false, false},
    {kCmdDvdInfoliste, Menue::Dvd, "&Infoliste", nullptr, D, true, false, false},
    {kCmdDvdXml, Menue::Dvd, "XML...", nullptr, D, false, false, false},
    {kCmdDvdSpieldauer, Menue::Dvd, "Gesamtspieldauer", nullptr, D, false, false, false},
    {kCmdDvdTags, Menue::Dvd, "&Tags", nullptr, D, true, false, true},
    {kCmdDvdStempeltags, Menue::Dvd, "&Stempeltags...", nullptr, D, false, false, false},
    {kCmdDvdTagsEntfernen, Menue::Dvd, "Alle Tags entfernen", nullptr, D, false, false, false},
    {kCmdDvdVormerken, Menue::Dvd, "&Vormerken...", nullptr, D, false, false, false},

    {kCmdFilmNeu, Menue::Film, "&Neu...", nullptr, D | F, false, false, false},
    {kCmdFilmBearbeiten, Menue::Film, "&Bearbeiten...", nullptr, FT, false, false, false},
    {kCmdFilmLoeschen, Menue::Film, "&Löschen...", "Del", F, false, true, false},
    {kCmdFilmHoch, Menue::Film, "&Hoch", "Alt+Up", F, true, true, false},
    {kCmdFilmRunter, Menue::Film, "&Runter", "Alt+Down", F, false, true, false},
    {kCmdFilmKopieren, Menue::Film, "&Kopieren", nullptr, F, false, false, false},
    {kCmdFilmInfoliste, Menue::Film, "&Infoliste", nullptr, F, true, false, false},
    {kCmdFilmXml, Menue::Film, "XML...", nullptr, F, false, false, false},
    {kCmdFilmSpieldauer, Menue::Film, "Gesamtspieldauer", nullptr, F, false, false, false},
    {kCmdFilmTags, Menue::Film, "&Tags", nullptr, F, true, false, true},
    {kCmdFilmStempeltags, Menue::Film, "&Stempeltags...", nullptr, F, false, false, false},
    {kCmdFilmTagsEntfernen, Menue::Film, "Alle Tags entfernen", nullptr, F, false, false, false},
    {kCmdFilmVormerken, Menue::Film, "&Vormerken...", nullptr, F, false, false, false},
    {kCmdFilmInhalt, Menue::Film, "Inh&alt...", nullptr, FT, true, false, false},
    {kCmdFilmKommentar, Menue::Film, "Ko&mmentar...", nullptr, FT, false, false, false},
    {kCmdFilmPersonenStruktur, Menue::Film, "&Personen-Struktur", nullptr, FT, false, false, false},

    {kCmdBearbeiten, Menue::Objekte, "Be&arbeiten...", "Return;Enter", kObjektKnoten, true, true,
     false},
    {kCmdAufklappen, Menue::Objekte, "Aufklappe&n", "Ctrl++", B | D | FT, false, true, false},
    {kCmdZuklappen, Menue::Objekte, "Boxen &zuklappen", "Ctrl+-", 0, false, false, false},
    {kCmdBildformate, Menue::Lookups, "Bi&ldformate...", nullptr, 0, true, false, false},
    {kCmdExtras, Menue::Lookups, "&Extras...", nullptr, 0, false, false, false},
    {kCmdFormate, Menue::Lookups, "F&ormate...", nullptr, 0, false, false, false},
    {kCmdFunktion, Menue::Lookups, "Fun&ktion...", nullptr, 0, false, false, false},
    {kCmdGenre, Menue::Lookups, "&Genre", nullptr, 0, false, false, false},
    {kCmdPersonen, Menue::Lookups, "&Personen...", nullptr, 0, false, false, false},
    {kCmdSprachen, Menue::Lookups, "&Sprachen...", nullptr, 0, false, false, false},
    {kCmdTonformate, Menue::Lookups, "&Tonformate...", nullptr, 0, false, false, false},
    {kCmdUntertitel, Menue::Lookups, "&Untertitel...", nullptr, 0, false, false, false},
    {kCmdVerpackung, Menue::Lookups, "&Verpackung...", nullptr, 0, false, false, false},

    {kCmdValidieren, Menue::Datenbank, "&Validieren", nullptr, 0, false, false, false},

    {kCmdDvdInfo, Menue::Laufwerk, "&Info...", nullptr, 0, false, false, false},
    {kCmdErkennen, Menue::Laufwerk, "Er&kennen", "Ctrl+R", 0, false, false, false},
    {kCmdAusfahren, Menue::Laufwerk, "&Ausfahren", nullptr, 0, true, false, false},
    {kCmdEinfahren, Menue::Laufwerk, "&Einfahren", nullptr, 0, false, false, false},

    {kCmdLaufwerk, Menue::Einstellungen, "Dvd-Lauf&werk...", nullptr, 0, false, false, false},
    {kCmdOptionen, Menue::Einstellungen, "&Optionen...", nullptr, 0, false, false, false},
    {kCmdFilter, Menue::Einstellungen, "&Filter...", nullptr, 0, false, false, false},
    {kCmdImportUrl, Menue::Einstellungen, "&Import-URL...", nullptr, 0, false, false, false},
    {kCmdHintergrund, Menue::Einstellungen, "Hintergrundbild...", nullptr, 0, false, false, false},

    {kCmdMemoriam, Menue::Memoriam, "&Memoriam", nullptr, 0, false, false, false},
    {kCmdInfo, Menue::Hilfe, "Inf&o...", "F1", 0, false, false, false},

    {kCmdEinfuegen, Menue::Keins, "&Einfuegen DVD", "Ctrl+V", B | D | F, false, true, false},
    {kCmdAbbrechen, Menue::Keins, "&Abbrechen", nullptr, 0, false, false, false},
    {kCmdNeuLaden, Menue::Keins, "Baum neu laden", "F5", 0, false, false, false},
};

constexpr KontextEintrag kKontextWurzel[] = {
    {"&Neu: Box", kCmdBoxNeu},      {"&Import", kCmdImportieren},
    {"&Web-Import", kCmdWebImport}, {nullptr, 0},
    {"&Abbrechen", kCmdAbbrechen},
};

constexpr KontextEintrag kKontextBox[] = {
    {"&Bearbeiten", kCmdBearbeiten},
    {"Neu: DV&D", kCmdBoxNeueDvd},
    {nullptr, 0},
    {"&Einfuegen DVD", kCmdEinfuegen},
    {"&Abbrechen", kCmdAbbrechen},
    {nullptr, 0},
    {"A&ufklappen", kCmdAufklappen},
    {"In&foliste", kCmdBoxInfoliste},
    {"Gesamtspieldauer", kCmdBoxSpieldauer},
    {nullptr, 0},
    {"&Tags", kCmdBoxTags},
    {"&Stempeltags...", kCmdBoxStempeltags},
    {"Alle Tags entfernen", kCmdBoxTagsEntfernen},
    {"&Vormerken...", kCmdBoxVormerken},
};

constexpr KontextEintrag kKontextDvd[] = {
    {"&Bearbeiten", kCmdBearbeiten},
    {"Neu: DV&D", kCmdBoxNeueDvd},
    {nullptr, 0},
    {"&Einfuegen DVD", kCmdEinfuegen},
    {"&Abbrechen", kCmdAbbrechen},
    {nullptr, 0},
    {"A&ufklappen", kCmdAufklappen},
    {"In&foliste", kCmdDvdInfoliste},
    {"Gesamtspieldauer", kCmdDvdSpieldauer},
    {nullptr, 0},
    {"&Tags", kCmdDvdTags},
    {"&Stempeltags...", kCmdDvdStempeltags},
    {"Alle Tags entfernen", kCmdDvdTagsEntfernen},
    {"&Vormerken...", kCmdDvdVormerken},
};

constexpr KontextEintrag kKontextFilm[] = {
    {"&Bearbeiten", kCmdBearbeiten},
    {nullptr, 0},
    {"&Einfuegen DVD", kCmdEinfuegen},
    {"&Abbrechen", kCmdAbbrechen},
    {nullptr, 0},
    {"A&ufklappen", kCmdAufklappen},
    {"In&foliste", kCmdFilmInfoliste},
    {"Gesamtspieldauer", kCmdFilmSpieldauer},
    {nullptr, 0},
    {"&Tags", kCmdFilmTags},
    {"&Stempeltags...", kCmdFilmStempeltags},
    {"Alle Tags entfernen", kCmdFilmTagsEntfernen},
    {"&Vormerken...", kCmdFilmVormerken},
};

// A group or an entry belongs to its film: editing it edits the film.
constexpr KontextEintrag kKontextFilmTeil[] = {
    {"&Bearbeiten", kCmdBearbeiten},
    {"A&ufklappen", kCmdAufklappen},
    {nullptr, 0},
    {"&Abbrechen", kCmdAbbrechen},
};

}  // namespace

std::span<const Befehl> befehle() {
    return kBefehle;
}

const Befehl* befehl(int id) {
    for (const Befehl& b : kBefehle)
        if (b.id == id) return &b;
    return nullptr;
}

const char* befehlsName(int id, char (&puffer)[24]) {
    switch (id) {
        case kCmdEinfuegen:
            return "cmdEinfuegen";
        case kCmdAbbrechen:
            return "cmdAbbrechen";
        case kCmdNeuLaden:
            return "cmdNeuLaden";
        case kCmdMemoriam:
            return "cmdMemoriam";
        case kCmdInfo:
            return "cmdInfo";
        default:
            std::snprintf(puffer, sizeof puffer, "cmd%d", id);
            return puffer;
    }
}

const char* menueText(Menue m) {
    switch (m) {
        case Menue::Daten:
            return "&Daten";
        case Menue::Box:
            return "&Box";
        case Menue::Dvd:
            return "&DVD";
        case Menue::Film:
            return "&Film";
        case Menue::Objekte:
        case Menue::Lookups:
            return "&Objekte";
        case Menue::Datenbank:
            return "Daten&bank";
        case Menue::Laufwerk:
            return "D&VD";
        case Menue::Einstellungen:
            return "&Einstellungen";
        case Menue::Memoriam:
            return "&Memoriam";
        case Menue::Hilfe:
            return "&Hilfe";
        case Menue::Keins:
            break;
    }
    return "";
}

std::span<const KontextEintrag> kontextEintraege(unsigned art) {
    switch (art) {
        case kWurzelKnoten:
            return kKontextWurzel;
        case kBoxKnoten:
            return kKontextBox;
        case kDvdKnoten:
            return kKontextDvd;
        case kFilmKnoten:
            return kKontextFilm;
        case kGruppenKnoten:
        case kEintragsKnoten:
            return kKontextFilmTeil;
        default:
            return {};
    }
}

}  // namespace dv::ui
