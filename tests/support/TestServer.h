#pragma once
// A tiny HTTP/1.0 file server on 127.0.0.1 for the tests of downloads: serves the
// files below a folder, one thread per connection, and can be told to answer a
// path with 404, a body cut short, a stalled body or a body of a given size.
// Every wait is bounded; the destructor stops and joins all threads.

#include <atomic>
#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace dv::test {

class TestServer {
  public:
    enum class Art {
        Normal,
        Fehlt,          // 404 Not Found
        Abgeschnitten,  // announces the whole length, sends half and closes
        Langsam,        // sends the header and one byte, then stalls (up to 20 s)
        Riesig,         // a body of `groesse` bytes of 'x', whatever the file holds
    };

    // Serves ordner (ending in '/'); listens on an ephemeral port.
    explicit TestServer(std::string ordner);
    ~TestServer();
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;

    // "http://127.0.0.1:<port>/"; empty when the server could not start.
    std::string url() const;
    // How to answer requests for pfad (the URL path without the leading '/').
    void setze(const std::string& pfad, Art art, std::size_t groesse = 0);
    // The decoded paths requested so far, without the leading '/'.
    std::vector<std::string> anfragen() const;

  private:
    void nimmAn();
    void bediene(int fd);
    void antworte(int fd, const std::string& pfad);

    std::string ordner_;
    int lauscher_ = -1;
    int port_ = 0;
    std::atomic<bool> halt_{false};
    std::thread annahme_;
    mutable std::mutex mutex_;
    std::vector<std::thread> verbindungen_;
    std::map<std::string, std::pair<Art, std::size_t>> arten_;
    std::vector<std::string> anfragen_;
};

}  // namespace dv::test
