#pragma once
// The whole collection walked box by box: the tables are read once, as by
// Datenbank::ladeSammlung, but the lists below a box are built only when the walk
// reaches it and released when it moves on. Memory then holds the table rows of
// the scope and one box's lists, not the whole object tree.

#include <memory>

#include "domain/Datenbank.h"

namespace dv {

class Sammlungsdurchlauf {
  public:
    // Reads the boxes and every table the scope (kUmfang... bits, as for
    // ladeSammlung) needs. The Datenbank must outlive the walk; the walk is
    // single-use.
    Sammlungsdurchlauf(Datenbank& db, unsigned umfang);
    // Releases the current box's lists and the boxes.
    ~Sammlungsdurchlauf();
    Sammlungsdurchlauf(const Sammlungsdurchlauf&) = delete;
    Sammlungsdurchlauf& operator=(const Sammlungsdurchlauf&) = delete;

    // The next box in catalogue order with its lists built exactly as
    // ladeSammlung builds them; the previous box's lists are released first.
    // Null after the last box. The element stays valid until the walk ends; its
    // lists only until the next call.
    BoxElement* naechste();

    // How many boxes, DVDs and films the walk meets, each DVD and film counted
    // once however many boxes hold it (the DVDs and films need them in scope).
    long boxen() const;
    long dvds() const;
    long filme() const;

  private:
    struct Leser;
    Datenbank& db_;
    BoxListe boxen_;
    std::unique_ptr<Leser> leser_;
    BoxElement* aktuell_ = nullptr;
    bool begonnen_ = false;
};

}  // namespace dv
