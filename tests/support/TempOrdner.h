#pragma once
// A fresh folder below /tmp for one test, removed with everything in it afterwards.

#include <string>

namespace dv::test {

class TempOrdner {
  public:
    TempOrdner();
    ~TempOrdner();
    TempOrdner(const TempOrdner&) = delete;
    TempOrdner& operator=(const TempOrdner&) = delete;

    // The folder, ending in '/'.
    const std::string& pfad() const { return pfad_; }
    std::string operator/(const std::string& name) const { return pfad_ + name; }

  private:
    std::string pfad_;
};

// Whole file as bytes ("" when missing); writes a file with the given bytes.
std::string leseDatei(const std::string& pfad);
void schreibeDatei(const std::string& pfad, const std::string& inhalt);
bool gibtEs(const std::string& pfad);

}  // namespace dv::test
