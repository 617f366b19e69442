#include "domain/Vorrat.h"

#include <algorithm>
#include <cstdlib>

namespace dv {

namespace {
constexpr std::size_t kPlattenBytes = 1 << 20;
}

// Blocks keep the alignment of the C allocator and have room for the free link.
BlockVorrat::BlockVorrat(std::size_t groesse) {
    const std::size_t a = alignof(std::max_align_t);
    groesse_ = (std::max(groesse, sizeof(Frei)) + a - 1) / a * a;
    proPlatte_ = std::max<std::size_t>(1, kPlattenBytes / groesse_);
}

BlockVorrat::~BlockVorrat() {
    for (void* platte : platten_) std::free(platte);
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
    return true;
}

void* BlockVorrat::hole() noexcept {
    if (!frei_ && !neuePlatte()) return nullptr;
    Frei* f = frei_;
    frei_ = f->naechster;
    ++belegt_;
    return f;
}

void BlockVorrat::gib(void* p) noexcept {
    if (!p) return;
    auto* f = static_cast<Frei*>(p);
    f->naechster = frei_;
    frei_ = f;
    if (--belegt_ > 0) return;
    // Everything is back: the slabs go back to the system.
    for (void* platte : platten_) std::free(platte);
    platten_.clear();
    frei_ = nullptr;
}

}  // namespace dv
