#pragma once
// Word material of the generator: German (and some foreign) names and titles,
// with umlauts, as Windows-1252 texts, and a small deterministic random source.

#include <cstdint>
#include <string>
#include <vector>

namespace dv::generator {

// splitmix64: the same numbers for the same seed on every platform.
class Zufall {
  public:
    explicit Zufall(std::uint64_t saat) : zustand_(saat) {}
    std::uint64_t naechste() {
        std::uint64_t z = (zustand_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    // 0 .. n-1 (n > 0).
    long bis(long n) { return static_cast<long>(naechste() % static_cast<std::uint64_t>(n)); }
    // von .. bis inclusive.
    long zwischen(long von, long bis_) { return von + bis(bis_ - von + 1); }
    bool prozent(int p) { return bis(100) < p; }
    template <class T>
    const T& eins(const std::vector<T>& v) {
        return v[static_cast<std::size_t>(bis(static_cast<long>(v.size())))];
    }

  private:
    std::uint64_t zustand_;
};

struct Wortschatz {
    std::vector<std::string> vornamen, nachnamen;
    std::vector<std::string> titelAnfang, titelWort, titelOrt;
    std::vector<std::string> genreBasis, genreZusatz;
    std::vector<std::string> bildformate, tonBasis, tonKanaele, sprachen;
    std::vector<std::string> verpackungen, extras, formate, funktionen;
};

// The word lists (fixed).
const Wortschatz& wortschatz();

// A film or box title of one to a few words, at most max characters.
std::string titel(Zufall& z, std::size_t max);

}  // namespace dv::generator
