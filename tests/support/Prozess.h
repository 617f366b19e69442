#pragma once
// Runs a program of the build (dorvano-cli) as a whole process, feeding standard
// input and collecting standard output, standard error and the exit code.

#include <string>
#include <utility>
#include <vector>

namespace dv::test {

struct Lauf {
    int code = -1;
    std::string aus;
    std::string err;
};

// Runs `programm` with `argumente`; `umgebung` entries "NAME=wert" are added to the
// environment. Standard input gets `eingabe` and is then closed (not a terminal).
Lauf fuehreAus(const std::string& programm, const std::vector<std::string>& argumente,
               const std::string& eingabe = std::string(),
               const std::vector<std::string>& umgebung = {});

// dorvano-cli of this build, with XDG_CONFIG_HOME pointed at `einstellungen`
// so the user's own settings are never touched.
Lauf cli(const std::vector<std::string>& argumente, const std::string& einstellungen,
         const std::string& eingabe = std::string());

}  // namespace dv::test
