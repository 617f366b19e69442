#pragma once
// The tab-separated text files shared by saved searches, watch-list files and
// stamp-tag exports: a version line "@V1.1", comment lines beginning with "#",
// and data lines whose fields are separated by one tab.
//
// Files are written with CR LF line ends, which is what a runtime's text mode
// writes on Windows, so a file is byte for byte the same on every installation.
// They are read the way a line reader with a 1,025-byte buffer in text mode reads
// them: CR LF becomes LF, and a line longer than 1,024 bytes arrives in pieces,
// each piece taken as a line of its own. A NUL byte ends a piece's text, as it
// ends a C string.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/Benutzer.h"
#include "platform/Dateisystem.h"

namespace dv {

// The format version, written as "@V1.1".
inline constexpr const char* kFormatVersion = "V1.1";
// The longest piece the reader hands out (its buffer holds one byte more).
inline constexpr std::size_t kZeilenStueckMax = 1024;

// Collects the lines of a file and writes it whole.
class TextDateiSchreiber {
  public:
    // "@V1.1" as a line.
    void version();
    // One line; text must not contain line breaks (see ohneZeilenumbruch).
    void zeile(std::string_view text);
    const std::string& inhalt() const { return inhalt_; }
    // Writes through a temporary file and renames it over the target, so a failed
    // write leaves the previous file (or none) in place. False on failure.
    bool schreibe(Dateisystem& fs, const std::string& pfad) const;

  private:
    std::string inhalt_;
};

// The text with every CR and LF replaced by a blank, so it stays on one line.
std::string ohneZeilenumbruch(std::string_view text);

// Reads a file piece by piece, in blocks, so a file of any size is read in
// bounded memory. The file stays open while the reader lives.
class TextDateiLeser {
  public:
    // False when the file cannot be opened for reading.
    bool oeffne(Dateisystem& fs, const std::string& pfad);
    // The next piece: at most kZeilenStueckMax bytes, ending with its '\n' when
    // the line end lies within them. False at the end of the file.
    bool naechste(std::string& stueck);

  private:
    bool fuelle();
    int zeichen();  // the next byte with CR LF read as LF; -1 at the end

    std::unique_ptr<Datei> datei_;
    std::int64_t pos_ = 0;
    std::string block_;
    std::size_t inBlock_ = 0;
    bool ende_ = false;
};

// The piece without its line end ('\n').
std::string_view ohneZeilenende(std::string_view stueck);
// What a piece read from such a file is.
enum class Zeilenart {
    Ueberspringen,  // an empty line, a comment, or the right version line
    Daten,
    FremdeVersion,  // a version line of another version: the message has been shown
};
Zeilenart ordneEin(std::string_view stueck, Benutzer& benutzer);

// Whether the piece is a version line (begins with "@V").
bool istVersionsZeile(std::string_view stueck);
// Whether the text after the "@", with its line end, is "V1.1" and a newline.
// A last line "@V1.1" without a line end therefore does not pass.
bool versionPasst(std::string_view stueck);
// "IST-Version:\t%s\rSOLL-Version:\t%s" under "Versionsfehler" with the error icon;
// the found text is shown without its line end.
void meldeVersionsfehler(Benutzer& benutzer, std::string_view stueck);

// The field up to the next tab, starting at pos; pos moves past the tab. False
// (and nothing taken) when no tab follows.
bool feldBisTab(std::string_view zeile, std::size_t& pos, std::string_view& feld);
// A decimal integer as the C library's atoi reads it: leading blanks, a sign and
// digits, anything after them ignored, no digits read as 0. Values beyond the
// 32-bit range are clamped to it.
std::int32_t alsZahl(std::string_view text);
// The same read into 64 bits (clamped to that range), for search data that is
// compared with unsigned 32-bit fields.
long long alsZahlLang(std::string_view text);

}  // namespace dv
