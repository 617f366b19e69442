// The Linux side of the optical drives: libudev (or /proc) for the drive list,
// the raw device or an image file read with pread, the cdrom ioctls for the tray.

#include <fcntl.h>
#include <libudev.h>
#include <linux/cdrom.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "platform/Laufwerke.h"
#include "platform/Udf.h"

namespace dv {
namespace {

LaufwerkErgebnis fehler(LaufwerkFehler art, int nummer, std::string text) {
    LaufwerkErgebnis e;
    e.art = art;
    e.nummer = nummer;
    e.text = std::move(text);
    return e;
}

LaufwerkErgebnis systemFehler(int nummer) {
    return fehler(LaufwerkFehler::System, nummer, systemFehlerText(nummer));
}

// Closes the descriptor when it goes out of scope.
class Deskriptor {
  public:
    Deskriptor() = default;
    ~Deskriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    Deskriptor(const Deskriptor&) = delete;
    Deskriptor& operator=(const Deskriptor&) = delete;
    void setze(int fd) { fd_ = fd; }
    int fd() const { return fd_; }

  private:
    int fd_ = -1;
};

LaufwerkErgebnis keinZugriff(int nummer, bool geraet) {
    if (geraet) {
        return fehler(
            LaufwerkFehler::KeinZugriff, nummer,
            "Kein Lesezugriff auf das DVD-Laufwerk. Der Benutzer muss zur Gruppe "
            "\"cdrom\" gehören (sudo usermod -a -G cdrom BENUTZER, danach neu anmelden).");
    }
    return fehler(LaufwerkFehler::KeinZugriff, nummer,
                  "Kein Lesezugriff auf die Abbilddatei: Zugriff verweigert.");
}

// Opens a drive's device or an image file read-only; for a drive also checks
// that a disc is in it. geraet tells which of the two the path is.
LaufwerkErgebnis oeffne(const std::string& pfad, Deskriptor& d, bool& geraet) {
    struct stat st {};
    if (::stat(pfad.c_str(), &st) != 0) {
        const int e = errno;
        if (e == EACCES || e == EPERM) return keinZugriff(e, pfad.rfind("/dev/", 0) == 0);
        return systemFehler(e);
    }
    geraet = S_ISBLK(st.st_mode);
    if (!geraet && !S_ISREG(st.st_mode)) {
        return fehler(LaufwerkFehler::System, 0,
                      "Der Pfad ist weder ein Laufwerk noch eine Datei.");
    }
    const int fd = ::open(pfad.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        const int e = errno;
        if (e == EACCES || e == EPERM) return keinZugriff(e, geraet);
        return systemFehler(e);
    }
    d.setze(fd);
    if (geraet) {
        const int status = ::ioctl(fd, CDROM_DRIVE_STATUS, CDSL_CURRENT);
        if (status == CDS_NO_DISC || status == CDS_TRAY_OPEN || status == CDS_DRIVE_NOT_READY) {
            return fehler(LaufwerkFehler::KeinDatentraeger, 0,
                          "Das Gerät ist nicht bereit: es liegt kein Datenträger im Laufwerk.");
        }
    }
    return {};
}

// The sectors of an open device or file, read with pread.
class DeskriptorQuelle : public SektorQuelle {
  public:
    DeskriptorQuelle(int fd, std::uint64_t bytes) : fd_(fd), sektoren_(bytes / kSektorGroesse) {}

    std::uint64_t sektoren() const override { return sektoren_; }

    LaufwerkErgebnis lies(std::uint64_t sektor, std::uint32_t anzahl, void* ziel) override {
        if (sektor > sektoren_ || anzahl > sektoren_ - sektor) {
            return fehler(LaufwerkFehler::Beschaedigt, 0,
                          "Die Datenträgerstruktur ist beschädigt und nicht lesbar "
                          "(Adresse außerhalb des Datenträgers).");
        }
        auto* p = static_cast<char*>(ziel);
        std::size_t rest = static_cast<std::size_t>(anzahl) * kSektorGroesse;
        auto pos = static_cast<off_t>(sektor * kSektorGroesse);
        while (rest > 0) {
            const ssize_t n = ::pread(fd_, p, rest, pos);
            if (n < 0 && errno == EINTR) continue;
            if (n < 0) return systemFehler(errno);
            if (n == 0) return systemFehler(EIO);
            p += n;
            pos += n;
            rest -= static_cast<std::size_t>(n);
        }
        return {};
    }

  private:
    int fd_;
    std::uint64_t sektoren_;
};

// Opens the source and hands its sectors to f.
template <class F>
LaufwerkErgebnis mitQuelle(const std::string& pfad, F&& f) {
    Deskriptor d;
    bool geraet = false;
    auto r = oeffne(pfad, d, geraet);
    if (!r.ok()) return r;
    std::uint64_t bytes = 0;
    if (geraet) {
        if (::ioctl(d.fd(), BLKGETSIZE64, &bytes) != 0) return systemFehler(errno);
    } else {
        struct stat st {};
        if (::fstat(d.fd(), &st) != 0) return systemFehler(errno);
        bytes = static_cast<std::uint64_t>(st.st_size);
    }
    DeskriptorQuelle quelle(d.fd(), bytes);
    return f(quelle);
}

std::string eigenschaft(udev_device* g, const char* name) {
    const char* wert = udev_device_get_property_value(g, name);
    std::string s = wert ? wert : "";
    std::replace(s.begin(), s.end(), '_', ' ');
    return s;
}

std::vector<OptischesLaufwerk> udevLaufwerke() {
    std::vector<OptischesLaufwerk> liste;
    udev* u = udev_new();
    if (!u) return liste;
    udev_enumerate* e = udev_enumerate_new(u);
    if (e) {
        udev_enumerate_add_match_subsystem(e, "block");
        udev_enumerate_add_match_property(e, "ID_CDROM", "1");
        udev_enumerate_scan_devices(e);
        udev_list_entry* eintrag = nullptr;
        udev_list_entry_foreach(eintrag, udev_enumerate_get_list_entry(e)) {
            udev_device* g = udev_device_new_from_syspath(u, udev_list_entry_get_name(eintrag));
            if (!g) continue;
            if (const char* knoten = udev_device_get_devnode(g)) {
                std::string modell = eigenschaft(g, "ID_VENDOR");
                const std::string typ = eigenschaft(g, "ID_MODEL");
                if (!modell.empty() && !typ.empty()) modell += ' ';
                liste.push_back({0, knoten, modell + typ});
            }
            udev_device_unref(g);
        }
        udev_enumerate_unref(e);
    }
    udev_unref(u);
    return liste;
}

class LinuxLaufwerke : public Laufwerke {
  public:
    std::vector<OptischesLaufwerk> liste() override {
        auto liste = udevLaufwerke();
        if (liste.empty()) {
            std::ifstream info("/proc/sys/dev/cdrom/info");
            std::stringstream inhalt;
            inhalt << info.rdbuf();
            for (auto& g : cdromInfoGeraete(inhalt.str())) liste.push_back({0, g, ""});
        }
        return vergebeBuchstaben(std::move(liste));
    }

    LaufwerkErgebnis volumen(const std::string& quelle, VolumenFakten& fakten) override {
        return mitQuelle(quelle, [&](SektorQuelle& q) { return udf::volumen(q, fakten); });
    }

    LaufwerkErgebnis groesse(const std::string& quelle, std::uint64_t& bytes) override {
        return mitQuelle(quelle, [&](SektorQuelle& q) { return udf::groesse(q, bytes); });
    }

    LaufwerkErgebnis leseDatei(const std::string& quelle, const std::string& pfad, std::size_t n,
                               std::string& daten) override {
        return mitQuelle(quelle,
                         [&](SektorQuelle& q) { return udf::leseDatei(q, pfad, n, daten); });
    }

    LaufwerkErgebnis schublade(const std::string& geraet, bool oeffnen) override {
        const int fd = ::open(geraet.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0) {
            const int e = errno;
            if (e == EACCES || e == EPERM) return keinZugriff(e, true);
            return systemFehler(e);
        }
        Deskriptor d;
        d.setze(fd);
        const int faehig = ::ioctl(fd, CDROM_GET_CAPABILITY, 0);
        if (faehig < 0) return systemFehler(errno);
        if (!(faehig & (oeffnen ? CDC_OPEN_TRAY : CDC_CLOSE_TRAY))) {
            return fehler(LaufwerkFehler::NichtMoeglich, 0,
                          oeffnen ? "Das Laufwerk kann die Schublade nicht öffnen."
                                  : "Das Laufwerk kann die Schublade nicht schließen.");
        }
        if (::ioctl(fd, oeffnen ? CDROMEJECT : CDROMCLOSETRAY, 0) != 0) {
            const int e = errno;
            if (e == EBUSY) {
                return fehler(LaufwerkFehler::System, e,
                              "Der Datenträger wird noch verwendet (eingehängt) und kann nicht "
                              "ausgeworfen werden.");
            }
            return systemFehler(e);
        }
        return {};
    }
};

// "sr10" -> ("sr", 10); a name without a trailing number sorts by name alone.
std::pair<std::string, long> sortierSchluessel(const std::string& geraet) {
    const std::string name = geraet.substr(geraet.find_last_of('/') + 1);
    std::size_t i = name.size();
    while (i > 0 && name[i - 1] >= '0' && name[i - 1] <= '9') --i;
    const long nummer = i < name.size() ? std::strtol(name.c_str() + i, nullptr, 10) : -1;
    return {name.substr(0, i), nummer};
}

}  // namespace

std::vector<OptischesLaufwerk> vergebeBuchstaben(std::vector<OptischesLaufwerk> laufwerke) {
    std::sort(laufwerke.begin(), laufwerke.end(), [](const auto& a, const auto& b) {
        return sortierSchluessel(a.geraet) < sortierSchluessel(b.geraet);
    });
    laufwerke.erase(std::unique(laufwerke.begin(), laufwerke.end(),
                                [](const auto& a, const auto& b) { return a.geraet == b.geraet; }),
                    laufwerke.end());
    if (laufwerke.size() > 23) laufwerke.resize(23);
    char buchstabe = 'D';
    for (auto& l : laufwerke) l.buchstabe = buchstabe++;
    return laufwerke;
}

std::vector<std::string> cdromInfoGeraete(const std::string& inhalt) {
    std::vector<std::string> geraete;
    std::istringstream zeilen(inhalt);
    std::string zeile;
    const std::string kopf = "drive name:";
    while (std::getline(zeilen, zeile)) {
        if (zeile.compare(0, kopf.size(), kopf) != 0) continue;
        std::istringstream namen(zeile.substr(kopf.size()));
        std::string name;
        while (namen >> name) geraete.push_back("/dev/" + name);
    }
    return geraete;
}

Laufwerke& systemLaufwerke() {
    static LinuxLaufwerke laufwerke;
    return laufwerke;
}

}  // namespace dv
