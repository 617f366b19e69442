#pragma once
// The whole catalogue as `liste` prints it: lines of text, or one JSON document
// (UTF-8). Both walk the collection box by box (domain/Durchlauf.h) and hand out
// each box's part as soon as it is made, so neither the object tree nor the
// document is ever held whole.

#include <cstdio>
#include <functional>
#include <string>

namespace dv {

class CApplikation;

// Per box, DVD and film one line in catalogue order (Windows-1252):
// "Box\t<id>\t<EAN>\t<name>", "Dvd\t<id>\t<box id>\t<name>",
// "Film\t<id>\t<DVD id>\t<title>".
void katalogZeilen(CApplikation& app, const std::function<void(const std::string&)>& zeile);

// {"boxen":[...]}: every box with its DVDs, films, lists, side texts, tags and
// cover file name, keys in the documented order, written to aus followed by a
// line end. False when writing to aus failed (the document is then incomplete).
bool schreibeKatalogJson(CApplikation& app, std::FILE* aus);

}  // namespace dv
