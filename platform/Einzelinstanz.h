#pragma once
// Keeps a second desktop instance from starting: a lock file named after the
// program's instance GUID in the user's runtime folder, held for the life of the
// object. A lock left by a process that died is taken over.

#include <memory>
#include <string>

class QLockFile;

namespace dv {

inline constexpr const char* kInstanzGuid = "5174BC8F-A345-48b5-A030-222BA2124B3C";

class Einzelinstanz {
  public:
    // ordner: where the lock lives; empty means the user's runtime folder.
    explicit Einzelinstanz(const std::string& ordner = std::string());
    ~Einzelinstanz();
    Einzelinstanz(const Einzelinstanz&) = delete;
    Einzelinstanz& operator=(const Einzelinstanz&) = delete;

    // True when this process holds the lock (no other instance runs).
    bool erste() const { return erste_; }
    const std::string& pfad() const { return pfad_; }

  private:
    std::string pfad_;
    std::unique_ptr<QLockFile> sperre_;
    bool erste_ = false;
};

}  // namespace dv
