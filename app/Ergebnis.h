#pragma once
// What every service call answers: done, or not done with the German reason the
// user is shown (catalogue code page, like every text of the services). A refusal
// also says whose fault it is, so that the command line can pick its exit code
// and the desktop its icon; a question the user answered No is no failure to
// report and carries no text; nor does a failure whose message a lower layer has
// shown already through Benutzer.

#include <string>
#include <utility>

namespace dv {

enum class Fehlerart {
    Keiner,
    Eingabe,     // the call's input is wrong: unknown id, text too long, value out of range
    Fehlschlag,  // the catalogue could not do it: disk, read-only medium, missing file
    Abgelehnt,   // the user answered No to the question (no text)
};

class [[nodiscard]] Ergebnis {
  public:
    Ergebnis() = default;  // done
    static Ergebnis gut() { return Ergebnis(); }
    static Ergebnis eingabe(std::string grund) { return {Fehlerart::Eingabe, std::move(grund)}; }
    static Ergebnis fehlschlag(std::string grund) {
        return {Fehlerart::Fehlschlag, std::move(grund)};
    }
    static Ergebnis abgelehnt() { return {Fehlerart::Abgelehnt, std::string()}; }

    bool ok() const { return art_ == Fehlerart::Keiner; }
    explicit operator bool() const { return ok(); }
    Fehlerart art() const { return art_; }
    const std::string& grund() const { return grund_; }

  private:
    Ergebnis(Fehlerart art, std::string grund) : art_(art), grund_(std::move(grund)) {}

    Fehlerart art_ = Fehlerart::Keiner;
    std::string grund_;
};

// A result that carries a value when done. The value of a refusal is T{}.
template <class T>
class [[nodiscard]] ErgebnisMit : public Ergebnis {
  public:
    ErgebnisMit(T wert) : wert_(std::move(wert)) {}                // NOLINT: a value is success
    ErgebnisMit(Ergebnis fehler) : Ergebnis(std::move(fehler)) {}  // NOLINT: a refusal

    const T& wert() const { return wert_; }
    T& wert() { return wert_; }
    const T* operator->() const { return &wert_; }
    T* operator->() { return &wert_; }

  private:
    T wert_{};
};

}  // namespace dv

// In a function returning an Ergebnis (or ErgebnisMit<T>): returns the refusal of
// ausdruck, so that of several checks the first refusal wins.
#define DV_PRUEFE(ausdruck)                                      \
    do {                                                         \
        if (::dv::Ergebnis e_ = (ausdruck); !e_.ok()) return e_; \
    } while (false)
