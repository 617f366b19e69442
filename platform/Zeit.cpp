#include "platform/Zeit.h"

#include <ctime>

namespace dv {
namespace {
LokaleZeit (*g_uhr)() = nullptr;
}

LokaleZeit jetzt() {
    if (g_uhr) return g_uhr();
    std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    LokaleZeit z;
    z.tag = tm.tm_mday;
    z.monat = tm.tm_mon + 1;
    z.jahr = tm.tm_year + 1900;
    z.stunde = tm.tm_hour;
    z.minute = tm.tm_min;
    z.sekunde = tm.tm_sec;
    return z;
}

void setzeUhr(LokaleZeit (*uhr)()) {
    g_uhr = uhr;
}

}  // namespace dv
