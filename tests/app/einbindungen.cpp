// The programs reach the catalogue only through app/: every include line of every
// header and source below cli/ and ui/ (also those added later) names app/, the
// program's own folder, Qt, CLI11, nlohmann-json or a system header.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Until the catalogue document of `liste` is produced in app/, its command file
// still reads the lower layers; nothing else may.
const char* const kNochErlaubt = "cli/BefehleKatalog.cpp";

// Whether an include line of a file in folder (cli or ui) keeps the rule.
bool erlaubt(const std::string& ordner, const std::string& zeile) {
    static const std::regex include(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    std::smatch m;
    if (!std::regex_search(zeile, m, include)) return true;
    const std::string ziel = m[2];
    if (m[1] == "<")
        return ziel.find('/') == std::string::npos || ziel.rfind("Qt", 0) == 0 ||
               ziel.rfind("CLI/", 0) == 0 || ziel.rfind("nlohmann/", 0) == 0;
    return ziel.rfind("app/", 0) == 0 || ziel.rfind(ordner + "/", 0) == 0 ||
           ziel.find('/') == std::string::npos;  // generated files beside the source (moc)
}

TEST(Einbindungen, RegelSelbst) {
    EXPECT_TRUE(erlaubt("cli", "#include \"app/Dienste.h\""));
    EXPECT_TRUE(erlaubt("ui", "#include \"ui/baum/Baum.h\""));
    EXPECT_TRUE(erlaubt("ui", "#include <QTreeView>"));
    EXPECT_TRUE(erlaubt("ui", "#include <QtCore/qnamespace.h>"));
    EXPECT_TRUE(erlaubt("cli", "#include <CLI/CLI.hpp>"));
    EXPECT_TRUE(erlaubt("cli", "  #  include <unistd.h>"));
    EXPECT_TRUE(erlaubt("ui", "#include \"katalogbaum.moc\""));
    EXPECT_FALSE(erlaubt("cli", "#include \"domain/Datenbank.h\""));
    EXPECT_FALSE(erlaubt("ui", "#include \"cli/Kontext.h\""));
    EXPECT_FALSE(erlaubt("ui", "# include \"base/Zeichensatz.h\""));
    EXPECT_FALSE(erlaubt("cli", "#include <storage/Tabelle.h>"));
}

TEST(Einbindungen, ProgrammeNurUeberApp) {
    const fs::path wurzel = fs::path(DORVANO_TESTDATA).parent_path().parent_path();
    std::vector<std::string> verstoesse;
    int dateien = 0;
    for (const char* ordner : {"cli", "ui"}) {
        for (const auto& e : fs::recursive_directory_iterator(wurzel / ordner)) {
            const std::string endung = e.path().extension().string();
            if (!e.is_regular_file() || (endung != ".h" && endung != ".cpp")) continue;
            const std::string name = fs::relative(e.path(), wurzel).generic_string();
            if (name == kNochErlaubt) continue;
            ++dateien;
            std::ifstream in(e.path());
            std::string zeile;
            while (std::getline(in, zeile))
                if (!erlaubt(ordner, zeile)) verstoesse.push_back(name + ": " + zeile);
        }
    }
    EXPECT_GT(dateien, 10);
    EXPECT_TRUE(verstoesse.empty()) << ::testing::PrintToString(verstoesse);
}

}  // namespace
