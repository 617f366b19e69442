#include "storage/Journal.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <set>

namespace dv {
namespace {

constexpr char kKopf[8] = {'D', 'V', 'J', 'O', 'U', 'R', '0', '2'};
// Written over kKopf when the operation is durable.
constexpr char kFertig[8] = {'D', 'V', 'J', 'F', 'E', 'R', 'T', 'G'};
constexpr std::size_t kVorspann = sizeof kKopf + 8;  // header and the journal's length
constexpr char kEnde[4] = {'E', 'N', 'D', 'E'};
constexpr std::size_t kSchluss = sizeof kEnde + 4 + 4;
// A finished journal up to this size stays for the next operation to overwrite.
constexpr std::int64_t kBehalten = 1 << 20;

template <class T>
void haenge(std::string& s, T wert) {
    s.append(reinterpret_cast<const char*>(&wert), sizeof wert);
}

std::uint32_t pruefsumme(const char* p, std::size_t n) {
    uLong crc = crc32(0L, Z_NULL, 0);
    // zlib takes lengths as uInt: feed large journals in pieces.
    while (n > 0) {
        const auto stueck = static_cast<uInt>(std::min<std::size_t>(n, 1u << 30));
        crc = crc32(crc, reinterpret_cast<const Bytef*>(p), stueck);
        p += stueck;
        n -= stueck;
    }
    return static_cast<std::uint32_t>(crc);
}

// Reads fixed-size values and counted byte runs from a bounded buffer.
class Leser {
  public:
    Leser(const char* p, std::size_t n) : p_(p), rest_(n) {}
    template <class T>
    bool lies(T& wert) {
        if (rest_ < sizeof wert) return false;
        std::memcpy(&wert, p_, sizeof wert);
        p_ += sizeof wert;
        rest_ -= sizeof wert;
        return true;
    }
    bool lies(std::string& s, std::uint64_t n) {
        if (n > rest_) return false;
        s.assign(p_, static_cast<std::size_t>(n));
        p_ += n;
        rest_ -= static_cast<std::size_t>(n);
        return true;
    }
    bool leer() const { return rest_ == 0; }

  private:
    const char* p_;
    std::size_t rest_;
};

bool hatKopf(Datei& d, const char (&kopf)[8]) {
    char gelesen[8];
    return d.lese(0, gelesen, sizeof gelesen) == sizeof gelesen &&
           std::memcmp(gelesen, kopf, sizeof gelesen) == 0;
}

bool gueltigeArt(std::uint8_t a) {
    return a >= JournalEintrag::Neu && a <= JournalEintrag::Inhalt;
}

bool stelleHer(Dateisystem& fs, const JournalEintrag& e, std::set<std::string>& ordner) {
    switch (e.art) {
        case JournalEintrag::Neu:
            ordner.insert(ordnerVon(e.pfad));
            return fs.loesche(e.pfad) || !fs.existiert(e.pfad);
        case JournalEintrag::Inhalt: {
            ordner.insert(ordnerVon(e.pfad));
            auto d = fs.oeffne(e.pfad, OeffnenModus::Erzeugen);
            return d && d->schreibe(0, e.bytes.data(), e.bytes.size()) && d->synchronisiere();
        }
        case JournalEintrag::Laenge: {
            auto d = fs.oeffne(e.pfad, OeffnenModus::LesenSchreiben);
            return d && d->kuerze(e.wert) && d->synchronisiere();
        }
        case JournalEintrag::Bereich: {
            auto d = fs.oeffne(e.pfad, OeffnenModus::LesenSchreiben);
            return d && d->schreibe(e.wert, e.bytes.data(), e.bytes.size()) && d->synchronisiere();
        }
    }
    return false;
}

}  // namespace

std::string packeJournal(const std::vector<JournalEintrag>& eintraege) {
    std::string s(kKopf, sizeof kKopf);
    haenge(s, std::uint64_t{0});  // the length, known at the end
    for (const JournalEintrag& e : eintraege) {
        haenge(s, static_cast<std::uint8_t>(e.art));
        haenge(s, static_cast<std::uint32_t>(e.pfad.size()));
        s += e.pfad;
        haenge(s, static_cast<std::int64_t>(e.wert));
        haenge(s, static_cast<std::uint64_t>(e.bytes.size()));
        s += e.bytes;
    }
    const std::uint64_t laenge = s.size() + kSchluss;
    std::memcpy(&s[sizeof kKopf], &laenge, sizeof laenge);
    const std::uint32_t summe = pruefsumme(s.data(), s.size());
    s.append(kEnde, sizeof kEnde);
    haenge(s, static_cast<std::uint32_t>(eintraege.size()));
    haenge(s, summe);
    return s;
}

bool entpackeJournal(const std::string& daten, std::vector<JournalEintrag>& eintraege) {
    eintraege.clear();
    if (daten.size() < kVorspann + kSchluss) return false;
    if (std::memcmp(daten.data(), kKopf, sizeof kKopf) != 0) return false;
    std::uint64_t laenge = 0;
    std::memcpy(&laenge, daten.data() + sizeof kKopf, sizeof laenge);
    if (laenge != daten.size()) return false;
    const std::size_t rumpf = daten.size() - kSchluss;
    const char* schluss = daten.data() + rumpf;
    if (std::memcmp(schluss, kEnde, sizeof kEnde) != 0) return false;
    std::uint32_t anzahl = 0, summe = 0;
    std::memcpy(&anzahl, schluss + sizeof kEnde, 4);
    std::memcpy(&summe, schluss + sizeof kEnde + 4, 4);
    if (pruefsumme(daten.data(), rumpf) != summe) return false;
    Leser l(daten.data() + kVorspann, rumpf - kVorspann);
    std::vector<JournalEintrag> gelesen;
    while (!l.leer()) {
        std::uint8_t art = 0;
        std::uint32_t pfadLaenge = 0;
        std::uint64_t byteLaenge = 0;
        JournalEintrag e;
        if (!l.lies(art) || !gueltigeArt(art) || !l.lies(pfadLaenge) ||
            !l.lies(e.pfad, pfadLaenge) || !l.lies(e.wert) || !l.lies(byteLaenge) ||
            !l.lies(e.bytes, byteLaenge))
            return false;
        if (e.pfad.empty() || e.wert < 0) return false;
        e.art = static_cast<JournalEintrag::Art>(art);
        gelesen.push_back(std::move(e));
    }
    if (gelesen.size() != anzahl) return false;
    eintraege = std::move(gelesen);
    return true;
}

bool nimmZurueck(Dateisystem& fs, const std::vector<JournalEintrag>& eintraege) {
    bool ok = true;
    std::set<std::string> ordner;
    for (auto it = eintraege.rbegin(); it != eintraege.rend(); ++it)
        ok = stelleHer(fs, *it, ordner) && ok;
    for (const std::string& o : ordner) ok = fs.synchronisiereOrdner(o) && ok;
    return ok;
}

bool schreibeJournal(Dateisystem& fs, const std::string& pfad, const std::string& journal) {
    // A file marked finished was made by the branch below, whose folder flush
    // came before the file was ever used, and the mark is written only after
    // that: its entry in the folder is durable, so the file's own flush suffices.
    // Bytes of a longer journal before it may stay behind the new one; the
    // length in the header leaves them out.
    if (auto d = fs.oeffne(pfad, OeffnenModus::LesenSchreiben); d && hatKopf(*d, kFertig))
        return d->schreibe(0, journal.data(), journal.size()) && d->synchronisiere();
    auto d = fs.oeffne(pfad, OeffnenModus::Erzeugen);
    return d && d->schreibe(0, journal.data(), journal.size()) && d->synchronisiere() &&
           fs.synchronisiereOrdner(ordnerVon(pfad));
}

bool schliesseJournal(Dateisystem& fs, const std::string& pfad) {
    // The mark lies within the first sector, which a device writes whole; even
    // half of it is neither header, so the journal counts as not open.
    if (auto d = fs.oeffne(pfad, OeffnenModus::LesenSchreiben);
        d && d->laenge() <= kBehalten && d->schreibe(0, kFertig, sizeof kFertig) &&
        d->synchronisiere())
        return true;
    if (fs.loesche(pfad)) return fs.synchronisiereOrdner(ordnerVon(pfad));
    // One that can be neither marked nor removed is emptied: an empty file is no journal.
    auto d = fs.oeffne(pfad, OeffnenModus::LesenSchreiben);
    return d && d->kuerze(0) && d->synchronisiere();
}

bool journalOffen(Dateisystem& fs, const std::string& pfad) {
    auto d = fs.oeffne(pfad, OeffnenModus::Lesen);
    return d && hatKopf(*d, kKopf);
}

bool leseJournal(Dateisystem& fs, const std::string& pfad, std::string& daten) {
    if (!leseAlles(fs, pfad, daten)) return false;
    std::uint64_t laenge = 0;
    if (daten.size() >= kVorspann) std::memcpy(&laenge, daten.data() + sizeof kKopf, sizeof laenge);
    if (laenge >= kVorspann && laenge < daten.size())
        daten.resize(static_cast<std::size_t>(laenge));
    return true;
}

std::string journalPfad(const std::string& datenOrdner) {
    std::string p = datenOrdner;
    while (p.size() > 1 && p.back() == '/') p.pop_back();
    return p + ".journal";
}

std::string ordnerVon(const std::string& pfad) {
    const std::size_t schnitt = pfad.find_last_of('/');
    return schnitt == std::string::npos ? std::string() : pfad.substr(0, schnitt + 1);
}

}  // namespace dv
