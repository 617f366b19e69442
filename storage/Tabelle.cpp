#include "storage/Tabelle.h"

#include <cstdlib>
#include <cstring>

namespace dv {

Tabelle::Tabelle(SpeicherUmgebung& umgebung, std::string name)
    : umgebung_(umgebung), name_(std::move(name)) {}

Tabelle::~Tabelle() = default;

std::string Tabelle::pfad() const { return umgebung_.datenOrdner + name_ + ".dat"; }

bool Tabelle::create() {
    Dateisystem& fs = *umgebung_.fs;
    if (fs.oeffne(pfad(), OeffnenModus::LesenSchreiben)) {
        DV_TRACE(trace(), kTraceTabelle, "%s%s%s existiert bereits.",
                 umgebung_.datenOrdner.c_str(), name_.c_str(), ".dat");
        return true;
    }
    int fehler = 0;
    if (fs.oeffne(pfad(), OeffnenModus::Erzeugen, &fehler)) {
        DV_TRACE(trace(), kTraceTabelle, "created %s", pfad().c_str());
        return true;
    }
    letzterFehler_ = std::to_string(fehler);
    DV_TRACE(trace(), kTraceTabelle, "Error [%s]", letzterFehler_.c_str());
    return false;
}

std::unique_ptr<Datei> Tabelle::open() {
    int fehler = 0;
    auto datei = umgebung_.fs->oeffne(pfad(), OeffnenModus::LesenSchreiben, &fehler);
    if (!datei) {
        letzterFehler_ = std::to_string(fehler);
        DV_TRACE(trace(), kTraceTabelle, "Error [%s]", letzterFehler_.c_str());
    }
    return datei;
}

long Tabelle::init() {
    DV_TRACE(trace(), kTraceTabelle, "init() \"%s\"", name_.c_str());
    frei_.clear();
    anzahl_ = 0;
    auto datei = open();
    if (!datei) return 0;
    const std::int64_t laenge = datei->laenge();
    if (laenge < 0) return 0;
    const unsigned groesse = getRecordSize();
    const std::int64_t saetze = laenge / groesse;
    const std::int64_t proBlock = std::max<std::int64_t>(1, (1 << 20) / groesse);
    std::vector<unsigned char> block(static_cast<std::size_t>(proBlock * groesse));
    long letzteFreie = 0;
    for (std::int64_t erster = 0; erster < saetze; erster += proBlock) {
        const std::int64_t anzahl = std::min(proBlock, saetze - erster);
        const std::int64_t gelesen =
            datei->lese(erster * groesse, block.data(), static_cast<std::size_t>(anzahl * groesse));
        if (gelesen <= 0) break;
        const std::int64_t ganze = gelesen / groesse;
        for (std::int64_t i = 0; i < ganze; ++i) {
            std::uint32_t wort;
            std::memcpy(&wort, block.data() + i * groesse, 4);
            if (wort & kLebendBit) {
                ++anzahl_;
            } else {
                // The slot number, not the stored word: a damaged word must never
                // make an insert land on another record's slot.
                const long id = static_cast<long>(erster + i + 1);
                frei_.push_back(static_cast<std::int32_t>(id));
                letzteFreie = id;
            }
        }
        if (ganze < anzahl) break;
    }
    if (letzteFreie <= 0) return static_cast<long>(saetze + 1);
    return letzteFreie;
}

bool Tabelle::istFrei(long id) const {
    for (std::int32_t f : frei_)
        if (f == id) return true;
    return false;
}

long Tabelle::einfuegenRoh(const unsigned char* felder) {
    if (!initialisiert_) {
        initialisiert_ = true;
        init();
    }
    auto datei = open();
    if (!datei) return 0;
    const unsigned groesse = getRecordSize();
    std::memset(puffer_.data() + 4, 0, groesse - 4);
    std::memcpy(puffer_.data() + 4, felder, groesse - 4);
    long id;
    if (frei_.empty()) {
        const std::int64_t laenge = datei->laenge();
        if (laenge < 0) return 0;
        id = static_cast<long>(laenge / groesse + 1);
    } else {
        id = frei_.front();
        frei_.erase(frei_.begin());
    }
    // A trailing partial record is overwritten: the slot follows the id.
    const std::uint32_t wort = static_cast<std::uint32_t>(id) | kLebendBit;
    std::memcpy(puffer_.data(), &wort, 4);
    if (!datei->schreibe(static_cast<std::int64_t>(id - 1) * groesse, puffer_.data(), groesse))
        return 0;
    return id;
}

bool Tabelle::aendernRoh(long id, const unsigned char* felder, bool* warEinfuegen, long* neueId) {
    *warEinfuegen = false;
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
    // The stored id word stays as it is on disk, liveness bit included.
    std::memset(puffer_.data() + 4, 0, groesse - 4);
    std::memcpy(puffer_.data() + 4, felder, groesse - 4);
    return datei->schreibe(pos, puffer_.data(), groesse);
}

bool Tabelle::remove(long id, bool reinit) {
    if (id <= 0) return false;
    bool ergebnis = true;
    if (!istFrei(id)) {
        auto datei = open();
        if (!datei) return false;
        const unsigned groesse = getRecordSize();
        const std::int64_t pos = static_cast<std::int64_t>(id - 1) * groesse;
        // A slot beyond the end is not there to free: never grow the file here.
        if (datei->lese(pos, puffer_.data(), groesse) != groesse) return false;
        std::uint32_t wort;
        std::memcpy(&wort, puffer_.data(), 4);
        wort &= ~kLebendBit;
        std::memcpy(puffer_.data(), &wort, 4);
        std::memset(puffer_.data() + 4, 0, groesse - 4);
        if (!datei->schreibe(pos, puffer_.data(), groesse)) return false;
        datei.reset();
        DV_TRACE(trace(), kTraceTabelle, "deleted <%ld> from %s", id, name_.c_str());
    }
    if (reinit && ergebnis) init();
    return ergebnis;
}

bool Tabelle::leseSlot(long id, std::vector<unsigned char>& satz) {
    if (id <= 0) return false;
    auto datei = open();
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
