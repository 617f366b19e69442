#pragma once
// What "Inf&o..." of the desktop program tells: versions, where the program keeps
// its data and settings, and the libraries it is built on with their licences.

#include <string>
#include <utility>
#include <vector>

namespace dv {

class CApplikation;

struct ProgrammInfo {
    std::string programmVersion;  // "4.0.0.1", the version box files carry
    std::string datenVersion;     // "4.0.0.1 - 20070406"
    std::string programmOrdner;   // native path
    std::string einstellungen;    // native path of the settings file
    std::vector<std::pair<std::string, std::string>> bibliotheken;  // name, licence
};

ProgrammInfo programmInfo(CApplikation& app);

}  // namespace dv
