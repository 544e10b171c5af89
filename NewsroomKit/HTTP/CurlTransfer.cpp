#include "NewsroomKit/HTTP/CurlTransfer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <new>
#include <utility>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kit {
namespace {

constexpr std::size_t mostHeaderBytes = 300'000;
// A content encoding makes an incompressible body slightly longer.
constexpr std::size_t encodingSlack = 64 * 1024;

// OpenSSL's verification results.
constexpr long certificateNotYetValid = 9;
constexpr long certificateHasExpired = 10;

template <class T>
T info(CURL* easy, CURLINFO what) {
    T value{};
    curl_easy_getinfo(easy, what, &value);
    return value;
}

std::string part(CURLU* url, CURLUPart which, unsigned flags = 0) {
    char* text = nullptr;
    if (curl_url_get(url, which, &text, flags) != CURLUE_OK) return {};
    const std::unique_ptr<char, decltype(&curl_free)> owned(text, curl_free);
    return text;
}

/// Resolves `reference` against `base`. Empty when either is malformed.
std::string resolved(const std::string& base, const std::string& reference) {
    const std::unique_ptr<CURLU, CurlDeleter> url(curl_url());
    if (curl_url_set(url.get(), CURLUPART_URL, base.c_str(), 0) != CURLUE_OK ||
        curl_url_set(url.get(), CURLUPART_URL, reference.c_str(), 0) != CURLUE_OK) {
        return {};
    }
    return part(url.get(), CURLUPART_URL);
}

/// Scheme, host and port; the default port is spelled out.
std::string originOf(const std::string& address) {
    const std::unique_ptr<CURLU, CurlDeleter> url(curl_url());
    if (curl_url_set(url.get(), CURLUPART_URL, address.c_str(), 0) != CURLUE_OK) return {};
    return part(url.get(), CURLUPART_SCHEME) + "://" + part(url.get(), CURLUPART_HOST) + ":" +
           part(url.get(), CURLUPART_PORT, CURLU_DEFAULT_PORT);
}

std::string numericText(const sockaddr* address) {
    std::array<char, INET6_ADDRSTRLEN> text{};
    const void* bytes =
        address->sa_family == AF_INET6
            ? static_cast<const void*>(&reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr)
            : &reinterpret_cast<const sockaddr_in*>(address)->sin_addr;
    inet_ntop(address->sa_family, bytes, text.data(), text.size());
    return text.data();
}

/// Whether this computer has a route to the address. Sends nothing.
bool hasRouteTo(const curl_sockaddr& address) {
    const int probe = ::socket(address.family, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (probe < 0) return false;
    const bool found = ::connect(probe, &address.addr, address.addrlen) == 0;
    ::close(probe);
    return found;
}

}  // namespace

void append(CurlList& list, const std::string& line) {
    curl_slist* longer = curl_slist_append(list.get(), line.c_str());
    if (longer == nullptr) throw std::bad_alloc();
    static_cast<void>(list.release());
    list.reset(longer);
}

CurlTransfer::CurlTransfer(CurlEasy easy, TransportRequest request, const TransferRules& rules)
    : easy_(std::move(easy)),
      request_(std::move(request)),
      rules_(rules),
      seenPublic_(request_.namedInPublic) {
    for (const auto& line : request_.headers) append(headers_, line);
    setMethod();
    setOptions();
    setCallbacks();
    setAddress();
    setTrust();
}

CurlEasy CurlTransfer::releaseHandle() {
    curl_easy_reset(easy_.get());
    return std::move(easy_);
}

std::string CurlTransfer::hostName() const {
    const std::unique_ptr<CURLU, CurlDeleter> url(curl_url());
    if (curl_url_set(url.get(), CURLUPART_URL, request_.url.c_str(), 0) != CURLUE_OK) return {};
    return part(url.get(), CURLUPART_HOST);
}

int CurlTransfer::status() const {
    return static_cast<int>(info<long>(easy_.get(), CURLINFO_RESPONSE_CODE));
}

/// A header of the last answer.
std::optional<std::string_view> CurlTransfer::header(const char* name) const {
    curl_header* found = nullptr;
    if (curl_easy_header(easy_.get(), name, 0, CURLH_HEADER, -1, &found) != CURLHE_OK) {
        return std::nullopt;
    }
    return found->value;
}

std::optional<std::chrono::sys_seconds> CurlTransfer::date() const {
    const auto text = header("Date");
    if (!text) return std::nullopt;
    const auto seconds = curl_getdate(std::string(*text).c_str(), nullptr);
    if (seconds < 0) return std::nullopt;
    return std::chrono::sys_seconds(std::chrono::seconds(seconds));
}

bool CurlTransfer::follows(int status) const {
    return followsRedirects_ && status >= 300 && status <= 399 && status != 304 &&
           !header("Location").value_or("").empty();
}

std::string CurlTransfer::redirectTo(int status) const {
    const bool repeats = status == 307 || status == 308;
    const auto location = header("Location").value_or("");
    if (request_.method == HTTPMethod::get || location.empty() || !(repeats || status == 303))
        return {};
    auto address = resolved(request_.url, std::string(location));
    // A host's own authority must not certify another host.
    if (rules_.authorities.bundleFor(hostName()) != nullptr) return {};
    if (repeats && originOf(address) != originOf(request_.url)) return {};
    return address;
}

ResponseHeaders CurlTransfer::headers() const {
    ResponseHeaders headers;
    for (curl_header* each = nullptr;
         (each = curl_easy_nextheader(easy_.get(), CURLH_HEADER, -1, each)) != nullptr;) {
        headers.add(each->name, each->value);
    }
    return headers;
}

void CurlTransfer::recordRedirect(int status) {
    ++redirects_;
    hasAsked_ = false;
    movedForGood_ = movedForGood_ && (status == 301 || status == 308);
    if (movedForGood_) {
        movedTo_ =
            resolved(movedTo_.empty() ? request_.url : movedTo_, std::string(*header("Location")));
        movedForGood_ = !movedTo_.empty();
    }
}

/// Judges an answer by its head. False ends the transfer.
bool CurlTransfer::headComplete() {
    const int code = status();
    if (code < 200) return true;
    if (follows(code)) {
        recordRedirect(code);
        return true;
    }
    hasFinalHead_ = true;
    if (code == 304) {
        // curl would follow a 304 that carries a Location.
        settled_ = header("Location").has_value();
        return !settled_;
    }
    // Partial content was not requested.
    const bool isReadable = code == request_.readableStatus;
    if ((code > 299 && !isReadable) || code == 206) {
        failure_ = HTTPClientError{.kind = HTTPClientError::Kind::status, .statusCode = code};
        return false;
    }
    const auto announced = header("Content-Length").value_or("0");
    std::uint64_t length = 0;
    const auto read =
        std::from_chars(announced.data(), announced.data() + announced.size(), length);
    if (read.ec == std::errc::result_out_of_range || length > request_.byteLimit) {
        failure_ = HTTPClientError{.kind = HTTPClientError::Kind::tooLarge};
        return false;
    }
    body_.reserve(static_cast<std::size_t>(length));
    return true;
}

bool CurlTransfer::withinHeaderLimit(std::size_t bytes) {
    headerBytes_ += bytes;
    if (headerBytes_ <= mostHeaderBytes) return true;
    failure_ = HTTPClientError{.kind = HTTPClientError::Kind::tooLarge};
    return false;
}

bool CurlTransfer::accept(std::string_view bytes) {
    if (bytes.size() > request_.byteLimit - body_.size()) {
        failure_ = HTTPClientError{.kind = HTTPClientError::Kind::tooLarge};
        return false;
    }
    body_.append(bytes);
    return true;
}

bool CurlTransfer::mayConnectTo(std::string_view ip) {
    const bool isUsersChoice = redirects_ == 0 && !request_.namedInPublic;
    if (rules_.connectTo || isUsersChoice || !seenPublic_ || !rules_.isPrivate(ip)) return true;
    refusedPrivate_ = true;
    return false;
}

std::size_t CurlTransfer::onHeader(char* data, std::size_t size, std::size_t count, void* self) {
    auto& transfer = *static_cast<CurlTransfer*>(self);
    const std::string_view line(data, size * count);
    transfer.lastSign_ = Clock::now();
    if (!transfer.withinHeaderLimit(line.size())) return 0;
    if (line.starts_with("HTTP/")) transfer.inHead_ = true;
    const bool endsHead = transfer.inHead_ && (line == "\r\n" || line == "\n");
    if (!endsHead) return line.size();
    transfer.inHead_ = false;  // lines after the body are trailers
    return transfer.headComplete() ? line.size() : 0;
}

std::size_t CurlTransfer::onBody(char* data, std::size_t size, std::size_t count, void* self) {
    auto& transfer = *static_cast<CurlTransfer*>(self);
    transfer.lastSign_ = Clock::now();
    return transfer.accept({data, size * count}) ? size * count : 0;
}

/// Observes what `onBody` does not: the body of a redirect, a body that decodes to nothing, and how
/// much of the request's body has been sent.
int CurlTransfer::onProgress(void* self, curl_off_t, curl_off_t received, curl_off_t,
                             curl_off_t sent) {
    auto& transfer = *static_cast<CurlTransfer*>(self);
    if (sent > std::exchange(transfer.bytesSent_, sent)) transfer.lastSign_ = Clock::now();
    if (static_cast<std::size_t>(received) <= transfer.request_.byteLimit + encodingSlack) return 0;
    if (!transfer.failure_) {
        transfer.failure_ = HTTPClientError{.kind = HTTPClientError::Kind::tooLarge};
    }
    return 1;
}

curl_socket_t CurlTransfer::onOpenSocket(void* self, curlsocktype, curl_sockaddr* address) {
    auto& transfer = *static_cast<CurlTransfer*>(self);
    if (!transfer.mayConnectTo(numericText(&address->addr))) return CURL_SOCKET_BAD;
    transfer.hasRoute_ = transfer.hasRoute_ || hasRouteTo(*address);
    return ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

/// Called before each request, also on a reused connection, for which no socket is opened.
int CurlTransfer::onConnected(void* self, char* remoteIP, char*, int, int) {
    auto& transfer = *static_cast<CurlTransfer*>(self);
    transfer.lastSign_ = Clock::now();
    if (!transfer.mayConnectTo(remoteIP)) return CURL_PREREQFUNC_ABORT;
    transfer.hasAsked_ = true;
    transfer.seenPublic_ = transfer.seenPublic_ || !transfer.rules_.isPrivate(remoteIP);
    return CURL_PREREQFUNC_OK;
}

std::optional<FetchError> CurlTransfer::failureOf(CURLcode code) const {
    switch (code) {
        case CURLE_OK:
            // curl accepts a head that ends too early.
            if (!hasFinalHead_) return URLError::networkConnectionLost;
            return std::nullopt;
        // An address that is not https, or an answer that is not HTTP.
        case CURLE_UNSUPPORTED_PROTOCOL:
            return HTTPClientError{.kind = hasAsked_ ? HTTPClientError::Kind::notHTTP
                                                     : HTTPClientError::Kind::notHTTPS};
        // A header line is longer than curl's limit.
        case CURLE_OUT_OF_MEMORY: return HTTPClientError{.kind = HTTPClientError::Kind::tooLarge};
        case CURLE_URL_MALFORMAT: return URLError::badURL;
        case CURLE_OPERATION_TIMEDOUT: return URLError::timedOut;
        case CURLE_COULDNT_RESOLVE_HOST: return URLError::cannotFindHost;
        case CURLE_COULDNT_RESOLVE_PROXY: return URLError::dnsLookupFailed;
        case CURLE_COULDNT_CONNECT: {
            // The cause belongs to the address tried last; others may have refused the connection.
            const long cause = info<long>(easy_.get(), CURLINFO_OS_ERRNO);
            const bool isOffline = (cause == ENETUNREACH || cause == ENETDOWN) && !hasRoute_;
            return isOffline ? URLError::notConnectedToInternet : URLError::cannotConnectToHost;
        }
        case CURLE_GOT_NOTHING:
        case CURLE_PARTIAL_FILE:
        case CURLE_RECV_ERROR:
        case CURLE_SEND_ERROR:
        case CURLE_HTTP2:
        case CURLE_HTTP2_STREAM: return URLError::networkConnectionLost;
        case CURLE_PEER_FAILED_VERIFICATION:
            switch (info<long>(easy_.get(), CURLINFO_SSL_VERIFYRESULT)) {
                case certificateNotYetValid: return URLError::serverCertificateNotYetValid;
                case certificateHasExpired: return URLError::serverCertificateHasBadDate;
                default: return URLError::serverCertificateUntrusted;
            }
        case CURLE_TOO_MANY_REDIRECTS: return URLError::tooManyRedirects;
        case CURLE_BAD_CONTENT_ENCODING: return URLError::cannotDecodeContent;
        case CURLE_SSL_CONNECT_ERROR:
        case CURLE_SSL_CERTPROBLEM:
        case CURLE_SSL_CIPHER:
        case CURLE_SSL_CACERT_BADFILE:
        case CURLE_SSL_ISSUER_ERROR:
        case CURLE_SSL_INVALIDCERTSTATUS: return URLError::secureConnectionFailed;
        default: return URLError::badServerResponse;
    }
}

TransportAnswer CurlTransfer::answer() const {
    CURL* easy = easy_.get();
    const auto bodyBytes = info<curl_off_t>(easy, CURLINFO_SIZE_DOWNLOAD_T);
    const auto headBytes = info<long>(easy, CURLINFO_HEADER_SIZE);
    TransportAnswer answer{.status = status(),
                           .bytesOnWire = static_cast<std::uint64_t>(bodyBytes + headBytes),
                           .cameFromPublic = seenPublic_};
    if (const char* url = info<const char*>(easy, CURLINFO_EFFECTIVE_URL)) answer.url = url;
    const auto pause = info<curl_off_t>(easy, CURLINFO_RETRY_AFTER);
    if ((answer.status == 429 || answer.status == 503) && pause > 0) {
        answer.retryAfter = std::chrono::seconds(pause);
    }
    answer.date = date();
    answer.headers = headers();
    answer.redirectTo = redirectTo(answer.status);
    return answer;
}

TransportAnswer CurlTransfer::finish(CURLcode code) {
    TransportAnswer done = answer();
    if (refusedPrivate_ && !failure_ && code != CURLE_OK) {
        failure_ = URLError::redirectToPrivateAddress;
    }
    done.failure = failure_ || settled_ ? failure_ : failureOf(code);
    if (done.failure) return done;
    done.body = std::move(body_);
    if (const auto tag = header("ETag")) done.validators.entityTag = *tag;
    if (const auto date = header("Last-Modified")) done.validators.lastModified = *date;
    if (!movedTo_.empty()) done.movedTo = std::move(movedTo_);
    return done;
}

TransportAnswer CurlTransfer::finish(FetchError failure) {
    TransportAnswer done = answer();
    done.failure = failure_.value_or(failure);
    return done;
}

}  // namespace kit
