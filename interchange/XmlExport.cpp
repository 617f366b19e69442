#include "interchange/XmlExport.h"

#include <strings.h>
#include <QByteArray>
#include <cstdio>

#include "base/Optionen.h"

namespace dv {
namespace {

const char* name(const ObjektElement& e) {
    return e.pObjekt1 ? e.pObjekt1->zeile.cpText : "";
}
const char* name2(const ObjektElement& e) {
    return e.pObjekt2 ? e.pObjekt2->zeile.cpText : "";
}

std::string element(const char* tag, const std::string& wert) {
    return std::string("<") + tag + ">" + xmlText(wert) + "</" + tag + ">";
}

std::string attribut(const char* name, const std::string& wert) {
    return std::string(" ") + name + "=\"" + xmlText(wert) + "\"";
}

std::string zahl(long v) {
    return std::to_string(v);
}

// The MIME subtype of the data URI after the cover's extension.
const char* bildArt(const std::string& endung) {
    if (::strcasecmp(endung.c_str(), "bmp") == 0) return "bmp";
    if (::strcasecmp(endung.c_str(), "jpg") == 0) return "jpeg";
    if (::strcasecmp(endung.c_str(), "gif") == 0) return "gif";
    return "???";
}

}  // namespace

XmlOptionen xmlOptionen(std::uint32_t optionen) {
    XmlOptionen o;
    o.cover = (optionen & kOptXmlCover) != 0;
    o.unterobjekte = (optionen & kOptXmlUnterobjekte) != 0;
    return o;
}

std::string xmlText(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '\'':
                out += "&apos;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += c;
        }
    }
    return out;
}

std::string XmlExport::fertig(bool ganz) {
    std::string out;
    std::size_t n = 0;
    for (const std::string& z : zeilen_) n += z.size() + 2;
    out.reserve(n + 128);
    if (ganz) {
        char version[64];
        std::snprintf(version, sizeof version, "<ZELKA_XML version=\"%d.%d\">", 1, 0);
        out += "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<ZELKA_4>\r\n";
        out += version;
        out += "\r\n";
    }
    for (const std::string& z : zeilen_) {
        out += z;
        out += "\r\n";
    }
    if (ganz) out += "</ZELKA_XML>\r\n</ZELKA_4>\r\n";
    zeilen_.clear();
    return out;
}

std::string XmlExport::box(const BoxElement& b, bool ganz) {
    zeilen_.clear();
    boxZeilen(b);
    return fertig(ganz);
}

std::string XmlExport::dvd(const DvdElement& d, bool ganz) {
    zeilen_.clear();
    dvdZeilen(d);
    return fertig(ganz);
}

std::string XmlExport::film(const FilmElement& f, bool ganz) {
    zeilen_.clear();
    filmZeilen(f);
    return fertig(ganz);
}

std::string XmlExport::coverAttribut(long boxId) {
    const std::string pfad = quelle_.cover(boxId);
    std::string bytes;
    if (pfad.empty() || !leseAlles(quelle_.db().fs(), pfad, bytes)) return {};
    const QByteArray base64 =
        QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())).toBase64();
    if (base64.isEmpty() && !bytes.empty()) return {};
    return std::string(" Cover=\"data:image/") + bildArt(dateiEndung(pfad)) + ";base64," +
           std::string(base64.constData(), static_cast<std::size_t>(base64.size())) + "\"";
}

void XmlExport::boxZeilen(const BoxElement& b) {
    const std::string verpackung =
        uebersetzterName(filter_, kFilterVerpackung, b.Verpackungs_Id,
                         quelle_.lookupName(kTypVerpackung, b.Verpackungs_Id));
    std::string kopf = "<Box" + attribut("EAN", b.cpEAN) + attribut("Verpackungstyp", verpackung) +
                       attribut("Titel", b.cpText);
    if (optionen.cover) kopf += coverAttribut(b.Id);
    zeilen_.push_back(kopf + ">");
    for (const ObjektElement* e = b.pExtras; e; e = e->pNext)
        zeilen_.push_back(
            element("Extra", uebersetzterName(filter_, kFilterExtras, e->Id, name(*e))));
    if (optionen.unterobjekte)
        for (const DvdElement* d = b.pDvds; d; d = d->pNext) dvdZeilen(*d);
    zeilen_.push_back("</Box>");
}

void XmlExport::dvdZeilen(const DvdElement& d) {
    const std::string format = uebersetzterName(filter_, kFilterDvdFormate, d.Formate_Id,
                                                quelle_.lookupName(kTypFormat, d.Formate_Id));
    zeilen_.push_back("<Dvd" + attribut("Titel", d.cpText) + attribut("Jahr", zahl(d.Jahr)) +
                      attribut("SN", zahl(d.SN)) + attribut("BytesLow", zahl(d.BytesLow)) +
                      attribut("BytesHigh", zahl(d.BytesHigh)) + attribut("Format", format) + ">");
    zeilen_.push_back("<RC>" + zahl(static_cast<std::uint8_t>(d.RC)) + "</RC>");
    for (const ObjektElement* e = d.pExtras; e; e = e->pNext)
        zeilen_.push_back(
            element("Extra", uebersetzterName(filter_, kFilterExtras, e->Id, name(*e))));
    if (optionen.unterobjekte)
        for (const FilmElement* f = d.pFilme; f; f = f->pNext) filmZeilen(*f);
    zeilen_.push_back("</Dvd>");
}

void XmlExport::filmZeilen(const FilmElement& f) {
    const FilmTitel titel = quelle_.titel(f);
    zeilen_.push_back("<Film" + attribut("Titel", titel.haupt) + attribut("FSK", zahl(f.FSK)) +
                      attribut("Jahr", zahl(f.Jahr)) + attribut("Dauer", zahl(f.Laenge)) + ">");
    zeilen_.push_back(element("Original-Titel", titel.original));
    if (titel.weitere.empty()) zeilen_.push_back(element("Alternativ-Titel", ""));
    for (const std::string& w : titel.weitere) zeilen_.push_back(element("Alternativ-Titel", w));
    for (const ObjektElement* e = f.pBildformate; e; e = e->pNext)
        zeilen_.push_back(
            element("Bildformat", uebersetzterName(filter_, kFilterBildformate, e->Id, name(*e))));
    for (const ObjektElement* e = f.pGenres; e; e = e->pNext)
        zeilen_.push_back(
            element("Genre", uebersetzterName(filter_, kFilterGenre, e->Id, name(*e))));
    for (const ObjektElement* e = f.pSprachen; e; e = e->pNext) {
        const std::string ton = uebersetzterName(filter_, kFilterTonformate, e->Id2, name2(*e));
        const std::string sprache = uebersetzterName(filter_, kFilterSprachen, e->Id, name(*e));
        zeilen_.push_back("<Sprache" + attribut("Tonformat", ton) + ">" + xmlText(sprache) +
                          "</Sprache>");
    }
    for (const ObjektElement* e = f.pUntertitel; e; e = e->pNext)
        zeilen_.push_back(
            element("Untertitel", uebersetzterName(filter_, kFilterSprachen, e->Id, name(*e))));
    personZeilen(f);
    zeilen_.push_back(element("Inhalt", quelle_.inhalt(f.Id)));
    zeilen_.push_back(element("Kommentar", quelle_.kommentar(f.Id)));
    zeilen_.push_back("</Film>");
}

void XmlExport::personZeilen(const FilmElement& f) {
    // One element per person; its functions and aliases from all its links to the film.
    std::vector<const PersonenElement*> erste;
    for (const PersonenElement* p = f.pPersonen; p; p = p->pNext) {
        if (!p->pPerson) continue;
        bool neu = true;
        for (const PersonenElement* q : erste)
            if (q->pPerson->zeile.Id == p->pPerson->zeile.Id) neu = false;
        if (neu) erste.push_back(p);
    }
    for (const PersonenElement* p : erste) {
        const Zeile8& z = p->pPerson->zeile;
        zeilen_.push_back("<Person" + attribut("Instanz", zahl(z.Instanz)) +
                          attribut("Name", z.cpName) + attribut("Vorname", z.cpVorname) + ">");
        std::vector<std::string> alias;
        for (const PersonenElement* q = p; q; q = q->pNext) {
            if (!q->pPerson || q->pPerson->zeile.Id != z.Id) continue;
            const std::string& fn = quelle_.lookupName(kTypFunktion, q->lFunktion);
            if (!fn.empty())
                zeilen_.push_back(element(
                    "Funktion", uebersetzterName(filter_, kFilterFunktionen, q->lFunktion, fn)));
            for (const ListenElement* a = q->pAlias; a; a = a->pNext)
                if (const auto* row = static_cast<const Zeile1*>(a->pObjekt))
                    alias.push_back(row->cpText);
        }
        for (const std::string& a : alias) zeilen_.push_back(element("Alias", a));
        zeilen_.push_back("</Person>");
    }
}

}  // namespace dv
