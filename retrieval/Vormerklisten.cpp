#include "retrieval/Vormerklisten.h"

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <unordered_set>

#include "retrieval/Objektzugriff.h"

namespace dv {

namespace {

std::uint64_t schluessel(int typ, long id) {
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(typ)) << 32) |
           static_cast<std::uint32_t>(id);
}
std::uint64_t schluessel(const VormerkElement& e) {
    return schluessel(e.typ, e.objektId);
}

bool vorher(const Zeile15& a, const Zeile15& b) {
    return a.Pos != b.Pos ? a.Pos < b.Pos : a.Id < b.Id;
}

constexpr std::uint16_t kPosMax = std::numeric_limits<std::uint16_t>::max();

}  // namespace

std::vector<VormerkListe> Vormerklisten::listen() {
    std::vector<VormerkListe> l;
    db_.katalog().VormerkName.scanne([&](const Zeile1& z) { l.push_back({z.Id, z.cpText}); });
    return l;
}

bool Vormerklisten::gibtEs(long listeId) {
    return listeId > 0 && db_.katalog().VormerkName.eine(listeId) != nullptr;
}

std::string Vormerklisten::name(long listeId) {
    if (listeId <= 0) return std::string();
    auto l = db_.katalog().VormerkName.eine(listeId);
    return l ? std::string(Tabelle1::zeile(l.get()).cpText) : std::string();
}

long Vormerklisten::neu(const std::string& name) {
    return db_.katalog().VormerkName.insert(name.substr(0, kVormerkNameMax).c_str());
}

bool Vormerklisten::benenneUm(long listeId, const std::string& name) {
    if (!gibtEs(listeId)) return false;
    return db_.katalog().VormerkName.update(listeId, name.substr(0, kVormerkNameMax).c_str());
}

bool Vormerklisten::loesche(long listeId) {
    auto v = db_.vorgang();
    if (!v.offen() || !gibtEs(listeId)) return false;
    auto& tab = db_.katalog().Vormerk2;
    bool ok = true;
    for (const Zeile15& z : zeilen(listeId)) ok = tab.remove(z.Id, false) && ok;
    tab.init();
    ok = ok && db_.katalog().VormerkName.remove(listeId, true);
    if (!ok) v.verwerfen();
    return v.abschliessen();
}

std::vector<Zeile15> Vormerklisten::zeilen(long listeId) {
    std::vector<Zeile15> z;
    db_.katalog().Vormerk2.scanne([&](const Zeile15& r) {
        if (r.Vormerk_Id == listeId) z.push_back(r);
    });
    std::sort(z.begin(), z.end(), vorher);
    return z;
}

bool Vormerklisten::schreibe(const Zeile15& z) {
    return db_.katalog().Vormerk2.update(z.Id, z.Vormerk_Id, z.Objekt_Typ, z.Objekt_Id, z.Pos);
}

std::uint16_t Vormerklisten::letztePosition(long listeId) {
    std::uint16_t pos = 0;
    db_.katalog().Vormerk2.scanne([&](const Zeile15& r) {
        if (r.Vormerk_Id == listeId) pos = std::max(pos, r.Pos);
    });
    return pos;
}

long Vormerklisten::fuegeHinzu(long listeId, int typ, long objektId) {
    auto v = db_.vorgang();
    if (!v.offen()) return 0;
    std::uint16_t letzte = letztePosition(listeId);
    if (letzte == kPosMax) {
        // The positions ran out at the top: number the list 1, 2, ... again.
        std::vector<Zeile15> z = zeilen(listeId);
        if (z.size() >= kPosMax) return 0;
        letzte = 0;
        for (Zeile15& r : z) {
            r.Pos = ++letzte;
            if (!schreibe(r)) {
                v.verwerfen();
                return 0;
            }
        }
    }
    const long id = fuegeHinzuAn(listeId, typ, objektId, static_cast<std::uint16_t>(letzte + 1));
    return v.abschliessen() ? id : 0;
}

long Vormerklisten::fuegeHinzuAn(long listeId, int typ, long objektId, std::uint16_t pos) {
    if (listeId <= 0 || objektId <= 0) return 0;
    return db_.katalog().Vormerk2.insert(listeId, typ, objektId, pos);
}

bool Vormerklisten::enthaelt(long listeId, int typ, long objektId) {
    bool da = false;
    db_.katalog().Vormerk2.scanne([&](const Zeile15& r) {
        da = da || (r.Vormerk_Id == listeId && r.Objekt_Typ == typ && r.Objekt_Id == objektId);
    });
    return da;
}

bool Vormerklisten::entferne(long listeId, int typ, long objektId) {
    for (const Zeile15& z : zeilen(listeId))
        if (z.Objekt_Typ == typ && z.Objekt_Id == objektId)
            return db_.katalog().Vormerk2.remove(z.Id, true);
    return false;
}

bool Vormerklisten::verschiebe(long listeId, int typ, long objektId, bool hoch) {
    auto v = db_.vorgang();
    if (!v.offen()) return false;
    std::vector<Zeile15> z = zeilen(listeId);
    std::size_t i = 0;
    while (i < z.size() && !(z[i].Objekt_Typ == typ && z[i].Objekt_Id == objektId)) ++i;
    if (i == z.size()) return false;
    if (hoch ? i == 0 : i + 1 == z.size()) return false;
    const std::size_t j = hoch ? i - 1 : i + 1;
    if (z[i].Pos == z[j].Pos) {
        // Equal positions cannot be swapped: number the list densely first.
        std::uint16_t p = 0;
        for (Zeile15& r : z) {
            r.Pos = ++p;
            if (!schreibe(r)) v.verwerfen();
        }
    }
    std::swap(z[i].Pos, z[j].Pos);
    if (!schreibe(z[i]) || !schreibe(z[j])) v.verwerfen();
    return v.abschliessen();
}

bool Vormerklisten::kopiere(long vonListe, long nachListe, int typ, long objektId) {
    for (const Zeile15& z : zeilen(vonListe))
        if (z.Objekt_Typ == typ && z.Objekt_Id == objektId)
            return fuegeHinzu(nachListe, typ, objektId) > 0;
    return false;
}

bool Vormerklisten::verschiebeNach(long vonListe, long nachListe, int typ, long objektId) {
    if (nachListe <= 0) return false;
    for (Zeile15 z : zeilen(vonListe)) {
        if (z.Objekt_Typ != typ || z.Objekt_Id != objektId) continue;
        if (vonListe == nachListe) return true;
        const std::uint16_t letzte = letztePosition(nachListe);
        if (letzte == kPosMax) return false;
        z.Vormerk_Id = static_cast<std::int32_t>(nachListe);
        z.Pos = static_cast<std::uint16_t>(letzte + 1);
        return schreibe(z);
    }
    return false;
}

std::vector<std::vector<VormerkElement>> Vormerklisten::eintraege(const std::vector<long>& listen,
                                                                  bool mitTitel) {
    std::unordered_map<long, std::vector<Zeile15>> nachListe;
    for (long id : listen) nachListe.emplace(id, std::vector<Zeile15>());
    db_.katalog().Vormerk2.scanne([&](const Zeile15& r) {
        auto it = nachListe.find(r.Vormerk_Id);
        if (it != nachListe.end()) it->second.push_back(r);
    });
    std::vector<std::vector<VormerkElement>> aus;
    std::vector<ObjektRef> objekte;
    for (long id : listen) {
        std::vector<Zeile15>& z = nachListe[id];
        std::sort(z.begin(), z.end(), vorher);
        std::vector<VormerkElement> l;
        l.reserve(z.size());
        for (const Zeile15& r : z) {
            l.push_back({r.Id, r.Vormerk_Id, r.Objekt_Typ, r.Objekt_Id, r.Pos, std::string()});
            objekte.push_back({r.Objekt_Typ, r.Objekt_Id});
        }
        aus.push_back(std::move(l));
    }
    if (mitTitel && !objekte.empty()) {
        const auto titel = objektTitel(db_, objekte);
        std::size_t i = 0;
        for (auto& l : aus)
            for (VormerkElement& e : l) e.titel = titel[i++].value_or(std::string());
    }
    return aus;
}

std::vector<VormerkElement> Vormerklisten::inhalt(const std::vector<long>& listen) {
    std::vector<VormerkElement> alle;
    for (auto& l : eintraege(listen, true))
        for (VormerkElement& e : l) alle.push_back(std::move(e));
    return alle;
}

std::vector<VormerkElement> vereinigung(const std::vector<VormerkElement>& alle) {
    std::vector<VormerkElement> aus;
    std::unordered_set<std::uint64_t> genommen;
    genommen.reserve(alle.size());
    for (const VormerkElement& e : alle)
        if (genommen.insert(schluessel(e)).second) aus.push_back(e);
    return aus;
}

std::vector<VormerkElement> schnitt(const std::vector<std::vector<VormerkElement>>& listen) {
    if (listen.empty()) return {};
    std::vector<std::unordered_set<std::uint64_t>> andere;
    for (std::size_t i = 1; i < listen.size(); ++i) {
        std::unordered_set<std::uint64_t> s;
        s.reserve(listen[i].size());
        for (const VormerkElement& e : listen[i]) s.insert(schluessel(e));
        andere.push_back(std::move(s));
    }
    std::vector<VormerkElement> aus;
    for (const VormerkElement& e : listen[0]) {
        const std::uint64_t k = schluessel(e);
        if (std::all_of(andere.begin(), andere.end(),
                        [&](const auto& s) { return s.count(k) > 0; }))
            aus.push_back(e);
    }
    return aus;
}

std::vector<VormerkElement> komplement(const std::vector<VormerkElement>& erste,
                                       const std::vector<VormerkElement>& zweite) {
    std::unordered_map<std::uint64_t, std::size_t> offen;
    offen.reserve(zweite.size());
    for (const VormerkElement& e : zweite) ++offen[schluessel(e)];
    std::vector<VormerkElement> aus;
    for (const VormerkElement& e : erste) {
        auto it = offen.find(schluessel(e));
        if (it != offen.end() && it->second > 0) {
            --it->second;
            continue;
        }
        aus.push_back(e);
    }
    return aus;
}

std::string vormerkStatus(std::size_t anzahl) {
    return "Inhalt der Vormerkliste(n) [" + std::to_string(anzahl) + " Element" +
           (anzahl == 1 ? "" : "e") + "]";
}

std::string vormerkAlsText(const std::vector<VormerkElement>& elemente,
                           const std::vector<VormerkListe>& listen) {
    std::unordered_map<long, const std::string*> namen;
    for (const VormerkListe& l : listen) namen.emplace(l.id, &l.name);
    std::string text;
    for (const VormerkElement& e : elemente) {
        auto it = namen.find(e.listeId);
        text += '[';
        if (it != namen.end()) text += *it->second;
        text += "]:\t";
        text += objektTypName(e.typ);
        text += '\t';
        text += '{' + e.titel + "}\r\n";
    }
    return text;
}

}  // namespace dv
