#include "app/Gedenken.h"

#include "platform/Zeit.h"

namespace dv {

bool istGedenkzeit() {
    const LokaleZeit t = jetzt();
    return t.tag == 1 && t.monat == 7 && (t.stunde == 11 || t.stunde == 12);
}

std::string gedenkText() {
    return "In Erinnerung an alle, die ihre Filme mit uns geteilt haben\n"
           "und deren Sammlungen in unseren Regalen weiterleben.";
}

}  // namespace dv
