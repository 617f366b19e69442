#pragma once
// The C allocator prepared for a process that builds and releases large object
// trees in one go (a whole-collection read: hundreds of thousands of small
// elements). Without it every 4 KiB of new heap costs a page fault and every
// release may hand memory back to the system only to ask for it again.

#include <cstddef>

namespace dv {

// Reserves a heap of about `groesse` bytes up front (address space only: pages
// are still faulted in when first used), asks the system to back it with huge
// pages where it can, merges small blocks as they are freed, and keeps released memory in the
// process instead of trimming the heap after large releases. Call once, early in main; harmless
// where the system offers none of this.
void bereiteHeapVor(std::size_t groesse);

}  // namespace dv
