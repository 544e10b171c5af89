#include <new>
#include <stdexcept>
#include <string>

#include <fmt/format.h>

#include "NewsroomKit/HTTP/CurlTransfer.h"

// How a transfer tells curl what it may do. Its answer is read in CurlTransfer.cpp.
namespace kit {
namespace {

constexpr long mostRedirects = 10;

template <class T>
void set(CURL* easy, CURLoption option, T value) {
    const CURLcode code = curl_easy_setopt(easy, option, value);
    if (code == CURLE_OUT_OF_MEMORY) throw std::bad_alloc();
    if (code != CURLE_OK) {
        throw std::logic_error(fmt::format("curl refuses option {}: {}", static_cast<int>(option),
                                           curl_easy_strerror(code)));
    }
}

}  // namespace

void CurlTransfer::setOptions() {
    CURL* easy = easy_.get();
    set(easy, CURLOPT_PROTOCOLS_STR, "https");
    set(easy, CURLOPT_REDIR_PROTOCOLS_STR, "https");
    // curl 7.88 does not return from a call while empty HTTP/2 frames keep coming: time limits fail
    // then, and all other transfers wait. At two requests per host, HTTP/2 gains nothing.
    set(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    set(easy, CURLOPT_ACCEPT_ENCODING, "");  // whatever this curl can decode
    set(easy, CURLOPT_HTTPHEADER, headers_.get());
    set(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    set(easy, CURLOPT_MAXREDIRS, mostRedirects);
    set(easy, CURLOPT_NOSIGNAL, 1L);
    // Otherwise, abandoning a name lookup blocks the thread, and so every other transfer, until the
    // resolver has given up too.
    set(easy, CURLOPT_QUICK_EXIT, 1L);
    if (rules_.connectTo) {
        set(easy, CURLOPT_CONNECT_TO, rules_.connectTo.get());
        set(easy, CURLOPT_PROXY, "");  // overrides the environment
    }
}

void CurlTransfer::setMethod() {
    if (request_.method == HTTPMethod::get) return;
    CURL* easy = easy_.get();
    // curl would keep the method where a redirect changes it, so the caller follows such redirects.
    followsRedirects_ = false;
    // Otherwise curl holds back a large body for a second, in case the server refuses it.
    append(headers_, "Expect:");
    if (request_.method != HTTPMethod::remove || !request_.body.empty()) {
        set(easy, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request_.body.size()));
        set(easy, CURLOPT_POSTFIELDS, request_.body.c_str());
    }
    // curl would repeat the request when a reused connection breaks.
    if (request_.method == HTTPMethod::post) set(easy, CURLOPT_FRESH_CONNECT, 1L);
    if (request_.method == HTTPMethod::put) set(easy, CURLOPT_CUSTOMREQUEST, "PUT");
    if (request_.method == HTTPMethod::remove) set(easy, CURLOPT_CUSTOMREQUEST, "DELETE");
}

void CurlTransfer::setCallbacks() {
    CURL* easy = easy_.get();
    set(easy, CURLOPT_HEADERFUNCTION, &CurlTransfer::onHeader);
    set(easy, CURLOPT_HEADERDATA, this);
    set(easy, CURLOPT_WRITEFUNCTION, &CurlTransfer::onBody);
    set(easy, CURLOPT_WRITEDATA, this);
    set(easy, CURLOPT_XFERINFOFUNCTION, &CurlTransfer::onProgress);
    set(easy, CURLOPT_XFERINFODATA, this);
    set(easy, CURLOPT_NOPROGRESS, 0L);
    set(easy, CURLOPT_OPENSOCKETFUNCTION, &CurlTransfer::onOpenSocket);
    set(easy, CURLOPT_OPENSOCKETDATA, this);
    set(easy, CURLOPT_PREREQFUNCTION, &CurlTransfer::onConnected);
    set(easy, CURLOPT_PREREQDATA, this);
}

/// When curl refuses an address because of its length, the handle has none, and the transfer fails
/// at once.
void CurlTransfer::setAddress() {
    const bool isText = request_.url.find('\0') == std::string::npos;
    if (!isText || curl_easy_setopt(easy_.get(), CURLOPT_URL, request_.url.c_str()) != CURLE_OK) {
        failure_ = URLError::badURL;
    }
}

void CurlTransfer::setTrust() {
    CURL* easy = easy_.get();
    set(easy, CURLOPT_SSL_VERIFYPEER, 1L);
    set(easy, CURLOPT_SSL_VERIFYHOST, 2L);
    // curl caches the parsed bundle between connections only when it is a single file.
    set(easy, CURLOPT_CAPATH, static_cast<char*>(nullptr));
    set(easy, CURLOPT_CAINFO, rules_.authorities.file().c_str());
    const std::string* bundle = rules_.authorities.bundleFor(hostName());
    if (bundle != nullptr) {
        // A blob does not displace the cached bundle; a second file would.
        curl_blob blob{.data = const_cast<char*>(bundle->data()),
                       .len = bundle->size(),
                       .flags = CURL_BLOB_NOCOPY};
        set(easy, CURLOPT_CAINFO_BLOB, &blob);
        followsRedirects_ = false;
    }
    set(easy, CURLOPT_FOLLOWLOCATION, followsRedirects_ ? 1L : 0L);
}

}  // namespace kit
