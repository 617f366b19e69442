#pragma once
// Watch lists ("Vormerklisten"): named, ordered lists of boxes, DVDs and films.
// A list is a "VormerkName" record (id and name, at most 128 characters); its
// entries are "Vormerk2" records (list id, object type, object id, "Pos"), the
// position ascending from the top. Nothing is cached: every call reads the
// tables anew. Two entries name the same object when type and id are equal.

#include <cstdint>
#include <string>
#include <vector>

#include "domain/Datenbank.h"

namespace dv {

// Longest list name; longer names are cut.
inline constexpr std::size_t kVormerkNameMax = 128;

struct VormerkListe {
    long id = 0;
    std::string name;
};

// One entry as the content view shows it.
struct VormerkElement {
    long satzId = 0;   // the Vormerk2 record
    long listeId = 0;  // the owning list
    int typ = 0;       // kObjektBox, kObjektDvd, kObjektFilm
    long objektId = 0;
    std::uint16_t pos = 0;
    std::string titel;  // the object's title or name; "" when it no longer exists
};

class Vormerklisten {
  public:
    // db must outlive the object.
    explicit Vormerklisten(Datenbank& db) : db_(db) {}

    // Every list, in id order.
    std::vector<VormerkListe> listen();
    // False when there is no list of that id.
    bool gibtEs(long listeId);
    std::string name(long listeId);

    // A new list; its id, 0 on failure. The name is cut to kVormerkNameMax.
    long neu(const std::string& name);
    bool benenneUm(long listeId, const std::string& name);
    // Deletes the list with all its entries (entries first, so a failure never
    // leaves entries of a list that is gone).
    bool loesche(long listeId);

    // Appends the object after the list's last entry; the entry's id, 0 on failure.
    long fuegeHinzu(long listeId, int typ, long objektId);
    // The same at a given position (bulk imports keep their own count).
    long fuegeHinzuAn(long listeId, int typ, long objektId, std::uint16_t pos);
    // The highest position in the list (0 when empty).
    std::uint16_t letztePosition(long listeId);
    // Whether the list holds the object.
    bool enthaelt(long listeId, int typ, long objektId);
    // Removes the object's first entry (by position) from the list.
    bool entferne(long listeId, int typ, long objektId);
    // Swaps the object's first entry with its upper or lower neighbour; both
    // entries are stored. False at the edge or when the object is not listed.
    bool verschiebe(long listeId, int typ, long objektId, bool hoch);
    // Appends a new entry to the target; the source stays as it is. False when
    // the object is not in the source list.
    bool kopiere(long vonListe, long nachListe, int typ, long objektId);
    // Moves the object's first entry from the source to the end of the target
    // (one record rewritten, so the entry is never lost or doubled).
    bool verschiebeNach(long vonListe, long nachListe, int typ, long objektId);

    // The entries of the lists (one table read), list after list in the order
    // given, within a list by position. Titles are filled when mitTitel.
    std::vector<std::vector<VormerkElement>> eintraege(const std::vector<long>& listen,
                                                       bool mitTitel);
    // The content view of the lists: all their entries in one sequence.
    std::vector<VormerkElement> inhalt(const std::vector<long>& listen);

  private:
    // The list's entries by position (equal positions by record id).
    std::vector<Zeile15> zeilen(long listeId);
    bool schreibe(const Zeile15& z);

    Datenbank& db_;
};

// ---- Set operations on the entries (views only; no stored list changes).
// Union: every entry once, at its first occurrence (by type and id).
std::vector<VormerkElement> vereinigung(const std::vector<VormerkElement>& alle);
// Intersection: the entries of the first list that occur in every other list,
// in the first list's order; an entry the first list holds twice stays twice.
std::vector<VormerkElement> schnitt(const std::vector<std::vector<VormerkElement>>& listen);
// Complement: the first selection without the second, counting occurrences:
// every entry of the second removes one matching entry (the first found).
std::vector<VormerkElement> komplement(const std::vector<VormerkElement>& erste,
                                       const std::vector<VormerkElement>& zweite);

// "Inhalt der Vormerkliste(n) [%d Element%s]": "e" unless there is exactly one.
std::string vormerkStatus(std::size_t anzahl);
// Copy as text: "[%s]:\t%s\t{%s}\r\n" per element: list name, type name, title.
std::string vormerkAlsText(const std::vector<VormerkElement>& elemente,
                           const std::vector<VormerkListe>& listen);

}  // namespace dv
