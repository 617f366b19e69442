#include "app/EinstellungsDienst.h"

#include "app/CApplikation.h"
#include "retrieval/WebImport.h"

namespace dv {

std::string EinstellungsDienst::importUrl() {
    return dv::importUrl(app_.einstellungen());
}

std::string EinstellungsDienst::fensterPosition(const char* name) {
    std::string text;
    app_.einstellungen().getFensterPosition(name, text);
    return text;
}

void EinstellungsDienst::setzeFensterPosition(const char* name, const std::string& text) {
    app_.einstellungen().setFensterPosition(name, text);
}

}  // namespace dv
