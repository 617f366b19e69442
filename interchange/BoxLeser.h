#pragma once
// Reading a box file into memory: the header, the picture bytes and the data
// block, each block already unpacked.
//
// Box files come from other collections and through the web import from
// strangers, so the reader trusts no number in them: every offset and length is
// checked against what is left, a packed block's stated size is capped (and
// checked against what zlib can produce from the stored bytes) before anything is
// allocated, and the data block must be a complete run of entries that ends with
// the end token. A file that fails any of this leaves the reader empty, which the
// import treats as "not a box file". Nothing here touches the catalogue.

#include <cstdint>
#include <string>
#include <string_view>

#include "interchange/BoxFormat.h"
#include "platform/Dateisystem.h"

namespace dv {

// One entry of the data block.
struct BoxEintrag {
    std::uint8_t token = 0;
    std::string_view wert;       // the raw value bytes (points into the data block)
    std::string text;            // the value as text (see naechsterBoxEintrag)
    std::size_t verbraucht = 0;  // bytes of the whole entry: length + 2 (long: + 3)
};

// The entry at pos of the data block. Its value as text: text tokens as they
// stand (cut at a NUL byte); 0x31, 0x32, 0x53 "%d" of the byte; 0x33, 0x34, 0x35
// "%ld" of the u32 (as a signed 32-bit number); 0x38, 0x54, 0x55, 0x81, 0x83 "%d"
// of the u16; 0x80 and 0x85 an empty text. False when the entry runs past the end
// of the block or a number has a width other than 1, 2 or 4 bytes.
bool naechsterBoxEintrag(std::string_view daten, std::size_t pos, BoxEintrag& e);

// True when the block is a run of complete, well-formed entries up to an end token.
bool datenVollstaendig(std::string_view daten);

class BoxLeser {
  public:
    // Reads the file whole. False, with the reader emptied, when it cannot be read,
    // is larger than any box file can be, or is not a well-formed box file.
    bool lese(Dateisystem& fs, const std::string& pfad);
    // The same on bytes already in memory.
    bool leseBytes(std::string_view datei);
    void leere();

    bool gueltig() const { return gueltig_; }
    const box::Kopf& kopf() const { return kopf_; }
    int bildTyp() const { return kopf_.flags & box::kBildTypMaske; }
    // The picture bytes (empty when the file has none). When a packed picture
    // could not be unpacked it stays as read and bildGepackt() is true.
    const std::string& bild() const { return bild_; }
    bool bildGepackt() const { return bildGepackt_; }
    const std::string& daten() const { return daten_; }

  private:
    bool gueltig_ = false;
    box::Kopf kopf_;
    std::string bild_;
    bool bildGepackt_ = false;
    std::string daten_;
};

// Unpacks a packed block (u32 unpacked length, then one zlib stream) into out.
// False, with out untouched, when the stated length is above limit or more than
// zlib could make of the stored bytes, or the stream is damaged or of another length.
bool entpackeBlock(std::string_view block, std::uint32_t limit, std::string& out);
// Packs bytes as a block with zlib's compress at its default level; false on failure.
bool packeBlock(std::string_view roh, std::string& out);

}  // namespace dv
