#include "tests/support/TestServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QByteArray>
#include <algorithm>
#include <chrono>
#include <tuple>

#include "tests/support/TempOrdner.h"

namespace dv::test {

namespace {

bool sende(int fd, const char* p, std::size_t n) {
    while (n > 0) {
        const ssize_t k = ::send(fd, p, n, MSG_NOSIGNAL);
        if (k <= 0) return false;
        p += k;
        n -= static_cast<std::size_t>(k);
    }
    return true;
}
bool sende(int fd, const std::string& s) {
    return sende(fd, s.data(), s.size());
}

std::string kopf(int status, const char* text, std::size_t laenge) {
    return "HTTP/1.0 " + std::to_string(status) + " " + text +
           "\r\nContent-Length: " + std::to_string(laenge) +
           "\r\nContent-Type: application/octet-stream\r\nConnection: close\r\n\r\n";
}

}  // namespace

TestServer::TestServer(std::string ordner) : ordner_(std::move(ordner)) {
    lauscher_ = ::socket(AF_INET, SOCK_STREAM, 0);
    if (lauscher_ < 0) return;
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    a.sin_port = 0;
    socklen_t len = sizeof a;
    if (::bind(lauscher_, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0 ||
        ::listen(lauscher_, 16) != 0 ||
        ::getsockname(lauscher_, reinterpret_cast<sockaddr*>(&a), &len) != 0) {
        ::close(lauscher_);
        lauscher_ = -1;
        return;
    }
    port_ = ntohs(a.sin_port);
    annahme_ = std::thread([this] { nimmAn(); });
}

TestServer::~TestServer() {
    halt_ = true;
    if (annahme_.joinable()) annahme_.join();
    std::vector<std::thread> rest;
    {
        std::lock_guard<std::mutex> l(mutex_);
        rest.swap(verbindungen_);
    }
    for (std::thread& t : rest) t.join();
    if (lauscher_ >= 0) ::close(lauscher_);
}

std::string TestServer::url() const {
    return lauscher_ < 0 ? std::string() : "http://127.0.0.1:" + std::to_string(port_) + "/";
}

void TestServer::setze(const std::string& pfad, Art art, std::size_t groesse) {
    std::lock_guard<std::mutex> l(mutex_);
    arten_[pfad] = {art, groesse};
}

std::vector<std::string> TestServer::anfragen() const {
    std::lock_guard<std::mutex> l(mutex_);
    return anfragen_;
}

void TestServer::nimmAn() {
    while (!halt_) {
        pollfd p{lauscher_, POLLIN, 0};
        if (::poll(&p, 1, 50) <= 0) continue;
        const int fd = ::accept(lauscher_, nullptr, nullptr);
        if (fd < 0) continue;
        std::lock_guard<std::mutex> l(mutex_);
        verbindungen_.emplace_back([this, fd] { bediene(fd); });
    }
}

void TestServer::bediene(int fd) {
    std::string anfrage;
    const auto ende = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (anfrage.find("\r\n\r\n") == std::string::npos && anfrage.size() < 16384 &&
           std::chrono::steady_clock::now() < ende && !halt_) {
        pollfd p{fd, POLLIN, 0};
        if (::poll(&p, 1, 50) <= 0) continue;
        char puffer[2048];
        const ssize_t n = ::recv(fd, puffer, sizeof puffer, 0);
        if (n <= 0) break;
        anfrage.append(puffer, static_cast<std::size_t>(n));
    }
    // "GET /pfad HTTP/1.x"
    const std::size_t a = anfrage.find(' ');
    const std::size_t b = a == std::string::npos ? a : anfrage.find(' ', a + 1);
    if (b != std::string::npos && anfrage.compare(0, a, "GET") == 0 && anfrage[a + 1] == '/') {
        antworte(fd, QByteArray::fromPercentEncoding(
                         QByteArray::fromStdString(anfrage.substr(a + 2, b - a - 2)))
                         .toStdString());
    } else {
        sende(fd, kopf(400, "Bad Request", 0));
    }
    ::shutdown(fd, SHUT_RDWR);
    ::close(fd);
}

void TestServer::antworte(int fd, const std::string& pfad) {
    Art art = Art::Normal;
    std::size_t groesse = 0;
    {
        std::lock_guard<std::mutex> l(mutex_);
        anfragen_.push_back(pfad);
        if (auto it = arten_.find(pfad); it != arten_.end()) std::tie(art, groesse) = it->second;
    }
    const std::string datei = ordner_ + pfad;
    if (art == Art::Riesig) {
        if (!sende(fd, kopf(200, "OK", groesse))) return;
        const std::string block(65536, 'x');
        for (std::size_t gesendet = 0; gesendet < groesse && !halt_; gesendet += block.size())
            if (!sende(fd, block.data(), std::min(block.size(), groesse - gesendet))) return;
        return;
    }
    if (art == Art::Fehlt || pfad.find("..") != std::string::npos || !gibtEs(datei)) {
        const std::string text = "Not Found";
        sende(fd, kopf(404, "Not Found", text.size()) + text);
        return;
    }
    const std::string inhalt = leseDatei(datei);
    if (art == Art::Abgeschnitten) {
        sende(fd, kopf(200, "OK", inhalt.size()) + inhalt.substr(0, inhalt.size() / 2));
    } else if (art == Art::Langsam) {
        sende(fd, kopf(200, "OK", inhalt.size() + 1) + inhalt.substr(0, 1));
        const auto ende = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!halt_ && std::chrono::steady_clock::now() < ende) {
            pollfd p{fd, POLLIN, 0};
            // The client closing its end wakes us up; then the stall is over.
            if (::poll(&p, 1, 50) > 0) {
                char c;
                if (::recv(fd, &c, 1, 0) <= 0) break;
            }
        }
    } else {
        sende(fd, kopf(200, "OK", inhalt.size()) + inhalt);
    }
}

}  // namespace dv::test
