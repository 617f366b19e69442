#pragma once
// A box tree as text, to compare trees built in different ways: every field
// except pointers, one line per element. Only the lines of the chosen list kinds
// (kUmfang...) are written; the box lines come with kAbbildBoxen.

#include <sstream>
#include <string>

#include "domain/Datenbank.h"

namespace dv::test {

inline constexpr unsigned kAbbildBoxen = 1u << 16;

class Abbild {
  public:
    explicit Abbild(unsigned arten = kUmfangAlles | kAbbildBoxen) : arten_(arten) {}
    std::string von(const BoxElement* b) {
        for (; b; b = b->pNext) {
            if (arten_ & kAbbildBoxen)
                s_ << "Box " << b->Id << ' ' << b->cpEAN << '|' << b->cpText << '|'
                   << b->Verpackungs_Id << ' ' << b->Zusatz_Id << ' ' << int{b->bAnsicht1} << '\n';
            objekte(kUmfangBoxExtras, "  BoxExtra", b->pExtras);
            for (const DvdElement* d = b->pDvds; d; d = d->pNext) dvd(*d);
        }
        return s_.str();
    }

  private:
    void dvd(const DvdElement& d) {
        if (arten_ & kUmfangDvds)
            s_ << " Dvd " << d.Id << ' ' << d.Index << ' ' << d.cpText << '|' << d.Jahr << ' '
               << int{d.RC} << ' ' << int{d.Opt} << ' ' << d.Formate_Id << ' ' << d.SN << ' '
               << d.Laenge << ' ' << d.BytesLow << ' ' << d.BytesHigh << '\n';
        objekte(kUmfangDvdExtras, "  DvdExtra", d.pExtras);
        for (const FilmElement* f = d.pFilme; f; f = f->pNext) film(*f);
    }
    void film(const FilmElement& f) {
        if (arten_ & kUmfangFilme)
            s_ << "  Film " << f.Id << ' ' << f.Index << ' ' << f.cpTitel << '|' << int{f.FSK}
               << ' ' << f.Laenge << ' ' << f.Jahr << '\n';
        objekte(kUmfangGenres, "   Genre", f.pGenres);
        objekte(kUmfangBildformate, "   Bild", f.pBildformate);
        objekte(kUmfangUntertitel, "   Unter", f.pUntertitel);
        objekte(kUmfangSprachen, "   Sprache", f.pSprachen);
        const PersonenElement* p = (arten_ & kUmfangPersonen) ? f.pPersonen : nullptr;
        for (; p; p = p->pNext) {
            s_ << "   Person " << p->lVerknuepfung << ' ' << p->lFunktion << ' ' << p->lPos << ' '
               << p->pPerson->zeile.Id << ' ' << p->pPerson->zeile.cpName << '|'
               << p->pPerson->zeile.cpVorname << '|' << p->pPerson->zeile.Instanz;
            for (const ListenElement* a = p->pAlias; a; a = a->pNext) {
                const auto& z = *static_cast<const Zeile1*>(a->pObjekt);
                s_ << " [" << z.Id << ' ' << z.cpText << ']';
            }
            s_ << '\n';
        }
        for (const FktElement* k = f.pFunktionen; k && (arten_ & kUmfangFunktionen); k = k->pNext)
            s_ << "   Fkt " << k->Id << ' ' << k->sWert << ' ' << k->cpText << '\n';
    }
    void objekte(unsigned art, const char* name, const ObjektElement* e) {
        for (; e && (arten_ & art); e = e->pNext) {
            s_ << name << ' ' << e->Id << ' ' << e->Id2 << ' ' << e->lPos << ' '
               << e->pObjekt1->zeile.cpText;
            if (e->pObjekt2) s_ << " / " << e->pObjekt2->zeile.cpText;
            s_ << '\n';
        }
    }
    unsigned arten_;
    std::ostringstream s_;
};

}  // namespace dv::test
