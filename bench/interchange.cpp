// Box files and XML on the generated collection of 20,000 boxes (a private copy
// below /tmp, so imports do not change the cached one):
//   - importing one box file (lookups and persons all known, the common case of a
//     box coming back), target below 50 ms;
//   - exporting all boxes as box files, target below 20 s; and the same with the
//     file writes swallowed, i.e. the time spent outside writing, below 3 s;
//   - the XML document of a box with its DVDs and films, below 5 ms.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "base/Protokoll.h"
#include "bench/generator/Generator.h"
#include "bench/generator/Messplatz.h"
#include "interchange/Austausch.h"

using namespace dv;
using generator::StillerBenutzer;

namespace {

// Writes into the export folder go nowhere; everything else is the real disk.
class OhneExportDateien final : public Dateisystem {
  public:
    explicit OhneExportDateien(std::string ordner) : ordner_(std::move(ordner)) {}
    std::unique_ptr<Datei> oeffne(const std::string& p, OeffnenModus m, int* f) override {
        if (imZiel(p) && m == OeffnenModus::Erzeugen) return std::make_unique<NullDatei>();
        return echt().oeffne(p, m, f);
    }
    bool existiert(const std::string& p) override { return echt().existiert(p); }
    bool istOrdner(const std::string& p) override { return echt().istOrdner(p); }
    bool erzeugeOrdner(const std::string& p) override { return echt().erzeugeOrdner(p); }
    bool loesche(const std::string& p) override { return imZiel(p) || echt().loesche(p); }
    bool kopiere(const std::string& v, const std::string& n) override {
        return echt().kopiere(v, n);
    }
    bool benenneUm(const std::string& v, const std::string& n) override {
        return imZiel(n) || echt().benenneUm(v, n);
    }
    std::vector<OrdnerEintrag> liste(const std::string& o) override { return echt().liste(o); }

  private:
    struct NullDatei final : Datei {
        std::int64_t laenge() override { return 0; }
        std::int64_t lese(std::int64_t, void*, std::size_t) override { return 0; }
        bool schreibe(std::int64_t, const void*, std::size_t) override { return true; }
        bool haengeAn(const void*, std::size_t) override { return true; }
        bool kuerze(std::int64_t) override { return true; }
    };
    bool imZiel(const std::string& p) const { return p.compare(0, ordner_.size(), ordner_) == 0; }
    static Dateisystem& echt() { return echtesDateisystem(); }
    std::string ordner_;
};

std::string neuerOrdner(const char* art) {
    std::string muster = std::string("/tmp/dorvano-bench-") + art + "-XXXXXX";
    if (!::mkdtemp(muster.data())) std::abort();
    return muster + "/";
}

// A private copy of the generated collection with its own catalogue objects.
struct Sammlung {
    std::string basis = neuerOrdner("interchange");
    Ordner ordner;
    Protokoll protokoll;  // mask 0
    SpeicherUmgebung u;
    std::unique_ptr<Datenbank> db;
    StillerBenutzer benutzer;
    Einstellungen einstellungen{basis + "einstellungen.conf"};
    long beispielBox = 0;  // a typical box: the first with an EAN and three films
    long grosseBox = 0;    // among the first 500 boxes with an EAN, the one with the most films

    Sammlung() {
        const std::string quelle = generator::gecachteSammlung(generator::Groessen{});
        if (quelle.empty()) std::abort();
        std::filesystem::copy(quelle, basis, std::filesystem::copy_options::recursive);
        ordner.setzeBasis(basis);
        ordner.legeAn(echtesDateisystem());
        protokoll.setzeLogPfad(basis + "zelka.log");
        protokoll.setzeMeldungsOrdner(ordner.meldungen);
        u.trace = &protokoll;
        u.datenOrdner = ordner.daten;
        db = std::make_unique<Datenbank>(u, ordner);
        waehleBoxen();
    }
    ~Sammlung() {
        std::error_code ec;
        std::filesystem::remove_all(basis, ec);
    }
    void waehleBoxen() {
        BoxListe boxen = db->ladeSammlung();
        long meiste = -1, n = 0;
        for (const BoxElement* b = boxen.get(); b && n < 500; b = b->pNext, ++n) {
            if (!b->cpEAN[0]) continue;  // a box without EAN is not exported
            long dvds = 0, filme = 0;
            for (const DvdElement* d = b->pDvds; d; d = d->pNext, ++dvds)
                for (const FilmElement* f = d->pFilme; f; f = f->pNext) ++filme;
            if (filme > meiste) {
                meiste = filme;
                grosseBox = b->Id;
            }
            if (!beispielBox && filme == 3) beispielBox = b->Id;
        }
        std::printf("Beispielbox %ld, grosse Box %ld mit %ld Filmen\n", beispielBox, grosseBox,
                    meiste);
    }
};

Sammlung& sammlung() {
    static Sammlung s;
    return s;
}

void importiere(benchmark::State& state, long& box) {
    Sammlung& s = sammlung();
    Austausch a(*s.db, s.ordner, s.benutzer, s.einstellungen);
    const std::string ordner = neuerOrdner("import");
    std::string pfad;
    if (a.exportiere(box, ordner, SchreibOptionen{true, true, true}, &pfad) !=
        ExportErgebnis::Exportiert) {
        state.SkipWithError("export failed");
        return;
    }
    // The box leaves the catalogue; each round brings it back and takes it out again.
    s.db->loescheBox(box);
    ImportOptionen o;
    long id = 0;
    for (auto _ : state) {
        if (a.importiere(pfad, o, &id) != ImportErgebnis::Importiert)
            state.SkipWithError("import failed");
        state.PauseTiming();
        s.db->loescheBox(id);
        state.ResumeTiming();
    }
    a.importiere(pfad, o, &id);
    box = id;
    std::filesystem::remove_all(ordner);
}

void ImportEinerBox(benchmark::State& state) {
    importiere(state, sammlung().beispielBox);
}
BENCHMARK(ImportEinerBox)->Unit(benchmark::kMillisecond);

void ImportEinerGrossenBox(benchmark::State& state) {
    importiere(state, sammlung().grosseBox);
}
BENCHMARK(ImportEinerGrossenBox)->Unit(benchmark::kMillisecond);

void XmlBoxMitUnterobjekten(benchmark::State& state) {
    Sammlung& s = sammlung();
    Austausch a(*s.db, s.ordner, s.benutzer, s.einstellungen);
    std::string d;
    for (auto _ : state) {
        if (!a.xml(kObjektBox, s.beispielBox, XmlOptionen{false, true}, d))
            state.SkipWithError("no box");
        benchmark::DoNotOptimize(d);
    }
    state.counters["Bytes"] = static_cast<double>(d.size());
}
BENCHMARK(XmlBoxMitUnterobjekten)->Unit(benchmark::kMillisecond);

// The document alone, from a box already loaded.
void XmlBoxNurDokument(benchmark::State& state) {
    Sammlung& s = sammlung();
    BoxListe b = s.db->getBox(s.beispielBox);
    s.db->ladeBox(*b);
    ExportQuelle q(*s.db, s.ordner);
    q.merkeFilme(b.get());
    XmlExport x(q);
    x.optionen.unterobjekte = true;
    for (auto _ : state) benchmark::DoNotOptimize(x.box(*b));
}
BENCHMARK(XmlBoxNurDokument)->Unit(benchmark::kMillisecond);

void exportiereAlle(benchmark::State& state, bool schreiben) {
    Sammlung& s = sammlung();
    const std::string ordner = neuerOrdner("export");
    OhneExportDateien ohne(ordner);
    SpeicherUmgebung u = s.u;
    if (!schreiben) u.fs = &ohne;
    Datenbank db(u, s.ordner);
    Austausch a(db, s.ordner, s.benutzer, s.einstellungen);
    StapelExportErgebnis e;
    for (auto _ : state) e = a.exportiereAlle(ordner, true);
    if (e.exportiert != e.gesamt || e.gesamt < 20000) state.SkipWithError("boxes not exported");
    state.counters["Boxen"] = e.exportiert;
    std::filesystem::remove_all(ordner);
}

void AlleExportieren(benchmark::State& state) {
    exportiereAlle(state, true);
}
BENCHMARK(AlleExportieren)->Unit(benchmark::kSecond)->Iterations(1);

void AlleExportierenOhneSchreiben(benchmark::State& state) {
    exportiereAlle(state, false);
}
BENCHMARK(AlleExportierenOhneSchreiben)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace
