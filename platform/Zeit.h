#pragma once
// Local time, behind a function pointer so tests can fix the clock.

namespace dv {

struct LokaleZeit {
    int tag = 1, monat = 1, jahr = 1970;
    int stunde = 0, minute = 0, sekunde = 0;
};

LokaleZeit jetzt();

// Replaces the clock (null restores the system clock). For tests only.
void setzeUhr(LokaleZeit (*uhr)());

}  // namespace dv
