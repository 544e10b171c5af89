#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <curl/curl.h>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/HTTP/TrustedAuthorities.h"

namespace kit {

struct CurlDeleter {
    void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

using CurlEasy = std::unique_ptr<CURL, CurlDeleter>;
using CurlList = std::unique_ptr<curl_slist, CurlDeleter>;

/// Appends to a list that may be empty; throws std::bad_alloc.
void append(CurlList& list, const std::string& line);

/// What all transfers have in common.
struct TransferRules {
    TrustedAuthorities authorities;
    CurlList connectTo;  ///< empty: connections go where the addresses say
    bool (*isPrivate)(std::string_view ip);
};

/// One request on one easy handle, from its options to its answer. Lives on curl's thread.
class CurlTransfer {
public:
    using Clock = std::chrono::steady_clock;

    /// `easy` must be fresh or reset. `rules` must outlive the transfer.
    CurlTransfer(CurlEasy easy, TransportRequest request, const TransferRules& rules);
    CurlTransfer(const CurlTransfer&) = delete;
    CurlTransfer& operator=(const CurlTransfer&) = delete;

    CURL* handle() const { return easy_.get(); }

    /// The time at which the whole transfer or the server's silence has lasted too long. The latter
    /// moves with every byte.
    Clock::time_point deadline() const {
        return std::min(endsAt_, lastSign_ + request_.idleTimeout);
    }

    /// The answer, from curl's result or from a failure that this class found.
    TransportAnswer finish(CURLcode code);
    TransportAnswer finish(FetchError failure);

    /// Hands the handle to the next transfer. This one is over.
    CurlEasy releaseHandle();

private:
    void setOptions();
    void setMethod();
    void setCallbacks();
    void setAddress();
    void setTrust();
    std::string hostName() const;
    std::optional<std::string_view> header(const char* name) const;
    int status() const;
    std::optional<std::chrono::sys_seconds> date() const;
    bool follows(int status) const;
    std::string redirectTo(int status) const;
    ResponseHeaders headers() const;
    void recordRedirect(int status);
    bool headComplete();
    bool withinHeaderLimit(std::size_t bytes);
    bool accept(std::string_view bytes);
    bool mayConnectTo(std::string_view ip);
    std::optional<FetchError> failureOf(CURLcode code) const;
    TransportAnswer answer() const;

    static std::size_t onHeader(char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t onBody(char* data, std::size_t size, std::size_t count, void* self);
    static int onProgress(void* self, curl_off_t toReceive, curl_off_t received, curl_off_t toSend,
                          curl_off_t sent);
    static curl_socket_t onOpenSocket(void* self, curlsocktype purpose, curl_sockaddr* address);
    static int onConnected(void* self, char* remoteIP, char* localIP, int remotePort,
                           int localPort);

    CurlEasy easy_;
    TransportRequest request_;
    const TransferRules& rules_;
    CurlList headers_;
    Clock::time_point lastSign_ = Clock::now();
    Clock::time_point endsAt_ = lastSign_ + request_.totalTimeout;
    std::string body_;
    std::optional<FetchError> failure_;  ///< found by this class; outweighs curl's result
    bool settled_ = false;               ///< the head decides; the body is not needed
    bool inHead_ = false;
    bool hasFinalHead_ = false;    ///< the head of the final answer, not of a redirect, is complete
    bool hasAsked_ = false;        ///< the last address was connected to
    std::size_t headerBytes_ = 0;  ///< of all answers, trailers included
    bool followsRedirects_ = true;
    curl_off_t bytesSent_ = 0;
    bool hasRoute_ = false;  ///< to one of the addresses tried so far
    bool refusedPrivate_ = false;
    bool seenPublic_;  ///< a peer so far was on the public network
    int redirects_ = 0;
    bool movedForGood_ = true;  ///< every redirect so far was permanent
    std::string movedTo_;
};

}  // namespace kit
