#pragma once
// The whole collection walked box by box: the tables are read once, as by
// Datenbank::ladeSammlung, but the lists below a box are built only when the walk
// reaches it and released when it moves on. Memory then holds the table rows of
// the scope and one box's lists, not the whole object tree.

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "domain/Datenbank.h"

namespace dv {

// Where the walk over the boxes meets a film for the first time.
struct Fundstelle {
    long rang = 0;  // 1 for the first film met, 2 for the next new one, ...
    std::int32_t box = 0;
    std::int32_t dvd = 0;
    std::uint16_t index = 0;  // the film's running number on that DVD
};

class Sammlungsdurchlauf {
  public:
    enum class Weise {
        Boxweise,   // naechste()
        Filmweise,  // filmeNachId() alone: the boxes are read as their ids in
                    // catalogue order and the DVDs as live or not, nothing more
    };
    // Reads the boxes and every table the scope (kUmfang... bits, as for
    // ladeSammlung) needs. The Datenbank must outlive the walk; the walk is
    // single-use.
    Sammlungsdurchlauf(Datenbank& db, unsigned umfang, Weise weise = Weise::Boxweise);
    // Releases the current box's lists and the boxes.
    ~Sammlungsdurchlauf();
    Sammlungsdurchlauf(const Sammlungsdurchlauf&) = delete;
    Sammlungsdurchlauf& operator=(const Sammlungsdurchlauf&) = delete;

    // The next box in catalogue order with its lists built exactly as
    // ladeSammlung builds them; the previous box's lists are released first.
    // Null after the last box (at once for a walk Filmweise). The element stays
    // valid until the walk ends; its lists only until the next call.
    BoxElement* naechste();

    // Instead of naechste(): every film the walk meets, each once, in id order.
    // f(film, erste) gets the film with its lists built as naechste() builds them
    // (Index as at its first meeting), released when f returns. The tables are
    // then visited front to back instead of in title order; for work that puts
    // its results in walk order itself (by erste.rang).
    void filmeNachId(const std::function<void(const FilmElement&, const Fundstelle&)>& f);

    // How many boxes, DVDs and films the walk meets, each DVD and film counted
    // once however many boxes hold it (the DVDs and films need them in scope).
    long boxen() const;
    long dvds() const;
    long filme() const;

  private:
    struct Leser;
    // The box ids in catalogue order.
    std::vector<std::int32_t> boxIds() const;

    Datenbank& db_;
    BoxListe boxen_;
    std::vector<std::int32_t> boxIds_;  // Filmweise
    std::unique_ptr<Leser> leser_;
    BoxElement* aktuell_ = nullptr;
    bool begonnen_ = false;
};

// The ids of every box in the order of Datenbank::getBoxListe, without building
// the elements.
std::vector<std::int32_t> boxOrdnung(Datenbank& db);

}  // namespace dv
