#pragma once
// Synchronous HTTP downloads for the web import: one URL into memory, bounded in
// time and size, HTTP and HTTPS only (redirects included). The real transport is
// libcurl, loaded on the first download; tests may put their own behind Http.

#include <cstddef>
#include <string>

namespace dv {

struct HttpGrenzen {
    long verbindenSekunden = 15;       // connect time-out
    long stillstandSekunden = 30;      // abort when less than 1 byte/s arrives for this long
    long gesamtSekunden = 600;         // the whole transfer
    std::size_t maxBytes = 64u << 20;  // larger bodies are refused
};

class Http {
  public:
    virtual ~Http() = default;
    // Fetches url into daten. On failure returns false with a German text in
    // fehler that begins "Error: HTTP" ("Error: HTTP 404", "Error: HTTP-Verbindung:
    // ..."). A body cut short, one larger than maxBytes, and a time-out all fail.
    // Blocks the calling thread; one object may serve one thread at a time.
    virtual bool hole(const std::string& url, const HttpGrenzen& grenzen, std::string& daten,
                      std::string& fehler) = 0;
};

// The libcurl transport; lives for the whole process.
Http& echtesHttp();

}  // namespace dv
