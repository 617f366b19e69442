#pragma once
// The files as one write operation sees them. Every change to a file below the
// operation's folders (the data folder and the side folders of the records) is
// kept in memory, in pages, until the operation ends; reads see those changes.
// Files elsewhere (logs, exports, backups) pass straight through.
//
// schreibeDurch() then writes the undo journal, makes it durable, writes the
// pages into the files, makes them durable and marks the journal finished. Nothing of
// the operation reaches a file before its journal is durable, so a crash at any
// point leaves either the old files, or a journal that puts them back.
//
// Used through Schreibvorgang alone. Single-threaded; a file handle it gives out
// must not outlive it.

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Dateisystem.h"
#include "storage/Journal.h"

namespace dv {

class Vorgang final : public Dateisystem {
  public:
    // innen: the files underneath (must outlive the object); bereiche: folder
    // prefixes, each ending in '/', whose files the operation holds back.
    Vorgang(Dateisystem& innen, std::vector<std::string> bereiche);
    ~Vorgang() override;
    Vorgang(const Vorgang&) = delete;
    Vorgang& operator=(const Vorgang&) = delete;

    std::unique_ptr<Datei> oeffne(const std::string& pfad, OeffnenModus modus,
                                  int* fehler = nullptr) override;
    bool existiert(const std::string& pfad) override;
    bool istOrdner(const std::string& pfad) override;
    bool erzeugeOrdner(const std::string& pfad) override { return innen_.erzeugeOrdner(pfad); }
    bool loesche(const std::string& pfad) override;
    bool kopiere(const std::string& von, const std::string& nach) override;
    bool benenneUm(const std::string& von, const std::string& nach) override;
    std::vector<OrdnerEintrag> liste(const std::string& ordner) override;
    bool synchronisiereOrdner(const std::string&) override { return true; }

    Dateisystem& innen() { return innen_; }
    // True once anything below the folders was changed.
    bool geaendert() const;
    // The operation's changes are to be thrown away at its end.
    void verwirf() { verworfen_ = true; }
    bool verworfen() const { return verworfen_; }

    // Journal to journalPfad, changes into the files, journal marked finished:
    // all durable.
    // False when the changes could not all be written; the files are then as
    // before the operation (or, if even that failed, the journal stays for the
    // next start to put them back).
    bool schreibeDurch(const std::string& journalPfad);

  private:
    struct Abbild;
    class Sicht;
    friend class Sicht;

    bool imBereich(const std::string& pfad) const;
    Abbild* finde(const std::string& pfad);
    // The file's image, made on its first change from what the disk holds.
    Abbild& abbild(const std::string& pfad);
    std::int64_t lese(Abbild& a, Datei* echt, std::int64_t pos, void* ziel, std::size_t n);
    bool schreibe(Abbild& a, Datei* echt, std::int64_t pos, const void* quelle, std::size_t n);
    void kuerze(Abbild& a, std::int64_t laenge);
    void leere(Abbild& a);
    unsigned char* seite(Abbild& a, Datei* echt, std::int64_t nr);

    bool sammleRueckweg(std::vector<JournalEintrag>& rueckweg);
    // Drops the pages of a that equal the file's bytes; false if they cannot be read.
    bool lasseUnveraenderteWeg(Abbild& a, Datei& echt);
    // Writes one file's changes; d is left open on it for the flush.
    bool wendeAn(const std::string& pfad, Abbild& a, std::vector<std::string>& ordner,
                 std::unique_ptr<Datei>& d);
    // Writes every file's changes and makes them and the folders of files made or
    // removed durable.
    bool schreibeDateien(const std::vector<std::string>& pfade, std::vector<std::string>& ordner);

    Dateisystem& innen_;
    std::vector<std::string> bereiche_;
    std::unordered_map<std::string, std::unique_ptr<Abbild>> abbilder_;
    bool verworfen_ = false;
};

}  // namespace dv
