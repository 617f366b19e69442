#pragma once
// Crashes at every change of a file: a piece of work runs in a child process
// that is killed at its k-th change (a write torn in half first), for every k,
// and the next start's recovery runs before the state is judged.

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/support/FehlerDateisystem.h"

namespace dv::test {

// Every file of the folders that make up a catalogue (tables, tags, covers,
// texts), by path below the program folder.
using Abbild = std::map<std::string, std::string>;
Abbild abbild(const std::string& basis);
// The files in which two states differ, for failure messages.
std::string unterschied(const Abbild& a, const Abbild& b);
// Makes the folders hold exactly a again; an undo journal is removed.
void stelleHer(const std::string& basis, const Abbild& a);

// Runs the work once whole on a counting file system (the catalogue must then be
// erwartet.back()), then once for every change it made, killed there, and once
// more unharmed, each in a child after stelleHer(erwartet.front()) and
// vorJedemLauf. arbeit(fs, los) starts its program on fs, calls los() when the
// changes to count begin, and does the work. After each run and the recovery a
// next start does, the state must be one of erwartet (first the one before,
// last the one after); danach(index) may check more. Both ends must be seen.
// Returns the number of kill points.
struct Absturzprobe {
    std::string basis;  // the program folder, ending in '/'
    std::function<void(FehlerDateisystem& fs, const std::function<void()>& los)> arbeit;
    std::vector<Abbild> erwartet;
    std::function<void()> vorJedemLauf = [] {};
    std::function<void(std::size_t)> danach = [](std::size_t) {};
    int pruefe();
};

}  // namespace dv::test
