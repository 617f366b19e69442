// libcurl is loaded when the first download starts, not when the program starts.
// Linked directly, the library and the two dozen libraries it pulls in (TLS,
// Kerberos, LDAP, ...) add about 6 ms to the start of every process, while only
// the web import ever uses them. The functions the web import calls are defined
// here under their own names; each looks its library function up once.

#include <curl/curl.h>
#include <dlfcn.h>

#include <cstdarg>

namespace {

static_assert(sizeof(void*) == sizeof(long) && sizeof(void*) == sizeof(curl_off_t),
              "every option value is passed on as one machine word");

// The loaded library, or null when it cannot be loaded (then every call fails
// the way libcurl reports a failed start).
void* bibliothek() {
    static void* const b = [] {
        void* h = ::dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
        return h ? h : ::dlopen("libcurl-gnutls.so.4", RTLD_NOW | RTLD_LOCAL);
    }();
    return b;
}

template <class F>
F funktion(const char* name) {
    void* b = bibliothek();
    return b ? reinterpret_cast<F>(::dlsym(b, name)) : nullptr;
}

}  // namespace

extern "C" {

CURLcode curl_global_init(long flags) {
    static const auto f = funktion<CURLcode (*)(long)>("curl_global_init");
    return f ? f(flags) : CURLE_FAILED_INIT;
}

CURL* curl_easy_init(void) {
    static const auto f = funktion<CURL* (*)()>("curl_easy_init");
    return f ? f() : nullptr;
}

void curl_easy_cleanup(CURL* c) {
    static const auto f = funktion<void (*)(CURL*)>("curl_easy_cleanup");
    if (f) f(c);
}

CURLcode curl_easy_perform(CURL* c) {
    static const auto f = funktion<CURLcode (*)(CURL*)>("curl_easy_perform");
    return f ? f(c) : CURLE_FAILED_INIT;
}

const char* curl_easy_strerror(CURLcode code) {
    static const auto f = funktion<const char* (*)(CURLcode)>("curl_easy_strerror");
    return f ? f(code) : "libcurl nicht geladen";
}

// The value after the option is a long, a pointer, a function pointer or a
// curl_off_t: one integer word each, passed on as it came.
CURLcode curl_easy_setopt(CURL* c, CURLoption option, ...) {
    static const auto f = funktion<CURLcode (*)(CURL*, CURLoption, ...)>("curl_easy_setopt");
    va_list args;
    va_start(args, option);
    void* wert = va_arg(args, void*);
    va_end(args);
    return f ? f(c, option, wert) : CURLE_FAILED_INIT;
}

CURLcode curl_easy_getinfo(CURL* c, CURLINFO info, ...) {
    static const auto f = funktion<CURLcode (*)(CURL*, CURLINFO, ...)>("curl_easy_getinfo");
    va_list args;
    va_start(args, info);
    void* ziel = va_arg(args, void*);
    va_end(args);
    return f ? f(c, info, ziel) : CURLE_FAILED_INIT;
}

}  // extern "C"
