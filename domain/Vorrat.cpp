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
    gibPlattenFrei();
}

void BlockVorrat::gibPlattenFrei() noexcept {
    for (void* platte : platten_) {
        DV_OFFEN(platte, proPlatte_ * groesse_);
        std::free(platte);
    }
    platten_.clear();
    frei_ = nullptr;
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
    for (std::size_t i = proPlatte_; i-- > 0;) {
        auto* f = reinterpret_cast<Frei*>(platte + i * groesse_);
        f->naechster = frei_;
        frei_ = f;
    }
    DV_GESPERRT(platte, proPlatte_ * groesse_);
    return true;
}

void* BlockVorrat::hole() noexcept {
    if (!frei_ && !neuePlatte()) return nullptr;
    Frei* f = frei_;
    DV_OFFEN(f, groesse_);
    frei_ = f->naechster;
    ++belegt_;
    return f;
}

void BlockVorrat::gib(void* p) noexcept {
    if (!p) return;
    auto* f = static_cast<Frei*>(p);
    f->naechster = frei_;
    frei_ = f;
    DV_GESPERRT(f, groesse_);
    if (--belegt_ > 0) return;
    // Everything is back: the slabs go back to the system.
    gibPlattenFrei();
}

}  // namespace dv
