// Wildcard select and the matchers under it: whole-value match with "*" and "?",
// blanks trimmed by the select, ASCII letters folded only when the case setting is off.

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

TEST_F(Wildcard, WholeValueMatchWithStarQuestionMarkBlanksCaseAndIdKey) {
    struct Fall {
        const char* muster;
        bool grossKlein;
        long id;
        V treffer;
    };
    const Fall faelle[] = {
        // "*" follows the case setting.
        {"ab*", true, 0, {"ab", "abc", "abcd"}},
        {"ab*", false, 0, {"ab", "abc", "ABC", "abcd"}},
        {"*C", true, 0, {"ABC"}},
        {"*C", false, 0, {"abc", "ABC", "ac"}},
        // Umlauts are never folded.
        {"Ä*", false, 0, {"Äpfel"}},
        {"ä*", false, 0, {"äpfel"}},
        {"?PFEL", false, 0, {"Äpfel", "äpfel"}},
        {"?PFEL", true, 0, {}},
        // "?" is exactly one character.
        {"a?c", true, 0, {"abc"}},
        {"a??", true, 0, {"abc"}},
        {"?", true, 0, {}},
        {"??", true, 0, {"ab", "ac"}},
        // Plain text matches the whole value only.
        {"abc", true, 0, {"abc"}},
        {"abc", false, 0, {"abc", "ABC"}},
        {"bc", true, 0, {}},
        // Blanks around pattern and value do not count.
        {"abc   ", true, 0, {"abc"}},
        {"   abc", true, 0, {"abc"}},
        {"xyz", true, 0, {"  xyz  "}},
        {"x*z", true, 0, {"  xyz  "}},
        // The id key narrows.
        {"", true, 3, {"ABC"}},
        {"a*", true, 3, {}},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(std::string("[") + f.muster + "] gk " + std::to_string(f.grossKlein) + " id " +
                     std::to_string(f.id));
        EXPECT_EQ(treffer(f.muster, f.grossKlein, f.id), f.treffer);
    }
    // An empty example, "*" (the empty text too) and a negative id take everything.
    EXPECT_EQ(treffer("", true).size(), 9u);
    EXPECT_EQ(treffer("*", true).size(), 9u);
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

// Random patterns and values, over plain ASCII and again with an umlaut and
// blanks: musterPasst agrees with the plain matcher, Suchmuster with musterPasst.
TEST(MusterPasst, AgreesWithAPlainMatcherOnRandomInput) {
    std::mt19937 zufall(4711);
    auto erzeuge = [&](const std::string& alphabet, std::size_t maxLaenge) {
        std::string s(zufall() % (maxLaenge + 1), ' ');
        for (char& c : s) c = alphabet[zufall() % alphabet.size()];
        return s;
    };
    // The letters at both ends of the ASCII ranges and their neighbours, which
    // case folding must leave alone.
    const std::pair<std::string, std::string> alphabete[] = {
        {"aAb*?", "aAbB"}, {"aAzZ@[`{*?", "aAzZ@[`{"}, {"aAbB*?\xe4 ", "aAbB\xe4 "}};
    for (const auto& [musterZeichen, wertZeichen] : alphabete) {
        for (int i = 0; i < 20000; ++i) {
            const std::string m = erzeuge(musterZeichen, 7);
            const std::string w = erzeuge(wertZeichen, 9);
            for (bool gk : {true, false}) {
                ASSERT_EQ(musterPasst(m, w, gk), referenz(m.c_str(), w.c_str(), gk))
                    << "Muster [" << m << "] Wert [" << w << "] grossKlein " << gk;
                ASSERT_EQ(Suchmuster(m, gk).passt(w), musterPasst(m, w, gk))
                    << "Suchmuster [" << m << "] Wert [" << w << "] grossKlein " << gk;
            }
        }
    }
}

// The fast forms and quick rejections of the prepared pattern.
TEST(Suchmuster, FormenUndSchnelleAbweisungen) {
    EXPECT_FALSE(Suchmuster("Matrix", false).passt("The Matrix"));
    EXPECT_TRUE(Suchmuster("*matrix*", false).passt("The Matrix"));
    EXPECT_FALSE(Suchmuster("*matrix*", true).passt("The Matrix"));
    EXPECT_TRUE(Suchmuster("the*", false).passt("The Matrix"));
    EXPECT_TRUE(Suchmuster("**rix", false).passt("The Matrix"));
    EXPECT_FALSE(Suchmuster("*rix", false).passt("rx"));
    EXPECT_TRUE(Suchmuster("", false).passt(""));
    EXPECT_FALSE(Suchmuster("", false).passt("a"));
    EXPECT_TRUE(Suchmuster("**", false).passt(""));
    EXPECT_FALSE(Suchmuster("*?", false).passt(""));
    EXPECT_TRUE(Suchmuster("a?c", false).passt("abc"));
    EXPECT_FALSE(Suchmuster("a?c", false).passt("ac"));
    EXPECT_FALSE(Suchmuster("abc", false).passt("abcd"));
    EXPECT_TRUE(Suchmuster("\xc4*", false).passt("\xc4rger"));
    EXPECT_FALSE(Suchmuster("\xe4*", false).passt("\xc4rger"));
    EXPECT_EQ(Suchmuster("a*b", true).text(), "a*b");
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
