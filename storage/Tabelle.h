#pragma once
// The table file engine: one flat file of fixed-size records per table.
//
// A record's id is its 1-based slot number. Bytes 0-3 of a record hold the id
// with bit 31 set while the slot is live; a free slot keeps its id with bit 31
// clear and all further bytes zero. Every operation opens the file at its start
// and closes it before it returns; only the free slot list survives between
// operations, and it is valid after init() (stale after remove(id, false)).
//
// Select operations hand out result lists of ListenElement nodes whose pObjekt
// is a zero-filled row allocated with calloc. The caller owns such a list and
// must give it back with delListe(); ListenBesitz does that automatically.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Dateisystem.h"
#include "platform/Schreibsperre.h"
#include "storage/Trace.h"

namespace dv {

class Vorgang;
enum class Wiederherstellung;
enum class Hindernis;

// What every table needs from the outside; owned by the caller, must outlive the tables.
struct SpeicherUmgebung {
    // While a write operation runs (see Schreibvorgang.h) this points at the
    // operation's view of the files, and back at the real one afterwards.
    Dateisystem* fs = &echtesDateisystem();
    Trace* trace = nullptr;
    std::string datenOrdner;  // ends in '/'
    bool grossKlein = true;   // application-wide case setting of select
    // Folders (ending in '/') whose files change together with the tables: covers,
    // side texts, tags. A write operation takes them into its all-or-nothing.
    std::vector<std::string> begleitOrdner;
    // The writer lock of the program folder; null where this process is the only
    // writer (tests, tools). A writer waits this long for another one to finish.
    Schreibsperre* sperre = nullptr;
    int sperreWartenMs = 5000;
    // Told when a writer's unfinished operation was found (see stelleWiederHer),
    // so that the program can note it in its message log.
    std::function<void(Wiederherstellung)> beiWiederherstellung;
    // Told when a write operation may not change anything, so that the program
    // can say why (the storage layer shows no messages).
    std::function<void(Hindernis)> beiHindernis;

    // Kept by Schreibrecht and Schreibvorgang alone.
    struct Laufend {
        Vorgang* vorgang = nullptr;  // the outermost running operation
        int vorgangTiefe = 0;
        int rechtTiefe = 0;
        Hindernis hindernis{};
        std::uint64_t gesehenerZaehler = 0;
        // Raised whenever the tables' cached free lists may be wrong: another
        // process has written, or an operation of this one was thrown away.
        std::uint64_t tabellenStand = 0;
    } laufend;
};

// A node of a result list.
struct ListenElement {
    void* pObjekt;  // the row, owned by the node
    ListenElement* pPrev;
    ListenElement* pNext;
    std::uint8_t cMarke;  // the three values are the list consumers' own
    std::uint16_t sWert;
    std::int32_t lWert;
};

inline constexpr std::uint32_t kLebendBit = 0x80000000u;

// The trace that drops everything, for tables whose environment has none.
Trace& stillerTrace();

class Tabelle {
  public:
    Tabelle(SpeicherUmgebung& umgebung, std::string name);
    virtual ~Tabelle();
    Tabelle(const Tabelle&) = delete;
    Tabelle& operator=(const Tabelle&) = delete;

    const std::string& name() const { return name_; }
    std::string pfad() const;  // data folder + name + ".dat"
    const std::string& letzterFehler() const { return letzterFehler_; }
    long anzahl() const { return anzahl_; }
    // The free slots that inserts will use next, lowest first.
    const std::vector<std::int32_t>& freieSlots() const;

    // Makes sure the file exists. True if it existed or was created.
    bool create();
    // Opens the file without creating it, read/write unless a read is all the
    // caller does (so that a read-only medium can still be read); null on failure
    // (logged).
    std::unique_ptr<Datei> open(OeffnenModus modus = OeffnenModus::LesenSchreiben);

    virtual unsigned getRecordSize() const = 0;
    // Rebuilds the free slot list and the live count; returns the id that the
    // next insert gets when no slot is free (0 if the file cannot be opened).
    virtual long init();
    // Frees a slot. reinit: run init() afterwards so the slot is reused at once.
    virtual bool remove(long id, bool reinit);
    virtual ListenElement* select(long id) = 0;
    virtual ListenElement* selectAll() = 0;

    // Allocates a node carrying row (may be null); traced.
    ListenElement* newElement(void* row) const;
    // Frees the whole list that node belongs to (null is ignored); traced.
    void delListe(ListenElement* node) const;

    // The environment's trace, or a silent one when none is set.
    Trace& trace() const { return umgebung_.trace ? *umgebung_.trace : stillerTrace(); }
    SpeicherUmgebung& umgebung() const { return umgebung_; }

  protected:
    // The common frame of insert; felder holds the record after the id word.
    // The record is written with its slot still marked free and only then made
    // live, so a failed or torn write never leaves a half-written live record.
    long einfuegenRoh(const unsigned char* felder);
    // The common frame of update (id <= 0 turns into an insert). A failed write
    // puts the previous record image back.
    bool aendernRoh(long id, const unsigned char* felder, bool* warEinfuegen, long* neueId);
    // Reads the whole live part of the file in large blocks and calls f(id, record)
    // for every live record (record points at the bytes after the id word).
    template <class F>
    bool scanneRoh(F&& f);
    // One seek and one read: the record of slot id, if it is live.
    bool leseSlot(long id, std::vector<unsigned char>& satz);

    bool istFrei(long id) const;

    SpeicherUmgebung& umgebung_;
    std::vector<unsigned char> puffer_;  // one record image

  private:
    // Reads every whole record of the open file in blocks of about a megabyte and
    // calls f(id, word, record) with the slot's id, its stored id word and a
    // pointer to the whole record. False if the file cannot be measured or read.
    template <class F>
    bool durchlaufe(Datei& datei, F&& f);
    // The next slot from the free list that is still free on disk (0: none).
    long naechsterFreierSlot(Datei& datei);
    // Forgets the free list when the environment says it may be stale.
    void pruefeStand();

    bool initialisiert_ = false;
    std::uint64_t stand_ = 0;
    std::string name_;
    std::string letzterFehler_;
    long anzahl_ = 0;
    // Ascending; entries before freiKopf_ have been used by inserts already and
    // are dropped lazily, so taking the first free slot costs constant time.
    mutable std::vector<std::int32_t> frei_;
    mutable std::size_t freiKopf_ = 0;

    friend class TabellenZugriff;
};

// Owner of a result list: releases it with delListe when it goes out of scope.
struct ListenFreigabe {
    const Tabelle* tabelle = nullptr;
    void operator()(ListenElement* kopf) const {
        if (tabelle) tabelle->delListe(kopf);
    }
};
using ListenBesitz = std::unique_ptr<ListenElement, ListenFreigabe>;

inline ListenBesitz besitze(const Tabelle& t, ListenElement* kopf) {
    return ListenBesitz(kopf, ListenFreigabe{&t});
}

// Number of nodes of a list, counted from the given node on.
std::size_t listenLaenge(const ListenElement* kopf);

template <class F>
bool Tabelle::durchlaufe(Datei& datei, F&& f) {
    const std::int64_t laenge = datei.laenge();
    if (laenge < 0) return false;
    const unsigned groesse = getRecordSize();
    const std::int64_t saetze = laenge / groesse;
    // Blocks of whole records, about 64 KiB each (below the C allocator's limit
    // for blocks of their own, so that pass after pass reuses one heap block and
    // no fresh pages), never more than the file.
    const std::int64_t proBlock =
        std::min<std::int64_t>(std::max<std::int64_t>(1, (1 << 16) / groesse), saetze);
    if (proBlock <= 0) return true;
    std::unique_ptr<unsigned char[]> block(new unsigned char[proBlock * groesse]);
    for (std::int64_t erster = 0; erster < saetze; erster += proBlock) {
        const std::int64_t anzahl = std::min(proBlock, saetze - erster);
        const std::int64_t bytes = anzahl * groesse;
        const std::int64_t gelesen =
            datei.lese(erster * groesse, block.get(), static_cast<std::size_t>(bytes));
        if (gelesen < 0) return false;
        const std::int64_t ganze = gelesen / groesse;
        for (std::int64_t i = 0; i < ganze; ++i) {
            const unsigned char* satz = block.get() + i * groesse;
            std::uint32_t wort;
            std::memcpy(&wort, satz, 4);
            f(static_cast<long>(erster + i + 1), wort, satz);
        }
        if (gelesen < bytes) break;
    }
    return true;
}

template <class F>
bool Tabelle::scanneRoh(F&& f) {
    auto datei = open(OeffnenModus::Lesen);
    if (!datei) return false;
    return durchlaufe(*datei, [&](long id, std::uint32_t wort, const unsigned char* satz) {
        if (wort & kLebendBit) f(id, satz + 4);
    });
}

}  // namespace dv
