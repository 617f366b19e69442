// The prepared pattern of the search: the same answers as musterPasst for every
// pattern form, with and without the case switch.

#include <gtest/gtest.h>

#include <random>

#include "storage/Muster.h"

namespace dv::test {
namespace {

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

TEST(Suchmuster, GleichWieMusterPasst) {
    std::mt19937 zufall(17);
    const std::string musterZeichen = "aAbB*?\xe4 ";
    const std::string wertZeichen = "aAbB\xe4 ";
    auto text = [&](std::size_t max, const std::string& aus) {
        std::string s(zufall() % (max + 1), ' ');
        for (char& c : s) c = aus[zufall() % aus.size()];
        return s;
    };
    for (int i = 0; i < 20000; ++i) {
        const std::string m = text(6, musterZeichen);
        const std::string w = text(8, wertZeichen);
        for (bool gk : {false, true})
            ASSERT_EQ(Suchmuster(m, gk).passt(w), musterPasst(m, w, gk))
                << "Muster [" << m << "] Wert [" << w << "] grossKlein " << gk;
    }
}

}  // namespace
}  // namespace dv::test
