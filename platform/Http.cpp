#include "platform/Http.h"

#include <curl/curl.h>

#include <memory>

namespace dv {

namespace {

struct Empfang {
    std::string* daten;
    std::size_t max;
    bool zuGross = false;
};

std::size_t empfange(char* p, std::size_t groesse, std::size_t anzahl, void* nutzer) {
    auto* e = static_cast<Empfang*>(nutzer);
    const std::size_t n = groesse * anzahl;
    if (e->daten->size() + n > e->max) {
        e->zuGross = true;
        return 0;  // makes curl abort the transfer
    }
    e->daten->append(p, n);
    return n;
}

// curl_global_init once, before the first handle; it is not undone.
void initialisiere() {
    static const bool fertig = [] { return curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK; }();
    (void)fertig;
}

std::string ursache(CURLcode c) {
    switch (c) {
        case CURLE_OPERATION_TIMEDOUT:
            return "Zeitüberschreitung";
        case CURLE_COULDNT_CONNECT:
            return "Verbindung abgelehnt";
        case CURLE_COULDNT_RESOLVE_HOST:
            return "Server unbekannt";
        case CURLE_PARTIAL_FILE:
            return "Übertragung unvollständig";
        case CURLE_UNSUPPORTED_PROTOCOL:
            return "Adresse ohne http:// oder https://";
        case CURLE_URL_MALFORMAT:
            return "Adresse fehlerhaft";
        case CURLE_TOO_MANY_REDIRECTS:
            return "zu viele Weiterleitungen";
        default:
            return curl_easy_strerror(c);
    }
}

}  // namespace

namespace {

class CurlHttp : public Http {
  public:
    bool hole(const std::string& url, const HttpGrenzen& grenzen, std::string& daten,
              std::string& fehler) override;
};

}  // namespace

Http& echtesHttp() {
    static CurlHttp http;
    return http;
}

bool CurlHttp::hole(const std::string& url, const HttpGrenzen& grenzen, std::string& daten,
                    std::string& fehler) {
    initialisiere();
    daten.clear();
    std::unique_ptr<CURL, void (*)(CURL*)> h(curl_easy_init(), curl_easy_cleanup);
    if (!h) {
        fehler = "Error: HTTP-Verbindung: keine Sitzung";
        return false;
    }
    Empfang empfang{&daten, grenzen.maxBytes};
    CURL* c = h.get();
    curl_easy_setopt(c, CURLOPT_URL, url.c_str());
    curl_easy_setopt(c, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(c, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(c, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(c, CURLOPT_MAXREDIRS, 5L);
    curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT, grenzen.verbindenSekunden);
    curl_easy_setopt(c, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(c, CURLOPT_LOW_SPEED_TIME, grenzen.stillstandSekunden);
    curl_easy_setopt(c, CURLOPT_TIMEOUT, grenzen.gesamtSekunden);
    curl_easy_setopt(c, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(grenzen.maxBytes));
    curl_easy_setopt(c, CURLOPT_USERAGENT, "DORVANO Web-Import");
    curl_easy_setopt(c, CURLOPT_WRITEFUNCTION, &empfange);
    curl_easy_setopt(c, CURLOPT_WRITEDATA, &empfang);

    const CURLcode ergebnis = curl_easy_perform(c);
    long status = 0;
    curl_easy_getinfo(c, CURLINFO_RESPONSE_CODE, &status);
    if (ergebnis == CURLE_OK && status >= 200 && status < 300) return true;

    daten.clear();
    if (ergebnis == CURLE_OK) {
        fehler = "Error: HTTP " + std::to_string(status);
    } else if (empfang.zuGross || ergebnis == CURLE_FILESIZE_EXCEEDED) {
        fehler = "Error: HTTP-Verbindung: Datei größer als " + std::to_string(grenzen.maxBytes) +
                 " Bytes";
    } else {
        fehler = "Error: HTTP-Verbindung: " + ursache(ergebnis);
    }
    return false;
}

}  // namespace dv
