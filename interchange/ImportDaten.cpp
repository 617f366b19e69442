#include "interchange/ImportDaten.h"

#include <cerrno>
#include <cstdlib>
#include <thread>

#include "interchange/BoxFormat.h"
#include "interchange/BoxLeser.h"

namespace dv {
namespace {

using namespace box;

std::string kappe(const std::string& s, std::size_t n) {
    return s.size() > n ? s.substr(0, n) : s;
}

long zahl(const std::string& s) {
    return std::strtol(s.c_str(), nullptr, 10);
}

// A lookup name on its way in: the hook only gives the processor away.
ImportName lookup(const std::string& s) {
    std::this_thread::yield();
    return ImportName{kappe(s, kImportNameMax), 0};
}

// "%ld#%ld"; false when the text is not of that form.
bool paar(const std::string& s, std::pair<long, long>& p) {
    const char* a = s.c_str();
    char* ende = nullptr;
    errno = 0;
    const long x = std::strtol(a, &ende, 10);
    if (ende == a || *ende != '#' || errno) return false;
    const char* b = ende + 1;
    const long y = std::strtol(b, &ende, 10);
    if (ende == b || *ende != '\0' || errno) return false;
    p = {x, y};
    return true;
}

ImportPerson person(const std::string& s) {
    ImportPerson p;
    const std::size_t t1 = s.find('\t');
    const std::size_t t2 = t1 == std::string::npos ? t1 : s.find('\t', t1 + 1);
    p.name = kappe(s.substr(0, t1), kImportPersonMax);
    if (t1 != std::string::npos) p.vorname = kappe(s.substr(t1 + 1, t2 - t1 - 1), kImportPersonMax);
    if (t2 != std::string::npos) p.instanz = static_cast<std::int16_t>(zahl(s.substr(t2 + 1)));
    return p;
}

class Walker {
  public:
    explicit Walker(ImportBox& b) : b_(b) {}

    void eintrag(const BoxEintrag& e) {
        if (boxEintrag(e)) return;
        if (e.token == IMP_EXP_DVD) {
            b_.dvds.emplace_back();
            dvd_ = &b_.dvds.back();
            film_ = nullptr;
            return;
        }
        if (!dvd_) return;
        if (dvdEintrag(e)) return;
        if (e.token == IMP_EXP_FILM) {
            dvd_->filme.emplace_back();
            film_ = &dvd_->filme.back();
            return;
        }
        if (film_) filmEintrag(e);
    }

  private:
    bool boxEintrag(const BoxEintrag& e) {
        switch (e.token) {
            case IMP_EXP_BOX:
                b_.anzahlDvds = static_cast<int>(zahl(e.text));
                return true;
            case IMP_EXP_BOX_TITEL:
                b_.titel = kappe(e.text, kImportTitelMax);
                return true;
            case IMP_EXP_BOX_EAN:
                b_.ean = kappe(e.text, kImportEanMax);
                return true;
            case IMP_EXP_BOX_VERP:
                b_.verpackung = lookup(e.text);
                return true;
            case IMP_EXP_BOX_EXTRAS:
                b_.extras.push_back(lookup(e.text));
                return true;
            case IMP_EXP_BOX_TAGS:
                if (!e.text.empty()) b_.tags = e.text;
                return true;
            default:
                return false;
        }
    }

    bool dvdEintrag(const BoxEintrag& e) {
        ImportDvd& d = *dvd_;
        switch (e.token) {
            case IMP_EXP_DVD_TITEL:
                d.titel = kappe(e.text, kImportTitelMax);
                return true;
            case IMP_EXP_DVD_RC:
                d.rc = static_cast<std::int8_t>(zahl(e.text));
                return true;
            case IMP_EXP_DVD_OPT:
                d.opt = static_cast<std::int8_t>(zahl(e.text));
                return true;
            case IMP_EXP_DVD_SN:
                d.sn = static_cast<std::uint32_t>(zahl(e.text));
                return true;
            case IMP_EXP_DVD_LOW:
                d.bytesLow = static_cast<std::uint32_t>(zahl(e.text));
                return true;
            case IMP_EXP_DVD_HIGH:
                d.bytesHigh = static_cast<std::uint32_t>(zahl(e.text));
                return true;
            case IMP_EXP_DVD_JAHR:
                d.jahr = static_cast<int>(zahl(e.text));
                return true;
            case IMP_EXP_DVD_FORMAT:
                d.format = lookup(e.text);
                return true;
            case IMP_EXP_DVD_EXTRAS:
                d.extras.push_back(lookup(e.text));
                return true;
            case IMP_EXP_DVD_TAGS:
                if (!e.text.empty()) d.tags = e.text;
                return true;
            default:
                return false;
        }
    }

    void filmEintrag(const BoxEintrag& e) {
        ImportFilm& f = *film_;
        std::pair<long, long> p;
        switch (e.token) {
            case IMP_EXP_FILM_TITEL:
                f.titel = kappe(e.text, kImportTitelMax);
                break;
            case IMP_EXP_FILM_ORIG_TITEL:
                f.original = kappe(e.text, kImportTitelMax);
                break;
            case IMP_EXP_FILM_ALTERNATIV_TITEL:
                if (!e.text.empty()) f.weitere.push_back(kappe(e.text, kImportTitelMax));
                break;
            case IMP_EXP_FILM_FSK:
                f.fsk = static_cast<int>(zahl(e.text));
                break;
            case IMP_EXP_FILM_JAHR:
                f.jahr = static_cast<int>(zahl(e.text));
                break;
            case IMP_EXP_FILM_LEN:
                f.laenge = static_cast<int>(zahl(e.text));
                break;
            case IMP_EXP_FILM_BILDFORMAT:
                f.bildformate.push_back(lookup(e.text));
                break;
            case IMP_EXP_FILM_GENRE:
                f.genres.push_back(lookup(e.text));
                break;
            case IMP_EXP_FILM_UNTERTITEL:
                f.untertitel.push_back(lookup(e.text));
                break;
            case IMP_EXP_FILM_SPRACHE:
                f.sprachen.push_back(lookup(e.text));
                break;
            case IMP_EXP_FILM_TONFORMAT:
                f.tonformate.push_back(lookup(e.text));
                break;
            case IMP_EXP_FILM_SPRACHEN_TONFORMAT:
                if (paar(e.text, p)) f.sprachTon.push_back(p);
                break;
            case IMP_EXP_FILM_FUNKTION:
                f.funktionen.push_back(lookup(e.text));
                break;
            case IMP_EXP_FILM_PERSON:
                f.personen.push_back(person(e.text));
                break;
            case IMP_EXP_FILM_PERSON_FUNKTION:
                if (paar(e.text, p)) f.personFunktion.push_back(p);
                break;
            case IMP_EXP_FILM_PERSON_ALIAS: {
                const std::size_t tab = e.text.find('\t');
                if (tab != std::string::npos && tab + 1 < e.text.size())
                    f.alias.emplace_back(zahl(e.text.substr(0, tab)),
                                         kappe(e.text.substr(tab + 1), kImportNameMax));
                break;
            }
            case IMP_EXP_FILM_INHALT:
                f.inhalt = e.text;
                break;
            case IMP_EXP_FILM_KOMMENTAR:
                f.kommentar = e.text;
                break;
            case IMP_EXP_FILM_TAGS:
                if (!e.text.empty()) f.tags = e.text;
                break;
            default:
                break;
        }
    }

    ImportBox& b_;
    ImportDvd* dvd_ = nullptr;
    ImportFilm* film_ = nullptr;
};

}  // namespace

BoxVorschau vorschau(std::string_view daten) {
    BoxVorschau v;
    BoxEintrag e;
    for (std::size_t pos = 0; pos < daten.size(); pos += e.verbraucht) {
        if (!naechsterBoxEintrag(daten, pos, e) || e.token == IMP_EXP_ENDE_TOKEN) break;
        if (e.token == IMP_EXP_BOX) {
            v.daten = true;
            v.anzahlDvds = static_cast<int>(zahl(e.text));
        } else if (e.token == IMP_EXP_BOX_TITEL) {
            v.daten = true;
            v.titel = kappe(e.text, kImportTitelMax);
        } else if (e.token == IMP_EXP_BOX_EAN) {
            v.daten = true;
            v.ean = kappe(e.text, kImportEanMax);
        } else if (e.token == IMP_EXP_DVD) {
            break;  // the box's own entries come first
        }
    }
    return v;
}

bool zerlegeBoxDaten(std::string_view daten, ImportBox& box) {
    box = ImportBox{};
    Walker w(box);
    BoxEintrag e;
    for (std::size_t pos = 0; pos < daten.size(); pos += e.verbraucht) {
        if (!naechsterBoxEintrag(daten, pos, e)) return false;
        if (e.token == IMP_EXP_ENDE_TOKEN) return true;
        w.eintrag(e);
    }
    return true;
}

std::vector<std::string> tagsAusText(const std::string& text) {
    std::vector<std::string> tags;
    std::size_t anfang = 0;
    while (anfang < text.size()) {
        std::size_t ende = text.find('\n', anfang);
        if (ende == std::string::npos) ende = text.size();
        std::string t = text.substr(anfang, ende - anfang);
        if (!t.empty() && t.back() == '\r') t.pop_back();
        if (!t.empty()) tags.push_back(t);
        anfang = ende + 1;
    }
    return tags;
}

}  // namespace dv
