#include "platform/Schreibsperre.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace dv {
namespace {

class DateiSperre final : public Schreibsperre {
  public:
    explicit DateiSperre(std::string pfad) : pfad_(std::move(pfad)) {}
    ~DateiSperre() override {
        if (fd_ >= 0) ::close(fd_);
    }
    DateiSperre(const DateiSperre&) = delete;
    DateiSperre& operator=(const DateiSperre&) = delete;

    Sperrstand nimm(int wartenMs) override {
        if (tiefe_ > 0) {
            ++tiefe_;
            return Sperrstand::Erhalten;
        }
        const int fd = ::open(pfad_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
        if (fd < 0) return Sperrstand::Unmoeglich;
        const auto ende = std::chrono::steady_clock::now() + std::chrono::milliseconds(wartenMs);
        for (;;) {
            if (::flock(fd, LOCK_EX | LOCK_NB) == 0) break;
            if (errno == EINTR) continue;
            const bool belegt = errno == EWOULDBLOCK;
            if (!belegt || std::chrono::steady_clock::now() >= ende) {
                ::close(fd);
                return belegt ? Sperrstand::Belegt : Sperrstand::Unmoeglich;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        fd_ = fd;
        tiefe_ = 1;
        return Sperrstand::Erhalten;
    }

    void gibFrei() override {
        if (tiefe_ == 0 || --tiefe_ > 0) return;
        ::close(fd_);  // closing the last descriptor lets go of the flock
        fd_ = -1;
    }

    std::uint64_t zaehler() override {
        std::uint64_t wert = 0;
        if (fd_ < 0 || ::pread(fd_, &wert, sizeof wert, 0) != static_cast<ssize_t>(sizeof wert))
            return 0;
        return wert;
    }

    void setzeZaehler(std::uint64_t wert) override {
        if (fd_ >= 0) (void)!::pwrite(fd_, &wert, sizeof wert, 0);
    }

  private:
    std::string pfad_;
    int fd_ = -1;
    int tiefe_ = 0;
};

}  // namespace

std::unique_ptr<Schreibsperre> dateiSperre(const std::string& pfad) {
    return std::make_unique<DateiSperre>(pfad);
}

}  // namespace dv
