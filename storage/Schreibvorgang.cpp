#include "storage/Schreibvorgang.h"

#include "storage/Journal.h"
#include "storage/Vorgang.h"

namespace dv {
namespace {

std::vector<std::string> bereiche(const SpeicherUmgebung& u) {
    std::vector<std::string> b{u.datenOrdner};
    b.insert(b.end(), u.begleitOrdner.begin(), u.begleitOrdner.end());
    return b;
}

// The rollback itself; the caller holds the writer right.
Wiederherstellung nimmJournalZurueck(SpeicherUmgebung& u) {
    Dateisystem& fs = *u.fs;
    const std::string pfad = journalPfad(u.datenOrdner);
    if (!journalOffen(fs, pfad)) return Wiederherstellung::Nichts;
    std::string daten;
    std::vector<JournalEintrag> eintraege;
    Wiederherstellung w = Wiederherstellung::Fehlgeschlagen;
    if (!leseJournal(fs, pfad, daten)) {
        w = Wiederherstellung::Fehlgeschlagen;
    } else if (!entpackeJournal(daten, eintraege)) {
        w = fs.loesche(pfad) ? Wiederherstellung::Verworfen : Wiederherstellung::Fehlgeschlagen;
    } else if (nimmZurueck(fs, eintraege) && fs.loesche(pfad)) {
        w = Wiederherstellung::Zurueckgenommen;
        ++u.laufend.tabellenStand;
    }
    fs.synchronisiereOrdner(ordnerVon(pfad));
    DV_TRACE((u.trace ? *u.trace : stillerTrace()), kTraceTabelle,
             "Journal %s: %zu Einträge, Ergebnis %d", pfad.c_str(), eintraege.size(),
             static_cast<int>(w));
    if (u.beiWiederherstellung) u.beiWiederherstellung(w);
    return w;
}

}  // namespace

Schreibrecht::Schreibrecht(SpeicherUmgebung& u) : u_(u), stand_(Sperrstand::Erhalten) {
    SpeicherUmgebung::Laufend& l = u_.laufend;
    if (l.rechtTiefe == 0 && u_.sperre) {
        stand_ = u_.sperre->nimm(u_.sperreWartenMs);
        if (stand_ != Sperrstand::Erhalten) return;
        const std::uint64_t z = u_.sperre->zaehler();
        if (z != l.gesehenerZaehler) {
            l.gesehenerZaehler = z;
            ++l.tabellenStand;
        }
    }
    ++l.rechtTiefe;
}

Schreibrecht::~Schreibrecht() {
    if (!erhalten()) return;
    SpeicherUmgebung::Laufend& l = u_.laufend;
    if (--l.rechtTiefe > 0 || !u_.sperre) return;
    // Every write operation counts, so that the others know their lists are old.
    l.gesehenerZaehler = u_.sperre->zaehler() + 1;
    u_.sperre->setzeZaehler(l.gesehenerZaehler);
    u_.sperre->gibFrei();
}

Schreibvorgang::Schreibvorgang(SpeicherUmgebung& u) : u_(u) {
    SpeicherUmgebung::Laufend& l = u_.laufend;
    if (l.vorgang) {
        ++l.vorgangTiefe;
        hindernis_ = l.hindernis;
        return;
    }
    aussen_ = true;
    recht_.emplace(u_);
    if (recht_->stand() == Sperrstand::Belegt)
        hindernis_ = Hindernis::AndererSchreiber;
    else if (recht_->stand() == Sperrstand::Unmoeglich)
        hindernis_ = Hindernis::NichtBeschreibbar;
    else if (nimmJournalZurueck(u_) == Wiederherstellung::Fehlgeschlagen)
        hindernis_ = Hindernis::Journal;
    vorgang_ = std::make_unique<Vorgang>(*u_.fs, bereiche(u_));
    vorher_ = u_.fs;
    u_.fs = vorgang_.get();
    l.vorgang = vorgang_.get();
    l.vorgangTiefe = 1;
    l.hindernis = hindernis_;
    if (hindernis_ == Hindernis::Keins) return;
    vorgang_->verwirf();
    if (u_.beiHindernis) u_.beiHindernis(hindernis_);
}

Schreibvorgang::~Schreibvorgang() {
    abschliessen();
}

void Schreibvorgang::verwerfen() {
    if (!fertig_ && u_.laufend.vorgang) u_.laufend.vorgang->verwirf();
}

bool Schreibvorgang::abschliessen() {
    if (fertig_) return ergebnis_;
    fertig_ = true;
    SpeicherUmgebung::Laufend& l = u_.laufend;
    if (!aussen_) {
        if (!l.vorgang) return ergebnis_ = false;
        --l.vorgangTiefe;
        return ergebnis_ = !l.vorgang->verworfen();
    }
    u_.fs = vorher_;
    l.vorgang = nullptr;
    l.vorgangTiefe = 0;
    ergebnis_ = vorgang_->schreibeDurch(journalPfad(u_.datenOrdner));
    // Free lists read inside a thrown-away operation describe files that never were.
    if (!ergebnis_ && vorgang_->geaendert()) ++l.tabellenStand;
    vorgang_.reset();
    recht_.reset();
    return ergebnis_;
}

Wiederherstellung stelleWiederHer(SpeicherUmgebung& u) {
    if (!journalOffen(*u.fs, journalPfad(u.datenOrdner))) return Wiederherstellung::Nichts;
    Schreibrecht recht(u);
    if (!recht.erhalten()) return Wiederherstellung::Belegt;
    return nimmJournalZurueck(u);
}

}  // namespace dv
