#include "storage/Trace.h"

#include <cstdio>

namespace dv {

void Trace::zeile(unsigned mask, const char* format, ...) const {
    if (!aktiv(mask)) return;
    char puffer[1024];
    va_list args;
    va_start(args, format);
    std::vsnprintf(puffer, sizeof puffer, format, args);
    va_end(args);
    schreibe(puffer);
}

}  // namespace dv
