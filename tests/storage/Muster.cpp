// Wildcard select: whole-value match with "*" and "?", blanks trimmed, ASCII
// letters folded only when the case setting is off.

#include <gtest/gtest.h>

#include <random>

#include "storage/Muster.h"
#include "storage/Satzarten.h"
#include "tests/storage/Umgebung.h"

namespace dv::test {
namespace {

class Wildcard : public ::testing::Test {
protected:
    Umgebung env;
    Tabelle1 t{env.u, "Genre"};

    void SetUp() override {
        ASSERT_TRUE(t.create());
        for (const char* s : {"ab", "abc", "ABC", "abcd", "ac", "Äpfel", "äpfel", "  xyz  ", ""})
            t.insert(s);
    }
    std::vector<std::string> treffer(const char* muster, bool grossKlein, long id = 0) {
        env.u.grossKlein = grossKlein;
        Tabelle1::Zeile b{};
        b.Id = static_cast<std::int32_t>(id);
        std::strncpy(b.cpText, muster, 128);
        std::vector<std::string> out;
        auto l = t.liste(b);
        for (auto* n = l.get(); n; n = n->pNext) out.push_back(Tabelle1::zeile(n).cpText);
        return out;
    }
    using V = std::vector<std::string>;
};

TEST_F(Wildcard, StarFollowsTheCaseSetting) {
    EXPECT_EQ(treffer("ab*", true), (V{"ab", "abc", "abcd"}));
    EXPECT_EQ(treffer("ab*", false), (V{"ab", "abc", "ABC", "abcd"}));
    EXPECT_EQ(treffer("*C", true), (V{"ABC"}));
    EXPECT_EQ(treffer("*C", false), (V{"abc", "ABC", "ac"}));
}

TEST_F(Wildcard, UmlautsAreNeverFolded) {
    EXPECT_EQ(treffer("Ä*", false), (V{"Äpfel"}));
    EXPECT_EQ(treffer("ä*", false), (V{"äpfel"}));
    EXPECT_EQ(treffer("?PFEL", false), (V{"Äpfel", "äpfel"}));
    EXPECT_EQ(treffer("?PFEL", true), V{});
}

TEST_F(Wildcard, QuestionMarkIsExactlyOneCharacter) {
    EXPECT_EQ(treffer("a?c", true), (V{"abc"}));
    EXPECT_EQ(treffer("a??", true), (V{"abc"}));
    EXPECT_EQ(treffer("?", true), V{});
    EXPECT_EQ(treffer("??", true), (V{"ab", "ac"}));
}

TEST_F(Wildcard, PlainTextMatchesTheWholeValueOnly) {
    EXPECT_EQ(treffer("abc", true), (V{"abc"}));
    EXPECT_EQ(treffer("abc", false), (V{"abc", "ABC"}));
    EXPECT_EQ(treffer("bc", true), V{});
}

TEST_F(Wildcard, BlanksAroundPatternAndValueDoNotCount) {
    EXPECT_EQ(treffer("abc   ", true), (V{"abc"}));
    EXPECT_EQ(treffer("   abc", true), (V{"abc"}));
    EXPECT_EQ(treffer("xyz", true), (V{"  xyz  "}));
    EXPECT_EQ(treffer("x*z", true), (V{"  xyz  "}));
}

TEST_F(Wildcard, EmptyExampleMatchesEverythingAndTheIdKeyNarrows) {
    EXPECT_EQ(treffer("", true).size(), 9u);
    EXPECT_EQ(treffer("*", true).size(), 9u);  // the empty text too
    EXPECT_EQ(treffer("", true, 3), (V{"ABC"}));
    EXPECT_EQ(treffer("a*", true, 3), V{});
    EXPECT_EQ(treffer("", true, -5).size(), 9u);
}

// A plain recursive matcher, slow but obviously right, to check the fast one.
bool referenz(const char* m, const char* w, bool gk) {
    auto falte = [gk](char c) { return (!gk && c >= 'A' && c <= 'Z') ? char(c + 32) : c; };
    if (*m == '\0') return *w == '\0';
    if (*m == '*') return referenz(m + 1, w, gk) || (*w && referenz(m, w + 1, gk));
    if (*w == '\0') return false;
    if (*m != '?' && falte(*m) != falte(*w)) return false;
    return referenz(m + 1, w + 1, gk);
}

TEST(MusterPasst, AgreesWithAPlainMatcherOnRandomInput) {
    std::mt19937 zufall(4711);
    const char musterZeichen[] = "aAb*?";
    const char wertZeichen[] = "aAbB";
    auto erzeuge = [&](const char* alphabet, std::size_t n, std::size_t maxLaenge) {
        std::string s(zufall() % (maxLaenge + 1), ' ');
        for (char& c : s) c = alphabet[zufall() % n];
        return s;
    };
    for (int i = 0; i < 20000; ++i) {
        const std::string m = erzeuge(musterZeichen, 5, 7);
        const std::string w = erzeuge(wertZeichen, 4, 9);
        for (bool gk : {true, false})
            ASSERT_EQ(musterPasst(m, w, gk), referenz(m.c_str(), w.c_str(), gk))
                << "Muster [" << m << "] Wert [" << w << "] grossKlein " << gk;
    }
}

TEST(MusterPasst, LongValuesBeyondTheStackRow) {
    const std::string lang(1000, 'x');
    EXPECT_TRUE(musterPasst("x*x", lang, true));
    EXPECT_TRUE(musterPasst("*" + std::string(999, '?'), lang, true));
    EXPECT_FALSE(musterPasst("*" + std::string(1001, '?'), lang, true));
    EXPECT_FALSE(musterPasst("x*y", lang, true));
}

TEST(MusterPasst, TrimmingHelpers) {
    EXPECT_EQ(ohneRandLeer("  a b  "), "a b");
    EXPECT_EQ(ohneRandLeer("    "), "");
    EXPECT_EQ(ohneEndLeer("  a  "), "  a");
}

}  // namespace
}  // namespace dv::test
