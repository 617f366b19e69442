#include "domain/Vorrat.h"

#include <algorithm>
#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
// Blocks on the free list are poisoned, so a use after release is still caught.
#define DV_GESPERRT(p, n) ASAN_POISON_MEMORY_REGION(p, n)
#define DV_OFFEN(p, n) ASAN_UNPOISON_MEMORY_REGION(p, n)
#else
#define DV_GESPERRT(p, n) ((void)(p), (void)(n))
#define DV_OFFEN(p, n) ((void)(p), (void)(n))
#endif

namespace dv {

namespace {
// Below the allocator's limit for blocks of their own (see platform/Speicher.h),
// so slabs come from the prepared heap and are not mapped and unmapped anew by
// every whole-collection read.
constexpr std::size_t kPlattenBytes = 240 << 10;
}  // namespace

// Blocks keep the alignment of the C allocator and have room for the free link.
BlockVorrat::BlockVorrat(std::size_t groesse) {
    const std::size_t a = alignof(std::max_align_t);
    groesse_ = (std::max(groesse, sizeof(Frei)) + a - 1) / a * a;
    proPlatte_ = std::max<std::size_t>(1, kPlattenBytes / groesse_);
}

BlockVorrat::~BlockVorrat() {
    gibPlattenFrei(0);
}

void BlockVorrat::gibPlattenFrei(std::size_t behalte) noexcept {
    while (platten_.size() > behalte) {
        DV_OFFEN(platten_.back(), proPlatte_ * groesse_);
        std::free(platten_.back());
        platten_.pop_back();
    }
    frei_ = nullptr;
    rest_ = ende_ = nullptr;
    if (platten_.empty()) return;
    rest_ = static_cast<unsigned char*>(platten_.front());
    ende_ = rest_ + proPlatte_ * groesse_;
    DV_GESPERRT(rest_, proPlatte_ * groesse_);
}

bool BlockVorrat::neuePlatte() noexcept {
    try {
        platten_.reserve(platten_.size() + 1);
    } catch (...) {
        return false;
    }
    auto* platte = static_cast<unsigned char*>(std::malloc(proPlatte_ * groesse_));
    if (!platte) return false;
    platten_.push_back(platte);
    rest_ = platte;
    ende_ = platte + proPlatte_ * groesse_;
    DV_GESPERRT(platte, proPlatte_ * groesse_);
    return true;
}

void* BlockVorrat::hole() noexcept {
    void* p = frei_;
    if (frei_) {
        DV_OFFEN(frei_, groesse_);
        frei_ = frei_->naechster;
    } else {
        if (rest_ == ende_ && !neuePlatte()) return nullptr;
        p = rest_;
        rest_ += groesse_;
        DV_OFFEN(p, groesse_);
    }
    ++belegt_;
    return p;
}

void BlockVorrat::gib(void* p) noexcept {
    if (!p) return;
    auto* f = static_cast<Frei*>(p);
    f->naechster = frei_;
    frei_ = f;
    DV_GESPERRT(f, groesse_);
    if (--belegt_ > 0) return;
    // Everything is back: the slabs go back to the system but one, so that a
    // walk that builds and releases one box at a time does not fetch a fresh
    // slab for every box. With one slab the free list and the rest hold all of it.
    if (platten_.size() > 1) gibPlattenFrei(1);
}

}  // namespace dv
