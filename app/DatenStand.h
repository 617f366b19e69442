#pragma once
// A fingerprint of the data folder: name, length and time of last change of every
// table file. Two equal fingerprints mean no process has written a table in
// between; the desktop program compares them to tell another program's writes
// from its own.

#include <string>

namespace dv {

// "" when the folder cannot be read.
std::string datenFingerabdruck(const std::string& datenOrdner);

}  // namespace dv
