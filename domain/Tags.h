#pragma once
// Tag files: the free text tags of one box, DVD or film, one tag per line in the
// file "%s%d_%ld.%s" (tags folder, object type, object id, "txt"). An object
// without tags has no file. Tags are 8-bit catalogue texts.

#include <string>
#include <vector>

#include "platform/Dateisystem.h"

namespace dv {

inline constexpr const char* kTagEndung = "txt";
// Longest line piece read as one tag (the reader's buffer holds 1,025 bytes).
inline constexpr std::size_t kTagMaxLaenge = 1024;

// ordner ends in '/'.
std::string tagDateiPfad(const std::string& ordner, int typ, long id);

// The tags in file order: each line without its line end (a Windows line end
// counts as one); a line longer than kTagMaxLaenge gives several tags. A missing
// or unreadable file yields none.
std::vector<std::string> leseTags(Dateisystem& fs, const std::string& ordner, int typ, long id);

// Replaces the object's tags: no tags removes the file. A line break inside a tag
// is written as a blank, so each tag stays one line. The file is written whole
// through a temporary file, so a failure leaves the previous tags in place.
bool schreibeTags(Dateisystem& fs, const std::string& ordner, int typ, long id,
                  const std::vector<std::string>& tags);

// Deletes the object's tag file; true when no file is left.
bool loescheTags(Dateisystem& fs, const std::string& ordner, int typ, long id);

// Deletes every file of the object in the tags folder ("<typ>_<id>." and any
// extension), such as a temporary file an interrupted write left behind.
void loescheAlleTagDateien(Dateisystem& fs, const std::string& ordner, int typ, long id);

// Whether the object has a tag file that can be opened.
bool hatTags(Dateisystem& fs, const std::string& ordner, int typ, long id);

// The object type and id named by a tag file name ("3_1234.txt"); false for
// names of another form.
bool zerlegeTagDateiname(const std::string& name, int& typ, long& id);

}  // namespace dv
