#pragma once
// The wildcard matcher shared by table select, search and tag search.
// "*" matches any run of characters (also none), "?" exactly one character;
// the pattern must cover the whole value. Unless grossKlein is set, the ASCII
// letters A-Z are folded to lower case on both sides; no other byte is folded.

#include <string_view>

namespace dv {

// Removes blanks (' ') from both ends.
std::string_view ohneRandLeer(std::string_view s);
// Removes trailing blanks only.
std::string_view ohneEndLeer(std::string_view s);

// Matches value against pattern as they are (no trimming).
bool musterPasst(std::string_view muster, std::string_view wert, bool grossKlein);

}  // namespace dv
