#include "storage/Tabelle.h"

#include <cstdlib>
#include <cstring>

namespace dv {

Tabelle::Tabelle(SpeicherUmgebung& umgebung, std::string name)
    : umgebung_(umgebung), name_(std::move(name)) {}

Tabelle::~Tabelle() = default;

std::string Tabelle::pfad() const {
    return umgebung_.datenOrdner + name_ + ".dat";
}

Trace& stillerTrace() {
    static KeinTrace still;
    return still;
}

const std::vector<std::int32_t>& Tabelle::freieSlots() const {
    if (freiKopf_ > 0) {
        frei_.erase(frei_.begin(), frei_.begin() + static_cast<std::ptrdiff_t>(freiKopf_));
        freiKopf_ = 0;
    }
    return frei_;
}

bool Tabelle::create() {
    Dateisystem& fs = *umgebung_.fs;
    const std::string p = pfad();
    int fehler = 0;
    if (fs.oeffne(p, OeffnenModus::LesenSchreiben, &fehler)) {
        DV_TRACE(trace(), kTraceTabelle, "%s%s%s existiert bereits.", umgebung_.datenOrdner.c_str(),
                 name_.c_str(), ".dat");
        return true;
    }
    // A file that is there but cannot be opened (no permission, locked) is never
    // truncated: creating it anew would throw its records away.
    if (!fs.existiert(p)) {
        fehler = 0;
        if (fs.oeffne(p, OeffnenModus::Erzeugen, &fehler)) {
            DV_TRACE(trace(), kTraceTabelle, "created %s", p.c_str());
            return true;
        }
    }
    letzterFehler_ = std::to_string(fehler);
    DV_TRACE(trace(), kTraceTabelle, "Error [%s]", letzterFehler_.c_str());
    return false;
}

std::unique_ptr<Datei> Tabelle::open(OeffnenModus modus) {
    int fehler = 0;
    auto datei = umgebung_.fs->oeffne(pfad(), modus, &fehler);
    if (!datei) {
        letzterFehler_ = std::to_string(fehler);
        DV_TRACE(trace(), kTraceTabelle, "Error [%s]", letzterFehler_.c_str());
    }
    return datei;
}

long Tabelle::init() {
    DV_TRACE(trace(), kTraceTabelle, "init() \"%s\"", name_.c_str());
    frei_.clear();
    freiKopf_ = 0;
    anzahl_ = 0;
    stand_ = umgebung_.laufend.tabellenStand;
    auto datei = open(OeffnenModus::Lesen);
    if (!datei) return 0;
    const std::int64_t laenge = datei->laenge();
    if (laenge < 0) return 0;
    long letzteFreie = 0;
    // The slot number, not the stored word, goes into the list: a damaged word
    // must never make an insert land on another record's slot.
    durchlaufe(*datei, [&](long id, std::uint32_t wort, const unsigned char*) {
        if (wort & kLebendBit) {
            ++anzahl_;
        } else {
            frei_.push_back(static_cast<std::int32_t>(id));
            letzteFreie = id;
        }
    });
    if (letzteFreie <= 0) return static_cast<long>(laenge / getRecordSize() + 1);
    return letzteFreie;
}

bool Tabelle::istFrei(long id) const {
    return std::binary_search(frei_.begin() + static_cast<std::ptrdiff_t>(freiKopf_), frei_.end(),
                              static_cast<std::int32_t>(id));
}

long Tabelle::naechsterFreierSlot(Datei& datei) {
    const unsigned groesse = getRecordSize();
    while (freiKopf_ < frei_.size()) {
        const long id = frei_[freiKopf_++];
        if (freiKopf_ > 64 && freiKopf_ * 2 > frei_.size()) freieSlots();
        // The list may be older than the file (another table object on the same
        // file): a slot that is live on disk is never overwritten.
        std::uint32_t wort = 0;
        if (datei.lese(static_cast<std::int64_t>(id - 1) * groesse, &wort, 4) == 4 &&
            !(wort & kLebendBit))
            return id;
    }
    return 0;
}

void Tabelle::pruefeStand() {
    if (stand_ == umgebung_.laufend.tabellenStand) return;
    stand_ = umgebung_.laufend.tabellenStand;
    initialisiert_ = false;
    frei_.clear();
    freiKopf_ = 0;
}

long Tabelle::einfuegenRoh(const unsigned char* felder) {
    pruefeStand();
    if (!initialisiert_) {
        initialisiert_ = true;
        init();
    }
    auto datei = open();
    if (!datei) return 0;
    const unsigned groesse = getRecordSize();
    long id = naechsterFreierSlot(*datei);
    const bool wiederverwendet = id > 0;
    if (!wiederverwendet) {
        // Appended where the slot arithmetic puts it: a trailing partial record
        // is overwritten rather than shifting every later record.
        const std::int64_t laenge = datei->laenge();
        if (laenge < 0 || laenge / groesse + 1 > 0x7FFFFFFF) return 0;
        id = static_cast<long>(laenge / groesse + 1);
    }
    const std::int64_t pos = static_cast<std::int64_t>(id - 1) * groesse;
    const auto freiesWort = static_cast<std::uint32_t>(id);
    const std::uint32_t lebendesWort = freiesWort | kLebendBit;
    std::memcpy(puffer_.data(), &freiesWort, 4);
    std::memcpy(puffer_.data() + 4, felder, groesse - 4);
    // First the record with its slot still free, then the word that makes it live:
    // the liveness bit is in the word's last byte, so no torn write can publish
    // a record whose fields are not all on disk.
    if (!datei->schreibe(pos, puffer_.data(), groesse) || !datei->schreibe(pos, &lebendesWort, 4)) {
        if (wiederverwendet)
            frei_.insert(frei_.begin() + static_cast<std::ptrdiff_t>(freiKopf_),
                         static_cast<std::int32_t>(id));
        return 0;
    }
    return id;
}

bool Tabelle::aendernRoh(long id, const unsigned char* felder, bool* warEinfuegen, long* neueId) {
    *warEinfuegen = false;
    pruefeStand();
    if (id <= 0) {
        *warEinfuegen = true;
        *neueId = einfuegenRoh(felder);
        return *neueId > 0;
    }
    if (istFrei(id)) return false;
    auto datei = open();
    if (!datei) return false;
    const unsigned groesse = getRecordSize();
    const std::int64_t laenge = datei->laenge();
    if (laenge < 0 || id - 1 >= laenge / groesse) return false;
    const std::int64_t pos = static_cast<std::int64_t>(id - 1) * groesse;
    if (datei->lese(pos, puffer_.data(), groesse) != groesse) return false;
    const std::vector<unsigned char> vorher(puffer_);
    // Only the fields are written: the stored id word stays as it is on disk,
    // liveness bit included.
    std::memcpy(puffer_.data() + 4, felder, groesse - 4);
    if (datei->schreibe(pos + 4, puffer_.data() + 4, groesse - 4)) return true;
    // A failed write may have left part of the new fields: put the old ones back.
    datei->schreibe(pos + 4, vorher.data() + 4, groesse - 4);
    return false;
}

bool Tabelle::remove(long id, bool reinit) {
    if (id <= 0) return false;
    pruefeStand();
    if (!istFrei(id)) {
        auto datei = open();
        if (!datei) return false;
        const unsigned groesse = getRecordSize();
        const std::int64_t laenge = datei->laenge();
        // A slot beyond the end is not there to free: never grow the file here.
        if (laenge < 0 || id > laenge / groesse) return false;
        const std::int64_t pos = static_cast<std::int64_t>(id - 1) * groesse;
        if (datei->lese(pos, puffer_.data(), groesse) != groesse) return false;
        std::uint32_t wort;
        std::memcpy(&wort, puffer_.data(), 4);
        wort &= ~kLebendBit;
        std::memcpy(puffer_.data(), &wort, 4);
        std::memset(puffer_.data() + 4, 0, groesse - 4);
        // One write: a torn one that reaches the word's last byte has freed the
        // slot, a shorter one has changed nothing (the low bytes are unchanged).
        if (!datei->schreibe(pos, puffer_.data(), groesse)) return false;
        datei.reset();
        DV_TRACE(trace(), kTraceTabelle, "deleted <%ld> from %s", id, name_.c_str());
    }
    if (reinit) init();
    return true;
}

bool Tabelle::leseSlot(long id, std::vector<unsigned char>& satz) {
    if (id <= 0) return false;
    auto datei = open(OeffnenModus::Lesen);
    if (!datei) return false;
    const unsigned groesse = getRecordSize();
    const std::int64_t laenge = datei->laenge();
    if (laenge < 0 || id > laenge / groesse) return false;
    satz.resize(groesse);
    if (datei->lese(static_cast<std::int64_t>(id - 1) * groesse, satz.data(), groesse) != groesse)
        return false;
    std::uint32_t wort;
    std::memcpy(&wort, satz.data(), 4);
    return (wort & kLebendBit) != 0;
}

ListenElement* Tabelle::newElement(void* row) const {
    auto* p = static_cast<ListenElement*>(std::calloc(1, sizeof(ListenElement)));
    if (!p) return nullptr;
    DV_TRACE(trace(), kTraceSpeicher, "[malloc] p = [%08x] {Tabelle::newElement}", adr(p));
    p->pObjekt = row;
    return p;
}

void Tabelle::delListe(ListenElement* node) const {
    if (!node) return;
    while (node->pPrev) node = node->pPrev;
    while (node) {
        ListenElement* naechster = node->pNext;
        if (node->pObjekt) {
            DV_TRACE(trace(), kTraceSpeicher, "[free] p->pObjekt = [%08x] {Tabelle::delListe}",
                     adr(node->pObjekt));
            std::free(node->pObjekt);
        }
        DV_TRACE(trace(), kTraceSpeicher, "[free] p = [%08x] {Tabelle::delListe}", adr(node));
        std::free(node);
        node = naechster;
    }
}

std::size_t listenLaenge(const ListenElement* kopf) {
    std::size_t n = 0;
    for (; kopf; kopf = kopf->pNext) ++n;
    return n;
}

}  // namespace dv
