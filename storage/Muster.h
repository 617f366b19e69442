#pragma once
// The wildcard matcher shared by table select, search and tag search.
// "*" matches any run of characters (also none), "?" exactly one character;
// the pattern must cover the whole value. Unless grossKlein is set, the ASCII
// letters A-Z are folded to lower case on both sides; no other byte is folded.

#include <cstddef>
#include <string>
#include <string_view>

namespace dv {

// Removes blanks (' ') from both ends.
std::string_view ohneRandLeer(std::string_view s);
// Removes trailing blanks only.
std::string_view ohneEndLeer(std::string_view s);

// Matches value against pattern as they are (no trimming).
bool musterPasst(std::string_view muster, std::string_view wert, bool grossKlein);

// A pattern prepared once for matching many values (search, tag search): the
// same result as musterPasst, with quick rejections before the match (the first
// character where the pattern does not begin with a wildcard; a value shorter
// than the pattern without its stars; a value of another length when the pattern
// has no star; an empty pattern or value) and the common forms "text", "text*",
// "*text" and "*text*" (no "?" in the text) matched without the general walk.
class Suchmuster {
  public:
    Suchmuster() = default;
    // The pattern as given (no trimming); grossKlein as for musterPasst.
    Suchmuster(std::string_view muster, bool grossKlein);

    bool passt(std::string_view wert) const;
    const std::string& text() const { return muster_; }

  private:
    enum class Form : unsigned char { Gleich, Anfang, Ende, Enthaelt, Alles, Allgemein };
    bool gleichAb(std::string_view wert, std::size_t pos) const;

    std::string muster_;
    std::string kern_;  // the fast forms' text without stars, folded unless grossKlein_
    std::size_t ohneSterne_ = 0;
    bool sterne_ = false;
    bool grossKlein_ = false;
    Form form_ = Form::Allgemein;
};

}  // namespace dv
