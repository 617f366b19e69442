#include "platform/Speicher.h"

#include <cstdint>
#include <cstdlib>

#if defined(__linux__) && defined(__GLIBC__)
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace dv {

void bereiteHeapVor(std::size_t groesse) {
#if defined(__linux__) && defined(__GLIBC__)
    // The heap is never trimmed: the reserve below stays, and releasing memory
    // is not followed by a system call. While it is made, blocks up to 32 MiB
    // (the allocator's limit) come from the heap.
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    // A whole-collection read allocates and frees about a million small list
    // elements. With fast bins, freed elements are only merged by the next large
    // request, which then walks all of them at once; without them they merge as
    // they are freed, which costs a third less in all.
    mallopt(M_MXFAST, 0);
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    // The reserve: blocks below that limit taken from the heap and given back,
    // where they join the heap's free top.
    constexpr std::size_t kBlock = std::size_t{16} << 20;
    void* bloecke[64];
    std::size_t n = 0;
    for (std::size_t summe = 0; summe < groesse && n < 64; summe += kBlock) {
        bloecke[n] = std::malloc(kBlock);
        if (!bloecke[n]) break;
        ++n;
    }
    if (n == 0) return;
    const auto anfang = reinterpret_cast<std::uintptr_t>(bloecke[0]);
    while (n > 0) std::free(bloecke[--n]);
    const auto ende = reinterpret_cast<std::uintptr_t>(sbrk(0));
    // Whole huge pages of the reserve; the kernel uses them where it has them.
    constexpr std::uintptr_t kGross = std::uintptr_t{2} << 20;
    const std::uintptr_t von = (anfang + kGross - 1) & ~(kGross - 1);
    const std::uintptr_t bis = ende & ~(kGross - 1);
    if (bis > von) madvise(reinterpret_cast<void*>(von), bis - von, MADV_HUGEPAGE);
    // Large buffers (table blocks, index arrays) come from the system again, so
    // releasing one neither eats into the reserve nor merges the small blocks.
    mallopt(M_MMAP_THRESHOLD, 256 << 10);
#else
    (void)groesse;
#endif
}

}  // namespace dv
