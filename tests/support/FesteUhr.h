#pragma once
// Fixes the clock of platform/Zeit.h for the lifetime of the object, so that time
// stamps in logs and file names are known to the test.

#include "platform/Zeit.h"

namespace dv::test {

class FesteUhr {
  public:
    FesteUhr(int tag, int monat, int jahr, int stunde = 0, int minute = 0, int sekunde = 0) {
        zeit() = LokaleZeit{tag, monat, jahr, stunde, minute, sekunde};
        setzeUhr(&lies);
    }
    ~FesteUhr() { setzeUhr(nullptr); }
    FesteUhr(const FesteUhr&) = delete;
    FesteUhr& operator=(const FesteUhr&) = delete;

  private:
    static LokaleZeit& zeit() {
        static LokaleZeit z;
        return z;
    }
    static LokaleZeit lies() { return zeit(); }
};

}  // namespace dv::test
