// Free texts are texts: every command word of dorvano-cli (taken from the help of
// the program and of each command group, so new commands are covered) is handed
// as a text to every command that takes free texts, and lands as that text.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "tests/cli/CliProgramm.h"

using namespace dv::test;

namespace {

class CliFreitexte : public ::testing::Test, protected CliProgramm {
  protected:
    // The command names listed below "Befehle:" in a help text.
    static std::vector<std::string> befehle(const std::string& hilfe) {
        std::vector<std::string> namen;
        std::istringstream in(hilfe);
        std::string zeile;
        bool drin = false;
        while (std::getline(in, zeile)) {
            if (zeile == "Befehle:")
                drin = true;
            else if (zeile.empty())
                drin = false;
            else if (drin && zeile.rfind("  ", 0) == 0) {
                std::istringstream w(zeile);
                std::string name;
                w >> name;
                namen.push_back(name);
            }
        }
        return namen;
    }
    std::vector<std::string> alleWorte() {
        std::set<std::string> worte;
        for (const std::string& b : befehle(run({"--help"}).aus)) {
            worte.insert(b);
            for (const std::string& u : befehle(run({b, "--help"}).aus)) worte.insert(u);
        }
        return {worte.begin(), worte.end()};
    }
    std::string gut(const std::vector<std::string>& args) {
        const Lauf l = run(args);
        EXPECT_EQ(l.code, 0) << args[0] << ' ' << args[1] << ' ' << args.back() << ": " << l.err;
        return l.aus;
    }
};

TEST_F(CliFreitexte, JedesBefehlswortAlsText) {
    const std::vector<std::string> worte = alleWorte();
    ASSERT_GT(worte.size(), 40u);
    for (const char* w : {"liste", "neu", "setzen", "zeigen", "listen", "box", "export"})
        EXPECT_NE(std::find(worte.begin(), worte.end(), w), worte.end()) << w;

    gut({"neu", "box", "--titel", "B"});
    std::vector<std::string> setzen = {"tags", "setzen", "box", "1"};
    setzen.insert(setzen.end(), worte.begin(), worte.end());
    gut(setzen);
    std::string erwartet;
    for (const std::string& w : worte) erwartet += w + "\n";
    EXPECT_EQ(gut({"tags", "zeigen", "box", "1"}), erwartet);

    std::string listen, filter, stempel;
    long id = 0;
    for (const std::string& w : worte) {
        ++id;
        EXPECT_EQ(gut({"vormerk", "neu", w}), std::to_string(id) + "\n");
        EXPECT_EQ(gut({"filter", "neu", w}), std::to_string(id) + "\n");
        EXPECT_EQ(gut({"stempeltags", "neu", "BF", w}), std::to_string(id) + "\n");
        gut({"vormerk", "umbenennen", std::to_string(id), w + "2"});
        gut({"filter", "umbenennen", std::to_string(id), w + "2"});
        EXPECT_NE(gut({"tags", "suchen", w}).find("Box\t1\tB\t" + w + "\n"), std::string::npos)
            << w;
        listen += std::to_string(id) + "\t" + w + "2\n";
        stempel += std::to_string(id) + "\tBF\t" + w + "\n";
    }
    EXPECT_EQ(gut({"vormerk", "listen"}), listen);
    EXPECT_EQ(gut({"filter", "liste"}), listen);
    EXPECT_EQ(gut({"stempeltags", "liste"}), stempel);
}

}  // namespace
