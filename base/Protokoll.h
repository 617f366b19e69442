#pragma once
// The trace log and the message log. Both open, append and close their file on
// every line, so that a crash never loses a written line and no handle stays open.
// Logging never fails towards its caller: a file that cannot be opened drops the line.

#include <string>

#include "platform/Dateisystem.h"
#include "storage/Trace.h"

namespace dv {

inline constexpr long kTraceMaxGroesse = 5242880;  // 5 MiB, then the log moves to ".bak"

class Protokoll final : public Trace {
  public:
    explicit Protokoll(Dateisystem& fs = echtesDateisystem());

    // Trace log = the path with its own extension (".log" if it has none),
    // backup = the same path with ".bak". A missing folder is created.
    void setzeLogPfad(const std::string& pfad);
    const std::string& logPfad() const { return logPfad_; }
    const std::string& backupPfad() const { return backupPfad_; }

    // The message folder ends in '/'; the file name defaults to "meldung.log".
    void setzeMeldungsOrdner(const std::string& ordner) { meldungsOrdner_ = ordner; }
    void setzeMeldungsDatei(const std::string& name) { meldungsDatei_ = name; }
    const std::string& meldungsOrdner() const { return meldungsOrdner_; }
    const std::string& meldungsDatei() const { return meldungsDatei_; }
    std::string meldungsPfad() const { return meldungsOrdner_ + meldungsDatei_; }

    // Appends the formatted text and a newline to the message log, unconditionally.
    void meldung(const char* format, ...) __attribute__((format(printf, 2, 3)));

    // "<%.2d.%.2d.%.4d %.2d:%.2d:%.2d>" of the local time now.
    static std::string zeitstempel();

    Dateisystem& fs() { return fs_; }

  protected:
    void schreibe(const char* nachricht) const override;

  private:
    Dateisystem& fs_;
    std::string logPfad_ = "C:\\Log.log";
    std::string backupPfad_ = "C:\\Log.bak";
    std::string meldungsOrdner_ = "C:\\Meldungen\\";
    std::string meldungsDatei_ = "meldung.log";
};

// Appends one line (and "\n") to any text file; false if it cannot be opened.
bool haengeZeileAn(Dateisystem& fs, const std::string& pfad, const std::string& zeile);

}  // namespace dv
