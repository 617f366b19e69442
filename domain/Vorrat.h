#pragma once
// A store of equal-sized memory blocks for the record copies of the object lists.
// A whole-collection read makes and releases about a million such copies; taking
// them from large slabs and keeping released blocks on a free list costs a
// fraction of the C allocator's work per block. When the last block of a store
// comes back, its slabs but one go back to the system. Not thread-safe, like the whole
// catalogue domain.

#include <cstddef>
#include <vector>

namespace dv {

class BlockVorrat {
  public:
    explicit BlockVorrat(std::size_t groesse);
    // Frees the slabs; blocks still handed out become invalid.
    ~BlockVorrat();
    BlockVorrat(const BlockVorrat&) = delete;
    BlockVorrat& operator=(const BlockVorrat&) = delete;

    // A block of the store's size; null when no memory is left.
    void* hole() noexcept;
    // Takes back a block from hole() (null is ignored).
    void gib(void* p) noexcept;

    std::size_t belegt() const { return belegt_; }
    std::size_t platten() const { return platten_.size(); }

  private:
    struct Frei {
        Frei* naechster;
    };
    bool neuePlatte() noexcept;
    // Frees the slabs beyond the first `behalte`; the kept ones become wholly free.
    void gibPlattenFrei(std::size_t behalte) noexcept;

    std::size_t groesse_;
    std::size_t proPlatte_;
    Frei* frei_ = nullptr;
    // The blocks of the newest slab that were never handed out: [rest_, ende_).
    // They are taken in order before a new slab is fetched, so a slab is not
    // walked to build a free list before it is used.
    unsigned char* rest_ = nullptr;
    unsigned char* ende_ = nullptr;
    std::size_t belegt_ = 0;
    std::vector<void*> platten_;
};

// The store for objects of size N; lives as long as the process.
template <std::size_t N>
BlockVorrat& vorratFuer() {
    static BlockVorrat* v = new BlockVorrat(N);
    return *v;
}

}  // namespace dv
