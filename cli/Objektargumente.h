#pragma once
// Arguments that name catalogue objects, watch lists and stamp tags, checked
// the same way by every retrieval command: a wrong word, a bad number or an
// unknown id prints its German message and gives exit code 2.

#include <memory>
#include <string>
#include <vector>

#include "cli/Kontext.h"

namespace dv::cli {

// The words of one subcommand, kept alive by its handler.
struct Argumente {
    std::string typ, id, liste, nach, name, text, objekt, datei;
    std::vector<std::string> texte, listen, gegen;
};
// A subcommand of eltern; a receives fresh words for it (any argument struct of
// the command group).
template <class A>
CLI::App* unterbefehl(Register& reg, CLI::App* eltern, const char* name, const char* text,
                      std::shared_ptr<A>& a) {
    a = std::make_shared<A>();
    return reg.befehl(eltern, name, text);
}
// A required positional word with a German help text.
void pflicht(CLI::App* c, const char* name, std::string& ziel, const char* hilfe);
// The two required words TYP and ID that name a box, DVD or film.
void objektWorte(CLI::App* c, std::string& typ, std::string& id);

// The commands that list, create, rename and delete named things (watch lists,
// filters) in the same way: LISTE, neu NAME (prints the id), umbenennen ID NAME,
// loeschen ID.
struct BenannteBefehle {
    const char* liste;      // the list command's name ("listen", "liste")
    const char* listeText;  // its description
    const char* neuText;    // descriptions of neu, umbenennen, loeschen
    const char* umbenennenText;
    const char* loeschenText;
    const char* genitiv;  // "der Vormerkliste", "des Filters"
};
using BenannteWahl = std::function<Benannte&(Kontext&)>;
// loesche: the delete (with its question); empty: Benannte::loesche.
void benannteBefehle(Register& reg, CLI::App* gruppe, BenannteWahl dienst,
                     const BenannteBefehle& texte,
                     std::function<Ergebnis(Kontext&, long)> loesche = {});

// TYP and ID of an existing box, DVD or film. Returns kFertig or the exit code
// after the message.
int objektArgument(Kontext& k, const std::string& typText, const std::string& idText, int& typ,
                   long& id);
// A handler for a command on one existing object: a (with its words typ and id)
// is checked first, then tu(k, typ, id) runs.
template <class A, class F>
Handler mitObjekt(std::shared_ptr<A> a, F tu) {
    return [a, tu](Kontext& k) {
        int typ = 0;
        long id = 0;
        if (const int code = objektArgument(k, a->typ, a->id, typ, id)) return code;
        return tu(k, typ, id);
    };
}
// The id of an existing watch list.
int listenArgument(Kontext& k, const std::string& text, long& id);
// The id of an existing named thing.
int benanntArgument(Kontext& k, Benannte& dienst, const std::string& text, long& id);
// Several watch lists in the order given.
int listenArgumente(Kontext& k, const std::vector<std::string>& texte, std::vector<long>& ids);
// A positive record id (existence is the caller's check).
int idArgument(Kontext& k, const std::string& text, long& id);

}  // namespace dv::cli
