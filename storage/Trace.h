#pragma once
// The trace sink that the storage layer and everything above it write to.
// The application services provide the implementation (the trace log file);
// storage only formats lines and asks whether a category is switched on.

#include <cstdarg>
#include <cstdint>

namespace dv {

// Trace categories.
inline constexpr unsigned kTraceTabelle = 2;   // table and database operations
inline constexpr unsigned kTraceSpeicher = 8;  // memory tracing
inline constexpr unsigned kTraceDetail16 = 16;
inline constexpr unsigned kTraceDetail32 = 32;

class Trace {
  public:
    virtual ~Trace() = default;

    unsigned maske() const { return maske_; }
    void setzeMaske(unsigned maske) { maske_ = maske; }
    // A line of category `mask` is written only if every bit of it is switched on.
    bool aktiv(unsigned mask) const { return (mask & maske_) == mask; }

    // printf-style; formats into 1024 bytes and hands the text to the sink.
    void zeile(unsigned mask, const char* format, ...) const __attribute__((format(printf, 3, 4)));

  protected:
    // Receives one formatted message (without time stamp and line end).
    virtual void schreibe(const char* nachricht) const = 0;

  private:
    unsigned maske_ = 0;
};

// A sink that drops everything; the mask stays 0 unless a test sets it.
class KeinTrace final : public Trace {
  protected:
    void schreibe(const char*) const override {}
};

// Pointer value as the 8 hex digits that the memory trace prints.
inline unsigned adr(const void* p) {
    return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(p));
}

}  // namespace dv

// Checks the mask before the arguments are formatted: the hot paths of the
// table engine trace every row, and with the mask off this costs one compare.
#define DV_TRACE(t, mask, ...)                               \
    do {                                                     \
        if ((t).aktiv(mask)) (t).zeile((mask), __VA_ARGS__); \
    } while (0)
