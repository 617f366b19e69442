#pragma once
// Reverse look-ups over the link tables: how many objects use each entry of a
// lookup catalogue and how many films each person appears in, and moving every
// use of one entry onto another (the merge of two entries). Each operation reads
// every table that can name the catalogue once, however many entries there are.
//
// A merge writes the new rows before the old ones go, so a failure midway leaves
// at worst a link twice, never a link to a missing entry. The caller runs it as
// one operation (the application's write helper) and checks the ids first.

#include <unordered_map>

#include "domain/Datenbank.h"

namespace dv {

// The filter type (1..8) that translates entries of a lookup type; 0 for none.
int filterTypVon(int lookupTyp);

// Objects that use each entry of the catalogue of typ: a box, DVD or film counts
// once per entry however many of its links name it. kTypSprache and
// kTypUntertitel both count the language catalogue (languages and subtitles);
// the function catalogue counts films by their function list and their persons.
// Entries nothing uses are missing from the map.
std::unordered_map<long, long> zaehleVerwendung(Datenbank& db, int typ);

// The films each person appears in (persons without films are missing).
std::unordered_map<long, long> zaehlePersonenFilme(Datenbank& db);

// What a merge of weg would move: link rows and object fields that name it.
long zaehleVerweise(Datenbank& db, int typ, long weg);
long zaehlePersonenVerweise(Datenbank& db, long weg);

// Every reference to entry weg of the catalogue of typ onto bleibt: link rows
// (a link of an owner that names bleibt already is dropped instead),
// Verpackungs_Id, Formate_Id, the functions of film persons (with their
// aliases), filter entries; then weg is deleted. Both ids must exist and differ.
// False when a write failed.
bool fuehreZusammen(Datenbank& db, int typ, long bleibt, long weg);

// Every film link of person weg onto bleibt, with its aliases; a film that has
// bleibt in the same function already keeps that link and gets the aliases.
// Then weg is deleted.
bool fuehrePersonenZusammen(Datenbank& db, long bleibt, long weg);

// Deletes an entry that nothing uses, with the filter entries that translate it
// (a freed slot is reused by the next insert: nothing may keep its id).
bool loescheLookup(Datenbank& db, int typ, long id);

}  // namespace dv
