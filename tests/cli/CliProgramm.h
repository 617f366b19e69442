#pragma once
// Shared set-up of the dorvano-cli tests: a program folder below a temporary
// folder, filled in-process where a test needs a catalogue, then driven through
// dorvano-cli as a whole process with its own settings folder.

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "app/CApplikation.h"
#include "tests/support/FakeBenutzer.h"
#include "tests/support/Prozess.h"
#include "tests/support/TempOrdner.h"

namespace dv::test {

// Arguments and terminal output are UTF-8, while narrow literals are Windows-1252.
inline std::string u(std::u8string_view s) {
    return std::string(s.begin(), s.end());
}

// Exit code `code` and `teil` somewhere in standard error.
inline ::testing::AssertionResult meldet(const Lauf& l, int code, const std::string& teil) {
    if (l.code == code && l.err.find(teil) != std::string::npos)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "Code " << l.code << " (erwartet " << code << "), err: " << l.err;
}

struct CliProgramm {
    TempOrdner tmp;
    std::string basis = tmp / "basis/";  // ends in '/'

    // dorvano-cli on this program folder; `ja` answers every question Yes.
    Lauf run(std::vector<std::string> args, const std::string& eingabe = std::string(),
             bool ja = false) const {
        args.insert(args.begin(), {"--basis", basis});
        if (ja) args.insert(args.begin(), "--ja");
        return cli(args, tmp / "cfg", eingabe);
    }
    // Opens the program folder in-process (created when missing) and hands the
    // started application to `tu`; closed again before the next run.
    template <class F>
    void mitApp(F&& tu) const {
        FakeBenutzer nutzer;
        Einstellungen e(tmp / "intern.conf");
        CApplikation app(nutzer, e);
        EXPECT_TRUE(app.starte(basis));
        tu(app, nutzer, e);
    }
};

}  // namespace dv::test
