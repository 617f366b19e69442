#include "platform/Dateisystem.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace dv {
namespace {

class PosixDatei final : public Datei {
  public:
    explicit PosixDatei(int fd) : fd_(fd) {}
    ~PosixDatei() override { ::close(fd_); }
    PosixDatei(const PosixDatei&) = delete;
    PosixDatei& operator=(const PosixDatei&) = delete;

    std::int64_t laenge() override {
        struct stat st {};
        if (::fstat(fd_, &st) != 0) return -1;
        return st.st_size;
    }
    std::int64_t lese(std::int64_t pos, void* ziel, std::size_t n) override {
        auto* p = static_cast<char*>(ziel);
        std::size_t gelesen = 0;
        while (gelesen < n) {
            ssize_t r = ::pread(fd_, p + gelesen, n - gelesen, pos + static_cast<off_t>(gelesen));
            if (r < 0) {
                if (errno == EINTR) continue;
                return -1;
            }
            if (r == 0) break;
            gelesen += static_cast<std::size_t>(r);
        }
        return static_cast<std::int64_t>(gelesen);
    }
    bool schreibe(std::int64_t pos, const void* quelle, std::size_t n) override {
        const auto* p = static_cast<const char*>(quelle);
        std::size_t geschrieben = 0;
        while (geschrieben < n) {
            ssize_t r = ::pwrite(fd_, p + geschrieben, n - geschrieben,
                                 pos + static_cast<off_t>(geschrieben));
            if (r < 0) {
                if (errno == EINTR) continue;
                return false;
            }
            geschrieben += static_cast<std::size_t>(r);
        }
        return true;
    }
    bool haengeAn(const void* quelle, std::size_t n) override {
        std::int64_t ende = laenge();
        if (ende < 0) return false;
        return schreibe(ende, quelle, n);
    }
    bool kuerze(std::int64_t neueLaenge) override { return ::ftruncate(fd_, neueLaenge) == 0; }
    bool synchronisiere() override { return ::fdatasync(fd_) == 0; }
    void beginneSynchronisieren() override {
#ifdef __linux__
        ::sync_file_range(fd_, 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
    }

  private:
    int fd_;
};

class PosixDateisystem final : public Dateisystem {
  public:
    std::unique_ptr<Datei> oeffne(const std::string& pfad, OeffnenModus modus,
                                  int* fehler) override {
        int flags = O_CLOEXEC;
        switch (modus) {
            case OeffnenModus::Lesen:
                flags |= O_RDONLY;
                break;
            case OeffnenModus::LesenSchreiben:
                flags |= O_RDWR;
                break;
            case OeffnenModus::Erzeugen:
                flags |= O_RDWR | O_CREAT | O_TRUNC;
                break;
            case OeffnenModus::Anhaengen:
                flags |= O_WRONLY | O_CREAT;
                break;
        }
        int fd = ::open(pfad.c_str(), flags, 0644);
        if (fd < 0) {
            if (fehler) *fehler = errno;
            return nullptr;
        }
        struct stat st {};
        if (::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
            ::close(fd);
            if (fehler) *fehler = EISDIR;
            return nullptr;
        }
        return std::make_unique<PosixDatei>(fd);
    }
    bool existiert(const std::string& pfad) override {
        struct stat st {};
        return ::stat(pfad.c_str(), &st) == 0;
    }
    bool istOrdner(const std::string& pfad) override {
        struct stat st {};
        return ::stat(pfad.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
    }
    bool erzeugeOrdner(const std::string& pfad) override {
        if (pfad.empty()) return false;
        std::string teil;
        for (std::size_t i = 0; i <= pfad.size(); ++i) {
            if (i == pfad.size() || pfad[i] == '/') {
                teil = pfad.substr(0, i);
                if (!teil.empty() && !istOrdner(teil)) {
                    if (::mkdir(teil.c_str(), 0755) != 0 && errno != EEXIST) return false;
                }
            }
        }
        return istOrdner(pfad);
    }
    bool loesche(const std::string& pfad) override { return ::unlink(pfad.c_str()) == 0; }
    bool kopiere(const std::string& von, const std::string& nach) override {
        std::string daten;
        if (!leseAlles(*this, von, daten)) return false;
        return schreibeAlles(*this, nach, daten);
    }
    bool benenneUm(const std::string& von, const std::string& nach) override {
        return std::rename(von.c_str(), nach.c_str()) == 0;
    }
    std::vector<OrdnerEintrag> liste(const std::string& ordner) override {
        std::vector<OrdnerEintrag> ergebnis;
        DIR* d = ::opendir(ordner.c_str());
        if (!d) return ergebnis;
        std::string basis = ordner;
        if (!basis.empty() && basis.back() != '/') basis += '/';
        while (dirent* e = ::readdir(d)) {
            std::string name = e->d_name;
            if (name == "." || name == "..") continue;
            OrdnerEintrag eintrag;
            eintrag.name = name;
            struct stat st {};
            if (::stat((basis + name).c_str(), &st) == 0) {
                eintrag.istOrdner = S_ISDIR(st.st_mode);
                eintrag.laenge = st.st_size;
            }
            ergebnis.push_back(std::move(eintrag));
        }
        ::closedir(d);
        return ergebnis;
    }
    bool synchronisiereOrdner(const std::string& ordner) override {
        const int fd =
            ::open(ordner.empty() ? "." : ordner.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fd < 0) return false;
        const bool ok = ::fsync(fd) == 0;
        ::close(fd);
        return ok;
    }
};

}  // namespace

Dateisystem& echtesDateisystem() {
    static PosixDateisystem fs;
    return fs;
}

std::int64_t freierPlatz(const std::string& ordner) {
    struct statvfs s {};
    if (::statvfs(ordner.c_str(), &s) != 0) return -1;
    return static_cast<std::int64_t>(s.f_bavail) * static_cast<std::int64_t>(s.f_frsize);
}

bool leseAlles(Dateisystem& fs, const std::string& pfad, std::string& out) {
    auto datei = fs.oeffne(pfad, OeffnenModus::Lesen);
    if (!datei) return false;
    std::int64_t n = datei->laenge();
    if (n < 0) return false;
    std::string puffer(static_cast<std::size_t>(n), '\0');
    if (datei->lese(0, puffer.data(), puffer.size()) != n) return false;
    out = std::move(puffer);
    return true;
}

bool schreibeAlles(Dateisystem& fs, const std::string& pfad, const std::string& daten) {
    auto datei = fs.oeffne(pfad, OeffnenModus::Erzeugen);
    if (!datei) return false;
    return datei->schreibe(0, daten.data(), daten.size());
}

bool schreibeSicher(Dateisystem& fs, const std::string& pfad, const std::string& daten) {
    const std::string tmp = pfad + ".tmp";
    if (!schreibeAlles(fs, tmp, daten)) {
        fs.loesche(tmp);
        return false;
    }
    if (!fs.benenneUm(tmp, pfad)) {
        fs.loesche(tmp);
        return false;
    }
    return true;
}

std::string programmDateiOrdner() {
    char pfad[4096];
    const ssize_t n = ::readlink("/proc/self/exe", pfad, sizeof pfad - 1);
    if (n <= 0) return std::string();
    std::string p(pfad, static_cast<std::size_t>(n));
    return p.substr(0, p.find_last_of('/') + 1);
}

}  // namespace dv
