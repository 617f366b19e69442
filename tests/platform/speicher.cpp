// The heap prepared for whole-collection reads: the reserve is made and kept,
// and allocation goes on as before.
#include <gtest/gtest.h>

#include <malloc.h>

#include <cstdlib>
#include <vector>

#include "platform/Speicher.h"

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kEigenerAllokator = true;  // the sanitizer's allocator ignores the settings
#else
constexpr bool kEigenerAllokator = false;
#endif

TEST(Speicher, ReserveBleibtNachFreigaben) {
    dv::bereiteHeapVor(std::size_t{48} << 20);
    std::vector<void*> bloecke;
    for (int i = 0; i < 200000; ++i) bloecke.push_back(std::calloc(1, 40 + i % 200));
    for (void* p : bloecke) ASSERT_NE(p, nullptr);
    for (void* p : bloecke) std::free(p);
    // A large block still works and is released whole.
    void* gross = std::malloc(std::size_t{40} << 20);
    ASSERT_NE(gross, nullptr);
    std::free(gross);
    if (kEigenerAllokator) GTEST_SKIP() << "Sanitizer-Allokator";
    // The heap was not handed back to the system after the releases.
    EXPECT_GE(mallinfo2().arena, std::size_t{48} << 20);
}

}  // namespace
