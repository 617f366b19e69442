#include "cli/Objektargumente.h"

#include "app/Zeichensatz.h"

namespace dv::cli {

void pflicht(CLI::App* c, const char* name, std::string& ziel, const char* hilfe) {
    c->add_option(name, ziel, cp1252NachUtf8(hilfe))->required();
}

void objektWorte(CLI::App* c, std::string& typ, std::string& id) {
    pflicht(c, "typ", typ, "box, dvd oder film");
    pflicht(c, "id", id, "ID des Objekts");
}

int idArgument(Kontext& k, const std::string& text, long& id) {
    if (!zahl(text, id) || id <= 0)
        return k.fehler(kNutzung, "Keine gültige ID: " + katalogText(text));
    return kFertig;
}

int objektArgument(Kontext& k, const std::string& typText, const std::string& idText, int& typ,
                   long& id) {
    typ = objektTyp(typText);
    if (!typ)
        return k.fehler(kNutzung,
                        "Unbekannter Objekttyp: " + katalogText(typText) + " (box, dvd oder film)");
    if (const int code = idArgument(k, idText, id)) return code;
    if (!k.dienste().katalog().gibtEs(typ, id))
        return k.ergebnis(KatalogDienst::unbekannt(typ, id));
    return kFertig;
}

int benanntArgument(Kontext& k, Benannte& dienst, const std::string& text, long& id) {
    if (const int code = idArgument(k, text, id)) return code;
    return k.ergebnis(dienst.pruefe(id));
}

int listenArgument(Kontext& k, const std::string& text, long& id) {
    return benanntArgument(k, k.dienste().vormerk(), text, id);
}

int listenArgumente(Kontext& k, const std::vector<std::string>& texte, std::vector<long>& ids) {
    for (const std::string& t : texte) {
        long id = 0;
        if (const int code = listenArgument(k, t, id)) return code;
        ids.push_back(id);
    }
    return kFertig;
}

void benannteBefehle(Register& reg, CLI::App* gruppe, BenannteWahl dienst,
                     const BenannteBefehle& texte,
                     std::function<Ergebnis(Kontext&, long)> loesche) {
    std::shared_ptr<Argumente> a;
    CLI::App* c = unterbefehl(reg, gruppe, texte.liste, texte.listeText, a);
    reg.handler(c, [dienst](Kontext& k) {
        for (const Benannt& b : dienst(k).liste()) k.zeile(std::to_string(b.id) + '\t' + b.name);
        return kFertig;
    });

    const std::string name = std::string("Name ") + texte.genitiv;
    const std::string id = std::string("ID ") + texte.genitiv;
    c = unterbefehl(reg, gruppe, "neu", texte.neuText, a);
    pflicht(c, "name", a->name, name.c_str());
    reg.handler(c,
                [a, dienst](Kontext& k) { return k.neueId(dienst(k).neu(katalogText(a->name))); });

    c = unterbefehl(reg, gruppe, "umbenennen", texte.umbenennenText, a);
    pflicht(c, "id", a->id, id.c_str());
    pflicht(c, "name", a->name, ("Neuer " + name).c_str());
    reg.handler(c, [a, dienst](Kontext& k) {
        long nummer = 0;
        if (const int code = benanntArgument(k, dienst(k), a->id, nummer)) return code;
        return k.ergebnis(dienst(k).umbenennen(nummer, katalogText(a->name)));
    });

    c = unterbefehl(reg, gruppe, "loeschen", texte.loeschenText, a);
    pflicht(c, "id", a->id, id.c_str());
    reg.handler(c, [a, dienst, loesche](Kontext& k) {
        long nummer = 0;
        if (const int code = benanntArgument(k, dienst(k), a->id, nummer)) return code;
        return k.ergebnis(loesche ? loesche(k, nummer) : dienst(k).loesche(nummer));
    });
}

}  // namespace dv::cli
