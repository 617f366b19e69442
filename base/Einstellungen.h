#pragma once
// The settings store: organisation "Tormel", application "DORVANO" in the
// platform's native store (the registry key "Software\Tormel\DORVANO" on Windows,
// ~/.config/Tormel/DORVANO.conf on Linux). Every call opens the store, does one
// query or one write and closes it again; nothing is cached.
//
// Semantics kept from the registry: while no store exists (the "key" is missing)
// every getter returns false and leaves its output alone, and nothing is written
// until a setter runs. Numbers (DWORD) and texts (SZ) stay distinguishable:
// numbers are stored as plain numbers, texts as raw 8-bit byte arrays, and a getter
// of the one kind does not accept a value of the other.

#include <cstdint>
#include <string>

namespace dv {

inline constexpr std::uint32_t kOptionsStandard = 47118;  // 0xB80E
inline constexpr std::uint32_t kOptions2Standard = 12;
inline constexpr std::uint32_t kMaxFilmeAufklappenStandard = 10;
inline constexpr std::uint32_t kFilmTitelSucheStandard = 7;

class Einstellungen {
  public:
    // The user's own store.
    Einstellungen();
    // A store in the given file (tests, portable installations).
    explicit Einstellungen(std::string dateiPfad);

    // The file behind the store (exists only after the first setter).
    std::string dateiPfad() const;
    bool vorhanden() const;

    // Generic number: a missing value is created with the caller's value; a text
    // stored under the name gives false and is left alone.
    bool getZahl(const char* name, std::uint32_t& wert);
    bool setZahl(const char* name, std::uint32_t wert);
    // Generic text, at most 255 bytes.
    bool getText(const char* name, std::string& text);
    bool setText(const char* name, const std::string& text);

    // Named values. The getters of Options, Options2, MaxFilmeAufklappen and
    // FilmTitelSuche yield their default when the value is missing, without writing it.
    bool getOptions(std::uint32_t& v) { return getBenannt("Options", kOptionsStandard, v); }
    bool setOptions(std::uint32_t v) { return setZahl("Options", v); }
    bool getOptions2(std::uint32_t& v) { return getBenannt("Options2", kOptions2Standard, v); }
    bool setOptions2(std::uint32_t v) { return setZahl("Options2", v); }
    bool getMaxFilmeAufklappen(std::uint32_t& v) {
        return getBenannt("MaxFilmeAufklappen", kMaxFilmeAufklappenStandard, v);
    }
    bool setMaxFilmeAufklappen(std::uint32_t v) { return setZahl("MaxFilmeAufklappen", v); }
    bool getFilmTitelSuche(std::uint32_t& v) {
        return getBenannt("FilmTitelSuche", kFilmTitelSucheStandard, v);
    }
    bool setFilmTitelSuche(std::uint32_t v) { return setZahl("FilmTitelSuche", v); }
    // No default: a missing value returns false.
    bool getFilter(std::uint32_t& v) { return getOhneStandard("Filter", v); }
    bool setFilter(std::uint32_t v) { return setZahl("Filter", v); }
    bool getXMLFilter(std::uint32_t& v) { return getOhneStandard("XMLFilter", v); }
    bool setXMLFilter(std::uint32_t v) { return setZahl("XMLFilter", v); }
    // Texts of at most 259 bytes.
    bool getImportUrl(std::string& t) { return getTextMax("ImportUrl", 260, t); }
    bool setImportUrl(const std::string& t) { return setText("ImportUrl", t); }
    bool getLastPicPath(std::string& t) { return getTextMax("LastPicPath", 260, t); }
    bool setLastPicPath(const std::string& t) { return setText("LastPicPath", t); }

    // Window positions ("WP_main", "WP_suche", ...).
    bool getFensterPosition(const char* name, std::string& t) { return getText(name, t); }
    bool setFensterPosition(const char* name, const std::string& t) { return setText(name, t); }
    bool loescheFensterPosition(const char* name = "WP_main");

  private:
    bool getBenannt(const char* name, std::uint32_t standard, std::uint32_t& wert);
    bool getOhneStandard(const char* name, std::uint32_t& wert);
    bool getTextMax(const char* name, std::size_t puffer, std::string& text);

    std::string datei_;  // empty: the user's native store
};

}  // namespace dv
